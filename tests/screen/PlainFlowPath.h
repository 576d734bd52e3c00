#pragma once

#include "screen/ScreenChart.h"
#include "tests/screen/PlainCanvas.h"

/// Draws the chart's data path: one run per port, cut from the bottom up or from the left to the right.
void drawPlainFlowPath(const ScreenChart &chart, PlainCanvas &canvas);
