#include "screen/FlowPath.h"

#include "screen/ChartConstants.h"
#include "screen/ScreenChart.h"

#include <gtest/gtest.h>

using FlowPath::Arrowhead;
using FlowPath::Direction;
using FlowPath::Run;

namespace {
const PanelGrid twoByTwo{{2, 100}, {2, 100}};

std::vector<QPointF> pointsOf(const QPainterPath &path)
{
    std::vector<QPointF> points;
    for (int i = 0; i < path.elementCount(); ++i)
        points.push_back(path.elementAt(i));
    return points;
}

/// A run along rows from a start y; `x` is what it writes back, or -7 where it writes nothing.
struct WalkedRows
{
    double x = -7;
    Run run;
};

WalkedRows rows(const PanelGrid &grid, bool fromRight, bool fromBottom, double y, bool andRight, float delimiter)
{
    WalkedRows walked;
    walked.run = FlowPath::rowsRun(grid, fromRight, fromBottom, walked.x, y, andRight, delimiter);
    return walked;
}

struct WalkedColumns
{
    double y = -7;
    Run run;
};

WalkedColumns columns(const PanelGrid &grid, bool fromRight, bool fromBottom, double x, bool andEnd, float delimiter)
{
    WalkedColumns walked;
    walked.run = FlowPath::columnsRun(grid, fromRight, fromBottom, x, walked.y, andEnd, delimiter);
    return walked;
}
} // namespace

TEST(FlowPath, ItsConstantsAreFilledOnce)
{
    const ChartConstants &constants = ChartConstants::init2();

    EXPECT_EQ(&constants, &ChartConstants::init2());
    EXPECT_EQ(constants.arrowSize, 10.0);
    EXPECT_EQ(constants.pathLineWidth, 5.0);
    EXPECT_EQ(constants.labelMargin, 5);
    EXPECT_EQ(constants.startColor, (Colour{0, 1, 0, 1}));
    EXPECT_EQ(constants.endColor, (Colour{1, 0, 0, 1}));
    EXPECT_EQ(constants.pathColor, (Colour{1, 1, 1, 1}));
    EXPECT_EQ(constants.arrowGlyphs, (std::array<QString, 5>{u"\u2B05\uFE0F"_qs, u"\u27A1\uFE0F"_qs, u"\u2B07\uFE0F"_qs,
                                                             u"\u2B06\uFE0F"_qs, u"\u23F9"_qs}));
}

TEST(FlowPath, AnArrowheadIsTwentyByTwenty)
{
    using Points = std::vector<QPointF>;
    EXPECT_EQ(pointsOf(Arrowhead{{50, 70}, Direction::Right}.path()), (Points{{40, 60}, {40, 80}, {60, 70}, {40, 60}}));
    EXPECT_EQ(Arrowhead({{50, 70}, Direction::Left}).path().boundingRect(), QRectF(40, 60, 20, 20));
    EXPECT_EQ(pointsOf(Arrowhead{{50, 70}, Direction::Left}.path())[2], QPointF(40, 70));
    EXPECT_EQ(pointsOf(Arrowhead{{50, 70}, Direction::Up}.path())[2], QPointF(50, 80));
    EXPECT_EQ(pointsOf(Arrowhead{{50, 70}, Direction::Down}.path())[2], QPointF(50, 60));
}

TEST(FlowPath, OneRowRunsStraightThroughTheCentres)
{
    const PanelGrid grid{{5, 60}, {1, 40}};
    const auto [x, run] = rows(grid, false, true, -1, false, 0);

    EXPECT_EQ(run.start, (Arrowhead{{30, 20}, Direction::Right}));
    EXPECT_EQ(run.passing, (std::vector<Arrowhead>{{{150, 20}, Direction::Right}})); // one, and no turn
    EXPECT_EQ(run.end, (Arrowhead{{270, 20}, Direction::Right}));
    EXPECT_EQ(pointsOf(run.line), (std::vector<QPointF>{{40, 20}, {240, 20}, {270, 20}}));
    EXPECT_EQ(x, 270);
}

TEST(FlowPath, TwoRowsTurnInTheLastPanel)
{
    const auto [x, run] = rows(twoByTwo, false, true, -1, false, 0);

    EXPECT_EQ(run.start, (Arrowhead{{50, 50}, Direction::Right}));
    EXPECT_EQ(run.passing,
              (std::vector<Arrowhead>{
                  {{100, 50}, Direction::Right}, {{150, 100}, Direction::Up}, {{100, 150}, Direction::Left}}));
    EXPECT_EQ(run.end, (Arrowhead{{50, 150}, Direction::Left}));
    EXPECT_EQ(x, 50);
    // From the arrowhead's tip; two curves of three points each; half a panel to go.
    EXPECT_EQ(
        pointsOf(run.line),
        (std::vector<QPointF>{
            {60, 50}, {100, 50}, {150, 50}, {150, 100}, {150, 100}, {150, 150}, {100, 150}, {100, 150}, {50, 150}}));
}

TEST(FlowPath, TwoColumnsAreTheTransposeOfTwoRows)
{
    const auto [y, run] = columns(twoByTwo, false, true, -1, true, 0);

    EXPECT_EQ(run.start, (Arrowhead{{50, 50}, Direction::Up}));
    EXPECT_EQ(run.passing,
              (std::vector<Arrowhead>{
                  {{50, 100}, Direction::Up}, {{100, 150}, Direction::Right}, {{150, 100}, Direction::Down}}));
    EXPECT_EQ(run.end, (Arrowhead{{150, 50}, Direction::Down}));
    EXPECT_EQ(y, 50);
}

