#include "base/Colour.h"

#include <gtest/gtest.h>

TEST(Colour, ComponentsAreRoundedToTheNearestByte)
{
    EXPECT_EQ(NamedColour::lightGray.toRgba8(), qRgba(170, 170, 170, 255));
    EXPECT_EQ(NamedColour::darkGray.toRgba8(), qRgba(85, 85, 85, 255));
    EXPECT_EQ(NamedColour::orange.toRgba8(), qRgba(255, 128, 0, 255));
    EXPECT_EQ(Colour::gray(0, 0.75).toRgba8(), qRgba(0, 0, 0, 191));
}

TEST(Colour, ComponentsOutsideTheRangeAreClampedOnlyWhenPainted)
{
    const Colour wide{1.5, -0.25, 0.5, 2};

    EXPECT_EQ(wide.toRgba8(), qRgba(255, 0, 128, 255));
    EXPECT_EQ(wide.red, 1.5);
}

TEST(Colour, EveryByteSurvivesTheWayThroughAColour)
{
    for (int byte = 0; byte < 256; ++byte) {
        const QRgb rgba = qRgba(byte, 255 - byte, byte / 2, byte);
        EXPECT_EQ(Colour::fromRgba8(rgba).toRgba8(), rgba);
    }
}

TEST(Colour, AClearPixelIsZero)
{
    EXPECT_EQ(NamedColour::clear.toPremultipliedPixel(), 0u);
    EXPECT_EQ(Colour({1, 0, 0, 0}).toPremultipliedPixel(), 0u);
}
