#pragma once

#include "archive/ArchiveObject.h"
#include "base/Colour.h"
#include "layer/ArchiveFields.h"

#include <QImage>
#include <QMutex>
#include <QObject>
#include <QSizeF>
#include <QString>

#include <memory>
#include <span>

class LayerHost;
class Layer;

using LayerPointer = std::shared_ptr<Layer>;

/// One entry of the document's list: a wall (LWScreen) or a picture (LWStill). Both carry the same properties, so that
/// table, inspector, composition, power sum and files read either kind by name. Setters store, nothing more; a layer
/// that shall look changed is rendered with drawInRect(). A new plain layer is all zero, false and nil.
/// Integers are signed; a property is kept whatever its value, drawing guards itself. Main thread only.
class Layer : public QObject
{
    Q_OBJECT
    /// The layer's current picture; see thumbnail().
    Q_PROPERTY(QImage thumbnail READ thumbnail WRITE setThumbnail)

    // Geometry
    /// Width of one panel (a screen) or of the whole picture (a still), in output pixels.
    Q_PROPERTY(int panelWidth READ panelWidth WRITE setPanelWidth)
    /// Height of one panel or of the whole picture, in output pixels.
    Q_PROPERTY(int panelHeight READ panelHeight WRITE setPanelHeight)
    /// Panel columns; 0 for a still.
    Q_PROPERTY(int col READ col WRITE setCol)
    /// Panel rows; 0 for a still.
    Q_PROPERTY(int row READ row WRITE setRow)
    /// Width on the output in pixels; recomputed by every drawInRect(), never trusted from a file.
    Q_PROPERTY(int screenSizeWidth READ screenSizeWidth WRITE setScreenSizeWidth)
    /// Height on the output in pixels; likewise.
    Q_PROPERTY(int screenSizeHeight READ screenSizeHeight WRITE setScreenSizeHeight)
    /// Left edge on the output, in pixels from its left edge.
    Q_PROPERTY(int xpoint READ xpoint WRITE setXpoint)
    /// Top edge on the output, in pixels from its top edge, growing downwards.
    Q_PROPERTY(int ypoint READ ypoint WRITE setYpoint)

    // Appearance
    /// The layer is composed into the output.
    Q_PROPERTY(bool visible READ visible WRITE setVisible)
    /// The name; null where there is none.
    Q_PROPERTY(QString label READ label WRITE setLabel)
    /// Panels are filled with the two panel colours; off: transparent.
    Q_PROPERTY(bool bgEnable READ bgEnable WRITE setBgEnable)
    /// Panel colour where row + column, counted from the bottom left, is even.
    Q_PROPERTY(OptionalColour rectColor READ rectColor WRITE setRectColor)
    /// Panel colour where it is odd.
    Q_PROPERTY(OptionalColour rectColor2 READ rectColor2 WRITE setRectColor2)
    /// Every panel has a frame.
    Q_PROPERTY(bool BoarderEnable READ BoarderEnable WRITE setBoarderEnable)
    /// Colour of the frames.
    Q_PROPERTY(OptionalColour boarderColor READ boarderColor WRITE setBoarderColor)
    /// Width of the frames in pixels, inside the panel.
    Q_PROPERTY(int boarderWidth READ boarderWidth WRITE setBoarderWidth)
    /// Circle and both diagonals are drawn.
    Q_PROPERTY(bool CircleEnable READ CircleEnable WRITE setCircleEnable)
    /// Their colour.
    Q_PROPERTY(OptionalColour circleColor READ circleColor WRITE setCircleColor)
    /// Their line width in pixels; also the inset of the corner coordinates.
    Q_PROPERTY(int circleBWidth READ circleBWidth WRITE setCircleBWidth)
    /// Corner coordinates are drawn.
    Q_PROPERTY(bool XYFontEnable READ XYFontEnable WRITE setXYFontEnable)
    /// Their colour.
    Q_PROPERTY(OptionalColour xyColor READ xyColor WRITE setXyColor)
    /// Their size in points.
    Q_PROPERTY(int XYFontSize READ XYFontSize WRITE setXYFontSize)
    /// Size, name and power are drawn at the centre.
    Q_PROPERTY(bool screenFontEnable READ screenFontEnable WRITE setScreenFontEnable)
    /// Colour of size and power.
    Q_PROPERTY(OptionalColour sfColor READ sfColor WRITE setSfColor)
    /// Size of the centre texts in points.
    Q_PROPERTY(int screenFontSize READ screenFontSize WRITE setScreenFontSize)
    /// The power text is drawn; set by every composition on the selected layer (off: screen, on: still).
    Q_PROPERTY(bool showPower READ showPower WRITE setShowPower)
    /// The power text is drawn, whatever showPower says; chosen by a person, and no composition changes it.
    Q_PROPERTY(bool showCurrent READ showCurrent WRITE setShowCurrent)
    /// A second power switch, set alike.
    Q_PROPERTY(bool showPowerl READ showPowerl WRITE setShowPowerl)

