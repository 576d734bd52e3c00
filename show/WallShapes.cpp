#include "show/WallShapes.h"

#include "layer/WallGrid.h"

WallShape wallShapeOf(const Layer &wall)
{
    const LayerRecordPointer record = wall.record();
    const PanelKeys off = record->hiddenBoxes.value_or(PanelKeys());
    return {panelGridOf(*record), off.cellsInside(record->col, record->row), record->xpoint, record->ypoint};
}
