#pragma once

#include "screen/LWScreen.h"
#include "tests/windows/InspectorFixture.h"
#include "windows/tables/TablesPane.h"

#include <QApplication>
#include <QLabel>

/// The window with two walls, of 20 x 10 and 2 x 3 panels of 128 x 128, in an output of 4096 x 2160.
class PortsFixture : public InspectorFixture
{
protected:
    PortsFixture()
    {
        document.setOutputWidth(4096);
        document.setOutputHeight(2160);
        list().setLayers({wall("MAIN", 20, 10, 0), wall("SIDE", 2, 3, 3000)}, {0});
        document.finishEdit("walls");
    }

    LayerPointer wall(const QString &name, int columns, int rows, int left)
    {
        LayerPointer made = LWScreen::init(document);
        made->setLabel(name);
        made->setCol(columns);
        made->setRow(rows);
        made->setPanelWidth(128);
        made->setPanelHeight(128);
        made->setXpoint(left);
        made->setPattern(0);
        made->setPixelLimit(655'360);
        made->setVisible(true);
        made->drawInRect();
        return made;
    }
    /// Gives the show one, which feeds both walls.
    void addProcessor(const QString &model = "MX40 Pro")
    {
        ProcessorSettings settings;
        settings.model = model;
        EXPECT_TRUE(document.wiring().add(settings));
        QApplication::processEvents(); // lays out what has come into sight
    }
    TablesPane &pane() { return *window.findChild<TablesPane *>(); }
    /// What its head says.
    QLabel &state()
    {
        for (QLabel *label : pane().findChildren<QLabel *>()) {
            if (label->accessibleName() == "State of the tables")
                return *label;
        }
        qFatal("the head says nothing");
    }
    QColor stateColour() { return state().palette().color(QPalette::WindowText); }
    LayerPointer layer(qsizetype row) { return list().layer(row); }

    LWAppDelegate &document = window.document();
};
