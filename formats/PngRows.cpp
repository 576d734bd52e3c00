#include "formats/PngRows.h"

// Compiled once for each kind of processor; the best that runs is chosen at run time.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "formats/PngRows.cpp"
#include <hwy/foreach_target.h> // before highway.h
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace PngRows {
namespace HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

void filterRgb(uchar *out, const QRgb *row, const QRgb *above, qint64 count)
{
    qint64 i = 0;
#if HWY_TARGET != HWY_SCALAR
    // Four pixels at once; the four bytes too many that each step writes belong to the next one.
    const hn::Full128<uint8_t> d;
    alignas(16) static constexpr uint8_t redGreenBlue[16] = {2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, 3, 3, 3, 3};
    const auto order = hn::Load(d, redGreenBlue);
    for (; i + 8 <= count; i += 4) {
        const auto pixels = hn::LoadU(d, reinterpret_cast<const uchar *>(row + i));
        const auto before = hn::LoadU(d, reinterpret_cast<const uchar *>(above + i));
        hn::StoreU(hn::TableLookupBytes(hn::Sub(pixels, before), order), d, out + 3 * i);
    }
#endif
    for (; i < count; ++i) {
        out[3 * i] = static_cast<uchar>(qRed(row[i]) - qRed(above[i]));
        out[3 * i + 1] = static_cast<uchar>(qGreen(row[i]) - qGreen(above[i]));
        out[3 * i + 2] = static_cast<uchar>(qBlue(row[i]) - qBlue(above[i]));
    }
}

void filterBytes(uchar *out, const uchar *row, const uchar *above, qint64 count)
{
    const hn::ScalableTag<uchar> d;
    const auto step = static_cast<qint64>(hn::Lanes(d));
    qint64 i = 0;
    for (; i + step <= count; i += step)
        hn::StoreU(hn::Sub(hn::LoadU(d, row + i), hn::LoadU(d, above + i)), d, out + i);
    for (; i < count; ++i)
        out[i] = static_cast<uchar>(row[i] - above[i]);
}

} // namespace HWY_NAMESPACE
} // namespace PngRows
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace PngRows {

HWY_EXPORT(filterRgb);
HWY_EXPORT(filterBytes);

void filterRgb(uchar *out, const QRgb *row, const QRgb *above, qint64 count)
{
    HWY_DYNAMIC_DISPATCH(filterRgb)(out, row, above, count);
}

void filterBytes(uchar *out, const uchar *row, const uchar *above, qint64 count)
{
    HWY_DYNAMIC_DISPATCH(filterBytes)(out, row, above, count);
}

} // namespace PngRows
#endif
