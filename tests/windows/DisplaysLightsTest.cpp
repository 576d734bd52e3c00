#include "tests/windows/DisplaysFixture.h"

TEST_F(DisplaysTest, PointingLightsThePanelUnderThePointerOnTheWall)
{
    toggle(wall);
    press(Qt::Key_F11, Qt::NoModifier, {});
    const LayerPointer layer = window.document().allScreensArray().front();
    const QSize panel(layer->panelWidth(), layer->panelHeight());
    const QImage before = picture(*on(2));
    tool("Point").click();
    pointTo(QPoint(panel.width() + 3, 5));
    EXPECT_EQ(words(), "POINT");
    const QImage lit = picture(*on(2));
    EXPECT_EQ(lit.pixel(panel.width() + 2, 1), qRgb(255, 255, 255));
    EXPECT_EQ(lit.pixel(1, 1), qRgb(0, 0, 0));
    EXPECT_EQ(lit.pixel(panel.width() + (panel.width() - 1) / 2, 1000), qRgb(255, 255, 255)); // the cross
    pointTo(QPoint(1900, 1070));
    EXPECT_EQ(picture(*on(2)).pixel(panel.width() + 2, 1), qRgb(0, 0, 0));
    pointTo(std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return words().isEmpty(); }, 1000));
    EXPECT_EQ(picture(*on(2)), before);
}

TEST_F(DisplaysTest, APanelThatNoDisplayShowsIsTold)
{
    toggle(wall);
    press(*on(2), Qt::Key_Right);
    window.findChild<DisplaysModel *>()->setData(window.findChild<DisplaysModel *>()->index(2, DisplaysModel::Offset),
                                                 "1900, 0");
    tool("Point").click();
    pointTo(QPoint(5, 5));
    EXPECT_TRUE(shows("No display shows A1, Layer 0 1.1."));
}

TEST_F(DisplaysTest, QHeldOnTheCanvasPointsAsLongAsItIs)
{
    toggle(wall);
    pointTo(QPoint(5, 5));
    canvas().setFocus();
    QTest::keyPress(&canvas(), Qt::Key_Q);
    EXPECT_EQ(words(), "POINT");
    QTest::keyRelease(&canvas(), Qt::Key_Q);
    EXPECT_EQ(words(), QString());
    QTest::keyPress(&canvas(), Qt::Key_Q);
    QTest::keyRelease(&canvas(), Qt::Key_Q, Qt::ShiftModifier);
    EXPECT_EQ(words(), QString());
}

TEST_F(DisplaysTest, ARowsClickBlinksItsWallWhilePointingIsOn)
{
    toggle(wall);
    const QModelIndex row = table().model()->index(0, 0);
    emit table().clicked(row);
    EXPECT_EQ(words(), QString());
    tool("Point").click();
    emit table().clicked(row);
    EXPECT_EQ(picture(*on(2)).pixel(1, 1), qRgb(255, 255, 255));
    EXPECT_TRUE(QTest::qWaitFor([&] { return words().isEmpty(); }, 3000));
}

TEST_F(DisplaysTest, AWalkGoesAlongTheCableByTheKeysOfARemote)
{
    toggle(wall);
    press(Qt::Key_F11, Qt::NoModifier, {});
    const LayerPointer layer = window.document().allScreensArray().front();
    tool("Walk").click();
    EXPECT_TRUE(words().startsWith("WALK ")) << qPrintable(words());
    const QString first = words();
    const QImage before = picture(*on(2));
    EXPECT_NE(before.pixel(1, layer->panelHeight() * int(layer->row()) - 2) == qRgb(255, 255, 255),
              before.pixel(1, 1) == qRgb(255, 255, 255)); // in one of the corners
    QTest::keyClick(&window, Qt::Key_PageDown);
    EXPECT_NE(words(), first);
    EXPECT_NE(picture(*on(2)), before);
    press(*on(2), Qt::Key_PageUp);
    EXPECT_EQ(words(), first);
    press(*on(2), Qt::Key_X);
    EXPECT_TRUE(tool("Wrong").isChecked());
    EXPECT_TRUE(tool("1 wrong").isVisible());
    tool("Walk").click();
    EXPECT_EQ(words(), QString());
    EXPECT_TRUE(tool("1 wrong").isVisible());
}

