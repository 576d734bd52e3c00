#include "facts/WallPorts.h"

#include "tests/facts/WallFixture.h"

namespace {
class WallPortsTest : public WallFixture
{
protected:
    WallPorts portsOf(const Sizes &sizes, qint64 pixelLimit, qint64 pattern = 2)
    {
        const auto made = wall(sizes);
        made->setPixelLimit(pixelLimit);
        made->setPattern(pattern);
        return WallPorts::of(*made);
    }
};

void expectGroup(const PortGroup &group, qint64 first, qint64 last, qint64 lines, qint64 panels,
                 std::optional<qint64> pixels)
{
    EXPECT_EQ(group.first, first);
    EXPECT_EQ(group.last, last);
    EXPECT_EQ(group.lines, lines);
    EXPECT_EQ(group.panels, panels);
    EXPECT_EQ(group.pixels, pixels);
}
} // namespace

TEST_F(WallPortsTest, FullPortsComeFirstAndTheLastTakesTheRest)
{
    const WallPorts ports = portsOf({4, 5, 100, 100}, 80'000);
    ASSERT_EQ(ports.groups.size(), 2);
    expectGroup(ports.groups[0], 1, 2, 2, 8, 80'000);
    expectGroup(ports.groups[1], 3, 3, 1, 4, 40'000);
    EXPECT_EQ(ports.count(), 3);
    EXPECT_EQ(ports.linePixels, 40'000);
    EXPECT_FALSE(ports.isOverLimit);
    EXPECT_STREQ(ports.lineName(), "row");
}

TEST_F(WallPortsTest, AlongColumnsALineIsAColumn)
{
    const WallPorts ports = portsOf({4, 5, 100, 100}, 100'000, 7);
    ASSERT_EQ(ports.groups.size(), 1);
    expectGroup(ports.groups[0], 1, 2, 2, 10, 100'000);
    EXPECT_EQ(ports.linePixels, 50'000);
    EXPECT_STREQ(ports.lineName(), "column");
}

TEST_F(WallPortsTest, AllHangsOnOnePortWithoutALimitOrWhereNotOneLineFits)
{
    const WallPorts free = portsOf({4, 5, 100, 100}, 0);
    ASSERT_EQ(free.groups.size(), 1);
    expectGroup(free.groups[0], 1, 1, 5, 20, 200'000);
    EXPECT_FALSE(free.isOverLimit);

    const WallPorts over = portsOf({4, 5, 100, 100}, 39'999);
    ASSERT_EQ(over.groups.size(), 1);
    expectGroup(over.groups[0], 1, 1, 5, 20, 200'000);
    EXPECT_TRUE(over.isOverLimit);
    EXPECT_FALSE(portsOf({4, 5, 100, 100}, 40'000).isOverLimit);
}

TEST_F(WallPortsTest, ALimitBelowZeroLeavesWhatItsDivisionLeaves)
{
    // -500 / 100 pixels / 2 panels: -2 rows on a port; of 5 rows 1 is left, of 4 none.
    const WallPorts odd = portsOf({2, 5, 10, 10}, -500);
    ASSERT_EQ(odd.groups.size(), 1);
    expectGroup(odd.groups[0], 1, 1, 1, 2, 200);
    EXPECT_EQ(portsOf({2, 4, 10, 10}, -500).count(), 0);
}

TEST_F(WallPortsTest, WithoutPanelsPixelsOrAPatternThereAreNoPorts)
{
    for (const Sizes &sizes : {Sizes{0, 5, 10, 10}, {-3, 5, 10, 10}, {-3, -5, 10, 10}, {2, 5, 0, 10}, {2, 5, -10, -10}})
        for (const qint64 limit : {0, 500, -500})
            EXPECT_EQ(portsOf(sizes, limit).count(), 0) << sizes.columns << ", " << limit;
    const WallPorts patternless = portsOf({2, 5, 10, 10}, 500, 8);
    EXPECT_FALSE(patternless.path);
    EXPECT_EQ(patternless.count(), 0);
    EXPECT_FALSE(patternless.isOverLimit);
}

TEST_F(WallPortsTest, PixelsBeyondSixtyFourBitsAreNotCounted)
{
    const WallPorts ports = portsOf({most, most, most, most}, 1);
    ASSERT_EQ(ports.groups.size(), 1);
    expectGroup(ports.groups[0], 1, 1, most, qint64{most} * most, std::nullopt);
    EXPECT_EQ(ports.linePixels, std::nullopt);
    EXPECT_TRUE(ports.isOverLimit);
}
