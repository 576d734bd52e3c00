#include "output/CanvasFrame.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
/// An output of 1920 x 1080 in a room of 664 x 384 with a margin of 12.
class CanvasFrameTest : public ::testing::Test
{
protected:
    CanvasFrameTest()
    {
        frame.setRoom({664, 384}, 12);
        frame.setOutput({1920, 1080});
    }

    QSize fitted(const QSize &output, const QSize &room)
    {
        frame.setRoom(room, 0);
        frame.setOutput(output);
        return frame.place().size();
    }
    /// The output's pixel at a point of the room.
    QPointF pixelAt(const QPointF &point) const { return (point - frame.place().topLeft()) / frame.zoom(); }

    CanvasFrame frame;
};
} // namespace

TEST_F(CanvasFrameTest, FitsTheOutputWithAMarginAround)
{
    EXPECT_EQ(frame.place(), QRect(12, 12, 640, 360));
    EXPECT_TRUE(frame.isFitted());
    EXPECT_DOUBLE_EQ(frame.zoom(), 1.0 / 3);
}

TEST_F(CanvasFrameTest, FitsByTheTighterSide)
{
    EXPECT_EQ(fitted({1920, 1080}, {1000, 700}), QSize(1000, 563));
    EXPECT_EQ(fitted({1920, 1080}, {1000, 200}), QSize(356, 200));
    EXPECT_EQ(fitted({1080, 1920}, {1000, 960}), QSize(540, 960));
    EXPECT_EQ(frame.place().topLeft(), QPoint(230, 0));
}

TEST_F(CanvasFrameTest, EnlargesByWholeFactorsOnly)
{
    EXPECT_EQ(fitted({1920, 1080}, {1920, 1080}), QSize(1920, 1080));
    EXPECT_EQ(fitted({1920, 1080}, {3839, 2159}), QSize(1920, 1080));
    EXPECT_EQ(fitted({640, 480}, {2000, 1500}), QSize(1920, 1440));
    EXPECT_EQ(fitted({1, 1}, {1000, 700}), QSize(32, 32));
}

TEST_F(CanvasFrameTest, NeverFitsToNothingWhileThereIsRoom)
{
    EXPECT_EQ(fitted({32768, 1}, {1000, 700}), QSize(1000, 1));
    EXPECT_EQ(fitted({1, 32768}, {1000, 700}), QSize(1, 700));
    EXPECT_TRUE(fitted({0, 1080}, {1000, 700}).isEmpty());
    EXPECT_TRUE(fitted({1920, 1080}, {0, 700}).isEmpty());
    EXPECT_EQ(frame.zoom(), 0);
    frame.setZoom(1, {0, 0});
    frame.setOutput({});
    EXPECT_TRUE(frame.place().isEmpty());
    frame.stepZoom(3, {0, 0});
    frame.setZoom(2, {0, 0});
    EXPECT_TRUE(frame.place().isEmpty());
}

TEST_F(CanvasFrameTest, AtFullSizeOneOutputPixelIsOneDevicePixel)
{
    frame.setZoom(1, {332, 192});
    EXPECT_EQ(frame.place().size(), QSize(1920, 1080));
    EXPECT_FALSE(frame.isFitted());
    EXPECT_EQ(pixelAt({332, 192}), QPointF(960, 540));
}

TEST_F(CanvasFrameTest, WhatIsAtTheAnchorStaysThere)
{
    const QPointF anchor(500, 100);
    const QPointF before = pixelAt(anchor);
    for (const double zoom : {0.7, 1.0, 8.0, 2.0, 0.9}) {
        frame.setZoom(zoom, anchor);
        EXPECT_NEAR(pixelAt(anchor).x(), before.x(), 3) << zoom;
        EXPECT_NEAR(pixelAt(anchor).y(), before.y(), 3) << zoom;
    }
}

TEST_F(CanvasFrameTest, StepsMeetFullSizeFromBothSides)
{
    std::vector<double> zooms;
    for (int i = 0; i < 9; ++i) {
        frame.stepZoom(1, {332, 192});
        zooms.push_back(frame.zoom());
    }
    EXPECT_NEAR(zooms[0], 0.4167, 0.001);
    EXPECT_NEAR(zooms[3], 0.8138, 0.001);
    EXPECT_EQ(std::vector<double>(zooms.begin() + 4, zooms.end()), std::vector<double>({1, 2, 3, 4, 6}));
    frame.stepZoom(-4, {332, 192});
    EXPECT_EQ(frame.zoom(), 1);
    frame.stepZoom(-1, {332, 192});
    EXPECT_DOUBLE_EQ(frame.zoom(), 0.8);
}

