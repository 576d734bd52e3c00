#include "wiring/WiringFinding.h"

#include "wiring/Processors.h"
#include "wiring/WiringSearch.h"

#include <algorithm>

using Check = WiringFinding::Check;

std::vector<WiringFinding> findInWiring(const ShowToWire &show, const ShowWiring &wiring)
{
    return WiringSearch(show, wiring).all();
}

WiringSearch::WiringSearch(const ShowToWire &show, const ShowWiring &wiring) : m_show(show), m_wiring(wiring)
{
    for (const ShowWiring::Port &port : wiring.ports) {
        m_used.insert(port.processor);
        m_feeding.insert(nameOf(port));
        if (port.backup)
            ++m_ends[*port.backup];
    }
}

std::vector<WiringFinding> WiringSearch::all()
{
    for (std::size_t processor = 0; processor < m_show.processors.size(); ++processor)
        checkProcessor(processor);
    for (std::size_t shortage = 0; shortage < m_wiring.shortages.size(); ++shortage)
        checkShortage(shortage);
    for (std::size_t port = 0; port < m_wiring.ports.size(); ++port)
        checkPort(port);
    for (const ShowWiring::Conflict &conflict : m_wiring.conflicts)
        add({.check = Check::PortKeptTwice,
             .wall = conflict.wall,
             .otherWall = conflict.other,
             .port = nameOf(m_wiring.ports[conflict.port]),
             .portPlace = conflict.port});
    for (std::size_t wall = 0; wall < m_show.walls.size(); ++wall)
        checkWall(wall);
    return std::move(m_findings);
}

void WiringSearch::add(const WiringFinding &finding)
{
    if (finding.wall) {
        std::vector<std::size_t> &alike = m_alike[{finding.check, *finding.wall}];
        if (std::ssize(alike) == WiringFinding::mostAlike) {
            ++m_findings[alike.back()].more;
            return;
        }
        alike.push_back(m_findings.size());
    }
    m_findings.push_back(finding);
}

void WiringSearch::checkProcessor(std::size_t index)
{
    const QString &name = m_show.processors[index].name;
    if (Processors::placeOf(m_show.processors, name) != index)
        add({.check = Check::NameUsedTwice, .processor = index, .name = name});
    checkFigure(index);
    if (isUsed(index))
        checkDevice(index);
    checkBackup(index);
}

void WiringSearch::checkFigure(std::size_t index)
{
    if (m_wiring.processors[index].ports)
        return;
    const QString &name = m_show.processors[index].name;
    bool isAsked = isUsed(index);
    bool isAwaited = false;
    for (std::size_t wall = 0; wall < m_show.walls.size(); ++wall) {
        if (m_show.walls[wall].processor != name || Processors::placeOf(m_show.processors, name) != index)
            continue;
        isAsked = true;
        isAwaited |= m_wiring.walls[wall].state == ShowWiring::State::NoFigure;
    }
    if (isAsked && !isAwaited)
        add({.check = Check::NoFigure, .processor = index, .name = name});
}

void WiringSearch::checkBackup(std::size_t index)
{
    const ProcessorSettings &settings = m_show.processors[index];
    const PortPairs &pairs = m_wiring.processors[index].device.pairs;
    if (settings.backup == ProcessorSettings::Backup::Loop && !pairs.hasLoops())
        add({.check = Check::NoLoops, .processor = index, .limit = pairs.ports()});
    if (settings.backup != ProcessorSettings::Backup::SecondProcessor)
        return;
    const auto second = Processors::placeOf(m_show.processors, settings.backupProcessor);
    const bool isRight =
        second && Processors::hasOtherAsBackup(settings) && m_show.processors[*second].model == settings.model;
    if (!isRight)
        add({.check = Check::BackupWrong, .processor = index, .name = settings.backupProcessor});
}

void WiringSearch::checkDevice(std::size_t index)
{
    const DeviceBounds &device = m_wiring.processors[index].device;
    const PortLoad &total = m_wiring.processors[index].total;
    if (!device.takes(total))
        add({.check = Check::CapExceeded,
             .processor = index,
             .found = device.counted(total),
             .limit = device.cap.pixels});
    if (!device.holds(total))
        add({.check = Check::CanvasExceeded, .processor = index, .box = total.box});
    const std::vector<qint64> alone = device.pairs.unpaired();
    if (!alone.empty())
        add({.check = Check::PortLeftOver,
             .processor = index,
             .port = PortName{m_show.processors[index].name, alone.front()},
             .found = std::ssize(alone)});
}

void WiringSearch::checkShortage(std::size_t index)
{
    const ShowWiring::Shortage &shortage = m_wiring.shortages[index];
    for (const std::size_t wall : shortage.walls)
        add({.check = Check::ProcessorsMissing,
             .wall = wall,
             .processor = shortage.processor,
             .shortage = index,
             .found = shortage.ports,
             .limit = shortage.processors});
}
