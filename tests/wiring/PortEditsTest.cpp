#include "wiring/PortEdits.h"

#include "ShowFixture.h"

#include <gmock/gmock.h>
#include <limits>

using namespace PortEdits;
using testing::ElementsAre;

namespace {
using NoPorts = std::map<std::size_t, qint64>;
const PortName a1{"A", 1};
const PortName a2{"A", 2};
const PortName a5{"A", 5};
const PortName b1{"B", 1};

/// A1 runs through both walls, A2 in the second one, B1 in the first.
const ShowRuns show{{{a1, 1, {{0, 0}, {1, 0}, {2, 0}}}, {b1, 1, {{0, 1}}}},
                    {{a2, 1, {{4, 4}, {5, 4}}}, {a1, 2, {{0, 0}, {0, 1}}}}};

QString errorOf(const Result<ShowRuns> &result)
{
    return result ? QString("none") : result.error().text;
}
} // namespace

TEST(PortEdits, KnowThePortsAndTheirNextPiece)
{
    EXPECT_THAT(portsOf(show), ElementsAre(a1, a2, b1));
    EXPECT_EQ(nextPiece(show, a1), 3);
    EXPECT_EQ(nextPiece(show, a5), 1);
}

/// A file may name the last number that there is.
TEST(PortEdits, NoPieceIsBeyondTheLastNumber)
{
    constexpr int last = std::numeric_limits<int>::max();
    EXPECT_EQ(nextPiece({{{a1, last - 1, {{0, 0}}}}}, a1), last);
    EXPECT_EQ(nextPiece({{{a1, last, {{0, 0}}}}}, a1), last);
}

TEST(PortEdits, ReverseACableAcrossItsWalls)
{
    const ShowRuns reversed = reverse(show, a1);
    EXPECT_EQ(reversed[0][0], (CableRun{a1, 2, {{2, 0}, {1, 0}, {0, 0}}}));
    EXPECT_EQ(reversed[1][1], (CableRun{a1, 1, {{0, 1}, {0, 0}}}));
    EXPECT_EQ(reversed[1][0], show[1][0]);
    EXPECT_EQ(reverse(reversed, a1), show);
}

TEST(PortEdits, SplitTakesThePanelAndAllBehindItAlong)
{
    const auto split = splitHere(show, {0, {1, 0}}, a5);
    ASSERT_TRUE(split);
    EXPECT_EQ((*split)[0], (WallRuns{{a1, 1, {{0, 0}}}, {b1, 1, {{0, 1}}}, {a5, 1, {{1, 0}, {2, 0}}}}));
    EXPECT_EQ((*split)[1][1], (CableRun{a5, 2, {{0, 0}, {0, 1}}}));
    const auto atPiece = splitHere(show, {1, {0, 0}}, a5);
    ASSERT_TRUE(atPiece);
    EXPECT_EQ((*atPiece)[0], show[0]);
    EXPECT_EQ((*atPiece)[1], (WallRuns{show[1][0], {a5, 1, {{0, 0}, {0, 1}}}}));
}

TEST(PortEdits, SplitSaysWhyItCannot)
{
    EXPECT_EQ(errorOf(splitHere(show, {0, {0, 0}}, a5)), "This panel is the first one on A1; split at one behind it.");
    EXPECT_EQ(errorOf(splitHere(show, {0, {1, 0}}, b1)), "Port B1 is taken; choose a free one, or exchange the two.");
    EXPECT_EQ(errorOf(splitHere(show, {0, {9, 9}}, a5)), "No cable feeds this panel; lay one first.");
    EXPECT_EQ(errorOf(splitHere(show, {7, {0, 0}}, a5)), "No cable feeds this panel; lay one first.");
}

TEST(PortEdits, SplitTakesPiecesOfOneNumberInTheirOrder)
{
    const ShowRuns same{{{a1, 1, {{0, 0}, {1, 0}}}, {a1, 1, {{2, 0}}}, {a1, 1, {{3, 0}}}}};
    const auto split = splitHere(same, {0, {2, 0}}, a5);
    ASSERT_TRUE(split);
    EXPECT_EQ((*split)[0], (WallRuns{{a1, 1, {{0, 0}, {1, 0}}}, {a5, 2, {{3, 0}}}, {a5, 1, {{2, 0}}}}));
}

