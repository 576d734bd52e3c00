#include "base/FileBytes.h"

#include "tests/base/FullDisk.h"
#include "tests/base/WrittenFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <atomic>
#include <gtest/gtest.h>
#include <iostream>
#include <thread>
#include <vector>

TEST(FileBytes, ComeBackAsTheyWereWritten)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    const QByteArray bytes("\0\r\n\xff", 4);

    ASSERT_TRUE(FileBytes::write(path, bytes).has_value());

    EXPECT_EQ(FileBytes::read(path, 4).value(), bytes);
}

TEST(FileBytes, ReplaceWhateverStoodThere)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    ASSERT_TRUE(FileBytes::write(path, "a much longer text").has_value());

    ASSERT_TRUE(FileBytes::write(path, "short").has_value());

    EXPECT_EQ(contents(path), "short");
}

TEST(FileBytes, AFullDiskLeavesTheOldFileAndNothingElse)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    ASSERT_TRUE(FileBytes::write(path, "the old show").has_value());

    Result<void> written;
    {
        const FullDisk disk(4096);
        written = FileBytes::write(path, QByteArray(1 << 20, 'x'));
    }

    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().text, path + ": cannot be written: " + FullDisk::reason());
    EXPECT_EQ(contents(path), "the old show");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"show.Orv"});
}

TEST(FileBytes, AFullDiskIsToldOfAFewBytesToo)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");

    Result<void> written;
    {
        const FullDisk disk(1);
        written = FileBytes::write(path, "show"); // fits into a buffer
    }

    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().text, path + ": cannot be written: " + FullDisk::reason());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(FileBytes, InPiecesTheyAreTheSame)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.psd");
    QByteArray bytes((20 << 20) + 7, 'x');
    bytes[9 << 20] = 'y';
    std::vector<double> told;

    const auto outcome = FileBytes::write(path, bytes, [&](double done) {
        told.push_back(done);
        return true;
    });

    EXPECT_EQ(outcome, FileBytes::Outcome::Written);
    EXPECT_TRUE(contents(path) == bytes);
    const double piece = (8 << 20) / static_cast<double>(bytes.size());
    EXPECT_EQ(told, (std::vector<double>{0, piece, 2 * piece}));
}

TEST(FileBytes, CancelledBetweenPiecesTheOldFileStaysAndNothingElse)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.psd");
    ASSERT_TRUE(FileBytes::write(path, "the old show").has_value());

    const auto outcome = FileBytes::write(path, QByteArray(20 << 20, 'x'), [](double done) { return done < 0.5; });

    EXPECT_EQ(outcome, FileBytes::Outcome::Cancelled);
    EXPECT_EQ(contents(path), "the old show");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"show.psd"});
}

TEST(FileBytes, ADiskThatRunsFullBetweenPiecesIsTold)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.psd");
    int pieces = 0;

    Result<FileBytes::Outcome> outcome;
    {
        const FullDisk disk(9 << 20);
        outcome = FileBytes::write(path, QByteArray(20 << 20, 'x'), [&](double) { return ++pieces > 0; });
    }

    ASSERT_FALSE(outcome.has_value());
    EXPECT_EQ(outcome.error().text, path + ": cannot be written: " + FullDisk::reason());
    EXPECT_EQ(pieces, 2);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(FileBytes, AFolderThatIsNotThereIsNamed)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("nowhere/show.Orv");

    const Result<void> written = FileBytes::write(path, "show");

    ASSERT_FALSE(written.has_value());
    EXPECT_TRUE(written.error().text.startsWith(path)) << qPrintable(written.error().text);
}

TEST(FileBytes, AFolderIsNotWrittenOver)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir("show.Orv"));

    EXPECT_FALSE(FileBytes::write(folder.filePath("show.Orv"), "show").has_value());
    EXPECT_TRUE(QDir(folder.filePath("show.Orv")).exists());
}

TEST(FileBytes, OnlyFilesAreRead)
{
    const QTemporaryDir folder;

    EXPECT_EQ(FileBytes::read(folder.filePath("missing"), 10).error().text,
              folder.filePath("missing") + ": there is no such file");
    EXPECT_EQ(FileBytes::read(folder.path(), 10).error().text,
              folder.path() + ": this is a folder or a device, not a file");
}

TEST(FileBytes, AFileThatShrinksWhileItIsReadIsToldAndNeverHalf)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    const QByteArray whole(1 << 20, 's');
    std::atomic<bool> isOver = false;
    ASSERT_TRUE(FileBytes::write(path, whole));
    std::thread others([&] {
        while (!isOver) {
            QFile file(path);
            file.resize(1000);
            file.resize(whole.size());
        }
    });
    int told = 0;
    for (int i = 0; i < 300; ++i) {
        const Result<QByteArray> bytes = FileBytes::read(path, whole.size());
        told += bytes ? 0 : 1;
        if (bytes)
            EXPECT_TRUE(bytes->size() == whole.size() || bytes->size() == 1000);
        else
            EXPECT_EQ(bytes.error().text.section(": ", 0, 1), path + ": cannot be read to its end");
    }
    isOver = true;
    others.join();
    std::cout << told << " of 300 were cut off" << std::endl;
}

TEST(FileBytes, ALargerFileIsRefusedUnread)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{1} << 32));

    EXPECT_EQ(FileBytes::read(path, 512 << 20).error().text,
              path + ": the file has 4.00 GiB; more than 512.00 MiB is not read");
}

TEST(FileBytes, ALargerFileHasNoDigest)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(1000));
    EXPECT_EQ(FileBytes::digest(path, 1000), FileBytes::digestOf(QByteArray(1000, '\0')));
    EXPECT_EQ(FileBytes::digest(path, 999), "");

    ASSERT_TRUE(file.resize(qint64{1} << 40)); // hours to read
    EXPECT_EQ(FileBytes::digest(path, 512 << 20), "");
}

TEST(FileBytes, AnExtensionStandsAtTheEndOnce)
{
    EXPECT_EQ(FileBytes::withExtension("/a/show", "Orv"), "/a/show.Orv");
    EXPECT_EQ(FileBytes::withExtension("/a/show.Orv", "Orv"), "/a/show.Orv");
    EXPECT_EQ(FileBytes::withExtension("/a/wall.png", "Orv"), "/a/wall.png.Orv");
    EXPECT_EQ(FileBytes::withExtension("/a/show.orv", "Orv"), "/a/show.orv.Orv");
    EXPECT_EQ(FileBytes::withExtension("/a/wallOrv", "Orv"), "/a/wallOrv.Orv");
    EXPECT_EQ(FileBytes::withExtension("/a.png/wall", "png"), "/a.png/wall.png");
}
