#include "charts/ChartPainter.h"
#include "charts/Painters.h"

#include <numbers>

namespace {
/// Light that swings between black and white; the codes are those of the angle in double precision.
QRgb greyOfAngle(double angle)
{
    return ChartLevels::greyOfCode(static_cast<int>(std::floor(255 * (0.5 + 0.5 * std::cos(angle)) + 0.5)));
}
} // namespace

/// From no change at the left to one each pixel at the right.
void Painters::frequencySweep(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const int last = std::max(1, painter.whole().width() - 1);
    painter.columns(painter.whole(), [&](int x) { return greyOfAngle(std::numbers::pi * x * x / (2.0 * last)); });
}

/// Rings that are one pixel wide at the nearer edges; what is finer, in the corners, shows rings of its own on purpose.
void Painters::zonePlate(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const QSize size = painter.whole().size();
    const qint64 round = 8 * qint64{std::min(size.width(), size.height())}; // of squares of half pixels
    painter.pixels(painter.whole(), [&](int x, int y) {
        const qint64 right = 2 * x - (size.width() - 1);
        const qint64 down = 2 * y - (size.height() - 1);
        // Whole rounds are left out in whole numbers: a cosine of large angles is slow and less exact.
        const qint64 rest = (right * right + down * down) % round;
        return greyOfAngle(2 * std::numbers::pi * static_cast<double>(std::min(rest, round - rest)) /
                           static_cast<double>(round));
    });
}
