#include "canvas/JXSelectionBorder.h"

#include <QGuiApplication>
#include <QPalette>

#include <cmath>

namespace {
constexpr double halfHandle = 5;

/// The left and top edge belong to a rectangle, the right and bottom edge do not.
bool contains(const QRectF &rectangle, const QPointF &point)
{
    return point.x() >= rectangle.left() && point.x() < rectangle.right() && point.y() >= rectangle.top() &&
           point.y() < rectangle.bottom();
}
} // namespace

JXSelectionBorder::JXSelectionBorder()
{
    setColors(Colour::fromRgba8(QGuiApplication::palette().color(QPalette::Highlight).rgba()));
}

void JXSelectionBorder::setColors(const Colour &colour)
{
    m_borderColor = colour;
    m_fillColor = Colour::gray(1, 0);
}

/// Not positive where there is none.
double JXSelectionBorder::ratio() const
{
    const double ratio = m_aspectRatio.width() / m_aspectRatio.height();
    return std::isfinite(ratio) ? ratio : 0;
}

bool JXSelectionBorder::mouseIsInFrame(const QPointF &point, Handle &handle) const
{
    handle = handleAtPoint(point, m_selectedRect);
    return contains(m_selectedRect, point);
}

JXSelectionBorder::Handle JXSelectionBorder::handleAtPoint(const QPointF &point, const QRectF &frameRect)
{
    for (int number = 1; number <= handleCount; ++number) {
        const auto handle = static_cast<Handle>(number);
        if (isPointWithinHandle(point, handle, frameRect))
            return handle;
    }
    return Handle::None;
}

bool JXSelectionBorder::isPointWithinHandle(const QPointF &point, Handle handle, const QRectF &frameRect)
{
    return isPointWithinHandleAtPoint(point, locationOfHandle(handle, frameRect));
}

bool JXSelectionBorder::isPointWithinHandleAtPoint(const QPointF &point, const QPointF &handlePoint)
{
    const QPointF reach(halfHandle, halfHandle);
    return contains(QRectF(handlePoint - reach, handlePoint + reach), point);
}

QPointF JXSelectionBorder::locationOfHandle(Handle handle, const QRectF &frameRect)
{
    const QPointF middle = frameRect.center();
    switch (handle) {
    case Handle::TopLeft:
        return frameRect.topLeft();
    case Handle::TopMiddle:
        return {middle.x(), frameRect.top()};
    case Handle::TopRight:
        return frameRect.topRight();
    case Handle::MiddleLeft:
        return {frameRect.left(), middle.y()};
    case Handle::MiddleRight:
        return {frameRect.right(), middle.y()};
    case Handle::BottomLeft:
        return frameRect.bottomLeft();
    case Handle::BottomMiddle:
        return {middle.x(), frameRect.bottom()};
    case Handle::BottomRight:
        return frameRect.bottomRight();
    case Handle::None:
        break;
    }
    return middle;
}
