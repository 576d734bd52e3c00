#include "formats/ProcessorList.h"

#include "formats/JsonParts.h"
#include "formats/JsonValues.h"
#include "formats/PropertyText.h"
#include "show/ShowProcessors.h"
#include "wiring/ProcessorFields.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {
ArchiveValue archiveValueOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return {value.toBool()};
    case QMetaType::Double:
        return {value.toDouble()};
    case QMetaType::QString:
        return {value.toString()};
    default:
        return {value.toLongLong()};
    }
}

ArchiveObjectPointer objectOf(const ProcessorSettings &settings)
{
    auto object = std::make_shared<ArchiveObject>(ProcessorList::className);
    for (const ProcessorField &field : processorFields()) {
        if (field.isWritten(settings))
            object->encode(field.name, archiveValueOf(field.get(settings)));
    }
    if (settings.unknown && settings.unknown->ofArchive)
        object->encodeUnknownPart(*settings.unknown->ofArchive);
    return object;
}

Result<QVariant> decoded(const ArchiveObject &object, const ProcessorField &field)
{
    const QString key = field.name;
    switch (field.type.id()) {
    case QMetaType::Bool:
        return object.decodeBool(key).map([](bool flag) { return QVariant(flag); });
    case QMetaType::Double: {
        const double *const real = std::get_if<double>(&object.value(key).storage);
        if (real)
            return QVariant(*real);
        return object.decodeInt32(key).map([](qint32 number) { return QVariant(double(number)); });
    }
    case QMetaType::QString:
        return object.decodeText(key).map([](const QString &text) { return QVariant(text); });
    default:
        return object.decodeInt32(key).map([](qint32 number) { return QVariant(qint64{number}); });
    }
}

/// Takes a value that was read.
Result<void> take(ProcessorSettings &settings, const ProcessorField &field, const Result<QVariant> &value)
{
    if (!value)
        return tl::unexpected(value.error());
    if (!field.set(settings, *value))
        return fail(QString("\"%1\" is %2, expected %3")
                        .arg(field.name,
                             value->typeId() == QMetaType::QString ? '"' + JsonValues::excerpt(value->toString()) + '"'
                                                                   : value->toString(),
                             field.expected));
    return {};
}

Result<ProcessorSettings> settingsOf(const ArchiveObject &object)
{
    ProcessorSettings settings;
    for (const ProcessorField &field : processorFields()) {
        if (!object.contains(field.name))
            continue;
        if (const Result<void> taken = take(settings, field, decoded(object, field)); !taken)
            return tl::unexpected(taken.error());
    }
    settings.unknown = UnknownPart::of(object);
    return settings;
}

Result<ProcessorSettings> settingsOf(const QJsonObject &object, QByteArrayView newer)
{
    const Result<QByteArrayList> unknown = JsonParts::unknownNames(object, newer, ProcessorList::keys());
    if (!unknown)
        return tl::unexpected(unknown.error());
    ProcessorSettings settings;
    settings.unknown = UnknownPart::ofNames(*unknown);
    for (const ProcessorField &field : processorFields()) {
        const QJsonValue value = object.value(QLatin1StringView(field.name));
        if (value.isUndefined())
            continue;
        const Result<void> taken = take(settings, field, PropertyText::decode(value, field.type, {}));
        if (!taken)
            return failWithin(field.name, taken.error());
    }
    return settings;
}

/// Reads each entry of a list; the message of an error names it.
template <typename Entries, typename Read>
Result<ProcessorList::Processors> eachOf(const Entries &entries, const Read &read)
{
    if (const Result<void> isHeld = ProcessorList::checkCount(std::ssize(entries)); !isHeld)
        return tl::unexpected(isHeld.error());
    ProcessorList::Processors processors;
    for (const auto &entry : entries) {
        const Result<ProcessorSettings> settings = read(entry, processors.size());
        if (!settings)
            return failWithin(QString("processor %1").arg(processors.size()), settings.error());
        processors.push_back(*settings);
        if (settings->name.isEmpty())
            return fail(QString("processor %1: it has no name").arg(processors.size() - 1));
    }
    return processors;
}

/// A text without letters is one: none of them is nil.
QByteArray textOf(const QVariant &value)
{
    return value.typeId() == QMetaType::QString ? JsonValues::text(value.toString()) : PropertyText::text(value, {});
}

QByteArray lineOf(const ProcessorSettings &settings)
{
    QByteArrayList values;
    for (const ProcessorField &field : processorFields()) {
        if (field.isWritten(settings))
            values.append('"' + QByteArray(field.name) + "\": " + textOf(field.get(settings)));
    }
    return "    {" + values.join(", ") + JsonParts::further(settings.unknown) + '}';
}
} // namespace

namespace ProcessorList {

QStringList keys()
{
    QStringList keys;
    for (const ProcessorField &field : processorFields())
        keys.append(field.name);
    return keys;
}

Result<void> checkCount(qint64 count)
{
    if (count <= static_cast<qint64>(ShowProcessors::mostProcessors))
        return {};
    return fail(QString("a list of %1, expected at most %2").arg(count).arg(ShowProcessors::mostProcessors));
}

ArchiveValue toArchive(const Processors &processors)
{
    std::vector<ArchiveValue> objects;
    for (const ProcessorSettings &settings : processors)
        objects.push_back({objectOf(settings)});
    return objects.empty() ? ArchiveValue() : ArchiveValue::list(std::move(objects));
}

Result<Processors> ofArchive(const ArchiveValue &value)
{
    return value.toList("the list of processors").and_then([](const ArchiveList &list) {
        return eachOf(*list, [](const ArchiveValue &entry, std::size_t) {
            return entry.toObject("it").and_then([](const auto &object) { return settingsOf(*object); });
        });
    });
}

QByteArray toText(const Processors &processors)
{
    QByteArrayList lines;
    for (const ProcessorSettings &settings : processors)
        lines.append(lineOf(settings));
    return "[\n" + lines.join(",\n") + "\n  ]";
}

Result<Processors> ofText(const QJsonValue &value, QByteArrayView newer)
{
    if (!value.isArray())
        return JsonValues::failExpecting("a list of processors", value);
    const std::vector<JsonParts::Part> parts = JsonParts::of(newer);
    return eachOf(value.toArray(), [&](const QJsonValue &entry, std::size_t place) -> Result<ProcessorSettings> {
        if (!entry.isObject())
            return JsonValues::failExpecting("an object", entry);
        return settingsOf(entry.toObject(), JsonParts::valueAt(parts, place));
    });
}

} // namespace ProcessorList
