#include "facts/PortRows.h"

#include "base/NumberText.h"
#include "facts/WallPorts.h"

#include <algorithm>

namespace {
/// Runs beyond these are one row: they are alike, and a file may claim billions.
constexpr qint64 mostRowsOfAlike = 1'000;

PortRow rowOf(const ShowPorts &ports, const ShowWiring::Port &port)
{
    const auto &bounds = ports.wiring.processors[port.processor].ports;
    PortRow row;
    row.processor = ports.show.processors[port.processor].name;
    row.port = ports.nameOf(port);
    row.backup = port.backup ? port.backup->text() : QString();
    for (const std::size_t wall : port.walls())
        row.layers.push_back(ports.rows[wall]);
    row.box = port.load.box;
    row.panels = port.load.panels;
    row.pixels = port.load.pixels;
    if (bounds && bounds->isRectangle)
        row.loaded = port.loaded;
    row.counted = port.loaded;
    row.limit = port.limit;
    if (bounds) {
        row.highestRate = bounds->highestRate(ports.show.processors[port.processor], port.load);
        row.costliest = bounds->costliest(port.load);
    } else {
        row.whyNoLimit = bounds.error().sentence;
    }
    row.isOver = port.excess.has_value();
    return row;
}

PortRow rowOf(const Layer &wall, const WallPorts &ports, const PortGroup &group)
{
    PortRow row;
    row.box = PixelBox::of(wall);
    row.panels = group.panels;
    row.pixels = group.pixels;
    row.counted = Counted::limited(group.pixels);
    if (wall.pixelLimit() > 0)
        row.limit = wall.pixelLimit();
    else
        row.whyNoLimit = "The wall has no limit of pixels per port.";
    row.isOver = ports.isOverLimit;
    return row;
}

void addRuns(std::vector<PortRow> &rows, const Layer &wall, qsizetype layer)
{
    const WallPorts ports = WallPorts::of(wall);
    for (const PortGroup &group : ports.groups) {
        PortRow row = rowOf(wall, ports, group);
        row.layers = {layer};
        if (group.count() > mostRowsOfAlike) {
            row.port = NumberText::grouped(group.first) + " to " + NumberText::grouped(group.last);
            rows.push_back(row);
            continue;
        }
        for (qint64 port = group.first; port <= group.last; ++port) {
            row.port = QString::number(port);
            rows.push_back(row);
        }
    }
}
} // namespace

std::optional<double> PortRow::percent() const
{
    return limit && *limit > 0 ? std::optional(100.0 * static_cast<double>(counted) / static_cast<double>(*limit))
                               : std::nullopt;
}

PortRow::Level PortRow::level() const
{
    if (isOver)
        return Level::Over;
    return percent().value_or(0) >= nearlyFull ? Level::NearlyFull : Level::Fits;
}

std::vector<PortRow> PortRows::of(const std::vector<LayerPointer> &layers, const ShowPorts &ports)
{
    std::vector<PortRow> rows;
    for (const ShowWiring::Port &port : ports.wiring.ports)
        rows.push_back(rowOf(ports, port));
    if (!ports.show.processors.empty())
        return rows;
    for (std::size_t wall = 0; wall < ports.rows.size(); ++wall) {
        const bool isWaiting = ports.wiring.walls[wall].state == ShowWiring::State::NoProcessor;
        const qsizetype layer = ports.rows[wall];
        if (!isWaiting)
            addRuns(rows, *layers[static_cast<std::size_t>(layer)], layer);
    }
    return rows;
}
