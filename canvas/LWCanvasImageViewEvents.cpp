#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"
#include "canvas/Logging.h"
#include "layer/PixelBox.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

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
    return {{inWindow.x(), window()->height() - inWindow.y()},
            widgetPoint - frame().topLeft(),
            m_geometry.pixelAt(widgetPoint)};
}

std::optional<QPoint> LWCanvasImageView::pixelAt(const QPointF &widgetPoint) const
{
    return m_geometry.isEmpty() ? std::nullopt : std::optional(m_geometry.pixelAt(widgetPoint));
}

void LWCanvasImageView::mouseDown(const QPointF &widgetPoint)
{
    if (m_geometry.isEmpty())
        return;
    const LayerPointer layer = m_document.selectedLayer();
    if (!layer || !isOn(*layer, widgetPoint))
        return selectLayerAt(widgetPoint);

    lockAspect(*layer);
    if (m_geometry.contains(widgetPoint)) {
        pressPixel(layer, m_geometry.pixelAt(widgetPoint));
        update();
    }
    if (isStill(*layer))
        m_cropMarker.selectAndTrackMouseWithEvent(locationOf(widgetPoint), layer);
}

void LWCanvasImageView::pressPixel(const LayerPointer &layer, const QPoint &pixel)
{
    if (const auto wall = std::dynamic_pointer_cast<LWScreen>(layer)) {
        m_painting = std::make_shared<PanelPainting>(m_document, wall, pixel);
        m_shakenFrom = m_pointer;
        return;
    }
    layer->onImageClick(pixel.x(), pixel.y());
    m_document.update(nullptr);
}

/// A still's marker belongs to it, also where it stands beside the still. A still without a picture has none: what the
/// border holds is another one's.
bool LWCanvasImageView::isOn(const Layer &layer, const QPointF &widgetPoint) const
{
    auto handle = JXSelectionBorder::Handle::None;
    const bool isOnMarker = m_cropMarker.mouseIsInFrame(locationOf(widgetPoint).inView, handle) ||
                            handle != JXSelectionBorder::Handle::None;
    return (isStill(layer) && layer.screenSizeWidth() > 0 && isOnMarker) ||
           PixelBox::of(layer).contains(m_geometry.pixelAt(widgetPoint));
}

/// Where nothing is shown, no press is beside the layers.
bool LWCanvasImageView::isOnLayer(const QPointF &widgetPoint) const
{
    const LayerPointer selected = m_document.selectedLayer();
    const bool goesToSelected = m_tool == Tool::Panels && selected && isOn(*selected, widgetPoint);
    return m_geometry.isEmpty() || goesToSelected || layerUnderPointer();
}

void LWCanvasImageView::selectLayerAt(const QPointF &widgetPoint)
{
    const LayerPointer layer = Arranging::layerAt(m_document, m_geometry.pixelAt(widgetPoint));
    if (layer)
        m_document.select(layer, false);
    update();
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
    if (m_painting)
        return std::exchange(m_painting, nullptr)->cancel();
    m_cropMarker.cancelTracking();
    m_document.redrawMarker(); // it may have been drawn elsewhere meanwhile
    update();
}

void LWCanvasImageView::mousePressEvent(QMouseEvent *event)
{
    const QPointF place = m_exactPointer.placeOf(*event);
    m_pointer = place;
    m_panelCursor.reset();
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    if (isDragged())
        return;
    const bool isLeft = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (isLeft && m_isSpaceBarHeld)) {
        m_panFrom = place * m_geometry.pixelRatio();
        m_panButton = event->button();
    } else if (isLeft) {
        m_isPressed = true;
        const bool isOnLayer = this->isOnLayer(place); // the press may select another one
        if (m_tool == Tool::Arrange)
            beginArranging(place, event->modifiers());
        else
            mouseDown(place);
        emit toolDidPress(isOnLayer);
    }
    showPointer();
}

void LWCanvasImageView::mouseMoveEvent(QMouseEvent *event)
{
    const QPointF place = m_exactPointer.placeOf(*event);
    m_pointer = place;
    m_panelCursor.reset();
    claimSpaceBar(true);
    // A release that something else has swallowed ends a press, too.
    m_isPressed = m_isPressed && event->buttons().testFlag(Qt::LeftButton);
    if (m_panFrom)
        panTo(place);
    else if (m_painting)
        paintPanels(event->modifiers().testFlag(Qt::ShiftModifier));
    else if (isDragged() && !m_isPressed)
        cancelDrag();
    else if (m_arranging)
        trackArranging(!event->modifiers().testFlag(Qt::ControlModifier));
    else if (m_cropMarker.isTracking()) {
        m_cropMarker.trackMouse(locationOf(place), viewBounds());
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
        const QPointF place = m_exactPointer.placeOf(*event);
        m_pointer = place;
        if (m_arranging)
            trackArranging(!event->modifiers().testFlag(Qt::ControlModifier));
        endPress(locationOf(place));
    }
    m_isPressed = m_isPressed && event->buttons().testFlag(Qt::LeftButton);
    takeAlt(event->modifiers().testFlag(Qt::AltModifier));
    showPointer();
}

void LWCanvasImageView::endPress(const MouseLocation &location)
{
    if (m_arranging)
        endArranging();
    else if (m_painting)
        std::exchange(m_painting, nullptr)->finish();
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
    takeHover();
    tellReadOut();
}

void LWCanvasImageView::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_isPressed || isDragged() || m_geometry.isEmpty())
        return;
    // Told of the press, the pointer is known to the device pixel.
    const bool isByMouse = event->reason() == QContextMenuEvent::Mouse;
    const QPointF place = isByMouse ? m_pointer.value_or(event->pos()) : QPointF(event->pos());
    if (event->reason() != QContextMenuEvent::Keyboard &&
        !Arranging::press(m_document, m_geometry.pixelAt(place), false))
        return;
    emit layerMenuAsked(event->globalPos());
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
