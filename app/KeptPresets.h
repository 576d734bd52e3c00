#pragma once

#include "formats/PresetStore.h"
#include "show/DocumentState.h"

#include <QString>

#include <optional>
#include <vector>

/// The presets of a document, kept in a file for the next start whenever they have changed. Main thread only.
class KeptPresets final
{
public:
    /// Reads and writes nothing yet. `path`: of the file; its folder is made when it is needed.
    explicit KeptPresets(const QString &path) : m_store(path) {}

    /// Presets to begin with.
    struct Beginning
    {
        std::vector<LayerPointer> presets;
        std::optional<Error> failure; ///< why they are not those of the last time, for the person
    };
    /// Those of the last time, or the built-in ones where there are none or they cannot be read.
    [[nodiscard]] Beginning ofLastTime(LayerHost &host);
    /// The document has begun with these, which need not be kept until they change.
    void beginWith(const LayerStates &presets) { m_kept = presets; }

    /// Keeps the document's presets where they are not kept already.
    /// Error: that failed, with a sentence for the person; the same failure of the same presets is none any more.
    [[nodiscard]] Result<void> keep(const LayerStates &presets, LayerHost &host);
    /// The same after an edit; what has just failed is left for the next edit of the presets and the end.
    [[nodiscard]] Result<void> keepEdited(const LayerStates &presets, LayerHost &host);

private:
    /// Presets that could not be kept, and the sentence that has told so.
    struct Unkept
    {
        LayerStates presets;
        QString sentence;

        bool operator==(const Unkept &) const = default;
    };

    PresetStore m_store;
    LayerStates m_kept;             ///< as they are in the store
    std::optional<Unkept> m_unkept; ///< nullopt: nothing has failed since
};
