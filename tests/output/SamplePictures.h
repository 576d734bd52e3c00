#pragma once

#include "drawing/Raster.h"
#include "output/Composition.h"

inline QImage filled(const QSize &size, const QColor &colour)
{
    QImage picture(size, Raster::format);
    picture.fill(colour);
    return picture;
}

inline PlacedPicture placed(const QImage &picture, int x, int y)
{
    return {picture, QPoint(x, y), picture.size()};
}

inline OutputStyle style(const QSize &size, const Colour &background, const Colour &edge)
{
    return {size, background, edge};
}
