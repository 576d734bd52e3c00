#include "windows/OutputPreview.h"

#include "base/NumberText.h"
#include "ui_OutputPreview.h"
#include "windows/OutputView.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <utility>

namespace {
/// What a display is known by when it comes back.
QString keyOf(const QScreen &display)
{
    return QStringList{display.name(), display.manufacturer(), display.model(), display.serialNumber()}.join('\n');
}

/// Beside the window, else in the corner that is farthest from its menus.
QPoint besideWindow(const QRect &window, const QSize &size, const QRect &room)
{
    constexpr int frame = 8;
    constexpr int titleBar = 32;
    if (window.right() + frame + size.width() < room.right())
        return {window.right() + frame, window.top()};
    if (window.left() - frame - size.width() > room.left())
        return {window.left() - frame - size.width(), window.top()};
    return room.bottomRight() - QPoint(size.width() + frame, size.height() + titleBar + frame);
}
} // namespace

OutputPreview::OutputPreview(const ComposedOutput &output, QWidget *parent)
    : QWidget(parent, Qt::Window), m_form(std::make_unique<Ui::OutputPreview>()), m_output(output),
      m_outputSize(output.picture.size())
{
    m_form->setupUi(this);
    m_form->pvwImageWell->setOutput(output);
    connect(qApp, &QGuiApplication::screenRemoved, this, [this](const QScreen *gone) {
        if (gone != m_display)
            return;
        leaveDisplay();
        m_awaited = keyOf(*gone);
        emit displayDidChange(gone->name() + " is gone; the output returns to it when it is back.");
    });
    connect(qApp, &QGuiApplication::screenAdded, this, [this](QScreen *added) {
        if (keyOf(*added) == m_awaited)
            showOn(*added);
    });
}

OutputPreview::~OutputPreview() = default;

void OutputPreview::showOutput()
{
    const bool isAnotherSize = std::exchange(m_outputSize, m_output.picture.size()) != m_output.picture.size();
    m_form->pvwImageWell->showOutput();
    if (isAnotherSize && m_display)
        tellFit();
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
    m_awaited.clear();
    // The keyboard stays with the window where that is still seen.
    setAttribute(Qt::WA_ShowWithoutActivating, parentWidget() && parentWidget()->screen() != &display);
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
    if (isVisible() && !isFullScreen())
        showFullScreen(); // another resolution ends that
    tellFit();
}

void OutputPreview::leaveDisplay()
{
    if (!std::exchange(m_awaited, {}).isEmpty())
        emit displayDidChange({});
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
    if (parentWidget() && !std::exchange(m_wasInWindow, true)) {
        const QRect room = parentWidget()->screen()->availableGeometry();
        resize(size().boundedTo(room.size() * 2 / 3)); // the menus stay in reach
        move(besideWindow(parentWidget()->frameGeometry(), size(), room));
    }
    show();
    raise();
}

QString OutputPreview::misfit(const QSize &display, double ratio, bool isWayland, const QSize &output)
{
    // There the desktop rounds what it says of its scales up to whole ones.
    if (isWayland && ratio > 1)
        return "The desktop scales this display: only at a scale of 100 % is the output sure to be shown pixel for "
               "pixel. Set that in the system's display settings.";
    const QSize pixels = (QSizeF(display) * ratio).toSize();
    // At a scale of 1.5 a display's size is known to within a logical pixel.
    const QSize off = pixels - output;
    if (std::abs(off.width()) < ratio && std::abs(off.height()) < ratio)
        return {};
    return QString("The display has %1 pixels, the output %2; the rest is cut or black.")
        .arg(NumberText::size(pixels), NumberText::size(output));
}

/// On the wall itself nothing is ever said.
void OutputPreview::tellFit()
{
    const bool isWayland = QGuiApplication::platformName().startsWith("wayland");
    emit displayDidChange(misfit(m_display->size(), m_display->devicePixelRatio(), isWayland, m_outputSize));
}

void OutputPreview::keyPressEvent(QKeyEvent *event)
{
    const bool isEnd = event->key() == Qt::Key_Escape || event->key() == Qt::Key_F11;
    if (isEnd && (m_display || isWaiting()))
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
