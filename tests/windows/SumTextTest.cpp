#include "windows/inspector/SumText.h"

#include <gtest/gtest.h>

TEST(SumText, SignsMayStandBeforeANumberOrABracket)
{
    EXPECT_EQ(SumText::value(u"+5"), 5);
    EXPECT_EQ(SumText::value(u"-+5"), -5);
    EXPECT_EQ(SumText::value(u"8 - +3 * -(1 + 1)"), 14);
    EXPECT_EQ(SumText::value(u"5+"), std::nullopt);
    EXPECT_EQ(SumText::value(u"+"), std::nullopt);
}

TEST(SumText, TwoHundredCharactersAreRead)
{
    const QString longest = "1" + QString("+1").repeated(99) + " ";
    ASSERT_EQ(longest.size(), 200);
    EXPECT_EQ(SumText::value(longest), 100);
    EXPECT_EQ(SumText::value(longest + " "), std::nullopt);
    EXPECT_FALSE(SumText::isUnfinished(longest + " "));
    EXPECT_EQ(SumText::fault(longest + " "), "That is too long; shorten the sum.");
}

TEST(SumText, WhatIsMissingIsToldAndWhatIsFineIsNot)
{
    EXPECT_EQ(SumText::fault(u""), "There is no number; type one.");
    EXPECT_EQ(SumText::fault(u"(7+5)*64"), "");
}
