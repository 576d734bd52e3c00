#pragma once

#include "bench/Timing.h"

/// What it costs to know which panel hangs on which port. A plain pass lists the panels of the walls with their places.
namespace WiringSubjects {

/// Ports of a wall of 200 x 200 panels that is cut panel by panel, in plain passes over its panels.
double timeOfSplit();
/// All checks of 500 walls of 9 x 9 panels side by side, on processors enough, in plain passes over their panels.
double timeOfChecks();

/// The rendering of a wall of 60 x 34 panels of 128 x 128 whose cables were laid by hand, everything on, with port
/// colours, names and places. Bytes are the raster's.
Subject handWiredWall();

} // namespace WiringSubjects
