#include "tests/windows/DisplaysFixture.h"

TEST_F(DisplaysTest, TheChosenDisplayIsFilled)
{
    toggle(stage);
    ASSERT_TRUE(on(1));
    EXPECT_TRUE(on(1)->isFullScreen());
    EXPECT_EQ(on(1)->geometry(), QRect(1920, 0, 1280, 1024));
    EXPECT_TRUE(shows("Stage has 1,280 × 1,024 pixels, the output 1,920 × 1,080; the rest is cut or black."));
    EXPECT_EQ(picture(*on(1)), window.document().img().copy(0, 0, 1280, 1024).convertToFormat(QImage::Format_RGB32));
}

TEST_F(DisplaysTest, OneThatTheDesktopClosesIsOff)
{
    toggle(wall);
    EXPECT_EQ(on(2)->cursor().shape(), Qt::BlankCursor);
    on(2)->close();
    EXPECT_FALSE(on(2));
    toggle(wall);
    EXPECT_TRUE(on(2));
}

TEST_F(DisplaysTest, SeveralShowTheOutputSideBySide)
{
    toggle(stage);
    toggle(wall);
    ASSERT_TRUE(on(1));
    ASSERT_TRUE(on(2));
    EXPECT_EQ(on(2)->geometry(), QRect(3200, 0, 1920, 1080));
    EXPECT_EQ(offsetOn(1), QPoint(0, 0));
    EXPECT_EQ(offsetOn(2), QPoint(1280, 0));
    toggle(stage);
    EXPECT_FALSE(on(1));
    EXPECT_TRUE(on(2));
}

TEST_F(DisplaysTest, OneThatShowsAllOfItHasNothingToTell)
{
    toggle(wall);
    EXPECT_FALSE(shows("Wall has 1,920 × 1,080 pixels, the output 1,920 × 1,080; the rest is cut or black."));
    press(*on(2), Qt::Key_Right);
    EXPECT_TRUE(shows("Wall has 1,920 × 1,080 pixels, the output 1,920 × 1,080; the rest is cut or black."));
}

TEST_F(DisplaysTest, ShiftF11FillsTheDisplayThatWasChosenLast)
{
    toggle(wall);
    press(Qt::Key_F11, Qt::ShiftModifier, {});
    EXPECT_FALSE(on(2));
    press(Qt::Key_F11, Qt::ShiftModifier, {});
    EXPECT_TRUE(on(2));
    EXPECT_FALSE(on(1));
}

TEST_F(DisplaysTest, ShiftF11FillsOneThatDoesNotShowTheWindowAtFirst)
{
    press(Qt::Key_F11, Qt::ShiftModifier, {});
    EXPECT_TRUE(on(1));
}

TEST_F(DisplaysTest, TheMenuMarksTheDisplaysThatAreFilled)
{
    toggle(wall);
    QStringList marked;
    for (QMenu *menu : window.menuBar()->findChildren<QMenu *>()) {
        if (menu->title().remove('&') != "Output on display")
            continue;
        emit menu->aboutToShow();
        for (const QAction *action : menu->actions()) {
            if (action->isChecked())
                marked += action->text().remove('&');
        }
    }
    EXPECT_EQ(marked, QStringList(wall));
}

TEST_F(DisplaysTest, EscapeLeavesADisplayAndShiftEscapeAll)
{
    toggle(stage);
    toggle(wall);
    press(*on(1), Qt::Key_Escape);
    EXPECT_FALSE(on(1));
    ASSERT_TRUE(on(2));
    toggle(stage);
    press(*on(1), Qt::Key_Escape, Qt::ShiftModifier);
    EXPECT_FALSE(on(1));
    EXPECT_FALSE(on(2));
}

TEST_F(DisplaysTest, ADisplayThatComesBackIsFilledAgain)
{
    toggle(wall);
    emit qApp->screenRemoved(&display(2));
    EXPECT_FALSE(on(2));
    EXPECT_TRUE(shows("Wall is gone; the output returns to it when it is back."));
    emit qApp->screenAdded(&display(1)); // another one
    EXPECT_FALSE(on(1));
    EXPECT_FALSE(on(2));
    emit qApp->screenAdded(&display(2));
    EXPECT_TRUE(on(2));
    EXPECT_FALSE(shows("Wall is gone; the output returns to it when it is back."));
}

