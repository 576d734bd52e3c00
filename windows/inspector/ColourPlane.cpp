#include "windows/inspector/ColourPlane.h"

#include "windows/Theme.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int fieldHeight = 128;
constexpr int stripHeight = 16;
constexpr int leastPlaneWidth = 240;
constexpr int markRadius = 5;
constexpr int hueStops = 6;

float along(int place, int from, int length)
{
    return std::clamp(static_cast<float>(place - from) / static_cast<float>(std::max(1, length - 1)), 0.0F, 1.0F);
}

void fill(QPainter &painter, const QRect &place, const QPoint &end, const QGradientStops &stops)
{
    QLinearGradient gradient(place.topLeft(), end);
    gradient.setStops(stops);
    painter.fillRect(place, gradient);
}
} // namespace

ColourPlane::ColourPlane(QWidget *parent) : QWidget(parent)
{
    setAccessibleName("Hue, saturation, brightness and opacity");
    setCursor(Qt::CrossCursor);
}

QSize ColourPlane::sizeHint() const
{
    return {leastPlaneWidth, fieldHeight + 2 * (stripHeight + Theme::gap)};
}

QRect ColourPlane::placeOf(Part part) const
{
    if (part == Part::Field)
        return {0, 0, width(), fieldHeight};
    const int strips = part == Part::Hues ? 0 : 1;
    return {0, fieldHeight + Theme::gap + strips * (stripHeight + Theme::gap), width(), stripHeight};
}

QColor ColourPlane::colour() const
{
    return QColor::fromHsvF(m_hue, m_saturation, m_value, m_alpha).toRgb();
}

void ColourPlane::show(const QColor &colour)
{
    if (colour.rgba() == this->colour().rgba())
        return; // the place that was pointed at is finer
    if (colour.hsvHueF() >= 0)
        m_hue = colour.hsvHueF();
    m_saturation = colour.hsvSaturationF();
    m_value = colour.valueF();
    m_alpha = colour.alphaF();
    update();
}

void ColourPlane::mousePressEvent(QMouseEvent *event)
{
    m_held = Part::Field;
    for (const Part part : {Part::Hues, Part::Opacities}) {
        if (event->pos().y() >= placeOf(part).top() - Theme::gap / 2)
            m_held = part;
    }
    point(event->pos());
}

void ColourPlane::mouseMoveEvent(QMouseEvent *event)
{
    point(event->pos());
}

void ColourPlane::point(const QPoint &place)
{
    const float across = along(place.x(), 0, width());
    switch (m_held) {
    case Part::Field:
        m_saturation = across;
        m_value = 1 - along(place.y(), 0, fieldHeight);
        break;
    case Part::Hues:
        m_hue = across;
        break;
    case Part::Opacities:
        m_alpha = across;
        break;
    }
    update();
    emit pointed(colour());
}

void ColourPlane::paintMark(QPainter &painter, const QPointF &place) const
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawEllipse(place, markRadius, markRadius);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawEllipse(place, markRadius, markRadius);
}

void ColourPlane::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect field = placeOf(Part::Field);
    fill(painter, field, field.topRight(), {{0, Qt::white}, {1, QColor::fromHsvF(m_hue, 1, 1)}});
    fill(painter, field, field.bottomLeft(), {{0, Qt::transparent}, {1, Qt::black}});
    const QRect hues = placeOf(Part::Hues);
    QGradientStops circle;
    for (int stop = 0; stop <= hueStops; ++stop)
        circle.append({double(stop) / hueStops, QColor::fromHsv(360 * stop / hueStops % 360, 255, 255)});
    fill(painter, hues, hues.topRight(), circle);
    const QRect opacities = placeOf(Part::Opacities);
    QColor opaque = colour();
    opaque.setAlpha(255);
    fill(painter, opacities, opacities.topRight(), {{0, Theme::panel}, {1, opaque}});

    const double right = width() - 1;
    paintMark(painter, {m_saturation * right, (1 - m_value) * (fieldHeight - 1)});
    paintMark(painter, {m_hue * right, QRectF(hues).center().y()});
    paintMark(painter, {m_alpha * right, QRectF(opacities).center().y()});
}
