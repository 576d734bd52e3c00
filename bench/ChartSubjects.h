#pragma once

#include "bench/Timing.h"

/// Renderings of walls into the raster of the rendering before, as an edit does it. Bytes are the raster's.
namespace ChartSubjects {

enum class Labels
{
    Drawn,
    LeftOut
};

/// Square panels, everything on.
Subject wall(int columns, int rows, int panelSide, Labels labels = Labels::Drawn);

} // namespace ChartSubjects
