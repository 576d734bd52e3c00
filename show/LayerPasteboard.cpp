#include "show/LayerPasteboard.h"

#include "archive/KeyedArchive.h"
#include "base/Memory.h"
#include "show/LayerArchive.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {
Result<std::vector<LayerPointer>> layersIn(const QByteArray &bytes, LayerHost &host)
{
    const Result<ArchiveValue> archive = LayerArchive::read(bytes);
    if (!archive)
        return tl::unexpected(archive.error());
    const Result<ArchiveList> records = archive->toList("the root");
    if (!records)
        return tl::unexpected(records.error());
    if ((*records)->empty())
        return fail("there are no layers to paste; copy some first.");
    return LayerArchive::decode(**records, "layer").map([&](const std::vector<LayerArchive::ReadLayer> &read) {
        return LayerArchive::makeCopies(read, host);
    });
}
} // namespace

namespace LayerPasteboard {

Result<void> write(const std::vector<LayerPointer> &layers)
{
    const Result<QByteArray> bytes = Memory::orError([&] { return KeyedArchive::write(LayerArchive::encode(layers)); });
    if (!bytes)
        return tl::unexpected(bytes.error());
    auto *pasteboard = new QMimeData; // the clipboard owns it
    pasteboard->setData(type, *bytes);
    QGuiApplication::clipboard()->setMimeData(pasteboard);
    return {};
}

Result<std::vector<LayerPointer>> read(LayerHost &host)
{
    const QMimeData *pasteboard = QGuiApplication::clipboard()->mimeData();
    if (!pasteboard || !pasteboard->hasFormat(type))
        return fail("there are no layers to paste; copy some first.");
    return decode(pasteboard->data(type), host);
}

Result<std::vector<LayerPointer>> decode(const QByteArray &bytes, LayerHost &host)
{
    return Memory::orError([&] { return layersIn(bytes, host); });
}

bool hasLayers()
{
    const QMimeData *pasteboard = QGuiApplication::clipboard()->mimeData();
    return pasteboard && pasteboard->hasFormat(type);
}

} // namespace LayerPasteboard
