#pragma once

#include "charts/Chart.h"

/// Moving charts over an output of 8K with 64 x 36 panels of 120.
namespace MovingChartSubjects {

/// Going on to the next picture that differs, finding what moved and drawing it: how long it takes as a multiple of a
/// plain `memset` of the rows in which something moves, in a raster of the same size.
double timeOfFrame(const Chart &chart);

} // namespace MovingChartSubjects
