#include "ShowFixture.h"

#include <gtest/gtest.h>
#include <numeric>

using namespace ShowFixture;
using Counts = std::vector<qint64>;

namespace {
constexpr qint64 byColumns = 4;

/// `times` ports of `panels` each, then the rest.
Counts ports(std::size_t times, qint64 panels, const Counts &rest = {})
{
    Counts counts(times, panels);
    counts.insert(counts.end(), rest.begin(), rest.end());
    return counts;
}

qint64 limitOf(const ShowWiring &wiring, std::size_t port = 0)
{
    return wiring.ports.at(port).limit.value_or(-1);
}

const PortBounds &boundsOf(const ShowWiring &wiring, std::size_t port)
{
    return *wiring.processors.at(wiring.ports.at(port).processor).ports;
}

std::optional<RuleCost> costliest(const ShowWiring &wiring, std::size_t port)
{
    return boundsOf(wiring, port).costliest(wiring.ports[port].load);
}

/// All runs have a number on the one processor there is, and none is over.
void expectOneProcessor(const ShowWiring &wiring)
{
    EXPECT_TRUE(wiring.shortages.empty());
    for (const ShowWiring::Port &port : wiring.ports) {
        EXPECT_GT(port.number, 0);
        EXPECT_FALSE(port.excess);
    }
}

WallToWire twentyByTen()
{
    return wall(20, 10, 128, 128);
}

WallToWire twentyByEight()
{
    return wall(20, 8, 176, 176);
}

WallToWire holed(qint64 pattern)
{
    WallToWire holed = wall(12, 8, 128, 128);
    holed.shape.off = block(4, 2, 4, 4);
    holed.pattern = pattern;
    return holed;
}
} // namespace

