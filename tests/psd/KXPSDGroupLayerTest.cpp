#include "psd/KXPSDGroupLayer.h"

#include "psd/KXPSDWriter.h"
#include "tests/psd/PsdFixtures.h"

#include <gtest/gtest.h>

namespace {
/// The text "</Layer group>".
const std::string boundName = "0e 3c 2f 4c 61 79 65 72 20 67 72 6f 75 70 3e 20";
const std::string boundUnicodeName =
    "38 42 49 4d 6c 75 6e 69 00 00 00 20 00 00 00 0e 00 3c 00 2f 00 4c 00 61 00 79 00 65 "
    "00 72 00 20 00 67 00 72 00 6f 00 75 00 70 00 3e";
const std::string noMaskNorRanges = "00 00 00 00 00 00 00 00";

std::shared_ptr<KXPSDGroupOpeningLayer> openingWithEffect(const QString &name, float opacity, bool isOpened)
{
    auto opening = std::make_shared<KXPSDGroupOpeningLayer>(name, opacity, isOpened);
    opening->effects().outerGlowEffectLayerInformation.emplace().setEnabled(true);
    return opening;
}

QByteArray groupRecord(KXPSDLayer &layer)
{
    ByteBuffer buffer;
    layer.writeLayerInformationOn(buffer);
    return buffer.takeBytes();
}
} // namespace

TEST(KXPSDGroupLayer, ANewOneIsClosedAndOpaque)
{
    const KXPSDGroupOpeningLayer layer("A");
    EXPECT_EQ(layer.name(), "A");
    EXPECT_EQ(layer.opacity(), 1.0f);
    EXPECT_FALSE(layer.isOpened());
    EXPECT_EQ(layer.numberOfChannels(), 4);
    EXPECT_EQ(layer.blendMode(), KXPSDBlendMode::normal);
    EXPECT_EQ(KXPSDGroupClosingLayer().groupOpeningLayer(), nullptr);
}

TEST(KXPSDGroupLayer, HasEmptyUncompressedChannels)
{
    KXPSDGroupClosingLayer layer;
    EXPECT_EQ(layer.layerChannels(), std::vector<QByteArray>(4, QByteArray(2, '\0')));
    layer.setNumberOfChannels(3);
    EXPECT_EQ(layer.layerChannels().size(), 3u);
}

TEST(KXPSDGroupLayer, HasFourChannelsInADocumentOfThree)
{
    KXPSDWriter writer({3, 1}, false);
    const auto opening = writer.openGroupLayerWithName("A");
    const auto member = writer.addLayerWithCGImage(raster(1, 1, Qt::red), "member");
    EXPECT_EQ(opening->numberOfChannels(), 4);
    EXPECT_EQ(member->numberOfChannels(), 3);
    EXPECT_EQ(writer.closeCurrentGroupLayer()->numberOfChannels(), 4);
}

TEST(KXPSDGroupLayer, IsAlwaysVisible)
{
    KXPSDGroupOpeningLayer layer;
    EXPECT_TRUE(layer.hasValidSize());
    layer.setOffset({1e300, -1e300});
    EXPECT_TRUE(layer.hasValidSize());
}

TEST(KXPSDGroupLayer, TakesOverAllOfAnotherButItsBlendMode)
{
    const auto other = openingWithEffect("A", 0.25f, true);
    other->setBlendMode(KXPSDBlendMode::screen);
    other->setOffset({1, 2});

    KXPSDGroupClosingLayer layer;
    layer.effects().solidFillEffectLayerInformation.emplace();
    layer.copyGroupInformationFrom(*other);

    EXPECT_EQ(layer.name(), "A");
    EXPECT_EQ(layer.opacity(), 0.25f);
    EXPECT_TRUE(layer.isOpened());
    EXPECT_EQ(layer.effects(), other->effects());
    EXPECT_EQ(layer.blendMode(), KXPSDBlendMode::normal);
    EXPECT_EQ(layer.offset(), QPointF(0, 0));
}

TEST(KXPSDGroupLayer, TheLowerBoundHasANameOfItsOwnAndNoEffects)
{
    const auto opening = openingWithEffect("A", 0.25f, true);
    EXPECT_EQ(hex(opening->extraLayerInformation()), noMaskNorRanges + " " + boundName +
                                                         " 38 42 49 4d 6c 73 63 74 00 00 00 04 00 00 00 03 " +
                                                         boundUnicodeName);
    EXPECT_EQ(opening->name(), "A");
}

TEST(KXPSDGroupLayer, AGroupTellsWhetherItIsOpened)
{
    const auto extra = [](bool isOpened) {
        KXPSDGroupClosingLayer closing("A", 1, isOpened);
        return hex(closing.extraLayerInformation());
    };
    const std::string name = "01 41 20 00";
    const std::string unicodeName = "38 42 49 4d 6c 75 6e 69 00 00 00 06 00 00 00 01 00 41";
    EXPECT_EQ(extra(true), noMaskNorRanges + " " + name +
                               " 38 42 49 4d 6c 73 63 74 00 00 00 0c 00 00 00 01 38 42 49 4d 70 61 73 73 " +
                               unicodeName);
    EXPECT_EQ(extra(false), noMaskNorRanges + " " + name +
                                " 38 42 49 4d 6c 73 63 74 00 00 00 0c 00 00 00 02 38 42 49 4d 70 61 73 73 " +
                                unicodeName);
}

TEST(KXPSDGroupLayer, AGroupsEffectsStandBetweenDividerAndUnicodeName)
{
    const auto opening = openingWithEffect("A", 1, false);
    KXPSDGroupClosingLayer closing;
    closing.setGroupOpeningLayer(opening);
    ByteBuffer effects;
    opening->writeEffectsLayerOn(effects);

    const QByteArray extra = closing.extraLayerInformation().bytes();

    EXPECT_EQ(extra.size(), 12 + 24 + 406 + 18);
    EXPECT_EQ(extra.mid(12 + 24, 406), effects.bytes());
}

TEST(KXPSDGroupLayer, TheValuesOfTheOpeningLayerAreTakenOverBeforeTheRecordBegins)
{
    const auto opening = openingWithEffect("A", 0.2f, true);
    KXPSDGroupClosingLayer closing("other", 1, false);
    closing.setGroupOpeningLayer(opening);
    opening->setOpacity(0.4f); // what it has when it is written counts

    const QByteArray bytes = groupRecord(closing);

    EXPECT_EQ(static_cast<uchar>(bytes[50]), 102);
    EXPECT_EQ(closing.name(), "A");
    EXPECT_TRUE(closing.isOpened());
}

TEST(KXPSDGroupLayer, ExtraInformationAloneTakesThemOverToo)
{
    KXPSDGroupClosingLayer closing("other");
    closing.setGroupOpeningLayer(std::make_shared<KXPSDGroupOpeningLayer>("A", 0.4f, true));
    closing.extraLayerInformation();
    EXPECT_EQ(closing.name(), "A");
    EXPECT_EQ(closing.opacity(), 0.4f);
}

TEST(KXPSDGroupLayer, RecordsHaveChannelsOfTwoBytes)
{
    KXPSDGroupOpeningLayer layer("A", 0.5f);
    layer.setDocumentSize({300, 200});
    EXPECT_EQ(hex(groupRecord(layer).left(58)),
              "00 00 00 00 00 00 00 00 00 00 00 c8 00 00 01 2c 00 04 "
              "00 00 00 00 00 02 00 01 00 00 00 02 00 02 00 00 00 02 ff ff 00 00 00 02 "
              "38 42 49 4d 6e 6f 72 6d 80 00 00 00 00 00 00 54");
}
