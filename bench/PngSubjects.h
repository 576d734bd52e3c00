#pragma once

#include "bench/Timing.h"

#include <QSize>

/// PNG files of test charts. Bytes are the output's.
namespace PngSubjects {

/// Encoding to memory.
Subject encode(const QSize &output);
/// Size of our file as a multiple of the one that QImage::save makes.
double sizeRatio(const QSize &output);

} // namespace PngSubjects
