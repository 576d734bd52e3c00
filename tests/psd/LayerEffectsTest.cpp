#include "psd/KXPSDLayer.h"
#include "tests/psd/PsdFixtures.h"

#include <gtest/gtest.h>

namespace {
constexpr Colour red{1, 0, 0, 1};
constexpr Colour mixed{0, 0.5, 1, 0.25};

// As files hold these colours.
const std::string redBytes = "00 00 ff ff 00 00 00 00 00 00";
const std::string mixedBytes = "00 00 00 00 7f ff ff ff 00 00";
const std::string blackBytes = "00 00 00 00 00 00 00 00 00 00";
const std::string normal = "38 42 49 4d 6e 6f 72 6d"; // "8BIM", "norm"
const std::string multiply = "38 42 49 4d 6d 75 6c 20";

using RecordWriter = void (KXPSDLayer::*)(ByteBuffer &) const;

std::string effectsRecord(const KXPSDLayer &layer, RecordWriter write)
{
    ByteBuffer buffer;
    (layer.*write)(buffer);
    return hex(buffer);
}

/// A shadow with another value in every field.
void fillShadow(KXPSDShadowEffectLayerInformation &shadow)
{
    shadow.setSize(0x31);
    shadow.setAngle(120);
    shadow.setDistance(0x1234);
    shadow.setColor(red);
    shadow.setBlendMode(KXPSDBlendMode::multiply);
    shadow.setEnabled(true);
    shadow.setUseGlobalLight(true);
    shadow.setOpacity(75);
}

std::string shadowRecord(const std::string &key, const std::string &mode)
{
    return "38 42 49 4d " + key + " 00 00 00 33 00 00 00 02 00 31 00 00 00 00 00 00 00 78 00 00 12 34 00 00 " +
           redBytes + " " + mode + " 01 01 bf " + redBytes;
}

QByteArray effectsBlock(const KXPSDLayer &layer)
{
    ByteBuffer buffer;
    layer.writeEffectsLayerOn(buffer);
    return buffer.takeBytes();
}
} // namespace

TEST(LayerEffects, TheCommonStateIsVisible)
{
    EXPECT_EQ(effectsRecord(KXPSDLayer(), &KXPSDLayer::writeEffectsLayerCommonStateOn),
              "38 42 49 4d 63 6d 6e 53 00 00 00 07 00 00 00 00 01 00 00");
}

TEST(LayerEffects, ADropShadowIsWrittenFieldByField)
{
    KXPSDLayer layer;
    fillShadow(layer.effects().dropShadowEffectLayerInformation.emplace());
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerDropShadowOn), shadowRecord("64 73 64 77", multiply));
}

TEST(LayerEffects, AnOpacityAboveFullIsWrittenAsFull)
{
    KXPSDLayer layer;
    auto &shadow = layer.effects().dropShadowEffectLayerInformation.emplace();
    shadow.setOpacity(150);
    EXPECT_EQ(shadow.opacity(), 100);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerDropShadowOn).substr(52 * 3, 2), "fe");
}

TEST(LayerEffects, AnInnerShadowIsNormallyBlendedWhateverItsMode)
{
    KXPSDLayer layer;
    fillShadow(layer.effects().innerShadowEffectLayerInformation.emplace());
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerInnerShadowOn), shadowRecord("69 73 64 77", normal));
}

TEST(LayerEffects, ANegativeAngleIsTwosComplementInItsLastByteAlone)
{
    KXPSDLayer layer;
    auto &shadow = layer.effects().dropShadowEffectLayerInformation.emplace();
    const auto angleBytes = [&](qint64 angle) {
        shadow.setAngle(angle);
        return effectsRecord(layer, &KXPSDLayer::writeEffectsLayerDropShadowOn).substr(22 * 3, 11);
    };
    EXPECT_EQ(angleBytes(-30), "00 00 00 e2");
    EXPECT_EQ(angleBytes(-360), "00 00 ff 98");
    EXPECT_EQ(angleBytes(-1000), "00 00 ff 98");
    EXPECT_EQ(angleBytes(360), "00 00 01 68");
}

TEST(LayerEffects, AnOuterGlowIsWrittenFieldByField)
{
    KXPSDLayer layer;
    auto &glow = layer.effects().outerGlowEffectLayerInformation.emplace();
    glow.setSize(250);
    glow.setColor(mixed);
    glow.setBlendMode(KXPSDBlendMode::multiply);
    glow.setEnabled(true);
    glow.setOpacity(50);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerOuterGlowOn),
              "38 42 49 4d 6f 67 6c 77 00 00 00 2a 00 00 00 02 00 fa 00 00 00 00 00 00 " + mixedBytes + " " + multiply +
                  " 01 7f " + mixedBytes);
}

TEST(LayerEffects, AnInnerGlowHasItsSourceBeforeTheSecondColour)
{
    KXPSDLayer layer;
    auto &glow = layer.effects().innerGlowEffectLayerInformation.emplace();
    glow.setSize(3);
    glow.setColor(red);
    glow.setBlendMode(KXPSDBlendMode::multiply);
    glow.setEnabled(true);
    glow.setSource(0x102);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerInnerGlowOn),
              "38 42 49 4d 69 67 6c 77 00 00 00 2b 00 00 00 02 00 03 00 00 00 00 00 00 " + redBytes + " " + multiply +
                  " 01 fe 02 " + redBytes);
}

