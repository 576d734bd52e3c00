#include "windows/inspector/LayerFigures.h"

#include "grid/PanelKeys.h"
#include "layer/PowerCalculator.h"
#include "layer/WallGrid.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <limits>

namespace {
void add(qint64 &total, qint64 more)
{
    if (qAddOverflow(total, more, &total))
        total = std::numeric_limits<qint64>::max();
}

void addWall(LayerFigures &figures, const LWScreen &wall)
{
    ++figures.walls;
    add(figures.panels, limitedProduct({wall.col(), wall.row()}));
    add(figures.panelsOff,
        PanelKeys(wall.hiddenBoxes().value_or(QStringList())).cellsInside(wall.col(), wall.row()).size());
    add(figures.pixels, panelGridOf(wall).pixels());
    if (const std::optional<PortSplit> split = portSplitOf(wall))
        add(figures.ports, hangsOnOnePort(*split) ? 1 : split->portCount());
    figures.portsOverLimit += isOverPortLimit(wall) ? 1 : 0;
}
} // namespace

LayerFigures LayerFigures::of(const std::vector<LayerPointer> &layers)
{
    LayerFigures figures;
    qint64 watts = 0;
    for (const LayerPointer &layer : layers) {
        if (const auto *wall = qobject_cast<const LWScreen *>(layer.get()))
            addWall(figures, *wall);
        figures.pictures += qobject_cast<const LWStill *>(layer.get()) ? 1 : 0;
        add(watts, limitedProduct({layer->col(), layer->row(), layer->powerOnCell()}));
    }
    figures.isPowerCounted = watts == PowerCalculator::watts(layers);
    return figures;
}

std::optional<PortSplit> portSplitOf(const Layer &wall)
{
    const std::optional<FlowPattern> pattern = FlowPattern::ofCode(wall.pattern());
    return pattern ? PortSplit::of(panelGridOf(wall), *pattern, wall.pixelLimit()) : std::nullopt;
}

bool hangsOnOnePort(const PortSplit &split)
{
    return split.isOneRun || split.portCount() < 1;
}

bool isOverPortLimit(const Layer &layer)
{
    const bool isWall = qobject_cast<const LWScreen *>(&layer) != nullptr;
    const std::optional<PortSplit> split = isWall ? portSplitOf(layer) : std::nullopt;
    return split && hangsOnOnePort(*split) && layer.pixelLimit() > 0;
}

qint64 limitedProduct(std::initializer_list<qint64> factors)
{
    qint64 result = 1;
    for (const qint64 factor : factors) {
        if (qMulOverflow(result, factor, &result))
            return std::numeric_limits<qint64>::max();
    }
    return result;
}
