#include "screen/FlowPath.h"

#include "screen/ChartConstants.h"

#include <QTransform>

#include <cmath>
#include <map>
#include <tuple>

namespace FlowPath {

namespace {
/// A run without regard to whether it snakes along rows or columns: u runs along the lines of panels, v across them.
struct Serpentine
{
    double panelAlong;
    double panelAcross;
    int panelsPerLine;
    int lines;      ///< of the run; 0 or less: nothing is walked
    double first;   ///< v of the first line's centre
    bool startsLow; ///< the first line is walked towards greater u
    bool ascends;   ///< lines follow one another towards greater v
};

/// Where one line of panels is walked from and to, and where the next one lies.
struct Line
{
    double end;     ///< u of its last panel centre
    double forward; ///< +1 or -1 along u
    double v;
};

/// Walks a serpentine, turning (u, v) into the raster's (x, y).
class Walk
{
public:
    Walk(const Serpentine &serpentine, bool alongRows) : m_serpentine(serpentine), m_alongRows(alongRows)
    {
        const double half = serpentine.panelAlong * 0.5;
        const double length = serpentine.panelAlong * serpentine.panelsPerLine;
        m_low = half;
        m_high = length - half;
        m_middle = length * 0.5;
        m_last = QPointF(0, serpentine.first);
    }

    Run run(bool endsForward)
    {
        const bool startsLow = m_serpentine.startsLow;
        const double start = startsLow ? m_low : m_high;
        const double arrowSize = ChartConstants::init2().arrowSize;

        Run run;
        run.start = arrowhead(start, m_serpentine.first, along(startsLow));
        run.line.moveTo(point(startsLow ? start + arrowSize : start - arrowSize, m_serpentine.first));
        for (int index = 0; index < m_serpentine.lines; ++index)
            walkLine(run, index);
        run.end = arrowhead(m_last.x(), m_last.y(), along(endsForward));
        return run;
    }

    /// u of the last panel centre; 0 where nothing was walked.
    double lastAlong() const { return m_last.x(); }

private:
    void walkLine(Run &run, int index)
    {
        const bool isForward = (index % 2 == 0) == m_serpentine.startsLow;
        const double across = m_serpentine.ascends ? m_serpentine.panelAcross : -m_serpentine.panelAcross;
        const Line line{isForward ? m_high : m_low, isForward ? 1.0 : -1.0, m_serpentine.first + index * across};

        run.line.lineTo(point(beforeEnd(line), line.v));
        run.passing.push_back(arrowhead(m_middle, line.v, along(isForward)));
        m_last = QPointF(line.end, line.v);
        if (index + 1 == m_serpentine.lines)
            run.line.lineTo(point(line.end, line.v));
        else
            turn(run, line, across);
    }

    void turn(Run &run, const Line &line, double across)
    {
        const QPointF middle = point(line.end, line.v + across * 0.5);
        const double next = line.v + across;
        run.passing.push_back({middle, this->across(m_serpentine.ascends)});
        run.line.cubicTo(point(line.end, line.v), middle, middle);
        run.line.cubicTo(point(line.end, next), point(beforeEnd(line), next), point(beforeEnd(line), next));
        run.line.lineTo(point(beforeEnd(line), next));
    }

    /// The straight part of a line stops half a panel short of its last centre.
    double beforeEnd(const Line &line) const { return line.end - line.forward * m_serpentine.panelAlong * 0.5; }

    QPointF point(double u, double v) const { return m_alongRows ? QPointF(u, v) : QPointF(v, u); }
    Arrowhead arrowhead(double u, double v, Direction direction) const { return {point(u, v), direction}; }
    Direction along(bool forward) const
    {
        return m_alongRows ? (forward ? Direction::Right : Direction::Left)
                           : (forward ? Direction::Up : Direction::Down);
    }
    Direction across(bool forward) const
    {
        return m_alongRows ? (forward ? Direction::Up : Direction::Down)
                           : (forward ? Direction::Right : Direction::Left);
    }

