#pragma once

#include "charts/Chart.h"

#include <QImage>

#include <gtest/gtest.h>
#include <vector>

inline constexpr QSize fullHd(1920, 1080);
inline constexpr QSize ultraHd(3840, 2160);

/// The picture of a chart; fails where there is no such chart.
QImage pictureOf(const char *name, const ChartShape &shape, qint64 frame = 0);
inline QImage pictureOf(const char *name, const QSize &size, LevelRange range = LevelRange::Full)
{
    return pictureOf(name, {.size = size, .range = range});
}

/// A shape with two walls of panels that lie side by side, on ports A1 to A3, some panels off.
ChartShape shapeWithPanels(const QSize &size);

/// A pixel and the colour that it has to have.
struct Probe
{
    int x;
    int y;
    int red;
    int green;
    int blue;
};
void expectProbes(const QImage &picture, const std::vector<Probe> &probes);

/// The same in grey.
struct GreyProbe
{
    int x;
    int y;
    int code;
};
void expectGreys(const QImage &picture, const std::vector<GreyProbe> &probes);

/// Where the colour changes along a row, its ends included.
std::vector<int> edgesInRow(const QImage &picture, int y);
