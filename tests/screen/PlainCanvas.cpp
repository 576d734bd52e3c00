#include "tests/screen/PlainCanvas.h"

#include "drawing/TextLine.h"

#include <QPen>
#include <QTransform>

#include <algorithm>

PlainCanvas::PlainCanvas(QImage &image) : m_height(image.height()), m_painter(&image) {}

QRect PlainCanvas::flipped(const QRect &rect) const
{
    return {rect.x(), m_height - rect.y() - rect.height(), rect.width(), rect.height()};
}

QPainterPath PlainCanvas::flipped(const QPainterPath &path) const
{
    return QTransform(1, 0, 0, -1, 0, m_height).map(path);
}

void PlainCanvas::setColour(const OptionalColour &colour)
{
    if (!colour)
        return;
    m_fill = colour->toQColor();
    m_stroke = colour->toQColor();
}

void PlainCanvas::setFillColour(const OptionalColour &colour)
{
    if (colour)
        m_fill = colour->toQColor();
}

void PlainCanvas::fillRect(const QRect &rect, QPainter::CompositionMode mode)
{
    m_painter.setRenderHint(QPainter::Antialiasing, false); // which would touch the pixels at the raster's edge
    m_painter.setCompositionMode(mode);
    m_painter.fillRect(flipped(rect), m_fill);
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void PlainCanvas::frameRect(const QRect &rect, int width)
{
    if (width <= 0)
        return;
    const int across = std::min(width, rect.width());
    const int up = std::min(width, rect.height());
    const auto replace = QPainter::CompositionMode_Source;
    fillRect({rect.x(), rect.y(), rect.width(), up}, replace);
    fillRect({rect.x(), rect.y() + rect.height() - up, rect.width(), up}, replace);
    fillRect({rect.x(), rect.y(), across, rect.height()}, replace);
    fillRect({rect.x() + rect.width() - across, rect.y(), across, rect.height()}, replace);
}

void PlainCanvas::fillPath(const QPainterPath &path)
{
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    m_painter.fillPath(flipped(path), m_fill);
}

void PlainCanvas::strokePath(const QPainterPath &path, double width)
{
    if (width < 0)
        return;
    QPen pen(m_stroke, width, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
    pen.setMiterLimit(10); // a line that turns back on itself ends flat
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    m_painter.strokePath(flipped(path), pen);
}

void PlainCanvas::drawText(qint64 x, qint64 y, const QString &text, double pointSize, const OptionalColour &foreground,
                           const OptionalColour &background)
{
    const TextLine line(text, pointSize);
    if (!foreground || line.size().height() == 0)
        return;
    const qint64 left = x;
    const qint64 top = m_height - y - line.size().height();
    // Qt's rectangles and paths cannot reach as far as a text's position can.
    const auto outOfReach = [](qint64 position) { return std::abs(position) > qint64{1} << 24; };
    if (outOfReach(left) || outOfReach(top))
        return;

    const QPoint topLeft(static_cast<int>(left), static_cast<int>(top));
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    if (background)
        m_painter.fillRect(QRect(topLeft, line.size()), background->toQColor());
    m_painter.setRenderHint(QPainter::Antialiasing, true);
    for (const QPainterPath &glyph : line.outlines())
        m_painter.fillPath(glyph.translated(topLeft), foreground->toQColor());
}
