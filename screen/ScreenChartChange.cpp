#include "layer/WallGrid.h"
#include "screen/CableDrawing.h"
#include "screen/ScreenChart.h"

#include <algorithm>

namespace {
/// More rectangles than these cost more than drawing what lies between them.
constexpr qsizetype mostParts = 16;

PanelKeys panelsOff(const ScreenChart &chart)
{
    return chart.hiddenBoxes.value_or(PanelKeys());
}

/// Takes over what a chart's pixels do not show at all.
void takeUnseen(ScreenChart &chart, const ScreenChart &from)
{
    chart.visible = from.visible;
    chart.showPowerl = from.showPowerl;
    chart.aspectRatio = from.aspectRatio;
    chart.aspectValue = from.aspectValue;
    chart.aspectHidden = from.aspectHidden;
    chart.processor = from.processor;
    chart.firstPort = from.firstPort;
    chart.goesOn = from.goesOn;
    chart.limitFromProcessor = from.limitFromProcessor;
    if (chart.cables && from.cables) // which say it
        chart.runs = from.runs;
}

/// Takes over what only the texts at the centre and in the corners show.
void takeTexts(ScreenChart &chart, const ScreenChart &from)
{
    static_cast<ChartSurroundings &>(chart) = from;
    chart.xpoint = from.xpoint;
    chart.ypoint = from.ypoint;
    chart.label = from.label;
    chart.XYFontEnable = from.XYFontEnable;
    chart.xyColor = from.xyColor;
    chart.XYFontSize = from.XYFontSize;
    chart.screenFontEnable = from.screenFontEnable;
    chart.sfColor = from.sfColor;
    chart.screenFontSize = from.screenFontSize;
    chart.showPower = from.showPower;
    chart.showCurrent = from.showCurrent;
    chart.powerOnCell = from.powerOnCell;
}

QRect boxOf(const PanelGrid &grid, const Cell &panel)
{
    return {static_cast<int>(grid.columns.edge(panel.column)), static_cast<int>(grid.rows.edge(panel.row)),
            grid.columns.sizeOf(panel.column), grid.rows.sizeOf(panel.row)};
}

QRegion changedPanels(const ScreenChart &before, const ScreenChart &now)
{
    QRegion changed;
    QRect all;
    const PanelGrid grid = panelGridOf(now);
    const CellSet panels =
        panelsOff(before).cellsInside(now.col, now.row).difference(panelsOff(now).cellsInside(now.col, now.row));
    for (const Cell &panel : panels.cells()) {
        all |= boxOf(grid, panel);
        if (panels.size() <= mostParts)
            changed += boxOf(grid, panel);
    }
    return panels.size() <= mostParts ? changed : all;
}
} // namespace

std::optional<QRegion> ScreenChart::changeSince(const ScreenChart &before) const
{
    if (wallWidth() != before.wallWidth() || wallHeight() != before.wallHeight())
        return std::nullopt; // its panels may lie further out than pixels can be counted
    ScreenChart rest = *this;
    takeUnseen(rest, before);
    QRegion changed;
    if (rest.hiddenBoxes != before.hiddenBoxes && split == CableSplit::Hand && !cables)
        return std::nullopt; // its cables go past the panels that are off
    if (rest.hiddenBoxes != before.hiddenBoxes)
        changed += changedPanels(before, *this);
    rest.hiddenBoxes = before.hiddenBoxes;
    if (const auto part = changedCables(before))
        changed += *part;
    else
        return std::nullopt;
    rest.cables = before.cables;
    if (rest == before)
        return changed;
    takeTexts(rest, before);
    if (!(rest == before))
        return std::nullopt;
    return changed + changedTexts(before);
}

/// None: they are told in texts, or by the colours of lines, which reach further than their panels.
std::optional<QRegion> ScreenChart::changedCables(const ScreenChart &before) const
{
    if (cables == before.cables || (cables && before.cables && *cables == *before.cables))
        return QRegion();
    const bool areTold = portNames || panelPlaces || (portColours && !showsCables());
    if (areTold || !cables || !before.cables)
        return std::nullopt;
    if (!showsCables())
        return QRegion();
    const WallCables was = before.knownCables();
    const WallCables is = knownCables();
    QRegion changed;
    const std::vector<Colour> wasColours = before.coloursOf(was);
    const std::vector<Colour> isColours = coloursOf(is);
    // A cable that somebody lays beside another may change the colour of that one.
    const auto addMissing = [&](const WallCables &of, const std::vector<Colour> &colours, const WallCables &others,
                                const std::vector<Colour> &otherColours) {
        for (std::size_t i = 0; i < of.size(); ++i) {
            const auto found = std::ranges::find(others, of[i]);
            if (found == others.end() || otherColours[static_cast<std::size_t>(found - others.begin())] != colours[i])
                changed += CableDrawing::reachOf(panelGridOf(*this), of[i]);
        }
    };
    addMissing(was, wasColours, is, isColours);
    addMissing(is, isColours, was, wasColours);
    return changed & QRect(0, 0, static_cast<int>(wallWidth()), static_cast<int>(wallHeight()));
}

QRegion ScreenChart::changedTexts(const ScreenChart &before) const
{
    const std::vector<PlacedText> earlier = before.texts();
    const std::vector<PlacedText> now = texts();
    const auto reachOf = [this](const PlacedText &placed) {
        const qint64 top = wallHeight() - placed.bottomLeft.y() - placed.text.size().height();
        return placed.text.reach().translated(placed.bottomLeft.x(), static_cast<int>(top));
    };
    QRegion changed;
    for (std::size_t i = 0; i < std::max(earlier.size(), now.size()); ++i) {
        const bool stays = i < earlier.size() && i < now.size() && earlier[i] == now[i];
        if (!stays && i < earlier.size())
            changed += reachOf(earlier[i]);
        if (!stays && i < now.size())
            changed += reachOf(now[i]);
    }
    return changed & QRect(0, 0, static_cast<int>(wallWidth()), static_cast<int>(wallHeight()));
}
