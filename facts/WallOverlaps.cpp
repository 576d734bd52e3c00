#include "facts/WallOverlaps.h"

#include "base/Counted.h"
#include "layer/WallGrid.h"
#include "show/ShowProcessors.h"

#include <algorithm>
#include <map>

namespace {
constexpr qint64 mostSteps = qint64{1} << 23; // of 30 ns
constexpr qint64 stepsOfPair = 2;             // a panel that is off takes one

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

PixelBox panelOf(const Wall &wall, qint64 column, qint64 row)
{
    const PanelAxis &columns = wall.grid.columns;
    const PanelAxis &rows = wall.grid.rows;
    const qint64 left = wall.box.columns.from;
    const qint64 top = wall.box.rows.from;
    return {{left + columns.edge(column), left + columns.edge(column + 1)},
            {top + rows.edge(row), top + rows.edge(row + 1)}};
}

/// Calls with the box of each panel that is on in a part of the output, until one is what is sought.
template <typename IsSought>
bool hasPanel(const Wall &wall, const PixelBox &part, IsSought isSought)
{
    const PixelSpan rowSpan = linesOf(wall.grid.rows, wall.box.rows.from, part.rows);
    const PixelSpan columnSpan = linesOf(wall.grid.columns, wall.box.columns.from, part.columns);
    for (qint64 row = rowSpan.from; row < rowSpan.to; ++row) {
        for (qint64 column = columnSpan.from; column < columnSpan.to; ++column) {
            const bool isOff = wall.off.contains({static_cast<int>(column), static_cast<int>(row)});
            if (!isOff && isSought(common(panelOf(wall, column, row), part)))
                return true;
        }
    }
    return false;
}

qint64 areaOf(const PixelSpan &columns, const PixelSpan &rows)
{
    if (columns.isEmpty() || rows.isEmpty())
        return 0;
    return Counted::limited(Counted::product(columns.to - columns.from, rows.to - rows.from));
}

/// Of a part of the output, panels that are off included.
qint64 panelsIn(const Wall &wall, const PixelBox &part)
{
    return areaOf(linesOf(wall.grid.columns, wall.box.columns.from, part.columns),
                  linesOf(wall.grid.rows, wall.box.rows.from, part.rows));
}

/// Where the panels of a wall are, whatever size its layer says.
PixelBox extentOf(const Wall &wall)
{
    return {{wall.box.columns.from, wall.box.columns.from + wall.grid.columns.size()},
            {wall.box.rows.from, wall.box.rows.from + wall.grid.rows.size()}};
}

qint64 pixelsOff(const Wall &wall, const PixelBox &part)
{
    qint64 pixels = 0;
    for (const Cell &cell : wall.off.cells()) {
        const PixelBox hole = common(panelOf(wall, cell.column, cell.row), part);
        Counted::add(pixels, areaOf(hole.columns, hole.rows));
    }
    return pixels;
}

/// A file claims millions of panels in a few words, and each that is off by its name. So the holes are asked first:
/// where they cover the part, the wall with fewer panels there has hardly more of them than there are holes.
bool panelsMeet(const Wall &one, const Wall &other, const PixelBox &part)
{
    if (one.off.size() == 0 && other.off.size() == 0)
        return true;
    const PixelBox inside = common(part, common(extentOf(one), extentOf(other)));
    qint64 holes = pixelsOff(one, inside);
    Counted::add(holes, pixelsOff(other, inside));
    if (holes < areaOf(inside.columns, inside.rows))
        return true;
    const bool isOneCoarse = panelsIn(one, inside) <= panelsIn(other, inside);
    const Wall &coarse = isOneCoarse ? one : other;
    const Wall &fine = isOneCoarse ? other : one;
    return hasPanel(coarse, inside, [&](const PixelBox &panel) {
        return hasPanel(fine, panel, [](const PixelBox &) { return true; });
    });
}

/// Of holding two walls against each other.
qint64 stepsFor(const Wall &one, const Wall &other)
{
    const bool mayMeet = !common(one.box, other.box).isEmpty();
    return stepsOfPair + (mayMeet ? static_cast<qint64>(one.off.size() + other.off.size()) : 0);
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

std::vector<WallOverlap> listOf(const std::map<qsizetype, WallOverlap> &overlaps)
{
    std::vector<WallOverlap> list;
    list.reserve(overlaps.size());
    for (const auto &[upper, overlap] : overlaps)
        list.push_back(overlap);
    return list;
}
} // namespace

namespace WallOverlaps {

Found of(const std::vector<LayerPointer> &layers, const QSize &output)
{
    std::vector<Wall> walls = wallsOf(layers, output);
    std::ranges::sort(walls, {}, [](const Wall &wall) { return wall.box.columns.from; });
    std::map<qsizetype, WallOverlap> overlaps;
    std::vector<const Wall *> open; // those that may reach the next one
    qint64 steps = 0;
    for (const Wall &wall : walls) {
        std::erase_if(open, [&](const Wall *other) { return other->box.columns.to <= wall.box.columns.from; });
        for (const Wall *other : open) {
            steps += stepsFor(wall, *other);
            if (steps > mostSteps)
                return {listOf(overlaps), false};
            note(overlaps, wall, *other);
        }
        open.push_back(&wall);
    }
    return {listOf(overlaps), true};
}

} // namespace WallOverlaps