TEST_F(CanvasFrameTest, ZoomHasALeastAndAGreatest)
{
    frame.setZoom(1e9, {332, 192});
    EXPECT_EQ(frame.zoom(), 32);
    frame.stepZoom(1, {332, 192});
    EXPECT_EQ(frame.zoom(), 32);
    frame.setZoom(0, {332, 192});
    EXPECT_EQ(frame.place().size(), QSize(120, 68));
    frame.stepZoom(-1000000, {332, 192});
    EXPECT_EQ(frame.place().size(), QSize(120, 68));
    frame.setZoom(std::numeric_limits<double>::quiet_NaN(), {332, 192});
    EXPECT_EQ(frame.place().size(), QSize(120, 68));
    // An output so large that it fits in less still goes down to that.
    frame.setOutput({32768, 32768});
    frame.setRoom({424, 424}, 12);
    frame.setZoom(0, {0, 0});
    EXPECT_EQ(frame.place().size(), QSize(400, 400));
}

TEST_F(CanvasFrameTest, BetweenWholeFactorsTheNearestIsTaken)
{
    for (const auto &[wanted, taken] : {std::pair{1.4, 1}, {1.6, 2}, {4.9, 4}, {5.1, 6}, {27.0, 24}}) {
        frame.setZoom(wanted, {0, 0});
        EXPECT_EQ(frame.zoom(), taken) << wanted;
    }
}

TEST_F(CanvasFrameTest, DraggedItKeeps64PixelsInSight)
{
    frame.setZoom(1, {332, 192});
    frame.pan({100, -30});
    EXPECT_EQ(frame.place().topLeft(), QPoint(-528, -378));
    frame.pan({5000, 5000});
    EXPECT_EQ(frame.place().topLeft(), QPoint(600, 320));
    frame.pan({-5000, -5000});
    EXPECT_EQ(frame.place().bottomRight(), QPoint(63, 63));
    constexpr int far = std::numeric_limits<int>::max();
    frame.pan({far, -far - 1});
    EXPECT_EQ(frame.place().left(), 600);
    EXPECT_EQ(frame.place().bottom(), 63);
    frame.pan({-far - 1, -far - 1});
    EXPECT_EQ(frame.place().bottomRight(), QPoint(63, 63));
    frame.setOutput({50, 40});
    frame.pan({-5000, 5000});
    EXPECT_EQ(frame.place(), QRect(0, 344, 50, 40)); // all of it
}

TEST_F(CanvasFrameTest, OnlyAFittedOutputStaysInTheMiddle)
{
    frame.pan({50, 50});
    EXPECT_EQ(frame.place(), QRect(12, 12, 640, 360));
    frame.setZoom(0.2, {332, 192});
    EXPECT_EQ(frame.place(), QRect(140, 84, 384, 216));
    frame.pan({50, 70});
    EXPECT_EQ(frame.place(), QRect(190, 154, 384, 216));
}

TEST_F(CanvasFrameTest, SmallerThanTheRoomItIsZoomedAtTheAnchorToo)
{
    frame.setRoom({1304, 744}, 12);
    frame.setOutput({4000, 1000}); // lower than the room at most zooms
    const QPointF anchor(700, 450);
    const QPointF before = pixelAt(anchor);
    for (const int steps : {-2, 1, 2, 1, -3}) {
        frame.stepZoom(steps, anchor);
        EXPECT_NEAR(pixelAt(anchor).x(), before.x(), 4) << steps;
        EXPECT_NEAR(pixelAt(anchor).y(), before.y(), 4) << steps;
    }
}

TEST_F(CanvasFrameTest, ARoomThatGrowsByPixelsKeepsItsMiddle)
{
    frame.setZoom(1, {332, 192});
    const QRect place = frame.place();
    for (int i = 1; i <= 101; ++i)
        frame.setRoom({664 + i, 384 + i}, 12);
    EXPECT_EQ(frame.place(), place.translated(50, 50));
}

TEST_F(CanvasFrameTest, FittedItFollowsTheRoomElseItKeepsTheZoom)
{
    frame.setRoom({1304, 744}, 12);
    EXPECT_EQ(frame.place(), QRect(12, 12, 1280, 720));
    frame.setZoom(1, {652, 372});
    const QPointF middle = pixelAt({652, 372});
    frame.setRoom({664, 384}, 12);
    EXPECT_EQ(frame.zoom(), 1);
    EXPECT_EQ(pixelAt({332, 192}), middle);
    frame.setOutput({3840, 2160});
    EXPECT_EQ(frame.place().size(), QSize(3840, 2160));
    frame.fit();
    EXPECT_EQ(frame.place(), QRect(12, 12, 640, 360));
}
