#pragma once

#include "charts/ChartShape.h"
#include "facts/ShowPorts.h"

#include <vector>

/// The panels of a show as charts ask for them. Of the visible walls alone; those behind the first
/// WallPanels::mostPanels panels are left out.
struct ChartPanels
{
    /// One wall, in pixels of the output.
    struct Wall
    {
        qsizetype row; ///< in the layer list
        QRect box;
        std::vector<ChartPanel> panels; ///< that are on, row by row
    };

    /// Topmost first.
    std::vector<Wall> walls;

    /// `ports`: those of `layers`. A wall without a processor has the ports of its pixels per port, "MAIN 2".
    static ChartPanels of(const std::vector<LayerPointer> &layers, const ShowPorts &ports);

    /// For a chart over the whole output.
    std::vector<ChartPanel> panels() const;
    std::vector<QRect> boxes() const;
};
