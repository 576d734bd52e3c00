#include "archive/ArchiveTable.h"
#include "archive/ColourComponents.h"
#include "archive/IndexRanges.h"
#include "archive/KeyedArchive.h"

#include <bit>

namespace {
/// Builds the table of an archive. A node belongs to the table, or to its record, as soon as it is put in.
class TableWriter
{
public:
    TableWriter() { append(plist_new_string("$null")); }

    Result<QByteArray> write(const ArchiveValue &root);

private:
    using Index = quint64;

    Index append(plist_t node);
    /// The number of `value` in the table, 0 for nil; appended unless it is there already.
    Index reference(const ArchiveValue &value);
    plist_t referenceTo(const ArchiveValue &value) { return plist_new_uid(reference(value)); }
    /// What stands for `value` inside a record: numbers and data themselves, a reference for everything else.
    plist_t member(const ArchiveValue &value);
    void setClass(plist_t record, const QStringList &chain);
    Index refuse(const QString &reason);

    /// The index of an equal value that was met before, or what `make` appends.
    template <typename Make>
    Index once(const QString &key, Make make);

    Index add(std::monostate) { return 0; }
    Index add(bool flag);
    Index add(qint64 integer);
    Index add(double real);
    Index add(const QString &text);
    Index add(const QByteArray &data) { return append(plist_new_data(data.constData(), data.size())); }
    Index add(const Colour &colour);
    Index add(const Address &address);
    Index add(const IndexSet &indexes);
    Index add(const ArchiveList &list);
    Index add(const ArchiveObjectPointer &object);
    Index add(const ArchiveFault &fault) { return refuse(QString("It holds %1.").arg(fault.found)); }

