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
    if (!toDevicePixels(painter, widget.devicePixelRatioF()))
        QTimer::singleShot(untilNextPaint, &widget, [&widget] { widget.update(); });
}
