#include "canvas/CanvasDocument.h"
#include "canvas/DevicePixels.h"
#include "canvas/LWCanvasImageView.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"

#include <QFileInfo>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
constexpr int distanceOfText = 16;
constexpr int paddingOfText = 4;
constexpr int leastWidthOfName = 160;

QRectF pixelsOf(const Layer &layer)
{
    return {double(layer.xpoint()), double(layer.ypoint()), double(layer.screenSizeWidth()),
            double(layer.screenSizeHeight())};
}
} // namespace

void LWCanvasImageView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Base));
    if (m_frame.place().isEmpty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter, m_frame.output().isEmpty() ? "The output has no picture" : QString());
        return;
    }
    m_hover = hover(); // the document may have changed under the pointer
    painter.save();
    toDevicePixels(painter, *this);
    m_picture.paintFramed(painter, m_frame.place(), {QPoint(0, 0), m_frame.room()}, palette().color(QPalette::Mid),
                          palette().color(QPalette::Base));
    paintMissingPictures(painter);
    m_tool == Tool::Arrange ? paintArranging(painter) : paintSelectedWall(painter);
    if (m_hover)
        paintOutline(painter, m_hover->panel, m_hover->lineWidth);
    painter.restore();
    if (m_tool == Tool::Panels)
        paintMarker(painter);
    paintName(painter);
    if (m_hover)
        paintText(painter, m_hover->labelBox, m_hover->label);
    if (m_arranging && !m_click)
        paintBesidePointer(
            painter, QString("x %1  y %2").arg(m_arranging->grabbed().xpoint()).arg(m_arranging->grabbed().ypoint()));
}

void LWCanvasImageView::paintMarker(QPainter &painter) const
{
    const QPointF corner = frame().topLeft();
    painter.translate(corner);
    m_cropMarker.drawContentInView(painter, QRectF(rect()).translated(-corner));
    painter.translate(-corner);
    const auto place = m_cropMarker.trackedPlace();
    if (!place)
        return;
    paintBesidePointer(painter, QString("x %1  y %2  %3 × %4")
                                    .arg(place->topLeft.x())
                                    .arg(place->topLeft.y())
                                    .arg(place->size.width())
                                    .arg(place->size.height()));
}

/// A frame and a name where a picture would be; of neither is anything in the output. The painter works in device
/// pixels.
void LWCanvasImageView::paintMissingPictures(QPainter &painter) const
{
    for (const LayerPointer &layer : m_document.layers()) {
        const auto *still = qobject_cast<const LWStill *>(layer.get());
        if (!still || !still->visible() || !still->isPictureMissing())
            continue;
        const QRect place = devicePlaceOf(pixelsOf(*still));
        const QColor colour = palette().color(QPalette::PlaceholderText);
        const QRegion frame =
            QRegion(place).subtracted(place.adjusted(lineWidth(), lineWidth(), -lineWidth(), -lineWidth()));
        for (const QRect &side : frame)
            painter.fillRect(side, colour);
        const QString file = QFileInfo(still->ImageURL().toLocalFile()).fileName();
        painter.save();
        painter.setPen(colour);
        painter.translate(place.topLeft());
        painter.scale(m_pixelRatio, m_pixelRatio);
        const QRectF room(QPointF(0, 0), QSizeF(place.size()) / m_pixelRatio);
        painter.drawText(room, Qt::AlignCenter,
                         fontMetrics().elidedText(still->label().isEmpty() ? file : still->label(), Qt::ElideMiddle,
                                                  static_cast<int>(room.width()) - 2 * paddingOfText));
        painter.restore();
    }
}

/// Whose panels a click switches.
void LWCanvasImageView::paintSelectedWall(QPainter &painter) const
{
    const LayerPointer layer = m_document.selectedLayer();
    if (qobject_cast<const LWScreen *>(layer.get()))
        paintOutline(painter, devicePlaceOf(pixelsOf(*layer)), lineWidth());
}

