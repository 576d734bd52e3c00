#pragma once

#include "facts/Finding.h"
#include "facts/ShowPorts.h"
#include "show/Project.h"

#include <vector>

/// What may be wrong in a show.
namespace ShowChecks {

/// Layer by layer from the top, then walls beside each other, then ports and cables, then of the show as a whole. What
/// somebody means so is there with the level of what is meant. No wall is drawn; pictures that are still in their files
/// are taken for good if they begin like one.
std::vector<Finding> of(const Project &project);
/// With its ports, where they are known already.
std::vector<Finding> of(const Project &project, const ShowPorts &ports);

/// Whether somebody means what that check finds in the layer, see LayerRecord::meant.
bool isMeant(const Layer &layer, const char *check);

} // namespace ShowChecks
