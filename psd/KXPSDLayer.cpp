#include "psd/KXPSDLayer.h"

#include "drawing/Raster.h"
#include "psd/LayerPixels.h"
#include "psd/PackedChannels.h"
#include "psd/PascalString.h"
#include "psd/WholeNumbers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <new>
#include <utility>

namespace {
constexpr int colourChannels = 3;
constexpr qint64 longestPackedRow = std::numeric_limits<quint16>::max();

/// Where things lie in a layer's record.
constexpr qsizetype rectangleAndCountBytes = 18;
constexpr qsizetype channelBytes = 6;
constexpr qsizetype channelIdBytes = 2;

/// A region in whole pixels, fractions cut off, of no negative size.
struct WholeRegion
{
    explicit WholeRegion(const QRectF &region)
        : x(WholeNumbers::truncated(region.x())), y(WholeNumbers::truncated(region.y())),
          width(std::max<qint64>(WholeNumbers::truncated(region.width()), 0)),
          height(std::max<qint64>(WholeNumbers::truncated(region.height()), 0))
    {}

    /// As much as is ever made of one layer: what a raster may have.
    bool isTooLarge(qint64 rows) const { return width > 0 && rows > Raster::mostPixels / width; }

    qint64 x, y, width, height;
};

/// Where an image's side begins, and how much of it counts, on one axis.
struct Extent
{
    double start;
    double length;
};

Extent cropped(double imageLength, double offset, double documentLength)
{
    Extent extent{0, imageLength};
    if (offset < 0)
        extent = {-offset, imageLength + offset};
    if (imageLength + offset > documentLength)
        extent.length = documentLength - offset;
    return extent;
}

/// At least 0 first, then at most the document's side. What is not a number counts as 0.
double placed(double offset, double documentLength)
{
    return std::min(std::max(0.0, offset), documentLength);
}

/// Where pixels stand in a document of `width` x `height` pixels. Margins below a whole pixel do not count.
Placement placementOf(const WholeRegion &region, const QSizeF &document, uchar blank)
{
    const auto rows = WholeNumbers::truncated(std::ceil(document.height()));
    const auto columns = WholeNumbers::truncated(std::ceil(document.width()));
    return {rows, columns, region.y, region.x, std::max<qint64>(columns - region.x - region.width, 0), blank};
}

bool isLongerThanCounts(const PackedChannel &channel)
{
    const auto isTooLong = [](quint32 count) { return count > longestPackedRow; };
    return std::any_of(channel.begin(), channel.end(), [isTooLong](const PackedRows &rows) {
        return std::any_of(rows.counts.begin(), rows.counts.end(), isTooLong);
    });
}

QString regionText(const QRectF &region)
{
    const auto number = [](double value) { return QString::number(value, 'f', 6); };
    return QString("(%1, %2, %3, %4)")
        .arg(number(region.x()), number(region.y()), number(region.width()), number(region.height()));
}
} // namespace

/// The pixels of the crop region with what holds them.
struct KXPSDLayer::VisiblePixels
{
    QByteArray block;
    QImage image;
    PixelView view;
};

KXPSDLayer::KXPSDLayer() : KXPSDLayer(4, 1, false, false, KXPSDBlendMode::normal) {}

KXPSDLayer::KXPSDLayer(qint64 numberOfChannels, float opacity, bool shouldFlipLayerData,
                       bool shouldUnpremultiplyLayerData, KXPSDBlendMode blendMode)
{
    setNumberOfChannels(numberOfChannels);
    setOpacity(opacity);
    setShouldFlipLayerData(shouldFlipLayerData);
    setShouldUnpremultiplyLayerData(shouldUnpremultiplyLayerData);
    setBlendMode(blendMode);
}

KXPSDLayer::~KXPSDLayer() = default;

void KXPSDLayer::setImage(const QImage &image)
{
    const bool isOwn = !m_image.isNull() && image.cacheKey() == m_image.cacheKey();
    if (isOwn || image.cacheKey() == m_sourceKey)
        return;
    m_image = image.convertToFormat(Raster::format);
    m_sourceKey = image.cacheKey();
    m_visibleImageData.clear();
}

void KXPSDLayer::setDocumentSize(const QSizeF &size)
{
    if (size.width() != m_documentSize.width() && size.height() != m_documentSize.height())
        m_documentSize = size;
    m_visibleImageData.clear();
}

QRectF KXPSDLayer::imageCropRegion() const
{
    const Extent across = cropped(m_image.width(), m_offset.x(), m_documentSize.width());
    const Extent down = cropped(m_image.height(), m_offset.y(), m_documentSize.height());
    return {across.start, down.start, across.length, down.length};
}

