#pragma once

#include "psd/KXPSDError.h"
#include "psd/KXPSDGroupLayer.h"
#include "psd/KXPSDLayer.h"
#include "psd/MergedPicture.h"
#include "psd/PackedChannels.h"

#include <QByteArray>
#include <QImage>
#include <QSizeF>

#include <functional>
#include <memory>
#include <vector>

/// Pixels per inch.
struct KXPSDResolution
{
    float hResolution;
    float vResolution;
};

/// Collects layers and groups, keeps a merged picture of them, and writes it all as a layered document: version 1, RGB,
/// 8 bits per channel, PackBits. https://www.adobe.com/devnet-apps/photoshop/fileformatashtml/ describes the format.
/// What cannot be done, the memory for pictures and files included, is an error through an argument; nothing here ends
/// the program. Only where there is no room for the few bytes of a new layer or a list is it a std::bad_alloc.
class KXPSDWriter
{
public:
    /// Units that a resolution is shown in.
    enum ResolutionUnit : qint32
    {
        Inches = 1,
        Centimetres = 2
    };
    /// Embedded colour profiles.
    enum ColorProfile : qint32
    {
        NoProfile = 0,
        GenericRGB = 1,
        SRGB = 2,
        AdobeRGB1998 = 3
    };
    using LayerPointer = std::shared_ptr<KXPSDLayer>;
    /// Told how much of the document is written, 0 to 1; false cancels the rest.
    using Progress = std::function<bool(double)>;

    /// Most pixels on a side of a document.
    static constexpr int longestSide = KXPSDLayer::longestDocumentSide;
    /// Most layers of a document, markers of groups included: their count is a signed 16-bit number.
    static constexpr qint64 mostLayers = 0x7fff;
    /// Most bytes of a document: readers take lengths for signed 32-bit numbers.
    static constexpr qint64 mostBytes = 0x7fffffff;

    KXPSDWriter();
    explicit KXPSDWriter(const QSizeF &documentSize);
    KXPSDWriter(const QSizeF &documentSize, float resolution, qint32 resolutionUnit);
    KXPSDWriter(const QSizeF &documentSize, bool hasTransparentLayers, std::vector<LayerPointer> layers = {});
    /// `resolution` is per `resolutionUnit`, but kept per inch. `layers`, from bottom to top, are not part of the
    /// merged picture until the document size is set again.
    KXPSDWriter(const QSizeF &documentSize, float resolution, qint32 resolutionUnit, bool hasTransparentLayers,
                std::vector<LayerPointer> layers);
    ~KXPSDWriter();
    KXPSDWriter(const KXPSDWriter &) = delete;
    KXPSDWriter &operator=(const KXPSDWriter &) = delete;

    const QSizeF &documentSize() const { return m_documentSize; }
    /// Hands another size to every layer and draws the merged picture anew; the same size does nothing.
    void setDocumentSize(const QSizeF &size);
    const KXPSDResolution &documentResolution() const { return m_documentResolution; }
    void setDocumentResolution(const KXPSDResolution &resolution) { m_documentResolution = resolution; }
    qint32 documentResolutionUnit() const { return m_documentResolutionUnit; }
    void setDocumentResolutionUnit(qint32 unit) { m_documentResolutionUnit = unit; }
    /// The document has a transparency channel.
    bool hasTransparentLayers() const { return m_hasTransparentLayers; }
    void setHasTransparentLayers(bool has) { m_hasTransparentLayers = has; }
    /// One of ColorProfile; any other value than these embeds an empty profile.
    qint32 colorProfile() const { return m_colorProfile; }
    void setColorProfile(qint32 profile) { m_colorProfile = profile; }
    /// From bottom to top.
    const std::vector<LayerPointer> &layers() const { return m_layers; }
    void setLayers(std::vector<LayerPointer> layers);

