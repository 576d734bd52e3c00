#include "still/PictureFile.h"

#include "base/FileBytes.h"
#include "base/Memory.h"
#include "drawing/Raster.h"
#include "still/DrawingCheck.h"
#include "still/IconCheck.h"
#include "still/PictureKind.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QRgba64>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace {
/// Larger files are not read.
constexpr qint64 mostBytesOfFile = qint64{1} << 30;

struct Format
{
    const char *suffix;
    const char *reader;
    const char *name;
};

/// Of a format that the program shows where Qt's additional readers are installed; null for others.
const Format *formatOf(const QFileInfo &file)
{
    static constexpr Format formats[] = {{"svg", "svg", "SVG"},   {"svgz", "svg", "SVG"},   {"webp", "webp", "WebP"},
                                         {"tif", "tiff", "TIFF"}, {"tiff", "tiff", "TIFF"}, {"tga", "tga", "TGA"}};
    const QString suffix = file.suffix().toLower();
    const auto *found = std::ranges::find_if(formats, [&](const Format &format) { return suffix == format.suffix; });
    return found == std::end(formats) ? nullptr : found;
}

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

/// What `read` makes of the picture in them; nothing where they are of no kind that is shown, or would ask for more
/// than they hold.
template <typename Read>
std::invoke_result_t<Read, QImageReader &> readWith(const Read &read, QByteArray bytes)
{
    if (!PictureKind::isAcceptedContent(bytes) || !DrawingCheck::isHarmless(bytes) || !IconCheck::isHarmless(bytes))
        return {};
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(mostMemory); // Qt's own is below the largest raster
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    return read(reader);
}

/// A null image where there is none.
QImage pictureOf(QImageReader &reader)
{
    const QSize announced = reader.size();
    if (announced.isValid() && !Raster::canHold(announced.width(), announced.height()))
        return {};
    const QImage picture = reader.read();
    if (!Raster::canHold(picture.width(), picture.height()))
        return {};
    return picture.convertToFormat(Raster::format);
}

/// Nothing where there is no file to read, also for want of memory.
QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    if (!FileBytes::openToRead(file) || file.size() > mostBytesOfFile)
        return {};
    return Memory::orError([&]() -> Result<QByteArray> { return file.read(file.size()); }).value_or(QByteArray());
}

/// Null where there is no picture, also for want of memory: the next time there may be one.
std::shared_ptr<const QImage> readPicture(const QString &path)
{
    const Result<QImage> picture =
        Memory::orError([&]() -> Result<QImage> { return readWith(&pictureOf, bytesOf(path)); });
    return picture && !picture->isNull() ? std::make_shared<const QImage>(*picture) : nullptr;
}

/// Of a picture that Qt reads and the program does not show, as what is said of it.
std::optional<QString> foreignKind(const QString &path)
{
    QFile file(path);
    const bool isRead = mayBeRead(QFileInfo(path)) && FileBytes::openToRead(file);
    const QByteArray format = isRead ? PictureKind::of(file) : QByteArray();
    if (format.isEmpty() || PictureKind::isAccepted(format))
        return std::nullopt;
    return QString("has the format %1, which is none of those that are shown").arg(QString(format).toUpper());
}

PictureFile::Small smallOf(QImageReader &reader, const QSize &most, qint64 mostPixels)
{
    const QSize size = reader.size();
    if (!reader.canRead() || size.isEmpty())
        return {};
    if (qint64{size.width()} * size.height() > mostPixels)
        return {size, {}};
    if (size.width() > most.width() || size.height() > most.height())
        reader.setScaledSize(size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return {size, reader.read()};
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

Small small(const QString &path, const QSize &most, qint64 mostPixels)
{
    const QByteArray bytes = mayBeRead(QFileInfo(path)) ? bytesOf(path) : QByteArray();
    const auto read = [&](QImageReader &reader) { return smallOf(reader, most, mostPixels); };
    return Memory::orError([&]() -> Result<Small> { return readWith(read, bytes); }).value_or(Small());
}

bool isPicture(const QString &path)
{
    QFile file(path);
    return mayBeRead(QFileInfo(path)) && FileBytes::openToRead(file) && PictureKind::isAccepted(PictureKind::of(file));
}

std::optional<QString> obstacle(const Address &address, const QList<QByteArray> &readable)
{
    if (address.isElsewhere())
        return "is not on this machine, and a show asks no other";
    const QFileInfo file(address.toLocalFile());
    const Format *const format = formatOf(file);
    if (!format || readable.contains(format->reader) || !file.isFile())
        return std::nullopt;
    return QString("has the format %1, which this build does not show").arg(format->name);
}

QString cannotShow(const QString &path)
{
    std::optional<QString> reason = obstacle(Address::fromLocalFile(path));
    if (!reason)
        reason = foreignKind(path);
    return QString("Cannot show %1: it %2.").arg(path, reason.value_or("is no picture that can be read"));
}

} // namespace PictureFile
