#include "app/windows/OutputPreview.h"

#include "app/windows/NumberText.h"
#include "app/windows/OutputView.h"
#include "ui_OutputPreview.h"

#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

OutputPreview::OutputPreview(QWidget *parent)
    : QWidget(parent, Qt::Window), m_form(std::make_unique<Ui::OutputPreview>())
{
    m_form->setupUi(this);
}

OutputPreview::~OutputPreview() = default;

void OutputPreview::showOutput(const QImage &output)
{
    const bool isAnother = output.size() != m_outputSize;
    m_outputSize = output.size();
    m_form->pvwImageWell->showOutput(output);
    if (isAnother && m_isOnDisplay)
        tellFit();
}

void OutputPreview::releaseOutput()
{
    m_form->pvwImageWell->releaseOutput();
}

void OutputPreview::showOn(QScreen &display)
{
    m_isOnDisplay = true;
    m_form->pvwImageWell->setFit(OutputView::Fit::PixelForPixel);
    setCursor(Qt::BlankCursor);
    winId(); // there is a window handle to be told its display
    windowHandle()->setScreen(&display);
    setGeometry(display.geometry());
    showFullScreen();
    connect(&display, &QObject::destroyed, this, &OutputPreview::showInWindow);
    tellFit();
}

void OutputPreview::showInWindow()
{
    m_isOnDisplay = false;
    m_form->pvwImageWell->setFit(OutputView::Fit::Whole);
    unsetCursor();
    showNormal();
    raise();
    emit displayDidChange({});
}

/// On the wall itself nothing is ever said.
void OutputPreview::tellFit()
{
    const QSize display = (QSizeF(size()) * devicePixelRatioF()).toSize();
    const bool fits = display == m_outputSize;
    emit displayDidChange(fits ? QString()
                               : QString("The display has %1 pixels, the output %2; the rest is cut or black.")
                                     .arg(NumberText::size(display), NumberText::size(m_outputSize)));
}

void OutputPreview::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_isOnDisplay)
        showInWindow();
    else
        QWidget::keyPressEvent(event);
}
