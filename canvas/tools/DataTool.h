#pragma once

#include "canvas/tools/CanvasTool.h"
#include "canvas/tools/LabelledOutline.h"
#include "canvas/tools/PanelCursor.h"
#include "show/CableHand.h"

/// Cables, laid panel by panel: a press on a panel begins one, or takes one by its end, a drag lays it along the
/// pointer's way, see CableHand. With Shift panels of other cables change over, with Ctrl it goes past its limit.
/// Arrows lead a cursor over the panels; Enter takes the cable there, or begins one, arrows then lay it on; Enter lays
/// it down. Backspace takes back a cable's last panel, Delete clears the cable.
class DataTool final : public CanvasTool
{
public:
    explicit DataTool(const ToolSurroundings &canvas);

    bool press(const ToolPointer &pointer) override;
    bool isHolding() const override { return m_hand.isHeld() && !m_isByKeys; }
    void drag(const ToolPointer &pointer) override;
    void dragWithKeys(const ToolPointer &pointer) override;
    void release(const ToolPointer &pointer) override;
    /// What has been laid is seen, and stays.
    void lose() override { finish(); }
    void cancel() override;
    /// Panels are where they are in any frame.
    void reframe(bool) override {}
    void hover(const std::optional<QPointF> &place) override;
    std::optional<Qt::CursorShape> cursor() const override;
    bool key(const QKeyEvent &event) override;
    bool takesShortcut(const QKeyEvent &event) const override;
    std::optional<QPoint> reachedPixel() const override;
    void forgetReached() override;
    bool menu(const QPointF &place) override;
    void paint(CanvasPainter &painter) override;
    void paintTexts(CanvasPainter &painter) const override;

private:
    std::optional<CableHand::Panel> panelAt(const QPointF &place) const;
    /// That a key acts on: of the cursor, else under the pointer.
    std::optional<CableHand::Panel> panelMeant() const;
    void take(const CableHand::Panel &panel, const CableHand::Keys &keys);
    void shown();
    void finish();
    bool go(const QPoint &step, const CableHand::Keys &keys);
    bool takeOrLayDown(const CableHand::Keys &keys);
    bool change(const QString &name, bool isDone);
    std::optional<LabelledOutline> outline() const;

    CableHand m_hand;
    bool m_isByKeys = false; ///< what is held was taken with Enter
    PanelCursor m_cursor;
    QString m_words;                  ///< that stay after a press that held nothing
    std::optional<QPointF> m_pointer; ///< as hover() told
    std::optional<LabelledOutline> m_outline;
};