TEST(PortEdits, NumbersThatNoFileHoldsAreRefused)
{
    const QString beyond = "There is no port 2147483648; the numbers are 1 to 2147483647.";
    EXPECT_EQ(errorOf(takePort(show, a1, {"A", 0})), "There is no port 0; the numbers are 1 to 2147483647.");
    EXPECT_EQ(errorOf(takePort(show, a1, {"A", 2'147'483'648})), beyond);
    EXPECT_EQ(errorOf(renumberFrom(show, a1, 2'147'483'647)), beyond); // the second one's
    EXPECT_EQ(errorOf(renumberFrom(show, a1, -4)), "There is no port -4; the numbers are 1 to 2147483647.");
    EXPECT_EQ(errorOf(renumberFrom(show, a1, std::numeric_limits<qint64>::max())),
              "There is no port 9223372036854775807; the numbers are 1 to 2147483647.");
    EXPECT_EQ(errorOf(splitHere(show, {0, {1, 0}}, {"A", 0})), "There is no port 0; the numbers are 1 to 2147483647.");
}

TEST(PortEdits, JoinHangsTheNextPortBehind)
{
    const auto joined = joinWithNext(show, a1);
    ASSERT_TRUE(joined);
    EXPECT_EQ((*joined)[0], show[0]);
    // Both ends lie in the second wall and are one piece there.
    EXPECT_EQ((*joined)[1], (WallRuns{{a1, 2, {{0, 0}, {0, 1}, {4, 4}, {5, 4}}}}));
    EXPECT_EQ(errorOf(joinWithNext(*joined, a1)), "No port behind A1 is wired by hand; there is nothing to join.");
    EXPECT_EQ(errorOf(joinWithNext(show, {"A", 0})), "No port behind A? is wired by hand; there is nothing to join.");
}

TEST(PortEdits, JoinKeepsPiecesOfDifferentWallsApart)
{
    const ShowRuns apart{{{a1, 1, {{0, 0}}}}, {{a2, 4, {{1, 1}}}}};
    EXPECT_EQ(joinWithNext(apart, a1), (ShowRuns{{{a1, 1, {{0, 0}}}}, {{a1, 2, {{1, 1}}}}}));
}

TEST(PortEdits, JoinUndoesASplit)
{
    const ShowRuns one{{{a1, 1, {{0, 0}, {1, 0}, {2, 0}}}}, {{a1, 2, {{0, 0}, {0, 1}}}}};
    EXPECT_EQ(joinWithNext(*splitHere(one, {0, {1, 0}}, a5), a1), one);
    EXPECT_EQ(joinWithNext(*splitHere(one, {1, {0, 1}}, a5), a1), one);
}

TEST(PortEdits, PortsTakeFreeNumbersAndChangePlaces)
{
    EXPECT_EQ((*takePort(show, a1, a5))[1][1].port, a5);
    EXPECT_EQ(errorOf(takePort(show, a1, a2)), "Port A2 is taken; choose a free one, or exchange the two.");
    EXPECT_EQ(takePort(show, a1, a1), show);
    const ShowRuns exchanged = exchange(show, a1, a2).value();
    EXPECT_EQ(exchanged[0][0].port, a2);
    EXPECT_EQ(exchanged[1][0].port, a1);
    EXPECT_EQ(exchanged[1][1].port, a2);
    EXPECT_EQ(exchange(exchanged, a2, a1), show);
    EXPECT_EQ(errorOf(exchange(show, a1, {"A", 0})), "There is no port 0; the numbers are 1 to 2147483647.");
}

TEST(PortEdits, RenumberFromHereClosesTheGaps)
{
    const ShowRuns gaps{{{a1, 1, {{0, 0}}}, {a5, 1, {{1, 0}}}, {{"A", 9}, 1, {{2, 0}}}, {b1, 1, {{3, 0}}}}};
    const auto closed = renumberFrom(gaps, a5, 2);
    ASSERT_TRUE(closed);
    EXPECT_THAT(portsOf(*closed), ElementsAre(a1, a2, PortName{"A", 3}, b1));
    EXPECT_EQ((*closed)[0][1].port, a2);
    EXPECT_EQ(renumberFrom(gaps, a5, 8)->at(0)[2].port, (PortName{"A", 9})); // over themselves
    EXPECT_EQ(errorOf(renumberFrom(gaps, a5, 1)), "Port A1 is taken; choose a free one, or exchange the two.");
}

TEST(PortEdits, PortsMoveToAnotherProcessor)
{
    EXPECT_THAT(portsOf(*moveToProcessor(show, {a1, a2}, "C")), ElementsAre(b1, PortName{"C", 1}, PortName{"C", 2}));
    EXPECT_EQ(errorOf(moveToProcessor(show, {a1}, "B")), "Port B1 is taken; choose a free one, or exchange the two.");
    EXPECT_EQ(errorOf(moveToProcessor(show, {a1, b1}, "C")),
              "Port C1 is taken; choose a free one, or exchange the two.");
    EXPECT_THAT(portsOf(clear(show, a1)), ElementsAre(a2, b1));
    EXPECT_THAT(portsOf(rename(show, "A", "Z")), ElementsAre(b1, PortName{"Z", 1}, PortName{"Z", 2}));
}

TEST(PortEdits, AutomaticCablesBecomeOnesOwn)
{
    WallToWire first = ShowFixture::wall(30, 1, 128, 128);
    WallToWire second = ShowFixture::wall(30, 1, 128, 128);
    second.goesOn = true;
    second.shape.top = 128;
    ShowToWire automatic{{ShowFixture::processor("MX40 Pro")}, {first, second}, {4096, 4096}};
    const ShowWiring before = ShowWiring::of(automatic);
    const WallRuns runs = asLaidByHand(automatic, before, 1);
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].port, a1);
    EXPECT_EQ(runs[0].piece, 2);
    EXPECT_EQ(runs[0].cells.size(), 10u);
    EXPECT_EQ(runs[1].port, a2);

    for (std::size_t wall : {0u, 1u})
        automatic.walls[wall].runs = asLaidByHand(automatic, before, wall);
    for (WallToWire &wall : automatic.walls)
        wall.split = WallToWire::Split::Hand;
    const ShowWiring after = ShowWiring::of(automatic);
    ASSERT_EQ(after.ports.size(), 2u);
    EXPECT_EQ(after.ports[0].load.pixels, before.ports[0].load.pixels);
    EXPECT_EQ(after.ports[1].load.box, before.ports[1].load.box);
}

TEST(PortEdits, AWallKeepsItsPortsWithThoseThatShareThem)
{
    const WallToWire before = ShowFixture::wall(50, 1, 128, 128);
    WallToWire shares = ShowFixture::wall(40, 1, 128, 128);
    shares.goesOn = true;
    shares.shape.top = 128;
    ShowToWire three{{ShowFixture::processor("MX40 Pro")}, {before, before, shares}, {8192, 4096}};
    const auto wired = [&] { return ShowWiring::of(three); };
    const auto kept = firstPortsToKeep(three, wired(), {2});
    EXPECT_EQ(kept, (std::map<std::size_t, qint64>{{1, 3}, {2, 4}}));
    EXPECT_EQ(firstPortsToKeep(three, wired(), {0}), (std::map<std::size_t, qint64>{{0, 1}}));

    three.walls[1].firstPort = 2; // the first wall has A1 and A4 then
    EXPECT_EQ(firstPortsToKeep(three, wired(), {0}), NoPorts());
    three.walls[0].processor.clear();
    EXPECT_EQ(firstPortsToKeep(three, wired(), {0}), NoPorts());
    three.walls[1].split = WallToWire::Split::Hand;
    EXPECT_EQ(firstPortsToKeep(three, wired(), {1}), NoPorts());
}

TEST(PortEdits, AWallOverTwoProcessorsKeepsItsFirstPort)
{
    const auto second = ShowFixture::processor("MX40 Pro", 8, 60, "B");
    ShowToWire acrossBoth{
        {ShowFixture::processor("MX40 Pro"), second}, {ShowFixture::wall(36, 18, 128, 128)}, {8192, 4096}};
    const ShowWiring before = ShowWiring::of(acrossBoth);
    const auto ports = ShowFixture::names(acrossBoth, before, 0);
    ASSERT_EQ(ports.size(), 17u);
    EXPECT_EQ(ports[12], "A13"); // what a processor bears together
    EXPECT_EQ(ports[13], "B1");
    const auto kept = firstPortsToKeep(acrossBoth, before, {0});
    ASSERT_EQ(kept, (std::map<std::size_t, qint64>{{0, 1}}));
    acrossBoth.walls[0].firstPort = 1;
    EXPECT_EQ(ShowFixture::names(acrossBoth, ShowWiring::of(acrossBoth), 0), ports);

    // Behind another wall it has fewer ports on A than it would take from there on by itself.
    acrossBoth.walls[0].firstPort = 0;
    acrossBoth.walls.insert(acrossBoth.walls.begin(), ShowFixture::wall(20, 10, 128, 128));
    acrossBoth.walls[1].name = "WIDE";
    EXPECT_EQ(firstPortsToKeep(acrossBoth, ShowWiring::of(acrossBoth), {0, 1}),
              (std::map<std::size_t, qint64>{{0, 1}}));
}

TEST(PortEdits, OneOfThoseThatShareAPortMayNotBeKept)
{
    WallToWire first = ShowFixture::wall(30, 1, 128, 128);
    WallToWire shares = ShowFixture::wall(40, 1, 128, 128);
    shares.goesOn = true;
    WallToWire pinned = first;
    pinned.firstPort = 2;
    const ShowToWire shared{{ShowFixture::processor("MX40 Pro")}, {first, shares, pinned}, {8192, 4096}};
    const ShowWiring wiring = ShowWiring::of(shared);
    ASSERT_THAT(ShowFixture::names(shared, wiring, 1), ElementsAre("A1", "A3"));
    EXPECT_EQ(firstPortsToKeep(shared, wiring, {1}), (std::map<std::size_t, qint64>{{0, 1}}));
}

TEST(PortEdits, WallsThatShareAPortAreTakenByHandTogether)
{
    WallToWire before = ShowFixture::wall(30, 1, 128, 128);
    WallToWire shares = before;
    shares.goesOn = true;
    shares.shape.top = 128;
    WallToWire alone = before;
    alone.shape.top = 512;
    ShowToWire three{{ShowFixture::processor("MX40 Pro")}, {before, shares, alone}, {4096, 4096}};
    const ShowWiring automatic = ShowWiring::of(three);
    EXPECT_THAT(sharing(three, automatic, 1), ElementsAre(0, 1));
    EXPECT_THAT(sharing(three, automatic, 2), ElementsAre(2));
    for (const std::size_t wall : sharing(three, automatic, 1))
        three.walls[wall].runs = asLaidByHand(three, automatic, wall);
    three.walls[0].split = three.walls[1].split = WallToWire::Split::Hand;
    const ShowWiring byHand = ShowWiring::of(three);
    for (std::size_t wall = 0; wall < 3; ++wall)
        EXPECT_EQ(ShowFixture::names(three, byHand, wall), ShowFixture::names(three, automatic, wall));
    EXPECT_THAT(sharing(three, byHand, 1), testing::IsEmpty());
}

TEST(PortEdits, RunsWithoutAPortAreNotTaken)
{
    const ShowToWire large{{ShowFixture::processor("MX40 Pro")}, {ShowFixture::wall(36, 18, 128, 128)}, {8192, 4096}};
    const WallRuns runs = asLaidByHand(large, ShowWiring::of(large), 0);
    EXPECT_EQ(runs.size(), 13u);
    EXPECT_EQ(runs.back().port.number, 13);
}

TEST(PortEdits, CopiesTakeTheNextFreePortsAndKeepWhatHungOnOne)
{
    const PortEdits::ShowRuns copied =
        PortEdits::onFreePorts({{{{"A", 4}, 2, {{1, 1}}}, {{"A", 2}, 1, {{0, 0}}}}, {}, {{{"A", 4}, 1, {{1, 0}}}}},
                               FreePorts({{"A", 1}, {"A", 2}, {"A", 4}, {"B", 3}}));
    EXPECT_EQ(copied,
              (PortEdits::ShowRuns{{{{"A", 5}, 2, {{1, 1}}}, {{"A", 3}, 1, {{0, 0}}}}, {}, {{{"A", 5}, 1, {{1, 0}}}}}));
}
