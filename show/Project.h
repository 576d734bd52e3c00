#pragma once

#include "archive/ArchiveObject.h"
#include "layer/Layer.h"
#include "layer/Supply.h"

#include <memory>
#include <optional>
#include <vector>

/// What a project file held beside what this version knows; written again as it came.
struct UnknownContent
{
    std::vector<ArchiveValue> ofRoot; ///< elements of the root behind the layers
    ArchiveEntries ofTop;             ///< under `$top`
    ArchiveEntries ofShow;            ///< in the dictionary of the values of the whole show

    bool isEmpty() const { return ofRoot.empty() && ofTop.empty() && ofShow.empty(); }
};

/// A whole document as files hold it.
struct Project
{
    int outputHeight = 0;
    int outputWidth = 0;
    std::vector<LayerPointer> layers;  ///< topmost first
    std::optional<Supply> supply = {}; ///< nullopt: none was chosen for it
    /// Null: nothing.
    std::shared_ptr<const UnknownContent> unknown = {};
};
