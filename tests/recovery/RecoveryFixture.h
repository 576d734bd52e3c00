#pragma once

#include "formats/ProjectFile.h"
#include "recovery/RecoveryCopy.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

/// A document of one number, its output width, and a folder for its copies that is not there yet.
class RecoveryFixture : public ::testing::Test
{
protected:
    /// A program with this document. One that ends with unsaved changes leaves a copy.
    std::unique_ptr<RecoveryCopy> program()
    {
        auto recovery = std::make_unique<RecoveryCopy>(
            [this] {
                ++timesAsked;
                std::this_thread::sleep_for(timeToTell);
                return project;
            },
            folder);
        QObject::connect(recovery.get(), &RecoveryCopy::couldNotKeep,
                         [this](const QString &sentence) { failures.append(sentence); });
        return recovery;
    }
    void edit(RecoveryCopy &recovery, int width)
    {
        project.outputWidth = width;
        recovery.contentDidChange();
    }
    /// What a program leaves that ends after an edit.
    FoundCopy leftCopy(int width, const QString &projectPath = {})
    {
        const auto recovery = program();
        recovery->documentWasSaved({projectPath, {}});
        edit(*recovery, width);
        recovery->leave();
        const std::vector<FoundCopy> copies = recovery->found();
        const auto isIt = [&](const FoundCopy &copy) { return widthIn(copy.path) == width; };
        const auto found = std::find_if(copies.begin(), copies.end(), isIt);
        EXPECT_NE(found, copies.end());
        return found == copies.end() ? FoundCopy() : *found;
    }

    /// -1: no project.
    int widthIn(const QString &path)
    {
        const Result<Project> read = ProjectFile::read(path, host);
        return read ? read->outputWidth : -1;
    }
    /// The copies on disk, held or not.
    QStringList copiesOnDisk() const
    {
        QStringList paths;
        QDirIterator files(folder, {"project.Orv"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            paths.append(files.next());
        paths.sort();
        return paths;
    }
    /// The widths in them; -1 for a damaged one.
    QList<int> widthsOnDisk()
    {
        QList<int> widths;
        for (const QString &path : copiesOnDisk())
            widths.append(widthIn(path));
        std::sort(widths.begin(), widths.end());
        return widths;
    }
    bool isFolderEmpty() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty();
    }
    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()) << qPrintable(path);
    }

    TestHost host;
    Project project{1080, 1920, {}};
    int timesAsked = 0;
    std::chrono::milliseconds timeToTell{0}; ///< that the document takes to say what it is
    QStringList failures;
    QTemporaryDir state;
    QString folder = state.filePath("wallwright/recovery");
};
