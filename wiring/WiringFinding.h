#pragma once

#include "wiring/ShowWiring.h"

#include <vector>

/// Something about a show's wiring that a check has found, in figures: who shows it makes the sentence and says how
/// bad it is. What concerns several walls is there for each of them.
struct WiringFinding
{
    enum class Check
    {
        PortOver,          ///< `found` of `limit`, which says the kind; see PortExcess
        PortNearlyFull,    ///< over 95 %, and wired by hand or by a typed figure
        LinesOver,         ///< whole lines: not one of `found` pixels fits `limit`; all of the wall is one run
        PanelFedTwice,     ///< `found` panels of a wall; `cell` is the first of them
        PanelNotFed,       ///< likewise
        CellMissing,       ///< runs name `found` panels that the wall does not have
        Jump,              ///< `found` times, see isCableJump(); the first ends at `cell`
        CapExceeded,       ///< `found` pixels of a processor that bears `limit`
        CanvasExceeded,    ///< the `box` around all panels of a processor
        ProcessorsMissing, ///< `found` ports have none; `limit` more processors would take them, 0: no number would;
                           ///< `shortage` says which
        NoFigure,          ///< nobody says what a port of the processor bears; no wall waits for it
        WallWaits,         ///< nobody says what a port of the processor bears, and the wall is cut by it
        ProcessorUnknown,  ///< a wall names one that the show lacks, `name`, and waits
        RunOfMissing,      ///< `found` runs by hand name one, `name`; the first hangs on `port`
        PortMissing,       ///< a run by hand names a port that its processor, with `limit` of them, does not have
        NameUsedTwice,     ///< of processors: `name`
        PortKeptTwice,     ///< two walls, `wall` and `otherWall`, claim a port
        PartnerTaken, ///< the other end of `port` is on one, `otherPort`, that feeds panels of its own or ends another
        PortLeftOver, ///< loops: `found` ports, the first one `port`, have no partner
        LoopTooLong,  ///< `found` panels in a loop that may have `limit`
        NoLoops,      ///< loops are meant, and the processor, with `limit` ports (0: nobody says), closes none
        BackupWrong,  ///< the second processor is none, the first one itself, or of another model
        FirstPortMissing,  ///< a wall keeps `port`, and of the `limit` that its processor has none from there on begins
                           ///< a cable
        FirstPortEndsLoop, ///< a wall keeps `port`, which takes the other end of a loop; it begins at the next one
        FirstPortFilled,   ///< a wall keeps `port` behind `otherWall`, which has come to fill it or goes on beyond it
        NoPath,            ///< a wall has no pattern, and no panel of it hangs on a port
        TooManyPanels      ///< a wall that comes behind the first `limit` panels of the show hangs on no port
    };

    /// Findings of one check in one wall; what is more of them, the last one counts.
    static constexpr qint64 mostAlike = 100;

    Check check;
    std::optional<std::size_t> wall = {};
    std::optional<std::size_t> otherWall = {};
    std::optional<Cell> cell = {}; ///< of the wall
    std::optional<std::size_t> processor = {};
    std::optional<PortName> port = {};
    std::optional<PortName> otherPort = {};
    std::optional<std::size_t> portPlace = {}; ///< of `port` in the list of ports, where it is there
    std::optional<std::size_t> shortage = {};  ///< its place in the list
    qint64 found = 0;
    qint64 limit = 0;
    PortExcess::Of of = PortExcess::Of::Pixels; ///< what a port has too many of
    bool isHeadroomOnly = false;                ///< a port is over what it shall carry, not over what it can
    PixelBox box = {};
    QString name = {};
    qint64 more = 0; ///< of the same check in the same wall, which are not listed
};

/// All that is wrong or worth knowing, by processor, port and wall. `wiring` is that of the same show.
std::vector<WiringFinding> findInWiring(const ShowToWire &show, const ShowWiring &wiring);
