#include "canvas/LWCanvasImageView.h"
#include "layer/Layer.h"
#include "tests/windows/InspectorFixture.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

/// Keys go where the desktop sends them: to the window, which knows what has the focus and what is a shortcut.
class NumberFieldTest : public InspectorFixture
{
protected:
    NumberFieldTest()
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

    /// The line beside the field; null: there is none.
    QLabel *faultLine(const QString &sentence)
    {
        for (QLabel *label : inspector().findChildren<QLabel *>()) {
            if (label->isVisibleTo(&inspector()) && label->text() == sentence)
                return label;
        }
        return nullptr;
    }
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
    /// The colour of the frame, in the middle of its left edge.
    static QColor frame(QWidget &field) { return field.grab().toImage().pixelColor(0, field.height() / 2); }
};

TEST_F(NumberFieldTest, UndoAndRedoAreTheDocumentsWhileANumberIsTyped)
{
    NumberField &field = number("Columns");
    const int before = steps();
    enter(field, "12");
    ASSERT_EQ(shown()->col(), 12);
    ASSERT_EQ(steps(), before + 1);

    pressUndo();
    EXPECT_EQ(steps(), before);
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(field.text(), "8");
    EXPECT_TRUE(field.hasFocus());
    pressRedo();
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldTest, UndoShowsTheValueInPlaceOfAnUnfinishedEntry)
{
    enter(number("Rows"), "6");
    NumberField &field = number("Columns");
    enter(field, "7*");
    pressUndo();
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(field.text(), "8");
    typeKeys("*");
    pressUndo();
    EXPECT_EQ(shown()->row(), 5);
    EXPECT_EQ(field.text(), "8");
}

TEST_F(NumberFieldTest, UndoAndRedoAreTheDocumentsWhileANameIsTyped)
{
    QLineEdit &field = control<QLineEdit>("Name");
    enter(field, "Stage");
    ASSERT_EQ(shown()->label(), "Stage");
    const int typed = steps();

    pressUndo();
    EXPECT_EQ(shown()->label(), "Layer 0");
    EXPECT_EQ(field.text(), "Layer 0");
    EXPECT_EQ(steps(), typed - 1);
    pressUndo(); // there is nothing more
    EXPECT_EQ(field.text(), "Layer 0");
    pressRedo();
    EXPECT_EQ(shown()->label(), "Stage");
    EXPECT_EQ(field.text(), "Stage");
    EXPECT_EQ(steps(), typed);
}

TEST_F(NumberFieldTest, TheFirstKeyAfterAClickReplacesTheDash)
{
    selectTwoWalls();
    NumberField &field = number("Columns");
    ASSERT_EQ(field.text(), "—");
    clickInto(field);
    EXPECT_EQ(field.findChild<QLineEdit *>()->selectedText(), "—");
    typeKeys("6");
    EXPECT_EQ(field.text(), "6");
    EXPECT_EQ(columns(0), 6);
    EXPECT_EQ(columns(1), 6);
}

TEST_F(NumberFieldTest, ANumberBesideTheDashReplacesIt)
{
    selectTwoWalls();
    NumberField &field = number("Panel width");
    EXPECT_EQ(field.text(), "—");
    clickInto(field);
    press(Qt::Key_Home);
    typeKeys("64");
    press(Qt::Key_Return);
    EXPECT_EQ(field.text(), "64 px");
    EXPECT_EQ(list().layer(0)->panelWidth(), 64);
    EXPECT_EQ(list().layer(1)->panelWidth(), 64);
}

TEST_F(NumberFieldTest, MixedNumbersAreNotStepped)
{
    selectTwoWalls();
    NumberField &field = number("Columns");
    clickInto(field);
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    QWheelEvent wheel(QPointF(5, 5), field.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &wheel);
    press(Qt::Key_Tab);
    EXPECT_EQ(columns(0), 8);
    EXPECT_EQ(columns(1), 1);
    EXPECT_EQ(field.text(), "—");
}

