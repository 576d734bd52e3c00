#include "archive/ArchiveTable.h"
#include "archive/ColourComponents.h"
#include "archive/IndexRanges.h"
#include "archive/KeyedArchive.h"
#include "archive/NodeCopy.h"

#include <bit>
#include <map>
#include <utility>

namespace {
/// Builds the table of an archive. A node belongs to the table, or to its record, as soon as it is put in.
class TableWriter
{
public:
    TableWriter() { append(plist_new_string("$null")); }

    Result<QByteArray> write(const KeyedArchive::Contents &contents);

private:
    using Index = quint64;
    using Place = std::pair<const ArchiveSource *, quint64>;
    /// A copied node whose references still hold the numbers of its source, from `next` on.
    struct Copy
    {
        std::vector<plist_t> references;
        std::size_t next = 0;
    };

    Index append(plist_t node);
    /// The number of `value` in the table, 0 for nil; appended unless it is there already.
    Index reference(const ArchiveValue &value);
    plist_t referenceTo(const ArchiveValue &value) { return plist_new_uid(reference(value)); }
    /// What stands for `value` inside a record: numbers and data themselves, a reference for everything else.
    plist_t member(const ArchiveValue &value);
    void setEntries(plist_t record, const ArchiveObject &object);
    Index classTable(const QStringList &chain);
    void setClass(plist_t record, const QStringList &chain);
    Index refuse(const QString &reason);

    /// The index of an equal value that was met before, or what `make` appends.
    template <typename Make>
    Index once(const QByteArray &key, Make make);

    Index add(std::monostate) { return 0; }
    Index add(bool flag);
    Index add(qint64 integer);
    Index add(double real);
    Index add(const QString &text);
    Index add(const QByteArray &data) { return append(PropertyList::newData(data)); }
    Index add(const Colour &colour);
    Index add(const Address &address);
    Index add(const IndexSet &indexes);
    Index add(const ArchiveList &list);
    Index add(const ArchiveObjectPointer &object);
    Index add(const UnknownValue &) { return refuse("It holds an unknown value where none can stand."); }
    Index add(const ArchiveFault &fault) { return refuse(QString("It holds %1.").arg(fault.found)); }

    /// What takes the place of an entry of another archive's table; where that is copied, it goes on `copies`.
    Index replacement(const ArchiveSource &source, quint64 index, std::vector<Copy> &copies);
    Index reserved(const ArchiveObject *object);
    std::optional<Index> sharedReplacement(plist_t node);
    /// Copies what is unknown with all that it refers to.
    plist_t copy(const UnknownValue &unknown);
    /// Where the objects of the root stood in the archives that they came from.
    void findPlaces(const ArchiveValue &value);

