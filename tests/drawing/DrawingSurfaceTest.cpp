#include "drawing/DrawingSurface.h"

#include "drawing/Raster.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr QRgb red = 0xffff0000;
constexpr QRgb white = 0xffffffff;
constexpr QRgb black = 0xff000000;

/// A pixel by its distance from the bottom-left one.
QRgb at(const QImage &raster, int x, int y)
{
    return raster.pixel(x, raster.height() - 1 - y);
}

int countPixels(const QImage &raster, QRgb pixel)
{
    int count = 0;
    for (int y = 0; y < raster.height(); ++y) {
        for (int x = 0; x < raster.width(); ++x)
            count += raster.pixel(x, y) == pixel;
    }
    return count;
}

QImage whiteRaster(int width, int height)
{
    QImage raster = Raster::make(width, height);
    raster.fill(Qt::white);
    return raster;
}
} // namespace

TEST(DrawingSurface, TheOriginIsTheBottomLeftPixel)
{
    QImage raster = Raster::make(11, 7);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::red);

    surface.fillRect(QRect(0, 0, 2, 3));

    EXPECT_EQ(at(raster, 0, 0), red);
    EXPECT_EQ(at(raster, 1, 2), red);
    EXPECT_EQ(at(raster, 2, 0), 0u);
    EXPECT_EQ(at(raster, 0, 3), 0u);
    EXPECT_EQ(countPixels(raster, red), 6);
}

TEST(DrawingSurface, FillsReplaceWhatIsThere)
{
    QImage raster = whiteRaster(9, 9);
    DrawingSurface surface(raster);
    surface.setFillColour(NamedColour::clear);

    surface.fillRect(QRect(3, 3, 2, 2));

    EXPECT_EQ(at(raster, 3, 3), 0u);
    EXPECT_EQ(countPixels(raster, white), 81 - 4);
}

TEST(DrawingSurface, SourceAtopShowsNothingOverTransparentPixels)
{
    QImage raster = Raster::make(9, 9);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::white);
    surface.fillRect(QRect(0, 0, 4, 9));
    surface.setColour(NamedColour::red);

    surface.fillRect(QRect(0, 0, 9, 9), Compositing::SourceAtop);

    EXPECT_EQ(at(raster, 3, 5), red);
    EXPECT_EQ(at(raster, 4, 5), 0u);
}

TEST(DrawingSurface, FramesLieInsideTheRectangle)
{
    QImage raster = whiteRaster(20, 20);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::red);

    surface.frameRect(QRect(2, 3, 10, 8), 2);

    EXPECT_EQ(countPixels(raster, red), 10 * 8 - 6 * 4);
    EXPECT_EQ(at(raster, 2, 3), red);
    EXPECT_EQ(at(raster, 11, 10), red);
    EXPECT_EQ(at(raster, 4, 5), white);
    EXPECT_EQ(at(raster, 12, 3), white);
}

TEST(DrawingSurface, AFrameWiderThanItsRectangleFillsIt)
{
    QImage raster = whiteRaster(20, 20);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::red);
    surface.frameRect(QRect(5, 5, 4, 3), std::numeric_limits<int>::max());
    surface.frameRect(QRect(12, 12, 4, 3), 0);
    surface.frameRect(QRect(12, 12, 4, 3), -7);

    EXPECT_EQ(countPixels(raster, red), 12);
}

TEST(DrawingSurface, ANilColourLeavesTheColourInForce)
{
    QImage raster = Raster::make(9, 3);
    DrawingSurface surface(raster);

    surface.setColour(std::nullopt);
    surface.fillRect(QRect(0, 0, 1, 1));
    surface.setColour(NamedColour::red);
    surface.setColour(std::nullopt);
    surface.setFillColour(std::nullopt);
    surface.fillRect(QRect(1, 0, 1, 1));

    EXPECT_EQ(at(raster, 0, 0), black);
    EXPECT_EQ(at(raster, 1, 0), red);
}

TEST(DrawingSurface, AFillColourLeavesTheStrokeColourAlone)
{
    QImage raster = whiteRaster(9, 9);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::red);
    surface.setFillColour(NamedColour::black);
    QPainterPath line(QPointF(0, 4.5));
    line.lineTo(9, 4.5);

    surface.strokePath(line, 1);

    EXPECT_EQ(at(raster, 4, 4), red);
    EXPECT_EQ(countPixels(raster, red), 9);
}

TEST(DrawingSurface, SavedColoursComeBack)
{
    QImage raster = Raster::make(3, 3);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::red);
    surface.saveState();
    surface.setColour(NamedColour::white);
    surface.restoreState();
    surface.restoreState();

    surface.fillRect(QRect(1, 1, 1, 1));

    EXPECT_EQ(at(raster, 1, 1), red);
}