TEST_F(DisplaysTest, AChartLiesOverThePictureUntilItIsTakenAway)
{
    toggle(wall);
    press(Qt::Key_F11, Qt::NoModifier, {});
    const QImage before = picture(*on(2));
    chooseChart("Processor", "Checker, 1 px");
    tool("Show").click();
    EXPECT_EQ(words(), "CHART: Checker, 1 px");
    const QImage checker = picture(*on(2));
    EXPECT_EQ(checker.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(checker.pixel(1, 0), qRgb(255, 255, 255));
    EXPECT_EQ(checker.pixel(1919, 1078), qRgb(255, 255, 255));
    chooseChart("Processor", "Checker, 8 px"); // at once, as one stands
    EXPECT_EQ(picture(*on(2)).pixel(1, 0), qRgb(0, 0, 0));
    tool("Show").click();
    EXPECT_EQ(words(), QString());
    EXPECT_EQ(picture(*on(2)), before);
}

TEST_F(DisplaysTest, CanvasAndPreviewShowTheChartToo)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    choose({"View", "Output preview"});
    auto &preview = *window.findChild<OutputView *>();
    const auto middleOf = [](QWidget &view) { return view.grab().toImage().pixelColor(view.rect().center()); };
    ASSERT_NE(middleOf(preview), QColor(Qt::yellow));
    chooseChart("Rigging", "Field");
    chooseIn("Colour", "Yellow");
    tool("Show").click();
    EXPECT_EQ(middleOf(preview), QColor(Qt::yellow));
    EXPECT_EQ(middleOf(canvas()), QColor(Qt::yellow));
    tool("Show").click();
    EXPECT_NE(middleOf(preview), QColor(Qt::yellow));
    EXPECT_NE(middleOf(canvas()), QColor(Qt::yellow));
}

TEST_F(DisplaysTest, AChartOverTheWallsLeavesTheRest)
{
    toggle(wall);
    press(Qt::Key_F11, Qt::NoModifier, {});
    const QRect box(0, 0, window.document().allScreensArray().front()->screenSizeWidth(),
                    window.document().allScreensArray().front()->screenSizeHeight());
    const QImage before = picture(*on(2));
    chooseChart("Processor", "Checker, 1 px");
    chooseIn("Over", "Each wall");
    tool("Show").click();
    const QImage picture = this->picture(*on(2));
    EXPECT_EQ(picture.pixel(1, 0), qRgb(255, 255, 255));
    for (int y = 0; y < picture.height(); y += 7) {
        for (int x = 0; x < picture.width(); x += 5) {
            if (!box.contains(x, y)) {
                ASSERT_EQ(picture.pixel(x, y), before.pixel(x, y)) << x << "," << y;
            }
        }
    }
}

TEST_F(DisplaysTest, FullWhiteOverWallsWithWattsAsksOnce)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    window.document().setValue(200, "arrangedObjects.watt");
    chooseChart("Rigging", "Field");
    tool("Show").click();
    EXPECT_EQ(words(), QString());
    bool isAsked = false;
    for (const QLabel *label : window.findChildren<QLabel *>())
        isAsked |= label->text().startsWith("Full white draws ") && label->text().endsWith(". Press Show once more.");
    EXPECT_TRUE(isAsked);
    tool("Show").click();
    EXPECT_EQ(words(), "CHART: Field");
    tool("Show").click();
    tool("Show").click();
    EXPECT_EQ(words(), "CHART: Field");
}

TEST_F(DisplaysTest, AStrobeIsBegunByHandEachTime)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    chooseChart("Processor", "Checker, 1 px");
    tool("Show").click();
    const auto all = Chart::all();
    const auto strobe = std::ranges::find_if(all, &Chart::flashes);
    chooseChart(Chart::groupName(strobe->group), strobe->title);
    EXPECT_EQ(words(), QString());
    tool("Start strobe (flashing)").click();
    EXPECT_EQ(words(), QString("CHART: ") + strobe->title);
}

TEST_F(DisplaysTest, ThePointerBesideTheOutputLightsNothingAndGoesOnPointing)
{
    toggle(wall);
    tool("Point").click();
    pointTo(QPoint(5, 5));
    ASSERT_EQ(picture(*on(2)).pixel(2, 2), qRgb(255, 255, 255));
    QTest::mouseMove(&canvas(), QPoint(2, 2));
    EXPECT_EQ(picture(*on(2)).pixel(2, 2), qRgb(0, 0, 0));
    QTest::qWait(700);
    EXPECT_EQ(words(), "POINT");
}

