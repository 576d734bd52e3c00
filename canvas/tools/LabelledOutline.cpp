#include "canvas/tools/LabelledOutline.h"

#include "canvas/CanvasGeometry.h"

QRegion LabelledOutline::region(const CanvasGeometry &geometry) const
{
    const QRect around = place.adjusted(-lineWidth, -lineWidth, lineWidth, lineWidth);
    const QRect outside = geometry.widgetPlaceOf(around).toAlignedRect();
    const QRect inside = geometry.widgetPlaceOf(place).toAlignedRect().adjusted(1, 1, -1, -1);
    return QRegion(outside).subtracted(inside) + labelBox;
}
