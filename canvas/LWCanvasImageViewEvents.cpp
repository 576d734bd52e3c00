#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"
#include "canvas/Logging.h"
#include "canvas/Truncation.h"
#include "still/LWStill.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int wheelStep = 120;

bool isStill(const Layer &layer)
{
    return qobject_cast<const LWStill *>(&layer) != nullptr;
}

/// The left and top edge belong to a view, the right and bottom edge do not.
bool contains(const QRectF &bounds, const QPointF &point)
{
    return point.x() >= 0 && point.x() < bounds.width() && point.y() >= 0 && point.y() < bounds.height();
}
} // namespace

LWCanvasImageView::MouseLocation LWCanvasImageView::locationOf(const QPointF &widgetPoint) const
{
    const QPointF inWindow = mapTo(window(), widgetPoint);
    return {{inWindow.x(), window()->height() - inWindow.y()}, widgetPoint - frame().topLeft()};
}

QPoint LWCanvasImageView::outputPixel(const QPointF &viewPoint) const
{
    // In single precision throughout: a product of both precisions would miss whole pixels that this one meets.
    const QSizeF size = frame().size();
    const float perUnitX = static_cast<float>(m_document.OutputWidth()) / static_cast<float>(size.width());
    const float perUnitY = static_cast<float>(m_document.OutputHeight()) / static_cast<float>(size.height());
    return {truncated(double{perUnitX * static_cast<float>(viewPoint.x())}),
            truncated(double{perUnitY * static_cast<float>(viewPoint.y())})};
}

void LWCanvasImageView::mouseDown(const MouseLocation &location)
{
    const LayerPointer layer = m_document.selectedLayer();
    if (!layer || !takesPress(location.inView, *layer))
        return;

    lockAspect(*layer);
    if (contains(viewBounds(), location.inView)) {
        const QPoint pixel = outputPixel(location.inView);
        layer->onImageClick(pixel.x(), pixel.y());
        m_document.finishEdit("Switch Panel", {});
        update();
    }
    if (isStill(*layer))
        m_cropMarker.selectAndTrackMouseWithEvent(location, layer);
}

/// Presses in the frame count, and beside it those on a marker that sticks out of it.
bool LWCanvasImageView::takesPress(const QPointF &viewPoint, const Layer &layer) const
{
    if (m_frame.place().isEmpty())
        return false;
    auto handle = JXSelectionBorder::Handle::None;
    const bool isOnMarker = m_cropMarker.mouseIsInFrame(viewPoint, handle) || handle != JXSelectionBorder::Handle::None;
    return contains(viewBounds(), viewPoint) || (isStill(layer) && isOnMarker);
}

void LWCanvasImageView::lockAspect(const Layer &layer)
{
    if (layer.aspectRatio()) {
        qCDebug(lcCanvas, "aspect ratio!");
        m_cropMarker.setAspectRatio(layer.aspectValue());
    }
    m_cropMarker.setLockAspectRatio(layer.aspectRatio());
}

void LWCanvasImageView::mouseUp()
{
    m_document.update(nullptr);
    update();
}

void LWCanvasImageView::endDrag(const MouseLocation &location)
{
    const JXSelectionBorder::Outcome outcome = m_cropMarker.endTracking(location, viewBounds());
    update();
    QTimer::singleShot(0, this, [this, outcome] {
        JXSelectionBorder::apply(outcome, m_document);
        update();
    });
}

void LWCanvasImageView::cancelDrag()
{
    m_cropMarker.cancelTracking();
    m_document.redrawMarker(); // it may have been drawn elsewhere meanwhile
    update();
}

void LWCanvasImageView::mousePressEvent(QMouseEvent *event)
{
    m_pointer = event->position();
    if (isDragged())
        return;
    const bool isLeft = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (isLeft && m_isSpaceBarHeld)) {
        m_panFrom = event->position() * m_pixelRatio;
        m_panButton = event->button();
    } else if (isLeft) {
        mouseDown(locationOf(event->position()));
    }
    showCursor();
    tellReadOut();
}

void LWCanvasImageView::mouseMoveEvent(QMouseEvent *event)
{
    m_pointer = event->position();
    if (m_panFrom) {
        panTo(event->position());
    } else if (m_cropMarker.isTracking()) {
        // A release that something else has swallowed ends a drag, too.
        if (event->buttons() & Qt::LeftButton)
            m_cropMarker.trackMouse(locationOf(event->position()), viewBounds());
        else
            cancelDrag();
        update();
    }
    showCursor();
    tellReadOut();
}

void LWCanvasImageView::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    if (m_panFrom && event->button() == m_panButton)
        m_panFrom.reset();
    else if (isLeft && m_cropMarker.isTracking())
        endDrag(locationOf(event->position()));
    else if (isLeft && !m_panFrom)
        mouseUp();
    showCursor();
}

void LWCanvasImageView::panTo(const QPointF &widgetPoint)
{
    const QPoint way = (widgetPoint * m_pixelRatio - *m_panFrom).toPoint();
    m_panFrom = *m_panFrom + way;
    CanvasFrame frame = m_frame;
    frame.pan(way);
    takeFrame(frame);
}

void LWCanvasImageView::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (isDragged())
        return;
    // Fine wheels tell parts of a step; turning back begins anew.
    const int turned = event->angleDelta().y();
    if ((turned < 0) != (m_wheelRest < 0))
        m_wheelRest = 0;
    m_wheelRest += turned;
    const int steps = m_wheelRest / wheelStep;
    m_wheelRest %= wheelStep;
    if (steps != 0)
        stepZoom(steps, event->position());
}

bool LWCanvasImageView::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::NativeGesture:
        return nativeGesture(*static_cast<QNativeGestureEvent *>(event)) || QWidget::event(event);
    case QEvent::ShortcutOverride:
        // While something is dragged, Escape is ours, whatever it means in the window.
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape && m_cropMarker.isTracking())
            event->accept();
        break;
    case QEvent::ScreenChangeInternal:
        takeRoom();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

/// A pinch on a touch pad.
bool LWCanvasImageView::nativeGesture(const QNativeGestureEvent &event)
{
    if (event.gestureType() == Qt::EndNativeGesture)
        m_pinchZoom = 0;
    if (event.gestureType() != Qt::ZoomNativeGesture || isDragged())
        return false;
    if (m_pinchZoom <= 0)
        m_pinchZoom = m_frame.zoom();
    m_pinchZoom = std::clamp(m_pinchZoom * (1 + event.value()), 1e-3, CanvasFrame::greatestZoom);
    zoomAt(m_pinchZoom, event.position());
    return true;
}

void LWCanvasImageView::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    m_pointer.reset();
    tellReadOut();
}

void LWCanvasImageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_cropMarker.isTracking())
        cancelDrag();
    else if (event->key() == Qt::Key_Space)
        takeSpaceBar(true);
    else
        QWidget::keyPressEvent(event);
}

void LWCanvasImageView::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space)
        return QWidget::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        takeSpaceBar(false);
}

void LWCanvasImageView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    takeSpaceBar(false);
}

void LWCanvasImageView::takeSpaceBar(bool isHeld)
{
    m_isSpaceBarHeld = isHeld;
    showCursor();
}

void LWCanvasImageView::showCursor()
{
    if (m_panFrom)
        setCursor(Qt::ClosedHandCursor);
    else if (m_isSpaceBarHeld)
        setCursor(Qt::OpenHandCursor);
    else
        unsetCursor();
}
