#include "layer/LayerLimits.h"

#include "drawing/Raster.h"
#include "layer/WallGrid.h"

namespace LayerLimits {

Result<void> checkCount(qint64 count)
{
    if (count <= mostLayers)
        return {};
    return fail(QString("there are %1 layers; more than %2 cannot be kept").arg(count).arg(mostLayers));
}

Result<void> check(const std::vector<LayerPointer> &layers)
{
    std::vector<LayerRecordPointer> records;
    records.reserve(layers.size());
    for (const LayerPointer &layer : layers)
        records.push_back(layer->record());
    return check(records);
}

Result<void> check(const std::vector<LayerRecordPointer> &records)
{
    if (Result<void> isKept = checkCount(std::ssize(records)); !isKept)
        return isKept;
    qint64 pixels = 0;
    for (const LayerRecordPointer &record : records) {
        const PanelGrid grid = panelGridOf(*record);
        pixels += Raster::canHold(grid.columns.size(), grid.rows.size()) ? grid.pixels() : 0;
    }
    if (pixels <= mostWallPixels)
        return {};
    return fail(
        QString("the walls have %1 pixels together; more than %2 cannot be held").arg(pixels).arg(mostWallPixels));
}

} // namespace LayerLimits
