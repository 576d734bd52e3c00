#include "tests/psd/ExpectedDocument.h"

#include "tests/psd/ExpectedEffects.h"

#include <QFile>
#include <QPainter>
#include <QRect>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Layer = LayeredDocument::Layer;
using Plane = LayeredDocument::Plane;

/// A pixel of an image of any format, premultiplied.
QRgb pixelOf(const QImage &image, int x, int y)
{
    const uchar *row = image.constScanLine(y);
    switch (image.format()) {
    case QImage::Format_Indexed8:
        return qPremultiply(image.color(row[x]));
    case QImage::Format_Grayscale8:
        return qRgb(row[x], row[x], row[x]);
    case QImage::Format_RGBA8888:
        return qPremultiply(qRgba(row[4 * x], row[4 * x + 1], row[4 * x + 2], row[4 * x + 3]));
    case QImage::Format_RGB32:
        return reinterpret_cast<const QRgb *>(row)[x] | 0xff000000;
    case QImage::Format_ARGB32:
        return qPremultiply(reinterpret_cast<const QRgb *>(row)[x]);
    default:
        return reinterpret_cast<const QRgb *>(row)[x];
    }
}

QImage plainCopy(const QImage &image)
{
    QImage copy(image.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            reinterpret_cast<QRgb *>(copy.scanLine(y))[x] = pixelOf(image, x, y);
    }
    return copy;
}

/// The rows of a layer's pixels as the file holds them, in a place in the document.
struct Patch
{
    QPoint place;
    int width = 0;
    int height = 0;
    std::vector<QRgb> pixels;
};

/// The part of an image that lies in the document. Where the image sticks out above and below, as many rows more follow
/// as stick out above, transparent where the image has ended; the document ends before.
Patch visiblePatch(const PlannedStep &step, const QSize &document)
{
    const QRect visible = QRect(step.offset, step.image.size()) & QRect(QPoint(0, 0), document);
    const bool isTaller = step.offset.y() < 0 && step.offset.y() + step.image.height() > document.height();
    Patch patch{
        visible.topLeft(), visible.width(), isTaller ? document.height() - step.offset.y() : visible.height(), {}};
    for (int y = 0; y < patch.height; ++y) {
        for (int x = 0; x < patch.width; ++x) {
            const QPoint inImage = patch.place - step.offset + QPoint(x, y);
            patch.pixels.push_back(inImage.y() < step.image.height() ? pixelOf(step.image, inImage.x(), inImage.y())
                                                                     : 0);
        }
    }
    return patch;
}

QRgb unpremultiplied(QRgb pixel)
{
    const auto divided = [&](int colour) {
        return qAlpha(pixel) == 0 ? 255 : int(std::min(colour / (qAlpha(pixel) / 255.0), 255.0));
    };
    return qRgba(divided(qRed(pixel)), divided(qGreen(pixel)), divided(qBlue(pixel)), qAlpha(pixel));
}

/// Swaps as if the rows were as long, and as many, as the document's; what has no counterpart stays.
void flip(std::vector<QRgb> &pixels, const QSize &document)
{
    for (int y = 0; y < document.height() / 2; ++y) {
        for (int x = 0; x < document.width(); ++x) {
            const auto upper = std::size_t(qsizetype{document.width()} * y + x);
            const auto lower = std::size_t(qsizetype{document.width()} * (document.height() - y - 1) + x);
            if (lower < pixels.size())
                std::swap(pixels[upper], pixels[lower]);
        }
    }
}

void setSamples(std::vector<Plane> &planes, qsizetype place, QRgb pixel)
{
    const int samples[] = {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)};
    for (std::size_t channel = 0; channel < planes.size(); ++channel)
        planes[channel][place] = char(samples[channel]);
}

std::vector<Plane> layerPlanes(const PlannedStep &step, const PlannedDocument &planned)
{
    Patch patch = visiblePatch(step, planned.size);
    if (step.shouldUnpremultiply)
        std::transform(patch.pixels.begin(), patch.pixels.end(), patch.pixels.begin(), unpremultiplied);
    if (step.shouldFlip)
        flip(patch.pixels, planned.size);

    const qsizetype samples = qsizetype{planned.size.width()} * planned.size.height();
    std::vector<Plane> planes(planned.hasTransparentLayers ? 4 : 3,
                              Plane(samples, planned.hasTransparentLayers ? '\0' : '\xff'));
    for (int y = 0; y < patch.height && patch.place.y() + y < planned.size.height(); ++y) {
        for (int x = 0; x < patch.width; ++x) {
            const qsizetype place = qsizetype{planned.size.width()} * (patch.place.y() + y) + patch.place.x() + x;
            setSamples(planes, place, patch.pixels[std::size_t(qsizetype{patch.width} * y + x)]);
        }
    }
    return planes;
}

