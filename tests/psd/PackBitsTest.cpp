#include "psd/PackBits.h"

#include "tests/psd/PlainPackBits.h"

#include <gtest/gtest.h>
#include <random>

using PackBits::kxPackedBitsDescription;
using PackBits::kxPackedBitsForRange;

namespace {
QByteArray packed(const QByteArray &bytes)
{
    return kxPackedBitsForRange(bytes, {0, static_cast<quint64>(bytes.size())}, 1);
}

std::string hexOf(const QByteArray &bytes)
{
    return bytes.toHex(' ').toStdString();
}

/// Bytes with no two equal neighbours.
QByteArray ramp(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes.append(static_cast<char>(i));
    return bytes;
}

/// Rows as charts and pictures have them: runs of many lengths, ramps and noise, in any order.
class RandomRows
{
public:
    explicit RandomRows(unsigned seed) : m_random(seed) {}

    QByteArray row()
    {
        const int length = upTo(m_random() % 8 == 0 ? 700 : 150) + 1;
        QByteArray bytes;
        while (bytes.size() < length)
            bytes.append(piece());
        return bytes.left(length);
    }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most + 1)); }
    char few() { return static_cast<char>(upTo(2)); }
    char any() { return static_cast<char>(upTo(255)); }

    QByteArray piece()
    {
        switch (upTo(5)) {
        case 0:
            return QByteArray(upTo(6), few());
        case 1:
            return QByteArray(120 + upTo(20), any());
        case 2:
            return QByteArray(upTo(400), few());
        case 3:
            return ramp(120 + upTo(20));
        case 4:
            return noise(upTo(60), [this] { return few(); });
        default:
            return noise(upTo(150), [this] { return any(); });
        }
    }

    template <typename Byte>
    QByteArray noise(int count, Byte byte)
    {
        QByteArray bytes;
        for (int i = 0; i < count; ++i)
            bytes.append(byte());
        return bytes;
    }

    std::minstd_rand m_random;
};
} // namespace

TEST(PackBits, ThreeEqualBytesAreARunAndTwoAreNot)
{
    EXPECT_EQ(hexOf(packed("bbb")), "fe 62");
    EXPECT_EQ(hexOf(packed("bb")), "01 62 62");
    EXPECT_EQ(hexOf(packed("b")), "00 62");
    EXPECT_EQ(hexOf(packed("abbbc")), "00 61 fe 62 00 63");
}

TEST(PackBits, ARunHoldsAtMost127Bytes)
{
    EXPECT_EQ(hexOf(packed(QByteArray(127, 'b'))), "82 62");
    EXPECT_EQ(hexOf(packed(QByteArray(128, 'b'))), "82 62 00 62");
    EXPECT_EQ(hexOf(packed(QByteArray(129, 'b'))), "82 62 01 62 62");
    EXPECT_EQ(hexOf(packed(QByteArray(130, 'b'))), "82 62 fe 62");
    EXPECT_EQ(hexOf(packed(QByteArray(300, 'b'))), "82 62 82 62 d3 62");
}

TEST(PackBits, WhatARunLeavesOverJoinsTheLiteralBehind)
{
    EXPECT_EQ(hexOf(packed(QByteArray(128, 'b') + "cd")), "82 62 02 62 63 64");
    EXPECT_EQ(hexOf(packed(QByteArray(129, 'b') + "bcc")), "82 62 fe 62 01 63 63");
}

TEST(PackBits, ALiteralHoldsAtMost128Bytes)
{
    for (const int count : {127, 128})
        EXPECT_EQ(packed(ramp(count)), char(count - 1) + ramp(count)) << count;
    EXPECT_EQ(packed(ramp(130)), "\x7f" + ramp(128) + "\x01\x80\x81");
    EXPECT_EQ(packed(ramp(129) + QByteArray(3, 'b')), "\x7f" + ramp(128) + QByteArray("\x00\x80\xfe", 3) + 'b');
}

TEST(PackBits, ARunBehindALiteralOfAnyLengthIsFound)
{
    for (int literals = 0; literals < 300; ++literals) {
        for (int run = 0; run < 140; ++run) {
            const QByteArray row = ramp(literals).replace('z', '0') + QByteArray(run, 'z') + ramp(literals % 7);
            ASSERT_EQ(packed(row), row.isEmpty() ? packed(row) : PlainPackBits::pack(row)) << literals << ' ' << run;
        }
    }
}

TEST(PackBits, ARangeWithoutLengthYieldsItsFirstByte)
{
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {2, 0}, 1)), "00 63");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {2, 0}, 4)), "00 63");
}

TEST(PackBits, ASkipOfFourPacksOneChannel)
{
    EXPECT_EQ(hexOf(kxPackedBitsForRange("RGBARGBaRGbA", {2, 10}, 4)), "02 42 42 62");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("RGBARGBaRGbA", {2, 8}, 4)), "01 42 42");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("RGBARGBaRGbA", {3, 9}, 4)), "02 41 61 41");
}

TEST(PackBits, BytesBeyondTheBlockAreLeftOut)
{
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {2, 9}, 1)), "01 63 64");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {2, ~quint64{0}}, 1)), "01 63 64");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {4, 1}, 1)), "");
    EXPECT_EQ(hexOf(kxPackedBitsForRange({}, {0, 0}, 4)), "");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {0, 4}, 0)), "");
    EXPECT_EQ(hexOf(kxPackedBitsForRange("abcd", {0, 4}, 0x7fffffff)), "00 61");
}

TEST(PackBits, AMillionRowsArePackedAsByThePlainWay)
{
    constexpr unsigned seed = 20;
    constexpr int rows = 1'000'000;
    RandomRows random(seed);
    for (int i = 0; i < rows; ++i) {
        const QByteArray row = random.row();
        const QByteArray stream = packed(row);
        ASSERT_EQ(stream, PlainPackBits::pack(row)) << "seed " << seed << " row " << i << ": " << hexOf(row);
        ASSERT_EQ(PlainPackBits::unpack(stream), row) << "seed " << seed << " row " << i;
    }
}

TEST(PackBits, ADescriptionNamesEachPacket)
{
    EXPECT_EQ(kxPackedBitsDescription(packed("abbbb")),
              "Printing 1 literal bytes. Printing 98 4 times. Total: 5 bytes decoded.");
    EXPECT_EQ(kxPackedBitsDescription(QByteArray("\x80\xff", 2)), "Printing 255 129 times. Total: 129 bytes decoded.");
    EXPECT_EQ(kxPackedBitsDescription({}), "Total: 0 bytes decoded.");
}

TEST(PackBits, ADescriptionEndsWhereAPacketIsCutOff)
{
    EXPECT_EQ(kxPackedBitsDescription(QByteArray("\x05zz", 3)), "Total: 0 bytes decoded.");
    EXPECT_EQ(kxPackedBitsDescription(QByteArray("\x00z\xfe", 3)), "Printing 1 literal bytes. Total: 1 bytes decoded.");
}
