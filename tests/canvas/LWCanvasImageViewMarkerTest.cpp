#include "tests/canvas/CanvasFixture.h"

#include <QTest>

using LWCanvasImageViewMarker = CanvasFixture;

TEST_F(LWCanvasImageViewMarker, AMoveIsAppliedAtTheReleaseByTheMarkersFactor)
{
    const LWStill &still = selectStill({300, 200}, {600, 300});
    // Factor 2 - 0.3347: a drag by 10 and 5 is 16.65 and 8.33 pixels.
    const QPoint inside = view.cropMarker().selectedRect().center().toPoint() + QPoint(20, 20);
    press(inside);
    moveTo(inside + QPoint(4, 3));
    moveTo(inside + QPoint(10, 5));
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(300, 200));
    release(inside + QPoint(10, 5));
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(316, 208));
    EXPECT_EQ(QSize(still.panelWidth(), still.panelHeight()), QSize(600, 300));
}

TEST_F(LWCanvasImageViewMarker, WithAFactorOfThreeTenRightAndFiveDownAreThirtyAndFifteenPixels)
{
    const LWStill &still = selectStill({300, 200}, {600, 300});
    document.rendersOnUpdate = false;
    view.setKScaleFactor(3);
    drag({150, 100}, {160, 105});
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(330, 215));
    drag({160, 105}, {150, 85});
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(300, 155));
}

// Its file is no picture, say: the border around the still before it is not its own.
TEST_F(LWCanvasImageViewMarker, AStillWithoutASizeHasNone)
{
    selectStill({300, 200}, {600, 300});
    document.all = {document.layer};
    const LWStill &logo = static_cast<LWStill &>(*document.all[0]);
    const auto empty = LWStill::initWithimage(document, QImage());
    document.layer = empty;
    document.render();
    EXPECT_TRUE(view.cropMarker().hide());

    drag({150, 100}, {160, 105});

    EXPECT_EQ(QPoint(empty->xpoint(), empty->ypoint()), QPoint(0, 0));
    EXPECT_EQ(document.layer.get(), &logo);
}

TEST_F(LWCanvasImageViewMarker, ThePressUpdatesFirstAndTheReleaseLater)
{
    selectStill({300, 200}, {600, 300});
    press({150, 100});
    EXPECT_EQ(document.calls, QStringList("update"));
    release({160, 105});
    EXPECT_EQ(document.calls, QStringList("update"));
    settle();
    EXPECT_EQ(document.calls, QStringList({"update", "finishEdit move image"}));
}

TEST_F(LWCanvasImageViewMarker, TheMarkerIsTakenHoldOfWhereTheUpdateHasPutIt)
{
    LWStill &still = selectStill({0, 0}, {150, 150});
    still.setXpoint(1200);
    still.setYpoint(600);
    press({425, 225}); // pixel 1275, 675: the middle of the still
    EXPECT_FALSE(view.cropMarker().drawingHandles());
    release({425, 225});
}

TEST_F(LWCanvasImageViewMarker, AMovedStillsMarkerFollows)
{
    selectStill({300, 200}, {600, 300});
    const QRectF before = view.cropMarker().selectedRect();
    drag({150, 100}, {160, 105});
    const double scale = 0.33472803;
    EXPECT_NEAR(view.cropMarker().selectedRect().x(), before.x() + 16 * scale, 1e-4);
    EXPECT_NEAR(view.cropMarker().selectedRect().y(), before.y() + 8 * scale, 1e-4);
}

TEST_F(LWCanvasImageViewMarker, AHandleResizesTheStill)
{
    const LWStill &still = selectStill({300, 200}, {600, 300});
    const QRectF before = view.cropMarker().selectedRect(); // (101.4, 68.9, 200.8, 100.4)
    press(before.bottomRight());
    moveTo({350, 200});
    EXPECT_EQ(QSize(still.panelWidth(), still.panelHeight()), QSize(600, 300));
    EXPECT_NEAR(view.cropMarker().selectedRect().right(), 350, 1e-6);
    release({400, 250});
    settle();

    EXPECT_EQ(still.panelWidth(), static_cast<int>((400 - before.x()) / 0.33472803));
    EXPECT_EQ(still.panelHeight(), static_cast<int>((250 - before.y()) / 0.33472803));
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(300, 200));
    EXPECT_EQ(document.calls.last(), "finishEdit resize image");
    // The marker stands round what the still has become.
    EXPECT_NEAR(view.cropMarker().selectedRect().width(), still.panelWidth() * 0.33472803, 1e-3);
}

TEST_F(LWCanvasImageViewMarker, ALockedStillKeepsItsAspect)
{
    LWStill &still = selectStill({300, 200}, {600, 300});
    still.setAspectRatio(true);
    still.setAspectValue({2, 1});
    const QRectF before = view.cropMarker().selectedRect();
    drag({before.right(), before.center().y()}, {before.right() + 50, before.center().y()});
    EXPECT_NEAR(still.panelWidth(), 749, 2);
    EXPECT_NEAR(still.panelHeight(), still.panelWidth() / 2.0, 1);
}

TEST_F(LWCanvasImageViewMarker, AClickBesideTheMarkerChangesNothing)
{
    const LWStill &still = selectStill({300, 200}, {601, 301});
    for (int i = 0; i < 5; ++i)
        drag({500, 300}, {520, 310});
    EXPECT_EQ(QRect(still.xpoint(), still.ypoint(), still.panelWidth(), still.panelHeight()),
              QRect(300, 200, 601, 301));
}

