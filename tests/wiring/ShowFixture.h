#pragma once

#include "wiring/WiringFinding.h"

/// Shows of one wall, as most tests wire them.
namespace ShowFixture {

inline ProcessorSettings processor(const QString &model, int bits = 8, double rate = 60, const QString &name = "A")
{
    ProcessorSettings settings;
    settings.name = name;
    settings.model = model;
    settings.bits = bits;
    settings.rate = rate;
    return settings;
}

/// Along rows from the top left, panel by panel, on processor A.
inline WallToWire wall(int columns, int rows, int width, int height)
{
    WallToWire wall;
    wall.name = "MAIN";
    wall.processor = "A";
    wall.split = WallToWire::Split::Panels;
    wall.shape.grid = {{columns, width}, {rows, height}};
    return wall;
}

inline WallToWire byHand(WallToWire wall, const WallRuns &runs)
{
    wall.split = WallToWire::Split::Hand;
    wall.runs = runs;
    return wall;
}

inline CellSet block(int left, int top, int columns, int rows)
{
    std::vector<Cell> cells;
    for (int row = top; row < top + rows; ++row) {
        for (int column = left; column < left + columns; ++column)
            cells.push_back({column, row});
    }
    return CellSet(cells);
}

inline ShowWiring wire(const std::vector<ProcessorSettings> &processors, const std::vector<WallToWire> &walls,
                       const QSize &output = {8192, 8192})
{
    return ShowWiring::of({processors, walls, output});
}

inline ProcessorSettings looped(const QString &model, const QString &name = "A")
{
    ProcessorSettings settings = processor(model, 8, 60, name);
    settings.backup = ProcessorSettings::Backup::Loop;
    return settings;
}

/// With a second processor as its backup.
inline ProcessorSettings backedUp(const QString &model, const QString &name, const QString &second)
{
    ProcessorSettings settings = processor(model, 8, 60, name);
    settings.backup = ProcessorSettings::Backup::SecondProcessor;
    settings.backupProcessor = second;
    return settings;
}

inline std::vector<WiringFinding> findings(const std::vector<ProcessorSettings> &processors,
                                           const std::vector<WallToWire> &walls)
{
    const ShowToWire show{processors, walls, {4096, 4096}};
    return findInWiring(show, ShowWiring::of(show));
}

inline std::vector<WiringFinding::Check> checks(const std::vector<WiringFinding> &found)
{
    std::vector<WiringFinding::Check> names;
    for (const WiringFinding &finding : found)
        names.push_back(finding.check);
    return names;
}

/// Panels on each port, in the order of the ports.
inline std::vector<qint64> panels(const ShowWiring &wiring)
{
    std::vector<qint64> counts;
    for (const ShowWiring::Port &port : wiring.ports)
        counts.push_back(port.load.panels);
    return counts;
}

/// "A1", "B3"; "?" for one without a number.
inline std::vector<std::string> names(const ShowToWire &show, const ShowWiring &wiring, std::size_t wall)
{
    std::vector<std::string> found;
    for (const std::size_t place : wiring.walls[wall].ports) {
        const bool hasNumber = place != ShowWiring::noPort && wiring.ports[place].number > 0;
        found.push_back(hasNumber
                            ? PortName{show.processors[wiring.ports[place].processor].name, wiring.ports[place].number}
                                  .text()
                                  .toStdString()
                            : "?");
    }
    return found;
}

} // namespace ShowFixture
