#pragma once

#include "canvas/tools/CanvasTool.h"
#include "layer/Layer.h"

#include <functional>
#include <memory>

class Arranging;

/// A press selects the topmost layer, a drag moves the selected ones, see Arranging; Shift adds to the selection, Ctrl
/// keeps lines from attracting. Arrows nudge.
class ArrangeTool final : public CanvasTool
{
public:
    using CanvasTool::CanvasTool;

    bool press(const ToolPointer &pointer) override;
    bool isHolding() const override { return m_held != nullptr; }
    void drag(const ToolPointer &pointer) override;
    void dragWithKeys(const ToolPointer &pointer) override { drag(pointer); }
    void release(const ToolPointer &pointer) override;
    void cancel() override;
    void reframe(bool isOtherSize) override;
    void hover(const std::optional<QPointF> &place) override { m_pointer = place; }
    std::optional<Qt::CursorShape> cursor() const override;
    bool key(const QKeyEvent &event) override;
    void paint(CanvasPainter &painter) override;
    void paintTexts(CanvasPainter &painter) const override;

private:
    /// A press from which the pointer has not gone far enough for a drag.
    struct Click
    {
        QPointF place; ///< in the widget
        bool extends;  ///< the selection
    };

    LayerPointer layerAt(const QPointF &place) const;
    void arrange(const std::function<void(Arranging &)> &act);

    std::shared_ptr<Arranging> m_held; ///< the layers; null: none
    std::optional<Click> m_click;      ///< while they are not dragged yet
    std::optional<QPointF> m_pointer;  ///< as hover() told
};
