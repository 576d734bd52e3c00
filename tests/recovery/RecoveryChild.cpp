#include "recovery/RecoveryCopy.h"
#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>

/// A program to be killed: edits its document every 5 ms, for ever. The output width counts the edits; each is told on
/// stdout with the time of the steady clock in ms, which is the same for all programs of a machine.
/// Arguments: the folder of the recovery copies, and "flush" where every edit is to be written before it is told.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    TestHost host;
    Project project{1080, 0, {}};
    for (int i = 0; i < 100; ++i)
        project.layers.push_back(LWScreen::init(host));

    RecoveryCopy recovery([&] { return project; }, arguments.at(1));
    recovery.documentWasSaved({"/shows/stage.Orv", {}});
    QTimer edits;
    QObject::connect(&edits, &QTimer::timeout, &edits, [&] {
        ++project.outputWidth;
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        recovery.contentDidChange();
        if (arguments.contains("flush"))
            recovery.flush();
        std::printf("%d %lld\n", project.outputWidth,
                    static_cast<long long>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count()));
        std::fflush(stdout);
    });
    edits.start(5);
    return QCoreApplication::exec();
}
