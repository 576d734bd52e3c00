#include "live/WallWindow.h"

#include "live/IdentifyCard.h"
#include "output/DevicePixels.h"

#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

namespace {
/// Each pixel of the plane says where it is.
QImage placesIn(const QRect &part)
{
    QImage picture(part.size(), QImage::Format_RGB32);
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x)
            picture.setPixel(x, y, qRgb(part.x() + x, part.y() + y, 9));
    }
    return picture;
}

class PaintCount final : public QObject
{
public:
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

QImage grabbed(WallWindow &window)
{
    return window.grab().toImage();
}

/// A window of 40 x 30 that shows this region.
QImage shown(const WallRegion &region)
{
    WallWindow window(placesIn);
    window.resize(40, 30);
    window.setRegion(region);
    return grabbed(window);
}
} // namespace

TEST(WallWindow, ShowsItsRegionPixelForPixel)
{
    const QImage upright = shown({{7, 3}});
    EXPECT_EQ(upright.pixel(0, 0), qRgb(7, 3, 9));
    EXPECT_EQ(upright.pixel(39, 29), qRgb(46, 32, 9));
    const QImage right = shown({{7, 3}, 90}); // the part is 30 x 40, and its upper left corner at the upper right
    EXPECT_EQ(right.pixel(39, 0), qRgb(7, 3, 9));
    EXPECT_EQ(right.pixel(39, 29), qRgb(36, 3, 9));
    EXPECT_EQ(right.pixel(0, 0), qRgb(7, 42, 9));
    const QImage over = shown({{7, 3}, 180});
    EXPECT_EQ(over.pixel(39, 29), qRgb(7, 3, 9));
    EXPECT_EQ(over.pixel(0, 0), qRgb(46, 32, 9));
    const QImage left = shown({{7, 3}, 270});
    EXPECT_EQ(left.pixel(0, 29), qRgb(7, 3, 9));
    EXPECT_EQ(left.pixel(39, 0), qRgb(36, 42, 9));
}

TEST(WallWindow, OnlyWhatIsRenewedIsDrawn)
{
    for (const int turn : {0, 90, 180, 270}) {
        QRegion drawn;
        WallWindow window([&](const QRect &part) {
            drawn += part;
            return placesIn(part);
        });
        window.resize(40, 30);
        window.setRegion({{100, 50}, turn});
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(20);
        drawn = {};
        window.renew(QRect(104, 53, 6, 5));
        window.renew(QRect(0, 0, 50, 50)); // on another display
        QTest::qWait(20);
        EXPECT_EQ(drawn, QRegion(104, 53, 6, 5)) << turn;
    }
}

/// Run at other scales too.
TEST(WallWindowOnScreen, WhatIsRenewedIsDrawnAndLittleElse)
{
    for (const int turn : {0, 90, 180, 270}) {
        QRegion drawn;
        WallWindow window([&](const QRect &part) {
            drawn += part;
            return placesIn(part);
        });
        window.resize(41, 31);
        window.setRegion({{50, 40}, turn});
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        QTest::qWait(50);
        for (const QRect &part : {QRect(53, 44, 1, 1), QRect(61, 47, 7, 5), QRect(55, 41, 1, 20)}) {
            drawn = {};
            window.renew(part);
            QTest::qWait(20);
            EXPECT_TRUE((QRegion(part) - drawn).isEmpty()) << turn << ": " << part.x();
            EXPECT_TRUE((drawn - part.adjusted(-5, -5, 5, 5)).isEmpty()) << turn << ": " << part.x();
        }
    }
}

TEST(WallWindow, ACardFramesTheDisplayAndGoes)
{
    WallWindow window(placesIn);
    window.resize(200, 100);
    const QImage without = grabbed(window);
    window.setCard({"1: DP-2", "200 × 100 from 0, 0"});
    const QImage with = grabbed(window);
    for (const QPoint &corner : {QPoint(0, 0), QPoint(199, 0), QPoint(0, 99), QPoint(199, 99), QPoint(80, 0)})
        EXPECT_EQ(with.pixel(corner), qRgb(255, 255, 255)) << corner.x() << "," << corner.y();
    EXPECT_EQ(with.pixel(1, 1), without.pixel(1, 1));
    EXPECT_EQ(with.pixel(61, 50), qRgb(0, 0, 0)); // the card is 80 x 20, in the middle
    window.setCard({});
    EXPECT_EQ(grabbed(window), without);
}

TEST(WallWindow, OnASurfaceOfAnotherScaleItIsExactAndPaintedAgain)
{
    WallWindow window(placesIn);
    window.resize(40, 30);
    window.setRegion({{7, 3}});
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(50);
    QImage surface(QSize(40, 30) * 2, QImage::Format_RGB32);
    surface.setDevicePixelRatio(2);
    PaintCount paints;
    window.installEventFilter(&paints);
    window.render(&surface);
    surface.setDevicePixelRatio(1);
    EXPECT_EQ(surface.copy(QRect(0, 0, 40, 30)), placesIn({7, 3, 40, 30}));
    EXPECT_EQ(paints.count, 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count == 2; }, 1000));
    QTest::qWait(50);
    EXPECT_EQ(paints.count, 2); // its own surface has the right scale
}

TEST(DevicePixels, APainterOfAnyScaleDrawsPixelForPixel)
{
    const QImage picture = placesIn({0, 0, 60, 40});
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        QImage surface((QSizeF(60, 40)).toSize(), QImage::Format_RGB32);
        surface.setDevicePixelRatio(ratio);
        QPainter painter(&surface);
        EXPECT_TRUE(toDevicePixels(painter, ratio));
        painter.drawImage(0, 0, picture);
        painter.end();
        surface.setDevicePixelRatio(1);
        EXPECT_EQ(surface, picture) << ratio;
    }
}

TEST(DevicePixels, ASurfaceThatHasNotItsScaleYetIsTold)
{
    QImage surface(60, 40, QImage::Format_RGB32);
    surface.fill(Qt::black);
    QPainter painter(&surface);
    EXPECT_FALSE(toDevicePixels(painter, 2));
    painter.drawImage(0, 0, placesIn({0, 0, 60, 40}));
    painter.end();
    EXPECT_EQ(surface, placesIn({0, 0, 60, 40}));
}
