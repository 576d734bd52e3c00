#pragma once

#include "app/LWAppDelegate.h"
#include "screen/LWScreen.h"
#include "tests/app/ScriptedPerson.h"

#include <QRect>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A document as it is after the start, with a scripted person before it.
class DocumentFixture : public ::testing::Test
{
protected:
    DocumentFixture() { document.applicationDidFinishLaunching(); }

    LayerPointer selected() { return document.arraycontroller().selectedLayer(); }

    /// One panel of one colour, without any decoration.
    LayerPointer solidScreen(const Colour &colour, const QRect &place)
    {
        LWScreen::Arguments arguments;
        arguments.row = 1;
        arguments.col = 1;
        arguments.panelWidth = place.width();
        arguments.panelHeight = place.height();
        arguments.rectColor = colour;
        arguments.bgEnable = true;
        arguments.hpos = place.x();
        arguments.vpos = place.y();
        return LWScreen::initWithrow(document, arguments);
    }

    /// Replaces the list, topmost first, and selects its first layer.
    void setLayers(const std::vector<LayerPointer> &layers)
    {
        LayerList &list = document.arraycontroller();
        while (list.rowCount() > 0)
            list.removeObjectAtArrangedObjectIndex(0);
        for (const LayerPointer &layer : layers)
            list.insertObjectAtArrangedObjectIndex(layer, list.rowCount());
        list.setSelectionIndex(0);
    }

    /// Composes at once, whatever the gate says.
    void compose()
    {
        document.timerupdate();
        document.update();
    }

    QRgb outputPixel(int x, int y) { return document.offscreenRep().pixel(x, y); }

    ScriptedPerson person;
    LWAppDelegate document{person};
    QSignalSpy composed{&document, &LWAppDelegate::composed};
    QSignalSpy changed{&document, &LWAppDelegate::changed};
    QTemporaryDir folder;
};