/// Of the layer that clicks go to, above its top left or as near to that as is in sight.
void LWCanvasImageView::paintName(QPainter &painter) const
{
    const LayerPointer layer = m_document.selectedLayer();
    const QRect place = layer ? devicePlaceOf(pixelsOf(*layer)) : QRect();
    if (!layer || layer->label().isEmpty() || !place.intersects({QPoint(0, 0), m_frame.room()}))
        return;
    const int most = std::max(leastWidthOfName, qRound(place.width() / m_pixelRatio)) - 2 * paddingOfText;
    const QString name = fontMetrics().elidedText(layer->label(), Qt::ElideRight, most);
    const QSize size = fontMetrics().size(Qt::TextSingleLine, name) + QSize(2 * paddingOfText, 0);
    const QPointF corner = QPointF(place.topLeft()) / m_pixelRatio + offsetOfDevicePixels();
    paintText(painter, inSight({corner.toPoint() - QPoint(1, size.height() + 1), size}), name);
}

/// Around the selected layers, where they are and not where the last composition shows them.
void LWCanvasImageView::paintArranging(QPainter &painter) const
{
    for (const LayerPointer &layer : m_document.selectedLayers())
        paintOutline(painter, devicePlaceOf(pixelsOf(*layer)), lineWidth());
    if (!m_arranging)
        return;
    const QColor colour = palette().color(QPalette::Highlight);
    for (const double x : m_arranging->uprightLines())
        painter.fillRect(devicePlaceOf({x, 0, 0, 0}).x(), 0, lineWidth(), m_frame.room().height(), colour);
    for (const double y : m_arranging->levelLines())
        painter.fillRect(0, devicePlaceOf({0, y, 0, 0}).y(), m_frame.room().width(), lineWidth(), colour);
}

/// In device pixels.
int LWCanvasImageView::lineWidth() const
{
    return std::max(1, static_cast<int>(m_pixelRatio));
}

/// The device pixels that a rectangle of the output's pixels is shown on. Edges far out of sight are brought close.
QRect LWCanvasImageView::devicePlaceOf(const QRectF &pixels) const
{
    const auto device = [this](double pixel, int start, int length, int count, int room) {
        const double outOfSight = 4.0 * lineWidth();
        return static_cast<int>(
            std::lround(std::clamp(start + pixel * length / count, -outOfSight, room + outOfSight)));
    };
    const QRect place = m_frame.place();
    const QSize output = m_frame.output();
    const auto x = [&](double pixel) {
        return device(pixel, place.x(), place.width(), output.width(), m_frame.room().width());
    };
    const auto y = [&](double pixel) {
        return device(pixel, place.y(), place.height(), output.height(), m_frame.room().height());
    };
    const QPoint corner(x(pixels.left()), y(pixels.top()));
    return {corner, QSize(x(pixels.right()) - corner.x(), y(pixels.bottom()) - corner.y())};
}

/// Outside the edge, so that nothing of what it is around is covered.
void LWCanvasImageView::paintOutline(QPainter &painter, const QRect &place, int width) const
{
    for (const QRect &side : QRegion(place.adjusted(-width, -width, width, width)).subtracted(place))
        painter.fillRect(side, palette().color(QPalette::Highlight));
}

QRect LWCanvasImageView::boxBesidePointer(const QString &text) const
{
    return boxBeside(m_pointer.value_or(middle()).toPoint(), text);
}

QRect LWCanvasImageView::boxBeside(const QPoint &point, const QString &text) const
{
    const QSize size = fontMetrics().size(Qt::TextSingleLine, text) + QSize(2 * paddingOfText, 2 * paddingOfText);
    return inSight({point + QPoint(distanceOfText, distanceOfText), size});
}

QRect LWCanvasImageView::inSight(QRect box) const
{
    box.moveTo(std::clamp(box.x(), 0, std::max(0, width() - box.width())),
               std::clamp(box.y(), 0, std::max(0, height() - box.height())));
    return box;
}

void LWCanvasImageView::paintText(QPainter &painter, const QRect &box, const QString &text) const
{
    painter.fillRect(box, palette().color(QPalette::ToolTipBase));
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawText(box, Qt::AlignCenter, text);
}

void LWCanvasImageView::paintBesidePointer(QPainter &painter, const QString &text) const
{
    paintText(painter, boxBesidePointer(text), text);
}
