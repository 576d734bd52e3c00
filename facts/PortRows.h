#pragma once

#include "facts/ShowPorts.h"
#include "layer/PixelBox.h"

#include <vector>

/// A row of the table of ports: a port of a processor or, in a show without processors, a run of a wall.
struct PortRow
{
    enum class Level
    {
        Fits,
        NearlyFull, ///< 95 % and more
        Over
    };
    static constexpr double nearlyFull = 95;

    QString processor; ///< its name; empty: the show has none
    QString port;      ///< "A1"; "A?" where no processor has one for it; "3", or "1 to 2,000", of a wall's own runs
    QString backup;    ///< "A11"; empty: none
    std::vector<qsizetype> layers; ///< its walls by their rows in the list, each once, in the order of the cable
    PixelBox box;                  ///< around what hangs on it, on the output
    qint64 panels = 0;
    std::optional<qint64> pixels = {}; ///< nullopt: more than can be counted
    std::optional<qint64> loaded = {}; ///< those that count, where the box around the panels does
    qint64 counted = 0;                ///< pixels that count
    std::optional<qint64> limit = {};
    QString whyNoLimit; ///< one sentence
    std::optional<double> highestRate = {};
    std::optional<RuleCost> costliest = {};
    bool isOver = false;

    std::optional<qint64> free() const { return limit ? std::optional(*limit - counted) : std::nullopt; }
    /// Of its limit; nullopt: it has none.
    std::optional<double> percent() const;
    Level level() const;
};

namespace PortRows {

/// Those of `ports`, which is of the same layers; where the show has no processors, the runs of each wall's limit.
std::vector<PortRow> of(const std::vector<LayerPointer> &layers, const ShowPorts &ports);

} // namespace PortRows
