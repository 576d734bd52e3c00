#include "psd/KXPSDLayer.h"
#include "tests/psd/PsdFixtures.h"

#include <QtNumeric>

#include <gtest/gtest.h>
#include <limits>

namespace {
std::string paddedName(const QString &name)
{
    KXPSDLayer layer;
    layer.setName(name);
    ByteBuffer buffer;
    layer.writeNameOn(buffer);
    return hex(buffer);
}

std::string unicodeName(const QString &name)
{
    KXPSDLayer layer;
    layer.setName(name);
    ByteBuffer buffer;
    layer.writeUnicodeNameOn(buffer);
    return hex(buffer);
}

QByteArray record(KXPSDLayer &layer)
{
    ByteBuffer buffer;
    layer.writeLayerInformationOn(buffer);
    return buffer.takeBytes();
}

/// The byte of an opacity in a record of four channels.
int opacityByte(float opacity)
{
    KXPSDLayer layer;
    layer.setOpacity(opacity);
    return static_cast<uchar>(record(layer)[18 + 4 * 6 + 8]);
}
} // namespace

TEST(LayerRecord, ANameIsFilledUpToAMultipleOfFour)
{
    EXPECT_EQ(paddedName(""), "00 20 00 00");
    EXPECT_EQ(paddedName("A"), "01 41 20 00");
    EXPECT_EQ(paddedName("AB"), "02 41 42 20");
    EXPECT_EQ(paddedName("ABC"), "03 41 42 43");
    EXPECT_EQ(paddedName("ABCD"), "04 41 42 43 44 20 00 00");
}

TEST(LayerRecord, ANameBeyondAsciiIsCutToItsLengthInUtf16)
{
    EXPECT_EQ(paddedName("Bühne"), "05 42 c3 bc 68 6e 65 20");
    EXPECT_EQ(paddedName("壁"), "01 e5 a3 81");
    EXPECT_EQ(paddedName(QString(QChar(0xd83d))).size(), 11u); // half a pair has no bytes of its own
}

TEST(LayerRecord, ANameMayHoldAZero)
{
    EXPECT_EQ(paddedName(QString("A") + QChar(0) + 'B'), "03 41 00 42");
    EXPECT_EQ(unicodeName(QString("A") + QChar(0) + 'B'),
              "38 42 49 4d 6c 75 6e 69 00 00 00 0a 00 00 00 03 00 41 00 00 00 42");
}

TEST(LayerRecord, ThreeHundredEmojiKeepTheLowByteOfTheirLength)
{
    const QString name = QString("\U0001F600").repeated(300);
    KXPSDLayer layer;
    layer.setName(name);
    ByteBuffer buffer;
    layer.writeNameOn(buffer);
    EXPECT_EQ(buffer.length(), 604); // 600 units and the length byte, filled up
    EXPECT_EQ(hex(buffer.bytes().left(9)), "58 f0 9f 98 80 f0 9f 98 80");

    buffer = {};
    layer.writeUnicodeNameOn(buffer);
    EXPECT_EQ(buffer.length(), 16 + 1200);
    EXPECT_EQ(hex(buffer.bytes().left(20)), "38 42 49 4d 6c 75 6e 69 00 00 04 b4 00 00 02 58 d8 3d de 00");
}

TEST(LayerRecord, TheUnicodeNameHasNeitherEndNorPadding)
{
    EXPECT_EQ(unicodeName(""), "38 42 49 4d 6c 75 6e 69 00 00 00 04 00 00 00 00");
    EXPECT_EQ(unicodeName("Aü壁"), "38 42 49 4d 6c 75 6e 69 00 00 00 0a 00 00 00 03 00 41 00 fc 58 c1");
    EXPECT_EQ(unicodeName(QString(QChar(0xdc00))), "38 42 49 4d 6c 75 6e 69 00 00 00 06 00 00 00 01 dc 00");
}

TEST(LayerRecord, IsWrittenFieldByField)
{
    KXPSDLayer layer;
    layer.setDocumentSize({3, 2});
    layer.setImage(raster(3, 2, Qt::red));
    layer.setName("A");
    layer.setBlendMode(KXPSDBlendMode::hue);
    layer.setOpacity(0.5f);
    EXPECT_EQ(hex(record(layer)), "00 00 00 00 00 00 00 00 00 00 00 02 00 00 00 03 00 04 "
                                  "00 00 00 00 00 0a 00 01 00 00 00 0a 00 02 00 00 00 0a ff ff 00 00 00 0a "
                                  "38 42 49 4d 68 75 65 20 80 00 00 00 00 00 00 1e "
                                  "00 00 00 00 00 00 00 00 01 41 20 00 "
                                  "38 42 49 4d 6c 75 6e 69 00 00 00 06 00 00 00 01 00 41");
}

