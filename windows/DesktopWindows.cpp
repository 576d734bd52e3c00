#include "windows/Desktop.h"

#include <QApplication>
#include <QPainter>
#include <QPlatformSurfaceEvent>
#include <QWidget>
#include <QWindow>

#include <dwmapi.h>

namespace {
/// Darkens the frame of each window before it is seen, and keeps fonts as they are: a change of the desktop's looks
/// brings those of its own menus and alerts.
class DesktopWatch final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *window = qobject_cast<QWindow *>(object);
        if (!window || !window->isTopLevel())
            return false;
        if (isNew(*event))
            darken(reinterpret_cast<HWND>(window->winId()));
        // What the desktop told before there was a window, nobody heard.
        if (isNew(*event) || event->type() == QEvent::ThemeChange)
            keepFont();
        return false;
    }

private:
    /// In the place of the desktop's for menus and alerts, where Qt has taken those meanwhile.
    static void keepFont()
    {
        const QFont own = QApplication::font();
        if (QApplication::font("QMenuBar") == own && QApplication::font("QMenu") == own &&
            QApplication::font("QMessageBox") == own)
            return;
        QApplication::setFont(QApplication::font());
        QEvent change(QEvent::ApplicationFontChange);
        for (QWidget *widget : QApplication::allWidgets())
            QApplication::sendEvent(widget, &change); // Qt tells them only once the program runs
    }

    static bool isNew(const QEvent &event)
    {
        return event.type() == QEvent::PlatformSurface &&
               static_cast<const QPlatformSurfaceEvent &>(event).surfaceEventType() ==
                   QPlatformSurfaceEvent::SurfaceCreated;
    }

    static void darken(HWND window)
    {
        constexpr DWORD darkFrame = 20; // DWMWA_USE_IMMERSIVE_DARK_MODE; older systems refuse it, and theirs stays
        const BOOL isDark = TRUE;
        DwmSetWindowAttribute(window, darkFrame, &isDark, sizeof isDark);
    }
};
} // namespace

void Desktop::findFonts() {}

void Desktop::keepLooks()
{
    static const auto *watch = [] {
        auto *made = new DesktopWatch(qApp);
        qApp->installEventFilter(made);
        return made;
    }();
    Q_UNUSED(watch)
}

QImage Desktop::drawnSign(const QString &name, int side, const QColor &colour)
{
    constexpr int largestSide = 128;
    QImage shape;
    for (int larger = side; shape.isNull() && larger <= largestSide; ++larger)
        shape.load(QString(":/icons/%1-%2.png").arg(name).arg(larger));
    if (shape.isNull() && side > largestSide)
        shape.load(QString(":/icons/%1-%2.png").arg(name).arg(largestSide));
    if (shape.isNull())
        return {};
    if (shape.width() != side)
        shape = shape.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage sign = shape.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&sign);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(sign.rect(), colour);
    return sign;
}
