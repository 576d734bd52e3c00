#include "screen/CableDrawing.h"

#include "layer/CableJump.h"
#include "screen/ChartConstants.h"
#include "screen/FlowPath.h"

#include <algorithm>
#include <cmath>

namespace CableDrawing {

namespace {
const std::vector<double> dash{12, 8};
/// Strokes of more corners take long where they lie over themselves.
constexpr int mostCorners = 256;

PixelBox panelBox(const PanelGrid &grid, const Cell &cell)
{
    return {{grid.columns.edge(cell.column), grid.columns.edge(qint64{cell.column} + 1)},
            {grid.rows.edge(cell.row), grid.rows.edge(qint64{cell.row} + 1)}};
}

QPointF centreOf(const PanelGrid &grid, const Cell &cell)
{
    return {grid.columns.centre(cell.column), grid.rowsFromBottom().centre(qint64{grid.rows.count()} - 1 - cell.row)};
}

/// A step of one pixel from a point towards another; to the right where they are the same.
QPointF towards(const QPointF &from, const QPointF &to)
{
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    return length > 0 ? way / length : QPointF(1, 0);
}

QPainterPath arrowheadAt(const QPointF &centre, const QPointF &step)
{
    const double size = ChartConstants::init2().arrowSize;
    return FlowPath::arrowhead(centre, step * size, QPointF(-step.y(), step.x()) * size);
}

/// Solid stretches that follow each other are one line, so that their corners close.
void strokeStretches(DrawingSurface &surface, const std::vector<Stretch> &stretches)
{
    const double width = ChartConstants::init2().pathLineWidth;
    QPainterPath line;
    const auto finishLine = [&](const std::vector<double> &dashes = {}) {
        if (line.elementCount() > 1)
            surface.strokePath(line, width, dashes);
        line.clear();
    };
    for (const Stretch &stretch : stretches) {
        if (stretch.isJump)
            finishLine();
        if (line.isEmpty())
            line.moveTo(stretch.from);
        if (line.elementCount() > mostCorners) {
            line.lineTo(stretch.middle());
            finishLine();
            line.moveTo(stretch.middle());
        }
        line.lineTo(stretch.to);
        if (stretch.isJump)
            finishLine(dash);
    }
    finishLine();
}

/// Those of a single panel stand side by side.
void drawEnds(DrawingSurface &surface, const PanelGrid &grid, const WallCable &cable,
              const std::vector<Stretch> &stretches)
{
    const ChartConstants &constants = ChartConstants::init2();
    const QPointF first = centreOf(grid, cable.cells.front());
    const QPointF last = centreOf(grid, cable.cells.back());
    const QPointF begin = stretches.empty() ? QPointF(1, 0) : towards(stretches.front().from, stretches.front().to);
    const QPointF end = stretches.empty() ? QPointF(1, 0) : towards(stretches.back().from, stretches.back().to);
    const QPointF apart = stretches.empty() && cable.begins && cable.ends ? begin * constants.arrowSize : QPointF(0, 0);
    if (cable.begins)
        FlowPath::drawOutlined(surface, arrowheadAt(first - apart, begin), constants.startColor);
    if (cable.ends)
        FlowPath::drawOutlined(surface, arrowheadAt(last + apart, end), constants.endColor);
}
} // namespace

std::vector<Stretch> stretchesOf(const PanelGrid &grid, const std::vector<Cell> &cells)
{
    std::vector<Stretch> stretches;
    for (std::size_t i = 1; i < cells.size(); ++i) {
        const Stretch hop{centreOf(grid, cells[i - 1]), centreOf(grid, cells[i]),
                          isCableJump(panelBox(grid, cells[i - 1]), panelBox(grid, cells[i]))};
        const bool goesOn = !stretches.empty() && !hop.isJump && !stretches.back().isJump &&
                            towards(stretches.back().from, stretches.back().to) == towards(hop.from, hop.to);
        if (goesOn)
            stretches.back().to = hop.to;
        else
            stretches.push_back(hop);
    }
    return stretches;
}

void draw(DrawingSurface &surface, const PanelGrid &grid, const WallCable &cable, const Colour &colour)
{
    if (cable.cells.empty())
        return;
    const std::vector<Stretch> stretches = stretchesOf(grid, cable.cells);
    surface.setColour(colour);
    strokeStretches(surface, stretches);
    for (const Stretch &stretch : stretches)
        surface.fillPath(arrowheadAt(stretch.middle(), towards(stretch.from, stretch.to)));
    drawEnds(surface, grid, cable, stretches);
}

QRect reachOf(const PanelGrid &grid, const WallCable &cable)
{
    QRect reach;
    for (const Cell &cell : cable.cells) {
        reach |= QRect(static_cast<int>(grid.columns.edge(cell.column)), static_cast<int>(grid.rows.edge(cell.row)),
                       std::max(grid.columns.sizeOf(cell.column), 1), std::max(grid.rows.sizeOf(cell.row), 1));
    }
    const int around = 2 * static_cast<int>(ChartConstants::init2().arrowSize) + 2;
    return reach.isEmpty() ? reach : reach.adjusted(-around, -around, around, around);
}

} // namespace CableDrawing
