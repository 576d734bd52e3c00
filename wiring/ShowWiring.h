#pragma once

#include "wiring/DeviceBounds.h"
#include "wiring/WallSplit.h"

#include <optional>
#include <vector>

/// A wall as whoever asks for its ports gives it: hidden walls, too, since they keep theirs. Its corner, counts and
/// sizes are those of the layer, `shape.off` the cells of its panels that are off.
struct WallToWire
{
    using Split = CableSplit;

    QString name = {};
    WallShape shape = {};
    QString processor = {}; ///< its name; empty: the wall has none and is left out
    Split split = Split::Lines;
    qint64 pattern = 0;    ///< 0 to 7; others are no path
    qint64 pixelLimit = 0; ///< of whole lines; 0: none
    qint64 firstPort = 0;  ///< kept, whatever the other walls do; 0 or less: the next free one
    /// The first run goes on at the last port of the wall before it in the list, on the same processor, while it fits.
    /// That of a wall by hand is the one with the greatest number.
    bool goesOn = false;
    WallRuns runs = {};

    bool keepsFirstPort() const { return firstPort > 0; }
};

/// What is to be wired: the processors of a show in their order, its walls in the order of the layer list, and the size
/// of its output in pixels.
struct ShowToWire
{
    std::vector<ProcessorSettings> processors;
    std::vector<WallToWire> walls;
    QSize output;
};

/// Which panel hangs on which port, and in which order.
struct ShowWiring
{
    /// Of a run whose processor the show lacks.
    static constexpr std::size_t noPort = static_cast<std::size_t>(-1);

    enum class State
    {
        Wired,
        LeftOut,     ///< it has no processor
        NoProcessor, ///< the show lacks the one it names, and it waits
        NoPanels,    ///< or they have no pixels
        NoPath,      ///< there is no such pattern
        TooLarge,    ///< it has more than WallPanels::mostPanels
        NoFigure     ///< panel by panel, and nobody says what a port bears
    };
    struct Wall
    {
        State state = State::LeftOut;
        WallSplit split = {};
        std::vector<std::size_t> ports = {}; ///< of each run: its place in the list of ports, or `noPort`
    };
    struct Piece
    {
        std::size_t wall;
        std::size_t run; ///< of that wall
        int number;      ///< 1 the first on its port
    };
    struct Port
    {
        std::size_t processor;               ///< its place in the list
        qint64 number = 0;                   ///< 0: no processor has one for it
        std::vector<Piece> pieces = {};      ///< in the order of the cable
        std::optional<PortName> backup = {}; ///< where the other end of the cable goes
        bool isByHand = false;
        PortLoad load = {};
        qint64 loaded = 0;                     ///< pixels that count, those of the box where it does
        std::optional<qint64> limit = {};      ///< nullopt: nobody says
        std::optional<PortExcess> excess = {}; ///< by which it is over

        /// Each once, in the order of the cable.
        std::vector<std::size_t> walls() const;
    };
    /// Ports that the processors like one of the list do not have. A wall that keeps a first port which is none is
    /// not counted: it needs another one.
    struct Shortage
    {
        std::size_t processor;
        qint64 ports = 0;
        qint64 processors = 0;               ///< so many more of the same kind would take them
        std::vector<std::size_t> walls = {}; ///< that have no port for a run, each once
    };
    /// A wall that keeps a port which another one has, too.
    struct Conflict
    {
        std::size_t wall;
        std::size_t other;
        std::size_t port;
    };
    struct Processor
    {
        tl::expected<PortBounds, NoFigure> ports;
        DeviceBounds device; ///< of a model that there is
        PortLoad total;
    };

    std::vector<Wall> walls; ///< as they came
    std::vector<Port> ports; ///< by processor and number; those without a number behind the others of theirs
    std::vector<Processor> processors;
    std::vector<Shortage> shortages;
    std::vector<Conflict> conflicts;

    static ShowWiring of(const ShowToWire &show);
};
