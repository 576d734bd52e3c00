#include "canvas/DevicePixels.h"

#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace {
/// Nobody tells when the surface gets its scale.
constexpr std::chrono::milliseconds untilNextPaint{16};
} // namespace

void toDevicePixels(QPainter &painter, QWidget &widget)
{
    const double scale = painter.deviceTransform().m11();
    if (!qFuzzyCompare(scale, widget.devicePixelRatioF()))
        QTimer::singleShot(untilNextPaint, &widget, [&widget] { widget.update(); });
    painter.scale(1 / scale, 1 / scale);
    const QPointF origin = painter.deviceTransform().map(QPointF());
    painter.translate(QPointF(origin.toPoint()) - origin);
}
