#include "tests/windows/DisplaysFixture.h"

TEST_F(DisplaysTest, AClickThatPointsChangesNothing)
{
    toggle(wall);
    const QPointF place = canvas().frame().topLeft() + QPointF(3, 3);
    tool("Point").click();
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, place.toPoint());
    EXPECT_FALSE(window.document().undoStack().canUndo());
    EXPECT_TRUE(shows("Point is on: a click changes nothing."));
    tool("Point").click();
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, place.toPoint());
    EXPECT_TRUE(window.document().undoStack().canUndo());
}

TEST_F(DisplaysTest, UniformityAtFullLevelAsksAndAnotherShowAsksAnew)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    chooseChart("Camera", "Uniformity");
    tool("Show").click();
    EXPECT_EQ(words(), "CHART: Uniformity");
    for (QSpinBox *box : pane().findChildren<QSpinBox *>()) {
        if (box->accessibleName() != "Level of the field")
            continue;
        EXPECT_EQ(box->text(), "50 %");
        box->setValue(100);
    }
    EXPECT_EQ(words(), QString());
    tool("Show").click();
    EXPECT_EQ(words(), "CHART: Uniformity");
    window.document().newProject();
    EXPECT_EQ(words(), QString());
    tool("Show").click();
    EXPECT_EQ(words(), QString());
}

TEST_F(DisplaysTest, AStrobeEndsWithItsShow)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    chooseChart("Camera", "Strobe, white and black");
    tool("Start strobe (flashing)").click();
    ASSERT_EQ(words(), "CHART: Strobe, white and black");
    EXPECT_TRUE(tool("Stop flashing").isChecked());
    window.document().newProject();
    EXPECT_EQ(words(), QString());
}

TEST_F(DisplaysTest, ThePowerIsThatOfTheWallsUnderTheChart)
{
    using enum LiveDesk::ChartArea;
    LWAppDelegate &document = window.document();
    document.AddScreen();
    LiveDesk &desk = window.desk();
    EXPECT_NE(desk.power(SelectedWalls), desk.power(EachWall));
    document.arraycontroller().setSelectionIndexes({0, 1}, 0);
    EXPECT_EQ(desk.power(SelectedWalls), desk.power(EachWall));
    EXPECT_EQ(desk.power(Output), desk.power(EachWall));
}

TEST_F(DisplaysTest, OfWallsThatOverlapTheTopmostShowsItsChart)
{
    LWAppDelegate &document = window.document();
    document.AddScreen(); // below the first one
    document.setValue(1, "arrangedObjects.xpoint");
    press(Qt::Key_F11, Qt::NoModifier, {});
    chooseChart("Processor", "Frames");
    chooseIn("Over", "Each wall");
    tool("Show").click();
    ASSERT_EQ(window.desk().chart().pictures().size(), 2U);
    EXPECT_EQ(window.desk().chart().pictures().front().box.left(), 1);
    EXPECT_EQ(window.desk().chart().pictures().back().box.left(), 0);
}

TEST_F(DisplaysTest, AnIdentifiedDisplayThatIsSwitchedOnShowsItsCardThere)
{
    toggle(wall);
    press(*on(2), Qt::Key_I);
    toggle(stage);
    int cards = 0;
    for (QWidget *widget : QApplication::topLevelWidgets())
        cards += widget->inherits("IdentifyCard") && widget->isVisible() ? 1 : 0;
    EXPECT_EQ(cards, 1); // on the control display alone
    EXPECT_EQ(picture(*on(1)).pixel(0, 0), qRgb(255, 255, 255));
}

TEST_F(DisplaysTest, AltWithAnArrowMovesThePartOfTheChosenRow)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    auto &table = *pane().findChild<QTableView *>();
    table.setCurrentIndex(table.model()->index(2, 0));
    press(table, Qt::Key_Right, Qt::AltModifier);
    press(table, Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(offsetOn(2), QPoint(1, 10));
    press(table, Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(offsetOn(2), QPoint(0, 0));
}

TEST_F(DisplaysTest, AMovingChartMayLieOverThePicture)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    toggle(wall);
    const QImage before = picture(*on(2));
    chooseChart("Processor", "Sweep to the right");
    tool("Over the picture").click();
    tool("Show").click();
    EXPECT_TRUE(window.desk().chart().pictures().front().isOver);
    const auto lit = [&] {
        const QImage now = picture(*on(2));
        int different = 0;
        for (int x = 0; x < now.width(); ++x)
            different += now.pixel(x, 3) == before.pixel(x, 3) ? 0 : 1;
        return different;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return lit() > 0; }));
    EXPECT_LT(lit(), 400);
    chooseChart("Processor", "Checker, 1 px");
    EXPECT_FALSE(tool("Over the picture").isVisible());
}

TEST_F(DisplaysTest, TheListOfWrongPanelsOutlivesTheProgram)
{
    press(Qt::Key_F11, Qt::NoModifier, {});
    tool("Walk").click();
    tool("Wrong").click();
    const QStringList marks = window.desk().walk().walk().marks();
    ASSERT_EQ(marks.size(), 1);
    MainWindow later;
    EXPECT_EQ(later.desk().walk().walk().marks(), marks);
    window.desk().walk().clearMarks();
    MainWindow last;
    EXPECT_TRUE(last.desk().walk().walk().marks().isEmpty());
}
