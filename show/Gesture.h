#pragma once

#include "layer/Layer.h"

#include <QString>

/// What is still in the hand: edits in a row that carry the same gesture are one step of the history. The default
/// carries none; such an edit is a step of its own.
struct Gesture
{
    QString value;      ///< what is being edited: a key path, or a movement as "move"; empty: no gesture
    LayerPointer layer; ///< of which layer; held, since another one could come to lie at its address. Null: of no one

    bool operator==(const Gesture &) const = default;
    explicit operator bool() const { return !value.isEmpty(); }
};
