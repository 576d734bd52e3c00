#pragma once

#include "live/WallLook.h"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>

/// What the wall shows, as pictures.
namespace WallPicture {

/// A part of the plane in which the output lies with its top left at 0,0: what is beyond it is black. `output`: in
/// raster format, or null. Returns RGB32 of the part's size.
QImage draw(const QImage &output, const WallLook &look, const QRect &part);

/// Where two looks may differ, in pixels of an output of that size. Nullopt: anywhere.
std::optional<QRegion> difference(const WallLook &before, const WallLook &after, const QSize &output);

/// Each channel times `level` per cent, rounded half up, in place. `picture`: RGB32.
void dim(QImage &picture, int level);

} // namespace WallPicture
