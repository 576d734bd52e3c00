#include "cli/InfoJson.h"

#include "cli/VisibleText.h"
#include "facts/ProjectFacts.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <utility>

namespace {
constexpr int formatNumber = 1;

/// A name and its value as JSON. QJsonObject would sort them.
using Member = std::pair<const char *, QByteArray>;

QByteArray text(const QString &value)
{
    return value.isNull() ? QByteArray("null") : VisibleText::quoted(value).toUtf8();
}

QByteArray text(bool value)
{
    return value ? "true" : "false";
}

QByteArray text(qint64 value)
{
    return QByteArray::number(value);
}

/// The fewest digits that give the same number again in double precision, in which programs read it.
QByteArray text(float value)
{
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.begin(), digits.end(), static_cast<double>(value));
    return QByteArray(digits.data(), result.ptr - digits.data());
}

QByteArray joined(const std::vector<Member> &members, const QByteArray &separator)
{
    QByteArray all;
    for (const auto &[name, value] : members)
        all += (all.isEmpty() ? QByteArray() : separator) + '"' + name + "\": " + value;
    return all;
}

/// One member a line, `indentation` blanks in front of the braces.
QByteArray object(const std::vector<Member> &members, int indentation)
{
    const QByteArray margin(indentation, ' ');
    return margin + "{\n" + margin + "  " + joined(members, ",\n" + margin + "  ") + '\n' + margin + '}';
}

/// One item a line; the items bring their own indentation.
QByteArray list(const QList<QByteArray> &items, int indentation)
{
    if (items.isEmpty())
        return "[]";
    return "[\n" + items.join(",\n") + '\n' + QByteArray(indentation, ' ') + ']';
}

QByteArray portsText(const WallPorts &ports)
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
        {"ports", portsText(wall.ports)},
    };
}

QByteArray layerText(const LayerFacts &layer, std::size_t index)
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
        layers.append(layerText(facts.layers[i], i));
    const QByteArray document = object(
        {
            {"format", text(qint64{formatNumber})},
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
