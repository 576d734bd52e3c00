#include "still/PictureFile.h"

#include "base/FileBytes.h"
#include "base/Memory.h"
#include "base/NumberText.h"
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
#include <atomic>
#include <iterator>
#include <type_traits>
#include <utility>

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

constexpr const char *noMemory = "needs more memory than there is; close other programs and choose it again";

/// Pixels of the pictures that are held. Drawing gives them back, too.
std::atomic<qint64> heldPixels = 0;

/// As one of those that are held, until nobody shares it.
std::shared_ptr<const QImage> held(QImage picture)
{
    const qint64 pixels = qint64{picture.width()} * picture.height();
    heldPixels += pixels;
    return {new QImage(std::move(picture)), [pixels](const QImage *gone) {
                heldPixels -= pixels;
                delete gone;
            }};
}

QString sentence(const char *text, qint64 figure)
{
    return QString(text).arg(NumberText::grouped(figure));
}

/// What `read` makes of the picture in them. Error: an obstacle, or nothing where they are no picture.
template <typename Read>
std::invoke_result_t<Read, QImageReader &> readWith(const Read &read, QByteArray bytes)
{
    if (!PictureKind::isAcceptedContent(bytes) || !IconCheck::isHarmless(bytes))
        return fail({});
    if (!DrawingCheck::isHarmless(bytes))
        return fail("is a drawing that asks for other files or for too much, and must be converted to PNG");
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(mostMemory); // Qt's own is below the largest raster
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    return read(reader);
}

/// Whether a picture of a size that is not empty can be held beside others. Error: an obstacle.
Result<void> checkSize(const QSize &size, qint64 mostTogether)
{
    if (!Raster::canHold(size.width(), size.height()))
        return fail(sentence("has more than %1 px a side", Raster::longestSide) +
                    sentence(" or %1 px in all, and must be made smaller", Raster::mostPixels));
    if (qint64{size.width()} * size.height() > mostTogether - heldPixels)
        return fail(sentence("would bring the pictures to more than %1 px; make some smaller and choose it again",
                             mostTogether));
    return {};
}

/// Error: an obstacle, or nothing where it is no picture.
Result<QImage> pictureOf(QImageReader &reader, qint64 mostTogether)
{
    const QSize announced = reader.size();
    if (!announced.isEmpty())
        if (Result<void> fits = checkSize(announced, mostTogether); !fits)
            return fail(fits.error().text);
    const QImage picture = reader.read();
    if (picture.isNull()) // damaged, or no memory: Qt tells both in the same words
        return announced.isEmpty() || !QImage(announced, Raster::format).isNull() ? fail({}) : fail(noMemory);
    if (Result<void> fits = checkSize(picture.size(), mostTogether); !fits)
        return fail(fits.error().text);
    QImage converted = picture.convertToFormat(Raster::format);
    return converted.isNull() ? fail(noMemory) : Result<QImage>(std::move(converted));
}

/// Error: an obstacle, or nothing where there is no file to read.
Result<QByteArray> bytesOf(const QString &path)
{
    QFile file(path);
    if (!FileBytes::openToRead(file) || file.size() > mostBytesOfFile)
        return fail({});
    return file.read(file.size());
}

/// What `decode` makes of the picture in the file at `path`; the next time there may be memory for it. Error: an
/// obstacle, or nothing where there is no picture.
template <typename Decode>
std::invoke_result_t<Decode, QImageReader &> readFile(const QString &path, const Decode &decode)
{
    if (!mayBeRead(QFileInfo(path)))
        return fail({});
    const auto read = [&] {
        return bytesOf(path).and_then([&](const QByteArray &bytes) { return readWith(decode, bytes); });
    };
    return Memory::orError(read, noMemory);
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

Result<PictureFile::Small> smallOf(QImageReader &reader, const QSize &most, qint64 mostPixels)
{
    const QSize size = reader.size();
    if (!reader.canRead() || size.isEmpty())
        return fail({});
    if (qint64{size.width()} * size.height() > mostPixels)
        return PictureFile::Small{size, {}};
    if (size.width() > most.width() || size.height() > most.height())
        reader.setScaledSize(size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return PictureFile::Small{size, reader.read()};
}

/// What there is to say of a file without a picture that can be shown; none where it is missing or damaged.
std::optional<QString> obstacleOf(const QString &path)
{
    if (QFileInfo(path).isFile() && QFileInfo(path).size() > mostBytesOfFile)
        return "has more than 1 GiB and must be made smaller";
    std::optional<QString> obstacle = PictureFile::obstacle(Address::fromLocalFile(path));
    return obstacle ? obstacle : foreignKind(path);
}
} // namespace

namespace PictureFile {

Loaded load(const QString &path, qint64 mostTogether)
{
    const QFileInfo file(path);
    if (!mayBeRead(file))
        return {nullptr, obstacleOf(path)};

    const LoadedPicture known = loadedPictures().value(path);
    auto picture = known.picture.lock();
    if (picture && known.lastModified == file.lastModified() && known.fileSize == file.size())
        return {picture, {}};

    loadedPictures().removeIf([](const auto &entry) { return entry.value().picture.expired(); });
    const auto decode = [&](QImageReader &reader) { return pictureOf(reader, mostTogether); };
    Result<QImage> read = readFile(path, decode);
    if (!read)
        return {nullptr, read.error().text.isEmpty() ? obstacleOf(path) : read.error().text};
    picture = held(std::move(*read));
    loadedPictures().insert(path, {picture, file.lastModified(), file.size()});
    return {picture, {}};
}

Small small(const QString &path, const QSize &most, qint64 mostPixels)
{
    const auto decode = [&](QImageReader &reader) { return smallOf(reader, most, mostPixels); };
    return readFile(path, decode).value_or(Small());
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

QString cannotShow(const QString &path, const std::optional<QString> &obstacle)
{
    return QString("Cannot show %1: it %2.").arg(path, obstacle.value_or("is no picture that can be read"));
}

} // namespace PictureFile
