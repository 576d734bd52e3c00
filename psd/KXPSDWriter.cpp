#include "psd/KXPSDWriter.h"

#include "psd/LayerPixels.h"
#include "psd/WholeNumbers.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace {
constexpr float defaultResolution = 72;
constexpr double centimetresPerInch = 2.54;

bool isWholeSide(double side)
{
    return side >= 1 && side <= KXPSDWriter::longestSide && side == std::trunc(side);
}

/// A resolution per inch.
float perInch(float resolution, qint32 unit)
{
    return unit == KXPSDWriter::Centimetres ? static_cast<float>(resolution * centimetresPerInch) : resolution;
}

/// The groups of a list of layers that no closing layer ends, innermost last.
std::vector<std::shared_ptr<KXPSDGroupOpeningLayer>> openGroupsOf(const std::vector<KXPSDWriter::LayerPointer> &layers)
{
    std::vector<std::shared_ptr<KXPSDGroupOpeningLayer>> open;
    for (const auto &layer : layers) {
        if (const auto opening = std::dynamic_pointer_cast<KXPSDGroupOpeningLayer>(layer))
            open.push_back(opening);
        else if (dynamic_cast<const KXPSDGroupClosingLayer *>(layer.get()) && !open.empty())
            open.pop_back();
    }
    return open;
}

/// The painter's opacity by which an opaque pixel gets the byte nearest to `opacity`. It counts in 256ths, of which it
/// cuts off what is left, and takes 255 of 256 of a colour.
double painterOpacity(float opacity)
{
    const double bytes = std::round(qBound(0.0, static_cast<double>(opacity), 1.0) * 255);
    return bytes > 0 ? (bytes + 1) / 256 : 0;
}

/// Applies the flags of a layer to its visible pixels, in their own memory. Error: they cannot be had.
bool applyFlags(KXPSDLayer &layer, const QSizeF &document, KXPSDError *error)
{
    if (!layer.shouldUnpremultiplyLayerData() && !layer.shouldFlipLayerData())
        return true;
    QByteArray pixels = layer.visibleImageData();
    if (pixels.isEmpty() && !layer.croppedImage().isNull()) {
        return KXPSDError::tell(error, KXPSDError::OutOfMemory,
                                QString("Layer \"%1\": there is not enough memory for its pixels.").arg(layer.name()));
    }
    layer.setVisibleImageData({});
    if (layer.shouldUnpremultiplyLayerData())
        LayerPixels::unpremultiply(pixels);
    if (layer.shouldFlipLayerData() && isWholeSide(document.width()) && isWholeSide(document.height()))
        LayerPixels::flip(pixels, WholeNumbers::truncated(document.width()),
                          WholeNumbers::truncated(document.height()));
    layer.setVisibleImageData(std::move(pixels));
    return true;
}
} // namespace

KXPSDWriter::KXPSDWriter() : KXPSDWriter(QSizeF(0, 0)) {}

KXPSDWriter::KXPSDWriter(const QSizeF &documentSize) : KXPSDWriter(documentSize, defaultResolution, Inches) {}

KXPSDWriter::KXPSDWriter(const QSizeF &documentSize, float resolution, qint32 resolutionUnit)
    : KXPSDWriter(documentSize, resolution, resolutionUnit, true, {})
{}

KXPSDWriter::KXPSDWriter(const QSizeF &documentSize, bool hasTransparentLayers, std::vector<LayerPointer> layers)
    : KXPSDWriter(documentSize, defaultResolution, Inches, hasTransparentLayers, std::move(layers))
{}

KXPSDWriter::KXPSDWriter(const QSizeF &documentSize, float resolution, qint32 resolutionUnit, bool hasTransparentLayers,
                         std::vector<LayerPointer> layers)
    : m_documentResolution{perInch(resolution, resolutionUnit), perInch(resolution, resolutionUnit)},
      m_documentResolutionUnit(resolutionUnit), m_hasTransparentLayers(hasTransparentLayers)
{
    setDocumentSize(documentSize); // before there are layers, which keep their own
    setLayers(std::move(layers));
}

KXPSDWriter::~KXPSDWriter() = default;

