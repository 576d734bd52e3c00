#include "canvas/LWCanvasImageView.h"
#include "tests/windows/InspectorFixture.h"
#include "windows/LayerTable.h"

#include <QApplication>
#include <QCheckBox>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

/// Several selected layers before the inspector.
class InspectorSelectionTest : public InspectorFixture
{
protected:
    void pressPattern(int number)
    {
        QTest::mouseClick(&control<QToolButton>(QString("Data path %1").arg(number)), Qt::LeftButton);
    }
    /// The numbers of the patterns that look chosen.
    std::vector<int> chosenPatterns()
    {
        std::vector<int> chosen;
        for (int number = 1; number <= 8; ++number) {
            if (control<QToolButton>(QString("Data path %1").arg(number)).isChecked())
                chosen.push_back(number);
        }
        return chosen;
    }
    /// What stands at the top of the group.
    QToolButton &head(const QString &group)
    {
        for (QToolButton *found : inspector().findChildren<QToolButton *>("groupHead")) {
            if (found->text() == group)
                return *found;
        }
        ADD_FAILURE() << "there is no group " << qPrintable(group);
        return *inspector().findChild<QToolButton *>();
    }
    /// Where the group begins in what is seen of the inspector.
    int topOf(const QString &group) { return head(group).mapTo(inspector().viewport(), QPoint(0, 0)).y(); }
    void pressOnOutput(double x, double y)
    {
        const QRectF frame = canvas().frame();
        const QPointF place = frame.topLeft() + QPointF(x * frame.width() / 1920, y * frame.height() / 1080);
        QTest::mouseClick(&canvas(), Qt::LeftButton, {}, place.toPoint());
        QApplication::processEvents();
    }
    /// A wall of one panel with 80 x 80 px and 0 W below the first one, which has 8 x 5 panels of 128 x 128 px and
    /// 200 W; both are selected.
    void selectTwoWalls()
    {
        window.document().AddScreen();
        list().setSelectionIndexes({0, 1}, 0);
    }
    void selectTwoStills()
    {
        addStill();
        addStill();
        list().setSelectionIndexes({1, 2});
    }
    /// A wall and a picture.
    void selectBothKinds(qsizetype shown)
    {
        addStill();
        list().setSelectionIndexes({0, 1}, shown);
    }
};

TEST_F(InspectorSelectionTest, SeveralLayersAreEditedAsOneStepAndMixedValuesLookMixed)
{
    window.document().AddScreen(); // 1 x 1 panels of 80
    list().setSelectionIndexes({0, 1});
    NumberField &columns = control<NumberField>("Columns");
    EXPECT_EQ(columns.text(), "—");
    EXPECT_EQ(control<QCheckBox>("Fill").checkState(), Qt::Checked);
    list().layer(0)->setBgEnable(false);
    inspector().refresh();
    EXPECT_EQ(control<QCheckBox>("Fill").checkState(), Qt::PartiallyChecked);

    const QByteArray before = archive();
    type(columns, "6");
    EXPECT_EQ(list().layer(0)->col(), 6);
    EXPECT_EQ(list().layer(1)->col(), 6);
    EXPECT_EQ(list().layer(0)->screenSizeWidth(), 6 * 128);
    EXPECT_EQ(list().layer(1)->screenSizeWidth(), 6 * 80);
    EXPECT_EQ(columns.value(), 6);
    undo();
    EXPECT_EQ(list().layer(0)->col(), 8);
    EXPECT_EQ(list().layer(1)->col(), 1);
    EXPECT_EQ(columns.text(), "—");
}

TEST_F(InspectorSelectionTest, EachDigitIsTakenForSeveralLayersToo)
{
    window.document().AddScreen();
    list().setSelectionIndexes({0, 1});
    NumberField &left = control<NumberField>("Left");
    left.setFocus();
    left.selectAll();
    for (const char digit : {'1', '2', '8'})
        QTest::keyClick(&left, digit);
    EXPECT_EQ(list().layer(0)->xpoint(), 128);
    EXPECT_EQ(list().layer(1)->xpoint(), 128);
}

