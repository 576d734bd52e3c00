#include "grid/PanelGrid.h"

#include <gtest/gtest.h>
#include <limits>

TEST(PanelGrid, CountsItsPixels)
{
    const PanelGrid grid{{7, 30}, {3, 20}};

    EXPECT_EQ(grid.panelPixels(), 600);
    EXPECT_EQ(grid.pixels(), 12'600);
    EXPECT_EQ((PanelGrid{{7, 30, {{0, 10}}}, {3, 20}}.pixels()), 190 * 60);
}

TEST(PanelGrid, MorePixelsThanANumberHoldsAreTheLargestNumber)
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr qint64 largest = std::numeric_limits<qint64>::max();

    EXPECT_EQ((PanelGrid{{most, 2}, {most, 1}}.pixels()), 2 * qint64{most} * most);
    EXPECT_EQ((PanelGrid{{most, 2}, {most, 2}}.pixels()), largest);
    EXPECT_EQ((PanelGrid{{most, most}, {-most, most}}.pixels()), largest);
    EXPECT_EQ((PanelGrid{{most, most}, {0, most}}.pixels()), 0);
}

TEST(PanelGrid, RowsFromTheBottomAreThoseFromTheTopTheOtherWayRound)
{
    const PanelGrid grid{{7, 30}, {3, 20, {{0, 50}}}};

    EXPECT_EQ(grid.rows.edge(1), 50);
    EXPECT_EQ(grid.rowsFromBottom().edge(1), 20);
    EXPECT_EQ(grid.rowsFromBottom().edge(2), 40);
    EXPECT_EQ(grid.rowsFromBottom().size(), 90);
}
