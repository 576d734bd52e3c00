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

bool isAutomatic(const CableHand::Panel &panel)
{
    return panel.wall->record()->split != CableSplit::Hand;
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
    m_laying = Laying::Nothing;
    m_isPressed = true;
    const LayerPointer layer = Arranging::layerAt(document(), geometry().pixelAt(pointer.place));
    if (layer && layer != document().selectedLayer())
        document().select(layer, false);
    m_words.clear();
    const auto panel = panelAt(pointer.place);
    const bool wasAutomatic = panel && isAutomatic(*panel);
    if (panel && take(*panel, keysOf(pointer.keys)) && wasAutomatic)
        m_begun = panel;
    widget().update();
    return layer != nullptr;
}

/// Returns whether a cable is held.
bool DataTool::take(const CableHand::Panel &panel, const CableHand::Keys &keys)
{
    m_begun.reset();
    const Result<bool> taken = m_hand.take(document().cables(), panel, keys);
    m_words = taken ? m_hand.words() : taken.error().text;
    m_isLimit = false;
    if (m_hand.isHeld())
        shown();
    return m_hand.isHeld();
}

void DataTool::shown()
{
    m_words = m_hand.words();
    m_isLimit = m_hand.isAtLimit();
    document().update(nullptr);
    widget().update();
}

void DataTool::drag(const ToolPointer &pointer)
{
    const auto panel = panelAt(pointer.place);
    if (!panel)
        return dragWithKeys(pointer);
    if (m_begun != panel)
        m_begun.reset();
    m_hand.goTo(*panel, keysOf(pointer.keys));
    shown();
}

void DataTool::dragWithKeys(const ToolPointer &pointer)
{
    m_hand.goWith(keysOf(pointer.keys));
    shown();
}

/// A click alone does not take a wall's automatic cables away.
void DataTool::release(const ToolPointer &pointer)
{
    m_isPressed = false;
    if (!isHolding())
        return widget().update();
    drag(pointer);
    if (m_begun) {
        cancel();
        m_words = "Drag from here to lay its cables by hand";
        return;
    }
    finish();
    if (!m_isLimit)
        m_words.clear();
}

void DataTool::finish()
{
    m_isPressed = false;
    if (m_hand.isHeld() && m_hand.finish())
        document().finishEdit("cable");
    widget().update();
}

void DataTool::edited(const QString &name)
{
    m_words.clear();
    document().finishEdit(name);
    widget().update();
}

void DataTool::cancel()
{
    m_begun.reset();
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
    const CableHand::Keys keys = keysOf(event.modifiers());
    if (const auto step = stepOf(event))
        return go({qBound(-1, step->x(), 1), qBound(-1, step->y(), 1)}, keys);
    if (isEnter(event))
        return enter(keys);
    switch (event.key()) {
    case Qt::Key_Escape:
        return escape();
    case Qt::Key_Backspace:
        return takeBack();
    case Qt::Key_Delete:
        return clear();
    default:
        return false;
    }
}

/// Delete would take the layer away, and arrows with Ctrl move it.
bool DataTool::takesShortcut(const QKeyEvent &event) const
{
    const bool clears = event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
    return clears ? panelMeant().has_value() : m_laying != Laying::Nothing && stepOf(event).has_value();
}

bool DataTool::go(const QPoint &step, const CableHand::Keys &keys)
{
    const auto under = m_pointer ? panelAt(*m_pointer) : std::nullopt;
    const bool isInSelected = under && under->wall == document().selectedLayer();
    if (!m_cursor.move(step, isInSelected ? std::optional(under->cell) : std::nullopt))
        return false;
    m_words.clear();
    bringIntoSight(m_cursor.place());
    if (m_laying == Laying::Cable)
        layOn(*panelMeant(), keys);
    else if (m_laying == Laying::NextPort)
        begin(*panelMeant(), keys);
    return true;
}

/// From the last panel of the cable, wherever that is by now; one that has gone meanwhile is laid on no more.
void DataTool::layOn(const CableHand::Panel &panel, const CableHand::Keys &keys)
{
    const auto last = CableHand::lastOn(document().cables(), m_port);
    if (!last || !take(*last, keys)) {
        m_laying = Laying::Nothing;
        return;
    }
    m_hand.goTo(panel, keys);
    shown();
    finish();
}

/// A cable is begun there, or taken that ends there. Returns whether one is laid on.
bool DataTool::begin(const CableHand::Panel &panel, const CableHand::Keys &keys)
{
    if (!take(panel, keys))
        return false;
    finish();
    const auto port = CableHand::portAt(panel);
    if (port) {
        m_port = *port;
        m_laying = Laying::Cable;
    }
    return port.has_value();
}

bool DataTool::enter(const CableHand::Keys &keys)
{
    const auto panel = panelMeant();
    if (m_laying == Laying::NextPort)
        return escape();
    if (m_laying == Laying::Cable) {
        m_laying = Laying::NextPort;
        m_words = "The next panel begins the next port";
    } else if (panel) {
        begin(*panel, keys);
    }
    widget().update();
    return m_laying != Laying::Nothing || panel;
}

bool DataTool::escape()
{
    if (m_laying == Laying::Nothing)
        return m_cursor.drop();
    m_laying = Laying::Nothing;
    m_words.clear();
    widget().update();
    return true;
}

bool DataTool::takeBack()
{
    const auto panel = panelMeant();
    const CableHand::Show show = document().cables();
    const auto port = panel ? CableHand::portAt(*panel) : std::nullopt;
    if (!port) {
        m_words = panel ? "No cable that was laid by hand is here" : QString();
        widget().update();
        return panel.has_value();
    }
    CableHand::takeBack(show, *panel);
    edited("taking back of a panel");
    const auto last = CableHand::lastOn(document().cables(), *port);
    if (m_laying != Laying::Nothing && last)
        leadCursorTo(*last);
    else
        m_laying = Laying::Nothing;
    return true;
}

void DataTool::leadCursorTo(const CableHand::Panel &panel)
{
    const auto from = m_cursor.panel();
    if (from && panel.wall == document().selectedLayer())
        m_cursor.move({panel.cell.column - from->column, panel.cell.row - from->row}, {});
}

bool DataTool::clear()
{
    const auto panel = panelMeant();
    const auto port = panel ? CableHand::portAt(*panel) : std::nullopt;
    if (port) {
        m_laying = Laying::Nothing;
        const CableHand::Show show = document().cables();
        CableHand::give(show, PortEdits::clear(CableHand::runsOf(show), *port));
        edited("clearing of a cable");
    } else if (panel) {
        m_words = "No cable that was laid by hand is here";
        widget().update();
    }
    return panel.has_value();
}

std::optional<QPoint> DataTool::reachedPixel() const
{
    return m_cursor.panel() ? std::optional(m_cursor.place().center().toPoint()) : std::nullopt;
}

void DataTool::forgetReached()
{
    m_laying = Laying::Nothing;
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
    if (m_pointer != place && !m_isPressed && !m_cursor.panel())
        m_words.clear(); // they were of the place before
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
    else if (m_outline && m_isLimit && !m_words.isEmpty())
        painter.warning(m_outline->labelBox, m_outline->label);
    else if (m_outline)
        painter.text(m_outline->labelBox, m_outline->label);
}
