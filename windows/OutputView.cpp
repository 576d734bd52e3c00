#include "windows/OutputView.h"

#include "base/NumberText.h"
#include "canvas/DevicePixels.h"
#include "output/CanvasFrame.h"
#include "windows/Theme.h"

#include <QPainter>

namespace {
constexpr char wholeTip[] = "The composed output, as it is exported";
} // namespace

OutputView::OutputView(QWidget *parent) : QWidget(parent)
{
    static const ComposedOutput noOutput;
    m_output = &noOutput;
    // The whole area is painted, ground included: Qt need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName("Output");
    setToolTip(wholeTip);
}

void OutputView::setOutput(const ComposedOutput &output)
{
    m_output = &output;
    showOutput();
}

void OutputView::showOutput()
{
    setAccessibleDescription(m_output->picture.isNull() ? QString()
                                                        : NumberText::size(m_output->picture.size()) + " pixels");
    update();
}

void OutputView::setFit(Fit fit)
{
    m_fit = fit;
    setToolTip(fit == Fit::Whole ? QString(wholeTip) : QString()); // on the wall itself nothing is ever said
    update();
}

void OutputView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_fit == Fit::Whole)
        paintWhole(painter);
    else
        paintPixelForPixel(painter);
}

void OutputView::paintWhole(QPainter &painter)
{
    painter.fillRect(rect(), Theme::ground);
    const QSize room = (QSizeF(size()) * devicePixelRatioF()).toSize();
    CanvasFrame frame;
    frame.setRoom(room, qRound(Theme::edge * devicePixelRatioF()));
    frame.setOutput(m_output->picture.size());
    if (frame.place().isEmpty()) {
        painter.setPen(Theme::dimText);
        painter.drawText(rect(), Qt::AlignCenter, m_output->picture.isNull() ? "The output has no picture" : QString());
        return;
    }
    toDevicePixels(painter, *this);
    m_picture.paintFramed(painter, *m_output, frame.place(), {QPoint(0, 0), room}, Theme::line, Theme::ground);
}

void OutputView::paintPixelForPixel(QPainter &painter)
{
    painter.fillRect(rect(), Qt::black);
    toDevicePixels(painter, *this);
    const QRect place = m_output->picture.rect();
    m_picture.paint(painter, *m_output, place, place);
}
