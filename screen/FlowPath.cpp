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
    PanelAxis alongLines;  ///< the panels of a line, by u
    PanelAxis acrossLines; ///< the lines, by v
    int lines;             ///< of the run; 0 or less: nothing is walked
    double first;          ///< v where the first line is walked, about its centre
    bool startsLow;        ///< the first line is walked towards greater u
    bool ascends;          ///< lines follow one another towards greater v
};

/// Where one line of panels is walked from and to, and where the next one lies.
struct Line
{
    double end;       ///< u of its last panel centre
    double beforeEnd; ///< half a panel short of it, where its straight part stops
    double v;
};

/// Walks a serpentine, turning (u, v) into the raster's (x, y).
class Walk
{
public:
    Walk(const Serpentine &serpentine, bool alongRows)
        : m_serpentine(serpentine), m_alongRows(alongRows), m_low(serpentine.alongLines.centre(0)),
          m_high(serpentine.alongLines.centre(serpentine.alongLines.count() - qint64{1})),
          m_middle(static_cast<double>(serpentine.alongLines.size()) * 0.5), m_last(0, serpentine.first),
          m_firstLine(serpentine.acrossLines.lineAt(static_cast<qint64>(serpentine.first)).value_or(0))
    {}

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
        const PanelAxis &panels = m_serpentine.alongLines;
        const qint64 edge = isForward ? panels.edge(panels.count() - qint64{1}) : panels.edge(1);
        const Line line{isForward ? m_high : m_low, static_cast<double>(edge), m_serpentine.first + way(0, index)};

        run.line.lineTo(point(line.beforeEnd, line.v));
        run.passing.push_back(arrowhead(m_middle, line.v, along(isForward)));
        m_last = QPointF(line.end, line.v);
        if (index + 1 == m_serpentine.lines)
            run.line.lineTo(point(line.end, line.v));
        else
            turn(run, line, way(index, index + 1));
    }

    void turn(Run &run, const Line &line, double across)
    {
        const QPointF middle = point(line.end, line.v + across * 0.5);
        const double next = line.v + across;
        run.passing.push_back({middle, this->across(m_serpentine.ascends)});
        run.line.cubicTo(point(line.end, line.v), middle, middle);
        run.line.cubicTo(point(line.end, next), point(line.beforeEnd, next), point(line.beforeEnd, next));
        run.line.lineTo(point(line.beforeEnd, next));
    }

    /// Along v from one line of the run to another.
    double way(int from, int to) const
    {
        const auto centre = [this](int index) {
            return m_serpentine.acrossLines.centre(m_firstLine + (m_serpentine.ascends ? index : -index));
        };
        return centre(to) - centre(from);
    }

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
    double m_low;
    double m_high;
    double m_middle;
    QPointF m_last; ///< (u, v)
    qint64 m_firstLine;
};

/// The centre of a run's first line: as given, or that of the line at its near or far end.
double firstLine(double given, bool ascends, const PanelAxis &acrossLines, int lines)
{
    if (given > 0)
        return given;
    return acrossLines.centre(ascends ? 0 : lines - qint64{1});
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
    return arrowhead(centre, forward, {std::abs(forward.y()), std::abs(forward.x())});
}

QPainterPath arrowhead(const QPointF &centre, const QPointF &forward, const QPointF &aside)
{
    QPainterPath triangle(centre - forward - aside);
    triangle.lineTo(centre - forward + aside);
    triangle.lineTo(centre + forward);
    triangle.closeSubpath();
    return triangle;
}

Run rowsRun(const PanelGrid &grid, bool fromRight, bool fromBottom, double &x, const double &y, bool andRight,
            float andDelimiter)
{
    const int rows = lineCount(andDelimiter, grid.rows.count());
    const PanelAxis up = grid.rowsFromBottom();
    Walk walk({grid.columns, up, rows, firstLine(y, fromBottom, up, rows), !fromRight, fromBottom}, true);

    const bool isEven = grid.rows.count() % 2 == 0;
    Run run = walk.run(andRight ? isEven : !isEven);
    if (rows > 0)
        x = walk.lastAlong();
    return run;
}

Run columnsRun(const PanelGrid &grid, bool fromRight, bool fromBottom, const double &x, double &y, bool andEnd,
               float andDelimiter)
{
    const int columns = lineCount(andDelimiter, grid.columns.count());
    const double first = firstLine(x, !fromRight, grid.columns, columns);
    Walk walk({grid.rowsFromBottom(), grid.columns, columns, first, fromBottom, !fromRight}, false);

    const bool isEven = grid.columns.count() % 2 == 0;
    Run run = walk.run(!(andEnd ? isEven : !isEven));
    if (columns > 0)
        y = walk.lastAlong();
    return run;
}

void drawOutlined(DrawingSurface &surface, const QPainterPath &arrowhead, const Colour &colour)
{
    surface.setColour(colour);
    surface.fillPath(arrowhead);
    surface.setColour(ChartConstants::init2().pathColor);
    surface.strokePath(arrowhead, 1);
}

void draw(DrawingSurface &surface, const Run &run, const Colour &colour)
{
    const ChartConstants &constants = ChartConstants::init2();
    drawOutlined(surface, run.start.path(), constants.startColor);
    ArrowheadMasks masks;
    for (const Arrowhead &arrowhead : run.passing)
        surface.drawMasks(wholePart(arrowhead.centre), 0, {&masks.maskOf(arrowhead), 1}, colour);
    surface.setColour(colour);
    surface.strokePath(run.line, constants.pathLineWidth);
    drawOutlined(surface, run.end.path(), constants.endColor);
}

void drawFlowPathRowsFromRight(DrawingSurface &surface, const PanelGrid &grid, bool fromRight, bool fromBottom,
                               double &x, const double &y, bool andRight, float andDelimiter, const Colour &colour)
{
    draw(surface, rowsRun(grid, fromRight, fromBottom, x, y, andRight, andDelimiter), colour);
}

void drawFlowPathColumnsFromRight(DrawingSurface &surface, const PanelGrid &grid, bool fromRight, bool fromBottom,
                                  const double &x, double &y, bool andEnd, float andDelimiter, const Colour &colour)
{
    draw(surface, columnsRun(grid, fromRight, fromBottom, x, y, andEnd, andDelimiter), colour);
}

} // namespace FlowPath
