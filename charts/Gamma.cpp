#include "charts/ChartEdges.h"
#include "charts/ChartPainter.h"
#include "charts/Painters.h"

#include <span>

namespace {
/// A patch that is as bright as the lines beside it where the wall has this gamma.
struct GammaPatch
{
    const char *gamma;
    int code;
};
constexpr GammaPatch ofHalfTheLight[] = {{"2.0", 180}, {"2.2", 186}, {"2.4", 191}, {"2.6", 195}, {"2.8", 199}};
constexpr GammaPatch ofAQuarter[] = {{"2.0", 128}, {"2.2", 136}, {"2.4", 143}, {"2.6", 150}};

/// Lines in the left half, of which one in `oneIn` is lit; patches in the right one.
void drawComparison(ChartPainter &painter, const QRect &box, int oneIn, std::span<const GammaPatch> patches)
{
    const ChartLevels &levels = painter.levels();
    const int middle = (box.width() + 1) / 2;
    painter.rows({box.left(), box.top(), middle, box.height()},
                 [&](int y) { return (y - box.top()) % oneIn == 0 ? levels.white() : levels.black(); });
    const std::vector<int> edges = ChartEdges::equal(box.width() - middle, static_cast<int>(patches.size()));
    for (std::size_t i = 0; i < patches.size(); ++i) {
        const QRect patch(middle + edges[i], box.top(), edges[i + 1] - edges[i], box.height());
        painter.fill(patch, levels.grey(patches[i].code / 255.0));
        const int height = std::min(patch.height() / 8, 48);
        painter.text({patch.left() + patch.width() / 8, patch.bottom() + 1 - 2 * height, patch.width() * 3 / 4, height},
                     patches[i].gamma, levels.black());
    }
}
} // namespace

/// Seen from where the lines blur, the patch that is like them names the gamma. Lines and no checker: what scales or
/// smears a signal spares lines across.
void Painters::gamma(ChartPainter &painter, const Shape & /*shape*/, qint64 /*frame*/)
{
    const QRect whole = painter.whole();
    const int middle = (whole.height() + 1) / 2;
    drawComparison(painter, {0, 0, whole.width(), middle}, 2, ofHalfTheLight);
    drawComparison(painter, {0, middle, whole.width(), whole.height() - middle}, 4, ofAQuarter);
}
