#include "grid/PanelKeys.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
bool always(const Cell &)
{
    return true;
}
} // namespace

TEST(PanelKeys, IndexesBeforeTheFirstAreWrittenAsUnsignedNumbers)
{
    EXPECT_EQ(panelKey(2, 5), "2,5");
    EXPECT_EQ(panelKey(-1, 0), "18446744073709551615,0");
    EXPECT_EQ(panelKey(0, std::numeric_limits<qint64>::min()), "0,9223372036854775808");
}

TEST(PanelKeys, PanelsAreNamedByExactKeysOnly)
{
    const QStringList texts{"1,2", " 0,0", "00,0", "+0,1",  "0,3 ", "1,2", "9,0", "0",   "",   "18446744073709551615,0",
                            ",",   "0,",   ",0",   "0,0,0", "0,-1", "0;1", "0,٣", "0,a", "0/1"};
    const PanelKeys keys(texts);
    const CellSet inside = keys.cellsInside(99, 3);

    EXPECT_EQ(keys.texts(), texts);
    EXPECT_EQ(inside.size(), 1);
    EXPECT_TRUE(inside.contains({2, 1}));
}

TEST(PanelKeys, EachPanelOfTheWallCountsOnce)
{
    const PanelKeys keys(QStringList{"1,2", "1,2", "0,0", "3,0", "0,4", "x", "18446744073709551615,0"});

    EXPECT_EQ(keys.cellsInside(4, 3).size(), 2);
    EXPECT_EQ(keys.cellsInside(0, 3).size(), 0);
    EXPECT_EQ(keys.cellsInside(-4, -3).size(), 0);
    EXPECT_EQ(keys.cellsInside(2'000'000'000, 2'000'000'000).size(), 4);
}

TEST(PanelKeys, TheLastPanelOfTheLargestWallHasAKey)
{
    constexpr int most = std::numeric_limits<int>::max();
    const PanelKeys keys(QStringList{"2147483646,2147483646", "2147483647,0", "2147483648,0", "4294967296,0",
                                     "10000000000,0", "0,2147483646"});
    const CellSet inside = keys.cellsInside(most, most);

    EXPECT_EQ(inside.size(), 2);
    EXPECT_TRUE(inside.contains({most - 1, most - 1}));
    EXPECT_TRUE(inside.contains({most - 1, 0}));
}

TEST(PanelKeys, AKeyIsAppendedOrTakenAwayAsOftenAsItIsThere)
{
    PanelKeys keys(QStringList{"3,3", "1,2", "odd", "1,2"});

    keys.toggle(0, 5);
    EXPECT_EQ(keys.texts(), (QStringList{"3,3", "1,2", "odd", "1,2", "0,5"}));
    keys.toggle(1, 2);
    EXPECT_EQ(keys.texts(), (QStringList{"3,3", "odd", "0,5"}));
    keys.toggle(-1, 0);
    EXPECT_EQ(keys.texts(), (QStringList{"3,3", "odd", "0,5", "18446744073709551615,0"}));
    keys.toggle(-1, 0);
    EXPECT_EQ(keys.texts(), (QStringList{"3,3", "odd", "0,5"}));
    EXPECT_EQ(keys.cellsInside(9, 9).size(), 2);
}

TEST(PanelKeys, CopiesShareWhatTheyHoldUntilOneIsChanged)
{
    const PanelKeys keys(QStringList{"0,0", "1,1", "2,2"});
    PanelKeys copy = keys;
    copy.removeIf([](const Cell &) { return false; });
    EXPECT_EQ(&copy.texts(), &keys.texts());
    EXPECT_EQ(copy, keys);

    copy.toggle(1, 1);
    EXPECT_NE(copy, keys);
    EXPECT_EQ(copy.texts(), (QStringList{"0,0", "2,2"}));
    EXPECT_EQ(keys.cellsInside(9, 9).size(), 3);
    copy.toggle(1, 1);
    EXPECT_NE(copy, keys); // another order
    EXPECT_EQ(copy, PanelKeys(QStringList{"0,0", "2,2", "1,1"}));
}

TEST(PanelKeys, WhatStaysKeepsItsOrderAndItsPanel)
{
    PanelKeys keys(QStringList{"5,5", "1,1", "01,1", "2,2", "1,1", "18446744073709551615,0", "4,4"});
    const PanelKeys before = keys;
    keys.append({7, 3});
    keys.removeIf([](const Cell &cell) { return cell.row < 4; });

    EXPECT_EQ(keys.texts(), (QStringList{"5,5", "01,1", "18446744073709551615,0", "4,4"}));
    EXPECT_EQ(keys.cellsInside(9, 9).size(), 2);
    EXPECT_TRUE(keys.cellsInside(9, 9).contains({4, 4}));
    EXPECT_EQ(before.texts().size(), 7);
    EXPECT_TRUE(before.cellsInside(9, 9).contains({1, 1}));
}

TEST(PanelKeys, OnlyThoseBehindTheKeptOnesGo)
{
    PanelKeys keys(QStringList{"5,5", "1,1", "2,2"});
    keys.append({3, 3});
    keys.removeIf(always, 2);
    EXPECT_EQ(keys.texts(), (QStringList{"5,5", "1,1"}));
    keys.removeIf(always, 2);
    EXPECT_EQ(keys.texts(), (QStringList{"5,5", "1,1"}));
    keys.removeIf(always);
    EXPECT_EQ(keys.texts(), QStringList());
}
