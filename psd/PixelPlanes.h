#pragma once

#include <QtGlobal>

#include <array>

/// Inner loops over bytes, with the widest instructions that the machine has.
namespace PixelPlanes {

/// Whoever hands over bytes here leaves as many readable, and for results writable, behind them.
inline constexpr qsizetype slack = 128;

/// Splits `count` pixels of four bytes: plane k gets byte k of each pixel. Planes have `slack`, pixels need none.
void split(const uchar *pixels, qsizetype count, const std::array<uchar *, 4> &planes);

/// 64-bit words that findRepeats() writes for `count` bytes.
constexpr qsizetype wordsFor(qsizetype count)
{
    return count / 64 + 2;
}

/// Bit i (of word i / 64, lowest first) tells whether bytes i and i + 1 are equal. Bits from the last byte on are 0.
/// The bytes have `slack`.
void findRepeats(const uchar *bytes, qsizetype count, quint64 *words);

} // namespace PixelPlanes
