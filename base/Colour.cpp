#include "base/Colour.h"

#include <algorithm>
#include <cmath>

namespace {
int toByte(double component)
{
    if (!(component > 0)) // neither is what is no number
        return 0;
    return static_cast<int>(std::lround(std::min(component, 1.0) * 255));
}
} // namespace

QRgb Colour::toRgba8() const
{
    return qRgba(toByte(red), toByte(green), toByte(blue), toByte(alpha));
}

Colour Colour::fromRgba8(QRgb rgba)
{
    return {qRed(rgba) / 255.0, qGreen(rgba) / 255.0, qBlue(rgba) / 255.0, qAlpha(rgba) / 255.0};
}
