#pragma once

#include "base/Result.h"
#include "layer/Layer.h"
#include "output/ComposedOutput.h"

#include <vector>

/// Pictures that an output does not show for want of memory, as LostWall is of walls.
namespace LostPicture {

/// Whether the output that was composed of placedPictures(layers) in this size is there and shows all of them. An
/// output of a size that none can have is nothing lost. Error: the sentences of those that are lost, with their names:
/// "PLATE: there is not enough memory to show it in 8,000 x 8,000 pixels; ...", or that there is no memory for the
/// output.
[[nodiscard]] Result<void> check(const ComposedOutput &output, const QSize &size,
                                 const std::vector<LayerPointer> &layers);

} // namespace LostPicture
