#include "app/ProjectFile.h"

#include "app/FileBytes.h"
#include "archive/KeyedArchive.h"
#include "drawing/Raster.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <memory>
#include <utility>

namespace {
Result<LayerPointer> decodeLayer(const ArchiveValue &value, const QString &subject, LayerHost &host)
{
    const Result<ArchiveObjectPointer> object = value.toObject(subject);
    if (!object)
        return fail(QString("%1 is %2, expected a screen or a still").arg(subject, value.kind()));

    const auto asLayer = [](auto layer) { return LayerPointer(std::move(layer)); };
    Result<LayerPointer> layer;
    if ((*object)->className() == "LWScreen")
        layer = LWScreen::initWithCoder(host, **object).map(asLayer);
    else if ((*object)->className() == "LWStill")
        layer = LWStill::initWithCoder(host, **object).map(asLayer);
    else
        return fail(QString("%1 is %2, expected a screen or a still").arg(subject, value.kind()));
    if (!layer)
        return failWithin(subject, layer.error());
    return layer;
}

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

Result<void> checkLayerCount(qint64 count)
{
    if (count <= mostLayers)
        return {};
    return fail(QString("the project has %1 layers; more than %2 cannot be kept").arg(count).arg(mostLayers));
}

Result<void> checkLayers(const std::vector<LayerPointer> &layers)
{
    if (const Result<void> isKept = checkLayerCount(std::ssize(layers)); !isKept)
        return isKept;
    qint64 pixels = 0;
    for (const LayerPointer &layer : layers) {
        const qint64 width = qint64{layer->col()} * layer->panelWidth();
        const qint64 height = qint64{layer->row()} * layer->panelHeight();
        pixels += Raster::canHold(width, height) ? width * height : 0;
    }
    if (pixels <= mostWallPixels)
        return {};
    return fail(
        QString("the walls have %1 pixels together; more than %2 cannot be held").arg(pixels).arg(mostWallPixels));
}

Result<void> check(const Project &project)
{
    return checkOutputSize(project.outputWidth, project.outputHeight).and_then([&] {
        return checkLayers(project.layers);
    });
}

Result<QByteArray> encode(const Project &project)
{
    const Result<void> isReadable = check(project);
    if (!isReadable)
        return tl::unexpected(isReadable.error());

    std::vector<ArchiveValue> layers;
    layers.reserve(project.layers.size());
    for (const LayerPointer &layer : project.layers) {
        auto object = std::make_shared<ArchiveObject>(layer->className());
        layer->encodeWithCoder(*object);
        layers.push_back({ArchiveObjectPointer(std::move(object))});
    }
    return KeyedArchive::write(ArchiveValue::list(
        {{qint64{project.outputHeight}}, {qint64{project.outputWidth}}, ArchiveValue::list(std::move(layers))}));
}

Result<Project> decode(const QByteArray &bytes, LayerHost &host)
{
    const Result<ArchiveValue> archive = KeyedArchive::read(bytes, {"LWScreen", "LWStill"});
    if (!archive)
        return tl::unexpected(archive.error());
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
    if (const Result<void> isKept = checkLayerCount(std::ssize(**layers)); !isKept)
        return tl::unexpected(isKept.error());
    for (const ArchiveValue &value : **layers) {
        Result<LayerPointer> layer = decodeLayer(value, QString("layer %1").arg(project->layers.size()), host);
        if (!layer)
            return tl::unexpected(layer.error());
        project->layers.push_back(std::move(*layer));
    }
    const Result<void> areHeld = checkLayers(project->layers);
    if (!areHeld)
        return tl::unexpected(areHeld.error());
    return project;
}

Result<Project> read(const QString &path, LayerHost &host)
{
    const Result<QByteArray> bytes = FileBytes::read(path, mostBytes);
    if (!bytes)
        return tl::unexpected(bytes.error());
    Result<Project> project = decode(*bytes, host);
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
