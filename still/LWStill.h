#pragma once

#include "archive/Address.h"
#include "base/Result.h"
#include "charts/ChartText.h"
#include "layer/Layer.h"
#include "still/PictureFile.h"

#include <QImage>
#include <QRectF>

#include <memory>

/// A picture on the output: that of a file, or a standard chart. It draws nothing itself: its picture is its thumbnail,
/// composed at the still's size.
class LWStill final : public Layer
{
    Q_OBJECT
    /// Files keep this address, not the pixels. Setting it loads nothing.
    Q_PROPERTY(Address ImageURL READ ImageURL WRITE setImageURL)

public:
    /// The plain object: all zero, false and nil, without a picture.
    explicit LWStill(LayerHost &host);
    ~LWStill() override;

    /// A visible still of a loaded picture, at the picture's size; null gives one of size 0. The caller sets its
    /// address.
    static std::shared_ptr<LWStill> initWithimage(LayerHost &host, const QImage &image);
    /// A still that is like that; its picture comes from its address.
    static std::shared_ptr<LWStill> of(LayerHost &host, const LayerRecordPointer &record);
    /// What an archive's still is like; what the archive does not hold is zero, false or nil.
    /// Error: a value of a wrong kind; the message names the key.
    [[nodiscard]] static Result<LayerRecord> decode(const ArchiveObject &coder);
    /// Both in one.
    [[nodiscard]] static Result<std::shared_ptr<LWStill>> initWithCoder(LayerHost &host, const ArchiveObject &coder);

    /// The picture in its own size, whatever size the still has; null where the file is missing or no picture. A chart
    /// is drawn at the size that the still had when it was rendered last.
    QImage thumbnail() const override;
    void setThumbnail(const QImage &picture) override;
    LayerLook shownLook() const override;
    /// Has the picture loaded from the address when it is next asked for. After a new address this is how a missing
    /// picture is found again; place and size stay.
    void loadThumbnail();
    /// Shows what was loaded from its address, and shares it.
    void takePicture(const PictureFile::Loaded &loaded);
    void releasePicture() override;
    /// The standard chart that it shows; nullopt: none is named. Error: it names one that is not known or none
    /// for a still, or its size is none that can be drawn; the message is a part of a sentence.
    std::optional<Result<ChartText>> chart() const;
    /// Whether a chart can be a still's, which has no panels and does not move.
    static bool takesChart(const Chart &chart) { return !chart.needsPanels && !chart.flashes; }
    /// Draws the chart anew where that, or its size, is another one than of the picture.
    void followChart();
    /// Whether there is an address and no picture. A picture that nobody asked for yet is not loaded to know: a file
    /// that begins like a picture is taken for one until then.
    bool isPictureMissing() const;
    /// Why its file shows nothing, as PictureFile tells it, where that is known; more is once it was loaded.
    std::optional<QString> pictureObstacle() const;

    /// How the canvas shows the output: the canvas is the output times `coefficient` with a margin on both sides.
    struct PreviewScale
    {
        float coefficient; ///< canvas units per output pixel; 0 without a canvas, or where no scale would be finite
        float freeWidth;   ///< left and right margin in canvas units
        float freeHeight;  ///< top and bottom margin
    };
    /// For the output's size less 8 x 10 pixels. All three are finite, and negative for outputs smaller than that.
    PreviewScale calculateCoeff() const;

    /// Takes panelWidth and panelHeight over as the size on the output, and works out the marker around it.
    void drawInRect() override;
    /// The marker that the canvas draws around a selected still: finite, its origin top-left, y down.
    struct Marker
    {
        QRectF rectangle;      ///< in units of the canvas, where the whole output is fitted into it
        float scaleFactor = 0; ///< output pixels that the still moves for one unit of the canvas
    };
    /// As it was worked out last; empty before.
    const Marker &marker() const { return m_marker; }
    /// What it was like when it was rendered last, which is where the marker stands; null before.
    const LayerRecordPointer &rendered() const { return m_rendered; }
    /// Works it out for another canvas, around the still as it was rendered last; writes no size.
    void placeMarker();
    /// Clicks do nothing to a picture.
    void onImageClick(qint64 x, qint64 y) override;
    /// A plain still with this one's picture, place, look and captions; aspect and power are zero.
    LayerPointer copyWithZone() const override;
    /// The keys of an archive that a still knows, those that are read or written alone among them.
    static QSet<QString> archiveKeys();
    void encodeWithCoder(ArchiveObject &coder) const override;
    std::span<const ArchiveField> keptFields() const override;
    LayerKind kind() const override { return LayerKind::Still; }

    /// The reference stands until the next setter.
    const Address &ImageURL() const { return values().ImageURL; }
    void setImageURL(const Address &address) { set(&LayerRecord::ImageURL, address); }

private:
    /// What a picture was drawn from.
    struct DrawnChart
    {
        QString text;
        QSize size;

        bool operator==(const DrawnChart &) const = default;
    };
    std::optional<DrawnChart> wantedChart() const;
    std::shared_ptr<const QImage> drawChart() const;
    static Marker markerOf(const LayerRecord &still, const PreviewScale &scale);

    LayerRecordPointer m_rendered; ///< null before the first rendering
    Marker m_marker;
    mutable bool m_pictureWaits = false;  ///< in its file, or to be drawn
    std::optional<DrawnChart> m_drawn;    ///< the chart that is the picture, or shall be; nullopt: it is a file's
    mutable PictureFile::Loaded m_loaded; ///< shared by stills of one file
};
