#include "wiring/FreePorts.h"

#include "wiring/Processors.h"

namespace {
/// Only with the walls whose ports somebody chose.
ShowToWire chosenOf(ShowToWire show)
{
    std::erase_if(show.walls, [](const WallToWire &wall) {
        return wall.split != WallToWire::Split::Hand && !wall.keepsFirstPort();
    });
    return show;
}
} // namespace

FreePorts::FreePorts(const ShowToWire &show) : m_processors(show.processors)
{
    const ShowWiring wiring = ShowWiring::of(chosenOf(show));
    for (const ShowWiring::Processor &processor : wiring.processors)
        m_pairs.push_back(processor.device.pairs);
    m_next.resize(m_processors.size(), 1);
    for (const ShowWiring::Port &port : wiring.ports) {
        m_taken.insert({m_processors[port.processor].name, port.number});
        if (port.backup)
            m_taken.insert(*port.backup);
    }
    // Also those that lie ready while a wall is cut in another way.
    for (const WallToWire &wall : show.walls) {
        for (const CableRun &run : wall.runs)
            m_taken.insert(run.port);
    }
}

PortName FreePorts::take(const QString &processor)
{
    const auto own = Processors::placeOf(m_processors, processor);
    PortName port = behind(processor, own ? m_pairs[*own].ports() : 0);
    for (auto place = own; place; place = Processors::nextLike(m_processors, *place)) {
        if (const auto number = numberOf(*place)) {
            port = {m_processors[*place].name, *number};
            break;
        }
    }
    m_taken.insert(port);
    return port;
}

PortName FreePorts::takeBeside(const QString &processor, const std::set<PortName> &others)
{
    FreePorts beside = *this;
    beside.m_taken.insert(others.begin(), others.end());
    PortName port = beside.take(processor);
    if (!isThere(port))
        return take(processor);
    m_taken.insert(port);
    return port;
}

bool FreePorts::isThere(const PortName &port) const
{
    const auto place = Processors::placeOf(m_processors, port.processor);
    return place && m_pairs[*place].has(port.number);
}

std::optional<qint64> FreePorts::numberOf(std::size_t place)
{
    const auto isFree = [&](qint64 number) { return !m_taken.contains({m_processors[place].name, number}); };
    const PortPairs &pairs = m_pairs[place];
    std::optional<qint64> number = pairs.mainFrom(m_next[place]);
    while (number && !(isFree(*number) && isFree(pairs.partner(*number).value_or(*number))))
        number = pairs.mainFrom(*number + 1);
    m_next[place] = number.value_or(PortPairs::mostPorts) + 1;
    return number;
}

PortName FreePorts::behind(const QString &processor, qint64 last) const
{
    PortName port{processor, last + 1};
    while (m_taken.contains(port))
        ++port.number;
    return port;
}
