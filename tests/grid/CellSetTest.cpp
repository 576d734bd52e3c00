#include "grid/CellSet.h"

#include <gtest/gtest.h>

namespace {
std::vector<Cell> cellsInRow(const CellSet &set, int row)
{
    const auto cells = set.inRow(row);
    return {cells.begin(), cells.end()};
}
} // namespace

TEST(CellSet, KnowsEachCellOnce)
{
    const CellSet set({{3, 2}, {1, 0}, {3, 2}, {0, 2}, {1, 0}});

    EXPECT_EQ(set.size(), 3);
    EXPECT_TRUE(set.contains({3, 2}));
    EXPECT_TRUE(set.contains({1, 0}));
    EXPECT_FALSE(set.contains({2, 3}));
    EXPECT_FALSE(set.contains({0, 1}));
    EXPECT_EQ(CellSet().size(), 0);
    EXPECT_FALSE(CellSet().contains({0, 0}));
}

TEST(CellSet, TellsThoseOfARowFromLeftToRight)
{
    const CellSet set({{3, 2}, {1, 0}, {0, 2}, {7, 3}});

    EXPECT_EQ(cellsInRow(set, 2), (std::vector<Cell>{{0, 2}, {3, 2}}));
    EXPECT_EQ(cellsInRow(set, 0), (std::vector<Cell>{{1, 0}}));
    EXPECT_EQ(cellsInRow(set, 1), std::vector<Cell>());
    EXPECT_EQ(cellsInRow(set, 4), std::vector<Cell>());
}
