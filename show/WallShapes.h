#pragma once

#include "layer/Layer.h"
#include "wiring/WallPanels.h"

/// A wall as its panels lie on the output.
WallShape wallShapeOf(const Layer &wall);
