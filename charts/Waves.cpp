#include "charts/ChartPainter.h"
#include "charts/Painters.h"

#include <numbers>
#include <vector>

namespace {
/// Light that swings between black and white; the codes are those of the angle in double precision.
QRgb greyOfAngle(double angle)
{
    return ChartLevels::greyOfCode(static_cast<int>(std::floor(255 * (0.5 + 0.5 * std::cos(angle)) + 0.5)));
}

/// Of pixels to the middle of a line of so many, in half pixels. Whole rounds are left out in whole numbers: a cosine
/// of large angles is slow and less exact.
std::vector<int> squaresOfDistances(int pixels, int round)
{
    std::vector<int> squares;
    squares.reserve(static_cast<std::size_t>(pixels));
    for (qint64 pixel = 0; pixel < pixels; ++pixel) {
        const qint64 distance = 2 * pixel - (pixels - 1);
        squares.push_back(static_cast<int>(distance * distance % round));
    }
    return squares;
}

/// For each part of a round.
std::vector<QRgb> greysOfRound(int round)
{
    std::vector<QRgb> greys;
    greys.reserve(static_cast<std::size_t>(round));
    for (int part = 0; part < round; ++part)
        greys.push_back(greyOfAngle(2 * std::numbers::pi * std::min(part, round - part) / round));
    return greys;
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
    const int round = 8 * std::min(size.width(), size.height()); // of squares of half pixels
    const std::vector<int> right = squaresOfDistances(size.width(), round);
    const std::vector<int> down = squaresOfDistances(size.height(), round);
    const std::vector<QRgb> greys = greysOfRound(round);
    painter.pixels(painter.whole(), [&](int x, int y) {
        const int square = right[static_cast<std::size_t>(x)] + down[static_cast<std::size_t>(y)];
        return greys[static_cast<std::size_t>(square < round ? square : square - round)];
    });
}
