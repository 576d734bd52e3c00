#include "windows/OutputView.h"

#include "live/ShownOutput.h"
#include "output/CanvasFrame.h"
#include "windows/Theme.h"

#include <QEvent>
#include <QTest>

#include <gtest/gtest.h>

namespace {
constexpr int lineDistance = 60;

/// White lines of one pixel on black, upright and level, 60 pixels apart.
QImage picturedLines(const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (x % lineDistance == 7 || y % lineDistance == 7)
                picture.setPixelColor(x, y, Qt::white);
        }
    }
    return picture;
}

QImage picturedNoise(const QSize &size)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, QColor(x * 37 % 256, y * 53 % 256, (x + y) * 11 % 256));
    }
    return picture;
}
} // namespace

class OutputViewTest : public ::testing::Test
{
protected:
    OutputViewTest()
    {
        Theme::apply();
        resizeTo({800, 600});
        view.setOutput(source);
        showOutput(picturedNoise({1920, 1080}));
    }

    void resizeTo(const QSize &size) { view.resize(size); }
    QImage seen() { return view.grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied); }
    /// Where an output of this size is seen, in device pixels.
    QRect placeOf(const QSize &output)
    {
        CanvasFrame frame;
        frame.setRoom(seen().size(), qRound(Theme::edge * view.devicePixelRatioF()));
        frame.setOutput(output);
        return frame.place();
    }

    /// As if it had just been composed.
    void showOutput(const QImage &picture)
    {
        shown.picture = picture;
        source.takeComposed();
    }

    ComposedOutput shown;
    LiveChart chart{[] { return qint64{0}; }};
    ShownOutput source{shown, chart};
    OutputView view;
};

TEST_F(OutputViewTest, TheOutputStandsInTheMiddleWithTheEdgeFree)
{
    const QImage picture = seen();
    const QRect place = placeOf({1920, 1080});
    const int edge = qRound(Theme::edge * view.devicePixelRatioF());
    EXPECT_EQ(place.x(), edge);
    EXPECT_EQ(place.width(), picture.width() - 2 * edge);
    EXPECT_NE(picture.pixelColor(place.bottomRight()), Theme::line);
    EXPECT_EQ(picture.pixelColor(place.bottomRight() + QPoint(1, 1)), Theme::line);
}

TEST_F(OutputViewTest, NoOnePixelLineVanishesWhenReduced)
{
    const QSize size(1920, 1080);
    for (const QSize windowSize : {QSize(800, 500), QSize(1280, 720)}) {
        resizeTo(windowSize);
        showOutput(picturedLines(size));
        const QRect place = placeOf({1920, 1080});
        const QImage picture = seen().copy(place);
        ASSERT_LT(picture.width(), size.width());

        const double scale = double(picture.width()) / size.width();
        const auto brightness = [&](int x, int y) { return picture.pixelColor(x, y).red(); };
        // A line's light, spread over two pixels at worst.
        const int least = static_cast<int>(255 * scale / 2) - 2;
        const int between = static_cast<int>(37 * scale);
        for (int line = 7; line < size.width(); line += lineDistance) {
            const int x = static_cast<int>((line + 0.5) * scale);
            EXPECT_GE(brightness(x, between), least) << "upright line " << line;
        }
        for (int line = 7; line < size.height(); line += lineDistance) {
            const int y = static_cast<int>((line + 0.5) * picture.height() / size.height());
            EXPECT_GE(brightness(between, y), least) << "level line " << line;
        }
    }
}

TEST_F(OutputViewTest, AtFullSizeEveryPixelIsTheOutputs)
{
    const QImage output = picturedNoise({601, 301});
    showOutput(output);
    resizeTo({700, 350});
    const QRect place(QPoint((seen().width() - 601) / 2, (seen().height() - 301) / 2), output.size());
    EXPECT_EQ(seen().copy(place), output);
}

TEST_F(OutputViewTest, AboveFullSizeEveryPixelIsABlock)
{
    const QImage output = picturedNoise({101, 51});
    showOutput(output);
    const QImage picture = seen();
    const QRect place = placeOf(output.size());
    ASSERT_GE(place.width() / 101, 2);
    EXPECT_EQ(picture.copy(place), output.scaled(place.size()));
}

TEST_F(OutputViewTest, AFrameOfOnePixelLiesOutsideTheOutput)
{
    const QImage picture = seen();
    const QRect place = placeOf({1920, 1080});
    const QRect frame = place.adjusted(-1, -1, 1, 1);
    for (const QPoint corner : {frame.topLeft(), frame.topRight(), frame.bottomLeft(), frame.bottomRight()})
        EXPECT_EQ(picture.pixelColor(corner), Theme::line);
    EXPECT_EQ(picture.pixelColor(frame.topLeft() - QPoint(1, 1)), Theme::ground);
}

TEST_F(OutputViewTest, TheGroundShowsThroughATransparentOutput)
{
    QImage output(400, 300, QImage::Format_ARGB32_Premultiplied);
    output.fill(Qt::transparent);
    showOutput(output);
    EXPECT_EQ(seen().pixelColor(seen().rect().center()), Theme::ground);
}

TEST_F(OutputViewTest, NoOutputIsSaidInWords)
{
    showOutput(QImage());
    const QImage picture = seen();
    const QRect middle(picture.rect().center() - QPoint(40, 8), QSize(80, 16));
    QImage empty = picture.copy(middle);
    empty.fill(Theme::ground);
    EXPECT_NE(picture.copy(middle), empty);
}

TEST_F(OutputViewTest, TheOutputsPixelsAreNotHeld)
{
    showOutput(picturedNoise({1641, 481}));
    seen();
    EXPECT_TRUE(shown.picture.isDetached());
}

TEST_F(OutputViewTest, WhatIsThereWhenItIsPaintedIsShown)
{
    seen();
    shown.picture.fill(Qt::green);
    EXPECT_EQ(seen().pixelColor(seen().rect().center()), QColor(Qt::green));
    shown.picture.fill(Qt::blue);
    EXPECT_EQ(seen().pixelColor(seen().rect().center()), QColor(Qt::blue));
}
