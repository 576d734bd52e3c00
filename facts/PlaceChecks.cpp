#include "facts/PlaceChecks.h"

#include "base/NumberText.h"
#include "drawing/TextLine.h"
#include "facts/WallOverlaps.h"

#include <algorithm>
#include <array>
#include <set>

namespace {
using Level = Finding::Level;
using Layers = std::vector<LayerPointer>;

constexpr char overlap[] = "walls-overlap";
constexpr char partlyOutside[] = "wall-partly-outside";
constexpr char larger[] = "wall-larger-than-output";
constexpr char nameTwice[] = "wall-name-twice";
constexpr char withoutWatts[] = "wall-without-watts";

QString nameOf(const Layer &layer)
{
    return layer.label().isEmpty() ? QString("a wall without a name") : TextLine::shown(layer.label());
}

/// Calls with each wall and its row.
template <typename Use>
void forEachWall(const Layers &layers, Use use)
{
    for (std::size_t row = 0; row < layers.size(); ++row) {
        if (layers[row]->kind() == LayerKind::Wall)
            use(*layers[row], static_cast<qsizetype>(row));
    }
}

void findOverlaps(const Layers &layers, const QSize &output, std::vector<Finding> &findings)
{
    const auto [overlaps, isWhole] = WallOverlaps::of(layers, output);
    for (const WallOverlap &found : overlaps) {
        const PixelBox &box = found.box;
        const QString size = NumberText::size(box.columns.to - box.columns.from, box.rows.to - box.rows.from);
        const QString more =
            found.more > 0 ? QString(", and over %1").arg(NumberText::counted(found.more, "more wall")) : QString();
        findings.push_back({.check = overlap,
                            .level = Level::Warning,
                            .layer = found.upper,
                            .box = box,
                            .sentence = QString("It lies over %1 in %2 px%3; move one of them.")
                                            .arg(nameOf(*layers[static_cast<std::size_t>(found.lower)]), size, more)});
    }
    if (!isWhole)
        findings.push_back({.check = overlap,
                            .level = Level::Warning,
                            .sentence = "Too many walls lie beside and over one another to find all of those; move the "
                                        "walls that are told, and more will be."});
}

struct Edge
{
    const char *name;
    qint64 beyond; ///< pixels
};

/// The edge of the output that a wall goes furthest beyond.
Edge furthestEdge(const PixelBox &box, const QSize &output)
{
    const std::array<Edge, 4> edges{{{"left", -box.columns.from},
                                     {"right", box.columns.to - output.width()},
                                     {"top", -box.rows.from},
                                     {"bottom", box.rows.to - output.height()}}};
    return *std::ranges::max_element(edges, {}, &Edge::beyond);
}

std::optional<Finding> outside(const Layer &wall, const QSize &output)
{
    const PixelBox box = PixelBox::of(wall);
    const bool isSeen = wall.visible() && !box.isEmpty() && box.meets({{0, output.width()}, {0, output.height()}});
    const Edge edge = furthestEdge(box, output);
    if (!isSeen || edge.beyond <= 0)
        return std::nullopt;
    const qint64 width = box.columns.to - box.columns.from;
    const qint64 height = box.rows.to - box.rows.from;
    if (width > output.width() || height > output.height())
        return Finding{.check = larger,
                       .level = Level::Warning,
                       .sentence = QString("It has %1 px, more than the output of %2 px; make the output larger or the "
                                           "wall smaller.")
                                       .arg(NumberText::size(width, height), NumberText::size(output))};
    return Finding{.check = partlyOutside,
                   .level = Level::Warning,
                   .sentence = QString("It goes %1 px beyond the %2 edge of the output of %3 px; change its left and "
                                       "top.")
                                   .arg(NumberText::grouped(edge.beyond), edge.name, NumberText::size(output))};
}

void findOutside(const Layers &layers, const QSize &output, std::vector<Finding> &findings)
{
    forEachWall(layers, [&](const Layer &wall, qsizetype row) {
        if (std::optional<Finding> finding = outside(wall, output)) {
            finding->layer = row;
            findings.push_back(std::move(*finding));
        }
    });
}

void findNames(const Layers &layers, const QSize & /*output*/, std::vector<Finding> &findings)
{
    std::set<QString> names;
    forEachWall(layers, [&](const Layer &wall, qsizetype row) {
        if (wall.label().isEmpty() || names.insert(wall.label()).second)
            return;
        findings.push_back({.check = nameTwice,
                            .level = Level::Warning,
                            .layer = row,
                            .sentence = QString("Another wall is called %1, too; give one of them another name.")
                                            .arg(TextLine::shown(wall.label()))});
    });
}

void findWatts(const Layers &layers, const QSize & /*output*/, std::vector<Finding> &findings)
{
    bool hasAny = false;
    forEachWall(layers, [&](const Layer &wall, qsizetype) { hasAny |= wall.powerOnCell() > 0; });
    forEachWall(layers, [&](const Layer &wall, qsizetype row) {
        if (hasAny && wall.powerOnCell() == 0)
            findings.push_back({.check = withoutWatts,
                                .level = Level::Note,
                                .layer = row,
                                .sentence = "Its panels have no watts, and those of other walls have; type the watts "
                                            "per panel."});
    });
}
} // namespace

namespace PlaceChecks {

std::vector<Finding> of(const std::vector<LayerPointer> &layers, const QSize &output)
{
    std::vector<Finding> findings;
    for (const auto find : {&findOverlaps, &findOutside, &findNames, &findWatts})
        find(layers, output, findings);
    return findings;
}

std::vector<const char *> names()
{
    return {overlap, partlyOutside, larger, nameTwice, withoutWatts};
}

} // namespace PlaceChecks
