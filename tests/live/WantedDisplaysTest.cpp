#include "live/WantedDisplays.h"

#include <gtest/gtest.h>

TEST(WantedDisplays, OneThatGoesIsWaitedForUntilItComesBack)
{
    WantedDisplays displays;
    displays.appear("A");
    displays.appear("B");
    displays.want("B");
    EXPECT_TRUE(displays.isShown("B"));
    displays.vanish("B");
    EXPECT_FALSE(displays.isShown("B"));
    EXPECT_EQ(displays.awaited(), QStringList("B"));
    displays.appear("C");
    EXPECT_EQ(displays.awaited(), QStringList("B"));
    displays.appear("B");
    EXPECT_TRUE(displays.isShown("B"));
    EXPECT_EQ(displays.awaited(), QStringList());
}

TEST(WantedDisplays, LeavingEndsTheWaiting)
{
    WantedDisplays displays;
    displays.want("A");
    displays.want("B");
    displays.want("A");
    EXPECT_EQ(displays.awaited(), (QStringList{"A", "B"}));
    displays.leave("A");
    EXPECT_EQ(displays.awaited(), QStringList("B"));
    displays.leaveAll();
    EXPECT_FALSE(displays.isAnyWanted());
    displays.appear("B");
    EXPECT_FALSE(displays.isShown("B"));
}
