#include "app/windows/MainWindow.h"
#include "cli/CommandLine.h"

#include <QApplication>
#include <QLoggingCategory>

#include <cstdio>

namespace {
int runWithoutWindow(int programNameAlone, char *argv[], const QStringList &arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What Qt misses on a server (a UTF-8 locale, a runtime folder) or finds in a picture does not matter here and
    // would mix with the reasons.
    QLoggingCategory::setFilterRules("*.warning=false\nwallwright.*.warning=true");
    const QGuiApplication application(programNameAlone, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return static_cast<int>(runCommandLine(arguments, out, err));
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

int runWindow(int programNameAlone, char *argv[], const QStringList &arguments)
{
    const QApplication application(programNameAlone, argv);
    QApplication::setApplicationName("Wallwright");
    QApplication::setDesktopFileName("org.wallwright.Wallwright"); // the window belongs to its entry in the menu
    MainWindow window;
    if (!arguments.isEmpty())
        window.applicationOpenFile(arguments.first());
    window.start();
    return QApplication::exec();
}
} // namespace

int main(int argc, char *argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));

    // Qt sees the program's name alone, since it would take some options for its own.
    if (!asksForWindow(arguments))
        return runWithoutWindow(1, argv, arguments);
    if (!hasDisplay()) {
        std::fputs("wallwright: there is no display for a window; \"wallwright --help\" tells what works without\n",
                   stderr);
        return static_cast<int>(ExitStatus::Failed);
    }
    return runWindow(1, argv, arguments);
}