TEST_F(NumberFieldTest, AValueBeyondTheRangeIsShownAsItIs)
{
    shown()->setXpoint(100'050);
    shown()->setXYFontSize(0);
    inspector().refresh();
    EXPECT_EQ(number("Left").text(), "100050 px");
    EXPECT_EQ(number("Corner coordinates, size").text(), "0 pt");

    const int before = steps();
    clickInto(number("Left"));
    press(Qt::Key_Tab);
    EXPECT_EQ(number("Left").text(), "100050 px");
    EXPECT_EQ(shown()->xpoint(), 100'050);
    EXPECT_EQ(steps(), before);
}

TEST_F(NumberFieldTest, AStepFromBeyondTheRangeLeadsToItsNearestEnd)
{
    shown()->setXpoint(100'050);
    shown()->setXYFontSize(-7);
    inspector().refresh();
    clickInto(number("Left"));
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(shown()->xpoint(), 100'000);
    press(Qt::Key_Up);
    EXPECT_EQ(shown()->xpoint(), 100'000);
    press(Qt::Key_Down);
    EXPECT_EQ(shown()->xpoint(), 99'999);

    clickInto(number("Corner coordinates, size"));
    press(Qt::Key_Up);
    EXPECT_EQ(shown()->XYFontSize(), 1);
    EXPECT_EQ(number("Corner coordinates, size").text(), "1 pt");
}

TEST_F(NumberFieldTest, WhatIsWrongIsFramedAndToldBelowTheFieldWhileItIsTyped)
{
    const std::pair<const char *, const char *> cases[] = {
        {"99999", "99999 is out of range; type 1 to 10,000."},
        {"0", "0 is out of range; type 1 to 10,000."},
        {"3*4000", "3*4000 is out of range; type 1 to 10,000."},
        {"1e3", "\"1e3\" is more than digits; write them all."},
        {"0x10", "\"0x10\" is more than digits; write them all."},
        {"3,5", "\"3,5\" has a comma; leave it out."},
        {"3.5", "3.5 is no whole number; type 1 to 10,000."},
        {"wide", "\"wide\" is no number."},
        {"3*", "The sum is not finished; type on."},
        {"3/0", "Nothing can be divided by 0; divide by another."},
    };
    NumberField &field = number("Columns");
    for (const auto &[text, sentence] : cases) {
        enter(field, text);
        EXPECT_EQ(field.text(), text); // nothing is swallowed
        EXPECT_EQ(frame(field), Theme::danger) << text;
        EXPECT_NE(faultLine(sentence), nullptr);
        EXPECT_EQ(field.accessibleDescription(), sentence);
        enter(field, "8");
        EXPECT_EQ(frame(field), Theme::accent) << text;
        EXPECT_EQ(faultLine(sentence), nullptr);
    }
}

TEST_F(NumberFieldTest, TheNextFieldStaysUnderTheClickWhileAnEntryIsWrong)
{
    NumberField &rows = number("Rows");
    enter(number("Columns"), "9+");
    QApplication::processEvents(); // lays out
    const QRect next(rows.mapTo(&window, QPoint(0, 0)), rows.size());
    const QLabel *line = faultLine("The sum is not finished; type on.");
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(QRect(line->mapTo(&window, QPoint(0, 0)), line->size()).intersects(next));
    type(number("Columns"), "9");
    QApplication::processEvents();
    EXPECT_EQ(rows.mapTo(&window, QPoint(0, 0)), next.topLeft());

    enter(number("Columns"), "9+");
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, next.center());
    EXPECT_TRUE(rows.hasFocus());
    EXPECT_EQ(faultLine("The sum is not finished; type on."), nullptr);
}

TEST_F(NumberFieldTest, WhatIsWrongIsSaidAboveTheFieldWhereNobodyWouldSeeItBelow)
{
    NumberField &field = number("Watts per panel");
    clickInto(field);
    QScrollBar &bar = *inspector().verticalScrollBar();
    resizeTo({1280, 500});
    bar.setValue(field.mapTo(inspector().widget(), QPoint(0, field.height())).y() - inspector().viewport()->height());
    press(Qt::Key_A, Qt::ControlModifier);
    typeKeys("4*");
    const QLabel *line = faultLine("The sum is not finished; type on.");
    ASSERT_NE(line, nullptr);
    EXPECT_LT(line->geometry().bottom(), field.mapTo(inspector().widget(), QPoint(0, 0)).y());
    EXPECT_TRUE(inspector().viewport()->rect().contains(
        QRect(line->mapTo(inspector().viewport(), QPoint(0, 0)), line->size())));
}

TEST_F(NumberFieldTest, WhatIsWrongAsItStandsChangesNothing)
{
    for (const char *text : {"99999", "1e3", "0x10", "3,5", "3.5", "12 m"}) {
        const int before = steps();
        enter(number("Columns"), text);
        EXPECT_EQ(shown()->col(), 8) << text;
        EXPECT_EQ(steps(), before) << text;
        inspector().refresh();
        EXPECT_EQ(number("Columns").text(), text);
        press(Qt::Key_Return);
    }
}

TEST_F(NumberFieldTest, AnEntryThatIsMendedIsTakenAsOneStep)
{
    const int before = steps();
    NumberField &field = number("Columns");
    enter(field, "100000");
    press(Qt::Key_Backspace);
    EXPECT_EQ(shown()->col(), 10'000);
    EXPECT_EQ(frame(field), Theme::accent);
    EXPECT_EQ(steps(), before + 1);
    pressUndo();
    EXPECT_EQ(shown()->col(), 8);
}

TEST_F(NumberFieldTest, EscapeBringsBackTheValueBeforeTheEntryAndLeavesNoStep)
{
    const int before = steps();
    NumberField &field = number("Columns");
    for (const char *text : {"12", "12*", "99999", "1e3"}) {
        enter(field, text);
        press(Qt::Key_Escape);
        EXPECT_EQ(shown()->col(), 8) << text;
        EXPECT_EQ(field.text(), "8") << text;
        EXPECT_EQ(frame(field), Theme::accent) << text;
        EXPECT_EQ(steps(), before) << text;
        EXPECT_FALSE(window.document().undoStack().canRedo()) << text;
        EXPECT_TRUE(field.hasFocus());
    }
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(shown()->col(), 10);
    press(Qt::Key_Escape);
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(steps(), before);
}

TEST_F(NumberFieldTest, EscapeAfterASaveShowsWhatWasSaved)
{
    NumberField &field = number("Columns");
    enter(field, "12");
    window.document().endTyping(); // as saving does
    press(Qt::Key_Escape);
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldTest, EscapeAfterUndoAndRedoTakesNothingBack)
{
    NumberField &field = number("Columns");
    enter(field, "12");
    pressUndo();
    pressRedo();
    press(Qt::Key_Escape);
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldTest, WrongEntriesAndEscapeLeaveSeveralLayersTheirOwnValues)
{
    NumberField &field = columnsOfTwoWalls();
    typeKeys("99999");
    EXPECT_EQ(columns(0), 8);
    EXPECT_EQ(columns(1), 1);
    EXPECT_EQ(field.text(), "99999");
    EXPECT_EQ(frame(field), Theme::danger);
    press(Qt::Key_Escape);
    EXPECT_EQ(field.text(), "—");
    typeKeys("6");
    EXPECT_EQ(columns(1), 6);
    press(Qt::Key_Escape);
    expectColumnsOfBefore(field);
}

TEST_F(NumberFieldTest, UnitsCanBeTypedAndSumsWorkWithThem)
{
    const std::pair<const char *, int> cases[] = {{"96px", 96}, {"96 px", 96}, {"3840/2 PX", 1920}, {"6*128", 768}};
    for (const auto &[text, pixels] : cases) {
        enter(number("Panel width"), text);
        EXPECT_EQ(shown()->panelWidth(), pixels) << text;
    }
}

TEST_F(NumberFieldTest, WhatIsTypedBeyondTheRangeGoesBackToTheValueBeforeTheTyping)
{
    NumberField &field = number("Columns");
    const int before = steps();
    enter(field, "99999");
    press(Qt::Key_Return);
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(field.text(), "8");
    EXPECT_EQ(steps(), before);
    EXPECT_FALSE(window.document().undoStack().canRedo());
}

TEST_F(NumberFieldTest, AWrongEntryForSeveralLayersGivesEachItsOwnValueBack)
{
    NumberField &field = columnsOfTwoWalls();
    typeKeys("9*");
    ASSERT_EQ(columns(0), 9);
    press(Qt::Key_Tab);
    expectColumnsOfBefore(field);
}

TEST_F(NumberFieldTest, AnEntryThatNeverHadAValueTakesNothingBack)
{
    enter(number("Rows"), "6");
    enter(number("Columns"), "0");
    press(Qt::Key_Return);
    EXPECT_EQ(shown()->row(), 6);
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(number("Columns").text(), "8");
}

TEST_F(NumberFieldTest, AnUnfinishedEntryStaysWhileTheOutputIsRepainted)
{
    NumberField &field = number("Columns");
    enter(field, "3*");
    inspector().refresh();
    EXPECT_EQ(field.text(), "3*");
    typeKeys("4");
    EXPECT_EQ(shown()->col(), 12);
    inspector().refresh();
    EXPECT_EQ(field.text(), "3*4");
}

TEST_F(NumberFieldTest, EnterTakesTheValueAndStaysAndTheNextTypingIsAnotherStep)
{
    NumberField &field = number("Columns");
    const int before = steps();
    enter(field, "3*4");
    press(Qt::Key_Return);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_EQ(field.text(), "12");
    EXPECT_EQ(field.findChild<QLineEdit *>()->selectedText(), "12");
    typeKeys("15");
    EXPECT_EQ(steps(), before + 2);
    pressUndo();
    EXPECT_EQ(shown()->col(), 12);
    pressUndo();
    EXPECT_EQ(shown()->col(), 8);
}

TEST_F(NumberFieldTest, AWrongEntryAfterEnterTakesOnlyItselfBack)
{
    NumberField &field = number("Columns");
    enter(field, "12");
    press(Qt::Key_Return);
    typeKeys("15*");
    press(Qt::Key_Return);
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldTest, EnterInTheNameBeginsAnotherStep)
{
    QLineEdit &field = control<QLineEdit>("Name");
    enter(field, "Left");
    press(Qt::Key_Return);
    typeKeys("er");
    EXPECT_EQ(shown()->label(), "Lefter");
    pressUndo();
    EXPECT_EQ(shown()->label(), "Left");
}

TEST_F(NumberFieldTest, TheMenuOfATextHasNoHistoryOfItsOwn)
{
    for (QWidget *field :
         {static_cast<QWidget *>(&number("Columns")), static_cast<QWidget *>(&control<QLineEdit>("Name"))}) {
        enter(*field, "7");
        QContextMenuEvent opening(QContextMenuEvent::Mouse, QPoint(5, 5), field->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(field, &opening);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        QStringList titles;
        for (const QAction *entry : menu->actions())
            titles.append(entry->text().remove('&').section('\t', 0, 0));
        EXPECT_EQ(titles, QStringList({"Cut", "Copy", "Paste", "Delete", "", "Select All"}));
        menu->close();
        EXPECT_EQ(shown()->col(), 7);
    }
}

TEST_F(NumberFieldTest, AWrongEntryTakesBackNothingThatWasDoneBeforeIt)
{
    canvas().setFocus();
    canvas().setTool(LWCanvasImageView::Tool::Arrange);
    press(Qt::Key_Right); // moves the wall by a pixel
    ASSERT_EQ(shown()->xpoint(), 1);
    enter(number("Columns"), "8"); // as it is
    typeKeys("*");
    press(Qt::Key_Tab);
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(shown()->xpoint(), 1);
    EXPECT_EQ(undoText(), "move layer");
}
