#include "facts/LayerFigures.h"

#include "facts/WallPorts.h"
#include "facts/WallSize.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

namespace {
void addWall(LayerFigures &figures, const LWScreen &wall)
{
    const WallSize size = WallSize::of(wall);
    const WallPorts ports = WallPorts::of(wall);
    ++figures.walls;
    Counted::add(figures.panels, size.panels);
    Counted::add(figures.panelsOff, countOfPanelsOff(wall));
    Counted::add(figures.pixels, Counted::limited(size.pixels));
    Counted::add(figures.ports, ports.count());
    figures.portsOverLimit += ports.isOverLimit ? 1 : 0;
}
} // namespace

LayerFigures LayerFigures::of(const std::vector<LayerPointer> &layers)
{
    LayerFigures figures;
    for (const LayerPointer &layer : layers) {
        if (const auto *wall = qobject_cast<const LWScreen *>(layer.get()))
            addWall(figures, *wall);
        figures.pictures += qobject_cast<const LWStill *>(layer.get()) ? 1 : 0;
    }
    return figures;
}
