#pragma once

#include "layer/CableRun.h"
#include "wiring/PortBounds.h"
#include "wiring/WallPanels.h"

#include <span>

/// The panels of a wall, of WallPanels::mostPanels at most, in the order of its cables, cut into runs, each on one
/// port.
struct WallSplit
{
    /// Panels `begin` to `end`, which is the first one behind.
    struct Run
    {
        std::size_t begin = 0;
        std::size_t end = 0;

        bool operator==(const Run &) const = default;
    };

    std::vector<WiredPanel> panels;
    std::vector<Run> runs;
    bool isLineOver = false; ///< whole lines: not even one fits the limit, and all are one run

    /// Whole lines by the limit that the wall has (0: none): the runs that its chart draws, from the pattern's edge.
    /// They pass panels that are off, which are not listed; a run may have none that is on.
    static WallSplit byLines(const WallShape &wall, const FlowPattern &pattern, qint64 pixelLimit);

    /// Along the path of the whole wall, each port with as many panels as it bears. A panel that does not fit alone is
    /// alone on its port. `before` hangs on the first port already: its run may be empty.
    static WallSplit byPanels(const WallShape &wall, const FlowPattern &pattern, const PortBounds &bounds,
                              const PortLoad &before = {});

    /// As it was laid; a run for each of `runs`. Cells that the wall lacks are left out.
    static WallSplit byHand(const WallShape &wall, const WallRuns &runs);

    std::span<const WiredPanel> panelsOf(const Run &run) const
    {
        return std::span(panels).subspan(run.begin, run.end - run.begin);
    }
    PortLoad loadOf(const Run &run) const;
};
