#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/Painters.h"

namespace {
/// Its places are given for 1920 x 1080; at least a pixel remains of each.
QRect scaledBox(const QSize &size, int left, int top, int width, int height)
{
    const int x = ChartEdges::at(size.width(), left, 1920);
    const int y = ChartEdges::at(size.height(), top, 1080);
    const int right = ChartEdges::at(size.width(), left + width, 1920);
    const int bottom = ChartEdges::at(size.height(), top + height, 1080);
    return {x, y, std::max(1, right - x), std::max(1, bottom - y)};
}
} // namespace

/// Black level is turned down until the darker stripes vanish and the lighter ones stay.
void Painters::pluge(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const ChartLevels &levels = painter.levels();
    const QSize size = painter.whole().size();
    const QRgb lighter = levels.grey(0.02);
    const QRgb darker = levels.grey(-0.02);
    painter.fill(painter.whole(), levels.black());
    painter.fill(scaledBox(size, 888, 468, 144, 144), levels.white());
    for (int i = 0; i < 10; ++i) {
        painter.fill(scaledBox(size, 312, 345 + 20 * i, 288, 10), lighter);
        painter.fill(scaledBox(size, 312, 545 + 20 * i, 288, 10), darker);
    }
    painter.fill(scaledBox(size, 1320, 324, 288, 144), lighter);
    painter.fill(scaledBox(size, 1320, 612, 288, 144), darker);
}
