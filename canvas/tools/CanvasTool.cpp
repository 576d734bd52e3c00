#include "canvas/tools/CanvasTool.h"

#include "canvas/CanvasGeometry.h"
#include "canvas/tools/Arranging.h"

#include <QKeyEvent>
#include <QLineF>

CanvasTool::CanvasTool(const ToolSurroundings &canvas) : m_canvas(canvas) {}

bool CanvasTool::menu(const QPointF &place)
{
    return Arranging::press(document(), geometry().pixelAt(place), false) != nullptr;
}

bool CanvasTool::isShaking(const QPointF &press, const QPointF &place)
{
    constexpr double leastDrag = 3; // logical pixels
    return QLineF(press, place).length() < leastDrag;
}

std::optional<QPoint> CanvasTool::stepOf(const QKeyEvent &event)
{
    constexpr int longStep = 10;
    const int length = event.modifiers().testFlag(Qt::ShiftModifier) ? longStep : 1;
    switch (event.key()) {
    case Qt::Key_Left:
        return QPoint(-length, 0);
    case Qt::Key_Right:
        return QPoint(length, 0);
    case Qt::Key_Up:
        return QPoint(0, -length);
    case Qt::Key_Down:
        return QPoint(0, length);
    default:
        return std::nullopt;
    }
}
