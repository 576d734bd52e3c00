#include "drawing/PixelRows.h"

#include <algorithm>
#include <cstring>

// Highway compiles the loops below once for each instruction set and picks one when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "drawing/PixelRows.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace PixelRows::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

#if HWY_TARGET == HWY_SCALAR

/// a x b / 255, rounded as Qt's painter rounds.
uint32_t scaled(uint32_t a, uint32_t b)
{
    const uint32_t product = a * b;
    return (product + (product >> 8) + 0x80) >> 8;
}

void blendRow(QRgb *pixels, const uchar *coverage, size_t count, QRgb colour)
{
    for (size_t i = 0; i < count; ++i) {
        const uint32_t rest = 255 - scaled(colour >> 24, coverage[i]);
        QRgb blended = 0;
        for (int shift = 0; shift < 32; shift += 8)
            blended |= (scaled((colour >> shift) & 0xff, coverage[i]) + scaled((pixels[i] >> shift) & 0xff, rest))
                       << shift;
        pixels[i] = blended;
    }
}

void uniteRow(uchar *coverage, const uchar *added, size_t count)
{
    for (size_t i = 0; i < count; ++i)
        coverage[i] = static_cast<uchar>(coverage[i] + scaled(added[i], 255u - coverage[i]));
}

void copyRow(QRgb *pixels, const QRgb *source, size_t count)
{
    std::memcpy(pixels, source, count * sizeof(QRgb));
}

void fillRow(QRgb *pixels, size_t count, QRgb colour)
{
    std::fill_n(pixels, count, colour);
}

#else

/// a x b / 255 in 16-bit lanes, rounded as Qt's painter rounds.
template <typename V>
HWY_INLINE V scaled(V a, V b)
{
    const hn::DFromV<V> d;
    const V product = hn::Mul(a, b);
    return hn::ShiftRight<8>(hn::Add(hn::Add(product, hn::ShiftRight<8>(product)), hn::Set(d, uint16_t{0x80})));
}

void blendRow(QRgb *pixels, const uchar *coverage, size_t count, QRgb colour)
{
    const hn::ScalableTag<uint32_t> d32;
    const hn::Repartition<uint16_t, decltype(d32)> d16;
    const hn::Rebind<uint8_t, decltype(d32)> d8;
    const auto lowBytes = hn::Set(d16, uint16_t{0xff});
    const auto source = hn::BitCast(d16, hn::Set(d32, colour));
    const auto sourceEven = hn::And(source, lowBytes); // blue, red
    const auto sourceOdd = hn::ShiftRight<8>(source);  // green, alpha

    const auto blendLanes = [&](QRgb *at, auto cover) {
        const auto cover16 = hn::BitCast(d16, hn::Or(cover, hn::ShiftLeft<16>(cover)));
        const auto even = scaled(sourceEven, cover16);
        const auto odd = scaled(sourceOdd, cover16);
        const auto rest = hn::Sub(hn::Set(d32, 255u), hn::ShiftRight<16>(hn::BitCast(d32, odd)));
        const auto rest16 = hn::BitCast(d16, hn::Or(rest, hn::ShiftLeft<16>(rest)));
        const auto below = hn::BitCast(d16, hn::LoadU(d32, at));
        const auto sumEven = hn::Add(even, scaled(hn::And(below, lowBytes), rest16));
        const auto sumOdd = hn::Add(odd, scaled(hn::ShiftRight<8>(below), rest16));
        hn::StoreU(hn::BitCast(d32, hn::Or(sumEven, hn::ShiftLeft<8>(sumOdd))), d32, at);
    };

    const size_t lanes = hn::Lanes(d32);
    size_t i = 0;
    for (; i + lanes <= count; i += lanes) {
        const auto cover = hn::PromoteTo(d32, hn::LoadU(d8, coverage + i));
        if (!hn::AllTrue(d32, hn::Eq(cover, hn::Zero(d32))))
            blendLanes(pixels + i, cover);
    }
    if (i == count)
        return;
    HWY_ALIGN QRgb lastPixels[hn::MaxLanes(d32)] = {};
    HWY_ALIGN uint8_t lastCoverage[hn::MaxLanes(d32)] = {};
    std::memcpy(lastPixels, pixels + i, (count - i) * sizeof(QRgb));
    std::memcpy(lastCoverage, coverage + i, count - i);
    blendLanes(lastPixels, hn::PromoteTo(d32, hn::LoadU(d8, lastCoverage)));
    std::memcpy(pixels + i, lastPixels, (count - i) * sizeof(QRgb));
}

