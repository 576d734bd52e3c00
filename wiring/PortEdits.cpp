#include "wiring/PortEdits.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <set>

namespace PortEdits {

namespace {
/// A run by its wall.
struct Place
{
    std::size_t wall;
    std::size_t run;
};

template <typename Runs, typename Use>
void forEachRun(Runs &runs, Use use)
{
    for (auto &wall : runs) {
        for (auto &run : wall)
            use(run);
    }
}

/// The pieces of a port in the order of its cable.
std::vector<Place> piecesOf(const ShowRuns &runs, const PortName &port)
{
    std::vector<Place> pieces;
    for (std::size_t wall = 0; wall < runs.size(); ++wall) {
        for (std::size_t run = 0; run < runs[wall].size(); ++run) {
            if (runs[wall][run].port == port)
                pieces.push_back({wall, run});
        }
    }
    std::stable_sort(pieces.begin(), pieces.end(), [&](const Place &one, const Place &other) {
        return runs[one.wall][one.run].piece < runs[other.wall][other.run].piece;
    });
    return pieces;
}

bool isTaken(const ShowRuns &runs, const PortName &port)
{
    return !piecesOf(runs, port).empty();
}

tl::unexpected<Error> failTaken(const PortName &port)
{
    return fail(QString("Port %1 is taken; choose a free one, or exchange the two.").arg(port.text()));
}

/// Numbers the pieces 1, 2, 3 ...
void number(ShowRuns &runs, const std::vector<Place> &pieces)
{
    int piece = 0;
    for (const Place &place : pieces)
        runs[place.wall][place.run].piece = ++piece;
}

/// All at once, so that ports may change places.
ShowRuns moved(const ShowRuns &runs, const std::map<PortName, PortName> &to)
{
    ShowRuns result = runs;
    forEachRun(result, [&](CableRun &run) {
        const auto found = to.find(run.port);
        if (found != to.end())
            run.port = found->second;
    });
    return result;
}

/// Error: a number that no file holds.
Result<void> checkNumber(qint64 number)
{
    constexpr qint64 last = std::numeric_limits<qint32>::max();
    if (number >= 1 && number <= last)
        return {};
    return fail(QString("There is no port %1; the numbers are 1 to %2.").arg(number).arg(last));
}

/// Error: a port would come where another is that stays, or have a number that there is not.
Result<ShowRuns> movedToFree(const ShowRuns &runs, const std::map<PortName, PortName> &to)
{
    for (const auto &[from, target] : to) {
        if (const Result<void> isNumber = checkNumber(target.number); !isNumber)
            return tl::unexpected(isNumber.error());
        if (!to.contains(target) && isTaken(runs, target))
            return failTaken(target);
    }
    return moved(runs, to);
}

std::optional<Place> runAt(const ShowRuns &runs, const WallCell &at)
{
    for (std::size_t run = 0; at.wall < runs.size() && run < runs[at.wall].size(); ++run) {
        const std::vector<Cell> &cells = runs[at.wall][run].cells;
        if (std::find(cells.begin(), cells.end(), at.cell) != cells.end())
            return Place{at.wall, run};
    }
    return std::nullopt;
}

/// Where the runs of a wall hang on its own processor: port and number of the piece. What that could not take hangs
/// elsewhere and is left out.
std::vector<std::pair<qint64, int>> ownPlaces(const ShowToWire &show, const ShowWiring &wiring, std::size_t wall)
{
    std::vector<std::pair<qint64, int>> places;
    for (const std::size_t place : wiring.walls[wall].ports) {
        const ShowWiring::Port &port = wiring.ports[place];
        if (port.number == 0 || show.processors[port.processor].name != show.walls[wall].processor)
            continue;
        const auto piece = std::ranges::find(port.pieces, wall, &ShowWiring::Piece::wall);
        places.emplace_back(port.number, piece->number);
    }
    return places;
}

/// The first wall that would not hang as it does if these kept their first ports. Those behind it in the list may only
/// move because of it.
std::optional<std::size_t> firstThatMoves(ShowToWire show, const ShowWiring &before,
                                          const std::map<std::size_t, qint64> &kept)
{
    for (const auto &[wall, port] : kept)
        show.walls[wall].firstPort = port;
    const ShowWiring after = ShowWiring::of(show);
    for (const auto &[wall, port] : kept) {
        if (ownPlaces(show, after, wall) != ownPlaces(show, before, wall) ||
            after.walls[wall].split.runs != before.walls[wall].split.runs)
            return wall;
    }
    return std::nullopt;
}
} // namespace

std::vector<PortName> portsOf(const ShowRuns &runs)
{
    std::set<PortName> ports;
    forEachRun(runs, [&](const CableRun &run) { ports.insert(run.port); });
    return {ports.begin(), ports.end()};
}

int nextPiece(const ShowRuns &runs, const PortName &port)
{
    int last = 0;
    for (const Place &place : piecesOf(runs, port))
        last = std::max(last, runs[place.wall][place.run].piece);
    return CableRun::pieceBehind(last);
}

ShowRuns reverse(const ShowRuns &runs, const PortName &port)
{
    ShowRuns result = runs;
    std::vector<Place> pieces = piecesOf(runs, port);
    std::reverse(pieces.begin(), pieces.end());
    number(result, pieces);
    for (const Place &place : pieces) {
        std::vector<Cell> &cells = result[place.wall][place.run].cells;
        std::reverse(cells.begin(), cells.end());
    }
    return result;
}

Result<ShowRuns> splitHere(const ShowRuns &runs, const WallCell &at, const PortName &free)
{
    const auto place = runAt(runs, at);
    if (!place)
        return fail("No cable feeds this panel; lay one first.");
    if (const Result<void> isNumber = checkNumber(free.number); !isNumber)
        return tl::unexpected(isNumber.error());
    if (isTaken(runs, free))
        return failTaken(free);
    ShowRuns result = runs;
    const PortName port = runs[place->wall][place->run].port;
    std::vector<Cell> &cells = result[place->wall][place->run].cells;
    const auto cut = std::find(cells.begin(), cells.end(), at.cell);
    const std::vector<Place> pieces = piecesOf(runs, port);
    const bool isFirstPiece = pieces.front().wall == place->wall && pieces.front().run == place->run;
    if (isFirstPiece && cut == cells.begin())
        return fail(QString("This panel is the first one on %1; split at one behind it.").arg(port.text()));

    // The pieces behind it follow in their order, which two of one number have, too.
    const auto isPlace = [&](const Place &other) { return other.wall == place->wall && other.run == place->run; };
    int piece = 1;
    for (auto other = std::ranges::find_if(pieces, isPlace) + 1; other != pieces.end(); ++other) {
        CableRun &run = result[other->wall][other->run];
        run.port = free;
        run.piece = ++piece;
    }
    CableRun behind = result[place->wall][place->run];
    behind.port = free;
    behind.piece = 1;
    behind.unknown = nullptr;
    behind.cells.assign(cut, cells.end());
    cells.erase(cut, cells.end());
    if (cells.empty())
        result[place->wall].erase(result[place->wall].begin() + static_cast<std::ptrdiff_t>(place->run));
    result[place->wall].push_back(std::move(behind));
    return result;
}

Result<ShowRuns> joinWithNext(const ShowRuns &runs, const PortName &port)
{
    const std::vector<PortName> ports = portsOf(runs);
    const auto next = std::upper_bound(ports.begin(), ports.end(), port);
    if (next == ports.end() || next->processor != port.processor || !isTaken(runs, port))
        return fail(QString("No port behind %1 is wired by hand; there is nothing to join.").arg(port.text()));
    ShowRuns result = runs;
    std::vector<Place> pieces = piecesOf(runs, port);
    const std::vector<Place> behind = piecesOf(runs, *next);
    pieces.insert(pieces.end(), behind.begin(), behind.end());
    for (const Place &place : behind)
        result[place.wall][place.run].port = port;
    number(result, pieces);

    const Place last = pieces[pieces.size() - behind.size() - 1];
    const Place first = behind.front();
    if (last.wall != first.wall)
        return result;
    // Two pieces of one wall that follow each other are one.
    WallRuns &wall = result[first.wall];
    wall[last.run].cells.insert(wall[last.run].cells.end(), wall[first.run].cells.begin(), wall[first.run].cells.end());
    wall.erase(wall.begin() + static_cast<std::ptrdiff_t>(first.run));
    number(result, piecesOf(result, port));
    return result;
}

Result<ShowRuns> takePort(const ShowRuns &runs, const PortName &port, const PortName &free)
{
    return movedToFree(runs, {{port, free}});
}

Result<ShowRuns> exchange(const ShowRuns &runs, const PortName &one, const PortName &other)
{
    return movedToFree(runs, {{one, other}, {other, one}});
}

Result<ShowRuns> renumberFrom(const ShowRuns &runs, const PortName &port, qint64 first)
{
    if (const Result<void> isNumber = checkNumber(first); !isNumber)
        return tl::unexpected(isNumber.error());
    std::map<PortName, PortName> to;
    for (const PortName &used : portsOf(runs)) {
        if (used.processor == port.processor && used.number >= port.number)
            to.emplace(used, PortName{used.processor, first + std::ssize(to)});
    }
    return movedToFree(runs, to);
}

Result<ShowRuns> moveToProcessor(const ShowRuns &runs, const std::vector<PortName> &ports, const QString &processor)
{
    std::map<PortName, PortName> to;
    std::set<PortName> targets;
    for (const PortName &port : ports) {
        const PortName target{processor, port.number};
        if (to.emplace(port, target).second && !targets.insert(target).second)
            return failTaken(target);
    }
    return movedToFree(runs, to);
}

ShowRuns clear(const ShowRuns &runs, const PortName &port)
{
    ShowRuns result = runs;
    for (WallRuns &wall : result)
        std::erase_if(wall, [&](const CableRun &run) { return run.port == port; });
    return result;
}

ShowRuns rename(const ShowRuns &runs, const QString &processor, const QString &name)
{
    ShowRuns result = runs;
    forEachRun(result, [&](CableRun &run) {
        if (run.port.processor == processor)
            run.port.processor = name;
    });
    return result;
}

ShowRuns onFreePorts(const ShowRuns &runs, FreePorts free)
{
    ShowRuns result = runs;
    std::vector<CableRun *> inOrder;
    for (WallRuns &wall : result)
        std::ranges::transform(wall, std::back_inserter(inOrder), [](CableRun &run) { return &run; });
    std::ranges::stable_sort(inOrder, [](const CableRun *one, const CableRun *other) {
        return one->port == other->port ? one->piece < other->piece : one->port < other->port;
    });
    std::map<PortName, PortName> places;
    std::map<PortName, int> pieces;
    for (CableRun *run : inOrder) {
        auto place = places.find(run->port);
        if (place == places.end())
            place = places.emplace(run->port, free.take(run->port.processor)).first;
        run->port = place->second;
        run->piece = ++pieces[run->port];
    }
    return result;
}

std::vector<std::size_t> sharing(const ShowToWire &show, const ShowWiring &wiring, std::size_t wall)
{
    std::set<std::size_t> walls;
    std::vector<std::size_t> open{wall};
    while (!open.empty()) {
        const std::size_t next = open.back();
        open.pop_back();
        if (show.walls[next].split == WallToWire::Split::Hand || !walls.insert(next).second)
            continue;
        for (const std::size_t port : wiring.walls[next].ports) {
            for (const ShowWiring::Piece &piece : wiring.ports[port].pieces)
                open.push_back(piece.wall);
        }
    }
    return {walls.begin(), walls.end()};
}

WallRuns asLaidByHand(const ShowToWire &show, const ShowWiring &wiring, std::size_t wallPlace)
{
    const ShowWiring::Wall &wall = wiring.walls[wallPlace];
    WallRuns runs;
    for (const ShowWiring::Port &port : wiring.ports) {
        for (const ShowWiring::Piece &piece : port.pieces) {
            if (piece.wall != wallPlace || port.number == 0)
                continue;
            CableRun run{{show.processors[port.processor].name, port.number}, piece.number, {}};
            for (const WiredPanel &panel : wall.split.panelsOf(wall.split.runs[piece.run]))
                run.cells.push_back(panel.cell);
            if (!run.cells.empty())
                runs.push_back(run);
        }
    }
    return runs;
}

std::map<std::size_t, qint64> firstPortsToKeep(const ShowToWire &show, const ShowWiring &wiring,
                                               const std::vector<std::size_t> &walls)
{
    std::map<std::size_t, qint64> kept;
    for (const std::size_t wall : walls) {
        for (const std::size_t one : sharing(show, wiring, wall)) {
            if (const auto places = ownPlaces(show, wiring, one); !places.empty())
                kept.emplace(one, places.front().first);
        }
    }
    while (const auto moving = firstThatMoves(show, wiring, kept))
        kept.erase(*moving);
    return kept;
}

} // namespace PortEdits
