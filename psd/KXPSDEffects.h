#pragma once

#include "base/Colour.h"
#include "psd/KXPSDBlendMode.h"

#include <QtGlobal>

#include <optional>

/// What every effect but the bevel has. A new effect is disabled, black, blended normally and of full opacity.
class KXPSDEffectLayerInformation
{
public:
    /// Whether the effect is shown; a layer with disabled effects alone is written without any.
    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    KXPSDBlendMode blendMode() const { return m_blendMode; }
    void setBlendMode(KXPSDBlendMode mode) { m_blendMode = mode; }
    /// Files hold it without its alpha.
    const Colour &color() const { return m_color; }
    void setColor(const Colour &color) { m_color = color; }
    /// Percent, 0 to 100; the setter clamps.
    qint64 opacity() const { return m_opacity; }
    void setOpacity(qint64 percent) { m_opacity = qBound(qint64{0}, percent, qint64{100}); }
    /// The opacity as files hold it: x 2.55, truncated, so that 100 % is 254.
    qint64 opacity255() const { return toByte(m_opacity); }

    /// Percent x 2.55 in double precision, truncated.
    static qint64 toByte(qint64 percent) { return static_cast<qint64>(static_cast<double>(percent) * 2.55); }

    bool operator==(const KXPSDEffectLayerInformation &) const = default;

protected:
    KXPSDEffectLayerInformation() = default;

private:
    bool m_enabled = false;
    KXPSDBlendMode m_blendMode = KXPSDBlendMode::normal;
    Colour m_color = NamedColour::clear;
    qint64 m_opacity = 100;
};

/// What both shadows have.
class KXPSDShadowEffectLayerInformation : public KXPSDEffectLayerInformation
{
public:
    /// Blur in pixels, 0 to 250; the setter clamps.
    qint64 size() const { return m_size; }
    void setSize(qint64 pixels) { m_size = qBound(qint64{0}, pixels, qint64{250}); }
    /// Of the light, in degrees, -360 to 360; the setter clamps.
    qint64 angle() const { return m_angle; }
    void setAngle(qint64 degrees) { m_angle = qBound(qint64{-360}, degrees, qint64{360}); }
    /// Of the shadow from its layer in pixels, 0 to 30000; the setter clamps.
    qint64 distance() const { return m_distance; }
    void setDistance(qint64 pixels) { m_distance = qBound(qint64{0}, pixels, qint64{30000}); }
    /// The light is that of the whole document.
    bool useGlobalLight() const { return m_useGlobalLight; }
    void setUseGlobalLight(bool use) { m_useGlobalLight = use; }

    bool operator==(const KXPSDShadowEffectLayerInformation &) const = default;

protected:
    KXPSDShadowEffectLayerInformation() = default;

private:
    qint64 m_size = 0;
    qint64 m_angle = 0;
    qint64 m_distance = 0;
    bool m_useGlobalLight = false;
};

/// A shadow behind the layer.
class KXPSDDropShadowEffectLayerInformation final : public KXPSDShadowEffectLayerInformation
{
public:
    bool operator==(const KXPSDDropShadowEffectLayerInformation &) const = default;
};

/// A shadow on the layer, along its edges. Files hold it as normally blended, whatever its blend mode.
class KXPSDInnerShadowEffectLayerInformation final : public KXPSDShadowEffectLayerInformation
{
public:
    bool operator==(const KXPSDInnerShadowEffectLayerInformation &) const = default;
};

/// What both glows have.
class KXPSDGlowEffectLayerInformation : public KXPSDEffectLayerInformation
{
public:
    /// Blur in pixels, 0 to 250; the setter clamps.
    qint64 size() const { return m_size; }
    void setSize(qint64 pixels) { m_size = qBound(qint64{0}, pixels, qint64{250}); }

    bool operator==(const KXPSDGlowEffectLayerInformation &) const = default;

protected:
    KXPSDGlowEffectLayerInformation() = default;

private:
    qint64 m_size = 0;
};

/// Light around the layer.
class KXPSDOuterGlowEffectLayerInformation final : public KXPSDGlowEffectLayerInformation
{
public:
    bool operator==(const KXPSDOuterGlowEffectLayerInformation &) const = default;
};

/// Light on the layer.
class KXPSDInnerGlowEffectLayerInformation final : public KXPSDGlowEffectLayerInformation
{
public:
    /// Where the light comes from; the low byte reaches files.
    qint32 source() const { return m_source; }
    void setSource(qint32 source) { m_source = source; }

