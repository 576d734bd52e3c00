#include "Chance.h"
#include "wiring/PortEdits.h"

#include <array>
#include <gtest/gtest.h>
#include <set>

using namespace ShowFixture;

namespace {
constexpr unsigned walls = 100'000;

/// Each panel that is on stands in one run, once.
testing::AssertionResult feedsAllOnce(const WallShape &wall, const WallSplit &split)
{
    std::array<std::array<int, 9>, 9> times{};
    qint64 panels = 0;
    for (const WallSplit::Run &run : split.runs) {
        for (const WiredPanel &panel : split.panelsOf(run)) {
            const Cell cell = panel.cell;
            if (!wall.holds(cell) || wall.off.contains(cell) ||
                ++times[std::size_t(cell.row)][std::size_t(cell.column)] > 1)
                return testing::AssertionFailure() << "panel " << cell.column << "," << cell.row;
            ++panels;
        }
    }
    if (panels != wall.panelCount() - wall.off.size())
        return testing::AssertionFailure() << panels << " panels are fed";
    return testing::AssertionSuccess();
}

/// Whether a rule asks where panels are or how many there are, and may so cost more ports than whole lines do.
bool isBoundOtherwise(const PortBounds &bounds)
{
    return bounds.isTopAligned || bounds.minWidth > 0 || bounds.maxPanels > 0;
}
} // namespace

TEST(RandomWalls, AutomaticWaysFeedEachPanelThatIsOnOnce)
{
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        const WallToWire random = randomWall(chance);
        const FlowPattern pattern = *FlowPattern::ofCode(random.pattern);
        const auto bounds = PortBounds::of(randomProcessor(chance, "A"), chance.from(1, 2000));
        ASSERT_TRUE(feedsAllOnce(random.shape, WallSplit::byLines(random.shape, pattern, chance.from(0, 200'000))))
            << "seed " << seed;
        if (bounds) {
            ASSERT_TRUE(feedsAllOnce(random.shape, WallSplit::byPanels(random.shape, pattern, *bounds)))
                << "seed " << seed;
        }
    }
}

TEST(RandomWalls, PanelByPanelNoPortIsOverUnlessOnePanelAloneIs)
{
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        const WallToWire random = randomWall(chance);
        const auto bounds = PortBounds::of(randomProcessor(chance, "A"), chance.from(1, 2000));
        if (!bounds)
            continue;
        const WallSplit split = WallSplit::byPanels(random.shape, *FlowPattern::ofCode(random.pattern), *bounds);
        for (const WallSplit::Run &run : split.runs) {
            const PortLoad load = split.loadOf(run);
            ASSERT_TRUE(load.panels == 1 || bounds->fits(load)) << "seed " << seed;
            ASSERT_TRUE(bounds->maxPanels == 0 || load.panels <= bounds->maxPanels) << "seed " << seed;
        }
    }
}

TEST(RandomWalls, PanelByPanelNeedsNoMorePortsThanWholeLines)
{
    int compared = 0;
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        const WallToWire random = randomWall(chance);
        const auto bounds = PortBounds::of(randomProcessor(chance, "A"), chance.from(1, 2000));
        if (!bounds || isBoundOtherwise(*bounds))
            continue;
        const FlowPattern pattern = *FlowPattern::ofCode(random.pattern);
        const qint64 limit = bounds->pixelLimit(random.shape.grid.panelPixels());
        const WallSplit lines = WallSplit::byLines(random.shape, pattern, limit);
        if (limit == 0 || lines.isLineOver)
            continue;
        const WallSplit panels = WallSplit::byPanels(random.shape, pattern, *bounds);
        ASSERT_LE(panels.runs.size(), lines.runs.size()) << "seed " << seed;
        ++compared;
    }
    EXPECT_GT(compared, 10'000);
}

TEST(RandomWalls, WhatIsKeptStaysWhateverTheOthersDo)
{
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        ShowToWire show{{randomProcessor(chance, "A")}, {}, {2000, 1000}};
        show.processors.push_back(show.processors.front());
        show.processors.back().name = "B";
        for (int count = chance.from(1, 4); count > 0; --count)
            show.walls.push_back(randomWall(chance));
        WallToWire kept = randomWall(chance);
        kept.firstPort = chance.from(1, 3);
        show.walls.insert(show.walls.begin() + chance.from(0, static_cast<int>(show.walls.size())), kept);

        const auto portsOf = [](const ShowToWire &of, std::size_t wall) { return names(of, ShowWiring::of(of), wall); };
        std::size_t place = 0;
        while (show.walls[place].firstPort == 0)
            ++place;
        const ShowToWire alone{show.processors, {kept}, show.output};
        // What A cannot take goes on at what is free of B, which is nobody's to keep.
        const auto onA = [](std::vector<std::string> ports) {
            std::erase_if(ports, [](const std::string &port) { return port.front() != 'A'; });
            return ports;
        };
        ASSERT_EQ(onA(portsOf(show, place)), onA(portsOf(alone, 0))) << "seed " << seed;
    }
}

TEST(RandomWalls, WhatIsToBeKeptStaysAsItWas)
{
    int kept = 0;
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        ShowToWire show{{randomProcessor(chance, "A")}, {}, {2000, 1000}};
        for (int count = chance.from(1, 5); count > 0; --count) {
            show.walls.push_back(randomWall(chance));
            show.walls.back().goesOn = chance.once(2);
            show.walls.back().firstPort = chance.once(6) ? chance.from(1, 9) : 0;
        }
        const ShowWiring before = ShowWiring::of(show);
        const auto wall = static_cast<std::size_t>(chance.from(0, static_cast<int>(show.walls.size()) - 1));
        const auto ports = PortEdits::firstPortsToKeep(show, before, {wall});
        kept += ports.empty() ? 0 : 1;
        ShowToWire after = show;
        for (const auto &[place, firstPort] : ports)
            after.walls[place].firstPort = firstPort;
        const ShowWiring wiring = ShowWiring::of(after);
        for (const auto &[place, firstPort] : ports) {
            ASSERT_EQ(names(after, wiring, place), names(show, before, place)) << "seed " << seed;
            ASSERT_EQ(wiring.walls[place].split.runs, before.walls[place].split.runs) << "seed " << seed;
        }
    }
    EXPECT_GT(kept, 50'000);
}

TEST(RandomWalls, NoTwoWallsShareAPortUnlessTheyAreMeantTo)
{
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        const ProcessorSettings settings = randomProcessor(chance, "A");
        const ShowWiring wiring = wire({settings}, {randomWall(chance), randomWall(chance), randomWall(chance)});
        std::set<qint64> used;
        for (const ShowWiring::Port &port : wiring.ports) {
            ASSERT_EQ(port.pieces.size(), 1u) << "seed " << seed;
            if (port.number == 0)
                continue;
            ASSERT_TRUE(used.insert(port.number).second) << "seed " << seed;
            ASSERT_TRUE(!port.backup || used.insert(port.backup->number).second) << "seed " << seed;
        }
    }
}

