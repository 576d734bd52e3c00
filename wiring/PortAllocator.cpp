#include "wiring/PortAllocator.h"

#include "wiring/Processors.h"

#include <algorithm>
#include <numeric>

using State = ShowWiring::State;
using Split = WallToWire::Split;

ShowWiring ShowWiring::of(const ShowToWire &show)
{
    return PortAllocator(show).allocate();
}

std::vector<std::size_t> ShowWiring::Port::walls() const
{
    std::vector<std::size_t> walls;
    std::set<std::size_t> seen;
    for (const Piece &piece : pieces) {
        if (seen.insert(piece.wall).second)
            walls.push_back(piece.wall);
    }
    return walls;
}

PortAllocator::PortAllocator(const ShowToWire &show) : m_show(show)
{
    for (std::size_t processor = 0; processor < show.processors.size(); ++processor) {
        addProcessor(show.processors[processor]);
        m_behind.push_back(Processors::nextLike(show.processors, processor));
    }
    m_devices.resize(show.processors.size());
    m_wiring.walls.resize(show.walls.size());
}

void PortAllocator::addProcessor(const ProcessorSettings &settings)
{
    const ProcessorCatalogue &catalogue = catalogueOf(settings);
    const ProcessorModel *model = catalogue.model(settings.model);
    m_wiring.processors.push_back({PortBounds::of(settings, m_show.output.height()), {}, {}});
    if (model)
        m_wiring.processors.back().device = DeviceBounds::of(*model, catalogue.rulesOf(*model), settings);
}

ShowWiring PortAllocator::allocate()
{
    const auto each = [this](auto isMeant, auto give) {
        for (std::size_t wall = 0; wall < m_show.walls.size(); ++wall) {
            if (m_wiring.walls[wall].state == State::Wired && isMeant(m_show.walls[wall]))
                (this->*give)(wall);
        }
    };
    for (std::size_t wall = 0; wall < m_show.walls.size(); ++wall)
        m_wiring.walls[wall].state = stateOf(wall);
    each([](const WallToWire &wall) { return wall.split == Split::Hand; }, &PortAllocator::wireByHand);
    each([](const WallToWire &wall) { return wall.split != Split::Hand && wall.keepsFirstPort(); },
         &PortAllocator::keepPorts);
    each([](const WallToWire &) { return true; }, &PortAllocator::wireInOrder);

    for (ShowWiring::Port &port : m_wiring.ports)
        finishPort(port);
    for (std::size_t processor = 0; processor < m_devices.size(); ++processor)
        m_wiring.processors[processor].total = m_devices[processor].total;
    for (const Extra &extra : m_extras)
        m_wiring.shortages.push_back({extra.processor, extra.ports, std::ssize(extra.devices), extra.walls});
    sortPorts();
    return std::move(m_wiring);
}

State PortAllocator::stateOf(std::size_t index)
{
    const WallToWire &wall = m_show.walls[index];
    if (wall.processor.isEmpty())
        return State::LeftOut;
    const PanelGrid &grid = wall.shape.grid;
    if (wall.shape.panelCount() == 0 || grid.columns.lineSize() <= 0 || grid.rows.lineSize() <= 0)
        return State::NoPanels;
    if (m_panels + wall.shape.panelCount() > WallPanels::mostPanels)
        return State::TooLarge;
    m_panels += wall.shape.panelCount();
    if (wall.split == Split::Hand)
        return State::Wired;
    const auto processor = Processors::placeOf(m_show.processors, wall.processor);
    if (!processor)
        return State::NoProcessor;
    if (!FlowPattern::ofCode(wall.pattern))
        return State::NoPath;
    const bool needsFigure = wall.split == Split::Panels;
    return needsFigure && !m_wiring.processors[*processor].ports ? State::NoFigure : State::Wired;
}

/// Of a wall that is wired and not by hand.
std::size_t PortAllocator::processorOf(std::size_t wall) const
{
    return *Processors::placeOf(m_show.processors, m_show.walls[wall].processor);
}

WallSplit PortAllocator::splitOf(std::size_t index, const PortLoad &before) const
{
    const WallToWire &wall = m_show.walls[index];
    const FlowPattern pattern = *FlowPattern::ofCode(wall.pattern);
    if (wall.split == Split::Lines)
        return WallSplit::byLines(wall.shape, pattern, wall.pixelLimit);
    return WallSplit::byPanels(wall.shape, pattern, *m_wiring.processors[processorOf(index)].ports, before);
}

void PortAllocator::wireByHand(std::size_t index)
{
    const WallToWire &wall = m_show.walls[index];
    m_wiring.walls[index].split = WallSplit::byHand(wall.shape, wall.runs);
    for (std::size_t run = 0; run < wall.runs.size(); ++run) {
        const CableRun &cable = wall.runs[run];
        const auto processor = Processors::placeOf(m_show.processors, cable.port.processor);
        if (!processor) {
            m_wiring.walls[index].ports.push_back(ShowWiring::noPort);
            continue;
        }
        const std::size_t port = portOf(*processor, cable.port.number);
        m_wiring.ports[port].isByHand = true;
        hang(index, run, port, loadOf(index, run), cable.piece);
    }
}

