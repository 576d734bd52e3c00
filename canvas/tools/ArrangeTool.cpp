#include "canvas/tools/ArrangeTool.h"

#include "canvas/CanvasDocument.h"
#include "canvas/CanvasGeometry.h"
#include "canvas/CanvasPainter.h"
#include "canvas/tools/Arranging.h"

#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace {
/// How far lines attract, in logical pixels of the view.
constexpr double reachOfLines = 6;
} // namespace

LayerPointer ArrangeTool::layerAt(const QPointF &place) const
{
    return Arranging::layerAt(document(), geometry().pixelAt(place));
}

bool ArrangeTool::press(const ToolPointer &pointer)
{
    const bool isOnLayer = layerAt(pointer.place) != nullptr;
    const bool extends = pointer.keys.testFlag(Qt::ShiftModifier);
    const QPoint pixel = geometry().pixelAt(pointer.place);
    if (const LayerPointer grabbed = Arranging::press(document(), pixel, extends)) {
        m_held = std::make_shared<Arranging>(document(), grabbed, pixel);
        m_click = {pointer.place, extends};
    }
    widget().update();
    return isOnLayer;
}

void ArrangeTool::drag(const ToolPointer &pointer)
{
    if (m_click && isShaking(m_click->place, pointer.place))
        return;
    m_click.reset();
    const bool attracts = !pointer.keys.testFlag(Qt::ControlModifier);
    arrange([&](Arranging &drag) {
        drag.track(geometry().pixelAt(pointer.place),
                   attracts ? std::optional(geometry().pixelsWithin(reachOfLines)) : std::nullopt);
    });
}

void ArrangeTool::release(const ToolPointer &pointer)
{
    if (m_held)
        drag(pointer);
    if (!m_held)
        return;
    arrange([this](Arranging &drag) {
        m_held.reset();
        const std::optional<Click> click = std::exchange(m_click, std::nullopt);
        if (!click)
            drag.finish();
        else if (!click->extends)
            drag.click();
    });
}

void ArrangeTool::cancel()
{
    arrange([this](Arranging &drag) {
        m_held.reset();
        m_click.reset();
        drag.cancel();
    });
}

void ArrangeTool::reframe(bool)
{
    if (m_held)
        cancel();
}

void ArrangeTool::arrange(const std::function<void(Arranging &)> &act)
{
    const std::shared_ptr<Arranging> drag = m_held; // an update that brings another frame ends it
    act(*drag);
    widget().update();
}

std::optional<Qt::CursorShape> ArrangeTool::cursor() const
{
    const bool isOverLayer = m_pointer && !geometry().isEmpty() && layerAt(*m_pointer);
    return m_held || isOverLayer ? std::optional(Qt::SizeAllCursor) : std::nullopt;
}

/// With Ctrl arrows are the window's.
bool ArrangeTool::key(const QKeyEvent &event)
{
    const std::optional<QPoint> step = stepOf(event);
    if (!step || event.modifiers().testFlag(Qt::ControlModifier))
        return false;
    document().nudge(*step);
    return true;
}

/// Around the selected layers, where they are and not where the last composition shows them.
void ArrangeTool::paint(CanvasPainter &painter)
{
    for (const LayerPointer &layer : document().selectedLayers())
        painter.outline(*layer);
    if (!m_held)
        return;
    for (const double x : m_held->uprightLines())
        painter.uprightLine(x);
    for (const double y : m_held->levelLines())
        painter.levelLine(y);
}

void ArrangeTool::paintTexts(CanvasPainter &painter) const
{
    if (m_held && !m_click)
        painter.textBesidePointer(
            QString("x %1  y %2").arg(m_held->grabbed().xpoint()).arg(m_held->grabbed().ypoint()));
}
