#pragma once

#include "archive/ArchiveObject.h"
#include "layer/ArchiveFields.h"
#include "layer/LayerRecord.h"
#include "layer/PictureChanges.h"
#include "layer/WallCables.h"

#include <QByteArrayList>
#include <QImage>
#include <QObject>
#include <QSizeF>
#include <QString>

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <span>

class LayerHost;
class Layer;

using LayerPointer = std::shared_ptr<Layer>;

/// Declares a value of the record as a property, with its getter and its setter.
#define LAYER_VALUE(Type, name, setter)                                                                                \
    Q_PROPERTY(Type name READ name WRITE setter)                                                                       \
public:                                                                                                                \
    Type name() const                                                                                                  \
    {                                                                                                                  \
        return given(values().name);                                                                                   \
    }                                                                                                                  \
    void setter(const Type &value)                                                                                     \
    {                                                                                                                  \
        set(&LayerRecord::name, kept(value));                                                                          \
    }

/// What a layer's picture is made of: where it is the same, the picture is the same.
struct LayerLook
{
    LayerRecordPointer record;
    std::array<qint64, 3> around = {}; ///< what a kind takes from elsewhere, as numbers of its own
    WallCablesPointer cables = {};     ///< likewise

    bool operator==(const LayerLook &) const = default;
};

/// One entry of the document's list: a wall (LWScreen) or a picture (LWStill). Both carry the same properties, so that
/// table, inspector, composition, power sum and files read either kind by name. Setters store, nothing more; a layer
/// that shall look changed is rendered with drawInRect(). LayerRecord says what each property means. Main thread only.
class Layer : public QObject
{
    Q_OBJECT
    /// The layer's current picture; see thumbnail().
    Q_PROPERTY(QImage thumbnail READ thumbnail WRITE setThumbnail)

    // Geometry
    LAYER_VALUE(int, panelWidth, setPanelWidth)
    LAYER_VALUE(int, panelHeight, setPanelHeight)
    LAYER_VALUE(int, col, setCol)
    LAYER_VALUE(int, row, setRow)
    LAYER_VALUE(int, screenSizeWidth, setScreenSizeWidth)
    LAYER_VALUE(int, screenSizeHeight, setScreenSizeHeight)
    LAYER_VALUE(int, xpoint, setXpoint)
    LAYER_VALUE(int, ypoint, setYpoint)
    // Appearance
    LAYER_VALUE(bool, visible, setVisible)
    LAYER_VALUE(QString, label, setLabel)
    LAYER_VALUE(bool, bgEnable, setBgEnable)
    LAYER_VALUE(OptionalColour, rectColor, setRectColor)
    LAYER_VALUE(OptionalColour, rectColor2, setRectColor2)
    LAYER_VALUE(bool, BoarderEnable, setBoarderEnable)
    LAYER_VALUE(OptionalColour, boarderColor, setBoarderColor)
    LAYER_VALUE(int, boarderWidth, setBoarderWidth)
    LAYER_VALUE(bool, CircleEnable, setCircleEnable)
    LAYER_VALUE(OptionalColour, circleColor, setCircleColor)
    LAYER_VALUE(int, circleBWidth, setCircleBWidth)
    LAYER_VALUE(bool, XYFontEnable, setXYFontEnable)
    LAYER_VALUE(OptionalColour, xyColor, setXyColor)
    LAYER_VALUE(int, XYFontSize, setXYFontSize)
    LAYER_VALUE(bool, screenFontEnable, setScreenFontEnable)
    LAYER_VALUE(OptionalColour, sfColor, setSfColor)
    LAYER_VALUE(int, screenFontSize, setScreenFontSize)
    LAYER_VALUE(bool, showPower, setShowPower)
    LAYER_VALUE(bool, showCurrent, setShowCurrent)
    LAYER_VALUE(bool, showPowerl, setShowPowerl)
    // Labels and data flow
    LAYER_VALUE(bool, drawLabels, setDrawLabels)
    LAYER_VALUE(bool, XYLabelDirection, setXYLabelDirection)
    LAYER_VALUE(OptionalColour, labelColor, setLabelColor)
    LAYER_VALUE(double, labelFontSize, setLabelFontSize)
    LAYER_VALUE(bool, drawFlowPath, setDrawFlowPath)
    LAYER_VALUE(qint64, pattern, setPattern)
    LAYER_VALUE(qint64, pixelLimit, setPixelLimit)
    // Power
    LAYER_VALUE(int, powerOnCell, setPowerOnCell)
    // Inspector
    LAYER_VALUE(bool, aspectRatio, setAspectRatio)
    Q_PROPERTY(QSizeF aspectValue READ aspectValue WRITE setAspectValue)
    LAYER_VALUE(bool, aspectHidden, setAspectHidden)
    LAYER_VALUE(bool, labelGroupRightHidden, setLabelGroupRightHidden)
    LAYER_VALUE(QString, label1, setLabel1)
    LAYER_VALUE(QString, label2, setLabel2)
    LAYER_VALUE(QString, label3, setLabel3)
    LAYER_VALUE(QString, label4, setLabel4)
    LAYER_VALUE(QString, label5, setLabel5)
    LAYER_VALUE(QString, label6, setLabel6)
    LAYER_VALUE(QString, label7, setLabel7)
    LAYER_VALUE(QString, label8, setLabel8)
    LAYER_VALUE(bool, label1Hidden, setLabel1Hidden)
    LAYER_VALUE(bool, label2Hidden, setLabel2Hidden)
    LAYER_VALUE(bool, label3Hidden, setLabel3Hidden)
    LAYER_VALUE(bool, label4Hidden, setLabel4Hidden)
    LAYER_VALUE(bool, label5Hidden, setLabel5Hidden)
    LAYER_VALUE(bool, label6Hidden, setLabel6Hidden)
    LAYER_VALUE(bool, label7Hidden, setLabel7Hidden)
    LAYER_VALUE(bool, label8Hidden, setLabel8Hidden)

public:
    /// `host` is what the layer knows of its surroundings; it outlives the layer.
    explicit Layer(LayerHost &host);
    ~Layer() override;

