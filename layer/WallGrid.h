#pragma once

#include "grid/PanelGrid.h"
#include "layer/Layer.h"

/// Where the panels of a wall lie in it.
inline PanelGrid panelGridOf(const LayerRecord &wall)
{
    return {{wall.col, wall.panelWidth}, {wall.row, wall.panelHeight}};
}
inline PanelGrid panelGridOf(const Layer &wall)
{
    return panelGridOf(*wall.record());
}
