#include "show/RowPasteboard.h"

#include "archive/IndexRanges.h"
#include "archive/KeyedArchive.h"
#include "base/NumberText.h"
#include "layer/LayerLimits.h"

#include <QMimeData>

#include <algorithm>
#include <memory>

namespace RowPasteboard {

Result<QByteArray> encode(std::vector<qsizetype> rows)
{
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<IndexSet::Range> ranges;
    ranges.reserve(rows.size());
    for (const qsizetype row : rows)
        ranges.push_back({static_cast<quint64>(row), 1}); // a negative row is beyond what a set can hold
    const std::optional<IndexSet> set = IndexRanges::fromRanges(ranges);
    if (!set || set->ranges.empty())
        return fail("no rows to drag; choose some");
    return KeyedArchive::write({*set});
}

Result<std::vector<qsizetype>> decode(const QByteArray &bytes)
{
    const Result<IndexSet> set = KeyedArchive::read(bytes, {}).and_then(
        [](const ArchiveValue &root) { return root.toIndexSet("the pasteboard"); });
    if (!set)
        return tl::unexpected(set.error());
    if (set->ranges.empty())
        return fail("the pasteboard names no rows");

    std::vector<qsizetype> rows;
    for (const IndexSet::Range &range : set->ranges) {
        // A few bytes may claim more rows than there is memory.
        if (range.length > static_cast<quint64>(LayerLimits::mostLayers - std::ssize(rows)))
            return fail(
                QString("the pasteboard names more than %1 rows").arg(NumberText::grouped(LayerLimits::mostLayers)));
        for (quint64 row = range.location; row < range.location + range.length; ++row)
            rows.push_back(static_cast<qsizetype>(row));
    }
    return rows;
}

QMimeData *write(const QModelIndexList &indexes)
{
    std::vector<qsizetype> rows;
    rows.reserve(static_cast<std::size_t>(indexes.size()));
    for (const QModelIndex &index : indexes)
        rows.push_back(index.row());
    const Result<QByteArray> bytes = encode(std::move(rows));
    if (!bytes)
        return nullptr;
    auto pasteboard = std::make_unique<QMimeData>();
    pasteboard->setData(type, *bytes);
    return pasteboard.release();
}

Result<std::vector<qsizetype>> read(const QMimeData &pasteboard)
{
    if (!pasteboard.hasFormat(type))
        return fail("the pasteboard holds no rows of a table");
    return decode(pasteboard.data(type));
}

} // namespace RowPasteboard
