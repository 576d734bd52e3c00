#pragma once

#include "grid/Cell.h"
#include "layer/Layer.h"
#include "screen/ScreenChart.h"

#include <QPointer>
#include <QRectF>
#include <QStringList>

#include <memory>
#include <optional>

/// A wall of `col` x `row` LED panels that renders itself as a test chart for the wall's processor.
/// Rows of panels are drawn from the bottom up; hidden panels are named by their row from the top.
class LWScreen final : public Layer
{
    Q_OBJECT
    Q_PROPERTY(std::optional<QStringList> hiddenBoxes READ hiddenBoxes WRITE setHiddenBoxes)
    Q_PROPERTY(std::optional<QStringList> PositionArray READ PositionArray WRITE setPositionArray)

    // Kept for bindings of the interface; nothing reads them.
    LAYER_VALUE(bool, label9Hidden, setLabel9Hidden)
    LAYER_VALUE(bool, drawBackground, setDrawBackground)
    LAYER_VALUE(bool, drawBorder, setDrawBorder)
    LAYER_VALUE(qint64, columnCount, setColumnCount)
    LAYER_VALUE(qint64, rowCount, setRowCount)
    LAYER_VALUE(double, width, setWidth)
    LAYER_VALUE(double, height, setHeight)
    Q_PROPERTY(QObject *pixelPerLimitField READ pixelPerLimitField WRITE setPixelPerLimitField)

public:
    /// What the long initialisers are told. `hpos` and `vpos` become `xpoint` and `ypoint`.
    struct Arguments
    {
        int row = 0;
        int col = 0;
        int panelWidth = 0;
        int panelHeight = 0;
        OptionalColour rectColor = {};
        OptionalColour rectColor2 = {};
        OptionalColour boarderColor = {};
        OptionalColour circleColor = {};
        OptionalColour xyColor = {};
        OptionalColour sfColor = {};
        int xyFontSize = 0;
        bool bgEnable = false;
        bool boarderEnable = false;
        QString label = {};
        bool circleEnable = false;
        int hpos = 0;
        int vpos = 0;
        std::optional<QStringList> hiddenBoxes = {};
    };

    /// The plain object, all zero, false and nil, not rendered.
    explicit LWScreen(LayerHost &host);
    ~LWScreen() override;

    /// A screen with the defaults: 5 x 5 panels of 48 x 48. Rendered.
    static std::shared_ptr<LWScreen> init(LayerHost &host);
    /// A screen of the given look and place; without a list of hidden panels it gets an empty one. Rendered.
    static std::shared_ptr<LWScreen> initWithrow(LayerHost &host, const Arguments &arguments);
    /// The same with `power` watts per panel and no hidden panels.
    static std::shared_ptr<LWScreen> initWithrow(LayerHost &host, Arguments arguments, int power);
    /// A screen that is like that. Rendered.
    static std::shared_ptr<LWScreen> of(LayerHost &host, const LayerRecordPointer &record);
    /// What an archive's screen is like; what the archive does not hold is zero, false or nil.
    /// Error: a value of a wrong kind; the message names the key.
    [[nodiscard]] static Result<LayerRecord> decode(const ArchiveObject &coder);
    /// Both in one.
    [[nodiscard]] static Result<std::shared_ptr<LWScreen>> initWithCoder(LayerHost &host, const ArchiveObject &coder);

    QImage thumbnail() const override;
    PictureChanges pictureChanges() const override { return m_changes; }
    void setThumbnail(const QImage &picture) override;
    LayerLook shownLook() const override;
    /// Recomputes the sizes, has the host choose voltage and phases where a text needs them, and takes over the look;
    /// the pixels are drawn when the thumbnail is first asked for.
    void drawInRect() override;
    void releasePicture() override;
    /// Switches the panel under the point off or on again; right of or below the wall nothing happens. Left of or
    /// above it the index is truncated toward zero or stored as a key that no panel has.
    void onImageClick(qint64 x, qint64 y) override;

    /// The panel that a click at an output pixel switches, whether it is on or off; none where a click changes nothing
    /// that can be seen. Less than a panel left of or above the wall it is the first one.
    std::optional<Cell> panelAt(qint64 x, qint64 y) const;
    /// Its place in output pixels.
    QRectF panelRect(const Cell &panel) const;
    /// Its label as the wall shows it, "C7"; of very many letters only the first, with an ellipsis.
    QString panelLabel(const Cell &panel) const;

    /// The keys of an archive that a screen knows.
    static QSet<QString> archiveKeys();
    /// A fresh screen with this one's look and geometry: captions, aspect and power switches are the defaults, and
    /// nothing that is unknown is taken over.
    LayerPointer copyWithZone() const override;
    void encodeWithCoder(ArchiveObject &coder) const override;
    std::span<const ArchiveField> keptFields() const override;
    LayerKind kind() const override { return LayerKind::Wall; }

    /// What hangs on its ports, as its surroundings say; null: they do not say it. A wall whose picture shows other
    /// cables by that is rendered again.
    void showCables(const WallCablesPointer &cables);
    const WallCablesPointer &shownCables() const { return m_cables; }

    /// An arrow button was pressed: hands its tag to the host as the chosen pattern. The screen itself stays as it is.
    void changeArrows(int tag);

    /// The keys of the panels that are off, as texts and as they are kept; the reference stands until the next setter.
    std::optional<QStringList> hiddenBoxes() const;
    void setHiddenBoxes(const std::optional<QStringList> &texts);
    const std::optional<PanelKeys> &panelsOff() const { return values().hiddenBoxes; }
    void setPanelsOff(const std::optional<PanelKeys> &keys) { set(&LayerRecord::hiddenBoxes, keys); }
    const std::optional<QStringList> &PositionArray() const { return values().PositionArray; }
    void setPositionArray(const std::optional<QStringList> &positions) { set(&LayerRecord::PositionArray, positions); }
    QObject *pixelPerLimitField() const { return m_pixelPerLimitField; }
    void setPixelPerLimitField(QObject *field) { m_pixelPerLimitField = field; }

private:
    /// What a picture is drawn from.
    struct Look
    {
        LayerRecordPointer record;
        ChartSurroundings around;

        bool operator==(const Look &) const = default;
    };
    Look look() const;
    bool isDrawn() const { return !m_rendered || m_drawn == m_rendered; }
    void drawPixels() const;
    void mend(const ScreenChart &chart, const QRegion &where) const;

    QPointer<QObject> m_pixelPerLimitField;
    WallCablesPointer m_cables;
    std::optional<Look> m_rendered;      ///< nullopt: the thumbnail, if there is one, was given
    mutable std::optional<Look> m_drawn; ///< the thumbnail shows this; what was rendered it does when asked for
    mutable QImage m_thumbnail;
    mutable PictureChanges m_changes;
};
