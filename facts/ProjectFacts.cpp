#include "facts/ProjectFacts.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"

namespace {
WallFacts factsOfWall(const LWScreen &screen, qint64 volts, qint64 phases)
{
    WallFacts wall;
    wall.columns = screen.col();
    wall.rows = screen.row();
    wall.panelWidth = screen.panelWidth();
    wall.panelHeight = screen.panelHeight();
    wall.size = WallSize::of(screen);
    wall.panelsOff = countOfPanelsOff(screen);
    wall.pixelLimit = screen.pixelLimit();
    wall.pattern = screen.pattern();
    wall.ports = WallPorts::of(screen);
    wall.isPathDrawn = wall.ports.path && screen.drawFlowPath();
    wall.wattsPerPanel = screen.powerOnCell();
    wall.load = Load::of(screen);
    wall.amperes = wall.load.amperes(volts, phases);
    return wall;
}

LayerFacts factsOfLayer(const Layer &layer, qint64 volts, qint64 phases)
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
        facts.wall = factsOfWall(*screen, volts, phases);
        facts.width = facts.wall->size.width;
        facts.height = facts.wall->size.height;
    }
    if (const auto *still = qobject_cast<const LWStill *>(&layer)) {
        facts.picture = still->ImageURL().relative;
        facts.chart = still->value("chart").toString();
    }
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
    for (const LayerPointer &layer : project.layers)
        facts.layers.push_back(factsOfLayer(*layer, facts.volts, facts.phases));
    facts.load = Load::of(project.layers);
    facts.amperes = facts.load.amperes(facts.volts, facts.phases);
    facts.ports = ShowPorts::of(project);
    return facts;
}
