#pragma once

#include "facts/Finding.h"
#include "layer/Layer.h"

#include <QSize>

#include <vector>

/// What may be wrong with a layer alone. The findings do not say which layer it is.
namespace LayerChecks {

/// What is told beside a layer while one works with it, the most urgent first: a picture that is missing, a wall too
/// large to be drawn, a layer wholly outside the output, a port that cannot carry one line of panels. Nothing is drawn
/// or loaded. An output of no size has no outside.
std::vector<Finding> whileEditing(const Layer &layer, const QSize &output);

/// The same, and what only a file can claim: a picture without a file, a wall without pixels, an unknown pattern.
std::vector<Finding> all(const Layer &layer, const QSize &output);

} // namespace LayerChecks
