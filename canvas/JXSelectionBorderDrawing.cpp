#include "canvas/JXSelectionBorder.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace {
constexpr double handleSize = 10;
constexpr qint64 dashed = 1;
/// Of a dash and of the gap behind it, in widths of the line.
constexpr double dashLength = 4;

QPen outlinePen(const JXSelectionBorder &border)
{
    QPen pen(border.borderColor().toQColor(), border.borderWidth());
    pen.setJoinStyle(Qt::MiterJoin);
    if (border.dashStyle() == dashed)
        pen.setDashPattern({dashLength, dashLength});
    return pen;
}

/// `rectangle` with its edges on the nearest edges of device pixels.
QRectF alignedToPixels(const QPainter &painter, const QRectF &rectangle)
{
    const QTransform transform = painter.deviceTransform();
    const QRectF device = transform.mapRect(rectangle);
    const QRectF aligned(QPointF(qRound(device.left()), qRound(device.top())),
                         QPointF(qRound(device.right()), qRound(device.bottom())));
    return transform.inverted().mapRect(aligned);
}
} // namespace

QPainterPath JXSelectionBorder::bezierPathForDrawing() const
{
    QPainterPath path;
    if (!m_selectedRect.isNull())
        path.addRect(m_selectedRect.normalized());
    return path;
}

void JXSelectionBorder::drawContentInView(QPainter &painter, const QRectF &visibleRect) const
{
    const QPainterPath path = bezierPathForDrawing();
    if (m_hide || path.isEmpty())
        return;

    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(outlinePen(*this));
    painter.setBrush(Qt::NoBrush);
    // Edges far away are brought close, still out of sight: a file may place a picture so that its outline had millions
    // of dashes.
    const double outOfSight = 4 * dashLength * m_borderWidth;
    const QRectF near = path.boundingRect() & visibleRect.adjusted(-outOfSight, -outOfSight, outOfSight, outOfSight);
    if (!near.isNull())
        painter.drawRect(near);
    if (m_drawingHandles)
        drawHandlesInView(painter, visibleRect);
    painter.restore();
}

void JXSelectionBorder::drawHandlesInView(QPainter &painter, const QRectF &visibleRect) const
{
    const QRectF reach = visibleRect.adjusted(-handleSize, -handleSize, handleSize, handleSize);
    for (int number = 1; number <= handleCount; ++number) {
        const QPointF point = locationOfHandle(static_cast<Handle>(number), m_selectedRect);
        if (reach.contains(point))
            drawHandleInView(painter, point);
    }
}

void JXSelectionBorder::drawHandleInView(QPainter &painter, const QPointF &point) const
{
    const QRectF square(point.x() - handleSize / 2, point.y() - handleSize / 2, handleSize, handleSize);
    painter.fillRect(alignedToPixels(painter, square), QGuiApplication::palette().color(QPalette::BrightText));
}

void JXSelectionBorder::drawGridsInRect(QPainter &painter, const QRectF &rectangle, quint32 lineNumber) const
{
    painter.save();
    painter.setPen(QPen(QGuiApplication::palette().color(QPalette::Mid), 1));
    const auto x0 = static_cast<float>(rectangle.x());
    const auto y0 = static_cast<float>(rectangle.y());
    const auto width = static_cast<float>(rectangle.width());
    const auto height = static_cast<float>(rectangle.height());
    const float parts = static_cast<float>(lineNumber) + 1.0F;
    for (quint32 i = 1; i <= lineNumber; ++i) {
        const float y = static_cast<float>(i) * height / parts;
        painter.drawLine(QPointF(x0, y), QPointF(width - 1.0F, y));
        const float x = static_cast<float>(i) * width / parts;
        painter.drawLine(QPointF(x, y0), QPointF(x, height - 1.0F));
    }
    painter.restore();
}
