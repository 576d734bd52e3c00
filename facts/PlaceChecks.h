#pragma once

#include "facts/Finding.h"
#include "layer/Layer.h"

#include <QSize>

#include <vector>

/// What may be wrong with a wall beside the others and on the output. Hidden walls are in nobody's way; their names and
/// watts count.
namespace PlaceChecks {

/// By check, then by layer. Nothing is drawn. A layer wholly outside is told by LayerChecks.
std::vector<Finding> of(const std::vector<LayerPointer> &layers, const QSize &output);

/// The names of all checks that are made here.
std::vector<const char *> names();

} // namespace PlaceChecks
