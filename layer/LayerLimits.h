#pragma once

#include "base/Result.h"
#include "layer/Layer.h"

#include <vector>

/// How many layers a list can hold, and how large. A small file may name one layer, or one large wall or chart, very
/// many times; whatever reads or writes a list of layers asks here.
namespace LayerLimits {

/// Saving takes under a second: it grows with the square of their number.
inline constexpr qint64 mostLayers = 10'000;
/// Pixels of all walls and charts of a list together: 4 GiB of memory.
inline constexpr qint64 mostDrawnPixels = qint64{1} << 30;

/// A layer of a list, or one that is still being read.
struct Listed
{
    LayerKind kind;
    LayerRecordPointer record;
};

/// Whether so many layers can be kept. Error: more than `mostLayers`.
[[nodiscard]] Result<void> checkCount(qint64 count);

/// Whether the layers can be held together. Pictures of files do not count, nor does what is too large to be drawn.
/// Error: there are too many, or the walls and charts have more pixels than `mostDrawnPixels`.
[[nodiscard]] Result<void> check(const std::vector<LayerPointer> &layers);
[[nodiscard]] Result<void> check(const std::vector<Listed> &layers);

} // namespace LayerLimits
