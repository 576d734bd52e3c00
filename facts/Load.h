#pragma once

#include "layer/Layer.h"

#include <vector>

/// What walls draw from their supply.
struct Load
{
    qint32 watts = 0;      ///< wrapping in 32 bits, as currents are reckoned
    bool isCounted = true; ///< whether 32 bits can count the watts; else they mean nothing, nor does the current

    static Load of(const Layer &layer);
    /// Of all layers together, hidden ones too.
    static Load of(const std::vector<LayerPointer> &layers);

    /// In single precision; 0 without a supply.
    float amperes(qint64 volts, qint64 phases) const;
};
