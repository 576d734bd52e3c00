#include "charts/ChartPainter.h"
#include "charts/Painters.h"

namespace {
/// The first pixel of patch i: that of the first x whose floor(x * count / width) is i.
int firstPixel(int width, int patch, int count)
{
    return static_cast<int>((qint64{patch} * width + count - 1) / count);
}

/// Patches of `codes` beside each other within rows, each with its code written in a shade that can be read.
template <typename CodeAt>
void drawPatches(ChartPainter &painter, int top, int bottom, int count, CodeAt codeAt)
{
    const int width = painter.whole().width();
    for (int i = 0; i < count; ++i) {
        const int left = firstPixel(width, i, count);
        const QRect patch(QPoint(left, top), QPoint(firstPixel(width, i + 1, count) - 1, bottom));
        const int code = codeAt(i);
        painter.fill(patch, ChartLevels::greyOfCode(code));
        const int height = std::min(patch.height() / 8, 48);
        const QRect label(patch.left() + patch.width() / 8, patch.bottom() + 1 - 2 * height, patch.width() * 3 / 4,
                          height);
        painter.text(label, QString::number(code), ChartLevels::greyOfCode(code < 128 ? code + 96 : code - 96));
    }
}
} // namespace

void Painters::steps(ChartPainter &painter, const Shape &shape, qint64 /*frame*/)
{
    const int count = std::clamp(shape.options.steps, 2, 256);
    drawPatches(painter, 0, painter.whole().bottom(), count,
                [&](int i) { return painter.levels().code(i, count - 1); });
}

/// The codes that a wall begins to light at, whatever the chain calls black.
void Painters::nearBlack(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const int middle = painter.whole().height() / 2;
    drawPatches(painter, 0, middle - 1, 16, [](int i) { return i; });
    drawPatches(painter, middle, painter.whole().bottom(), 16, [](int i) { return 16 + i; });
}

void Painters::nearWhite(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    drawPatches(painter, 0, painter.whole().bottom(), 16, [](int i) { return 240 + i; });
}
