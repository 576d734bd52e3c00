#include "live/WallPicture.h"

#include "drawing/Raster.h"

#include <gtest/gtest.h>

namespace {
/// Each pixel says where it is.
QImage placesOf(int width, int height)
{
    QImage picture = Raster::make(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            picture.setPixelColor(x, y, QColor(x, y, 77));
    }
    return picture;
}

qint64 whitePixels(const QImage &picture)
{
    qint64 count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixel(x, y) == qRgb(255, 255, 255) ? 1 : 0;
    }
    return count;
}

WallLook lit(std::vector<WallLight> lights)
{
    WallLook look;
    look.lights = std::move(lights);
    return look;
}
} // namespace

TEST(WallPicture, APartIsThatOfTheOutputAndBlackBeyondIt)
{
    const QImage picture = WallPicture::draw(placesOf(20, 10), {}, QRect(-2, 5, 30, 9));
    ASSERT_EQ(picture.size(), QSize(30, 9));
    EXPECT_EQ(picture.pixel(2, 0), qRgb(0, 5, 77));
    EXPECT_EQ(picture.pixel(21, 4), qRgb(19, 9, 77));
    for (const QPoint &beyond : {QPoint(1, 0), QPoint(22, 0), QPoint(2, 5)})
        EXPECT_EQ(picture.pixel(beyond), qRgb(0, 0, 0));
    EXPECT_EQ(WallPicture::draw({}, {}, QRect(0, 0, 3, 2)).pixel(1, 1), qRgb(0, 0, 0));
}

TEST(WallPicture, WhatIsTransparentIsBlack)
{
    QImage output = Raster::make(2, 1);
    output.setPixelColor(0, 0, QColor(255, 0, 0, 128));
    const QImage picture = WallPicture::draw(output, {}, QRect(0, 0, 2, 1));
    EXPECT_EQ(picture.pixel(0, 0), qRgb(128, 0, 0));
    EXPECT_EQ(picture.pixel(1, 0), qRgb(0, 0, 0));
}

TEST(WallPicture, BlackoutWinsOverAllAndLightsOverWhatIsFrozen)
{
    const QImage output = placesOf(20, 10);
    WallLook look = lit({{QRect(4, 4, 2, 2)}});
    look.frozen = placesOf(20, 10);
    look.frozen.fill(Qt::red);
    EXPECT_EQ(whitePixels(WallPicture::draw(output, look, output.rect())), 4);
    look.isBlack = true;
    EXPECT_EQ(WallPicture::draw(output, look, output.rect()).pixel(4, 4), qRgb(0, 0, 0));
    look.isBlack = false;
    look.lights.reset();
    EXPECT_EQ(WallPicture::draw(output, look, output.rect()).pixel(4, 4), qRgb(255, 0, 0));
    look.frozen = {};
    EXPECT_EQ(WallPicture::draw(output, look, output.rect()).pixel(4, 4), qRgb(4, 4, 77));
}

TEST(WallPicture, NothingLitIsBlack)
{
    const QImage output = placesOf(20, 10);
    EXPECT_EQ(WallPicture::draw(output, lit({}), output.rect()).pixel(4, 4), qRgb(0, 0, 0));
}

TEST(WallPicture, ACrossGoesThroughTheWholeOutput)
{
    const QImage output = placesOf(21, 11);
    const QImage picture = WallPicture::draw(output, lit({{QRect(4, 4, 3, 3), {}, true}}), output.rect());
    EXPECT_EQ(whitePixels(picture), 9 + 21 + 11 - 6);
    EXPECT_EQ(picture.pixel(5, 0), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(20, 5), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(6, 0), qRgb(0, 0, 0));
}

TEST(WallPicture, WordsStandInThePanelAndNowhereElse)
{
    const QImage output = placesOf(200, 100);
    const QRect panel(20, 20, 64, 32);
    const QImage plain = WallPicture::draw(output, lit({{panel}}), output.rect());
    const QImage named = WallPicture::draw(output, lit({{panel, {"C7", "A3.12"}}}), output.rect());
    EXPECT_NE(named, plain);
    QImage outside = named;
    for (int y = panel.top(); y <= panel.bottom(); ++y) {
        for (int x = panel.left(); x <= panel.right(); ++x)
            outside.setPixelColor(x, y, Qt::white);
    }
    EXPECT_EQ(outside, plain);
    const QImage tiny = WallPicture::draw(output, lit({{QRect(20, 20, 2, 1), {"C7", "A3.12"}}}), output.rect());
    EXPECT_LE(whitePixels(tiny), 2);
}

TEST(WallPicture, ALevelIsRoundedHalfUp)
{
    QImage output = Raster::make(256, 1);
    for (int x = 0; x < 256; ++x)
        output.setPixelColor(x, 0, QColor(x, 255 - x, 5));
    for (const int level : {100, 75, 50, 25, 10}) {
        WallLook look;
        look.level = level;
        const QImage picture = WallPicture::draw(output, look, output.rect());
        for (int x = 0; x < 256; ++x) {
            const auto dimmed = [&](int value) { return (value * level + 50) / 100; };
            ASSERT_EQ(picture.pixel(x, 0), qRgb(dimmed(x), dimmed(255 - x), dimmed(5))) << level << " at " << x;
        }
    }
    WallLook half;
    half.level = 50;
    EXPECT_EQ(WallPicture::draw(output, half, output.rect()).pixel(255, 0), qRgb(128, 0, 3));
}

TEST(WallPicture, OnlyWhatDiffersIsToBePaintedAnew)
{
    const QSize size(100, 50);
    const QImage output = placesOf(100, 50);
    const WallLook before = lit({{QRect(10, 10, 8, 8), {"A1"}, true}});
    const WallLook after = lit({{QRect(60, 30, 8, 8), {"B2"}, true}});
    const std::optional<QRegion> where = WallPicture::difference(before, after, size);
    ASSERT_TRUE(where);
    const QImage old = WallPicture::draw(output, before, output.rect());
    const QImage now = WallPicture::draw(output, after, output.rect());
    for (int y = 0; y < 50; ++y) {
        for (int x = 0; x < 100; ++x) {
            if (!where->contains(QPoint(x, y))) {
                ASSERT_EQ(old.pixel(x, y), now.pixel(x, y)) << x << "," << y;
            }
        }
    }
    EXPECT_FALSE(where->contains(QPoint(1, 1)));
    EXPECT_EQ(WallPicture::difference(before, before, size), QRegion());
    EXPECT_EQ(WallPicture::difference(before, {}, size), std::nullopt);
    WallLook black = before;
    black.isBlack = true;
    EXPECT_EQ(WallPicture::difference(before, black, size), std::nullopt);
}

TEST(WallPicture, AnyPartIsTheSameAsInTheWhole)
{
    const QImage output = placesOf(90, 60);
    WallLook look = lit({{QRect(30, 20, 20, 16), {"C7", "A3.12"}, true}});
    look.level = 50;
    const QImage whole = WallPicture::draw(output, look, output.rect());
    for (int x = 0; x < 80; x += 7) {
        const QRect part(x, x / 2, 9, 11);
        ASSERT_EQ(WallPicture::draw(output, look, part), whole.copy(part)) << x;
    }
}