TEST_F(DisplaysTest, ThePlaceOfThePointerBesideTheOutputIsReadOut)
{
    QTest::mouseMove(&canvas(), canvas().rect().center());
    QSignalSpy readOuts(&canvas(), &LWCanvasImageView::readOutDidChange);
    QTest::mouseMove(&canvas(), QPoint(2, 2));
    ASSERT_FALSE(readOuts.isEmpty());
    const auto readOut = readOuts.last().first().value<CanvasReadOut>();
    EXPECT_FALSE(readOut.pixel);
    ASSERT_TRUE(readOut.place);
    EXPECT_LT(readOut.place->x(), 0);
}

TEST_F(DisplaysTest, AWalkTellsOfAPanelThatNoDisplayShows)
{
    toggle(wall);
    window.findChild<DisplaysModel *>()->setData(window.findChild<DisplaysModel *>()->index(2, DisplaysModel::Offset),
                                                 "1900, 0");
    tool("Walk").click();
    EXPECT_TRUE(shows("No display shows A1, Layer 0 1.1."));
}

TEST_F(DisplaysTest, AChartOverSelectedWallsNeedsOne)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    window.document().toggleVisibility();
    chooseIn("Over", "Selected walls");
    tool("Show").click();
    EXPECT_EQ(words(), QString());
    EXPECT_TRUE(shows("There is no wall to lay it over: select one, or choose the output."));
    window.document().toggleVisibility(); // it waits for one
    EXPECT_TRUE(words().startsWith("CHART: ")) << qPrintable(words());
}

TEST_F(DisplaysTest, SpeedAndHoldAreChosenForTheChartsThatHaveThem)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    const auto box = [this](const QString &name) -> QSpinBox & {
        for (QSpinBox *found : pane().findChildren<QSpinBox *>()) {
            if (found->accessibleName() == name)
                return *found;
        }
        ADD_FAILURE() << qPrintable(name);
        return *window.findChild<QSpinBox *>();
    };
    chooseChart("Processor", "Sweep to the right");
    EXPECT_TRUE(box("Speed").isVisible());
    EXPECT_FALSE(box("Frames that a panel is lit").isVisible());
    box("Speed").setValue(200);
    tool("Show").click();
    LiveChart &chart = window.desk().chart();
    EXPECT_EQ(chart.style().options.speed, 200);
    chooseChart("Rigging", "Chase along each port");
    EXPECT_EQ(box("Frames that a panel is lit").text(), "A quarter of a second");
    box("Frames that a panel is lit").setValue(3);
    EXPECT_EQ(chart.style().options.hold, 3);
    EXPECT_EQ(words(), "CHART: Chase along each port");
}

TEST_F(DisplaysTest, AClockBeginsAtTheTimeOfDay)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    chooseChart("Camera", "Clock and counter");
    const int before = QTime::currentTime().msecsSinceStartOfDay() / 1000;
    tool("Show").click();
    const int begun = window.desk().chart().style().options.start;
    EXPECT_TRUE((begun >= before && begun <= before + 2) || before > 86'390) << begun;
}

TEST_F(DisplaysTest, AWalkGoesOnByItself)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    tool("Walk").click();
    pane().findChild<QDoubleSpinBox *>()->setValue(0.2);
    const QString first = words();
    tool("Auto").click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return words() != first; }, 1000));
    tool("Auto").click();
    const QString there = words();
    QTest::qWait(500);
    EXPECT_EQ(words(), there);
}

TEST_F(DisplaysTest, TheListOfWrongPanelsIsCopiedAndCleared)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    tool("Walk").click();
    tool("Wrong").click();
    QTest::keyClick(&window, Qt::Key_PageDown);
    QTest::keyClick(&window, Qt::Key_X);
    QMenu &marks = *tool("2 wrong").menu();
    emit marks.aboutToShow();
    marks.actions().last()->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), window.desk().walk().walk().marks().join('\n'));
    EXPECT_EQ(window.desk().walk().walk().marks().size(), 2);
    marks.findChild<QMenu *>()->actions().first()->trigger();
    EXPECT_TRUE(window.desk().walk().walk().marks().isEmpty());
    EXPECT_FALSE(tool("0 wrong").isVisible());
}
