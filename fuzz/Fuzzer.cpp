#include "fuzz/Targets.h"

#include <QGuiApplication>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {
const Fuzz::Target *target = nullptr;
}

/// The target is the one that $FUZZ_TARGET names.
extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(*count, *arguments);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtCriticalMsg || type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    });
    target = Fuzz::targetNamed(qEnvironmentVariable("FUZZ_TARGET"));
    if (!target)
        std::exit(2);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    target->run(QByteArray(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size)));
    return 0;
}
