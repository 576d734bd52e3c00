#include "Chance.h"
#include "wiring/HandWiring.h"
#include "wiring/PortEdits.h"
#include "wiring/WiringFinding.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace ShowFixture;

namespace {
constexpr unsigned shows = 100'000;

/// No run is empty, and no panel is in two.
testing::AssertionResult isSound(const WallRuns &runs)
{
    std::set<std::pair<int, int>> seen;
    for (const CableRun &run : runs) {
        if (run.cells.empty())
            return testing::AssertionFailure() << "an empty run";
        for (const Cell &cell : run.cells) {
            if (!seen.insert({cell.column, cell.row}).second)
                return testing::AssertionFailure() << cell.column << "," << cell.row << " twice";
        }
    }
    return testing::AssertionSuccess();
}

std::size_t panelCount(const WallRuns &runs)
{
    std::size_t count = 0;
    for (const CableRun &run : runs)
        count += run.cells.size();
    return count;
}

Cell randomCell(Chance &chance)
{
    const int column = chance.from(-1, 9);
    return {column, chance.from(-1, 9)};
}

HandWiring::Hand randomHand(Chance &chance)
{
    HandWiring::Hand hand;
    hand.isBefore = chance.once(3);
    hand.takesOver = chance.once(2);
    hand.goesPastLimit = chance.once(3);
    return hand;
}

/// Some movement, key or item of the menu.
WallRuns edited(Chance &chance, const WallShape &wall, const WallRuns &runs)
{
    const std::vector<Cell> way = HandWiring::wayBetween(randomCell(chance), randomCell(chance));
    PortBounds bounds;
    bounds.capacity.limit = chance.from(0, 200'000);
    const HandWiring::Limit limit{chance.once(2) ? &bounds : nullptr};
    const HandWiring::Hand hand = randomHand(chance);
    if (runs.empty() || chance.once(4))
        return HandWiring::begin(wall, runs, {"A", chance.from(1, 9)}, 1, way, limit, hand).runs;
    const auto run = static_cast<std::size_t>(chance.from(0, static_cast<int>(runs.size()) - 1));
    switch (chance.from(0, 4)) {
    case 0:
        return HandWiring::takeBack(runs, run, hand.isBefore);
    case 1:
        return chance.once(4) ? HandWiring::clear(runs, run) : runs;
    case 2:
        return PortEdits::reverse({runs}, runs[run].port).front();
    default:
        return HandWiring::lay(wall, runs, run, way, limit, hand).runs;
    }
}

/// Panels and pixels of each port.
std::map<PortName, std::pair<qint64, qint64>> loads(const ShowToWire &show)
{
    std::map<PortName, std::pair<qint64, qint64>> found;
    for (const ShowWiring::Port &port : ShowWiring::of(show).ports)
        found[{show.processors[port.processor].name, port.number}] = {port.load.panels, port.loaded};
    return found;
}
} // namespace

TEST(RandomHands, NoMovementLeavesAPanelInTwoRunsOrARunWithoutPanels)
{
    for (unsigned seed = 1; seed <= shows; ++seed) {
        Chance chance(seed);
        const WallShape wall = randomWall(chance).shape;
        WallRuns runs;
        for (int step = 0; step < 12; ++step) {
            runs = edited(chance, wall, runs);
            ASSERT_TRUE(isSound(runs)) << "seed " << seed << ", step " << step;
        }
        ASSERT_EQ(HandWiring::keepInside(wall, runs), runs) << "seed " << seed;
        const WallRuns fed = HandWiring::feed(wall, runs, [](const CableRun &, const PortLoad &) { return true; });
        ASSERT_TRUE(isSound(fed)) << "seed " << seed;
        ASSERT_GE(panelCount(fed), panelCount(runs)) << "seed " << seed;
    }
}

TEST(RandomHands, AutomaticCablesLaidByHandCarryTheSame)
{
    int compared = 0;
    for (unsigned seed = 1; seed <= shows; ++seed) {
        Chance chance(seed);
        ShowToWire show{{randomProcessor(chance, "A"), randomProcessor(chance, "B")}, {}, {2000, 1000}};
        for (int count = chance.from(1, 3); count > 0; --count) {
            show.walls.push_back(randomWall(chance));
            show.walls.back().goesOn = chance.once(2);
        }
        const ShowWiring automatic = ShowWiring::of(show);
        const auto before = loads(show);
        if (!automatic.shortages.empty())
            continue;
        ShowToWire own = show;
        for (std::size_t wall = 0; wall < show.walls.size(); ++wall) {
            own.walls[wall].split = WallToWire::Split::Hand;
            own.walls[wall].runs = PortEdits::asLaidByHand(show, automatic, wall);
            ASSERT_TRUE(isSound(own.walls[wall].runs)) << "seed " << seed;
        }
        if (automatic.processors[0].ports) {
            ASSERT_EQ(loads(own), before) << "seed " << seed;
            ++compared;
            for (const WiringFinding &finding : findInWiring(own, ShowWiring::of(own))) {
                ASSERT_NE(finding.check, WiringFinding::Check::PanelNotFed) << "seed " << seed;
                ASSERT_NE(finding.check, WiringFinding::Check::PanelFedTwice) << "seed " << seed;
            }
        }
    }
    EXPECT_GT(compared, 30'000);
}

TEST(RandomHands, WhatIsSplitCanBeJoined)
{
    for (unsigned seed = 1; seed <= shows; ++seed) {
        Chance chance(seed);
        const WallShape wall = randomWall(chance).shape;
        const std::vector<Cell> way = HandWiring::wayBetween({0, 0}, randomCell(chance));
        const PortEdits::ShowRuns runs{
            HandWiring::begin(wall, {}, {"A", 1}, 1, way, {}).runs,
            HandWiring::begin(wall, {}, {"A", 1}, 2, way, {}).runs,
        };
        if (runs[0].empty())
            continue;
        const PortEdits::WallCell at{
            static_cast<std::size_t>(chance.from(0, 1)),
            runs[0][0].cells[static_cast<std::size_t>(chance.from(0, static_cast<int>(runs[0][0].cells.size()) - 1))]};
        const auto split = PortEdits::splitHere(runs, at, {"A", 3});
        if (split) {
            ASSERT_EQ(PortEdits::joinWithNext(*split, {"A", 1}), runs) << "seed " << seed;
        }
    }
}
