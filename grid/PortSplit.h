#pragma once

#include "grid/PanelGrid.h"

#include <optional>

/// How a wall's panels are chained: one of the eight patterns by its corner and direction.
struct FlowPattern
{
    enum class Along
    {
        Rows,
        Columns
    };

    Along along;
    bool fromRight;
    bool fromBottom;
    bool end; ///< which parity of rows or columns turns the end arrowhead round

    /// The pattern of a code; nothing for a code other than 0 to 7.
    static std::optional<FlowPattern> ofCode(qint64 code);
};

/// Which rows (or columns) of a wall hang on which port of the processor. Ports take whole rows, counted from the
/// bottom (whole columns, counted from the left) whatever the pattern; the last port takes what is left. All counts are
/// 64-bit and describe the ports without listing them, since a file may claim billions.
struct PortSplit
{
    /// One port's share.
    struct Port
    {
        /// Where the run starts: the y (rows) or x (columns) of its first panel centre; -1: none given, the
        /// run covers the whole wall.
        double start;
        /// Rows or columns in the run; 0: all of the wall.
        qint64 lines;
    };

    bool isOneRun = false;     ///< no limit, or less than one row fits a port: all panels on one port
    qint64 linesPerPort = 0;   ///< rows or columns of a full port; negative for a negative limit
    qint64 fullPorts = 0;      ///< how many full ports there are; 0 or less: none
    qint64 remainderLines = 0; ///< rows or columns of the last, partial port; 0: none

    /// A panel counts as one of the regular size. Nothing where a division by zero leaves no split: a wall without
    /// panels, or panels without pixels.
    static std::optional<PortSplit> of(const PanelGrid &grid, const FlowPattern &pattern, qint64 pixelLimit);

    /// How many runs there are, and the run of port `index`, 0 the first.
    qint64 portCount() const;
    Port port(qint64 index) const;
    /// Which of the runs that one is, 0 the first, from where the pattern begins.
    qint64 placeOnPath(qint64 index) const { return m_startsAtFarEnd ? portCount() - 1 - index : index; }

private:
    PanelAxis m_lines; ///< from the bottom, or from the left
    bool m_startsAtFarEnd = false;
};
