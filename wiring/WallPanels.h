#pragma once

#include "base/Result.h"
#include "grid/CellSet.h"
#include "grid/PortSplit.h"
#include "layer/PixelBox.h"

#include <vector>

/// A wall as its panels lie on the output.
struct WallShape
{
    PanelGrid grid;   ///< counts and sizes of 32 bits
    CellSet off = {}; ///< panels that are off
    qint64 left = 0;
    qint64 top = 0; ///< from the output's top, growing downwards

    bool holds(const Cell &cell) const;
    /// Where a panel lies on the output, y down.
    PixelBox boxOf(const Cell &cell) const;
    qint64 panelCount() const
    {
        return std::max(qint64{0}, qint64{grid.columns.count()}) * std::max(qint64{0}, qint64{grid.rows.count()});
    }
};

/// A panel on a cable.
struct WiredPanel
{
    Cell cell;
    PixelBox box;
    bool isOn = true; ///< off: it keeps its place and is not counted
};

/// Lists the panels of a wall as a pattern walks them. Lines are its rows or columns; the first one is 0, where the
/// pattern begins.
class WallPanels
{
public:
    /// Those of a show; walls that have more of them together are left out, beginning with the first one too many.
    static constexpr qint64 mostPanels = 1'000'000;

    /// Of a wall of `mostPanels` at most.
    WallPanels(const WallShape &wall, const FlowPattern &pattern);

    qint64 lineCount() const { return m_lines; }
    /// Appends the panels that are on of `lines` lines from `firstLine`, which are walked to and fro and begin at the
    /// pattern's corner.
    void walk(qint64 firstLine, qint64 lines, std::vector<WiredPanel> &panels) const;

private:
    Cell cellAt(qint64 line, int place) const;
    std::size_t placeOf(const Cell &cell) const;

    FlowPattern m_pattern;
    int m_columnCount = 0;
    int m_rowCount = 0;
    qint64 m_lines = 0;
    int m_places = 0;                 ///< of a line
    std::vector<PixelSpan> m_columns; ///< on the output
    std::vector<PixelSpan> m_rows;
    std::vector<bool> m_off; ///< by placeOf(); empty: all are on
};
