#pragma once

#include "facts/Finding.h"
#include "facts/ShowPorts.h"

#include <vector>

/// What may be wrong with the ports and cables of a show. Nothing is found in a show without processors, and walls
/// without one are left out.
namespace WiringChecks {

/// By processor, port and wall.
std::vector<Finding> of(const ShowPorts &ports);

/// The names of all checks that are made here.
std::vector<const char *> names();

} // namespace WiringChecks
