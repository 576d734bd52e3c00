#include "facts/WallPorts.h"

#include "facts/WallSize.h"
#include "layer/WallGrid.h"

#include <algorithm>

namespace {
/// One line of panels: a row, or a column where the path runs along columns.
struct Line
{
    qint64 panels;
    qint64 panelPixels;

    std::optional<qint64> pixels(qint64 lines) const { return Counted::product(lines * panels, panelPixels); }
    PortGroup ports(qint64 first, qint64 last, qint64 lines) const
    {
        return {first, last, lines, lines * panels, pixels(lines)};
    }
};

std::vector<PortGroup> groupsOf(const PortSplit &split, const Line &line, qint64 allLines)
{
    if (split.isOneRun)
        return {line.ports(1, 1, allLines)};
    std::vector<PortGroup> groups;
    const qint64 full = std::max(split.fullPorts, qint64{0});
    if (full > 0)
        groups.push_back(line.ports(1, full, split.linesPerPort));
    if (split.remainderLines > 0)
        groups.push_back(line.ports(full + 1, full + 1, split.remainderLines));
    return groups;
}
} // namespace

WallPorts WallPorts::of(const Layer &wall)
{
    WallPorts ports;
    ports.path = FlowPattern::ofCode(wall.pattern());
    if (!ports.path || !WallSize::of(wall).hasPixels())
        return ports;
    const PanelGrid grid = panelGridOf(wall);
    const std::optional<PortSplit> split = PortSplit::of(grid, *ports.path, wall.pixelLimit());
    if (!split)
        return ports;
    const bool isRows = ports.path->along == FlowPattern::Along::Rows;
    const Line line{(isRows ? grid.columns : grid.rows).count(), grid.panelPixels()};
    ports.groups = groupsOf(*split, line, (isRows ? grid.rows : grid.columns).count());
    ports.isOverLimit = split->isOneRun && wall.pixelLimit() > 0;
    ports.linePixels = line.pixels(1);
    return ports;
}
