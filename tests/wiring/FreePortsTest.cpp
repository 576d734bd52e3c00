#include "wiring/FreePorts.h"

#include "ShowFixture.h"
#include "wiring/PortEdits.h"
#include "wiring/Processors.h"

#include <gtest/gtest.h>

using namespace ShowFixture;

namespace {
WallToWire smallByHand(const WallRuns &runs)
{
    return byHand(wall(4, 4, 100, 100), runs);
}

/// Two ports of an MX40 Pro.
WallToWire twoPortsFrom(qint64 firstPort)
{
    WallToWire kept = wall(10, 8, 128, 128);
    kept.firstPort = firstPort;
    return kept;
}

FreePorts freeOf(const std::vector<ProcessorSettings> &processors, const std::vector<WallToWire> &walls)
{
    return FreePorts{{processors, walls, {4096, 4096}}};
}

std::string taken(FreePorts &free, int count, const QString &processor = "A")
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(free.take(processor).text());
    return names.join(' ').toStdString();
}
} // namespace

TEST(FreePorts, WhatIsWiredByHandOrKeptIsPassedAndTheRestIsNot)
{
    FreePorts free = freeOf({processor("MX40 Pro")},
                            {smallByHand({{{"A", 2}, 1, {{0, 0}}}}), twoPortsFrom(4), wall(10, 8, 128, 128)});
    EXPECT_EQ(taken(free, 4), "A1 A3 A6 A7");
}

/// Of a file.
TEST(FreePorts, ANegativeFirstPortIsNoneThatIsKept)
{
    FreePorts free = freeOf({processor("MX40 Pro")}, {twoPortsFrom(-3)});
    EXPECT_EQ(taken(free, 1), "A1");
}

TEST(FreePorts, CablesThatLieReadyKeepTheirPorts)
{
    WallToWire ready = smallByHand({{{"A", 1}, 1, {{0, 0}}}});
    ready.split = WallToWire::Split::Panels;
    FreePorts free = freeOf({processor("MX40 Pro")}, {ready});
    EXPECT_EQ(taken(free, 1), "A2");
}

TEST(FreePorts, NoPortEndsALoop)
{
    FreePorts adjacent = freeOf({looped("Tessera S8")}, {smallByHand({{{"A", 3}, 1, {{0, 0}}}})});
    EXPECT_EQ(taken(adjacent, 3), "A1 A5 A7");
    // 6 is the other end of 1, and somebody feeds panels from it.
    FreePorts half = freeOf({looped("VX1000")}, {smallByHand({{{"A", 6}, 1, {{0, 0}}}})});
    EXPECT_EQ(taken(half, 2), "A2 A3");
    WallToWire ready = smallByHand({{{"A", 7}, 1, {{0, 0}}}});
    ready.split = WallToWire::Split::Lines;
    FreePorts lieReady = freeOf({looped("VX1000")}, {ready});
    EXPECT_EQ(taken(lieReady, 2), "A1 A3");
}

TEST(FreePorts, APortThatBacksUpAnotherIsNoneOfItsOwn)
{
    FreePorts free = freeOf({backedUp("VX400", "A", "B"), processor("VX400", 8, 60, "B")},
                            {smallByHand({{{"A", 1}, 1, {{0, 0}}}, {{"A", 3}, 1, {{1, 0}}}})});
    EXPECT_EQ(taken(free, 2, "B"), "B2 B4");
}

TEST(FreePorts, WhatAProcessorLacksIsOnTheNextLikeIt)
{
    FreePorts free = freeOf({processor("VX400"), processor("VX400", 10, 60, "B"), processor("VX400", 8, 60, "C")},
                            {smallByHand({{{"A", 1}, 1, {{0, 0}}}, {{"A", 3}, 1, {{1, 0}}}, {{"C", 2}, 1, {{2, 0}}}})});
    EXPECT_EQ(taken(free, 6), "A2 A4 C1 C3 C4 A5");
}

TEST(FreePorts, AProcessorThatNobodyKnowsHasAny)
{
    FreePorts free = freeOf({processor("VX400")}, {smallByHand({{{"Z", 1}, 1, {{0, 0}}}})});
    EXPECT_EQ(taken(free, 3, "Z"), "Z2 Z3 Z4");
}

TEST(FreePorts, CopiesKeepTogetherWhatHungOnOnePort)
{
    const PortEdits::ShowRuns copies{{{{"A", 1}, 1, {{0, 0}}}, {{"A", 6}, 1, {{1, 0}}}}, {{{"A", 1}, 2, {{0, 0}}}}};
    const auto copied = PortEdits::onFreePorts(copies, freeOf({looped("VX1000")}, {smallByHand(copies[0])}));
    EXPECT_EQ(copied,
              (PortEdits::ShowRuns{{{{"A", 2}, 1, {{0, 0}}}, {{"A", 3}, 1, {{1, 0}}}}, {{{"A", 2}, 2, {{0, 0}}}}}));
}

TEST(Processors, ABackupOfAnotherTakesNothingElse)
{
    std::vector<ProcessorSettings> processors{processor("VX400"), processor("VX400", 8, 60, "B"),
                                              processor("VX400", 8, 60, "C")};
    EXPECT_EQ(Processors::nextLike(processors, 0), 1u);
    processors.push_back(backedUp("VX400", "M", "B"));
    EXPECT_EQ(Processors::nextLike(processors, 0), 2u);
    EXPECT_EQ(Processors::nextLike(processors, 2), std::nullopt);
}

TEST(Processors, BackupsFollowAnotherName)
{
    std::vector<ProcessorSettings> processors{backedUp("VX400", "A", "B"), processor("VX400", 8, 60, "B")};
    Processors::renameBackups(processors, "B", "SPARE");
    EXPECT_EQ(processors[0].backupProcessor, "SPARE");
    Processors::renameBackups(processors, "B", "C");
    EXPECT_EQ(processors[0].backupProcessor, "SPARE");
}
