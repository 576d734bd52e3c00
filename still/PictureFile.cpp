#include "still/PictureFile.h"

#include "drawing/Raster.h"
#include "still/DrawingCheck.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QRgba64>

namespace {
/// Larger files are not read.
constexpr qint64 mostBytesOfFile = qint64{1} << 30;

/// A pipe, a device or a file without a size could keep the reader waiting for ever.
bool mayBeRead(const QFileInfo &file)
{
    return file.isFile() && file.size() > 0 && file.size() <= mostBytesOfFile;
}

/// What the largest raster takes in the widest format that a reader makes, in MiB.
constexpr int mostMemory = static_cast<int>(Raster::mostPixels * sizeof(QRgba64) >> 20);

/// A picture that some still may hold, and the state of the file that it came from.
struct LoadedPicture
{
    std::weak_ptr<const QImage> picture;
    QDateTime lastModified;
    qint64 fileSize = 0;
};

QHash<QString, LoadedPicture> &loadedPictures()
{
    static QHash<QString, LoadedPicture> pictures;
    return pictures;
}

std::shared_ptr<const QImage> readPicture(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    QByteArray bytes = file.read(file.size());
    if (!DrawingCheck::isHarmless(bytes))
        return nullptr;
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(mostMemory);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize announced = reader.size();
    if (announced.isValid() && !Raster::canHold(announced.width(), announced.height()))
        return nullptr;
    const QImage picture = reader.read();
    if (!Raster::canHold(picture.width(), picture.height()))
        return nullptr;
    return std::make_shared<const QImage>(picture.convertToFormat(Raster::format));
}
} // namespace

namespace PictureFile {

std::shared_ptr<const QImage> load(const QString &path)
{
    const QFileInfo file(path);
    if (!mayBeRead(file))
        return nullptr;

    const LoadedPicture known = loadedPictures().value(path);
    auto picture = known.picture.lock();
    if (picture && known.lastModified == file.lastModified() && known.fileSize == file.size())
        return picture;

    loadedPictures().removeIf([](const auto &entry) { return entry.value().picture.expired(); });
    picture = readPicture(path);
    if (picture)
        loadedPictures().insert(path, {picture, file.lastModified(), file.size()});
    return picture;
}

bool isPicture(const QString &path)
{
    return mayBeRead(QFileInfo(path)) && !QImageReader::imageFormat(path).isEmpty();
}

} // namespace PictureFile
