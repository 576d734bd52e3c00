#pragma once

#include "archive/ArchiveSource.h"
#include "archive/KeyedArchive.h"

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

    ArchiveTable(std::shared_ptr<const ArchiveSource> source, KeyedArchive::Vocabulary vocabulary);

    /// The source's root. Error: an index beyond the table, a root that is not understood or contains itself, or
    /// the table is too deep or too large.
    [[nodiscard]] Result<ArchiveValue> root();
    /// What stands beside the root in `$top`. Error: that of root().
    [[nodiscard]] Result<ArchiveEntries> besideRoot(plist_t top);

    /// A number, text or data that needs no other entry of the table; a fault for anything else.
    static ArchiveValue scalar(plist_t node);
    /// Whether a record is the class table of other records, and which: its name and those of its bases.
    static std::optional<QStringList> classChain(plist_t node);

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
    void readEntry(quint64 index);
    ArchiveValue convert(plist_t node);
    ArchiveValue unknown(plist_t node);
    /// A value under a key that others may use.
    ArchiveValue shared(plist_t node, const std::function<bool(const ArchiveValue &)> &isTaken);
    /// Whether a value is a list of objects of one of the caller's classes, and has some.
    bool isListOf(plist_t node, const QString &className);
    /// The entry that a node refers to, or the node; null for a reference that leads nowhere.
    plist_t target(plist_t node) const;
    /// A number, data, a text or nil; a fault for what would need more to be read.
    ArchiveValue plain(plist_t node);
    /// A value that stands in a record: in place or by reference.
    ArchiveValue member(plist_t node);
    ArchiveValue member(plist_t record, const char *key) { return member(PropertyList::value(record, key)); }

    ArchiveValue record(plist_t node);
    /// None where `node` is no reference to a class table.
    std::optional<RecordClass> classOf(plist_t node);
    /// The first class of the chain that somebody knows.
    RecordClass readClass(plist_t table) const;
    static Decoder platformDecoder(const QString &className);

    ArchiveValue object(plist_t record, const QString &className, const std::optional<QSet<QString>> &keys);
    ArchiveValue list(plist_t record);
    ArchiveValue text(plist_t record);
    ArchiveValue data(plist_t record);
    ArchiveValue address(plist_t record);
    ArchiveValue indexSet(plist_t record);
    ArchiveValue colour(plist_t record);
    ArchiveValue namedColour(plist_t record);
    ArchiveValue colourFrom(plist_t record, const char *key, std::initializer_list<int> models, bool alphaIsGiven);
    bool hasOwnColourSpace(plist_t record) const;

    std::shared_ptr<const ArchiveSource> m_source;
    KeyedArchive::Vocabulary m_vocabulary;
    std::vector<Entry> m_entries;
    QHash<quint64, RecordClass> m_classes;
    /// Of the entry that is being read.
    Cost m_cost;
    quint64 m_index = 0;
    int m_openEntries = 0;
    /// Once set, reading comes to its end as fast as it can.
    std::optional<Error> m_failure;
};
