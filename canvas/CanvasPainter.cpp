#include "canvas/CanvasPainter.h"

#include "canvas/CanvasGeometry.h"
#include "canvas/DevicePixels.h"

#include <QFontMetrics>
#include <QRegion>
#include <QWidget>

#include <algorithm>

namespace {
constexpr int distanceOfText = 16;
} // namespace

QRect movedIntoSight(const QWidget &widget, QRect box)
{
    box.moveTo(std::clamp(box.x(), 0, std::max(0, widget.width() - box.width())),
               std::clamp(box.y(), 0, std::max(0, widget.height() - box.height())));
    return box;
}

QRect boxBeside(const QWidget &widget, const QPointF &widgetPoint, const QString &text)
{
    constexpr int padding = 2 * CanvasPainter::paddingOfText;
    const QSize size = widget.fontMetrics().size(Qt::TextSingleLine, text) + QSize(padding, padding);
    return movedIntoSight(widget, {widgetPoint.toPoint() + QPoint(distanceOfText, distanceOfText), size});
}

CanvasPainter::CanvasPainter(QWidget &widget, const CanvasGeometry &geometry, const std::optional<QPointF> &pointer)
    : m_widget(widget), m_geometry(geometry), m_pointer(pointer), m_painter(&widget), m_widgets(m_painter.transform())
{
    toDevicePixels(m_painter, widget);
    m_devices = m_painter.transform();
}

QPainter &CanvasPainter::inDevicePixels()
{
    m_painter.setTransform(m_devices);
    return m_painter;
}

QPainter &CanvasPainter::inWidget()
{
    m_painter.setTransform(m_widgets);
    return m_painter;
}

QColor CanvasPainter::highlight() const
{
    return m_widget.palette().color(QPalette::Highlight);
}

void CanvasPainter::outline(const QRect &place, int width)
{
    QPainter &painter = inDevicePixels();
    for (const QRect &side : QRegion(place.adjusted(-width, -width, width, width)).subtracted(place))
        painter.fillRect(side, highlight());
}

void CanvasPainter::outline(const Layer &layer)
{
    outline(m_geometry.devicePlaceOf(layer), m_geometry.lineWidth());
}

void CanvasPainter::uprightLine(double pixel)
{
    const int x = m_geometry.devicePlaceOf(QRectF(pixel, 0, 0, 0)).x();
    inDevicePixels().fillRect(x, 0, m_geometry.lineWidth(), m_geometry.deviceFrame().room().height(), highlight());
}

void CanvasPainter::levelLine(double pixel)
{
    const int y = m_geometry.devicePlaceOf(QRectF(0, pixel, 0, 0)).y();
    inDevicePixels().fillRect(0, y, m_geometry.deviceFrame().room().width(), m_geometry.lineWidth(), highlight());
}

void CanvasPainter::text(const QRect &box, const QString &text)
{
    textIn(box, text, QPalette::ToolTipText);
}

void CanvasPainter::warning(const QRect &box, const QString &text)
{
    textIn(box, text, QPalette::BrightText);
}

void CanvasPainter::textIn(const QRect &box, const QString &text, QPalette::ColorRole colour)
{
    QPainter &painter = inWidget();
    painter.fillRect(box, m_widget.palette().color(QPalette::ToolTipBase));
    painter.setPen(m_widget.palette().color(colour));
    painter.drawText(box, Qt::AlignCenter, text);
}

void CanvasPainter::textBesidePointer(const QString &text)
{
    this->text(boxOfPointer(text), text);
}

void CanvasPainter::warningBesidePointer(const QString &text)
{
    warning(boxOfPointer(text), text);
}

QRect CanvasPainter::boxOfPointer(const QString &text) const
{
    return boxBeside(m_widget, m_pointer.value_or(QRectF(m_widget.rect()).center()), text);
}
