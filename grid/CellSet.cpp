#include "grid/CellSet.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace {
bool standsBefore(const Cell &a, const Cell &b)
{
    return std::tie(a.row, a.column) < std::tie(b.row, b.column);
}
} // namespace

CellSet::CellSet(std::vector<Cell> cells) : m_cells(std::move(cells))
{
    if (!std::ranges::is_sorted(m_cells, standsBefore))
        std::ranges::sort(m_cells, standsBefore);
    m_cells.erase(std::unique(m_cells.begin(), m_cells.end()), m_cells.end());
}

bool CellSet::contains(const Cell &cell) const
{
    return std::ranges::binary_search(m_cells, cell, standsBefore);
}

CellSet CellSet::difference(const CellSet &other) const
{
    CellSet difference;
    std::ranges::set_symmetric_difference(m_cells, other.m_cells, std::back_inserter(difference.m_cells), standsBefore);
    return difference;
}

std::span<const Cell> CellSet::inRow(int row) const
{
    return {std::ranges::lower_bound(m_cells, row, {}, &Cell::row),
            std::ranges::upper_bound(m_cells, row, {}, &Cell::row)};
}
