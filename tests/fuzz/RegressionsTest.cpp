#include "fuzz/Targets.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

namespace {
QByteArray contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}
} // namespace

TEST(Regressions, WhatEverFailedIsReadOrRefused)
{
    int files = 0;
    for (const Fuzz::Target &target : Fuzz::targets()) {
        QDirIterator next(QString(REGRESSIONS) + target.name, QDir::Files);
        while (next.hasNext()) {
            const QString path = next.next();
            SCOPED_TRACE(qPrintable(path));
            target.run(contents(path)); // ends the program where a promise is broken
            ++files;
        }
    }
    EXPECT_GE(files, 7); // as many as there were when this was written; they are never taken away
}

TEST(Regressions, LieInFoldersOfTargets)
{
    const QStringList folders = QDir(REGRESSIONS).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    EXPECT_FALSE(folders.isEmpty()) << REGRESSIONS;
    for (const QString &name : folders)
        EXPECT_NE(Fuzz::targetNamed(name), nullptr) << qPrintable(name);
}

TEST(Seeds, AreReadByTheirTargets)
{
    const auto seeds = Fuzz::seeds();
    for (const Fuzz::Target &target : Fuzz::targets()) {
        EXPECT_FALSE(seeds[target.name].isEmpty()) << target.name;
        for (const QByteArray &seed : seeds[target.name])
            target.run(seed);
    }
}