QRectF KXPSDLayer::imageInDocumentRegion() const
{
    const QPointF origin(placed(m_offset.x(), m_documentSize.width()), placed(m_offset.y(), m_documentSize.height()));
    return {origin, imageCropRegion().size()};
}

QImage KXPSDLayer::croppedImage() const
{
    const WholeRegion crop(imageCropRegion());
    const qint64 width = std::min(crop.width, m_image.width() - crop.x);
    const qint64 height = std::min(crop.height, m_image.height() - crop.y);
    if (width <= 0 || height <= 0)
        return {};
    return Raster::view(m_image, QRect(static_cast<int>(crop.x), static_cast<int>(crop.y), static_cast<int>(width),
                                       static_cast<int>(height)));
}

bool KXPSDLayer::hasValidSize() const
{
    const QRectF region = imageCropRegion();
    return region.width() > 0 && region.height() > 0;
}

const QByteArray &KXPSDLayer::visibleImageData()
{
    const WholeRegion crop(imageCropRegion());
    if (m_visibleImageData.size() == crop.width * crop.height * LayerPixels::bytesPerPixel)
        return m_visibleImageData;
    m_visibleImageData.clear();
    if (crop.isTooLarge(crop.height))
        return m_visibleImageData;
    try {
        m_visibleImageData = LayerPixels::blockOf(croppedImage(), crop.width, crop.height);
    } catch (const std::bad_alloc &) {
        // stays empty, which says it
    }
    return m_visibleImageData;
}

KXPSDLayer::VisiblePixels KXPSDLayer::visiblePixels() const
{
    const WholeRegion crop(imageCropRegion());
    const auto rgba = [&](const QByteArray &block, qint64 rows) {
        const auto *const pixels = reinterpret_cast<const uchar *>(block.constData());
        return PixelView{pixels, crop.width * LayerPixels::bytesPerPixel, crop.width, rows};
    };

    VisiblePixels visible;
    if (m_visibleImageData.size() == crop.width * crop.height * LayerPixels::bytesPerPixel) {
        visible.block = m_visibleImageData;
        visible.view = rgba(visible.block, crop.height);
        return visible;
    }
    visible.image = croppedImage();
    visible.view = PixelView::ofRaster(visible.image);
    if (crop.width > visible.image.width()) { // the region ends beyond the image
        const qint64 rows = std::min<qint64>(visible.image.height(), longestDocumentSide);
        visible.block = LayerPixels::blockOf(visible.image, crop.width, rows);
        visible.view = rgba(visible.block, rows);
    }
    return visible;
}

bool KXPSDLayer::canBePacked(KXPSDError *error) const
{
    const auto [width, height] = m_documentSize;
    if (!(width >= 1 && width <= longestDocumentSide && height >= 1 && height <= longestDocumentSide)) {
        return KXPSDError::tell(
            error, KXPSDError::SizeOutOfRange,
            QString("Layer \"%1\": its document is %2 x %3 pixels; sides must be 1 to %4.")
                .arg(m_name, QString::number(width), QString::number(height), QString::number(longestDocumentSide)));
    }
    const WholeRegion crop(imageCropRegion());
    if (crop.isTooLarge(std::min(crop.height, WholeNumbers::truncated(height)))) {
        return KXPSDError::tell(error, KXPSDError::TooMuchForFile,
                                QString("Layer \"%1\": its image is too large; make it smaller.").arg(m_name));
    }
    return true;
}

std::vector<QByteArray> KXPSDLayer::layerChannels(KXPSDError *error) const
{
    ByteBuffer buffer;
    const std::vector<qint64> lengths = writeLayerChannelsOn(buffer, error);
    std::vector<QByteArray> blocks;
    qsizetype start = 0;
    for (const qint64 length : lengths) {
        blocks.push_back(buffer.bytes().mid(start, length));
        start += length;
    }
    return blocks;
}

std::vector<qint64> KXPSDLayer::writeLayerChannelsOn(ByteBuffer &buffer, KXPSDError *error) const
{
    ChannelPacker packer;
    return writeLayerChannelsOn(buffer, packer, error);
}

std::vector<qint64> KXPSDLayer::writeLayerChannelsOn(ByteBuffer &buffer, ChannelPacker &packer, KXPSDError *error) const
{
    try {
        return writeChannels(buffer, packer, error);
    } catch (const std::bad_alloc &) {
        KXPSDError::tell(error, KXPSDError::OutOfMemory,
                         QString("Layer \"%1\": there is not enough memory to pack it.").arg(m_name));
        return {};
    }
}

