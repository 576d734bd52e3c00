#include "psd/KXPSDLayer.h"

namespace {
constexpr qint64 recordVersion = 2;
constexpr qint64 effectCount = 7; // the common state counts as one

bool isShown(const auto &effect)
{
    return effect && effect->enabled();
}

/// The head of a record; `size` counts the bytes that follow.
void writeHead(ByteBuffer &buffer, QStringView key, qint64 size)
{
    buffer.kxAppendUTF8String(u"8BIM");
    buffer.kxAppendUTF8String(key);
    buffer.kxAppendValue(size, 4);
}

void writeBlendMode(ByteBuffer &buffer, KXPSDBlendMode mode)
{
    buffer.kxAppendUTF8String(u"8BIM");
    buffer.append(mode.key());
}

/// The size of both shadows is followed by the zeros that fill its field.
void writeShadow(ByteBuffer &buffer, const KXPSDShadowEffectLayerInformation &shadow, KXPSDBlendMode mode)
{
    buffer.kxAppendValue(recordVersion, 4);
    buffer.kxAppendValue(shadow.size(), 2);
    buffer.kxAppendValue(0, 4);
    buffer.kxAppendValue(shadow.angle(), 4);
    buffer.kxAppendValue(shadow.distance(), 4);
    buffer.kxAppendValue(0, 2);
    buffer.kxAppendCGColorRef(shadow.color());
    writeBlendMode(buffer, mode);
    buffer.kxAppendValue(shadow.enabled(), 1);
    buffer.kxAppendValue(shadow.useGlobalLight(), 1);
    buffer.kxAppendValue(shadow.opacity255(), 1);
    buffer.kxAppendCGColorRef(shadow.color());
}

/// What both glows begin with.
void writeGlow(ByteBuffer &buffer, const KXPSDGlowEffectLayerInformation &glow)
{
    buffer.kxAppendValue(recordVersion, 4);
    buffer.kxAppendValue(glow.size(), 2);
    buffer.kxAppendValue(0, 4);
    buffer.kxAppendValue(0, 2);
    buffer.kxAppendCGColorRef(glow.color());
    writeBlendMode(buffer, glow.blendMode());
    buffer.kxAppendValue(glow.enabled(), 1);
    buffer.kxAppendValue(glow.opacity255(), 1);
}
} // namespace

void KXPSDLayer::writeEffectsLayerOn(ByteBuffer &buffer) const
{
    if (!isShown(m_effects.dropShadowEffectLayerInformation) && !isShown(m_effects.innerShadowEffectLayerInformation) &&
        !isShown(m_effects.outerGlowEffectLayerInformation) && !isShown(m_effects.innerGlowEffectLayerInformation) &&
        !isShown(m_effects.bevelEffectLayerInformation) && !isShown(m_effects.solidFillEffectLayerInformation))
        return;

    ByteBuffer records;
    records.kxAppendValue(0, 2); // version
    records.kxAppendValue(effectCount, 2);
    writeEffectsLayerCommonStateOn(records);
    writeEffectsLayerDropShadowOn(records);
    writeEffectsLayerInnerShadowOn(records);
    writeEffectsLayerOuterGlowOn(records);
    writeEffectsLayerInnerGlowOn(records);
    writeEffectsLayerBevelOn(records);
    writeEffectsLayerSolidFillOn(records);

    // All records are of fixed size and together even, as blocks have to be: no byte fills up.
    writeHead(buffer, u"lrFX", records.length());
    buffer.append(records);
}

void KXPSDLayer::writeEffectsLayerCommonStateOn(ByteBuffer &buffer) const
{
    writeHead(buffer, u"cmnS", 7);
    buffer.kxAppendValue(0, 4); // version
    buffer.kxAppendValue(1, 1); // visible
    buffer.kxAppendValue(0, 2);
}

void KXPSDLayer::writeEffectsLayerDropShadowOn(ByteBuffer &buffer) const
{
    const auto shadow = m_effects.dropShadowEffectLayerInformation.value_or(KXPSDDropShadowEffectLayerInformation());
    writeHead(buffer, u"dsdw", 51);
    writeShadow(buffer, shadow, shadow.blendMode());
}

void KXPSDLayer::writeEffectsLayerInnerShadowOn(ByteBuffer &buffer) const
{
    writeHead(buffer, u"isdw", 51);
    writeShadow(buffer, m_effects.innerShadowEffectLayerInformation.value_or(KXPSDInnerShadowEffectLayerInformation()),
                KXPSDBlendMode::normal);
}

void KXPSDLayer::writeEffectsLayerOuterGlowOn(ByteBuffer &buffer) const
{
    const auto glow = m_effects.outerGlowEffectLayerInformation.value_or(KXPSDOuterGlowEffectLayerInformation());
    writeHead(buffer, u"oglw", 42);
    writeGlow(buffer, glow);
    buffer.kxAppendCGColorRef(glow.color());
}

void KXPSDLayer::writeEffectsLayerInnerGlowOn(ByteBuffer &buffer) const
{
    const auto glow = m_effects.innerGlowEffectLayerInformation.value_or(KXPSDInnerGlowEffectLayerInformation());
    writeHead(buffer, u"iglw", 43);
    writeGlow(buffer, glow);
    buffer.kxAppendValue(glow.source(), 1);
    buffer.kxAppendCGColorRef(glow.color());
}

void KXPSDLayer::writeEffectsLayerBevelOn(ByteBuffer &buffer) const
{
    const auto bevel = m_effects.bevelEffectLayerInformation.value_or(KXPSDBevelEffectLayerInformation());
    writeHead(buffer, u"bevl", 78);
    buffer.kxAppendValue(recordVersion, 4);
    buffer.kxAppendValue(bevel.angle(), 2);
    buffer.kxAppendValue(1, 4);
    buffer.kxAppendValue(bevel.size(), 4);
    buffer.kxAppendValue(0, 2);
    writeBlendMode(buffer, bevel.highlightBlendMode());
    writeBlendMode(buffer, bevel.shadowBlendMode());
    buffer.kxAppendCGColorRef(bevel.highlightColor());
    buffer.kxAppendCGColorRef(bevel.shadowColor());
    buffer.kxAppendValue(bevel.style(), 1);
    buffer.kxAppendValue(bevel.highlightOpacity255(), 1);
    buffer.kxAppendValue(bevel.shadowOpacity255(), 1);
    buffer.kxAppendValue(bevel.enabled(), 1);
    buffer.kxAppendValue(bevel.useGlobalLight(), 1);
    buffer.kxAppendValue(bevel.direction(), 1);
    buffer.kxAppendCGColorRef(bevel.highlightColor());
    buffer.kxAppendCGColorRef(bevel.shadowColor());
}

void KXPSDLayer::writeEffectsLayerSolidFillOn(ByteBuffer &buffer) const
{
    const auto fill = m_effects.solidFillEffectLayerInformation.value_or(KXPSDSolidFillEffectLayerInformation());
    writeHead(buffer, u"sofi", 34);
    buffer.kxAppendValue(recordVersion, 4);
    writeBlendMode(buffer, fill.blendMode());
    buffer.kxAppendCGColorRef(fill.color());
    buffer.kxAppendValue(fill.opacity255(), 1);
    buffer.kxAppendValue(fill.enabled(), 1);
    buffer.kxAppendCGColorRef(fill.color());
}
