#pragma once

#include "base/Colour.h"
#include "layer/Layer.h"

#include <QPainterPath>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QSizeF>

#include <memory>
#include <optional>

class CanvasDocument;
class LWStill;
class QPainter;

/// The marker around a selected still: a rectangle with eight handles. Dragging inside it moves the still, dragging a
/// handle resizes the rectangle and, in the end, the still. It knows no widget; its coordinates are those of the view
/// that shows the output: origin at the output's top-left corner, y down. `viewBounds` is that view's whole area.
/// Main thread only.
class JXSelectionBorder
{
public:
    /// Handles by their numbers; top is the smaller y.
    enum class Handle
    {
        None,
        TopLeft,
        TopMiddle,
        TopRight,
        MiddleLeft,
        MiddleRight,
        BottomLeft,
        BottomMiddle,
        BottomRight
    };
    static constexpr int handleCount = 8;

    /// Its colours are the platform's: a QGuiApplication exists.
    JXSelectionBorder();

    /// The rectangle; all zero at first: none, nothing is drawn and nothing can be taken hold of.
    const QRectF &selectedRect() const { return m_selectedRect; }
    void setSelectedRect(const QRectF &rectangle) { m_selectedRect = rectangle; }
    /// Kept for those who ask; resizing goes below it.
    const QSizeF &minSize() const { return m_minSize; }
    void setMinSize(const QSizeF &size) { m_minSize = size; }
    /// Width to height while locked. One that is no positive ratio locks nothing.
    const QSizeF &aspectRatio() const { return m_aspectRatio; }
    void setAspectRatio(const QSizeF &ratio) { m_aspectRatio = ratio; }
    /// Resizing keeps that ratio.
    bool lockAspectRatio() const { return m_lockAspectRatio; }
    void setLockAspectRatio(bool isLocked) { m_lockAspectRatio = isLocked; }
    bool canLockAspectRatio() const { return m_lockAspectRatio && ratio() > 0; }
    /// Width of the outline.
    double borderWidth() const { return m_borderWidth; }
    void setBorderWidth(double width) { m_borderWidth = width; }
    /// Grid lines per direction, for those who draw a grid with drawGridsInRect(). The marker itself shows no grid and
    /// no fill, whatever the switches for them say.
    quint32 gridLineNumber() const { return m_gridLineNumber; }
    void setGridLineNumber(quint32 lines) { m_gridLineNumber = lines; }
    bool drawingGrids() const { return m_drawingGrids; }
    void setDrawingGrids(bool isOn) { m_drawingGrids = isOn; }
    bool drawingFill() const { return m_drawingFill; }
    void setDrawingFill(bool isOn) { m_drawingFill = isOn; }
    /// The handles are drawn; off during a move.
    bool drawingHandles() const { return m_drawingHandles; }
    void setDrawingHandles(bool isOn) { m_drawingHandles = isOn; }
    /// The rectangle may be dragged out of the view.
    bool canDrawOffView() const { return m_drawingOffView; }
    void setDrawingOffView(bool isOn) { m_drawingOffView = isOn; }
    /// Outline: 1 dashes, any other a solid line.
    qint64 dashStyle() const { return m_dashStyle; }
    void setDashStyle(qint64 style) { m_dashStyle = style; }
    const Colour &borderColor() const { return m_borderColor; }
    void setBorderColor(const Colour &colour) { m_borderColor = colour; }
    const Colour &fillColor() const { return m_fillColor; }
    void setFillColor(const Colour &colour) { m_fillColor = colour; }
    /// Takes the outline's colour; the fill becomes white of no opacity.
    void setColors(const Colour &colour);
    /// Nothing is drawn.
    bool hide() const { return m_hide; }
    void setHide(bool isHidden) { m_hide = isHidden; }
    /// Output pixels that a move goes for one unit of the mouse. The still sets it, see LWStill::drawInRect().
    float kScaleFactor() const { return m_kScaleFactor; }
    void setKScaleFactor(float factor) { m_kScaleFactor = factor; }
    /// Units of the view per output pixel. With them the marker moves and resizes its still by the output pixels that
    /// the mouse goes; empty: by the factor, and by the scale that the still knows.
    void setExactScale(const QSizeF &unitsPerPixel) { m_exactScale = unitsPerPixel; }

    /// Paints the marker, as far as it lies in `visibleRect`, unless it is hidden. The painter works in the view's
    /// coordinates.
    void drawContentInView(QPainter &painter, const QRectF &visibleRect) const;
    /// The eight handles, in the order of their numbers.
    void drawHandlesInView(QPainter &painter, const QRectF &visibleRect) const;
    /// A filled square of 10 x 10 around `point`, aligned to the painter's device pixels.
    void drawHandleInView(QPainter &painter, const QPointF &point) const;
    /// As many level lines as upright ones, evenly spread over the rectangle's size. They are counted from the view's
    /// origin, not from the rectangle's, and end one unit short of its width and height.
    void drawGridsInRect(QPainter &painter, const QRectF &rectangle, quint32 lineNumber) const;
    /// The outline's path, empty without a rectangle.
    QPainterPath bezierPathForDrawing() const;

