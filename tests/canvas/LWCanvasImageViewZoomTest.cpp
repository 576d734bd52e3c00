#include "tests/canvas/CanvasFixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <algorithm>

namespace {
class LWCanvasImageViewZoom : public CanvasFixture
{
protected:
    double percent() const { return view.readOut().zoomPercent; }
    /// Output pixel at a point of the widget, with its fraction.
    QPointF pixelAt(const QPoint &point) const
    {
        return (QPointF(point) - view.frame().topLeft()) * (1920 / view.frame().width());
    }
    void pinch(Qt::NativeGestureType type, double value, const QPointF &point)
    {
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, point, point,
                                  view.mapToGlobal(point), value, {});
        QApplication::sendEvent(&view, &event);
    }
    void dragView(const QPoint &from, const QPoint &to, Qt::MouseButton button)
    {
        press(from, button);
        moveTo(to, button);
        release(to, button);
    }
};
} // namespace

TEST_F(LWCanvasImageViewZoom, FitAndFullSize)
{
    EXPECT_NEAR(percent(), 100.0 / 3 * ratio(), 0.01);
    view.zoomTo100();
    EXPECT_EQ(percent(), 100);
    EXPECT_EQ(view.frame().size() * ratio(), QSizeF(1920, 1080));
    EXPECT_FALSE(view.readOut().isFitted);
    view.zoomToFit();
    EXPECT_EQ(view.frame(), QRectF(12, 12, 640, 360));
    EXPECT_TRUE(view.readOut().isFitted);
    view.setZoom(250);
    EXPECT_EQ(percent(), 200);
    view.zoomIn();
    EXPECT_EQ(percent(), 300);
    view.zoomOut();
    EXPECT_EQ(percent(), 200);
}

TEST_F(LWCanvasImageViewZoom, ZoomKeepsWhatIsInTheMiddle)
{
    view.zoomTo100();
    EXPECT_NEAR(pixelAt({332, 192}).x(), 960, 1.5);
    EXPECT_NEAR(pixelAt({332, 192}).y(), 540, 1.5);
}

TEST_F(LWCanvasImageViewZoom, TheWheelZoomsAtThePointer)
{
    const QPoint pointer(500, 100);
    const QPointF before = pixelAt(pointer);
    const double fitted = percent();
    wheel(pointer, 240);
    EXPECT_NEAR(percent(), std::min(fitted * 1.5625, 100.0), 0.2); // no step goes past full size
    for (int i = 0; i < 6; ++i)
        wheel(pointer, 120);
    EXPECT_NEAR(pixelAt(pointer).x(), before.x(), 4);
    EXPECT_NEAR(pixelAt(pointer).y(), before.y(), 4);
    for (int i = 0; i < 20; ++i)
        wheel(pointer, -120);
    EXPECT_LT(percent(), fitted);
}

TEST_F(LWCanvasImageViewZoom, AFineWheelAddsUpToSteps)
{
    const double fitted = percent();
    for (int i = 0; i < 7; ++i)
        wheel({332, 192}, 15);
    EXPECT_EQ(percent(), fitted);
    wheel({332, 192}, 15);
    EXPECT_NEAR(percent(), fitted * 1.25, 0.2);
    wheel({332, 192}, 90);
    wheel({332, 192}, -60); // turned back: what was added is gone
    EXPECT_NEAR(percent(), fitted * 1.25, 0.2);
    wheel({332, 192}, -60);
    EXPECT_NEAR(percent(), fitted, 0.2);
}

TEST_F(LWCanvasImageViewZoom, APinchZoomsAtThePointer)
{
    const QPointF before = pixelAt({500, 100});
    pinch(Qt::BeginNativeGesture, 0, {500, 100});
    for (int i = 0; i < 10; ++i)
        pinch(Qt::ZoomNativeGesture, 0.02, {500, 100});
    EXPECT_NEAR(percent(), 100.0 / 3 * ratio() * 1.219, 0.5);
    EXPECT_NEAR(pixelAt({500, 100}).x(), before.x(), 4);
    for (int i = 0; i < 60; ++i)
        pinch(Qt::ZoomNativeGesture, 0.02, {500, 100});
    pinch(Qt::EndNativeGesture, 0, {500, 100});
    EXPECT_EQ(percent(), ratio() == 1 ? 100 : ratio() < 2 ? 200 : 300); // 1.333, 2 and 2.667 times
    pinch(Qt::ZoomNativeGesture, -0.5, {500, 100});                     // from where it stands
    EXPECT_EQ(percent(), ratio() == 1 ? 50 : 100);
}

