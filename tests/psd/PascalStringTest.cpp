#include "psd/PascalString.h"

#include <QString>

#include <gtest/gtest.h>

using namespace PascalString;

TEST(PascalString, ALengthIsRoundedUpToTheMultiple)
{
    EXPECT_EQ(kxPascalStringLengthPaddedTo(u"Wall5", 4), 8);
    EXPECT_EQ(kxPascalStringLengthPaddedTo(u"Wall", 4), 4);
    EXPECT_EQ(kxPascalStringLengthPaddedTo(u"", 4), 0);
    EXPECT_EQ(kxPascalStringLengthPaddedTo(u"Wall5", 1), 5);
}

TEST(PascalString, LengthsCountUtf16Units)
{
    EXPECT_EQ(kxPascalStringLengthPaddedTo(u"\U0001F600\U0001F600\U0001F600", 4), 8);
}

TEST(PascalString, ThePaddingIsRepeatedFromItsFirstCharacter)
{
    EXPECT_EQ(kxPascalStringPaddedTo(u"Wall5", 4, u"xy"), QByteArray("Wall5xyx"));
}

TEST(PascalString, WithoutAPaddingZerosFollow)
{
    EXPECT_EQ(kxPascalStringPaddedTo(u"Wall5", 4), QByteArray("Wall5\0\0\0", 8));
    EXPECT_EQ(kxPascalStringPaddedTo(u"Wall", 4), QByteArray("Wall"));
    EXPECT_EQ(kxPascalStringPaddedTo(u"", 4), QByteArray());
}

TEST(PascalString, OtherAlphabetsKeepAllTheirBytes)
{
    EXPECT_EQ(kxPascalStringPaddedTo(u"é", 4), QByteArray("\xc3\xa9\0\0\0", 5));
}
