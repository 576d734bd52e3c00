#include "app/Wiring.h"

#include "app/LWAppDelegate.h"
#include "facts/ShowCables.h"
#include "show/WallShapes.h"
#include "wiring/FreePorts.h"
#include "wiring/HandWiring.h"
#include "wiring/PortEdits.h"
#include "wiring/ProcessorFields.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

namespace {
QSize outputOf(const LWAppDelegate &document)
{
    return {document.OutputWidth(), document.OutputHeight()};
}
} // namespace

void Wiring::take(const ShowProcessors::Processors &processors)
{
    m_processors = processors;
}

Result<void> Wiring::add(ProcessorSettings settings)
{
    if (settings.name.isEmpty())
        settings.name = ShowProcessors::freeName(m_processors);
    Result<void> isTaken = checkRoom(1).and_then([&] { return check(settings, std::nullopt); });
    if (!isTaken)
        return isTaken;
    m_processors.push_back(settings);
    if (m_processors.size() == 1) {
        for (const LayerPointer &layer : m_document.allScreensArray())
            ShowProcessors::feed(*layer, settings.name, outputOf(m_document));
    }
    m_document.finishEdit("add processor");
    return {};
}

Result<void> Wiring::change(std::size_t processor, const ProcessorSettings &settings)
{
    if (processor >= m_processors.size())
        return fail("There is no such processor any more.");
    if (Result<void> isTaken = check(settings, processor); !isTaken)
        return isTaken;
    const QString before = std::exchange(m_processors[processor], settings).name;
    if (before != settings.name && !ShowProcessors::find(m_processors, before)) {
        ShowProcessors::rename(m_document.allScreensArray(), before, settings.name);
        Processors::renameBackups(m_processors, before, settings.name);
    }
    m_document.finishEdit("processor");
    return {};
}

void Wiring::remove(std::size_t processor)
{
    if (processor >= m_processors.size())
        return;
    m_processors.erase(m_processors.begin() + static_cast<std::ptrdiff_t>(processor));
    m_document.finishEdit("remove processor");
}

Result<void> Wiring::addLike(std::size_t processor, qint64 count)
{
    if (processor >= m_processors.size())
        return fail("There is no such processor any more.");
    if (Result<void> hasRoom = checkRoom(count); !hasRoom)
        return hasRoom;
    auto behind = m_processors.begin() + static_cast<std::ptrdiff_t>(processor) + 1;
    for (qint64 i = 0; i < count; ++i) {
        ProcessorSettings other = m_processors[processor];
        other.name = ShowProcessors::freeName(m_processors);
        other.backupProcessor.clear(); // that has its ports full
        other.unknown = nullptr;
        behind = m_processors.insert(behind, other) + 1;
    }
    m_document.finishEdit("add processor");
    return {};
}

CableHand::Show Wiring::cables() const
{
    const auto freePort = [this](const QString &processor, const LayerPointer &wall) {
        return this->freePort(processor, wall);
    };
    return {m_document.allScreensArray(), m_processors, outputOf(m_document), freePort};
}

/// One that no other wall hangs on, so that none moves to another port; else one that nobody has chosen.
PortName Wiring::freePort(const QString &processor, const LayerPointer &wall) const
{
    const ShowPorts &now = ports();
    std::set<PortName> others;
    for (const ShowWiring::Port &port : now.wiring.ports) {
        const auto isOther = [&](std::size_t place) {
            return m_document.allScreensArray()[static_cast<std::size_t>(now.rows[place])] != wall;
        };
        if (std::ranges::any_of(port.walls(), isOther))
            others.insert({m_processors[port.processor].name, port.number});
    }
    return FreePorts(now.show).takeBeside(processor, others);
}

Result<void> Wiring::editCables(const QString &name, const CableEdit &edit)
{
    const CableHand::Show show = cables();
    const auto edited = edit(CableHand::runsOf(show));
    if (!edited)
        return tl::unexpected(edited.error());
    CableHand::give(show, *edited);
    m_document.finishEdit(name);
    return {};
}

Result<void> Wiring::takeAsLaidByHand(const std::vector<qsizetype> &rows)
{
    const ShowPorts now = ports();
    std::set<std::size_t> walls;
    for (std::size_t wall = 0; wall < now.rows.size(); ++wall) {
        const bool isMeant = std::ranges::find(rows, now.rows[wall]) != rows.end();
        if (isMeant && now.wiring.walls[wall].state == ShowWiring::State::Wired)
            std::ranges::copy(PortEdits::sharing(now.show, now.wiring, wall), std::inserter(walls, walls.end()));
    }
    if (walls.empty())
        return fail("The wall hangs on no ports yet; give it a processor of the show first.");
    for (const std::size_t wall : walls) {
        Layer &layer = *m_document.allScreensArray()[static_cast<std::size_t>(now.rows[wall])];
        layer.setValue("runs", QVariant::fromValue(CableRuns(PortEdits::asLaidByHand(now.show, now.wiring, wall))));
        layer.setValue("split", "hand");
        layer.drawInRect();
    }
    m_document.finishEdit("cables by hand");
    return {};
}

Result<void> Wiring::feed(qsizetype row)
{
    const auto &layers = m_document.allScreensArray();
    if (row < 0 || row >= std::ssize(layers) || CableHand::feed(cables(), layers[static_cast<std::size_t>(row)]) == 0)
        return fail("No cable ends beside such a panel and bears it; lay one through them with the tool Data.");
    m_document.finishEdit("feeding of panels");
    return {};
}

