#include "canvas/CanvasDocument.h"
#include "canvas/CanvasPainter.h"
#include "canvas/LWCanvasImageView.h"
#include "layer/PixelBox.h"
#include "screen/LWScreen.h"

#include <QLineF>

#include <utility>

namespace {
/// How far lines attract, in logical pixels of the view.
constexpr double reachOfLines = 6;
/// From where on a press is a drag, in logical pixels.
constexpr double leastDrag = 3;
} // namespace

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
    const Tool tool = m_isAltHeld ? Tool::Arrange : m_chosenTool;
    if (tool == m_tool || m_isPressed || isDragged())
        return;
    m_tool = tool;
    showCursor();
    update();
    emit toolDidChange(tool);
}

void LWCanvasImageView::beginArranging(const QPointF &widgetPoint, Qt::KeyboardModifiers modifiers)
{
    if (m_geometry.isEmpty())
        return;
    const QPoint pixel = m_geometry.pixelAt(widgetPoint);
    const LayerPointer grabbed = Arranging::press(m_document, pixel, modifiers.testFlag(Qt::ShiftModifier));
    if (grabbed) {
        m_arranging = std::make_shared<Arranging>(m_document, grabbed, pixel);
        m_click = {widgetPoint, modifiers.testFlag(Qt::ShiftModifier)};
    }
    update();
}

void LWCanvasImageView::trackArranging(bool attracts)
{
    if (!m_pointer || (m_click && isShaking(m_click->place)))
        return;
    m_click.reset();
    const QPoint pixel = m_geometry.pixelAt(*m_pointer);
    const QSizeF reach = m_geometry.pixelsWithin(reachOfLines);
    arrange([&](Arranging &drag) { drag.track(pixel, attracts ? std::optional(reach) : std::nullopt); });
}

void LWCanvasImageView::endArranging()
{
    arrange([this](Arranging &drag) {
        m_arranging.reset();
        const std::optional<Click> click = std::exchange(m_click, std::nullopt);
        if (!click)
            drag.finish();
        else if (!click->extends)
            drag.click();
    });
}

void LWCanvasImageView::cancelArranging()
{
    arrange([this](Arranging &drag) {
        m_arranging.reset();
        m_click.reset();
        drag.cancel();
    });
}

void LWCanvasImageView::arrange(const std::function<void(Arranging &)> &act)
{
    const std::shared_ptr<Arranging> drag = m_arranging; // an update that brings another frame ends it
    act(*drag);
    update();
}

/// What a lost release leaves is seen, and stays.
void LWCanvasImageView::paintPanels(bool asRectangle)
{
    const std::shared_ptr<PanelPainting> painting = m_painting;
    if (!m_isPressed) {
        m_painting.reset();
        return painting->finish();
    }
    if (!m_pointer || isShaking(m_shakenFrom))
        return;
    m_shakenFrom.reset();
    painting->track(m_geometry.pixelAt(*m_pointer),
                    asRectangle ? PanelPainting::Shape::Rectangle : PanelPainting::Shape::Stroke);
}

/// Whether the pointer has not gone far enough from a press for a drag; a click may shake.
bool LWCanvasImageView::isShaking(const std::optional<QPointF> &press) const
{
    return press && QLineF(*press, *m_pointer).length() < leastDrag;
}

LayerPointer LWCanvasImageView::layerUnderPointer() const
{
    const bool isOverOutput = m_pointer && !m_geometry.isEmpty();
    return isOverOutput ? Arranging::layerAt(m_document, m_geometry.pixelAt(*m_pointer)) : nullptr;
}

std::optional<LWCanvasImageView::Hover> LWCanvasImageView::hover() const
{
    if (const std::optional<LWScreen::Panel> panel = panelCursor())
        return hoverAt(static_cast<const LWScreen &>(*m_panelCursor->wall), *panel);
    if (!m_pointer || m_tool != Tool::Panels || m_isSpaceBarHeld || (isDragged() && !m_painting) ||
        !m_geometry.contains(*m_pointer))
        return std::nullopt;
    const LayerPointer layer = m_document.selectedLayer();
    const auto *screen = qobject_cast<const LWScreen *>(layer.get());
    const QPoint pixel = m_geometry.pixelAt(*m_pointer);
    const bool isOnScreen = screen && PixelBox::of(*screen).contains(pixel);
    const auto panel = isOnScreen ? screen->panelAt(pixel.x(), pixel.y()) : std::nullopt;
    return panel ? std::optional(hoverAt(*screen, *panel)) : std::nullopt;
}

/// The cursor of the keyboard has a wider line, and its label in the panel.
LWCanvasImageView::Hover LWCanvasImageView::hoverAt(const LWScreen &screen, const LWScreen::Panel &panel) const
{
    const QString label = screen.panelLabel(panel);
    const QRect place = m_geometry.devicePlaceOf(screen.panelRect(panel));
    const bool isCursor = panelCursor().has_value();
    const QPointF beside = isCursor ? m_geometry.widgetPointOf(place.center()) : m_pointer.value_or(middle());
    return {place, (isCursor ? 2 : 1) * m_geometry.lineWidth(), label, boxBeside(*this, beside, label)};
}

/// Only what changes is painted anew.
void LWCanvasImageView::takeHover()
{
    const std::optional<Hover> before = std::exchange(m_hover, hover());
    if (m_hover == before)
        return;
    if (before)
        update(regionOf(*before));
    if (m_hover)
        update(regionOf(*m_hover));
}

QRegion LWCanvasImageView::regionOf(const Hover &hover) const
{
    const int width = hover.lineWidth;
    const QRect outside = m_geometry.widgetPlaceOf(hover.panel.adjusted(-width, -width, width, width)).toAlignedRect();
    const QRect inside = m_geometry.widgetPlaceOf(hover.panel).toAlignedRect().adjusted(1, 1, -1, -1);
    return QRegion(outside).subtracted(inside) + hover.labelBox;
}
