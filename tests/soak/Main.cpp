#include "drawing/TextLine.h"
#include "tests/soak/Memory.h"
#include "tests/soak/Player.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmapCache>

#include <cstdio>
#include <memory>
#include <set>
#include <sys/time.h>
#include <unistd.h>

namespace {
constexpr int actsBetweenRests = 500;
constexpr long longestAct = 120;       ///< s of a processor; one that takes longer ends the program
constexpr unsigned longestWait = 1800; ///< s, likewise: machines have other things to do

/// Nothing of the person's is touched.
void moveInto(const QString &folder)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char *name : {"TMPDIR", "HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, folder.toLocal8Bit());
}

/// What Qt warns of, once each; failures that are meant to be are no news.
void tellOnce(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    static std::set<QString> told;
    const bool isOurs = QByteArray(context.category).startsWith("wallwright");
    if (type == QtFatalMsg || (type != QtDebugMsg && !isOurs && told.insert(text).second))
        std::fprintf(stderr, "Qt: %s\n", qUtf8Printable(text));
}

struct Plan
{
    unsigned seed;
    int acts;
    int warmUp; ///< acts after which memory shall not grow; 0: nobody asks
};

Plan planOf(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOptions({{"seed", "Repeats a run.", "number"},
                       {"acts", "How many; 20000 where nobody says.", "number", "20000"},
                       {"warm-up", "Acts after which memory may grow by a twentieth at most.", "number", "0"}});
    parser.addHelpOption();
    parser.process(arguments);
    const unsigned seed = parser.isSet("seed") ? parser.value("seed").toUInt() : std::random_device()() % 1'000'000;
    return {seed, parser.value("acts").toInt(), parser.value("warm-up").toInt()};
}

void watch()
{
    const itimerval time{{}, {longestAct, 0}};
    setitimer(ITIMER_PROF, &time, nullptr);
    alarm(longestWait);
}

/// What is kept for the next time is no growth: of letters all room is taken from the beginning, of pixmaps nothing is
/// kept. Qt drops those of controls in time, but never their names.
void settleCaches()
{
    QPixmapCache::setCacheLimit(0);
    for (int i = 0; i < 400; ++i)
        (void)TextLine("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789", 10 + i / 1000.0);
}

/// The last line on stdout is the act that was under way.
Memory run(const Plan &plan)
{
    if (plan.warmUp > 0)
        settleCaches();
    Memory memory;
    Player player(plan.seed);
    for (int number = 1; number <= plan.acts; ++number) {
        std::printf("%d %s\n", number, player.choose());
        std::fflush(stdout);
        watch();
        player.play();
        if (number % actsBetweenRests == 0) {
            player.rest();
            if (plan.warmUp > 0 && number >= plan.warmUp)
                memory.note();
        }
    }
    return memory;
}
} // namespace

/// Prints each act before it is done to stdout, and the seed, the memory and what is broken to stderr.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    moveInto(home.path());
    const QApplication application(argc, argv);
    const Plan plan = planOf(QCoreApplication::arguments());
    std::fprintf(stderr, "seed %u, %d acts\n", plan.seed, plan.acts);
    qInstallMessageHandler(&tellOnce);
    const Memory memory = run(plan);
    if (plan.warmUp == 0)
        return 0;
    std::fprintf(stderr, "%zu KiB, then %zu KiB: %+.1f %%\n", memory.first() / 1024, memory.last() / 1024,
                 memory.growth() * 100);
    return memory.growth() < Memory::mostGrowth ? 0 : 1;
}