TEST_F(LWCanvasImageViewZoom, TheMiddleButtonDragsTheView)
{
    document.layer = nullptr;
    view.zoomTo100();
    const QPointF before = view.frame().topLeft();
    const QPoint from = -before.toPoint() + QPoint(300, 200);
    press(from, Qt::MiddleButton);
    const QPoint start = at(from.x(), from.y());
    EXPECT_EQ(view.cursor().shape(), Qt::ClosedHandCursor);
    QMouseEvent move(QEvent::MouseMove, QPointF(start + QPoint(40, -30)), view.mapToGlobal(start), Qt::NoButton,
                     Qt::MiddleButton, {});
    QApplication::sendEvent(&view, &move);
    EXPECT_NEAR(view.frame().x(), before.x() + 40, 0.7);
    EXPECT_NEAR(view.frame().y(), before.y() - 30, 0.7);
    QTest::mouseRelease(&view, Qt::MiddleButton, {}, start + QPoint(40, -30));
    QMouseEvent after(QEvent::MouseMove, QPointF(start), view.mapToGlobal(start), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&view, &after);
    EXPECT_NEAR(view.frame().x(), before.x() + 40, 0.7);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(LWCanvasImageViewZoom, SpaceAndTheLeftButtonDragTheViewAndClickNothing)
{
    selectScreen();
    view.zoomTo100();
    document.calls.clear();
    const QPointF before = view.frame().topLeft();
    QTest::keyPress(&view, Qt::Key_Space);
    EXPECT_EQ(view.cursor().shape(), Qt::OpenHandCursor);
    QTest::mousePress(&view, Qt::LeftButton, {}, {300, 200});
    QMouseEvent move(QEvent::MouseMove, QPointF(340, 170), view.mapToGlobal(QPointF(340, 170)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&view, &move);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {340, 170});
    EXPECT_NEAR(view.frame().x(), before.x() + 40, 0.7);
    EXPECT_NEAR(view.frame().y(), before.y() - 30, 0.7);
    EXPECT_TRUE(document.calls.isEmpty());
    QTest::keyRelease(&view, Qt::Key_Space);
    QTest::mouseClick(&view, Qt::LeftButton, {}, {300, 200});
    EXPECT_FALSE(document.calls.isEmpty());
}

TEST_F(LWCanvasImageViewZoom, OverTheCanvasSpaceIsItsOwnAlthoughABoxHasTheFocus)
{
    QCheckBox box(&window);
    box.show();
    box.setFocus();
    moveTo({100, 100}, Qt::NoButton);
    QTest::keyPress(&box, Qt::Key_Space);
    EXPECT_EQ(view.cursor().shape(), Qt::OpenHandCursor);
    QTest::keyRelease(&box, Qt::Key_Space);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    EXPECT_FALSE(box.isChecked());

    QTest::keyPress(&box, Qt::Key_Space);
    press({100, 100}); // takes the focus
    EXPECT_EQ(view.cursor().shape(), Qt::ClosedHandCursor);
    release({100, 100});
    QTest::keyRelease(&view, Qt::Key_Space);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);

    box.setFocus();
    moveTo({101, 100}, Qt::NoButton);
    QTest::keyPress(&box, Qt::Key_Space);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    QTest::keyRelease(&box, Qt::Key_Space); // of a press that the box knows nothing of
    EXPECT_FALSE(box.isChecked());
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(box.isChecked());
}

TEST_F(LWCanvasImageViewZoom, WhatTheKeyboardGoesToGetsItsSpaceUntilThePointerMoves)
{
    QCheckBox box(&window);
    box.show();
    moveTo({100, 100}, Qt::NoButton);
    box.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(box.isChecked());
    moveTo({101, 100}, Qt::NoButton);
    QTest::keyClick(&box, Qt::Key_Space);
    EXPECT_TRUE(box.isChecked());
}

TEST_F(LWCanvasImageViewZoom, APressedBoxIsLetGoAlthoughThePointerHasCome)
{
    QCheckBox box(&window);
    box.show();
    box.setFocus();
    QTest::keyPress(&box, Qt::Key_Space);
    moveTo({100, 100}, Qt::NoButton);
    QTest::keyRelease(&box, Qt::Key_Space);
    EXPECT_TRUE(box.isChecked());
    EXPECT_FALSE(box.isDown());
}

