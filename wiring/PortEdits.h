#pragma once

#include "base/Result.h"
#include "wiring/FreePorts.h"

#include <map>

/// Changes of whole ports, over all walls of a show: a cable that runs across walls is its pieces in order. Each
/// answers with the runs as they are then; an error says in one sentence why they stay.
namespace PortEdits {

/// The runs of each wall, in the order of the list.
using ShowRuns = std::vector<WallRuns>;

/// A panel of a wall.
struct WallCell
{
    std::size_t wall;
    Cell cell;
};

/// All ports that are used, in order.
std::vector<PortName> portsOf(const ShowRuns &runs);
/// The number of a piece that would be the next one on a port; the last number there is where a file has taken it.
int nextPiece(const ShowRuns &runs, const PortName &port);

/// The cable runs the other way round.
ShowRuns reverse(const ShowRuns &runs, const PortName &port);
/// A panel, and all that hangs behind it on its port, go to a port that is free.
/// Error: no run has the panel, it is the first one, or that port is taken or none.
[[nodiscard]] Result<ShowRuns> splitHere(const ShowRuns &runs, const WallCell &at, const PortName &free);
/// What hangs on the next port that is used on the same processor goes on behind a port.
/// Error: there is none behind it.
[[nodiscard]] Result<ShowRuns> joinWithNext(const ShowRuns &runs, const PortName &port);
/// A port takes the number, and the processor, of one that is free. Error: it is taken, or none.
[[nodiscard]] Result<ShowRuns> takePort(const ShowRuns &runs, const PortName &port, const PortName &free);
/// What hangs on one port hangs on the other. Error: one is none.
[[nodiscard]] Result<ShowRuns> exchange(const ShowRuns &runs, const PortName &one, const PortName &other);
/// This port, and those behind it on the processor, have the numbers from `first` on, without gaps.
/// Error: one of them is that of a port before it, or none.
[[nodiscard]] Result<ShowRuns> renumberFrom(const ShowRuns &runs, const PortName &port, qint64 first);
/// These ports have the same numbers on another processor. Error: one is taken there.
[[nodiscard]] Result<ShowRuns> moveToProcessor(const ShowRuns &runs, const std::vector<PortName> &ports,
                                               const QString &processor);
/// Nothing hangs on a port.
ShowRuns clear(const ShowRuns &runs, const PortName &port);
/// A processor has another name.
ShowRuns rename(const ShowRuns &runs, const QString &processor, const QString &name);

/// The runs of copied walls, port by port on free ones; what hung on one port still does.
ShowRuns onFreePorts(const ShowRuns &runs, FreePorts free);

/// A wall and those that it shares ports with, and those they share ports with, in the order of the list, without walls
/// that are wired by hand: what is done to one alone takes the others off its ports.
std::vector<std::size_t> sharing(const ShowToWire &show, const ShowWiring &wiring, std::size_t wall);

/// The cables that a wall has now, as if a hand had laid them. Runs that no processor has a port for are left out, and
/// their panels are not fed. Take all that are sharing() ports by hand together: nothing moves then.
WallRuns asLaidByHand(const ShowToWire &show, const ShowWiring &wiring, std::size_t wall);

/// The first ports to give walls, and those that they share ports with, by their place in the list, so that they keep
/// what they have. What a processor cannot take of a wall goes on at others and is not kept. Walls that are wired by
/// hand keep theirs anyway and are left out; so is a wall that has no port, or ports that do not follow each other on
/// its processor: those can be kept by hand.
std::map<std::size_t, qint64> firstPortsToKeep(const ShowToWire &show, const ShowWiring &wiring,
                                               const std::vector<std::size_t> &walls);

} // namespace PortEdits