void KXPSDWriter::setDocumentSize(const QSizeF &size)
{
    if (size.width() == m_documentSize.width() && size.height() == m_documentSize.height())
        return;
    m_documentSize = size;
    for (const LayerPointer &layer : m_layers)
        layer->setDocumentSize(size);
    resetFlattenedContext();
}

void KXPSDWriter::setLayers(std::vector<LayerPointer> layers)
{
    std::erase(layers, nullptr);
    m_layers = std::move(layers);
    m_openGroups = openGroupsOf(m_layers);
}

std::vector<KXPSDWriter::LayerPointer> KXPSDWriter::visibleLayers() const
{
    std::vector<LayerPointer> visible;
    std::copy_if(m_layers.begin(), m_layers.end(), std::back_inserter(visible),
                 [](const LayerPointer &layer) { return layer->hasValidSize(); });
    return visible;
}

QByteArray KXPSDWriter::flattenedData() const
{
    try {
        const QImage pixels = m_flattenedSnapshot.pixels();
        return LayerPixels::blockOf(pixels, pixels.width(), pixels.height());
    } catch (const std::bad_alloc &) {
        return {};
    }
}

KXPSDWriter::LayerPointer KXPSDWriter::addLayerWithCGImage(const QImage &image, const QString &name, float opacity,
                                                           const QPointF &offset)
{
    auto layer = std::make_shared<KXPSDLayer>();
    layer->setDocumentSize(m_documentSize);
    layer->setImage(image);
    layer->setOpacity(opacity);
    layer->setName(name);
    layer->setOffset(offset);
    layer->setNumberOfChannels(numberOfChannels());
    m_layers.push_back(layer);
    addLayerToFlattenedContext(layer.get(), nullptr); // what fails here is told when the file is asked for
    return layer;
}

std::shared_ptr<KXPSDGroupOpeningLayer> KXPSDWriter::openGroupLayerWithName(const QString &name, float opacity,
                                                                            bool isOpened)
{
    auto layer = std::make_shared<KXPSDGroupOpeningLayer>(name, opacity, isOpened);
    layer->setDocumentSize(m_documentSize);
    m_layers.push_back(layer);
    m_openGroups.push_back(layer);
    return layer;
}

std::shared_ptr<KXPSDGroupClosingLayer> KXPSDWriter::closeCurrentGroupLayerWithError(KXPSDError *error)
{
    if (m_openGroups.empty()) {
        KXPSDError::tell(error, KXPSDError::NoOpenedLayer, "There is no opened layer to close");
        return nullptr;
    }
    auto layer = std::make_shared<KXPSDGroupClosingLayer>();
    layer->setDocumentSize(m_documentSize);
    layer->setGroupOpeningLayer(m_openGroups.back());
    m_openGroups.pop_back();
    m_layers.push_back(layer);
    return layer;
}

QByteArray KXPSDWriter::createPSDDataWithError(KXPSDError *error)
{
    try {
        ByteBuffer buffer;
        if (canBeWritten(error) && writeSections(buffer, error))
            return buffer.takeBytes();
    } catch (const std::bad_alloc &) {
        KXPSDError::tellOutOfMemory(error);
    }
    return {};
}

bool KXPSDWriter::canBeWritten(KXPSDError *error) const
{
    if (visibleLayers().empty())
        return KXPSDError::tell(error, KXPSDError::NoVisibleLayers, "No visible layers in the document");
    const auto [width, height] = m_documentSize;
    if (!isWholeSide(width) || !isWholeSide(height)) {
        return KXPSDError::tell(error, KXPSDError::SizeOutOfRange,
                                QString("A layered document cannot be %1 x %2 pixels; give it sides of 1 to %3 pixels.")
                                    .arg(width)
                                    .arg(height)
                                    .arg(longestSide));
    }
    const auto lacksImage = [](const LayerPointer &layer) { return layer->lacksImage(); };
    if (std::any_of(m_layers.begin(), m_layers.end(), lacksImage))
        return KXPSDError::tellOutOfMemory(error);
    if (m_flattenedContext.isNull()) {
        return KXPSDError::tell(
            error, KXPSDError::OutOfMemory,
            QString("There is not enough memory for a merged picture of %1 x %2 pixels.").arg(width).arg(height));
    }
    return true;
}

