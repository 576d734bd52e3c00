#pragma once

#include <QString>

/// Why a wall that has pixels has no picture, in the same words wherever it is told.
namespace LostWall {

/// A wall of this size, in pixels, has some, but more than a raster can hold.
bool isTooLarge(qint64 width, qint64 height);

/// "32,896 x 320 pixels are too large to draw; make the wall smaller"; of a size that could be drawn, that there was no
/// memory for it.
QString reason(qint64 width, qint64 height);

/// The same with the wall's name in front: "MAIN: 32,896 x 320 pixels ...".
QString sentence(const QString &label, qint64 width, qint64 height);

} // namespace LostWall
