#include "tests/windows/DisplaysFixture.h"

TEST_F(DisplaysTest, BlackIsToldInRedAndFreezingInAmber)
{
    toggle(wall);
    press(*on(2), Qt::Key_F);
    press(*on(2), Qt::Key_B);
    QHash<QString, QColor> grounds;
    for (const QLabel *label : window.findChildren<QLabel *>("wallWords"))
        grounds.insert(label->text().section(':', 0, 0), label->palette().color(QPalette::Window));
    EXPECT_EQ(grounds["BLACKOUT"], Theme::danger);
    EXPECT_EQ(grounds["FROZEN"], Theme::warning);
}

TEST_F(DisplaysTest, ARegionThatWasChosenIsThereAgainInAShowWithoutAFile)
{
    toggle(wall);
    press(*on(2), Qt::Key_Right);
    toggle(wall);
    EXPECT_FALSE(on(2));
    EXPECT_FALSE(row(2).isOn);
    EXPECT_FALSE(shows("Wall has 1,920 × 1,080 pixels, the output 1,920 × 1,080; the rest is cut or black."));
    toggle(wall);
    EXPECT_EQ(offsetOn(2), QPoint(1, 0));
    window.document().newProject();
    EXPECT_EQ(offsetOn(2), QPoint(0, 0));
}

TEST_F(DisplaysTest, TheOffsetIsToldWhenItIsNudged)
{
    toggle(wall);
    press(*on(2), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(words(), "Wall FROM 10, 0");
    press(*on(2), Qt::Key_Home);
    EXPECT_EQ(words(), "Wall FROM 0, 0");
    EXPECT_TRUE(QTest::qWaitFor([&] { return words().isEmpty(); }, 4000));
}

TEST_F(DisplaysTest, CtrlNudgesByAPanelOfTheWallUnderThePointer)
{
    LWAppDelegate &document = window.document();
    document.AddScreen();
    document.setValue(300, "arrangedObjects.panelWidth");
    document.setValue(1000, "arrangedObjects.xpoint");
    document.arraycontroller().setSelectionIndex(0);
    const int other = document.arraycontroller().selectedLayer()->panelWidth();
    ASSERT_NE(other, 300);
    toggle(wall);
    WallWindow &there = *on(2);
    there.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&there));
    pointTo(QPoint(1100, 5));
    press(there, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(offsetOn(2), QPoint(300, 0));
    pointTo(std::nullopt);
    press(there, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(offsetOn(2), QPoint(300 + other, 0));
}

TEST_F(DisplaysTest, SpaceSwitchesTheChosenRowOnAndOff)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    auto &table = *pane().findChild<QTableView *>();
    table.setCurrentIndex(table.model()->index(2, DisplaysModel::State));
    press(table, Qt::Key_Space);
    EXPECT_TRUE(on(2));
    press(table, Qt::Key_Space);
    EXPECT_FALSE(on(2));
}

TEST_F(DisplaysTest, ACellThatIsTypedInStaysOpenWhenAnotherDisplayGoes)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(stage);
    toggle(wall);
    auto &table = *pane().findChild<QTableView *>();
    table.edit(table.model()->index(2, DisplaysModel::Offset));
    QPointer<QLineEdit> field = table.findChild<QLineEdit *>();
    ASSERT_TRUE(field);
    field->setText("77, 8");
    emit qApp->screenRemoved(&display(1));
    EXPECT_EQ(row(1).display.connector, "Wall");
    ASSERT_TRUE(field);
    EXPECT_EQ(field->text(), "77, 8");
    press(*field, Qt::Key_Return);
    QCoreApplication::processEvents(); // a table takes what was typed a little later
    EXPECT_EQ(offsetOn(1), QPoint(77, 8));
    emit qApp->screenAdded(&display(1));
    EXPECT_EQ(row(1).display.connector, "Stage");
    EXPECT_EQ(offsetOn(2), QPoint(77, 8));
}

