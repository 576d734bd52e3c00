#pragma once

#include "screen/ScreenChart.h"

#include <QImage>

/// The chart drawn the plain way: step by step over the whole wall, each shape straight with QPainter, nothing left out
/// and nothing reused. Slow; ScreenChart::draw() must give the same pixels. Returns a raster of the wall's size, a null
/// image where it has no pixels.
QImage plainChart(const ScreenChart &chart);
