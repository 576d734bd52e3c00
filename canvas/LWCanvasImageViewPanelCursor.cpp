#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"

#include <algorithm>

namespace {
/// The wall that panels can be switched in; null for other layers, and for one without panels.
std::shared_ptr<LWScreen> wallOf(const LayerPointer &layer)
{
    auto wall = std::dynamic_pointer_cast<LWScreen>(layer);
    const bool hasPanels =
        wall && wall->col() > 0 && wall->row() > 0 && wall->panelWidth() > 0 && wall->panelHeight() > 0;
    return hasPanels ? wall : nullptr;
}

LWScreen::Panel within(const LWScreen &wall, const LWScreen::Panel &panel)
{
    return {std::clamp(panel.column, 0, wall.col() - 1), std::clamp(panel.row, 0, wall.row() - 1)};
}

/// How far a span is to be shifted to lie in the room, its start in any case.
int wayInto(int room, double from, double to)
{
    const double beyond = std::max(0.0, to - room);
    return static_cast<int>(from - beyond < 0 ? -from : -beyond);
}
} // namespace

/// Only while the wall that it was led over is the one that clicks go to.
std::optional<LWScreen::Panel> LWCanvasImageView::panelCursor() const
{
    if (!m_panelCursor || m_tool != Tool::Panels || m_panelCursor->wall != m_document.selectedLayer())
        return std::nullopt;
    const auto wall = wallOf(m_panelCursor->wall);
    return wall ? std::optional(within(*wall, m_panelCursor->panel)) : std::nullopt;
}

/// It begins under the pointer, or else on the first panel. False: there is nothing to go over.
bool LWCanvasImageView::movePanelCursor(const QPoint &step)
{
    const auto wall = wallOf(m_document.selectedLayer());
    if (!wall)
        return false;
    std::optional<LWScreen::Panel> from = panelCursor();
    if (!from && hover()) {
        const QPoint pixel = m_geometry.pixelAt(*m_pointer);
        from = wall->panelAt(pixel.x(), pixel.y());
    }
    const LWScreen::Panel panel =
        from ? within(*wall, {from->column + step.x(), from->row + step.y()}) : LWScreen::Panel();
    m_panelCursor = {wall, panel};
    bringIntoSight(wall->panelRect(panel));
    takeHover();
    tellReadOut();
    return true;
}

bool LWCanvasImageView::switchPanelAtCursor()
{
    const std::optional<LWScreen::Panel> panel = panelCursor();
    if (!panel)
        return false;
    auto &wall = static_cast<LWScreen &>(*m_panelCursor->wall);
    const QPointF corner = wall.panelRect(*panel).topLeft();
    wall.onImageClick(static_cast<qint64>(corner.x()), static_cast<qint64>(corner.y()));
    m_document.finishEdit("switch panel", {});
    update();
    return true;
}

bool LWCanvasImageView::dropPanelCursor()
{
    const bool wasShown = panelCursor().has_value();
    m_panelCursor.reset();
    takeHover();
    tellReadOut();
    return wasShown;
}

void LWCanvasImageView::bringIntoSight(const QRectF &pixels)
{
    const QRect place = deviceFrame().place();
    if (place.isEmpty())
        return;
    const double across = double(place.width()) / deviceFrame().output().width();
    const double down = double(place.height()) / deviceFrame().output().height();
    CanvasFrame frame = deviceFrame();
    frame.pan({wayInto(frame.room().width(), place.x() + pixels.left() * across, place.x() + pixels.right() * across),
               wayInto(frame.room().height(), place.y() + pixels.top() * down, place.y() + pixels.bottom() * down)});
    if (frame.place() != place)
        takeFrame(frame);
}
