#include "windows/MainWindow.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <unistd.h>

/// A program that ends with its first painted window: "main" is the program's own, "empty" one without anything in it.
/// Prints when it got how far, in ms of the steady clock: its first line, the application, the window, its document,
/// the first paint.
namespace {
double now()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

/// Notes when the window has been painted and what was painted is on its way to the screen.
class FirstPaint final : public QObject
{
public:
    FirstPaint(QWidget &window, double (&times)[4]) : m_window(window), m_times(times)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched == &m_window)
            QTimer::singleShot(0, this, &FirstPaint::tell);
        return false;
    }

private:
    void tell()
    {
        std::printf("%.3f %.3f %.3f %.3f %.3f\n", m_times[0], m_times[1], m_times[2], m_times[3], now());
        std::fflush(stdout);
        _exit(0); // ending is not measured
    }

    QWidget &m_window;
    double (&m_times)[4];
};
} // namespace

int main(int argc, char **argv)
{
    double times[4] = {now()};
    const bool isMain = argc > 1 && std::strcmp(argv[1], "main") == 0;
    if (isMain)
        Theme::findFonts();
    QApplication application(argc, argv);
    QApplication::setApplicationName("Wallwright");
    times[1] = now();
    std::unique_ptr<QWidget> window;
    if (isMain)
        window = std::make_unique<MainWindow>();
    else
        window = std::make_unique<QWidget>();
    times[2] = now();
    const FirstPaint firstPaint(*window, times);
    if (auto *own = dynamic_cast<MainWindow *>(window.get())) {
        own->start();
    } else {
        window->resize(1280, 800);
        window->show();
    }
    times[3] = now();
    return QApplication::exec();
}
