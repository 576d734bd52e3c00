#pragma once

#include "app/LWAppDelegate.h"
#include "canvas/CanvasDocument.h"
#include "live/ShownOutput.h"

/// The document as the canvas sees it.
class CanvasLink final : public CanvasDocument
{
public:
    /// Both outlive this. `shown`: the output as the canvas shows it.
    CanvasLink(LWAppDelegate &document, const ShownOutput &shown) : m_document(document), m_shown(shown) {}

    int OutputWidth() const override { return m_document.OutputWidth(); }
    int OutputHeight() const override { return m_document.OutputHeight(); }
    const ComposedOutput &output() const override { return m_shown.output(); }
    LayerPointer selectedLayer() const override { return m_document.arraycontroller().selectedLayer(); }
    std::vector<LayerPointer> layers() const override { return m_document.allScreensArray(); }
    std::vector<LayerPointer> selectedLayers() const override { return m_document.selectedLayers(); }
    void select(const LayerPointer &layer, bool extends) override;
    CableHand::Show cables() const override { return m_document.wiring().cables(); }
    void nudge(const QPoint &distance) override { m_document.moveSelection(distance); }
    void update(QObject *sender) override { m_document.update(sender); }
    void finishEdit(const QString &name) override { m_document.finishEdit(name); }

private:
    LWAppDelegate &m_document;
    const ShownOutput &m_shown;
};
