#include "tests/faults/Trial.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QThreadPool>

#include <array>
#include <cerrno>
#include <cstdio>
#include <map>

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
        for (const NamedCall &call : calls)
            print(kind, call, tried(kind, call));
    }
    bool isAllHeld() const { return m_all.held == m_all.trials; }
    void printSum() const { std::printf("%d places, %d trials, %d held\n", m_all.places, m_all.trials, m_all.held); }

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
/// table goes to stdout, a line that begins with "!" tells what did not hold.
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
    for (const bool large : {false, true}) {
        for (const OperationKind &kind : operationsIn(table.folder(), large)) {
            if (QString(kind.name).contains(wanted))
                table.fill(kind, isQuick ? firstOf(callsFor(large)) : callsFor(large));
        }
    }
    table.printSum();
    return table.isAllHeld() ? 0 : 1;
}
