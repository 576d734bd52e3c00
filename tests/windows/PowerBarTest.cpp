#include "windows/PowerBar.h"

#include "tests/windows/InspectorFixture.h"
#include "windows/inspector/NumberField.h"

#include <QApplication>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

/// The supply below the window, and what it makes of the walls' watts.
class PowerBarTest : public InspectorFixture
{
protected:
    PowerBar &bar() { return *window.findChild<PowerBar *>(); }
    NumberField &volts() { return *bar().findChild<NumberField *>(); }
    bool isChosen(const QString &title)
    {
        for (const QRadioButton *button : bar().findChildren<QRadioButton *>()) {
            if (button->text() == title)
                return button->isChecked();
        }
        ADD_FAILURE() << "there is no " << qPrintable(title);
        return false;
    }
    QLabel &label(const char *name) { return *bar().findChild<QLabel *>(name); }
    /// Whether this stands beside the power line, in full.
    bool says(const QString &text)
    {
        QApplication::processEvents(); // the layout has its turn
        const QLabel &supply = label(PowerBar::supplyName);
        return supply.isVisible() && supply.text() == text && supply.width() >= supply.sizeHint().width();
    }
    QLabel &powerLine()
    {
        for (QLabel *found : bar().findChildren<QLabel *>()) {
            if (found->text().startsWith("Total Power"))
                return *found;
        }
        ADD_FAILURE() << "there is no power line";
        return label(PowerBar::messageName);
    }
    /// Whether all of it is in the window and as wide as what it says.
    bool isWhole(const QWidget &widget)
    {
        return widget.isVisible() && widget.width() >= widget.sizeHint().width() &&
               window.rect().contains(QRect(widget.mapTo(&window, QPoint()), widget.size()));
    }
    /// One line of the bar stands below the other.
    bool hasTwoLines() { return bar().height() > 50; }
};

TEST_F(PowerBarTest, TheSupplyAndKilowattsStandBesideThePowerLine)
{
    EXPECT_TRUE(shows("Total Power: 72.73Amp"));
    EXPECT_TRUE(says("72.73 A at 110 V, 1 phase, 8.00 kW"));
    click(window, "208 V");
    click(window, "3 phases");
    EXPECT_TRUE(shows("Total Power: 12.82Amp"));
    EXPECT_TRUE(says("12.82 A at 208 V, 3 phases, 8.00 kW"));
    window.document().setValue(100'000'000, "arrangedObjects.powerOnCell");
    EXPECT_TRUE(says("-472704.00 A at 208 V, 3 phases, beyond what can be counted"));
}

TEST_F(PowerBarTest, AnyVoltageIsTheThirdChoice)
{
    EXPECT_EQ(volts().text(), "230 V");
    click(window, "Other");
    EXPECT_EQ(window.document().voltageCalc(), 230);
    EXPECT_TRUE(says("34.78 A at 230 V, 1 phase, 8.00 kW"));

    type(volts(), "400");
    QTest::keyClick(&volts(), Qt::Key_Return);
    EXPECT_EQ(window.document().voltageCalc(), 400);
    EXPECT_TRUE(isChosen("Other"));
    type(volts(), "208");
    QTest::keyClick(&volts(), Qt::Key_Return);
    EXPECT_TRUE(isChosen("208 V"));
}

TEST_F(PowerBarTest, TypedVoltsOfAButtonAreItsOwnThoughTheyAreChosenAlready)
{
    click(window, "110 V");
    type(volts(), "110");
    QTest::keyClick(&volts(), Qt::Key_Return);
    EXPECT_TRUE(isChosen("110 V"));
    EXPECT_EQ(volts().text(), "230 V");
    EXPECT_EQ(window.document().voltageCalc(), 110);
}

TEST_F(PowerBarTest, WrongVoltsAndEscapeChangeNothing)
{
    for (const char *text : {"1001", "0", "2e2", "23,0"}) {
        type(volts(), text);
        EXPECT_FALSE(volts().accessibleDescription().isEmpty()) << text;
        EXPECT_TRUE(shows(volts().accessibleDescription())) << text;
        QTest::keyClick(&volts(), Qt::Key_Return);
        EXPECT_EQ(window.document().voltageCalc(), 110) << text;
        EXPECT_EQ(volts().text(), "230 V") << text;
    }
    type(volts(), "400");
    QTest::keyClick(&volts(), Qt::Key_Escape);
    QTest::keyClick(&volts(), Qt::Key_Tab);
    EXPECT_EQ(volts().text(), "230 V");
    EXPECT_EQ(window.document().voltageCalc(), 110);
}

TEST_F(PowerBarTest, WhatIsTypedStaysWhateverTheDocumentDoes)
{
    for (const char *text : {"40", "4000"}) {
        type(volts(), text);
        window.document().update();
        window.document().voltageSelect(240);
        EXPECT_TRUE(volts().text().startsWith(text)) << qPrintable(volts().text());
        EXPECT_TRUE(says("33.33 A at 240 V, 1 phase, 8.00 kW"));
        QTest::keyClick(&volts(), Qt::Key_Escape);
        EXPECT_EQ(volts().text(), "240 V");
    }
    type(volts(), "400");
    window.document().update();
    QTest::keyClick(&volts(), Qt::Key_Return);
    EXPECT_EQ(window.document().voltageCalc(), 400);
    EXPECT_EQ(volts().text(), "400 V");
}

