#pragma once

#include "layer/Layer.h"
#include "output/ComposedOutput.h"
#include "show/CableHand.h"

#include <QImage>
#include <QPoint>
#include <QString>

#include <vector>

class QObject;

/// What the canvas needs of the document. The document's controller implements it, and tells the canvas when something
/// has changed: LWCanvasImageView::showOutput() and showChanges().
class CanvasDocument
{
public:
    virtual ~CanvasDocument() = default;

    /// Size of the output in pixels; any 32-bit number, a file may hold it.
    virtual int OutputWidth() const = 0;
    virtual int OutputHeight() const = 0;
    /// The output as it was composed last; null where there is none. Read where it is painted, never kept: the next
    /// composition writes into it.
    virtual const ComposedOutput &output() const = 0;
    /// The layer that clicks go to; null where there is none.
    virtual LayerPointer selectedLayer() const = 0;
    /// All layers, topmost first.
    virtual std::vector<LayerPointer> layers() const = 0;
    virtual std::vector<LayerPointer> selectedLayers() const = 0;
    /// Selects one of layers(): alone, or, where it `extends` the selection, added to it or taken out of it.
    virtual void select(const LayerPointer &layer, bool extends) = 0;
    /// Moves the selected layers by so many output pixels; moves in a row are one edit.
    virtual void nudge(const QPoint &distance) = 0;

    /// What cables are laid in, as it is now.
    virtual CableHand::Show cables() const = 0;

    /// Renders the selected layer and composes the output, not more often than the document wants to. `sender` is of no
    /// consequence.
    virtual void update(QObject *sender) = 0;
    /// An edit was made with plain setters: it becomes a step of the history under that name ("move image"), none where
    /// nothing has changed, and update() follows.
    virtual void finishEdit(const QString &name) = 0;
};
