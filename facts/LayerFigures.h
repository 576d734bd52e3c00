#pragma once

#include "layer/Layer.h"

#include <vector>

/// What is counted of layers together and read aloud. A number that would be larger than any is the largest that there
/// is: a file may claim any wall.
struct LayerFigures
{
    qint64 walls = 0;
    qint64 pictures = 0;
    qint64 panels = 0; ///< of walls, those that are off too
    qint64 panelsOff = 0;
    qint64 pixels = 0; ///< of these panels
    qint64 ports = 0;  ///< of walls that have a data path
    qint64 portsOverLimit = 0;

    static LayerFigures of(const std::vector<LayerPointer> &layers);
};
