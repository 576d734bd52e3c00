#include "psd/KXPSDEffects.h"

#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

namespace {
constexpr qint64 least = std::numeric_limits<qint64>::min();
constexpr qint64 most = std::numeric_limits<qint64>::max();
constexpr Colour blackWithAlpha0{0, 0, 0, 0};

void expectCommonDefaults(const KXPSDEffectLayerInformation &effect)
{
    EXPECT_FALSE(effect.enabled());
    EXPECT_EQ(effect.blendMode(), KXPSDBlendMode::normal);
    EXPECT_EQ(effect.color(), blackWithAlpha0);
    EXPECT_EQ(effect.opacity(), 100);
    EXPECT_EQ(effect.opacity255(), 254);
}

/// What a setter leaves of a value.
template <typename Effect, typename Setter, typename Getter>
qint64 stored(Setter setter, Getter getter, qint64 value)
{
    Effect effect;
    std::invoke(setter, effect, static_cast<std::decay_t<decltype(std::invoke(getter, effect))>>(value));
    return std::invoke(getter, effect);
}

template <typename Effect, typename Setter, typename Getter>
void expectRange(Setter setter, Getter getter, qint64 low, qint64 high)
{
    const auto left = [&](qint64 value) { return stored<Effect>(setter, getter, value); };
    EXPECT_EQ(left(low), low);
    EXPECT_EQ(left(low - 1), low);
    EXPECT_EQ(left(least), low);
    EXPECT_EQ(left(high), high);
    EXPECT_EQ(left(high + 1), high);
    EXPECT_EQ(left(most), high);
    EXPECT_EQ(left(7), 7);
}
} // namespace

template <typename Effect>
class KXPSDShadows : public ::testing::Test
{};
using ShadowKinds = ::testing::Types<KXPSDDropShadowEffectLayerInformation, KXPSDInnerShadowEffectLayerInformation>;
TYPED_TEST_SUITE(KXPSDShadows, ShadowKinds);

TYPED_TEST(KXPSDShadows, BeginDisabledAndWithoutExtent)
{
    const TypeParam shadow;
    expectCommonDefaults(shadow);
    EXPECT_EQ(shadow.size(), 0);
    EXPECT_EQ(shadow.angle(), 0);
    EXPECT_EQ(shadow.distance(), 0);
    EXPECT_FALSE(shadow.useGlobalLight());
}

TYPED_TEST(KXPSDShadows, KeepTheirValuesInRange)
{
    expectRange<TypeParam>(&TypeParam::setSize, &TypeParam::size, 0, 250);
    expectRange<TypeParam>(&TypeParam::setAngle, &TypeParam::angle, -360, 360);
    expectRange<TypeParam>(&TypeParam::setDistance, &TypeParam::distance, 0, 30000);
    expectRange<TypeParam>(&TypeParam::setOpacity, &TypeParam::opacity, 0, 100);
}

template <typename Effect>
class KXPSDGlows : public ::testing::Test
{};
using GlowKinds = ::testing::Types<KXPSDOuterGlowEffectLayerInformation, KXPSDInnerGlowEffectLayerInformation>;
TYPED_TEST_SUITE(KXPSDGlows, GlowKinds);

TYPED_TEST(KXPSDGlows, BeginDisabledAndWithoutExtent)
{
    const TypeParam glow;
    expectCommonDefaults(glow);
    EXPECT_EQ(glow.size(), 0);
}

TYPED_TEST(KXPSDGlows, KeepTheirValuesInRange)
{
    expectRange<TypeParam>(&TypeParam::setSize, &TypeParam::size, 0, 250);
    expectRange<TypeParam>(&TypeParam::setOpacity, &TypeParam::opacity, 0, 100);
}

TEST(KXPSDInnerGlow, KeepsAnySource)
{
    KXPSDInnerGlowEffectLayerInformation glow;
    EXPECT_EQ(glow.source(), 0);
    glow.setSource(-70000);
    EXPECT_EQ(glow.source(), -70000);
}

TEST(KXPSDBevel, BeginsDisabledInTheGlobalLight)
{
    const KXPSDBevelEffectLayerInformation bevel;
    EXPECT_EQ(bevel.angle(), 0);
    EXPECT_EQ(bevel.size(), 0);
    EXPECT_EQ(bevel.highlightBlendMode(), KXPSDBlendMode::normal);
    EXPECT_EQ(bevel.shadowBlendMode(), KXPSDBlendMode::normal);
    EXPECT_EQ(bevel.highlightColor(), blackWithAlpha0);
    EXPECT_EQ(bevel.shadowColor(), blackWithAlpha0);
    EXPECT_EQ(bevel.style(), 1);
    EXPECT_EQ(bevel.highlightOpacity(), 100);
    EXPECT_EQ(bevel.shadowOpacity(), 100);
    EXPECT_FALSE(bevel.enabled());
    EXPECT_TRUE(bevel.useGlobalLight());
    EXPECT_EQ(bevel.direction(), 1);
}

