#pragma once

#include "psd/ByteBuffer.h"
#include "psd/KXPSDBlendMode.h"
#include "psd/KXPSDEffects.h"
#include "psd/KXPSDError.h"

#include <QByteArray>
#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <span>
#include <vector>

class ChannelPacker;

/// One image layer of a layered document: an image at its place, with a name, an opacity, a blend mode and effects.
/// Its record and its channels always span the whole document; what the image does not cover is transparent black, in a
/// layer of three channels opaque white. Document coordinates are pixels from the top-left corner, y down.
class KXPSDLayer
{
public:
    /// Most pixels on a side of a document.
    static constexpr int longestDocumentSide = 30000;

    /// Four channels, opaque, data as it is, blended normally.
    KXPSDLayer();
    KXPSDLayer(qint64 numberOfChannels, float opacity, bool shouldFlipLayerData, bool shouldUnpremultiplyLayerData,
               KXPSDBlendMode blendMode);
    virtual ~KXPSDLayer();
    KXPSDLayer(const KXPSDLayer &) = delete;
    KXPSDLayer &operator=(const KXPSDLayer &) = delete;

    const QString &name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    /// The layer's own picture, in raster format (drawing/Raster.h); an image of another format is converted when it is
    /// set. Sharing makes it private: whoever changes the original changes a copy. Setting the same one does nothing.
    const QImage &image() const { return m_image; }
    void setImage(const QImage &image);
    /// An image was set, but the memory for its conversion could not be had: image() is null.
    bool lacksImage() const { return m_image.isNull() && m_sourceKey != 0; }
    /// 0 to 1; any other value is written by the low byte of its product with 255.
    float opacity() const { return m_opacity; }
    void setOpacity(float opacity) { m_opacity = opacity; }
    /// Where the image's top-left corner stands in the document; may be negative.
    const QPointF &offset() const { return m_offset; }
    void setOffset(const QPointF &offset) { m_offset = offset; }
    /// Size of the whole document in pixels. A new one is stored only when both its width and its height differ from
    /// the stored ones: kept, since files are compared to the byte.
    const QSizeF &documentSize() const { return m_documentSize; }
    void setDocumentSize(const QSizeF &size);
    /// 3 (colour) or 4 (colour and transparency); the setter takes the nearer one.
    qint64 numberOfChannels() const { return m_numberOfChannels; }
    void setNumberOfChannels(qint64 count) { m_numberOfChannels = qBound(qint64{3}, count, qint64{4}); }
    /// The document writer turns the visible image data upside down.
    bool shouldFlipLayerData() const { return m_shouldFlipLayerData; }
    void setShouldFlipLayerData(bool flip) { m_shouldFlipLayerData = flip; }
    /// The document writer divides its colours by alpha.
    bool shouldUnpremultiplyLayerData() const { return m_shouldUnpremultiplyLayerData; }
    void setShouldUnpremultiplyLayerData(bool divide) { m_shouldUnpremultiplyLayerData = divide; }
    KXPSDBlendMode blendMode() const { return m_blendMode; }
    void setBlendMode(KXPSDBlendMode mode) { m_blendMode = mode; }

    /// The effects; nullopt where there is none of the kind.
    const KXPSDLayerEffects &effects() const { return m_effects; }
    KXPSDLayerEffects &effects() { return m_effects; }

    /// The part of the image that is written, in image pixels. Where the image sticks out of the document on both sides
    /// of an axis, the region is longer than the document and may end beyond the image: kept, since files are compared
    /// to the byte.
    QRectF imageCropRegion() const;
    /// Where that part stands in the document.
    QRectF imageInDocumentRegion() const;
    /// The image as far as its crop region reaches, fractions cut off: a view into the image's own memory, which it
    /// keeps. Null where they have nothing in common.
    QImage croppedImage() const;
    /// Whether the crop region has any pixels; layers without are left out of files.
    virtual bool hasValidSize() const;

    /// The pixels of the crop region: rows of whole width from the top down, red, green, blue and alpha premultiplied
    /// with alpha, transparent where there is no image. Made when first asked for and kept until image or document size
    /// are set, or an offset leaves a region of another size. Empty where there is nothing, or the memory cannot be
    /// had.
    const QByteArray &visibleImageData();
    /// Replaces those pixels; a block of another length counts as none.
    void setVisibleImageData(QByteArray pixels) { m_visibleImageData = std::move(pixels); }