    /// The layer's current picture, in `QImage::Format_ARGB32_Premultiplied`: of a screen its last rendering, of a
    /// still the picture in its own size. Null where there is none.
    virtual QImage thumbnail() const = 0;
    virtual void setThumbnail(const QImage &picture) = 0;
    /// How thumbnail() came from what it was; of the one that was asked for last.
    virtual PictureChanges pictureChanges() const { return {}; }
    /// What thumbnail() shows; nothing is drawn or loaded to know. While a picture waits in its file it is another one
    /// than afterwards.
    virtual LayerLook shownLook() const { return {record(), {}}; }

    /// Renders the layer: takes over its properties into its picture and sizes.
    virtual void drawInRect() = 0;
    /// Lets go of a picture that the layer can draw again when it is asked for; any other stays.
    virtual void releasePicture() {}
    /// A click at an output pixel, top-left origin.
    virtual void onImageClick(qint64 x, qint64 y) = 0;
    /// A copy by the rules of its kind, which do not take over everything.
    virtual LayerPointer copyWithZone() const = 0;

    /// Writes the layer's values under its archive keys, in their order.
    virtual void encodeWithCoder(ArchiveObject &coder) const = 0;
    /// The values that survive a save and a load, by archive key and property.
    virtual std::span<const ArchiveField> keptFields() const = 0;

    /// What the layer's archive held under keys that this version does not know; written again as it came, and taken
    /// over by copies that go through an archive. Null: the layer comes from no archive.
    const ArchiveObjectPointer &unknownContent() const { return m_unknownContent; }
    void setUnknownContent(const ArchiveObjectPointer &content) { m_unknownContent = content; }
    /// What a readable text said of the layer under names that this version does not know, `"name": value` each, as it
    /// stood there; likewise.
    const QByteArrayList &unknownNames() const { return m_unknownNames; }
    void setUnknownNames(const QByteArrayList &names) { m_unknownNames = names; }

    virtual LayerKind kind() const = 0;
    /// "LWScreen", "LWStill": the name of the kind in archives.
    QString className() const { return QString::fromLatin1(metaObject()->className()); }

    /// The layer as it is: what it is like from now on leaves this record as it is.
    LayerRecordPointer record() const;
    /// Whether record() is that very one.
    bool hasRecord(const LayerRecordPointer &record) const;
    /// Makes the layer what the record says; renders nothing.
    void setRecord(const LayerRecordPointer &record);

    /// A value of LayerValues by its name; invalid where layers of this kind have none.
    QVariant value(QByteArrayView name) const;
    /// Gives that value, as its setter does. Returns false where there is none of that name, or the value is none of
    /// its type.
    bool setValue(QByteArrayView name, const QVariant &value);
    /// Takes these values over from another layer.
    void takeOver(const Layer &other, std::span<const char *const> names);

    /// Read and written whole from any thread.
    QSizeF aspectValue() const;
    void setAspectValue(const QSizeF &ratio);

protected:
    LayerHost &host() const { return m_host; }

    const LayerRecord &values() const { return *m_record; }
    /// Changes one value; one that is the same already leaves the record shared as it is.
    template <typename Value, typename Given>
    void set(Value LayerRecord::*member, const Given &value)
    {
        if (values().*member != value)
            edit().*member = value;
    }

    /// A value as properties have it, and as the record has it: a text that is null there is none here.
    template <typename Value>
    static const Value &given(const Value &value)
    {
        return value;
    }
    static QString given(const std::optional<QString> &text) { return text.value_or(QString()); }
    template <typename Value>
    static const Value &kept(const Value &value)
    {
        return value;
    }
    static std::optional<QString> kept(const QString &text)
    {
        return text.isNull() ? std::nullopt : std::optional(text);
    }

private:
    LayerRecord &edit();

    LayerHost &m_host;
    ArchiveObjectPointer m_unknownContent;
    QByteArrayList m_unknownNames;
    std::shared_ptr<LayerRecord> m_record =
        std::make_shared<LayerRecord>(); ///< written only where nobody else holds it
    mutable std::mutex m_aspectValueLock;
    QSizeF m_aspectValue{0, 0};
    mutable std::atomic<bool> m_isAspectValueGiven = false; ///< since the record took it over
};
