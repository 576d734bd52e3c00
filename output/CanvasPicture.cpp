#include "output/CanvasPicture.h"

#include "drawing/Raster.h"
#include "output/AreaReduction.h"

#include <QPainter>

#include <optional>
#include <utility>

namespace {
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

void CanvasPicture::paint(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen)
{
    const QImage &picture = output.picture;
    if (picture.isNull() || !place.intersects(seen))
        return;
    if (place.width() < picture.width() || place.height() < picture.height())
        return paintReduced(painter, output, place, seen);
    m_reduced = {};
    paintEnlarged(painter, picture, place, seen);
}

void CanvasPicture::paintFramed(QPainter &painter, const ComposedOutput &output, const QRect &place, const QRect &seen,
                                const QColor &outline, const QColor &ground)
{
    painter.fillRect(place.adjusted(-1, -1, 1, 1) & seen, outline);
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
    painter.drawImage(place.topLeft() + part.topLeft(), m_reduced, part.translated(-m_part.topLeft()));
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
