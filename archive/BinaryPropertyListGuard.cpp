#include "archive/PropertyListGuard.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace {
constexpr quint64 headerSize = 8; // "bplist00"
constexpr quint64 trailerSize = 32;

enum Marker : quint8
{
    Simple = 0x0,
    Integer = 0x1,
    Real = 0x2,
    Date = 0x3,
    Data = 0x4,
    Ascii = 0x5,
    Utf16 = 0x6,
    Uid = 0x8,
    Array = 0xA,
    Set = 0xC,
    Dictionary = 0xD,
};

tl::unexpected<Error> damaged(const QString &what)
{
    return fail("The binary property list is damaged: " + what + ".");
}

tl::unexpected<Error> tooLarge()
{
    return fail(QString("The property list is too large: more than %1 million values or %2 MiB.")
                    .arg(PropertyListGuard::maximumValues / 1'000'000)
                    .arg(PropertyListGuard::maximumBytes >> 20));
}

/// Walks everything that the top object reaches, each object once, with a stack of its own. A reference that is
/// followed adds to the values of the object it stands in, so that their limit bounds the walk too, even where objects
/// overlap.
class BinaryGuard
{
public:
    explicit BinaryGuard(const QByteArray &bytes) : m_bytes(bytes) {}

    Result<void> readTrailer();
    Result<void> walk();

private:
    /// What an object costs when it is copied out with all that it refers to.
    struct Cost
    {
        quint32 values = 0;
        quint32 bytes = 0;
        /// Containers inside each other, a container itself included.
        quint8 depth = 0;
        enum : quint8
        {
            Unseen,
            Open,
            Known
        } state = Unseen;
        /// Looked at as a dictionary's key, and found fit to be one.
        bool isKey = false;
    };
    /// An object as its marker describes it.
    struct Object
    {
        quint64 copiedBytes = 0;
        quint64 references = 0; ///< how many
        quint64 referencesAt = 0;
        quint64 keys = 0; ///< how many of the references, from the first on, are a dictionary's keys
    };
    /// Where the letters of a text stand.
    struct Letters
    {
        quint64 position;
        quint64 count;
        quint64 unit; ///< bytes of one
    };
    struct Visit
    {
        quint64 index;
        Object object;
        quint64 next;
    };

    quint64 number(quint64 position, quint64 size) const;
    /// Reads the length that follows a marker whose own four bits are full, and moves `position` behind it.
    Result<quint64> longCount(quint64 &position) const;
    Result<Object> object(quint64 index) const;
    Result<Object> sized(quint8 type, quint64 count, quint64 position) const;
    Result<void> checkKeys(const Object &dictionary);
    Result<bool> isKey(quint64 index) const;
    /// Of an object that object() passes; nullopt: it is no text.
    std::optional<Letters> lettersOf(quint64 index) const;
    bool holdsNul(const Letters &letters) const;
    Result<void> open(quint64 index);
    Result<void> follow(quint64 child);
    Result<void> add(Cost &parent, const Cost &child) const;
    Result<void> close();

    const QByteArray &m_bytes;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_count = 0;
    quint64 m_top = 0;
    quint64 m_tableAt = 0;
    std::vector<Cost> m_costs;
    std::vector<Visit> m_visits;
};

/// Big endian, 1 to 8 bytes; the caller has checked that they are there.
quint64 BinaryGuard::number(quint64 position, quint64 size) const
{
    quint64 result = 0;
    for (quint64 i = 0; i < size; ++i)
        result = result << 8 | static_cast<quint8>(m_bytes[static_cast<qsizetype>(position + i)]);
    return result;
}

