#include "wiring/HandWiring.h"

#include "ShowFixture.h"

#include <gmock/gmock.h>

using namespace HandWiring;
using ShowFixture::block;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
/// 5 x 4 panels of 100 pixels each.
WallShape shape()
{
    return ShowFixture::wall(5, 4, 10, 10).shape;
}

PortBounds bounds(qint64 limit)
{
    PortBounds bounds;
    bounds.isRectangle = false;
    bounds.capacity.limit = limit;
    return bounds;
}

const WallRuns two{{{"A", 1}, 1, {{0, 0}, {1, 0}}}, {{"A", 2}, 1, {{0, 1}, {1, 1}, {2, 1}}}};

using Cells = std::vector<Cell>;
} // namespace

void PrintTo(const Cell &cell, std::ostream *out)
{
    *out << cell.column << "," << cell.row;
}

TEST(HandWiring, ARunGrowsAlongTheWayOfThePointer)
{
    const Laid laid = lay(shape(), two, 0, Cells{{2, 0}, {3, 0}, {3, 1}}, {});
    EXPECT_EQ(laid.runs[0].cells, (Cells{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {3, 1}}));
    EXPECT_EQ(laid.taken, (Cells{{2, 0}, {3, 0}, {3, 1}}));
    EXPECT_THAT(laid.passed, IsEmpty());
    EXPECT_EQ(laid.runs[1], two[1]);
    EXPECT_FALSE(laid.full);
}

TEST(HandWiring, APanelOfTwoRunsStandsInEachOnce)
{
    const WallRuns twice{{{"A", 1}, 1, {{0, 0}}}, {{"A", 2}, 1, {{0, 0}, {0, 1}}}};
    const Laid laid = lay(shape(), twice, 1, Cells{{0, 0}, {1, 1}}, {}, {.takesOver = true});
    EXPECT_EQ(laid.runs[0].cells, (Cells{{0, 0}}));
    EXPECT_EQ(laid.runs[1].cells, (Cells{{0, 0}, {0, 1}, {1, 1}}));
}

TEST(HandWiring, ARunGoesOnBeforeItsBeginning)
{
    const Laid laid = lay(shape(), two, 1, Cells{{0, 2}, {0, 3}}, {}, {.isBefore = true});
    EXPECT_EQ(laid.runs[1].cells, (Cells{{0, 3}, {0, 2}, {0, 1}, {1, 1}, {2, 1}}));
}

TEST(HandWiring, ANewPieceBeginsWhereThePointerIs)
{
    const Laid laid = begin(shape(), two, {"B", 7}, 3, Cells{{4, 3}, {3, 3}}, {});
    ASSERT_EQ(laid.runs.size(), 3u);
    EXPECT_EQ(laid.run, 2u);
    EXPECT_EQ(laid.runs[2], (CableRun{{"B", 7}, 3, {{4, 3}, {3, 3}}}));
    const Laid nothing = begin(shape(), two, {"B", 7}, 3, Cells{{0, 0}}, {});
    EXPECT_EQ(nothing.runs, two);
    EXPECT_EQ(nothing.run, 2u);
}

TEST(HandWiring, PanelsOfAnotherRunArePassedAndNamed)
{
    const Laid laid = lay(shape(), two, 0, Cells{{1, 1}, {2, 1}, {3, 1}}, {});
    EXPECT_EQ(laid.taken, (Cells{{3, 1}}));
    EXPECT_THAT(laid.passed, ElementsAre(Passed{{1, 1}, PortName{"A", 2}}, Passed{{2, 1}, PortName{"A", 2}}));
    EXPECT_EQ(laid.runs[1], two[1]);
}

TEST(HandWiring, TheyChangeOverWhereTheyAreMeantToAndTheOtherRunClosesUp)
{
    const Laid laid = lay(shape(), two, 0, Cells{{1, 1}}, {}, {.takesOver = true});
    EXPECT_EQ(laid.runs[0].cells, (Cells{{0, 0}, {1, 0}, {1, 1}}));
    EXPECT_EQ(laid.runs[1].cells, (Cells{{0, 1}, {2, 1}}));
}

TEST(HandWiring, APanelOfAnotherPieceOfThePortCountsOnce)
{
    const WallRuns pieces{{{"A", 1}, 1, {{0, 0}, {1, 0}}}, {{"A", 1}, 2, {{2, 0}, {3, 0}}}};
    const PortBounds four = bounds(400);
    const Laid laid = lay(shape(), pieces, 0, Cells{{2, 0}, {3, 0}, {4, 0}}, {&four, loadOf(shape(), pieces[1])},
                          {.takesOver = true});
    EXPECT_EQ(laid.taken, (Cells{{2, 0}, {3, 0}}));
    EXPECT_EQ(laid.full, (Cell{4, 0}));
}