TEST(KXPSDBevel, KeepsItsValuesInRange)
{
    using Bevel = KXPSDBevelEffectLayerInformation;
    expectRange<Bevel>(&Bevel::setAngle, &Bevel::angle, -360, 360);
    expectRange<Bevel>(&Bevel::setSize, &Bevel::size, 0, 250);
    expectRange<Bevel>(&Bevel::setHighlightOpacity, &Bevel::highlightOpacity, 0, 255);
    expectRange<Bevel>(&Bevel::setShadowOpacity, &Bevel::shadowOpacity, 0, 255);
}

TEST(KXPSDBevel, TakesItsOpacitiesForPercentAllTheSame)
{
    KXPSDBevelEffectLayerInformation bevel;
    bevel.setHighlightOpacity(200);
    bevel.setShadowOpacity(255);
    EXPECT_EQ(bevel.highlightOpacity255(), 509);
    EXPECT_EQ(bevel.shadowOpacity255(), 650);
}

TEST(KXPSDSolidFill, BeginsDisabled)
{
    expectCommonDefaults(KXPSDSolidFillEffectLayerInformation());
    expectRange<KXPSDSolidFillEffectLayerInformation>(&KXPSDSolidFillEffectLayerInformation::setOpacity,
                                                      &KXPSDSolidFillEffectLayerInformation::opacity, 0, 100);
}

TEST(KXPSDEffects, OpacitiesAreCutToBytes)
{
    KXPSDSolidFillEffectLayerInformation fill;
    const auto byteOf = [&](qint64 percent) {
        fill.setOpacity(percent);
        return fill.opacity255();
    };
    EXPECT_EQ(byteOf(0), 0);
    EXPECT_EQ(byteOf(1), 2);
    EXPECT_EQ(byteOf(50), 127);
    EXPECT_EQ(byteOf(100), 254);
    EXPECT_EQ(byteOf(150), 254);
}

TEST(KXPSDEffects, ALayerBeginsWithoutAny)
{
    const KXPSDLayerEffects effects;
    EXPECT_FALSE(effects.dropShadowEffectLayerInformation);
    EXPECT_FALSE(effects.innerShadowEffectLayerInformation);
    EXPECT_FALSE(effects.outerGlowEffectLayerInformation);
    EXPECT_FALSE(effects.innerGlowEffectLayerInformation);
    EXPECT_FALSE(effects.bevelEffectLayerInformation);
    EXPECT_FALSE(effects.solidFillEffectLayerInformation);
}

TEST(KXPSDBlendMode, KeysAreThoseOfFiles)
{
    const std::pair<KXPSDBlendMode, const char *> keys[] = {
        {KXPSDBlendMode::normal, "norm"},       {KXPSDBlendMode::darken, "dark"},
        {KXPSDBlendMode::lighten, "lite"},      {KXPSDBlendMode::hue, "hue "},
        {KXPSDBlendMode::saturation, "sat "},   {KXPSDBlendMode::colour, "colr"},
        {KXPSDBlendMode::luminosity, "lum "},   {KXPSDBlendMode::multiply, "mul "},
        {KXPSDBlendMode::screen, "scrn"},       {KXPSDBlendMode::dissolve, "diss"},
        {KXPSDBlendMode::overlay, "over"},      {KXPSDBlendMode::hardLight, "hLit"},
        {KXPSDBlendMode::softLight, "sLit"},    {KXPSDBlendMode::difference, "diff"},
        {KXPSDBlendMode::exclusion, "smud"},    {KXPSDBlendMode::colourDodge, "div "},
        {KXPSDBlendMode::colourBurn, "idiv"},   {KXPSDBlendMode::linearBurn, "lbrn"},
        {KXPSDBlendMode::linearDodge, "lddg"},  {KXPSDBlendMode::vividLight, "vLit"},
        {KXPSDBlendMode::linearLight, "lLit"},  {KXPSDBlendMode::pinLight, "pLit"},
        {KXPSDBlendMode::hardMix, "hMix"},      {KXPSDBlendMode::passThrough, "pass"},
        {KXPSDBlendMode::darkerColour, "dkCl"}, {KXPSDBlendMode::lighterColour, "lgCl"},
    };
    EXPECT_EQ(std::size(keys), 26u);
    for (const auto &[mode, key] : keys)
        EXPECT_EQ(mode.key(), QLatin1StringView(key));
}
