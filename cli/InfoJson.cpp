#include "cli/InfoJson.h"

#include "cli/OrderedJson.h"
#include "facts/ProjectFacts.h"

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
    }
    return object(members, 4);
}
} // namespace

namespace InfoJson {

QString of(const ProjectFacts &facts)
{
    QList<QByteArray> layers;
    for (std::size_t i = 0; i < facts.layers.size(); ++i)
        layers.append(layerJson(facts.layers[i], i));
    const QByteArray document = object(
        {
            {"format", text(qint64{infoFormat})},
            {"OutputWidth", text(qint64{facts.outputWidth})},
            {"OutputHeight", text(qint64{facts.outputHeight})},
            {"voltage", text(facts.volts)},
            {"phases", text(facts.phases)},
            {"watts", text(qint64{facts.load.watts})},
            {"amperes", text(facts.amperes)},
            {"layers", list(layers, 2)},
        },
        0);
    return QString::fromUtf8(document) + u'\n';
}

} // namespace InfoJson
