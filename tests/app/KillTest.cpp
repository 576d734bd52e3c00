#include "formats/ProjectFile.h"
#include "recovery/RecoveryFolder.h"
#include "screen/LWScreen.h"
#include "tests/app/KillShow.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <memory>
#include <random>
#include <vector>

namespace {
#ifdef __SANITIZE_ADDRESS__
constexpr int kills = 40;
#else
constexpr int kills = 200;
#endif
constexpr std::size_t atATime = 16;
constexpr int longestLife = 4000;  ///< after the first edit, in ms
constexpr qint64 mayBeLost = 2000; ///< ms of work

/// What a program told of itself.
struct Told
{
    struct Edit
    {
        int number;
        qint64 time;
    };
    std::vector<Edit> edits;
    int saving = -1; ///< the edit that was last begun to be saved; -1: none
    int saved = -1;  ///< the last one that was saved

    /// From the first edit after `kept` to the last, in ms. What a program waits for a busy disk or another program is
    /// no part of it: nobody edits meanwhile.
    qint64 workAfter(int kept) const
    {
        const auto isLost = [kept](const Edit &edit) { return edit.number > kept; };
        const auto firstLost = std::find_if(edits.begin(), edits.end(), isLost);
        return firstLost == edits.end() ? 0 : edits.back().time - firstLost->time;
    }
};

/// A program that edits and saves in folders of its own, until it is killed.
class Victim
{
public:
    Victim(const QString &folder, unsigned seed, int life) : m_folder(folder), m_life(life)
    {
        m_process.start(KILL_CHILD, {recoveryFolder(), projectPath(), QString::number(seed)});
    }

    QString recoveryFolder() const { return m_folder + "/recovery"; }
    QString projectPath() const { return m_folder + "/show/stage.Orv"; }
    QStringList filesOfShow() const { return QDir(m_folder + "/show").entryList(QDir::Files | QDir::Hidden); }

    /// Its first edit has been told so long ago.
    bool isDue()
    {
        if (!m_sinceFirstEdit.isValid() && m_process.bytesAvailable() > 0)
            m_sinceFirstEdit.start();
        return m_sinceFirstEdit.isValid() && m_sinceFirstEdit.elapsed() >= m_life;
    }
    /// At once; returns what it had told until then.
    Told kill()
    {
        m_process.kill();
        EXPECT_TRUE(m_process.waitForFinished());
        EXPECT_EQ(m_process.exitStatus(), QProcess::CrashExit);
        Told told;
        while (m_process.canReadLine()) {
            const QList<QByteArray> words = m_process.readLine().simplified().split(' ');
            const int number = words.value(1).toInt();
            if (words[0] == "edit")
                told.edits.push_back({number, words.value(2).toLongLong()});
            else
                (words[0] == "saving" ? told.saving : told.saved) = number;
        }
        return told;
    }

private:
    QString m_folder;
    int m_life; ///< ms after the first edit
    QProcess m_process;
    QElapsedTimer m_sinceFirstEdit;
};

class KillTest : public ::testing::Test
{
protected:
    /// Every other program has a project to open; the others have none yet.
    std::unique_ptr<Victim> nextVictim()
    {
        const QString folder = home.filePath(QString::number(++started));
        QDir().mkpath(folder + "/show");
        if (started % 2 == 0) {
            EXPECT_TRUE(ProjectFile::write(folder + "/show/stage.Orv", emptyShow()));
        }
        const int life = std::uniform_int_distribution(0, longestLife)(random);
        return std::make_unique<Victim>(folder, random(), life);
    }

    Project emptyShow()
    {
        Project project{KillShow::outputHeight, KillShow::firstWidth, {}};
        for (std::size_t wall = 0; wall < KillShow::walls; ++wall) {
            project.layers.push_back(LWScreen::init(host));
            project.layers.back()->setPowerOnCell(0);
        }
        return project;
    }

    /// The edit that a file holds; -1 where it holds none or is broken.
    int editIn(const QString &path)
    {
        const Result<Project> project = ProjectFile::read(path, host);
        if (!project)
            ADD_FAILURE() << qPrintable(project.error().text);
        return project ? KillShow::editOf(*project) : -1;
    }

