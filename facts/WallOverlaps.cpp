#include "facts/WallOverlaps.h"

#include "layer/WallGrid.h"
#include "show/ShowProcessors.h"

#include <algorithm>
#include <map>

namespace {
struct Wall
{
    qsizetype row; ///< in the list
    PixelBox box;
    PanelGrid grid;
    CellSet off;
};

std::vector<Wall> wallsOf(const std::vector<LayerPointer> &layers, const QSize &output)
{
    std::vector<Wall> walls;
    for (std::size_t row = 0; row < layers.size(); ++row) {
        const Layer &layer = *layers[row];
        const PixelBox box = PixelBox::of(layer);
        const bool isMeant = layer.kind() == LayerKind::Wall && layer.visible() && !box.isEmpty() &&
                             !ShowProcessors::spansOutput(layer, output);
        if (!isMeant)
            continue;
        const LayerRecordPointer record = layer.record();
        const CellSet off = record->hiddenBoxes.value_or(PanelKeys()).cellsInside(record->col, record->row);
        walls.push_back({static_cast<qsizetype>(row), box, panelGridOf(*record), off});
    }
    return walls;
}

PixelSpan common(const PixelSpan &one, const PixelSpan &other)
{
    return {std::max(one.from, other.from), std::min(one.to, other.to)};
}

PixelBox common(const PixelBox &one, const PixelBox &other)
{
    return {common(one.columns, other.columns), common(one.rows, other.rows)};
}

/// The lines that pixels of the output lie in.
PixelSpan linesOf(const PanelAxis &axis, qint64 start, const PixelSpan &pixels)
{
    const qint64 first = axis.lineAt(pixels.from - start).value_or(0);
    const qint64 last = axis.lineAt(pixels.to - 1 - start).value_or(-1);
    return {std::max(first, qint64{0}), std::min(last + 1, qint64{axis.count()})};
}

/// Calls with the box of each panel that is on in a part of the output, until one is what is sought.
template <typename IsSought>
bool hasPanel(const Wall &wall, const PixelBox &part, IsSought isSought)
{
    const PanelAxis &columns = wall.grid.columns;
    const PanelAxis &rows = wall.grid.rows;
    const qint64 left = wall.box.columns.from;
    const qint64 top = wall.box.rows.from;
    const PixelSpan rowSpan = linesOf(rows, top, part.rows);
    const PixelSpan columnSpan = linesOf(columns, left, part.columns);
    for (qint64 row = rowSpan.from; row < rowSpan.to; ++row) {
        for (qint64 column = columnSpan.from; column < columnSpan.to; ++column) {
            const PixelBox panel{{left + columns.edge(column), left + columns.edge(column + 1)},
                                 {top + rows.edge(row), top + rows.edge(row + 1)}};
            if (!wall.off.contains({static_cast<int>(column), static_cast<int>(row)}) && isSought(common(panel, part)))
                return true;
        }
    }
    return false;
}

bool panelsMeet(const Wall &one, const Wall &other, const PixelBox &part)
{
    if (one.off.size() == 0 && other.off.size() == 0)
        return true;
    return hasPanel(one, part, [&](const PixelBox &panel) {
        return hasPanel(other, panel, [](const PixelBox &) { return true; });
    });
}

void note(std::map<qsizetype, WallOverlap> &overlaps, const Wall &one, const Wall &other)
{
    const PixelBox part = common(one.box, other.box);
    if (part.isEmpty() || !panelsMeet(one, other, part))
        return;
    const auto [upper, lower] = std::minmax(one.row, other.row);
    const auto [found, isNew] = overlaps.emplace(upper, WallOverlap{upper, lower, part});
    if (isNew)
        return;
    ++found->second.more;
    if (lower < found->second.lower) {
        found->second.lower = lower;
        found->second.box = part;
    }
}
} // namespace

namespace WallOverlaps {

std::vector<WallOverlap> of(const std::vector<LayerPointer> &layers, const QSize &output)
{
    std::vector<Wall> walls = wallsOf(layers, output);
    std::ranges::sort(walls, {}, [](const Wall &wall) { return wall.box.columns.from; });
    std::map<qsizetype, WallOverlap> overlaps;
    std::vector<const Wall *> open; // those that may reach the next one
    for (const Wall &wall : walls) {
        std::erase_if(open, [&](const Wall *other) { return other->box.columns.to <= wall.box.columns.from; });
        for (const Wall *other : open)
            note(overlaps, wall, *other);
        open.push_back(&wall);
    }
    std::vector<WallOverlap> result;
    for (const auto &[upper, overlap] : overlaps)
        result.push_back(overlap);
    return result;
}

} // namespace WallOverlaps
