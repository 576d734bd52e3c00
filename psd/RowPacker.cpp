#include "psd/RowPacker.h"

#include "psd/PixelPlanes.h"

#include <algorithm>
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

RowPacker::RowPacker(qsizetype longestRow) : m_runs(static_cast<std::size_t>(longestRow)) {}

char *RowPacker::pack(const uchar *bytes, qsizetype count, char *out)
{
    // Found first and packed afterwards: a loop that only counts bits is one that the processor predicts.
    const quint32 *ends = m_runs.data();
    const quint32 *const last = ends + PixelPlanes::findRuns(bytes, count, m_runs.data());
    const uchar *literals = bytes; // where the bytes begin that no run has taken
    for (; ends != last; ends += 2) {
        const uchar *run = bytes + ends[0];
        const uchar *const runEnd = bytes + ends[1] + shortestRun - 1;
        out = putLiterals(literals, run, out);
        out = putRun(run, runEnd, out);
        literals = run;
    }
    return putLiterals(literals, bytes + count, out);
}
