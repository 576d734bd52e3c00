#include "facts/WallSize.h"

#include "tests/facts/WallFixture.h"

namespace {
class WallSizeTest : public WallFixture
{};
} // namespace

TEST_F(WallSizeTest, CountsPanelsAndTheirPixels)
{
    const WallSize size = WallSize::of(*wall({7, 5, 128, 64}));
    EXPECT_EQ(size.panels, 35);
    EXPECT_EQ(size.pixels, 286'720);
    EXPECT_EQ(size.width, 896);
    EXPECT_EQ(size.height, 320);
    EXPECT_FALSE(size.isTooLargeToDraw);
}

TEST_F(WallSizeTest, IsTooLargeByItsPanelsWhateverWasDrawnLast)
{
    const auto made = wall({256, 1, 128, 64});
    made->drawInRect();
    EXPECT_FALSE(WallSize::of(*made).isTooLargeToDraw); // 32,768
    made->setCol(257);
    EXPECT_TRUE(WallSize::of(*made).isTooLargeToDraw);
    EXPECT_EQ(WallSize::of(*made).width, 32'896);
}

TEST_F(WallSizeTest, SizesBelowOneHaveNoPanelsOrNoPixels)
{
    const WallSize negative = WallSize::of(*wall({-3, -2, 10, 10}));
    EXPECT_EQ(negative.panels, 0);
    EXPECT_EQ(negative.pixels, 0);
    EXPECT_EQ(negative.width, -30);
    EXPECT_EQ(WallSize::of(*wall({3, 2, -10, -10})).pixels, 0);
    EXPECT_EQ(WallSize::of(*wall({-3, -2, -10, -10})).pixels, 0); // 30 x 20, of no panels
    EXPECT_EQ(WallSize::of(*wall({3, 2, 10, 0})).panels, 6);
}

TEST_F(WallSizeTest, PixelsBeyondSixtyFourBitsAreNotCounted)
{
    const WallSize size = WallSize::of(*wall({most, most, most, most}));
    EXPECT_EQ(size.panels, qint64{most} * most);
    EXPECT_EQ(size.pixels, std::nullopt);
    EXPECT_TRUE(size.isTooLargeToDraw);
}

TEST_F(WallSizeTest, APanelIsOffOnceAndOnlyInsideTheWall)
{
    const auto made = wall({8, 5, 10, 10});
    EXPECT_EQ(countOfPanelsOff(*made), 0);
    made->setHiddenBoxes(QStringList{"0,0", "0,0", "4,7", "5,0", "0,8", "03,3"});
    EXPECT_EQ(countOfPanelsOff(*made), 2);
}
