#include "drawing/PixelRows.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {
/// One channel the plain way: a x b / 255, rounded as Qt's painter rounds.
int scaled(int a, int b)
{
    return (a * b + ((a * b) >> 8) + 0x80) >> 8;
}

QRgb plainBlend(QRgb below, int coverage, QRgb colour)
{
    const int rest = 255 - scaled(qAlpha(colour), coverage);
    const auto channel = [&](int source, int destination) {
        return scaled(source, coverage) + scaled(destination, rest);
    };
    return qRgba(channel(qRed(colour), qRed(below)), channel(qGreen(colour), qGreen(below)),
                 channel(qBlue(colour), qBlue(below)), channel(qAlpha(colour), qAlpha(below)));
}
} // namespace

TEST(PixelRows, BlendingIsThePlainArithmeticAtEveryLengthAndPlace)
{
    std::mt19937 random(7);
    for (int count = 0; count < 70; ++count) {
        std::vector<QRgb> pixels(100);
        std::vector<uchar> coverage(100);
        for (QRgb &pixel : pixels)
            pixel = qPremultiply(static_cast<QRgb>(random()));
        for (uchar &byte : coverage)
            byte = static_cast<uchar>(random());
        const QRgb colour = qPremultiply(static_cast<QRgb>(random()));
        std::vector<QRgb> expected = pixels;
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            expected[i + 3] = plainBlend(pixels[i + 3], coverage[i], colour);

        PixelRows::blend(pixels.data() + 3, coverage.data(), count, colour);

        ASSERT_EQ(pixels, expected) << count << " pixels";
    }
}

TEST(PixelRows, UnitedCoverageIsWhatNeitherLeavesOpen)
{
    std::vector<uchar> coverage(131, 128);
    const std::vector<uchar> half(131, 128);

    PixelRows::unite(coverage.data() + 1, half.data(), 129);

    EXPECT_EQ(coverage[0], 128);
    EXPECT_EQ(coverage[1], 192); // 1 - (1 - 128/255)^2 = 0.752
    EXPECT_EQ(coverage[129], 192);
    EXPECT_EQ(coverage[130], 128);
}

TEST(PixelRows, FullCoverageStaysFull)
{
    for (int value = 0; value < 256; ++value) {
        uchar full = 255;
        const auto added = static_cast<uchar>(value);
        PixelRows::unite(&full, &added, 1);
        EXPECT_EQ(full, 255);
        uchar none = 0;
        PixelRows::unite(&none, &added, 1);
        EXPECT_EQ(none, value);
    }
}

TEST(PixelRows, CopiesReachEveryPixelAndNoOther)
{
    std::vector<QRgb> source(200);
    for (std::size_t i = 0; i < source.size(); ++i)
        source[i] = static_cast<QRgb>(i + 1);
    for (std::size_t start = 0; start < 20; ++start) {
        for (const std::size_t count : {0U, 1U, 15U, 16U, 17U, 150U}) {
            std::vector<QRgb> target(200, 0);
            PixelRows::copyPastCache(target.data() + start, source.data(), static_cast<qsizetype>(count));
            for (std::size_t i = 0; i < target.size(); ++i) {
                const bool isInside = i >= start && i < start + count;
                ASSERT_EQ(target[i], isInside ? source[i - start] : 0) << start << " " << count << " " << i;
            }
        }
    }
}

TEST(PixelRows, OnePixelThatIsNotOpaqueIsFoundWhereverItStands)
{
    std::vector<QRgb> pixels(70, 0xff000000);
    EXPECT_TRUE(PixelRows::areOpaque(pixels.data(), 0));
    EXPECT_TRUE(PixelRows::areOpaque(pixels.data(), 70));
    for (qsizetype i = 0; i < 70; ++i) {
        QRgb &pixel = pixels[static_cast<std::size_t>(i)];
        pixel = 0xfeffffff;
        EXPECT_FALSE(PixelRows::areOpaque(pixels.data(), 70)) << i;
        EXPECT_TRUE(PixelRows::areOpaque(pixels.data(), i)) << i;
        pixel = 0xffffffff;
    }
}

TEST(PixelRows, FillingWritesSoManyPixelsAndNoOther)
{
    for (qsizetype count = 0; count < 70; ++count) {
        std::vector<QRgb> row(72, 7U);
        PixelRows::fill(row.data() + 1, count, 0xff123456U);
        EXPECT_EQ(std::ranges::count(row, 0xff123456U), count);
        EXPECT_EQ(row[0], 7U);
        EXPECT_EQ(row[static_cast<std::size_t>(count) + 1], 7U);
    }
}
