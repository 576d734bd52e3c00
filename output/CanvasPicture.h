#pragma once

#include "output/ComposedOutput.h"

#include <QColor>
#include <QImage>
#include <QRect>
#include <QRegion>

class QPainter;

/// The composed output as it is painted on the screen. Below 100 % by area averaging, so that no one-pixel line
/// vanishes: what is seen is made once for a size, then copied, and mended where the output changes. From 100 % up
/// without smoothing, and only the part that is seen. Keeps what it has made, never the output itself.
class CanvasPicture
{
public:
    /// Where the output would be painted in `place` other than it was painted there last: within `place`, all of it
    /// where that is not known.
    QRegion stale(const ComposedOutput &output, const QRect &place) const;

    /// Paints the output into `place`, as far as it lies within `seen`; nothing where it is null. The painter works in
    /// device pixels, both are whole ones.
    void paint(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen);
    /// The same, with an outline of one device pixel around and the ground's colour under what is transparent.
    void paintFramed(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen,
                     const QColor &outline, const QColor &ground);

private:
    void paintReduced(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen);
    void make(const QImage &output, const QRect &part);
    void mend(const QImage &output, const QRegion &change);

    QImage m_reduced;         ///< the part of the output that was seen, at the size that it was painted in
    QRect m_part;             ///< that part, in pixels of that size
    QSize m_size;             ///< of the whole output
    qint64 m_reducedFrom = 0; ///< the cache key of that output

    qint64 m_paintedKey = 0; ///< of the output that was painted last
    QRect m_paintedPlace;    ///< and where
};