Result<void> Wiring::keepPorts(const std::vector<qsizetype> &rows)
{
    const ShowPorts now = ports();
    std::vector<std::size_t> walls;
    for (std::size_t wall = 0; wall < now.rows.size(); ++wall) {
        const bool isAutomatic = now.show.walls[wall].split != WallToWire::Split::Hand &&
                                 now.wiring.walls[wall].state == ShowWiring::State::Wired;
        if (isAutomatic && std::ranges::find(rows, now.rows[wall]) != rows.end())
            walls.push_back(wall);
    }
    const std::map<std::size_t, qint64> kept = PortEdits::firstPortsToKeep(now.show, now.wiring, walls);
    for (const auto &[wall, port] : kept)
        m_document.allScreensArray()[static_cast<std::size_t>(now.rows[wall])]->setValue("firstPort", port);
    if (!kept.empty())
        m_document.finishEdit("keeping of ports");
    const auto lost = std::ranges::find_if_not(walls, [&](std::size_t wall) { return kept.contains(wall); });
    if (lost == walls.end())
        return {};
    return fail(QString("The ports of %1 do not follow each other; take its cables as yours to keep them.")
                    .arg(now.show.walls[*lost].name));
}

const ShowPorts &Wiring::ports() const
{
    Show now = show();
    if (!m_ports || now != m_known) {
        m_ports = ShowPorts::of(m_document.allScreensArray(), m_processors, outputOf(m_document));
        m_known = std::move(now);
    }
    return *m_ports;
}

Wiring::Show Wiring::show() const
{
    Show show{{}, m_processors, outputOf(m_document)};
    for (const LayerPointer &layer : m_document.allScreensArray())
        show.layers.push_back(layer->record());
    return show;
}

void Wiring::welcome(const ShowProcessors::Layers &layers)
{
    welcomeCopies(layers);
    const QString processor = lastUsed();
    for (const LayerPointer &layer : layers) {
        if (!processor.isEmpty())
            ShowProcessors::feed(*layer, processor, outputOf(m_document));
    }
}

void Wiring::welcomeCopies(const ShowProcessors::Layers &layers)
{
    const auto isWired = [](const LayerPointer &layer) { return !layer->record()->runs.list().empty(); };
    if (std::ranges::none_of(layers, isWired))
        return;
    const ShowToWire show = showToWire(m_document.allScreensArray(), m_processors, outputOf(m_document));
    ShowProcessors::takeFreePorts(layers, FreePorts(show));
}

void Wiring::followLimits()
{
    if (!m_processors.empty())
        ShowProcessors::followLimits(m_document.allScreensArray(), m_processors, outputOf(m_document));
}

bool Wiring::dropLostPanels()
{
    bool isAny = false;
    for (const LayerPointer &layer : m_document.allScreensArray()) {
        const WallRuns &runs = layer->record()->runs.list();
        if (runs.empty())
            continue;
        const WallRuns kept = HandWiring::keepInside(wallShapeOf(*layer), runs);
        if (kept == runs)
            continue;
        layer->setValue("runs", QVariant::fromValue(CableRuns(kept)));
        isAny = true;
    }
    return isAny;
}

void Wiring::followCables()
{
    const bool wereShown = m_areCablesShown;
    const auto areShown = [](const LayerPointer &layer) { return ShowCables::areShown(*layer); };
    m_areCablesShown = std::ranges::any_of(m_document.allScreensArray(), areShown);
    if (m_areCablesShown || wereShown)
        ShowCables::show(m_document.allScreensArray(), ports());
}

Result<void> Wiring::checkRoom(qint64 more) const
{
    if (static_cast<qint64>(m_processors.size()) + more > static_cast<qint64>(ShowProcessors::mostProcessors))
        return fail(QString("A show has at most %1 processors.").arg(ShowProcessors::mostProcessors));
    return {};
}

/// `processor`: the one that shall have them; nullopt: a new one.
Result<void> Wiring::check(const ProcessorSettings &settings, std::optional<std::size_t> processor) const
{
    if (settings.name.isEmpty())
        return fail("A processor needs a name, as its ports are called by it.");
    const bool isRenamed = !processor || m_processors[*processor].name != settings.name;
    if (isRenamed && ShowProcessors::find(m_processors, settings.name))
        return fail(QString("There is a processor \"%1\" already; choose another name.").arg(settings.name));
    for (const ProcessorField &field : processorFields()) {
        ProcessorSettings taken;
        if (!field.set(taken, field.get(settings)))
            return fail(QString("A processor has %1, and not %2.").arg(field.expected, field.get(settings).toString()));
    }
    return {};
}

/// That of the selected wall, else of the topmost wall that has one, else the first.
QString Wiring::lastUsed() const
{
    if (m_processors.empty())
        return {};
    const LayerPointer selected = m_document.arraycontroller().selectedLayer();
    if (selected && ShowProcessors::find(m_processors, ShowProcessors::of(*selected)))
        return ShowProcessors::of(*selected);
    for (const LayerPointer &layer : m_document.allScreensArray()) {
        if (ShowProcessors::find(m_processors, ShowProcessors::of(*layer)))
            return ShowProcessors::of(*layer);
    }
    return m_processors.front().name;
}
