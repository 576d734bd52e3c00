#pragma once

#include <QRgb>
#include <QtGlobal>

#include <span>

/// Vector code that averages pixels, channel by channel.
namespace AreaRows {

/// The weights of a mean sum up to this.
inline constexpr int wholeWeight = 256;

/// How much pixels that lie side by side count in a mean.
struct Weights
{
    int first;                   ///< the number of the first one
    std::span<const quint16> of; ///< of it and those behind it
};

inline constexpr int channelCount = 4;
/// finish() reads pixels in pairs: behind an odd number of them one more counts nothing.
inline constexpr int readAtOnce = 2;

/// Sets `sums` to the weighted sum of `count` bytes of each row: of the one at `top` and those below it, which lie
/// `bytesPerLine` apart, as many as there are weights.
void sumRows(quint16 *sums, const uchar *top, qint64 bytesPerLine, std::span<const quint16> weights, qint64 count);
/// Writes a pixel for each of `weights`: the mean of sums of four channels. Here weights sum up to 65536, 65535 being a
/// whole one, and each stands four times, once for a channel; where their number of pixels is odd, zeros follow. Means
/// of one and the same value are that value; others are at most one 256th of a step less for each pixel that is read.
void finish(QRgb *out, std::span<const Weights> weights, const quint16 *sums);

} // namespace AreaRows
