#pragma once

#include "layer/Layer.h"
#include "layer/PixelBox.h"

#include <vector>

/// A wall that lies over others.
struct WallOverlap
{
    qsizetype upper; ///< by their rows in the list, topmost 0
    qsizetype lower; ///< the first of those below it
    PixelBox box;    ///< that both cover
    qint64 more = 0; ///< others below it
};

namespace WallOverlaps {

struct Found
{
    std::vector<WallOverlap> overlaps; ///< by the upper ones
    bool isWhole = true;               ///< false where there is more than was looked at
};

/// Those among visible walls, by the upper ones; each wall is upper once. Panels that are off are holes, through which
/// another wall may stand. Walls that span an output of that size, as backgrounds do, are left out. Its time follows
/// the number of walls that lie side by side, and not that of all; it looks at no more than 2^22 pairs of walls, fewer
/// of those with many panels off, which takes a fraction of a second.
Found of(const std::vector<LayerPointer> &layers, const QSize &output);

} // namespace WallOverlaps
