#pragma once

#include "archive/ArchiveObject.h"
#include "layer/Layer.h"
#include "layer/Supply.h"
#include "wiring/PortCapacity.h"

#include <QByteArrayList>

#include <memory>
#include <optional>
#include <vector>

/// What a file held beside its layers and what this version knows; written again as it came into a file of the same
/// kind.
struct UnknownContent
{
    // Of a project file
    std::vector<ArchiveValue> ofRoot = {}; ///< elements of the root behind the layers
    ArchiveEntries ofTop = {};             ///< under `$top`
    ArchiveEntries ofShow = {};            ///< in the dictionary of the values of the whole show
    // Of a readable text
    QByteArrayList ofText = {}; ///< `"name": value` each, as it stood there
    int textFormat = 0;         ///< of a text that says something unknown, here or of a layer; 0: of none

    bool isEmpty() const { return ofRoot.empty() && ofTop.empty() && ofShow.empty() && textFormat == 0; }
};

/// A whole document as files hold it.
struct Project
{
    int outputHeight = 0;
    int outputWidth = 0;
    std::vector<LayerPointer> layers;  ///< topmost first
    std::optional<Supply> supply = {}; ///< nullopt: none was chosen for it
    /// In the order in which their ports are given away.
    std::vector<ProcessorSettings> processors = {};
    /// Null: nothing.
    std::shared_ptr<const UnknownContent> unknown = {};
};
