#include "app/windows/CanvasLink.h"

#include "still/LWStill.h"

void CanvasLink::redrawMarker()
{
    const LayerPointer selected = selectedLayer();
    if (qobject_cast<LWStill *>(selected.get()))
        selected->drawInRect();
}
