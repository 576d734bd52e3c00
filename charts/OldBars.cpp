#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/FullBars.h"
#include "charts/Painters.h"

#include <array>

/// The bars of the years of 4:3, still asked for.
void Painters::oldBars(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const ChartLevels &levels = painter.levels();
    const QSize size = painter.whole().size();
    const std::vector<int> rows = ChartEdges::ofShares(size.height(), {8, 1, 3});
    const auto fill = [&](const std::vector<int> &edges, std::size_t patch, std::size_t line, QRgb colour) {
        painter.fill(QRect(QPoint(edges[patch], rows[line]), QPoint(edges[patch + 1] - 1, rows[line + 1] - 1)), colour);
    };

    const std::vector<int> bars = ChartEdges::equal(size.width(), 7);
    for (std::size_t i = 0; i < 7; ++i) {
        const int bar = static_cast<int>(i);
        fill(bars, i, 0, barColour(levels, bar, 0.75));
        fill(bars, i, 1, i % 2 == 0 ? barColour(levels, 6 - bar, 0.75) : levels.black()); // backwards, from blue
    }

    const std::array lowest{minusI(levels),     levels.white(), plusQ(levels),     levels.black(),
                            levels.grey(-0.04), levels.black(), levels.grey(0.04), levels.black()};
    const std::vector<int> patches = ChartEdges::ofShares(size.width(), {15, 15, 15, 15, 4, 4, 4, 12});
    for (std::size_t i = 0; i < lowest.size(); ++i)
        fill(patches, i, 2, lowest[i]);
}