    // Labels and data flow
    /// Every panel is labelled.
    Q_PROPERTY(bool drawLabels READ drawLabels WRITE setDrawLabels)
    /// Off: columns lettered and rows numbered; on: the other way round.
    Q_PROPERTY(bool XYLabelDirection READ XYLabelDirection WRITE setXYLabelDirection)
    /// Colour of the panel labels.
    Q_PROPERTY(OptionalColour labelColor READ labelColor WRITE setLabelColor)
    /// Their size in points; 0 becomes 40 when they are first drawn.
    Q_PROPERTY(double labelFontSize READ labelFontSize WRITE setLabelFontSize)
    /// The data path is drawn.
    Q_PROPERTY(bool drawFlowPath READ drawFlowPath WRITE setDrawFlowPath)
    /// Where the data path starts and which way it runs, 0 to 7; any other value: no path.
    Q_PROPERTY(qint64 pattern READ pattern WRITE setPattern)
    /// Pixels that one port carries; 0: one run over the whole screen.
    Q_PROPERTY(qint64 pixelLimit READ pixelLimit WRITE setPixelLimit)

    // Power
    /// Power of one panel in watts.
    Q_PROPERTY(int powerOnCell READ powerOnCell WRITE setPowerOnCell)

    // Inspector
    /// Width and height keep the ratio of `aspectValue` while they are edited.
    Q_PROPERTY(bool aspectRatio READ aspectRatio WRITE setAspectRatio)
    /// That ratio; read and written whole from any thread.
    Q_PROPERTY(QSizeF aspectValue READ aspectValue WRITE setAspectValue)
    /// Hides the aspect lock.
    Q_PROPERTY(bool aspectHidden READ aspectHidden WRITE setAspectHidden)
    /// Hides the right-hand captions.
    Q_PROPERTY(bool labelGroupRightHidden READ labelGroupRightHidden WRITE setLabelGroupRightHidden)
    /// Captions of the editable quantities; null: the word of the interface.
    Q_PROPERTY(QString label1 READ label1 WRITE setLabel1)
    Q_PROPERTY(QString label2 READ label2 WRITE setLabel2)
    Q_PROPERTY(QString label3 READ label3 WRITE setLabel3)
    Q_PROPERTY(QString label4 READ label4 WRITE setLabel4)
    Q_PROPERTY(QString label5 READ label5 WRITE setLabel5)
    Q_PROPERTY(QString label6 READ label6 WRITE setLabel6)
    Q_PROPERTY(QString label7 READ label7 WRITE setLabel7)
    Q_PROPERTY(QString label8 READ label8 WRITE setLabel8)
    /// Hide the captions.
    Q_PROPERTY(bool label1Hidden READ label1Hidden WRITE setLabel1Hidden)
    Q_PROPERTY(bool label2Hidden READ label2Hidden WRITE setLabel2Hidden)
    Q_PROPERTY(bool label3Hidden READ label3Hidden WRITE setLabel3Hidden)
    Q_PROPERTY(bool label4Hidden READ label4Hidden WRITE setLabel4Hidden)
    Q_PROPERTY(bool label5Hidden READ label5Hidden WRITE setLabel5Hidden)
    Q_PROPERTY(bool label6Hidden READ label6Hidden WRITE setLabel6Hidden)
    Q_PROPERTY(bool label7Hidden READ label7Hidden WRITE setLabel7Hidden)
    Q_PROPERTY(bool label8Hidden READ label8Hidden WRITE setLabel8Hidden)

public:
    /// `host` is what the layer knows of its surroundings; it outlives the layer.
    explicit Layer(LayerHost &host);
    ~Layer() override;

    /// The layer's current picture, in `QImage::Format_ARGB32_Premultiplied`: of a screen its last rendering, of a
    /// still the picture in its own size. Null where there is none.
    virtual QImage thumbnail() const = 0;
    virtual void setThumbnail(const QImage &picture) = 0;

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

    /// "LWScreen", "LWStill": the name of the kind in archives.
    QString className() const { return QString::fromLatin1(metaObject()->className()); }

