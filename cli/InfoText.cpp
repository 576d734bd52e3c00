#include "cli/InfoText.h"

#include "base/DecimalText.h"
#include "base/NumberText.h"
#include "cli/VisibleText.h"
#include "facts/ProjectFacts.h"
#include "facts/WiredPorts.h"
#include "layer/PowerCalculator.h"
#include "screen/LostWall.h"

namespace {
constexpr int nameWidth = 11;

using NumberText::counted;
using NumberText::grouped;

QString size(qint64 width, qint64 height)
{
    return grouped(width) + " x " + grouped(height);
}

QString line(const QString &name, const QString &text)
{
    return "  " + name.leftJustified(nameWidth) + text + u'\n';
}

QString heading(const LayerFacts &layer, std::size_t index)
{
    const QString kind = layer.wall ? "screen" : "still";
    const QString name = layer.label.isNull() ? QString("without a name") : VisibleText::quoted(layer.label);
    const QString hidden = layer.isVisible ? QString() : QString(", not visible");
    return QString("Layer %1: ").arg(index) + kind + u' ' + name + hidden + u'\n';
}

QString panelsText(const WallFacts &wall)
{
    QString text =
        QString("%1 of %2 pixels, %3 in all")
            .arg(size(wall.columns, wall.rows), size(wall.panelWidth, wall.panelHeight), grouped(wall.size.panels));
    if (wall.panelsOff > 0)
        text += QString(", %1 of them hidden").arg(grouped(wall.panelsOff));
    return text;
}

QString pathText(const WallFacts &wall)
{
    if (!wall.ports.path)
        return QString("none, there is no pattern %1").arg(wall.pattern);
    const FlowPattern &path = *wall.ports.path;
    const QString corner = QString(path.fromBottom ? "bottom" : "top") + (path.fromRight ? " right" : " left");
    const QString drawn = wall.isPathDrawn ? QString() : QString(", not drawn");
    return QString("pattern %1, %2s from the %3%4")
        .arg(QString::number(wall.pattern), wall.ports.lineName(), corner, drawn);
}

QString portName(const PortGroup &group)
{
    if (group.count() == 1)
        return QString("port %1").arg(grouped(group.first));
    return QString("ports %1 to %2").arg(grouped(group.first), grouped(group.last));
}

QString portText(const WallPorts &ports, const PortGroup &group)
{
    const QString pixels = group.pixels ? counted(*group.pixels, "pixel") : QString("more pixels than can be counted");
    const QString each = group.count() == 1 ? QString() : QString(" each");
    return QString("%1: %2, %3, %4%5")
        .arg(portName(group), counted(group.lines, ports.lineName()), counted(group.panels, "panel"), pixels, each);
}

/// How many ports there are, and how it comes that there is only one where the limit would ask for more.
QString portsText(const WallFacts &wall)
{
    if (wall.ports.groups.empty())
        return "none";
    if (wall.pixelLimit == 0)
        return "1, no limit";
    const QString text = QString("%1, limit %2").arg(grouped(wall.ports.count()), counted(wall.pixelLimit, "pixel"));
    return wall.ports.isOverLimit ? text + ", too few for one row or column: all panels on one port" : text;
}

/// Those of its pixel limit; where a processor feeds it, the names of those that stand with the processors.
QString portsText(const WallFacts &wall, const std::optional<WiredPorts> &wired)
{
    if (wired)
        return line("Ports", wired->count > 0 ? grouped(wired->count) + ", " + wired->text() : wired->text());
    QString text = line("Ports", portsText(wall));
    for (const PortGroup &group : wall.ports.groups)
        text += line("", portText(wall.ports, group));
    return text;
}

QString wallText(const WallFacts &wall, const std::optional<WiredPorts> &wired)
{
    QString text = line("Panels", panelsText(wall));
    text += line("Data path", pathText(wall));
    text += portsText(wall, wired);
    text += line("Power", QString("%1 W, %2 W a panel").arg(grouped(wall.load.watts), grouped(wall.wattsPerPanel)));
    return text + line("Current", DecimalText::of(wall.amperes) + " A");
}

/// "A1", "A1/A11": with where the other end of the cable goes.
QString nameOf(const ShowPorts &ports, const ShowWiring::Port &port)
{
    return ports.nameOf(port) + (port.backup ? '/' + port.backup->text() : QString());
}

QString wallsOn(const ShowPorts &ports, const ShowWiring::Port &port)
{
    QStringList walls;
    for (const std::size_t wall : port.walls()) {
        const QString &name = ports.show.walls[wall].name;
        walls.append(name.isEmpty() ? QString("without a name") : VisibleText::quoted(name));
    }
    return walls.join(", ");
}

QString portLine(const ShowPorts &ports, const ShowWiring::Port &port)
{
    const QString limit = port.limit ? QString(" of %1").arg(grouped(*port.limit)) : QString(", no figure");
    return line(nameOf(ports, port), QString("%1, %2%3, %4")
                                         .arg(counted(port.load.panels, "panel"), counted(port.loaded, "pixel"), limit,
                                              wallsOn(ports, port)));
}

/// The ports of all processors, which stand in their order; nothing of a show without one.
QString portsText(const ShowPorts &ports)
{
    QString text;
    auto port = ports.wiring.ports.begin();
    for (std::size_t i = 0; i < ports.show.processors.size(); ++i) {
        const ProcessorSettings &settings = ports.show.processors[i];
        text += QString("Processor %1: %2, %3 bit, %4 Hz\n")
                    .arg(VisibleText::quoted(settings.name), VisibleText::quoted(settings.model),
                         QString::number(settings.bits), QString::number(settings.rate));
        for (; port != ports.wiring.ports.end() && port->processor == i; ++port)
            text += portLine(ports, *port);
        text += u'\n';
    }
    return text;
}

QString layerText(const LayerFacts &layer, std::size_t index, const ShowPorts &ports)
{
    QString text = heading(layer, index);
    text += line("Position", QString("x %1, y %2").arg(grouped(layer.x), grouped(layer.y)));
    text += line("Size", layer.wall && layer.wall->size.isTooLargeToDraw ? LostWall::reason(layer.width, layer.height)
                                                                         : size(layer.width, layer.height) + " pixels");
    if (!layer.chart.isNull())
        return text + line("Chart", VisibleText::quoted(layer.chart));
    if (!layer.wall)
        return text + line("Picture", layer.picture.isNull() ? QString("none") : VisibleText::quoted(layer.picture));
    return text + wallText(*layer.wall, WiredPorts::of(ports, {static_cast<qsizetype>(index)}));
}
} // namespace

namespace InfoText {

QString of(const ProjectFacts &facts)
{
    QString text = QString("Output: %1 pixels\n").arg(size(facts.outputWidth, facts.outputHeight));
    text += QString("Layers: %1\n\n").arg(grouped(qint64(facts.layers.size())));
    for (std::size_t i = 0; i < facts.layers.size(); ++i)
        text += layerText(facts.layers[i], i, facts.ports) + u'\n';
    text += portsText(facts.ports);
    return text + QString("%1 (%2 W at %3 V, %4)\n")
                      .arg(PowerCalculator::resultText(facts.amperes), grouped(facts.load.watts), grouped(facts.volts),
                           counted(facts.phases, "phase"));
}

} // namespace InfoText
