#pragma once

#include "bench/Timing.h"

#include <QSize>
#include <QString>

/// Layered files, to bytes in memory. Bytes are those of all layers' pictures.
namespace PsdSubjects {

enum class Rows
{
    Differ, ///< everything on: the circle runs through every row
    Repeat  ///< without circle and data path
};

/// Splitting one chart that fills the output into channels and packing these.
Subject channels(const QSize &output, Rows rows);
/// A whole document of pictures that overlap, each of half the output's width and height.
Subject overlappingLayers(const QSize &output, int count);
/// A whole document of pictures that lie side by side, 4 x 3 of them.
Subject tiledLayers(const QSize &output);
/// One of the example shows, by the name of its file: "festival".
Subject example(const QString &name);

} // namespace PsdSubjects
