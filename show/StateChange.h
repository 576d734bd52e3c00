#pragma once

#include "show/DocumentState.h"

#include <vector>

/// What differs between two states of a document, and the way from each to the other. Of the lists only the rows that
/// differ are kept, so that its size is that of the change.
class StateChange
{
public:
    StateChange(const DocumentState &before, const DocumentState &after);

    /// The state before the change. `after`: one with the layers and presets that the change has led to.
    DocumentState before(const DocumentState &after) const;
    /// The state after it. `before`: one with the layers and presets that it begins with.
    DocumentState after(const DocumentState &before) const;

private:
    using States = std::vector<LayerState>;

    /// Neighbouring rows that stand for others; where one of the two is empty, rows were inserted or removed.
    struct Run
    {
        std::size_t unchanged; ///< rows between the run before this one and this one
        States before;
        States after;
    };
    using Runs = std::vector<Run>;

    static Runs runsBetween(const States &before, const States &after);
    static LayerStates replaced(const LayerStates &list, const Runs &runs, States Run::*there, States Run::*here);

    DocumentState m_before; ///< without its lists
    DocumentState m_after;  ///< likewise
    Runs m_layers;
    Runs m_presets;
};
