#include "app/ProjectFile.h"

#include "app/FileBytes.h"
#include "app/FileKind.h"
#include "app/LayerArchive.h"
#include "app/LayerLimits.h"
#include "archive/KeyedArchive.h"
#include "drawing/Raster.h"

#include <utility>

namespace {
/// Output height and width, the first two elements of the root.
Result<Project> decodeOutputSize(const std::vector<ArchiveValue> &root)
{
    const Result<qint32> height = root[0].toInt32("the output height");
    if (!height)
        return tl::unexpected(height.error());
    const Result<qint32> width = root[1].toInt32("the output width");
    if (!width)
        return tl::unexpected(width.error());
    return ProjectFile::checkOutputSize(*width, *height).map([&] { return Project{*height, *width, {}}; });
}

/// Preset libraries are lists as well, of layers from the first entry on.
bool isPresetLibrary(const ArchiveValue &root)
{
    const ArchiveList *const list = std::get_if<ArchiveList>(&root.storage);
    return list && !(*list)->empty() && std::holds_alternative<ArchiveObjectPointer>((*list)->front().storage);
}
} // namespace

namespace ProjectFile {

Result<void> checkOutputSize(qint64 width, qint64 height)
{
    if (Raster::canHold(width, height))
        return {};
    return fail(QString("the output is %1 x %2 pixels; each side must be 1 to %3 and the whole at most %4 pixels")
                    .arg(width)
                    .arg(height)
                    .arg(Raster::longestSide)
                    .arg(Raster::mostPixels));
}

Result<void> check(const Project &project)
{
    return checkOutputSize(project.outputWidth, project.outputHeight).and_then([&] {
        return LayerLimits::check(project.layers);
    });
}

Result<QByteArray> encode(const Project &project)
{
    const Result<void> isReadable = check(project);
    if (!isReadable)
        return tl::unexpected(isReadable.error());

    return KeyedArchive::write(ArchiveValue::list(
        {{qint64{project.outputHeight}}, {qint64{project.outputWidth}}, LayerArchive::encode(project.layers)}));
}

Result<Project> decode(const QByteArray &bytes, LayerHost &host)
{
    const Result<ArchiveValue> archive = LayerArchive::read(bytes);
    if (!archive)
        return tl::unexpected(archive.error());
    if (isPresetLibrary(*archive))
        return fail("this is no project, but a preset library. Open it with Open library in the presets' menu.");
    const Result<ArchiveList> root = archive->toList("the root");
    if (!root)
        return tl::unexpected(root.error());
    if ((*root)->size() != 3)
        return fail(QString("this is no project: a list of %1, expected output height, output width and layers")
                        .arg((*root)->size()));

    Result<Project> project = decodeOutputSize(**root);
    const Result<ArchiveList> layers = (**root)[2].toList("the layer list");
    if (!project || !layers)
        return tl::unexpected(project ? layers.error() : project.error());
    Result<std::vector<LayerPointer>> decoded = LayerArchive::decode(**layers, "layer", host);
    if (!decoded)
        return tl::unexpected(decoded.error());
    project->layers = std::move(*decoded);
    return project;
}

Result<Project> read(const QString &path, LayerHost &host)
{
    const Result<QByteArray> bytes = FileBytes::read(path, LayerArchive::mostBytes);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<Project> project = FileKind::checkArchive(*bytes, "project").and_then([&] { return decode(*bytes, host); });
    if (!project)
        return failWithin(path, project.error());
    return project;
}

Result<void> write(const QString &path, const Project &project)
{
    const Result<QByteArray> bytes = encode(project);
    if (!bytes)
        return failWithin(path, bytes.error());
    return FileBytes::write(path, *bytes);
}

} // namespace ProjectFile
