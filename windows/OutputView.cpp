#include "windows/OutputView.h"

#include "base/NumberText.h"
#include "canvas/DevicePixels.h"
#include "live/ShownOutput.h"
#include "output/CanvasFrame.h"
#include "windows/Theme.h"

#include <QPainter>

OutputView::OutputView(QWidget *parent) : QWidget(parent)
{
    // The whole area is painted, ground included: Qt need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName("Output");
    setToolTip("The output as it is shown; a chart that lies over it is not exported");
}

void OutputView::setOutput(const ShownOutput &shown)
{
    m_shown = &shown;
    connect(&shown, &ShownOutput::changed, this, &OutputView::showOutput);
    showOutput();
}

const ComposedOutput &OutputView::output() const
{
    static const ComposedOutput none;
    return m_shown ? m_shown->output() : none;
}

void OutputView::showOutput()
{
    setAccessibleDescription(output().picture.isNull() ? QString()
                                                       : NumberText::size(output().picture.size()) + " pixels");
    for (const QRect &part : m_picture.stale(output(), place())) {
        const QRectF logical(QPointF(part.topLeft()) / devicePixelRatioF(), QSizeF(part.size()) / devicePixelRatioF());
        update(logical.toAlignedRect().adjusted(-1, -1, 1, 1));
    }
    if (place() != m_painted)
        update();
}

void OutputView::paintEvent(QPaintEvent *)
{
    m_painted = place();
    QPainter painter(this);
    painter.fillRect(rect(), Theme::ground);
    if (m_painted.isEmpty()) {
        painter.setPen(Theme::dimText);
        painter.drawText(rect(), Qt::AlignCenter, output().picture.isNull() ? "The output has no picture" : QString());
        return;
    }
    toDevicePixels(painter, *this);
    m_picture.paintFramed(painter, output(), m_painted, {QPoint(0, 0), room()}, Theme::line, Theme::ground);
}

QRect OutputView::place() const
{
    CanvasFrame frame;
    frame.setRoom(room(), qRound(Theme::edge * devicePixelRatioF()));
    frame.setOutput(output().picture.size());
    return frame.place();
}