bool KXPSDWriter::writeSections(ByteBuffer &buffer, KXPSDError *error)
{
    if (!preprocess(error))
        return false;
    buffer.reserve(likelyBytes());
    writeFileHeaderSectionOn(buffer);
    writeColorModeDataSectionOn(buffer);
    writeImageResourceSectionOn(buffer);
    return writeLayerAndMaskInformationSectionOn(buffer, error) && writeImageDataSectionOn(buffer, error) &&
           tellProgress(1, error);
}

/// A quarter of what the pixels are before they are packed; charts pack to an eighth, pictures grow beyond it.
qint64 KXPSDWriter::likelyBytes() const
{
    double pixels = m_documentSize.width() * m_documentSize.height();
    for (const LayerPointer &layer : visibleLayers()) {
        const QRectF region = layer->imageInDocumentRegion();
        pixels += region.width() * region.height();
    }
    const double bytes = pixels * LayerPixels::bytesPerPixel / 4;
    return bytes > 0 && bytes < static_cast<double>(mostBytes) ? static_cast<qint64>(bytes) : 0;
}

void KXPSDWriter::resetFlattenedContext()
{
    m_flattenedContext = {};
    if (m_documentSize.width() <= 0 && m_documentSize.height() <= 0)
        return;
    using Background = MergedPicture::Background;
    m_flattenedContext =
        MergedPicture(WholeNumbers::truncated(m_documentSize.width()), WholeNumbers::truncated(m_documentSize.height()),
                      m_hasTransparentLayers ? Background::Transparent : Background::White);

    // Both lists by the same index: where layers are not visible, others are given the size than are drawn. Kept, since
    // files are compared to the byte.
    std::vector<LayerPointer> visible = visibleLayers();
    for (std::size_t i = 0; i < visible.size(); ++i) {
        const bool wasVisible = m_layers[i]->hasValidSize();
        m_layers[i]->setDocumentSize(m_documentSize);
        if (m_layers[i]->hasValidSize() != wasVisible)
            visible = visibleLayers();
        if (i < visible.size())
            addLayerToFlattenedContext(visible[i].get(), nullptr);
    }
}

bool KXPSDWriter::addLayerToFlattenedContext(const KXPSDLayer *layer, KXPSDError *error)
{
    if (!(m_documentSize.width() > 0 && m_documentSize.height() > 0)) {
        return KXPSDError::tell(error, KXPSDError::ZeroDocumentSize,
                                "You must specify a non-zero documentSize before adding a layer");
    }
    const QImage image = layer ? layer->croppedImage() : QImage();
    bool isDone = !m_flattenedContext.isNull();
    if (isDone && !image.isNull()) {
        // As large as the image, which at the document's edges is not always as large as its region. It stands as far
        // from the lower edge as in the document, whose height may have a fraction more than the picture's.
        const QPointF topLeft = layer->imageInDocumentRegion().topLeft();
        const double below = m_documentSize.height() - topLeft.y() - image.height();
        const QRectF target(topLeft.x(), m_flattenedContext.size().height() - below - image.height(), image.width(),
                            image.height());
        isDone = m_flattenedContext.draw(image, target, painterOpacity(layer->opacity()));
    }
    return isDone ||
           KXPSDError::tell(error, KXPSDError::OutOfMemory, "There is not enough memory for the merged picture.");
}

bool KXPSDWriter::preprocess(KXPSDError *error)
{
    m_flattenedSnapshot = m_flattenedContext;
    for (const LayerPointer &layer : m_layers) {
        if (!applyFlags(*layer, m_documentSize, error))
            return false;
    }
    for (qint64 unclosed = groupBalance(); unclosed > 0; --unclosed)
        closeCurrentGroupLayer();
    return true;
}

/// Opening layers less closing ones.
qint64 KXPSDWriter::groupBalance() const
{
    qint64 balance = 0;
    for (const LayerPointer &layer : m_layers) {
        if (dynamic_cast<const KXPSDGroupOpeningLayer *>(layer.get()))
            ++balance;
        else if (dynamic_cast<const KXPSDGroupClosingLayer *>(layer.get()))
            --balance;
    }
    return balance;
}
