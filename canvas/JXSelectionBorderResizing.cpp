#include "canvas/JXSelectionBorder.h"

#include <algorithm>
#include <array>

namespace {
using Handle = JXSelectionBorder::Handle;

/// By a handle's number: the one that it becomes when the rectangle is turned over from side to side.
constexpr std::array flippedSideways{Handle::None,        Handle::TopRight,     Handle::TopMiddle,
                                     Handle::TopLeft,     Handle::MiddleRight,  Handle::MiddleLeft,
                                     Handle::BottomRight, Handle::BottomMiddle, Handle::BottomLeft};
/// And when it is turned upside down.
constexpr std::array flippedUpsideDown{Handle::None,        Handle::BottomLeft, Handle::BottomMiddle,
                                       Handle::BottomRight, Handle::MiddleLeft, Handle::MiddleRight,
                                       Handle::TopLeft,     Handle::TopMiddle,  Handle::TopRight};

Handle flipped(const std::array<Handle, 9> &table, Handle handle)
{
    return table[static_cast<std::size_t>(handle)];
}

bool isOneOf(Handle handle, Handle a, Handle b, Handle c)
{
    return handle == a || handle == b || handle == c;
}

void moveSide(QRectF &rectangle, Handle handle, double x)
{
    if (isOneOf(handle, Handle::TopLeft, Handle::MiddleLeft, Handle::BottomLeft))
        rectangle = {x, rectangle.y(), rectangle.right() - x, rectangle.height()};
    else if (isOneOf(handle, Handle::TopRight, Handle::MiddleRight, Handle::BottomRight))
        rectangle.setRight(x);
}

void moveTop(QRectF &rectangle, Handle handle, double y)
{
    if (isOneOf(handle, Handle::TopLeft, Handle::TopMiddle, Handle::TopRight))
        rectangle = {rectangle.x(), y, rectangle.width(), rectangle.bottom() - y};
}

void moveBottom(QRectF &rectangle, Handle handle, double y)
{
    if (isOneOf(handle, Handle::BottomLeft, Handle::BottomMiddle, Handle::BottomRight))
        rectangle.setBottom(y);
}

/// The rectangle made smaller, if need be, so that it ends at the bounds; its ratio and its top left stay.
QRectF endingWithin(QRectF rectangle, double ratio, const QRectF &bounds)
{
    if (rectangle.bottom() > bounds.bottom()) {
        rectangle.setBottom(std::max(bounds.bottom(), rectangle.top()));
        rectangle.setWidth(rectangle.height() * ratio);
    }
    if (rectangle.right() > bounds.right()) {
        rectangle.setRight(std::max(bounds.right(), rectangle.left()));
        rectangle.setHeight(rectangle.width() / ratio);
    }
    return rectangle;
}
} // namespace

JXSelectionBorder::Handle JXSelectionBorder::resizeByMovingHandle(Handle handle, const QPointF &toPoint,
                                                                  const QRectF &viewBounds)
{
    if (handle == Handle::None)
        return handle;
    const QPointF point = m_drawingOffView ? toPoint
                                           : QPointF(std::clamp(toPoint.x(), 0.0, viewBounds.right()),
                                                     std::clamp(toPoint.y(), 0.0, viewBounds.bottom()));
    const bool isLocked = canLockAspectRatio();
    Handle held = handle;
    QRectF rectangle = m_selectedRect;

    if (!isLocked)
        moveSide(rectangle, handle, point.x());
    if (rectangle.width() < 0) {
        held = flipped(flippedSideways, handle);
        rectangle = {rectangle.right(), rectangle.y(), -rectangle.width(), rectangle.height()};
    }
    if (isLocked) {
        resizeLocked(rectangle, handle, point);
    } else {
        moveTop(rectangle, handle, point.y());
        moveBottom(rectangle, handle, point.y());
    }
    if (rectangle.height() < 0) {
        // Turned over both ways at once, it is held by the handle of this turn.
        held = flipped(flippedUpsideDown, handle);
        rectangle = {rectangle.x(), rectangle.bottom(), rectangle.width(), -rectangle.height()};
    }
    m_selectedRect = frameRectForGraphicBounds(rectangle, isLocked, handle, viewBounds);
    return held;
}

void JXSelectionBorder::resizeLocked(QRectF &rectangle, Handle handle, const QPointF &point) const
{
    const QRectF before = rectangle;
    moveBottom(rectangle, handle, point.y());
    moveSide(rectangle, handle, point.x());
    const bool isPulledSideways = rectangle.height() == before.height() && rectangle.width() != before.width();
    if (isPulledSideways || handle == Handle::BottomLeft) {
        rectangle.setHeight(rectangle.width() / ratio());
    } else if (handle == Handle::TopLeft) {
        const double height = rectangle.width() / ratio();
        rectangle = {rectangle.x(), before.bottom() - height, rectangle.width(), height};
    } else {
        rectangle.setWidth(ratio() * rectangle.height());
    }
}

QRectF JXSelectionBorder::frameRectForGraphicBounds(const QRectF &rectangle, bool isLockedAspect, Handle usingHandle,
                                                    const QRectF &viewBounds) const
{
    if (!isLockedAspect || ratio() <= 0)
        return rectangle;
    QRectF frame = rectangle;
    if (usingHandle == Handle::BottomLeft || usingHandle == Handle::TopLeft) {
        // One that was pulled sideways through itself comes inside out.
        frame = frame.normalized();
        frame.setHeight(frame.width() / ratio());
    } else {
        frame.setWidth(ratio() * frame.height());
    }
    if (usingHandle == Handle::TopLeft)
        frame.moveTop(m_selectedRect.bottom() - frame.height());
    if (m_drawingOffView)
        return frame;
    frame = endingWithin(frame, ratio(), viewBounds);
    if (frame.y() < 0)
        frame.moveTop(0);
    return frame;
}

void JXSelectionBorder::translateBy(double x, double y, const QRectF &viewBounds)
{
    m_selectedRect.translate(x, y);
    if (m_drawingOffView)
        return;
    m_selectedRect.moveTo(std::max(m_selectedRect.x(), 0.0), std::max(m_selectedRect.y(), 0.0));
    if (m_selectedRect.right() > viewBounds.right())
        m_selectedRect.moveRight(viewBounds.right());
    if (m_selectedRect.bottom() > viewBounds.bottom())
        m_selectedRect.moveBottom(viewBounds.bottom());
}
