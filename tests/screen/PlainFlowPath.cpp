#include "tests/screen/PlainFlowPath.h"

#include <cmath>
#include <limits>
#include <optional>

namespace {
constexpr double arrowSize = 10;
constexpr double pathLineWidth = 5;
constexpr double outlineWidth = 1;
constexpr Colour startColor = NamedColour::green;
constexpr Colour endColor = NamedColour::red;
constexpr Colour pathColor = NamedColour::white;

/// A unit step along an axis.
struct Direction
{
    double x;
    double y;
};

/// The triangle at `at`: two corners of its base behind, the tip in front.
QPainterPath arrowhead(const QPointF &at, const Direction &d)
{
    const double a = arrowSize;
    const QPointF base(at.x() - a * d.x, at.y() - a * d.y);
    const QPointF across(a * std::abs(d.y), a * std::abs(d.x));
    QPainterPath path(base - across);
    path.lineTo(base + across);
    path.lineTo(at.x() + a * d.x, at.y() + a * d.y);
    path.closeSubpath();
    return path;
}

void fillArrowhead(PlainCanvas &canvas, const QPointF &at, const Direction &direction, const Colour &fill)
{
    canvas.setColour(fill);
    canvas.fillPath(arrowhead(at, direction));
}

void outlineArrowhead(PlainCanvas &canvas, const QPointF &at, const Direction &direction)
{
    canvas.setColour(pathColor);
    canvas.strokePath(arrowhead(at, direction), outlineWidth);
}

/// How the last arrowhead points follows the total of the screen, whatever the run covers.
bool endFlag(bool andEnd, int total)
{
    return andEnd ? total % 2 == 0 : total % 2 != 0;
}

qint64 runLength(float delimiter, int total)
{
    return delimiter != 0 ? static_cast<qint64>(delimiter) : total;
}

void drawFlowPathRows(const ScreenChart &chart, PlainCanvas &canvas, bool fromRight, bool fromBottom, double &x,
                      const double &y, bool andRight, float andDelimiter)
{
    const double pw = chart.panelWidth;
    const double ph = chart.panelHeight;
    const double hw = pw * 0.5;
    const double hh = ph * 0.5;
    const double W = pw * chart.col;
    const qint64 n = runLength(andDelimiter, chart.row);
    const double y0 = y > 0 ? y : (fromBottom ? hh : ph * static_cast<double>(n) - hh);
    const double sx = fromRight ? W - hw : hw;
    const double ox = fromRight ? hw : W - hw;
    const double v = fromBottom ? 1 : -1;
    const double startDirection = fromRight ? -1 : 1;

    fillArrowhead(canvas, {sx, y0}, {startDirection, 0}, startColor);
    outlineArrowhead(canvas, {sx, y0}, {startDirection, 0});

    QPainterPath line(QPointF(sx + startDirection * arrowSize, y0));
    QPointF last(0, y0);
    for (qint64 j = 0; j < n; ++j) {
        const double rowY = y0 + static_cast<double>(j) * v * ph;
        const double end = j % 2 == 0 ? ox : sx;
        const double d = j % 2 == 0 ? startDirection : -startDirection;
        line.lineTo(end - d * hw, rowY);
        fillArrowhead(canvas, {W * 0.5, rowY}, {d, 0}, pathColor);
        if (j == n - 1) {
            line.lineTo(end, rowY);
            x = end;
            last = {end, rowY};
            break;
        }
        const double ym = rowY + v * hh;
        const double yn = rowY + v * ph;
        fillArrowhead(canvas, {end, ym}, {0, v}, pathColor);
        line.cubicTo(end, rowY, end, ym, end, ym);
        line.cubicTo(end, yn, end - d * hw, yn, end - d * hw, yn);
        line.lineTo(end - d * hw, yn);
    }

    canvas.setColour(pathColor);
    canvas.strokePath(line, pathLineWidth);
    const double endDirection = endFlag(andRight, chart.row) ? 1 : -1;
    fillArrowhead(canvas, last, {endDirection, 0}, endColor);
    outlineArrowhead(canvas, last, {endDirection, 0});
}

void drawFlowPathColumns(const ScreenChart &chart, PlainCanvas &canvas, bool fromRight, bool fromBottom,
                         const double &x, double &y, bool andEnd, float andDelimiter)
{
    const double pw = chart.panelWidth;
    const double ph = chart.panelHeight;
    const double hw = pw * 0.5;
    const double hh = ph * 0.5;
    const double H = ph * chart.row;
    const qint64 n = runLength(andDelimiter, chart.col);
    const double x0 = x > 0 ? x : (fromRight ? pw * static_cast<double>(n) - hw : hw);
    const double sy = fromBottom ? hh : H - hh;
    const double oy = fromBottom ? H - hh : hh;
    const double h = fromRight ? -1 : 1;
    const double startDirection = fromBottom ? 1 : -1;

    fillArrowhead(canvas, {x0, sy}, {0, startDirection}, startColor);
    outlineArrowhead(canvas, {x0, sy}, {0, startDirection});

    QPainterPath line(QPointF(x0, sy + startDirection * arrowSize));
    QPointF last(x0, 0);
    for (qint64 j = 0; j < n; ++j) {
        const double columnX = x0 + static_cast<double>(j) * h * pw;
        const double end = j % 2 == 0 ? oy : sy;
        const double d = j % 2 == 0 ? startDirection : -startDirection;
        line.lineTo(columnX, end - d * hh);
        fillArrowhead(canvas, {columnX, H * 0.5}, {0, d}, pathColor);
        if (j == n - 1) {
            line.lineTo(columnX, end);
            y = end;
            last = {columnX, end};
            break;
        }
        const double xm = columnX + h * hw;
        const double xn = columnX + h * pw;
        fillArrowhead(canvas, {xm, end}, {h, 0}, pathColor);
        line.cubicTo(columnX, end, xm, end, xm, end);
        line.cubicTo(xn, end, xn, end - d * hh, xn, end - d * hh);
        line.lineTo(xn, end - d * hh);
    }

    canvas.setColour(pathColor);
    canvas.strokePath(line, pathLineWidth);
    const double endDirection = endFlag(andEnd, chart.col) ? -1 : 1;
    fillArrowhead(canvas, last, {0, endDirection}, endColor);
    outlineArrowhead(canvas, last, {0, endDirection});
}

struct Pattern
{
    bool rows;
    bool fromRight;
    bool fromBottom;
    bool end; ///< andRight or andEnd
};

constexpr Pattern patterns[] = {
    {true, false, false, false},  // 0: top left, rows go down
    {true, true, false, true},    // 1: top right, rows go down
    {true, false, true, false},   // 2: bottom left, rows go up
    {true, true, true, true},     // 3: bottom right, rows go up
    {false, false, false, false}, // 4: top left, columns go right
    {false, true, false, false},  // 5: top right, columns go left
    {false, false, true, true},   // 6: bottom left, columns go right
    {false, true, true, true},    // 7: bottom right, columns go left
};

/// Truncated toward zero; nothing where there is no quotient.
std::optional<qint64> divide(qint64 number, qint64 divisor)
{
    if (divisor == 0 || (divisor == -1 && number == std::numeric_limits<qint64>::min()))
        return std::nullopt;
    return number / divisor;
}

/// One run of `count` rows or columns (0: all), started at `start`.
void drawRun(const ScreenChart &chart, PlainCanvas &canvas, const Pattern &p, double start, qint64 count)
{
    double written = 0; // the other coordinate, which nobody reads
    const auto delimiter = static_cast<float>(count);
    if (p.rows)
        drawFlowPathRows(chart, canvas, p.fromRight, p.fromBottom, written, start, p.end, delimiter);
    else
        drawFlowPathColumns(chart, canvas, p.fromRight, p.fromBottom, start, written, p.end, delimiter);
}

/// `k` rows or columns per port, `total` of them on the screen, `size` pixels each.
void drawPorts(const ScreenChart &chart, PlainCanvas &canvas, const Pattern &p, qint64 k)
{
    const qint64 total = p.rows ? chart.row : chart.col;
    const qint64 across = p.rows ? chart.col : chart.row;
    const qint64 size = p.rows ? chart.panelHeight : chart.panelWidth;
    const bool startsAtFarEnd = p.rows ? !p.fromBottom : p.fromRight;

    const qint64 n = total / k;
    qint64 start = startsAtFarEnd ? size * k - size / 2 : size / 2;
    for (qint64 port = 0; port < n; ++port) {
        drawRun(chart, canvas, p, static_cast<double>(start), k);
        start += size * k;
    }

    const qint64 covered = k * n * across;
    const qint64 rest = qint64{chart.row} * chart.col - covered;
    if (rest <= 0)
        return;
    const qint64 m = rest / across;
    if (startsAtFarEnd)
        start -= (k - m) * size;
    drawRun(chart, canvas, p, static_cast<double>(start), m);
}
} // namespace

void drawPlainFlowPath(const ScreenChart &chart, PlainCanvas &canvas)
{
    if (chart.pattern < 0 || chart.pattern > 7)
        return;
    const Pattern &p = patterns[chart.pattern];

    if (chart.pixelLimit == 0) {
        drawRun(chart, canvas, p, -1, 0);
        return;
    }
    const auto panels = divide(chart.pixelLimit, qint64{chart.panelWidth} * chart.panelHeight);
    const auto k = panels ? divide(*panels, p.rows ? chart.col : chart.row) : std::nullopt;
    if (!k)
        return;
    if (*k == 0)
        drawRun(chart, canvas, p, -1, 0);
    else
        drawPorts(chart, canvas, p, *k);
}
