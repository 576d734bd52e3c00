#include "canvas/CanvasDocument.h"
#include "canvas/CanvasPainter.h"
#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QFileInfo>
#include <QPaintEvent>

#include <algorithm>

namespace {
constexpr int leastWidthOfName = 160;
constexpr int paddingOfText = CanvasPainter::paddingOfText;

QString textBeside(const JXSelectionBorder::Place &place)
{
    return QString("x %1  y %2  %3 × %4")
        .arg(place.topLeft.x())
        .arg(place.topLeft.y())
        .arg(place.size.width())
        .arg(place.size.height());
}
} // namespace

void LWCanvasImageView::paintEvent(QPaintEvent *event)
{
    CanvasPainter painter(*this, m_geometry, m_pointer);
    painter.inWidget().fillRect(event->rect(), palette().color(QPalette::Base));
    if (m_geometry.isEmpty())
        return paintWithoutOutput(painter.inWidget());
    m_hover = hover(); // the document may have changed under the pointer
    m_picture.paintFramed(painter.inDevicePixels(), deviceFrame().place(), {QPoint(0, 0), deviceFrame().room()},
                          palette().color(QPalette::Mid), palette().color(QPalette::Base));
    for (const LayerPointer &layer : m_document.layers()) {
        const auto *still = qobject_cast<const LWStill *>(layer.get());
        if (still && still->visible() && still->isPictureMissing())
            paintMissingPicture(painter.inDevicePixels(), *still);
    }
    m_tool == Tool::Arrange ? paintArranging(painter) : paintSelectedWall(painter);
    if (m_hover)
        painter.outline(m_hover->panel, m_hover->lineWidth);
    if (m_tool == Tool::Panels)
        paintMarker(painter);
    paintName(painter);
    if (m_hover)
        painter.text(m_hover->labelBox, m_hover->label);
    if (m_arranging && !m_click)
        painter.textBesidePointer(
            QString("x %1  y %2").arg(m_arranging->grabbed().xpoint()).arg(m_arranging->grabbed().ypoint()));
}

void LWCanvasImageView::paintWithoutOutput(QPainter &painter) const
{
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter, deviceFrame().output().isEmpty() ? "The output has no picture" : "");
}

void LWCanvasImageView::paintMarker(CanvasPainter &painter) const
{
    const QPointF corner = frame().topLeft();
    QPainter &inView = painter.inWidget();
    inView.translate(corner);
    m_cropMarker.drawContentInView(inView, QRectF(rect()).translated(-corner));
    if (const auto place = m_cropMarker.trackedPlace())
        painter.textBesidePointer(textBeside(*place));
}

/// A frame and a name where a picture would be; of neither is anything in the output. The painter works in device
/// pixels.
void LWCanvasImageView::paintMissingPicture(QPainter &painter, const LWStill &still) const
{
    const QRect place = m_geometry.devicePlaceOf(still);
    const int width = m_geometry.lineWidth();
    const QColor colour = palette().color(QPalette::PlaceholderText);
    for (const QRect &side : QRegion(place).subtracted(place.adjusted(width, width, -width, -width)))
        painter.fillRect(side, colour);
    painter.setPen(colour);
    painter.translate(place.topLeft());
    painter.scale(m_geometry.pixelRatio(), m_geometry.pixelRatio());
    const QRectF room(QPointF(0, 0), QSizeF(place.size()) / m_geometry.pixelRatio());
    const QString name = still.label().isEmpty() ? QFileInfo(still.ImageURL().toLocalFile()).fileName() : still.label();
    painter.drawText(
        room, Qt::AlignCenter,
        fontMetrics().elidedText(name, Qt::ElideMiddle, static_cast<int>(room.width()) - 2 * paddingOfText));
}

/// Whose panels a click switches.
void LWCanvasImageView::paintSelectedWall(CanvasPainter &painter) const
{
    const LayerPointer layer = m_document.selectedLayer();
    if (qobject_cast<const LWScreen *>(layer.get()))
        painter.outline(*layer);
}

/// Of the layer that clicks go to, above its top left or as near to that as is in sight.
void LWCanvasImageView::paintName(CanvasPainter &painter) const
{
    const LayerPointer layer = m_document.selectedLayer();
    const QRect place = layer ? m_geometry.devicePlaceOf(*layer) : QRect();
    if (!layer || layer->label().isEmpty() || !place.intersects({QPoint(0, 0), deviceFrame().room()}))
        return;
    const int most = std::max(leastWidthOfName, qRound(place.width() / m_geometry.pixelRatio())) - 2 * paddingOfText;
    const QString name = fontMetrics().elidedText(layer->label(), Qt::ElideRight, most);
    const QSize size = fontMetrics().size(Qt::TextSingleLine, name) + QSize(2 * paddingOfText, 0);
    const QPoint corner = m_geometry.widgetPointOf(place.topLeft()).toPoint() - QPoint(1, size.height() + 1);
    painter.text(painter.inSight({corner, size}), name);
}

/// Around the selected layers, where they are and not where the last composition shows them.
void LWCanvasImageView::paintArranging(CanvasPainter &painter) const
{
    for (const LayerPointer &layer : m_document.selectedLayers())
        painter.outline(*layer);
    if (!m_arranging)
        return;
    for (const double x : m_arranging->uprightLines())
        painter.uprightLine(x);
    for (const double y : m_arranging->levelLines())
        painter.levelLine(y);
}
