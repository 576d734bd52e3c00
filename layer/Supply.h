#pragma once

#include <QtGlobal>

#include <optional>

/// The supply that the current of walls is worked out for, as a person chooses it.
struct Supply
{
    static constexpr int mostVolts = 1000;

    int volts = 110;
    int phases = 1; ///< 1 or 3

    /// Nullopt where there is no such supply: volts from 1 to `mostVolts`, on 1 phase or 3.
    static constexpr std::optional<Supply> of(qint64 volts, qint64 phases)
    {
        if (volts < 1 || volts > mostVolts || (phases != 1 && phases != 3))
            return std::nullopt;
        return Supply{static_cast<int>(volts), static_cast<int>(phases)};
    }

    bool operator==(const Supply &) const = default;
};
