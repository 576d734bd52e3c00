#include "psd/PixelPlanes.h"

#include <cstring>

// Highway compiles the loops below once for each instruction set and picks one when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "psd/PixelPlanes.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace PixelPlanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Blocks of 64 bytes, so that a block of repeats is a word.
constexpr size_t blockSize = 64;
constexpr hn::CappedTag<uint8_t, blockSize> d8;

void splitRow(const uint8_t *pixels, size_t count, uint8_t *plane0, uint8_t *plane1, uint8_t *plane2, uint8_t *plane3)
{
    const size_t lanes = hn::Lanes(d8);
    const auto splitLanes = [&](const uint8_t *from, size_t at) {
        auto byte0 = hn::Zero(d8);
        auto byte1 = byte0;
        auto byte2 = byte0;
        auto byte3 = byte0;
        hn::LoadInterleaved4(d8, from, byte0, byte1, byte2, byte3);
        hn::StoreU(byte0, d8, plane0 + at);
        hn::StoreU(byte1, d8, plane1 + at);
        hn::StoreU(byte2, d8, plane2 + at);
        hn::StoreU(byte3, d8, plane3 + at);
    };
    size_t i = 0;
    for (; i + lanes <= count; i += lanes)
        splitLanes(pixels + 4 * i, i);
    if (i == count)
        return;
    uint8_t last[4 * blockSize] = {};
    std::memcpy(last, pixels + 4 * i, 4 * (count - i));
    splitLanes(last, i);
}

void findRepeatsInRow(const uint8_t *bytes, size_t count, uint64_t *words)
{
    const size_t lanes = hn::Lanes(d8);
    const size_t blocks = count / blockSize + 1;
    for (size_t block = 0; block < blocks; ++block) {
        const uint8_t *const at = bytes + block * blockSize;
        uint8_t bits[blockSize / 8 + 8]; // a store of mask bits may write 8 bytes
        for (size_t i = 0; i < blockSize; i += lanes) {
            const auto isRepeated = hn::Eq(hn::LoadU(d8, at + i), hn::LoadU(d8, at + i + 1));
            hn::StoreMaskBits(d8, isRepeated, bits + i / 8);
        }
        std::memcpy(words + block, bits, sizeof(uint64_t));
    }
    words[blocks] = 0;
}

} // namespace PixelPlanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace PixelPlanes {

HWY_EXPORT(splitRow);
HWY_EXPORT(findRepeatsInRow);

void split(const uchar *pixels, qsizetype count, const std::array<uchar *, 4> &planes)
{
    HWY_DYNAMIC_DISPATCH(splitRow)(pixels, static_cast<size_t>(count), planes[0], planes[1], planes[2], planes[3]);
}

void findRepeats(const uchar *bytes, qsizetype count, quint64 *words)
{
    HWY_DYNAMIC_DISPATCH(findRepeatsInRow)(bytes, static_cast<size_t>(count), reinterpret_cast<uint64_t *>(words));
    // The last byte has no neighbour; what lies behind it is not the row's.
    const qsizetype last = count - 1;
    words[last / 64] &= (quint64{1} << last % 64) - 1;
    if (last / 64 < count / 64)
        words[count / 64] = 0;
}

} // namespace PixelPlanes
#endif
