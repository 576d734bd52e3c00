#include "canvas/tools/LabelledOutline.h"

#include "canvas/CanvasGeometry.h"

#include <QWidget>

QRegion LabelledOutline::region(const CanvasGeometry &geometry) const
{
    const QRect around = place.adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth);
    const QRect outside = geometry.widgetPlaceOf(around).toAlignedRect();
    const QRect inside = geometry.widgetPlaceOf(place).toAlignedRect().adjusted(1, 1, -1, -1);
    return QRegion(outside).subtracted(inside) + labelBox;
}

void LabelledOutline::exchange(QWidget &widget, const CanvasGeometry &geometry,
                               const std::optional<LabelledOutline> &before, const std::optional<LabelledOutline> &now)
{
    if (before == now)
        return;
    for (const auto &outline : {before, now}) {
        if (outline)
            widget.update(outline->region(geometry));
    }
}
