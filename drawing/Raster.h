#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

/// Bitmaps of the house: `QImage::Format_ARGB32_Premultiplied`, top row first, new ones fully transparent.
/// One format everywhere, since Qt's painter is fast on this one and since conversions cost more than drawing.
namespace Raster {

inline constexpr QImage::Format format = QImage::Format_ARGB32_Premultiplied;
/// Longest side of a raster in pixels.
inline constexpr qint64 longestSide = 32768;
/// Most pixels in a raster: 1 GiB of memory.
inline constexpr qint64 mostPixels = qint64{1} << 28;

/// Whether a raster of this size can be had; also false for empty sizes.
bool canHold(qint64 width, qint64 height);

/// A transparent raster; a null image where canHold() says no or the memory cannot be had.
QImage make(qint64 width, qint64 height);

/// A raster of this size with undefined pixels, for those who write each of them: `old` itself where it has the size
/// and nobody else holds it, since fresh memory costs more than drawing does.
QImage reuse(QImage old, qint64 width, qint64 height);

/// Makes a part of a raster, which lies within it, transparent.
void clear(QImage &raster, const QRect &part);

/// A part of a picture without copying its pixels, which the view keeps until it is written to. `part` lies within a
/// picture whose pixels are whole bytes.
[[nodiscard]] QImage view(const QImage &picture, const QRect &part);

} // namespace Raster
