#include "ShowFixture.h"
#include "wiring/PortEdits.h"

#include <gmock/gmock.h>
#include <limits>

using namespace ShowFixture;
using Check = WiringFinding::Check;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
/// Two ports of an MX40 Pro or a VX1000.
WallToWire keptFrom(qint64 firstPort)
{
    WallToWire kept = wall(8, 9, 128, 128);
    kept.pattern = 4;
    kept.firstPort = firstPort;
    return kept;
}

/// One panel that goes on at the port before.
WallToWire goesOn(int top)
{
    WallToWire one = wall(1, 1, 128, 128);
    one.goesOn = true;
    one.shape.top = top;
    return one;
}

WallToWire squareByHand(const WallRuns &runs)
{
    return byHand(wall(8, 8, 128, 128), runs);
}

struct WiredShow
{
    ShowToWire show;
    ShowWiring wiring;
    std::vector<WiringFinding> found;

    WiredShow(std::vector<ProcessorSettings> processors, std::vector<WallToWire> walls)
        : show{std::move(processors), std::move(walls), {4096, 4096}}, wiring(ShowWiring::of(show)),
          found(findInWiring(show, wiring))
    {}
    std::vector<std::string> ports(std::size_t wall) const { return names(show, wiring, wall); }
};
} // namespace

TEST(FirstPorts, OneThatEndsALoopIsPassedAndTold)
{
    const WiredShow wired({looped("Tessera S8")}, {wall(1, 1, 128, 128), keptFrom(4)});
    EXPECT_THAT(wired.ports(1), ElementsAre("A5", "A7", "?"));
    ASSERT_THAT(checks(wired.found), ElementsAre(Check::ProcessorsMissing, Check::FirstPortEndsLoop));
    EXPECT_EQ(wired.found[1].wall, 1u);
    EXPECT_EQ(wired.found[1].port, (PortName{"A", 4}));
}

TEST(FirstPorts, OneThatTheProcessorLacksIsToldAndAsksForNoOther)
{
    const WiredShow wired({processor("VX1000")}, {keptFrom(25)});
    EXPECT_THAT(wired.ports(0), ElementsAre("?", "?"));
    EXPECT_THAT(wired.wiring.shortages, IsEmpty());
    ASSERT_THAT(checks(wired.found), ElementsAre(Check::FirstPortMissing));
    EXPECT_EQ(wired.found[0].port, (PortName{"A", 25}));
    EXPECT_EQ(wired.found[0].limit, 10);
    const WiredShow atEnd({looped("VX1000")}, {keptFrom(6)});
    EXPECT_THAT(atEnd.wiring.shortages, IsEmpty());
    EXPECT_THAT(checks(atEnd.found), ElementsAre(Check::FirstPortMissing));
}

TEST(FirstPorts, WhatIsLeftBehindTheLastOneIsMissing)
{
    const WiredShow wired({processor("VX1000")}, {keptFrom(10)});
    EXPECT_THAT(wired.ports(0), ElementsAre("A10", "?"));
    ASSERT_EQ(wired.wiring.shortages.size(), 1u);
    EXPECT_EQ(wired.wiring.shortages[0].ports, 1);
    EXPECT_THAT(wired.wiring.shortages[0].walls, ElementsAre(0));
    EXPECT_THAT(checks(wired.found), ElementsAre(Check::ProcessorsMissing));
}

TEST(FirstPorts, EachWallThatLacksPortsIsNamed)
{
    const WiredShow wired({processor("VX400")}, {keptFrom(0), keptFrom(0), keptFrom(0), keptFrom(0)});
    ASSERT_THAT(checks(wired.found), ElementsAre(Check::ProcessorsMissing, Check::ProcessorsMissing));
    EXPECT_EQ(wired.found[0].wall, 2u);
    EXPECT_EQ(wired.found[1].wall, 3u);
    EXPECT_EQ(wired.found[1].found, 4);
}

TEST(FirstPorts, AWallGoesOnAtTheLastPortOfOneByHand)
{
    const WallToWire hand =
        squareByHand({{{"A", 3}, 5, {{0, 0}, {1, 0}}}, {{"A", 1}, 1, {{0, 1}}}, {{"B", 9}, 1, {{0, 2}}}});
    const WiredShow wired({processor("MX40 Pro"), processor("VX1000", 8, 60, "B")}, {hand, goesOn(1024), goesOn(1152)});
    EXPECT_THAT(wired.ports(1), ElementsAre("A3"));
    EXPECT_THAT(wired.ports(2), ElementsAre("A3"));
    const std::vector<ShowWiring::Piece> &pieces = wired.wiring.ports[1].pieces;
    ASSERT_EQ(pieces.size(), 3u);
    EXPECT_EQ(pieces[0].wall, 0u);
    EXPECT_EQ(pieces[1].number, 6);
    EXPECT_EQ(pieces[2].wall, 2u);
}

