#pragma once

#include "charts/ChartLevels.h"

/// The colours of bars in their order: 0 white, yellow, cyan, green, magenta, red, 6 blue, 7 black.
QRgb barColour(const ChartLevels &levels, int bar, double level);

/// The stand-ins within RGB for the two colours of NTSC's axes.
QRgb minusI(const ChartLevels &levels);
QRgb plusQ(const ChartLevels &levels);
