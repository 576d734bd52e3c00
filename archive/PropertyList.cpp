#include "archive/PropertyList.h"

#include "archive/PropertyListGuard.h"
#include "base/Memory.h"
#include "base/System.h"

#include <QStringDecoder>

#include <cstdlib>
#include <limits>

namespace {
struct Free
{
    void operator()(void *memory) const { std::free(memory); }
};
/// Memory that libplist hands out for the C library's free().
template <typename T>
using Allocated = std::unique_ptr<T, Free>;

/// Letter by letter: at the beginning of a file U+FEFF is a mark and no letter, in a text it is one.
QString fromUtf8(const char *letters, qsizetype size)
{
    return QStringDecoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom)
        .decode(QByteArrayView(letters, size));
}

bool isOfType(plist_t node, plist_type type)
{
    return node && plist_get_node_type(node) == type;
}

/// What asking for costs about as much as a small node is not asked for.
constexpr qsizetype largeNode = qsizetype{64} << 10;

void requireFor(const QByteArray &bytes)
{
    if (bytes.size() >= largeNode)
        Memory::require(bytes.size());
}

/// About what an archive takes as bytes: most of it stands in its table of objects.
qsizetype sizeOf(plist_t archive)
{
    constexpr qsizetype usual = 16;
    qsizetype size = 0;
    for (plist_t entry : PropertyList::entries(PropertyList::value(archive, "$objects"))) {
        uint64_t length = 0;
        if (isOfType(entry, PLIST_STRING))
            plist_get_string_ptr(entry, &length);
        else if (isOfType(entry, PLIST_DATA))
            plist_get_data_ptr(entry, &length);
        size += usual + static_cast<qsizetype>(length);
    }
    return size;
}

/// Nodes of data in a list; not by recursion, as it may be deep.
qint64 dataCount(plist_t root)
{
    qint64 count = 0;
    std::vector<plist_t> open{root};
    while (!open.empty()) {
        plist_t node = open.back();
        open.pop_back();
        count += isOfType(node, PLIST_DATA) ? 1 : 0;
        if (isOfType(node, PLIST_DICT)) {
            for (const auto &[key, value] : PropertyList::members(node))
                open.push_back(value);
        } else if (isOfType(node, PLIST_ARRAY)) {
            for (plist_t entry : PropertyList::entries(node))
                open.push_back(entry);
        }
    }
    return count;
}

/// The same of a binary list that libplist has written: its trailer holds, big-endian, the size of an offset in the
/// sixth byte, then that of a reference, the count of objects, the top one and where the offsets are.
qint64 dataCount(const QByteArray &binary)
{
    constexpr int dataMarker = 4;
    const auto number = [&binary](qsizetype at, int size) {
        quint64 value = 0;
        for (const char byte : binary.mid(at, size))
            value = value << 8 | static_cast<uchar>(byte);
        return static_cast<qsizetype>(value);
    };
    const qsizetype trailer = binary.size() - 32;
    const int offsetSize = static_cast<uchar>(binary[trailer + 6]);
    const qsizetype objects = number(trailer + 8, 8);
    const qsizetype offsets = number(trailer + 24, 8);
    qint64 count = 0;
    for (qsizetype object = 0; object < objects; ++object) {
        const qsizetype place = number(offsets + object * offsetSize, offsetSize);
        count += static_cast<uchar>(binary[place]) >> 4 == dataMarker ? 1 : 0;
    }
    return count;
}

Result<QByteArray> write(plist_t root)
{
    char *bytes = nullptr;
    uint32_t size = 0;
    plist_to_bin(root, &bytes, &size);
    const Allocated<char> owner(bytes);
    if (!bytes)
        return fail("There is not enough memory to write the archive.");
    return QByteArray(bytes, size);
}
} // namespace

plist_t PropertyList::newText(const QByteArray &utf8)
{
    requireFor(utf8);
    return plist_new_string(utf8.constData());
}

plist_t PropertyList::newData(const QByteArray &bytes)
{
    requireFor(bytes);
    return plist_new_data(bytes.constData(), static_cast<uint64_t>(bytes.size()));
}

