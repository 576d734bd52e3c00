#pragma once

#include <QtGlobal>

#include <vector>

/// Packs rows of bytes by PackBits (psd/PackBits.h), keeping its working memory from row to row.
class RowPacker
{
public:
    explicit RowPacker(qsizetype longestRow);

    /// Room that pack() needs for a row of `count` bytes: its longest stream, and what it writes beyond the end.
    static constexpr qsizetype roomFor(qsizetype count) { return count + count / 128 + 64; }

    /// Packs `count` bytes, 1 to `longestRow`, to `out`; they have PixelPlanes::slack. Returns the end of the stream.
    char *pack(const uchar *bytes, qsizetype count, char *out);

private:
    std::vector<quint32> m_runs;
};
