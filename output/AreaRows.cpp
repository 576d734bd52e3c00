#include "output/AreaRows.h"

// Compiled once for each kind of processor; the best that runs is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/AreaRows.cpp"
#include <hwy/foreach_target.h> // before highway.h
#include <hwy/highway.h>
#include <iterator>

HWY_BEFORE_NAMESPACE();
namespace AreaRows {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using Sums = hn::ScalableTag<quint16>;
using OneSum = hn::CappedTag<quint16, 1>;
using Pixel = hn::CappedTag<quint16, channelCount>;
using PairOfPixels = hn::CappedTag<quint16, channelCount * readAtOnce>;

template <class D>
HWY_INLINE hn::Vec<D> weighted(D d, const uchar *bytes, hn::Vec<D> weight)
{
    return hn::Mul(hn::PromoteTo(d, hn::LoadU(hn::Rebind<quint8, D>(), bytes)), weight);
}

/// Four vectors: of a row as much is read at once as lies in the cache beside it.
template <class D>
HWY_INLINE void sumFourVectors(D d, quint16 *sums, const uchar *row, qint64 bytesPerLine,
                               std::span<const quint16> weights)
{
    const auto step = static_cast<qint64>(hn::Lanes(d));
    auto first = hn::Zero(d);
    auto second = hn::Zero(d);
    auto third = hn::Zero(d);
    auto fourth = hn::Zero(d);
    for (const quint16 each : weights) {
        const auto weight = hn::Set(d, each);
        first = hn::Add(first, weighted(d, row, weight));
        second = hn::Add(second, weighted(d, row + step, weight));
        third = hn::Add(third, weighted(d, row + 2 * step, weight));
        fourth = hn::Add(fourth, weighted(d, row + 3 * step, weight));
        row += bytesPerLine;
    }
    hn::StoreU(first, d, sums);
    hn::StoreU(second, d, sums + step);
    hn::StoreU(third, d, sums + 2 * step);
    hn::StoreU(fourth, d, sums + 3 * step);
}

template <class D>
HWY_INLINE void sumVector(D d, quint16 *sums, const uchar *row, qint64 bytesPerLine, std::span<const quint16> weights)
{
    auto sum = hn::Zero(d);
    for (const quint16 weight : weights) {
        sum = hn::Add(sum, weighted(d, row, hn::Set(d, weight)));
        row += bytesPerLine;
    }
    hn::StoreU(sum, d, sums);
}

void sumRows(quint16 *sums, const uchar *top, qint64 bytesPerLine, std::span<const quint16> weights, qint64 count)
{
    const Sums d;
    const qint64 step = 4 * static_cast<qint64>(hn::Lanes(d));
    qint64 i = 0;
    for (; i + step <= count; i += step)
        sumFourVectors(d, sums + i, top + i, bytesPerLine, weights);
    for (; i < count; ++i)
        sumVector(OneSum(), sums + i, top + i, bytesPerLine, weights);
}

/// The weighted sums of the channels of as many pixels as are read at once, beginning with a channel.
template <class D>
HWY_INLINE void sumPixels(D d, quint16 *totals, const quint16 *sums, const quint16 *weights, std::size_t count)
{
    auto total = hn::Zero(d);
    for (std::size_t i = 0; i < count; i += channelCount * readAtOnce)
        total = hn::Add(total, hn::MulHigh(hn::LoadU(d, sums + i), hn::LoadU(d, weights + i)));
    hn::StoreU(total, d, totals);
}

/// The mean of four channels, or of as many as a vector holds, of both pixels that were summed.
template <class D>
HWY_INLINE void writeMean(D d, quint8 *out, const quint16 *totals)
{
    const auto both = hn::Add(hn::LoadU(d, totals), hn::LoadU(d, totals + channelCount));
    const auto mean = hn::ShiftRight<8>(hn::Add(both, hn::Set(d, quint16{wholeWeight / 2})));
    const hn::Rebind<quint8, D> bytes;
    hn::StoreU(hn::DemoteTo(bytes, hn::BitCast(hn::RebindToSigned<D>(), mean)), bytes, out);
}

void finish(QRgb *out, std::span<const Weights> weights, const quint16 *sums)
{
    const PairOfPixels pair;
    const Pixel one;
    quint16 totals[channelCount * readAtOnce];
    for (const Weights &pixel : weights) {
        const quint16 *const first = sums + qsizetype{channelCount} * pixel.first;
        for (std::size_t i = 0; i < std::size(totals); i += hn::Lanes(pair))
            sumPixels(pair, totals + i, first + i, pixel.of.data() + i, pixel.of.size());
        auto *channels = reinterpret_cast<quint8 *>(out++);
        for (std::size_t i = 0; i < channelCount; i += hn::Lanes(one))
            writeMean(one, channels + i, totals + i);
    }
}

} // namespace HWY_NAMESPACE
} // namespace AreaRows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace AreaRows {

HWY_EXPORT(sumRows);
HWY_EXPORT(finish);

void sumRows(quint16 *sums, const uchar *top, qint64 bytesPerLine, std::span<const quint16> weights, qint64 count)
{
    HWY_DYNAMIC_DISPATCH(sumRows)(sums, top, bytesPerLine, weights, count);
}

void finish(QRgb *out, std::span<const Weights> weights, const quint16 *sums)
{
    HWY_DYNAMIC_DISPATCH(finish)(out, weights, sums);
}

} // namespace AreaRows
#endif
