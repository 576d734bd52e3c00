#pragma once

#include <QColor>
#include <QtGlobal>

/// Inner loops over rows of pixels, with the widest instructions that the machine has.
/// The arithmetic is that of Qt's painter, so that either way of drawing gives the same pixels.
namespace PixelRows {

/// Lays a colour (premultiplied) over `count` pixels, source-over, as far as `coverage` (0 to 255 a pixel) says.
void blend(QRgb *pixels, const uchar *coverage, qsizetype count, QRgb colour);

/// Coverage of two shapes laid over each other: each byte becomes 1 - (1 - a)(1 - b).
void unite(uchar *coverage, const uchar *added, qsizetype count);

/// Writes `count` pixels of one colour.
void fill(QRgb *pixels, qsizetype count, QRgb colour);

/// Copies a row into a raster too large for the cache, without first reading what it replaces. Other threads see the
/// pixels after finishCopies().
void copyPastCache(QRgb *pixels, const QRgb *source, qsizetype count);
void finishCopies();

/// Whether all of `count` pixels are opaque.
bool areOpaque(const QRgb *pixels, qsizetype count);

/// Has the processor fetch a pixel that will soon be drawn over; a hint only.
inline void prefetch(const QRgb *pixel)
{
    __builtin_prefetch(pixel, 1);
}

} // namespace PixelRows
