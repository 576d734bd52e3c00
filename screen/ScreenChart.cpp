#include "screen/ScreenChart.h"

#include "drawing/Raster.h"
#include "grid/PortSplit.h"
#include "layer/Logging.h"
#include "layer/PortColours.h"
#include "layer/WallGrid.h"
#include "screen/CableDrawing.h"
#include "screen/CableTexts.h"
#include "screen/ChartConstants.h"
#include "screen/FlowPath.h"
#include "screen/LostWall.h"
#include "screen/PanelLabels.h"
#include "screen/PanelPainter.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {
/// Length of all lines of a data path together, in pixels, and the sum of the squares of the runs' line counts (a
/// stroke that lies over itself costs that) before drawing takes a second. Real walls need a tenth; where panels are
/// single pixels the path would only be a white field.
constexpr double longestDataPath = 1e7;
constexpr double mostCrossings = 2e6;

WallCables cablesOf(const WallRuns &runs)
{
    WallCables cables;
    std::ranges::transform(runs, std::back_inserter(cables), [](const CableRun &run) {
        return WallCable{.port = run.port, .cells = run.cells, .begins = run.piece == 1};
    });
    return cables;
}

bool isAffordable(const ScreenChart &chart, const FlowPattern &flow, const PortSplit &split)
{
    const bool alongRows = flow.along == FlowPattern::Along::Rows;
    const double lines = alongRows ? chart.row : chart.col;
    const double length = static_cast<double>(alongRows ? chart.wallWidth() : chart.wallHeight());
    const double linesPerRun = split.isOneRun ? lines : std::min(lines, std::abs(double(split.linesPerPort)));
    return lines * length <= longestDataPath && lines * linesPerRun <= mostCrossings;
}

} // namespace

qint64 ScreenChart::wallWidth() const
{
    return panelGridOf(*this).columns.size();
}

qint64 ScreenChart::wallHeight() const
{
    return panelGridOf(*this).rows.size();
}

QImage ScreenChart::draw(QImage old) const
{
    QImage raster = Raster::reuse(std::move(old), wallWidth(), wallHeight());
    if (raster.isNull()) {
        if (wallWidth() > 0 && wallHeight() > 0)
            qCWarning(lcScreen, "%s.",
                      qUtf8Printable(LostWall::sentence(label.value_or(QString()), wallWidth(), wallHeight())));
        return {};
    }

    drawPart(raster, raster.rect());
    return raster;
}

void ScreenChart::drawPart(QImage &raster, const QRect &part) const
{
    PanelPainter(*this).paint(raster, part);
    DrawingSurface surface(raster, part);
    drawCircleAndDiagonals(surface);
    for (const auto &[bottomLeft, text, colours] : texts())
        surface.drawText(bottomLeft, text, colours);
    drawRect2(surface);
}

void ScreenChart::drawRect2(DrawingSurface &surface) const
{
    const bool asksForCables = portNames || panelPlaces || portColours || showsCables();
    const WallCables known = asksForCables ? knownCables() : WallCables();
    const std::vector<Colour> colours = coloursOf(known);
    if (drawLabels && labelColor && panelPlaces && !known.empty())
        CableTexts(*this, known).drawPlaces(surface);
    else if (drawLabels && labelColor)
        PanelLabels(*this).draw(surface);
    if (drawFlowPath && showsCables())
        drawCables(surface, known, colours);
    else if (drawFlowPath)
        drawDataPath(surface, colours);
    if (portNames)
        CableTexts(*this, known).drawNames(surface, colours);
}

WallCables ScreenChart::knownCables() const
{
    WallCables known = cables ? *cables : split == CableSplit::Hand ? cablesOf(runs.list()) : WallCables();
    const CellSet off = cables ? CellSet() : hiddenBoxes.value_or(PanelKeys()).cellsInside(col, row);
    const auto isMissing = [&](const Cell &cell) {
        return cell.column < 0 || cell.column >= col || cell.row < 0 || cell.row >= row || off.contains(cell);
    };
    for (WallCable &cable : known)
        std::erase_if(cable.cells, isMissing);
    return known;
}