/// The ports from the first one on, whoever has them, as far as the processor has so many and bears the wall; what is
/// left takes free ones with the other walls.
void PortAllocator::keepPorts(std::size_t index)
{
    const std::size_t processor = processorOf(index);
    const PortPairs &pairs = m_wiring.processors[processor].device.pairs;
    const auto before = m_devices[processor].ports.find(m_show.walls[index].firstPort);
    const bool goesOn = m_show.walls[index].goesOn && before != m_devices[processor].ports.end();
    m_wiring.walls[index].split = splitOf(index, goesOn ? m_wiring.ports[before->second].load : PortLoad());

    std::optional<qint64> number = pairs.mainFrom(m_show.walls[index].firstPort);
    const std::size_t runs = m_wiring.processors[processor].device.runsOf(m_wiring.walls[index].split);
    for (std::size_t run = 0; run < runs && number; ++run) {
        const bool isTaken = m_devices[processor].ports.contains(*number);
        const std::size_t port = portOf(processor, *number);
        if (isTaken && !(goesOn && run == 0))
            m_wiring.conflicts.push_back({index, m_wiring.ports[port].pieces.front().wall, port});
        hang(index, run, port, loadOf(index, run));
        number = pairs.mainFrom(*number + 1);
    }
}

void PortAllocator::wireInOrder(std::size_t index)
{
    if (m_show.walls[index].split == Split::Hand)
        noteLastPorts(index);
    else
        wire(index, processorOf(index));
}

void PortAllocator::noteLastPorts(std::size_t wallByHand)
{
    std::map<std::size_t, std::size_t> last;
    for (const std::size_t place : m_wiring.walls[wallByHand].ports) {
        if (place == ShowWiring::noPort)
            continue;
        const ShowWiring::Port &port = m_wiring.ports[place];
        if (!m_wiring.processors[port.processor].device.pairs.has(port.number))
            continue;
        const auto [found, isNew] = last.emplace(port.processor, place);
        if (!isNew && m_wiring.ports[found->second].number < port.number)
            found->second = place;
    }
    for (const auto &[processor, port] : last)
        m_lastPorts[processor] = port;
}

void PortAllocator::wire(std::size_t index, std::size_t processor)
{
    ShowWiring::Wall &wall = m_wiring.walls[index];
    const bool isKept = m_show.walls[index].keepsFirstPort();
    const std::size_t next = isKept ? wall.ports.size() : goOn(index, processor);
    wireFrom(index, next, isKept ? m_behind[processor] : processor);
    m_lastPorts.erase(processor);
    if (!wall.ports.empty() && m_wiring.ports[wall.ports.back()].number > 0)
        m_lastPorts[processor] = wall.ports.back();
}

/// Splits a wall; its first run goes on where the wall before ended if it is meant to and can. The run that is next.
std::size_t PortAllocator::goOn(std::size_t index, std::size_t processor)
{
    WallSplit &split = m_wiring.walls[index].split;
    const auto last = m_lastPorts.find(processor);
    if (m_show.walls[index].goesOn && last != m_lastPorts.end()) {
        split = splitOf(index, m_wiring.ports[last->second].load);
        if (!split.runs.empty() && canGoOn(index, last->second, split.runs.front())) {
            hang(index, 0, last->second, loadOf(index, 0));
            return 1;
        }
    }
    split = splitOf(index, {});
    return 0;
}

bool PortAllocator::canGoOn(std::size_t index, std::size_t place, const WallSplit::Run &run) const
{
    const ShowWiring::Port &port = m_wiring.ports[place];
    const PortLoad load = m_wiring.walls[index].split.loadOf(run);
    PortLoad together = port.load;
    together.add(load);
    PortLoad total = m_devices[port.processor].total;
    total.add(load);
    const ShowWiring::Processor &processor = m_wiring.processors[port.processor];
    const bool fits =
        processor.ports ? processor.ports->fits(together) : together.pixels <= m_show.walls[index].pixelLimit;
    return load.panels > 0 && fits && processor.device.takes(total);
}

/// Gives the runs from this one on free ports of a processor, then of those like it behind it in the list.
void PortAllocator::wireFrom(std::size_t index, std::size_t run, std::optional<std::size_t> on)
{
    const std::size_t processor = processorOf(index);
    const bool isPinNowhere = m_show.walls[index].keepsFirstPort() && run == 0 && !on;
    for (; run < m_wiring.walls[index].split.runs.size(); ++run) {
        const PortLoad load = loadOf(index, run);
        std::optional<qint64> number;
        while (on && !(number = freePort(m_devices[*on], m_wiring.processors[*on].device, load)))
            on = m_behind[*on];
        const std::size_t port = on ? portOf(*on, *number) : portWithoutNumber(processor);
        if (!on && !isPinNowhere)
            countMissing(index, processor, port, load);
        hang(index, run, port, load);
    }
}