TEST_F(DisplaysTest, ADisplayWithoutOutputShowsACardAndAFrameAlongItsEdges)
{
    toggle(wall);
    press(*on(2), Qt::Key_I);
    QWidget *card = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("IdentifyCard") && widget->screen() == &display(1))
            card = widget;
    }
    ASSERT_TRUE(card);
    EXPECT_EQ(card->geometry(), display(1).geometry());
    const QRegion seen = card->mask();
    EXPECT_TRUE(seen.contains(QPoint(0, 0)));
    EXPECT_TRUE(seen.contains(QPoint(1279, 1023)));
    EXPECT_FALSE(seen.contains(QPoint(1, 1)));
    EXPECT_TRUE(seen.contains(QPoint(640, 512)));
    const QImage shown = picture(*card);
    EXPECT_EQ(shown.pixel(0, 500), qRgb(255, 255, 255));
    EXPECT_EQ(shown.pixel(640, 512 - 90), qRgb(0, 0, 0));
}

TEST_F(DisplaysTest, AnotherModeOfADisplayThatIsOffIsSeenInThePane)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    QSignalSpy changes(window.findChild<DisplaysModel *>(), &QAbstractItemModel::dataChanged);
    int told = 0;
    QObject::connect(&window.desk().live(), &LiveOutput::changed, &window, [&told] { ++told; });
    emit display(1).geometryChanged(display(1).geometry());
    EXPECT_EQ(told, 1);
}

TEST_F(DisplaysTest, AnOutputThatComesUpElsewhereIsTold)
{
    toggle(wall);
    on(2)->windowHandle()->setScreen(&display(1));
    EXPECT_TRUE(shows("The output for Wall came up on Stage; press I on it to see which display is which."));
}

TEST_F(DisplaysTest, ADoubleClickTurnsByAQuarter)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    auto &table = *pane().findChild<QTableView *>();
    const QRect cell = table.visualRect(table.model()->index(2, DisplaysModel::Turned));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    for (const int turn : {90, 180, 270, 0}) {
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell.center());
        EXPECT_EQ(row(2).region.turn, turn);
    }
}

TEST_F(DisplaysTest, ADisplayMayGoInTheMidstOfAnything)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    chooseChart("Processor", "Sweep to the right");
    tool("Show").click();
    press(*on(2), Qt::Key_F);
    press(*on(2), Qt::Key_I);
    tool("Walk").click();
    tool("Point").click();
    pointTo(QPoint(5, 5));
    emit qApp->screenRemoved(&display(2));
    EXPECT_EQ(words(), "POINT · FROZEN: the wall shows an older state · CHART: Sweep to the right · IDENTIFY");
    emit qApp->screenAdded(&display(2));
    tool("Point").click();
    tool("Walk").click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !words().contains("IDENTIFY"); }, 4000));
    ASSERT_TRUE(on(2));
    EXPECT_EQ(words(), "FROZEN: the wall shows an older state · CHART: Sweep to the right");
}

TEST_F(DisplaysTest, AnotherShowTakesTheChartOnAndLeavesWhatIsFrozen)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    const QImage before = picture(*on(2));
    press(*on(2), Qt::Key_F);
    chooseChart("Processor", "Checker, 1 px");
    chooseIn("Over", "Each wall");
    tool("Show").click();
    window.document().openProjectPre(greenProject("one.Orv"));
    EXPECT_EQ(picture(*on(2)), before);
    press(*on(2), Qt::Key_F);
    const LayerPointer layer = window.document().allScreensArray().front();
    const QImage checker = picture(*on(2));
    EXPECT_EQ(checker.pixel(layer->xpoint() + 1, layer->ypoint()), qRgb(255, 255, 255));
    EXPECT_EQ(checker.pixel(layer->xpoint(), layer->ypoint()), qRgb(0, 0, 0));
}
