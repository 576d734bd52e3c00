#include "wiring/WiringFinding.h"

#include "ShowFixture.h"

#include <gmock/gmock.h>

using namespace ShowFixture;
using Check = WiringFinding::Check;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {
/// 4 x 1 panels of 100 x 100, wired by hand.
WallToWire byHand(const WallRuns &runs)
{
    return ShowFixture::byHand(wall(4, 1, 100, 100), runs);
}

ProcessorSettings typed(qint64 capacity)
{
    ProcessorSettings settings = processor("MX40 Pro");
    settings.capacity = capacity;
    return settings;
}
} // namespace

TEST(WiringFinding, NothingIsFoundWhereAllIsWell)
{
    EXPECT_THAT(findings({processor("MX40 Pro")}, {wall(20, 10, 128, 128)}), IsEmpty());
    EXPECT_THAT(findings({processor("MX40 Pro")}, {byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}})}),
                IsEmpty());
    WallToWire leftOut = wall(20, 10, 128, 128);
    leftOut.processor.clear();
    EXPECT_THAT(findings({}, {leftOut}), IsEmpty());
}

TEST(WiringFinding, APortIsOverByItsPixels)
{
    const auto found = findings({typed(25'000)}, {byHand({{{"A", 3}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}})});
    ASSERT_THAT(checks(found), ElementsAre(Check::PortOver));
    EXPECT_EQ(found[0].port, (PortName{"A", 3}));
    EXPECT_EQ(found[0].found, 40'000);
    EXPECT_EQ(found[0].limit, 25'000);
    EXPECT_EQ(found[0].of, PortExcess::Of::Pixels);
    EXPECT_FALSE(found[0].isHeadroomOnly);
}

TEST(WiringFinding, APortThatOnlyTheHeadroomMakesOverSaysSo)
{
    ProcessorSettings settings = typed(42'000);
    settings.headroom = 10;
    const auto found = findings({settings}, {byHand({{{"A", 3}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}})});
    ASSERT_THAT(checks(found), ElementsAre(Check::PortOver));
    EXPECT_TRUE(found[0].isHeadroomOnly);
}

TEST(WiringFinding, APortIsNearlyFullAboveNinetyFivePerCentWhereSomebodyChose)
{
    const WallRuns all{{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}};
    EXPECT_THAT(checks(findings({typed(42'105)}, {byHand(all)})), ElementsAre(Check::PortNearlyFull)); // 95.0006 %
    EXPECT_THAT(checks(findings({typed(42'106)}, {byHand(all)})), IsEmpty());
    EXPECT_THAT(checks(findings({typed(41'000)}, {wall(4, 1, 100, 100)})), ElementsAre(Check::PortNearlyFull));
    EXPECT_THAT(checks(findings({processor("MX40 Pro")}, {wall(40, 1, 128, 128)})), IsEmpty()); // 99.3 %
}

TEST(WiringFinding, PanelsAreFedTwiceOrNotAtAll)
{
    const auto found =
        findings({processor("MX40 Pro")}, {byHand({{{"A", 1}, 1, {{1, 0}, {0, 0}}}, {{"A", 2}, 1, {{0, 0}, {8, 0}}}})});
    ASSERT_THAT(checks(found), ElementsAre(Check::PanelFedTwice, Check::CellMissing, Check::PanelNotFed));
    EXPECT_EQ(found[0].cell, (Cell{0, 0}));
    EXPECT_EQ(found[0].found, 1);
    EXPECT_EQ(found[1].cell, (Cell{8, 0}));
    EXPECT_EQ(found[2].cell, (Cell{2, 0}));
    EXPECT_EQ(found[2].found, 2);
    WallToWire off = byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}}}});
    off.shape.off = block(2, 0, 2, 1);
    EXPECT_THAT(checks(findings({processor("MX40 Pro")}, {off})), IsEmpty());
}

TEST(WiringFinding, ACableJumpsWhereItPassesMoreThanAPanel)
{
    EXPECT_THAT(checks(findings({processor("MX40 Pro")}, {byHand({{{"A", 1}, 1, {{0, 0}, {2, 0}, {1, 0}, {3, 0}}}})})),
                IsEmpty());
    const auto found = findings({processor("MX40 Pro")}, {byHand({{{"A", 1}, 1, {{1, 0}, {2, 0}, {3, 0}, {0, 0}}}})});
    ASSERT_THAT(checks(found), ElementsAre(Check::Jump));
    EXPECT_EQ(found[0].cell, (Cell{0, 0}));
    WallToWire below = byHand({{{"A", 1}, 2, {{3, 0}, {2, 0}, {1, 0}, {0, 0}}}});
    below.shape.top = 201; // one row of pixels more than a panel is passed
    const auto across =
        findings({processor("MX40 Pro")}, {byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}}), below});
    ASSERT_THAT(checks(across), ElementsAre(Check::Jump));
    EXPECT_EQ(across[0].wall, 1u);
}

TEST(WiringFinding, AProcessorIsOverItsCapOrItsCanvas)
{
    WallToWire wide = wall(2, 1, 9000, 10);
    const auto canvas = findings({typed(200'000)}, {wide});
    ASSERT_THAT(checks(canvas), ElementsAre(Check::CanvasExceeded));
    EXPECT_EQ(canvas[0].box, (PixelBox{{0, 18'000}, {0, 10}}));
    const auto cap = findings({typed(100'000'000)}, {wall(1, 1, 5000, 2000)});
    ASSERT_THAT(checks(cap), ElementsAre(Check::CapExceeded, Check::CanvasExceeded));
    EXPECT_EQ(cap[0].found, 10'000'000);
    EXPECT_EQ(cap[0].limit, 9'000'000);
}

TEST(WiringFinding, SaysHowManyProcessorsAreMissing)
{
    WallToWire main = wall(36, 18, 128, 128);
    const auto found = findings({processor("MX40 Pro")}, {main});
    ASSERT_THAT(checks(found), ElementsAre(Check::ProcessorsMissing));
    EXPECT_EQ(found[0].wall, 0u);
    EXPECT_EQ(found[0].found, 4);
    EXPECT_EQ(found[0].limit, 1);
}

TEST(WiringFinding, NamesWhatLeadsNowhere)
{
    WallToWire waits = wall(1, 1, 9, 9);
    waits.processor = "gone";
    WallToWire hand = byHand({{{"gone", 1}, 1, {{0, 0}, {1, 0}, {2, 0}}}, {{"A", 21}, 1, {{3, 0}}}});
    const auto found = findings({processor("MX40 Pro"), processor("MX30")}, {waits, hand});
    ASSERT_THAT(checks(found),
                ElementsAre(Check::NameUsedTwice, Check::PortMissing, Check::ProcessorUnknown, Check::RunOfMissing));
    EXPECT_EQ(found[0].processor, 1u);
    EXPECT_EQ(found[1].port, (PortName{"A", 21}));
    EXPECT_EQ(found[1].limit, 20);
    EXPECT_EQ(found[2].name, "gone");
    EXPECT_EQ(found[3].wall, 1u);
}

TEST(WiringFinding, AProcessorWithoutAFigureIsNamedOnce)
{
    WallToWire one = wall(2, 2, 50, 50);
    one.split = CableSplit::Lines;
    EXPECT_THAT(checks(findings({processor("P10 / P20 / Q8")}, {one, one})), ElementsAre(Check::NoFigure));
    one.processor.clear();
    EXPECT_THAT(checks(findings({processor("P10 / P20 / Q8")}, {one})), IsEmpty());
}

TEST(WiringFinding, EachWallThatWaitsForAFigureIsNamedAndNotItsProcessor)
{
    const WallToWire one = wall(2, 2, 50, 50);
    WallToWire lines = one;
    lines.split = CableSplit::Lines;
    const auto found = findings({processor("P10 / P20 / Q8")}, {one, lines, one});
    ASSERT_THAT(checks(found), ElementsAre(Check::WallWaits, Check::WallWaits));
    EXPECT_EQ(found[0].wall, 0u);
    EXPECT_EQ(found[1].wall, 2u);
    EXPECT_EQ(found[1].processor, 0u);
}

TEST(WiringFinding, WholeLinesThatFitNoPortAreAnError)
{
    WallToWire lines = wall(4, 3, 100, 100);
    lines.split = WallToWire::Split::Lines;
    lines.pixelLimit = 39'999;
    const auto found = findings({processor("MX40 Pro")}, {lines});
    ASSERT_THAT(checks(found), ElementsAre(Check::LinesOver));
    EXPECT_EQ(found[0].found, 40'000);
    EXPECT_EQ(found[0].limit, 39'999);
}

TEST(WiringFinding, TwoWallsThatKeepAPortAreBothNamed)
{
    WallToWire one = wall(2, 1, 50, 50);
    one.firstPort = 4;
    const auto found = findings({processor("MX40 Pro")}, {one, one});
    ASSERT_THAT(checks(found), ElementsAre(Check::PortKeptTwice));
    EXPECT_EQ(found[0].wall, 1u);
    EXPECT_EQ(found[0].otherWall, 0u);
    EXPECT_EQ(found[0].port, (PortName{"A", 4}));
}

TEST(WiringFinding, LoopsAreHeldAgainstTheirPartnersAndLengths)
{
    ProcessorSettings loop = processor("Tessera S8");
    loop.backup = ProcessorSettings::Backup::Loop;
    const auto taken = findings({loop}, {byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}}}, {{"A", 2}, 1, {{2, 0}, {3, 0}}}})});
    ASSERT_THAT(checks(taken), ElementsAre(Check::PartnerTaken));
    EXPECT_EQ(taken[0].port, (PortName{"A", 1}));

    const auto tooLong = findings({loop}, {wall(51, 1, 50, 50)});
    ASSERT_THAT(checks(tooLong), ElementsAre(Check::LoopTooLong));
    EXPECT_EQ(tooLong[0].found, 51);
    EXPECT_EQ(tooLong[0].limit, 50);
    EXPECT_THAT(checks(findings({processor("Tessera S8")}, {wall(51, 1, 50, 50)})), IsEmpty());

    loop.model = "Tessera T1";
    const auto alone = findings({loop}, {byHand({{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}})});
    ASSERT_THAT(checks(alone), ElementsAre(Check::PortLeftOver));
    EXPECT_EQ(alone[0].port, (PortName{"A", 1}));
}