std::optional<qint64> PortAllocator::freePort(Device &device, const DeviceBounds &bounds, const PortLoad &load)
{
    PortLoad total = device.total;
    total.add(load);
    // What is too much for any processor of the kind stays with the first that has nothing else.
    if (!bounds.takes(total) && device.total.panels > 0)
        return std::nullopt;
    std::optional<qint64> port = bounds.pairs.mainFrom(device.nextPort);
    while (port && (device.ports.contains(*port) || device.partners.contains(*port)))
        port = bounds.pairs.mainFrom(*port + 1);
    device.nextPort = port.value_or(PortPairs::mostPorts + 1);
    return port;
}

std::size_t PortAllocator::portOf(std::size_t processor, qint64 number)
{
    Device &device = m_devices[processor];
    const auto [place, isNew] = device.ports.emplace(number, m_wiring.ports.size());
    if (isNew) {
        m_wiring.ports.push_back({processor, number});
        if (const auto partner = m_wiring.processors[processor].device.pairs.partner(number))
            device.partners.insert(*partner);
    }
    return place->second;
}

std::size_t PortAllocator::portWithoutNumber(std::size_t processor)
{
    m_wiring.ports.push_back({processor});
    return m_wiring.ports.size() - 1;
}

/// The processor that is missing for a port without a number.
void PortAllocator::countMissing(std::size_t wall, std::size_t processor, std::size_t port, const PortLoad &load)
{
    const auto isLike = [&](const Extra &extra) {
        return m_show.processors[extra.processor].isLike(m_show.processors[processor]);
    };
    auto extra = std::find_if(m_extras.begin(), m_extras.end(), isLike);
    if (extra == m_extras.end())
        extra = m_extras.insert(m_extras.end(), Extra{processor});
    ++extra->ports;
    if (extra->walls.empty() || extra->walls.back() != wall)
        extra->walls.push_back(wall);
    const DeviceBounds &bounds = m_wiring.processors[processor].device;
    if (!bounds.pairs.mainFrom(1))
        return; // no number of them would do
    if (extra->devices.empty() || !freePort(extra->devices.back(), bounds, load))
        extra->devices.emplace_back();
    Device &device = extra->devices.back();
    const qint64 number = *freePort(device, bounds, load);
    device.ports.emplace(number, port);
    if (const auto partner = bounds.pairs.partner(number))
        device.partners.insert(*partner);
    device.total.add(load);
}

PortLoad PortAllocator::loadOf(std::size_t wall, std::size_t run) const
{
    const WallSplit &split = m_wiring.walls[wall].split;
    return split.loadOf(split.runs[run]);
}

/// `piece` is its number on the port; 0: behind those that hang there.
void PortAllocator::hang(std::size_t index, std::size_t run, std::size_t portPlace, const PortLoad &load, int piece)
{
    ShowWiring::Port &port = m_wiring.ports[portPlace];
    ShowWiring::Wall &wall = m_wiring.walls[index];
    if (piece == 0) {
        for (const ShowWiring::Piece &other : port.pieces)
            piece = std::max(piece, other.number);
        piece = CableRun::pieceBehind(piece);
    }
    port.pieces.push_back({index, run, piece});
    port.load.add(load);
    if (port.number > 0)
        m_devices[port.processor].total.add(load);
    wall.ports.push_back(portPlace);
}

void PortAllocator::finishPort(ShowWiring::Port &port) const
{
    std::stable_sort(port.pieces.begin(), port.pieces.end(),
                     [](const auto &one, const auto &other) { return one.number < other.number; });
    const ShowWiring::Processor &processor = m_wiring.processors[port.processor];
    const ProcessorSettings &settings = m_show.processors[port.processor];
    if (const auto partner = processor.device.pairs.partner(port.number))
        port.backup = PortName{settings.name, *partner};
    else if (Processors::hasOtherAsBackup(settings) && port.number > 0)
        port.backup = PortName{settings.backupProcessor, port.number};
    port.loaded = port.load.pixels;
    if (!processor.ports)
        return;
    port.loaded = processor.ports->loaded(port.load);
    port.limit = processor.ports->limit(port.load);
    port.excess = processor.ports->excess(port.load);
}

void PortAllocator::sortPorts()
{
    std::vector<std::size_t> order(m_wiring.ports.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [this](std::size_t one, std::size_t other) {
        const auto key = [](const ShowWiring::Port &port) {
            return std::tuple(port.processor, port.number == 0, port.number);
        };
        return key(m_wiring.ports[one]) < key(m_wiring.ports[other]);
    });
    std::vector<std::size_t> places(order.size());
    std::vector<ShowWiring::Port> sorted;
    for (const std::size_t place : order) {
        places[place] = sorted.size();
        sorted.push_back(std::move(m_wiring.ports[place]));
    }
    m_wiring.ports = std::move(sorted);
    for (ShowWiring::Wall &wall : m_wiring.walls) {
        for (std::size_t &port : wall.ports)
            port = port == ShowWiring::noPort ? port : places[port];
    }
    for (ShowWiring::Conflict &conflict : m_wiring.conflicts)
        conflict.port = places[conflict.port];
}
