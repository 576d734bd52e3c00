// The platform's own records, one function each.

#include "archive/ArchiveTable.h"
#include "archive/ColourComponents.h"
#include "archive/IndexRanges.h"

/// Base classes stand for their mutable forms, which name them in their chain; both are listed for records whose
/// class table holds no chain.
ArchiveTable::Decoder ArchiveTable::platformDecoder(const QString &className)
{
    static const QHash<QString, Decoder> decoders{
        {"NSArray", &ArchiveTable::list},        {"NSMutableArray", &ArchiveTable::list},
        {"NSString", &ArchiveTable::text},       {"NSMutableString", &ArchiveTable::text},
        {"NSData", &ArchiveTable::data},         {"NSMutableData", &ArchiveTable::data},
        {"NSIndexSet", &ArchiveTable::indexSet}, {"NSMutableIndexSet", &ArchiveTable::indexSet},
        {"NSURL", &ArchiveTable::address},       {"NSColor", &ArchiveTable::colour},
    };
    return decoders.value(className, nullptr);
}

ArchiveValue ArchiveTable::list(plist_t record)
{
    plist_t array = PropertyList::value(record, "NS.objects");
    if (!array || plist_get_node_type(array) != PLIST_ARRAY)
        return fault("a list without entries");
    const std::vector<plist_t> nodes = PropertyList::entries(array);
    std::vector<ArchiveValue> entries;
    entries.reserve(nodes.size());
    const bool isRoot = m_openEntries == 1 && m_index == m_source->root;
    const std::size_t known = isRoot ? m_vocabulary.rootEntries : nodes.size();
    for (plist_t node : nodes) {
        entries.push_back(entries.size() < known ? member(node) : unknown(node));
        if (m_failure)
            return {};
    }
    return ArchiveValue::list(std::move(entries));
}

ArchiveValue ArchiveTable::text(plist_t record)
{
    const ArchiveValue letters = member(record, "NS.string");
    return std::holds_alternative<QString>(letters.storage) ? letters : fault("a text without letters");
}

ArchiveValue ArchiveTable::data(plist_t record)
{
    const ArchiveValue bytes = member(record, "NS.data");
    return std::holds_alternative<QByteArray>(bytes.storage) ? bytes : fault("data without bytes");
}

ArchiveValue ArchiveTable::address(plist_t record)
{
    const ArchiveValue relative = member(record, "NS.relative");
    const ArchiveValue base = member(record, "NS.base");
    const QString *const text = std::get_if<QString>(&relative.storage);
    const Address *const baseAddress = std::get_if<Address>(&base.storage);
    if (!text)
        return fault("an address without a text");
    if (!baseAddress && !base.isNil())
        return fault("an address relative to " + base.kind());
    Address address{*text, {}};
    if (baseAddress)
        address.bases = QStringList(baseAddress->relative) + baseAddress->bases;
    return {address};
}

ArchiveValue ArchiveTable::indexSet(plist_t record)
{
    const Result<qint32> count = member(record, "NSRangeCount").toInt32("NSRangeCount");
    std::optional<std::vector<IndexSet::Range>> ranges;
    if (count == 0) {
        ranges.emplace();
    } else if (count == 1) {
        const ArchiveValue location = member(record, "NSLocation");
        const ArchiveValue length = member(record, "NSLength");
        const qint64 *const first = std::get_if<qint64>(&location.storage);
        const qint64 *const size = std::get_if<qint64>(&length.storage);
        if (first && size && *first >= 0 && *size >= 0)
            ranges = {{static_cast<quint64>(*first), static_cast<quint64>(*size)}};
    } else {
        const ArchiveValue bytes = member(record, "NSRangeData");
        if (const QByteArray *const data = std::get_if<QByteArray>(&bytes.storage))
            ranges = IndexRanges::fromBytes(*data);
    }
    if (!count || !ranges || ranges->size() != static_cast<std::size_t>(*count))
        return fault("an index set with damaged ranges");
    const std::optional<IndexSet> set = IndexRanges::fromRanges(*ranges);
    return set ? ArchiveValue{*set} : fault("an index set with impossible ranges");
}

ArchiveValue ArchiveTable::colour(plist_t record)
{
    // With a space of its own the components count, and the older key is a stand-in.
    if (hasOwnColourSpace(record) && PropertyList::value(record, "NSComponents"))
        return colourFrom(record, "NSComponents", {1, 3, 4}, true);
    const Result<qint32> space = member(record, "NSColorSpace").toInt32("NSColorSpace");
    switch (space.value_or(0)) {
    case 1:
    case 2:
        return colourFrom(record, "NSRGB", {3}, false);
    case 3:
    case 4:
        return colourFrom(record, "NSWhite", {1}, false);
    case 5:
        return colourFrom(record, "NSCMYK", {4}, false);
    case 6:
        return namedColour(record);
    case 10:
        return fault("a pattern image");
    default:
        return fault("a colour of an unknown space");
    }
}

bool ArchiveTable::hasOwnColourSpace(plist_t record) const
{
    return PropertyList::reference(PropertyList::value(record, "NSCustomColorSpace")).value_or(0) != 0;
}

ArchiveValue ArchiveTable::namedColour(plist_t record)
{
    ArchiveValue inside = member(record, "NSColor");
    if (std::holds_alternative<Colour>(inside.storage))
        return inside;
    return fault("a named colour that holds " + inside.kind());
}

ArchiveValue ArchiveTable::colourFrom(plist_t record, const char *key, std::initializer_list<int> models,
                                      bool alphaIsGiven)
{
    const ArchiveValue components = member(record, key);
    const QByteArray *const text = std::get_if<QByteArray>(&components.storage);
    if (!text)
        return fault("a colour without components");
    const Result<Colour> colour = ColourComponents::read(*text, models, alphaIsGiven);
    return colour ? ArchiveValue{*colour} : fault(colour.error().text);
}
