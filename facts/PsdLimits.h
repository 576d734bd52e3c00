#pragma once

#include "base/Result.h"

#include <QtGlobal>

/// What a layered file can hold.
namespace PsdLimits {

/// Whether an output of this size can be exported. Error: it has no pixels, more on a side than the format allows, or
/// more in all than a raster can hold; the message names the size and the limit.
[[nodiscard]] Result<void> checkOutputSize(qint64 width, qint64 height);

} // namespace PsdLimits
