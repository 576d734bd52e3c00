#include "formats/ColourText.h"

#include "formats/JsonValues.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <array>

namespace {
constexpr QLatin1StringView expectation{"a colour such as \"#ff0000\""};

Result<OptionalColour> decodeHexadecimal(const QString &text)
{
    static const QRegularExpression form("\\A#([0-9A-Fa-f]{6})([0-9A-Fa-f]{2})?\\z");
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return fail(QString("expected %1, found \"%2\"").arg(expectation, JsonValues::excerpt(text)));
    const uint alpha = match.hasCaptured(2) ? match.capturedView(2).toUInt(nullptr, 16) : 255;
    return Colour::fromRgba8(match.capturedView(1).toUInt(nullptr, 16) | alpha << 24);
}

Result<OptionalColour> decodeComponents(const QJsonArray &list)
{
    std::array<double, 4> components{};
    if (list.size() != std::ssize(components))
        return fail(QString("expected red, green, blue and alpha, found a list of %1").arg(list.size()));
    for (std::size_t i = 0; i < components.size(); ++i) {
        const QJsonValue component = list[static_cast<qsizetype>(i)];
        if (!component.isDouble())
            return JsonValues::failExpecting("numbers for red, green, blue and alpha", component);
        components[i] = component.toDouble();
    }
    return Colour{components[0], components[1], components[2], components[3]};
}
} // namespace

namespace ColourText {

QJsonValue encode(const OptionalColour &colour)
{
    if (!colour)
        return QJsonValue::Null;
    const QRgb rgba = colour->toRgba8();
    if (*colour != Colour::fromRgba8(rgba))
        return QJsonArray{colour->red, colour->green, colour->blue, colour->alpha};
    if (qAlpha(rgba) == 255)
        return QString::asprintf("#%06x", rgba & 0xffffffU);
    return QString::asprintf("#%06x%02x", rgba & 0xffffffU, uint(qAlpha(rgba)));
}

Result<OptionalColour> decode(const QJsonValue &value)
{
    if (value.isNull())
        return OptionalColour();
    if (value.isString())
        return decodeHexadecimal(value.toString());
    if (value.isArray())
        return decodeComponents(value.toArray());
    return JsonValues::failExpecting(expectation, value);
}

Result<Colour> decodeText(const QString &text)
{
    const QJsonDocument list = QJsonDocument::fromJson(text.toUtf8());
    const Result<OptionalColour> colour = list.isArray() ? decodeComponents(list.array()) : decodeHexadecimal(text);
    return colour.map([](const OptionalColour &decoded) { return *decoded; });
}

} // namespace ColourText
