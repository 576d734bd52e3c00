#include "tests/faults/Trial.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <map>
#include <string>

namespace {
using FaultShim::Call;
using FaultShim::Kind;

struct NamedCall
{
    Call call;
    const char *name;
    std::vector<FaultShim::Fault> faults; ///< `call` and `at` are still to be set
};

std::vector<NamedCall> allCalls()
{
    const FaultShim::Fault kill{.kind = Kind::Kill};
    const auto once = [](int error) { return FaultShim::Fault{.kind = Kind::Once, .error = error}; };
    const auto always = [](int error) { return FaultShim::Fault{.kind = Kind::Always, .error = error}; };
    return {
        {Call::Write, "write", {once(EIO), always(ENOSPC), kill}},
        {Call::Sync, "fsync", {once(EIO), always(ENOSPC), kill}},
        {Call::Rename, "rename", {once(EIO), always(EACCES), kill}},
        {Call::Open, "open", {once(EMFILE), once(EIO), always(EACCES), kill}},
        {Call::Close, "close", {once(EIO), always(EIO), kill}},
        {Call::Read, "read", {once(EIO), always(EIO), kill}},
        {Call::Unlink, "unlink", {once(EIO), always(EACCES), kill}},
        {Call::Map, "mmap", {once(ENOMEM), always(ENOMEM), kill}},
        {Call::MakeFolder, "mkdir", {once(ENOSPC), always(EACCES), kill}},
    };
}

/// With large files it is the memory that cannot be had.
std::vector<NamedCall> callsFor(bool large)
{
    if (!large)
        return allCalls();
    return {
        {Call::Allocate, "allocate", {{.kind = Kind::Once, .error = ENOMEM}, {.kind = Kind::Always, .error = ENOMEM}}}};
}

/// Of each kind of call the first error, once.
std::vector<NamedCall> firstOf(std::vector<NamedCall> calls)
{
    for (NamedCall &call : calls)
        call.faults.resize(1);
    return calls;
}

struct Row
{
    int places = 0;
    int trials = 0;
    int held = 0;
};

class Table
{
public:
    explicit Table(const QString &home) : m_folder(home + "/work"), m_notes(home + "/notes") { QDir().mkpath(m_notes); }

    QString folder() const { return m_folder; }

    void fill(const OperationKind &kind, const std::vector<NamedCall> &calls)
    {
        Trial::prepare(kind, m_folder, m_notes);
        for (const NamedCall &call : calls) {
            const Row row = tried(kind, call);
            m_placesByName[kind.name] += row.places;
            print(kind, call, row);
        }
    }
    bool isAllHeld() const
    {
        const bool isEachTried =
            std::ranges::all_of(m_placesByName, [](const auto &entry) { return entry.second > 0; });
        return isEachTried && m_all.held == m_all.trials;
    }
    void printSum() const
    {
        for (const auto &[name, places] : m_placesByName) {
            if (places == 0)
                std::printf("! %s: no call to fail\n", name.c_str());
        }
        std::printf("%d places, %d trials, %d held\n", m_all.places, m_all.trials, m_all.held);
    }

private:
    Row tried(const OperationKind &kind, const NamedCall &call)
    {
        Row row;
        for (FaultShim::Fault fault : call.faults) {
            fault.call = call.call;
            int places = 0;
            while (isAnotherPlace(kind, call, fault, places + 1, row))
                ++places;
            row.places = std::max(row.places, places);
        }
        return row;
    }

    bool isAnotherPlace(const OperationKind &kind, const NamedCall &call, FaultShim::Fault fault, int at, Row &row)
    {
        fault.at = at;
        const Trial::Verdict verdict = Trial::run(kind, m_folder, m_notes, fault);
        if (verdict.result == Trial::Result::Untouched)
            return false;
        ++row.trials;
        row.held += verdict.result == Trial::Result::Held ? 1 : 0;
        if (verdict.result == Trial::Result::Broken)
            std::printf("! %s, %s %d, %s%s: %s\n", kind.name, call.name, at,
                        fault.kind == Kind::Kill ? "killed" : strerrorname_np(fault.error),
                        fault.kind == Kind::Always ? " from there on" : "", qUtf8Printable(verdict.why));
        return at < mostPlaces && (verdict.result == Trial::Result::Held || ++m_broken < mostBroken);
    }

    void print(const OperationKind &kind, const NamedCall &call, const Row &row)
    {
        if (row.trials > 0)
            std::printf("%-20s %-9s %4d places %5d trials %5d held\n", kind.name, call.name, row.places, row.trials,
                        row.held);
        std::fflush(stdout);
        m_all.places += row.places;
        m_all.trials += row.trials;
        m_all.held += row.held;
    }

    static constexpr int mostPlaces = 2000;
    static constexpr int mostBroken = 200; ///< nobody reads more

    int m_broken = 0;
    std::map<std::string, int> m_placesByName; ///< with small and with large files
    QString m_folder;
    QString m_notes;
    Row m_all;
};

/// Nothing of the person's is touched, and everything is in the folder that counts.
void moveInto(const QString &folder)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char *name : {"TMPDIR", "HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, folder.toLocal8Bit());
}
} // namespace

/// Arguments: "--quick" leaves out all but the first error of each call; part of an operation's name, none: all. The
/// table goes to stdout, a line that begins with "!" tells what did not hold, or was not tried. Ends with 0, 1 where
/// there is such a line, or 2 where no operation has that name.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    Table table(QFileInfo(home.path()).canonicalFilePath());
    moveInto(table.folder());
    const QGuiApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool isQuick = arguments.removeAll("--quick") > 0;
    const QString wanted = arguments.value(0);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qUtf8Printable(text));
    });
    int operations = 0;
    for (const bool large : {false, true}) {
        for (const OperationKind &kind : operationsIn(table.folder(), large)) {
            if (!QString(kind.name).contains(wanted))
                continue;
            table.fill(kind, isQuick ? firstOf(callsFor(large)) : callsFor(large));
            ++operations;
        }
    }
    if (operations == 0) {
        std::fprintf(stderr, "faults: no operation is named \"%s\"\n", qUtf8Printable(wanted));
        return 2;
    }
    table.printSum();
    return table.isAllHeld() ? 0 : 1;
}
