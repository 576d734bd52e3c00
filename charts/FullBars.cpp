#include "charts/FullBars.h"

#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/Painters.h"

namespace {
/// Bars from white to black, full height.
void equalBars(ChartPainter &painter, double white, double colours)
{
    const QRect whole = painter.whole();
    const std::vector<int> edges = ChartEdges::equal(whole.width(), 8);
    for (int i = 0; i < 8; ++i) {
        const int left = edges[static_cast<std::size_t>(i)];
        const int right = edges[static_cast<std::size_t>(i) + 1];
        painter.fill({left, 0, right - left, whole.height()}, barColour(painter.levels(), i, i == 0 ? white : colours));
    }
}
} // namespace

QRgb barColour(const ChartLevels &levels, int bar, double level)
{
    const int lit = 7 - bar; // white is all three, and the brightest bar comes first
    return levels.colour(lit & 2 ? level : 0, lit & 4 ? level : 0, lit & 1 ? level : 0);
}

QRgb minusI(const ChartLevels &levels)
{
    return levels.colour(0, 0.2456, 0.412545);
}

QRgb plusQ(const ChartLevels &levels)
{
    return levels.colour(0.253605, 0, 0.470286);
}

void Painters::bars100(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    equalBars(painter, 1, 1);
}

void Painters::bars75(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    equalBars(painter, 1, 0.75);
}

void Painters::bars75White75(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    equalBars(painter, 0.75, 0.75);
}
