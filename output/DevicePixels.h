#pragma once

class QPainter;

/// From here on the painter of a widget works in device pixels, from the first whole one in the widget on: at a scale
/// of 1.5 a widget may begin between two of them. Returns whether its surface has the scale that the widget says,
/// `ratio`: one that is new on a display has another until somebody tells it, and must be painted again.
[[nodiscard]] bool toDevicePixels(QPainter &painter, double ratio);
