#include "charts/ChartPainter.h"
#include "charts/Painters.h"

namespace {
/// The outline and, a dark pixel inside it, a square in each corner: of 1, 2, 3 and 4 pixels, clockwise from the top
/// left, so that a turned or mirrored picture is seen.
void drawFrame(ChartPainter &painter, const QRect &box)
{
    const QRgb white = painter.levels().white();
    const QRect inside = box.adjusted(2, 2, -2, -2);
    painter.outline(box, white);
    if (inside.width() < 9 || inside.height() < 9) // the squares would touch
        return;
    painter.fill({inside.left(), inside.top(), 1, 1}, white);
    painter.fill({inside.right() - 1, inside.top(), 2, 2}, white);
    painter.fill({inside.right() - 2, inside.bottom() - 2, 3, 3}, white);
    painter.fill({inside.left(), inside.bottom() - 3, 4, 4}, white);
}
} // namespace

void Painters::frame(ChartPainter &painter, const Shape &shape, qint64 /*frame*/)
{
    painter.fill(painter.whole(), painter.levels().black());
    drawFrame(painter, painter.whole());
    for (const QRect &wall : shape.walls)
        drawFrame(painter, wall);
}
