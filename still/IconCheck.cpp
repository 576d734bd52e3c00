#include "still/IconCheck.h"

#include <QtEndian>

namespace {
constexpr qsizetype headSize = 8; ///< a type and a length, the head counted, of four bytes each

qint64 lengthAt(QByteArrayView bytes, qsizetype offset)
{
    return qFromBigEndian<quint32>(bytes.data() + offset + 4);
}

/// Whether each head in a table of contents claims a length that there may be.
bool isTableHarmless(QByteArrayView table, qint64 most)
{
    for (qsizetype at = 0; at + headSize <= table.size(); at += headSize) {
        if (lengthAt(table, at) < headSize || lengthAt(table, at) > most)
            return false;
    }
    return true;
}
} // namespace

bool IconCheck::isHarmless(const QByteArray &bytes)
{
    if (!bytes.startsWith("icns"))
        return true;
    for (qsizetype at = headSize; at + headSize <= bytes.size(); at += lengthAt(bytes, at)) {
        const qint64 length = lengthAt(bytes, at);
        if (length < headSize || length > bytes.size() - at)
            return false;
        const QByteArrayView part = QByteArrayView(bytes).sliced(at + headSize, length - headSize);
        if (bytes.mid(at, 4) == "TOC " && !isTableHarmless(part, bytes.size()))
            return false;
    }
    return true;
}
