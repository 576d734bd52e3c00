#pragma once

#include "layer/PictureChanges.h"

#include <QImage>

/// An output as views read it.
struct ComposedOutput
{
    QImage picture;              ///< in raster format (drawing/Raster.h); null where there is none
    bool isOpaque = false;       ///< all of it
    PictureChanges changes = {}; ///< how it came from what it was before
};
