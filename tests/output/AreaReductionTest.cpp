#include "output/AreaReduction.h"

#include "tests/output/ChancePictures.h"

#include <gtest/gtest.h>

namespace {
QImage reduced(const QImage &picture, const QSize &size)
{
    QImage reduced(size, Raster::format);
    AreaReduction::reduce(reduced, {0, 0}, picture, size, reduced.rect());
    return reduced;
}

QImage noise(Chance &chance, const QSize &size)
{
    QImage picture(size, Raster::format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, chance.colour(chance.number(0, 255)));
    }
    return picture;
}

/// How far the pixels of a side reach into those of a smaller one, in parts of the latter.
double covered(int pixel, int reducedPixel, int whole, int reduced)
{
    const double left = double(reducedPixel) * whole / reduced;
    const double right = double(reducedPixel + 1) * whole / reduced;
    return std::max(0.0, std::min(pixel + 1.0, right) - std::max(double(pixel), left)) / (right - left);
}

double exactMean(const QImage &picture, const QSize &size, const QPoint &pixel, int channel)
{
    double mean = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const double down = covered(y, pixel.y(), picture.height(), size.height());
        for (int x = 0; down > 0 && x < picture.width(); ++x)
            mean +=
                down * covered(x, pixel.x(), picture.width(), size.width()) * picture.constScanLine(y)[4 * x + channel];
    }
    return mean;
}
} // namespace

TEST(AreaReduction, APixelIsTheMeanOfWhatItStandsFor)
{
    QImage picture(4, 2, Raster::format);
    picture.fill(Qt::black);
    picture.setPixelColor(0, 0, Qt::white);
    picture.setPixelColor(3, 1, QColor(200, 100, 40));
    const QImage half = reduced(picture, {2, 1});
    EXPECT_EQ(half.pixel(0, 0), 0xff404040U);
    EXPECT_EQ(half.pixel(1, 0), 0xff32190aU);
}

TEST(AreaReduction, IsWithinAStepOfTheExactMean)
{
    Chance chance;
    for (int round = 0; round < 200; ++round) {
        const QImage picture = noise(chance, {chance.number(1, 40), chance.number(1, 40)});
        const QSize size(chance.number(1, picture.width()), chance.number(1, picture.height()));
        const QImage small = reduced(picture, size);
        const QPoint pixel(chance.number(0, size.width() - 1), chance.number(0, size.height() - 1));
        for (int channel = 0; channel < 4; ++channel)
            EXPECT_NEAR(small.constScanLine(pixel.y())[4 * pixel.x() + channel],
                        exactMean(picture, size, pixel, channel), 1.5)
                << "round " << round;
    }
}

TEST(AreaReduction, IsWithinTwoStepsWhereAPixelStandsForHundreds)
{
    Chance chance;
    for (const int width : {257, 511, 1023}) {
        const QImage picture = noise(chance, {width, 3});
        const QImage small = reduced(picture, {4, 1});
        for (int x = 0; x < 4; ++x) {
            for (int channel = 0; channel < 4; ++channel)
                EXPECT_NEAR(small.constScanLine(0)[4 * x + channel], exactMean(picture, {4, 1}, {x, 0}, channel), 2)
                    << width;
        }
    }
}

TEST(AreaReduction, OneColourStaysThatColour)
{
    for (const QRgb pixel : {0xffffffffU, 0xff010203U, 0x80402010U, 0U}) {
        QImage picture(997, 613, Raster::format);
        picture.fill(pixel);
        QImage expected(331, 210, Raster::format);
        expected.fill(pixel);
        EXPECT_EQ(reduced(picture, expected.size()), expected) << std::hex << pixel;
    }
}

TEST(AreaReduction, NoLineVanishesAtASixteenth)
{
    for (int line = 0; line < 64; ++line) {
        QImage picture(1600, 64, Raster::format);
        picture.fill(Qt::black);
        QPainter(&picture).fillRect(0, line, 1600, 1, Qt::white);
        EXPECT_GE(qRed(reduced(picture, {100, 4}).pixel(50, line / 16)), 15) << line;
    }
}

TEST(AreaReduction, TheFullSizeIsThePictureItself)
{
    Chance chance;
    const QImage picture = noise(chance, {61, 37});
    EXPECT_EQ(reduced(picture, picture.size()), picture);
    EXPECT_EQ(reduced(picture, {61, 5}).size(), QSize(61, 5));
}

TEST(AreaReduction, APartIsWhatItIsInTheWhole)
{
    Chance chance;
    for (int round = 0; round < 200; ++round) {
        const QImage picture = noise(chance, {chance.number(1, 90), chance.number(1, 90)});
        const QSize size(chance.number(1, picture.width()), chance.number(1, picture.height()));
        const QImage whole = reduced(picture, size);
        const QRect part =
            QRect(chance.number(0, size.width() - 1), chance.number(0, size.height() - 1), 20, 20) & whole.rect();
        QImage alone(30, 30, Raster::format);
        alone.fill(0);
        AreaReduction::reduce(alone, {3, 5}, picture, size, part);
        EXPECT_EQ(alone.copy(QRect(QPoint(3, 5), part.size())), whole.copy(part)) << "round " << round;
        EXPECT_EQ(alone.pixel(2, 5), 0U);
    }
}

TEST(AreaReduction, APixelShowsWhereItIsCovered)
{
    EXPECT_EQ(AreaReduction::shownIn({0, 0, 1, 1}, {10, 10}, {5, 5}), QRect(0, 0, 1, 1));
    EXPECT_EQ(AreaReduction::shownIn({3, 9, 1, 1}, {10, 10}, {3, 4}), QRect(QPoint(0, 3), QPoint(1, 3)));
    EXPECT_EQ(AreaReduction::shownIn({0, 0, 10, 10}, {10, 10}, {3, 4}), QRect(0, 0, 3, 4));
    EXPECT_EQ(AreaReduction::shownIn({7679, 4319, 1, 1}, {7680, 4320}, {1280, 720}), QRect(1279, 719, 1, 1));
}
