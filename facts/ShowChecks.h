#pragma once

#include "facts/Finding.h"
#include "show/Project.h"

#include <vector>

/// What may be wrong in a show.
namespace ShowChecks {

/// Layer by layer from the top, then of the show as a whole. No wall is drawn; pictures that are still in their files
/// are taken for good if they begin like one.
std::vector<Finding> of(const Project &project);

} // namespace ShowChecks
