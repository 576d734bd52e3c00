#include "facts/ShowPorts.h"

#include "drawing/TextLine.h"
#include "show/Project.h"
#include "show/WallShapes.h"

WallToWire wallToWire(const Layer &wall)
{
    const LayerRecordPointer record = wall.record();
    return {.name = wall.label(),
            .shape = wallShapeOf(wall),
            .processor = record->processor.value_or(QString()),
            .split = record->split,
            .pattern = record->pattern,
            .pixelLimit = record->pixelLimit,
            .firstPort = record->firstPort,
            .goesOn = record->goesOn,
            .runs = record->runs.list()};
}

ShowToWire showToWire(const std::vector<LayerPointer> &layers, const std::vector<ProcessorSettings> &processors,
                      const QSize &output)
{
    ShowToWire show{processors, {}, output};
    for (const LayerPointer &layer : layers) {
        if (layer->kind() == LayerKind::Wall)
            show.walls.push_back(wallToWire(*layer));
    }
    return show;
}

ShowPorts ShowPorts::of(const std::vector<LayerPointer> &layers, const std::vector<ProcessorSettings> &processors,
                        const QSize &output)
{
    ShowPorts ports{showToWire(layers, processors, output), {}, {}};
    for (std::size_t row = 0; row < layers.size(); ++row) {
        if (layers[row]->kind() == LayerKind::Wall)
            ports.rows.push_back(static_cast<qsizetype>(row));
    }
    ports.wiring = ShowWiring::of(ports.show);
    return ports;
}

ShowPorts ShowPorts::of(const Project &project)
{
    return of(project.layers, project.processors, {project.outputWidth, project.outputHeight});
}

QString ShowPorts::wallName(std::size_t wall) const
{
    const QString &name = show.walls[wall].name;
    return name.isEmpty() ? QString("a wall without a name") : TextLine::shown(name);
}

QString ShowPorts::nameOf(const ShowWiring::Port &port) const
{
    return PortName{show.processors[port.processor].name, port.number}.text();
}
