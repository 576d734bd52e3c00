#include "formats/PropertyText.h"

#include "archive/Address.h"
#include "formats/CableRunText.h"
#include "formats/ColourText.h"
#include "formats/JsonValues.h"

#include <QDir>
#include <QJsonArray>
#include <QRegularExpression>

#include <limits>
#include <optional>

namespace {
using TextList = std::optional<QStringList>;

/// As many as a project file can hold, which bounds the depth of its objects.
constexpr qsizetype mostAddressParts = 61;

/// An address that stands for itself; other texts are paths.
bool hasScheme(const QString &address)
{
    static const QRegularExpression start("\\A[A-Za-z][A-Za-z0-9+.-]*:");
    return start.match(address).hasMatch();
}

QJsonValue encodeAddress(const Address &address)
{
    if (address.isNil())
        return QJsonValue::Null;
    if (address.bases.isEmpty() && hasScheme(address.relative))
        return address.relative;
    return QJsonArray::fromStringList(QStringList(address.relative) + address.bases);
}

Result<bool> decodeFlag(const QJsonValue &value)
{
    if (!value.isBool())
        return JsonValues::failExpecting("true or false", value);
    return value.toBool();
}

Result<double> decodeReal(const QJsonValue &value)
{
    if (!value.isDouble())
        return JsonValues::failExpecting("a number", value);
    return value.toDouble();
}

Result<QString> decodeText(const QJsonValue &value)
{
    if (value.isNull())
        return QString();
    if (!value.isString())
        return JsonValues::failExpecting("a text", value);
    const QString text = value.toString();
    if (text.contains(QChar(u'\0')))
        return fail("expected a text without NUL");
    // An empty text is a text; a null one is none.
    return text.isNull() ? QString("") : text;
}

Result<TextList> decodeTextList(const QJsonValue &value)
{
    if (value.isNull())
        return TextList();
    if (!value.isArray())
        return JsonValues::failExpecting("a list of texts", value);
    QStringList texts;
    for (const auto &entry : value.toArray()) {
        const Result<QString> text = decodeText(entry);
        if (!text)
            return failWithin(QString("entry %1").arg(texts.size()), text.error());
        if (text->isNull())
            return fail(QString("entry %1: expected a text, found null").arg(texts.size()));
        texts.append(*text);
    }
    return texts;
}

Result<Address> decodeAddress(const QJsonValue &value, const QString &folder)
{
    if (value.isArray()) {
        const Result<TextList> parts = decodeTextList(value);
        if (!parts)
            return tl::unexpected(parts.error());
        if ((*parts)->isEmpty() || (*parts)->size() > mostAddressParts)
            return fail(QString("expected 1 to %1 parts of an address, found a list of %2")
                            .arg(mostAddressParts)
                            .arg((*parts)->size()));
        return Address{(*parts)->first(), (*parts)->mid(1)};
    }
    if (value.isNull())
        return Address();
    const QString text = value.toString();
    if (text.isEmpty())
        return fail(QString("expected an address, found %1")
                        .arg(value.isString() ? QString("an empty text") : JsonValues::kind(value)));
    return hasScheme(text) ? Address{text, {}} : Address::fromLocalFile(QDir(folder).absoluteFilePath(text));
}

template <typename T>
Result<QVariant> asVariant(const Result<T> &decoded)
{
    return decoded.map([](const T &value) { return QVariant::fromValue(value); });
}

template <typename T>
Result<QVariant> integerAsVariant(const QJsonValue &value)
{
    return PropertyText::decodeInteger(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max())
        .map([](qint64 number) { return QVariant::fromValue(static_cast<T>(number)); });
}
} // namespace

namespace PropertyText {

QByteArray text(const QVariant &value, const QByteArray &indent)
{
    if (value.metaType() == QMetaType::fromType<CableRuns>())
        return CableRunText::encode(value.value<CableRuns>(), indent);
    return JsonValues::text(encode(value));
}

QJsonValue encode(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<OptionalColour>())
        return ColourText::encode(value.value<OptionalColour>());
    if (value.metaType() == QMetaType::fromType<Address>())
        return encodeAddress(value.value<Address>());
    if (value.metaType() == QMetaType::fromType<TextList>()) {
        const auto texts = value.value<TextList>();
        return texts ? QJsonValue(QJsonArray::fromStringList(*texts)) : QJsonValue::Null;
    }
    if (value.metaType() == QMetaType::fromType<QString>() && value.toString().isNull())
        return QJsonValue::Null;
    return QJsonValue::fromVariant(value);
}

Result<QVariant> decode(const QJsonValue &value, QMetaType type, const QString &folder, QByteArrayView newer)
{
    if (type == QMetaType::fromType<bool>())
        return asVariant(decodeFlag(value));
    if (type == QMetaType::fromType<int>())
        return integerAsVariant<int>(value);
    if (type == QMetaType::fromType<qint64>())
        return integerAsVariant<qint64>(value);
    if (type == QMetaType::fromType<double>())
        return asVariant(decodeReal(value));
    if (type == QMetaType::fromType<QString>())
        return asVariant(decodeText(value));
    if (type == QMetaType::fromType<OptionalColour>())
        return asVariant(ColourText::decode(value));
    if (type == QMetaType::fromType<CableRuns>())
        return asVariant(CableRunText::decode(value, newer));
    if (type == QMetaType::fromType<TextList>())
        return asVariant(decodeTextList(value));
    Q_ASSERT(type == QMetaType::fromType<Address>());
    return asVariant(decodeAddress(value, folder));
}

Result<qint64> decodeInteger(const QJsonValue &value, qint64 lowest, qint64 highest)
{
    if (!value.isDouble())
        return JsonValues::failExpecting("a whole number", value);
    // What is no whole number of 64 bits comes back as the default.
    const qint64 number = value.toInteger(0);
    if (number != value.toInteger(1) || number < lowest || number > highest)
        return fail(QString("expected a whole number from %1 to %2, found %3")
                        .arg(lowest)
                        .arg(highest)
                        .arg(QLatin1StringView(JsonValues::text(value))));
    return number;
}

} // namespace PropertyText
