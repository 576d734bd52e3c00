#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"
#include "canvas/Logging.h"
#include "layer/NearestInt.h"
#include "still/LWStill.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {
constexpr int wheelStep = 120;

bool isStill(const Layer &layer)
{
    return qobject_cast<const LWStill *>(&layer) != nullptr;
}
} // namespace

LWCanvasImageView::MouseLocation LWCanvasImageView::locationOf(const QPointF &widgetPoint) const
{
    const QPointF inWindow = mapTo(window(), widgetPoint);
    return {{inWindow.x(), window()->height() - inWindow.y()}, widgetPoint - frame().topLeft()};
}

/// The left and top edge belong to the view, the right and bottom edge do not.
bool LWCanvasImageView::isInView(const MouseLocation &location) const
{
    const QSizeF size = frame().size();
    const QPointF point = location.inView;
    return point.x() >= 0 && point.x() < size.width() && point.y() >= 0 && point.y() < size.height();
}

QPoint LWCanvasImageView::outputPixel(const QPointF &viewPoint) const
{
    // In single precision throughout: a product of both precisions would miss whole pixels that this one meets.
    // Beside the output its pixels count on, left of and above it below 0.
    const QSizeF size = frame().size();
    const float perUnitX = static_cast<float>(m_document.OutputWidth()) / static_cast<float>(size.width());
    const float perUnitY = static_cast<float>(m_document.OutputHeight()) / static_cast<float>(size.height());
    return {truncated(std::floor(double{perUnitX * static_cast<float>(viewPoint.x())})),
            truncated(std::floor(double{perUnitY * static_cast<float>(viewPoint.y())}))};
}

void LWCanvasImageView::mouseDown(const MouseLocation &location)
{
    const LayerPointer layer = m_document.selectedLayer();
    if (!layer || !takesPress(location.inView, *layer))
        return;

    lockAspect(*layer);
    if (isInView(location)) {
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
    return isInView({{}, viewPoint}) || (isStill(layer) && isOnMarker);
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
    if (m_arranging)
        return cancelArranging();
    m_cropMarker.cancelTracking();
    m_document.redrawMarker(); // it may have been drawn elsewhere meanwhile
    update();
}

void LWCanvasImageView::mousePressEvent(QMouseEvent *event)
{
    m_pointer = event->position();
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    if (isDragged())
        return;
    const bool isLeft = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (isLeft && m_isSpaceBarHeld)) {
        m_panFrom = event->position() * m_pixelRatio;
        m_panButton = event->button();
    } else if (isLeft) {
        m_isPressed = true;
        if (m_tool == Tool::Arrange)
            beginArranging(event->position(), event->modifiers());
        else
            mouseDown(locationOf(event->position()));
    }
    showPointer();
}

void LWCanvasImageView::mouseMoveEvent(QMouseEvent *event)
{
    m_pointer = event->position();
    claimSpaceBar(true);
    // A release that something else has swallowed ends a press, too.
    m_isPressed = m_isPressed && event->buttons().testFlag(Qt::LeftButton);
    if (m_panFrom)
        panTo(event->position());
    else if (isDragged() && !m_isPressed)
        cancelDrag();
    else if (m_arranging)
        trackArranging(!event->modifiers().testFlag(Qt::ControlModifier));
    else if (m_cropMarker.isTracking()) {
        m_cropMarker.trackMouse(locationOf(event->position()), viewBounds());
        update();
    }
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    showPointer();
}

void LWCanvasImageView::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_panFrom && event->button() == m_panButton) {
        m_panFrom.reset();
    } else if (event->button() == Qt::LeftButton && !m_panFrom) {
        m_pointer = event->position();
        if (m_arranging)
            trackArranging(!event->modifiers().testFlag(Qt::ControlModifier));
        endPress(locationOf(event->position()));
    }
    m_isPressed = m_isPressed && event->buttons().testFlag(Qt::LeftButton);
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    showPointer();
}

void LWCanvasImageView::endPress(const MouseLocation &location)
{
    if (m_arranging)
        endArranging();
    else if (m_cropMarker.isTracking())
        endDrag(location);
    else if (m_tool == Tool::Panels)
        mouseUp();
}

/// The pointer, or what it means here, may be another one.
void LWCanvasImageView::showPointer()
{
    showCursor();
    takeHover();
    tellReadOut();
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
        if (takesShortcut(static_cast<QKeyEvent *>(event)->key()))
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
    claimSpaceBar(false);
    takeAlt(m_isAltHeld && hasFocus());
    takeHover();
    tellReadOut();
}

void LWCanvasImageView::showCursor()
{
    if (m_panFrom)
        setCursor(Qt::ClosedHandCursor);
    else if (m_isSpaceBarHeld)
        setCursor(Qt::OpenHandCursor);
    else if (m_tool == Tool::Arrange && (m_arranging || layerUnderPointer()))
        setCursor(Qt::SizeAllCursor);
    else
        unsetCursor();
}