Result<PropertyList::Pointer> PropertyList::parse(const QByteArray &bytes)
{
    plist_t root = nullptr;
    Memory::require(2 * bytes.size());
    if (bytes.startsWith("bplist")) {
        if (const Result<void> checked = PropertyListGuard::checkBinary(bytes); !checked)
            return tl::unexpected(checked.error());
        plist_from_bin(bytes.constData(), static_cast<uint32_t>(bytes.size()), &root);
    } else {
        const Result<QByteArray> plain = PropertyListGuard::rewriteXml(bytes);
        if (!plain)
            return tl::unexpected(plain.error());
        const System::PointNumbers point; // libplist reads reals with the C library
        plist_from_xml(plain->constData(), static_cast<uint32_t>(plain->size()), &root);
    }
    if (!root)
        return fail("The property list is damaged.");
    return Pointer(root);
}

Result<QByteArray> PropertyList::toBinary(plist_t root)
{
    constexpr int mostTries = 20;
    Memory::require(2 * sizeOf(root)); // what is there stays while more is asked for
    Result<QByteArray> result = write(root);
    // libplist writes equal data once where their addresses happen to fall into one bucket of its table. The same list
    // shall give the same bytes: it is written from other addresses then.
    std::vector<Pointer> copies;
    const qint64 count = dataCount(root);
    while (result && dataCount(*result) < count && std::ssize(copies) < mostTries) {
        copies.emplace_back(plist_copy(root));
        result = write(copies.back().get());
    }
    if (!result)
        return result;
    // What is too large to be read again must not replace a file.
    return PropertyListGuard::checkBinary(*result).map([&result] { return *result; });
}

std::optional<QString> PropertyList::text(plist_t node)
{
    if (!isOfType(node, PLIST_STRING))
        return {};
    uint64_t size = 0;
    const char *letters = plist_get_string_ptr(node, &size);
    if (!letters || size == 0)
        return QString("");
    return fromUtf8(letters, static_cast<qsizetype>(size));
}

std::optional<QByteArray> PropertyList::data(plist_t node)
{
    if (!isOfType(node, PLIST_DATA))
        return {};
    uint64_t size = 0;
    const char *bytes = plist_get_data_ptr(node, &size);
    return bytes ? QByteArray(bytes, static_cast<qsizetype>(size)) : QByteArray("");
}

std::optional<qint64> PropertyList::integer(plist_t node)
{
    if (!isOfType(node, PLIST_UINT))
        return {};
    uint64_t bits = 0;
    plist_get_uint_val(node, &bits);
    if (bits <= uint64_t{std::numeric_limits<qint64>::max()})
        return static_cast<qint64>(bits);
    // libplist gives a number past 2^63 and a negative one by the same bits; only its comparison knows them apart.
    const Pointer negative(plist_new_uint(bits));
    if (!plist_compare_node_value(node, negative.get()))
        return {};
    return static_cast<qint64>(bits);
}

std::optional<quint64> PropertyList::reference(plist_t node)
{
    if (isOfType(node, PLIST_UID)) {
        uint64_t index = 0;
        plist_get_uid_val(node, &index);
        return index;
    }
    if (!isOfType(node, PLIST_DICT) || plist_dict_get_size(node) != 1)
        return {};
    const std::optional<qint64> index = integer(value(node, "CF$UID"));
    if (!index || *index < 0)
        return {};
    return static_cast<quint64>(*index);
}

plist_t PropertyList::value(plist_t node, const char *key)
{
    return isOfType(node, PLIST_DICT) ? plist_dict_get_item(node, key) : nullptr;
}

std::vector<plist_t> PropertyList::entries(plist_t node)
{
    std::vector<plist_t> result;
    if (!isOfType(node, PLIST_ARRAY))
        return result;
    result.reserve(plist_array_get_size(node));
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    const Allocated<void> owner(position);
    plist_t entry = nullptr;
    for (plist_array_next_item(node, position, &entry); entry; plist_array_next_item(node, position, &entry))
        result.push_back(entry);
    return result;
}

std::vector<std::pair<QString, plist_t>> PropertyList::members(plist_t node)
{
    std::vector<std::pair<QString, plist_t>> result;
    if (!isOfType(node, PLIST_DICT))
        return result;
    result.reserve(plist_dict_get_size(node));
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const Allocated<void> owner(position);
    for (;;) {
        char *letters = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, position, &letters, &item);
        const Allocated<char> key(letters);
        if (!item)
            return result;
        result.emplace_back(fromUtf8(letters, qstrlen(letters)), item);
    }
}
