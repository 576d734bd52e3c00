#include "layer/Layer.h"
#include "tests/windows/NumberFieldFixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QWheelEvent>

using NumberFieldTest = NumberFieldFixture;

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

TEST_F(NumberFieldTest, AStepBeyondWhatAllWallsMayHaveLeavesTheStepsBefore)
{
    constexpr int columnsOfEach[] = {6, 126, 126, 126, 126}; // of 2^21 px a column; 512 columns are all
    for (const int columnsOfOne : columnsOfEach) {
        if (columnsOfOne > 6)
            window.document().AddScreen();
        Layer &wall = *shown();
        wall.setVisible(false);
        wall.setPanelWidth(128);
        wall.setPanelHeight(128);
        wall.setRow(128);
        wall.setCol(columnsOfOne);
    }
    list().setSelectionIndexes({0});
    window.document().finishEdit("setting");
    const int before = steps();
    const int shownFirst = shown()->col();
    NumberField &field = number("Columns");
    clickInto(field);
    for (int i = 0; i < 3; ++i)
        press(Qt::Key_Up);
    EXPECT_EQ(shown()->col(), shownFirst + 2);
    EXPECT_EQ(field.value(), shownFirst + 2);
    EXPECT_EQ(steps(), before + 1);
    press(Qt::Key_A, Qt::ControlModifier);
    typeKeys("1");
    EXPECT_EQ(shown()->col(), 1);
    typeKeys("2"); // digits mean nothing alone
    EXPECT_EQ(shown()->col(), shownFirst + 2);
    pressUndo();
    EXPECT_EQ(shown()->col(), shownFirst);
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

TEST_F(NumberFieldTest, UnitsCanBeTypedAndSumsWorkWithThem)
{
    const std::pair<const char *, int> cases[] = {{"96px", 96}, {"96 px", 96}, {"3840/2 PX", 1920}, {"6*128", 768}};
    for (const auto &[text, pixels] : cases) {
        enter(number("Panel width"), text);
        EXPECT_EQ(shown()->panelWidth(), pixels) << text;
    }
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
