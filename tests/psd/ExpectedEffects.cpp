#include "tests/psd/ExpectedEffects.h"

#include <algorithm>
#include <cmath>

namespace {

quint32 clamped(qint64 value, qint64 least, qint64 most)
{
    return quint32(std::min(std::max(value, least), most));
}

/// Degrees, where of a negative number only the last byte is two's complement and the others are those of quotients
/// truncated toward zero.
quint32 angle(qint64 degrees)
{
    const qint64 kept = std::min(std::max<qint64>(degrees, -360), qint64{360});
    return quint32((kept & 0xff) | (kept / 256 & 0xff) << 8);
}

/// The low byte of a percentage of 255, where 100 % is but 254.
quint32 opacityByte(qint64 percent, qint64 most)
{
    return quint32(std::floor(clamped(percent, 0, most) * 2.55)) & 0xff;
}

LayeredDocument::FileColour colour(const Colour &of)
{
    const auto component = [](double share) { return quint16(share == 0 ? 0 : std::trunc(share * 65536 - 0.5)); };
    return {component(of.red), component(of.green), component(of.blue)};
}

LayeredDocument::Shadow shadow(const std::optional<PlannedEffect> &planned)
{
    if (!planned)
        return {0, 0, 0, {}, "norm", false, false, 254};
    return {clamped(planned->size, 0, 250),
            angle(planned->angle),
            clamped(planned->distance, 0, 30000),
            colour(planned->colour),
            keyOf(planned->blendMode),
            planned->enabled,
            planned->useGlobalLight,
            opacityByte(planned->opacity, 100)};
}

/// An inner shadow is always blended normally.
LayeredDocument::Shadow innerShadow(const std::optional<PlannedEffect> &planned)
{
    LayeredDocument::Shadow expected = shadow(planned);
    expected.blendMode = "norm";
    return expected;
}

LayeredDocument::Glow glow(const std::optional<PlannedEffect> &planned)
{
    if (!planned)
        return {0, {}, "norm", false, 254, 0};
    return {clamped(planned->size, 0, 250),     colour(planned->colour),
            keyOf(planned->blendMode),          planned->enabled,
            opacityByte(planned->opacity, 100), 0};
}

LayeredDocument::Glow innerGlow(const std::optional<PlannedEffect> &planned)
{
    LayeredDocument::Glow expected = glow(planned);
    expected.source = planned ? quint32(planned->style) & 0xff : 0;
    return expected;
}

LayeredDocument::Bevel bevel(const std::optional<PlannedEffect> &planned)
{
    if (!planned)
        return {0, 0, "norm", "norm", {}, {}, 1, 254, 254, false, true, 1};
    return {angle(planned->angle),
            clamped(planned->size, 0, 250),
            keyOf(planned->blendMode),
            keyOf(planned->secondBlendMode),
            colour(planned->colour),
            colour(planned->secondColour),
            quint32(planned->style) & 0xff,
            opacityByte(planned->opacity, 255),
            opacityByte(planned->secondOpacity, 255),
            planned->enabled,
            planned->useGlobalLight,
            quint32(planned->direction) & 0xff};
}

LayeredDocument::SolidFill solidFill(const std::optional<PlannedEffect> &planned)
{
    if (!planned)
        return {"norm", {}, 254, false};
    return {keyOf(planned->blendMode), colour(planned->colour), opacityByte(planned->opacity, 100), planned->enabled};
}

} // namespace

QByteArray keyOf(const KXPSDBlendMode &mode)
{
    return QByteArray(mode.key().data(), mode.key().size());
}

std::optional<LayeredDocument::Effects> expectedEffects(const PlannedEffects &planned)
{
    bool anyEnabled = false;
    for (const auto *effect : {&planned.dropShadow, &planned.innerShadow, &planned.outerGlow, &planned.innerGlow,
                               &planned.bevel, &planned.solidFill})
        anyEnabled = anyEnabled || (effect->has_value() && (*effect)->enabled);
    if (!anyEnabled)
        return {};
    return LayeredDocument::Effects{shadow(planned.dropShadow), innerShadow(planned.innerShadow),
                                    glow(planned.outerGlow),    innerGlow(planned.innerGlow),
                                    bevel(planned.bevel),       solidFill(planned.solidFill)};
}
