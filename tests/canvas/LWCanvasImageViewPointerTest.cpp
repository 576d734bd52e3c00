#include "canvas/ExactPointer.h"
#include "tests/canvas/CanvasFixture.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QShowEvent>
#include <QSignalSpy>

namespace {
/// The mouse as Qt tells of it: a canvas in a window gets its places rounded to logical pixels.
class LWCanvasImageViewPointer : public CanvasFixture
{
protected:
    /// Device pixel of the window in which the canvas' first whole one lies.
    QPoint corner() const { return (QPointF(view.mapTo(&window, QPoint(0, 0))) * ratio()).toPoint(); }
    /// Somewhere on the canvas, in device pixels from there on.
    QPoint anywhere() { return {random.bounded(view.deviceFrame().room().width() - 1), random.bounded(380)}; }

    QRandomGenerator random{7};
};
} // namespace

TEST_F(LWCanvasImageViewPointer, TheReadOutIsOfTheExactPlace)
{
    sendMouse(QEvent::MouseMove, (QPointF(50, 30) + QPointF(100.4, 50.6)) * ratio());
    EXPECT_EQ(view.readOut().pixel, QPoint(265, 115)); // 3 x (88.4, 38.6); rounded it were 264, 117
}

TEST_F(LWCanvasImageViewPointer, EveryDevicePixelIsItsOwn)
{
    for (const QPoint &place : {QPoint(50, 30), QPoint(51, 31)}) {
        view.move(place);
        for (const int zoom : {1, 2, 3, 6}) {
            view.setZoom(100 * zoom);
            const QPoint origin = view.deviceFrame().place().topLeft();
            for (int i = 0; i < 100; ++i) {
                const QPoint at = anywhere();
                sendMouse(QEvent::MouseMove, corner() + at);
                const QPoint into = at - origin;
                EXPECT_EQ(view.readOut().pixel, QPoint(into.x() / zoom, into.y() / zoom))
                    << zoom << ' ' << at.x() << ' ' << at.y();
            }
        }
    }
}

// On the way into a widget Qt sends a hover event first, which overwrites the place in the window that the move tells.
TEST_F(LWCanvasImageViewPointer, IsExactWhereAMoveTellsNoPlaceInTheWindow)
{
    view.zoomTo100();
    const QPoint origin = corner() + view.deviceFrame().place().topLeft();
    for (int i = 0; i < 6; ++i) {
        const QPoint at = corner() + QPoint(200 + i, 100 + i);
        sendMouse(QEvent::MouseMove, at);
        QMouseEvent move(QEvent::MouseMove, view.mapFrom(&window, (QPointF(at) / ratio()).toPoint()), QPointF(-1, -1),
                         QPointF(at) / ratio(), Qt::NoButton, {}, {});
        QApplication::sendEvent(&view, &move);
        EXPECT_EQ(view.readOut().pixel, at - origin);
    }
}

TEST_F(LWCanvasImageViewPointer, TheLastDevicePixelOfAPanelIsThatPanels)
{
    const LWScreen &screen = selectScreen(); // panels of 128 x 128
    view.zoomTo100();
    const QPoint origin = corner() + view.deviceFrame().place().topLeft();
    for (const QPoint &panel : {QPoint(5, 3), QPoint(6, 4), QPoint(7, 3)}) {
        const QPoint last(128 * panel.x() + 127, 128 * panel.y() + 127);
        sendMouse(QEvent::MouseButtonPress, origin + last, Qt::LeftButton);
        sendMouse(QEvent::MouseButtonRelease, origin + last);
        EXPECT_EQ(screen.hiddenBoxes()->last(), QString("%1,%2").arg(panel.y()).arg(panel.x()));
    }
}

TEST_F(LWCanvasImageViewPointer, ADragOfSevenAndFiveDevicePixelsMovesALayerByThese)
{
    LWScreen &wall = addWall({700, 400, 300, 300});
    view.setTool(LWCanvasImageView::Tool::Arrange);
    view.zoomTo100();
    const QPoint origin = corner() + view.deviceFrame().place().topLeft();
    QPoint place(700, 400);
    for (int i = 0; i < 20; ++i) {
        const QPoint from = origin + place + QPoint(40 + i, 50 + i);
        sendMouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
        sendMouse(QEvent::MouseMove, from + QPoint(7, 5), Qt::LeftButton, Qt::ControlModifier);
        sendMouse(QEvent::MouseButtonRelease, from + QPoint(7, 5), {}, Qt::ControlModifier);
        place += QPoint(7, 5);
        EXPECT_EQ(QPoint(wall.xpoint(), wall.ypoint()), place);
    }
}

TEST_F(LWCanvasImageViewPointer, TheMenuIsOfTheLayerUnderTheExactPlace)
{
    const auto menuAt = [this](const QPoint &devicePixel) {
        document.layer = nullptr;
        document.selection.clear();
        sendMouse(QEvent::MouseMove, devicePixel);
        const QPoint rounded = view.mapFrom(&window, (QPointF(devicePixel) / ratio()).toPoint());
        QContextMenuEvent event(QContextMenuEvent::Mouse, rounded, view.mapToGlobal(rounded));
        QApplication::sendEvent(&view, &event);
        return document.layer;
    };
    addWall({941, 521, 40, 40});
    view.zoomTo100();
    const QPoint first = corner() + view.deviceFrame().place().topLeft() + QPoint(941, 521);
    const QSignalSpy asked(&view, &LWCanvasImageView::layerMenuAsked);
    for (const QPoint &inside : {QPoint(0, 0), QPoint(1, 1), QPoint(39, 39), QPoint(38, 38)})
        EXPECT_EQ(menuAt(first + inside), document.all.front()) << inside.x();
    for (const QPoint &beside : {QPoint(-1, 0), QPoint(0, -1), QPoint(40, 39), QPoint(39, 40)})
        EXPECT_EQ(menuAt(first + beside), nullptr) << beside.x() << ' ' << beside.y();
    EXPECT_EQ(asked.count(), 4);
}

TEST_F(LWCanvasImageViewPointer, AWidgetWithoutAWindowOfTheDesktopIsNotFollowed)
{
    QWidget alone;
    const ExactPointer pointer(alone);
    QShowEvent shown;
    QApplication::sendEvent(&alone, &shown);
    EXPECT_EQ(alone.windowHandle(), nullptr);
}
