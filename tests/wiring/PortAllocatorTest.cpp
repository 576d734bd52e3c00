#include "ShowFixture.h"

#include <gmock/gmock.h>

using namespace ShowFixture;
using testing::ElementsAre;

namespace {
/// Fills two ports of a VX1000 at 8 bit, 60 Hz.
WallToWire twoPorts(const QString &name)
{
    WallToWire two = wall(5, 8, 128, 256);
    two.name = name;
    two.pattern = 4;
    return two;
}

struct Wired
{
    ShowToWire show;
    ShowWiring wiring;

    explicit Wired(std::vector<WallToWire> walls, std::vector<ProcessorSettings> processors = {processor("VX1000")})
        : show{std::move(processors), std::move(walls), {4096, 4096}}, wiring(ShowWiring::of(show))
    {}
    std::vector<std::string> ports(std::size_t wall) const { return names(show, wiring, wall); }
};

WallToWire kept(WallToWire wall, qint64 firstPort)
{
    wall.firstPort = firstPort;
    return wall;
}

/// One panel, 10 % of a port.
WallToWire small(const QString &name)
{
    WallToWire one = wall(1, 1, 255, 255);
    one.name = name;
    one.goesOn = true;
    return one;
}

WallToWire byHand(const WallRuns &runs)
{
    WallToWire hand = twoPorts("hand");
    hand.split = WallToWire::Split::Hand;
    hand.runs = runs;
    return hand;
}
} // namespace

TEST(PortAllocator, EachWallBeginsOnAFreshPortInTheOrderOfTheList)
{
    const Wired wired({twoPorts("one"), twoPorts("two"), small("three")});
    EXPECT_THAT(wired.ports(0), ElementsAre("A1", "A2", "A3"));
    EXPECT_THAT(wired.ports(1), ElementsAre("A4", "A5", "A6"));
}

TEST(PortAllocator, PortsThatAreKeptOrWiredByHandArePassed)
{
    const Wired wired({twoPorts("one"), kept(twoPorts("two"), 2), byHand({{{"A", 5}, 1, {{0, 0}}}})});
    EXPECT_THAT(wired.ports(0), ElementsAre("A1", "A6", "A7"));
    EXPECT_THAT(wired.ports(1), ElementsAre("A2", "A3", "A4"));
    EXPECT_THAT(wired.ports(2), ElementsAre("A5"));
    EXPECT_TRUE(wired.wiring.conflicts.empty());
    EXPECT_TRUE(wired.wiring.ports[4].isByHand);
}

TEST(PortAllocator, WallsThatKeepTheSamePortAreTold)
{
    const Wired wired({kept(twoPorts("one"), 1), kept(twoPorts("two"), 3)});
    EXPECT_THAT(wired.ports(1), ElementsAre("A3", "A4", "A5"));
    ASSERT_EQ(wired.wiring.conflicts.size(), 1u);
    EXPECT_EQ(wired.wiring.conflicts[0].wall, 1u);
    EXPECT_EQ(wired.wiring.conflicts[0].other, 0u);
    EXPECT_EQ(wired.wiring.ports[wired.wiring.conflicts[0].port].number, 3);
    EXPECT_EQ(wired.wiring.ports[2].pieces.size(), 2u);
    EXPECT_TRUE(wired.wiring.ports[2].excess);
}

TEST(PortAllocator, SmallWallsGoOnAtThePortBeforeWhileTheyFit)
{
    std::vector<WallToWire> walls;
    for (int count = 0; count < 11; ++count) {
        walls.push_back(small("small"));
        walls.back().shape.left = count * 255; // side by side, so that the box is full
    }
    const Wired wired(walls);
    EXPECT_THAT(wired.ports(0), ElementsAre("A1"));
    EXPECT_THAT(wired.ports(8), ElementsAre("A1"));
    EXPECT_THAT(wired.ports(9), ElementsAre("A2")); // ten have 650,250 pixels
    EXPECT_THAT(wired.ports(10), ElementsAre("A2"));
    EXPECT_EQ(wired.wiring.ports[0].load.panels, 9);
    EXPECT_EQ(wired.wiring.ports[0].pieces[8].number, 9);
}

TEST(PortAllocator, AWallThatGoesOnFillsThePortBeforeFirst)
{
    WallToWire first = wall(30, 1, 128, 128);
    WallToWire second = first;
    second.goesOn = true;
    second.shape.top = 128;
    const Wired wired({first, second}, {processor("MX40 Pro")});
    EXPECT_THAT(wired.ports(1), ElementsAre("A1", "A2"));
    EXPECT_EQ(wired.wiring.ports[0].load.panels, 40);
    EXPECT_EQ(wired.wiring.ports[1].load.panels, 20);
}