TEST(LayerEffects, ABevelIsWrittenFieldByField)
{
    KXPSDLayer layer;
    auto &bevel = layer.effects().bevelEffectLayerInformation.emplace();
    bevel.setAngle(0x0102);
    bevel.setSize(77);
    bevel.setHighlightBlendMode(KXPSDBlendMode::screen);
    bevel.setShadowBlendMode(KXPSDBlendMode::multiply);
    bevel.setHighlightColor(red);
    bevel.setShadowColor(mixed);
    bevel.setStyle(3);
    bevel.setHighlightOpacity(200);
    bevel.setShadowOpacity(100);
    bevel.setEnabled(true);
    bevel.setUseGlobalLight(false);
    bevel.setDirection(2);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerBevelOn),
              "38 42 49 4d 62 65 76 6c 00 00 00 4e 00 00 00 02 01 02 00 00 00 01 00 00 00 4d 00 00 "
              "38 42 49 4d 73 63 72 6e " +
                  multiply + " " + redBytes + " " + mixedBytes + " 03 fd fe 01 00 02 " + redBytes + " " + mixedBytes);
}

TEST(LayerEffects, ASolidFillIsWrittenFieldByField)
{
    KXPSDLayer layer;
    auto &fill = layer.effects().solidFillEffectLayerInformation.emplace();
    fill.setBlendMode(KXPSDBlendMode::multiply);
    fill.setColor(mixed);
    fill.setOpacity(1);
    fill.setEnabled(true);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerSolidFillOn),
              "38 42 49 4d 73 6f 66 69 00 00 00 22 00 00 00 02 " + multiply + " " + mixedBytes + " 02 01 " +
                  mixedBytes);
}

TEST(LayerEffects, AnAbsentEffectIsWrittenAsADisabledOne)
{
    const KXPSDLayer layer;
    const std::string shadow = " 00 00 00 33 00 00 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 " +
                               blackBytes + " " + normal + " 00 00 fe " + blackBytes;
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerDropShadowOn), "38 42 49 4d 64 73 64 77" + shadow);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerInnerShadowOn), "38 42 49 4d 69 73 64 77" + shadow);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerOuterGlowOn),
              "38 42 49 4d 6f 67 6c 77 00 00 00 2a 00 00 00 02 00 00 00 00 00 00 00 00 " + blackBytes + " " + normal +
                  " 00 fe " + blackBytes);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerInnerGlowOn),
              "38 42 49 4d 69 67 6c 77 00 00 00 2b 00 00 00 02 00 00 00 00 00 00 00 00 " + blackBytes + " " + normal +
                  " 00 fe 00 " + blackBytes);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerBevelOn),
              "38 42 49 4d 62 65 76 6c 00 00 00 4e 00 00 00 02 00 00 00 00 00 01 00 00 00 00 00 00 " + normal + " " +
                  normal + " " + blackBytes + " " + blackBytes + " 01 fe fe 00 01 01 " + blackBytes + " " + blackBytes);
    EXPECT_EQ(effectsRecord(layer, &KXPSDLayer::writeEffectsLayerSolidFillOn),
              "38 42 49 4d 73 6f 66 69 00 00 00 22 00 00 00 02 " + normal + " " + blackBytes + " fe 00 " + blackBytes);
}

TEST(LayerEffects, DisabledOnesAloneAreLeftOut)
{
    KXPSDLayer layer;
    EXPECT_EQ(effectsBlock(layer), QByteArray());
    layer.effects().dropShadowEffectLayerInformation.emplace();
    EXPECT_EQ(effectsBlock(layer), QByteArray());
    layer.effects().bevelEffectLayerInformation.emplace();
    EXPECT_EQ(effectsBlock(layer), QByteArray());
}

TEST(LayerEffects, OneEnabledBringsAllRecordsInTheirOrder)
{
    KXPSDLayer layer;
    layer.effects().dropShadowEffectLayerInformation.emplace().setEnabled(true);

    const QByteArray block = effectsBlock(layer);

    ASSERT_EQ(block.size(), 406);
    EXPECT_EQ(hex(block.left(16)), "38 42 49 4d 6c 72 46 58 00 00 01 8a 00 00 00 07");
    ByteBuffer records;
    layer.writeEffectsLayerCommonStateOn(records);
    layer.writeEffectsLayerDropShadowOn(records);
    layer.writeEffectsLayerInnerShadowOn(records);
    layer.writeEffectsLayerOuterGlowOn(records);
    layer.writeEffectsLayerInnerGlowOn(records);
    layer.writeEffectsLayerBevelOn(records);
    layer.writeEffectsLayerSolidFillOn(records);
    EXPECT_EQ(block.mid(16), records.bytes());
}

TEST(LayerEffects, EachKindAloneBringsTheBlock)
{
    const auto sizeWith = [](auto KXPSDLayerEffects::*kind) {
        KXPSDLayer layer;
        (layer.effects().*kind).emplace().setEnabled(true);
        return effectsBlock(layer).size();
    };
    EXPECT_EQ(sizeWith(&KXPSDLayerEffects::dropShadowEffectLayerInformation), 406);
    EXPECT_EQ(sizeWith(&KXPSDLayerEffects::innerShadowEffectLayerInformation), 406);
    EXPECT_EQ(sizeWith(&KXPSDLayerEffects::outerGlowEffectLayerInformation), 406);
    EXPECT_EQ(sizeWith(&KXPSDLayerEffects::innerGlowEffectLayerInformation), 406);
    EXPECT_EQ(sizeWith(&KXPSDLayerEffects::bevelEffectLayerInformation), 406);
    EXPECT_EQ(sizeWith(&KXPSDLayerEffects::solidFillEffectLayerInformation), 406);
}
