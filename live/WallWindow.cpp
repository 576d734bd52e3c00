#include "live/WallWindow.h"

#include "live/IdentifyCard.h"
#include "output/DevicePixels.h"

#include <QCloseEvent>
#include <QImage>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <chrono>

namespace {
/// Nobody tells when the surface gets its scale.
constexpr std::chrono::milliseconds untilNextPaint{16};
} // namespace

WallWindow::WallWindow(Draw draw, QWidget *parent) : QWidget(parent, Qt::Window), m_draw(std::move(draw))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setWindowTitle("Output");
    setAccessibleName("Output on a display");
    setCursor(Qt::BlankCursor);
}

void WallWindow::fill(QScreen &display)
{
    if (m_display) {
        disconnect(m_geometry);
        showNormal(); // what fills a display is not moved to another one
    }
    m_display = &display;
    // The keyboard stays with the main window where that is still seen; showFullScreen() would take it.
    const bool hidesOwner = !parentWidget() || parentWidget()->screen() == &display;
    setAttribute(Qt::WA_ShowWithoutActivating, !hidesOwner); // before there is a window handle
    m_geometry = connect(&display, &QScreen::geometryChanged, this, &WallWindow::followDisplay);
    winId(); // there is a window handle to be told its display
    connect(windowHandle(), &QWindow::screenChanged, this, &WallWindow::displayDidChange, Qt::UniqueConnection);
    windowHandle()->setScreen(&display);
    setGeometry(display.geometry());
    setWindowState(Qt::WindowFullScreen);
    show();
    if (hidesOwner)
        activateWindow();
}

void WallWindow::followDisplay()
{
    setGeometry(m_display->geometry());
    if (isVisible() && !isFullScreen())
        setWindowState(Qt::WindowFullScreen); // another resolution ends that
}

void WallWindow::setRegion(const WallRegion &region)
{
    m_region = region;
    update();
}

void WallWindow::setCard(const QStringList &lines)
{
    if (m_card == lines)
        return;
    m_card = lines;
    update();
}

QTransform WallWindow::turning() const
{
    const QSize size = devicePixels();
    QTransform turned;
    turned.translate(m_region.turn == 90 || m_region.turn == 180 ? size.width() : 0,
                     m_region.turn == 180 || m_region.turn == 270 ? size.height() : 0);
    return turned.rotate(m_region.turn);
}

void WallWindow::renew(const QRegion &output)
{
    const QRect part = m_region.part(devicePixels());
    const QTransform toDevice = turning();
    for (const QRect &rect : output &part) {
        const QRect place = toDevice.mapRect(rect.translated(-part.topLeft()));
        const QRectF logical(QPointF(place.topLeft()) / devicePixelRatioF(),
                             QSizeF(place.size()) / devicePixelRatioF());
        update(devicePixelRatioF() == 1 ? place : logical.toAlignedRect().adjusted(-1, -1, 1, 1));
    }
}

void WallWindow::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    if (!toDevicePixels(painter, ratio))
        QTimer::singleShot(untilNextPaint, this, [this] { update(); });
    const QTransform toDevice = turning();
    const QRect all(QPoint(), devicePixels());
    for (const QRect &rect : event->region()) {
        const QRectF device(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio);
        const QRect place = device.toAlignedRect() & all;
        if (place.isEmpty())
            continue;
        const QRect inPart = toDevice.inverted().mapRect(place);
        const QImage picture = m_draw(inPart.translated(m_region.offset));
        painter.drawImage(place.topLeft(),
                          m_region.turn == 0 ? picture : picture.transformed(QTransform().rotate(m_region.turn)));
    }
    if (!m_card.isEmpty())
        IdentifyCard::paintOnDisplay(painter, devicePixels(), m_region.turn, m_card);
}

void WallWindow::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
    emit pressed(event);
    if (!event->isAccepted())
        QWidget::keyPressEvent(event);
}

void WallWindow::closeEvent(QCloseEvent *event)
{
    emit closed();
    QWidget::closeEvent(event);
}