    /// One block per channel: 2 bytes compression (1), 2 bytes of length for each row, then the rows as PackBits.
    /// Error: no blocks, since the document's sides are not from 1 to 30,000 pixels, a packed row is longer than
    /// 65,535 bytes, or the memory cannot be had.
    std::vector<QByteArray> layerChannels(KXPSDError *error = nullptr) const;

    /// Appends the layer's record, with the lengths of its channels; they are packed for it.
    void writeLayerInformationOn(ByteBuffer &buffer);
    /// Appends the layer's record with given lengths of its channels; those not given are 0.
    virtual void writeLayerRecordOn(ByteBuffer &buffer, std::span<const qint64> channelLengths);
    /// Puts lengths, no more than it has channels, into a record that begins at `record`.
    static void replaceChannelLengths(ByteBuffer &buffer, qsizetype record, std::span<const qint64> channelLengths);
    /// Appends these blocks in order; returns their lengths. Error: no lengths, as there; of the blocks a part may have
    /// been appended.
    std::vector<qint64> writeLayerChannelsOn(ByteBuffer &buffer, KXPSDError *error = nullptr) const;
    /// The same with a packer that keeps its memory from layer to layer.
    std::vector<qint64> writeLayerChannelsOn(ByteBuffer &buffer, ChannelPacker &packer, KXPSDError *error) const;

    /// The end of the record: no mask, no blending ranges, the name, the effects, the name in Unicode.
    virtual ByteBuffer extraLayerInformation();
    /// Appends the name as a length byte and UTF-8, together a multiple of 4 bytes. A name of more than 255 UTF-16
    /// units gets the low byte of its length, as all others.
    void writeNameOn(ByteBuffer &buffer) const { writeName(buffer, m_name); }
    /// Appends the name as a "luni" block.
    void writeUnicodeNameOn(ByteBuffer &buffer) const { writeUnicodeName(buffer, m_name); }

    /// Appends the "lrFX" block, where at least one effect is enabled; then it holds all of them.
    void writeEffectsLayerOn(ByteBuffer &buffer) const;
    /// One record each. An effect that the layer does not have is written as a disabled one with its defaults.
    void writeEffectsLayerCommonStateOn(ByteBuffer &buffer) const;
    void writeEffectsLayerDropShadowOn(ByteBuffer &buffer) const;
    void writeEffectsLayerInnerShadowOn(ByteBuffer &buffer) const;
    void writeEffectsLayerOuterGlowOn(ByteBuffer &buffer) const;
    void writeEffectsLayerInnerGlowOn(ByteBuffer &buffer) const;
    void writeEffectsLayerBevelOn(ByteBuffer &buffer) const;
    void writeEffectsLayerSolidFillOn(ByteBuffer &buffer) const;

    /// Name, opacity and both regions, for debugging.
    QString description() const;

protected:
    /// Appends the channels, packed by `packer`; returns their lengths. May end in a std::bad_alloc.
    virtual std::vector<qint64> writeChannels(ByteBuffer &buffer, ChannelPacker &packer, KXPSDError *error) const;

    static void writeName(ByteBuffer &buffer, QStringView name);
    static void writeUnicodeName(ByteBuffer &buffer, QStringView name);

private:
    struct VisiblePixels;
    VisiblePixels visiblePixels() const;
    bool canBePacked(KXPSDError *error) const;

    QString m_name;
    QImage m_image;
    qint64 m_sourceKey = 0; ///< QImage::cacheKey() of the image as it was given
    float m_opacity = 1;
    QPointF m_offset{0, 0};
    QSizeF m_documentSize{0, 0};
    qint64 m_numberOfChannels = 4;
    QByteArray m_visibleImageData;
    bool m_shouldFlipLayerData = false;
    bool m_shouldUnpremultiplyLayerData = false;
    KXPSDBlendMode m_blendMode = KXPSDBlendMode::normal;
    KXPSDLayerEffects m_effects;
};
