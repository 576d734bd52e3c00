#include "output/CanvasPicture.h"

#include <QPainter>

void CanvasPicture::show(const QImage &output)
{
    m_output = output;
    m_reduced = {};
}

void CanvasPicture::release()
{
    m_output = {};
}

void CanvasPicture::paint(QPainter &painter, const QRect &place, const QRect &seen)
{
    if (m_output.isNull() || !place.intersects(seen))
        return;
    if (place.width() < m_output.width() || place.height() < m_output.height())
        paintReduced(painter, place, seen);
    else
        paintEnlarged(painter, place, seen);
}

void CanvasPicture::paintFramed(QPainter &painter, const QRect &place, const QRect &seen, const QColor &outline,
                                const QColor &ground)
{
    painter.fillRect(place.adjusted(-1, -1, 1, 1) & seen, outline);
    painter.fillRect(place & seen, ground);
    paint(painter, place, seen);
}

void CanvasPicture::paintReduced(QPainter &painter, const QRect &place, const QRect &seen)
{
    if (m_reduced.size() != place.size())
        m_reduced = m_output.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QRect part = place & seen;
    painter.drawImage(part.topLeft(), m_reduced, part.translated(-place.topLeft()));
}

void CanvasPicture::paintEnlarged(QPainter &painter, const QRect &place, const QRect &seen) const
{
    // Whole output pixels: a part of one would be scaled to a block of its own.
    const QSize block(place.width() / m_output.width(), place.height() / m_output.height());
    const QRect part = (place & seen).translated(-place.topLeft());
    const QRect pixels(QPoint(part.left() / block.width(), part.top() / block.height()),
                       QPoint(part.right() / block.width(), part.bottom() / block.height()));
    const QRect blocks(place.x() + pixels.x() * block.width(), place.y() + pixels.y() * block.height(),
                       pixels.width() * block.width(), pixels.height() * block.height());
    painter.drawImage(blocks, m_output, pixels);
}
