#include "tests/recovery/RecoveryFixture.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <random>

namespace {
struct Edit
{
    int number;
    qint64 time; ///< of the steady clock, in ms
};

/// From the first edit after `kept` to the last, in ms: what a program waits for a busy disk is no work.
qint64 workAfter(const std::vector<Edit> &edits, int kept)
{
    const auto isLost = [kept](const Edit &edit) { return edit.number > kept; };
    const auto firstLost = std::find_if(edits.begin(), edits.end(), isLost);
    return firstLost == edits.end() ? 0 : edits.back().time - firstLost->time;
}

/// A program that edits all the time, until it is killed.
class Victim
{
public:
    explicit Victim(const QStringList &arguments) { m_process.start(RECOVERY_CHILD, arguments); }

    /// Lets the program run for so long.
    void run(qint64 milliseconds) { QTest::qWait(static_cast<int>(milliseconds)); }
    bool hasEdited() { return m_process.waitForStarted() && m_process.waitForReadyRead(20'000); }
    /// At once; returns what it had told until then.
    std::vector<Edit> kill()
    {
        m_process.kill();
        EXPECT_TRUE(m_process.waitForFinished());
        std::vector<Edit> edits;
        while (m_process.canReadLine()) {
            const QList<QByteArray> words = m_process.readLine().simplified().split(' ');
            edits.push_back({words.value(0).toInt(), words.value(1).toLongLong()});
        }
        return edits;
    }

private:
    QProcess m_process;
};

class RecoveryKillTest : public RecoveryFixture
{};
} // namespace

TEST_F(RecoveryKillTest, TheLastEditOlderThanTwoSecondsIsThere)
{
    Victim victim({folder});
    ASSERT_TRUE(victim.hasEdited());
    victim.run(3700);
    EXPECT_TRUE(RecoveryFolder::found(folder).empty()); // it is running

    const std::vector<Edit> edits = victim.kill();

    const std::vector<FoundCopy> found = RecoveryFolder::found(folder);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].project.path, "/shows/stage.Orv");
    const int recovered = widthIn(found[0].path);
    EXPECT_GT(edits.size(), 100U);
    EXPECT_GT(recovered, 0);
    EXPECT_LE(workAfter(edits, recovered), 2000);
}

TEST_F(RecoveryKillTest, WhateverTheMomentTheCopyOpensAndIsFound)
{
    constexpr std::size_t kills = 20;
    constexpr unsigned seed = 20'240'517;
    std::mt19937 random(seed);
    SCOPED_TRACE(seed);
    for (std::size_t kill = 1; kill <= kills; ++kill) {
        Victim victim({folder, "flush"}); // writes nearly all the time
        ASSERT_TRUE(victim.hasEdited());
        victim.run(std::uniform_int_distribution(0, 60)(random));
        const std::vector<Edit> edits = victim.kill();

        const std::vector<FoundCopy> found = RecoveryFolder::found(folder);
        ASSERT_EQ(found.size(), kill);
        ASSERT_FALSE(edits.empty());
        EXPECT_GE(widthIn(found[0].path), edits.back().number);
    }
    EXPECT_FALSE(widthsOnDisk().contains(-1));

    const auto recovery = program();
    for (const FoundCopy &copy : recovery->found())
        EXPECT_TRUE(recovery->discard(copy).has_value());
    EXPECT_TRUE(isFolderEmpty());
}

TEST_F(RecoveryKillTest, AKilledProgramsCopyIsTakenAsAnyOther)
{
    Victim victim({folder, "flush"});
    ASSERT_TRUE(victim.hasEdited());
    const std::vector<Edit> edits = victim.kill();
    const auto recovery = program();
    ASSERT_EQ(recovery->found().size(), 1U);

    const Result<Project> taken = recovery->take(recovery->found()[0], host);

    ASSERT_TRUE(taken.has_value()) << qPrintable(taken.error().text);
    EXPECT_EQ(taken->layers.size(), 100U);
    EXPECT_GE(taken->outputWidth, edits.back().number);
    recovery->documentWasSaved();
    EXPECT_TRUE(isFolderEmpty());
}

TEST_F(RecoveryKillTest, WhoeverReadsWhileItIsWrittenSeesAWholeProject)
{
    Victim victim({folder, "flush"});
    ASSERT_TRUE(victim.hasEdited());
    QElapsedTimer clock;
    clock.start();
    constexpr int fewestCopies = 11;
    int copies = 0; // that differ from the one read before
    for (int last = 0; clock.elapsed() < 700 || copies < fewestCopies;) {
        const int width = widthIn(copiesOnDisk().value(0));
        ASSERT_GE(width, last);
        if (width > last)
            ++copies;
        last = width;
    }
    victim.kill();
}
