#include "canvas/LWCanvasImageView.h"

#include "canvas/CanvasDocument.h"
#include "still/LWStill.h"

#include <QApplication>

#include <utility>

LWCanvasImageView::LWCanvasImageView(CanvasDocument &document, QWidget *parent)
    : QWidget(parent), m_document(document), m_geometry(*this, document)
{
    makeTools();
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

void LWCanvasImageView::showOutput()
{
    CanvasFrame frame = deviceFrame();
    frame.setOutput(m_document.output().picture.size());
    takeFrame(frame);
    for (const QRect &part : m_picture.stale(m_document.output(), deviceFrame().place()))
        update(m_geometry.widgetPlaceOf(part).toAlignedRect().adjusted(-1, -1, 1, 1));
}

void LWCanvasImageView::showChanges()
{
    placeMarker();
    if (!isDragged())
        showCursor(); // a layer may have gone from under the pointer, or come
    showOverlay();
}

void LWCanvasImageView::showOverlay()
{
    if (Overlay now = overlay(); now != m_overlay) {
        m_overlay = std::move(now);
        update();
    }
}

/// Around a selected still as it was rendered last, in the frame as it is now; other layers have none.
void LWCanvasImageView::placeMarker()
{
    const LayerPointer layer = m_document.selectedLayer();
    auto *still = qobject_cast<LWStill *>(layer.get());
    m_cropMarker.setHide(!still);
    if (!still)
        return;
    still->placeMarker();
    setKScaleFactor(still->marker().scaleFactor);
    setMarker(still->marker().rectangle);
}

void LWCanvasImageView::putMarkerBack()
{
    const LayerPointer layer = m_document.selectedLayer();
    if (const auto *still = qobject_cast<const LWStill *>(layer.get()))
        drawRectangle(still->marker().rectangle);
}

void LWCanvasImageView::drawRectangle(const QRectF &rectangle)
{
    setMarker(rectangle);
    showOverlay();
}

void LWCanvasImageView::setMarker(const QRectF &rectangle)
{
    if (rectangle.width() == 0)
        return m_cropMarker.setHide(true);
    if (m_cropMarker.isTracking())
        return;
    const LayerPointer layer = m_document.selectedLayer();
    const bool isExact = layer && !deviceFrame().isFitted() && !m_geometry.isEmpty();
    m_cropMarker.setExactScale(isExact ? m_geometry.unitsPerPixel() : QSizeF());
    m_cropMarker.setSelectedRect(isExact ? exactRectangle(*layer) : rectangle);
}

QRectF LWCanvasImageView::exactRectangle(const Layer &layer) const
{
    const QSizeF scale = m_geometry.unitsPerPixel();
    return {layer.xpoint() * scale.width(), layer.ypoint() * scale.height(), layer.screenSizeWidth() * scale.width(),
            layer.screenSizeHeight() * scale.height()};
}

void LWCanvasImageView::showRectangle()
{
    m_cropMarker.setHide(false);
    showOverlay();
}

void LWCanvasImageView::hideRectangle()
{
    m_cropMarker.setHide(true);
    showOverlay();
}

void LWCanvasImageView::zoomToFit()
{
    CanvasFrame frame = deviceFrame();
    frame.fit();
    takeFrame(frame);
}

void LWCanvasImageView::setZoom(double percent)
{
    zoomAt(percent / 100, middle());
}

void LWCanvasImageView::zoomAt(double zoom, const QPointF &widgetPoint)
{
    CanvasFrame frame = deviceFrame();
    frame.setZoom(zoom, m_geometry.devicePoint(widgetPoint));
    takeFrame(frame);
}

void LWCanvasImageView::stepZoom(int steps, const QPointF &widgetPoint)
{
    CanvasFrame frame = deviceFrame();
    frame.stepZoom(steps, m_geometry.devicePoint(widgetPoint));
    takeFrame(frame);
}

void LWCanvasImageView::takeRoom()
{
    const bool isOtherRatio = m_geometry.pixelRatio() != devicePixelRatioF();
    m_geometry.setPixelRatio(devicePixelRatioF());
    CanvasFrame frame = deviceFrame();
    frame.setRoom((QSizeF(size()) * m_geometry.pixelRatio()).toSize(), qRound(margin * m_geometry.pixelRatio()));
    takeFrame(frame);
    if (isOtherRatio) {
        placeMarker();
        showOverlay();
    }
}

void LWCanvasImageView::takeFrame(const CanvasFrame &frame)
{
    const bool isOtherSize =
        frame.place().size() != deviceFrame().place().size() || frame.isFitted() != deviceFrame().isFitted();
    const bool isOtherOutput = frame.output() != deviceFrame().output();
    const bool isOther = isOtherOutput || frame.place() != deviceFrame().place();
    m_geometry.setDeviceFrame(frame);
    if (isOtherSize || isOtherOutput)
        toolInEffect().reframe(isOtherSize);
    if (isOtherSize)
        placeMarker();
    tellReadOut();
    if (!isOther)
        return;
    emit frameDidChange();
    update();
}

void LWCanvasImageView::tellReadOut()
{
    m_readOut = {deviceFrame().output(), deviceFrame().zoom() * 100, deviceFrame().isFitted(), {}, {}, {}};
    const std::optional<QPoint> pixel = pixelToTell();
    m_readOut.place = pixel ? pixel : m_pointer ? pixelAt(*m_pointer) : std::nullopt;
    if (pixel && m_document.output().picture.valid(*pixel)) {
        m_readOut.pixel = pixel;
        m_readOut.colour = m_document.output().picture.pixelColor(*pixel);
    }
    emit readOutDidChange(m_readOut);
}

std::optional<QPoint> LWCanvasImageView::pixelToTell() const
{
    if (const std::optional<QPoint> reached = toolInEffect().reachedPixel())
        return reached;
    return m_pointer && m_geometry.contains(*m_pointer) ? std::optional(m_geometry.pixelAt(*m_pointer)) : std::nullopt;
}

std::optional<QPoint> LWCanvasImageView::pixelAt(const QPointF &widgetPoint) const
{
    return m_geometry.isEmpty() ? std::nullopt : std::optional(m_geometry.pixelAt(widgetPoint));
}

void LWCanvasImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    takeRoom();
}
