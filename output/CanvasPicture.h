#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

class QPainter;

/// The composed output as it is painted on the screen. Below 100 % by area averaging, so that no one-pixel line
/// vanishes: made once per composition and size, then only copied. From 100 % up without smoothing, and only the part
/// that is seen.
class CanvasPicture
{
public:
    /// Shares the picture's pixels until release(). Null: there is no output.
    void show(const QImage &output);
    void release();
    const QImage &output() const { return m_output; }

    /// Paints the output into `place`, as far as it lies within `seen`. The painter works in device pixels, both are
    /// whole ones.
    void paint(QPainter &painter, const QRect &place, const QRect &seen);
    /// The same, with an outline of one device pixel around and the ground's colour under what is transparent.
    void paintFramed(QPainter &painter, const QRect &place, const QRect &seen, const QColor &outline,
                     const QColor &ground);

private:
    void paintReduced(QPainter &painter, const QRect &place, const QRect &seen);
    void paintEnlarged(QPainter &painter, const QRect &place, const QRect &seen) const;

    QImage m_output;
    QImage m_reduced; ///< the output at the size that it was last painted in; null when it has to be made
};
