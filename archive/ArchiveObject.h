#pragma once

#include "archive/Address.h"
#include "base/Colour.h"
#include "base/Result.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

class ArchiveObject;
struct ArchiveSource;
struct ArchiveValue;

/// Indexes of rows, as the platform's index set holds them: ascending, no two ranges touching, none empty,
/// all below 2^63.
struct IndexSet
{
    struct Range
    {
        quint64 location = 0;
        quint64 length = 0;
        bool operator==(const Range &) const = default;
    };
    std::vector<Range> ranges;

    bool operator==(const IndexSet &) const = default;
};

/// A value that stands in the archive but cannot be understood (a pattern colour, a reference beyond the table, an
/// object of an unknown class): reading goes on, and whoever asks for the value gets it named in an error.
struct ArchiveFault
{
    /// What was found, as a noun: "a pattern image", "an object of the unknown class Palette".
    QString found;
    bool operator==(const ArchiveFault &) const = default;
};

/// A value that stands in an archive under a name which this version does not know. It is not decoded, whatever it is,
/// and is written again as it came, with all that it refers to: objects keep their classes, and what refers to the
/// root, or to an object that is written anew, refers to that again. It keeps the archive that it came from in memory.
struct UnknownValue
{
    std::shared_ptr<const ArchiveSource> source;
    void *node = nullptr; ///< libplist's, of that archive
    bool operator==(const UnknownValue &) const = default;
};

/// An ordered list; shared, since a table may refer to one list from many places. Never null within a value.
using ArchiveList = std::shared_ptr<const std::vector<ArchiveValue>>;
using ArchiveObjectPointer = std::shared_ptr<const ArchiveObject>;

/// One checked value of a keyed archive. The default is nil.
///
/// The to...() functions say what the value is for their caller. `subject` is how the caller calls the value, and
/// begins the error: `layer 3 is a number, expected an object`. Each refuses a value of another kind.
struct ArchiveValue
{
    using Storage = std::variant<std::monostate, bool, qint64, double, QString, QByteArray, Colour, Address, IndexSet,
                                 ArchiveList, ArchiveObjectPointer, ArchiveFault, UnknownValue>;
    Storage storage;

    /// A value that is a new list of `entries`.
    static ArchiveValue list(std::vector<ArchiveValue> entries);

    bool isNil() const { return std::holds_alternative<std::monostate>(storage); }
    /// What it is, for messages: "nil", "a boolean", "a number", "a text", "data", "a colour", "an address",
    /// "an index set", "a list", "an object of class LWScreen", "an unknown value", or what a fault found.
    QString kind() const;

    /// nil is 0; booleans (0 or 1) and whole reals are taken. Error: outside 32 bits, too.
    [[nodiscard]] Result<qint32> toInt32(const QString &subject) const;
    /// nil is false; the numbers 0 and 1 are taken.
    [[nodiscard]] Result<bool> toBool(const QString &subject) const;
    /// Absent for nil.
    [[nodiscard]] Result<OptionalColour> toColour(const QString &subject) const;
    /// Null for nil; a text of no letters is empty, not null.
    [[nodiscard]] Result<QString> toText(const QString &subject) const;
    /// Absent for nil. Error: an entry that is no text, too; the message names the entry.
    [[nodiscard]] Result<std::optional<QStringList>> toTextList(const QString &subject) const;
    /// The nil address for nil.
    [[nodiscard]] Result<Address> toAddress(const QString &subject) const;
    /// nil is refused here and below.
    [[nodiscard]] Result<IndexSet> toIndexSet(const QString &subject) const;
    [[nodiscard]] Result<ArchiveList> toList(const QString &subject) const;
    [[nodiscard]] Result<ArchiveObjectPointer> toObject(const QString &subject) const;
};

/// Values under text keys, in their order.
using ArchiveEntries = std::vector<std::pair<QString, ArchiveValue>>;

/// Where an object stood in the archive that it was read from.
struct ArchivePlace
{
    std::weak_ptr<const ArchiveSource> source; ///< alive while something unknown came from it
    quint64 index = 0;
    bool isCopy = false; ///< of an object from there: what refers to that one leads here only where it is gone
};

/// A record with a class: values under text keys, in the order in which they were encoded. One without a class is a
/// plain dictionary, which stands in place and is referred to by nobody.
///
/// Reading: a key that is absent gives 0, false or nil. A value of another kind is an error that names the key, what
/// was found and what was expected: `"rectcolor" is a number, expected a colour`.
class ArchiveObject
{
public:
    explicit ArchiveObject(QString className) : m_className(std::move(className)) {}

    const QString &className() const { return m_className; }
    const ArchiveEntries &entries() const { return m_entries; }
    bool contains(const QString &key) const { return m_indexOfKey.contains(key); }
    /// The value under `key`, nil where it is absent.
    const ArchiveValue &value(const QString &key) const;

    /// Its place and what it holds under unknown keys, as an object of their own.
    ArchiveObjectPointer unknownPart() const;
    /// Takes such a part over, behind what is encoded already.
    void encodeUnknownPart(const ArchiveObject &part);
    const ArchivePlace &place() const { return m_place; }
    void setPlace(const ArchivePlace &place) { m_place = place; }

    /// Each key is encoded once; encoding a key again replaces its value in place. Keys that begin with "$" are the
    /// format's own.
    void encode(const QString &key, ArchiveValue value);
    void encodeInt32(const QString &key, qint32 value) { encode(key, {qint64{value}}); }
    void encodeBool(const QString &key, bool value) { encode(key, {value}); }
    void encodeColour(const QString &key, const OptionalColour &colour);
    /// A null string is nil.
    void encodeText(const QString &key, const QString &text);
    void encodeTextList(const QString &key, const std::optional<QStringList> &texts);
    void encodeAddress(const QString &key, const Address &address);

    /// As the to...() functions of the value, with the key in quotes for a subject.
    [[nodiscard]] Result<qint32> decodeInt32(const QString &key) const;
    [[nodiscard]] Result<bool> decodeBool(const QString &key) const;
    [[nodiscard]] Result<OptionalColour> decodeColour(const QString &key) const;
    [[nodiscard]] Result<QString> decodeText(const QString &key) const;
    [[nodiscard]] Result<std::optional<QStringList>> decodeTextList(const QString &key) const;
    [[nodiscard]] Result<Address> decodeAddress(const QString &key) const;

private:
    QString m_className;
    ArchivePlace m_place;
    ArchiveEntries m_entries;
    QHash<QString, std::size_t> m_indexOfKey;
};
