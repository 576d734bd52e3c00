#include "layer/PortColours.h"
#include "screen/CableDrawing.h"
#include "screen/CableTexts.h"
#include "tests/screen/ChartFixtures.h"

#include <gtest/gtest.h>

namespace {
const QColor green(0, 255, 0);
const QColor red(255, 0, 0);
const QColor white(255, 255, 255);

/// 4 x 3 panels of 100, on which nothing but cables is drawn.
ScreenChart wiredWall(const WallCables &cables)
{
    ScreenChart chart = blankWall();
    chart.drawFlowPath = true;
    chart.split = CableSplit::Hand;
    chart.cables = std::make_shared<const WallCables>(cables);
    return chart;
}

WallCable cableOn(qint64 port, const std::vector<Cell> &cells)
{
    return {.port = {"A", port}, .cells = cells};
}

/// Right along the top row, down in the last column.
const std::vector<Cell> corner{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}, {3, 2}};

ScreenChart named(ScreenChart chart)
{
    chart.portNames = true;
    chart.labelFontSize = 20;
    return chart;
}

/// Where texts were drawn: left, bottom, width, height.
QRect textArea(ScreenChart chart)
{
    chart.drawFlowPath = false;
    return drawnArea(chart.draw({}));
}
} // namespace

TEST(ChartCables, GoStraightThroughTheCentres)
{
    const QImage raster = wiredWall({cableOn(1, corner)}).draw({});
    for (const int x : {75, 130, 260, 330})
        EXPECT_EQ(pixelAt(raster, x, 250), white) << x;
    for (const int y : {200, 120, 70})
        EXPECT_EQ(pixelAt(raster, 350, y), white) << y;
    EXPECT_EQ(pixelAt(raster, 250, 150).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 130, 248), white); // 5 wide
    EXPECT_EQ(pixelAt(raster, 130, 251), white);
    EXPECT_EQ(pixelAt(raster, 130, 246).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 130, 253).alpha(), 0);
}

TEST(ChartCables, HaveAnArrowheadInTheMiddleOfEachStretchAndNoneAtTurns)
{
    const QImage raster = wiredWall({cableOn(1, corner)}).draw({});
    EXPECT_EQ(pixelAt(raster, 193, 256), white); // pointing right, about 200
    EXPECT_EQ(pixelAt(raster, 193, 243), white);
    EXPECT_NE(pixelAt(raster, 207, 256), white);
    EXPECT_EQ(pixelAt(raster, 356, 157), white); // pointing down, about 150
    EXPECT_NE(pixelAt(raster, 356, 143), white);
    for (const int aside : {-8, 8})
        EXPECT_EQ(pixelAt(raster, 350 + aside, 258).alpha(), 0) << "at the turn";
}

TEST(ChartCables, BeginGreenAndEndRed)
{
    const QImage raster = wiredWall({cableOn(1, corner)}).draw({});
    EXPECT_EQ(pixelAt(raster, 50, 250), green);
    EXPECT_EQ(pixelAt(raster, 43, 256), green);
    EXPECT_EQ(pixelAt(raster, 350, 50), red);
    EXPECT_EQ(pixelAt(raster, 356, 57), red);
}

TEST(ChartCables, OfASinglePanelShowBothEndsSideBySide)
{
    const QImage raster = wiredWall({cableOn(1, {{1, 1}})}).draw({});
    EXPECT_EQ(pixelAt(raster, 140, 150), green);
    EXPECT_EQ(pixelAt(raster, 158, 150), red);
}

TEST(ChartCables, ThatComeFromOrGoOnInAnotherWallHaveNoEndHere)
{
    WallCable middle = cableOn(1, corner);
    middle.begins = middle.ends = false;
    const QImage raster = wiredWall({middle}).draw({});
    EXPECT_EQ(pixelAt(raster, 55, 250), white);
    EXPECT_EQ(pixelAt(raster, 350, 55), white);
    EXPECT_EQ(pixelAt(raster, 43, 256).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 356, 57).alpha(), 0);
}

TEST(ChartCables, JumpsAreDashed)
{
    const QImage raster = wiredWall({cableOn(1, {{0, 0}, {3, 0}})}).draw({});
    EXPECT_EQ(pixelAt(raster, 116, 250), white); // dashes of 12 and gaps of 8 pixels from the centre on
    EXPECT_EQ(pixelAt(raster, 126, 250).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 136, 250), white);
    EXPECT_EQ(pixelAt(raster, 86, 250).alpha(), 0);
}

