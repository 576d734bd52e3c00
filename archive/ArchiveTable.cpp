#include "archive/ArchiveTable.h"

#include <algorithm>
#include <utility>

ArchiveTable::ArchiveTable(std::shared_ptr<const ArchiveSource> source, KeyedArchive::Vocabulary vocabulary)
    : m_source(std::move(source)), m_vocabulary(std::move(vocabulary)), m_entries(m_source->objects.size())
{}

Result<ArchiveValue> ArchiveTable::root()
{
    const ArchiveValue value = entry(m_source->root);
    if (m_failure)
        return tl::unexpected(*m_failure);
    if (const ArchiveFault *const found = std::get_if<ArchiveFault>(&value.storage))
        return fail(QString("The archive is damaged: its root is %1.").arg(found->found));
    return value;
}

Result<ArchiveEntries> ArchiveTable::besideRoot(plist_t top)
{
    ArchiveEntries entries;
    for (const auto &[key, node] : PropertyList::members(top)) {
        if (key == "root")
            continue;
        const bool isDictionary = plist_get_node_type(node) == PLIST_DICT && !PropertyList::reference(node);
        const bool isKnown = key == m_vocabulary.topDictionary && isDictionary;
        entries.emplace_back(key, isKnown ? object(node, {}, m_vocabulary.topKeys) : unknown(node));
    }
    if (m_failure)
        return tl::unexpected(*m_failure);
    return entries;
}

ArchiveValue ArchiveTable::entry(quint64 index)
{
    if (m_failure || index == 0)
        return {};
    if (index >= m_entries.size())
        return fault(QString("a reference to object %1 of %2").arg(index).arg(m_entries.size()));
    Entry &entry = m_entries[index];
    if (entry.state == Entry::Open) {
        if (index == m_source->root)
            m_failure = Error{"The archive is damaged: its root contains itself."};
        return fault("an object that contains itself");
    }
    if (entry.state == Entry::Unread)
        readEntry(index);

    m_cost.values += entry.cost.values;
    m_cost.depth = std::max(m_cost.depth, entry.cost.depth + 1);
    if (m_cost.values > maximumValues)
        m_failure =
            Error{QString("The archive is too large: more than %1 million values.").arg(maximumValues / 1'000'000)};
    return entry.value;
}

void ArchiveTable::readEntry(quint64 index)
{
    Entry &entry = m_entries[index];
    entry.state = Entry::Open;
    const Cost outer = std::exchange(m_cost, Cost());
    const quint64 outerIndex = std::exchange(m_index, index);
    // The last may be a plain value. What is left out deeper down makes the outermost too deep.
    if (++m_openEntries <= maximumDepth + 1)
        entry.value = convert(m_source->objects[index]);
    --m_openEntries;
    m_index = outerIndex;
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

ArchiveValue ArchiveTable::unknown(plist_t node)
{
    ++m_cost.values;
    return {UnknownValue{m_source, node}};
}

ArchiveValue ArchiveTable::shared(plist_t node, const std::function<bool(const ArchiveValue &)> &isTaken)
{
    ArchiveValue value = plain(node);
    if (!isTaken(value))
        return unknown(node);
    ++m_cost.values;
    return value;
}

bool ArchiveTable::isListOf(plist_t node, const QString &className)
{
    const auto recordClass = [this](plist_t value) {
        plist_t record = target(value);
        const bool isRecord = record && plist_get_node_type(record) == PLIST_DICT;
        return isRecord ? classOf(PropertyList::value(record, "$class")).value_or(RecordClass()) : RecordClass();
    };
    if (recordClass(node).decoder != &ArchiveTable::list)
        return false;
    plist_t array = PropertyList::value(target(node), "NS.objects");
    const bool isArray = array && plist_get_node_type(array) == PLIST_ARRAY;
    const std::vector<plist_t> nodes = isArray ? PropertyList::entries(array) : std::vector<plist_t>();
    m_cost.values += nodes.size(); // each time anew: a list may be referred to from everywhere
    return !nodes.empty() &&
           std::ranges::all_of(nodes, [&](plist_t entry) { return recordClass(entry).name == className; });
}

plist_t ArchiveTable::target(plist_t node) const
{
    const std::optional<quint64> index = PropertyList::reference(node);
    if (!index)
        return node;
    return *index < m_source->objects.size() ? m_source->objects[*index] : nullptr;
}

ArchiveValue ArchiveTable::plain(plist_t node)
{
    plist_t found = target(node);
    const bool isRecord = found && plist_get_node_type(found) == PLIST_DICT;
    if (!isRecord) {
        const ArchiveValue value = scalar(found);
        const QString *const text = std::get_if<QString>(&value.storage);
        return found != node && text && *text == "$null" ? ArchiveValue() : value;
    }
    const std::optional<RecordClass> recordClass = classOf(PropertyList::value(found, "$class"));
    if (!recordClass || recordClass->decoder != &ArchiveTable::text)
        return fault("a record");
    const ArchiveValue letters = scalar(target(PropertyList::value(found, "NS.string")));
    return std::holds_alternative<QString>(letters.storage) ? letters : fault("a text without letters");
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
        return object(node, recordClass->name, m_vocabulary.classes.value(recordClass->name));
    return fault("an object of the unknown class " + recordClass->name.left(60));
}

std::optional<ArchiveTable::RecordClass> ArchiveTable::classOf(plist_t node)
{
    const std::optional<quint64> index = PropertyList::reference(node);
    const std::vector<plist_t> &objects = m_source->objects;
    if (!index || *index >= objects.size() || !PropertyList::value(objects[*index], "$classname"))
        return {};
    const auto known = m_classes.constFind(*index);
    if (known != m_classes.cend())
        return *known;
    return *m_classes.insert(*index, readClass(objects[*index]));
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
        if (m_vocabulary.classes.contains(name))
            return {name, nullptr, true};
    }
    return {ownName, nullptr, false};
}

std::optional<QStringList> ArchiveTable::classChain(plist_t node)
{
    const std::optional<QString> name = PropertyList::text(PropertyList::value(node, "$classname"));
    QStringList chain;
    for (plist_t base : PropertyList::entries(PropertyList::value(node, "$classes")))
        chain.append(PropertyList::text(base).value_or(QString()));
    const bool isPlain = name && plist_dict_get_size(node) == 2 && !chain.isEmpty() && chain.first() == *name;
    return isPlain ? std::optional(chain) : std::nullopt;
}

ArchiveValue ArchiveTable::object(plist_t record, const QString &className, const std::optional<QSet<QString>> &keys)
{
    const auto result = std::make_shared<ArchiveObject>(className);
    result->setPlace({m_source, m_index});
    for (const auto &[key, node] : PropertyList::members(record)) {
        const bool isKnown = !keys || keys->contains(key);
        const auto isTaken = m_vocabulary.sharedKeys.constFind(key);
        if (isKnown && isTaken != m_vocabulary.sharedKeys.cend())
            result->encode(key, shared(node, *isTaken));
        else if (const QString listed = m_vocabulary.sharedLists.value(key); isKnown && !listed.isEmpty())
            result->encode(key, isListOf(node, listed) ? member(node) : unknown(node));
        else if (isKnown ? !key.startsWith('$') : key != "$class")
            result->encode(key, isKnown ? member(node) : unknown(node));
    }
    return {ArchiveObjectPointer(result)};
}
