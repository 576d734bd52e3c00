#include "canvas/CanvasDocument.h"
#include "canvas/LWCanvasImageView.h"

#include <algorithm>

namespace {
/// How far a span is to be shifted to lie in the room, its start in any case.
int wayInto(int room, double from, double to)
{
    constexpr double furthest = 1 << 30; // a wall of a file may lie where no pixel of a view is counted
    const double beyond = std::max(0.0, to - room);
    return static_cast<int>(std::clamp(from - beyond < 0 ? -from : -beyond, -furthest, furthest));
}
} // namespace

void LWCanvasImageView::makeTools()
{
    const ToolSurroundings surroundings{m_document,
                                        m_geometry,
                                        m_cropMarker,
                                        *this,
                                        [this] { putMarkerBack(); },
                                        [this](const QRectF &pixels) { bringIntoSight(pixels); }};
    for (const CanvasToolRow &row : canvasTools())
        m_tools.emplace(row.name, row.make(surroundings));
}

void LWCanvasImageView::setTool(Tool tool)
{
    m_chosenTool = tool;
    settleTool();
}

void LWCanvasImageView::takeAlt(bool isHeld)
{
    m_isAltHeld = isHeld;
    settleTool();
}

/// A press is let go by the tool that it was made with.
void LWCanvasImageView::settleTool()
{
    const bool isOfAlt = m_isAltHeld && !canvasTool(m_chosenTool).keepsAlt;
    const Tool tool = isOfAlt ? toolOfAlt : m_chosenTool;
    if (tool == m_tool || m_isPressed || isDragged())
        return;
    m_tool = tool;
    showCursor();
    update();
    emit toolDidChange(tool);
}

/// What the keyboard has reached is left: the hand means another place now.
void LWCanvasImageView::forgetReached()
{
    for (const auto &[name, tool] : m_tools)
        tool->forgetReached();
}

/// The pointer, or what it means here, may be another one.
void LWCanvasImageView::showPointer()
{
    showCursor();
    tellReadOut();
}

/// The tool hears of the pointer unless that serves the view.
void LWCanvasImageView::showCursor()
{
    toolInEffect().hover(m_panFrom || m_isSpaceBarHeld ? std::nullopt : m_pointer);
    const std::optional<Qt::CursorShape> ofTool = toolInEffect().cursor();
    if (m_panFrom)
        setCursor(Qt::ClosedHandCursor);
    else if (m_isSpaceBarHeld)
        setCursor(Qt::OpenHandCursor);
    else if (ofTool)
        setCursor(*ofTool);
    else
        unsetCursor();
}

void LWCanvasImageView::bringIntoSight(const QRectF &pixels)
{
    const QRect place = deviceFrame().place();
    if (place.isEmpty())
        return;
    const double across = double(place.width()) / deviceFrame().output().width();
    const double down = double(place.height()) / deviceFrame().output().height();
    CanvasFrame frame = deviceFrame();
    frame.pan({wayInto(frame.room().width(), place.x() + pixels.left() * across, place.x() + pixels.right() * across),
               wayInto(frame.room().height(), place.y() + pixels.top() * down, place.y() + pixels.bottom() * down)});
    if (frame.place() != place)
        takeFrame(frame);
}