Result<void> BinaryGuard::readTrailer()
{
    const quint64 size = static_cast<quint64>(m_bytes.size());
    if (size > PropertyListGuard::maximumBytes)
        return tooLarge();
    if (size < headerSize + trailerSize)
        return damaged("it is shorter than a trailer");
    const quint64 trailerAt = size - trailerSize;
    m_offsetSize = number(trailerAt + 6, 1);
    m_referenceSize = number(trailerAt + 7, 1);
    m_count = number(trailerAt + 8, 8);
    m_top = number(trailerAt + 16, 8);
    m_tableAt = number(trailerAt + 24, 8);
    if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
        return damaged("its trailer gives impossible sizes");
    if (m_tableAt < headerSize || m_tableAt > trailerAt || m_count > (trailerAt - m_tableAt) / m_offsetSize)
        return damaged("its offset table does not fit the file");
    if (m_top >= m_count)
        return damaged("its top object is missing");
    if (m_count > PropertyListGuard::maximumValues)
        return tooLarge();
    return {};
}

Result<quint64> BinaryGuard::longCount(quint64 &position) const
{
    if (position >= m_tableAt)
        return damaged("a length is cut off");
    const quint8 marker = static_cast<quint8>(m_bytes[static_cast<qsizetype>(position)]);
    const quint64 size = 1ULL << (marker & 0xF);
    if (marker >> 4 != Integer || size > 8 || size >= m_tableAt - position)
        return damaged("a length is no integer");
    const quint64 count = number(position + 1, size);
    position += 1 + size;
    return count;
}

Result<BinaryGuard::Object> BinaryGuard::object(quint64 index) const
{
    const quint64 offset = number(m_tableAt + index * m_offsetSize, m_offsetSize);
    if (offset < headerSize || offset >= m_tableAt)
        return damaged(QString("object %1 stands outside the file").arg(index));
    const quint8 marker = static_cast<quint8>(m_bytes[static_cast<qsizetype>(offset)]);
    const quint8 type = marker >> 4;
    quint64 count = marker & 0xF;
    quint64 position = offset + 1;
    const bool hasCount = type == Data || type == Ascii || type == Utf16 || type >= Array;
    if (hasCount && count == 0xF) {
        const Result<quint64> given = longCount(position);
        if (!given)
            return tl::unexpected(given.error());
        count = *given;
    }
    return sized(type, count, position);
}

/// Holds the object's length against the bytes that are left before the offset table.
Result<BinaryGuard::Object> BinaryGuard::sized(quint8 type, quint64 count, quint64 position) const
{
    quint64 unit = 1; // bytes of one piece in the file
    quint64 pieces = count;
    quint64 copied = 1;
    switch (type) {
    case Simple:
        pieces = 0;
        break;
    case Integer:
    case Real: // the four bits are a power of two
    case Date:
        pieces = 1ULL << count;
        break;
    case Uid:
        pieces = count + 1;
        break;
    case Data:
    case Ascii:
        break;
    case Utf16:
        unit = 2;
        copied = 3; // three bytes of UTF-8 at most
        break;
    case Array:
    case Set:
        unit = m_referenceSize;
        break;
    case Dictionary:
        unit = 2 * m_referenceSize;
        break;
    default:
        return damaged(QString("it holds a value of the unknown type %1").arg(type));
    }
    if (pieces > (m_tableAt - position) / unit)
        return damaged("a value is longer than the file");
    if (type < Array)
        return Object{pieces * copied, 0, 0, 0};
    const bool isDictionary = type == Dictionary;
    return Object{0, isDictionary ? 2 * count : count, position, isDictionary ? count : 0};
}

/// libplist ends the program where a key is no text or holds a NUL.
Result<void> BinaryGuard::checkKeys(const Object &dictionary)
{
    for (quint64 i = 0; i < dictionary.keys; ++i) {
        const quint64 index = number(dictionary.referencesAt + i * m_referenceSize, m_referenceSize);
        if (index >= m_count)
            return damaged("it refers beyond its offset table");
        if (m_costs[index].isKey)
            continue;
        const Result<bool> fit = isKey(index);
        if (!fit)
            return tl::unexpected(fit.error());
        if (!*fit)
            return damaged(QString("object %1 is no text for a key").arg(index));
        m_costs[index].isKey = true;
    }
    return {};
}

Result<bool> BinaryGuard::isKey(quint64 index) const
{
    const Result<Object> found = object(index);
    if (!found)
        return tl::unexpected(found.error());
    const std::optional<Letters> letters = lettersOf(index);
    return letters && !holdsNul(*letters);
}

