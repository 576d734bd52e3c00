#include "wiring/PortPairs.h"

namespace {
constexpr qint64 portsPerTrunk = 10;
}

PortPairs PortPairs::of(const ProcessorModel &model, const PortRules &rules, ProcessorSettings::Backup backup)
{
    PortPairs pairs;
    pairs.m_ports = model.ports;
    if (backup != ProcessorSettings::Backup::Loop || model.ports == 0)
        return pairs;
    switch (model.backupPair.value_or(rules.backupPair)) {
    case BackupPair::Adjacent:
        pairs.m_distance = 1;
        break;
    case BackupPair::Trunk:
        pairs.m_distance = portsPerTrunk;
        break;
    case BackupPair::Device:
        break;
    case BackupPair::Half:
    case BackupPair::None:
        pairs.m_distance = std::max(model.ports / 2, 1);
        break;
    }
    return pairs;
}

/// Ports stand in blocks of as many as the two ports are apart: each second block takes the ends of the one before.
qint64 PortPairs::mainOf(qint64 port) const
{
    const bool isSecond = (port - 1) / m_distance % 2 != 0;
    return isSecond ? port - m_distance : port;
}

std::optional<qint64> PortPairs::partner(qint64 port) const
{
    if (m_distance == 0 || !has(port))
        return std::nullopt;
    const qint64 other = mainOf(port) == port ? port + m_distance : port - m_distance;
    return has(other) ? std::optional(other) : std::nullopt;
}

std::optional<qint64> PortPairs::mainFrom(qint64 port) const
{
    for (qint64 next = std::max(port, qint64{1}); has(next); ++next) {
        if (isMain(next))
            return next;
    }
    return std::nullopt;
}

std::vector<qint64> PortPairs::unpaired() const
{
    std::vector<qint64> alone;
    for (qint64 port = 1; m_distance > 0 && port <= m_ports; ++port) {
        if (!partner(port))
            alone.push_back(port);
    }
    return alone;
}
