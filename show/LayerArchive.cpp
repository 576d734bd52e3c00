#include "show/LayerArchive.h"

#include "base/Memory.h"
#include "layer/CableRunArchive.h"
#include "layer/LayerLimits.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <utility>

namespace {
Result<LayerArchive::ReadLayer> decodeLayer(const ArchiveValue &value, const QString &subject)
{
    const auto isNoLayer = [&] {
        return fail(QString("%1 is %2, expected a screen or a still").arg(subject, value.kind()));
    };
    const Result<ArchiveObjectPointer> object = value.toObject(subject);
    if (!object)
        return isNoLayer();
    const bool isScreen = (*object)->className() == "LWScreen";
    if (!isScreen && (*object)->className() != "LWStill")
        return isNoLayer();
    Result<LayerRecord> record = isScreen ? LWScreen::decode(**object) : LWStill::decode(**object);
    if (!record)
        return failWithin(subject, record.error());
    return LayerArchive::ReadLayer{isScreen ? LayerKind::Wall : LayerKind::Still,
                                   std::make_shared<LayerRecord>(std::move(*record)), (*object)->unknownPart()};
}

LayerPointer makeLayer(const LayerArchive::ReadLayer &read, LayerHost &host)
{
    LayerPointer layer;
    if (read.kind == LayerKind::Wall)
        layer = LWScreen::of(host, read.record);
    else
        layer = LWStill::of(host, read.record);
    layer->setUnknownContent(read.unknown);
    return layer;
}

/// The same values, with all that they refer to.
void takeUnknownOver(Layer &copy, const Layer &original)
{
    copy.setUnknownNames(original.unknownNames());
    copy.setUnknownContent(nullptr);
    if (!original.unknownContent())
        return;
    auto content = std::make_shared<ArchiveObject>(*original.unknownContent());
    ArchivePlace place = content->place();
    place.isCopy = true;
    content->setPlace(place);
    copy.setUnknownContent(content);
}

Result<std::vector<LayerPointer>> copiesOf(const std::vector<LayerPointer> &layers, LayerHost &host)
{
    std::vector<ArchiveValue> records;
    records.reserve(layers.size());
    for (const LayerPointer &layer : layers)
        records.push_back({ArchiveObjectPointer(LayerArchive::recordOf(*layer))});
    const Result<ArchiveValue> archive =
        KeyedArchive::write(ArchiveValue::list(std::move(records))).and_then(LayerArchive::read);
    if (!archive)
        return tl::unexpected(archive.error());
    Result<std::vector<LayerPointer>> copied =
        archive->toList("the root")
            .and_then([&](const ArchiveList &list) { return LayerArchive::decode(*list, "layer"); })
            .map(
                [&](const std::vector<LayerArchive::ReadLayer> &read) { return LayerArchive::makeCopies(read, host); });
    for (std::size_t i = 0; copied && i < layers.size(); ++i)
        takeUnknownOver(*(*copied)[i], *layers[i]);
    return copied;
}
} // namespace

namespace LayerArchive {

Result<KeyedArchive::Contents> readContents(const QByteArray &bytes, KeyedArchive::Vocabulary rest)
{
    rest.classes.insert("LWScreen", LWScreen::archiveKeys());
    rest.classes.insert("LWStill", LWStill::archiveKeys());
    const QStringList runKeys = CableRunArchive::keys();
    rest.classes.insert(CableRunArchive::className, QSet(runKeys.begin(), runKeys.end()));
    for (const LayerValue &value : LayerValues::all()) {
        if (!value.addition)
            continue;
        if (value.addition->form == StoredAs::Runs)
            rest.sharedLists.insert(value.addition->key, CableRunArchive::className);
        else
            rest.sharedKeys.insert(value.addition->key,
                                   [&value](const ArchiveValue &found) { return isTaken(found, value); });
    }
    return KeyedArchive::readContents(bytes, rest);
}

Result<ArchiveValue> read(const QByteArray &bytes)
{
    return readContents(bytes, {}).map([](const KeyedArchive::Contents &contents) { return contents.root; });
}

std::shared_ptr<ArchiveObject> recordOf(const Layer &layer)
{
    auto record = std::make_shared<ArchiveObject>(layer.className());
    layer.encodeWithCoder(*record);
    return record;
}

ArchiveValue encode(const std::vector<LayerPointer> &layers)
{
    std::vector<ArchiveValue> records;
    records.reserve(layers.size());
    for (const LayerPointer &layer : layers) {
        auto record = recordOf(*layer);
        if (const ArchiveObjectPointer &unknown = layer->unknownContent())
            record->encodeUnknownPart(*unknown);
        records.push_back({ArchiveObjectPointer(std::move(record))});
    }
    return ArchiveValue::list(std::move(records));
}

Result<std::vector<ReadLayer>> decode(const std::vector<ArchiveValue> &records, const QString &noun)
{
    if (const Result<void> isKept = LayerLimits::checkCount(std::ssize(records)); !isKept)
        return tl::unexpected(isKept.error());
    std::vector<ReadLayer> layers;
    std::vector<LayerLimits::Listed> decoded;
    for (const ArchiveValue &record : records) {
        Result<ReadLayer> layer = decodeLayer(record, QString("%1 %2").arg(noun).arg(layers.size()));
        if (!layer)
            return tl::unexpected(layer.error());
        decoded.push_back({layer->kind, layer->record});
        layers.push_back(std::move(*layer));
    }
    return LayerLimits::check(decoded).map([&] { return std::move(layers); });
}

std::vector<LayerPointer> make(const std::vector<ReadLayer> &read, LayerHost &host)
{
    std::vector<LayerPointer> layers;
    layers.reserve(read.size());
    for (const ReadLayer &one : read)
        layers.push_back(makeLayer(one, host));
    return layers;
}

std::vector<LayerPointer> makeCopies(const std::vector<ReadLayer> &read, LayerHost &host)
{
    std::vector<ReadLayer> copies = read;
    for (ReadLayer &copy : copies)
        copy.record = LayerValues::asCopy(copy.record);
    return make(copies, host);
}

Result<std::vector<LayerPointer>> copies(const std::vector<LayerPointer> &layers, LayerHost &host)
{
    return Memory::orError([&] { return copiesOf(layers, host); });
}

} // namespace LayerArchive
