#pragma once

#include "facts/ShowPorts.h"
#include "layer/WallCables.h"

#include <vector>

/// The cables of a show as the pictures of its walls show them.
namespace ShowCables {

/// Whether the picture of a layer shows more of its ports than whole lines do.
bool areShown(const Layer &layer);

/// Of each wall of `ports`; null where the show does not say what feeds it.
std::vector<WallCablesPointer> of(const ShowPorts &ports);

/// Gives the walls that show them their cables, and takes them from the others; walls whose picture that changes are
/// rendered. `ports`: those of `layers`.
void show(const std::vector<LayerPointer> &layers, const ShowPorts &ports);

} // namespace ShowCables