    Serpentine m_serpentine;
    bool m_alongRows;
    double m_low = 0;
    double m_high = 0;
    double m_middle = 0;
    QPointF m_last; ///< (u, v)
};

/// The centre of a run's first line: as given, or that of the line at its near or far end.
double firstLine(double given, bool ascends, double panelSize, int lines)
{
    if (given > 0)
        return given;
    return ascends ? panelSize * 0.5 : panelSize * lines - panelSize * 0.5;
}

QPoint wholePart(const QPointF &point)
{
    return {static_cast<int>(std::floor(point.x())), static_cast<int>(std::floor(point.y()))};
}

/// A run repeats a handful of arrowheads at whole pixels' distances: each is rasterised once.
class ArrowheadMasks
{
public:
    /// The arrowhead's coverage with the whole part of its centre as origin, y down.
    const CoverageMask &maskOf(const Arrowhead &arrowhead)
    {
        const QPointF fraction = arrowhead.centre - wholePart(arrowhead.centre);
        const Key key{arrowhead.direction, fraction.x(), fraction.y()};
        const auto known = m_masks.find(key);
        if (known != m_masks.end())
            return known->second;
        const QPainterPath upward = Arrowhead{fraction, arrowhead.direction}.path();
        return m_masks.emplace(key, CoverageMask::of(QTransform::fromScale(1, -1).map(upward))).first->second;
    }

private:
    using Key = std::tuple<Direction, double, double>;
    std::map<Key, CoverageMask> m_masks;
};

int lineCount(float delimiter, int all)
{
    constexpr float beyondAnyWall = 1 << 30;
    return delimiter != 0 ? static_cast<int>(qBound(-beyondAnyWall, delimiter, beyondAnyWall)) : all;
}
} // namespace

QPainterPath Arrowhead::path() const
{
    const double a = ChartConstants::init2().arrowSize;
    const QPointF forward = direction == Direction::Right  ? QPointF(a, 0)
                            : direction == Direction::Left ? QPointF(-a, 0)
                            : direction == Direction::Up   ? QPointF(0, a)
                                                           : QPointF(0, -a);
    const QPointF aside(std::abs(forward.y()), std::abs(forward.x()));
    QPainterPath triangle(centre - forward - aside);
    triangle.lineTo(centre - forward + aside);
    triangle.lineTo(centre + forward);
    triangle.closeSubpath();
    return triangle;
}

Run rowsRun(const PanelGrid &grid, bool fromRight, bool fromBottom, double &x, const double &y, bool andRight,
            float andDelimiter)
{
    const int rows = lineCount(andDelimiter, grid.row);
    const double first = firstLine(y, fromBottom, grid.panelHeight, rows);
    Walk walk({double(grid.panelWidth), double(grid.panelHeight), grid.col, rows, first, !fromRight, fromBottom}, true);

    const bool isEven = grid.row % 2 == 0;
    const Run run = walk.run(andRight ? isEven : !isEven);
    if (rows > 0)
        x = walk.lastAlong();
    return run;
}

Run columnsRun(const PanelGrid &grid, bool fromRight, bool fromBottom, const double &x, double &y, bool andEnd,
               float andDelimiter)
{
    const int columns = lineCount(andDelimiter, grid.col);
    const double first = firstLine(x, !fromRight, grid.panelWidth, columns);
    Walk walk({double(grid.panelHeight), double(grid.panelWidth), grid.row, columns, first, fromBottom, !fromRight},
              false);

    const bool isEven = grid.col % 2 == 0;
    const Run run = walk.run(!(andEnd ? isEven : !isEven));
    if (columns > 0)
        y = walk.lastAlong();
    return run;
}

void draw(DrawingSurface &surface, const Run &run)
{
    const ChartConstants &constants = ChartConstants::init2();
    const auto drawOutlined = [&](const Arrowhead &arrowhead, const Colour &colour) {
        surface.setColour(colour);
        surface.fillPath(arrowhead.path());
        surface.setColour(constants.pathColor);
        surface.strokePath(arrowhead.path(), 1);
    };

    drawOutlined(run.start, constants.startColor);
    ArrowheadMasks masks;
    for (const Arrowhead &arrowhead : run.passing)
        surface.drawMasks(wholePart(arrowhead.centre), 0, {&masks.maskOf(arrowhead), 1}, constants.pathColor);
    surface.strokePath(run.line, constants.pathLineWidth);
    drawOutlined(run.end, constants.endColor);
}

void drawFlowPathRowsFromRight(DrawingSurface &surface, const PanelGrid &grid, bool fromRight, bool fromBottom,
                               double &x, const double &y, bool andRight, float andDelimiter)
{
    draw(surface, rowsRun(grid, fromRight, fromBottom, x, y, andRight, andDelimiter));
}

void drawFlowPathColumnsFromRight(DrawingSurface &surface, const PanelGrid &grid, bool fromRight, bool fromBottom,
                                  const double &x, double &y, bool andEnd, float andDelimiter)
{
    draw(surface, columnsRun(grid, fromRight, fromBottom, x, y, andEnd, andDelimiter));
}

} // namespace FlowPath
