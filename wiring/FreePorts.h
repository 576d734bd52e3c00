#pragma once

#include "wiring/ShowWiring.h"

#include <map>
#include <set>

/// Ports of a show that a hand may take: those of the processors on which no cable that was laid by hand hangs, which
/// no wall keeps and where no loop of these ends. Ports of other walls are free: those walls go on at others then.
class FreePorts
{
public:
    explicit FreePorts(const ShowToWire &show);
    /// Of a show that has no processors.
    explicit FreePorts(std::set<PortName> taken) : m_taken(std::move(taken)) {}

    /// The first one of a processor, else of the next one like it. It is taken from then on. Where none is left it is
    /// one behind the last, which is a finding; a processor that nobody knows has any.
    PortName take(const QString &processor);
    /// The same, but one of those only where no other is left.
    PortName takeBeside(const QString &processor, const std::set<PortName> &others);

private:
    bool isThere(const PortName &port) const;
    std::optional<qint64> numberOf(std::size_t processor);
    PortName behind(const QString &processor, qint64 last) const;

    std::vector<ProcessorSettings> m_processors;
    std::vector<PortPairs> m_pairs; ///< of each processor
    std::vector<qint64> m_next;     ///< of each processor: no free one is before it
    std::set<PortName> m_taken;
};