TEST(DrawingSurface, PathsAreAntialiased)
{
    QImage raster = whiteRaster(9, 9);
    DrawingSurface surface(raster);
    surface.setColour(NamedColour::black);
    QPainterPath box;
    box.addRect(QRectF(2, 2, 3.5, 2));

    surface.fillPath(box);

    EXPECT_EQ(at(raster, 4, 3), black);
    EXPECT_NEAR(qRed(at(raster, 5, 3)), 127, 1);
    EXPECT_EQ(at(raster, 6, 3), white);
}

TEST(DrawingSurface, ALineOfWidthZeroIsOnePixelAndLessIsNone)
{
    QImage raster = whiteRaster(9, 9);
    DrawingSurface surface(raster);
    QPainterPath line(QPointF(1, 4.5));
    line.lineTo(8, 4.5);

    surface.strokePath(line, -1);
    EXPECT_EQ(countPixels(raster, white), 81);
    surface.strokePath(line, 0);
    EXPECT_NEAR(countPixels(raster, black), 7, 1);
}

TEST(DrawingSurface, DashesAreMeasuredInPixels)
{
    QImage raster = whiteRaster(40, 9);
    DrawingSurface surface(raster);
    QPainterPath line(QPointF(0, 4));
    line.lineTo(40, 4);

    surface.strokePath(line, 2, {6, 4});

    EXPECT_EQ(at(raster, 3, 4), black);
    EXPECT_EQ(at(raster, 8, 4), white);
    EXPECT_EQ(at(raster, 13, 4), black);
    EXPECT_EQ(countPixels(raster, black), 4 * 6 * 2);
}

TEST(DrawingSurface, ATextsPointIsTheBottomLeftOfItsBox)
{
    QImage raster = Raster::make(200, 100);
    DrawingSurface surface(raster);
    const TextLine text("HHH", 30);

    surface.drawText(QPoint(10, 20), text, {NamedColour::white, NamedColour::red});

    EXPECT_EQ(at(raster, 10, 20), red);
    EXPECT_EQ(at(raster, 10 + text.size().width() - 1, 20 + text.size().height() - 1), red);
    EXPECT_EQ(at(raster, 9, 20), 0u);
    EXPECT_EQ(at(raster, 10, 19), 0u);
    EXPECT_EQ(at(raster, 10, 20 + text.size().height()), 0u);
    EXPECT_GT(countPixels(raster, white), 100);
}

TEST(DrawingSurface, ATextWithoutBackgroundLeavesThePixelsBetweenItsGlyphs)
{
    QImage raster = whiteRaster(60, 60);
    DrawingSurface surface(raster);

    surface.drawText(QPoint(5, 5), TextLine("O", 40), {NamedColour::black, std::nullopt});

    EXPECT_EQ(at(raster, 6, 6), white);
    EXPECT_GT(countPixels(raster, black), 100);
}

TEST(DrawingSurface, ImagesStandUprightAndScaled)
{
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::white);
    picture.setPixel(0, 0, red); // top left
    QImage raster = whiteRaster(20, 20);
    DrawingSurface surface(raster);

    surface.drawImage(picture, QRectF(4, 4, 2, 2), Compositing::SourceOver);

    EXPECT_EQ(at(raster, 4, 5), red);
    EXPECT_EQ(at(raster, 4, 4), white);
}

TEST(DrawingSurface, OpacityIsOfThatImageAlone)
{
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QImage raster = whiteRaster(9, 9);
    DrawingSurface surface(raster);

    surface.drawImage(picture, QRectF(2, 2, 1, 1), Compositing::SourceOver, 0.5);
    surface.drawImage(picture, QRectF(4, 2, 1, 1), Compositing::SourceOver);

    EXPECT_NEAR(qRed(at(raster, 2, 2)), 127, 1);
    EXPECT_EQ(at(raster, 4, 2), black);
}

TEST(DrawingSurface, WhatLiesFarOutsideDrawsNothingAndReturnsAtOnce)
{
    QImage raster = whiteRaster(50, 50);
    DrawingSurface surface(raster);
    QPainterPath far(QPointF(-2e9, -2e9));
    far.lineTo(2e9, 1e9);
    surface.strokePath(far, 1e9);
    surface.strokePath(far, std::numeric_limits<double>::quiet_NaN());
    surface.fillPath(far);
    surface.drawText(QPoint(1 << 24, -(1 << 24)), TextLine("A", 1000), {NamedColour::black, NamedColour::red});
    surface.fillRect(QRect(60, 60, 10, 10));

    EXPECT_EQ(countPixels(raster, white), 2500);
}