TEST(HandWiring, ARunThatLosesAllItsPanelsIsGone)
{
    const Laid laid = lay(shape(), two, 1, Cells{{1, 0}, {0, 0}}, {}, {.takesOver = true});
    ASSERT_EQ(laid.runs.size(), 1u);
    EXPECT_EQ(laid.run, 0u);
    EXPECT_EQ(laid.runs[0].cells, (Cells{{0, 1}, {1, 1}, {2, 1}, {1, 0}, {0, 0}}));
}

TEST(HandWiring, PanelsThatAreOffArePassedAndTold)
{
    WallShape wall = shape();
    wall.off = block(2, 0, 1, 1);
    const Laid laid = lay(wall, two, 0, Cells{{2, 0}, {3, 0}, {-1, 0}, {9, 9}}, {});
    EXPECT_EQ(laid.taken, (Cells{{3, 0}}));
    EXPECT_THAT(laid.passed, ElementsAre(Passed{{2, 0}, std::nullopt}));
}

TEST(HandWiring, ARunStopsAtItsLimitOrGoesPastItAndSaysSo)
{
    const PortBounds four = bounds(400);
    const Cells way{{2, 0}, {3, 0}, {4, 0}};
    const Laid stopped = lay(shape(), two, 0, way, {&four});
    EXPECT_EQ(stopped.taken, (Cells{{2, 0}, {3, 0}}));
    EXPECT_EQ(stopped.full, (Cell{4, 0}));
    EXPECT_FALSE(stopped.isOver);
    const Laid past = lay(shape(), two, 0, way, {&four}, {.goesPastLimit = true});
    EXPECT_EQ(past.taken, way);
    EXPECT_TRUE(past.isOver);
    EXPECT_FALSE(past.full);
    PortLoad elsewhere;
    elsewhere.add({{500, 510}, {0, 10}});
    EXPECT_EQ(lay(shape(), two, 0, way, {&four, elsewhere}).taken, (Cells{{2, 0}}));
}

TEST(HandWiring, TheWayOfAFastPointerHasNoGaps)
{
    EXPECT_EQ(wayBetween({0, 0}, {3, 0}), (Cells{{1, 0}, {2, 0}, {3, 0}}));
    EXPECT_EQ(wayBetween({2, 2}, {2, 0}), (Cells{{2, 1}, {2, 0}}));
    EXPECT_EQ(wayBetween({3, 0}, {0, 1}), (Cells{{2, 0}, {1, 0}, {1, 1}, {0, 1}}));
    EXPECT_EQ(wayBetween({0, 0}, {2, 2}), (Cells{{1, 0}, {1, 1}, {2, 1}, {2, 2}}));
    EXPECT_THAT(wayBetween({1, 1}, {1, 1}), IsEmpty());
}

TEST(HandWiring, TakesBackTheLastOrTheFirst)
{
    EXPECT_EQ(takeBack(two, 1)[1].cells, (Cells{{0, 1}, {1, 1}}));
    EXPECT_EQ(takeBack(two, 1, true)[1].cells, (Cells{{1, 1}, {2, 1}}));
    EXPECT_EQ(takeBack(takeBack(two, 0), 0), WallRuns{two[1]});
    EXPECT_EQ(clear(two, 0), WallRuns{two[1]});
    EXPECT_EQ(runAt(two, {2, 1}), 1u);
    EXPECT_FALSE(runAt(two, {2, 2}));
}

TEST(HandWiring, ASmallerWallLosesThePanelsThatItHasNot)
{
    const WallShape smaller = ShowFixture::wall(2, 1, 10, 10).shape;
    EXPECT_EQ(keepInside(smaller, two), WallRuns{two[0]});
    EXPECT_EQ(keepInside(ShowFixture::wall(1, 2, 10, 10).shape, two)[1].cells, (Cells{{0, 1}}));
}

TEST(HandWiring, NewPanelsAreFedBehindTheRunNextToThemWhileItFits)
{
    const auto atMost = [](qint64 pixels) {
        return [pixels](const CableRun &, const PortLoad &load) { return load.pixels <= pixels; };
    };
    const WallShape grown = ShowFixture::wall(3, 2, 10, 10).shape;
    EXPECT_EQ(feed(grown, two, atMost(1000))[0].cells, (Cells{{0, 0}, {1, 0}, {2, 0}}));
    EXPECT_EQ(feed(grown, two, atMost(1000))[1], two[1]);
    EXPECT_EQ(feed(grown, two, atMost(200)), two);
    WallShape off = grown;
    off.off = block(2, 0, 1, 1);
    EXPECT_EQ(feed(off, two, atMost(1000)), two);
    const WallRuns outside{{{"A", 1}, 1, {{std::numeric_limits<int>::max(), 0}}}};
    EXPECT_EQ(feed(grown, outside, atMost(1000)), outside);
}
