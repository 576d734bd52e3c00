#include "layer/PictureChanges.h"

#include <gtest/gtest.h>

TEST(PictureChanges, AreUnknownToBeginWith)
{
    EXPECT_FALSE(PictureChanges().since(0));
}

TEST(PictureChanges, GatherFromTheOneThatIsKnown)
{
    PictureChanges changes;
    changes.add(1, QRect(0, 0, 10, 10));
    changes.add(2, QRect(20, 0, 10, 10));
    changes.add(3, QRect(40, 0, 10, 10));
    EXPECT_EQ(changes.since(3), QRegion(40, 0, 10, 10));
    EXPECT_EQ(changes.since(1), QRegion(0, 0, 10, 10) + QRect(20, 0, 10, 10) + QRect(40, 0, 10, 10));
    EXPECT_FALSE(changes.since(4));
}

TEST(PictureChanges, AreForgottenAfterEight)
{
    PictureChanges changes;
    for (int i = 0; i < 9; ++i)
        changes.add(i, QRect(i, 0, 1, 1));
    EXPECT_FALSE(changes.since(0));
    EXPECT_EQ(changes.since(1), QRegion(1, 0, 8, 1));
}
