#include "layer/ArchiveFields.h"

#include "base/NearestInt.h"

namespace {
/// The low 32 bits of an integer, a real truncated toward zero (at most to the ends of the range).
qint32 narrowed(const QVariant &value)
{
    if (value.typeId() != QMetaType::Double)
        return static_cast<qint32>(value.toLongLong());
    return truncated(value.toDouble());
}

void encodeField(const QVariant &value, const ArchiveField &field, ArchiveObject &coder)
{
    switch (field.form) {
    case StoredAs::Integer32:
        return coder.encodeInt32(field.key, narrowed(value));
    case StoredAs::Boolean:
        return coder.encodeBool(field.key, value.toBool());
    case StoredAs::Colour:
        return coder.encodeColour(field.key, value.value<OptionalColour>());
    case StoredAs::Text:
        return coder.encodeText(field.key, value.toString());
    case StoredAs::TextList:
        return coder.encodeTextList(field.key, value.value<std::optional<QStringList>>());
    case StoredAs::Address:
        return coder.encodeAddress(field.key, value.value<Address>());
    }
}

template <typename T>
Result<QVariant> asVariant(const Result<T> &decoded)
{
    return decoded.map([](const T &value) { return QVariant::fromValue(value); });
}

Result<QVariant> decodeField(const ArchiveField &field, const ArchiveObject &coder)
{
    switch (field.form) {
    case StoredAs::Integer32:
        return asVariant(coder.decodeInt32(field.key));
    case StoredAs::Boolean:
        return asVariant(coder.decodeBool(field.key));
    case StoredAs::Colour:
        return asVariant(coder.decodeColour(field.key));
    case StoredAs::Text:
        return asVariant(coder.decodeText(field.key));
    case StoredAs::TextList:
        return asVariant(coder.decodeTextList(field.key));
    case StoredAs::Address:
        return asVariant(coder.decodeAddress(field.key));
    }
    Q_UNREACHABLE();
}
} // namespace

QSet<QString> keysOf(std::span<const ArchiveField> fields)
{
    QSet<QString> keys;
    for (const ArchiveField &field : fields)
        keys.insert(field.key);
    return keys;
}

void encodeFields(const QObject &layer, std::span<const ArchiveField> fields, ArchiveObject &coder)
{
    for (const ArchiveField &field : fields) {
        const QVariant value = layer.property(field.property);
        if (field.isWritten(value))
            encodeField(value, field, coder);
    }
}

Result<void> decodeFields(QObject &layer, std::span<const ArchiveField> fields, const ArchiveObject &coder)
{
    for (const ArchiveField &field : fields) {
        const Result<QVariant> value = decodeField(field, coder);
        if (!value)
            return tl::unexpected(value.error());
        layer.setProperty(field.property, *value);
    }
    return {};
}
