#pragma once

#include "base/Result.h"
#include "layer/Layer.h"

#include <vector>

/// How many layers a list can hold, and how large. A small file may name one layer, or one large wall, very many times;
/// whatever reads or writes a list of layers asks here.
namespace LayerLimits {

inline constexpr qint64 mostLayers = 100'000;
/// Pixels of all walls of a list together: 4 GiB of memory.
inline constexpr qint64 mostWallPixels = qint64{1} << 30;

/// Whether so many layers can be kept. Error: more than `mostLayers`.
[[nodiscard]] Result<void> checkCount(qint64 count);

/// Whether the layers, or those of such records, can be held together.
/// Error: there are too many, or the walls have more pixels than `mostWallPixels`.
[[nodiscard]] Result<void> check(const std::vector<LayerPointer> &layers);
[[nodiscard]] Result<void> check(const std::vector<LayerRecordPointer> &records);

} // namespace LayerLimits
