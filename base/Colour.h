#pragma once

#include <QColor>
#include <QMetaType>

#include <optional>

/// A colour of the device's own RGB space. Components run from 0 to 1; values outside (extended colour spaces)
/// are kept as they are and clamped only when they are painted.
struct Colour
{
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const Colour &) const = default;

    /// The colour as it is painted: each component clamped to 0 to 1 and rounded to 8 bits, not premultiplied.
    QRgb toRgba8() const;
    /// The same for Qt's painter and palette.
    QColor toQColor() const { return QColor::fromRgba(toRgba8()); }
    /// The pixel that a replacing fill writes into a `QImage::Format_ARGB32_Premultiplied` raster.
    /// Premultiplied with the rounding of Qt's painter.
    QRgb toPremultipliedPixel() const { return toQColor().rgba64().premultiplied().toArgb32(); }
    /// The inverse of toRgba8(): components are multiples of 1/255.
    static Colour fromRgba8(QRgb rgba);

    static constexpr Colour gray(double white, double alpha = 1) { return {white, white, white, alpha}; }
};

/// A colour that may be absent (nil): drawing with an absent colour leaves the colour in force.
using OptionalColour = std::optional<Colour>;

Q_DECLARE_METATYPE(OptionalColour)

/// The platform's named colours.
namespace NamedColour {
inline constexpr Colour black{0, 0, 0, 1};
inline constexpr Colour white{1, 1, 1, 1};
inline constexpr Colour red{1, 0, 0, 1};
inline constexpr Colour green{0, 1, 0, 1};
inline constexpr Colour blue{0, 0, 1, 1};
inline constexpr Colour yellow{1, 1, 0, 1};
inline constexpr Colour orange{1, 0.5, 0, 1};
inline constexpr Colour cyan{0, 1, 1, 1};
inline constexpr Colour magenta{1, 0, 1, 1};
inline constexpr Colour purple{0.5, 0, 0.5, 1};
inline constexpr Colour gray{0.5, 0.5, 0.5, 1};
inline constexpr Colour lightGray{2.0 / 3, 2.0 / 3, 2.0 / 3, 1};
inline constexpr Colour darkGray{1.0 / 3, 1.0 / 3, 1.0 / 3, 1};
inline constexpr Colour clear{0, 0, 0, 0};
} // namespace NamedColour