TEST(ChartCables, GoPastCellsThatTheWallLacks)
{
    ScreenChart chart = wiredWall({cableOn(1, {{0, 0}, {9, 9}, {-1, 0}, {1, 0}})});
    EXPECT_EQ(chart.draw({}), wiredWall({cableOn(1, {{0, 0}, {1, 0}})}).draw({}));
}

TEST(ChartCables, OfAWallByItselfAreThoseOfItsRecord)
{
    ScreenChart chart = wiredWall({});
    chart.cables = nullptr;
    chart.runs = CableRuns({{{"A", 1}, 1, corner}});
    EXPECT_EQ(chart.draw({}), wiredWall({cableOn(1, corner)}).draw({}));
    chart.hiddenBoxes = PanelKeys();
    chart.hiddenBoxes->toggle(0, 1);
    chart.hiddenBoxes->toggle(0, 2);
    EXPECT_EQ(pixelAt(chart.draw({}), 350, 120), white);
    EXPECT_NE(chart.draw({}), wiredWall({cableOn(1, corner)}).draw({})); // it jumps over those that are off
}

TEST(ChartCables, OfWholeLinesAreDrawnAsThePattern)
{
    ScreenChart chart = wiredWall({cableOn(1, corner)});
    chart.split = CableSplit::Lines;
    ScreenChart plain = chart;
    plain.cables = nullptr;
    EXPECT_EQ(chart.draw({}), plain.draw({}));
    chart.split = CableSplit::Panels;
    EXPECT_EQ(chart.draw({}), wiredWall({cableOn(1, corner)}).draw({}));
    chart.cables = nullptr; // nobody knows what a port bears
    EXPECT_EQ(chart.draw({}), plain.draw({}));
}

TEST(ChartCables, HaveTheColoursOfTheirPorts)
{
    ScreenChart chart = wiredWall({cableOn(2, corner)});
    chart.portColours = true;
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 250), PortColours::of(2).toQColor());
    EXPECT_EQ(pixelAt(chart.draw({}), 50, 250), green);
}

TEST(ChartCables, OfPortsThatMeetHaveDifferentColours)
{
    WallCable second = cableOn(11, {{0, 1}, {1, 1}});
    ScreenChart chart = wiredWall({cableOn(1, {{0, 0}, {1, 0}}), second});
    chart.portColours = true;
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 250), PortColours::of(1).toQColor());
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 150), PortColours::of(2).toQColor());
    second.cells = {{0, 2}, {1, 2}};
    ScreenChart later = chart;
    later.cables = std::make_shared<const WallCables>(WallCables{cableOn(1, {{0, 0}, {1, 0}}), second});
    QImage raster = chart.draw({});
    const auto changed = later.changeSince(chart);
    ASSERT_TRUE(changed);
    for (const QRect &part : *changed)
        later.drawPart(raster, part);
    EXPECT_EQ(raster, later.draw({}));
}

TEST(ChartCables, OfWholeLinesHaveColoursFromWhereThePatternBegins)
{
    ScreenChart chart = wiredWall({cableOn(4, {}), cableOn(5, {}), cableOn(6, {})});
    chart.split = CableSplit::Lines;
    chart.portColours = true;
    chart.pixelLimit = 40000;
    chart.pattern = 0; // from the top
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 250), PortColours::of(4).toQColor());
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 50), PortColours::of(6).toQColor());
    chart.pattern = 2;
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 50), PortColours::of(4).toQColor());
    chart.cables = nullptr;
    EXPECT_EQ(pixelAt(chart.draw({}), 130, 50), PortColours::of(1).toQColor());
}

TEST(ChartCables, NamesStandAtTheBottomOfTheFirstPanel)
{
    const QRect first = textArea(named(wiredWall({cableOn(3, corner)})));
    EXPECT_EQ(first.topLeft(), QPoint(0, 200));
    EXPECT_LT(first.height(), 30);
    EXPECT_LT(first.width(), 40);
    WallCable middle = cableOn(3, corner);
    middle.begins = false;
    EXPECT_TRUE(textArea(named(wiredWall({middle}))).isEmpty());
}

