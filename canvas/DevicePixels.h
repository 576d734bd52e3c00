#pragma once

class QPainter;
class QWidget;

/// From here on the widget's painter works in device pixels, from the first whole one in the widget on: at a scale of
/// 1.5 a widget may begin between two of them. A window that is new on a display may have a surface of another scale
/// than it will have; until that comes, the widget is painted again.
void toDevicePixels(QPainter &painter, QWidget &widget);
