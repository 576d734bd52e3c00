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
    NamedValue{QLatin1StringView("OutputWidth"), QLatin1StringView("Output Width")},
    NamedValue{QLatin1StringView("OutputHeight"), QLatin1StringView("Output Height")},
    NamedValue{QLatin1StringView("panelWidth"), QLatin1StringView("Panel Width")},
    NamedValue{QLatin1StringView("panelHeight"), QLatin1StringView("Panel Height")},
    NamedValue{QLatin1StringView("row"), QLatin1StringView("Rows")},
    NamedValue{QLatin1StringView("col"), QLatin1StringView("Columns")},
    NamedValue{QLatin1StringView("xpoint"), QLatin1StringView("Horizontal Position")},
    NamedValue{QLatin1StringView("ypoint"), QLatin1StringView("Vertical Position")},
    NamedValue{QLatin1StringView("visible"), QLatin1StringView("Visibility")},
    NamedValue{QLatin1StringView("label"), QLatin1StringView("Name")},
    NamedValue{QLatin1StringView("bgEnable"), QLatin1StringView("Panels")},
    NamedValue{QLatin1StringView("rectColor"), QLatin1StringView("First Panel Colour")},
    NamedValue{QLatin1StringView("rectColor2"), QLatin1StringView("Second Panel Colour")},
    NamedValue{QLatin1StringView("BoarderEnable"), QLatin1StringView("Frames")},
    NamedValue{QLatin1StringView("boarderColor"), QLatin1StringView("Frame Colour")},
    NamedValue{QLatin1StringView("boarderWidth"), QLatin1StringView("Frame Width")},
    NamedValue{QLatin1StringView("CircleEnable"), QLatin1StringView("Circle")},
    NamedValue{QLatin1StringView("circleColor"), QLatin1StringView("Circle Colour")},
    NamedValue{QLatin1StringView("circleBWidth"), QLatin1StringView("Circle Width")},
    NamedValue{QLatin1StringView("XYFontEnable"), QLatin1StringView("Coordinates")},
    NamedValue{QLatin1StringView("xyColor"), QLatin1StringView("Coordinate Colour")},
    NamedValue{QLatin1StringView("XYFontSize"), QLatin1StringView("Coordinate Size")},
    NamedValue{QLatin1StringView("screenFontEnable"), QLatin1StringView("Centre Texts")},
    NamedValue{QLatin1StringView("sfColor"), QLatin1StringView("Centre Text Colour")},
    NamedValue{QLatin1StringView("screenFontSize"), QLatin1StringView("Centre Text Size")},
    NamedValue{QLatin1StringView("showPower"), QLatin1StringView("Power Text")},
    NamedValue{QLatin1StringView("drawLabels"), QLatin1StringView("Panel Labels")},
    NamedValue{QLatin1StringView("labelColor"), QLatin1StringView("Label Colour")},
    NamedValue{QLatin1StringView("labelFontSize"), QLatin1StringView("Label Size")},
    NamedValue{QLatin1StringView("XYLabelDirection"), QLatin1StringView("Label Direction")},
    NamedValue{QLatin1StringView("drawFlowPath"), QLatin1StringView("Data Path")},
    NamedValue{QLatin1StringView("pattern"), QLatin1StringView("Data Path Pattern")},
    NamedValue{QLatin1StringView("updatePattern"), QLatin1StringView("Data Path Pattern")},
    NamedValue{QLatin1StringView("pixelLimit"), QLatin1StringView("Pixels per Port")},
    NamedValue{QLatin1StringView("powerOnCell"), QLatin1StringView("Panel Power")},
    NamedValue{QLatin1StringView("aspectRatio"), QLatin1StringView("Aspect Lock")},
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