TEST(LayerRecord, OfThreeChannelsHasNoTransparency)
{
    KXPSDLayer layer;
    layer.setNumberOfChannels(3);
    layer.setDocumentSize({3, 2});
    layer.setImage(raster(3, 2, Qt::red));
    EXPECT_EQ(hex(record(layer).left(44)), "00 00 00 00 00 00 00 00 00 00 00 02 00 00 00 03 00 03 "
                                           "00 00 00 00 00 0a 00 01 00 00 00 0a 00 02 00 00 00 0a "
                                           "38 42 49 4d 6e 6f 72 6d");
}

TEST(LayerRecord, HasThreeOrFourChannels)
{
    KXPSDLayer layer;
    layer.setNumberOfChannels(-7);
    EXPECT_EQ(layer.numberOfChannels(), 3);
    layer.setNumberOfChannels(std::numeric_limits<qint64>::max());
    EXPECT_EQ(layer.numberOfChannels(), 4);
}

TEST(LayerRecord, AnOpacityIsASinglePrecisionProductRoundedUp)
{
    EXPECT_EQ(opacityByte(1), 255);
    EXPECT_EQ(opacityByte(0), 0);
    EXPECT_EQ(opacityByte(0.5f), 128);
    EXPECT_EQ(opacityByte(0.2f), 51); // in double precision it would be 52
    EXPECT_EQ(opacityByte(0.001f), 1);
}

TEST(LayerRecord, AnOpacityOutOfRangeKeepsItsLowByte)
{
    EXPECT_EQ(opacityByte(2), 510 - 256);
    EXPECT_EQ(opacityByte(-0.01f), 0xfe);
    EXPECT_EQ(opacityByte(std::numeric_limits<float>::quiet_NaN()), 0);
    opacityByte(std::numeric_limits<float>::infinity()); // any byte, but one
}

TEST(LayerRecord, ExtraInformationHasEffectsBetweenTheNames)
{
    KXPSDLayer layer;
    layer.setName("A");
    layer.effects().solidFillEffectLayerInformation.emplace().setEnabled(true);
    ByteBuffer effects;
    layer.writeEffectsLayerOn(effects);

    const QByteArray extra = layer.extraLayerInformation().bytes();

    EXPECT_EQ(hex(extra.left(12)), "00 00 00 00 00 00 00 00 01 41 20 00");
    EXPECT_EQ(extra.mid(12, 406), effects.bytes());
    EXPECT_EQ(hex(extra.mid(418)), unicodeName("A"));
}

TEST(LayerRecord, LengthsOfChannelsCanBePutInLater)
{
    KXPSDLayer layer;
    ByteBuffer buffer;
    buffer.appendZeros(7);
    layer.writeLayerRecordOn(buffer, {});
    EXPECT_EQ(hex(buffer.bytes().mid(7 + 18, 24)),
              "00 00 00 00 00 00 00 01 00 00 00 00 00 02 00 00 00 00 ff ff 00 00 00 00");
    const std::vector<qint64> lengths = {0x01020304, 5, 6, 0x7fffffff};
    KXPSDLayer::replaceChannelLengths(buffer, 7, lengths);
    EXPECT_EQ(hex(buffer.bytes().mid(7 + 18, 24)),
              "00 00 01 02 03 04 00 01 00 00 00 05 00 02 00 00 00 06 ff ff 7f ff ff ff");
}

TEST(LayerRecord, MoreLengthsThanChannelsAreLeftOut)
{
    KXPSDLayer layer;
    layer.setNumberOfChannels(3);
    ByteBuffer buffer;
    const std::vector<qint64> lengths = {1, 2, 3, 4, 5};
    layer.writeLayerRecordOn(buffer, lengths);
    EXPECT_EQ(hex(buffer.bytes().mid(18, 22)), "00 00 00 00 00 01 00 01 00 00 00 02 00 02 00 00 00 03 38 42 49 4d");
}

TEST(LayerRecord, DocumentSidesAreCutToWholeNumbers)
{
    const auto sides = [](double width, double height) {
        KXPSDLayer layer;
        layer.setDocumentSize({width, height});
        return hex(record(layer).mid(8, 8));
    };
    EXPECT_EQ(sides(10.9, 20.9), "00 00 00 14 00 00 00 0a");
    EXPECT_EQ(sides(70000, 16777217), "01 00 00 01 00 01 11 70");
    EXPECT_EQ(sides(qQNaN(), qQNaN()), "00 00 00 00 00 00 00 00");
    EXPECT_EQ(sides(1e300, 1e300).size(), 23u);
}
