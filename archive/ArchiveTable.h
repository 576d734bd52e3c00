#pragma once

#include "archive/ArchiveObject.h"
#include "archive/PropertyList.h"

#include <QStringList>

#include <optional>
#include <vector>

/// The table of an archive, `$objects`, while it is read: each entry is turned into a value once, when it is first
/// referred to, and shared from then on.
class ArchiveTable
{
public:
    /// Objects inside each other.
    static constexpr int maximumDepth = 64;
    /// Values that the root would hold if nothing were shared; who walks it meets no more than these.
    static constexpr quint64 maximumValues = 8'000'000;

    /// `objects` are the nodes of the table and outlive it.
    ArchiveTable(std::vector<plist_t> objects, const QStringList &classNames);

    /// The value at `index`. Error: an index beyond the table, a root that is not understood or contains itself, or
    /// the table is too deep or too large.
    [[nodiscard]] Result<ArchiveValue> root(quint64 index);

private:
    /// A value that is not understood where it stands.
    static ArchiveValue fault(const QString &found) { return {ArchiveFault{found}}; }

    using Decoder = ArchiveValue (ArchiveTable::*)(plist_t record);

    struct Cost
    {
        /// Values below this one, shared ones as often as they are referred to.
        quint64 values = 0;
        /// Objects inside each other below this one.
        int depth = 0;
    };
    struct Entry
    {
        enum
        {
            Unread,
            Open,
            Read
        } state = Unread;
        Cost cost;
        ArchiveValue value;
    };
    /// What the class table of a record comes down to.
    struct RecordClass
    {
        QString name;
        Decoder decoder = nullptr;
        /// The class is one of the caller's.
        bool isOwn = false;
    };

    ArchiveValue entry(quint64 index);
    void readEntry(Entry &entry, plist_t node);
    ArchiveValue convert(plist_t node);
    /// A number, text or data that needs no other entry of the table.
    static ArchiveValue scalar(plist_t node);
    /// A value that stands in a record: in place or by reference.
    ArchiveValue member(plist_t node);
    ArchiveValue member(plist_t record, const char *key) { return member(PropertyList::value(record, key)); }

    ArchiveValue record(plist_t node);
    /// None where `node` is no reference to a class table.
    std::optional<RecordClass> classOf(plist_t node);
    /// The first class of the chain that somebody knows.
    RecordClass readClass(plist_t table) const;
    static Decoder platformDecoder(const QString &className);

    ArchiveValue object(plist_t record, const QString &className);
    ArchiveValue list(plist_t record);
    ArchiveValue text(plist_t record);
    ArchiveValue data(plist_t record);
    ArchiveValue address(plist_t record);
    ArchiveValue indexSet(plist_t record);
    ArchiveValue colour(plist_t record);
    ArchiveValue namedColour(plist_t record);
    ArchiveValue colourFrom(plist_t record, const char *key, std::initializer_list<int> models, bool alphaIsGiven);
    bool hasOwnColourSpace(plist_t record) const;

    std::vector<plist_t> m_objects;
    QStringList m_classNames;
    std::vector<Entry> m_entries;
    QHash<quint64, RecordClass> m_classes;
    quint64 m_root = 0;
    /// Of the entry that is being read.
    Cost m_cost;
    int m_openEntries = 0;
    /// Once set, reading comes to its end as fast as it can.
    std::optional<Error> m_failure;
};