    int panelWidth() const { return m_panelWidth; }
    void setPanelWidth(int value) { m_panelWidth = value; }
    int panelHeight() const { return m_panelHeight; }
    void setPanelHeight(int value) { m_panelHeight = value; }
    int col() const { return m_col; }
    void setCol(int value) { m_col = value; }
    int row() const { return m_row; }
    void setRow(int value) { m_row = value; }
    int screenSizeWidth() const { return m_screenSizeWidth; }
    void setScreenSizeWidth(int value) { m_screenSizeWidth = value; }
    int screenSizeHeight() const { return m_screenSizeHeight; }
    void setScreenSizeHeight(int value) { m_screenSizeHeight = value; }
    int xpoint() const { return m_xpoint; }
    void setXpoint(int value) { m_xpoint = value; }
    int ypoint() const { return m_ypoint; }
    void setYpoint(int value) { m_ypoint = value; }
    bool visible() const { return m_visible; }
    void setVisible(bool value) { m_visible = value; }
    QString label() const { return m_label; }
    void setLabel(const QString &value) { m_label = value; }
    bool bgEnable() const { return m_bgEnable; }
    void setBgEnable(bool value) { m_bgEnable = value; }
    OptionalColour rectColor() const { return m_rectColor; }
    void setRectColor(const OptionalColour &value) { m_rectColor = value; }
    OptionalColour rectColor2() const { return m_rectColor2; }
    void setRectColor2(const OptionalColour &value) { m_rectColor2 = value; }
    bool BoarderEnable() const { return m_BoarderEnable; }
    void setBoarderEnable(bool value) { m_BoarderEnable = value; }
    OptionalColour boarderColor() const { return m_boarderColor; }
    void setBoarderColor(const OptionalColour &value) { m_boarderColor = value; }
    int boarderWidth() const { return m_boarderWidth; }
    void setBoarderWidth(int value) { m_boarderWidth = value; }
    bool CircleEnable() const { return m_CircleEnable; }
    void setCircleEnable(bool value) { m_CircleEnable = value; }
    OptionalColour circleColor() const { return m_circleColor; }
    void setCircleColor(const OptionalColour &value) { m_circleColor = value; }
    int circleBWidth() const { return m_circleBWidth; }
    void setCircleBWidth(int value) { m_circleBWidth = value; }
    bool XYFontEnable() const { return m_XYFontEnable; }
    void setXYFontEnable(bool value) { m_XYFontEnable = value; }
    OptionalColour xyColor() const { return m_xyColor; }
    void setXyColor(const OptionalColour &value) { m_xyColor = value; }
    int XYFontSize() const { return m_XYFontSize; }
    void setXYFontSize(int value) { m_XYFontSize = value; }
    bool screenFontEnable() const { return m_screenFontEnable; }
    void setScreenFontEnable(bool value) { m_screenFontEnable = value; }
    OptionalColour sfColor() const { return m_sfColor; }
    void setSfColor(const OptionalColour &value) { m_sfColor = value; }
    int screenFontSize() const { return m_screenFontSize; }
    void setScreenFontSize(int value) { m_screenFontSize = value; }
    bool showPower() const { return m_showPower; }
    void setShowPower(bool value) { m_showPower = value; }
    bool showCurrent() const { return m_showCurrent; }
    void setShowCurrent(bool value) { m_showCurrent = value; }
    bool showPowerl() const { return m_showPowerl; }
    void setShowPowerl(bool value) { m_showPowerl = value; }
    bool drawLabels() const { return m_drawLabels; }
    void setDrawLabels(bool value) { m_drawLabels = value; }
    bool XYLabelDirection() const { return m_XYLabelDirection; }
    void setXYLabelDirection(bool value) { m_XYLabelDirection = value; }
    OptionalColour labelColor() const { return m_labelColor; }
    void setLabelColor(const OptionalColour &value) { m_labelColor = value; }
    double labelFontSize() const { return m_labelFontSize; }
    void setLabelFontSize(double value) { m_labelFontSize = value; }
    bool drawFlowPath() const { return m_drawFlowPath; }
    void setDrawFlowPath(bool value) { m_drawFlowPath = value; }
    qint64 pattern() const { return m_pattern; }
    void setPattern(qint64 value) { m_pattern = value; }
    qint64 pixelLimit() const { return m_pixelLimit; }
    void setPixelLimit(qint64 value) { m_pixelLimit = value; }
    int powerOnCell() const { return m_powerOnCell; }
    void setPowerOnCell(int value) { m_powerOnCell = value; }
    bool aspectRatio() const { return m_aspectRatio; }
    void setAspectRatio(bool value) { m_aspectRatio = value; }
    QSizeF aspectValue() const;
    void setAspectValue(const QSizeF &ratio);
    bool aspectHidden() const { return m_aspectHidden; }
    void setAspectHidden(bool value) { m_aspectHidden = value; }
    bool labelGroupRightHidden() const { return m_labelGroupRightHidden; }
    void setLabelGroupRightHidden(bool value) { m_labelGroupRightHidden = value; }
    QString label1() const { return m_label1; }
    void setLabel1(const QString &value) { m_label1 = value; }
    QString label2() const { return m_label2; }
    void setLabel2(const QString &value) { m_label2 = value; }
    QString label3() const { return m_label3; }
    void setLabel3(const QString &value) { m_label3 = value; }
    QString label4() const { return m_label4; }
    void setLabel4(const QString &value) { m_label4 = value; }
    QString label5() const { return m_label5; }
    void setLabel5(const QString &value) { m_label5 = value; }
    QString label6() const { return m_label6; }
    void setLabel6(const QString &value) { m_label6 = value; }
    QString label7() const { return m_label7; }
    void setLabel7(const QString &value) { m_label7 = value; }
    QString label8() const { return m_label8; }
    void setLabel8(const QString &value) { m_label8 = value; }
    bool label1Hidden() const { return m_label1Hidden; }
    void setLabel1Hidden(bool value) { m_label1Hidden = value; }
    bool label2Hidden() const { return m_label2Hidden; }
    void setLabel2Hidden(bool value) { m_label2Hidden = value; }
    bool label3Hidden() const { return m_label3Hidden; }
    void setLabel3Hidden(bool value) { m_label3Hidden = value; }
    bool label4Hidden() const { return m_label4Hidden; }
    void setLabel4Hidden(bool value) { m_label4Hidden = value; }
    bool label5Hidden() const { return m_label5Hidden; }
    void setLabel5Hidden(bool value) { m_label5Hidden = value; }
    bool label6Hidden() const { return m_label6Hidden; }
    void setLabel6Hidden(bool value) { m_label6Hidden = value; }
    bool label7Hidden() const { return m_label7Hidden; }
    void setLabel7Hidden(bool value) { m_label7Hidden = value; }
    bool label8Hidden() const { return m_label8Hidden; }
    void setLabel8Hidden(bool value) { m_label8Hidden = value; }

protected:
    LayerHost &host() const { return m_host; }

private:
    LayerHost &m_host;
    ArchiveObjectPointer m_unknownContent;

