#pragma once

#include <QtGlobal>

#include <cmath>
#include <limits>

/// The 32-bit number next to `value`: itself, or the nearest end.
inline int nearestInt(qint64 value)
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(qBound(qint64{Limits::min()}, value, qint64{Limits::max()}));
}

/// The 32-bit number next to `value` towards zero; the nearest there is where it is too large, 0 for what is no number.
inline int truncated(double value)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(value))
        return 0;
    return static_cast<int>(qBound(double{Limits::min()}, value, double{Limits::max()}));
}
