#pragma once

#include "layer/CableRun.h"
#include "wiring/PortBounds.h"
#include "wiring/WallPanels.h"

#include <functional>
#include <span>

/// Cables of one wall as a hand lays them. Runs in, runs out; a run is named by its place in the list.
namespace HandWiring {

/// How a run is laid.
struct Hand
{
    bool isBefore = false;      ///< it grows at its beginning
    bool takesOver = false;     ///< panels of other runs change over; else they are passed
    bool goesPastLimit = false; ///< else the run stops at its limit
};

/// What the port of the run bears.
struct Limit
{
    const PortBounds *bounds = nullptr; ///< null: nobody says, and nothing stops the run
    PortLoad elsewhere = {};            ///< what hangs on that port besides the run
};

/// A panel that the pointer passed and the run did not take.
struct Passed
{
    Cell cell;
    std::optional<PortName> port; ///< of the run that has it; nullopt: the panel is off

    bool operator==(const Passed &) const = default;
};

struct Laid
{
    WallRuns runs;           ///< without those that have lost all their panels
    std::size_t run = 0;     ///< that was laid; the number of runs: it has none
    std::vector<Cell> taken; ///< in the order of the way
    std::vector<Passed> passed;
    std::optional<Cell> full; ///< where the run stopped at its limit
    bool isOver = false;      ///< it went past it
};

/// The panels from one to another, of which each is next to the one before; without the first.
std::vector<Cell> wayBetween(const Cell &from, const Cell &to);

/// Lays a run on along the way of the pointer. Panels of the run itself and places beside the wall are passed without
/// a word.
Laid lay(const WallShape &wall, const WallRuns &runs, std::size_t run, std::span<const Cell> way, const Limit &limit,
         const Hand &hand = {});

/// Begins a piece of a port, and lays it.
Laid begin(const WallShape &wall, const WallRuns &runs, const PortName &port, int piece, std::span<const Cell> way,
           const Limit &limit, const Hand &hand = {});

/// The run that has a panel; nullopt: none.
std::optional<std::size_t> runAt(const WallRuns &runs, const Cell &cell);

/// Without the panel that was laid last, or first where `isBefore`; the run goes with its only one.
WallRuns takeBack(const WallRuns &runs, std::size_t run, bool isBefore = false);

/// Without a run.
WallRuns clear(const WallRuns &runs, std::size_t run);

/// Without the panels that the wall does not have.
WallRuns keepInside(const WallShape &wall, const WallRuns &runs);

/// Whether a port bears what a run would then hang on it.
using FitsOnPort = std::function<bool(const CableRun &run, const PortLoad &load)>;

/// Takes panels that are on and not fed in behind the ends of the runs that they are next to, while they fit.
WallRuns feed(const WallShape &wall, const WallRuns &runs, const FitsOnPort &fits);

/// What hangs on a run: its panels that are on.
PortLoad loadOf(const WallShape &wall, const CableRun &run);

} // namespace HandWiring
