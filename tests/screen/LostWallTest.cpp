#include "screen/LostWall.h"

#include <gtest/gtest.h>

TEST(LostWall, TellsWhatIsTooLargeFromWhatMemoryIsMissingFor)
{
    EXPECT_EQ(LostWall::sentence("MAIN", 256'000'000'000, 384),
              "MAIN: 256,000,000,000 x 384 pixels are too large to draw; make the wall smaller");
    EXPECT_EQ(LostWall::sentence("MAIN", 3840, 2160),
              "MAIN: there is not enough memory to draw 3,840 x 2,160 pixels; close other programs or make the wall "
              "smaller");
    EXPECT_TRUE(LostWall::sentence({}, 32'769, 1).startsWith("A wall without a name: 32,769 x 1 pixels are too large"));
}

TEST(LostWall, TheLongestSideIsNotTooLarge)
{
    EXPECT_FALSE(LostWall::isTooLarge(32'768, 1));
    EXPECT_TRUE(LostWall::isTooLarge(32'769, 1));
    EXPECT_FALSE(LostWall::isTooLarge(32'769, 0));
    EXPECT_FALSE(LostWall::isTooLarge(-32'769, 5));
}
