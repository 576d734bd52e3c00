#include "recovery/RecoveryCopy.h"

#include "formats/ProjectFile.h"
#include "tests/base/FullDisk.h"
#include "tests/formats/SampleProject.h"
#include "tests/recovery/RecoveryFixture.h"

#include <QElapsedTimer>
#include <QTest>

using namespace std::chrono_literals;

namespace {
class RecoveryCopyTest : public RecoveryFixture
{
protected:
    /// Edits every 5 ms for `milliseconds`; `pause` lets 5 ms go by. Returns the longest time that an edit was not on
    /// disk, in ms.
    template <typename Pause>
    qint64 longestLag(RecoveryCopy &recovery, qint64 milliseconds, Pause pause)
    {
        QElapsedTimer clock;
        clock.start();
        std::vector<qint64> editedAt;
        qint64 longest = 0;
        while (clock.elapsed() < milliseconds) {
            editedAt.push_back(clock.elapsed());
            edit(recovery, static_cast<int>(editedAt.size()));
            pause();
            const QList<int> onDisk = widthsOnDisk();
            const std::size_t written = onDisk.isEmpty() ? 0 : static_cast<std::size_t>(onDisk.first());
            if (written < editedAt.size())
                longest = qMax(longest, clock.elapsed() - editedAt[written]);
        }
        return longest;
    }
};
} // namespace

