#include "wiring/HandWiring.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>

namespace HandWiring {

namespace {
void dropEmpty(WallRuns &runs)
{
    std::erase_if(runs, [](const CableRun &run) { return run.cells.empty(); });
}

/// The first that will do of the panels to the right, to the left, below and above.
template <typename IsMeant>
std::optional<Cell> neighbourOfEnd(const WallShape &wall, const CableRun &run, IsMeant isMeant)
{
    if (run.cells.empty() || !wall.holds(run.cells.back()))
        return std::nullopt;
    const Cell end = run.cells.back();
    const std::array<Cell, 4> around{
        {{end.column + 1, end.row}, {end.column - 1, end.row}, {end.column, end.row + 1}, {end.column, end.row - 1}}};
    const auto found = std::find_if(around.begin(), around.end(), isMeant);
    return found == around.end() ? std::nullopt : std::optional(*found);
}

/// One movement of the hand.
class Laying
{
public:
    Laying(const WallShape &wall, const WallRuns &runs, std::size_t run, const Limit &limit, const Hand &hand)
        : m_wall(wall), m_limit(limit), m_hand(hand), m_load(limit.elsewhere)
    {
        m_laid.runs = runs;
        m_laid.run = run;
        m_load.add(loadOf(wall, runs[run]));
    }

    Laid along(std::span<const Cell> way)
    {
        for (const Cell &cell : way) {
            if (m_wall.holds(cell) && !take(cell))
                break;
        }
        const auto isEmpty = [](const CableRun &run) { return run.cells.empty(); };
        const bool isLost = isEmpty(m_laid.runs[m_laid.run]);
        const auto laid = m_laid.runs.begin() + static_cast<std::ptrdiff_t>(m_laid.run);
        m_laid.run -= static_cast<std::size_t>(std::count_if(m_laid.runs.begin(), laid, isEmpty));
        dropEmpty(m_laid.runs);
        if (isLost)
            m_laid.run = m_laid.runs.size();
        return std::move(m_laid);
    }

private:
    /// False: the run stops here.
    bool take(const Cell &cell)
    {
        const std::vector<Cell> &own = m_laid.runs[m_laid.run].cells;
        if (std::ranges::find(own, cell) != own.end()) // whoever feeds it besides
            return true;
        const auto other = runAt(m_laid.runs, cell);
        if (m_wall.off.contains(cell) || (other && !m_hand.takesOver)) {
            const bool isOff = m_wall.off.contains(cell);
            m_laid.passed.push_back({cell, isOff ? std::nullopt : std::optional(m_laid.runs[*other].port)});
            return true;
        }
        PortLoad load = m_load;
        const bool hangsThere = other && m_laid.runs[*other].port == m_laid.runs[m_laid.run].port;
        if (!hangsThere) // else the load has it already
            load.add(m_wall.boxOf(cell));
        if (m_limit.bounds && !m_limit.bounds->fits(load)) {
            if (!m_hand.goesPastLimit) {
                m_laid.full = cell;
                return false;
            }
            m_laid.isOver = true;
        }
        m_load = load;
        if (other)
            std::erase(m_laid.runs[*other].cells, cell);
        std::vector<Cell> &cells = m_laid.runs[m_laid.run].cells;
        cells.insert(m_hand.isBefore ? cells.begin() : cells.end(), cell);
        m_laid.taken.push_back(cell);
        return true;
    }

    const WallShape &m_wall;
    const Limit &m_limit;
    const Hand &m_hand;
    PortLoad m_load;
    Laid m_laid;
};
} // namespace

std::vector<Cell> wayBetween(const Cell &from, const Cell &to)
{
    const qint64 columns = std::abs(qint64{to.column} - from.column);
    const qint64 rows = std::abs(qint64{to.row} - from.row);
    std::vector<Cell> way;
    Cell cell = from;
    for (qint64 across = 0, down = 0; across < columns || down < rows;) {
        // The next step is that which keeps closer to the straight line.
        const bool goesAcross = (2 * across + 1) * rows <= (2 * down + 1) * columns;
        if (goesAcross) {
            ++across;
            cell.column += to.column > from.column ? 1 : -1;
        } else {
            ++down;
            cell.row += to.row > from.row ? 1 : -1;
        }
        way.push_back(cell);
    }
    return way;
}

Laid lay(const WallShape &wall, const WallRuns &runs, std::size_t run, std::span<const Cell> way, const Limit &limit,
         const Hand &hand)
{
    return Laying(wall, runs, run, limit, hand).along(way);
}

Laid begin(const WallShape &wall, const WallRuns &runs, const PortName &port, int piece, std::span<const Cell> way,
           const Limit &limit, const Hand &hand)
{
    WallRuns more = runs;
    more.push_back({port, piece, {}});
    return lay(wall, more, runs.size(), way, limit, hand);
}

std::optional<std::size_t> runAt(const WallRuns &runs, const Cell &cell)
{
    for (std::size_t run = 0; run < runs.size(); ++run) {
        if (std::find(runs[run].cells.begin(), runs[run].cells.end(), cell) != runs[run].cells.end())
            return run;
    }
    return std::nullopt;
}

WallRuns takeBack(const WallRuns &runs, std::size_t run, bool isBefore)
{
    WallRuns result = runs;
    std::vector<Cell> &cells = result[run].cells;
    if (!cells.empty())
        cells.erase(isBefore ? cells.begin() : cells.end() - 1);
    dropEmpty(result);
    return result;
}

WallRuns clear(const WallRuns &runs, std::size_t run)
{
    WallRuns result = runs;
    result.erase(result.begin() + static_cast<std::ptrdiff_t>(run));
    return result;
}

WallRuns keepInside(const WallShape &wall, const WallRuns &runs)
{
    WallRuns result = runs;
    for (CableRun &run : result)
        std::erase_if(run.cells, [&](const Cell &cell) { return !wall.holds(cell); });
    dropEmpty(result);
    return result;
}

WallRuns feed(const WallShape &wall, const WallRuns &runs, const FitsOnPort &fits)
{
    const auto key = [](const Cell &cell) { return std::pair(cell.row, cell.column); };
    std::set<std::pair<int, int>> fed;
    for (const CableRun &run : runs) {
        for (const Cell &cell : run.cells)
            fed.insert(key(cell));
    }
    const auto isFree = [&](const Cell &cell) {
        return wall.holds(cell) && !wall.off.contains(cell) && !fed.contains(key(cell));
    };
    WallRuns result = runs;
    for (CableRun &run : result) {
        PortLoad load = loadOf(wall, run);
        while (const auto next = neighbourOfEnd(wall, run, isFree)) {
            load.add(wall.boxOf(*next));
            if (!fits(run, load))
                break;
            run.cells.push_back(*next);
            fed.insert(key(*next));
        }
    }
    return result;
}

PortLoad loadOf(const WallShape &wall, const CableRun &run)
{
    PortLoad load;
    for (const Cell &cell : run.cells) {
        if (wall.holds(cell) && !wall.off.contains(cell))
            load.add(wall.boxOf(cell));
    }
    return load;
}

} // namespace HandWiring
