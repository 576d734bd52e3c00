#pragma once

#include "canvas/JXSelectionBorder.h"
#include "canvas/tools/CanvasTool.h"

/// The marker around the selected still, taken by hand: inside it moves the still, a handle resizes it. The rules are
/// JXSelectionBorder's. Points are the widget's. Main thread only.
class MarkerHand
{
public:
    explicit MarkerHand(const ToolSurroundings &canvas) : m_canvas(canvas) {}

    /// Whether the point is in the marker or on a handle, which may stand beside the still.
    bool isOn(const QPointF &place) const;
    /// Resizing keeps the layer's ratio, where it asks for that.
    void lockAspect(const Layer &layer);
    /// A press on that still: what is at the point is held.
    void press(const QPointF &place, const LayerPointer &still);
    bool isHolding() const { return m_canvas.marker.isTracking(); }
    void drag(const QPointF &place);
    /// What the drag has led to becomes an edit on a later turn of the event loop.
    void release(const QPointF &place);
    /// The marker is as before the press.
    void letGo() { m_canvas.marker.cancelTracking(); }

    void paint(CanvasPainter &painter) const;

private:
    JXSelectionBorder::MouseLocation locationOf(const QPointF &place) const;
    QRectF viewBounds() const;

    ToolSurroundings m_canvas;
};