TEST_F(RecoveryCopyTest, AnUntouchedDocumentLeavesNothing)
{
    program().reset();

    EXPECT_EQ(timesAsked, 0);
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(RecoveryCopyTest, AChangeIsWrittenOnceAfterASecond)
{
    const auto recovery = program();
    QElapsedTimer clock;
    clock.start();
    edit(*recovery, 641);

    while (copiesOnDisk().isEmpty() && clock.elapsed() < 5000)
        QTest::qWait(5);

    EXPECT_GE(clock.elapsed(), 900);
    EXPECT_LE(clock.elapsed(), 2000);
    QTest::qWait(1300);
    EXPECT_EQ(widthsOnDisk(), QList{641});
    EXPECT_EQ(timesAsked, 1);
}

TEST_F(RecoveryCopyTest, AStreamOfEditsIsNeverTwoSecondsAhead)
{
    const auto recovery = program();

    const qint64 lag = longestLag(*recovery, 4500, [] { QTest::qWait(5); });

    RecordProperty("lag_ms", static_cast<int>(lag));
    EXPECT_LE(lag, 2000);
    EXPECT_GE(lag, 900);
    EXPECT_GE(timesAsked, 2);
    EXPECT_LE(timesAsked, 4); // not once per edit
}

TEST_F(RecoveryCopyTest, AfterALongWriteThePersonHasTenTimesAsLong)
{
    const auto recovery = program();
    const auto timeToDisk = [&](int width) {
        QElapsedTimer clock;
        clock.start();
        edit(*recovery, width);
        EXPECT_TRUE(QTest::qWaitFor([&] { return widthsOnDisk() == QList{width}; }));
        return clock.elapsed();
    };
    timeToTell = 200ms;
    edit(*recovery, 641);
    recovery->flush();
    timeToTell = 0ms;
    EXPECT_GE(timeToDisk(642), 1900);
    EXPECT_LE(timeToDisk(643), 1900); // that one took no time
}

TEST_F(RecoveryCopyTest, ABusyEventLoopHoldsNothingUp)
{
    const auto recovery = program();

    const qint64 lag = longestLag(*recovery, 2500, [] { QTest::qSleep(5); });

    EXPECT_LE(lag, 2000);
    EXPECT_LE(timesAsked, 2);
}

TEST_F(RecoveryCopyTest, FlushWritesAtOnceWhatIsUnwritten)
{
    const auto recovery = program();
    edit(*recovery, 641);

    recovery->flush();
    recovery->flush();

    EXPECT_EQ(widthsOnDisk(), QList{641});
    EXPECT_EQ(timesAsked, 1);
}

TEST_F(RecoveryCopyTest, HoldsTheWholeDocument)
{
    project = sampleProject(host);
    const auto recovery = program();
    recovery->contentDidChange();

    recovery->flush();

    ASSERT_EQ(copiesOnDisk().size(), 1);
    const Result<Project> read = ProjectFile::read(copiesOnDisk().first(), host);
    ASSERT_TRUE(read.has_value()) << qPrintable(read.error().text);
    EXPECT_EQ(archiveText(*read), archiveText(project));
}

TEST_F(RecoveryCopyTest, SavingRemovesItAndStopsTheClock)
{
    const auto recovery = program();
    edit(*recovery, 641);
    recovery->flush();
    edit(*recovery, 642);

    recovery->documentWasSaved({"/shows/stage.Orv", {}});

    EXPECT_TRUE(isFolderEmpty());
    QTest::qWait(1300);
    EXPECT_TRUE(isFolderEmpty());
    EXPECT_EQ(timesAsked, 1);
}

TEST_F(RecoveryCopyTest, ChangesAfterSavingAreKeptAnew)
{
    const auto recovery = program();
    edit(*recovery, 641);
    recovery->flush();
    recovery->documentWasSaved({"/shows/stage.Orv", {}});
    edit(*recovery, 642);

    recovery->flush();

    EXPECT_EQ(widthsOnDisk(), QList{642});
}

TEST_F(RecoveryCopyTest, QuittingASavedDocumentLeavesNothing)
{
    auto recovery = program();
    edit(*recovery, 641);
    recovery->documentWasSaved();

    recovery.reset();

    EXPECT_TRUE(isFolderEmpty());
}

TEST_F(RecoveryCopyTest, QuittingLeavesUnsavedChangesWithTheLastEdit)
{
    auto recovery = program();
    edit(*recovery, 641);
    recovery->flush();
    edit(*recovery, 642);
    recovery.reset();

    const std::vector<FoundCopy> found = program()->found();

    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(widthIn(found[0].path), 642);
    EXPECT_EQ(found[0].project.path, QString());
    EXPECT_LT(std::abs(found[0].time.msecsTo(QDateTime::currentDateTime())), 2000);
}

TEST_F(RecoveryCopyTest, ProgramsAtTheSameTimeKeepApart)
{
    const auto one = program();
    auto other = program();
    edit(*one, 641);
    one->flush();
    edit(*other, 642);
    other->flush();
    EXPECT_EQ(widthsOnDisk(), (QList{641, 642}));
    EXPECT_TRUE(one->found().empty());

    other.reset();

    ASSERT_EQ(one->found().size(), 1U);
    EXPECT_EQ(widthIn(one->found()[0].path), 642);
}

TEST_F(RecoveryCopyTest, AnotherDocumentDoesNotTakeTheCopyWithIt)
{
    const auto recovery = program();
    recovery->documentWasSaved({"/shows/old.Orv", {}});
    edit(*recovery, 641);

    recovery->leave();
    recovery->documentWasSaved({"/shows/new.Orv", {}});

    ASSERT_EQ(recovery->found().size(), 1U);
    EXPECT_EQ(widthIn(recovery->found()[0].path), 641);
    EXPECT_EQ(recovery->found()[0].project.path, "/shows/old.Orv");
}

TEST_F(RecoveryCopyTest, AFullDiskIsToldOnceAndSparesTheLastCopy)
{
    const auto recovery = program();
    edit(*recovery, 641);
    recovery->flush();
    const QStringList copies = copiesOnDisk();
    const QDir place(QFileInfo(copies.value(0)).path());
    const QStringList files = place.entryList(QDir::Files | QDir::Hidden);
    edit(*recovery, 642);

    {
        const FullDisk disk(100);
        recovery->flush();
        recovery->flush();
    }

    EXPECT_EQ(failures, QStringList{"Unsaved changes have no recovery copy; save the project to keep them. " +
                                    copies.value(0) + ": cannot be written: " + FullDisk::reason()});
    EXPECT_EQ(timesAsked, 3);
    EXPECT_EQ(widthsOnDisk(), QList{641});
    EXPECT_EQ(place.entryList(QDir::Files | QDir::Hidden), files);
}

TEST_F(RecoveryCopyTest, ADiskThatIsFullFromTheStartGetsNothingHalf)
{
    const auto recovery = program();
    edit(*recovery, 641);

    {
        const FullDisk disk(100);
        recovery->flush();
    }

    EXPECT_EQ(failures.size(), 1);
    EXPECT_TRUE(isFolderEmpty());
}

TEST_F(RecoveryCopyTest, AFailureAfterASuccessIsToldAgain)
{
    const auto recovery = program();
    for (int width = 641; width < 643; ++width) {
        edit(*recovery, width);
        {
            const FullDisk disk(100);
            recovery->flush();
        }
        recovery->flush();
        EXPECT_EQ(widthsOnDisk(), QList{width});
    }

    EXPECT_EQ(failures.size(), 2);
}

TEST_F(RecoveryCopyTest, AFolderThatCannotBeMadeIsTriedAgainByItself)
{
    ASSERT_TRUE(QDir(state.path()).mkdir("wallwright"));
    write(folder, "a file of this name");
    const auto recovery = program();
    edit(*recovery, 641);
    ASSERT_TRUE(QTest::qWaitFor([&] { return timesAsked == 2; }));
    EXPECT_EQ(failures,
              QStringList{"Unsaved changes have no recovery copy; save the project to keep them. " + folder +
                          ": the folder cannot be made; see that no file stands in its way and that the folder "
                          "around it can be written to"});

    ASSERT_TRUE(QFile::remove(folder));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !copiesOnDisk().isEmpty(); }, 2000));

    EXPECT_EQ(widthsOnDisk(), QList{641});
    EXPECT_EQ(failures.size(), 1);
}