    /// Whether `point` lies inside the rectangle (left and top edge are, right and bottom edge are not); `handle`
    /// becomes the handle there.
    bool mouseIsInFrame(const QPointF &point, Handle &handle) const;
    /// The first handle at `point`, in the order of their numbers.
    static Handle handleAtPoint(const QPointF &point, const QRectF &frameRect);
    static bool isPointWithinHandle(const QPointF &point, Handle handle, const QRectF &frameRect);
    static bool isPointWithinHandleAtPoint(const QPointF &point, const QPointF &handlePoint);
    /// The middle of a handle; the rectangle's own middle for none.
    static QPointF locationOfHandle(Handle handle, const QRectF &frameRect);

    /// Moves the handle there and the rectangle with it. Returns the handle that is held from then on: another one when
    /// the rectangle was turned over. No handle, no change.
    Handle resizeByMovingHandle(Handle handle, const QPointF &toPoint, const QRectF &viewBounds);
    /// The rectangle with the locked ratio, and then not beyond the view's bottom and right edge; unlocked as it is.
    QRectF frameRectForGraphicBounds(const QRectF &rectangle, bool isLockedAspect, Handle usingHandle,
                                     const QRectF &viewBounds) const;
    /// Shifts the rectangle, and unless it may be off the view back into it.
    void translateBy(double x, double y, const QRectF &viewBounds);

    /// Where the mouse is.
    struct MouseLocation
    {
        QPointF inWindow; ///< origin at the window's bottom left, y up
        QPointF inView;
        QPoint pixel = {}; ///< of the output
    };
    /// What a drag has led to, to be applied on a later turn of the event loop.
    struct Outcome
    {
        std::shared_ptr<LWStill> still; ///< null: nothing to apply
        std::optional<QSizeF> size;     ///< of the rectangle, after resizing
        QSizeF exactScale = {};         ///< see setExactScale()
    };

    /// A press. Inside the rectangle and on no handle the layer moves with the mouse, if it is a still; elsewhere the
    /// handle that was hit resizes it. Without a rectangle nothing happens.
    void selectAndTrackMouseWithEvent(const MouseLocation &press, const LayerPointer &layer);
    /// Between such a press and its release.
    bool isTracking() const { return m_still != nullptr; }
    /// The mouse went on.
    void trackMouse(const MouseLocation &drag, const QRectF &viewBounds);
    /// It was released: a moved still takes its place here, once. The rest is for apply().
    [[nodiscard]] Outcome endTracking(const MouseLocation &release, const QRectF &viewBounds);
    /// The drag is called off: the rectangle is as before.
    void cancelTracking();
    /// Gives a resized still its size, and has the document finish the edit.
    static void apply(const Outcome &outcome, CanvasDocument &document);
    /// Where a still stands, in output pixels.
    struct Place
    {
        QPoint topLeft;
        QSize size;
    };
    /// Where the still would stand if the mouse were released now; nowhere unless something is dragged.
    std::optional<Place> trackedPlace() const;

private:
    double ratio() const;
    void resizeLocked(QRectF &rectangle, Handle handle, const QPointF &point) const;
    static QSize sizeOfStill(const LWStill &still, const QSizeF &size, const QSizeF &exactScale);
    void moveWithEvent(const MouseLocation &press, const LayerPointer &layer);
    void resizeWithEvent(Handle handle, const LayerPointer &layer);
    int moved(int place, double from, double to) const;
    QPoint movedBy(const QPoint &pixels) const;

    QRectF m_selectedRect{0, 0, 0, 0};
    QSizeF m_minSize{100, 100};
    QSizeF m_aspectRatio{1, 1};
    bool m_lockAspectRatio = false;
    double m_borderWidth = 1;
    quint32 m_gridLineNumber = 2;
    bool m_drawingGrids = true;
    bool m_drawingFill = true;
    bool m_drawingHandles = true;
    bool m_drawingOffView = false;
    qint64 m_dashStyle = 1;
    Colour m_borderColor;
    Colour m_fillColor;
    bool m_hide = false;
    float m_kScaleFactor = 0;
    QSizeF m_exactScale;

    std::shared_ptr<LWStill> m_still; ///< that is being dragged
    bool m_isMove = false;            ///< it moves; else it is resized
    Handle m_heldHandle = Handle::None;
    QRectF m_rectAtPress;
    QPointF m_press; ///< in the window
    QPoint m_pressPixel;
    QPointF m_handleAtPress;
    QPoint m_placeAtPress;
    QPoint m_movedTo;
};
