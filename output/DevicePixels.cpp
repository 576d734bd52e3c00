#include "output/DevicePixels.h"

#include <QPainter>

bool toDevicePixels(QPainter &painter, double ratio)
{
    const double scale = painter.deviceTransform().m11();
    painter.scale(1 / scale, 1 / scale);
    const QPointF origin = painter.deviceTransform().map(QPointF());
    painter.translate(QPointF(origin.toPoint()) - origin);
    return qFuzzyCompare(scale, ratio);
}
