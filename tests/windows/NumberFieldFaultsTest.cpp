#include "canvas/LWCanvasImageView.h"
#include "tests/windows/NumberFieldFixture.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QLabel>
#include <QScrollBar>

namespace {
/// Entries that are wrong, or taken back.
class NumberFieldFaultsTest : public NumberFieldFixture
{
protected:
    /// The line beside the field; null: there is none.
    QLabel *faultLine(const QString &sentence)
    {
        for (QLabel *label : inspector().findChildren<QLabel *>()) {
            if (label->isVisibleTo(&inspector()) && label->text() == sentence)
                return label;
        }
        return nullptr;
    }
    /// The colour of the frame, in the middle of its left edge.
    static QColor frame(QWidget &field) { return field.grab().toImage().pixelColor(0, field.height() / 2); }
};
} // namespace

TEST_F(NumberFieldFaultsTest, WhatIsWrongIsFramedAndToldBelowTheFieldWhileItIsTyped)
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

TEST_F(NumberFieldFaultsTest, TheNextFieldStaysUnderTheClickWhileAnEntryIsWrong)
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

TEST_F(NumberFieldFaultsTest, WhatIsWrongIsSaidAboveTheFieldWhereNobodyWouldSeeItBelow)
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

TEST_F(NumberFieldFaultsTest, WhatIsWrongAsItStandsChangesNothing)
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

TEST_F(NumberFieldFaultsTest, AnEntryThatIsMendedIsTakenAsOneStep)
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

TEST_F(NumberFieldFaultsTest, EscapeBringsBackTheValueBeforeTheEntryAndLeavesNoStep)
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

TEST_F(NumberFieldFaultsTest, EscapeAfterASaveShowsWhatWasSaved)
{
    NumberField &field = number("Columns");
    enter(field, "12");
    window.document().endTyping(); // as saving does
    press(Qt::Key_Escape);
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldFaultsTest, EscapeAfterUndoAndRedoTakesNothingBack)
{
    NumberField &field = number("Columns");
    enter(field, "12");
    pressUndo();
    pressRedo();
    press(Qt::Key_Escape);
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldFaultsTest, WrongEntriesAndEscapeLeaveSeveralLayersTheirOwnValues)
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

TEST_F(NumberFieldFaultsTest, WhatIsTypedBeyondTheRangeGoesBackToTheValueBeforeTheTyping)
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

TEST_F(NumberFieldFaultsTest, AWrongEntryForSeveralLayersGivesEachItsOwnValueBack)
{
    NumberField &field = columnsOfTwoWalls();
    typeKeys("9*");
    ASSERT_EQ(columns(0), 9);
    press(Qt::Key_Tab);
    expectColumnsOfBefore(field);
}

TEST_F(NumberFieldFaultsTest, AnEntryThatNeverHadAValueTakesNothingBack)
{
    enter(number("Rows"), "6");
    enter(number("Columns"), "0");
    press(Qt::Key_Return);
    EXPECT_EQ(shown()->row(), 6);
    EXPECT_EQ(shown()->col(), 8);
    EXPECT_EQ(number("Columns").text(), "8");
}

TEST_F(NumberFieldFaultsTest, AWrongEntryAfterEnterTakesOnlyItselfBack)
{
    NumberField &field = number("Columns");
    enter(field, "12");
    press(Qt::Key_Return);
    typeKeys("15*");
    press(Qt::Key_Return);
    EXPECT_EQ(shown()->col(), 12);
    EXPECT_EQ(field.text(), "12");
}

TEST_F(NumberFieldFaultsTest, AWrongEntryTakesBackNothingThatWasDoneBeforeIt)
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
