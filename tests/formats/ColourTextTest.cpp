#include "formats/ColourText.h"

#include <QJsonArray>

#include <gtest/gtest.h>

TEST(ColourText, EightBitsAreWrittenAsHexadecimalDigits)
{
    EXPECT_EQ(ColourText::encode(NamedColour::red), QJsonValue("#ff0000"));
    EXPECT_EQ(ColourText::encode(Colour::fromRgba8(0xff01080fU)), QJsonValue("#01080f"));
    EXPECT_EQ(ColourText::encode(Colour::fromRgba8(0x80123456U)), QJsonValue("#12345680"));
    EXPECT_EQ(ColourText::encode(NamedColour::clear), QJsonValue("#00000000"));
    EXPECT_EQ(ColourText::encode(std::nullopt), QJsonValue(QJsonValue::Null));
}

TEST(ColourText, OtherComponentsAreWrittenAsNumbers)
{
    EXPECT_EQ(ColourText::encode(NamedColour::orange), QJsonValue(QJsonArray{1, 0.5, 0, 1}));
    EXPECT_EQ(ColourText::encode(Colour{1.25, -0.5, 0, 1}), QJsonValue(QJsonArray{1.25, -0.5, 0, 1}));
}

TEST(ColourText, EveryColourOfEightBitsComesBack)
{
    for (uint byte = 0; byte < 256; ++byte) {
        const Colour colour = Colour::fromRgba8(qRgba(int(byte), int(255 - byte), int(byte / 2), int(byte)));
        const QJsonValue text = ColourText::encode(colour);
        EXPECT_TRUE(text.isString());
        EXPECT_EQ(ColourText::decode(text).value(), OptionalColour(colour)) << byte;
    }
}

TEST(ColourText, OtherFormsAreRefusedByWhatTheyAre)
{
    const auto reason = [](const QJsonValue &value) {
        const Result<OptionalColour> colour = ColourText::decode(value);
        return colour ? QString("accepted") : colour.error().text;
    };
    EXPECT_EQ(reason(5), "expected a colour such as \"#ff0000\", found a number");
    EXPECT_EQ(reason(true), "expected a colour such as \"#ff0000\", found true or false");
    EXPECT_EQ(reason("red"), "expected a colour such as \"#ff0000\", found \"red\"");
    EXPECT_EQ(reason("#ff000"), "expected a colour such as \"#ff0000\", found \"#ff000\"");
    EXPECT_EQ(reason("#ff0000\n"), "expected a colour such as \"#ff0000\", found \"#ff0000\n\"");
    EXPECT_EQ(reason("#ff00000"), "expected a colour such as \"#ff0000\", found \"#ff00000\"");
    EXPECT_EQ(reason(QJsonArray{1, 0, 0}), "expected red, green, blue and alpha, found a list of 3");
    EXPECT_EQ(reason(QJsonArray{1, 0, "x", 1}), "expected numbers for red, green, blue and alpha, found a text");
    EXPECT_EQ(ColourText::decode(QJsonValue::Null).value(), OptionalColour());
}

TEST(ColourText, ACommandLineGivesTheSameForms)
{
    EXPECT_EQ(ColourText::decodeText("#FF8000").value(), Colour::fromRgba8(0xffff8000U));
    EXPECT_EQ(ColourText::decodeText("[1, 0.5, 0, 0.25]").value(), (Colour{1, 0.5, 0, 0.25}));
    EXPECT_FALSE(ColourText::decodeText("").has_value());
    EXPECT_FALSE(ColourText::decodeText("null").has_value());
    EXPECT_FALSE(ColourText::decodeText("{}").has_value());
}
