#include "grid/PortSplit.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {
struct ExpectedPort
{
    double start;
    qint64 lines;
    bool operator==(const ExpectedPort &) const = default;
};

void PrintTo(const ExpectedPort &port, std::ostream *out)
{
    *out << port.lines << " from " << port.start;
}

/// The runs of a wall, in the order of drawing.
std::vector<ExpectedPort> runs(const PanelGrid &grid, qint64 pattern, qint64 pixelLimit)
{
    const auto split = PortSplit::of(grid, *FlowPattern::ofCode(pattern), pixelLimit);
    std::vector<ExpectedPort> found;
    for (qint64 index = 0; split && index < split->portCount(); ++index)
        found.push_back({split->port(index).start, split->port(index).lines});
    return found;
}

using Ports = std::vector<ExpectedPort>;
const Ports oneRun{{-1, 0}};
const PanelGrid fourByThree{{4, 100}, {3, 100}};
} // namespace

TEST(FlowPattern, SaysCornerAndDirection)
{
    using enum FlowPattern::Along;
    const FlowPattern expected[] = {{Rows, false, false, false},    {Rows, true, false, true},
                                    {Rows, false, true, false},     {Rows, true, true, true},
                                    {Columns, false, false, false}, {Columns, true, false, false},
                                    {Columns, false, true, true},   {Columns, true, true, true}};
    for (int code = 0; code < 8; ++code) {
        const auto pattern = FlowPattern::ofCode(code);
        ASSERT_TRUE(pattern) << code;
        EXPECT_EQ(pattern->along, expected[code].along) << code;
        EXPECT_EQ(pattern->fromRight, expected[code].fromRight) << code;
        EXPECT_EQ(pattern->fromBottom, expected[code].fromBottom) << code;
        EXPECT_EQ(pattern->end, expected[code].end) << code;
    }
}

TEST(FlowPattern, OtherCodesAreNone)
{
    for (const qint64 code : {qint64{-1}, qint64{8}, std::numeric_limits<qint64>::min(), qint64{1} << 32})
        EXPECT_FALSE(FlowPattern::ofCode(code)) << code;
}

TEST(PortSplit, LastPortTakesTheTopRows)
{
    EXPECT_EQ(runs(fourByThree, 2, 80000), (Ports{{50, 2}, {250, 1}}));
    EXPECT_EQ(runs(fourByThree, 3, 80000), (Ports{{50, 2}, {250, 1}}));
}

TEST(PortSplit, DownwardRunsStartAtTheirTopRowButPortsStillCountFromTheBottom)
{
    EXPECT_EQ(runs(fourByThree, 0, 80000), (Ports{{150, 2}, {250, 1}}));
    EXPECT_EQ(runs(fourByThree, 1, 80000), (Ports{{150, 2}, {250, 1}}));
}

TEST(PortSplit, ColumnsAreCutFromTheLeft)
{
    EXPECT_EQ(runs(fourByThree, 4, 90000), (Ports{{50, 3}, {350, 1}}));
    EXPECT_EQ(runs(fourByThree, 6, 90000), (Ports{{50, 3}, {350, 1}}));
    EXPECT_EQ(runs(fourByThree, 5, 90000), (Ports{{250, 3}, {350, 1}}));
    EXPECT_EQ(runs(fourByThree, 7, 90000), (Ports{{250, 3}, {350, 1}}));
}

TEST(PortSplit, PixelsOfAPartialRowAreGivenAway)
{
    EXPECT_EQ(runs(fourByThree, 2, 119999), (Ports{{50, 2}, {250, 1}}));
    EXPECT_EQ(runs(fourByThree, 2, 79999), (Ports{{50, 1}, {150, 1}, {250, 1}}));
}

TEST(PortSplit, WithoutALimitAllIsOneRun)
{
    for (int pattern = 0; pattern < 8; ++pattern)
        EXPECT_EQ(runs(fourByThree, pattern, 0), oneRun) << pattern;
}

TEST(PortSplit, ALimitBelowOneRowIsOneRun)
{
    EXPECT_EQ(runs(fourByThree, 0, 30000), oneRun);
    EXPECT_EQ(runs(fourByThree, 0, 39999), oneRun);
    EXPECT_EQ(runs(fourByThree, 4, 29999), oneRun);
    EXPECT_EQ(runs(fourByThree, 0, 1), oneRun);
    EXPECT_EQ(runs(fourByThree, 0, -30000), oneRun);
}

TEST(PortSplit, ALimitOfTheWholeWallLeavesNoRemainder)
{
    EXPECT_EQ(runs(fourByThree, 2, 120000), (Ports{{50, 3}}));
    EXPECT_EQ(runs(fourByThree, 0, 120000), (Ports{{250, 3}}));
    EXPECT_EQ(runs(fourByThree, 5, 120000), (Ports{{350, 4}}));
}

