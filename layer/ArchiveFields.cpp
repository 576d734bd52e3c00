#include "layer/ArchiveFields.h"

#include "base/NearestInt.h"
#include "layer/CableRunArchive.h"

namespace {
/// The low 32 bits of an integer, a real truncated toward zero (at most to the ends of the range).
qint32 narrowed(const QVariant &value)
{
    if (value.typeId() != QMetaType::Double)
        return static_cast<qint32>(value.toLongLong());
    return truncated(value.toDouble());
}

QString asWords(const std::optional<QStringList> &texts)
{
    return texts ? QString("") + texts->join(u' ') : QString(); // without words it is empty and not nil
}

std::optional<QStringList> ofWords(const QString &words)
{
    return words.isNull() ? std::nullopt : std::optional(words.split(' ', Qt::SkipEmptyParts));
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
    case StoredAs::Words:
        return coder.encodeText(field.key, asWords(value.value<std::optional<QStringList>>()));
    case StoredAs::Runs:
        return coder.encode(field.key, CableRunArchive::encode(value.value<CableRuns>()));
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

Result<QVariant> decodeField(const QString &key, StoredAs form, const ArchiveObject &coder)
{
    switch (form) {
    case StoredAs::Integer32:
        return asVariant(coder.decodeInt32(key));
    case StoredAs::Boolean:
        return asVariant(coder.decodeBool(key));
    case StoredAs::Colour:
        return asVariant(coder.decodeColour(key));
    case StoredAs::Text:
        return asVariant(coder.decodeText(key));
    case StoredAs::Words:
        return asVariant(coder.decodeText(key).map(ofWords));
    case StoredAs::Runs:
        return asVariant(CableRunArchive::decode(coder.value(key), '"' + key + '"'));
    case StoredAs::TextList:
        return asVariant(coder.decodeTextList(key));
    case StoredAs::Address:
        return asVariant(coder.decodeAddress(key));
    }
    Q_UNREACHABLE();
}
} // namespace

bool isTaken(const ArchiveValue &found, const LayerValue &value)
{
    ArchiveObject coder({});
    coder.encode(value.addition->key, found);
    const Result<QVariant> decoded = decodeField(value.addition->key, value.addition->form, coder);
    LayerRecord record;
    return decoded && value.assign(record, *decoded);
}

QSet<QString> keysOf(std::span<const ArchiveField> fields)
{
    QSet<QString> keys;
    for (const ArchiveField &field : fields)
        keys.insert(field.key);
    return keys;
}

const LayerValue &ArchiveField::value() const
{
    return *LayerValues::find(property);
}

bool ArchiveField::isWritten(const LayerRecord &record) const
{
    return !isAddition || value().isGiven(record);
}

std::vector<ArchiveField> withAdditions(std::span<const ArchiveField> fields, LayerKind kind)
{
    std::vector<ArchiveField> all(fields.begin(), fields.end());
    for (const LayerValue &value : LayerValues::all()) {
        if (value.addition && isOf(value.addition->kind, kind))
            all.push_back({value.addition->key, value.name, value.addition->form, true});
    }
    return all;
}

void encodeFields(const LayerRecord &record, std::span<const ArchiveField> fields, ArchiveObject &coder)
{
    for (const ArchiveField &field : fields) {
        if (field.isWritten(record))
            encodeField(field.value().get(record), field, coder);
    }
}

Result<void> decodeFields(LayerRecord &record, std::span<const ArchiveField> fields, const ArchiveObject &coder)
{
    for (const ArchiveField &field : fields) {
        if (field.isAddition && std::holds_alternative<UnknownValue>(coder.value(field.key).storage))
            continue;
        const Result<QVariant> value = decodeField(field.key, field.form, coder);
        if (!value)
            return tl::unexpected(value.error());
        field.value().assign(record, *value);
    }
    return {};
}
