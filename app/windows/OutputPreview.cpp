#include "app/windows/OutputPreview.h"

#include "app/windows/NumberText.h"
#include "app/windows/OutputView.h"
#include "ui_OutputPreview.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <utility>

OutputPreview::OutputPreview(QWidget *parent)
    : QWidget(parent, Qt::Window), m_form(std::make_unique<Ui::OutputPreview>())
{
    m_form->setupUi(this);
    connect(qApp, &QGuiApplication::screenRemoved, this, [this](const QScreen *gone) {
        if (gone == m_display)
            leaveDisplay();
    });
}

OutputPreview::~OutputPreview() = default;

void OutputPreview::showOutput(const QImage &output)
{
    const bool isAnother = output.size() != m_outputSize;
    m_outputSize = output.size();
    m_form->pvwImageWell->showOutput(output);
    if (isAnother && m_display)
        tellFit();
}

void OutputPreview::releaseOutput()
{
    m_form->pvwImageWell->releaseOutput();
}

void OutputPreview::showOn(QScreen &display)
{
    if (m_display) {
        disconnect(m_resolution);
        showNormal(); // what fills a display is not moved to another one
    } else {
        m_hasWindow = isVisible();
        m_windowGeometry = geometry();
    }
    m_display = &display;
    m_resolution = connect(&display, &QScreen::geometryChanged, this, &OutputPreview::fillDisplay);
    m_form->pvwImageWell->setFit(OutputView::Fit::PixelForPixel);
    setCursor(Qt::BlankCursor);
    winId(); // there is a window handle to be told its display
    windowHandle()->setScreen(&display);
    fillDisplay();
    showFullScreen();
}

void OutputPreview::fillDisplay()
{
    setGeometry(m_display->geometry());
    tellFit();
}

void OutputPreview::leaveDisplay()
{
    if (!std::exchange(m_display, nullptr))
        return;
    disconnect(m_resolution);
    m_form->pvwImageWell->setFit(OutputView::Fit::Whole);
    unsetCursor();
    showNormal();
    setGeometry(m_windowGeometry);
    setVisible(m_hasWindow);
    emit displayDidChange({});
}

void OutputPreview::showInWindow()
{
    m_hasWindow = true;
    leaveDisplay();
    show();
    raise();
}

/// On the wall itself nothing is ever said.
void OutputPreview::tellFit()
{
    const qreal ratio = m_display->devicePixelRatio();
    const QSize display = (QSizeF(m_display->size()) * ratio).toSize();
    // At a scale of 1.5 a display's size is known to within a logical pixel.
    const QSize off = display - m_outputSize;
    const bool fits = std::abs(off.width()) < ratio && std::abs(off.height()) < ratio;
    emit displayDidChange(fits ? QString()
                               : QString("The display has %1 pixels, the output %2; the rest is cut or black.")
                                     .arg(NumberText::size(display), NumberText::size(m_outputSize)));
}

void OutputPreview::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_display)
        leaveDisplay();
    else
        QWidget::keyPressEvent(event);
}

void OutputPreview::closeEvent(QCloseEvent *event)
{
    m_hasWindow = false;
    leaveDisplay();
    QWidget::closeEvent(event);
}
