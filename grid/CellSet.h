#pragma once

#include "grid/Cell.h"

#include <QtGlobal>

#include <span>
#include <vector>

/// Different cells, row by row.
class CellSet
{
public:
    CellSet() = default;
    /// Those of a list in any order, in which cells may stand more than once.
    explicit CellSet(std::vector<Cell> cells);

    qsizetype size() const { return std::ssize(m_cells); }
    bool contains(const Cell &cell) const;
    /// The cells that only one of both sets holds.
    CellSet difference(const CellSet &other) const;
    const std::vector<Cell> &cells() const { return m_cells; }
    /// From left to right; valid as long as the set.
    std::span<const Cell> inRow(int row) const;

private:
    std::vector<Cell> m_cells; ///< by row, then by column
};
