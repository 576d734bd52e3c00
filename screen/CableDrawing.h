#pragma once

#include "drawing/DrawingSurface.h"
#include "grid/PanelGrid.h"
#include "layer/WallCables.h"

#include <QPointF>
#include <QRect>

#include <vector>

/// A cable through the centres of its panels: straight, an arrowhead in the middle of each stretch without a turn, one
/// in green where it begins and one in red where it ends. Jumps, see isCableJump(), are dashed. Raster coordinates,
/// y up, double precision.
namespace CableDrawing {

/// Hops that go straight on; or one that is a jump.
struct Stretch
{
    QPointF from;
    QPointF to;
    bool isJump = false;

    QPointF middle() const { return (from + to) / 2; }
    bool operator==(const Stretch &) const = default;
};

/// In the order of the cable; none where it has fewer than two panels.
std::vector<Stretch> stretchesOf(const PanelGrid &grid, const std::vector<Cell> &cells);

void draw(DrawingSurface &surface, const PanelGrid &grid, const WallCable &cable, const Colour &colour);

/// Where it puts pixels, from the raster's top left, y down; may reach out of the wall.
QRect reachOf(const PanelGrid &grid, const WallCable &cable);

} // namespace CableDrawing
