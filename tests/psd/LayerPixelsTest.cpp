#include "psd/LayerPixels.h"

#include "tests/psd/PsdFixtures.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {
std::string unpremultiplied(const char *digits)
{
    QByteArray block = QByteArray::fromHex(digits);
    LayerPixels::unpremultiply(block);
    return hex(block);
}

/// A block of pixels whose four bytes are their number.
QByteArray numbered(int count)
{
    QByteArray block;
    for (int pixel = 0; pixel < count; ++pixel)
        block.append(4, static_cast<char>(pixel));
    return block;
}

/// The numbers of a block's pixels after a flip of it as a picture of a size.
std::vector<int> flipped(int count, qint64 width, qint64 height)
{
    QByteArray block = numbered(count);
    LayerPixels::flip(block, width, height);
    std::vector<int> numbers;
    for (qsizetype i = 0; i < block.size(); i += 4)
        numbers.push_back(block[i]);
    return numbers;
}
} // namespace

TEST(LayerPixels, ABlockIsRedGreenBlueAlpha)
{
    EXPECT_EQ(hex(LayerPixels::blockOf(numberedRaster(2, 2), 2, 2)), "00 00 64 ff 01 00 64 ff 00 01 64 ff 01 01 64 ff");
}

TEST(LayerPixels, ABlockMayBeSmallerOrLargerThanTheRaster)
{
    EXPECT_EQ(hex(LayerPixels::blockOf(numberedRaster(2, 2), 1, 1)), "00 00 64 ff");
    EXPECT_EQ(hex(LayerPixels::blockOf(numberedRaster(1, 1), 2, 2)), "00 00 64 ff 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(hex(LayerPixels::blockOf({}, 1, 1)), "00 00 00 00");
    EXPECT_EQ(hex(LayerPixels::blockOf(numberedRaster(1, 1), 0, 0)), "");
}

TEST(LayerPixels, ColoursAreDividedByAlphaAndCut)
{
    EXPECT_EQ(unpremultiplied("33001033"), "ff 00 50 33"); // 51 / (51 / 255), 16 / (51 / 255)
    EXPECT_EQ(unpremultiplied("01020380"), "01 03 05 80"); // 1.99, 3.98, 5.98
    EXPECT_EQ(unpremultiplied("102030ff"), "10 20 30 ff");
}

TEST(LayerPixels, ColoursAboveAlphaAreLimited)
{
    EXPECT_EQ(unpremultiplied("40ff2010"), "ff ff ff 10");
}

TEST(LayerPixels, TransparentPixelsTurnWhite)
{
    EXPECT_EQ(unpremultiplied("00000000"), "ff ff ff 00");
    EXPECT_EQ(unpremultiplied("05000000"), "ff ff ff 00");
}

TEST(LayerPixels, EveryColourOfEveryAlphaIsDividedInDoublePrecision)
{
    for (int alpha = 1; alpha < 256; ++alpha) {
        for (int colour = 0; colour < 256; ++colour) {
            QByteArray pixel(3, static_cast<char>(colour));
            pixel.append(static_cast<char>(alpha));
            LayerPixels::unpremultiply(pixel);
            const double divided = std::min(colour / (alpha / 255.0), 255.0);
            ASSERT_EQ(static_cast<uchar>(pixel[1]), static_cast<int>(divided)) << colour << " of " << alpha;
        }
    }
}

TEST(LayerPixels, AFlipTurnsUpsideDown)
{
    EXPECT_EQ(flipped(6, 2, 3), (std::vector{4, 5, 2, 3, 0, 1}));
    EXPECT_EQ(flipped(4, 1, 4), (std::vector{3, 2, 1, 0}));
    EXPECT_EQ(flipped(1, 1, 1), (std::vector{0}));
}

TEST(LayerPixels, PixelsWithoutACounterpartStay)
{
    EXPECT_EQ(flipped(5, 2, 3), (std::vector{4, 1, 2, 3, 0}));
    EXPECT_EQ(flipped(4, 2, 3), (std::vector{0, 1, 2, 3}));
    EXPECT_EQ(flipped(5, 2, 4), (std::vector{0, 1, 4, 3, 2}));
    EXPECT_EQ(flipped(3, 30000, 30000), (std::vector{0, 1, 2}));
    EXPECT_EQ(flipped(0, 2, 2), (std::vector<int>{}));
}

TEST(LayerPixels, OfALargerBlockOnlyTheDocumentsPixelsAreTurned)
{
    EXPECT_EQ(flipped(6, 2, 2), (std::vector{2, 3, 0, 1, 4, 5}));
}
