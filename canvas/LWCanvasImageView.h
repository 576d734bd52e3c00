#pragma once

#include "canvas/CanvasGeometry.h"
#include "canvas/ExactPointer.h"
#include "canvas/JXSelectionBorder.h"
#include "canvas/tools/CanvasTools.h"
#include "output/CanvasFrame.h"
#include "output/CanvasPicture.h"

#include <QColor>
#include <QImage>
#include <QMetaType>
#include <QPoint>
#include <QSize>
#include <QWidget>

#include <map>
#include <memory>
#include <optional>

class CanvasDocument;
class CanvasPainter;
class LWStill;
class QNativeGestureEvent;

/// What a status line tells of the canvas.
struct CanvasReadOut
{
    QSize output;           ///< its size in pixels; empty: there is none
    double zoomPercent = 0; ///< 100: one output pixel is one device pixel; 0 where nothing is shown
    bool isFitted = true;   ///< the zoom follows the canvas' size
    /// Output pixel under the pointer, or in the middle of what the arrow keys have reached; top-left origin.
    /// None while the pointer is elsewhere.
    std::optional<QPoint> pixel;
    QColor colour; ///< of that pixel; invalid without one
    /// The same beside the output too, where a pixel would be; none while the pointer is not on the canvas.
    std::optional<QPoint> place;
};
Q_DECLARE_METATYPE(CanvasReadOut)

/// The canvas: shows the composed output in a frame of the output's proportions on the ground, carries the marker
/// around a selected still, and hands the left button and the keys to the tool in effect. The layer that clicks go to
/// has its name beside it. View coordinates are the frame's: origin at the output's top-left corner, y down, in logical
/// pixels. The frame is as large as the zoom wants it; what of it does not fit into the widget is dragged into sight
/// with the middle button or with the space bar held, which is the canvas' own from when the pointer moves over it
/// until it leaves or the focus goes elsewhere, except in text fields. Colours come from the palette: Base the ground,
/// Mid the line around the output, Highlight what is outlined and the lines that layers are attracted to.
class LWCanvasImageView final : public QWidget
{
    Q_OBJECT

public:
    /// What stays free around the output, in logical pixels.
    static constexpr int margin = 12;

    using Tool = CanvasToolName;

    /// `document` outlives every event that this widget gets.
    explicit LWCanvasImageView(CanvasDocument &document, QWidget *parent = nullptr);
    ~LWCanvasImageView() override;

    /// The document has composed its output anew, in whatever size.
    void showOutput();
    /// Something else of the document is another: layers, selection, the selected still's marker.
    void showChanges();

    /// The output's place in the widget; empty without an output.
    QRectF frame() const { return m_geometry.frame(); }
    /// Its size where the whole output is fitted into the widget, whatever the zoom: what LayerHost::canvasFrameSize()
    /// tells.
    QSizeF fittedSize() const { return QSizeF(deviceFrame().fittedSize()) / m_geometry.pixelRatio(); }
    /// The same in device pixels, from the first whole one in the widget on.
    const CanvasFrame &deviceFrame() const { return m_geometry.deviceFrame(); }

    /// The tool to work with while Alt is not held. It takes effect when nothing is pressed or dragged any more.
    void setTool(Tool tool);
    /// The one in effect: toolOfAlt while Alt is held.
    Tool tool() const { return m_tool; }

    JXSelectionBorder &cropMarker() { return m_cropMarker; }
    /// Puts the marker there, in coordinates of the fitted view; one of no width is hidden. At another zoom it
    /// stands around the selected layer's exact pixels. During a drag it is in the person's hand and stays there.
    /// showChanges() does these four by itself.
    void drawRectangle(const QRectF &rectangle);
    void showRectangle();
    void hideRectangle();
    void setKScaleFactor(float factor) { m_cropMarker.setKScaleFactor(factor); }

    void zoomToFit();
    void zoomTo100() { setZoom(100); }
    /// In per cent, around the middle; brought to the nearest that there is, see CanvasFrame.
    void setZoom(double percent);
    /// By one step, around the middle.
    void zoomIn() { stepZoom(1, middle()); }
    void zoomOut() { stepZoom(-1, middle()); }

    /// Moves the view, whose zoom stays, until these pixels of the output are in sight; of more than there is room for,
    /// their first ones.
    void bringIntoSight(const QRectF &pixels);

