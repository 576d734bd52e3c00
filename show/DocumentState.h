#pragma once

#include "layer/Layer.h"
#include "layer/Supply.h"
#include "show/Project.h"

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QVariantList>

#include <memory>
#include <optional>
#include <vector>

/// Everything about a layer that an edit can change, with the layer that it belongs to. Pictures are not kept: a wall
/// draws its own, and a still loads it again when its address changes.
struct LayerState
{
    LayerPointer layer;
    /// In the order of the layer's declared properties; shared by the states between which they did not change.
    std::shared_ptr<const QVariantList> values;

    bool operator==(const LayerState &other) const;

    /// The layer as it is now. `before`: an earlier state of it or null; its values are shared where they are the same.
    static LayerState of(const LayerPointer &layer, const LayerState *before);
    /// Gives the layer these values, and the picture that belongs to them.
    void apply() const;
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
    qint64 volts = 0;             ///< what was counted with, chosen or not
    qint64 phases = 0;
    std::vector<LayerState> layers;
    std::vector<LayerState> presets;
    std::vector<qsizetype> selection;       ///< rows of layers
    qsizetype shown = -1;                   ///< the one of them that the inspector shows
    std::vector<qsizetype> presetSelection; ///< rows of presets
    qint64 selectedRow = 0;                 ///< see LWAppDelegate::selectedRow()

    /// Whether both have the same content; the selection is not content.
    bool hasContentOf(const DocumentState &other) const { return hasProjectOf(other) && presets == other.presets; }
    /// Whether both have the same project: presets are the person's, and no part of it.
    bool hasProjectOf(const DocumentState &other) const
    {
        return file == other.file && output == other.output && supply == other.supply && layers == other.layers;
    }
};

/// The states of a list's layers; values are shared with those of `before`, where they are the same.
std::vector<LayerState> statesOf(const std::vector<LayerPointer> &layers, const std::vector<LayerState> &before);
