#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/FrameCount.h"
#include "charts/Painters.h"

#include <array>

namespace {
/// Rings around the middle of a box, lit and dark in turn.
void drawRings(ChartPainter &painter, const QRect &box, int period)
{
    painter.pixels(box, [&](int x, int y) {
        const qint64 right = 2 * x - (box.left() + box.right()); // in half pixels
        const qint64 down = 2 * y - (box.top() + box.bottom());
        const auto ring = static_cast<qint64>(std::sqrt(static_cast<double>(right * right + down * down)) / period);
        return ChartLevels::greyOfCode(ring & 1 ? 0 : 255);
    });
}

/// Lines that run to the middle of the lower edge; a quarter above it they have the period.
void drawFan(ChartPainter &painter, const QRect &box, int period)
{
    painter.pixels(box, [&](int x, int y) {
        const qint64 right = 2 * x - (box.left() + box.right());
        const qint64 above = box.bottom() - y + 1;
        const qint64 line = FrameCount::step(right * box.height(), 4 * period * above);
        return ChartLevels::greyOfCode(line & 1 ? 0 : 255);
    });
}
} // namespace

void Painters::moire(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    static constexpr std::array periods{2, 3, 4, 6, 8};
    const QSize size = painter.whole().size();
    const std::vector<int> columns = ChartEdges::equal(size.width(), static_cast<int>(periods.size()));
    const int middle = (size.height() + 1) / 2;
    for (std::size_t i = 0; i < periods.size(); ++i) {
        const int width = columns[i + 1] - columns[i];
        drawRings(painter, {columns[i], 0, width, middle}, periods[i]);
        drawFan(painter, {columns[i], middle, width, size.height() - middle}, periods[i]);
    }
}
