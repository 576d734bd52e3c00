#include "output/CanvasPicture.h"

#include "drawing/Raster.h"
#include "output/AreaReduction.h"

#include <QPainter>

#include <optional>
#include <utility>

namespace {
/// More rectangles than these cost more than painting all.
constexpr int mostPlaces = 32;

bool isReduced(const QSize &output, const QRect &place)
{
    return place.width() < output.width() || place.height() < output.height();
}

/// Where a part of the output is painted.
QRect placeOf(const QRect &part, const QSize &output, const QRect &place)
{
    if (isReduced(output, place))
        return AreaReduction::shownIn(part, output, place.size()).translated(place.topLeft());
    const QSize block(place.width() / output.width(), place.height() / output.height());
    return {place.x() + part.x() * block.width(), place.y() + part.y() * block.height(), part.width() * block.width(),
            part.height() * block.height()};
}

/// The same pixels, which live as long as the picture, for a painter that need not look at their alpha.
QImage asOpaque(const QImage &picture)
{
    return {picture.constBits(), picture.width(), picture.height(), picture.bytesPerLine(), QImage::Format_RGB32};
}

void paintEnlarged(QPainter &painter, const QImage &output, const QRect &place, const QRect &seen)
{
    // Whole output pixels: a part of one would be scaled to a block of its own.
    const QSize block(place.width() / output.width(), place.height() / output.height());
    const QRect part = (place & seen).translated(-place.topLeft());
    const QRect pixels(QPoint(part.left() / block.width(), part.top() / block.height()),
                       QPoint(part.right() / block.width(), part.bottom() / block.height()));
    const QRect blocks(place.x() + pixels.x() * block.width(), place.y() + pixels.y() * block.height(),
                       pixels.width() * block.width(), pixels.height() * block.height());
    painter.drawImage(blocks, output, pixels);
}
} // namespace

QRegion CanvasPicture::stale(const ComposedOutput &output, const QRect &place) const
{
    const std::optional<QRegion> change = output.changes.since(m_paintedKey);
    if (place != m_paintedPlace || !change || change->rectCount() > mostPlaces)
        return place;
    QRegion stale;
    for (const QRect &part : *change)
        stale += placeOf(part, output.picture.size(), place);
    return stale;
}

void CanvasPicture::paint(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen)
{
    const QImage &picture = output.picture;
    m_paintedKey = picture.cacheKey();
    m_paintedPlace = place;
    if (picture.isNull() || !place.intersects(seen))
        return;
    if (isReduced(picture.size(), place))
        return paintReduced(painter, output, place, seen);
    m_reduced = {};
    paintEnlarged(painter, output.isOpaque ? asOpaque(picture) : picture, place, seen);
}

void CanvasPicture::paintFramed(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen,
                                const QColor &outline, const QColor &ground)
{
    for (const QRect &side : QRegion(place.adjusted(-1, -1, 1, 1) & seen) - place)
        painter.fillRect(side, outline);
    if (!output.isOpaque)
        painter.fillRect(place & seen, ground);
    paint(painter, output, place, seen);
}

void CanvasPicture::paintReduced(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen)
{
    const QRect part = (place & seen).translated(-place.topLeft());
    const qint64 key = output.picture.cacheKey();
    const bool isThere = !m_reduced.isNull() && m_size == place.size() && m_part.contains(part);
    if (!isThere || key != m_reducedFrom) {
        const std::optional<QRegion> change = isThere ? output.changes.since(m_reducedFrom) : std::nullopt;
        m_size = place.size();
        if (change)
            mend(output.picture, *change);
        else
            make(output.picture, part);
        m_reducedFrom = key;
    }
    const QImage reduced = output.isOpaque ? asOpaque(m_reduced) : m_reduced;
    painter.drawImage(place.topLeft() + part.topLeft(), reduced, part.translated(-m_part.topLeft()));
}

void CanvasPicture::make(const QImage &output, const QRect &part)
{
    m_part = part;
    m_reduced = Raster::reuse(std::move(m_reduced), part.width(), part.height());
    if (!m_reduced.isNull())
        AreaReduction::reduce(m_reduced, {0, 0}, output, m_size, part);
}

void CanvasPicture::mend(const QImage &output, const QRegion &change)
{
    for (const QRect &changed : change) {
        const QRect part = AreaReduction::shownIn(changed, output.size(), m_size) & m_part;
        AreaReduction::reduce(m_reduced, part.topLeft() - m_part.topLeft(), output, m_size, part);
    }
}