std::optional<BinaryGuard::Letters> BinaryGuard::lettersOf(quint64 index) const
{
    const quint64 offset = number(m_tableAt + index * m_offsetSize, m_offsetSize);
    const quint8 marker = static_cast<quint8>(m_bytes[static_cast<qsizetype>(offset)]);
    const quint8 type = marker >> 4;
    if (type != Ascii && type != Utf16)
        return std::nullopt;

    quint64 position = offset + 1;
    quint64 count = marker & 0xF;
    if (count == 0xF)
        count = longCount(position).value();
    return Letters{position, count, type == Utf16 ? 2U : 1U};
}

bool BinaryGuard::holdsNul(const Letters &letters) const
{
    for (quint64 i = 0; i < letters.count; ++i) {
        if (number(letters.position + i * letters.unit, letters.unit) == 0)
            return true;
    }
    return false;
}

Result<void> BinaryGuard::open(quint64 index)
{
    const Result<Object> found = object(index);
    if (!found)
        return tl::unexpected(found.error());
    if (found->copiedBytes > PropertyListGuard::maximumBytes)
        return tooLarge();
    const std::optional<Letters> letters = lettersOf(index);
    if (letters && holdsNul(*letters)) // libplist would end the text there
        return damaged(QString("object %1 is a text with a NUL in it").arg(index));
    if (m_visits.size() > PropertyListGuard::maximumDepth)
        return damaged(QString("it is nested more than %1 deep").arg(PropertyListGuard::maximumDepth));
    const quint8 depth = found->referencesAt == 0 ? 0 : 1;
    Result<void> keys = checkKeys(*found);
    if (!keys)
        return keys;
    m_costs[index] = {1, static_cast<quint32>(found->copiedBytes), depth, Cost::Open, m_costs[index].isKey};
    m_visits.push_back({index, *found, 0});
    return {};
}

Result<void> BinaryGuard::add(Cost &parent, const Cost &child) const
{
    const quint64 values = quint64{parent.values} + child.values;
    const quint64 bytes = quint64{parent.bytes} + child.bytes;
    if (values > PropertyListGuard::maximumValues || bytes > PropertyListGuard::maximumBytes)
        return tooLarge();
    if (child.depth >= PropertyListGuard::maximumDepth)
        return damaged(QString("it is nested more than %1 deep").arg(PropertyListGuard::maximumDepth));
    parent.values = static_cast<quint32>(values);
    parent.bytes = static_cast<quint32>(bytes);
    parent.depth = std::max<quint8>(parent.depth, child.depth + 1);
    return {};
}

Result<void> BinaryGuard::follow(quint64 child)
{
    if (child >= m_count)
        return damaged("it refers beyond its offset table");
    switch (m_costs[child].state) {
    case Cost::Open:
        return damaged(QString("object %1 contains itself").arg(child));
    case Cost::Known:
        return add(m_costs[m_visits.back().index], m_costs[child]);
    case Cost::Unseen:
        break;
    }
    return open(child);
}

Result<void> BinaryGuard::close()
{
    Cost &cost = m_costs[m_visits.back().index];
    cost.state = Cost::Known;
    m_visits.pop_back();
    return m_visits.empty() ? Result<void>() : add(m_costs[m_visits.back().index], cost);
}

Result<void> BinaryGuard::walk()
{
    m_costs.resize(m_count);
    Result<void> step = open(m_top);
    while (step && !m_visits.empty()) {
        Visit &visit = m_visits.back();
        if (visit.next == visit.object.references)
            step = close();
        else
            step = follow(number(visit.object.referencesAt + visit.next++ * m_referenceSize, m_referenceSize));
    }
    return step;
}
} // namespace

Result<void> PropertyListGuard::checkBinary(const QByteArray &bytes)
{
    BinaryGuard guard(bytes);
    const Result<void> trailer = guard.readTrailer();
    return trailer ? guard.walk() : trailer;
}
