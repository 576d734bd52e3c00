#include "canvas/tools/PanelPainting.h"

#include "canvas/CanvasDocument.h"
#include "layer/WallGrid.h"

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

qint64 panelsIn(const QRect &rectangle)
{
    return qint64{rectangle.width()} * rectangle.height();
}

/// Row by row, where the region is one rectangle.
std::vector<Cell> panelsOf(const QRegion &region)
{
    std::vector<Cell> panels;
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
    : m_document(document), m_wall(std::move(wall)), m_atPress(m_wall->panelsOff()),
      m_first(m_wall->panelAt(pixel.x(), pixel.y()))
{
    m_wall->onImageClick(pixel.x(), pixel.y());
    if (m_first) {
        m_place = *m_first;
        m_offAtPress = keysAtPress().cellsInside(m_wall->col(), m_wall->row());
        m_switchesOff = !m_offAtPress.contains(*m_first);
        beginAnew();
        addToStroke(*m_first);
    }
    m_document.update(nullptr);
}

Cell PanelPainting::placeOf(const QPoint &pixel) const
{
    const auto [columns, rows] = panelGridOf(*m_wall);
    return {lineAt(columns, qint64{pixel.x()} - m_wall->xpoint()), lineAt(rows, qint64{pixel.y()} - m_wall->ypoint())};
}

void PanelPainting::track(const QPoint &pixel, Shape shape)
{
    if (!m_first)
        return;
    const Cell place = placeOf(pixel);
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
    m_wall->setPanelsOff(m_keys);
    m_document.update(nullptr);
}

/// A fast pointer leaps over panels; those on its way are meant.
void PanelPainting::strokeTo(const Cell &place)
{
    const Cell from = m_shape == Shape::Stroke ? m_place : place;
    const int steps = std::max({1, std::abs(place.column - from.column), std::abs(place.row - from.row)});
    for (int step = 0; step <= steps; ++step) {
        const double part = double(step) / steps;
        const Cell panel{static_cast<int>(std::lround(std::lerp(from.column, place.column, part))),
                         static_cast<int>(std::lround(std::lerp(from.row, place.row, part)))};
        const bool isOnWall =
            panel.column >= 0 && panel.column < m_wall->col() && panel.row >= 0 && panel.row < m_wall->row();
        if (isOnWall)
            addToStroke(panel);
    }
}

void PanelPainting::addToStroke(const Cell &panel)
{
    const qsizetype before = m_inStroke.size();
    m_inStroke.insert({panel.column, panel.row});
    if (m_inStroke.size() > before)
        m_stroke.push_back(panel);
}

/// Columns and rows.
QRect PanelPainting::rectangleTo(const Cell &place) const
{
    const auto [left, right] = std::minmax({m_first->column, std::clamp(place.column, 0, m_wall->col() - 1)});
    const auto [top, bottom] = std::minmax({m_first->row, std::clamp(place.row, 0, m_wall->row() - 1)});
    return {QPoint(left, top), QPoint(right, bottom)};
}

/// Nothing is painted.
void PanelPainting::beginAnew()
{
    m_keys = keysAtPress();
    m_paintedOfStroke = 0;
    m_paintedRectangle = {};
}

void PanelPainting::paintStroke()
{
    const auto from = m_stroke.begin() + std::exchange(m_paintedOfStroke, std::ssize(m_stroke));
    if (m_switchesOff)
        switchOff({from, m_stroke.end()});
    else
        switchOn();
}

/// A wall may have millions of panels: what stays painted is left as it is.
void PanelPainting::paintRectangle(const QRect &rectangle)
{
    const qint64 gone = panelsIn(m_paintedRectangle) - panelsIn(m_paintedRectangle & rectangle);
    // What stays may be found sooner than what goes; and what is off again has its place only in the first list.
    if (gone > panelsIn(rectangle) || (gone > 0 && !m_switchesOff))
        beginAnew();
    const QRegion before(std::exchange(m_paintedRectangle, rectangle));
    if (!m_switchesOff)
        return switchOn();
    const auto isGone = [this](const Cell &panel) { return !isPainted(panel); };
    m_keys.removeIf(isGone, keysAtPress().texts().size());
    switchOff(panelsOf(QRegion(rectangle).subtracted(before)));
}

bool PanelPainting::isPainted(const Cell &panel) const
{
    return m_shape == Shape::Stroke ? m_inStroke.contains({panel.column, panel.row})
                                    : m_paintedRectangle.contains(panel.column, panel.row);
}

void PanelPainting::switchOff(const std::vector<Cell> &come)
{
    for (const Cell &panel : come) {
        if (!m_offAtPress.contains(panel))
            m_keys.append(panel);
    }
}

void PanelPainting::switchOn()
{
    m_keys.removeIf([this](const Cell &panel) { return isPainted(panel); });
}

/// In the order of the rectangle, whatever way the pointer took.
void PanelPainting::orderRectangle()
{
    const QRect rectangle = m_paintedRectangle;
    beginAnew();
    paintRectangle(rectangle);
    m_wall->setPanelsOff(m_keys);
}

void PanelPainting::finish()
{
    if (m_shape == Shape::Rectangle)
        orderRectangle();
    const qint64 painted = m_shape == Shape::Stroke ? m_paintedOfStroke : panelsIn(m_paintedRectangle);
    m_document.finishEdit(painted > 1 ? "switch panels" : "switch panel");
}

void PanelPainting::cancel()
{
    m_wall->setPanelsOff(m_atPress);
    m_document.update(nullptr);
}
