#pragma once

#include <QtGlobal>

#include <algorithm>
#include <cmath>

/// Whole numbers from real ones, whatever these are.
namespace WholeNumbers {

/// Cut toward zero. What reaches beyond +-10^15 counts as that, and what is not a number as 0.
inline qint64 truncated(double value)
{
    constexpr double furthest = 1e15;
    return std::isnan(value) ? 0 : static_cast<qint64>(std::clamp(value, -furthest, furthest));
}

} // namespace WholeNumbers