TEST_F(PowerBarTest, UndoAndRedoTakeBackTypedVoltsAndNothingElse)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto pressZ = [this](Qt::KeyboardModifiers keys) { QTest::keyClick(window.windowHandle(), Qt::Key_Z, keys); };
    click(window, "208 V");
    const int steps = window.document().undoStack().index();
    for (const char *text : {"24", "2400", "12*"}) {
        type(volts(), text);
        pressZ(Qt::ControlModifier);
        EXPECT_EQ(volts().text(), "230 V");
        EXPECT_EQ(window.document().undoStack().index(), steps) << text;
    }
    pressZ(Qt::ControlModifier);
    EXPECT_EQ(window.document().voltageCalc(), 110);
    type(volts(), "24");
    pressZ(Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window.document().voltageCalc(), 110);
    pressZ(Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(&volts(), Qt::Key_Tab);
    EXPECT_EQ(window.document().voltageCalc(), 208);
    EXPECT_EQ(window.document().undoStack().index(), steps);
}

TEST_F(PowerBarTest, WhatAnotherPartHasToTellIsThereAgainAfterAFault)
{
    const QObject preview;
    bar().showFault(&preview, "The display has another size.");
    type(volts(), "1001");
    EXPECT_TRUE(shows(volts().accessibleDescription()));
    EXPECT_FALSE(shows("The display has another size."));
    QTest::keyClick(&volts(), Qt::Key_Escape);
    EXPECT_TRUE(shows("The display has another size."));

    type(volts(), "1001");
    bar().showFault(&preview, {});
    EXPECT_TRUE(shows(volts().accessibleDescription()));
    QTest::keyClick(&volts(), Qt::Key_Escape);
    EXPECT_EQ(label(PowerBar::messageName).text(), QString());
}

TEST_F(PowerBarTest, ItShowsTheDocumentsSupply)
{
    window.document().phaseSelect(3);
    window.document().voltageSelect(240);
    EXPECT_TRUE(isChosen("Other"));
    EXPECT_TRUE(isChosen("3 phases"));
    EXPECT_EQ(volts().text(), "240 V");
    window.document().voltageSelect(110);
    EXPECT_TRUE(isChosen("110 V"));
    undo();
    EXPECT_TRUE(isChosen("Other"));
    EXPECT_TRUE(says("11.11 A at 240 V, 3 phases, 8.00 kW"));
    undo();
    undo();
    EXPECT_TRUE(isChosen("110 V"));
    EXPECT_TRUE(isChosen("1 phase"));
}

TEST_F(PowerBarTest, AShowBringsItsSupply)
{
    click(window, "Other");
    click(window, "3 phases");
    pressControl(Qt::Key_S, {entering(path("show.Orv"))});
    click(window, "110 V");
    window.document().newProject();
    EXPECT_TRUE(isChosen("110 V"));
    window.document().openProjectPre(path("show.Orv"));
    EXPECT_TRUE(isChosen("Other"));
    EXPECT_TRUE(isChosen("3 phases"));
    EXPECT_TRUE(says("11.59 A at 230 V, 3 phases, 8.00 kW"));
}

TEST_F(PowerBarTest, TheNextStartHasWhatWasChosenLast)
{
    type(volts(), "400");
    QTest::keyClick(&volts(), Qt::Key_Return);
    click(window, "208 V");
    click(window, "3 phases");
    MainWindow next;
    next.start();
    next.makeLateParts();
    EXPECT_EQ(next.document().voltageCalc(), 208);
    EXPECT_EQ(next.findChild<PowerBar *>()->findChild<QLabel *>(PowerBar::supplyName)->text(),
              "12.82 A at 208 V, 3 phases, 8.00 kW");
    EXPECT_EQ(next.findChild<PowerBar *>()->findChild<NumberField *>()->text(), "400 V");
}

TEST_F(PowerBarTest, ItsTipsSayWhatTheFigureMeans)
{
    EXPECT_EQ(powerLine().toolTip(), "Current of all walls, hidden ones too: watts / (volts x phases)");
}

TEST_F(PowerBarTest, ChoicesAndPowerLineAreWholeInEveryWindow)
{
    window.document().setValue(100'000'000, "arrangedObjects.powerOnCell"); // the longest line there is
    for (const int width : {640, 853, 1000, 1280, 1920, 2560}) {
        resizeTo({width, 600});
        bar().showFailure(QString("It could not be done. ").repeated(20));
        QApplication::processEvents();
        for (const QRadioButton *button : bar().findChildren<QRadioButton *>())
            EXPECT_TRUE(isWhole(*button)) << width << ' ' << qPrintable(button->text());
        EXPECT_TRUE(isWhole(powerLine())) << width;
        EXPECT_TRUE(isWhole(volts())) << width;
        EXPECT_GE(label(PowerBar::messageName).width(), 100) << width;
    }
}

TEST_F(PowerBarTest, OneLineIsEnoughFor1280)
{
    for (const int width : {1280, 1000, 1280}) {
        resizeTo({width, 600});
        QApplication::processEvents();
        EXPECT_EQ(hasTwoLines(), width < 1280) << width;
        EXPECT_TRUE(says("72.73 A at 110 V, 1 phase, 8.00 kW")) << width;
    }
}

TEST_F(PowerBarTest, AMessageTakesThePlaceOfWhatStandsBesideThePowerLine)
{
    resizeTo({1280, 600});
    bar().showStatus("Exported a picture with a name that is not short, " + QString("nor shorter ").repeated(4));
    EXPECT_FALSE(label(PowerBar::supplyName).isVisible());
    bar().clearMessage();
    EXPECT_TRUE(says("72.73 A at 110 V, 1 phase, 8.00 kW"));
    resizeTo({2560, 600});
    bar().showStatus("Exported a picture with a name that is not short, " + QString("nor shorter ").repeated(4));
    EXPECT_TRUE(says("72.73 A at 110 V, 1 phase, 8.00 kW"));
}
