#include "formats/PresetLibrary.h"

#include "archive/KeyedArchive.h"
#include "base/FileBytes.h"
#include "base/Memory.h"
#include "formats/FileKind.h"
#include "layer/LayerLimits.h"
#include "show/LayerArchive.h"

namespace {
/// Projects are lists as well: two numbers, the list of the layers, and whatever else.
bool isProject(const std::vector<ArchiveValue> &root)
{
    return root.size() >= 3 && std::holds_alternative<ArchiveList>(root[2].storage);
}
} // namespace

namespace PresetLibrary {

Result<QByteArray> encode(const std::vector<LayerPointer> &presets)
{
    if (const Result<void> isReadable = LayerLimits::check(presets); !isReadable)
        return tl::unexpected(isReadable.error());
    return KeyedArchive::write(LayerArchive::encode(presets));
}

Result<std::vector<LayerPointer>> decode(const QByteArray &bytes, LayerHost &host)
{
    const Result<ArchiveValue> archive = LayerArchive::read(bytes);
    if (!archive)
        return tl::unexpected(archive.error());
    const Result<ArchiveList> root = archive->toList("the root");
    if (!root)
        return failWithin("this is no preset library", root.error());
    if (isProject(**root))
        return fail("this is a project, no preset library; open it as a project");
    return LayerArchive::decode(**root, "preset").map([&](const std::vector<LayerArchive::ReadLayer> &read) {
        return LayerArchive::make(read, host);
    });
}

Result<std::vector<LayerPointer>> read(const QString &path, LayerHost &host)
{
    const Result<QByteArray> bytes = FileBytes::read(path, LayerArchive::mostBytes);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<std::vector<LayerPointer>> presets = FileKind::checkArchive(*bytes, "preset library").and_then([&] {
        return Memory::orError([&] { return decode(*bytes, host); });
    });
    if (!presets)
        return failWithin(path, presets.error());
    return presets;
}

Result<void> write(const QString &path, const std::vector<LayerPointer> &presets)
{
    const Result<QByteArray> bytes = Memory::orError([&] { return encode(presets); });
    if (!bytes)
        return failWithin(path, bytes.error());
    return FileBytes::write(path, *bytes);
}

} // namespace PresetLibrary
