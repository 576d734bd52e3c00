#include "base/System.h"
#include "cli/CommandLine.h"
#include "windows/MainWindow.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace {
QtMessageHandler handleAsQt = nullptr;

/// Where the system makes no thread, Qt tells so and then waits for ever for what that thread was to paint.
void endWithoutThread(const QString &message)
{
    if (message.startsWith("QThread::start: Thread creation error") ||
        message.startsWith("QThread::start: Failed to create thread")) {
        std::fputs("wallwright: the system has no thread left to draw with; close other programs and try again\n",
                   stderr);
        std::_Exit(static_cast<int>(ExitStatus::Failed));
    }
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    endWithoutThread(message);
    handleAsQt(type, context, message);
}

int runWithoutWindow(int programNameAlone, char *argv[], const QStringList &arguments)
{
    System::choosePlatform(false);
    // What Qt misses on a server (a UTF-8 locale, a runtime folder) or finds in a picture does not matter here and
    // would mix with the reasons.
    QLoggingCategory::setFilterRules("*.warning=false\nwallwright.*.warning=true");
    const QGuiApplication application(programNameAlone, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return static_cast<int>(runCommandLine(arguments, out, err));
}

int failNoDisplay()
{
    std::fputs("wallwright: there is no display for a window; \"wallwright --help\" tells what works without\n",
               stderr);
    return static_cast<int>(ExitStatus::Failed);
}

/// Qt aborts where the display does not answer, and has told it in several lines.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext & /*context*/, const QString &message)
{
    if (type == QtFatalMsg)
        std::_Exit(failNoDisplay());
    endWithoutThread(message);
}

int runWindow(int programNameAlone, char *argv[], const QStringList &arguments)
{
    System::choosePlatform(true);
    Theme::findFonts();
    const QtMessageHandler before = qInstallMessageHandler(&endWithoutDisplay);
    const QApplication application(programNameAlone, argv);
    qInstallMessageHandler(before);
    QApplication::setApplicationName("Wallwright");
    QApplication::setDesktopFileName("org.wallwright.Wallwright"); // the window belongs to its entry in the menu
    MainWindow window;
    const bool isMissing = namesMissingFile(arguments);
    if (!arguments.isEmpty() && !isMissing)
        window.applicationOpenFile(arguments.first());
    window.start();
    if (isMissing)
        QTimer::singleShot(0, &window, [&window] { window.applicationOpenFile({}); });
    return QApplication::exec();
}
} // namespace

int main(int argc, char *argv[])
{
    System::prepareTerminal();
    handleAsQt = qInstallMessageHandler(&handleMessage);
    const Result<QStringList> arguments = argumentsOf(System::arguments(argc, argv));
    if (!arguments) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(arguments.error().text));
        return static_cast<int>(ExitStatus::Misused);
    }

    // Qt sees the program's name alone, since it would take some options for its own.
    const bool opensMissing = namesMissingFile(*arguments) && System::hasDisplay() && System::isStartedByPerson();
    if (!asksForWindow(*arguments) && !opensMissing)
        return runWithoutWindow(1, argv, *arguments);
    return System::hasDisplay() ? runWindow(1, argv, *arguments) : failNoDisplay();
}
