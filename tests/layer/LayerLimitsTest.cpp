#include "layer/LayerLimits.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
LayerPointer wall(LayerHost &host, int panels, int panelSize)
{
    const auto screen = std::make_shared<LWScreen>(host);
    screen->setCol(panels);
    screen->setRow(panels);
    screen->setPanelWidth(panelSize);
    screen->setPanelHeight(panelSize);
    return screen;
}
} // namespace

TEST(LayerLimits, AHundredThousandLayersAreKept)
{
    EXPECT_TRUE(LayerLimits::checkCount(0));
    EXPECT_TRUE(LayerLimits::checkCount(100'000));
    EXPECT_EQ(LayerLimits::checkCount(100'001).error().text,
              "there are 100001 layers; more than 100000 cannot be kept");
}

TEST(LayerLimits, WallsThatCannotBeHeldTogetherAreRefused)
{
    TestHost host;
    std::vector<LayerPointer> layers(4, wall(host, 128, 128));
    EXPECT_TRUE(LayerLimits::check(layers));

    layers.push_back(wall(host, 1, 1));

    EXPECT_EQ(LayerLimits::check(layers).error().text,
              "the walls have 1073741825 pixels together; more than 1073741824 cannot be held");
}

TEST(LayerLimits, WallsThatAreNeverDrawnAndPicturesDoNotCount)
{
    TestHost host;
    const std::vector<LayerPointer> layers{
        wall(host, std::numeric_limits<int>::max(), std::numeric_limits<int>::max()),
        wall(host, -128, 128),
        std::make_shared<LWStill>(host),
    };

    EXPECT_TRUE(LayerLimits::check(layers));
}
