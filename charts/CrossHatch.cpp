#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/Painters.h"

namespace {
constexpr int meshWidth = 64;

/// The largest whole number whose square is not above `square`; 0 for negative ones.
qint64 wholeRoot(qint64 square)
{
    if (square <= 0)
        return 0;
    auto root = static_cast<qint64>(std::sqrt(static_cast<double>(square)));
    while (root * root > square)
        --root;
    while ((root + 1) * (root + 1) <= square)
        ++root;
    return root;
}

void drawMesh(ChartPainter &painter, QRgb colour)
{
    const QRect whole = painter.whole();
    for (int x = 0; x < whole.width(); x += meshWidth)
        painter.fill({x, 0, 1, whole.height()}, colour);
    for (int y = 0; y < whole.height(); y += meshWidth)
        painter.fill({0, y, whole.width(), 1}, colour);
    painter.outline(whole, colour);
}

void drawDiagonals(ChartPainter &painter, QRgb colour)
{
    const QSize size = painter.whole().size();
    const int last = std::max(size.width(), size.height()) - 1;
    for (int i = 0; i <= last / 2; ++i) { // a quarter, and its mirrors
        const int x = ChartEdges::at(size.width() - 1, i, last);
        const int y = ChartEdges::at(size.height() - 1, i, last);
        for (const int column : {x, size.width() - 1 - x}) {
            painter.fill({column, y, 1, 1}, colour);
            painter.fill({column, size.height() - 1 - y, 1, 1}, colour);
        }
    }
}

/// The pixels whose middle lies within half a pixel of the circle that touches the nearer edges. All is counted in half
/// pixels from the centre, in whole numbers.
void drawCircle(ChartPainter &painter, QRgb colour)
{
    const QSize size = painter.whole().size();
    const qint64 diameter = std::min(size.width(), size.height()) - 1;
    const qint64 outer = (diameter + 1) * (diameter + 1);
    const qint64 inner = (diameter - 1) * (diameter - 1);
    for (int y = 0; y < size.height(); ++y) {
        const qint64 fromCentre = 2 * y - (size.height() - 1);
        const qint64 square = fromCentre * fromCentre;
        if (square > outer)
            continue;
        const qint64 least = square >= inner ? 0 : wholeRoot(inner - square - 1) + 1;
        const qint64 most = wholeRoot(outer - square);
        const auto left = static_cast<int>((size.width() - 1 + least + 1) / 2);
        const auto right = static_cast<int>((size.width() - 1 + most) / 2);
        painter.fill({left, y, right - left + 1, 1}, colour);
        painter.fill({size.width() - 1 - right, y, right - left + 1, 1}, colour);
    }
}
} // namespace

void Painters::crossHatch(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const QRgb white = painter.levels().white();
    painter.fill(painter.whole(), painter.levels().black());
    drawMesh(painter, white);
    drawDiagonals(painter, white);
    drawCircle(painter, white);
}
