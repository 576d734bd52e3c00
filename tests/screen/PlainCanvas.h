#pragma once

#include "base/Colour.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <QString>

/// A raster with its origin bottom-left and y upwards, drawn with QPainter in the plainest way: what is asked for, one
/// call at a time, nothing kept from one to the next. A QRect here is (left, bottom, width, height). `image` must
/// outlive the canvas.
class PlainCanvas
{
public:
    explicit PlainCanvas(QImage &image);

    /// Sets the colour of fills and of strokes; nil leaves both as they are.
    void setColour(const OptionalColour &colour);
    /// Sets the colour of fills; nil leaves it as it is.
    void setFillColour(const OptionalColour &colour);

    /// Fills in the fill colour.
    void fillRect(const QRect &rect, QPainter::CompositionMode mode);
    /// Replaces the `width` pixels along the inside of the rectangle's edges by the fill colour.
    void frameRect(const QRect &rect, int width);
    /// Fills in the fill colour, over what is there.
    void fillPath(const QPainterPath &path);
    /// Strokes in the stroke colour, over what is there. 0 is the thinnest line, a pixel; less draws nothing.
    void strokePath(const QPainterPath &path, double width);
    /// Draws a text, and its box behind it where `background` is a colour, with the bottom left of the box at (x, y).
    /// Nothing for a nil foreground.
    void drawText(qint64 x, qint64 y, const QString &text, double pointSize, const OptionalColour &foreground,
                  const OptionalColour &background);

private:
    QRect flipped(const QRect &rect) const;
    QPainterPath flipped(const QPainterPath &path) const;

    int m_height;
    QPainter m_painter;
    QColor m_fill = Qt::black;
    QColor m_stroke = Qt::black;
};