TEST_F(DisplaysTest, SwitchingItOffEndsTheWaiting)
{
    toggle(wall);
    emit qApp->screenRemoved(&display(2));
    toggle("3: Wall, 1,920 × 1,080");
    emit qApp->screenAdded(&display(2));
    EXPECT_FALSE(on(2));
}

TEST_F(DisplaysTest, AnotherResolutionLeavesItOnTheWholeDisplay)
{
    toggle(stage);
    on(1)->showNormal();
    on(1)->setGeometry(1920, 0, 640, 480); // as it was before the display changed
    emit display(1).geometryChanged(display(1).geometry());
    EXPECT_TRUE(on(1)->isFullScreen());
    EXPECT_EQ(on(1)->geometry(), QRect(1920, 0, 1280, 1024));
}

TEST_F(DisplaysTest, NoOtherShortcutIsTheWindows)
{
    toggle(wall);
    on(2)->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(on(2)));
    press(*on(2), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(window.document().allScreensArray().size(), 1U);
    press(*on(2), Qt::Key_F11);
    EXPECT_FALSE(on(2));
}

TEST_F(DisplaysTest, ClosingTheWindowClosesTheDisplays)
{
    toggle(wall);
    window.document().undoStack().setClean();
    window.close();
    EXPECT_FALSE(on(2));
}

