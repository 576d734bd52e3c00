#include "formats/PSDExport.h"

#include "drawing/Raster.h"
#include "facts/MissingPicture.h"
#include "facts/PsdLimits.h"
#include "layer/PixelBox.h"
#include "psd/KXPSDWriter.h"
#include "screen/LostWall.h"
#include "still/LWStill.h"

#include <QRect>

#include <optional>

namespace {
/// How much of making the bytes it is to add the layers, which draws the walls whose pictures nobody has asked for.
constexpr double addingShare = 0.2;
/// How much of the whole it is to make the bytes; a slow disk takes more than the rest.
constexpr double encodingShare = 0.7;

/// The progress of a part of the work.
PSDExport::Progress shareOf(const PSDExport::Progress &whole, double begin, double end)
{
    if (!whole)
        return {};
    return [&whole, begin, end](double done) { return whole(begin + (end - begin) * done); };
}

/// The part of an axis that a picture covers, in pixels of the output.
struct Span
{
    qint64 start;
    qint64 length;

    /// Sticks out of the output at both of its ends.
    bool overhangsBothEndsOf(int output) const { return start < 0 && start + length > output; }
};

struct PictureAtPlace
{
    QImage picture;
    QPoint topLeft; ///< in pixels of the output
};

/// Rows longer than the document are what the writer makes of a picture that sticks out at both sides, and no editor
/// reads them: there the picture is cut to the output. Any other one goes as it is.
PictureAtPlace readablePart(const Layer &layer, const QSize &output)
{
    const QImage picture = layer.thumbnail();
    const QPoint place(layer.xpoint(), layer.ypoint());
    const bool cutsWidth = Span{place.x(), picture.width()}.overhangsBothEndsOf(output.width());
    const bool cutsHeight = Span{place.y(), picture.height()}.overhangsBothEndsOf(output.height());
    if (!cutsWidth && !cutsHeight)
        return {picture, place};

    const QRect inside(cutsWidth ? -place.x() : 0, cutsHeight ? -place.y() : 0,
                       cutsWidth ? output.width() : picture.width(), cutsHeight ? output.height() : picture.height());
    return {Raster::view(picture, inside), place + inside.topLeft()};
}

/// The length of a name has one byte in the file; editors refuse one where it wrapped.
QString readableName(const QString &label)
{
    constexpr qsizetype longest = 255;
    if (label.size() <= longest)
        return label;
    const bool splitsPair = label.at(longest - 1).isHighSurrogate() && label.at(longest).isLowSurrogate();
    return label.left(splitsPair ? longest - 1 : longest);
}

Result<void> addLayer(KXPSDWriter &writer, Layer &layer, const QSize &output, int &screenNumber)
{
    ++screenNumber;
    if (layer.label().isEmpty())
        layer.setLabel(QString::asprintf("Untitled %i", screenNumber));
    const PictureAtPlace part = readablePart(layer, output);
    if (const std::optional<QString> lost = layer.visible() ? LostWall::sentenceOf(layer) : std::nullopt)
        return fail(*lost);
    writer.addLayerWithCGImage(part.picture, readableName(layer.label()), layer.visible() ? 1.0F : 0.0F, part.topLeft);
    return {};
}

/// Adds the layers, the topmost last; returns whether it was not cancelled.
Result<bool> addLayers(KXPSDWriter &writer, const Project &project, int &screenNumber,
                       const PSDExport::Progress &progress)
{
    const QSize output(project.outputWidth, project.outputHeight);
    const auto count = static_cast<double>(project.layers.size());
    double done = 0;
    for (auto layer = project.layers.rbegin(); layer != project.layers.rend(); ++layer) {
        if (progress && !progress(done++ / count))
            return false;
        if (const Result<void> added = addLayer(writer, **layer, output, screenNumber); !added)
            return tl::unexpected(added.error());
    }
    return true;
}

Result<QByteArray> bytesOf(KXPSDWriter &writer)
{
    KXPSDError error;
    const QByteArray bytes = writer.createPSDDataWithError(&error);
    if (!bytes.isEmpty() || error.code == KXPSDError::Cancelled)
        return bytes;
    if (error.code == KXPSDError::NoVisibleLayers)
        return fail(error.message + "; put a layer with a picture on the output");
    return fail(error.message);
}

std::optional<QString> whyLeftOut(const Layer &layer)
{
    const std::optional<QString> lost = LostWall::sentenceOf(layer);
    return lost ? lost : MissingPicture::sentenceOf(layer);
}

std::optional<QString> howResized(const Layer &layer, const QSize &output)
{
    const QSize own = layer.thumbnail().size();
    const QSize shown(layer.screenSizeWidth(), layer.screenSizeHeight());
    const PixelBox place{{layer.xpoint(), qint64{layer.xpoint()} + own.width()},
                         {layer.ypoint(), qint64{layer.ypoint()} + own.height()}};
    const bool isStill = qobject_cast<const LWStill *>(&layer) != nullptr;
    if (!isStill || own == shown || !place.meets({{0, output.width()}, {0, output.height()}}))
        return std::nullopt;
    return QString("%1 went in at its own size, %2 x %3; on the output it is %4 x %5")
        .arg(MissingPicture::nameOf(layer), QString::number(own.width()), QString::number(own.height()),
             QString::number(shown.width()), QString::number(shown.height()));
}
} // namespace

namespace PSDExport {

QStringList leftOut(const Project &project)
{
    QStringList sentences;
    for (const LayerPointer &layer : project.layers) {
        if (const std::optional<QString> reason = whyLeftOut(*layer))
            sentences.append(*reason);
    }
    return sentences;
}

QStringList resized(const Project &project)
{
    QStringList sentences;
    for (const LayerPointer &layer : project.layers) {
        if (const auto sizes = howResized(*layer, {project.outputWidth, project.outputHeight}))
            sentences.append(*sizes);
    }
    return sentences;
}

Result<QByteArray> encode(const Project &project, int &screenNumber, const Progress &progress)
{
    if (const Result<void> fits = PsdLimits::checkOutputSize(project.outputWidth, project.outputHeight); !fits)
        return tl::unexpected(fits.error());

    KXPSDWriter writer(QSizeF(project.outputWidth, project.outputHeight));
    writer.setProgress(shareOf(progress, addingShare, 1));
    return addLayers(writer, project, screenNumber, shareOf(progress, 0, addingShare)).and_then([&](bool isWhole) {
        return isWhole ? bytesOf(writer) : Result<QByteArray>();
    });
}

Result<Outcome> write(const QString &path, const Project &project, int &screenNumber, const Progress &progress)
{
    // The writer has gone by now: from here on only the bytes themselves take memory.
    const Result<QByteArray> bytes = encode(project, screenNumber, shareOf(progress, 0, encodingShare));
    if (!bytes)
        return failWithin(path, bytes.error());
    if (bytes->isEmpty())
        return Outcome::Cancelled;
    return FileBytes::write(path, *bytes, shareOf(progress, encodingShare, 1));
}

} // namespace PSDExport
