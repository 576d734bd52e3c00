#pragma once

#include <QtGlobal>

#include <array>
#include <cstddef>

/// Inner loops over bytes, with the widest instructions that the machine has.
namespace PixelPlanes {

/// Whoever hands over bytes here leaves as many readable, and for results writable, behind them.
inline constexpr qsizetype slack = 128;

/// Splits `count` pixels of four bytes: plane k gets byte k of each pixel. Planes have `slack`, pixels need none.
void split(const uchar *pixels, qsizetype count, const std::array<uchar *, 4> &planes);

/// Finds runs of three or more equal bytes among `count`, which have `slack`. Writes two numbers for each, from left to
/// right, at most `count` in all: where its first byte stands, and the last one that two of its kind follow, plus one.
/// Returns how many numbers that are.
std::size_t findRuns(const uchar *bytes, qsizetype count, quint32 *ends);

} // namespace PixelPlanes
