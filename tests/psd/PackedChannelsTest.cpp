#include "psd/PackedChannels.h"

#include "tests/psd/PlainPackBits.h"

#include <QThread>

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {
/// An image whose channels are easily told apart.
QImage pattern(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgba(x * 7 % 256, y, x / 50, 255));
    }
    return image;
}

QByteArray plane(const QImage &image, int y, int channel)
{
    QByteArray bytes;
    for (int x = 0; x < image.width(); ++x) {
        const QRgb pixel = reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
        bytes.append(static_cast<char>(std::array{qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)}[channel]));
    }
    return bytes;
}

/// A channel's rows without their bands.
PackedRows joined(const PackedChannel &channel)
{
    PackedRows all;
    for (const PackedRows &rows : channel) {
        all.counts.insert(all.counts.end(), rows.counts.begin(), rows.counts.end());
        all.bytes += rows.bytes;
    }
    return all;
}

std::vector<PackedRows> packChannels(const PixelView &pixels, const Placement &placement, int count)
{
    ChannelPacker packer;
    std::vector<PackedRows> channels;
    for (const PackedChannel &channel : packer.pack(pixels, placement, count))
        channels.push_back(joined(channel));
    return channels;
}

QByteArray row(const PackedRows &rows, int y)
{
    qsizetype start = 0;
    for (int i = 0; i < y; ++i)
        start += rows.counts[i];
    return rows.bytes.mid(start, rows.counts[y]);
}

void expectPlain(const QImage &image)
{
    const PixelView pixels = PixelView::ofRaster(image);
    const auto channels = packChannels(pixels, Placement::filledBy(pixels), 4);
    ASSERT_EQ(channels.size(), 4u);
    for (int channel = 0; channel < 4; ++channel) {
        ASSERT_EQ(channels[channel].counts.size(), image.height());
        for (int y = 0; y < image.height(); ++y)
            ASSERT_EQ(row(channels[channel], y), PlainPackBits::pack(plane(image, y, channel))) << channel << ' ' << y;
    }
}
} // namespace

TEST(PackedChannels, ChannelsComeInTheOrderRedGreenBlueAlpha)
{
    QImage image(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.setPixel(0, 0, qRgba(1, 2, 3, 4));
    const PixelView pixels = PixelView::ofRaster(image);
    const auto channels = packChannels(pixels, Placement::filledBy(pixels), 4);
    for (int channel = 0; channel < 4; ++channel)
        EXPECT_EQ(channels[channel].bytes, QByteArray("\0", 1) + char(channel + 1));
}

TEST(PackedChannels, BytesMayStandInAnyOrder)
{
    const QByteArray rgba("\1\2\3\4", 4);
    const PixelView pixels{reinterpret_cast<const uchar *>(rgba.constData()), 4, 1, 1, {0, 1, 2, 3}};
    const auto channels = packChannels(pixels, Placement::filledBy(pixels), 3);
    ASSERT_EQ(channels.size(), 3u);
    EXPECT_EQ(channels[2].bytes, QByteArray("\0\3", 2));
}

TEST(PackedChannels, EveryWidthIsPackedAsByThePlainWay)
{
    for (int width = 1; width < 200; ++width)
        expectPlain(pattern(width, 2));
    expectPlain(pattern(1921, 3));
}

TEST(PackedChannels, RowsThatRepeatInOneChannelOrInAllArePackedAlike)
{
    std::minstd_rand random(7);
    QImage image = pattern(97, 200);
    for (int y = 1; y < image.height(); ++y) {
        if (random() % 3 != 0)
            std::memcpy(image.scanLine(y), image.constScanLine(y - 1), static_cast<std::size_t>(image.bytesPerLine()));
        if (random() % 3 == 0)
            image.setPixel(static_cast<int>(random() % 97), y, qRgba(200, 0, 0, 255));
    }
    expectPlain(image);
}

TEST(PackedChannels, LargeImagesArePackedInBands)
{
    const QImage image = pattern(1000, 700);
    const PixelView pixels = PixelView::ofRaster(image);
    ChannelPacker packer;
    const auto channels = packer.pack(pixels, Placement::filledBy(pixels), 4);
    EXPECT_EQ(channels[0].size(), std::clamp(QThread::idealThreadCount(), 1, 5));
    expectPlain(image);
}

TEST(PackedChannels, BlankSamplesSurroundThePixels)
{
    const QImage image = pattern(5, 2);
    const auto channels = packChannels(PixelView::ofRaster(image), {5, 12, 1, 4, 3, 9}, 4);
    for (int channel = 0; channel < 4; ++channel) {
        const QByteArray blank = PlainPackBits::pack(QByteArray(12, 9));
        EXPECT_EQ(row(channels[channel], 0), blank);
        for (int y = 0; y < 2; ++y)
            EXPECT_EQ(row(channels[channel], y + 1), PlainPackBits::pack(QByteArray(4, 9)) +
                                                         PlainPackBits::pack(plane(image, y, channel)) +
                                                         PlainPackBits::pack(QByteArray(3, 9)));
        EXPECT_EQ(row(channels[channel], 3), blank);
        EXPECT_EQ(row(channels[channel], 4), blank);
    }
}

TEST(PackedChannels, PixelsAtAnEdgeHaveNoMarginThere)
{
    const QImage image = pattern(5, 1);
    const auto channels = packChannels(PixelView::ofRaster(image), {1, 5, 0, 0, 0, 0}, 4);
    EXPECT_EQ(channels[0].bytes, PlainPackBits::pack(plane(image, 0, 0)));
}

TEST(PackedChannels, RowsBelowTheLastAreLeftOut)
{
    const QImage image = pattern(5, 9);
    const auto channels = packChannels(PixelView::ofRaster(image), {4, 5, 2, 0, 0, 0}, 4);
    ASSERT_EQ(channels[1].counts.size(), 4u);
    EXPECT_EQ(row(channels[1], 3), PlainPackBits::pack(plane(image, 1, 1)));
}

TEST(PackedChannels, WithoutPixelsEveryRowIsBlank)
{
    const auto channels = packChannels({}, {3, 4, 0, 0, 0, 0}, 4);
    EXPECT_EQ(channels[3].bytes.toHex(), "fd00fd00fd00");
}
