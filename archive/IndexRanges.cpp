#include "archive/IndexRanges.h"

#include <limits>

namespace {
std::optional<quint64> takeNumber(const QByteArray &bytes, qsizetype &position)
{
    quint64 number = 0;
    for (int shift = 0; shift < 64 && position < bytes.size(); shift += 7) {
        const quint8 byte = static_cast<quint8>(bytes[position++]);
        const quint64 bits = byte & 0x7F;
        if (bits << shift >> shift != bits)
            return {};
        number |= bits << shift;
        if (!(byte & 0x80))
            return number;
    }
    return {};
}

void appendNumber(QByteArray &bytes, quint64 number)
{
    for (; number > 0x7F; number >>= 7)
        bytes.append(static_cast<char>(0x80 | (number & 0x7F)));
    bytes.append(static_cast<char>(number));
}
} // namespace

std::optional<IndexSet> IndexRanges::fromRanges(const std::vector<IndexSet::Range> &ranges)
{
    constexpr quint64 last = std::numeric_limits<qint64>::max();
    IndexSet set;
    quint64 end = 0;
    for (const IndexSet::Range &range : ranges) {
        if (range.length == 0 || range.location < end || range.location > last || range.length > last - range.location)
            return {};
        if (!set.ranges.empty() && range.location == end)
            set.ranges.back().length += range.length;
        else
            set.ranges.push_back(range);
        end = range.location + range.length;
    }
    return set;
}

std::optional<std::vector<IndexSet::Range>> IndexRanges::fromBytes(const QByteArray &bytes)
{
    std::vector<IndexSet::Range> ranges;
    for (qsizetype position = 0; position < bytes.size();) {
        const std::optional<quint64> location = takeNumber(bytes, position);
        const std::optional<quint64> length = takeNumber(bytes, position);
        if (!location || !length)
            return {};
        ranges.push_back({*location, *length});
    }
    return ranges;
}

QByteArray IndexRanges::toBytes(const IndexSet &indexes)
{
    QByteArray bytes;
    for (const IndexSet::Range &range : indexes.ranges) {
        appendNumber(bytes, range.location);
        appendNumber(bytes, range.length);
    }
    return bytes;
}
