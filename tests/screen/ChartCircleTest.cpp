#include "tests/screen/ChartFixtures.h"

#include <gtest/gtest.h>

namespace {
/// Circle and diagonals in opaque cyan, four pixels wide, on nothing.
ScreenChart circled(int col, int row)
{
    ScreenChart chart = blankWall();
    chart.col = col;
    chart.row = row;
    chart.CircleEnable = true;
    chart.circleColor = NamedColour::cyan;
    chart.circleBWidth = 4;
    return chart;
}

/// How much of the pixel the strokes cover, 0 to 255.
int coverage(const QImage &raster, int x, int y)
{
    return pixelAt(raster, x, y).alpha();
}
} // namespace

TEST(ChartCircle, OnAWideWallItFillsTheHeightAndStandsInTheMiddle)
{
    const QImage raster = circled(4, 3).draw({}); // a square of 296 from (52, 2)

    EXPECT_EQ(coverage(raster, 49, 150), 0);
    EXPECT_GE(coverage(raster, 50, 150), 250);
    EXPECT_EQ(pixelAt(raster, 52, 150), QColor(Qt::cyan));
    EXPECT_GE(coverage(raster, 53, 150), 250);
    EXPECT_LE(coverage(raster, 54, 150), 5);
    EXPECT_LE(coverage(raster, 345, 150), 5);
    EXPECT_EQ(pixelAt(raster, 347, 150), QColor(Qt::cyan));
    EXPECT_GE(coverage(raster, 349, 150), 250);
    EXPECT_EQ(coverage(raster, 350, 150), 0);
    EXPECT_GE(coverage(raster, 200, 0), 250);
    EXPECT_GE(coverage(raster, 200, 299), 250);
    EXPECT_LE(coverage(raster, 200, 4), 5);
}

TEST(ChartCircle, OnASquareWallItIsTheWallLessTheLineWidth)
{
    const QImage raster = circled(3, 3).draw({}); // a square of 296 from (2, 2)

    for (const int near : {0, 1, 2, 3}) {
        EXPECT_GE(coverage(raster, near, 150), 250) << near;
        EXPECT_GE(coverage(raster, 299 - near, 150), 250) << near;
        EXPECT_GE(coverage(raster, 150, near), 250) << near;
        EXPECT_GE(coverage(raster, 150, 299 - near), 250) << near;
    }
    EXPECT_LE(coverage(raster, 4, 150), 5);
    EXPECT_LE(coverage(raster, 295, 150), 5);
}

TEST(ChartCircle, OnATallWallItFillsTheWidthAndStandsInTheMiddle)
{
    const QImage raster = circled(3, 4).draw({}); // a square of 296 from (2, 52)

    EXPECT_GE(coverage(raster, 0, 200), 250);
    EXPECT_GE(coverage(raster, 299, 200), 250);
    EXPECT_EQ(coverage(raster, 150, 49), 0);
    EXPECT_GE(coverage(raster, 150, 50), 250);
    EXPECT_LE(coverage(raster, 150, 54), 5);
    EXPECT_GE(coverage(raster, 150, 349), 250);
    EXPECT_EQ(coverage(raster, 150, 350), 0);
}

TEST(ChartCircle, HalvesOfOddNumbersAreTruncated)
{
    ScreenChart chart = circled(1, 1);
    chart.panelWidth = 131;
    chart.panelHeight = 101;
    chart.circleBWidth = 5;
    const QImage raster = chart.draw({}); // h = 2, a square of 96 from (65 + 2 - 50, 2)

    EXPECT_EQ(coverage(raster, 13, 50), 0);
    EXPECT_NEAR(coverage(raster, 14, 50), 128, 8); // the line runs from 14.5 to 19.5
    EXPECT_EQ(pixelAt(raster, 17, 50), QColor(Qt::cyan));
    EXPECT_NEAR(coverage(raster, 19, 50), 128, 8);
    EXPECT_LE(coverage(raster, 20, 50), 5);
}

