#include "canvas/tools/PanelCursor.h"

#include "canvas/CanvasDocument.h"

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

Cell within(const LWScreen &wall, const Cell &panel)
{
    return {std::clamp(panel.column, 0, wall.col() - 1), std::clamp(panel.row, 0, wall.row() - 1)};
}
} // namespace

std::optional<Cell> PanelCursor::panel() const
{
    const bool counts = m_wall && m_wall == m_document.selectedLayer() && wallOf(m_wall);
    return counts ? std::optional(within(*m_wall, m_panel)) : std::nullopt;
}

bool PanelCursor::move(const QPoint &step, const std::optional<Cell> &start)
{
    const auto wall = wallOf(m_document.selectedLayer());
    if (!wall)
        return false;
    const std::optional<Cell> before = panel();
    const std::optional<Cell> from = before ? before : start;
    m_panel = from ? within(*wall, {from->column + step.x(), from->row + step.y()}) : Cell();
    m_wall = wall;
    return true;
}

QRectF PanelCursor::place() const
{
    return m_wall->panelRect(*panel());
}

bool PanelCursor::switchPanel()
{
    if (!panel())
        return false;
    const QPointF corner = place().topLeft();
    m_wall->onImageClick(static_cast<qint64>(corner.x()), static_cast<qint64>(corner.y()));
    m_document.finishEdit("switch panel");
    return true;
}

bool PanelCursor::drop()
{
    const bool wasThere = panel().has_value();
    m_wall = nullptr;
    return wasThere;
}