TEST(PortSplit, ALimitAboveTheWallIsARemainderOnly)
{
    EXPECT_EQ(runs(fourByThree, 2, 10'000'000), (Ports{{50, 3}}));
    EXPECT_EQ(runs(fourByThree, 0, 10'000'000), (Ports{{250, 3}}));
    EXPECT_EQ(runs(fourByThree, 1, std::numeric_limits<qint64>::max()), (Ports{{250, 3}}));
    EXPECT_EQ(runs(fourByThree, 7, std::numeric_limits<qint64>::max()), (Ports{{350, 4}}));
}

TEST(PortSplit, OddPanelsStartHalfAPixelBeforeTheirCentre)
{
    const PanelGrid odd{{4, 31}, {3, 21}};
    EXPECT_EQ(runs(odd, 2, 4 * 31 * 21), (Ports{{10, 1}, {31, 1}, {52, 1}}));
    EXPECT_EQ(runs(odd, 0, 8 * 31 * 21), (Ports{{32, 2}, {53, 1}}));
    EXPECT_EQ(runs(odd, 5, 3 * 31 * 21), (Ports{{16, 1}, {47, 1}, {78, 1}, {109, 1}}));
}

TEST(PortSplit, PanelsOfOnePixelStartAtZeroWhichCountsAsNoneGiven)
{
    const PanelGrid dots{{4, 1}, {3, 1}};
    EXPECT_EQ(runs(dots, 2, 8), (Ports{{0, 2}, {2, 1}}));
    EXPECT_EQ(runs(dots, 0, 8), (Ports{{2, 2}, {3, 1}}));
}

TEST(PortSplit, LinesOfAnotherSizeShiftTheStarts)
{
    const PanelGrid grid{{4, 100}, {3, 100, {{1, 40}, {2, 60}}}}; // from the bottom 60, 40, 100
    EXPECT_EQ(runs(grid, 2, 80000), (Ports{{30, 2}, {150, 1}}));
    EXPECT_EQ(runs(grid, 0, 80000), (Ports{{80, 2}, {150, 1}}));
}

TEST(PortSplit, NegativeLimitsDivideTowardZero)
{
    // -8 panels, -2 rows, 3 / -2 = -1 ports that cover 2 rows: one row remains.
    EXPECT_EQ(runs(fourByThree, 2, -80000), (Ports{{50, 1}}));
    EXPECT_EQ(runs(fourByThree, 0, -80000), (Ports{{50, 1}}));
    // -1 row each: -3 ports cover all.
    EXPECT_EQ(runs(fourByThree, 0, -40000), Ports{});
    // -50 rows each: no port, all remains.
    EXPECT_EQ(runs(fourByThree, 0, -2'000'000), (Ports{{250, 3}}));
    EXPECT_EQ(runs(fourByThree, 2, -2'000'000), (Ports{{50, 3}}));
    EXPECT_EQ(runs(fourByThree, 0, std::numeric_limits<qint64>::min()), (Ports{{250, 3}}));
}

TEST(PortSplit, NothingToDivideByGivesNoSplit)
{
    const FlowPattern rows = *FlowPattern::ofCode(0);
    const FlowPattern columns = *FlowPattern::ofCode(4);
    EXPECT_FALSE(PortSplit::of({{4, 0}, {3, 100}}, rows, 80000));
    EXPECT_FALSE(PortSplit::of({{4, 100}, {3, 0}}, columns, 80000));
    EXPECT_FALSE(PortSplit::of({{0, 100}, {3, 100}}, rows, 80000));
    EXPECT_FALSE(PortSplit::of({{4, 100}, {0, 100}}, columns, 80000));
}

TEST(PortSplit, NumbersOfAnySizeAreDescribedWithoutListingThem)
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    const auto split = PortSplit::of({{1, 1}, {most, 1}}, *FlowPattern::ofCode(2), 2);
    ASSERT_TRUE(split);
    EXPECT_EQ(split->linesPerPort, 2);
    EXPECT_EQ(split->portCount(), (qint64{most} + 1) / 2);
    EXPECT_EQ(split->port(split->portCount() - 1).lines, 1);

    for (const int number : {most, least, -1, 1}) {
        for (const qint64 limit :
             {std::numeric_limits<qint64>::min(), qint64{-1}, std::numeric_limits<qint64>::max()}) {
            for (int pattern = 0; pattern < 8; ++pattern) {
                const auto any =
                    PortSplit::of({{number, number}, {number, number}}, *FlowPattern::ofCode(pattern), limit);
                EXPECT_TRUE(any);
                EXPECT_GE(any->portCount(), 0);
            }
        }
    }
}
