#pragma once

#include "screen/ScreenChart.h"

#include <QImage>

/// Walls to measure with.
namespace Charts {

/// A wall with everything on that a screen can draw: panels, frames, circle, texts, labels, flow path.
ScreenChart everythingOn(int columns, int rows, int panelSide);

/// The picture of such a wall with panels of 120 x 120, which the sides are multiples of; opaque.
QImage picture(const QSize &size);

/// One of several such pictures, with panels of 60 x 60; `number` gives it its own colours.
QImage picture(const QSize &size, int number);

} // namespace Charts
