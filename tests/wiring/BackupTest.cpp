#include "ShowFixture.h"

#include <gmock/gmock.h>

using namespace ShowFixture;
using Check = WiringFinding::Check;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
/// 2 x 1 panels on processor A.
WallToWire pairByHand(const WallRuns &runs)
{
    return byHand(wall(2, 1, 100, 100), runs);
}

const WallRuns twoCables{{{"A", 1}, 1, {{0, 0}}}, {{"A", 2}, 1, {{1, 0}}}};
} // namespace

TEST(Backup, WhereNothingIsPublishedTheOtherEndIsHalfOfThePortsFurther)
{
    const ShowWiring wiring = wire({looped("X8216")}, {pairByHand(twoCables)}); // 16 ports, by no data
    EXPECT_EQ(wiring.ports[0].backup, (PortName{"A", 9}));
    EXPECT_EQ(wiring.ports[1].backup, (PortName{"A", 10}));
}

TEST(Backup, WhatClosesNoLoopsByTheDataSaysSo)
{
    const std::vector<ProcessorSettings> helios{looped("HELIOS 8K")};
    EXPECT_EQ(wire(helios, {pairByHand(twoCables)}).ports[0].backup, std::nullopt);
    const auto found = findings(helios, {pairByHand(twoCables)});
    ASSERT_EQ(found.back().check, Check::NoLoops);
    EXPECT_EQ(found.back().processor, 0u);
    EXPECT_EQ(found.back().limit, 96);
    EXPECT_THAT(checks(findings({looped("P10 / P20 / Q8")}, {})), ElementsAre(Check::NoLoops));
    EXPECT_THAT(checks(findings({looped("VX1000")}, {pairByHand(twoCables)})), IsEmpty());
}

TEST(Backup, TheSecondProcessorMustBeThereAndAlike)
{
    const auto found = [](const QString &second) {
        return checks(
            findings({backedUp("VX1000", "A", second), processor("VX1000", 8, 60, "B"), processor("VX400", 8, 60, "C")},
                     {pairByHand(twoCables)}));
    };
    EXPECT_THAT(found("B"), IsEmpty());
    EXPECT_THAT(found(""), ElementsAre(Check::BackupWrong));
    EXPECT_THAT(found("A"), ElementsAre(Check::BackupWrong));
    EXPECT_THAT(found("C"), ElementsAre(Check::BackupWrong));
    EXPECT_THAT(found("Z"), ElementsAre(Check::BackupWrong));
}

TEST(Backup, NoPortEndsAtTheProcessorThatItBegins)
{
    EXPECT_EQ(wire({backedUp("VX1000", "A", "A")}, {pairByHand(twoCables)}).ports[0].backup, std::nullopt);
    EXPECT_EQ(wire({backedUp("VX1000", "A", "")}, {pairByHand(twoCables)}).ports[0].backup, std::nullopt);
}

TEST(Backup, AnEndThatFeedsOrEndsSomethingElseIsTaken)
{
    const std::vector<ProcessorSettings> pair{backedUp("VX1000", "A", "B"), processor("VX1000", 8, 60, "B")};
    const auto feeds = findings(pair, {pairByHand(twoCables), pairByHand({{{"B", 2}, 1, {{0, 0}, {1, 0}}}})});
    ASSERT_THAT(checks(feeds), ElementsAre(Check::PartnerTaken));
    EXPECT_EQ(feeds[0].port, (PortName{"A", 2}));
    EXPECT_EQ(feeds[0].otherPort, (PortName{"B", 2}));
    const auto ends = findings({pair[0], pair[1], backedUp("VX1000", "C", "B")},
                               {pairByHand(twoCables), pairByHand({{{"C", 1}, 1, {{0, 0}, {1, 0}}}})});
    ASSERT_THAT(checks(ends), ElementsAre(Check::PartnerTaken, Check::PartnerTaken));
    EXPECT_EQ(ends[0].port, (PortName{"A", 1}));
    EXPECT_EQ(ends[1].port, (PortName{"C", 1}));
}

TEST(Backup, ABackupTakesNothingThatAnotherLacks)
{
    // A lacks a port, and B, its like, is the backup of C.
    const ShowWiring wiring = wire({processor("VX400"), processor("VX400", 8, 60, "B"), backedUp("VX400", "C", "B")},
                                   {wall(4, 5, 255, 255), wall(4, 5, 255, 255), wall(4, 5, 255, 255)});
    EXPECT_EQ(wiring.shortages.size(), 1u);
    for (const ShowWiring::Port &port : wiring.ports)
        EXPECT_EQ(port.processor, 0u);
}

TEST(Backup, LowLatencyBoundsTheHeightWhereNoneIsPublished)
{
    ProcessorModel model;
    model.model = "M";
    PortRules rules;
    rules.lowLatencyModels = {"M"};
    rules.lowLatencyHeight = 2047;
    ProcessorSettings low;
    low.lowLatency = true;
    EXPECT_EQ(DeviceBounds::of(model, rules, low).maxHeight, 2047);
    model.maxHeight = 1080;
    EXPECT_EQ(DeviceBounds::of(model, rules, low).maxHeight, 1080);
    low.lowLatency = false;
    EXPECT_EQ(DeviceBounds::of(model, rules, low).maxHeight, 1080);
}
