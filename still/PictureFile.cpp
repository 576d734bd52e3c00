#include "still/PictureFile.h"

#include "drawing/Raster.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>

namespace {
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
    QImageReader reader(path);
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
    // A pipe or a device could keep the reader waiting for ever.
    const QFileInfo file(path);
    if (!file.isFile())
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

} // namespace PictureFile
