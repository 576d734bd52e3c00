#include "tests/screen/PlainChart.h"

#include "drawing/Raster.h"
#include "drawing/TextLine.h"
#include "tests/screen/PlainCanvas.h"
#include "tests/screen/PlainFlowPath.h"

#include <cmath>
#include <cstdio>

namespace {
const Colour darkBox = Colour::gray(0, 0.75);

void drawPanel(const ScreenChart &chart, int r, int c, PlainCanvas &canvas)
{
    const QRect panel(c * chart.panelWidth, r * chart.panelHeight, chart.panelWidth, chart.panelHeight);

    if (!chart.bgEnable) {
        canvas.setFillColour(Colour::gray(0, 0));
        canvas.fillRect(panel, QPainter::CompositionMode_SourceAtop);
    } else {
        canvas.setColour((r + c) % 2 == 0 ? chart.rectColor : chart.rectColor2);
    }

    const QString key = QString("%1,%2").arg(static_cast<quint64>(chart.row - 1 - r)).arg(static_cast<quint64>(c));
    if (!chart.hiddenBoxes || !chart.hiddenBoxes->texts().contains(key))
        canvas.fillRect(panel, QPainter::CompositionMode_Source);

    if (chart.BoarderEnable) {
        canvas.setColour(chart.boarderColor);
        canvas.frameRect(panel, chart.boarderWidth);
    }
}

/// Twice the wall in each direction: what lies past the edge is clipped away, but leaves its colours in force.
void drawPanels(const ScreenChart &chart, PlainCanvas &canvas)
{
    for (int r = 0; r < 2 * chart.row; ++r) {
        for (int c = 0; c < 2 * chart.col; ++c)
            drawPanel(chart, r, c, canvas);
    }
}

QPainterPath line(double x1, double y1, double x2, double y2)
{
    QPainterPath path(QPointF(x1, y1));
    path.lineTo(x2, y2);
    return path;
}

void drawCircle(const ScreenChart &chart, PlainCanvas &canvas)
{
    const qint64 W = chart.wallWidth();
    const qint64 H = chart.wallHeight();
    const qint64 b = chart.circleBWidth;
    const qint64 h = b / 2;
    const auto real = [](qint64 whole) { return static_cast<double>(whole); };

    const QPainterPath diagonalA = line(real(W - h + b), real(H - h + b), real(-(W - h + b)), real(-(H - h + b)));
    const QPainterPath diagonalB = line(real(-h), real(H + h), real(W + h), real(-h));
    QPainterPath circle;
    if (W > H)
        circle.addEllipse(real(W / 2 + h - H / 2), real(h), real(H - b), real(H - b));
    else
        circle.addEllipse(real(h), real(h - W / 2 + H / 2), real(W - b), real(W - b));

    canvas.setColour(chart.circleColor);
    canvas.strokePath(diagonalB, real(b));
    canvas.strokePath(diagonalA, real(b));
    canvas.strokePath(circle, real(b));
}

void drawSizeText(const ScreenChart &chart, PlainCanvas &canvas)
{
    const qint64 W = chart.wallWidth();
    const qint64 H = chart.wallHeight();
    const QString text = QString("W %1: H %2").arg(W, 4, 10, QChar('0')).arg(H, 4, 10, QChar('0'));
    const auto n = static_cast<qint64>(3.7f * static_cast<float>(chart.screenFontSize));

    canvas.setColour(chart.sfColor);
    canvas.drawText(W / 2 - n, H / 2 - chart.screenFontSize / 2, text, chart.screenFontSize, chart.sfColor, darkBox);
}

void drawName(const ScreenChart &chart, PlainCanvas &canvas)
{
    QStringList texts = {""};
    if (chart.label)
        texts.append(*chart.label);

    for (const QString &text : texts) {
        const int width = TextLine(text, chart.screenFontSize).size().width();
        canvas.drawText(chart.wallWidth() / 2 - width / 2, chart.wallHeight() / 2 + 10 + chart.screenFontSize / 2, text,
                        chart.screenFontSize, NamedColour::black, Colour::gray(1, 0.9));
    }
}

float amperes(const ScreenChart &chart)
{
    // Products wrap as the processor's do; in C++ only unsigned ones may.
    const auto total = static_cast<qint32>(static_cast<quint32>(chart.col) * static_cast<quint32>(chart.row) *
                                           static_cast<quint32>(chart.powerOnCell));
    const auto product = static_cast<qint64>(static_cast<quint64>(chart.phases) * static_cast<quint64>(chart.voltage));
    const qint64 divisor = chart.phases == 1 ? chart.voltage : product;
    if (divisor == 0)
        return 0;
    return static_cast<float>(total) / static_cast<float>(divisor);
}

void drawPowerText(const ScreenChart &chart, PlainCanvas &canvas)
{
    char current[64];
    std::snprintf(current, sizeof current, "%.2f", static_cast<double>(amperes(chart)));
    const QString text = QString("%1A| %2V| %3Phase").arg(current).arg(chart.voltage).arg(chart.phases);
    const QSize size = TextLine(text, chart.screenFontSize).size();

    const qint64 x = chart.wallWidth() / 2 - size.width() / 2;
    const qint64 middle = chart.screenFontSize / 2 + chart.wallHeight() / 2;
    const double y = static_cast<double>(middle) + -1.82 * size.height();
    canvas.drawText(x, static_cast<qint64>(y), text, chart.screenFontSize, chart.sfColor, darkBox);
}

void drawCentreTexts(const ScreenChart &chart, PlainCanvas &canvas)
{
    drawSizeText(chart, canvas);
    drawName(chart, canvas);
    if (chart.showPower)
        drawPowerText(chart, canvas);
}

void drawCornerTexts(const ScreenChart &chart, PlainCanvas &canvas)
{
    const qint64 W = chart.wallWidth();
    const qint64 H = chart.wallHeight();
    const qint64 b = chart.circleBWidth;
    const auto coordinates = [](qint64 x, qint64 y) { return QString("X %1 ,Y %2").arg(x).arg(y); };
    const auto draw = [&](qint64 x, qint64 y, const QString &text) {
        canvas.drawText(x, y, text, chart.XYFontSize, chart.xyColor, darkBox);
    };
    const bool top = chart.popupIndex == 0 || chart.popupIndex == 2;
    const bool bottom = chart.popupIndex == 1 || chart.popupIndex == 2;

    if (top)
        draw(b, H - 10 - b - chart.XYFontSize, coordinates(chart.xpoint, chart.ypoint));
    if (bottom) {
        draw(b, b, coordinates(chart.xpoint, chart.ypoint + H));
        const QString right = coordinates(chart.xpoint + W, chart.ypoint + H);
        const int width = TextLine(right, chart.XYFontSize).size().width();
        draw(W - width - 5, b, right);
    }
}

QString panelLabel(const ScreenChart &chart, int r, int c)
{
    if (chart.XYLabelDirection)
        return QString("%1%2 ").arg(QChar(static_cast<char16_t>(64 + chart.row - r))).arg(c + 1);
    const QString letters = QString(c / 26 + 1, QChar(static_cast<char16_t>('A' + c % 26)));
    return QString("%1%2 ").arg(letters).arg(chart.row - r);
}

void drawPanelLabels(const ScreenChart &chart, PlainCanvas &canvas)
{
    const double size = chart.labelFontSize;
    if (!std::isfinite(size))
        return;

    for (int r = 0; r < chart.row; ++r) {
        for (int c = 0; c < chart.col; ++c) {
            const int x = c * chart.panelWidth + 5;
            const double y = (r + 1) * chart.panelHeight - size - 5;
            if (std::abs(y) < 1e9)
                canvas.drawText(x, static_cast<qint64>(y), panelLabel(chart, r, c), size, chart.labelColor, {});
        }
    }
}
} // namespace

QImage plainChart(const ScreenChart &chart)
{
    if (!Raster::canHold(chart.wallWidth(), chart.wallHeight()))
        return {};
    QImage image = Raster::make(chart.wallWidth(), chart.wallHeight());
    PlainCanvas canvas(image);

    drawPanels(chart, canvas);
    if (chart.CircleEnable)
        drawCircle(chart, canvas);
    if (chart.screenFontEnable)
        drawCentreTexts(chart, canvas);
    if (chart.XYFontEnable)
        drawCornerTexts(chart, canvas);
    if (chart.drawLabels)
        drawPanelLabels(chart, canvas);
    if (chart.drawFlowPath)
        drawPlainFlowPath(chart, canvas);
    return image;
}
