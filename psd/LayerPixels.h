#pragma once

#include <QByteArray>
#include <QImage>

/// Blocks of pixels as red, green, blue and alpha, one byte each, row after row without gaps.
namespace LayerPixels {

inline constexpr int bytesPerPixel = 4;

/// The pixels of a raster (drawing/Raster.h) as a block of `width` x `height` pixels, both 0 or more, with the raster
/// in its top left corner: transparent where it does not reach, without what reaches beyond. Memory that cannot be had
/// is a std::bad_alloc.
QByteArray blockOf(const QImage &raster, qint64 width, qint64 height);

/// Divides the colours of each pixel by its alpha: byte / (alpha / 255) in double precision, at most 255, truncated.
/// What is no number counts as 255, so that transparent pixels turn white.
void unpremultiply(QByteArray &block);

/// Turns a block upside down as if its rows were `width` pixels long and it had `height` of them, both from 1 to
/// 30,000. A pixel whose counterpart lies beyond the block stays.
void flip(QByteArray &block, qint64 width, qint64 height);

} // namespace LayerPixels
