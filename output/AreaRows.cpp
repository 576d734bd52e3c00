#include "output/AreaRows.h"

// Compiled once for each kind of processor; the best that runs is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/AreaRows.cpp"
#include <hwy/foreach_target.h> // before highway.h
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace AreaRows {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using Sums = hn::ScalableTag<quint16>;
using OneSum = hn::CappedTag<quint16, 1>;
using Channels = hn::CappedTag<quint32, 4>;

/// Calls `sums(d, i)` for all i below `count`: for as many at once as vectors hold, then one by one.
template <class Function>
HWY_INLINE void forSums(qint64 count, const Function &sums)
{
    const Sums d;
    const auto step = static_cast<qint64>(hn::Lanes(d));
    qint64 i = 0;
    for (; i + step <= count; i += step)
        sums(d, i);
    for (; i < count; ++i)
        sums(OneSum(), i);
}

template <class D>
HWY_INLINE hn::Vec<D> weighted(D d, const uchar *bytes, int weight)
{
    return hn::Mul(hn::PromoteTo(d, hn::LoadU(hn::Rebind<quint8, D>(), bytes)),
                   hn::Set(d, static_cast<quint16>(weight)));
}

void begin(quint16 *sums, const uchar *bytes, qint64 count, int weight)
{
    forSums(count, [=](auto d, qint64 i) HWY_ATTR { hn::StoreU(weighted(d, bytes + i, weight), d, sums + i); });
}

void add(quint16 *sums, const uchar *bytes, qint64 count, int weight)
{
    forSums(count, [=](auto d, qint64 i) HWY_ATTR {
        hn::StoreU(hn::Add(hn::LoadU(d, sums + i), weighted(d, bytes + i, weight)), d, sums + i);
    });
}

/// The mean of four channels, or of as many as a vector holds.
template <class D>
HWY_INLINE void writeMean(D d, quint8 *out, const quint16 *sums, std::span<const quint16> weights)
{
    constexpr quint32 half = wholeWeight * wholeWeight / 2;
    auto total = hn::Set(d, half);
    for (const quint16 weight : weights) {
        const auto sum = hn::PromoteTo(d, hn::LoadU(hn::Rebind<quint16, D>(), sums));
        total = hn::Add(total, hn::Mul(sum, hn::Set(d, quint32{weight})));
        sums += 4;
    }
    const auto mean = hn::BitCast(hn::Rebind<qint32, D>(), hn::ShiftRight<16>(total));
    const hn::Rebind<quint8, D> bytes;
    hn::StoreU(hn::DemoteTo(bytes, mean), bytes, out);
}

void finish(QRgb *out, std::span<const Weights> weights, const quint16 *sums)
{
    const Channels d;
    for (const Weights &pixel : weights) {
        auto *channels = reinterpret_cast<quint8 *>(out++);
        for (std::size_t channel = 0; channel < 4; channel += hn::Lanes(d))
            writeMean(d, channels + channel, sums + qsizetype{4} * pixel.first + channel, pixel.of);
    }
}

} // namespace HWY_NAMESPACE
} // namespace AreaRows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace AreaRows {

HWY_EXPORT(begin);
HWY_EXPORT(add);
HWY_EXPORT(finish);

void begin(quint16 *sums, const uchar *bytes, qint64 count, int weight)
{
    HWY_DYNAMIC_DISPATCH(begin)(sums, bytes, count, weight);
}

void add(quint16 *sums, const uchar *bytes, qint64 count, int weight)
{
    HWY_DYNAMIC_DISPATCH(add)(sums, bytes, count, weight);
}

void finish(QRgb *out, std::span<const Weights> weights, const quint16 *sums)
{
    HWY_DYNAMIC_DISPATCH(finish)(out, weights, sums);
}

} // namespace AreaRows
#endif
