#pragma once

#include "still/PictureFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A folder for pictures.
class PictureFixture : public ::testing::Test
{
protected:
    static std::shared_ptr<const QImage> load(const QString &path) { return PictureFile::load(path).picture; }

    QString saved(const QString &name, const QSize &size, Qt::GlobalColor colour)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        QString path = folder.filePath(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }

    QString written(const QString &name, const QByteArray &bytes)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }

    /// By as many bytes, with the time of before and `seconds` later.
    static void replaceUnseen(const QString &path, const QByteArray &content, qint64 seconds)
    {
        QFile file(path);
        const QDateTime time = QFileInfo(path).lastModified();
        EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.write(content) == content.size() && file.flush());
        EXPECT_TRUE(file.setFileTime(time.addSecs(seconds), QFileDevice::FileModificationTime));
    }

    static QByteArray drawing(const QByteArray &content)
    {
        return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='20' "
               "height='20'>" +
               content + "</svg>";
    }

    QTemporaryDir folder;
};
