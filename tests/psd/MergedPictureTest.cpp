#include "psd/MergedPicture.h"

#include "drawing/Raster.h"
#include "psd/PackedChannels.h"
#include "tests/base/Threads.h"
#include "tests/base/UnreadableMemory.h"
#include "tests/psd/PsdFixtures.h"

#include <QPainter>

#include <gtest/gtest.h>
#include <random>
#include <vector>

using Background = MergedPicture::Background;

namespace {
struct Step
{
    QImage image;
    QPointF topLeft;
    double opacity = 1;

    QRectF target() const { return {topLeft, QSizeF(image.size())}; }
};

/// Everything drawn at once on one surface: what rows that are drawn by themselves must agree with.
QImage plain(const QSize &size, Background background, const std::vector<Step> &steps)
{
    QImage whole = Raster::make(size.width(), size.height());
    whole.fill(background == Background::White ? Qt::white : Qt::transparent);
    QPainter painter(&whole);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const Step &step : steps) {
        painter.setOpacity(step.opacity);
        painter.drawImage(step.target(), step.image);
    }
    return whole;
}

MergedPicture merged(const QSize &size, Background background, const std::vector<Step> &steps)
{
    MergedPicture picture(size.width(), size.height(), background);
    for (const Step &step : steps)
        EXPECT_TRUE(picture.draw(step.image, step.target(), step.opacity));
    return picture;
}

/// Noise; of one in three images all pixels are opaque, of one some rows.
QImage noise(std::minstd_rand &random, int width, int height)
{
    QImage image = Raster::make(width, height);
    const auto kind = random() % 3;
    for (int y = 0; y < height; ++y) {
        const bool isOpaque = kind == 0 || (kind == 1 && random() % 4 != 0);
        for (int x = 0; x < width; ++x) {
            const auto pixel = static_cast<QRgb>(random());
            reinterpret_cast<QRgb *>(image.scanLine(y))[x] = isOpaque ? pixel | 0xff000000 : qPremultiply(pixel << 3);
        }
    }
    return image;
}

std::vector<Step> randomSteps(std::minstd_rand &random, const QSize &size)
{
    std::vector<Step> steps;
    for (int i = 0; i < 7; ++i) {
        const QImage image = noise(random, 1 + static_cast<int>(random() % (size.width() + 9)),
                                   1 + static_cast<int>(random() % (size.height() + 9)));
        const QPointF topLeft(static_cast<int>(random() % size.width()) - 5.0,
                              static_cast<int>(random() % size.height()) - 5.0);
        steps.push_back({image, topLeft, random() % 3 == 0 ? 0.3 : 1});
    }
    return steps;
}

QByteArray packedBytes(std::span<const PackedChannel> channels)
{
    ByteBuffer buffer;
    appendTogether(buffer, channels);
    return buffer.takeBytes();
}
} // namespace