TEST(PortAllocator, WholeLinesGoOnAtThePortBeforeOnlyWhereTheirFirstOnesFit)
{
    WallToWire lines = wall(10, 2, 100, 100);
    lines.split = WallToWire::Split::Lines;
    lines.pixelLimit = 100'000;
    lines.goesOn = true;
    WallToWire lower = lines;
    lower.shape.top = 200;
    ProcessorSettings bearsThree = processor("MX40 Pro");
    bearsThree.capacity = 300'000;
    const Wired three({lines, lower}, {bearsThree});
    EXPECT_THAT(three.ports(0), ElementsAre("A1", "A2"));
    EXPECT_THAT(three.ports(1), ElementsAre("A2", "A3"));
    bearsThree.capacity = 199'999;
    EXPECT_THAT(Wired({lines, lower}, {bearsThree}).ports(1), ElementsAre("A3", "A4"));
    // Without a figure the wall's own limit counts.
    const ProcessorSettings nobodySays = processor("P10 / P20 / Q8");
    EXPECT_THAT(Wired({lines, lower}, {nobodySays}).ports(1), ElementsAre("A3", "A4"));
    lower.pixelLimit = 200'000;
    EXPECT_THAT(Wired({lines, lower}, {nobodySays}).ports(1), ElementsAre("A3"));
    lower.shape.grid = {{10, 50}, {2, 50}};
    EXPECT_THAT(Wired({lines, lower}, {nobodySays}).ports(1), ElementsAre("A2"));
}

TEST(PortAllocator, AWallDoesNotGoOnWhereTheProcessorIsFull)
{
    WallToWire first = wall(34, 16, 128, 128); // 8,912,896 of 9,000,000 pixels, 24 panels on the last port
    WallToWire second = wall(8, 1, 128, 128);
    second.goesOn = true;
    second.shape.top = 2048;
    const Wired wired({first, second}, {processor("MX40 Pro"), processor("MX40 Pro", 8, 60, "B")});
    EXPECT_EQ(wired.ports(0).back(), "A14");
    EXPECT_THAT(wired.ports(1), ElementsAre("B1"));
}

TEST(PortAllocator, AKeptWallMayGoOnAtThePortOfAnother)
{
    WallToWire first = kept(wall(30, 1, 128, 128), 4);
    WallToWire second = first;
    second.goesOn = true;
    const Wired wired({first, second}, {processor("MX40 Pro")});
    EXPECT_THAT(wired.ports(1), ElementsAre("A4", "A5"));
    EXPECT_TRUE(wired.wiring.conflicts.empty());
    EXPECT_EQ(wired.wiring.ports[0].load.panels, 40);
}

TEST(PortAllocator, WhatAProcessorLacksGoesOnToTheNextOfItsKind)
{
    ProcessorSettings other = processor("VX400", 8, 60, "B");
    ProcessorSettings tenBit = processor("VX400", 10, 60, "C");
    const Wired wired({twoPorts("one"), twoPorts("two")},
                      {processor("VX400"), tenBit, other, processor("VX400", 8, 60, "D")});
    EXPECT_THAT(wired.ports(0), ElementsAre("A1", "A2", "A3"));
    EXPECT_THAT(wired.ports(1), ElementsAre("A4", "B1", "B2"));
    EXPECT_TRUE(wired.wiring.shortages.empty());
}

TEST(PortAllocator, WhatIsMissingIsCounted)
{
    const Wired wired({twoPorts("one"), twoPorts("two"), twoPorts("three"), twoPorts("four")}, {processor("VX400")});
    EXPECT_THAT(wired.ports(1), ElementsAre("A4", "?", "?"));
    EXPECT_THAT(wired.ports(3), ElementsAre("?", "?", "?"));
    ASSERT_EQ(wired.wiring.shortages.size(), 1u);
    EXPECT_EQ(wired.wiring.shortages[0].ports, 8);
    EXPECT_EQ(wired.wiring.shortages[0].processors, 2);
    EXPECT_EQ(wired.wiring.ports.back().number, 0);
    EXPECT_EQ(wired.wiring.ports.back().limit, 650000);
}

TEST(PortAllocator, AKeptWallGoesOnAtTheNextProcessorAndNotBeforeItsFirstPort)
{
    const Wired wired({kept(twoPorts("one"), 3)}, {processor("VX400"), processor("VX400", 8, 60, "B")});
    EXPECT_THAT(wired.ports(0), ElementsAre("A3", "A4", "B1"));
}

TEST(PortAllocator, LoopsTakeTwoPortsByTheData)
{
    const Wired half({twoPorts("one")}, {looped("VX1000")});
    EXPECT_THAT(half.ports(0), ElementsAre("A1", "A2", "A3"));
    EXPECT_EQ(half.wiring.ports[0].backup, (PortName{"A", 6}));
    const Wired adjacent({twoPorts("one")}, {looped("Tessera S8")});
    EXPECT_THAT(adjacent.ports(0), ElementsAre("A1", "A3", "A5"));
    EXPECT_EQ(adjacent.wiring.ports[2].backup, (PortName{"A", 6}));
    const Wired tooMany({twoPorts("one")}, {looped("VX400")});
    EXPECT_THAT(tooMany.ports(0), ElementsAre("A1", "A2", "?"));
    EXPECT_EQ(tooMany.wiring.shortages[0].processors, 1);
    const Wired none({twoPorts("one")}, {looped("Tessera T1")});
    EXPECT_EQ(none.wiring.shortages[0].processors, 0); // no number of them has a second port
}

