#include "canvas/tools/PanelsTool.h"

#include "canvas/CanvasDocument.h"
#include "canvas/CanvasGeometry.h"
#include "canvas/CanvasPainter.h"
#include "canvas/tools/Arranging.h"
#include "canvas/tools/PanelPainting.h"
#include "layer/PixelBox.h"
#include "still/LWStill.h"

#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace {
bool isStill(const Layer &layer)
{
    return qobject_cast<const LWStill *>(&layer) != nullptr;
}
} // namespace

PanelsTool::PanelsTool(const ToolSurroundings &canvas) : CanvasTool(canvas), m_cursor(canvas.document), m_marker(canvas)
{}

bool PanelsTool::press(const ToolPointer &pointer)
{
    const LayerPointer layer = document().selectedLayer();
    if (!layer || !isOn(*layer, pointer.place))
        return selectAt(pointer.place);
    m_marker.lockAspect(*layer);
    if (geometry().contains(pointer.place))
        pressPixel(layer, pointer.place);
    if (isStill(*layer))
        m_marker.press(pointer.place, layer);
    return true;
}

/// A still's marker belongs to it, also where it stands beside the still. A still without a picture has none: what the
/// border holds is another one's.
bool PanelsTool::isOn(const Layer &layer, const QPointF &place) const
{
    return (isStill(layer) && layer.screenSizeWidth() > 0 && m_marker.isOn(place)) ||
           PixelBox::of(layer).contains(geometry().pixelAt(place));
}

bool PanelsTool::selectAt(const QPointF &place)
{
    const LayerPointer layer = Arranging::layerAt(document(), geometry().pixelAt(place));
    if (layer)
        document().select(layer, false);
    widget().update();
    return layer != nullptr;
}

void PanelsTool::pressPixel(const LayerPointer &layer, const QPointF &place)
{
    const QPoint pixel = geometry().pixelAt(place);
    if (const auto wall = std::dynamic_pointer_cast<LWScreen>(layer)) {
        m_painting = std::make_shared<PanelPainting>(document(), wall, pixel);
        m_shakenFrom = place;
    } else {
        layer->onImageClick(pixel.x(), pixel.y());
        document().update(nullptr);
    }
    widget().update();
}

void PanelsTool::drag(const ToolPointer &pointer)
{
    if (m_painting)
        paintPanels(pointer);
    else
        m_marker.drag(pointer.place);
}

void PanelsTool::dragWithKeys(const ToolPointer &pointer)
{
    if (m_painting)
        paintPanels(pointer);
}

void PanelsTool::paintPanels(const ToolPointer &pointer)
{
    if (m_shakenFrom && isShaking(*m_shakenFrom, pointer.place))
        return;
    m_shakenFrom.reset();
    using Shape = PanelPainting::Shape;
    const std::shared_ptr<PanelPainting> painting = m_painting; // an update may end it
    painting->track(geometry().pixelAt(pointer.place),
                    pointer.keys.testFlag(Qt::ShiftModifier) ? Shape::Rectangle : Shape::Stroke);
}

void PanelsTool::release(const ToolPointer &pointer)
{
    if (m_painting)
        return finishPainting();
    if (m_marker.isHolding())
        return m_marker.release(pointer.place);
    document().update(nullptr);
    widget().update();
}

void PanelsTool::finishPainting()
{
    std::exchange(m_painting, nullptr)->finish();
}

void PanelsTool::lose()
{
    if (m_painting)
        finishPainting();
    else
        cancel();
}

void PanelsTool::cancel()
{
    if (m_painting)
        return std::exchange(m_painting, nullptr)->cancel();
    m_marker.letGo();
    putMarkerBack();
    widget().update();
}

void PanelsTool::reframe(bool isOtherSize)
{
    if (isOtherSize && m_marker.isHolding())
        m_marker.letGo();
}

bool PanelsTool::key(const QKeyEvent &event)
{
    if (const std::optional<QPoint> step = stepOf(event)) {
        const bool nudges = event.modifiers().testFlag(Qt::ControlModifier) || !moveCursor(*step);
        if (nudges)
            document().nudge(*step);
        return true;
    }
    if (event.key() == Qt::Key_Escape)
        return m_cursor.drop();
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!isEnter || !m_cursor.switchPanel())
        return false;
    widget().update();
    return true;
}

bool PanelsTool::takesShortcut(const QKeyEvent &event) const
{
    return event.modifiers().testFlag(Qt::ControlModifier) && stepOf(event);
}

/// It begins under the pointer.
bool PanelsTool::moveCursor(const QPoint &step)
{
    if (!m_cursor.move(step, panelUnderPointer()))
        return false;
    bringIntoSight(m_cursor.place());
    return true;
}

std::optional<QPoint> PanelsTool::reachedPixel() const
{
    return m_cursor.panel() ? std::optional(m_cursor.place().center().toPoint()) : std::nullopt;
}

/// That a click would switch.
std::optional<Cell> PanelsTool::panelUnderPointer() const
{
    if (!m_pointer || m_marker.isHolding() || !geometry().contains(*m_pointer))
        return std::nullopt;
    const LayerPointer layer = document().selectedLayer();
    const auto *wall = qobject_cast<const LWScreen *>(layer.get());
    const QPoint pixel = geometry().pixelAt(*m_pointer);
    return wall && PixelBox::of(*wall).contains(pixel) ? wall->panelAt(pixel.x(), pixel.y()) : std::nullopt;
}

/// The cursor of the keyboard has a wider line, and its label in the panel.
std::optional<LabelledOutline> PanelsTool::outline() const
{
    const int width = geometry().lineWidth();
    const auto around = [this](const LWScreen &wall, const Cell &panel) {
        return geometry().devicePlaceOf(wall.panelRect(panel));
    };
    if (const auto panel = m_cursor.panel()) {
        const QRect place = around(m_cursor.wall(), *panel);
        const QString label = m_cursor.wall().panelLabel(*panel);
        const QPointF middle = geometry().widgetPointOf(place.center());
        return LabelledOutline{place, 2 * width, label, boxBeside(widget(), middle, label)};
    }
    const auto panel = panelUnderPointer();
    if (!panel)
        return std::nullopt;
    const LayerPointer layer = document().selectedLayer();
    const auto &wall = static_cast<const LWScreen &>(*layer);
    const QString label = wall.panelLabel(*panel);
    return LabelledOutline{around(wall, *panel), width, label, boxBeside(widget(), *m_pointer, label)};
}

/// Only what changes is painted anew.
void PanelsTool::hover(const std::optional<QPointF> &place)
{
    m_pointer = place;
    const std::optional<LabelledOutline> before = std::exchange(m_outline, outline());
    LabelledOutline::exchange(widget(), geometry(), before, m_outline);
}

/// The outline of the wall whose panels a click switches, that of the panel, and the marker.
void PanelsTool::paint(CanvasPainter &painter)
{
    m_outline = outline(); // the document may have changed under the pointer
    const LayerPointer layer = document().selectedLayer();
    if (qobject_cast<const LWScreen *>(layer.get()))
        painter.outline(*layer);
    if (m_outline)
        painter.outline(m_outline->place, m_outline->lineWidth);
    m_marker.paint(painter);
}

void PanelsTool::paintTexts(CanvasPainter &painter) const
{
    if (m_outline)
        painter.text(m_outline->labelBox, m_outline->label);
}
