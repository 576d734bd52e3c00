#include "canvas/CanvasGeometry.h"

#include "base/NearestInt.h"
#include "canvas/CanvasDocument.h"

#include <QWidget>

#include <algorithm>
#include <cmath>

CanvasGeometry::CanvasGeometry(const QWidget &widget, const CanvasDocument &document)
    : m_widget(widget), m_document(document)
{}

QRectF CanvasGeometry::frame() const
{
    const QRectF place = m_frame.place();
    return {place.topLeft() / m_pixelRatio + offsetOfDevicePixels(), place.size() / m_pixelRatio};
}

QSizeF CanvasGeometry::unitsPerPixel() const
{
    const QSizeF size = frame().size();
    return {size.width() / m_frame.output().width(), size.height() / m_frame.output().height()};
}

/// At a scale of 1.5 a widget may begin between two device pixels: how far from its corner the first whole one begins.
QPointF CanvasGeometry::offsetOfDevicePixels() const
{
    const QPointF corner = QPointF(m_widget.mapTo(m_widget.window(), QPoint(0, 0))) * m_pixelRatio;
    return (QPointF(corner.toPoint()) - corner) / m_pixelRatio;
}

QPointF CanvasGeometry::devicePoint(const QPointF &widgetPoint) const
{
    const auto regained = [](double value) {
        constexpr double lost = 1e-3;
        return std::abs(value - std::round(value)) < lost ? std::round(value) : value;
    };
    const QPointF point = (widgetPoint - offsetOfDevicePixels()) * m_pixelRatio;
    return {regained(point.x()), regained(point.y())};
}

bool CanvasGeometry::contains(const QPointF &widgetPoint) const
{
    const QPointF point = devicePoint(widgetPoint);
    return m_frame.place().contains({static_cast<int>(std::floor(point.x())), static_cast<int>(std::floor(point.y()))});
}

QPoint CanvasGeometry::pixelAt(const QPointF &widgetPoint) const
{
    // In single precision throughout: a product of both precisions would miss whole pixels that this one meets.
    const QRect place = m_frame.place();
    const QPointF point = devicePoint(widgetPoint) - place.topLeft();
    const float perPixelX = static_cast<float>(m_document.OutputWidth()) / static_cast<float>(place.width());
    const float perPixelY = static_cast<float>(m_document.OutputHeight()) / static_cast<float>(place.height());
    return {truncated(std::floor(double{perPixelX * static_cast<float>(point.x())})),
            truncated(std::floor(double{perPixelY * static_cast<float>(point.y())}))};
}

QSizeF CanvasGeometry::pixelsWithin(double logicalLength) const
{
    const QSizeF size = frame().size();
    return {logicalLength * m_document.OutputWidth() / size.width(),
            logicalLength * m_document.OutputHeight() / size.height()};
}

QRect CanvasGeometry::devicePlaceOf(const QRectF &pixels) const
{
    const auto device = [this](double pixel, int start, int length, int count, int room) {
        const double outOfSight = 4.0 * lineWidth();
        return static_cast<int>(
            std::lround(std::clamp(start + pixel * length / count, -outOfSight, room + outOfSight)));
    };
    const QRect place = m_frame.place();
    const QSize output = m_frame.output();
    const auto x = [&](double pixel) {
        return device(pixel, place.x(), place.width(), output.width(), m_frame.room().width());
    };
    const auto y = [&](double pixel) {
        return device(pixel, place.y(), place.height(), output.height(), m_frame.room().height());
    };
    const QPoint corner(x(pixels.left()), y(pixels.top()));
    return {corner, QSize(x(pixels.right()) - corner.x(), y(pixels.bottom()) - corner.y())};
}

QRect CanvasGeometry::devicePlaceOf(const Layer &layer) const
{
    return devicePlaceOf(QRectF(layer.xpoint(), layer.ypoint(), layer.screenSizeWidth(), layer.screenSizeHeight()));
}

QPointF CanvasGeometry::widgetPointOf(const QPoint &devicePixel) const
{
    return QPointF(devicePixel) / m_pixelRatio + offsetOfDevicePixels();
}

QRectF CanvasGeometry::widgetPlaceOf(const QRect &devicePixels) const
{
    return {widgetPointOf(devicePixels.topLeft()), QSizeF(devicePixels.size()) / m_pixelRatio};
}

int CanvasGeometry::lineWidth() const
{
    return std::max(1, static_cast<int>(m_pixelRatio));
}
