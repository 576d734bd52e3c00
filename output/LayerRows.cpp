#include "output/LayerRows.h"

// Compiled once for each kind of processor; the best that runs is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "output/LayerRows.cpp"
#include <hwy/cache_control.h>
#include <hwy/foreach_target.h> // before highway.h
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace LayerRows {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

using Pixels = hn::ScalableTag<quint32>;
using OnePixel = hn::CappedTag<quint32, 1>;

// Pixels are multiplied as two bytes of 32 bits at once, 16 bits apart: first the even bytes, then the odd ones.

/// The even bytes of pixels, or the odd ones of pixels shifted down by eight bits.
template <class D>
HWY_INLINE hn::Vec<D> everyOther(D d, hn::Vec<D> pixels)
{
    return hn::And(pixels, hn::Set(d, 0x00ff00ff));
}

/// Products with 0 to 255, divided by 255.
template <class D>
HWY_INLINE hn::Vec<D> divideBy255(D d, hn::Vec<D> products)
{
    const auto rounded = hn::Add(hn::Add(products, everyOther(d, hn::ShiftRight<8>(products))), hn::Set(d, 0x00800080));
    return everyOther(d, hn::ShiftRight<8>(rounded));
}

template <class D>
HWY_INLINE hn::Vec<D> scaledPixels(D d, hn::Vec<D> in, int alpha)
{
    const auto factor = hn::Set(d, static_cast<quint32>(alpha));
    const auto even = hn::Mul(everyOther(d, in), factor);
    const auto odd = hn::Mul(everyOther(d, hn::ShiftRight<8>(in)), factor);
    return hn::Or(divideBy255(d, even), hn::ShiftLeft<8>(divideBy255(d, odd)));
}

template <class D>
HWY_INLINE hn::Vec<D> pixelsAtop(D d, hn::Vec<D> in, hn::Vec<D> out, int alpha)
{
    const auto factor = hn::Set(d, static_cast<quint32>(alpha));
    const auto gap = hn::Sub(hn::Set(d, 255), hn::ShiftRight<24>(in));
    const auto even = hn::Add(hn::Mul(everyOther(d, in), factor), hn::Mul(everyOther(d, out), gap));
    const auto odd = hn::Add(hn::Mul(everyOther(d, hn::ShiftRight<8>(in)), factor),
                             hn::Mul(everyOther(d, hn::ShiftRight<8>(out)), gap));
    return hn::Or(divideBy255(d, even), hn::ShiftLeft<8>(divideBy255(d, odd)));
}

/// Calls `pixels(d, i)` for all i of `first` to `count` - 1: for as many at once as vectors hold, then one by one.
template <class Function>
HWY_INLINE void forPixels(qint64 first, qint64 count, const Function &pixels)
{
    const Pixels d;
    const auto step = static_cast<qint64>(hn::Lanes(d));
    qint64 i = first;
    for (; i + step <= count; i += step)
        pixels(d, i);
    for (; i < count; ++i)
        pixels(OnePixel(), i);
}

/// Writes `pixels(d, i)` to each out[i]. Streams need whole vectors at their addresses.
template <class Function>
HWY_INLINE void writePixels(QRgb *out, qint64 count, Stores stores, const Function &pixels)
{
    const auto store = [&](auto d, qint64 i) HWY_ATTR { hn::StoreU(pixels(d, i), d, out + i); };
    if (stores == Stores::Cached)
        return forPixels(0, count, store);

    const Pixels d;
    const auto step = static_cast<qint64>(hn::Lanes(d));
    const auto vectorBytes = static_cast<quintptr>(step) * sizeof(QRgb);
    qint64 i = 0;
    for (; i < count && reinterpret_cast<quintptr>(out + i) % vectorBytes != 0; ++i)
        store(OnePixel(), i);
    for (; i + step <= count; i += step)
        hn::Stream(pixels(d, i), d, out + i);
    forPixels(i, count, store);
}

void fill(QRgb *out, qint64 count, QRgb pixel, Stores stores)
{
    writePixels(out, count, stores, [=](auto d, qint64) HWY_ATTR { return hn::Set(d, pixel); });
}

void copy(QRgb *out, const QRgb *in, qint64 count, Stores stores)
{
    writePixels(out, count, stores, [=](auto d, qint64 i) HWY_ATTR { return hn::LoadU(d, in + i); });
}

void scale(QRgb *out, const QRgb *in, qint64 count, int alpha, Stores stores)
{
    writePixels(out, count, stores,
                [=](auto d, qint64 i) HWY_ATTR { return scaledPixels(d, hn::LoadU(d, in + i), alpha); });
}

void atop(QRgb *out, const QRgb *in, qint64 count, int alpha)
{
    writePixels(out, count, Stores::Cached, [=](auto d, qint64 i) HWY_ATTR {
        return pixelsAtop(d, hn::LoadU(d, in + i), hn::LoadU(d, out + i), alpha);
    });
}

Coverage coverageOf(const uchar *firstRow, qint64 bytesPerLine, int rows, int width)
{
    const Pixels d;
    const auto step = static_cast<int>(hn::Lanes(d));
    auto all = hn::Set(d, 0xffffffff);
    auto any = hn::Zero(d);
    QRgb allOfRest = 0xffffffff;
    QRgb anyOfRest = 0;
    for (int y = 0; y < rows; ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(firstRow + y * bytesPerLine);
        int x = 0;
        for (; x + step <= width; x += step) {
            const auto pixels = hn::LoadU(d, row + x);
            all = hn::And(all, pixels);
            any = hn::Or(any, pixels);
        }
        for (; x < width; ++x) {
            allOfRest &= row[x];
            anyOfRest |= row[x];
        }
    }

    const auto opaque = hn::Set(d, 255);
    if (qAlpha(anyOfRest) == 0 && hn::AllTrue(d, hn::Eq(hn::ShiftRight<24>(any), hn::Zero(d))))
        return Coverage::Transparent;
    if (qAlpha(allOfRest) == 255 && hn::AllTrue(d, hn::Eq(hn::ShiftRight<24>(all), opaque)))
        return Coverage::Opaque;
    return Coverage::Mixed;
}

void findCoverage(const uchar *firstRow, qint64 bytesPerLine, int rows, int width, Coverage *blocks)
{
    for (int x = 0; x < width; x += blockWidth)
        *blocks++ = coverageOf(firstRow + x * sizeof(QRgb), bytesPerLine, rows, qMin(blockWidth, width - x));
}

} // namespace HWY_NAMESPACE
} // namespace LayerRows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace LayerRows {

HWY_EXPORT(fill);
HWY_EXPORT(copy);
HWY_EXPORT(scale);
HWY_EXPORT(atop);
HWY_EXPORT(findCoverage);

void finishStreams()
{
    hwy::FlushStream();
}

void fill(QRgb *out, qint64 count, QRgb pixel, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(fill)(out, count, pixel, stores);
}

void copy(QRgb *out, const QRgb *in, qint64 count, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(copy)(out, in, count, stores);
}

void scale(QRgb *out, const QRgb *in, qint64 count, int alpha, Stores stores)
{
    HWY_DYNAMIC_DISPATCH(scale)(out, in, count, alpha, stores);
}

void atop(QRgb *out, const QRgb *in, qint64 count, int alpha)
{
    HWY_DYNAMIC_DISPATCH(atop)(out, in, count, alpha);
}

void findCoverage(const uchar *firstRow, qint64 bytesPerLine, int rows, int width, Coverage *blocks)
{
    HWY_DYNAMIC_DISPATCH(findCoverage)(firstRow, bytesPerLine, rows, width, blocks);
}

} // namespace LayerRows
#endif
