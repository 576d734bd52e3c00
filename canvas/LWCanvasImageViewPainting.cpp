#include "canvas/CanvasDocument.h"
#include "canvas/CanvasPainter.h"
#include "canvas/LWCanvasImageView.h"
#include "drawing/TextLine.h"
#include "still/LWStill.h"

#include <QFileInfo>
#include <QPaintEvent>

#include <algorithm>

namespace {
constexpr int leastWidthOfName = 160;
constexpr int paddingOfText = CanvasPainter::paddingOfText;
} // namespace

void LWCanvasImageView::paintEvent(QPaintEvent *event)
{
    CanvasPainter painter(*this, m_geometry, m_pointer);
    const QRect inside = m_geometry.widgetPlaceOf(deviceFrame().place()).toAlignedRect().adjusted(2, 2, -2, -2);
    for (const QRect &ground : event->region() - inside)
        painter.inWidget().fillRect(ground, palette().color(QPalette::Base));
    if (m_geometry.isEmpty())
        return paintWithoutOutput(painter.inWidget());
    m_picture.paintFramed(painter.inDevicePixels(), m_document.output(), deviceFrame().place(),
                          {QPoint(0, 0), deviceFrame().room()}, palette().color(QPalette::Mid),
                          palette().color(QPalette::Base));
    for (const PlacedName &still : missingPictures())
        paintMissingPicture(painter.inDevicePixels(), still);
    toolInEffect().paint(painter);
    if (const auto selected = nameOfSelected())
        painter.text(selected->place, selected->name);
    toolInEffect().paintTexts(painter);
}

auto LWCanvasImageView::overlay() const -> Overlay
{
    if (m_geometry.isEmpty())
        return {};
    Overlay overlay{nameOfSelected(), {}, missingPictures(), {}};
    for (const LayerPointer &layer : m_document.selectedLayers())
        overlay.selectedPlaces.push_back(m_geometry.devicePlaceOf(*layer));
    if (!m_cropMarker.hide())
        overlay.marker = m_cropMarker.selectedRect();
    return overlay;
}

void LWCanvasImageView::paintWithoutOutput(QPainter &painter) const
{
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter, deviceFrame().output().isEmpty() ? "The output has no picture" : "");
}

/// Of pictures that would be in the output.
auto LWCanvasImageView::missingPictures() const -> std::vector<PlacedName>
{
    std::vector<PlacedName> missing;
    for (const LayerPointer &layer : m_document.layers()) {
        if (layer->kind() != LayerKind::Still || !layer->visible())
            continue;
        const auto &still = static_cast<const LWStill &>(*layer);
        if (!still.isPictureMissing())
            continue;
        const bool isNamed = !still.label().isEmpty();
        const QString name = isNamed ? still.label() : QFileInfo(still.ImageURL().toLocalFile()).fileName();
        missing.push_back({TextLine::shown(name), m_geometry.devicePlaceOf(still)});
    }
    return missing;
}

/// A frame and a name where a picture would be; of neither is anything in the output. The painter works in device
/// pixels.
void LWCanvasImageView::paintMissingPicture(QPainter &painter, const PlacedName &still) const
{
    const auto &[name, place] = still;
    const int width = m_geometry.lineWidth();
    const QColor colour = palette().color(QPalette::PlaceholderText);
    for (const QRect &side : QRegion(place).subtracted(place.adjusted(width, width, -width, -width)))
        painter.fillRect(side, colour);
    painter.setPen(colour);
    painter.translate(place.topLeft());
    painter.scale(m_geometry.pixelRatio(), m_geometry.pixelRatio());
    const QRectF room(QPointF(0, 0), QSizeF(place.size()) / m_geometry.pixelRatio());
    painter.drawText(
        room, Qt::AlignCenter,
        fontMetrics().elidedText(name, Qt::ElideMiddle, static_cast<int>(room.width()) - 2 * paddingOfText));
}

/// Of the layer that clicks go to, above its top left or as near to that as is in sight.
auto LWCanvasImageView::nameOfSelected() const -> std::optional<PlacedName>
{
    const LayerPointer layer = m_document.selectedLayer();
    const QRect place = layer ? m_geometry.devicePlaceOf(*layer) : QRect();
    if (!layer || layer->label().isEmpty() || !place.intersects({QPoint(0, 0), deviceFrame().room()}))
        return std::nullopt;
    const int most = std::max(leastWidthOfName, qRound(place.width() / m_geometry.pixelRatio())) - 2 * paddingOfText;
    const QString name = fontMetrics().elidedText(TextLine::shown(layer->label()), Qt::ElideRight, most);
    const QSize size = fontMetrics().size(Qt::TextSingleLine, name) + QSize(2 * paddingOfText, 0);
    const QPoint corner = m_geometry.widgetPointOf(place.topLeft()).toPoint() - QPoint(1, size.height() + 1);
    return PlacedName{name, movedIntoSight(*this, {corner, size})};
}
