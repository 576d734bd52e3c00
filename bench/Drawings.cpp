// How long drawings take, and what is counted for them: script/limits drawings.
#include "still/DrawingCheck.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImageReader>
#include <QRandomGenerator>

#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>

namespace {
using Place = std::function<QPointF(int index)>;

QByteArray path(int points, const Place &place, const QByteArray &attributes = {})
{
    QByteArray outline = "M";
    for (int i = 0; i < points; ++i) {
        const QPointF point = place(i);
        outline += QByteArray::number(point.x(), 'f', 1) + ' ' + QByteArray::number(point.y(), 'f', 1) + " L";
    }
    outline.chop(2);
    return "<path " + attributes + " d='" + outline + "z'/>";
}

QByteArray drawing(int side, const QByteArray &content)
{
    const QByteArray size = QByteArray::number(side);
    return "<svg xmlns='http://www.w3.org/2000/svg' width='" + size + "' height='" + size + "'>" + content + "</svg>";
}

QByteArray atRandom(int side, int points)
{
    QRandomGenerator random(7);
    return drawing(side, path(points, [&](int) { return QPointF(random.bounded(side), random.bounded(side)); }));
}

QByteArray fromTopToBottom(int side, int lines)
{
    return drawing(side, path(lines, [&](int i) { return QPointF(1.0 * i * side / lines, i % 2 * side); }));
}

QPointF onCircle(double radius, double part)
{
    const double angle = 2 * std::numbers::pi * part;
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

/// 2,000 of 30 points.
QByteArray shapes(const QByteArray &attributes)
{
    QRandomGenerator random(7);
    QByteArray all;
    for (int shape = 0; shape < 2000; ++shape) {
        const QPointF middle(random.bounded(3000), random.bounded(3000));
        all += path(
            30, [&](int i) { return middle + onCircle(70 + random.bounded(30), i / 30.0); }, attributes);
    }
    return drawing(3000, all);
}

QByteArray smooth()
{
    return drawing(3000, path(5000, [](int i) {
                       return QPointF(1500, 1500) + onCircle(1400, i / 5000.0) + onCircle(40, i / 40.0);
                   }));
}

void measure(const char *name, const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QElapsedTimer clock;
    clock.start();
    const bool isRead = !QImageReader(&buffer).read().isNull();
    const double took = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    const std::optional<double> counted = DrawingCheck::nanoseconds(bytes);
    const QByteArray seconds = counted ? QByteArray::number(*counted / 1e9, 'f', 2) + " s" : "over 5 s";
    const char *outcome = counted ? "shown" : "refused";
    std::printf("| %s | %s | %.2f s | %s |\n", name, seconds.constData(), took, isRead ? outcome : "not read");
    std::fflush(stdout);
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    std::printf("| drawing | counted | took | |\n|---|---|---|---|\n");
    measure("3,000 x 3,000, 2,000 shapes of 30 points, 200 px wide", shapes({}));
    measure("the same with outlines of 3 px", shapes("stroke='red' stroke-width='3'"));
    measure("3,000 x 3,000, one shape of 5,000 points, smooth", smooth());
    measure("300 x 300, polygon of 5,000 points at random", atRandom(300, 5000));
    measure("1,000 x 1,000, polygon of 500 points at random", atRandom(1000, 500));
    measure("1,000 x 1,000, polygon of 2,000 points at random", atRandom(1000, 2000));
    measure("3,000 x 3,000, polygon of 100 points at random", atRandom(3000, 100));
    measure("3,000 x 3,000, polygon of 500 points at random", atRandom(3000, 500));
    measure("3,000 x 3,000, 50 lines from top to bottom", fromTopToBottom(3000, 50));
    measure("3,000 x 3,000, 100 lines from top to bottom", fromTopToBottom(3000, 100));
    measure("1,000 x 1,000, 1,000 lines from top to bottom", fromTopToBottom(1000, 1000));
    return 0;
}
