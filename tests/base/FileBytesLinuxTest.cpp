// Pipes, permissions and links as Linux has them.

#include "base/FileBytes.h"
#include "tests/base/AsNobody.h"
#include "tests/base/FullDisk.h"
#include "tests/base/WrittenFiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace {
/// The folders whose names were asked to reach the disk.
QStringList syncedFolders;
/// What the system says to that; 0: it does it.
int refusalToSync = 0;
} // namespace

/// In the place of the C library's.
extern "C" int fsync(int descriptor)
{
    struct stat status
    {};
    if (fstat(descriptor, &status) != 0 || !S_ISDIR(status.st_mode))
        return static_cast<int>(syscall(SYS_fsync, descriptor));
    syncedFolders += QFile::symLinkTarget(QString("/proc/self/fd/%1").arg(descriptor));
    errno = refusalToSync;
    return refusalToSync != 0 ? -1 : static_cast<int>(syscall(SYS_fsync, descriptor));
}

TEST(FileBytesLinux, ANewNameReachesTheDisk)
{
    const QTemporaryDir folder;
    const QTemporaryDir linked;
    const QString longName(255, u'n');
    ASSERT_TRUE(QFile::link(folder.filePath("show.Orv"), linked.filePath("link")));
    syncedFolders.clear();

    ASSERT_TRUE(FileBytes::write(folder.filePath("show.Orv"), "first"));
    EXPECT_EQ(syncedFolders, QStringList(folder.path()));
    ASSERT_TRUE(FileBytes::write(folder.filePath(longName), "long"));
    EXPECT_EQ(syncedFolders, QStringList({folder.path(), folder.path()}));
    ASSERT_TRUE(FileBytes::write(linked.filePath("link"), "second"));
    EXPECT_EQ(syncedFolders, QStringList({folder.path(), folder.path(), folder.path()}));

    EXPECT_EQ(contents(folder.filePath("show.Orv")), "second");
}

TEST(FileBytesLinux, AFileSystemThatCannotDoThatForFoldersFailsNoSave)
{
    const QTemporaryDir folder;
    refusalToSync = EINVAL;
    const Result<void> written = FileBytes::write(folder.filePath("show.Orv"), "show");
    refusalToSync = 0;

    EXPECT_TRUE(written.has_value());
    EXPECT_EQ(contents(folder.filePath("show.Orv")), "show");
}

TEST(FileBytesLinux, ADeviceIsNotReplacedByAFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("pipe");
    ASSERT_EQ(mkfifo(qPrintable(path), 0600), 0);

    const Result<void> written = FileBytes::write(path, "show");

    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().text, path + ": cannot be written: this is a folder or a device, not a file");
    struct stat status
    {};
    ASSERT_EQ(stat(qPrintable(path), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST(FileBytesLinux, WhatThePersonMayNotDoIsToldInOneSentence)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    ASSERT_TRUE(FileBytes::write(path, "the old show"));
    const auto told = [&](const QString &place) {
        return toldToNobody([&] { return reasonOf(FileBytes::write(place, "new")); });
    };

    ASSERT_EQ(chmod(qPrintable(folder.path()), 0777), 0);
    ASSERT_EQ(chmod(qPrintable(path), 0444), 0);
    EXPECT_EQ(told(path), path + ": cannot be written: the file is read-only");

    ASSERT_EQ(chmod(qPrintable(folder.path()), 0555), 0);
    const QString other = folder.filePath("other.Orv");
    EXPECT_EQ(told(other), other + ": cannot be written: Permission denied");

    ASSERT_EQ(chmod(qPrintable(path), 0), 0);
    EXPECT_EQ(toldToNobody([&] { return reasonOf(FileBytes::read(path, 99)); }),
              path + ": cannot be read: Permission denied");
    ASSERT_EQ(chmod(qPrintable(folder.path()), 0755), 0);
    ASSERT_EQ(chmod(qPrintable(path), 0644), 0);
    EXPECT_EQ(contents(path), "the old show");
}

TEST(FileBytesLinux, ANameOf255BytesIsReplacedWhole)
{
    for (const qsizetype length : {248, 249, 255}) {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QString(length - 4, u'n') + ".Orv");
        ASSERT_TRUE(FileBytes::write(path, "the old show"));
        ASSERT_EQ(chmod(qPrintable(path), 0640), 0);
        {
            const FullDisk disk(4096);
            EXPECT_EQ(reasonOf(FileBytes::write(path, QByteArray(1 << 20, 'x'))),
                      path + ": cannot be written: " + FullDisk::reason());
        }
        EXPECT_EQ(contents(path), "the old show");

        ASSERT_TRUE(FileBytes::write(path, "new")) << length;

        EXPECT_EQ(contents(path), "new");
        struct stat status
        {};
        ASSERT_EQ(stat(qPrintable(path), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0640U);
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }
}

TEST(FileBytesLinux, ALinkToALongNameStaysALink)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString(255, u'n'));
    ASSERT_TRUE(FileBytes::write(path, "the old show"));
    ASSERT_TRUE(QFile::link(path, folder.filePath("link")));

    ASSERT_TRUE(FileBytes::write(folder.filePath("link"), "new"));

    EXPECT_EQ(contents(path), "new");
    EXPECT_TRUE(QFileInfo(folder.filePath("link")).isSymLink());
}

TEST(FileBytesLinux, AFileThatBecomesAPipeMeanwhileIsNotWaitedFor)
{
    const QTemporaryDir folder;
    const QByteArray place = QFile::encodeName(folder.filePath("show.Orv"));
    const QByteArray pipe = QFile::encodeName(folder.filePath("pipe"));
    const QByteArray file = QFile::encodeName(folder.filePath("file"));
    std::atomic<bool> isOver = false;
    std::thread others([&] {
        while (!isOver) {
            mkfifo(pipe.constData(), 0600);
            std::rename(pipe.constData(), place.constData());
            QFile made(QFile::decodeName(file));
            made.open(QIODevice::WriteOnly);
            made.write("show");
            made.close();
            std::rename(file.constData(), place.constData());
        }
    });
    int opened = 0;
    QElapsedTimer gone;
    gone.start();
    // On a busy machine all readings may be over before the others begin.
    for (int i = 0; i < 20'000 || (opened == 0 && gone.elapsed() < 10'000); ++i) {
        const Result<QByteArray> bytes = FileBytes::read(folder.filePath("show.Orv"), 10);
        opened += bytes ? 1 : 0;
        EXPECT_EQ(bytes.value_or("show"), "show");
    }
    isOver = true;
    others.join();
    EXPECT_GT(opened, 0);
}

TEST(FileBytesLinux, APipeIsNotRead)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath("pipe");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);

    EXPECT_EQ(FileBytes::read(pipe, 10).error().text, pipe + ": this is a folder or a device, not a file");
}
