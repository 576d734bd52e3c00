#include "canvas/LWCanvasImageView.h"

#include "canvas/CanvasDocument.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

LWCanvasImageView::LWCanvasImageView(CanvasDocument &document, QWidget *parent) : QWidget(parent), m_document(document)
{
    // The whole area is painted, ground included: Qt need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName("Canvas");
}

void LWCanvasImageView::showOutput(const QImage &output)
{
    m_picture.show(output);
    CanvasFrame frame = m_frame;
    frame.setOutput(output.size());
    takeFrame(frame);
}

QRectF LWCanvasImageView::frame() const
{
    const QRectF place = m_frame.place();
    return {place.topLeft() / m_pixelRatio + offsetOfDevicePixels(), place.size() / m_pixelRatio};
}

/// At a scale of 1.5 a widget may begin between two device pixels: how far from its corner the first whole one begins.
QPointF LWCanvasImageView::offsetOfDevicePixels() const
{
    const QPointF corner = QPointF(mapTo(window(), QPoint(0, 0))) * m_pixelRatio;
    return (QPointF(corner.toPoint()) - corner) / m_pixelRatio;
}

void LWCanvasImageView::drawRectangle(const QRectF &rectangle)
{
    if (rectangle.width() == 0 || m_cropMarker.isTracking())
        return;
    m_cropMarker.setSelectedRect(rectangle);
    update();
}

void LWCanvasImageView::showRectangle()
{
    m_cropMarker.setHide(false);
    update();
}

void LWCanvasImageView::hideRectangle()
{
    m_cropMarker.setHide(true);
    update();
}

void LWCanvasImageView::zoomToFit()
{
    CanvasFrame frame = m_frame;
    frame.fit();
    takeFrame(frame);
}

void LWCanvasImageView::setZoom(double percent)
{
    zoomAt(percent / 100, middle());
}

void LWCanvasImageView::zoomAt(double zoom, const QPointF &widgetPoint)
{
    CanvasFrame frame = m_frame;
    frame.setZoom(zoom, (widgetPoint - offsetOfDevicePixels()) * m_pixelRatio);
    takeFrame(frame);
}

void LWCanvasImageView::stepZoom(int steps, const QPointF &widgetPoint)
{
    CanvasFrame frame = m_frame;
    frame.stepZoom(steps, (widgetPoint - offsetOfDevicePixels()) * m_pixelRatio);
    takeFrame(frame);
}

void LWCanvasImageView::takeRoom()
{
    const bool isOtherRatio = m_pixelRatio != devicePixelRatioF();
    m_pixelRatio = devicePixelRatioF();
    CanvasFrame frame = m_frame;
    frame.setRoom((QSizeF(size()) * m_pixelRatio).toSize(), qRound(margin * m_pixelRatio));
    takeFrame(frame);
    if (isOtherRatio)
        m_document.redrawMarker();
}

void LWCanvasImageView::takeFrame(const CanvasFrame &frame)
{
    const bool isOtherSize = frame.place().size() != m_frame.place().size();
    m_frame = frame;
    if (isOtherSize) {
        // What is in the person's hand was measured in the old frame.
        if (m_cropMarker.isTracking())
            m_cropMarker.cancelTracking();
        m_document.redrawMarker();
    }
    tellReadOut();
    update();
}

void LWCanvasImageView::tellReadOut()
{
    m_readOut = {m_frame.output(), m_frame.zoom() * 100, m_frame.isFitted(), {}, {}};
    if (m_pointer && viewBounds().contains(locationOf(*m_pointer).inView)) {
        const QPoint pixel = outputPixel(locationOf(*m_pointer).inView);
        if (m_picture.output().valid(pixel)) {
            m_readOut.pixel = pixel;
            m_readOut.colour = m_picture.output().pixelColor(pixel);
        }
    }
    emit readOutDidChange(m_readOut);
}

void LWCanvasImageView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    if (m_frame.place().isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter, m_frame.output().isEmpty() ? "The output has no picture" : QString());
        return;
    }
    paintOutput(painter);
    const QPointF corner = frame().topLeft();
    painter.translate(corner);
    m_cropMarker.drawContentInView(painter, QRectF(rect()).translated(-corner));
    painter.translate(-corner);
    if (const auto place = m_cropMarker.trackedPlace())
        paintTrackedPlace(painter, *place);
}

void LWCanvasImageView::paintOutput(QPainter &painter)
{
    painter.save();
    // In device pixels, at whole ones.
    painter.scale(1 / m_pixelRatio, 1 / m_pixelRatio);
    const QPointF origin = painter.deviceTransform().map(QPointF());
    painter.translate(QPointF(origin.toPoint()) - origin);

    const QRect place = m_frame.place();
    const QRect seen(QPoint(0, 0), m_frame.room());
    painter.fillRect(place.adjusted(-1, -1, 1, 1) & seen, palette().color(QPalette::Mid));
    // What lies under a transparent output is the ground, not its outline.
    painter.fillRect(place & seen, palette().color(QPalette::Base));
    m_picture.paint(painter, place, seen);
    painter.restore();
}

/// Beside the pointer, and never out of the canvas.
void LWCanvasImageView::paintTrackedPlace(QPainter &painter, const JXSelectionBorder::Place &place) const
{
    constexpr int distance = 16;
    constexpr int padding = 4;
    const QString text = QString("x %1  y %2  %3 × %4")
                             .arg(place.topLeft.x())
                             .arg(place.topLeft.y())
                             .arg(place.size.width())
                             .arg(place.size.height());
    const QSize size = fontMetrics().size(Qt::TextSingleLine, text) + QSize(2 * padding, 2 * padding);
    QRect box(m_pointer.value_or(middle()).toPoint() + QPoint(distance, distance), size);
    box.moveTo(std::clamp(box.x(), 0, std::max(0, width() - box.width())),
               std::clamp(box.y(), 0, std::max(0, height() - box.height())));
    painter.fillRect(box, palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(box, Qt::AlignCenter, text);
}

void LWCanvasImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    takeRoom();
}
