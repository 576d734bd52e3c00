#pragma once

#include "output/CanvasFrame.h"

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSizeF>

class CanvasDocument;
class Layer;
class QWidget;

/// Where the output stands in the canvas' widget, and what of it is at a place there. Three kinds of coordinates, all
/// with y down: points of the widget, in exact logical pixels; device pixels, from the first whole one in the widget
/// on; pixels of the output from its top left, which count on beside it. Main thread only.
class CanvasGeometry
{
public:
    /// Both outlive this.
    CanvasGeometry(const QWidget &widget, const CanvasDocument &document);

    /// The output's place in device pixels.
    const CanvasFrame &deviceFrame() const { return m_frame; }
    void setDeviceFrame(const CanvasFrame &frame) { m_frame = frame; }
    /// Device pixels per logical one, as the frame knows it.
    double pixelRatio() const { return m_pixelRatio; }
    void setPixelRatio(double ratio) { m_pixelRatio = ratio; }

    /// No output is shown; what follows is about a shown one.
    bool isEmpty() const { return m_frame.place().isEmpty(); }
    /// The output's place in the widget.
    QRectF frame() const;
    /// Logical pixels per output pixel.
    QSizeF unitsPerPixel() const;

    /// A pointer stands on a whole device pixel, whatever digits its logical place has lost.
    QPointF devicePoint(const QPointF &widgetPoint) const;
    /// Whether the output is there. Its left and top edge belong to it, the right and bottom edge do not.
    bool contains(const QPointF &widgetPoint) const;
    /// The output pixel there: left of and above the output below 0.
    QPoint pixelAt(const QPointF &widgetPoint) const;
    /// How many output pixels, which may be a part of one, so many logical pixels across and down are.
    QSizeF pixelsWithin(double logicalLength) const;

    /// The device pixels that a rectangle of the output's pixels is shown on. Edges far out of sight are brought close.
    QRect devicePlaceOf(const QRectF &pixels) const;
    QRect devicePlaceOf(const Layer &layer) const;
    QPointF widgetPointOf(const QPoint &devicePixel) const;
    QRectF widgetPlaceOf(const QRect &devicePixels) const;
    /// Of what is drawn over the output, in device pixels.
    int lineWidth() const;

private:
    QPointF offsetOfDevicePixels() const;

    const QWidget &m_widget;
    const CanvasDocument &m_document;
    CanvasFrame m_frame;
    double m_pixelRatio = 1;
};