    PropertyList::Pointer m_objects{plist_new_array()};
    Index m_count = 0;
    QHash<const void *, Index> m_shared;
    QHash<QByteArray, Index> m_equal;
    const ArchiveValue *m_root = nullptr;
    std::map<Place, ArchiveObjectPointer> m_places;
    std::map<Place, Index> m_copied;
    QHash<const ArchiveObject *, plist_t> m_reserved; ///< referred to before they are written
    int m_depth = 0;
    std::optional<Error> m_failure;
};

Result<QByteArray> TableWriter::write(const KeyedArchive::Contents &contents)
{
    m_root = &contents.root;
    plist_t top = plist_new_dict();
    const PropertyList::Pointer archive(plist_new_dict());
    plist_dict_set_item(archive.get(), "$archiver", plist_new_string("NSKeyedArchiver"));
    plist_dict_set_item(archive.get(), "$version", plist_new_uint(100000));
    plist_dict_set_item(archive.get(), "$top", top);
    plist_dict_set_item(top, "root", referenceTo(contents.root));
    for (const auto &[key, value] : contents.top)
        plist_dict_set_item(top, key.toUtf8(), member(value));
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
        return PropertyList::newData(*data);
    if (const UnknownValue *const unknown = std::get_if<UnknownValue>(&value.storage))
        return copy(*unknown);
    const ArchiveObjectPointer *const object = std::get_if<ArchiveObjectPointer>(&value.storage);
    if (!object || !(*object)->className().isEmpty())
        return referenceTo(value);
    plist_t dictionary = plist_new_dict();
    setEntries(dictionary, **object);
    return dictionary;
}

template <typename Make>
TableWriter::Index TableWriter::once(const QByteArray &key, Make make)
{
    const auto known = m_equal.constFind(key);
    if (known != m_equal.cend())
        return *known;
    const Index index = make();
    m_equal.insert(key, index);
    return index;
}

TableWriter::Index TableWriter::classTable(const QStringList &chain)
{
    return once("class " + chain.join(' ').toUtf8(), [&] {
        plist_t names = plist_new_array();
        for (const QString &name : chain)
            plist_array_append_item(names, plist_new_string(name.toUtf8()));
        plist_t table = plist_new_dict();
        plist_dict_set_item(table, "$classname", plist_new_string(chain.first().toUtf8()));
        plist_dict_set_item(table, "$classes", names);
        return append(table);
    });
}

/// Ends a record: its class table stands behind its values.
void TableWriter::setClass(plist_t record, const QStringList &chain)
{
    plist_dict_set_item(record, "$class", plist_new_uid(classTable(chain)));
}

void TableWriter::setEntries(plist_t record, const ArchiveObject &object)
{
    for (const auto &[key, value] : object.entries())
        plist_dict_set_item(record, key.toUtf8(), member(value));
}

plist_t TableWriter::copy(const UnknownValue &unknown)
{
    if (const ArchiveValue *const root = std::exchange(m_root, nullptr))
        findPlaces(*root);
    std::vector<Copy> copies(1); // not by recursion: references may follow each other without end
    plist_t result = copyOfNode(unknown.node, copies.back().references);
    while (!copies.empty()) {
        Copy &last = copies.back();
        if (last.next == last.references.size()) {
            copies.pop_back();
            continue;
        }
        plist_t reference = last.references[last.next++];
        const quint64 index = PropertyList::reference(reference).value_or(0);
        plist_set_uid_val(reference, replacement(*unknown.source, index, copies));
    }
    return result;
}

TableWriter::Index TableWriter::replacement(const ArchiveSource &source, quint64 index, std::vector<Copy> &copies)
{
    if (index == 0 || index >= source.objects.size())
        return 0;
    if (index == source.root)
        return 1; // the root is the first to be written
    const Place place(&source, index);
    if (const auto known = m_copied.find(place); known != m_copied.end())
        return known->second;
    if (const auto known = m_places.find(place); known != m_places.end())
        return reserved(known->second.get());
    if (const std::optional<Index> shared = sharedReplacement(source.objects[index]))
        return *shared;
    copies.emplace_back();
    const Index made = append(copyOfNode(source.objects[index], copies.back().references));
    m_copied.emplace(place, made);
    return made;
}

/// The number of an object that is written when its turn comes.
TableWriter::Index TableWriter::reserved(const ArchiveObject *object)
{
    if (const auto known = m_shared.constFind(object); known != m_shared.cend())
        return *known;
    plist_t record = plist_new_dict();
    m_reserved.insert(object, record);
    return *m_shared.insert(object, append(record));
}

/// What is written once, whoever refers to it.
std::optional<TableWriter::Index> TableWriter::sharedReplacement(plist_t node)
{
    if (const std::optional<QStringList> chain = ArchiveTable::classChain(node))
        return classTable(*chain);
    const ArchiveValue value = ArchiveTable::scalar(node);
    if (const QString *const text = std::get_if<QString>(&value.storage))
        return *text == "$null" ? 0 : add(*text);
    if (const qint64 *const integer = std::get_if<qint64>(&value.storage))
        return add(*integer);
    if (const double *const real = std::get_if<double>(&value.storage))
        return add(*real);
    const bool *const flag = std::get_if<bool>(&value.storage);
    return flag ? std::optional(add(*flag)) : std::nullopt;
}

void TableWriter::findPlaces(const ArchiveValue &value)
{
    if (const ArchiveList *const list = std::get_if<ArchiveList>(&value.storage)) {
        for (const ArchiveValue &entry : **list)
            findPlaces(entry);
    }
    const ArchiveObjectPointer *const object = std::get_if<ArchiveObjectPointer>(&value.storage);
    const auto source = object ? (*object)->place().source.lock() : nullptr;
    if (!source)
        return;
    ArchiveObjectPointer &known = m_places[Place(source.get(), (*object)->place().index)];
    if (!known || (known->place().isCopy && !(*object)->place().isCopy))
        known = *object;
}

TableWriter::Index TableWriter::add(bool flag)
{
    return once(flag ? "boolean 1" : "boolean 0", [&] { return append(plist_new_bool(flag)); });
}

TableWriter::Index TableWriter::add(qint64 integer)
{
    return once("integer " + QByteArray::number(integer),
                [&] { return append(plist_new_uint(static_cast<quint64>(integer))); });
}

TableWriter::Index TableWriter::add(double real)
{
    return once("real " + QByteArray::number(std::bit_cast<quint64>(real)),
                [&] { return append(plist_new_real(real)); });
}

TableWriter::Index TableWriter::add(const QString &text)
{
    if (text.contains(QChar(u'\0')))
        return refuse(
            QString("The text \"%1\" has a NUL in it; type it anew.").arg(text.left(40).remove(QChar(u'\0'))));
    // Half a surrogate pair is written as a question mark, so texts are equal as they are written.
    const QByteArray written = text.toUtf8();
    return once("text " + written, [&] {
        if (written != "$null")
            return append(PropertyList::newText(written));
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
    return once("colour " + *components, [&] {
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
    return once("address " + texts.join(QChar(u'\0')).toUtf8(), [&] {
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
    for (const ArchiveValue &entry : *list) {
        const UnknownValue *const unknown = std::get_if<UnknownValue>(&entry.storage);
        plist_array_append_item(entries, unknown ? copy(*unknown) : referenceTo(entry));
    }
    setClass(record, {"NSMutableArray", "NSArray", "NSObject"});
    return index;
}

TableWriter::Index TableWriter::add(const ArchiveObjectPointer &object)
{
    if (m_shared.contains(object.get()) && !m_reserved.contains(object.get()))
        return m_shared.value(object.get());
    const Index index = reserved(object.get());
    plist_t record = m_reserved.take(object.get());
    setEntries(record, *object);
    setClass(record, {object->className(), "NSObject"});
    return index;
}
} // namespace

Result<QByteArray> KeyedArchive::writeContents(const Contents &contents)
{
    return TableWriter().write(contents);
}