    /// The output pixel at a place in the widget; beside the output its pixels count on. Nullopt where nothing is
    /// shown.
    std::optional<QPoint> pixelAt(const QPointF &widgetPoint) const;
    /// As it was last told.
    const CanvasReadOut &readOut() const { return m_readOut; }

    QSize minimumSizeHint() const override { return {160, 120}; }

signals:
    /// Something of it may have changed.
    void readOutDidChange(const CanvasReadOut &readOut);
    /// Place or size of the output has.
    void frameDidChange();
    /// A tool was pressed on a layer, or beside all of them.
    void toolDidPress(bool isOnLayer);
    /// Another one is in effect.
    void toolDidChange(LWCanvasImageView::Tool tool);
    /// Someone wants the menu of the selected layers, at this place on the screen.
    void layerMenuAsked(const QPoint &place);

protected:
    bool event(QEvent *event) override;
    /// Takes the space bar from other widgets of the window.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    /// Of the layer under the pointer, which is selected for that.
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QRectF exactRectangle(const Layer &layer) const;
    void placeMarker();
    void setMarker(const QRectF &rectangle);
    void putMarkerBack();
    void takeRoom();
    void takeFrame(const CanvasFrame &frame);
    void stepZoom(int steps, const QPointF &widgetPoint);
    void zoomAt(double zoom, const QPointF &widgetPoint);
    QPointF middle() const { return QRectF(rect()).center(); }
    void tellReadOut();
    std::optional<QPoint> pixelToTell() const;

    ToolPointer takePointer(const QMouseEvent &event);
    bool isDragged() const { return m_panFrom || toolInEffect().isHolding(); }
    void panTo(const QPointF &widgetPoint);
    bool nativeGesture(const QNativeGestureEvent &event);
    bool takesShortcut(const QKeyEvent &event) const;
    bool dragWithKey(const QKeyEvent &event);
    bool goByKey(const QKeyEvent &event);
    void claimSpaceBar(bool claims);
    void takeSpaceBar(bool isHeld);

    void makeTools();
    CanvasTool &toolInEffect() const { return *m_tools.at(m_tool); }
    void takeAlt(bool isHeld);
    void settleTool();
    void forgetReached();
    void showPointer();
    void showCursor();

    /// A text in a place: of the widget, or in device pixels.
    struct PlacedName
    {
        QString name;
        QRect place;

        bool operator==(const PlacedName &) const = default;
    };
    /// What the document says of what lies over the output; where that is another, all is painted anew.
    struct Overlay
    {
        std::optional<PlacedName> selected;
        std::vector<QRect> selectedPlaces; ///< in device pixels
        std::vector<PlacedName> missing;   ///< likewise
        std::optional<QRectF> marker;

        bool operator==(const Overlay &) const = default;
    };
    Overlay overlay() const;
    void showOverlay();
    std::optional<PlacedName> nameOfSelected() const;
    std::vector<PlacedName> missingPictures() const;

    void paintWithoutOutput(QPainter &painter) const;
    void paintMissingPicture(QPainter &painter, const PlacedName &still) const;

    CanvasDocument &m_document;
    CanvasPicture m_picture;
    Overlay m_overlay; ///< as it was told to be painted last
    CanvasGeometry m_geometry;
    JXSelectionBorder m_cropMarker;
    CanvasReadOut m_readOut;

    ExactPointer m_exactPointer{*this};
    std::optional<QPointF> m_pointer;           ///< in the widget; none while it is elsewhere
    std::optional<QPointF> m_panFrom;           ///< in device pixels; while the view is dragged
    Qt::MouseButton m_panButton = Qt::NoButton; ///< that began it
    bool m_isSpaceBarHeld = false;
    bool m_claimsSpaceBar = false; ///< wherever the focus is
    bool m_isPressed = false;      ///< the left button, for the tool in effect
    bool m_isAltHeld = false;
    std::map<Tool, std::unique_ptr<CanvasTool>> m_tools;
    Tool m_chosenTool = canvasTools().front().name;
    Tool m_tool = m_chosenTool; ///< in effect
    int m_wheelRest = 0;        ///< turned less than a step
    double m_pinchZoom = 0;     ///< what the fingers have reached; 0: none pinch
};
