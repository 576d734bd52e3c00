#pragma once

#include <QImage>
#include <QPainterPath>
#include <QPoint>

#include <memory>

/// A shape's coverage as Qt's painter antialiases it (`QImage::Format_Alpha8`, 255 = wholly covered) and where its top
/// left stands, y down. Laid over a raster it gives the pixels that filling the shape would give.
struct CoverageMask
{
    std::shared_ptr<const QImage> mask; ///< null where there is nothing to cover
    QPoint topLeft;

    bool operator==(const CoverageMask &) const = default;

    /// The coverage of `outline` (y down), filled by its fill rule; for shapes of a few hundred pixels.
    static CoverageMask of(const QPainterPath &outline);
};
