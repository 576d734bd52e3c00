#include "base/DecimalText.h"
#include "layer/Power.h"
#include "screen/ScreenChart.h"

#include <cmath>

namespace {
const Colour dimmingBackground = Colour::gray(0, 0.75);
const Colour nameBackground = Colour::gray(1, 0.9);
/// A single-precision factor of the font size: about half of "W 1920: H 1080".
constexpr float sizeTextHalfWidth = 3.7f;
constexpr double powerTextDrop = -1.82;

/// A point in whole pixels, fractions cut off; kept within what a raster may ever show.
QPoint wholePoint(double x, double y)
{
    constexpr double farthest = 1 << 24;
    return {static_cast<int>(qBound(-farthest, x, farthest)), static_cast<int>(qBound(-farthest, y, farthest))};
}

QString cornerText(qint64 x, qint64 y)
{
    return QString("X %1 ,Y %2").arg(x).arg(y);
}
} // namespace

float ScreenChart::amperes() const
{
    return Power::amperes(Power::watts(col, row, powerOnCell), Power::divisor(voltage, phases));
}

std::vector<ScreenChart::PlacedText> ScreenChart::texts() const
{
    std::vector<PlacedText> texts;
    if (screenFontEnable)
        addCentreTexts(texts);
    if (XYFontEnable && xyColor)
        addCornerTexts(texts);
    return texts;
}

void ScreenChart::addCentreTexts(std::vector<PlacedText> &texts) const
{
    const qint64 halfWidth = wallWidth() / 2;
    const qint64 halfHeight = wallHeight() / 2;
    const qint64 halfFont = screenFontSize / 2;
    const auto add = [&](const TextLine &line, double x, double y, const TextColours &colours) {
        texts.push_back({wholePoint(x, y), line, colours});
    };

    if (sfColor) {
        const auto size = QString::asprintf("W %.4lli: H %.4lli", wallWidth(), wallHeight());
        const double indent = std::trunc(double(sizeTextHalfWidth * static_cast<float>(screenFontSize)));
        add(TextLine(size, screenFontSize), static_cast<double>(halfWidth) - indent,
            static_cast<double>(halfHeight - halfFont), {*sfColor, dimmingBackground});
    }
    if (label && !label->isEmpty()) {
        const TextLine name(*label, screenFontSize);
        const auto left = halfWidth - name.size().width() / 2;
        add(name, static_cast<double>(left), static_cast<double>(halfHeight + 10 + halfFont),
            {NamedColour::black, nameBackground});
    }
    if ((showPower || showCurrent) && sfColor) {
        const auto power = QString("%1A| %2V| %3Phase").arg(DecimalText::of(amperes())).arg(voltage).arg(phases);
        const TextLine line(power, screenFontSize);
        const auto left = halfWidth - line.size().width() / 2;
        add(line, static_cast<double>(left),
            static_cast<double>(halfFont + halfHeight) + powerTextDrop * line.size().height(),
            {*sfColor, dimmingBackground});
    }
}

void ScreenChart::addCornerTexts(std::vector<PlacedText> &texts) const
{
    const double inset = circleBWidth;
    const TextColours colours{*xyColor, dimmingBackground};
    const qint64 right = xpoint + wallWidth();
    const qint64 bottom = ypoint + wallHeight();

    if (popupIndex == 0 || popupIndex == 2) {
        const double top = static_cast<double>(wallHeight()) - 10 - inset - XYFontSize;
        texts.push_back({wholePoint(inset, top), TextLine(cornerText(xpoint, ypoint), XYFontSize), colours});
    }
    if (popupIndex == 1 || popupIndex == 2) {
        texts.push_back({wholePoint(inset, inset), TextLine(cornerText(xpoint, bottom), XYFontSize), colours});
        const TextLine line(cornerText(right, bottom), XYFontSize);
        const double left = static_cast<double>(wallWidth()) - line.size().width() - 5.0;
        texts.push_back({wholePoint(left, inset), line, colours});
    }
}
