#include "canvas/tools/DataTool.h"

#include "canvas/CanvasDocument.h"
#include "canvas/CanvasGeometry.h"
#include "canvas/CanvasPainter.h"
#include "canvas/tools/Arranging.h"
#include "screen/LWScreen.h"

#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace {
CableHand::Keys keysOf(Qt::KeyboardModifiers held)
{
    return {held.testFlag(Qt::ShiftModifier), held.testFlag(Qt::ControlModifier)};
}

const LWScreen &wallOf(const CableHand::Panel &panel)
{
    return static_cast<const LWScreen &>(*panel.wall);
}

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}
} // namespace

DataTool::DataTool(const ToolSurroundings &canvas) : CanvasTool(canvas), m_cursor(canvas.document) {}

/// Of the topmost visible layer there, where that is a wall.
std::optional<CableHand::Panel> DataTool::panelAt(const QPointF &place) const
{
    if (geometry().isEmpty())
        return std::nullopt;
    const QPoint pixel = geometry().pixelAt(place);
    const LayerPointer layer = Arranging::layerAt(document(), pixel);
    const auto *wall = qobject_cast<const LWScreen *>(layer.get());
    const auto cell = wall ? wall->panelAt(pixel.x(), pixel.y()) : std::nullopt;
    return cell ? std::optional(CableHand::Panel{layer, *cell}) : std::nullopt;
}

std::optional<CableHand::Panel> DataTool::panelMeant() const
{
    if (const auto cell = m_cursor.panel())
        return CableHand::Panel{document().selectedLayer(), *cell};
    return m_pointer ? panelAt(*m_pointer) : std::nullopt;
}

bool DataTool::press(const ToolPointer &pointer)
{
    finish(); // what the keys hold
    const LayerPointer layer = Arranging::layerAt(document(), geometry().pixelAt(pointer.place));
    if (layer && layer != document().selectedLayer())
        document().select(layer, false);
    m_words.clear();
    if (const auto panel = panelAt(pointer.place))
        take(*panel, keysOf(pointer.keys));
    widget().update();
    return layer != nullptr;
}

void DataTool::take(const CableHand::Panel &panel, const CableHand::Keys &keys)
{
    const Result<bool> taken = m_hand.take(document().cables(), panel, keys);
    m_words = taken ? m_hand.words() : taken.error().text;
    if (taken && *taken)
        shown();
}

void DataTool::shown()
{
    m_words = m_hand.words();
    document().update(nullptr);
    widget().update();
}

void DataTool::drag(const ToolPointer &pointer)
{
    const auto panel = panelAt(pointer.place);
    if (!panel)
        return dragWithKeys(pointer);
    m_hand.goTo(*panel, keysOf(pointer.keys));
    shown();
}

void DataTool::dragWithKeys(const ToolPointer &pointer)
{
    m_hand.goWith(keysOf(pointer.keys));
    shown();
}

void DataTool::release(const ToolPointer &pointer)
{
    if (!isHolding())
        return widget().update();
    drag(pointer);
    finish();
}

void DataTool::finish()
{
    m_isByKeys = false;
    if (m_hand.isHeld())
        change("cable", m_hand.finish());
}

bool DataTool::change(const QString &name, bool isDone)
{
    if (isDone)
        document().finishEdit(name);
    widget().update();
    return isDone;
}

void DataTool::cancel()
{
    m_isByKeys = false;
    m_hand.cancel();
    m_words.clear();
    document().update(nullptr);
    widget().update();
}

std::optional<Qt::CursorShape> DataTool::cursor() const
{
    return m_pointer && panelAt(*m_pointer) ? std::optional(Qt::CrossCursor) : std::nullopt;
}

