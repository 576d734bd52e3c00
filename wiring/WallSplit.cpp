#include "wiring/WallSplit.h"

namespace {
/// The lines of each run in the order of the path. The chart's ports are counted from the bottom and from the left:
/// where the path comes from the other edge, the rest is its first run.
std::vector<qint64> linesOfRuns(const PortSplit &split, const FlowPattern &pattern, qint64 allLines)
{
    if (split.isOneRun)
        return {allLines};
    std::vector<qint64> lines(static_cast<std::size_t>(std::max(split.fullPorts, qint64{0})), split.linesPerPort);
    const bool isRows = pattern.along == FlowPattern::Along::Rows;
    const bool comesFromFarEdge = isRows ? !pattern.fromBottom : pattern.fromRight;
    if (split.remainderLines > 0)
        lines.insert(comesFromFarEdge ? lines.begin() : lines.end(), split.remainderLines);
    return lines;
}

/// Behind the last panel from `begin` up to which all fit on a port that bears `load` already; `begin`: none does.
std::size_t furthestEnd(std::span<const WiredPanel> panels, std::size_t begin, const PortBounds &bounds, PortLoad load)
{
    std::size_t end = begin;
    for (std::size_t next = begin; next < panels.size(); ++next) {
        load.add(panels[next].box);
        if (bounds.fits(load))
            end = next + 1;
        else if (!bounds.mayFitWithMore(load))
            break;
    }
    return end;
}
} // namespace

WallSplit WallSplit::byLines(const WallShape &wall, const FlowPattern &pattern, qint64 pixelLimit)
{
    WallSplit result;
    const auto split = PortSplit::of(wall.grid, pattern, std::max(pixelLimit, qint64{0}));
    if (!split)
        return result;
    result.isLineOver = split->isOneRun && pixelLimit > 0;
    const WallPanels all(wall, pattern);
    result.panels.reserve(static_cast<std::size_t>(wall.panelCount()));
    qint64 firstLine = 0;
    for (const qint64 lines : linesOfRuns(*split, pattern, all.lineCount())) {
        const std::size_t begin = result.panels.size();
        all.walk(firstLine, lines, result.panels);
        result.runs.push_back({begin, result.panels.size()});
        firstLine += lines;
    }
    return result;
}

WallSplit WallSplit::byPanels(const WallShape &wall, const FlowPattern &pattern, const PortBounds &bounds,
                              const PortLoad &before)
{
    WallSplit result;
    const WallPanels all(wall, pattern);
    result.panels.reserve(static_cast<std::size_t>(wall.panelCount()));
    all.walk(0, all.lineCount(), result.panels);
    std::size_t begin = 0;
    if (before.panels > 0) {
        begin = furthestEnd(result.panels, 0, bounds, before);
        result.runs.push_back({0, begin});
    }
    while (begin < result.panels.size()) {
        const std::size_t end = std::max(furthestEnd(result.panels, begin, bounds, {}), begin + 1);
        result.runs.push_back({begin, end});
        begin = end;
    }
    return result;
}

WallSplit WallSplit::byHand(const WallShape &wall, const WallRuns &runs)
{
    WallSplit result;
    for (const CableRun &run : runs) {
        const std::size_t begin = result.panels.size();
        for (const Cell &cell : run.cells) {
            if (wall.holds(cell))
                result.panels.push_back({cell, wall.boxOf(cell), !wall.off.contains(cell)});
        }
        result.runs.push_back({begin, result.panels.size()});
    }
    return result;
}

PortLoad WallSplit::loadOf(const Run &run) const
{
    PortLoad load;
    for (const WiredPanel &panel : panelsOf(run)) {
        if (panel.isOn)
            load.add(panel.box);
    }
    return load;
}