/// A file may name the last number that there is.
TEST(FirstPorts, AWallGoesOnBehindTheLastPieceThatHasANumber)
{
    constexpr int last = std::numeric_limits<int>::max();
    const WiredShow wired({processor("MX40 Pro")}, {squareByHand({{{"A", 1}, last, {{0, 0}}}}), goesOn(1024)});
    ASSERT_EQ(wired.wiring.ports[0].pieces.size(), 2u);
    EXPECT_EQ(wired.wiring.ports[0].pieces[1].wall, 1u);
    EXPECT_EQ(wired.wiring.ports[0].pieces[1].number, last);
    EXPECT_EQ(PortEdits::asLaidByHand(wired.show, wired.wiring, 1)[0].piece, last);
}

TEST(FirstPorts, AWallGoesOnAtNoPortThatThereIsNot)
{
    const WiredShow wired({processor("VX400")}, {squareByHand({{{"A", 9}, 1, {{0, 0}}}}), goesOn(1024)});
    EXPECT_THAT(wired.ports(1), ElementsAre("A1"));
}

TEST(FirstPorts, AWallThatIsKeptBehindOneThatGrowsIsTold)
{
    const auto grown = [](int columns, bool isKept = true) {
        WallToWire first = wall(columns, 1, 128, 128);
        first.firstPort = isKept ? 1 : 0;
        WallToWire second = wall(30, 1, 128, 128);
        second.goesOn = true;
        second.firstPort = 2;
        second.shape.left = columns * 128;
        return WiredShow({processor("MX40 Pro")}, {first, second});
    };
    EXPECT_THAT(grown(50).ports(1), ElementsAre("A2"));
    EXPECT_THAT(checks(grown(50).found), IsEmpty());
    EXPECT_THAT(grown(80).ports(1), ElementsAre("A2", "A3")); // nothing of it is on the first one
    const WiredShow filled = grown(80);
    ASSERT_THAT(checks(filled.found), ElementsAre(Check::FirstPortFilled));
    EXPECT_EQ(filled.found[0].wall, 1u);
    EXPECT_EQ(filled.found[0].otherWall, 0u);
    EXPECT_EQ(filled.found[0].port, (PortName{"A", 2}));
    EXPECT_THAT(checks(grown(90).found), ElementsAre(Check::PortKeptTwice, Check::FirstPortFilled));
    EXPECT_THAT(checks(grown(50, false).found), IsEmpty()); // it has the port for itself
}

TEST(FirstPorts, AWallThatIsNotWiredSaysWhy)
{
    WallToWire noPath = keptFrom(0);
    noPath.pattern = 8;
    const WiredShow wired({processor("MX40 Pro")}, {noPath, wall(1001, 1000, 1, 1), goesOn(0)});
    ASSERT_THAT(checks(wired.found), ElementsAre(Check::NoPath, Check::TooManyPanels));
    EXPECT_EQ(wired.found[0].wall, 0u);
    EXPECT_EQ(wired.found[0].found, 8);
    EXPECT_EQ(wired.found[1].wall, 1u);
    EXPECT_EQ(wired.found[1].limit, 1'000'000);
}

TEST(FirstPorts, APortThatIsOverIsToldOfEachOfItsWalls)
{
    ProcessorSettings small = processor("MX40 Pro");
    small.capacity = 40'000;
    const auto found = findings({small}, {squareByHand({{{"A", 1}, 1, {{0, 0}, {1, 0}}}, {{"A", 1}, 3, {{2, 0}}}}),
                                          squareByHand({{{"A", 1}, 2, {{0, 0}}}})});
    std::vector<std::size_t> walls;
    for (const WiringFinding &finding : found) {
        if (finding.check == Check::PortOver)
            walls.push_back(*finding.wall);
    }
    EXPECT_THAT(walls, ElementsAre(0, 1));
    EXPECT_EQ(found[0].portPlace, 0u);
}

TEST(FirstPorts, CablesOfAProcessorThatIsMissingAreToldOnceAWall)
{
    const auto found =
        findings({processor("MX40 Pro")},
                 {squareByHand({{{"gone", 1}, 1, {{0, 0}}}, {{"gone", 2}, 1, {{1, 0}}}, {{"lost", 4}, 1, {{2, 0}}}})});
    ASSERT_THAT(checks(found), ElementsAre(Check::RunOfMissing, Check::RunOfMissing, Check::PanelNotFed));
    EXPECT_EQ(found[0].found, 2);
    EXPECT_EQ(found[0].port, (PortName{"gone", 1}));
    EXPECT_EQ(found[1].name, "lost");
}
