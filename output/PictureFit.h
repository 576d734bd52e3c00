#pragma once

#include "output/Composition.h"

#include <QRect>

#include <optional>

/// How a placed picture becomes pixels of the output: which of its pixels are asked for.
struct PictureFit
{
    qint64 cacheKey; ///< of the picture
    QSize size;      ///< of the picture's place
    QRect part;      ///< of the place, from its top left, what is made; at most the place or the output in size
    bool changes;    ///< the picture differs from what is asked for, in size or format

    /// The fit of `placed` to an output of this size; none where nothing of it shows.
    static std::optional<PictureFit> of(const PlacedPicture &placed, const QSize &output);

    /// That part of the picture, in raster format; smooth where its size differs. Null where the memory cannot be had.
    QImage made(const QImage &picture) const;

    bool operator==(const PictureFit &) const = default;
};
