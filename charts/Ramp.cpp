#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/Painters.h"

void Painters::ramp(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const int last = painter.whole().width() - 1;
    painter.columns(painter.whole(), [&](int x) { return ChartLevels::greyOfCode(painter.levels().code(x, last)); });
}

/// White, red, green and blue, one below the other.
void Painters::ramps(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const QRect whole = painter.whole();
    const std::vector<int> rows = ChartEdges::equal(whole.height(), 4);
    const int black = painter.levels().code(0);
    for (int i = 0; i < 4; ++i) {
        const int top = rows[static_cast<std::size_t>(i)];
        const int bottom = rows[static_cast<std::size_t>(i) + 1];
        painter.columns({0, top, whole.width(), bottom - top}, [&](int x) {
            const int code = painter.levels().code(x, whole.width() - 1);
            return qRgb(i < 2 ? code : black, i % 2 == 0 ? code : black, i % 3 == 0 ? code : black);
        });
    }
}
