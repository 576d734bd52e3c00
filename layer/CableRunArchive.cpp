#include "layer/CableRunArchive.h"

#include "grid/PanelKeys.h"

namespace {
const QString processorKey("processor");
const QString portKey("port");
const QString pieceKey("piece");
const QString cellsKey("cells");

QStringList keysOf(const std::vector<Cell> &cells)
{
    QStringList keys;
    keys.reserve(std::ssize(cells));
    for (const Cell &cell : cells)
        keys.append(panelKey(cell.row, cell.column));
    return keys;
}

Result<std::vector<Cell>> cellsOf(const QStringList &keys)
{
    std::vector<Cell> cells;
    cells.reserve(static_cast<std::size_t>(keys.size()));
    for (const QString &key : keys) {
        const std::optional<Cell> cell = panelOfKey(key);
        if (!cell)
            return fail(QString("\"%1\" is no panel, expected \"row,column\"").arg(key.left(40)));
        cells.push_back(*cell);
    }
    return cells;
}

ArchiveObjectPointer objectOf(const CableRun &run)
{
    auto object = std::make_shared<ArchiveObject>(CableRunArchive::className);
    object->encodeText(processorKey, run.port.processor);
    object->encodeInt32(portKey, static_cast<qint32>(run.port.number));
    object->encodeInt32(pieceKey, run.piece);
    object->encodeTextList(cellsKey, keysOf(run.cells));
    if (run.unknown && run.unknown->ofArchive)
        object->encodeUnknownPart(*run.unknown->ofArchive);
    return object;
}

/// Counted from 1.
Result<qint32> placeOf(const ArchiveObject &object, const QString &key)
{
    Result<qint32> place = object.decodeInt32(key);
    if (place && *place < 1)
        return fail(QString("\"%1\" is %2, expected 1 or more").arg(key).arg(*place));
    return place;
}

Result<CableRun> runOf(const ArchiveObject &object)
{
    const Result<QString> processor = object.decodeText(processorKey);
    const Result<qint32> port = placeOf(object, portKey);
    const Result<qint32> piece = placeOf(object, pieceKey);
    if (!processor || !port || !piece)
        return tl::unexpected((!processor ? processor.error() : !port ? port.error() : piece.error()));
    return object.decodeTextList(cellsKey)
        .and_then([](const auto &keys) { return cellsOf(keys.value_or(QStringList())); })
        .map([&](const std::vector<Cell> &cells) {
            return CableRun{{*processor, *port}, *piece, cells, UnknownPart::of(object)};
        });
}
} // namespace

namespace CableRunArchive {

QStringList keys()
{
    return {processorKey, portKey, pieceKey, cellsKey};
}

ArchiveValue encode(const CableRuns &runs)
{
    std::vector<ArchiveValue> objects;
    for (const CableRun &run : runs.list())
        objects.push_back({objectOf(run)});
    return objects.empty() ? ArchiveValue() : ArchiveValue::list(std::move(objects));
}

Result<CableRuns> decode(const ArchiveValue &value, const QString &subject)
{
    if (value.isNil())
        return CableRuns();
    const Result<ArchiveList> list = value.toList(subject);
    if (!list)
        return tl::unexpected(list.error());
    WallRuns runs;
    for (const ArchiveValue &entry : **list) {
        const QString place = QString("run %1 of %2").arg(runs.size()).arg(subject);
        Result<CableRun> run = entry.toObject(place).and_then([](const auto &object) { return runOf(*object); });
        if (!run)
            return failWithin(place, run.error());
        runs.push_back(std::move(*run));
    }
    return CableRuns(std::move(runs));
}

} // namespace CableRunArchive
