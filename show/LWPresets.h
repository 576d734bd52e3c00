#pragma once

#include "show/LayerList.h"

/// A list of presets for a table of its own, of which rows are dragged into another order and nothing comes in from
/// other tables. A view that shows it needs nothing but setModel(); it follows by the model's signals.
class LWPresets final : public LayerList
{
    Q_OBJECT

public:
    /// Starts with one screen of default looks. `host` outlives the list and its presets.
    explicit LWPresets(LayerHost &host);

    /// Topmost row first.
    const std::vector<LayerPointer> &presetScreensArray() const { return layers(); }
};
