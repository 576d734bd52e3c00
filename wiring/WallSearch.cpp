#include "base/Counted.h"
#include "wiring/Processors.h"
#include "wiring/WiringSearch.h"

#include <algorithm>

using Check = WiringFinding::Check;
using State = ShowWiring::State;

void WiringSearch::checkWall(std::size_t index)
{
    const WallToWire &wall = m_show.walls[index];
    if (!wall.processor.isEmpty() && !Processors::placeOf(m_show.processors, wall.processor))
        add({.check = Check::ProcessorUnknown, .wall = index, .name = wall.processor});
    const State state = m_wiring.walls[index].state;
    if (state == State::NoFigure)
        add({.check = Check::WallWaits,
             .wall = index,
             .processor = Processors::placeOf(m_show.processors, wall.processor)});
    if (state == State::NoPath)
        add({.check = Check::NoPath, .wall = index, .found = wall.pattern});
    if (state == State::TooLarge)
        add({.check = Check::TooManyPanels, .wall = index, .limit = WallPanels::mostPanels});
    if (state != State::Wired)
        return;
    if (wall.split == CableSplit::Hand) {
        checkRuns(index);
        checkCells(index);
    } else if (wall.keepsFirstPort()) {
        checkFirstPort(index);
    }
    if (m_wiring.walls[index].split.isLineOver)
        checkLines(index);
}

void WiringSearch::checkFirstPort(std::size_t index)
{
    const WallToWire &wall = m_show.walls[index];
    const std::size_t processor = *Processors::placeOf(m_show.processors, wall.processor);
    const PortPairs &pairs = m_wiring.processors[processor].device.pairs;
    const auto first = pairs.mainFrom(wall.firstPort);
    if (first == wall.firstPort)
        return checkPlaceOnFirstPort(index);
    add({.check = first ? Check::FirstPortEndsLoop : Check::FirstPortMissing,
         .wall = index,
         .processor = processor,
         .port = PortName{wall.processor, wall.firstPort},
         .limit = pairs.ports()});
}

/// Who goes on at the last port of a wall keeps that one when the other grows. There is less room on it then, or none.
void WiringSearch::checkPlaceOnFirstPort(std::size_t index)
{
    const ShowWiring::Wall &wall = m_wiring.walls[index];
    if (!m_show.walls[index].goesOn || wall.ports.empty())
        return;
    const ShowWiring::Port &port = m_wiring.ports[wall.ports.front()];
    const std::size_t before = port.pieces.front().wall;
    const auto isBeyond = [&](std::size_t place) {
        return place != ShowWiring::noPort && m_wiring.ports[place].processor == port.processor &&
               m_wiring.ports[place].number > port.number;
    };
    const bool isFilled = wall.split.loadOf(wall.split.runs.front()).panels == 0;
    if (before == index || !(isFilled || std::ranges::any_of(m_wiring.walls[before].ports, isBeyond)))
        return;
    add({.check = Check::FirstPortFilled,
         .wall = index,
         .otherWall = before,
         .processor = port.processor,
         .port = nameOf(port),
         .portPlace = wall.ports.front()});
}

void WiringSearch::checkRuns(std::size_t index)
{
    std::map<QString, WiringFinding> missing;
    for (std::size_t run = 0; run < m_show.walls[index].runs.size(); ++run) {
        if (m_wiring.walls[index].ports[run] != ShowWiring::noPort)
            continue;
        const PortName &port = m_show.walls[index].runs[run].port;
        WiringFinding first{.check = Check::RunOfMissing, .wall = index, .port = port, .name = port.processor};
        ++missing.emplace(port.processor, first).first->second.found;
    }
    for (const auto &[processor, finding] : missing)
        add(finding);
}

void WiringSearch::checkCells(std::size_t index)
{
    const WallToWire &wall = m_show.walls[index];
    const auto order = [](const Cell &cell) { return std::pair(cell.row, cell.column); };
    std::map<std::pair<int, int>, int> times;
    WiringFinding twice{.check = Check::PanelFedTwice, .wall = index};
    WiringFinding missing{.check = Check::CellMissing, .wall = index};
    WiringFinding notFed{.check = Check::PanelNotFed, .wall = index};
    const auto count = [](WiringFinding &finding, const Cell &cell) {
        finding.cell = finding.cell.value_or(cell);
        ++finding.found;
    };
    for (const CableRun &run : wall.runs) {
        for (const Cell &cell : run.cells) {
            if (!wall.shape.holds(cell))
                count(missing, cell);
            else if (++times[order(cell)] == 2)
                count(twice, cell);
        }
    }
    for (int row = 0; row < wall.shape.grid.rows.count(); ++row) {
        for (int column = 0; column < wall.shape.grid.columns.count(); ++column) {
            if (!times.contains({row, column}) && !wall.shape.off.contains({column, row}))
                count(notFed, {column, row});
        }
    }
    for (const WiringFinding &finding : {twice, missing, notFed}) {
        if (finding.found > 0)
            add(finding);
    }
}

void WiringSearch::checkLines(std::size_t index)
{
    const WallToWire &wall = m_show.walls[index];
    const bool isRows = FlowPattern::ofCode(wall.pattern)->along == FlowPattern::Along::Rows;
    const qint64 panels = (isRows ? wall.shape.grid.columns : wall.shape.grid.rows).count();
    add({.check = Check::LinesOver,
         .wall = index,
         .found = Counted::limited(Counted::product(panels, wall.shape.grid.panelPixels())),
         .limit = wall.pixelLimit});
}
