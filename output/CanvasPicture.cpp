#include "output/CanvasPicture.h"

#include <QPainter>

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

void CanvasPicture::paint(QPainter &painter, const QImage &output, const QRect &place, const QRect &seen)
{
    if (output.isNull() || !place.intersects(seen))
        return;
    if (place.width() < output.width() || place.height() < output.height())
        return paintReduced(painter, output, place, seen);
    m_reduced = {};
    paintEnlarged(painter, output, place, seen);
}

void CanvasPicture::paintFramed(QPainter &painter, const QImage &output, const QRect &place, const QRect &seen,
                                const QColor &outline, const QColor &ground)
{
    painter.fillRect(place.adjusted(-1, -1, 1, 1) & seen, outline);
    painter.fillRect(place & seen, ground);
    paint(painter, output, place, seen);
}

void CanvasPicture::paintReduced(QPainter &painter, const QImage &output, const QRect &place, const QRect &seen)
{
    const bool isOther = std::exchange(m_reducedFrom, output.cacheKey()) != output.cacheKey();
    if (isOther || m_reduced.size() != place.size()) {
        m_reduced = {}; // so that two are never held at once
        m_reduced = output.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    const QRect part = place & seen;
    painter.drawImage(part.topLeft(), m_reduced, part.translated(-place.topLeft()));
}