std::vector<Plane> mergedPlanes(const PlannedDocument &planned)
{
    QImage merged(planned.size, QImage::Format_ARGB32_Premultiplied);
    merged.fill(planned.hasTransparentLayers ? Qt::transparent : Qt::white);
    QPainter painter(&merged);
    for (const PlannedStep &step : planned.steps) {
        const int opacityByte = int(std::lround(step.opacity * 255)); // the painter cuts off 256ths
        painter.setOpacity(opacityByte == 0 ? 0 : (opacityByte + 1) / 256.0);
        if (step.kind == PlannedStep::AddPicture && !step.image.isNull())
            painter.drawImage(step.offset, plainCopy(step.image));
    }
    painter.end();

    const qsizetype samples = qsizetype{planned.size.width()} * planned.size.height();
    std::vector<Plane> planes(planned.hasTransparentLayers ? 4 : 3, Plane(samples, '\0'));
    for (int y = 0; y < planned.size.height(); ++y) {
        for (int x = 0; x < planned.size.width(); ++x)
            setSamples(planes, qsizetype{planned.size.width()} * y + x, pixelOf(merged, x, y));
    }
    return planes;
}

Layer expectedRecord(const PlannedStep &step, LayeredDocument::Section section)
{
    Layer layer;
    layer.name = section == LayeredDocument::GroupBound ? QString("</Layer group>") : step.name;
    layer.section = section;
    layer.opacity = quint32(std::ceil(step.opacity * 255.0F));
    layer.blendMode = keyOf(step.blendMode);
    if (section != LayeredDocument::GroupBound)
        layer.effects = expectedEffects(step.effects);
    layer.planes = std::vector<Plane>(4);
    return layer;
}

/// The group that an opening step began, as its closing record holds it.
Layer expectedGroup(const PlannedStep &opening, KXPSDBlendMode blendMode)
{
    Layer layer =
        expectedRecord(opening, opening.isOpened ? LayeredDocument::OpenedGroup : LayeredDocument::ClosedGroup);
    layer.blendMode = keyOf(blendMode);
    return layer;
}

/// From bottom to top; groups that are left open end at the top, the innermost first.
std::vector<Layer> expectedLayers(const PlannedDocument &planned)
{
    const QRect document(QPoint(0, 0), planned.size);
    std::vector<Layer> layers;
    std::vector<PlannedStep> open;
    for (const PlannedStep &step : planned.steps) {
        if (step.kind == PlannedStep::OpenGroup) {
            layers.push_back(expectedRecord(step, LayeredDocument::GroupBound));
            open.push_back(step);
        } else if (step.kind == PlannedStep::CloseGroup && !open.empty()) {
            layers.push_back(expectedGroup(open.back(), step.blendMode));
            open.pop_back();
        } else if (step.kind == PlannedStep::AddPicture && document.intersects({step.offset, step.image.size()})) {
            layers.push_back(expectedRecord(step, LayeredDocument::Picture));
            layers.back().planes = layerPlanes(step, planned);
        }
    }
    for (; !open.empty(); open.pop_back())
        layers.push_back(expectedGroup(open.back(), KXPSDBlendMode::normal));
    return layers;
}

std::optional<QByteArray> expectedProfile(qint32 number)
{
    if (number == 0)
        return {};
    const QStringList names{"GenericRGB", "sRGB", "AdobeRGB1998"};
    QFile file(":/colour-profiles/" + names[number - 1]);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "the profile that is missing";
}

} // namespace

LayeredDocument expectedDocument(const PlannedDocument &planned)
{
    LayeredDocument expected;
    expected.width = planned.size.width();
    expected.height = planned.size.height();
    expected.channels = planned.hasTransparentLayers ? 4 : 3;
    const auto perInch = float(planned.resolution * (planned.resolutionUnit == 2 ? 2.54 : 1.0));
    expected.horizontalResolution = quint32(std::llround(double(perInch) * 65536));
    expected.verticalResolution = expected.horizontalResolution;
    expected.resolutionUnit = quint32(planned.resolutionUnit);
    expected.colourProfile = expectedProfile(planned.colorProfile);
    expected.layers = expectedLayers(planned);
    expected.merged = mergedPlanes(planned);
    return expected;
}
