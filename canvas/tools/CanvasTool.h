#pragma once

#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <Qt>

#include <functional>
#include <optional>

class CanvasDocument;
class CanvasGeometry;
class CanvasPainter;
class JXSelectionBorder;
class QKeyEvent;
class QWidget;

/// Where the pointer is, and which keys are held with it.
struct ToolPointer
{
    QPointF place; ///< a point of the widget: logical pixels, exact to the device pixel
    Qt::KeyboardModifiers keys;
};

/// What a tool works with. All of it belongs to the canvas and outlives the tool.
struct ToolSurroundings
{
    CanvasDocument &document;
    const CanvasGeometry &geometry; ///< from points of the widget to output pixels and back
    JXSelectionBorder &marker;      ///< layers put it in its place; a tool moves it by hand
    QWidget &widget;                ///< to be painted anew, and for its font
    /// Puts the marker where the selected still has it: a hand has moved it, or held it while it was to be put there.
    std::function<void()> putMarkerBack;
    /// Shifts the output so that these pixels of it are seen, their left and top in any case.
    std::function<void(const QRectF &pixels)> bringIntoSight;
};

/// One way to work on the canvas by hand. The canvas owns it, keeps it as long as it lives itself, and tells the tool
/// in effect of what the person does with the left button and the keys; panning, zoom, the space bar, Alt and the
/// choice of the tool are the canvas' own. A tool stays in effect while it holds something. An update of the document
/// may bring another frame, and so reframe(), before it returns. Main thread only.
class CanvasTool
{
public:
    explicit CanvasTool(const ToolSurroundings &canvas);
    virtual ~CanvasTool() = default;
    CanvasTool(const CanvasTool &) = delete;
    CanvasTool &operator=(const CanvasTool &) = delete;

    /// The left button went down, over the output or beside it, while one is shown and nothing is held. Returns whether
    /// a layer was there.
    virtual bool press(const ToolPointer &pointer) = 0;
    /// Something is held from a press on: until then only hover() tells of the pointer.
    virtual bool isHolding() const = 0;
    /// The pointer went on, anywhere, with the button down; only while something is held.
    virtual void drag(const ToolPointer &pointer) = 0;
    /// Shift or Ctrl was pressed or let go, the pointer stayed; only while something is held.
    virtual void dragWithKeys(const ToolPointer &pointer) = 0;
    /// The left button went up, anywhere, whether anything is held or not. Nothing is held any more.
    virtual void release(const ToolPointer &pointer) = 0;
    /// Something else has swallowed the release of what is held. Cancels it.
    virtual void lose() { cancel(); }
    /// The person takes back what is held: all is as it was before the press. Only while something is held.
    virtual void cancel() = 0;
    /// What is held was measured in another frame: the output is shown in another size, or (not `isOtherSize`) it has
    /// another number of pixels in the same place. A marker is drawn anew afterwards.
    virtual void reframe(bool isOtherSize) = 0;

    /// Where the pointer is, in the widget; nullopt while it is elsewhere or drags the view. Also told where it stayed
    /// and something else may have changed; drag() and release() come before.
    virtual void hover(const std::optional<QPointF> &place) = 0;
    /// The shape that the pointer has where hover() told; nullopt: the usual one.
    virtual std::optional<Qt::CursorShape> cursor() const { return std::nullopt; }

    /// A key was pressed while no button is down; Space and Alt are the canvas'. Returns whether it was the tool's.
    virtual bool key(const QKeyEvent &event) = 0;
    /// Whether key() is to get it, whatever it means in the window.
    virtual bool takesShortcut(const QKeyEvent &) const { return false; }
    /// The output pixel in the middle of what the arrow keys have reached; nullopt: they have led nowhere.
    virtual std::optional<QPoint> reachedPixel() const { return std::nullopt; }
    /// What the arrow keys have reached is meant no more: the pointer was moved or pressed, or the focus went
    /// elsewhere than into a menu, from which it comes back. Told to all tools, in effect or not.
    virtual void forgetReached() {}

    /// The menu of the layers at that point of the widget was asked for, while one is shown and nothing is held:
    /// selects the topmost visible layer there. Returns whether there is one.
    virtual bool menu(const QPointF &place);

    /// Paints over the output, below the name of the selected layer.
    virtual void paint(CanvasPainter &painter) = 0;
    /// Paints above all else, after paint().
    virtual void paintTexts(CanvasPainter &painter) const = 0;

protected:
    CanvasDocument &document() const { return m_canvas.document; }
    const CanvasGeometry &geometry() const { return m_canvas.geometry; }
    QWidget &widget() const { return m_canvas.widget; }
    void putMarkerBack() const { m_canvas.putMarkerBack(); }
    void bringIntoSight(const QRectF &pixels) const { m_canvas.bringIntoSight(pixels); }

    /// Whether a press has not gone far enough for a drag; a click may shake.
    static bool isShaking(const QPointF &press, const QPointF &place);
    /// Where an arrow key leads, with Shift by more.
    static std::optional<QPoint> stepOf(const QKeyEvent &event);

private:
    ToolSurroundings m_canvas;
};