TEST_F(LWCanvasImageViewZoom, TextFieldsAndOtherWindowsKeepTheirSpaces)
{
    QLineEdit field(&window);
    field.show();
    field.setFocus();
    moveTo({100, 100}, Qt::NoButton);
    QTest::keyClicks(&field, "a b");
    EXPECT_EQ(field.text(), "a b");
    QSpinBox number(&window);
    number.show();
    number.setFocus();
    moveTo({100, 100}, Qt::NoButton);
    QTest::keyPress(&number, Qt::Key_Space);
    EXPECT_EQ(view.cursor().shape(), Qt::ArrowCursor);
    QTest::keyRelease(&number, Qt::Key_Space);
    number.clearFocus();

    QCheckBox elsewhere;
    elsewhere.show();
    moveTo({100, 100}, Qt::NoButton);
    QTest::keyClick(&elsewhere, Qt::Key_Space);
    EXPECT_TRUE(elsewhere.isChecked());
}

TEST_F(LWCanvasImageViewZoom, NothingZoomsUnderADrag)
{
    selectStill({300, 200}, {600, 300});
    const QRectF frame = view.frame();
    press({150, 100});
    wheel({332, 192}, 120);
    pinch(Qt::ZoomNativeGesture, 0.5, {332, 192});
    QTest::mousePress(&view, Qt::MiddleButton, {}, {332, 192});
    EXPECT_EQ(view.frame(), frame);
    EXPECT_TRUE(view.cropMarker().isTracking());
}

TEST_F(LWCanvasImageViewZoom, ClicksMeetTheirPixelAtAnyZoom)
{
    const QImage output = picturedNoise({1920, 1080});
    showOutput(output);
    for (const double zoom : {40.0, 100.0, 300.0, 1200.0, 2400.0}) {
        view.setZoom(zoom);
        const QImage picture = seen();
        for (const QPoint &point : {QPoint(300, 200), QPoint(321, 97), QPoint(402, 250)}) {
            QTest::mouseMove(&view, point);
            ASSERT_TRUE(view.readOut().pixel) << zoom;
            const QColor painted = picture.pixelColor(int(point.x() * ratio()), int(point.y() * ratio()));
            if (zoom >= 100) {
                EXPECT_EQ(view.readOut().colour, painted) << zoom << ' ' << point.x();
            }
            EXPECT_EQ(view.readOut().colour, output.pixelColor(*view.readOut().pixel));
            EXPECT_NEAR(view.readOut().pixel->x(), pixelAt(point).x(), 1) << zoom;
        }
    }
}

TEST_F(LWCanvasImageViewZoom, TheReadOutTellsThePixelUnderThePointer)
{
    const QSignalSpy told(&view, &LWCanvasImageView::readOutDidChange);
    QTest::mouseMove(&view, at(10, 20));
    ASSERT_FALSE(told.isEmpty());
    EXPECT_EQ(view.readOut().pixel, QPoint(30, 60));
    EXPECT_EQ(view.readOut().colour, QColor(Qt::black));
    EXPECT_EQ(view.readOut().output, QSize(1920, 1080));

    QImage red(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    red.fill(Qt::red);
    showOutput(red);
    EXPECT_EQ(told.last().first().value<CanvasReadOut>().colour, QColor(Qt::red));
    QTest::mouseMove(&view, at(-5, 20));
    EXPECT_FALSE(view.readOut().pixel);
    EXPECT_FALSE(view.readOut().colour.isValid());
    QTest::mouseMove(&view, at(10, 20));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&view, &leave);
    EXPECT_FALSE(view.readOut().pixel);
    showOutput(QImage());
    EXPECT_EQ(percent(), 0);
    EXPECT_TRUE(view.readOut().output.isEmpty());
}

TEST_F(LWCanvasImageViewZoom, AnotherFrameHasTheMarkerRedrawn)
{
    selectStill({300, 200}, {600, 300});
    document.calls.clear();
    const auto width = [this] { return view.cropMarker().selectedRect().width(); };
    view.setZoom(60);
    EXPECT_NEAR(width(), 600 * 0.6 / ratio(), 3);
    view.cropMarker().setSelectedRect({1, 2, 3, 4});
    showOutput(picturedLines({1920, 1080}));
    EXPECT_EQ(width(), 3); // the same size
    showOutput(picturedLines({960, 540}));
    EXPECT_NEAR(width(), 600 * 0.6 / ratio(), 3);
    EXPECT_TRUE(document.calls.isEmpty());
}
