#pragma once

#include "base/Colour.h"

class Layer;

/// Black or white, whichever stands off more from both panel colours of the layer; white where it has none.
Colour textColourFor(const Layer &layer);