TEST(RandomWalls, AtTheHighestRateAPortFitsAndAboveItDoesNot)
{
    int told = 0;
    for (unsigned seed = 1; seed <= walls; ++seed) {
        Chance chance(seed);
        ProcessorSettings settings = randomProcessor(chance, "A");
        if (chance.once(4))
            settings.model = chance.oneOf({"MX2000 Pro, 5G cards", "MX2000 Pro, 4x10G cards", "MCTRL4K", "Z3"});
        settings.capacity = 0;
        const int canvasHeight = chance.from(1, 2000);
        const auto bounds = PortBounds::of(settings, canvasHeight);
        if (!bounds)
            continue;
        const WallToWire random = randomWall(chance);
        PortLoad load;
        for (int panels = chance.from(1, 60); panels > 0; --panels)
            load.add(random.shape.boxOf({chance.from(0, 8), chance.from(0, 8)}));
        const auto rate = bounds->highestRate(settings, load);
        const auto fitsAt = [&](double hertz) {
            ProcessorSettings other = settings;
            other.rate = hertz;
            const auto then = PortBounds::of(other, canvasHeight);
            return then && then->fits(load);
        };
        ASSERT_TRUE(rate ? fitsAt(*rate) && !fitsAt(*rate + 0.002) : !fitsAt(24) && !fitsAt(60)) << "seed " << seed;
        told += rate ? 1 : 0;
    }
    EXPECT_GT(told, 50'000);
}
