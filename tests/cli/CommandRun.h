#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// What a command left behind.
struct Outcome
{
    int status = 0;
    QString out;
    QString err;
};

Outcome runCommand(const QStringList &arguments);

/// Runs commands over files in a folder of its own.
class CommandTest : public ::testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    /// Writes a file and returns its path.
    QString file(const QString &name, const QByteArray &bytes) const;
    QByteArray bytes(const QString &name) const;
    QImage picture(const QString &name) const { return QImage(path(name)); }
    /// The names of all files in the folder, hidden ones too, sorted.
    QStringList names() const;

    /// A document of 40 x 30 pixels with these layers, written to `show.json`; returns its path.
    QString show(const QByteArray &layers) const;
    /// Layers of one colour without frames and texts: 2 x 1 panels of 10 x 10 pixels at (5, 5).
    static QByteArray plainWall(const QByteArray &more = {});

private:
    QTemporaryDir m_folder;
};
