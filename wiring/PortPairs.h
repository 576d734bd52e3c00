#pragma once

#include "wiring/PortCapacity.h"

/// Which ports of a processor begin a cable, and which one takes its other end.
class PortPairs
{
public:
    PortPairs() = default;
    /// Loops take the port that the data names, else that which is half of the ports further. There are none where
    /// nobody says how many ports there are, and where a second processor feeds the other end by the data.
    static PortPairs of(const ProcessorModel &model, const PortRules &rules, ProcessorSettings::Backup backup);

    /// Of a processor of which nobody says how many it has.
    static constexpr qint64 mostPorts = 1'000'000;

    /// Of the processor; 0: nobody says.
    qint64 ports() const { return m_ports; }
    bool hasLoops() const { return m_distance > 0; }
    bool has(qint64 port) const { return port >= 1 && port <= (m_ports == 0 ? mostPorts : m_ports); }
    /// The first port from this one on, 1 the first, that can begin a cable. Nullopt: none is left.
    std::optional<qint64> mainFrom(qint64 port) const;
    /// The other end of a loop, of either of its ports. Nullopt: there are no loops, or the port has no partner.
    std::optional<qint64> partner(qint64 port) const;
    /// With loops: ports that have no partner.
    std::vector<qint64> unpaired() const;

private:
    qint64 mainOf(qint64 port) const;
    bool isMain(qint64 port) const { return has(port) && (m_distance == 0 || (partner(port) && mainOf(port) == port)); }

    qint64 m_ports = 0;
    qint64 m_distance = 0; ///< of the two ports of a loop; 0: there are no loops
};
