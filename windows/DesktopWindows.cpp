#include "windows/Desktop.h"

#include <QApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <dwmapi.h>

namespace {
/// Darkens the frame of each window before it is seen.
class DarkFrames final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *window = qobject_cast<QWindow *>(object);
        if (window && window->isTopLevel() && event->type() == QEvent::PlatformSurface &&
            static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() == QPlatformSurfaceEvent::SurfaceCreated)
            darken(reinterpret_cast<HWND>(window->winId()));
        return false;
    }

private:
    static void darken(HWND window)
    {
        constexpr DWORD darkFrame = 20; // DWMWA_USE_IMMERSIVE_DARK_MODE; older systems refuse it, and theirs stays
        const BOOL isDark = TRUE;
        DwmSetWindowAttribute(window, darkFrame, &isDark, sizeof isDark);
    }
};
} // namespace

void Desktop::findFonts() {}

void Desktop::darkenFrames()
{
    static const auto *frames = [] {
        auto *made = new DarkFrames(qApp);
        qApp->installEventFilter(made);
        return made;
    }();
    Q_UNUSED(frames)
}
