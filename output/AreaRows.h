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

/// Sets `sums` to `count` bytes times a weight.
void begin(quint16 *sums, const uchar *bytes, qint64 count, int weight);
/// Adds `count` bytes times a weight.
void add(quint16 *sums, const uchar *bytes, qint64 count, int weight);
/// Writes the mean of sums of four channels as one pixel for each of `weights`; the sums are whole ones.
void finish(QRgb *out, std::span<const Weights> weights, const quint16 *sums);

} // namespace AreaRows
