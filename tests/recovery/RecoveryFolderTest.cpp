#include "recovery/RecoveryFolder.h"

#include "tests/recovery/RecoveryFixture.h"

namespace {
class RecoveryFolderTest : public RecoveryFixture
{
protected:
    /// Makes a folder in that of the copies, with files by name.
    QString place(const QString &name, const QStringList &files)
    {
        QString path = folder + "/" + name;
        EXPECT_TRUE(QDir().mkpath(path));
        for (const QString &file : files)
            write(path + "/" + file, "anything");
        return path;
    }
};
} // namespace

TEST_F(RecoveryFolderTest, AFolderThatIsNotThereHasNoCopies)
{
    EXPECT_TRUE(RecoveryFolder::found(folder).empty());
    EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(RecoveryFolderTest, TheNewestCopyComesFirst)
{
    const std::vector<FoundCopy> copies{leftCopy(641), leftCopy(642), leftCopy(643)};
    const QDateTime noon(QDate(2024, 5, 17), QTime(12, 0));
    const int minutes[] = {1, 2, 0};
    for (int i = 0; i < 3; ++i) {
        QFile file(copies[i].path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(noon.addSecs(60 * minutes[i]), QFileDevice::FileModificationTime));
    }

    const std::vector<FoundCopy> found = RecoveryFolder::found(folder);

    ASSERT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0].path, copies[1].path);
    EXPECT_EQ(found[0].time, noon.addSecs(120));
    EXPECT_EQ(found[1].path, copies[0].path);
    EXPECT_EQ(found[2].path, copies[2].path);
}

TEST_F(RecoveryFolderTest, AnyPathOfAProjectComesBack)
{
    for (const char *path : {"/shows/stage.Orv", "/shows/Bühne 左/a\nb%2F.Orv"})
        EXPECT_EQ(leftCopy(641, path).project.path, path);
    const QString longPath = "/" + QString(4000, u'ü');
    EXPECT_EQ(leftCopy(642, longPath).project.path, longPath);
}

TEST_F(RecoveryFolderTest, WhatTellsTheProjectsContentsComesBackWithItsPath)
{
    const auto recovery = program();
    recovery->documentWasSaved({"/shows/stage.Orv", QByteArray("\0a\xff", 3)});
    edit(*recovery, 641);
    recovery->leave();
    EXPECT_EQ(recovery->found()[0].project, (CopiedProject{"/shows/stage.Orv", QByteArray("\0a\xff", 3)}));

    const QString place = QFileInfo(recovery->found()[0].path).path();
    EXPECT_EQ(QDir(place).entryList(QDir::Files),
              (QStringList{"lock", "project-digest", "project-path", "project.Orv"}));
    write(place + "/project-digest", QByteArray(1 << 20, 'a'));
    EXPECT_EQ(recovery->found()[0].project.digest, "");
    ASSERT_TRUE(QFile::remove(place + "/project-path"));
    EXPECT_EQ(recovery->found()[0].project, CopiedProject());
    ASSERT_TRUE(recovery->discard(recovery->found()[0]));
    EXPECT_FALSE(QDir(place).exists());
}

TEST_F(RecoveryFolderTest, APathThatIsNoneIsLeftOut)
{
    const FoundCopy copy = leftCopy(641, "/shows/stage.Orv");
    const QString file = QFileInfo(copy.path).path() + "/project-path";
    for (const QByteArray &bytes : {QByteArray(), QByteArray("stage.Orv"), QByteArray("/shows\0.Orv", 11),
                                    QByteArray(1 << 20, '/'), QByteArray("\xff\xfe")}) {
        write(file, bytes);
        ASSERT_EQ(RecoveryFolder::found(folder).size(), 1U);
        EXPECT_EQ(RecoveryFolder::found(folder)[0].project.path, QString());
    }
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(RecoveryFolder::found(folder).size(), 1U);
}

TEST_F(RecoveryFolderTest, ACopyWithoutItsLockIsFoundAllTheSame)
{
    const FoundCopy copy = leftCopy(641);
    ASSERT_TRUE(QFile::remove(QFileInfo(copy.path).path() + "/lock"));

    EXPECT_EQ(RecoveryFolder::found(folder).size(), 1U);
}

TEST_F(RecoveryFolderTest, WhatALinkPointsToIsNoCopy)
{
    const QString show = state.filePath("project.Orv");
    write(show, "a person's file");
    QFile::link(state.path(), place("linked", {}) + "/link");
    ASSERT_TRUE(QFile::link(show, folder + "/linked/project.Orv"));
    ASSERT_TRUE(QFile::link(state.path(), folder + "/outside"));

    EXPECT_TRUE(RecoveryFolder::found(folder).empty());
    EXPECT_FALSE(QFile::exists(state.filePath("lock")));
}

TEST_F(RecoveryFolderTest, LeftoversOfKilledProgramsAreClearedAway)
{
    place("unlocked", {});
    place("unwritten", {"lock", "project-path", "project-path.aBcDeF", "project.Orv.aBcDeF"});

    leftCopy(641);

    EXPECT_EQ(QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(RecoveryFolderTest, WhatSomebodyElsePutThereStays)
{
    write(place("notes", {"shopping.txt"}) + "/../readme.txt", "mine");
    place("odd", {"lock", "project.Orv notes", "todo.txt"});
    const FoundCopy copy = leftCopy(641);
    const QString beside = QFileInfo(copy.path).path() + "/beside.txt";
    write(beside, "mine");

    ASSERT_TRUE(program()->discard(copy).has_value());

    EXPECT_TRUE(RecoveryFolder::found(folder).empty());
    for (const QString &path : {folder + "/notes/shopping.txt", folder + "/readme.txt",
                                folder + "/odd/project.Orv notes", folder + "/odd/todo.txt", beside})
        EXPECT_TRUE(QFile::exists(path)) << qPrintable(path);
}

TEST_F(RecoveryFolderTest, AHeldFolderIsNotSwept)
{
    const auto running = program();
    edit(*running, 641);
    running->flush();
    const QString held = copiesOnDisk().value(0);
    ASSERT_TRUE(QFile::remove(held)); // as if it had not been written yet

    leftCopy(642);

    EXPECT_TRUE(QFile::exists(QFileInfo(held).path() + "/lock"));
}
