#pragma once

#include "output/DevicePixels.h"

class QPainter;
class QWidget;

/// The same for a widget, which is painted again until its surface has the scale that it will have.
void toDevicePixels(QPainter &painter, QWidget &widget);
