#pragma once

#include "layer/Layer.h"

#include <QString>

#include <vector>

/// The electrical current of walls. Integers wrap in 32 bits (the sum) and 64 bits (the divisor), for compatibility
/// with saved files.
namespace PowerCalculator {

/// Chooses what of a supply nobody has chosen yet, which is 0, as it is for a show without a choice (Supply).
void chooseSupply(LayerHost &host);

/// Watts of a wall: columns x rows x watts per panel.
qint32 watts(const Layer &layer);
/// Watts of all layers, hidden ones too.
qint32 watts(const std::vector<LayerPointer> &layers);

/// Renders the walls whose picture shows their current, as it is with the supply of their host.
void renderCurrents(const std::vector<LayerPointer> &layers);

/// What the watts are divided by: volts x phases, without a square root of three.
qint64 divisor(qint64 volts, qint64 phases);

/// The current in single precision; 0 for a divisor of 0.
float amperes(qint32 watts, qint64 divisor);

/// "Total Power: 10.91Amp"
QString resultText(float amperes);

} // namespace PowerCalculator
