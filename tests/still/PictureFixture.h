#pragma once

#include "still/PictureFile.h"

#include <QFile>
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

    static QByteArray drawing(const QByteArray &content)
    {
        return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='20' "
               "height='20'>" +
               content + "</svg>";
    }

    QTemporaryDir folder;
};
