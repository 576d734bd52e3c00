#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
/// 5 columns and 4 rows of panels of 30 x 20, its top left at (100, 50).
std::shared_ptr<LWScreen> clickedWall(LayerHost &host)
{
    auto screen = LWScreen::init(host);
    screen->setRow(4);
    screen->setCol(5);
    screen->setPanelWidth(30);
    screen->setPanelHeight(20);
    screen->setXpoint(100);
    screen->setYpoint(50);
    screen->setHiddenBoxes(QStringList());
    screen->drawInRect();
    return screen;
}

QStringList keysAfterClick(qint64 x, qint64 y)
{
    TestHost host;
    const auto screen = clickedWall(host);
    screen->onImageClick(x, y);
    return screen->hiddenBoxes().value();
}
} // namespace

TEST(LWScreenClick, HidesThePanelByItsRowFromTheTopAndItsColumn)
{
    EXPECT_EQ(keysAfterClick(100, 50), QStringList{"0,0"});
    EXPECT_EQ(keysAfterClick(129, 69), QStringList{"0,0"});
    EXPECT_EQ(keysAfterClick(130, 69), QStringList{"0,1"});
    EXPECT_EQ(keysAfterClick(129, 70), QStringList{"1,0"});
    EXPECT_EQ(keysAfterClick(249, 129), QStringList{"3,4"});
}

TEST(LWScreenClick, ASecondClickShowsThePanelAgain)
{
    TestHost host;
    const auto screen = clickedWall(host);
    screen->setHiddenBoxes(QStringList{"3,3", "0,2"});
    screen->onImageClick(135, 55);
    screen->onImageClick(140, 60);

    EXPECT_EQ(screen->hiddenBoxes(), (QStringList{"3,3", "0,2"}));
}

TEST(LWScreenClick, RightOfOrBelowTheWallNothingHappens)
{
    EXPECT_EQ(keysAfterClick(250, 60), QStringList());
    EXPECT_EQ(keysAfterClick(110, 130), QStringList());
}

TEST(LWScreenClick, LessThanAPanelBeforeTheWallCountsAsTheFirst)
{
    EXPECT_EQ(keysAfterClick(71, 31), QStringList{"0,0"});
    EXPECT_EQ(keysAfterClick(71, 75), QStringList{"1,0"});
}

TEST(LWScreenClick, FurtherOutTheIndexIsKeptAsAnUnsignedNumber)
{
    EXPECT_EQ(keysAfterClick(70, 50), QStringList{"0,18446744073709551615"});
    EXPECT_EQ(keysAfterClick(100, 30), QStringList{"18446744073709551615,0"});
    EXPECT_EQ(keysAfterClick(40, 10), QStringList{"18446744073709551614,18446744073709551614"});
}

TEST(LWScreenClick, FurtherOutASecondClickRemovesTheKeyAgain)
{
    TestHost host;
    const auto screen = clickedWall(host);
    screen->onImageClick(60, 50);
    screen->onImageClick(60, 50);

    EXPECT_EQ(screen->hiddenBoxes(), QStringList());
}

TEST(LWScreenClick, AScreenWithoutAListGetsOne)
{
    TestHost host;
    const auto screen = clickedWall(host);
    screen->setHiddenBoxes(std::nullopt);
    screen->onImageClick(100, 50);

    EXPECT_EQ(screen->hiddenBoxes(), QStringList{"0,0"});
}

TEST(LWScreenClick, DoesNotRenderTheScreen)
{
    TestHost host;
    const auto screen = clickedWall(host);
    const QImage before = screen->thumbnail();
    screen->onImageClick(100, 50);

    EXPECT_EQ(screen->thumbnail().cacheKey(), before.cacheKey());
}

TEST(LWScreenClick, AWallWithoutPanelsIsLeftAlone)
{
    TestHost host;
    const auto screen = clickedWall(host);
    screen->setPanelWidth(0);
    screen->onImageClick(100, 50);
    screen->setPanelWidth(30);
    screen->setPanelHeight(0);
    screen->onImageClick(100, 50);
    screen->setPanelHeight(20);
    screen->setCol(0);
    screen->onImageClick(100, 50);

    EXPECT_EQ(screen->hiddenBoxes(), QStringList());
}

TEST(LWScreenClick, ExtremePointsDoNoHarm)
{
    constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    constexpr qint64 highest = std::numeric_limits<qint64>::max();
    TestHost host;
    const auto screen = clickedWall(host);
    for (const int panel : {30, 1, -1, std::numeric_limits<int>::min()}) {
        screen->setPanelWidth(panel);
        screen->setPanelHeight(panel);
        for (const int place : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
            screen->setXpoint(place);
            screen->setYpoint(place);
            for (const qint64 x : {lowest, qint64{0}, highest}) {
                screen->onImageClick(x, lowest);
                screen->onImageClick(x, highest);
            }
        }
    }
    const QStringList keys = screen->hiddenBoxes().value();
    for (const QString &key : keys)
        EXPECT_EQ(key.count(','), 1) << qPrintable(key);
}
