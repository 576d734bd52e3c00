#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int wheelStep = 120;
} // namespace

ToolPointer LWCanvasImageView::takePointer(const QMouseEvent &event)
{
    m_pointer = m_exactPointer.placeOf(event);
    return {*m_pointer, event.modifiers()};
}

void LWCanvasImageView::mousePressEvent(QMouseEvent *event)
{
    const ToolPointer pointer = takePointer(*event);
    forgetReached();
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    if (isDragged())
        return;
    const bool isLeft = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (isLeft && m_isSpaceBarHeld)) {
        m_panFrom = pointer.place * m_geometry.pixelRatio();
        m_panButton = event->button();
    } else if (isLeft) {
        m_isPressed = true;
        // Where nothing is shown, no press is beside the layers.
        emit toolDidPress(m_geometry.isEmpty() || toolInEffect().press(pointer));
    }
    showPointer();
}

void LWCanvasImageView::mouseMoveEvent(QMouseEvent *event)
{
    const ToolPointer pointer = takePointer(*event);
    forgetReached();
    claimSpaceBar(true);
    // A release that something else has swallowed ends a press, too.
    m_isPressed = m_isPressed && event->buttons().testFlag(Qt::LeftButton);
    if (m_panFrom)
        panTo(pointer.place);
    else if (toolInEffect().isHolding())
        m_isPressed ? toolInEffect().drag(pointer) : toolInEffect().lose();
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    showPointer();
}

void LWCanvasImageView::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_panFrom && event->button() == m_panButton)
        m_panFrom.reset();
    else if (event->button() == Qt::LeftButton && !m_panFrom)
        toolInEffect().release(takePointer(*event));
    m_isPressed = m_isPressed && event->buttons().testFlag(Qt::LeftButton);
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    showPointer();
}

void LWCanvasImageView::panTo(const QPointF &widgetPoint)
{
    const QPoint way = (widgetPoint * m_geometry.pixelRatio() - *m_panFrom).toPoint();
    m_panFrom = *m_panFrom + way;
    CanvasFrame frame = deviceFrame();
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
        stepZoom(steps, m_exactPointer.placeOf(*event));
}

bool LWCanvasImageView::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::NativeGesture:
        return nativeGesture(*static_cast<QNativeGestureEvent *>(event)) || QWidget::event(event);
    case QEvent::ShortcutOverride:
        if (takesShortcut(*static_cast<QKeyEvent *>(event)))
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
        m_pinchZoom = deviceFrame().zoom();
    m_pinchZoom = std::clamp(m_pinchZoom * (1 + event.value()), 1e-3, CanvasFrame::greatestZoom);
    zoomAt(m_pinchZoom, m_exactPointer.placeOf(event));
    return true;
}

void LWCanvasImageView::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    m_pointer.reset();
    claimSpaceBar(false);
    takeAlt(m_isAltHeld && hasFocus());
    showPointer();
}

void LWCanvasImageView::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_isPressed || isDragged() || m_geometry.isEmpty())
        return;
    // Told of the press, the pointer is known to the device pixel.
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPointF place = isByMouse ? m_pointer.value_or(event->pos()) : QPointF(event->pos());
    if (event->reason() != QContextMenuEvent::Keyboard && !toolInEffect().menu(place))
        return;
    emit layerMenuAsked(event->globalPos());
}
