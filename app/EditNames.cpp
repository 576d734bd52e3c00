#include "app/EditNames.h"

#include "app/LayerList.h"

#include <algorithm>
#include <array>

namespace {
struct NamedValue
{
    QLatin1StringView value;
    QLatin1StringView name;
};

constexpr std::array names{
    NamedValue{QLatin1StringView("OutputWidth"), QLatin1StringView("Output width")},
    NamedValue{QLatin1StringView("OutputHeight"), QLatin1StringView("Output height")},
    NamedValue{QLatin1StringView("voltageCalc"), QLatin1StringView("Voltage")},
    NamedValue{QLatin1StringView("phaseCalc"), QLatin1StringView("Phases")},
    NamedValue{QLatin1StringView("panelWidth"), QLatin1StringView("Panel width")},
    NamedValue{QLatin1StringView("panelHeight"), QLatin1StringView("Panel height")},
    NamedValue{QLatin1StringView("row"), QLatin1StringView("Rows")},
    NamedValue{QLatin1StringView("col"), QLatin1StringView("Columns")},
    NamedValue{QLatin1StringView("xpoint"), QLatin1StringView("Left")},
    NamedValue{QLatin1StringView("ypoint"), QLatin1StringView("Top")},
    NamedValue{QLatin1StringView("visible"), QLatin1StringView("Visibility")},
    NamedValue{QLatin1StringView("label"), QLatin1StringView("Name")},
    NamedValue{QLatin1StringView("bgEnable"), QLatin1StringView("Fill")},
    NamedValue{QLatin1StringView("rectColor"), QLatin1StringView("Colour 1")},
    NamedValue{QLatin1StringView("rectColor2"), QLatin1StringView("Colour 2")},
    NamedValue{QLatin1StringView("BoarderEnable"), QLatin1StringView("Frame")},
    NamedValue{QLatin1StringView("boarderColor"), QLatin1StringView("Frame, colour")},
    NamedValue{QLatin1StringView("boarderWidth"), QLatin1StringView("Frame, width")},
    NamedValue{QLatin1StringView("CircleEnable"), QLatin1StringView("Circle and diagonals")},
    NamedValue{QLatin1StringView("circleColor"), QLatin1StringView("Circle and diagonals, colour")},
    NamedValue{QLatin1StringView("circleBWidth"), QLatin1StringView("Circle and diagonals, width")},
    NamedValue{QLatin1StringView("XYFontEnable"), QLatin1StringView("Corner coordinates")},
    NamedValue{QLatin1StringView("xyColor"), QLatin1StringView("Corner coordinates, colour")},
    NamedValue{QLatin1StringView("XYFontSize"), QLatin1StringView("Corner coordinates, size")},
    NamedValue{QLatin1StringView("screenFontEnable"), QLatin1StringView("Name and size at the centre")},
    NamedValue{QLatin1StringView("sfColor"), QLatin1StringView("Name and size at the centre, colour")},
    NamedValue{QLatin1StringView("screenFontSize"), QLatin1StringView("Name and size at the centre, size")},
    NamedValue{QLatin1StringView("showPower"), QLatin1StringView("Power text")},
    NamedValue{QLatin1StringView("showCurrent"), QLatin1StringView("Current")},
    NamedValue{QLatin1StringView("drawLabels"), QLatin1StringView("Panel labels")},
    NamedValue{QLatin1StringView("labelColor"), QLatin1StringView("Panel labels, colour")},
    NamedValue{QLatin1StringView("labelFontSize"), QLatin1StringView("Panel labels, size")},
    NamedValue{QLatin1StringView("XYLabelDirection"), QLatin1StringView("Letters by row")},
    NamedValue{QLatin1StringView("drawFlowPath"), QLatin1StringView("Path")},
    NamedValue{QLatin1StringView("pattern"), QLatin1StringView("Pattern of the path")},
    NamedValue{QLatin1StringView("updatePattern"), QLatin1StringView("Pattern of the path")},
    NamedValue{QLatin1StringView("pixelLimit"), QLatin1StringView("Pixels per port")},
    NamedValue{QLatin1StringView("powerOnCell"), QLatin1StringView("Watts per panel")},
    NamedValue{QLatin1StringView("aspectRatio"), QLatin1StringView("Keep ratio")},
};
} // namespace

QString EditNames::ofKeyPath(const QString &keyPath)
{
    const bool isOfLayer = keyPath.startsWith(LayerList::keyPathPrefix);
    const QString value = isOfLayer ? keyPath.mid(LayerList::keyPathPrefix.size()) : keyPath;
    const auto *const named =
        std::find_if(names.begin(), names.end(), [&](const NamedValue &known) { return known.value == value; });
    return named == names.end() ? value : QString(named->name);
}
