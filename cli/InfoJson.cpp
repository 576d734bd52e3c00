#include "cli/InfoJson.h"

#include "cli/OrderedJson.h"
#include "facts/ProjectFacts.h"
#include "wiring/ProcessorFields.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {
constexpr int infoFormat = 1;

using namespace OrderedJson;

QByteArray portsJson(const WallPorts &ports)
{
    QList<QByteArray> items;
    for (const PortGroup &group : ports.groups) {
        const QByteArray lines = QByteArray(ports.lineName()) + 's';
        const QByteArray pixels = group.pixels ? text(*group.pixels) : QByteArray("null");
        items.append("        {" +
                     joined({{"first", text(group.first)},
                             {"last", text(group.last)},
                             {lines.constData(), text(group.lines)},
                             {"panels", text(group.panels)},
                             {"pixels", pixels}},
                            ", ") +
                     '}');
    }
    return list(items, 6);
}

std::vector<Member> wallMembers(const WallFacts &wall)
{
    return {
        {"col", text(qint64{wall.columns})},
        {"row", text(qint64{wall.rows})},
        {"panelWidth", text(qint64{wall.panelWidth})},
        {"panelHeight", text(qint64{wall.panelHeight})},
        {"panels", text(wall.size.panels)},
        {"hiddenPanels", text(wall.panelsOff)},
        {"powerOnCell", text(qint64{wall.wattsPerPanel})},
        {"watts", text(qint64{wall.load.watts})},
        {"amperes", text(wall.amperes)},
        {"drawFlowPath", text(wall.isPathDrawn)},
        {"pattern", text(wall.pattern)},
        {"pixelLimit", text(wall.pixelLimit)},
        {"ports", portsJson(wall.ports)},
    };
}

QByteArray layerJson(const LayerFacts &layer, std::size_t index)
{
    std::vector<Member> members{
        {"index", text(qint64(index))},         {"class", text(layer.className)},
        {"label", text(layer.label)},           {"visible", text(layer.isVisible)},
        {"xpoint", text(qint64{layer.x})},      {"ypoint", text(qint64{layer.y})},
        {"screenSizeWidth", text(layer.width)}, {"screenSizeHeight", text(layer.height)},
    };
    if (layer.wall) {
        members.emplace_back("tooLargeToDraw", text(layer.wall->size.isTooLargeToDraw));
        const std::vector<Member> wall = wallMembers(*layer.wall);
        members.insert(members.end(), wall.begin(), wall.end());
    } else {
        members.emplace_back("ImageURL", text(layer.picture));
        if (!layer.chart.isNull())
            members.emplace_back("chart", text(layer.chart));
    }
    return object(members, 4);
}

QByteArray textOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return text(value.toBool());
    case QMetaType::Double:
        return text(value.toDouble());
    case QMetaType::QString:
        return text(value.toString().isNull() ? QString("") : value.toString());
    default:
        return text(value.toLongLong());
    }
}

QByteArray processorJson(const ProcessorSettings &settings)
{
    std::vector<Member> members;
    for (const ProcessorField &field : processorFields())
        members.emplace_back(field.name, textOf(field.get(settings)));
    return "    {" + joined(members, ", ") + '}';
}

QByteArray portJson(const ShowPorts &ports, const ShowWiring::Port &port)
{
    QByteArrayList walls;
    for (const std::size_t wall : port.walls())
        walls.append(text(ports.show.walls[wall].name));
    const bool hasShare = port.limit && *port.limit > 0;
    const double share = hasShare ? 100.0 * double(port.loaded) / double(*port.limit) : 0;
    return "    {" +
           joined({{"processor", text(ports.show.processors[port.processor].name)},
                   {"port", port.number > 0 ? text(port.number) : "null"},
                   {"backup", text(port.backup ? port.backup->text() : QString())},
                   {"walls", '[' + walls.join(", ") + ']'},
                   {"panels", text(port.load.panels)},
                   {"pixels", text(port.load.pixels)},
                   {"loaded", text(port.loaded)},
                   {"limit", port.limit ? text(*port.limit) : "null"},
                   {"percent", hasShare ? text(std::round(10 * share) / 10) : "null"}},
                  ", ") +
           '}';
}

/// Of a show that has some; else nothing is said of them.
std::vector<Member> portMembers(const ShowPorts &ports)
{
    if (ports.show.processors.empty())
        return {};
    QList<QByteArray> processors;
    for (const ProcessorSettings &settings : ports.show.processors)
        processors.append(processorJson(settings));
    QList<QByteArray> items;
    for (const ShowWiring::Port &port : ports.wiring.ports)
        items.append(portJson(ports, port));
    return {{"processors", list(processors, 2)}, {"ports", list(items, 2)}};
}
} // namespace

namespace InfoJson {

QString of(const ProjectFacts &facts)
{
    QList<QByteArray> layers;
    for (std::size_t i = 0; i < facts.layers.size(); ++i)
        layers.append(layerJson(facts.layers[i], i));
    std::vector<Member> members{
        {"format", text(qint64{infoFormat})},
        {"OutputWidth", text(qint64{facts.outputWidth})},
        {"OutputHeight", text(qint64{facts.outputHeight})},
        {"voltage", text(facts.volts)},
        {"phases", text(facts.phases)},
        {"watts", text(qint64{facts.load.watts})},
        {"amperes", text(facts.amperes)},
        {"layers", list(layers, 2)},
    };
    std::ranges::move(portMembers(facts.ports), std::back_inserter(members));
    return QString::fromUtf8(object(members, 0)) + u'\n';
}

} // namespace InfoJson
