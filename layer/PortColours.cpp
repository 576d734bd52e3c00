#include "layer/PortColours.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <unordered_map>

namespace {
std::size_t placeInRound(qint64 port)
{
    return static_cast<std::size_t>((std::max(port, qint64{1}) - 1) % PortColours::count);
}

Colour colourAt(std::size_t place)
{
    static constexpr std::array<QRgb, PortColours::count> colours{0xff44ffee, 0xffcc11dd, 0xffffff33, 0xff118877,
                                                                  0xffccaaff, 0xffee0044, 0xff77bb88, 0xffddffbb,
                                                                  0xffcc88aa, 0xffaabb00};
    return Colour::fromRgba8(colours[place]);
}

/// The ports of a wall, and which of them are neighbours.
class PortMap
{
public:
    explicit PortMap(const WallCables &cables) : m_portOfCable(cables.size())
    {
        nameAll(cables);
        m_beside.resize(m_names.size());
        for (std::size_t port = 1; port < m_names.size(); ++port)
            m_beside[port].insert(port - 1);
        for (std::size_t cable = 0; cable < cables.size(); ++cable) {
            for (const Cell &cell : cables[cable].cells)
                m_ports[keyOf(cell)] = m_portOfCable[cable];
        }
        for (std::size_t cable = 0; cable < cables.size(); ++cable) {
            for (const Cell &cell : cables[cable].cells)
                touchAround(cell, m_portOfCable[cable]);
        }
    }

    std::vector<Colour> colours() const
    {
        std::vector<std::size_t> places;
        for (std::size_t port = 0; port < m_names.size(); ++port)
            places.push_back(placeFor(port, places));
        std::vector<Colour> colours;
        for (const std::size_t port : m_portOfCable)
            colours.push_back(colourAt(places[port]));
        return colours;
    }

private:
    /// In the order of processor and number; each that has no number is one by itself, behind the others.
    void nameAll(const WallCables &cables)
    {
        std::map<PortName, std::size_t> places;
        for (const WallCable &cable : cables) {
            if (cable.port.number > 0)
                places.emplace(cable.port, 0);
        }
        for (auto &[name, place] : places) {
            place = m_names.size();
            m_names.push_back(name);
        }
        for (std::size_t cable = 0; cable < cables.size(); ++cable) {
            const auto found = places.find(cables[cable].port);
            m_portOfCable[cable] = found == places.end() ? m_names.size() : found->second;
            if (found == places.end())
                m_names.push_back(cables[cable].port);
        }
    }

    static quint64 keyOf(const Cell &cell)
    {
        return quint64{static_cast<quint32>(cell.row)} << 32 | static_cast<quint32>(cell.column);
    }

    void touchAround(const Cell &cell, std::size_t port)
    {
        const std::array<Cell, 4> around{{{cell.column + 1, cell.row},
                                          {cell.column - 1, cell.row},
                                          {cell.column, cell.row + 1},
                                          {cell.column, cell.row - 1}}};
        for (const Cell &other : around) {
            const auto found = m_ports.find(keyOf(other));
            if (found == m_ports.end() || found->second == port)
                continue;
            m_beside[std::max(port, found->second)].insert(std::min(port, found->second));
        }
    }

    std::size_t placeFor(std::size_t port, const std::vector<std::size_t> &places) const
    {
        std::array<std::size_t, PortColours::count> times{};
        for (const std::size_t other : m_beside[port])
            ++times[places[other]];
        const auto own = times.begin() + static_cast<std::ptrdiff_t>(placeInRound(m_names[port].number));
        std::rotate(times.begin(), own, times.end());
        const auto rarest = static_cast<std::size_t>(std::ranges::min_element(times) - times.begin());
        return (placeInRound(m_names[port].number) + rarest) % PortColours::count;
    }

    std::vector<PortName> m_names;
    std::vector<std::size_t> m_portOfCable;
    std::vector<std::set<std::size_t>> m_beside; ///< of each port: those before it in the order
    std::unordered_map<quint64, std::size_t> m_ports;
};
} // namespace

Colour PortColours::of(qint64 port)
{
    return colourAt(placeInRound(port));
}

std::vector<Colour> PortColours::of(const WallCables &cables)
{
    return PortMap(cables).colours();
}