std::vector<qint64> KXPSDLayer::writeChannels(ByteBuffer &buffer, ChannelPacker &packer, KXPSDError *error) const
{
    if (!canBePacked(error))
        return {};
    const VisiblePixels visible = visiblePixels();
    const uchar blank = m_numberOfChannels > colourChannels ? 0 : 255;
    const Placement placement = placementOf(WholeRegion(imageInDocumentRegion()), m_documentSize, blank);
    const auto channels = packer.pack(visible.view, placement, static_cast<int>(m_numberOfChannels));
    if (std::any_of(channels.begin(), channels.end(), isLongerThanCounts)) {
        KXPSDError::tell(error, KXPSDError::TooMuchForFile,
                         QString("Layer \"%1\": it sticks out of the document on both sides, with rows longer than "
                                 "files can hold; cut its image to the document.")
                             .arg(m_name));
        return {};
    }

    return appendOneByOne(buffer, channels);
}

void KXPSDLayer::writeLayerInformationOn(ByteBuffer &buffer)
{
    ByteBuffer channels;
    writeLayerRecordOn(buffer, writeLayerChannelsOn(channels));
}

void KXPSDLayer::writeLayerRecordOn(ByteBuffer &buffer, std::span<const qint64> channelLengths)
{
    const qsizetype record = buffer.length();
    buffer.kxAppendValue(0, 4); // top
    buffer.kxAppendValue(0, 4); // left
    buffer.kxAppendValue(WholeNumbers::truncated(m_documentSize.height()), 4);
    buffer.kxAppendValue(WholeNumbers::truncated(m_documentSize.width()), 4);
    buffer.kxAppendValue(m_numberOfChannels, 2);
    for (int channel = 0; channel < colourChannels; ++channel) {
        buffer.kxAppendValue(channel, 2);
        buffer.kxAppendValue(0, 4);
    }
    if (m_numberOfChannels > colourChannels) {
        buffer.append("\xff\xff"); // transparency is channel -1
        buffer.kxAppendValue(0, 4);
    }
    const auto channels = static_cast<std::size_t>(m_numberOfChannels);
    replaceChannelLengths(buffer, record, channelLengths.first(std::min(channels, channelLengths.size())));

    buffer.kxAppendUTF8String(u"8BIM");
    buffer.append(m_blendMode.key());
    buffer.kxAppendValue(WholeNumbers::truncated(std::ceil(m_opacity * 255.0F)), 1);
    buffer.kxAppendValue(0, 1); // clipping
    buffer.kxAppendValue(0, 1); // flags
    buffer.kxAppendValue(0, 1); // filler
    const ByteBuffer extra = extraLayerInformation();
    buffer.kxAppendValue(extra.length(), 4);
    buffer.append(extra);
}

void KXPSDLayer::replaceChannelLengths(ByteBuffer &buffer, qsizetype record, std::span<const qint64> channelLengths)
{
    qsizetype position = record + rectangleAndCountBytes + channelIdBytes;
    for (const qint64 length : channelLengths) {
        buffer.replaceValue(position, length, 4);
        position += channelBytes;
    }
}

ByteBuffer KXPSDLayer::extraLayerInformation()
{
    ByteBuffer extra;
    extra.kxAppendValue(0, 4); // no mask
    extra.kxAppendValue(0, 4); // no blending ranges
    writeNameOn(extra);
    writeEffectsLayerOn(extra);
    writeUnicodeNameOn(extra);
    return extra;
}

void KXPSDLayer::writeName(ByteBuffer &buffer, QStringView name)
{
    const QString withSpace = name.toString() + ' ';
    buffer.kxAppendValue(name.size(), 1);
    buffer.append(PascalString::kxPascalStringPaddedTo(withSpace, 4)
                      .left(PascalString::kxPascalStringLengthPaddedTo(withSpace, 4) - 1));
}

void KXPSDLayer::writeUnicodeName(ByteBuffer &buffer, QStringView name)
{
    buffer.kxAppendUTF8String(u"8BIM");
    buffer.kxAppendUTF8String(u"luni");
    buffer.kxAppendValue(2 * name.size() + 4, 4);
    buffer.kxAppendValue(name.size(), 4);
    for (const QChar unit : name)
        buffer.kxAppendValue(unit.unicode(), 2);
}

QString KXPSDLayer::description() const
{
    const auto address = QString::number(reinterpret_cast<quintptr>(this), 16);
    return QString("(super: <KXPSDLayer: 0x%1>): Layer named '").arg(address) + m_name +
           QString("' (opacity: %1). Image Crop Region: %2. Image In Document Region %3")
               .arg(QString::number(static_cast<double>(m_opacity), 'f', 6), regionText(imageCropRegion()),
                    regionText(imageInDocumentRegion()));
}
