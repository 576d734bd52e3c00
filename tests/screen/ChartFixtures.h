#pragma once

#include "screen/ScreenChart.h"

#include <QColor>
#include <QImage>
#include <QPoint>

/// A wall of 4 x 3 panels of 100 x 100 on which nothing is switched on: a transparent raster of 400 x 300.
ScreenChart blankWall();

/// The same with red (even) and blue (odd) panels.
ScreenChart twoColouredWall();

/// The same with every decoration on: frames, a hole, circle, all texts, labels, the data path in two ports.
ScreenChart decoratedWall();

/// The pixel at (x, y), y counted upwards from the bottom row.
QColor pixelAt(const QImage &raster, int x, int y);
inline QColor pixelAt(const QImage &raster, const QPoint &point)
{
    return pixelAt(raster, point.x(), point.y());
}

/// The smallest rectangle that holds all pixels that are not transparent: left, bottom, width, height, y upwards.
QRect drawnArea(const QImage &raster);

/// A transparent raster of the wall's size.
QImage emptyRaster(const ScreenChart &chart);