bool DataTool::key(const QKeyEvent &event)
{
    const auto step = stepOf(event);
    if (step)
        return go({qBound(-1, step->x(), 1), qBound(-1, step->y(), 1)}, keysOf(event.modifiers()));
    if (isEnter(event))
        return takeOrLayDown(keysOf(event.modifiers()));
    if (event.key() == Qt::Key_Escape && m_isByKeys) {
        cancel();
        return true;
    }
    if (event.key() == Qt::Key_Escape)
        return m_cursor.drop();
    const auto panel = panelMeant();
    if (!panel || m_hand.isHeld())
        return false;
    const CableHand::Show show = document().cables();
    if (event.key() == Qt::Key_Backspace)
        return change("taking back of a panel", CableHand::takeBack(show, *panel));
    const auto port = CableHand::portAt(*panel);
    if (event.key() != Qt::Key_Delete || !port)
        return false;
    CableHand::give(show, PortEdits::clear(CableHand::runsOf(show), *port));
    return change("clearing of a cable", true);
}

/// Delete would take the layer away.
bool DataTool::takesShortcut(const QKeyEvent &event) const
{
    const bool clears = event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
    if (!clears)
        return m_isByKeys && stepOf(event);
    const auto panel = panelMeant();
    return panel && CableHand::portAt(*panel);
}

/// With a cable in hand the next panel hangs on it.
bool DataTool::go(const QPoint &step, const CableHand::Keys &keys)
{
    const auto under = m_pointer ? panelAt(*m_pointer) : std::nullopt;
    const bool isInSelected = under && under->wall == document().selectedLayer();
    if (!m_cursor.move(step, isInSelected ? std::optional(under->cell) : std::nullopt))
        return false;
    bringIntoSight(m_cursor.place());
    if (m_isByKeys) {
        m_hand.goTo(*panelMeant(), keys);
        shown();
    }
    return true;
}

bool DataTool::takeOrLayDown(const CableHand::Keys &keys)
{
    const auto panel = panelMeant();
    if (m_isByKeys) {
        finish();
        return true;
    }
    if (!panel)
        return false;
    take(*panel, keys);
    m_isByKeys = m_hand.isHeld();
    widget().update();
    return true;
}

std::optional<QPoint> DataTool::reachedPixel() const
{
    return m_cursor.panel() ? std::optional(m_cursor.place().center().toPoint()) : std::nullopt;
}

void DataTool::forgetReached()
{
    if (m_isByKeys)
        finish();
    m_cursor.drop();
}

bool DataTool::menu(const QPointF &place)
{
    m_pointer = place;
    return CanvasTool::menu(place);
}

std::optional<LabelledOutline> DataTool::outline() const
{
    const auto panel = panelMeant();
    if (!panel || isHolding())
        return std::nullopt;
    const bool isReached = m_cursor.panel().has_value();
    const QRect place = geometry().devicePlaceOf(wallOf(*panel).panelRect(panel->cell));
    const QString port = CableHand::placeText(document().cables(), *panel);
    const QString label = wallOf(*panel).panelLabel(panel->cell).trimmed();
    const QPointF beside = isReached ? geometry().widgetPointOf(place.center()) : *m_pointer;
    const QString text = !m_words.isEmpty() ? m_words : port.isEmpty() ? label : port + ", " + label;
    return LabelledOutline{place, geometry().lineWidth() * (isReached ? 2 : 1), text,
                           boxBeside(widget(), beside, text)};
}

void DataTool::hover(const std::optional<QPointF> &place)
{
    if (m_pointer != place && !m_hand.isHeld())
        m_words.clear();
    m_pointer = place;
    const auto before = std::exchange(m_outline, outline());
    LabelledOutline::exchange(widget(), geometry(), before, m_outline);
}

void DataTool::paint(CanvasPainter &painter)
{
    m_outline = outline();
    const LayerPointer layer = document().selectedLayer();
    if (qobject_cast<const LWScreen *>(layer.get()))
        painter.outline(*layer);
    if (m_outline)
        painter.outline(m_outline->place, m_outline->lineWidth);
    const auto end = m_hand.end();
    if (end)
        painter.outline(geometry().devicePlaceOf(wallOf(*end).panelRect(end->cell)), 2 * geometry().lineWidth());
}

void DataTool::paintTexts(CanvasPainter &painter) const
{
    if (m_hand.isHeld() && m_hand.isAtLimit())
        painter.warningBesidePointer(m_words);
    else if (isHolding())
        painter.textBesidePointer(m_words);
    else if (m_outline)
        painter.text(m_outline->labelBox, m_outline->label);
}
