#include "canvas/PanelPainting.h"

#include "canvas/CanvasDocument.h"
#include "screen/HiddenPanels.h"

#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {
/// Which panel along an axis, -1 before the first and `count` behind the last.
int indexAt(qint64 pixel, int start, int panelSize, int count)
{
    const double index = std::floor(double(pixel - start) / panelSize);
    return static_cast<int>(std::clamp(index, -1.0, double(count)));
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
} // namespace

PanelPainting::PanelPainting(CanvasDocument &document, std::shared_ptr<LWScreen> wall, const QPoint &pixel)
    : m_document(document), m_wall(std::move(wall)), m_keysAtPress(m_wall->hiddenBoxes()),
      m_first(m_wall->panelAt(pixel.x(), pixel.y()))
{
    m_wall->onImageClick(pixel.x(), pixel.y());
    if (m_first) {
        m_stroke = {*m_first};
        m_place = *m_first;
        m_switchesOff = m_wall->hiddenBoxes()->contains(hiddenPanelKey(m_first->row, m_first->column));
    }
    m_document.update(nullptr);
}

PanelPainting::Panel PanelPainting::placeOf(const QPoint &pixel) const
{
    return {indexAt(pixel.x(), m_wall->xpoint(), m_wall->panelWidth(), m_wall->col()),
            indexAt(pixel.y(), m_wall->ypoint(), m_wall->panelHeight(), m_wall->row())};
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
    m_shape = shape;
    paint(shape == Shape::Stroke ? m_stroke : rectangleTo(place));
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
        if (isOnWall && std::find(m_stroke.begin(), m_stroke.end(), panel) == m_stroke.end())
            m_stroke.push_back(panel);
    }
}

std::vector<PanelPainting::Panel> PanelPainting::rectangleTo(const Panel &place) const
{
    const auto [left, right] = std::minmax({m_first->column, std::clamp(place.column, 0, m_wall->col() - 1)});
    const auto [top, bottom] = std::minmax({m_first->row, std::clamp(place.row, 0, m_wall->row() - 1)});
    std::vector<Panel> panels;
    for (int row = top; row <= bottom; ++row) {
        for (int column = left; column <= right; ++column)
            panels.push_back({column, row});
    }
    return panels;
}

void PanelPainting::paint(const std::vector<Panel> &panels)
{
    QStringList keys = m_keysAtPress.value_or(QStringList());
    const QStringList painted = keysOf(panels);
    if (m_switchesOff) {
        const QSet<QString> known = setOf(keys);
        std::copy_if(painted.begin(), painted.end(), std::back_inserter(keys),
                     [&](const QString &key) { return !known.contains(key); });
    } else {
        keys.removeIf([gone = setOf(painted)](const QString &key) { return gone.contains(key); });
    }
    m_painted = panels.size();
    m_wall->setHiddenBoxes(keys);
    m_document.update(nullptr);
}

void PanelPainting::finish()
{
    m_document.finishEdit(m_painted > 1 ? "switch panels" : "switch panel", {});
}

void PanelPainting::cancel()
{
    m_wall->setHiddenBoxes(m_keysAtPress);
    m_document.update(nullptr);
}
