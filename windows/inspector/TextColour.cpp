#include "windows/inspector/TextColour.h"

#include "layer/Layer.h"

#include <algorithm>
#include <cmath>

namespace {
/// Of one channel, 0 to 1, how much light it sends.
double light(double channel)
{
    const double clamped = std::clamp(channel, 0.0, 1.0);
    return clamped <= 0.04045 ? clamped / 12.92 : std::pow((clamped + 0.055) / 1.055, 2.4);
}

/// How bright the colour looks on black, 0 to 1.
double luminance(const Colour &colour)
{
    const double opaque = 0.2126 * light(colour.red) + 0.7152 * light(colour.green) + 0.0722 * light(colour.blue);
    return opaque * std::clamp(colour.alpha, 0.0, 1.0);
}

/// As the guidelines for readable pages have it: 1 for the same brightness, 21 for black on white.
double contrast(double first, double second)
{
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}
} // namespace

Colour textColourFor(const Layer &layer)
{
    double toBlack = contrast(0, 1);
    double toWhite = toBlack;
    for (const OptionalColour &panel : {layer.rectColor(), layer.rectColor2()}) {
        if (!panel)
            continue;
        toBlack = std::min(toBlack, contrast(luminance(*panel), 0));
        toWhite = std::min(toWhite, contrast(luminance(*panel), 1));
    }
    return toBlack > toWhite ? NamedColour::black : NamedColour::white;
}
