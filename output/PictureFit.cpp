#include "output/PictureFit.h"

#include "drawing/Raster.h"

#include <QPainter>

#include <algorithm>

namespace {
struct Extent
{
    qint64 first;
    qint64 count;
};

/// What of a side of `length` from `position` on lies within 0 to `limit`, counted from the side's start.
Extent visiblePart(qint64 position, qint64 length, qint64 limit)
{
    const qint64 first = std::max<qint64>(0, -position);
    return {first, std::min(length, limit - position) - first};
}

qint64 area(const QSize &size)
{
    return qint64{size.width()} * size.height();
}
} // namespace

std::optional<PictureFit> PictureFit::of(const PlacedPicture &placed, const QSize &output)
{
    const Extent columns = visiblePart(placed.topLeft.x(), placed.size.width(), output.width());
    const Extent rows = visiblePart(placed.topLeft.y(), placed.size.height(), output.height());
    if (placed.picture.isNull() || placed.size.isEmpty() || columns.count <= 0 || rows.count <= 0)
        return {};

    const QSize own = placed.picture.size();
    PictureFit fit{placed.picture.cacheKey(), placed.size, QRect(QPoint(0, 0), placed.size), false};
    fit.changes = own != placed.size || placed.picture.format() != Raster::format;
    // A picture made larger may be larger than memory, but no more than the output of it shows.
    const bool grows = area(placed.size) > area(own) || !Raster::canHold(placed.size.width(), placed.size.height());
    if (own != placed.size && grows) {
        fit.part = QRect(static_cast<int>(columns.first), static_cast<int>(rows.first), static_cast<int>(columns.count),
                         static_cast<int>(rows.count));
    }
    return fit;
}

QImage PictureFit::made(const QImage &picture) const
{
    QImage raster = picture.convertToFormat(Raster::format);
    if (raster.isNull() || size == raster.size())
        return raster;
    if (part.size() == size && area(size) <= area(raster.size()))
        return raster.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

    QImage result = Raster::make(part.width(), part.height());
    if (result.isNull())
        return {};
    const double horizontal = static_cast<double>(raster.width()) / size.width();
    const double vertical = static_cast<double>(raster.height()) / size.height();
    const QRectF source(part.x() * horizontal, part.y() * vertical, part.width() * horizontal,
                        part.height() * vertical);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRectF(QPointF(0, 0), QSizeF(part.size())), raster, source);
    return result;
}
