#pragma once

#include "wiring/WiringFinding.h"

#include <map>
#include <set>

/// The checks of a show's wiring; see findInWiring().
class WiringSearch
{
public:
    WiringSearch(const ShowToWire &show, const ShowWiring &wiring);

    std::vector<WiringFinding> all();

private:
    PortName nameOf(const ShowWiring::Port &port) const
    {
        return {m_show.processors[port.processor].name, port.number};
    }
    bool isUsed(std::size_t processor) const { return m_used.contains(processor); }

    void add(const WiringFinding &finding);

    void checkProcessor(std::size_t index);
    void checkFigure(std::size_t index);
    void checkBackup(std::size_t index);
    void checkDevice(std::size_t index);
    void checkShortage(std::size_t index);

    void checkPort(std::size_t index);
    void checkLoad(const ShowWiring::Port &port, WiringFinding at);
    void checkLoop(const ShowWiring::Port &port, WiringFinding at);
    void checkJumps(const ShowWiring::Port &port, WiringFinding at);
    void addForEachWall(const ShowWiring::Port &port, WiringFinding finding);

    void checkWall(std::size_t index);
    void checkFirstPort(std::size_t index);
    void checkPlaceOnFirstPort(std::size_t index);
    void checkRuns(std::size_t index);
    void checkCells(std::size_t index);
    void checkLines(std::size_t index);

    const ShowToWire &m_show;
    const ShowWiring &m_wiring;
    std::set<std::size_t> m_used;   ///< processors that feed something
    std::set<PortName> m_feeding;   ///< ports
    std::map<PortName, int> m_ends; ///< how many cables end on a port
    std::vector<WiringFinding> m_findings;
    /// Of each check in each wall: their places.
    std::map<std::pair<WiringFinding::Check, std::size_t>, std::vector<std::size_t>> m_alike;
};
