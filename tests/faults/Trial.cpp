#include "tests/faults/Trial.h"

#include "base/Bands.h"
#include "tests/faults/Snapshot.h"

#include <QFile>

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

namespace {
constexpr unsigned longestTrial = 300; ///< s
constexpr int isHeld = 0;
constexpr int isBroken = 1;
constexpr int isUntouched = 2;
const QString memoryKey("(in memory)");

/// A trial's folders and what is known of the operation.
struct Place
{
    const OperationKind &kind;
    QString folder;
    QString notes;

    QString empty() const { return notes + "/filled"; }
    QString before() const { return notes + "/before"; }
    QString after() const { return notes + "/after"; }
    QString report() const { return notes + "/report"; }

    Snapshot now(Operation &operation) const
    {
        Snapshot snapshot = Snapshots::of(folder);
        snapshot.insert(memoryKey, operation.memory().toUtf8());
        return snapshot;
    }
};

/// How a program ends that does `work`.
int statusOf(const std::function<int()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(longestTrial);
        Bands::setMostThreads(2);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

int broken(const Place &place, const QString &why)
{
    QFile report(place.report());
    if (report.open(QIODevice::WriteOnly))
        report.write(why.toUtf8());
    return isBroken;
}

bool namesFile(const OperationKind &kind, const QStringList &told)
{
    const QStringList names = kind.named.split('\n');
    return kind.named.isEmpty() ||
           std::any_of(names.begin(), names.end(), [&](const QString &name) { return told.join('\n').contains(name); });
}

/// Nothing is left behind but what the system will not remove.
/// `isTold`: the copy itself may be among it.
Snapshot withoutRefused(const Snapshot &is, const FaultShim::Fault &fault, const Snapshot &before,
                        const Snapshot &after, bool isTold = false)
{
    if (fault.call != FaultShim::Call::Unlink)
        return is;
    QStringList helpers = before.keys() + is.keys();
    erase_if(helpers, [&](const QString &name) { return after.contains(name) || (name.endsWith(".Orv") && !isTold); });
    return Snapshots::without(is, helpers);
}

/// Whether the outcome and what is on the disk and in memory fit together.
QString whatIsWrong(const Place &place, const FaultShim::Fault &fault, const Operation::Outcome &outcome,
                    const Snapshot &before, const Snapshot &found)
{
    const Snapshot after = Snapshots::load(place.after());
    const Snapshot is = withoutRefused(found, fault, before, after);
    const Snapshot old = withoutRefused(before, fault, before, after);
    if (outcome.isDone && !outcome.isInPart && is != after)
        return "told nothing, but " + Snapshots::difference(is, after);
    const QStringList more = Snapshots::namesBeyond(is, old, after);
    if (is != old && is != after && (!outcome.isInPart || !more.isEmpty()))
        return "half done: " + Snapshots::difference(is, old);
    if (!outcome.isDone && !namesFile(place.kind, outcome.told) && !outcome.told.join('\n').contains("memory"))
        return "no file is named: " + outcome.told.join(" / ");
    return {};
}

int tryOnce(const Place &place, const FaultShim::Fault &fault)
{
    const auto operation = place.kind.make();
    operation->start();
    const Snapshot before = place.now(*operation);
    Snapshots::save(Snapshots::without(before, {memoryKey}), place.before());

    FaultShim::arm(qUtf8Printable(place.folder), fault);
    const Operation::Outcome outcome = operation->run();
    const int calls = FaultShim::disarm();

    const bool isHit = fault.at > 0 && calls >= fault.at;
    const QString wrong = whatIsWrong(place, fault, outcome, before, place.now(*operation));
    if (!wrong.isEmpty())
        return broken(place, wrong);
    const bool areAllSyncs = fault.call == FaultShim::Call::Sync && fault.kind == FaultShim::Kind::Always;
    if (isHit && areAllSyncs && fault.at == 1 && outcome.isDone && !outcome.isInPart)
        return broken(place, "told nothing, but the disk had refused");
    const Operation::Outcome second = operation->run();
    const Snapshot after = Snapshots::load(place.after());
    const QString difference =
        Snapshots::difference(withoutRefused(place.now(*operation), fault, before, after, !outcome.isDone), after);
    if (!(second.isDone || second.isInPart) || !difference.isEmpty())
        return broken(place, "the second try: " + second.told.join(" / ") + ' ' + difference);
    return isHit ? isHeld : isUntouched;
}

/// Whether each file is as it was or as it was to be. What is in addition must be gone at the end, or be a file that
/// was not complete.
QString whatIsWrongAfterKill(const Snapshot &is, const Snapshot &before, const Snapshot &after)
{
    for (auto entry = is.begin(); entry != is.end(); ++entry) {
        const bool isKnown = before.contains(entry.key()) || after.contains(entry.key());
        const bool isWhole = (before.contains(entry.key()) && before[entry.key()] == *entry) ||
                             (after.contains(entry.key()) && after[entry.key()] == *entry);
        if (isKnown && !isWhole)
            return "half done: " + entry.key();
    }
    for (const QString &name : before.keys()) {
        if (after.contains(name) && !is.contains(name))
            return "gone: " + name;
    }
    return {};
}

int startAgain(const Place &place)
{
    const Snapshot before = Snapshots::load(place.before());
    Snapshot after = Snapshots::without(Snapshots::load(place.after()), {memoryKey});
    const QString wrong = whatIsWrongAfterKill(Snapshots::of(place.folder), before, after);
    if (!wrong.isEmpty())
        return broken(place, "killed: " + wrong);
    const auto operation = place.kind.make();
    operation->start();
    const Operation::Outcome outcome = operation->run();
    const Snapshot is = Snapshots::of(place.folder);
    const QStringList more = Snapshots::namesBeyond(is, before, after);
    const QString difference = Snapshots::difference(Snapshots::without(is, more), after);
    if (!outcome.isDone || !difference.isEmpty())
        return broken(place, "the next start: " + outcome.told.join(" / ") + ' ' + difference);
    return isHeld;
}

QString reportOf(const Place &place, int status)
{
    if (WIFSIGNALED(status))
        return QString("ended by signal %1").arg(WTERMSIG(status));
    QFile report(place.report());
    return report.open(QIODevice::ReadOnly) ? QString::fromUtf8(report.readAll()) : QString("?");
}
} // namespace

namespace Trial {

void prepare(const OperationKind &kind, const QString &folder, const QString &notes)
{
    const Place place{kind, folder, notes};
    Snapshots::restore({}, folder);
    const int filled = statusOf([&] {
        kind.fill();
        Snapshots::save(Snapshots::of(folder), place.empty());
        return isHeld;
    });
    const int done = statusOf([&] {
        const auto operation = kind.make();
        operation->start();
        const Operation::Outcome outcome = operation->run();
        if (!outcome.isDone && !outcome.isInPart)
            qFatal("%s", qUtf8Printable(outcome.told.join('\n')));
        Snapshots::save(place.now(*operation), place.after());
        return isHeld;
    });
    if (filled != 0 || done != 0)
        qFatal("%s cannot be prepared", kind.name);
}

Verdict run(const OperationKind &kind, const QString &folder, const QString &notes, const FaultShim::Fault &fault)
{
    const Place place{kind, folder, notes};
    Snapshots::restore(Snapshots::load(place.empty()), folder);
    int status = statusOf([&] { return tryOnce(place, fault); });
    if (WIFEXITED(status) && WEXITSTATUS(status) == FaultShim::killed)
        status = statusOf([&] { return startAgain(place); });
    if (WIFEXITED(status) && WEXITSTATUS(status) == isUntouched)
        return {Result::Untouched, {}};
    if (WIFEXITED(status) && WEXITSTATUS(status) == isHeld)
        return {Result::Held, {}};
    return {Result::Broken, reportOf(place, status)};
}

} // namespace Trial