class MergedPictureByThreads : public testing::TestWithParam<int>
{
    Threads m_threads{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Processors, MergedPictureByThreads, testing::Values(1, 2, 8));

TEST_P(MergedPictureByThreads, ItsPixelsAreThoseOfOneDrawing)
{
    std::minstd_rand random(17);
    for (const int height : {1, 2, 15, 16, 17, 31, 32, 33, 95, 200}) {
        for (const int width : {1, 61, 333}) {
            const QSize size(width, height);
            const std::vector<Step> steps = randomSteps(random, size);
            for (const Background background : {Background::Transparent, Background::White})
                EXPECT_EQ(merged(size, background, steps).pixels(), plain(size, background, steps))
                    << width << ' ' << height;
        }
    }
}

TEST_P(MergedPictureByThreads, ItIsPackedAsIfItHadBeenDrawnBefore)
{
    std::minstd_rand random(18);
    for (const QSize size : {QSize(5, 1), QSize(61, 33), QSize(1021, 128), QSize(1021, 129), QSize(1021, 517)}) {
        const std::vector<Step> steps = randomSteps(random, size);
        const QImage whole = plain(size, Background::Transparent, steps);
        const PixelView view = PixelView::ofRaster(whole);
        ChannelPacker packer;
        const QByteArray expected = packedBytes(packer.pack(view, Placement::filledBy(view), 4));
        EXPECT_EQ(packedBytes(packer.pack(merged(size, Background::Transparent, steps), 4)), expected);
    }
}

TEST(MergedPicture, RowsAreComparedWithThoseAboveThem)
{
    // As many rows of each colour as are drawn at a time.
    const QSize size(3, 64);
    const std::vector<Step> steps = {
        {raster(3, 64, Qt::red), {0, 0}}, {raster(3, 16, Qt::blue), {0, 16}}, {raster(3, 16, Qt::green), {0, 48}}};
    const QImage whole = plain(size, Background::White, steps);
    const PixelView view = PixelView::ofRaster(whole);
    ChannelPacker packer;
    const QByteArray expected = packedBytes(packer.pack(view, Placement::filledBy(view), 4));
    EXPECT_EQ(packedBytes(packer.pack(merged(size, Background::White, steps), 4)), expected);
}

TEST(MergedPicture, WithoutASizeThereIsNone)
{
    const QImage image = raster(1, 1, Qt::red);
    for (const QSize size : {QSize(0, 0), QSize(7, 0), QSize(-3, 7), QSize(30'000, 30'000)}) {
        MergedPicture picture(size.width(), size.height(), Background::White);
        EXPECT_TRUE(picture.isNull());
        EXPECT_FALSE(picture.draw(image, QRectF(0, 0, 1, 1), 1));
        EXPECT_TRUE(picture.pixels().isNull());
    }
    EXPECT_TRUE(MergedPicture().pixels().isNull());
}

TEST(MergedPicture, WhatIsDrawnAfterTheFirstLookLiesOverTheRest)
{
    std::minstd_rand random(19);
    const QSize size(61, 33);
    const std::vector<Step> steps = randomSteps(random, size);
    MergedPicture picture(size.width(), size.height(), Background::White);
    for (const Step &step : steps) {
        ASSERT_TRUE(picture.draw(step.image, step.target(), step.opacity));
        const QImage pixels = picture.pixels();
        EXPECT_EQ(picture.pixels().cacheKey(), pixels.cacheKey());
    }
    EXPECT_EQ(picture.pixels(), plain(size, Background::White, steps));
}

TEST(MergedPicture, ImagesBetweenPixelsAreDrawnAsOnOneSurface)
{
    std::minstd_rand random(20);
    const QSize size(61, 133);
    for (const QPointF &fraction : {QPointF(0.3, 0.75), QPointF(0, 0.5), QPointF(0.5, 0)}) {
        std::vector<Step> steps = randomSteps(random, size);
        for (Step &step : steps)
            step.topLeft += random() % 2 == 0 ? fraction : QPointF();
        EXPECT_EQ(merged(size, Background::Transparent, steps).pixels(), plain(size, Background::Transparent, steps));
    }
}

TEST(MergedPicture, ACopyKeepsWhatItHas)
{
    const QSize size(3, 2);
    MergedPicture picture = merged(size, Background::White, {{raster(1, 1, Qt::red), {0, 0}}});
    const MergedPicture unseen = picture;
    const QImage before = picture.pixels();
    const MergedPicture seen = picture;
    EXPECT_TRUE(picture.draw(raster(1, 1, Qt::blue), QRectF(1, 1, 1, 1), 1));
    EXPECT_TRUE(picture.draw(raster(1, 1, Qt::blue), QRectF(1.5, 0.5, 1, 1), 1));
    EXPECT_NE(picture.pixels(), before);
    EXPECT_EQ(unseen.pixels(), before);
    EXPECT_EQ(seen.pixels(), before);
    EXPECT_EQ(QColor(before.pixel(1, 1)), QColor(Qt::white));
}

TEST(MergedPicture, WhatOpaqueImagesHideIsNotRead)
{
    constexpr int side = 64;
    constexpr std::size_t bytes = side * side * sizeof(QRgb);
    const UnreadableMemory unreadable(bytes);
    ASSERT_NE(unreadable.data(), nullptr);
    const QImage hidden(unreadable.data(), side, side, side * 4, Raster::format);
    const std::vector<Step> steps = {
        {hidden, {10, 0}}, {raster(40, 64, Qt::red), {10, 0}}, {raster(24, 64, Qt::blue), {50, 0}}};

    const QImage pixels = merged({80, 64}, Background::White, steps).pixels();

    EXPECT_EQ(QColor(pixels.pixel(9, 63)), QColor(Qt::white));
    EXPECT_EQ(QColor(pixels.pixel(10, 0)), QColor(Qt::red));
    EXPECT_EQ(QColor(pixels.pixel(73, 63)), QColor(Qt::blue));
    EXPECT_EQ(QColor(pixels.pixel(74, 63)), QColor(Qt::white));
}