void uniteRow(uchar *coverage, const uchar *added, size_t count)
{
    const hn::ScalableTag<uint8_t> d8;
    const hn::Repartition<uint16_t, decltype(d8)> d16;
    const auto lowBytes = hn::Set(d16, uint16_t{0xff});

    const auto united = [&](auto a8, auto b8) {
        const auto rest = hn::BitCast(d16, hn::Xor(a8, hn::Set(d8, uint8_t{0xff})));
        const auto b = hn::BitCast(d16, b8);
        const auto even = scaled(hn::And(b, lowBytes), hn::And(rest, lowBytes));
        const auto odd = scaled(hn::ShiftRight<8>(b), hn::ShiftRight<8>(rest));
        return hn::Add(a8, hn::BitCast(d8, hn::Or(even, hn::ShiftLeft<8>(odd))));
    };

    const size_t lanes = hn::Lanes(d8);
    size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        hn::StoreU(united(hn::LoadU(d8, coverage + i), hn::LoadU(d8, added + i)), d8, coverage + i);
    if (i == count)
        return;
    HWY_ALIGN uint8_t lastCoverage[hn::MaxLanes(d8)] = {};
    HWY_ALIGN uint8_t lastAdded[hn::MaxLanes(d8)] = {};
    std::memcpy(lastCoverage, coverage + i, count - i);
    std::memcpy(lastAdded, added + i, count - i);
    hn::Store(united(hn::Load(d8, lastCoverage), hn::Load(d8, lastAdded)), d8, lastCoverage);
    std::memcpy(coverage + i, lastCoverage, count - i);
}

void copyRow(QRgb *pixels, const QRgb *source, size_t count)
{
    const hn::ScalableTag<uint32_t> d32;
    const size_t lanes = hn::Lanes(d32);
    const size_t misaligned = reinterpret_cast<uintptr_t>(pixels) / sizeof(QRgb) % lanes;
    size_t i = std::min(count, misaligned == 0 ? 0 : lanes - misaligned);
    std::memcpy(pixels, source, i * sizeof(QRgb));
    for (; i + lanes <= count; i += lanes)
        hn::Stream(hn::LoadU(d32, source + i), d32, pixels + i);
    std::memcpy(pixels + i, source + i, (count - i) * sizeof(QRgb));
}

void fillRow(QRgb *pixels, size_t count, QRgb colour)
{
    const hn::ScalableTag<uint32_t> d32;
    const size_t lanes = hn::Lanes(d32);
    const auto colours = hn::Set(d32, colour);
    size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        hn::StoreU(colours, d32, pixels + i);
    std::fill_n(pixels + i, count - i, colour);
}

#endif

} // namespace PixelRows::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace PixelRows {

HWY_EXPORT(blendRow);
HWY_EXPORT(uniteRow);
HWY_EXPORT(copyRow);
HWY_EXPORT(fillRow);

void blend(QRgb *pixels, const uchar *coverage, qsizetype count, QRgb colour)
{
    HWY_DYNAMIC_DISPATCH(blendRow)(pixels, coverage, static_cast<size_t>(count), colour);
}

void unite(uchar *coverage, const uchar *added, qsizetype count)
{
    HWY_DYNAMIC_DISPATCH(uniteRow)(coverage, added, static_cast<size_t>(count));
}

void fill(QRgb *pixels, qsizetype count, QRgb colour)
{
    HWY_DYNAMIC_DISPATCH(fillRow)(pixels, static_cast<size_t>(count), colour);
}

void copyPastCache(QRgb *pixels, const QRgb *source, qsizetype count)
{
    HWY_DYNAMIC_DISPATCH(copyRow)(pixels, source, static_cast<size_t>(count));
}

void finishCopies()
{
    hwy::FlushStream();
}

bool areOpaque(const QRgb *pixels, qsizetype count)
{
    QRgb all = ~QRgb{0};
    for (qsizetype i = 0; i < count; ++i)
        all &= pixels[i];
    return qAlpha(all) == 255;
}

} // namespace PixelRows
#endif
