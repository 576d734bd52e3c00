#include "base/NearestInt.h"
#include "canvas/CanvasDocument.h"
#include "canvas/JXSelectionBorder.h"
#include "canvas/Logging.h"
#include "still/LWStill.h"

#include <cmath>
#include <limits>
#include <utility>

namespace {
/// Output pixels in a `length` of the view that is itself a whole number of pixels times a scale, both rounded to
/// single precision. Where only that rounding keeps it below a whole pixel, the pixel counts: a picture that someone
/// takes hold of and lets go again does not shrink.
int wholePixels(double length, float scale)
{
    const float pixels = static_cast<float>(length) / scale;
    const float nearest = std::round(pixels);
    const float rounding = std::abs(nearest) * std::numeric_limits<float>::epsilon();
    return truncated(double{std::abs(pixels - nearest) <= rounding ? nearest : pixels});
}
} // namespace

void JXSelectionBorder::selectAndTrackMouseWithEvent(const MouseLocation &press, const LayerPointer &layer)
{
    if (m_selectedRect.isNull())
        return;
    Handle handle = Handle::None;
    m_rectAtPress = m_selectedRect;
    m_pressPixel = press.pixel;
    if (mouseIsInFrame(press.inView, handle) && handle == Handle::None)
        moveWithEvent(press, layer);
    else
        resizeWithEvent(handle, layer);
}

void JXSelectionBorder::moveWithEvent(const MouseLocation &press, const LayerPointer &layer)
{
    qCDebug(lcCanvas, "class=%s", qUtf8Printable(layer->className()));
    m_still = std::dynamic_pointer_cast<LWStill>(layer);
    if (!m_still)
        return;
    m_isMove = true;
    m_press = press.inWindow;
    m_placeAtPress = {m_still->xpoint(), m_still->ypoint()};
    m_movedTo = m_placeAtPress;
    m_drawingHandles = false;
}

void JXSelectionBorder::resizeWithEvent(Handle handle, const LayerPointer &layer)
{
    m_still = std::dynamic_pointer_cast<LWStill>(layer);
    m_isMove = false;
    m_heldHandle = handle;
    m_handleAtPress = locationOfHandle(handle, m_selectedRect);
}

/// A coordinate of the still after the mouse went that way along its axis; the mouse counts in whole units.
int JXSelectionBorder::moved(int place, double from, double to) const
{
    const float way = static_cast<float>(truncated(to) - truncated(from)) * m_kScaleFactor;
    return truncated(double(place) + truncated(double{way}));
}

QPoint JXSelectionBorder::movedBy(const QPoint &pixels) const
{
    return {nearestInt(qint64{m_placeAtPress.x()} + pixels.x()), nearestInt(qint64{m_placeAtPress.y()} + pixels.y())};
}

void JXSelectionBorder::trackMouse(const MouseLocation &drag, const QRectF &viewBounds)
{
    const bool isExact = !m_exactScale.isEmpty();
    const QPoint pixels = drag.pixel - m_pressPixel;
    if (m_isMove && isExact)
        m_movedTo = movedBy(pixels);
    else if (m_isMove)
        m_movedTo = {moved(m_placeAtPress.x(), m_press.x(), drag.inWindow.x()),
                     moved(m_placeAtPress.y(), drag.inWindow.y(), m_press.y())};
    else if (isExact)
        m_heldHandle = resizeByMovingHandle(
            m_heldHandle,
            m_handleAtPress + QPointF(pixels.x() * m_exactScale.width(), pixels.y() * m_exactScale.height()),
            viewBounds);
    else
        m_heldHandle = resizeByMovingHandle(m_heldHandle, drag.inView, viewBounds);
}

JXSelectionBorder::Outcome JXSelectionBorder::endTracking(const MouseLocation &release, const QRectF &viewBounds)
{
    trackMouse(release, viewBounds);
    m_drawingHandles = true;
    Outcome outcome{std::exchange(m_still, nullptr), {}, m_exactScale};
    if (m_isMove) {
        outcome.still->setXpoint(m_movedTo.x());
        outcome.still->setYpoint(m_movedTo.y());
    } else if (m_heldHandle != Handle::None) {
        outcome.size = m_selectedRect.size();
    }
    return outcome;
}

void JXSelectionBorder::cancelTracking()
{
    m_still = nullptr;
    m_drawingHandles = true;
    m_selectedRect = m_rectAtPress;
}

void JXSelectionBorder::apply(const Outcome &outcome, CanvasDocument &document)
{
    if (!outcome.still)
        return;
    if (outcome.size) {
        const QSize size = sizeOfStill(*outcome.still, *outcome.size, outcome.exactScale);
        if (size != QSize(outcome.still->panelWidth(), outcome.still->panelHeight())) {
            outcome.still->setPanelWidth(size.width());
            outcome.still->setPanelHeight(size.height());
            outcome.still->drawInRect(); // its marker stands where the hand has left it, whenever the document redraws
        }
    }
    document.finishEdit(outcome.size ? "resize image" : "move image");
}

/// The size in output pixels that a rectangle gives a still. A canvas too small to have a scale gives none: it stays.
QSize JXSelectionBorder::sizeOfStill(const LWStill &still, const QSizeF &size, const QSizeF &exactScale)
{
    if (!exactScale.isEmpty())
        return {truncated(std::round(size.width() / exactScale.width())),
                truncated(std::round(size.height() / exactScale.height()))};
    const float scale = still.calculateCoeff().coefficient;
    if (scale <= 0)
        return {still.panelWidth(), still.panelHeight()};
    return {wholePixels(size.width(), scale), wholePixels(size.height(), scale)};
}

std::optional<JXSelectionBorder::Place> JXSelectionBorder::trackedPlace() const
{
    if (!m_still)
        return std::nullopt;
    if (m_isMove)
        return Place{m_movedTo, {m_still->panelWidth(), m_still->panelHeight()}};
    if (m_heldHandle == Handle::None)
        return std::nullopt;
    return Place{{m_still->xpoint(), m_still->ypoint()}, sizeOfStill(*m_still, m_selectedRect.size(), m_exactScale)};
}
