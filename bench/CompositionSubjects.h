#pragma once

#include "base/Colour.h"
#include "bench/Timing.h"

#include <QSize>

/// Compositions of test charts. Bytes are the output's.
namespace CompositionSubjects {

/// One opaque picture as large as the output.
Subject oneFullLayer(const QSize &output);
/// Twelve opaque pictures side by side, four by three, that cover the output.
Subject tiledLayers(const QSize &output);
/// `count` opaque pictures over each other, each a quarter of the output in size, shifted so that every one shows.
Subject overlappingLayers(const QSize &output, int count, const Colour &background);

} // namespace CompositionSubjects
