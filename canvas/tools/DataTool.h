#pragma once

#include "canvas/tools/CanvasTool.h"
#include "canvas/tools/LabelledOutline.h"
#include "canvas/tools/PanelCursor.h"
#include "show/CableHand.h"

/// Cables, laid panel by panel: a press on a panel begins one, or takes one by its end, a drag lays it along the
/// pointer's way, see CableHand. With Shift panels of other cables change over, with Ctrl it goes past its limit.
/// Arrows lead a cursor over the panels. Enter takes the cable there, or begins one, and arrows lay it on; Enter again,
/// and the next panel is the first on the next port; once more, or Escape, and arrows only lead. Backspace takes back a
/// cable's last panel, Delete clears the cable. Each drag and each key is one step.
class DataTool final : public CanvasTool
{
public:
    explicit DataTool(const ToolSurroundings &canvas);

    bool press(const ToolPointer &pointer) override;
    bool isHolding() const override { return m_hand.isHeld(); }
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
    /// What arrows do.
    enum class Laying
    {
        Nothing, ///< they lead the cursor
        Cable,   ///< they lay `m_port` on
        NextPort ///< they begin another one
    };

    std::optional<CableHand::Panel> panelAt(const QPointF &place) const;
    /// That a key acts on: of the cursor, else under the pointer.
    std::optional<CableHand::Panel> panelMeant() const;
    bool take(const CableHand::Panel &panel, const CableHand::Keys &keys);
    void shown();
    void finish();
    bool go(const QPoint &step, const CableHand::Keys &keys);
    void layOn(const CableHand::Panel &panel, const CableHand::Keys &keys);
    bool begin(const CableHand::Panel &panel, const CableHand::Keys &keys);
    bool enter(const CableHand::Keys &keys);
    bool takeBack();
    bool clear();
    bool escape();
    void leadCursorTo(const CableHand::Panel &panel);
    void edited(const QString &name);
    std::optional<LabelledOutline> outline() const;

    CableHand m_hand;
    Laying m_laying = Laying::Nothing;
    PortName m_port; ///< that keys lay on
    PanelCursor m_cursor;
    QString m_words;        ///< why nothing was laid, or what was; empty: nothing is to be said
    bool m_isLimit = false; ///< they tell of a limit
    bool m_isPressed = false;
    std::optional<CableHand::Panel> m_begun; ///< pressed in a wall whose cables are automatic, and not dragged from
    std::optional<QPointF> m_pointer;        ///< as hover() told
    std::optional<LabelledOutline> m_outline;
};
