#include "app/windows/OutputView.h"

#include "app/windows/NumberText.h"
#include "app/windows/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

OutputView::OutputView(QWidget *parent) : QWidget(parent)
{
    // The whole area is painted, ground included: Qt need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName("Output");
    setToolTip("The composed output, as it is exported");
}

void OutputView::showOutput(const QImage &output)
{
    m_output = output;
    m_reduced = {};
    setAccessibleDescription(m_output.isNull() ? QString() : NumberText::size(m_output.size()) + " pixels");
    update();
}

void OutputView::releaseOutput()
{
    m_output = {};
}

QSize OutputView::fittedSize(const QSize &output, const QSize &room)
{
    if (output.isEmpty() || room.isEmpty())
        return {};
    const double scale = std::min(double(room.width()) / output.width(), double(room.height()) / output.height());
    if (scale >= 1)
        return output * std::floor(scale);
    // A banner that is a thousand times as wide as high still shows a line.
    return {std::max(1, qRound(output.width() * scale)), std::max(1, qRound(output.height() * scale))};
}

QSize OutputView::sizeInDevicePixels() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize();
}

QSize OutputView::shownSize() const
{
    const int margins = 2 * qRound(Theme::edge * devicePixelRatioF());
    return fittedSize(m_output.size(), sizeInDevicePixels() - QSize(margins, margins));
}

const QImage &OutputView::reduced(const QSize &size)
{
    if (m_reduced.size() != size)
        m_reduced = m_output.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return m_reduced;
}

void OutputView::setFit(Fit fit)
{
    m_fit = fit;
    update();
}

void OutputView::paintPixelForPixel(QPainter &painter) const
{
    painter.fillRect(rect(), Qt::black);
    painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
    painter.drawImage(0, 0, m_output);
}

void OutputView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_fit == Fit::PixelForPixel)
        return paintPixelForPixel(painter);
    painter.fillRect(rect(), Theme::ground);
    const QSize shown = shownSize();
    if (shown.isEmpty()) {
        painter.setPen(Theme::dimText);
        painter.drawText(rect(), Qt::AlignCenter, m_output.isNull() ? "The output has no picture" : QString());
        return;
    }

    // From here on in device pixels, at whole ones: at a scale of 1.5 a widget may begin between two of them.
    painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
    const QPointF origin = painter.deviceTransform().map(QPointF());
    painter.translate(QPointF(origin.toPoint()) - origin);
    const QSize free = sizeInDevicePixels() - shown;
    const QRect place(QPoint(free.width() / 2, free.height() / 2), shown);

    painter.fillRect(place.adjusted(-1, -1, 1, 1), Theme::line);
    // What lies under a transparent output is the ground, not its frame.
    painter.fillRect(place, Theme::ground);
    if (shown.width() < m_output.width() || shown.height() < m_output.height())
        painter.drawImage(place.topLeft(), reduced(shown));
    else
        painter.drawImage(place, m_output);
}
