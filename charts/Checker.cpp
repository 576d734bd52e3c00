#include "charts/ChartPainter.h"
#include "charts/Painters.h"

template <int side>
void Painters::checker(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    painter.pixels(painter.whole(),
                   [](int x, int y) { return ChartLevels::greyOfCode((x / side + y / side) & 1 ? 255 : 0); });
}

template void Painters::checker<1>(ChartPainter &, const Shape &, qint64);
template void Painters::checker<2>(ChartPainter &, const Shape &, qint64);
template void Painters::checker<4>(ChartPainter &, const Shape &, qint64);
template void Painters::checker<8>(ChartPainter &, const Shape &, qint64);
