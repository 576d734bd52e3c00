#include "canvas/DevicePixels.h"

#include <QPainter>

void toDevicePixels(QPainter &painter, double pixelRatio)
{
    painter.scale(1 / pixelRatio, 1 / pixelRatio);
    const QPointF origin = painter.deviceTransform().map(QPointF());
    painter.translate(QPointF(origin.toPoint()) - origin);
}
