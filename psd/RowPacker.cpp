#include "psd/RowPacker.h"

#include "psd/PixelPlanes.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {
constexpr qsizetype shortestRun = 3;
constexpr qsizetype longestRun = 127;
constexpr qsizetype longestLiteral = 128;
/// Bytes that are copied at once, whether or not there are so many; cheaper than finding out.
constexpr qsizetype copyStep = 32;

/// Packs the bytes from `begin` to `end` as they are.
inline char *putLiterals(const uchar *begin, const uchar *end, char *out)
{
    while (end - begin > copyStep) {
        const qsizetype packed = std::min<qsizetype>(end - begin, longestLiteral);
        *out++ = static_cast<char>(packed - 1);
        std::memcpy(out, begin, static_cast<std::size_t>(packed));
        out += packed;
        begin += packed;
    }
    const qsizetype rest = end - begin;
    out[0] = static_cast<char>(rest - 1);
    std::memcpy(out + 1, begin, copyStep);
    return out + rest + (rest != 0 ? 1 : 0);
}

/// Packs equal bytes as far as they fill runs; `begin` becomes where the rest begins, 0 to 2 bytes.
inline char *putRun(const uchar *&begin, const uchar *end, char *out)
{
    while (end - begin >= shortestRun) {
        const qsizetype packed = std::min<qsizetype>(end - begin, longestRun);
        *out++ = static_cast<char>(1 - packed);
        *out++ = static_cast<char>(*begin);
        begin += packed;
    }
    return out;
}
} // namespace

RowPacker::RowPacker(qsizetype longestRow)
    : m_repeats(static_cast<std::size_t>(PixelPlanes::wordsFor(longestRow))),
      m_runs(static_cast<std::size_t>(longestRow + 1))
{}

char *RowPacker::pack(const uchar *bytes, qsizetype count, char *out)
{
    const std::size_t ends = findRuns(bytes, count);
    const uchar *literals = bytes; // where the bytes begin that no run has taken
    for (std::size_t i = 0; i < ends; i += 2) {
        const uchar *run = bytes + m_runs[i];
        const uchar *const runEnd = bytes + m_runs[i + 1];
        out = putLiterals(literals, run, out);
        out = putRun(run, runEnd, out);
        literals = run;
    }
    return putLiterals(literals, bytes + count, out);
}

std::size_t RowPacker::findRuns(const uchar *bytes, qsizetype count)
{
    PixelPlanes::findRepeats(bytes, count, m_repeats.data());
    // Collected first and packed afterwards: a loop that only counts bits is one that the processor predicts.
    std::size_t found = 0;
    quint64 lastBit = 0; // of the word before
    const qsizetype words = PixelPlanes::wordsFor(count) - 1;
    for (qsizetype word = 0; word < words; ++word) {
        const quint64 repeats = m_repeats[static_cast<std::size_t>(word)];
        const quint64 nextRepeats = repeats >> 1 | m_repeats[static_cast<std::size_t>(word + 1)] << 63;
        const quint64 threes = repeats & nextRepeats; // bit i: bytes i to i + 2 are equal
        quint64 changes = threes ^ (threes << 1 | lastBit);
        lastBit = threes >> 63;
        for (; changes != 0; changes &= changes - 1) {
            const bool isEnd = found % 2 != 0;
            m_runs[found++] =
                static_cast<quint32>(word * 64 + std::countr_zero(changes) + (isEnd ? shortestRun - 1 : 0));
        }
    }
    return found;
}
