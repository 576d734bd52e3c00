#pragma once

#include "layer/PixelBox.h"

/// Whether a cable that goes from a panel to another is stretched: there is more room between them, across or down,
/// than the first of them takes. A neighbour is no jump, straight or diagonal, nor is the panel behind one that is
/// passed. Checks tell of jumps, and pictures dash them.
inline bool isCableJump(const PixelBox &from, const PixelBox &to)
{
    const auto isFar = [](const PixelSpan &one, const PixelSpan &other) {
        const qint64 gap = std::max(other.from - one.to, one.from - other.to);
        return gap > one.to - one.from;
    };
    return isFar(from.columns, to.columns) || isFar(from.rows, to.rows);
}
