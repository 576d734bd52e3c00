#include "canvas/CanvasRuler.h"

#include "canvas/DevicePixels.h"
#include "canvas/LWCanvasImageView.h"

#include <QFontInfo>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
/// Logical pixels: from number to number, and of ticks from the canvas' side inwards.
constexpr double leastDistance = 60;
constexpr int tickLength = 4;
constexpr int middleTickLength = 7;
constexpr int smallerText = 2;
constexpr int leastText = 7;
constexpr int besideTick = 3;
} // namespace

RulerSteps RulerSteps::of(double length, double least)
{
    constexpr qint64 greatest = 1'000'000'000'000'000'000;
    qint64 power = 1;
    while (power < greatest && double(power) * 10 * length < least)
        power *= 10;
    for (const qint64 factor : {1, 2, 5}) {
        const qint64 step = factor * power;
        if (double(step) * length >= least)
            return {step, std::max<qint64>(1, step / 10)};
    }
    return {10 * power, power};
}

CanvasRuler::CanvasRuler(Qt::Orientation orientation, LWCanvasImageView &canvas, QWidget *parent)
    : QWidget(parent), m_orientation(orientation), m_canvas(canvas)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(isLevel() ? "Ruler, columns of pixels" : "Ruler, rows of pixels");
    isLevel() ? setFixedHeight(thickness) : setFixedWidth(thickness);
    connect(&canvas, &LWCanvasImageView::frameDidChange, this, qOverload<>(&QWidget::update));
    connect(&canvas, &LWCanvasImageView::readOutDidChange, this, &CanvasRuler::takeMark);
}

void CanvasRuler::takeMark()
{
    const std::optional<QPoint> pixel = m_canvas.readOut().pixel;
    const std::optional<int> mark = pixel ? std::optional(along(*pixel)) : std::nullopt;
    if (mark == m_mark)
        return;
    for (const std::optional<int> &changed : {m_mark, mark}) {
        if (changed)
            update(areaOf(*changed));
    }
    m_mark = mark;
}

/// In device pixels, from the canvas' side `depth` inwards.
QRect CanvasRuler::stretch(int from, int length, int depth) const
{
    const int whole = qRound(thickness * devicePixelRatioF());
    return isLevel() ? QRect(from, whole - depth, length, depth) : QRect(whole - depth, from, depth, length);
}

/// Device pixels of an output pixel; 0: there is no output to be measured.
double CanvasRuler::pixelLength() const
{
    const CanvasFrame &frame = m_canvas.deviceFrame();
    return frame.place().isEmpty() ? 0 : double(along(frame.place().size())) / along(frame.output());
}

/// The device pixel where an output pixel begins.
int CanvasRuler::placeOf(qint64 pixel) const
{
    const double place = along(m_canvas.deviceFrame().place().topLeft()) + double(pixel) * pixelLength();
    return static_cast<int>(std::lround(std::clamp(place, -1e6, 1e6)));
}

/// Logical pixels that the mark of an output pixel lies in.
QRect CanvasRuler::areaOf(int pixel) const
{
    const double ratio = devicePixelRatioF();
    const int from = static_cast<int>(std::floor(placeOf(pixel) / ratio)) - 1;
    const int to = static_cast<int>(std::ceil(placeOf(qint64{pixel} + 1) / ratio)) + 2;
    return isLevel() ? QRect(from, 0, to - from, thickness) : QRect(0, from, thickness, to - from);
}

void CanvasRuler::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    const double ratio = devicePixelRatioF();
    toDevicePixels(painter, *this); // as the canvas does
    const int length = static_cast<int>(std::ceil(along(size()) * ratio));
    if (pixelLength() > 0) {
        paintMark(painter);
        paintTicks(painter);
    }
    painter.fillRect(stretch(0, length, 1), palette().color(QPalette::Mid));
}

void CanvasRuler::paintTicks(QPainter &painter) const
{
    const double ratio = devicePixelRatioF();
    const RulerSteps steps = RulerSteps::of(pixelLength(), leastDistance * ratio);
    const double length = pixelLength();
    const int start = along(m_canvas.deviceFrame().place().topLeft());
    const double room = along(size()) * ratio;
    // Ticks in sight may belong to a number before them.
    const auto numberOf = [&](double place) {
        return static_cast<qint64>(std::floor((place - start) / length / double(steps.numbered)));
    };
    const QColor colour = palette().color(QPalette::PlaceholderText);
    for (qint64 number = numberOf(0); number <= numberOf(room); ++number) {
        const qint64 first = number * steps.numbered;
        for (qint64 pixel = first; pixel < first + steps.numbered; pixel += steps.ticked) {
            const bool isMiddle = 2 * (pixel - first) == steps.numbered;
            const int logical = pixel == first ? thickness : isMiddle ? middleTickLength : tickLength;
            painter.fillRect(stretch(placeOf(pixel), 1, qRound(logical * ratio)), colour);
        }
        paintNumber(painter, first);
    }
}

/// Behind its tick; on an upright ruler it runs upwards.
void CanvasRuler::paintNumber(QPainter &painter, qint64 pixel) const
{
    QFont small = font();
    small.setPixelSize(std::max(leastText, QFontInfo(font()).pixelSize() - smallerText));
    const QString text = QString::number(pixel);
    const int width = QFontMetrics(small).horizontalAdvance(text);
    const double ratio = devicePixelRatioF();
    const double place = placeOf(pixel) / ratio + besideTick;
    if (place < 0 || place + width > along(size()))
        return; // cut off, 5000 is read as 500
    painter.save();
    painter.setFont(small);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.scale(ratio, ratio);
    if (isLevel()) {
        painter.translate(place, 0);
    } else {
        painter.translate(0, place + width);
        painter.rotate(-90);
    }
    painter.drawText(QRect(0, 0, width, thickness - tickLength), Qt::AlignCenter | Qt::TextDontClip, text);
    painter.restore();
}

void CanvasRuler::paintMark(QPainter &painter) const
{
    if (!m_mark)
        return;
    const int from = placeOf(*m_mark);
    const int length = std::max(1, placeOf(qint64{*m_mark} + 1) - from);
    const double ratio = devicePixelRatioF();
    const QColor colour = palette().color(QPalette::Highlight);
    painter.fillRect(stretch(from, 1, qRound(thickness * ratio)), colour);
    painter.fillRect(stretch(from, length, qRound(tickLength * ratio)), colour); // a number stays readable
}
