#pragma once

#include "layer/Layer.h"
#include "layer/Supply.h"
#include "show/Project.h"

#include <QByteArray>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// What a layer is like at one moment, with the layer. Pictures are not kept: a wall draws its own, and a still loads
/// it again when its address changes.
struct LayerState
{
    LayerPointer layer;
    LayerRecordPointer record;

    bool operator==(const LayerState &other) const;

    /// The layer as it is now. `before`: an earlier state of it or null; its record is shared where it is the same.
    static LayerState of(const LayerPointer &layer, const LayerState *before);
    /// Makes the layer that again, and gives it the picture that belongs to it.
    void apply() const;
    /// Makes the layer's values that again, as rendering fills in what is missing; what was rendered stays.
    void takeBackRendering() const;
};

/// The states of a list's layers, in their order. They never change, and copies share them.
class LayerStates
{
public:
    LayerStates() = default;
    /// In that order.
    explicit LayerStates(std::vector<LayerState> states)
        : m_states(std::make_shared<const std::vector<LayerState>>(std::move(states)))
    {}
    /// Those of the layers as they are now. `before`: earlier ones; what is the same is shared with them.
    static LayerStates of(const std::vector<LayerPointer> &layers, const LayerStates &before);

    /// In their order; valid as long as this or a copy is.
    const std::vector<LayerState> &list() const;
    std::size_t size() const { return list().size(); }
    const LayerState &operator[](std::size_t row) const { return list()[row]; }
    auto begin() const { return list().begin(); }
    auto end() const { return list().end(); }

    bool operator==(const LayerStates &other) const { return m_states == other.m_states || list() == other.list(); }
    /// Whether both have the same layers in the same order, whatever they are like.
    bool hasLayersOf(const LayerStates &other) const;

private:
    bool isNow(const std::vector<LayerPointer> &layers) const;

    std::shared_ptr<const std::vector<LayerState>> m_states; ///< null: none
};

/// The project file that a document belongs to.
struct DocumentFile
{
    QString path; ///< empty while there is none
    /// FileBytes::digest() of it when it was opened or saved; empty where that is not known. One for all documents that
    /// were opened from it without another program's doing between them: what is saved from one is no news to another.
    std::shared_ptr<QByteArray> digest = std::make_shared<QByteArray>();
};

/// A document at one moment, to come back to: the layers themselves, in their order, and what they looked like.
struct DocumentState
{
    /// One for all states of one document: saving it under another name is no edit.
    std::shared_ptr<DocumentFile> file;
    /// What the document's file held beside what this version knows; null: nothing. It goes with `file`.
    std::shared_ptr<const UnknownContent> unknown;
    QSize output;                 ///< pixels
    std::optional<Supply> supply; ///< as it was chosen for the document; nullopt: it was not
    std::vector<ProcessorSettings> processors;
    qint64 volts = 0; ///< what was counted with, chosen or not
    qint64 phases = 0;
    LayerStates layers;
    LayerStates presets;
    std::vector<qsizetype> selection;       ///< rows of layers
    qsizetype shown = -1;                   ///< the one of them that the inspector shows
    std::vector<qsizetype> presetSelection; ///< rows of presets
    qint64 selectedRow = 0;                 ///< see LWAppDelegate::selectedRow()

    /// Whether both have the same content; the selection is not content.
    bool hasContentOf(const DocumentState &other) const { return hasProjectOf(other) && presets == other.presets; }
    /// Whether both have the same project: presets are the person's, and no part of it.
    bool hasProjectOf(const DocumentState &other) const
    {
        return file == other.file && output == other.output && supply == other.supply &&
               processors == other.processors && layers == other.layers;
    }
    /// Whether both show the same: content, what is counted with, and what is selected.
    bool looksLike(const DocumentState &other) const
    {
        return volts == other.volts && phases == other.phases && selection == other.selection && shown == other.shown &&
               presetSelection == other.presetSelection && hasContentOf(other);
    }
};
