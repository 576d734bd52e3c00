#pragma once

#include "base/Counted.h"
#include "layer/Layer.h"

class LWScreen;

/// How large a wall is, whether it can be drawn or not. Nothing is drawn to know it.
struct WallSize
{
    qint64 panels = 0;            ///< those that are off too; 0 for sizes below 1
    std::optional<qint64> pixels; ///< of these panels; nullopt: more than 64 bits can count
    qint64 width = 0;             ///< pixels on the output; below 1 where the wall claims so
    qint64 height = 0;
    bool isTooLargeToDraw = false;

    static WallSize of(const Layer &wall);

    bool hasPixels() const { return pixels != 0; }
};

/// How many different panels of a wall are off.
qint64 countOfPanelsOff(const LWScreen &wall);