TEST_F(RecoveryCopyTest, ADocumentThatNoFileCanHoldIsTold)
{
    const auto recovery = program();
    edit(*recovery, 641);
    recovery->flush();
    edit(*recovery, 0);

    recovery->flush();

    ASSERT_EQ(failures.size(), 1);
    EXPECT_TRUE(failures[0].contains("the output is 0 x 1080 pixels")) << qPrintable(failures[0]);
    EXPECT_EQ(widthsOnDisk(), QList{641});
}

TEST_F(RecoveryCopyTest, ACopyThatWasClearedAwayIsMadeAnew)
{
    const auto recovery = program();
    edit(*recovery, 641);
    recovery->flush();
    ASSERT_TRUE(QDir(state.filePath("wallwright")).removeRecursively());
    edit(*recovery, 642);

    recovery->flush();

    EXPECT_EQ(widthsOnDisk(), QList{642});
    EXPECT_TRUE(recovery->found().empty());
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(RecoveryCopyTest, ATakenCopyStaysUntilTheDocumentIsSaved)
{
    const FoundCopy copy = leftCopy(641, "/shows/stage.Orv");
    const auto recovery = program();

    const Result<Project> taken = recovery->take(copy, host);

    ASSERT_TRUE(taken.has_value()) << qPrintable(taken.error().text);
    EXPECT_EQ(taken->outputWidth, 641);
    EXPECT_TRUE(recovery->found().empty());
    EXPECT_EQ(copiesOnDisk(), QStringList{copy.path});
    recovery->documentWasSaved({"/shows/stage.Orv", {}});
    EXPECT_TRUE(isFolderEmpty());
}

TEST_F(RecoveryCopyTest, ATakenCopyIsWrittenOverByTheNextChange)
{
    const FoundCopy copy = leftCopy(641, "/shows/stage.Orv");
    auto recovery = program();
    ASSERT_TRUE(recovery->take(copy, host).has_value());
    edit(*recovery, 642);

    recovery.reset();

    const std::vector<FoundCopy> found = program()->found();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].path, copy.path);
    EXPECT_EQ(found[0].project.path, "/shows/stage.Orv");
    EXPECT_EQ(widthIn(copy.path), 642);
}

TEST_F(RecoveryCopyTest, TakingACopyLeavesTheUnsavedChangesThatWereThere)
{
    const FoundCopy copy = leftCopy(641);
    const auto recovery = program();
    edit(*recovery, 642);

    ASSERT_TRUE(recovery->take(copy, host).has_value());

    ASSERT_EQ(recovery->found().size(), 1U);
    EXPECT_EQ(widthIn(recovery->found()[0].path), 642);
}

TEST_F(RecoveryCopyTest, ADamagedCopyHidesNoOtherAndStaysWhereItIs)
{
    const FoundCopy whole = leftCopy(641);
    const FoundCopy damaged = leftCopy(642);
    write(damaged.path, "bplist00 and no more");
    const auto recovery = program();
    edit(*recovery, 643);
    recovery->flush();
    EXPECT_EQ(recovery->found().size(), 2U);

    const Result<Project> taken = recovery->take(damaged, host);

    ASSERT_FALSE(taken.has_value());
    EXPECT_TRUE(taken.error().text.startsWith(damaged.path + ": ")) << qPrintable(taken.error().text);
    EXPECT_EQ(recovery->found().size(), 2U);
    EXPECT_EQ(widthsOnDisk(), (QList{-1, 641, 643}));
    EXPECT_TRUE(recovery->take(whole, host).has_value());
}

TEST_F(RecoveryCopyTest, ACopyIsTakenOnce)
{
    const FoundCopy copy = leftCopy(641);
    const auto recovery = program();
    const auto other = program();
    ASSERT_TRUE(recovery->take(copy, host).has_value());

    const QString taken = copy.path + ": another program has taken this copy; look for it there";
    EXPECT_EQ(other->take(copy, host).error().text, taken);
    EXPECT_EQ(other->discard(copy).error().text, taken);
    EXPECT_EQ(copiesOnDisk().size(), 1);

    recovery->documentWasSaved();
    EXPECT_EQ(other->take(copy, host).error().text, copy.path + ": there is no such copy any more");
}

TEST_F(RecoveryCopyTest, ADiscardedCopyIsGoneAndNoOther)
{
    const FoundCopy copy = leftCopy(641);
    leftCopy(642);
    const auto recovery = program();

    ASSERT_TRUE(recovery->discard(copy).has_value());

    EXPECT_EQ(widthsOnDisk(), QList{642});
    EXPECT_EQ(recovery->found().size(), 1U);
    EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
}
