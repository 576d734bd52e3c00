#include "wiring/WallPanels.h"

bool WallShape::holds(const Cell &cell) const
{
    return cell.column >= 0 && cell.row >= 0 && cell.column < grid.columns.count() && cell.row < grid.rows.count();
}

PixelBox WallShape::boxOf(const Cell &cell) const
{
    return {{left + grid.columns.edge(cell.column), left + grid.columns.edge(qint64{cell.column} + 1)},
            {top + grid.rows.edge(cell.row), top + grid.rows.edge(qint64{cell.row} + 1)}};
}

namespace {
std::vector<PixelSpan> spansOf(const PanelAxis &axis, qint64 start)
{
    std::vector<PixelSpan> spans;
    spans.reserve(static_cast<std::size_t>(axis.count()));
    for (qint64 line = 0; line < axis.count(); ++line)
        spans.push_back({start + axis.edge(line), start + axis.edge(line + 1)});
    return spans;
}
} // namespace

WallPanels::WallPanels(const WallShape &wall, const FlowPattern &pattern) : m_pattern(pattern)
{
    if (wall.panelCount() == 0)
        return;
    m_columnCount = wall.grid.columns.count();
    m_rowCount = wall.grid.rows.count();
    const bool isRows = pattern.along == FlowPattern::Along::Rows;
    m_lines = isRows ? m_rowCount : m_columnCount;
    m_places = isRows ? m_columnCount : m_rowCount;
    m_columns = spansOf(wall.grid.columns, wall.left);
    m_rows = spansOf(wall.grid.rows, wall.top);
    if (wall.off.size() == 0)
        return;
    m_off.resize(static_cast<std::size_t>(wall.panelCount()));
    for (const Cell &cell : wall.off.cells()) {
        if (wall.holds(cell))
            m_off[placeOf(cell)] = true;
    }
}

std::size_t WallPanels::placeOf(const Cell &cell) const
{
    return static_cast<std::size_t>(cell.row) * static_cast<std::size_t>(m_columnCount) +
           static_cast<std::size_t>(cell.column);
}

/// By its line and its place in the line, both from the pattern's corner.
Cell WallPanels::cellAt(qint64 line, int place) const
{
    const bool isRows = m_pattern.along == FlowPattern::Along::Rows;
    const int across = isRows ? static_cast<int>(line) : place;
    const int along = isRows ? place : static_cast<int>(line);
    return {m_pattern.fromRight ? m_columnCount - 1 - along : along,
            m_pattern.fromBottom ? m_rowCount - 1 - across : across};
}

void WallPanels::walk(qint64 firstLine, qint64 lines, std::vector<WiredPanel> &panels) const
{
    for (qint64 index = 0; index < lines; ++index) {
        for (int step = 0; step < m_places; ++step) {
            const Cell cell = cellAt(firstLine + index, index % 2 == 0 ? step : m_places - 1 - step);
            if (m_off.empty() || !m_off[placeOf(cell)])
                panels.push_back(
                    {cell,
                     {m_columns[static_cast<std::size_t>(cell.column)], m_rows[static_cast<std::size_t>(cell.row)]}});
        }
    }
}
