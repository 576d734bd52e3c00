#include "facts/WiredPorts.h"

#include "base/NumberText.h"
#include "wiring/Processors.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace {
using State = ShowWiring::State;

QString troubleOf(const ShowPorts &ports, std::size_t index)
{
    const WallToWire &wall = ports.show.walls[index];
    switch (ports.wiring.walls[index].state) {
    case State::NoProcessor:
        return QString("Waits: the show has no processor \"%1\".").arg(wall.processor);
    case State::NoPath:
        return "It has no path; choose a pattern.";
    case State::TooLarge:
        return "It has more panels than can be wired.";
    default:
        break;
    }
    const auto place = Processors::placeOf(ports.show.processors, wall.processor);
    const bool hasFigure = !place || ports.wiring.processors[*place].ports.has_value();
    return hasFigure ? QString() : ports.wiring.processors[*place].ports.error().sentence;
}

/// Names that follow each other are joined: ports are in the order of processor and number.
QString namesOf(const ShowPorts &ports, const std::set<std::size_t> &places)
{
    QStringList names;
    for (auto first = places.begin(); first != places.end();) {
        auto last = first;
        for (auto next = std::next(first); next != places.end(); last = next++) {
            const ShowWiring::Port &before = ports.wiring.ports[*last];
            const ShowWiring::Port &port = ports.wiring.ports[*next];
            if (port.processor != before.processor || port.number != before.number + 1)
                break;
        }
        const QString from = ports.nameOf(ports.wiring.ports[*first]);
        names.append(first == last ? from : from + " to " + ports.nameOf(ports.wiring.ports[*last]));
        first = std::next(last);
    }
    names.removeDuplicates(); // ports that no processor has are all called alike
    return names.join(", ");
}
} // namespace

std::optional<WiredPorts> WiredPorts::of(const ShowPorts &ports, const std::vector<qsizetype> &rows)
{
    WiredPorts wired;
    std::set<std::size_t> places;
    bool isAnyFed = false;
    for (std::size_t wall = 0; wall < ports.rows.size(); ++wall) {
        const bool isMeant = std::ranges::find(rows, ports.rows[wall]) != rows.end();
        if (!isMeant || ports.wiring.walls[wall].state == State::LeftOut)
            continue;
        isAnyFed = true;
        std::ranges::copy_if(ports.wiring.walls[wall].ports, std::inserter(places, places.end()),
                             [](std::size_t place) { return place != ShowWiring::noPort; });
        if (wired.trouble.isEmpty())
            wired.trouble = troubleOf(ports, wall);
    }
    if (!isAnyFed)
        return std::nullopt;
    wired.count = std::ssize(places);
    wired.names = namesOf(ports, places);
    for (const std::size_t place : places) {
        const ShowWiring::Port &port = ports.wiring.ports[place];
        wired.over += port.excess ? 1 : 0;
        if (port.loaded > wired.fullest || !wired.limit)
            wired.limit = port.limit;
        wired.fullest = std::max(wired.fullest, port.loaded);
    }
    return wired;
}

QString WiredPorts::text() const
{
    if (!trouble.isEmpty())
        return trouble;
    if (count == 0)
        return "No panel hangs on a port.";
    const QString load = limit ? NumberText::grouped(fullest) + " of " + NumberText::grouped(*limit) + " px"
                               : NumberText::grouped(fullest) + " px";
    return count == 1 ? names + ", with " + load : names + ", the fullest with " + load;
}
