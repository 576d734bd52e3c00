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

LayerPointer chart(LayerHost &host, int width, int height)
{
    const auto still = std::make_shared<LWStill>(host);
    still->setValue("chart", "field colour=red");
    still->setPanelWidth(width);
    still->setPanelHeight(height);
    return still;
}

/// Those can be held together, and not `onePixel` more.
void expectToFill(std::vector<LayerPointer> layers, const LayerPointer &onePixel)
{
    EXPECT_TRUE(LayerLimits::check(layers));
    layers.push_back(onePixel);
    EXPECT_EQ(LayerLimits::check(layers).error().text, "walls and charts have 1 px too many; make some smaller");
}
} // namespace

TEST(LayerLimits, TenThousandLayersAreKept)
{
    EXPECT_TRUE(LayerLimits::checkCount(0));
    EXPECT_TRUE(LayerLimits::checkCount(10'000));
    EXPECT_EQ(LayerLimits::checkCount(10'001).error().text,
              "there are 10,001 layers; more than 10,000 cannot be kept, so remove some");
}

TEST(LayerLimits, WallsThatCannotBeHeldTogetherAreRefused)
{
    TestHost host;
    expectToFill(std::vector<LayerPointer>(4, wall(host, 128, 128)), wall(host, 1, 1));
}

TEST(LayerLimits, ChartsAreDrawnAsWallsAre)
{
    TestHost host;
    std::vector<LayerPointer> layers{wall(host, 128, 128)};
    layers.resize(4, chart(host, 16384, 16384));
    expectToFill(layers, chart(host, 1, 1));
}

TEST(LayerLimits, ChartsThatAreNeverDrawnDoNotCount)
{
    TestHost host;
    const std::vector<LayerPointer> layers(5, chart(host, 32769, 8192));
    EXPECT_TRUE(LayerLimits::check(layers));
    EXPECT_TRUE(LayerLimits::check(std::vector<LayerPointer>(5, chart(host, -16384, -16384))));
}

TEST(LayerLimits, WallsThatAreNeverDrawnAndPicturesOfFilesDoNotCount)
{
    TestHost host;
    const LayerPointer picture = chart(host, 16384, 16384);
    picture->setValue("chart", QVariant());
    const std::vector<LayerPointer> layers{
        wall(host, std::numeric_limits<int>::max(), std::numeric_limits<int>::max()),
        wall(host, -128, 128),
        picture,
        picture,
        picture,
        picture,
        picture,
    };

    EXPECT_TRUE(LayerLimits::check(layers));
}
