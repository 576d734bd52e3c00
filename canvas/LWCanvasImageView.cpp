#include "canvas/LWCanvasImageView.h"

#include "canvas/CanvasDocument.h"

#include <QApplication>

LWCanvasImageView::LWCanvasImageView(CanvasDocument &document, QWidget *parent) : QWidget(parent), m_document(document)
{
    // The whole area is painted, ground included: Qt need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName("Canvas");
    // Who moves the focus by key means what has it then, though the pointer rests here.
    connect(qApp, &QApplication::focusChanged, this, [this] { claimSpaceBar(false); });
}

LWCanvasImageView::~LWCanvasImageView()
{
    disconnect(qApp, nullptr, this, nullptr); // a widget that goes gives up the focus when it is half gone
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
    if (rectangle.width() == 0)
        return hideRectangle();
    if (m_cropMarker.isTracking())
        return;
    const LayerPointer layer = m_document.selectedLayer();
    const bool isExact = layer && !m_frame.isFitted() && !m_frame.place().isEmpty();
    m_cropMarker.setExactScale(isExact ? unitsPerPixel() : QSizeF());
    m_cropMarker.setSelectedRect(isExact ? exactRectangle(*layer) : rectangle);
    update();
}

/// Of the view, per output pixel.
QSizeF LWCanvasImageView::unitsPerPixel() const
{
    const QSizeF frameSize = frame().size();
    return {frameSize.width() / m_frame.output().width(), frameSize.height() / m_frame.output().height()};
}

QRectF LWCanvasImageView::exactRectangle(const Layer &layer) const
{
    const QSizeF scale = unitsPerPixel();
    return {layer.xpoint() * scale.width(), layer.ypoint() * scale.height(), layer.screenSizeWidth() * scale.width(),
            layer.screenSizeHeight() * scale.height()};
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
    frame.setZoom(zoom, devicePoint(widgetPoint));
    takeFrame(frame);
}

void LWCanvasImageView::stepZoom(int steps, const QPointF &widgetPoint)
{
    CanvasFrame frame = m_frame;
    frame.stepZoom(steps, devicePoint(widgetPoint));
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
    const bool isOtherSize = frame.place().size() != m_frame.place().size() || frame.isFitted() != m_frame.isFitted();
    const bool isOtherOutput = frame.output() != m_frame.output();
    const bool isOther = isOtherOutput || frame.place() != m_frame.place();
    m_frame = frame;
    // What is in the person's hand was measured in the old frame.
    if (m_arranging && (isOtherSize || isOtherOutput))
        cancelArranging();
    if (isOtherSize) {
        if (m_cropMarker.isTracking())
            m_cropMarker.cancelTracking();
        m_document.redrawMarker();
    }
    tellReadOut();
    if (isOther)
        emit frameDidChange();
    update();
}

void LWCanvasImageView::tellReadOut()
{
    m_readOut = {m_frame.output(), m_frame.zoom() * 100, m_frame.isFitted(), {}, {}};
    const std::optional<QPoint> pixel = pixelToTell();
    if (pixel && m_picture.output().valid(*pixel)) {
        m_readOut.pixel = pixel;
        m_readOut.colour = m_picture.output().pixelColor(*pixel);
    }
    emit readOutDidChange(m_readOut);
}

std::optional<QPoint> LWCanvasImageView::pixelToTell() const
{
    if (const std::optional<LWScreen::Panel> panel = panelCursor())
        return static_cast<const LWScreen &>(*m_panelCursor->wall).panelRect(*panel).center().toPoint();
    return m_pointer && isInFrame(*m_pointer) ? std::optional(outputPixel(*m_pointer)) : std::nullopt;
}

void LWCanvasImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    takeRoom();
}