TEST(PortAllocator, ALoopPassesPortsWhoseOtherEndIsTaken)
{
    const Wired wired({twoPorts("one"), byHand({{{"A", 6}, 1, {{0, 0}}}})}, {looped("VX1000")});
    EXPECT_THAT(wired.ports(0), ElementsAre("A2", "A3", "A4"));
}

TEST(PortAllocator, ASecondProcessorTakesTheSameNumber)
{
    ProcessorSettings settings = processor("HELIOS 8K", 12, 50);
    settings.backup = ProcessorSettings::Backup::SecondProcessor;
    settings.backupProcessor = "Z";
    const Wired wired({twoPorts("one")}, {settings});
    EXPECT_EQ(wired.wiring.ports.back().backup, (PortName{"Z", wired.wiring.ports.back().number}));
}

TEST(PortAllocator, WallsThatCannotBeWiredSayWhy)
{
    WallToWire leftOut = twoPorts("one");
    leftOut.processor.clear();
    WallToWire waits = twoPorts("two");
    waits.processor = "gone";
    WallToWire noPath = twoPorts("three");
    noPath.pattern = 8;
    WallToWire noFigure = twoPorts("four");
    noFigure.processor = "P";
    WallToWire huge = wall(1001, 1000, 1, 1);
    WallToWire inverted = wall(2, 2, -5, -5);
    WallToWire empty = wall(0, 2, 5, 5);
    const Wired wired({leftOut, waits, noPath, noFigure, huge, inverted, empty},
                      {processor("VX1000"), processor("P10 / P20 / Q8", 8, 60, "P")});
    using enum ShowWiring::State;
    std::vector<ShowWiring::State> states;
    for (const ShowWiring::Wall &wall : wired.wiring.walls)
        states.push_back(wall.state);
    EXPECT_THAT(states, ElementsAre(LeftOut, NoProcessor, NoPath, NoFigure, TooLarge, NoPanels, NoPanels));
    EXPECT_TRUE(wired.wiring.ports.empty());
}

TEST(PortAllocator, AFirstPortThatNoProcessorHasIsPassedOn)
{
    const Wired wired({kept(twoPorts("one"), std::numeric_limits<qint64>::max())},
                      {processor("VX400"), processor("VX400", 8, 60, "B")});
    EXPECT_THAT(wired.ports(0), ElementsAre("B1", "B2", "B3"));
    WallToWire lines = kept(twoPorts("one"), std::numeric_limits<qint64>::max());
    lines.split = WallToWire::Split::Lines;
    EXPECT_THAT(Wired({lines}, {processor("P10 / P20 / Q8")}).ports(0), ElementsAre("?"));
}

TEST(PortAllocator, WithoutAFigureWholeLinesHaveTheirPortsAndNoLimit)
{
    WallToWire lines = twoPorts("one");
    lines.split = WallToWire::Split::Lines;
    lines.pixelLimit = 600'000;
    const Wired wired({lines}, {processor("P10 / P20 / Q8")});
    EXPECT_THAT(wired.ports(0), ElementsAre("A1", "A2", "A3"));
    EXPECT_EQ(wired.wiring.ports[0].loaded, 2 * 8 * 128 * 256);
    EXPECT_FALSE(wired.wiring.ports[0].limit);
    EXPECT_FALSE(wired.wiring.ports[0].excess);
}

TEST(PortAllocator, PiecesOfAPortStandInTheirOrderAcrossWalls)
{
    WallToWire later = byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}}}});
    WallToWire first = byHand({{{"A", 1}, 2, {{4, 7}}}, {{"gone", 1}, 1, {{2, 2}}}});
    const Wired wired({first, later});
    ASSERT_EQ(wired.wiring.ports.size(), 1u);
    EXPECT_EQ(wired.wiring.ports[0].pieces[0].wall, 1u);
    EXPECT_EQ(wired.wiring.ports[0].pieces[1].wall, 0u);
    EXPECT_EQ(wired.wiring.ports[0].load.panels, 3);
    EXPECT_EQ(wired.wiring.walls[0].ports[1], ShowWiring::noPort);
}

TEST(PortAllocator, APanelThatIsOffKeepsItsPlaceByHandAndIsNotCounted)
{
    WallToWire hand = byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {9, 9}}}});
    hand.shape.off = block(1, 0, 1, 1);
    const Wired wired({hand});
    EXPECT_EQ(wired.wiring.walls[0].split.panels.size(), 3u);
    EXPECT_FALSE(wired.wiring.walls[0].split.panels[1].isOn);
    EXPECT_EQ(wired.wiring.ports[0].load.panels, 2);
}
