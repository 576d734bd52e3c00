#include "archive/ArchiveObject.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {
ArchiveObject holding(const ArchiveValue &value)
{
    ArchiveObject object("LWScreen");
    object.encode("key", value);
    return object;
}

/// The error's text, or "no error".
template <typename T>
QString errorOf(const Result<T> &result)
{
    return result ? "no error" : result.error().text;
}
} // namespace

TEST(ArchiveObject, AbsentKeyAndNilReadAsZeroNoOrNil)
{
    for (const ArchiveObject &object : {ArchiveObject("LWScreen"), holding({})}) {
        EXPECT_EQ(object.decodeInt32("key"), 0);
        EXPECT_EQ(object.decodeBool("key"), false);
        EXPECT_EQ(object.decodeColour("key").value(), OptionalColour());
        EXPECT_TRUE(object.decodeText("key")->isNull());
        EXPECT_EQ(object.decodeTextList("key").value(), std::optional<QStringList>());
        EXPECT_TRUE(object.decodeAddress("key")->isNil());
    }
}

TEST(ArchiveObject, NumbersAndBooleansStandForEachOther)
{
    EXPECT_EQ(holding({true}).decodeInt32("key"), 1);
    EXPECT_EQ(holding({12.0}).decodeInt32("key"), 12);
    EXPECT_EQ(holding({-2147483648.0}).decodeInt32("key"), std::numeric_limits<qint32>::min());
    EXPECT_EQ(holding({qint64{2147483647}}).decodeInt32("key"), 2147483647);
    EXPECT_EQ(holding({qint64{1}}).decodeBool("key"), true);
    EXPECT_EQ(holding({qint64{0}}).decodeBool("key"), false);
    EXPECT_EQ(holding({1.0}).decodeBool("key"), true);
}

TEST(ArchiveObject, NumberThatDoesNotFitIsNamed)
{
    EXPECT_EQ(errorOf(holding({qint64{2147483648}}).decodeInt32("key")),
              "\"key\" is the number 2147483648, expected a whole number of 32 bits");
    EXPECT_EQ(errorOf(holding({qint64{-2147483649}}).decodeInt32("key")),
              "\"key\" is the number -2147483649, expected a whole number of 32 bits");
    EXPECT_EQ(errorOf(holding({12.5}).decodeInt32("key")),
              "\"key\" is the number 12.5, expected a whole number of 32 bits");
    EXPECT_EQ(errorOf(holding({qint64{2}}).decodeBool("key")), "\"key\" is the number 2, expected a boolean");
    EXPECT_FALSE(holding({1e300}).decodeInt32("key"));
    EXPECT_FALSE(holding({std::nan("")}).decodeInt32("key"));
}

TEST(ArchiveObject, WrongKindIsToldWithWhatWasExpected)
{
    const ArchiveObject number = holding({qint64{7}});
    EXPECT_EQ(errorOf(number.decodeColour("key")), "\"key\" is a number, expected a colour");
    EXPECT_EQ(errorOf(number.decodeText("key")), "\"key\" is a number, expected a text");
    EXPECT_EQ(errorOf(number.decodeTextList("key")), "\"key\" is a number, expected a list of texts");
    EXPECT_EQ(errorOf(number.decodeAddress("key")), "\"key\" is a number, expected an address");

    const ArchiveObject text = holding({QString("wall")});
    EXPECT_EQ(errorOf(text.decodeInt32("key")), "\"key\" is a text, expected a whole number of 32 bits");
    EXPECT_EQ(errorOf(text.decodeBool("key")), "\"key\" is a text, expected a boolean");
}

TEST(ArchiveObject, FaultIsToldByWhatWasFound)
{
    const ArchiveObject object = holding({ArchiveFault{"a pattern image"}});

    EXPECT_EQ(errorOf(object.decodeColour("key")), "\"key\" is a pattern image, expected a colour");
}

TEST(ArchiveObject, ListEntryThatIsNoTextIsTold)
{
    const ArchiveObject object = holding(ArchiveValue::list({{QString("0,1")}, {QString("0,2")}, {true}}));

    EXPECT_EQ(errorOf(object.decodeTextList("key")), "entry 2 of \"key\" is a boolean, expected a text");
}

TEST(ArchiveObject, EncodingAgainReplacesInPlace)
{
    ArchiveObject object("LWScreen");
    object.encodeInt32("col", 3);
    object.encodeInt32("row", 4);
    object.encodeInt32("col", 5);

    ASSERT_EQ(object.entries().size(), 2U);
    EXPECT_EQ(object.entries().front().first, "col");
    EXPECT_EQ(object.decodeInt32("col"), 5);
}

TEST(ArchiveObject, EmptyIsNotNil)
{
    ArchiveObject object("LWScreen");
    object.encodeText("empty", "");
    object.encodeText("nil", QString());
    object.encodeTextList("none", QStringList());

    EXPECT_FALSE(object.decodeText("empty")->isNull());
    EXPECT_TRUE(object.value("nil").isNil());
    EXPECT_EQ(object.decodeTextList("none").value(), std::optional(QStringList()));
}

TEST(ArchiveValue, TellsItsKind)
{
    EXPECT_EQ(ArchiveValue().kind(), "nil");
    EXPECT_EQ(ArchiveValue{false}.kind(), "a boolean");
    EXPECT_EQ(ArchiveValue{0.5}.kind(), "a number");
    EXPECT_EQ(ArchiveValue{QByteArray("x")}.kind(), "data");
    EXPECT_EQ(ArchiveValue{NamedColour::red}.kind(), "a colour");
    EXPECT_EQ((ArchiveValue{Address{"a", {}}}.kind()), "an address");
    EXPECT_EQ(ArchiveValue{IndexSet()}.kind(), "an index set");
    EXPECT_EQ(ArchiveValue::list({}).kind(), "a list");
    EXPECT_EQ(ArchiveValue{std::make_shared<const ArchiveObject>("LWStill")}.kind(), "an object of class LWStill");
}

TEST(ArchiveValue, WhatIsTakenApartMustBeThere)
{
    EXPECT_EQ(errorOf(ArchiveValue().toList("the list of layers")), "the list of layers is nil, expected a list");
    EXPECT_EQ(errorOf(ArchiveValue{true}.toObject("layer 3")), "layer 3 is a boolean, expected an object");
    EXPECT_EQ(errorOf(ArchiveValue().toIndexSet("the rows")), "the rows is nil, expected an index set");
}