    /// 4 with a transparency channel, else 3.
    int numberOfChannels() const { return m_hasTransparentLayers ? 4 : 3; }
    /// The layers that files hold: those with a valid size.
    std::vector<LayerPointer> visibleLayers() const;
    /// The merged picture in raster format (drawing/Raster.h), premultiplied; null where there is no size for one, or
    /// the memory cannot be had. A file is made without it.
    QImage flattenedContext() const { return m_flattenedContext.pixels(); }
    /// Its bytes as of the last preprocess(): red, green, blue, alpha, top row first; empty before.
    QByteArray flattenedData() const;

    void setProgress(Progress progress) { m_progress = std::move(progress); }

    /// Adds a layer on top of the others, into the merged picture too. The caller may go on to set its blend mode,
    /// effects and flags. `offset`: document pixels from the top-left corner to the image's.
    LayerPointer addLayerWithCGImage(const QImage &image, const QString &name, float opacity = 1,
                                     const QPointF &offset = {0, 0});
    /// Begins a group on top of the layers; what is added next belongs to it.
    std::shared_ptr<KXPSDGroupOpeningLayer> openGroupLayerWithName(const QString &name, float opacity = 1,
                                                                   bool isOpened = false);
    /// Ends the innermost open group. Error: there is none; nothing is added and null returned.
    std::shared_ptr<KXPSDGroupClosingLayer> closeCurrentGroupLayerWithError(KXPSDError *error);
    std::shared_ptr<KXPSDGroupClosingLayer> closeCurrentGroupLayer()
    {
        return closeCurrentGroupLayerWithError(nullptr);
    }

    /// The document's bytes. Groups that are still open are closed at the top first. Flags of layers (flip,
    /// unpremultiply) change their visible data each time this is called. Error: an empty array and the reason; all of
    /// KXPSDError's but ZeroDocumentSize and NoOpenedLayer can be it.
    QByteArray createPSDDataWithError(KXPSDError *error);
    QByteArray createPSDData() { return createPSDDataWithError(nullptr); }

    // The steps of the above.

    /// Draws the merged picture anew: white, transparent in a document with transparency, then the visible layers.
    void resetFlattenedContext();
    /// Draws a layer (nullptr: none) into the merged picture. Error: the document has no size yet, or the merged
    /// picture is more than memory holds.
    bool addLayerToFlattenedContext(const KXPSDLayer *layer, KXPSDError *error);
    /// Takes the merged picture as it is now for the file's, applies the flags of layers and closes open groups. Error:
    /// the pixels of a layer with flags are more than memory holds; what comes after it is not done.
    bool preprocess(KXPSDError *error = nullptr);
    void writeFileHeaderSectionOn(ByteBuffer &buffer) const;
    void writeColorModeDataSectionOn(ByteBuffer &buffer) const;
    void writeImageResourceSectionOn(ByteBuffer &buffer) const;
    /// These two return whether they were written to their end; the error says why not: too much for a file, the
    /// memory, or, of the layers, the progress. The image data are those of the last preprocess().
    bool writeLayerAndMaskInformationSectionOn(ByteBuffer &buffer, KXPSDError *error);
    bool writeImageDataSectionOn(ByteBuffer &buffer, KXPSDError *error);

private:
    using OpeningPointer = std::shared_ptr<KXPSDGroupOpeningLayer>;

    bool canBeWritten(KXPSDError *error) const;
    qint64 likelyBytes() const;
    bool writeSections(ByteBuffer &buffer, KXPSDError *error);
    bool writeLayersOn(ByteBuffer &buffer, KXPSDError *error);
    bool tellProgress(double share, KXPSDError *error) const;
    qint64 groupBalance() const;

    QSizeF m_documentSize{0, 0};
    KXPSDResolution m_documentResolution{72, 72};
    qint32 m_documentResolutionUnit = Inches;
    bool m_hasTransparentLayers = true;
    qint32 m_colorProfile = NoProfile;
    std::vector<LayerPointer> m_layers;
    std::vector<OpeningPointer> m_openGroups; ///< of the layers, innermost last
    MergedPicture m_flattenedContext;
    MergedPicture m_flattenedSnapshot; ///< as of the last preprocess(); they share what they hold
    ChannelPacker m_packer;
    Progress m_progress;
};