TEST(ChartCables, ALoopNamesBothItsEndsAtTheLastPanel)
{
    WallCable loop = cableOn(3, corner);
    loop.begins = false;
    loop.backup = PortName{"A", 13};
    const QRect last = textArea(named(wiredWall({loop})));
    EXPECT_EQ(last.topLeft(), QPoint(300, 0));
    EXPECT_GT(last.width(), 50);
    loop.begins = true;
    loop.cells = {{1, 1}};
    EXPECT_EQ(textArea(named(wiredWall({loop}))).topLeft(), QPoint(100, 100)); // once
}

TEST(ChartCables, NamesFollowTheirForm)
{
    EXPECT_EQ(CableTexts::nameOf({"A", 3}, {}), "A3");
    EXPECT_EQ(CableTexts::nameOf({"A", 3}, "P{port} of {processor}"), "P3 of A");
    EXPECT_EQ(CableTexts::nameOf({"{port}", 3}, "{processor}-{port}"), "{port}-3");
    EXPECT_EQ(CableTexts::nameOf({"A", 0}, {}), "A?");
}

TEST(ChartCables, PlacesStandInsteadOfLabels)
{
    ScreenChart chart = wiredWall({cableOn(3, {{2, 1}})});
    chart.drawFlowPath = false;
    chart.drawLabels = chart.panelPlaces = true;
    chart.labelColor = NamedColour::white;
    chart.labelFontSize = 20;
    const QRect one = drawnArea(chart.draw({}));
    EXPECT_TRUE(QRect(200, 100, 100, 100).contains(one));
    auto later = *chart.cables;
    later.front().firstPlace = 100;
    chart.cables = std::make_shared<const WallCables>(later);
    EXPECT_GT(drawnArea(chart.draw({})).width(), one.width() + 10); // "A3.100", not "A3.1"
    chart.cables = nullptr;                                         // no ports, no places
    EXPECT_GT(drawnArea(chart.draw({})).width(), 300);
}

TEST(CableDrawing, CutsACableIntoStretches)
{
    const PanelGrid grid{{4, 100}, {3, 100}};
    const auto stretches = CableDrawing::stretchesOf(grid, {{1, 0}, {2, 0}, {3, 0}, {3, 1}, {0, 2}, {1, 2}});
    const std::vector<CableDrawing::Stretch> expected{
        {{150, 250}, {350, 250}}, {{350, 250}, {350, 150}}, {{350, 150}, {50, 50}, true}, {{50, 50}, {150, 50}}};
    EXPECT_EQ(stretches, expected);
    EXPECT_TRUE(CableDrawing::stretchesOf(grid, {{0, 0}}).empty());
}

/// What the checks do not tell of is not dashed, and the other way round.
TEST(CableDrawing, DashesWhatTheChecksCallAJump)
{
    const PanelGrid grid{{5, 100}, {5, 60}};
    const auto isDashed = [&](const Cell &from, const Cell &to) {
        return CableDrawing::stretchesOf(grid, {from, to}).front().isJump;
    };
    EXPECT_FALSE(isDashed({0, 0}, {1, 1})); // a neighbour, diagonally
    EXPECT_FALSE(isDashed({4, 4}, {2, 4})); // past one panel
    EXPECT_FALSE(isDashed({0, 0}, {2, 2}));
    EXPECT_TRUE(isDashed({0, 0}, {3, 0}));
    EXPECT_TRUE(isDashed({4, 4}, {4, 1}));
    const std::vector<CableDrawing::Stretch> expected{{{50, 270}, {450, 270}}};
    EXPECT_EQ(CableDrawing::stretchesOf(grid, {{0, 0}, {1, 0}, {3, 0}, {4, 0}}), expected);
}

TEST(CableDrawing, OfManyCornersHasNoGap)
{
    ScreenChart chart = blankWall();
    chart.col = chart.row = 30;
    chart.panelWidth = chart.panelHeight = 20;
    chart.drawFlowPath = true;
    chart.split = CableSplit::Hand;
    WallCable stairs = cableOn(1, {});
    for (int turn = 0; turn < 10; ++turn) {
        for (int i = 0; i < 30; ++i) {
            const int step = turn % 2 == 0 ? i : 29 - i;
            stairs.cells.push_back({step, step});
            if (step < 29)
                stairs.cells.push_back({step + (turn % 2 == 0 ? 1 : 0), step});
        }
    }
    chart.cables = std::make_shared<const WallCables>(WallCables{stairs});
    const QImage raster = chart.draw({});
    for (int step = 2; step < 27; ++step)
        EXPECT_EQ(pixelAt(raster, step * 20 + 12, (29 - step) * 20 + 10), white) << step;
}