    bool operator==(const KXPSDInnerGlowEffectLayerInformation &) const = default;

private:
    qint32 m_source = 0;
};

/// Edges that look raised or sunk, lit on one side and in shadow on the other.
class KXPSDBevelEffectLayerInformation final
{
public:
    /// Of the light, in degrees, -360 to 360; the setter clamps.
    qint64 angle() const { return m_angle; }
    void setAngle(qint64 degrees) { m_angle = qBound(qint64{-360}, degrees, qint64{360}); }
    /// Width of the edge in pixels, 0 to 250; the setter clamps.
    qint64 size() const { return m_size; }
    void setSize(qint64 pixels) { m_size = qBound(qint64{0}, pixels, qint64{250}); }
    KXPSDBlendMode highlightBlendMode() const { return m_highlightBlendMode; }
    void setHighlightBlendMode(KXPSDBlendMode mode) { m_highlightBlendMode = mode; }
    KXPSDBlendMode shadowBlendMode() const { return m_shadowBlendMode; }
    void setShadowBlendMode(KXPSDBlendMode mode) { m_shadowBlendMode = mode; }
    /// Files hold both colours without their alpha.
    const Colour &highlightColor() const { return m_highlightColor; }
    void setHighlightColor(const Colour &color) { m_highlightColor = color; }
    const Colour &shadowColor() const { return m_shadowColor; }
    void setShadowColor(const Colour &color) { m_shadowColor = color; }
    /// Which edges, and how; the low byte reaches files.
    qint32 style() const { return m_style; }
    void setStyle(qint32 style) { m_style = style; }
    /// 0 to 255; the setters clamp. Files take them for percent all the same.
    qint64 highlightOpacity() const { return m_highlightOpacity; }
    void setHighlightOpacity(qint64 opacity) { m_highlightOpacity = qBound(qint64{0}, opacity, qint64{255}); }
    qint64 shadowOpacity() const { return m_shadowOpacity; }
    void setShadowOpacity(qint64 opacity) { m_shadowOpacity = qBound(qint64{0}, opacity, qint64{255}); }
    /// The opacities x 2.55, truncated: of an opacity above 100 only the low byte of this reaches files.
    qint64 highlightOpacity255() const { return KXPSDEffectLayerInformation::toByte(m_highlightOpacity); }
    qint64 shadowOpacity255() const { return KXPSDEffectLayerInformation::toByte(m_shadowOpacity); }
    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    /// The light is that of the whole document.
    bool useGlobalLight() const { return m_useGlobalLight; }
    void setUseGlobalLight(bool use) { m_useGlobalLight = use; }
    /// Raised or sunk; the low byte reaches files.
    qint32 direction() const { return m_direction; }
    void setDirection(qint32 direction) { m_direction = direction; }

    bool operator==(const KXPSDBevelEffectLayerInformation &) const = default;

private:
    qint64 m_angle = 0;
    qint64 m_size = 0;
    KXPSDBlendMode m_highlightBlendMode = KXPSDBlendMode::normal;
    KXPSDBlendMode m_shadowBlendMode = KXPSDBlendMode::normal;
    Colour m_highlightColor = NamedColour::clear;
    Colour m_shadowColor = NamedColour::clear;
    qint32 m_style = 1;
    qint64 m_highlightOpacity = 100;
    qint64 m_shadowOpacity = 100;
    bool m_enabled = false;
    bool m_useGlobalLight = true;
    qint32 m_direction = 1;
};

/// A colour over the whole layer.
class KXPSDSolidFillEffectLayerInformation final : public KXPSDEffectLayerInformation
{
public:
    bool operator==(const KXPSDSolidFillEffectLayerInformation &) const = default;
};

/// The effects of a layer; nullopt where it has none of the kind.
struct KXPSDLayerEffects
{
    std::optional<KXPSDDropShadowEffectLayerInformation> dropShadowEffectLayerInformation;
    std::optional<KXPSDInnerShadowEffectLayerInformation> innerShadowEffectLayerInformation;
    std::optional<KXPSDOuterGlowEffectLayerInformation> outerGlowEffectLayerInformation;
    std::optional<KXPSDInnerGlowEffectLayerInformation> innerGlowEffectLayerInformation;
    std::optional<KXPSDBevelEffectLayerInformation> bevelEffectLayerInformation;
    std::optional<KXPSDSolidFillEffectLayerInformation> solidFillEffectLayerInformation;

    bool operator==(const KXPSDLayerEffects &) const = default;
};
