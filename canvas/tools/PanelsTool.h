#pragma once

#include "canvas/tools/CanvasTool.h"
#include "canvas/tools/LabelledOutline.h"
#include "canvas/tools/MarkerHand.h"
#include "canvas/tools/PanelCursor.h"

#include <memory>

class PanelPainting;

/// Clicks on the selected layer go to it: on a wall they switch panels, see PanelPainting, a still is moved and resized
/// by its marker. Elsewhere a click selects. The panel that a click would switch is outlined; arrows lead a cursor over
/// the panels, Enter switches there, with Ctrl arrows nudge.
class PanelsTool final : public CanvasTool
{
public:
    explicit PanelsTool(const ToolSurroundings &canvas);

    bool press(const ToolPointer &pointer) override;
    bool isHolding() const override { return m_painting || m_marker.isHolding(); }
    void drag(const ToolPointer &pointer) override;
    /// The marker does not ask for keys.
    void dragWithKeys(const ToolPointer &pointer) override;
    void release(const ToolPointer &pointer) override;
    /// What has been painted is seen, and stays; the marker is cancelled.
    void lose() override;
    void cancel() override;
    /// Panels are where they are in any frame.
    void reframe(bool isOtherSize) override;
    void hover(const std::optional<QPointF> &place) override;
    bool key(const QKeyEvent &event) override;
    /// What nudges beside the cursor.
    bool takesShortcut(const QKeyEvent &event) const override;
    std::optional<QPoint> reachedPixel() const override;
    void forgetReached() override { m_cursor.drop(); }
    void paint(CanvasPainter &painter) override;
    void paintTexts(CanvasPainter &painter) const override;

private:
    bool isOn(const Layer &layer, const QPointF &place) const;
    bool selectAt(const QPointF &place);
    void pressPixel(const LayerPointer &layer, const QPointF &place);
    void paintPanels(const ToolPointer &pointer);
    void finishPainting();
    bool moveCursor(const QPoint &step);
    std::optional<Cell> panelUnderPointer() const;
    std::optional<LabelledOutline> outline() const;

    PanelCursor m_cursor;
    MarkerHand m_marker;
    std::shared_ptr<PanelPainting> m_painting; ///< panels of a wall that is held; null: none
    std::optional<QPointF> m_shakenFrom;       ///< in the widget; while that is a click and no drag
    std::optional<QPointF> m_pointer;          ///< as hover() told
    std::optional<LabelledOutline> m_outline;  ///< as it was last painted, or is going to be
};