TEST(WorkedExamples, E01_ALargeWallAlongRows)
{
    const ShowWiring wiring = wire({processor("MX40 Pro")}, {twentyByTen()});
    EXPECT_EQ(limitOf(wiring), 659722);
    EXPECT_EQ(panels(wiring), ports(5, 40));
    EXPECT_EQ(wiring.ports[0].load.pixels, 655360);
    EXPECT_EQ(wiring.ports[0].loaded * 1000 / limitOf(wiring), 993);
    EXPECT_NEAR(*boundsOf(wiring, 0).highestRate(processor("MX40 Pro"), wiring.ports[0].load), 60.399, 0.001);
    EXPECT_FALSE(costliest(wiring, 0));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E02_TenBitsWithTheBetterCards)
{
    ProcessorSettings settings = processor("MX40 Pro", 10);
    settings.card = "A10s Pro";
    const ShowWiring wiring = wire({settings}, {twentyByTen()});
    EXPECT_EQ(limitOf(wiring), 494791);
    EXPECT_EQ(panels(wiring), ports(6, 30, {20}));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E03_TheRectangleAlongRows)
{
    const ShowWiring wiring = wire({processor("VX1000")}, {twentyByTen()});
    EXPECT_EQ(limitOf(wiring), 650000);
    EXPECT_EQ(panels(wiring), ports(10, 20));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E04_TheRectangleAlongColumns)
{
    WallToWire columns = twentyByTen();
    columns.pattern = byColumns;
    const ShowWiring wiring = wire({processor("VX1000")}, {columns});
    EXPECT_EQ(panels(wiring), ports(6, 30, {20}));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E05_WholeRows)
{
    ProcessorSettings settings = processor("MX40 Pro", 10);
    settings.card = "A10s Pro";
    WallToWire lines = twentyByTen();
    lines.split = WallToWire::Split::Lines;
    lines.pixelLimit = PortBounds::of(settings, 8192)->pixelLimit(128 * 128);
    EXPECT_EQ(lines.pixelLimit, 494791);
    const ShowWiring wiring = wire({settings}, {lines});
    EXPECT_EQ(panels(wiring), ports(10, 20));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E06_MorePortsThanOneProcessorHas)
{
    const ShowToWire show{{processor("Tessera S8", 12), processor("Tessera S8", 12, 60, "B")}, {twentyByTen()}, {}};
    const ShowWiring wiring = ShowWiring::of(show);
    EXPECT_EQ(limitOf(wiring), 350000);
    EXPECT_EQ(panels(wiring), ports(9, 21, {11}));
    EXPECT_EQ(names(show, wiring, 0),
              (std::vector<std::string>{"A1", "A2", "A3", "A4", "A5", "A6", "A7", "A8", "B1", "B2"}));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E07_EightBits)
{
    const ShowWiring wiring = wire({processor("Tessera S8")}, {twentyByTen()});
    EXPECT_EQ(limitOf(wiring), 525000);
    EXPECT_EQ(panels(wiring), ports(6, 32, {8}));
    EXPECT_EQ(wiring.ports[0].loaded, 524288);
    EXPECT_EQ(wiring.ports[0].loaded * 1000 / 525000, 998); // 99.86 per cent
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E08_PortsBehindTrunks)
{
    const ShowWiring wiring = wire({processor("Tessera SX40", 12)}, {twentyByEight()});
    EXPECT_EQ(limitOf(wiring), 350000);
    EXPECT_EQ(panels(wiring), ports(14, 11, {6}));
    EXPECT_EQ(wiring.ports.back().number, 15);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E09_ClosedLoops)
{
    ProcessorSettings settings = processor("Tessera SX40", 12);
    settings.backup = ProcessorSettings::Backup::Loop;
    const ShowWiring wiring = wire({settings}, {twentyByEight()});
    EXPECT_EQ(panels(wiring), ports(14, 11, {6}));
    const auto names = [&](std::size_t port) {
        return PortName{"A", wiring.ports[port].number}.text() + "/" + wiring.ports[port].backup->text();
    };
    EXPECT_EQ(names(0), "A1/A11");
    EXPECT_EQ(names(9), "A10/A20");
    EXPECT_EQ(names(10), "A21/A31");
    EXPECT_EQ(names(14), "A25/A35");
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E10_LowLatencyByHalf)
{
    ProcessorSettings settings = processor("Tessera SX40", 12);
    settings.lowLatency = true;
    const ShowWiring wiring = wire({settings}, {twentyByEight()});
    EXPECT_EQ(limitOf(wiring), 175000);
    EXPECT_EQ(panels(wiring), ports(32, 5));
    EXPECT_EQ(costliest(wiring, 0)->rule, RuleCost::Rule::LowLatency);
    EXPECT_EQ(costliest(wiring, 0)->pixels, 175000);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E11_ATableAtFiftyHertz)
{
    const ShowWiring wiring = wire({processor("HELIOS 8K", 12, 50)}, {wall(12, 8, 320, 320)});
    EXPECT_EQ(limitOf(wiring), 485000);
    EXPECT_EQ(panels(wiring), ports(24, 4));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E12_TwoStreams)
{
    ProcessorSettings settings = processor("HELIOS 8K", 12, 50);
    settings.streams = 2;
    const ShowWiring wiring = wire({settings}, {wall(12, 8, 320, 320)});
    EXPECT_EQ(limitOf(wiring), 485000);
    EXPECT_EQ(panels(wiring), ports(48, 2));
    EXPECT_EQ(wiring.ports[0].loaded, 4 * 320 * 320);
    EXPECT_EQ(costliest(wiring, 0)->rule, RuleCost::Rule::Streams);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E13_ARibbonIsNarrow)
{
    WallToWire ribbon = wall(1, 60, 64, 128);
    const ShowWiring wiring = wire({processor("CX40 Pro", 12)}, {ribbon});
    EXPECT_EQ(panels(wiring), Counts{60});
    EXPECT_EQ(limitOf(wiring), 984080);
    EXPECT_EQ(wiring.ports[0].loaded, 491520);
    EXPECT_EQ(wiring.ports[0].loaded * 1000 / 984080, 499);
    EXPECT_EQ(costliest(wiring, 0)->rule, RuleCost::Rule::NarrowPort);
    EXPECT_EQ(costliest(wiring, 0)->pixels, 64 * 7680);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E14_LowLatencyFromTheTop)
{
    ProcessorSettings settings = processor("MX30");
    settings.lowLatency = true;
    WallToWire low = wall(12, 6, 128, 128);
    low.pattern = byColumns;
    low.shape.top = 540;
    const ShowWiring wiring = wire({settings}, {low}, {1536, 1308});
    EXPECT_EQ(limitOf(wiring), 387359);
    EXPECT_EQ(panels(wiring), ports(3, 23, {3}));
    EXPECT_EQ(costliest(wiring, 0)->rule, RuleCost::Rule::LowLatency);
    EXPECT_EQ(costliest(wiring, 0)->pixels, 659722 - 387359);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E15_Headroom)
{
    ProcessorSettings settings = processor("MX40 Pro");
    settings.headroom = 10;
    const ShowWiring wiring = wire({settings}, {twentyByTen()});
    EXPECT_EQ(limitOf(wiring), 593749);
    EXPECT_EQ(panels(wiring), ports(5, 36, {20}));
    EXPECT_EQ(costliest(wiring, 0)->rule, RuleCost::Rule::Headroom);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E16_AHoleCountsInTheRectangle)
{
    const ShowWiring wiring = wire({processor("VX600")}, {holed(byColumns)});
    EXPECT_EQ(limitOf(wiring), 650000);
    EXPECT_EQ(panels(wiring), (Counts{32, 16, 32}));
    EXPECT_EQ(wiring.ports[1].loaded, 4 * 8 * 128 * 128);
    EXPECT_EQ(costliest(wiring, 1)->rule, RuleCost::Rule::Rectangle);
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E17_AHoleIsJumped)
{
    const ShowWiring wiring = wire({processor("MX30")}, {holed(byColumns)});
    EXPECT_EQ(limitOf(wiring), 659722);
    EXPECT_EQ(panels(wiring), (Counts{40, 40}));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E18_TheCapOfTheProcessor)
{
    const WallToWire large = wall(36, 18, 128, 128);
    const ShowWiring alone = wire({processor("MX40 Pro")}, {large});
    EXPECT_EQ(limitOf(alone), 659722);
    EXPECT_EQ(panels(alone), ports(16, 40, {8}));
    ASSERT_EQ(alone.shortages.size(), 1u);
    EXPECT_EQ(alone.shortages[0].processors, 1);
    EXPECT_EQ(alone.shortages[0].ports, 4);

    const ShowWiring two = wire({processor("MX40 Pro"), processor("MX40 Pro", 8, 60, "B")}, {large});
    EXPECT_EQ(two.ports[12].processor, 0u);
    EXPECT_EQ(two.ports[13].processor, 1u);
    EXPECT_EQ(two.ports[13].number, 1);
    expectOneProcessor(two);
}

TEST(WorkedExamples, E19_ATelevisionRate)
{
    const ShowWiring wiring = wire({processor("MX40 Pro", 8, 59.94)}, {twentyByTen()});
    EXPECT_EQ(limitOf(wiring), 659722);
    EXPECT_EQ(panels(wiring), ports(5, 40));
    expectOneProcessor(wiring);
}

TEST(WorkedExamples, E20_APanelThatFitsNoPort)
{
    const ShowWiring wiring = wire({processor("MX40 Pro", 8, 240)}, {wall(4, 2, 512, 512)});
    EXPECT_EQ(limitOf(wiring), 164930);
    EXPECT_EQ(panels(wiring), ports(8, 1));
    for (const ShowWiring::Port &port : wiring.ports) {
        ASSERT_TRUE(port.excess);
        EXPECT_EQ(port.excess->of, PortExcess::Of::Pixels);
        EXPECT_EQ(port.excess->found, 262144);
    }
    EXPECT_TRUE(wiring.shortages.empty());
}