bool ScreenChart::showsCables() const
{
    return split == CableSplit::Hand || (split == CableSplit::Panels && cables);
}

std::vector<Colour> ScreenChart::coloursOf(const WallCables &known) const
{
    return portColours ? PortColours::of(known) : std::vector(known.size(), ChartConstants::init2().pathColor);
}

/// Whoever does not say which ports feed the wall counts them from 1.
Colour ScreenChart::colourOfRun(qint64 place, const std::vector<Colour> &colours) const
{
    if (!portColours)
        return ChartConstants::init2().pathColor;
    return place < std::ssize(colours) ? colours[static_cast<std::size_t>(place)] : PortColours::of(place + 1);
}

void ScreenChart::drawCables(DrawingSurface &surface, const WallCables &known, const std::vector<Colour> &colours) const
{
    const PanelGrid grid = panelGridOf(*this);
    for (std::size_t cable = 0; cable < known.size(); ++cable)
        CableDrawing::draw(surface, grid, known[cable], colours[cable]);
}

void ScreenChart::drawCircleAndDiagonals(DrawingSurface &surface) const
{
    if (!CircleEnable)
        return;
    const double wide = static_cast<double>(wallWidth());
    const double high = static_cast<double>(wallHeight());
    const double b = circleBWidth;
    const auto half = [](qint64 pixels) { return pixels / 2; }; // an odd one is left out
    const auto h = static_cast<double>(half(circleBWidth));
    const auto halfWidth = static_cast<double>(half(wallWidth()));
    const auto halfHeight = static_cast<double>(half(wallHeight()));

    QPainterPath diagonalA(QPointF(wide - h + b, high - h + b));
    diagonalA.lineTo(-(wide - h + b), -(high - h + b));
    QPainterPath diagonalB(QPointF(-h, high + h));
    diagonalB.lineTo(wide + h, -h);
    QPainterPath circle;
    if (wide > high)
        circle.addEllipse(halfWidth + h - halfHeight, h, high - b, high - b);
    else
        circle.addEllipse(h, h - halfWidth + halfHeight, wide - b, wide - b);

    surface.setColour(circleColor.value_or(PanelColours::of(*this).strokeAfterwards));
    for (const QPainterPath &path : {diagonalB, diagonalA, circle})
        surface.strokePath(path, b);
}

void ScreenChart::drawDataPath(DrawingSurface &surface, const std::vector<Colour> &colours) const
{
    const auto flow = FlowPattern::ofCode(pattern);
    if (!flow)
        return;
    const auto ports = PortSplit::of(panelGridOf(*this), *flow, pixelLimit);
    if (!ports)
        return;
    const bool alongRows = flow->along == FlowPattern::Along::Rows;
    if (!isAffordable(*this, *flow, *ports)) {
        qCWarning(lcScreen, "The data path through %d x %d panels is left out: its lines would only cover each other.",
                  col, row);
        return;
    }
    double x = 0;
    double y = 0;
    for (qint64 index = 0; index < ports->portCount(); ++index) {
        const auto [start, lines] = ports->port(index);
        const auto delimiter = static_cast<float>(lines);
        const Colour colour = colourOfRun(ports->placeOnPath(index), colours);
        if (alongRows) {
            y = start;
            FlowPath::drawFlowPathRowsFromRight(surface, panelGridOf(*this), flow->fromRight, flow->fromBottom, x, y,
                                                flow->end, delimiter, colour);
            continue;
        }
        x = start;
        if (!ports->isOneRun && index < ports->fullPorts)
            qCDebug(lcScreen, "%.f", x);
        FlowPath::drawFlowPathColumnsFromRight(surface, panelGridOf(*this), flow->fromRight, flow->fromBottom, x, y,
                                               flow->end, delimiter, colour);
    }
}
