#include "layer/LayerLimits.h"

#include "base/NumberText.h"
#include "drawing/Raster.h"
#include "layer/WallGrid.h"

using NumberText::grouped;

namespace {
struct Pixels
{
    qint64 columns;
    qint64 rows;
};

/// What is drawn for the layer; the picture of a still that is no chart is not.
Pixels drawnSize(const LayerLimits::Listed &layer)
{
    const LayerRecord &record = *layer.record;
    if (layer.kind == LayerKind::Still)
        return record.chart ? Pixels{record.panelWidth, record.panelHeight} : Pixels{0, 0};
    const PanelGrid grid = panelGridOf(record);
    return {grid.columns.size(), grid.rows.size()};
}
} // namespace

namespace LayerLimits {

Result<void> checkCount(qint64 count)
{
    if (count <= mostLayers)
        return {};
    return fail(QString("there are %1 layers; more than %2 cannot be kept, so remove some")
                    .arg(grouped(count), grouped(mostLayers)));
}

Result<void> check(const std::vector<LayerPointer> &layers)
{
    std::vector<Listed> listed;
    listed.reserve(layers.size());
    for (const LayerPointer &layer : layers)
        listed.push_back({layer->kind(), layer->record()});
    return check(listed);
}

Result<void> check(const std::vector<Listed> &layers)
{
    if (Result<void> isKept = checkCount(std::ssize(layers)); !isKept)
        return isKept;
    qint64 pixels = 0;
    for (const Listed &layer : layers) {
        const auto [columns, rows] = drawnSize(layer);
        pixels += Raster::canHold(columns, rows) ? columns * rows : 0;
    }
    if (pixels <= mostDrawnPixels)
        return {};
    return fail(
        QString("walls and charts have %1 px too many; make some smaller").arg(grouped(pixels - mostDrawnPixels)));
}

} // namespace LayerLimits