    /// The edit in the project file; -1: there is none, and none was saved.
    int checkProject(const Victim &victim, const Told &told, bool hadProject)
    {
        if (!QFile::exists(victim.projectPath())) {
            EXPECT_FALSE(hadProject);
            EXPECT_EQ(told.saved, -1);
            return -1;
        }
        const int edit = editIn(victim.projectPath());
        const int old = told.saved < 0 && hadProject ? 0 : told.saved;
        EXPECT_TRUE(edit >= 0 && (edit == old || edit == told.saving)) << edit << ": " << old << ' ' << told.saving;
        return edit;
    }

    /// The edit in the recovery copy; -1: there is none.
    int checkCopy(const Victim &victim, const Told &told, bool hadProject)
    {
        const std::vector<FoundCopy> found = RecoveryFolder::found(victim.recoveryFolder());
        EXPECT_LE(found.size(), 1U);
        if (found.empty())
            return -1;
        const int edit = editIn(found[0].path);
        EXPECT_GE(edit, 0);
        EXPECT_LE(edit, told.edits.back().number + 1); // one may not have been told any more
        EXPECT_GT(edit, told.saved);                   // or it would have gone
        const bool mayHaveProject = hadProject || told.saving >= 0;
        EXPECT_TRUE(found[0].project.path.isEmpty() || mayHaveProject);
        EXPECT_TRUE(found[0].project.path == victim.projectPath() || (!hadProject && told.saved < 0));
        return edit;
    }

    void check(Victim &victim, int number)
    {
        const bool hadProject = number % 2 == 0;
        const Told told = victim.kill();
        ASSERT_FALSE(told.edits.empty());
        const int inProject = checkProject(victim, told, hadProject);
        const int inCopy = checkCopy(victim, told, hadProject);
        longestLoss = qMax(longestLoss, told.workAfter(qMax(inProject, inCopy)));
        const QStringList files = victim.filesOfShow();
        leftOvers += files.size() - (inProject >= 0 ? 1 : 0);
        EXPECT_LE(files.size(), 2) << qPrintable(files.join(' '));
        withCopy += inCopy >= 0 ? 1 : 0;
        whileSaving += told.saving > told.saved ? 1 : 0;
    }

    const unsigned seed = [] {
        bool isSet = false;
        const unsigned given = qEnvironmentVariable("WALLWRIGHT_SEED").toUInt(&isSet);
        return isSet ? given : std::random_device()();
    }();
    std::mt19937 random{seed};
    TestHost host;
    QTemporaryDir home;
    int started = 0;
    qint64 longestLoss = 0; ///< ms of work that were lost at most
    int withCopy = 0;
    int whileSaving = 0;
    qsizetype leftOvers = 0; ///< files beside the projects
};
} // namespace

TEST_F(KillTest, WhenKilledAtAnyMomentTheProjectOpensAndTwoSecondsOfWorkAreLostAtMost)
{
    std::cout << "WALLWRIGHT_SEED=" << seed << std::endl;
    SCOPED_TRACE(seed);
    struct Running
    {
        std::unique_ptr<Victim> victim;
        int number;
    };
    std::vector<Running> running;
    QElapsedTimer clock;
    QElapsedTimer sinceLast;
    clock.start();
    sinceLast.start();
    for (int killed = 0; killed < kills;) {
        while (running.size() < atATime && started < kills) {
            auto victim = nextVictim();
            running.push_back({std::move(victim), started});
        }
        QTest::qWait(2);
        for (auto next = running.begin(); next != running.end();) {
            if (!next->victim->isDue()) {
                ++next;
                continue;
            }
            check(*next->victim, next->number);
            next = running.erase(next);
            ++killed;
            sinceLast.start();
        }
        ASSERT_LT(sinceLast.elapsed(), 60'000);
    }
    EXPECT_LE(longestLoss, mayBeLost);
    EXPECT_GT(withCopy, kills / 8); // or nothing was put to the test
    std::cout << kills << " kills in " << clock.elapsed() << " ms: " << longestLoss << " ms of work lost at most, "
              << withCopy << " with a recovery copy, " << whileSaving << " while saving, " << leftOvers
              << " temporary files left" << std::endl;
}
