#include "canvas/tools/PanelPainting.h"

#include "canvas/CanvasDocument.h"
#include "layer/WallGrid.h"
#include "screen/HiddenPanels.h"

#include <QRegion>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace {
/// The line that is `distance` away from the start of its wall; -1 before the first and `count` behind the last.
int lineAt(const PanelAxis &axis, qint64 distance)
{
    const qint64 count = axis.count();
    return distance < 0 ? -1 : static_cast<int>(std::min(axis.lineAt(distance).value_or(count), count));
}

QStringList keysOf(const std::vector<LWScreen::Panel> &panels)
{
    QStringList keys;
    for (const LWScreen::Panel &panel : panels)
        keys.append(hiddenPanelKey(panel.row, panel.column));
    return keys;
}

QSet<QString> setOf(const QStringList &keys)
{
    return {keys.begin(), keys.end()};
}

qint64 panelsIn(const QRect &rectangle)
{
    return qint64{rectangle.width()} * rectangle.height();
}

/// Row by row, where the region is one rectangle.
std::vector<LWScreen::Panel> panelsOf(const QRegion &region)
{
    std::vector<LWScreen::Panel> panels;
    for (const QRect &part : region) {
        for (int row = part.top(); row <= part.bottom(); ++row) {
            for (int column = part.left(); column <= part.right(); ++column)
                panels.push_back({column, row});
        }
    }
    return panels;
}
} // namespace

PanelPainting::PanelPainting(CanvasDocument &document, std::shared_ptr<LWScreen> wall, const QPoint &pixel)
    : m_document(document), m_wall(std::move(wall)), m_keysAtPress(m_wall->hiddenBoxes()),
      m_first(m_wall->panelAt(pixel.x(), pixel.y()))
{
    m_wall->onImageClick(pixel.x(), pixel.y());
    if (m_first) {
        m_place = *m_first;
        m_switchesOff = m_wall->hiddenBoxes()->contains(hiddenPanelKey(m_first->row, m_first->column));
        if (m_switchesOff)
            m_knownKeys = setOf(m_keysAtPress.value_or(QStringList()));
        beginAnew();
        addToStroke(*m_first);
    }
    m_document.update(nullptr);
}

PanelPainting::Panel PanelPainting::placeOf(const QPoint &pixel) const
{
    const auto [columns, rows] = panelGridOf(*m_wall);
    return {lineAt(columns, qint64{pixel.x()} - m_wall->xpoint()), lineAt(rows, qint64{pixel.y()} - m_wall->ypoint())};
}

void PanelPainting::track(const QPoint &pixel, Shape shape)
{
    if (!m_first)
        return;
    const Panel place = placeOf(pixel);
    if (place == m_place && shape == m_shape)
        return;
    if (shape == Shape::Stroke)
        strokeTo(place);
    m_place = place;
    if (std::exchange(m_shape, shape) != shape)
        beginAnew();
    if (shape == Shape::Stroke)
        paintStroke();
    else
        paintRectangle(rectangleTo(place));
    m_wall->setHiddenBoxes(m_keys);
    m_document.update(nullptr);
}

/// A fast pointer leaps over panels; those on its way are meant.
void PanelPainting::strokeTo(const Panel &place)
{
    const Panel from = m_shape == Shape::Stroke ? m_place : place;
    const int steps = std::max({1, std::abs(place.column - from.column), std::abs(place.row - from.row)});
    for (int step = 0; step <= steps; ++step) {
        const double part = double(step) / steps;
        const Panel panel{static_cast<int>(std::lround(std::lerp(from.column, place.column, part))),
                          static_cast<int>(std::lround(std::lerp(from.row, place.row, part)))};
        const bool isOnWall =
            panel.column >= 0 && panel.column < m_wall->col() && panel.row >= 0 && panel.row < m_wall->row();
        if (isOnWall)
            addToStroke(panel);
    }
}

void PanelPainting::addToStroke(const Panel &panel)
{
    const qsizetype before = m_inStroke.size();
    m_inStroke.insert({panel.column, panel.row});
    if (m_inStroke.size() > before)
        m_stroke.push_back(panel);
}

/// Columns and rows.
QRect PanelPainting::rectangleTo(const Panel &place) const
{
    const auto [left, right] = std::minmax({m_first->column, std::clamp(place.column, 0, m_wall->col() - 1)});
    const auto [top, bottom] = std::minmax({m_first->row, std::clamp(place.row, 0, m_wall->row() - 1)});
    return {QPoint(left, top), QPoint(right, bottom)};
}

/// Nothing is painted.
void PanelPainting::beginAnew()
{
    m_keys = m_keysAtPress.value_or(QStringList());
    m_paintedKeys.clear();
    m_paintedOfStroke = 0;
    m_paintedRectangle = {};
}

void PanelPainting::paintStroke()
{
    paint({m_stroke.begin() + std::exchange(m_paintedOfStroke, std::ssize(m_stroke)), m_stroke.end()}, {});
}

/// A wall may have millions of panels: only those that have changed since the last move are worked out anew.
void PanelPainting::paintRectangle(const QRect &rectangle)
{
    const qint64 gone = panelsIn(m_paintedRectangle) - panelsIn(m_paintedRectangle & rectangle);
    if (gone > panelsIn(rectangle)) // what stays is found sooner than what goes
        beginAnew();
    const QRegion before(std::exchange(m_paintedRectangle, rectangle));
    paint(panelsOf(QRegion(rectangle).subtracted(before)), panelsOf(before.subtracted(rectangle)));
}

void PanelPainting::paint(const std::vector<Panel> &come, const std::vector<Panel> &gone)
{
    m_wall->setHiddenBoxes(std::nullopt); // the list is this one's alone, or it would be copied
    if (m_switchesOff)
        switchOff(keysOf(come), keysOf(gone));
    else
        switchOn(keysOf(come), setOf(keysOf(gone)));
}

void PanelPainting::switchOff(const QStringList &come, const QStringList &gone)
{
    const auto isNew = [this](const QString &key) { return !m_knownKeys.contains(key); };
    QSet<QString> back;
    std::copy_if(gone.begin(), gone.end(), std::inserter(back, back.end()), isNew);
    remove(back);
    std::copy_if(come.begin(), come.end(), std::back_inserter(m_keys), isNew);
}

/// What the list has lost has its place in it again only where it is made anew.
void PanelPainting::switchOn(const QStringList &come, const QSet<QString> &gone)
{
    m_paintedKeys.subtract(gone);
    for (const QString &key : come) // in the order of another set they would take long to find a place
        m_paintedKeys.insert(key);
    if (gone.isEmpty())
        return remove(setOf(come));
    m_keys = m_keysAtPress.value_or(QStringList());
    remove(m_paintedKeys);
}

void PanelPainting::remove(const QSet<QString> &keys)
{
    if (!keys.isEmpty())
        m_keys.removeIf([&keys](const QString &key) { return keys.contains(key); });
}

/// In the order of the rectangle, whatever way the pointer took.
void PanelPainting::orderRectangle()
{
    const QRect rectangle = m_paintedRectangle;
    beginAnew();
    paintRectangle(rectangle);
    m_wall->setHiddenBoxes(m_keys);
}

void PanelPainting::finish()
{
    if (m_shape == Shape::Rectangle)
        orderRectangle();
    const qint64 painted = m_shape == Shape::Stroke ? m_paintedOfStroke : panelsIn(m_paintedRectangle);
    m_document.finishEdit(painted > 1 ? "switch panels" : "switch panel", {});
}

void PanelPainting::cancel()
{
    m_wall->setHiddenBoxes(m_keysAtPress);
    m_document.update(nullptr);
}
