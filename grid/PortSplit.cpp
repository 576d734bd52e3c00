#include "grid/PortSplit.h"

#include <algorithm>
#include <array>
#include <limits>

std::optional<FlowPattern> FlowPattern::ofCode(qint64 code)
{
    using enum Along;
    static constexpr std::array<FlowPattern, 8> patterns{{
        {Rows, false, false, false},    // 0: from the top left, down
        {Rows, true, false, true},      // 1: from the top right, down
        {Rows, false, true, false},     // 2: from the bottom left, up
        {Rows, true, true, true},       // 3: from the bottom right, up
        {Columns, false, false, false}, // 4: from the top left, to the right
        {Columns, true, false, false},  // 5: from the top right, to the left
        {Columns, false, true, true},   // 6: from the bottom left, to the right
        {Columns, true, true, true},    // 7: from the bottom right, to the left
    }};
    if (code < 0 || code >= static_cast<qint64>(patterns.size()))
        return std::nullopt;
    return patterns[static_cast<std::size_t>(code)];
}

std::optional<PortSplit> PortSplit::of(const PanelGrid &grid, const FlowPattern &pattern, qint64 pixelLimit)
{
    const bool isRows = pattern.along == FlowPattern::Along::Rows;
    const qint64 lines = isRows ? grid.rows.count() : grid.columns.count();
    const qint64 panelsPerLine = isRows ? grid.columns.count() : grid.rows.count();
    const qint64 panelPixels = grid.panelPixels();

    PortSplit split;
    split.m_lines = isRows ? grid.rowsFromBottom() : grid.columns;
    split.m_startsAtFarEnd = isRows ? !pattern.fromBottom : pattern.fromRight;
    split.isOneRun = pixelLimit == 0;
    if (split.isOneRun)
        return split;
    if (panelPixels == 0 || panelsPerLine == 0)
        return std::nullopt;

    // Panels of a positive size never meet the one quotient that 64 bits cannot hold; others draw nothing.
    const qint64 limit = std::max(pixelLimit, -std::numeric_limits<qint64>::max());
    split.linesPerPort = limit / panelPixels / panelsPerLine;
    split.isOneRun = split.linesPerPort == 0;
    if (split.isOneRun)
        return split;

    split.fullPorts = lines / split.linesPerPort;
    const qint64 rest = lines - split.linesPerPort * split.fullPorts;
    const bool hasRest = rest * panelsPerLine > 0;
    split.remainderLines = hasRest ? rest : 0;
    return split;
}

qint64 PortSplit::portCount() const
{
    if (isOneRun)
        return 1;
    return std::max(fullPorts, qint64{0}) + (remainderLines != 0 ? 1 : 0);
}

PortSplit::Port PortSplit::port(qint64 index) const
{
    if (isOneRun)
        return {-1.0, 0};

    const qint64 firstLine = linesPerPort * index;
    const bool isRemainder = index >= fullPorts;
    const qint64 lines = isRemainder ? remainderLines : linesPerPort;
    const qint64 end = firstLine + lines;
    const qint64 startFromNear = m_lines.edge(firstLine) + m_lines.sizeOf(firstLine) / 2;
    const qint64 startFromFar = m_lines.edge(end) - m_lines.sizeOf(end - 1) / 2;
    return {static_cast<double>(m_startsAtFarEnd ? startFromFar : startFromNear), lines};
}