TEST(FlowPath, DownwardRunsStartAtTheTopRowOfTheRun)
{
    const PanelGrid grid{{3, 20}, {4, 30}};

    EXPECT_EQ(rows(grid, false, false, -1, false, 0).run.start, (Arrowhead{{10, 105}, Direction::Right}));
    EXPECT_EQ(rows(grid, true, false, -1, true, 2).run.start, (Arrowhead{{50, 45}, Direction::Left}));
    EXPECT_EQ(columns(grid, true, true, -1, true, 0).run.start, (Arrowhead{{50, 15}, Direction::Up}));
    EXPECT_EQ(columns(grid, true, false, -1, false, 2).run.start, (Arrowhead{{30, 105}, Direction::Down}));
}

TEST(FlowPath, TheEndArrowheadFollowsTheParityOfTheWholeWall)
{
    const PanelGrid grid{{4, 100}, {4, 100}};
    const auto [x, run] = rows(grid, false, true, 50, false, 3);

    ASSERT_EQ(run.passing.size(), 5u);
    EXPECT_EQ(run.passing.back(), (Arrowhead{{200, 250}, Direction::Right}));
    EXPECT_EQ(run.end, (Arrowhead{{350, 250}, Direction::Left})); // against the row, since 4 is even
    EXPECT_EQ(x, 350);

    EXPECT_EQ(columns(grid, false, false, 50, false, 3).run.end, (Arrowhead{{250, 50}, Direction::Up}));
}

TEST(FlowPath, AGivenStartIsUsedWhicheverWayTheRunGoes)
{
    const PanelGrid grid{{2, 100}, {6, 100}};

    EXPECT_EQ(rows(grid, false, true, 250, false, 2).run.start.centre.y(), 250);
    EXPECT_EQ(rows(grid, false, false, 250, false, 2).run.start.centre.y(), 250);
    EXPECT_EQ(rows(grid, false, true, 250, false, 2).run.end.centre.y(), 350);
    EXPECT_EQ(rows(grid, false, false, 250, false, 2).run.end.centre.y(), 150);
}

TEST(FlowPath, AStartOfZeroOrLessCountsAsNoneGiven)
{
    for (const double none : {0.0, -0.5, -1.0}) {
        EXPECT_EQ(rows(twoByTwo, false, true, none, false, 0).run.start.centre, QPointF(50, 50)) << none;
        EXPECT_EQ(rows(twoByTwo, false, false, none, false, 0).run.start.centre, QPointF(50, 150)) << none;
    }
    EXPECT_EQ(rows(twoByTwo, false, true, 0.5, false, 0).run.start.centre, QPointF(50, 0.5));
}

TEST(FlowPath, TheDelimiterIsTruncated)
{
    const PanelGrid grid{{2, 100}, {6, 100}};
    EXPECT_EQ(rows(grid, false, true, -1, false, 2.9f).run.end.centre.y(), 150);
}

TEST(FlowPath, ARunOfNoRowsHasOnlyItsEnds)
{
    for (const float none : {0.5f, -1.0f, -3.9f}) {
        const auto [x, run] = rows(twoByTwo, true, true, 70, true, none);
        EXPECT_EQ(run.start, (Arrowhead{{150, 70}, Direction::Left})) << none;
        EXPECT_TRUE(run.passing.empty()) << none;
        EXPECT_EQ(run.end, (Arrowhead{{0, 70}, Direction::Right})) << none;
        EXPECT_EQ(x, -7) << none; // nothing written
    }
    const auto [y, run] = columns(twoByTwo, false, true, 70, true, -1);
    EXPECT_EQ(run.end, (Arrowhead{{70, 0}, Direction::Down}));
    EXPECT_EQ(y, -7);
}

TEST(FlowPath, PanelsWithoutASizeCollapseOntoALine)
{
    const PanelGrid flat{{3, 0}, {2, 40}};
    const auto [x, run] = rows(flat, false, true, -1, false, 0);

    EXPECT_EQ(run.start.centre, QPointF(0, 20));
    EXPECT_EQ(run.end.centre, QPointF(0, 60));
    EXPECT_EQ(x, 0);
}

TEST(FlowPath, LinesAndPanelsOfAnotherSizeAreMetInTheirCentres)
{
    const PanelGrid grid{{3, 100, {{2, 40}}}, {3, 60, {{0, 20}, {2, 30}}}}; // from the bottom 30, 60, 20
    const auto [x, run] = rows(grid, false, true, -1, false, 0);

    EXPECT_EQ(run.start, (Arrowhead{{50, 15}, Direction::Right}));
    EXPECT_EQ(run.passing, (std::vector<Arrowhead>{{{120, 15}, Direction::Right},
                                                   {{220, 37.5}, Direction::Up},
                                                   {{120, 60}, Direction::Left},
                                                   {{50, 80}, Direction::Up},
                                                   {{120, 100}, Direction::Right}}));
    EXPECT_EQ(run.end, (Arrowhead{{220, 100}, Direction::Right}));
    EXPECT_EQ(pointsOf(run.line)[1], QPointF(200, 15)); // half a panel before the last centre
    EXPECT_EQ(x, 220);

    EXPECT_EQ(rows(grid, false, false, 60, false, 2).run.end.centre, QPointF(50, 15));
    EXPECT_EQ(columns(grid, true, true, -1, true, 2).run.start.centre, QPointF(150, 15));
    EXPECT_EQ(columns(grid, true, true, -1, true, 0).run.start.centre, QPointF(220, 15));
}
