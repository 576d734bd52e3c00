#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/Painters.h"

#include <array>

void Painters::linesUpright(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    painter.columns(painter.whole(), [](int x) { return ChartLevels::greyOfCode(x & 1 ? 255 : 0); });
}

void Painters::linesAcross(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    painter.rows(painter.whole(), [](int y) { return ChartLevels::greyOfCode(y & 1 ? 255 : 0); });
}

/// Turns purple where the chain has fewer pixels of colour than of light.
void Painters::linesRedBlue(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    painter.columns(painter.whole(), [](int x) { return x & 1 ? qRgb(0, 0, 255) : qRgb(255, 0, 0); });
}

/// Bands of upright lines, k pixels on and k off; in the right half lines across.
void Painters::lineGroups(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    static constexpr std::array widths{1, 2, 3, 4, 6, 8};
    const QRect whole = painter.whole();
    const std::vector<int> bands = ChartEdges::equal(whole.height(), static_cast<int>(widths.size()));
    const int middle = (whole.width() + 1) / 2;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const int top = bands[i];
        const int height = bands[i + 1] - top;
        const auto lit = [width = widths[i]](int along) {
            return ChartLevels::greyOfCode((along / width) & 1 ? 0 : 255);
        };
        painter.columns({0, top, middle, height}, lit);
        painter.rows({middle, top, whole.width() - middle, height}, [&](int y) { return lit(y - top); });
    }
}
