#include "psd/ByteBuffer.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace {
std::string value(qint64 number, int length)
{
    ByteBuffer buffer;
    buffer.kxAppendValue(number, length);
    return buffer.bytes().toHex(' ').toStdString();
}

std::string colourBytes(const Colour &of)
{
    ByteBuffer buffer;
    buffer.kxAppendCGColorRef(of);
    return buffer.bytes().toHex(' ').toStdString();
}
} // namespace

TEST(ByteBuffer, ValuesAreBigEndian)
{
    EXPECT_EQ(value(1, 2), "00 01");
    EXPECT_EQ(value(65535, 2), "ff ff");
    EXPECT_EQ(value(0x0102030405060708 & ~0xff, 8), "01 02 03 04 05 06 07 00");
    EXPECT_EQ(value(0x12345678, 4), "12 34 56 78");
}

TEST(ByteBuffer, AValueKeepsTheLowBytesThatFit)
{
    EXPECT_EQ(value(509, 1), "fd");
    EXPECT_EQ(value(0x123456, 2), "34 56");
}

TEST(ByteBuffer, OnlyTheLastByteOfANegativeValueIsTwosComplement)
{
    EXPECT_EQ(value(-1, 2), "00 ff");
    EXPECT_EQ(value(-1, 4), "00 00 00 ff");
    EXPECT_EQ(value(-360, 4), "00 00 ff 98"); // -360 / 256 is cut to -1
    EXPECT_EQ(value(-256, 2), "ff 00");
}

TEST(ByteBuffer, ValuesAtTheEndsOf64BitsAreWritten)
{
    // As doubles these are the powers of two themselves.
    EXPECT_EQ(value(std::numeric_limits<qint64>::max(), 8), "80 00 00 00 00 00 00 00");
    EXPECT_EQ(value(std::numeric_limits<qint64>::min(), 8), "80 00 00 00 00 00 00 00");
}

TEST(ByteBuffer, ALengthOfNoughtAppendsNothing)
{
    EXPECT_EQ(value(7, 0), "");
    EXPECT_EQ(value(7, -3), "");
    EXPECT_EQ(value(7, 11), "00 00 00 00 00 00 00 07");
}

TEST(ByteBuffer, ATextIsItsUtf8)
{
    ByteBuffer buffer;
    buffer.kxAppendUTF8String(u"8BIM");
    buffer.kxAppendUTF8String(u"é\U0001F600");
    EXPECT_EQ(buffer.bytes().toHex(' ').toStdString(), "38 42 49 4d c3 a9 f0 9f 98 80");
}

TEST(ByteBuffer, AColourIsThreeWordsBetweenTwoZeros)
{
    EXPECT_EQ(colourBytes({1, 0, 0.5, 0.3}), "00 00 ff ff 00 00 7f ff 00 00");
    EXPECT_EQ(colourBytes(NamedColour::white), "00 00 ff ff ff ff ff ff 00 00");
}

TEST(ByteBuffer, AComponentOutsideItsRangeKeepsItsLowBits)
{
    EXPECT_EQ(colourBytes({2, -1, 1e300, 1}), "00 00 ff ff 00 00 80 00 00 00");
    EXPECT_EQ(colourBytes({std::numeric_limits<double>::quiet_NaN(), 0, 0, 1}), "00 00 00 00 00 00 00 00 00 00");
}

TEST(ByteBuffer, AValueIsReplacedInItsPlace)
{
    ByteBuffer buffer;
    buffer.kxAppendValue(0, 4);
    buffer.kxAppendUTF8String(u"rest");
    buffer.replaceValue(1, 0x1234, 2);
    EXPECT_EQ(buffer.bytes(), QByteArray("\0\x12\x34\0rest", 8));
}

TEST(ByteBuffer, TakenBytesLeaveItEmpty)
{
    ByteBuffer buffer;
    buffer.kxAppendUTF8String(u"8BPS");
    EXPECT_EQ(buffer.takeBytes(), QByteArray("8BPS"));
    EXPECT_EQ(buffer.length(), 0);
}

TEST(ByteBuffer, RoomIsFilledAfterwards)
{
    ByteBuffer buffer;
    buffer.append("ab");
    EXPECT_EQ(buffer.appendRoom(3), 2);
    buffer.append("f");
    std::copy_n("cde", 3, buffer.at(2));
    EXPECT_EQ(buffer.bytes(), "abcdef");
    EXPECT_EQ(buffer.appendRoom(0), 6);
    EXPECT_EQ(buffer.length(), 6);
}