TEST_F(DisplaysTest, ArrowsNudgeTheRegion)
{
    toggle(wall);
    WallWindow &there = *on(2);
    there.activateWindow(); // Ctrl with an arrow is a shortcut of the main window
    ASSERT_TRUE(QTest::qWaitForWindowActive(&there));
    press(there, Qt::Key_Right);
    press(there, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(offsetOn(2), QPoint(1, 10));
    EXPECT_EQ(picture(there).copy(0, 0, 1800, 1000),
              window.document().img().copy(1, 10, 1800, 1000).convertToFormat(QImage::Format_RGB32));
    const LayerPointer selected = window.document().arraycontroller().selectedLayer();
    press(there, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(offsetOn(2), QPoint(1 - selected->panelWidth(), 10));
    press(there, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(offsetOn(2), QPoint(1 - selected->panelWidth(), 10 - selected->panelHeight()));
    press(there, Qt::Key_Home);
    EXPECT_EQ(offsetOn(2), QPoint(0, 0));
    EXPECT_FALSE(window.document().undoStack().canUndo());
}

TEST_F(DisplaysTest, BlackoutFreezeAndLevelStandInWordsInTheMainWindowAlone)
{
    toggle(wall);
    WallWindow &there = *on(2);
    const QImage before = picture(there);
    press(there, Qt::Key_B);
    EXPECT_EQ(words(), "BLACKOUT");
    EXPECT_TRUE(tool("Blackout").isChecked());
    QImage black = before;
    black.fill(Qt::black);
    EXPECT_EQ(picture(there), black);
    press(there, Qt::Key_B);
    EXPECT_EQ(words(), QString());
    EXPECT_EQ(picture(there), before);

    press(there, Qt::Key_F);
    EXPECT_EQ(words(), "FROZEN: the wall shows an older state");
    window.document().setValue(7, "arrangedObjects.col");
    QTest::qWait(100);
    EXPECT_EQ(picture(there), before);
    press(there, Qt::Key_F);
    EXPECT_NE(picture(there), before);

    press(there, Qt::Key_5);
    EXPECT_EQ(words(), "WALL AT 10 %");
    press(there, Qt::Key_B);
    EXPECT_EQ(words(), "BLACKOUT · WALL AT 10 %");
    press(there, Qt::Key_B);
    press(there, Qt::Key_1);
    EXPECT_EQ(words(), QString());
}

TEST_F(DisplaysTest, IdentifyingShowsACardOnEachDisplayForThreeSeconds)
{
    toggle(wall);
    const QImage before = picture(*on(2));
    press(*on(2), Qt::Key_I);
    EXPECT_EQ(words(), "IDENTIFY");
    EXPECT_EQ(picture(*on(2)).pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_NE(picture(*on(2)), before);
    qsizetype cards = 0;
    for (const QWidget *widget : QApplication::topLevelWidgets())
        cards += widget->inherits("IdentifyCard") && widget->isVisible() ? 1 : 0;
    EXPECT_EQ(cards, 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return words().isEmpty(); }, 4000));
    EXPECT_EQ(picture(*on(2)), before);
}

TEST_F(DisplaysTest, RegionsBelongToDisplayAndShow)
{
    window.document().openProjectPre(greenProject("one.Orv"));
    toggle(wall);
    EXPECT_FALSE(row(2).isRegionKept);
    press(*on(2), Qt::Key_Right);
    EXPECT_TRUE(row(2).isRegionKept);
    window.document().openProjectPre(greenProject("two.Orv"));
    EXPECT_EQ(offsetOn(2), QPoint(0, 0));
    EXPECT_FALSE(row(2).isRegionKept);
    window.document().openProjectPre(path("one.Orv"));
    EXPECT_EQ(offsetOn(2), QPoint(1, 0));
    EXPECT_TRUE(row(2).isRegionKept);
}

TEST_F(DisplaysTest, F11OpensThePaneWhichSaysWhatIsWhere)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    auto &model = *window.findChild<DisplaysModel *>();
    const auto text = [&](int row, int column) { return model.index(row, column).data().toString(); };
    EXPECT_TRUE(window.findChild<DisplaysPage *>()->isVisible());
    EXPECT_EQ(text(1, DisplaysModel::Display), "2: Stage");
    EXPECT_EQ(text(1, DisplaysModel::Place), "1920, 0");
    EXPECT_EQ(text(1, DisplaysModel::Pixels), "1,280 × 1,024");
    EXPECT_EQ(text(1, DisplaysModel::State), "off");
    EXPECT_TRUE(model.setData(model.index(1, DisplaysModel::Display), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(on(1));
    EXPECT_EQ(text(1, DisplaysModel::State), "on: picture, the usual region");
    EXPECT_TRUE(model.setData(model.index(1, DisplaysModel::Offset), "64 -8"));
    EXPECT_EQ(offsetOn(1), QPoint(64, -8));
    EXPECT_EQ(text(1, DisplaysModel::State), "on: picture, this show's region");
    EXPECT_FALSE(model.setData(model.index(1, DisplaysModel::Offset), "left"));
    EXPECT_TRUE(shows("\"left\" is no place: type x and y of the output, \"1920, 0\"."));
}

TEST_F(DisplaysTest, ThePanesButtonsDoWhatTheKeysDo)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    tool("Blackout").click();
    EXPECT_EQ(words(), "BLACKOUT");
    tool("Blackout").click();
    tool("Freeze").click();
    EXPECT_EQ(words(), "FROZEN: the wall shows an older state");
    tool("Freeze").click();
    EXPECT_EQ(words(), QString());
}

TEST_F(DisplaysTest, SavingMovesNothingOnTheWall)
{
    window.document().openProjectPre(greenProject("one.Orv"));
    toggle(wall);
    toggle(stage); // right of it
    EXPECT_EQ(offsetOn(1), QPoint(1920, 0));
    window.document().save();
    EXPECT_EQ(offsetOn(1), QPoint(1920, 0));
    EXPECT_EQ(offsetOn(2), QPoint(0, 0));
}

TEST_F(DisplaysTest, NothingIsOverBlack)
{
    toggle(wall);
    QImage black = picture(*on(2));
    black.fill(Qt::black);
    press(*on(2), Qt::Key_I);
    press(*on(2), Qt::Key_B);
    EXPECT_EQ(picture(*on(2)), black);
    press(*on(2), Qt::Key_I);
    EXPECT_EQ(picture(*on(2)), black);
}

TEST_F(DisplaysTest, AKeyThatIsHeldFlashesNothing)
{
    toggle(wall);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, "b", true);
    QApplication::sendEvent(on(2), &repeated);
    EXPECT_EQ(words(), QString());
    press(*on(2), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(words(), QString());
}

TEST_F(DisplaysTest, AnotherSizeOfTheOutputIsTold)
{
    toggle(wall);
    window.document().setValue(2000, "OutputWidth");
    QTest::qWait(150);
    EXPECT_TRUE(shows("Wall has 1,920 × 1,080 pixels, the output 2,000 × 1,080; the rest is cut or black."));
}

TEST_F(DisplaysTest, ThePanesTableTakesTheKeysOfTheDisplays)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    QWidget *const table = QApplication::focusWidget();
    ASSERT_TRUE(table);
    QTest::keyClick(table, Qt::Key_B);
    EXPECT_EQ(words(), "BLACKOUT");
}
