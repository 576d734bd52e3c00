#include "canvas/tools/MarkerHand.h"

#include "canvas/CanvasGeometry.h"
#include "canvas/CanvasPainter.h"
#include "canvas/Logging.h"

#include <QTimer>
#include <QWidget>

JXSelectionBorder::MouseLocation MarkerHand::locationOf(const QPointF &place) const
{
    const QWidget &window = *m_canvas.widget.window();
    const QPointF inWindow = m_canvas.widget.mapTo(&window, place);
    return {{inWindow.x(), window.height() - inWindow.y()},
            place - m_canvas.geometry.frame().topLeft(),
            m_canvas.geometry.pixelAt(place)};
}

QRectF MarkerHand::viewBounds() const
{
    return {QPointF(0, 0), m_canvas.geometry.frame().size()};
}

bool MarkerHand::isOn(const QPointF &place) const
{
    auto handle = JXSelectionBorder::Handle::None;
    return m_canvas.marker.mouseIsInFrame(locationOf(place).inView, handle) ||
           handle != JXSelectionBorder::Handle::None;
}

void MarkerHand::lockAspect(const Layer &layer)
{
    if (layer.aspectRatio()) {
        qCDebug(lcCanvas, "aspect ratio!");
        m_canvas.marker.setAspectRatio(layer.aspectValue());
    }
    m_canvas.marker.setLockAspectRatio(layer.aspectRatio());
}

void MarkerHand::press(const QPointF &place, const LayerPointer &still)
{
    m_canvas.marker.selectAndTrackMouseWithEvent(locationOf(place), still);
}

void MarkerHand::drag(const QPointF &place)
{
    m_canvas.marker.trackMouse(locationOf(place), viewBounds());
    m_canvas.widget.update();
}

void MarkerHand::release(const QPointF &place)
{
    QWidget &widget = m_canvas.widget;
    const JXSelectionBorder::Outcome outcome = m_canvas.marker.endTracking(locationOf(place), viewBounds());
    widget.update();
    QTimer::singleShot(0, &widget, [canvas = m_canvas, outcome] {
        JXSelectionBorder::apply(outcome, canvas.document);
        canvas.putMarkerBack(); // what has changed nothing is told to nobody
        canvas.widget.update();
    });
}

void MarkerHand::paint(CanvasPainter &painter) const
{
    const QPointF corner = m_canvas.geometry.frame().topLeft();
    QPainter &inView = painter.inWidget();
    inView.translate(corner);
    m_canvas.marker.drawContentInView(inView, QRectF(m_canvas.widget.rect()).translated(-corner));
    if (const auto place = m_canvas.marker.trackedPlace())
        painter.textBesidePointer(QString("x %1  y %2  %3 × %4")
                                      .arg(place->topLeft.x())
                                      .arg(place->topLeft.y())
                                      .arg(place->size.width())
                                      .arg(place->size.height()));
}
