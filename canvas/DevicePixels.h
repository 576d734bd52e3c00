#pragma once

class QPainter;

/// From here on the painter of a widget with `pixelRatio` device pixels per logical one works in device pixels, from
/// the first whole one in the widget on: at a scale of 1.5 a widget may begin between two of them.
void toDevicePixels(QPainter &painter, double pixelRatio);
