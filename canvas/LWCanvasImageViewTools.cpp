#include "canvas/CanvasDocument.h"
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
    if (m_frame.place().isEmpty())
        return;
    const QPoint pixel = outputPixel(widgetPoint);
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
    const QPoint pixel = outputPixel(*m_pointer);
    const QSizeF reach(reachOfLines * m_document.OutputWidth() / frame().width(),
                       reachOfLines * m_document.OutputHeight() / frame().height());
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
    painting->track(outputPixel(*m_pointer),
                    asRectangle ? PanelPainting::Shape::Rectangle : PanelPainting::Shape::Stroke);
}

/// Whether the pointer has not gone far enough from a press for a drag; a click may shake.
bool LWCanvasImageView::isShaking(const std::optional<QPointF> &press) const
{
    return press && QLineF(*press, *m_pointer).length() < leastDrag;
}

LayerPointer LWCanvasImageView::layerUnderPointer() const
{
    const bool isOverOutput = m_pointer && !m_frame.place().isEmpty();
    return isOverOutput ? Arranging::layerAt(m_document, outputPixel(*m_pointer)) : nullptr;
}

std::optional<LWCanvasImageView::Hover> LWCanvasImageView::hover() const
{
    if (const std::optional<LWScreen::Panel> panel = panelCursor())
        return hoverAt(static_cast<const LWScreen &>(*m_panelCursor->wall), *panel);
    if (!m_pointer || m_tool != Tool::Panels || m_isSpaceBarHeld || (isDragged() && !m_painting) ||
        !isInFrame(*m_pointer))
        return std::nullopt;
    const LayerPointer layer = m_document.selectedLayer();
    const auto *screen = qobject_cast<const LWScreen *>(layer.get());
    const QPoint pixel = outputPixel(*m_pointer);
    const bool isOnScreen = screen && PixelBox::of(*screen).contains(pixel);
    const auto panel = isOnScreen ? screen->panelAt(pixel.x(), pixel.y()) : std::nullopt;
    return panel ? std::optional(hoverAt(*screen, *panel)) : std::nullopt;
}

/// The cursor of the keyboard has a wider line, and its label in the panel.
LWCanvasImageView::Hover LWCanvasImageView::hoverAt(const LWScreen &screen, const LWScreen::Panel &panel) const
{
    const QString label = screen.panelLabel(panel);
    const QRect place = devicePlaceOf(screen.panelRect(panel));
    if (!panelCursor())
        return {place, lineWidth(), label, boxBesidePointer(label)};
    const QPointF middle = QPointF(place.center()) / m_pixelRatio + offsetOfDevicePixels();
    return {place, 2 * lineWidth(), label, boxBeside(middle.toPoint(), label)};
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
    const auto logical = [this](const QRect &device) {
        return QRectF(QPointF(device.topLeft()) / m_pixelRatio + offsetOfDevicePixels(),
                      QSizeF(device.size()) / m_pixelRatio);
    };
    const int width = hover.lineWidth;
    const QRect outside = logical(hover.panel.adjusted(-width, -width, width, width)).toAlignedRect();
    const QRect inside = logical(hover.panel).toAlignedRect().adjusted(1, 1, -1, -1);
    return QRegion(outside).subtracted(inside) + hover.labelBox;
}
