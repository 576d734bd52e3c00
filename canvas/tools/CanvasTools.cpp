#include "canvas/tools/CanvasTools.h"

#include "canvas/tools/ArrangeTool.h"
#include "canvas/tools/DataTool.h"
#include "canvas/tools/PanelsTool.h"

#include <algorithm>

namespace {
template <class Tool>
std::unique_ptr<CanvasTool> make(const ToolSurroundings &canvas)
{
    return std::make_unique<Tool>(canvas);
}

constexpr CanvasToolRow rows[] = {
    {CanvasToolName::Panels, make<PanelsTool>, "Panels", "P&anels tool", "grid-3x3", Qt::Key_P,
     "Switches panels off and on, and resizes images (P)",
     "Click panels off or on, or drag over them; Shift makes a rectangle. Drag an image or its handles.", true, false},
    {CanvasToolName::Arrange, make<ArrangeTool>, "Arrange", "A&rrange tool", "arrows-move", Qt::Key_V,
     "Moves layers (V, or Alt held)",
     "Drag layers by exact pixels. Shift adds to the selection, Ctrl keeps from snapping.", false, false},
    {CanvasToolName::Data, make<DataTool>, "Data", "&Data tool", "bezier2", Qt::Key_D,
     "Lays cables from panel to panel (D)",
     "Drag from panel to panel to lay a cable; take it by its end to go on. Shift takes panels over, Ctrl goes past "
     "the "
     "limit.",
     false, true},
};
} // namespace

std::span<const CanvasToolRow> canvasTools()
{
    return rows;
}

const CanvasToolRow &canvasTool(CanvasToolName name)
{
    return *std::find_if(std::begin(rows), std::end(rows),
                         [name](const CanvasToolRow &row) { return row.name == name; });
}
