#pragma once

#include "grid/PortSplit.h"
#include "layer/Layer.h"

#include <optional>
#include <vector>

/// Ports of a processor that follow each other and carry the same.
struct PortGroup
{
    qint64 first = 1; ///< the first port is 1
    qint64 last = 1;
    qint64 lines = 0;             ///< rows of panels on each port, columns for a pattern along columns
    qint64 panels = 0;            ///< on each port
    std::optional<qint64> pixels; ///< on each port; nullopt: more than 64 bits can count

    qint64 count() const { return last - first + 1; }
};

/// How the panels of a wall hang on the ports of its processor, whether its data path is drawn or not.
struct WallPorts
{
    std::optional<FlowPattern> path;  ///< nullopt: there is no such pattern, so no ports either
    std::vector<PortGroup> groups;    ///< in the processor's order; at most two, since only the last port differs
    bool isOverLimit = false;         ///< not even one line of panels fits a port: all of them are on one
    std::optional<qint64> linePixels; ///< of one line of panels, where there are ports; as in a group

    static WallPorts of(const Layer &wall);

    qint64 count() const { return groups.empty() ? 0 : groups.back().last; }
    /// What the path's lines are called: "row" or "column". For a wall with a path.
    const char *lineName() const { return path->along == FlowPattern::Along::Rows ? "row" : "column"; }
};
