#pragma once

#include "base/Colour.h"

/// The colours that tell the ports of a processor apart: a cycle in which each differs from the two before it and the
/// two behind it by a CIEDE2000 of at least 15, for eyes without protan, deutan or tritan cones, too. All are light:
/// they stand on walls that are mostly dark, and as texts on black.
namespace PortColours {

inline constexpr int count = 8;

/// Of a port, 1 the first; 0, which is none, has the first one's.
Colour of(qint64 port);

} // namespace PortColours
