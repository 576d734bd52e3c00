#include "tests/base/AsNobody.h"
#include "tests/recovery/RecoveryFixture.h"

#include <QDateTime>
#include <QFileInfo>

#include <sys/stat.h>

namespace {
class RecoveryPlaceTest : public RecoveryFixture
{
protected:
    /// Puts one edit on disk, or tells why not.
    void keep(RecoveryCopy &recovery, int width)
    {
        edit(recovery, width);
        recovery.flush();
    }
    /// What came of it, in a line.
    QString outcome()
    {
        QStringList widths;
        for (const int width : widthsOnDisk())
            widths.append(QString::number(width));
        return widths.join(' ') + "; " + failures.join(' ');
    }
    static void setMode(const QString &path, mode_t mode)
    {
        EXPECT_EQ(chmod(QFile::encodeName(path).constData(), mode), 0) << qPrintable(path);
    }
    static void setTime(const QString &path, const QDateTime &time)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    }

    const QString noCopy = "Unsaved changes have no recovery copy; save the project to keep them. ";
};
} // namespace

TEST_F(RecoveryPlaceTest, TurnedReadOnlyItIsToldAndTriedAgain)
{
    setMode(state.path(), 0777);

    const QString told = toldToNobody([&] {
        const auto recovery = program();
        keep(*recovery, 641);
        const QString place = QFileInfo(copiesOnDisk().value(0)).path();
        setMode(place, 0500);
        keep(*recovery, 642);
        const QString refused = outcome();
        setMode(place, 0700);
        recovery->flush();
        return refused + "; " + outcome();
    });

    EXPECT_TRUE(told.startsWith("641; " + noCopy + folder)) << qPrintable(told);
    EXPECT_EQ(told.count("Permission denied"), 2) << qPrintable(told); // the one sentence, both times
    EXPECT_TRUE(told.contains("; 642; ")) << qPrintable(told);
}

TEST_F(RecoveryPlaceTest, ADiskThatTurnedReadOnlyAltogetherIsTold)
{
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const QString &path : {state.path(), state.filePath("wallwright"), folder})
        setMode(path, 0555);

    const QString told = toldToNobody([&] {
        const auto recovery = program();
        keep(*recovery, 641);
        return outcome();
    });

    for (const QString &path : {state.path(), state.filePath("wallwright"), folder})
        setMode(path, 0755);
    EXPECT_TRUE(told.startsWith("; " + noCopy + folder)) << qPrintable(told);
}

TEST_F(RecoveryPlaceTest, OfSomebodyElseIsNotUsed)
{
    // Whoever the tests run as, the root of the disk is the system's.
    const QString told = toldToNobody([&] {
        folder = "/";
        const auto recovery = program();
        keep(*recovery, 641);
        return failures.join(' ');
    });

    EXPECT_EQ(told, noCopy + "/: the folder belongs to somebody else; see that it belongs to you");
}

TEST_F(RecoveryPlaceTest, CopiesThatSomebodyElseHasPutThereAreNotOffered)
{
    const FoundCopy copy = leftCopy(641, "/shows/stage.Orv");
    for (const QString &path : {state.path(), folder, QFileInfo(copy.path).path()})
        setMode(path, 0755);
    setMode(QFileInfo(copy.path).path() + "/lock", 0666);

    ASSERT_EQ(RecoveryFolder::found(folder).size(), 1U);
    // Without a person who may be somebody else, it is one's own folder all the same.
    EXPECT_EQ(toldToNobody([&] { return QString::number(RecoveryFolder::found(folder).size()); }),
              geteuid() == 0 ? "0" : "1");
}

TEST_F(RecoveryPlaceTest, MayBeBehindALink)
{
    const QString elsewhere = state.filePath("elsewhere");
    ASSERT_TRUE(QDir().mkpath(elsewhere) && QDir().mkpath(QFileInfo(folder).path()));
    ASSERT_TRUE(QFile::link(elsewhere, folder));

    const FoundCopy copy = leftCopy(641, "/shows/stage.Orv");

    EXPECT_TRUE(failures.isEmpty());
    EXPECT_EQ(copy.project.path, "/shows/stage.Orv");
    EXPECT_EQ(QDir(elsewhere).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(RecoveryPlaceTest, ALinkThatLeadsNowhereIsTold)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(folder).path()));
    ASSERT_TRUE(QFile::link(state.filePath("unplugged/recovery"), folder));
    const auto recovery = program();

    keep(*recovery, 641);

    EXPECT_TRUE(recovery->found().empty());
    EXPECT_EQ(failures, QStringList{noCopy + folder +
                                    ": the folder cannot be made; see that no file stands in its way and that the "
                                    "folder around it can be written to"});
}

TEST_F(RecoveryPlaceTest, ACopyThatWasReplacedByALinkIsNotWrittenThrough)
{
    const QString show = state.filePath("show.Orv");
    write(show, "a person's file");
    auto recovery = program();
    keep(*recovery, 641);
    const QString copy = copiesOnDisk().value(0);
    ASSERT_TRUE(QFile::remove(copy) && QFile::link(show, copy));

    keep(*recovery, 642);
    recovery.reset();

    QFile file(show);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "a person's file");
}

TEST_F(RecoveryPlaceTest, AClockThatWasSetBackLosesNoCopy)
{
    const FoundCopy before = leftCopy(641);
    setTime(before.path, QDateTime::currentDateTime().addDays(1));
    auto recovery = program();
    keep(*recovery, 642);
    setTime(copiesOnDisk().last(), QDateTime::currentDateTime().addDays(1));

    keep(*recovery, 643);
    recovery.reset();

    const std::vector<FoundCopy> found = RecoveryFolder::found(folder);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].path, before.path);
    EXPECT_EQ(widthIn(found[1].path), 643);
    EXPECT_TRUE(failures.isEmpty());
}
