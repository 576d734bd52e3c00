#include "charts/ChartPainter.h"
#include "charts/FrameCount.h"
#include "charts/Painters.h"

namespace {
constexpr int barWidth = 16;

/// The first pixel of the bar on a way of `length` pixels. It begins before the way and leaves it at the end; where the
/// way is too short for its speed it stays away for a while.
int barPlace(const ChartShape &shape, int length, qint64 frame)
{
    const int speed = std::clamp(shape.options.speed, 1, 4096);
    const qint64 round = std::max<qint64>(length + barWidth, speed * FrameCount::shortestRound(shape));
    return static_cast<int>(FrameCount::within(FrameCount::within(frame, round) * speed, round)) - barWidth;
}

QRect barRight(const ChartShape &shape, qint64 frame)
{
    return {barPlace(shape, shape.size.width(), frame), 0, barWidth, shape.size.height()};
}

QRect barDown(const ChartShape &shape, qint64 frame)
{
    return {0, barPlace(shape, shape.size.height(), frame), shape.size.width(), barWidth};
}

/// The bar's pixels, row by row: those whose x + y is within it.
std::vector<QRect> barDiagonal(const ChartShape &shape, qint64 frame)
{
    const int place = barPlace(shape, shape.size.width() + shape.size.height() - 1, frame);
    const int firstRow = std::max(0, place - shape.size.width() + 1);
    const int lastRow = std::min(shape.size.height() - 1, place + barWidth - 1);
    std::vector<QRect> rows;
    for (int y = firstRow; y <= lastRow; ++y)
        rows.emplace_back(place - y, y, barWidth, 1);
    return rows;
}

/// Where one bar is and the other is not.
QRegion between(const QRect &one, const QRect &other)
{
    return QRegion(one).xored(other);
}
} // namespace

void Painters::sweepRight(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    painter.fillApart(barRight(shape, frame), painter.levels().white(), painter.levels().black());
}

QRegion Painters::sweepRightMoved(const Shape &shape, qint64 from, qint64 to)
{
    return between(barRight(shape, from), barRight(shape, to));
}

void Painters::sweepDown(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    painter.fillApart(barDown(shape, frame), painter.levels().white(), painter.levels().black());
}

QRegion Painters::sweepDownMoved(const Shape &shape, qint64 from, qint64 to)
{
    return between(barDown(shape, from), barDown(shape, to));
}

void Painters::sweepDiagonal(ChartPainter &painter, const Shape &shape, qint64 frame)
{
    painter.fillApart(regionOf(barDiagonal(shape, frame)), painter.levels().white(), painter.levels().black());
}

QRegion Painters::sweepDiagonalMoved(const Shape &shape, qint64 from, qint64 to)
{
    return regionOf(barDiagonal(shape, from)).xored(regionOf(barDiagonal(shape, to)));
}
