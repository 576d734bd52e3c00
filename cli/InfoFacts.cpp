#include "cli/InfoFacts.h"

#include "grid/PanelKeys.h"
#include "layer/PowerCalculator.h"
#include "screen/LWScreen.h"
#include "screen/LostWall.h"
#include "still/LWStill.h"

#include <QtNumeric>

#include <algorithm>

namespace {
/// Ports `first` to `last`, each with `lines` lines of panels.
PortGroup portGroup(const WallFacts &wall, const PanelGrid &grid, qint64 first, qint64 last, qint64 lines)
{
    const bool isRows = wall.path->along == FlowPattern::Along::Rows;
    PortGroup group{first, last, lines, lines * (isRows ? wall.columns : wall.rows), std::nullopt};
    qint64 pixels = 0;
    if (!qMulOverflow(group.panels, grid.panelPixels(), &pixels))
        group.pixels = pixels;
    return group;
}

std::vector<PortGroup> portGroups(const WallFacts &wall)
{
    const bool hasPixels = wall.panels > 0 && wall.panelWidth > 0 && wall.panelHeight > 0;
    if (!wall.path || !hasPixels)
        return {};
    const PanelGrid grid{{wall.columns, wall.panelWidth}, {wall.rows, wall.panelHeight}};
    const std::optional<PortSplit> split = PortSplit::of(grid, *wall.path, wall.pixelLimit);
    if (!split)
        return {};
    if (split->isOneRun) {
        const bool isRows = wall.path->along == FlowPattern::Along::Rows;
        return {portGroup(wall, grid, 1, 1, isRows ? wall.rows : wall.columns)};
    }

    std::vector<PortGroup> groups;
    const qint64 full = std::max(split->fullPorts, qint64{0});
    if (full > 0)
        groups.push_back(portGroup(wall, grid, 1, full, split->linesPerPort));
    if (split->remainderLines > 0)
        groups.push_back(portGroup(wall, grid, full + 1, full + 1, split->remainderLines));
    return groups;
}

WallFacts factsOfWall(const LWScreen &screen, qint64 divisor)
{
    WallFacts wall;
    wall.columns = screen.col();
    wall.rows = screen.row();
    wall.panelWidth = screen.panelWidth();
    wall.panelHeight = screen.panelHeight();
    wall.panels = qint64{std::max(wall.columns, 0)} * std::max(wall.rows, 0);
    const PanelKeys keys(screen.hiddenBoxes().value_or(QStringList()));
    wall.hiddenPanels = keys.cellsInside(wall.columns, wall.rows).size();
    wall.pixelLimit = screen.pixelLimit();
    wall.pattern = screen.pattern();
    wall.path = FlowPattern::ofCode(wall.pattern);
    wall.isPathDrawn = wall.path && screen.drawFlowPath();
    wall.ports = portGroups(wall);
    wall.wattsPerPanel = screen.powerOnCell();
    wall.watts = PowerCalculator::watts(screen);
    wall.amperes = PowerCalculator::amperes(wall.watts, divisor);
    return wall;
}

LayerFacts factsOfLayer(const Layer &layer, qint64 divisor)
{
    LayerFacts facts;
    facts.className = layer.className();
    facts.label = layer.label();
    facts.isVisible = layer.visible();
    facts.x = layer.xpoint();
    facts.y = layer.ypoint();
    facts.width = layer.screenSizeWidth();
    facts.height = layer.screenSizeHeight();
    if (const auto *screen = qobject_cast<const LWScreen *>(&layer)) {
        facts.wall = factsOfWall(*screen, divisor);
        const auto [width, height] = LostWall::sizeOf(*screen);
        facts.width = width;
        facts.height = height;
        facts.isTooLargeToDraw = LostWall::isTooLarge(facts.width, facts.height);
    }
    if (const auto *still = qobject_cast<const LWStill *>(&layer))
        facts.picture = still->ImageURL().relative;
    return facts;
}
} // namespace

ProjectFacts ProjectFacts::of(const Project &project, qint64 volts, qint64 phases)
{
    ProjectFacts facts;
    facts.outputWidth = project.outputWidth;
    facts.outputHeight = project.outputHeight;
    const Supply supply = project.supply.value_or(Supply());
    facts.volts = volts == 0 ? supply.volts : volts;
    facts.phases = phases == 0 ? supply.phases : phases;
    const qint64 divisor = PowerCalculator::divisor(facts.volts, facts.phases);
    for (const LayerPointer &layer : project.layers)
        facts.layers.push_back(factsOfLayer(*layer, divisor));
    facts.watts = PowerCalculator::watts(project.layers);
    facts.amperes = PowerCalculator::amperes(facts.watts, divisor);
    return facts;
}
