#include "formats/CableRunText.h"

#include "formats/JsonParts.h"
#include "formats/JsonValues.h"
#include "formats/PropertyText.h"
#include "grid/PanelKeys.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace {
const QString processorName("processor");
const QString portName("port");
const QString pieceName("piece");
const QString cellsName("cells");

QByteArray runText(const CableRun &run)
{
    QByteArrayList cells;
    for (const Cell &cell : run.cells)
        cells.append('"' + panelKey(cell.row, cell.column).toLatin1() + '"');
    return "{\"processor\": " + JsonValues::text(run.port.processor) +
           ", \"port\": " + QByteArray::number(run.port.number) + ", \"piece\": " + QByteArray::number(run.piece) +
           ", \"cells\": [" + cells.join(", ") + ']' + JsonParts::further(run.unknown) + '}';
}

/// Counted from 1.
Result<int> decodePlace(const QJsonObject &run, const QString &name)
{
    const Result<qint64> place = PropertyText::decodeInteger(run.value(name), 1, std::numeric_limits<int>::max());
    if (!place)
        return failWithin(name, place.error());
    return static_cast<int>(*place);
}

Result<QString> decodeProcessor(const QJsonValue &value)
{
    if (!value.isString())
        return failWithin(processorName, JsonValues::failExpecting("a text", value).value());
    const Result<QVariant> text = PropertyText::decode(value, QMetaType::fromType<QString>(), {});
    if (!text)
        return failWithin(processorName, text.error());
    return text->toString();
}

Result<std::vector<Cell>> decodeCells(const QJsonValue &value)
{
    if (!value.isArray())
        return failWithin(cellsName, JsonValues::failExpecting("a list of panels", value).value());
    std::vector<Cell> cells;
    for (const auto &entry : value.toArray()) {
        const std::optional<Cell> cell = entry.isString() ? panelOfKey(entry.toString()) : std::nullopt;
        if (!cell)
            return failWithin(QString("%1: entry %2").arg(cellsName).arg(cells.size()),
                              JsonValues::failExpecting("a panel, \"row,column\"", entry).value());
        cells.push_back(*cell);
    }
    return cells;
}

Result<CableRun> decodeRun(const QJsonValue &value, QByteArrayView newer)
{
    if (!value.isObject())
        return JsonValues::failExpecting("an object", value);
    const QJsonObject run = value.toObject();
    const Result<QByteArrayList> unknown =
        JsonParts::unknownNames(run, newer, {processorName, portName, pieceName, cellsName});
    const Result<QString> processor = decodeProcessor(run.value(processorName));
    if (!unknown || !processor)
        return tl::unexpected(unknown ? processor.error() : unknown.error());
    const Result<int> port = decodePlace(run, portName);
    const Result<int> piece = decodePlace(run, pieceName);
    if (!port || !piece)
        return tl::unexpected(port ? piece.error() : port.error());
    return decodeCells(run.value(cellsName)).map([&](const std::vector<Cell> &cells) {
        return CableRun{{*processor, *port}, *piece, cells, UnknownPart::ofNames(*unknown)};
    });
}
} // namespace

namespace CableRunText {

QByteArray encode(const CableRuns &runs, const QByteArray &indent)
{
    QByteArrayList lines;
    for (const CableRun &run : runs.list())
        lines.append(indent + "  " + runText(run));
    return lines.isEmpty() ? "[]" : "[\n" + lines.join(",\n") + '\n' + indent + ']';
}

Result<CableRuns> decode(const QJsonValue &value, QByteArrayView newer)
{
    if (value.isNull())
        return CableRuns();
    if (!value.isArray())
        return JsonValues::failExpecting("a list of runs", value);
    WallRuns runs;
    const std::vector<JsonParts::Part> parts = JsonParts::of(newer);
    for (const auto &entry : value.toArray()) {
        Result<CableRun> run = decodeRun(entry, JsonParts::valueAt(parts, runs.size()));
        if (!run)
            return failWithin(QString("run %1").arg(runs.size()), run.error());
        runs.push_back(std::move(*run));
    }
    return CableRuns(std::move(runs));
}

} // namespace CableRunText
