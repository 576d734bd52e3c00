#pragma once

#include "layer/Layer.h"
#include "tests/windows/InspectorFixture.h"

#include <QLineEdit>
#include <QTest>

/// Keys go where the desktop sends them: to the window, which knows what has the focus and what is a shortcut.
class NumberFieldFixture : public InspectorFixture
{
protected:
    NumberFieldFixture()
    {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }
    void pressUndo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void pressRedo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void typeKeys(const QString &text)
    {
        for (const QChar key : text)
            QTest::keyClick(window.windowHandle(), key.toLatin1());
    }
    void clickInto(QWidget &field)
    {
        inspector().ensureWidgetVisible(&field);
        auto *line = field.findChild<QLineEdit *>();
        QTest::mouseClick(line ? line : &field, Qt::LeftButton);
        EXPECT_TRUE(field.hasFocus());
    }
    /// Replaces what is in the field.
    void enter(QWidget &field, const QString &text)
    {
        clickInto(field);
        press(Qt::Key_A, Qt::ControlModifier);
        typeKeys(text);
    }
    NumberField &number(const QString &name) { return control<NumberField>(name); }
    int steps() { return window.document().undoStack().index(); }
    /// The first wall, of 8 columns, and one of a single column below it.
    void selectTwoWalls()
    {
        window.document().AddScreen();
        list().setSelectionIndexes({0, 1});
    }
    int columns(qsizetype layer) { return list().layer(layer)->col(); }
    /// The field of two walls of 8 columns and of 1, with the cursor in it.
    NumberField &columnsOfTwoWalls()
    {
        selectTwoWalls();
        clickInto(number("Columns"));
        return number("Columns");
    }
    void expectColumnsOfBefore(const NumberField &field)
    {
        EXPECT_EQ(columns(0), 8);
        EXPECT_EQ(columns(1), 1);
        EXPECT_EQ(field.text(), "—");
    }
};
