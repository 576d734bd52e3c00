#pragma once

#include "layer/Layer.h"

#include <vector>

/// The walls that the preset table starts with: one for each common panel type, then four test patterns that fill an
/// output of 1920 x 1080 pixels.
namespace BuiltInPresets {

/// New presets, 31, in the order of the table. Making them draws nothing; each draws its pixels when they are first
/// asked for.
[[nodiscard]] std::vector<LayerPointer> make(LayerHost &host);

} // namespace BuiltInPresets