TEST_F(LWCanvasImageViewMarker, EscapeCallsTheDragOff)
{
    const LWStill &still = selectStill({300, 200}, {600, 300});
    const QRectF before = view.cropMarker().selectedRect();
    press(before.bottomRight());
    moveTo({400, 250});
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(view.cropMarker().isTracking());
    EXPECT_EQ(view.cropMarker().selectedRect(), before);
    release({400, 250});
    settle();
    EXPECT_EQ(QSize(still.panelWidth(), still.panelHeight()), QSize(600, 300));
    EXPECT_EQ(document.calls.filter("Image"), QStringList());
}

TEST_F(LWCanvasImageViewMarker, ALostReleaseCallsTheDragOff)
{
    const LWStill &still = selectStill({300, 200}, {600, 300});
    press({150, 100});
    moveTo({200, 150}, Qt::NoButton);
    EXPECT_FALSE(view.cropMarker().isTracking());
    settle();
    EXPECT_EQ(still.xpoint(), 300);
}

TEST_F(LWCanvasImageViewMarker, UpdatesDuringADragLeaveTheMarkerInTheHand)
{
    LWStill &still = selectStill({300, 200}, {600, 300});
    const QRectF before = view.cropMarker().selectedRect();
    press(before.bottomRight());
    moveTo({400, 250});
    document.render();
    EXPECT_NEAR(view.cropMarker().selectedRect().right(), 400, 1e-6);
    release({400, 250});
    settle();
    EXPECT_EQ(still.panelWidth(), static_cast<int>((400 - before.x()) / 0.33472803));
}

TEST_F(LWCanvasImageViewMarker, AMarkerThatSticksOutOfTheFrameCanBeTakenHoldOf)
{
    const LWStill &still = selectStill({-300, -200}, {600, 400});
    document.rendersOnUpdate = false;
    view.setKScaleFactor(1);
    drag({-6, 30}, {4, 33});
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(-290, -197));
    EXPECT_EQ(document.calls.filter("Switch"), QStringList()); // the ground is no click
}

TEST_F(LWCanvasImageViewMarker, AnotherFrameCallsADragOffAndRedrawsTheMarker)
{
    const LWStill &still = selectStill({300, 200}, {600, 300});
    press(view.cropMarker().selectedRect().bottomRight());
    moveTo({400, 250});
    document.calls.clear();
    view.resize(344, 204); // a frame of 320 x 180
    EXPECT_FALSE(view.cropMarker().isTracking());
    EXPECT_EQ(document.calls, QStringList());
    EXPECT_NEAR(view.cropMarker().selectedRect().width(), 600 * 0.16736402, 1e-3);
    release({400, 250});
    settle();
    EXPECT_EQ(still.panelWidth(), 600);
}

TEST_F(LWCanvasImageViewMarker, TheFactorIsThatOfTheFittedFrameWhateverTheZoom)
{
    const LWStill &still = selectStill({900, 500}, {200, 100});
    const float factor = view.cropMarker().kScaleFactor();
    EXPECT_NEAR(factor, 2 - 0.33472803, 1e-6);
    view.setZoom(300);
    EXPECT_EQ(document.canvasFrameSize(), QSizeF(640, 360));
    EXPECT_NEAR(still.calculateCoeff().coefficient, 0.33472803, 1e-6);
    EXPECT_EQ(view.cropMarker().kScaleFactor(), factor);
}

TEST_F(LWCanvasImageViewMarker, AtAChosenZoomItGoesByExactOutputPixels)
{
    const LWStill &still = selectStill({900, 500}, {200, 100});
    for (const int zoom : {1, 2, 3}) {
        view.setZoom(100 * zoom);
        const QPoint place(still.xpoint(), still.ypoint());
        const QPointF middle = view.cropMarker().selectedRect().center() + QPointF(7, 7);
        const QPointF way(zoom * 12 / ratio(), zoom * -6 / ratio());
        drag(middle, middle + way);
        EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), place + QPoint(12, -6)) << zoom;
        EXPECT_EQ(QSize(still.panelWidth(), still.panelHeight()), QSize(200, 100));
    }
}

TEST_F(LWCanvasImageViewMarker, AtAChosenZoomItStandsOnTheStillsPixels)
{
    const LWStill &still = selectStill({900, 500}, {200, 100});
    for (const double percent : {60.0, 100.0, 300.0}) {
        view.setZoom(percent);
        const double units = view.frame().width() / 1920;
        EXPECT_EQ(view.cropMarker().selectedRect(), QRectF(900 * units, 500 * units, 200 * units, 100 * units));
    }
    view.setZoom(view.readOut().zoomPercent); // of the fitted size, though chosen
    view.zoomToFit();
    EXPECT_NEAR(view.cropMarker().selectedRect().x(), 900 * 0.33472803 + 1, 1e-3);
    EXPECT_EQ(still.xpoint(), 900);
}

TEST_F(LWCanvasImageViewMarker, AtAChosenZoomAHandleGoesByExactOutputPixelsWhereverItIsHeld)
{
    const LWStill &still = selectStill({900, 500}, {200, 100});
    for (const int zoom : {1, 2, 3}) {
        view.setZoom(100 * zoom);
        const QSize size(still.panelWidth(), still.panelHeight());
        const QPointF handle = view.cropMarker().selectedRect().bottomRight() + QPointF(-4, 3);
        press(handle);
        release(handle);
        settle();
        EXPECT_EQ(QSize(still.panelWidth(), still.panelHeight()), size) << zoom;
        drag(handle, handle + QPointF(zoom * 12, zoom * -6) / ratio());
        EXPECT_EQ(QSize(still.panelWidth(), still.panelHeight()), size + QSize(12, -6)) << zoom;
    }
}