TEST(ChartCircle, TheDiagonalsRunFromCornerToCorner)
{
    const QImage raster = circled(4, 3).draw({});

    // Through (0, 0) and (402, 302).
    EXPECT_EQ(pixelAt(raster, 0, 0), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 100, 75), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 300, 225), QColor(Qt::cyan));
    EXPECT_EQ(coverage(raster, 100, 71), 0);
    EXPECT_EQ(coverage(raster, 100, 80), 0);
    // Through (-2, 302) and (402, -2).
    EXPECT_EQ(pixelAt(raster, 0, 299), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 100, 225), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 300, 74), QColor(Qt::cyan));
    EXPECT_EQ(coverage(raster, 300, 69), 0);
    EXPECT_EQ(coverage(raster, 300, 80), 0);
}

TEST(ChartCircle, WideDiagonalsReachAcrossTheCorners)
{
    ScreenChart chart = circled(1, 1);
    chart.circleBWidth = 20;
    const QImage raster = chart.draw({});

    // From (110, 110) to (-110, -110) and from (-10, 110) to (110, -10).
    EXPECT_EQ(pixelAt(raster, 99, 99), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 0, 0), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 99, 0), QColor(Qt::cyan));
    EXPECT_EQ(pixelAt(raster, 12, 0), QColor(Qt::cyan)); // 8.5 from the diagonal
    EXPECT_EQ(coverage(raster, 17, 0), 0);
}

TEST(ChartCircle, IsBlendedOverThePanels)
{
    ScreenChart chart = circled(4, 3);
    chart.bgEnable = true;
    chart.rectColor = NamedColour::red;
    chart.rectColor2 = NamedColour::red;
    chart.circleColor = Colour{0, 0, 1, 0.5};

    EXPECT_EQ(pixelAt(chart.draw({}), 52, 150), QColor(127, 0, 128));
}

TEST(ChartCircle, AWidthOfZeroIsTheThinnestLineAndLessIsNone)
{
    ScreenChart chart = circled(4, 3);
    chart.circleBWidth = 0;
    EXPECT_GE(coverage(chart.draw({}), 200, 150), 100);
    EXPECT_EQ(coverage(chart.draw({}), 200, 155), 0);

    chart.circleBWidth = -4;
    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartCircle, WithoutAColourItTakesTheLastOneOfTheDoubledPanelLoop)
{
    ScreenChart chart = circled(2, 1);
    chart.bgEnable = true;
    chart.rectColor = NamedColour::red;
    chart.rectColor2 = NamedColour::blue;
    chart.circleColor = std::nullopt;
    chart.circleBWidth = 10;

    // The wall's own last panel is blue; that of twice as many rows and columns is red.
    const QImage raster = chart.draw({});
    EXPECT_EQ(pixelAt(raster, 199, 99), QColor(Qt::red));
    EXPECT_EQ(pixelAt(raster, 190, 50), QColor(Qt::blue));

    chart.rectColor = std::nullopt; // then blue stays in force
    EXPECT_EQ(pixelAt(chart.draw({}), 2, 2), QColor(Qt::blue));
}

TEST(ChartCircle, WithoutAColourItTakesTheFrames)
{
    ScreenChart chart = circled(2, 1);
    chart.BoarderEnable = true;
    chart.boarderColor = NamedColour::yellow;
    chart.boarderWidth = 0;
    chart.circleColor = std::nullopt;

    EXPECT_EQ(pixelAt(chart.draw({}), 100, 50), QColor(Qt::yellow));
}

TEST(ChartCircle, WithoutAnyColourItIsBlack)
{
    ScreenChart chart = circled(2, 1); // no background: its transparent fill is no colour for strokes
    chart.circleColor = std::nullopt;

    EXPECT_EQ(pixelAt(chart.draw({}), 100, 50), QColor(Qt::black));
}
