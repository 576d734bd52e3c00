#pragma once

#include "facts/ShowPorts.h"

#include <QString>

#include <optional>
#include <vector>

/// The ports that feed some walls together.
struct WiredPorts
{
    qint64 count = 0;
    qint64 over = 0;             ///< those over their limit
    QString names;               ///< "A1 to A4, A7"
    qint64 fullest = 0;          ///< pixels that count on the port that has most of them
    std::optional<qint64> limit; ///< what that port carries; nullopt: nobody says
    QString trouble;             ///< why a wall has no ports, or no figure; empty: nothing

    /// `rows`: of the walls in the layer list. Nullopt: no processor feeds any of them.
    static std::optional<WiredPorts> of(const ShowPorts &ports, const std::vector<qsizetype> &rows);

    /// "A1 to A4, the fullest with 640,000 of 659,722 px"; the trouble where there is some.
    QString text() const;
};
