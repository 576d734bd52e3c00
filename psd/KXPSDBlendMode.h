#pragma once

#include <QLatin1StringView>

/// How a layer or an effect meets what lies below, as the four bytes that files hold. Only whole keys can be made.
class KXPSDBlendMode
{
public:
    consteval KXPSDBlendMode(const char (&key)[5]) : m_key{key[0], key[1], key[2], key[3]} {}

    QLatin1StringView key() const { return {m_key, 4}; }
    bool operator==(const KXPSDBlendMode &) const = default;

    static const KXPSDBlendMode normal, darken, lighten, hue, saturation, colour, luminosity, multiply, screen,
        dissolve, overlay, hardLight, softLight, difference, exclusion, colourDodge, colourBurn, linearBurn,
        linearDodge, vividLight, linearLight, pinLight, hardMix;
    /// Of group records only: the members meet what lies below the group.
    static const KXPSDBlendMode passThrough;
    static const KXPSDBlendMode darkerColour, lighterColour;

private:
    char m_key[4];
};

inline constexpr KXPSDBlendMode KXPSDBlendMode::normal = "norm";
inline constexpr KXPSDBlendMode KXPSDBlendMode::darken = "dark";
inline constexpr KXPSDBlendMode KXPSDBlendMode::lighten = "lite";
inline constexpr KXPSDBlendMode KXPSDBlendMode::hue = "hue ";
inline constexpr KXPSDBlendMode KXPSDBlendMode::saturation = "sat ";
inline constexpr KXPSDBlendMode KXPSDBlendMode::colour = "colr";
inline constexpr KXPSDBlendMode KXPSDBlendMode::luminosity = "lum ";
inline constexpr KXPSDBlendMode KXPSDBlendMode::multiply = "mul ";
inline constexpr KXPSDBlendMode KXPSDBlendMode::screen = "scrn";
inline constexpr KXPSDBlendMode KXPSDBlendMode::dissolve = "diss";
inline constexpr KXPSDBlendMode KXPSDBlendMode::overlay = "over";
inline constexpr KXPSDBlendMode KXPSDBlendMode::hardLight = "hLit";
inline constexpr KXPSDBlendMode KXPSDBlendMode::softLight = "sLit";
inline constexpr KXPSDBlendMode KXPSDBlendMode::difference = "diff";
inline constexpr KXPSDBlendMode KXPSDBlendMode::exclusion = "smud";
inline constexpr KXPSDBlendMode KXPSDBlendMode::colourDodge = "div ";
inline constexpr KXPSDBlendMode KXPSDBlendMode::colourBurn = "idiv";
inline constexpr KXPSDBlendMode KXPSDBlendMode::linearBurn = "lbrn";
inline constexpr KXPSDBlendMode KXPSDBlendMode::linearDodge = "lddg";
inline constexpr KXPSDBlendMode KXPSDBlendMode::vividLight = "vLit";
inline constexpr KXPSDBlendMode KXPSDBlendMode::linearLight = "lLit";
inline constexpr KXPSDBlendMode KXPSDBlendMode::pinLight = "pLit";
inline constexpr KXPSDBlendMode KXPSDBlendMode::hardMix = "hMix";
inline constexpr KXPSDBlendMode KXPSDBlendMode::passThrough = "pass";
inline constexpr KXPSDBlendMode KXPSDBlendMode::darkerColour = "dkCl";
inline constexpr KXPSDBlendMode KXPSDBlendMode::lighterColour = "lgCl";
