#pragma once

#include "charts/ChartShape.h"

#include <algorithm>
#include <cmath>

/// Frames counted in steps and rounds; numbers below 0 go on in the same way.
namespace FrameCount {

/// The rest of a division, 0 to round - 1.
inline qint64 within(qint64 frame, qint64 round)
{
    const qint64 rest = frame % round;
    return rest < 0 ? rest + round : rest;
}

/// The step of a frame where each lasts `hold` frames.
inline qint64 step(qint64 frame, qint64 hold)
{
    return frame / hold - (frame % hold < 0 ? 1 : 0);
}

inline double rate(const ChartShape &shape)
{
    return std::isfinite(shape.rate) ? std::clamp(shape.rate, 1.0, 1000.0) : 60;
}

/// The fewest frames of a round in which something appears and vanishes once: at most three flashes a second, which
/// nobody is harmed by.
inline qint64 shortestRound(const ChartShape &shape)
{
    return static_cast<qint64>(std::ceil(rate(shape) / 3));
}

/// Frames that a panel is lit: two in turn are within the limit too.
inline qint64 hold(const ChartShape &shape)
{
    const auto quarter = static_cast<qint64>(std::floor(rate(shape) / 4 + 0.5));
    const auto least = static_cast<qint64>(std::ceil(rate(shape) / 6));
    return std::max<qint64>({1, least, shape.options.hold ? *shape.options.hold : quarter});
}

} // namespace FrameCount
