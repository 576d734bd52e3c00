#include "archive/ArchiveTable.h"

#include <algorithm>
#include <utility>

ArchiveTable::ArchiveTable(std::vector<plist_t> objects, const QStringList &classNames)
    : m_objects(std::move(objects)), m_classNames(classNames), m_entries(m_objects.size())
{}

Result<ArchiveValue> ArchiveTable::root(quint64 index)
{
    m_root = index;
    const ArchiveValue value = entry(index);
    if (m_failure)
        return tl::unexpected(*m_failure);
    if (const ArchiveFault *const found = std::get_if<ArchiveFault>(&value.storage))
        return fail(QString("The archive is damaged: its root is %1.").arg(found->found));
    return value;
}

ArchiveValue ArchiveTable::entry(quint64 index)
{
    if (m_failure || index == 0)
        return {};
    if (index >= m_entries.size())
        return fault(QString("a reference to object %1 of %2").arg(index).arg(m_entries.size()));
    Entry &entry = m_entries[index];
    if (entry.state == Entry::Open) {
        if (index == m_root)
            m_failure = Error{"The archive is damaged: its root contains itself."};
        return fault("an object that contains itself");
    }
    if (entry.state == Entry::Unread)
        readEntry(entry, m_objects[index]);

    m_cost.values += entry.cost.values;
    m_cost.depth = std::max(m_cost.depth, entry.cost.depth + 1);
    if (m_cost.values > maximumValues)
        m_failure =
            Error{QString("The archive is too large: more than %1 million values.").arg(maximumValues / 1'000'000)};
    return entry.value;
}

void ArchiveTable::readEntry(Entry &entry, plist_t node)
{
    entry.state = Entry::Open;
    const Cost outer = std::exchange(m_cost, Cost());
    // The last may be a plain value. What is left out deeper down makes the outermost too deep.
    if (++m_openEntries <= maximumDepth + 1)
        entry.value = convert(node);
    --m_openEntries;
    entry.cost = std::exchange(m_cost, outer);
    entry.state = Entry::Read;
    if (entry.cost.depth > maximumDepth)
        m_failure = Error{QString("The archive is nested more than %1 deep.").arg(maximumDepth)};
}

ArchiveValue ArchiveTable::convert(plist_t node)
{
    if (PropertyList::reference(node))
        return fault("a reference to a reference");
    if (plist_get_node_type(node) == PLIST_DICT)
        return record(node);
    const ArchiveValue value = scalar(node);
    const QString *const text = std::get_if<QString>(&value.storage);
    return text && *text == "$null" ? ArchiveValue() : value;
}

ArchiveValue ArchiveTable::scalar(plist_t node)
{
    switch (node ? plist_get_node_type(node) : PLIST_NONE) {
    case PLIST_BOOLEAN: {
        uint8_t flag = 0;
        plist_get_bool_val(node, &flag);
        return {flag != 0};
    }
    case PLIST_UINT: {
        const std::optional<qint64> integer = PropertyList::integer(node);
        return integer ? ArchiveValue{*integer} : fault("a number beyond 2^63 - 1");
    }
    case PLIST_REAL: {
        double real = 0;
        plist_get_real_val(node, &real);
        return {real};
    }
    case PLIST_STRING: {
        const QString text = *PropertyList::text(node);
        return text.contains(QChar(u'\0')) ? fault("a text with a NUL in it") : ArchiveValue{text};
    }
    case PLIST_DATA:
        return {*PropertyList::data(node)};
    case PLIST_DATE:
        return fault("a date");
    case PLIST_ARRAY:
        return fault("a list without a class");
    case PLIST_DICT:
        return fault("a record without a class");
    default:
        return fault("a value of an unknown type");
    }
}

ArchiveValue ArchiveTable::member(plist_t node)
{
    if (!node)
        return {};
    ++m_cost.values;
    if (const std::optional<quint64> index = PropertyList::reference(node))
        return entry(*index);
    return scalar(node);
}

ArchiveValue ArchiveTable::record(plist_t node)
{
    const std::optional<RecordClass> recordClass = classOf(PropertyList::value(node, "$class"));
    if (!recordClass)
        return fault("a record without a class");
    if (recordClass->decoder)
        return (this->*recordClass->decoder)(node);
    if (recordClass->isOwn)
        return object(node, recordClass->name);
    return fault("an object of the unknown class " + recordClass->name.left(60));
}

std::optional<ArchiveTable::RecordClass> ArchiveTable::classOf(plist_t node)
{
    const std::optional<quint64> index = PropertyList::reference(node);
    if (!index || *index >= m_objects.size() || !PropertyList::value(m_objects[*index], "$classname"))
        return {};
    const auto known = m_classes.constFind(*index);
    if (known != m_classes.cend())
        return *known;
    return *m_classes.insert(*index, readClass(m_objects[*index]));
}

ArchiveTable::RecordClass ArchiveTable::readClass(plist_t table) const
{
    const QString ownName = PropertyList::text(PropertyList::value(table, "$classname")).value_or("?");
    QStringList chain{ownName};
    for (plist_t base : PropertyList::entries(PropertyList::value(table, "$classes")))
        chain.append(PropertyList::text(base).value_or("?"));
    for (const QString &name : std::as_const(chain)) {
        if (const Decoder decoder = platformDecoder(name))
            return {name, decoder, false};
        if (m_classNames.contains(name))
            return {name, nullptr, true};
    }
    return {ownName, nullptr, false};
}

ArchiveValue ArchiveTable::object(plist_t record, const QString &className)
{
    const auto result = std::make_shared<ArchiveObject>(className);
    for (const auto &[key, node] : PropertyList::members(record)) {
        if (!key.startsWith('$'))
            result->encode(key, member(node));
    }
    return {ArchiveObjectPointer(result)};
}
