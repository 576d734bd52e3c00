#include "live/WallDisplay.h"

#include <gtest/gtest.h>

TEST(WallDisplay, AScaleThatIsNoWholeOneMayRoundItsSize)
{
    WallDisplay display{.connector = "DP-2"};
    display.ratio = 1;
    EXPECT_EQ(display.slack(), 0);
    display.ratio = 2;
    EXPECT_EQ(display.slack(), 0);
    display.ratio = 1.5;
    EXPECT_EQ(display.slack(), 1);
    display.ratio = 2.5;
    EXPECT_EQ(display.slack(), 2);
}
