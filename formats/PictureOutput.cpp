#include "formats/PictureOutput.h"

#include "facts/MissingPicture.h"
#include "formats/PSDExport.h"
#include "formats/PngFile.h"
#include "output/Composition.h"
#include "output/LostPicture.h"
#include "screen/LostWall.h"
#include "still/LWStill.h"

namespace {
/// Error: layers could not be drawn, or fitted in.
Result<QImage> composed(const Project &project, const PictureSettings &settings)
{
    const QSize size(project.outputWidth, project.outputHeight);
    return LostWall::check(project.layers).and_then([&]() -> Result<QImage> {
        Composition composition;
        composition.compose(placedPictures(project.layers), {size, settings.background, settings.edge});
        return LostPicture::check(composition.composed(), size, project.layers).map([&] {
            return composition.output();
        });
    });
}

Result<void> writeOutput(const QString &path, const Project &project, const PictureSettings &settings)
{
    const Result<QImage> picture = composed(project, settings);
    if (!picture)
        return failWithin(path, picture.error());
    return PngFile::write(path, *picture);
}

std::optional<QString> reasonForNoPicture(const Layer &layer)
{
    if (const auto *still = qobject_cast<const LWStill *>(&layer))
        return MissingPicture::reason(*still);
    const auto [width, height] = LostWall::sizeOf(layer);
    if (width <= 0 || height <= 0)
        return QString("it is %1 x %2 pixels").arg(width).arg(height);
    const bool isLost = LostWall::isTooLarge(width, height) || layer.thumbnail().isNull();
    return isLost ? std::optional(LostWall::reason(width, height)) : std::nullopt;
}
} // namespace

namespace PictureOutput {

std::optional<QString> reasonForNoPicture(const Project &project, int layer)
{
    const auto reason = ::reasonForNoPicture(*project.layers[static_cast<std::size_t>(layer)]);
    if (!reason)
        return std::nullopt;
    return QString("layer %1 has no picture: %2").arg(QString::number(layer), *reason);
}

Result<void> writePng(const QString &path, const Project &project, const PictureSettings &settings)
{
    if (!settings.layer)
        return writeOutput(path, project, settings);
    if (*settings.layer >= std::ssize(project.layers))
        return fail(QString("%1: there is no layer %2; the project has %3, counted from 0")
                        .arg(path, QString::number(*settings.layer), QString::number(project.layers.size())));
    if (const auto reason = reasonForNoPicture(project, *settings.layer))
        return fail(path + ": " + *reason);
    return PngFile::write(path, project.layers[static_cast<std::size_t>(*settings.layer)]->thumbnail());
}

Result<void> writePsd(const QString &path, const Project &project)
{
    // The export names layers that have no label; other outputs hold the project as it was read.
    QStringList labels;
    for (const LayerPointer &layer : project.layers)
        labels.append(layer->label());
    int screenNumber = 0;
    const auto written = PSDExport::write(path, project, screenNumber);
    for (const LayerPointer &layer : project.layers)
        layer->setLabel(labels.takeFirst());
    return written.map([](PSDExport::Outcome) {});
}

} // namespace PictureOutput
