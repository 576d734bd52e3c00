#pragma once

#include <QImage>
#include <QRect>
#include <QSize>

/// Pictures made smaller so that no line of one pixel vanishes: each pixel is the mean of all that it stands for, those
/// at its edges by the part of them that it covers, to a 256th. Fractions of a step are dropped on the way: of many
/// different pixels the mean may be a step too dark, of equal ones it never is. What a pixel becomes depends on the
/// picture and both sizes alone, so that a part can be made anew. Pixels are in raster format (drawing/Raster.h).
namespace AreaReduction {

/// Writes a part of what `picture` is at `size` into `reduced`, from its top left on. No side of `size` is larger than
/// the picture's, `part` lies within `size` and fits into `reduced`.
void reduce(QImage &reduced, const QPoint &topLeft, const QImage &picture, const QSize &size, const QRect &part);

/// The pixels at `size` that a part of the picture shows in.
QRect shownIn(const QRect &part, const QSize &picture, const QSize &size);

} // namespace AreaReduction