    int m_panelWidth = 0;
    int m_panelHeight = 0;
    int m_col = 0;
    int m_row = 0;
    int m_screenSizeWidth = 0;
    int m_screenSizeHeight = 0;
    int m_xpoint = 0;
    int m_ypoint = 0;
    bool m_visible = false;
    QString m_label;
    bool m_bgEnable = false;
    OptionalColour m_rectColor;
    OptionalColour m_rectColor2;
    bool m_BoarderEnable = false;
    OptionalColour m_boarderColor;
    int m_boarderWidth = 0;
    bool m_CircleEnable = false;
    OptionalColour m_circleColor;
    int m_circleBWidth = 0;
    bool m_XYFontEnable = false;
    OptionalColour m_xyColor;
    int m_XYFontSize = 0;
    bool m_screenFontEnable = false;
    OptionalColour m_sfColor;
    int m_screenFontSize = 0;
    bool m_showPower = false;
    bool m_showCurrent = false;
    bool m_showPowerl = false;
    bool m_drawLabels = false;
    bool m_XYLabelDirection = false;
    OptionalColour m_labelColor;
    double m_labelFontSize = 0;
    bool m_drawFlowPath = false;
    qint64 m_pattern = 0;
    qint64 m_pixelLimit = 0;
    int m_powerOnCell = 0;
    bool m_aspectRatio = false;
    mutable QMutex m_aspectValueLock;
    QSizeF m_aspectValue{0, 0};
    bool m_aspectHidden = false;
    bool m_labelGroupRightHidden = false;
    QString m_label1;
    QString m_label2;
    QString m_label3;
    QString m_label4;
    QString m_label5;
    QString m_label6;
    QString m_label7;
    QString m_label8;
    bool m_label1Hidden = false;
    bool m_label2Hidden = false;
    bool m_label3Hidden = false;
    bool m_label4Hidden = false;
    bool m_label5Hidden = false;
    bool m_label6Hidden = false;
    bool m_label7Hidden = false;
    bool m_label8Hidden = false;
};
