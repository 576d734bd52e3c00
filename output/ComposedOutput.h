#pragma once

#include "layer/PictureChanges.h"

#include <QImage>

#include <cstddef>
#include <vector>

/// An output as views read it.
struct ComposedOutput
{
    QImage picture;              ///< in raster format (drawing/Raster.h); null where there is none
    bool isOpaque = false;       ///< all of it
    PictureChanges changes = {}; ///< how it came from what it was before
    /// Pictures that it does not show, since there was no memory to fit them in: their rows in the list that was
    /// composed.
    std::vector<std::size_t> lost = {};
};
