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

/// A picture that cannot be fitted in, as without memory: its rows in the raster format would be longer than Qt allows.
inline QImage unfittable()
{
    return {70'000'000, 1, QImage::Format_Mono};
}
