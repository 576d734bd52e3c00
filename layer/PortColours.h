#pragma once

#include "base/Colour.h"
#include "layer/WallCables.h"

/// The colours that tell ports apart: any two of them differ by a CIEDE2000 of at least 15, for eyes without protan,
/// deutan or tritan cones, too. All are light: they stand on walls that are mostly dark, and as texts on black.
namespace PortColours {

inline constexpr int count = 10;

/// Of a port by itself, 1 the first; they go round. 0, which is none, has the first one's.
Colour of(qint64 port);

/// Of each cable of a wall: that of its port by itself, or the next one that neither the port before it in the wall nor
/// one on a panel beside its own has. Where those have them all, one that the fewest have.
std::vector<Colour> of(const WallCables &cables);

} // namespace PortColours
