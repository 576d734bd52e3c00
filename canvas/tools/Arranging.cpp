#include "canvas/tools/Arranging.h"

#include "canvas/CanvasDocument.h"
#include "screen/LWScreen.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

namespace {
/// As far as all places stay numbers of 32 bits: beyond, the layers would not keep their distances.
qint64 within32Bits(qint64 way, const PixelSpan &places)
{
    return std::clamp(way, std::numeric_limits<int>::min() - places.from, std::numeric_limits<int>::max() - places.to);
}
} // namespace

LayerPointer Arranging::layerAt(const CanvasDocument &document, const QPoint &pixel)
{
    for (const LayerPointer &layer : document.layers()) {
        if (layer->visible() && PixelBox::of(*layer).contains(pixel))
            return layer;
    }
    return nullptr;
}

LayerPointer Arranging::press(CanvasDocument &document, const QPoint &pixel, bool extends)
{
    LayerPointer layer = layerAt(document, pixel);
    if (!layer)
        return nullptr;
    const std::vector<LayerPointer> selected = document.selectedLayers();
    const bool isSelected = std::find(selected.begin(), selected.end(), layer) != selected.end();
    if (!isSelected) {
        document.select(layer, extends);
    } else if (extends && selected.size() > 1) {
        document.select(layer, true);
        return nullptr;
    }
    return layer;
}

Arranging::Arranging(CanvasDocument &document, LayerPointer grabbed, const QPoint &pixel)
    : m_document(document), m_grabbed(std::move(grabbed)), m_press(pixel), m_box(PixelBox::of(*m_grabbed)),
      m_xAtPress{m_grabbed->xpoint(), m_grabbed->xpoint()}, m_yAtPress{m_grabbed->ypoint(), m_grabbed->ypoint()}
{
    const std::vector<LayerPointer> selected = document.selectedLayers();
    for (const LayerPointer &layer : selected) {
        m_moved.push_back({layer, layer->xpoint(), layer->ypoint()});
        m_xAtPress = m_xAtPress.united({layer->xpoint(), layer->xpoint()});
        m_yAtPress = m_yAtPress.united({layer->ypoint(), layer->ypoint()});
        const PixelBox box = PixelBox::of(*layer);
        if (!box.isEmpty())
            m_box = {m_box.columns.united(box.columns), m_box.rows.united(box.rows)};
    }
    takeLines(selected);
}

void Arranging::takeLines(const std::vector<LayerPointer> &moved)
{
    const std::unordered_set<LayerPointer> moving(moved.begin(), moved.end());
    std::vector<PixelSpan> columns{{0, m_document.OutputWidth()}};
    std::vector<PixelSpan> rows{{0, m_document.OutputHeight()}};
    for (const LayerPointer &layer : m_document.layers()) {
        const PixelBox box = PixelBox::of(*layer);
        if (!layer->visible() || box.isEmpty() || moving.contains(layer))
            continue;
        columns.push_back(box.columns);
        rows.push_back(box.rows);
    }
    m_across = Attraction(columns);
    m_down = Attraction(rows);
}

void Arranging::track(const QPoint &pixel, const std::optional<QSizeF> &reach)
{
    Way way{qint64{pixel.x()} - m_press.x(), qint64{pixel.y()} - m_press.y()};
    if (reach) {
        way.x += m_across.pull(m_box.columns, way.x, reach->width());
        way.y += m_down.pull(m_box.rows, way.y, reach->height());
    }
    way = {within32Bits(way.x, m_xAtPress), within32Bits(way.y, m_yAtPress)};
    m_uprightLines = {};
    m_levelLines = {};
    if (reach) {
        m_uprightLines = m_across.met({m_box.columns.from + way.x, m_box.columns.to + way.x});
        m_levelLines = m_down.met({m_box.rows.from + way.y, m_box.rows.to + way.y});
    }
    moveBy(way);
}

void Arranging::finish()
{
    if (m_way != Way())
        m_document.finishEdit("move layer");
}

void Arranging::click()
{
    if (m_moved.size() > 1)
        m_document.select(m_grabbed, false);
}

void Arranging::cancel()
{
    moveBy({});
}

void Arranging::moveBy(const Way &way)
{
    if (std::exchange(m_way, way) == way)
        return;
    for (const Moved &moved : m_moved) {
        moved.layer->setXpoint(static_cast<int>(moved.xAtPress + way.x));
        moved.layer->setYpoint(static_cast<int>(moved.yAtPress + way.y));
        if (qobject_cast<LWScreen *>(moved.layer.get()))
            moved.layer->drawInRect(); // walls show their place
    }
    m_document.update(nullptr);
}