    PropertyList::Pointer m_objects{plist_new_array()};
    Index m_count = 0;
    QHash<const void *, Index> m_shared;
    QHash<QString, Index> m_equal;
    int m_depth = 0;
    std::optional<Error> m_failure;
};

Result<QByteArray> TableWriter::write(const ArchiveValue &root)
{
    plist_t top = plist_new_dict();
    const PropertyList::Pointer archive(plist_new_dict());
    plist_dict_set_item(archive.get(), "$archiver", plist_new_string("NSKeyedArchiver"));
    plist_dict_set_item(archive.get(), "$version", plist_new_uint(100000));
    plist_dict_set_item(archive.get(), "$top", top);
    plist_dict_set_item(top, "root", referenceTo(root));
    if (m_failure)
        return tl::unexpected(*m_failure);
    plist_dict_set_item(archive.get(), "$objects", m_objects.release());
    return PropertyList::toBinary(archive.get());
}

TableWriter::Index TableWriter::append(plist_t node)
{
    plist_array_append_item(m_objects.get(), node);
    return m_count++;
}

TableWriter::Index TableWriter::refuse(const QString &reason)
{
    if (!m_failure)
        m_failure = Error{"The archive cannot be written: " + reason};
    return 0;
}

TableWriter::Index TableWriter::reference(const ArchiveValue &value)
{
    if (m_depth > ArchiveTable::maximumDepth)
        return refuse(QString("It is nested more than %1 deep.").arg(ArchiveTable::maximumDepth));
    ++m_depth;
    const Index index = std::visit([this](const auto &kind) { return add(kind); }, value.storage);
    --m_depth;
    return index;
}

plist_t TableWriter::member(const ArchiveValue &value)
{
    if (const bool *const flag = std::get_if<bool>(&value.storage))
        return plist_new_bool(*flag);
    if (const qint64 *const integer = std::get_if<qint64>(&value.storage))
        return plist_new_uint(static_cast<quint64>(*integer));
    if (const double *const real = std::get_if<double>(&value.storage))
        return plist_new_real(*real);
    if (const QByteArray *const data = std::get_if<QByteArray>(&value.storage))
        return plist_new_data(data->constData(), static_cast<quint64>(data->size()));
    return referenceTo(value);
}

template <typename Make>
TableWriter::Index TableWriter::once(const QString &key, Make make)
{
    const auto known = m_equal.constFind(key);
    if (known != m_equal.cend())
        return *known;
    const Index index = make();
    m_equal.insert(key, index);
    return index;
}

/// Ends a record: its class table stands behind its values.
void TableWriter::setClass(plist_t record, const QStringList &chain)
{
    const Index index = once("class " + chain.join(' '), [&] {
        plist_t names = plist_new_array();
        for (const QString &name : chain)
            plist_array_append_item(names, plist_new_string(name.toUtf8()));
        plist_t table = plist_new_dict();
        plist_dict_set_item(table, "$classname", plist_new_string(chain.first().toUtf8()));
        plist_dict_set_item(table, "$classes", names);
        return append(table);
    });
    plist_dict_set_item(record, "$class", plist_new_uid(index));
}

TableWriter::Index TableWriter::add(bool flag)
{
    return once(flag ? "boolean 1" : "boolean 0", [&] { return append(plist_new_bool(flag)); });
}

TableWriter::Index TableWriter::add(qint64 integer)
{
    return once(QString("integer %1").arg(integer),
                [&] { return append(plist_new_uint(static_cast<quint64>(integer))); });
}

TableWriter::Index TableWriter::add(double real)
{
    return once(QString("real %1").arg(std::bit_cast<quint64>(real)), [&] { return append(plist_new_real(real)); });
}

TableWriter::Index TableWriter::add(const QString &text)
{
    if (text.contains(QChar(u'\0')))
        return refuse(
            QString("The text \"%1\" has a NUL in it; type it anew.").arg(text.left(40).remove(QChar(u'\0'))));
    // Half a surrogate pair is written as a question mark, so texts are equal as they are written.
    const QByteArray written = text.toUtf8();
    return once("text " + QString::fromUtf8(written), [&] {
        if (written != "$null")
            return append(plist_new_string(written));
        // As a plain string it would read as nil.
        plist_t record = plist_new_dict();
        const Index index = append(record);
        plist_dict_set_item(record, "NS.string", plist_new_string("$null"));
        setClass(record, {"NSMutableString", "NSString", "NSObject"});
        return index;
    });
}

TableWriter::Index TableWriter::add(const Colour &colour)
{
    const Result<QByteArray> components = ColourComponents::write(colour);
    if (!components)
        return refuse(components.error().text);
    return once("colour " + QString::fromLatin1(*components), [&] {
        plist_t record = plist_new_dict();
        const Index index = append(record);
        plist_dict_set_item(record, "NSColorSpace", plist_new_uint(2)); // device RGB
        plist_dict_set_item(record, "NSRGB",
                            plist_new_data(components->constData(), static_cast<quint64>(components->size())));
        setClass(record, {"NSColor", "NSObject"});
        return index;
    });
}

TableWriter::Index TableWriter::add(const Address &address)
{
    if (address.isNil())
        return 0;
    const QStringList texts = QStringList(address.relative) + address.bases;
    return once("address " + texts.join(QChar(u'\0')), [&] {
        plist_t record = plist_new_dict();
        const Index index = append(record);
        const Address base{address.bases.value(0), address.bases.mid(1)};
        plist_dict_set_item(record, "NS.base", referenceTo({base}));
        plist_dict_set_item(record, "NS.relative", referenceTo({address.relative}));
        setClass(record, {"NSURL", "NSObject"});
        return index;
    });
}

TableWriter::Index TableWriter::add(const IndexSet &indexes)
{
    plist_t record = plist_new_dict();
    const Index index = append(record);
    plist_dict_set_item(record, "NSRangeCount", plist_new_uint(indexes.ranges.size()));
    if (indexes.ranges.size() == 1) {
        plist_dict_set_item(record, "NSLocation", plist_new_uint(indexes.ranges.front().location));
        plist_dict_set_item(record, "NSLength", plist_new_uint(indexes.ranges.front().length));
    } else if (!indexes.ranges.empty()) {
        plist_dict_set_item(record, "NSRangeData", referenceTo({IndexRanges::toBytes(indexes)}));
    }
    setClass(record, {"NSIndexSet", "NSObject"});
    return index;
}

TableWriter::Index TableWriter::add(const ArchiveList &list)
{
    if (const auto known = m_shared.constFind(list.get()); known != m_shared.cend())
        return *known;
    plist_t record = plist_new_dict();
    const Index index = append(record);
    m_shared.insert(list.get(), index);
    plist_t entries = plist_new_array();
    plist_dict_set_item(record, "NS.objects", entries);
    for (const ArchiveValue &entry : *list)
        plist_array_append_item(entries, referenceTo(entry));
    setClass(record, {"NSMutableArray", "NSArray", "NSObject"});
    return index;
}

TableWriter::Index TableWriter::add(const ArchiveObjectPointer &object)
{
    if (const auto known = m_shared.constFind(object.get()); known != m_shared.cend())
        return *known;
    plist_t record = plist_new_dict();
    const Index index = append(record);
    m_shared.insert(object.get(), index);
    for (const auto &[key, value] : object->entries())
        plist_dict_set_item(record, key.toUtf8(), member(value));
    setClass(record, {object->className(), "NSObject"});
    return index;
}
} // namespace

Result<QByteArray> KeyedArchive::write(const ArchiveValue &root)
{
    return TableWriter().write(root);
}
