#include "layer/CableJump.h"
#include "wiring/WiringSearch.h"

#include <algorithm>

using Check = WiringFinding::Check;

void WiringSearch::checkPort(std::size_t index)
{
    const ShowWiring::Port &port = m_wiring.ports[index];
    const WiringFinding at{.check = Check::PortOver,
                           .wall = port.pieces.front().wall,
                           .processor = port.processor,
                           .port = nameOf(port),
                           .portPlace = index};
    checkLoad(port, at);
    checkJumps(port, at);
    checkLoop(port, at);
    const PortPairs &pairs = m_wiring.processors[port.processor].device.pairs;
    if (port.number == 0 || pairs.has(port.number))
        return;
    WiringFinding missing = at;
    missing.check = Check::PortMissing;
    missing.limit = pairs.ports();
    addForEachWall(port, missing);
}

void WiringSearch::addForEachWall(const ShowWiring::Port &port, WiringFinding finding)
{
    for (const std::size_t wall : port.walls()) {
        finding.wall = wall;
        add(finding);
    }
}

void WiringSearch::checkLoad(const ShowWiring::Port &port, WiringFinding at)
{
    const auto &bounds = m_wiring.processors[port.processor].ports;
    if (!bounds)
        return;
    if (port.excess) {
        PortBounds without = *bounds;
        without.capacity.limit = bounds->capacity.pixels;
        at.of = port.excess->of;
        at.found = port.excess->found;
        at.limit = port.excess->limit;
        at.isHeadroomOnly = without.fits(port.load);
        addForEachWall(port, at);
        return;
    }
    const bool isChosen = port.isByHand || bounds->capacity.origin == PortCapacity::Origin::Typed;
    if (!isChosen || port.loaded * 100 <= *port.limit * 95)
        return;
    at.check = Check::PortNearlyFull;
    at.found = port.loaded;
    at.limit = *port.limit;
    addForEachWall(port, at);
}

void WiringSearch::checkLoop(const ShowWiring::Port &port, WiringFinding at)
{
    if (!port.backup)
        return;
    const DeviceBounds &device = m_wiring.processors[port.processor].device;
    const bool isLoop = device.pairs.hasLoops();
    const bool isTold = isLoop && port.backup->number < port.number; // with that one
    if ((m_feeding.contains(*port.backup) && !isTold) || m_ends.at(*port.backup) > 1) {
        at.check = Check::PartnerTaken;
        at.otherPort = port.backup;
        addForEachWall(port, at);
    }
    if (!isLoop || device.maxPanelsPerLoop == 0 || port.load.panels <= device.maxPanelsPerLoop)
        return;
    at.check = Check::LoopTooLong;
    at.found = port.load.panels;
    at.limit = device.maxPanelsPerLoop;
    addForEachWall(port, at);
}

/// Whole lines pass what is off as they are drawn.
void WiringSearch::checkJumps(const ShowWiring::Port &port, WiringFinding at)
{
    at.check = Check::Jump;
    const WiredPanel *before = nullptr;
    for (const ShowWiring::Piece &piece : port.pieces) {
        const WallSplit &split = m_wiring.walls[piece.wall].split;
        const bool isLines = m_show.walls[piece.wall].split == CableSplit::Lines;
        bool isFirst = true;
        for (const WiredPanel &panel : split.panelsOf(split.runs[piece.run])) {
            if (!panel.isOn) // the cable passes it
                continue;
            const bool isAsked = before && (isFirst || !isLines);
            if (isAsked && isCableJump(before->box, panel.box)) {
                at.wall = at.cell ? at.wall : piece.wall;
                at.cell = at.cell.value_or(panel.cell);
                ++at.found;
            }
            before = &panel;
            isFirst = false;
        }
    }
    if (at.found > 0)
        add(at);
}