TEST_F(InspectorSelectionTest, APatternIsChosenForAllWallsAsOneStepPerChoice)
{
    selectTwoWalls();
    const int steps = window.document().undoStack().index();
    pressPattern(6);
    pressPattern(3);
    EXPECT_EQ(list().layer(0)->pattern(), 2);
    EXPECT_EQ(list().layer(1)->pattern(), 2);
    EXPECT_EQ(window.document().undoStack().index(), steps + 2);
    EXPECT_EQ(undoText(), "pattern of the path");
    undo();
    EXPECT_EQ(list().layer(0)->pattern(), 5);
    EXPECT_EQ(list().layer(1)->pattern(), 5);
    EXPECT_EQ(chosenPatterns(), std::vector<int>{6});
    undo();
    EXPECT_EQ(list().layer(1)->pattern(), 0);
}

TEST_F(InspectorSelectionTest, WhereWallsHaveSeveralPatternsNoneLooksChosen)
{
    window.document().AddScreen(); // selected alone
    list().setSelectionIndex(1);
    pressPattern(4);
    EXPECT_EQ(chosenPatterns(), std::vector<int>{4});
    list().setSelectionIndexes({0, 1}, 1);
    EXPECT_EQ(chosenPatterns(), std::vector<int>{});
    pressPattern(4);
    EXPECT_EQ(chosenPatterns(), std::vector<int>{4});
    undo();
    EXPECT_EQ(chosenPatterns(), std::vector<int>{});
    list().setSelectionIndex(0);
    EXPECT_EQ(chosenPatterns(), std::vector<int>{1});
}

TEST_F(InspectorSelectionTest, APatternWithoutAButtonLeavesThemAsTheyWere)
{
    window.document().AddScreen();
    list().layer(0)->setPattern(5);
    for (const qint64 pattern : {qint64{9}, qint64{8}, qint64{-1}, qint64{1} << 32}) {
        list().layer(1)->setPattern(pattern);
        window.document().finishEdit("setting");
        list().setSelectionIndex(0);
        EXPECT_EQ(chosenPatterns(), std::vector<int>{6}) << pattern;
        list().setSelectionIndex(1);
        EXPECT_EQ(chosenPatterns(), std::vector<int>{6}) << pattern;
    }
}

TEST_F(InspectorSelectionTest, WallsAndPicturesShareTheirNameVisibilityAndPlace)
{
    for (const qsizetype shown : {0, 1}) {
        SCOPED_TRACE(shown);
        selectBothKinds(shown);
        for (const char *name : {"Name", "Visible", "Left", "Top", "Background colour"})
            EXPECT_TRUE(isShown(name)) << name;
        for (const char *name : {"Columns", "Panel width", "Keep ratio", "Fill", "Watts per panel", "Data path 1"})
            EXPECT_FALSE(isShown(name)) << name;
    }
    list().setSelectionIndex(0);
    EXPECT_TRUE(isShown("Left"));
    EXPECT_TRUE(isShown("Columns"));
}

TEST_F(InspectorSelectionTest, WallsAndPicturesAreMovedTogether)
{
    selectBothKinds(0);
    list().layer(1)->setYpoint(30);
    window.document().finishEdit("Setting");
    type(control<NumberField>("Left"), "128");
    EXPECT_EQ(list().layer(0)->xpoint(), 128);
    EXPECT_EQ(list().layer(1)->xpoint(), 128);
    EXPECT_TRUE(control<NumberField>("Top").text().startsWith("—"));
    undo();
    EXPECT_EQ(list().layer(0)->xpoint(), 0);
    EXPECT_EQ(list().layer(1)->xpoint(), 0);
}

