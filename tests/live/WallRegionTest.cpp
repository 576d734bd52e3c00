#include "live/WallRegion.h"

#include <gtest/gtest.h>

TEST(WallRegion, ItsPartIsAsLargeAsTheDisplayAndTurnedWithIt)
{
    EXPECT_EQ((WallRegion{{1920, 0}}.part({1280, 1024})), QRect(1920, 0, 1280, 1024));
    EXPECT_EQ((WallRegion{{0, 8}, 90}.part({1280, 1024})), QRect(0, 8, 1024, 1280));
    EXPECT_EQ((WallRegion{{0, 8}, 180}.part({1280, 1024})), QRect(0, 8, 1280, 1024));
}

TEST(WallRegion, IsKeptAsAText)
{
    const WallRegion region{{-12, 3840}, 270};
    EXPECT_EQ(region.text(), "-12 3840 270");
    EXPECT_EQ(WallRegion::of(region.text()), region);
    for (const char *text :
         {"", "1 2", "1 2 45", "a 2 90", "1 2 90 4", "40000 0 0", "1 99999999999 0", "-2147483648 0 0"})
        EXPECT_EQ(WallRegion::of(text), std::nullopt) << text;
    EXPECT_EQ(WallRegion::within({-40'000, 40'000}), QPoint(-32768, 32768));
}
