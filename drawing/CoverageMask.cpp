#include "drawing/CoverageMask.h"

#include <QPainter>

namespace {
/// Masks are widened to whole vectors of pixels, so that blending a row of one has no odd end to care for.
constexpr int vectorPixels = 16;

/// What the painter keeps with a path for the next time is many times the path.
QPainterPath copyOf(const QPainterPath &path)
{
    QPainterPath copy;
    copy.addPath(path);
    copy.setFillRule(path.fillRule());
    return copy;
}
} // namespace

CoverageMask CoverageMask::of(const QPainterPath &outline)
{
    QRect bounds = outline.boundingRect().toAlignedRect();
    if (bounds.isEmpty())
        return {};
    bounds.setWidth((bounds.width() + vectorPixels - 1) / vectorPixels * vectorPixels);
    QImage mask(bounds.size(), QImage::Format_Alpha8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-bounds.topLeft());
    painter.fillPath(copyOf(outline), Qt::black);
    painter.end();
    return {std::make_shared<const QImage>(mask.copy()), bounds.topLeft()}; // the painter's engine goes with the first
}