TEST_F(InspectorSelectionTest, SummariesTellTheSumOfAllWalls)
{
    selectTwoWalls();
    for (const int x : {10, 200, 400})
        list().layer(0)->onImageClick(x, 10);
    list().layer(0)->setPixelLimit(300'000); // two rows of 131,072
    list().layer(1)->setPowerOnCell(1'251);
    window.document().finishEdit("Setting");
    EXPECT_EQ(summary("Wall"), "2 walls, 41 panels, 3 off");
    EXPECT_EQ(summary("Ports"), "4 ports");
    EXPECT_EQ(summary("Power"), "84.10 A at 110 V, 1 phase"); // 9,251 W
    list().setSelectionIndex(1);
    EXPECT_EQ(summary("Wall"), "1 × 1 panels, 80 × 80 px");
    EXPECT_EQ(summary("Power"), "11.37 A at 110 V, 1 phase");
}

TEST_F(InspectorSelectionTest, TheFiguresAreThoseOfAllWallsOrOfThePictures)
{
    selectTwoWalls();
    list().layer(1)->setPixelLimit(1'000);
    window.document().finishEdit("Setting");
    EXPECT_EQ(summary("Number of panels"), "41");
    EXPECT_EQ(summary("Number of pixels"), "661,760");
    EXPECT_EQ(summary("Number of ports"), "2");
    EXPECT_TRUE(shows("ports, 1 over the limit"));

    selectBothKinds(0);
    EXPECT_EQ(summary("Number of panels"), "40");
    EXPECT_TRUE(shows("pixels of the walls"));
    EXPECT_EQ(summary("Amperes"), "72.73 A");

    list().setSelectionIndex(1);
    shown()->setPanelWidth(1'600);
    window.document().finishEdit("Setting");
    for (const char *name : {"Number of panels", "Number of pixels", "Number of ports", "Amperes"})
        EXPECT_FALSE(isShown(name)) << name;
    EXPECT_EQ(summary("Size of the picture"), "1,600 × 30");
    selectTwoStills();
    EXPECT_EQ(summary("Size of the picture"), "2");
    EXPECT_TRUE(shows("pictures"));
}

TEST_F(InspectorSelectionTest, ItScrollsUpForAnotherKindOfLayerAndForANewOne)
{
    resizeTo({1280, 600});
    QScrollBar &bar = *inspector().verticalScrollBar();
    const auto scrollDown = [&bar] {
        bar.setValue(150);
        EXPECT_EQ(bar.value(), 150);
    };
    addStill();
    window.document().AddScreen(); // a wall below the wall, then the picture
    list().setSelectionIndex(0);
    scrollDown();
    list().setSelectionIndex(1);
    EXPECT_EQ(bar.value(), 150); // a wall, too
    list().setSelectionIndex(2);
    EXPECT_EQ(bar.value(), 0);
    list().setSelectionIndex(0);
    scrollDown();
    window.document().AddScreen();
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(InspectorSelectionTest, WithoutLayersThereIsTheOutputAndALineAboutHowToAddOne)
{
    list().setLayers({}, {});
    window.document().finishEdit("Setting");
    for (const char *name : {"Name", "Visible", "Left", "Top", "Columns", "Keep ratio", "Number of panels", "Wall"})
        EXPECT_FALSE(isShown(name)) << name;
    EXPECT_TRUE(isShown("Height"));
    EXPECT_TRUE(isShown("Background colour"));
    QStringList heads;
    for (const QToolButton *head : inspector().findChildren<QToolButton *>("groupHead")) {
        if (head->isVisibleTo(&inspector()))
            heads.append(head->text());
    }
    EXPECT_EQ(heads, QStringList("Output"));
    EXPECT_EQ(summary("Layers"), "There are no layers. Add one with + above the list of layers.");
    resizeTo({1280, 500});
    EXPECT_EQ(inspector().verticalScrollBar()->maximum(), 0); // all of it is in sight

    window.document().AddScreen();
    EXPECT_TRUE(isShown("Columns"));
    EXPECT_FALSE(isShown("Layers"));
}

TEST_F(InspectorSelectionTest, PicturesAreCounted)
{
    selectTwoStills();
    EXPECT_EQ(summary("Picture"), "2 pictures");
}

TEST_F(InspectorSelectionTest, AllPanelsOfAllWallsAreSwitchedOnAsOneStep)
{
    selectTwoWalls();
    list().layer(0)->onImageClick(10, 10);
    list().layer(1)->onImageClick(10, 10);
    window.document().finishEdit("Setting");
    ASSERT_EQ(summary("Wall"), "2 walls, 41 panels, 2 off");
    click(inspector(), "Switch all panels on");
    EXPECT_EQ(summary("Wall"), "2 walls, 41 panels");
    EXPECT_EQ(undoText(), "switch all panels on");
    undo();
    EXPECT_EQ(summary("Wall"), "2 walls, 41 panels, 2 off");
}

TEST_F(InspectorSelectionTest, AClickOnAHalfOfASwitchInSightCounts)
{
    QCheckBox &labels = control<QCheckBox>("Panel labels");
    QScrollBar &bar = *inspector().verticalScrollBar();
    bar.setValue(labels.mapTo(inspector().widget(), QPoint(0, labels.height() / 2)).y() -
                 inspector().viewport()->height());
    QApplication::processEvents();
    const bool before = labels.isChecked();
    const int scrolled = bar.value();
    const QPoint place = labels.mapTo(&window, QPoint(labels.height() / 2, labels.height() / 2 - 3));

    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);

    EXPECT_NE(labels.isChecked(), before);
    EXPECT_EQ(bar.value(), scrolled);
}

TEST_F(InspectorSelectionTest, APressBesideEveryLayerShowsTheOutputFirst)
{
    for (const auto tool : {LWCanvasImageView::Tool::Panels, LWCanvasImageView::Tool::Arrange}) {
        canvas().setTool(tool);
        for (const int height : {500, 800, 1400}) {
            resizeTo({1280, height});
            pressOnOutput(1900, 1000);
            EXPECT_EQ(topOf("Output"), 0) << height;
            EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>({0}));
            pressOnOutput(100, 100); // on the wall
            EXPECT_EQ(inspector().verticalScrollBar()->value(), 0) << height;
            EXPECT_GT(topOf("Output"), topOf("Wall"));
        }
    }
}

TEST_F(InspectorSelectionTest, AnotherSelectionEndsShowingTheOutputFirst)
{
    selectTwoWalls();
    QApplication::processEvents();
    const int scrollable = inspector().verticalScrollBar()->maximum();
    pressOnOutput(1900, 1000);
    ASSERT_EQ(topOf("Output"), 0);
    list().setSelectionIndex(1);
    QApplication::processEvents();
    EXPECT_EQ(inspector().verticalScrollBar()->value(), 0);
    EXPECT_EQ(inspector().verticalScrollBar()->maximum(), scrollable);

    pressOnOutput(1900, 1000);
    ASSERT_EQ(topOf("Output"), 0);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, table().visualRect(table().currentIndex()).center());
    EXPECT_EQ(inspector().verticalScrollBar()->value(), 0); // the same one, chosen again
}

TEST_F(InspectorSelectionTest, TheOutputStaysFirstInAWindowOfAnotherSize)
{
    QScrollBar &bar = *inspector().verticalScrollBar();
    resizeTo({1280, 500});
    inspector().showOutputFirst(true);
    ASSERT_EQ(topOf("Output"), 0);
    for (const int height : {900, 600, 1000}) {
        resizeTo({1280, height});
        QApplication::processEvents();
        EXPECT_EQ(topOf("Output"), 0) << height;
        EXPECT_EQ(bar.value(), bar.maximum()) << height; // there is no more room than that takes
    }
}

TEST_F(InspectorSelectionTest, TheRoomBelowTheOutputIsThatOfTheUnfoldedGroups)
{
    QScrollBar &bar = *inspector().verticalScrollBar();
    resizeTo({1280, 900});
    inspector().showOutputFirst(true);
    const int before = bar.maximum();
    head("Chart").click();
    QApplication::processEvents();
    EXPECT_LT(bar.maximum(), before);
    EXPECT_EQ(topOf("Output"), 0);
    EXPECT_EQ(bar.value(), bar.maximum());
    head("Chart").click();
    QApplication::processEvents();
    EXPECT_EQ(bar.maximum(), before);
    EXPECT_EQ(topOf("Output"), 0);
}

TEST_F(InspectorSelectionTest, APressBesideEveryLayerUnfoldsTheOutput)
{
    head("Output").click();
    ASSERT_FALSE(isShown("Height"));
    inspector().showOutputFirst(true);
    EXPECT_TRUE(isShown("Height"));
    EXPECT_EQ(topOf("Output"), 0);
}
