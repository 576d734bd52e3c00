#include "show/EditNames.h"

#include "show/LayerList.h"

#include <algorithm>
#include <array>

namespace {
struct NamedValue
{
    QLatin1StringView value;
    QLatin1StringView name;
};

constexpr std::array names{
    NamedValue{QLatin1StringView("OutputWidth"), QLatin1StringView("output width")},
    NamedValue{QLatin1StringView("OutputHeight"), QLatin1StringView("output height")},
    NamedValue{QLatin1StringView("voltageCalc"), QLatin1StringView("voltage")},
    NamedValue{QLatin1StringView("phaseCalc"), QLatin1StringView("phases")},
    NamedValue{QLatin1StringView("panelWidth"), QLatin1StringView("panel width")},
    NamedValue{QLatin1StringView("panelHeight"), QLatin1StringView("panel height")},
    NamedValue{QLatin1StringView("row"), QLatin1StringView("rows")},
    NamedValue{QLatin1StringView("col"), QLatin1StringView("columns")},
    NamedValue{QLatin1StringView("xpoint"), QLatin1StringView("left")},
    NamedValue{QLatin1StringView("ypoint"), QLatin1StringView("top")},
    NamedValue{QLatin1StringView("visible"), QLatin1StringView("visibility")},
    NamedValue{QLatin1StringView("label"), QLatin1StringView("name")},
    NamedValue{QLatin1StringView("bgEnable"), QLatin1StringView("fill")},
    NamedValue{QLatin1StringView("rectColor"), QLatin1StringView("colour 1")},
    NamedValue{QLatin1StringView("rectColor2"), QLatin1StringView("colour 2")},
    NamedValue{QLatin1StringView("BoarderEnable"), QLatin1StringView("frame")},
    NamedValue{QLatin1StringView("boarderColor"), QLatin1StringView("frame, colour")},
    NamedValue{QLatin1StringView("boarderWidth"), QLatin1StringView("frame, width")},
    NamedValue{QLatin1StringView("CircleEnable"), QLatin1StringView("circle and diagonals")},
    NamedValue{QLatin1StringView("circleColor"), QLatin1StringView("circle and diagonals, colour")},
    NamedValue{QLatin1StringView("circleBWidth"), QLatin1StringView("circle and diagonals, width")},
    NamedValue{QLatin1StringView("XYFontEnable"), QLatin1StringView("corner coordinates")},
    NamedValue{QLatin1StringView("xyColor"), QLatin1StringView("corner coordinates, colour")},
    NamedValue{QLatin1StringView("XYFontSize"), QLatin1StringView("corner coordinates, size")},
    NamedValue{QLatin1StringView("screenFontEnable"), QLatin1StringView("name and size at the centre")},
    NamedValue{QLatin1StringView("sfColor"), QLatin1StringView("name and size at the centre, colour")},
    NamedValue{QLatin1StringView("screenFontSize"), QLatin1StringView("name and size at the centre, size")},
    NamedValue{QLatin1StringView("showPower"), QLatin1StringView("power text")},
    NamedValue{QLatin1StringView("showCurrent"), QLatin1StringView("current")},
    NamedValue{QLatin1StringView("drawLabels"), QLatin1StringView("panel labels")},
    NamedValue{QLatin1StringView("labelColor"), QLatin1StringView("panel labels, colour")},
    NamedValue{QLatin1StringView("labelFontSize"), QLatin1StringView("panel labels, size")},
    NamedValue{QLatin1StringView("XYLabelDirection"), QLatin1StringView("letters by row")},
    NamedValue{QLatin1StringView("drawFlowPath"), QLatin1StringView("path")},
    NamedValue{QLatin1StringView("pattern"), QLatin1StringView("pattern of the path")},
    NamedValue{QLatin1StringView("updatePattern"), QLatin1StringView("pattern of the path")},
    NamedValue{QLatin1StringView("pixelLimit"), QLatin1StringView("pixels per port")},
    NamedValue{QLatin1StringView("powerOnCell"), QLatin1StringView("watts per panel")},
    NamedValue{QLatin1StringView("aspectRatio"), QLatin1StringView("keep ratio")},
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
