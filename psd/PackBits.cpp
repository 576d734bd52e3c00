#include "psd/PackBits.h"

#include "psd/PixelPlanes.h"
#include "psd/RowPacker.h"

#include <algorithm>
#include <vector>

namespace {
/// How many bytes the range names, as far as they lie in a block of `size` bytes.
qsizetype countOf(const PackBits::Range &range, qint32 skip, qsizetype size)
{
    const auto available = static_cast<quint64>(size);
    if (skip < 1 || range.location >= available)
        return 0;
    const quint64 length = std::clamp<quint64>(range.length, 1, available - range.location);
    return static_cast<qsizetype>((length - 1) / static_cast<quint64>(skip) + 1);
}
} // namespace

namespace PackBits {

QByteArray kxPackedBitsForRange(QByteArrayView block, const Range &range, qint32 skip)
{
    const qsizetype count = countOf(range, skip, block.size());
    if (count == 0)
        return {};
    std::vector<uchar> row(static_cast<std::size_t>(count + PixelPlanes::slack));
    const char *const first = block.data() + range.location;
    for (qsizetype i = 0; i < count; ++i)
        row[static_cast<std::size_t>(i)] = static_cast<uchar>(first[i * skip]);

    QByteArray packed(RowPacker::roomFor(count), Qt::Uninitialized);
    const char *const end = RowPacker(count).pack(row.data(), count, packed.data());
    packed.resize(end - packed.constData());
    return packed;
}

QString kxPackedBitsDescription(QByteArrayView block)
{
    QString description;
    qint64 decoded = 0;
    qsizetype position = 0;
    while (position < block.size()) {
        const auto header = static_cast<signed char>(block[position]);
        const qsizetype packetLength = header >= 0 ? header + 2 : 2;
        if (packetLength > block.size() - position)
            break;
        const int bytes = header >= 0 ? header + 1 : 1 - header;
        if (header >= 0)
            description += QString("Printing %1 literal bytes. ").arg(bytes);
        else
            description += QString("Printing %1 %2 times. ").arg(static_cast<uchar>(block[position + 1])).arg(bytes);
        decoded += bytes;
        position += packetLength;
    }
    return description + QString("Total: %1 bytes decoded.").arg(decoded);
}

} // namespace PackBits
