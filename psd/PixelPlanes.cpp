#include "psd/PixelPlanes.h"

#include <bit>
#include <cstring>

// Highway compiles the loops below once for each instruction set and picks one when the program runs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "psd/PixelPlanes.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace PixelPlanes::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Blocks of 64 bytes, so that a bit for each is a word.
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

/// Bit i: bytes i to i + 2 of the block are equal.
HWY_INLINE uint64_t equalThrees(const uint8_t *block)
{
    const size_t lanes = hn::Lanes(d8);
    uint8_t bits[blockSize / 8 + 8]; // a store of mask bits may write 8 bytes
    for (size_t i = 0; i < blockSize; i += lanes) {
        const auto second = hn::LoadU(d8, block + i + 1);
        const auto areEqual =
            hn::And(hn::Eq(hn::LoadU(d8, block + i), second), hn::Eq(second, hn::LoadU(d8, block + i + 2)));
        hn::StoreMaskBits(d8, areEqual, bits + i / 8);
    }
    uint64_t word;
    std::memcpy(&word, bits, sizeof word);
    return word;
}

uint32_t *findRunsInRow(const uint8_t *bytes, size_t count, uint32_t *out)
{
    uint64_t lastBit = 0; // of the block before
    for (size_t i = 0; i < count; i += blockSize) {
        uint64_t threes = equalThrees(bytes + i);
        if (const size_t rest = count - i; rest < blockSize + 2) // what lies behind the last byte is not the row's
            threes &= rest > 2 ? ~uint64_t{0} >> (blockSize + 2 - rest) : 0;
        uint64_t changes = threes ^ (threes << 1 | lastBit);
        lastBit = threes >> (blockSize - 1);
        for (; changes != 0; changes &= changes - 1)
            *out++ = static_cast<uint32_t>(i + static_cast<size_t>(std::countr_zero(changes)));
    }
    return out;
}

} // namespace PixelPlanes::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace PixelPlanes {

HWY_EXPORT(splitRow);
HWY_EXPORT(findRunsInRow);

void split(const uchar *pixels, qsizetype count, const std::array<uchar *, 4> &planes)
{
    HWY_DYNAMIC_DISPATCH(splitRow)(pixels, static_cast<size_t>(count), planes[0], planes[1], planes[2], planes[3]);
}

std::size_t findRuns(const uchar *bytes, qsizetype count, quint32 *ends)
{
    return static_cast<std::size_t>(HWY_DYNAMIC_DISPATCH(findRunsInRow)(bytes, static_cast<size_t>(count), ends) -
                                    ends);
}

} // namespace PixelPlanes
#endif
