#pragma once

#include "facts/PortRows.h"

/// What is said of all ports of a show in one line.
struct PortSummary
{
    QString count; ///< "12 ports"; empty: there is none
    QString worst; ///< the worst of what is wrong or nearly so, one sentence; empty: nothing is
    PortRow::Level level = PortRow::Level::Fits;
    /// Processors that would help, and of which one of the list; none where no number would.
    std::optional<ShowWiring::Shortage> needed = {};

    /// `layers`: those of the show, topmost first.
    static PortSummary of(const std::vector<PortRow> &rows, const ShowPorts &ports,
                          const std::vector<LayerPointer> &layers);

    /// "MAIN needs 1 more MX40 Pro (4 ports over)".
    static QString shortage(const ShowPorts &ports, const ShowWiring::Shortage &shortage);
};
