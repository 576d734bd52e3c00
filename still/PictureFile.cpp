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
#include <memory>
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

/// What a picture takes of PictureFile::Together, as far as it is known; 0: it is not, or nothing.
struct Cost
{
    qint64 pixels = 0;
    qint64 nanoseconds = 0;
};

/// What became of a file that was read, and the state in which it was.
struct KnownFile
{
    std::weak_ptr<const QImage> picture; ///< that some still may hold
    std::optional<QString> obstacle;
    Cost cost;
    int failures = 0; ///< readings in a row that gave no picture, for what is in the file
    QDateTime lastModified;
    qint64 size = 0;

    bool isOf(const QFileInfo &file) const { return lastModified == file.lastModified() && size == file.size(); }
};

QHash<QString, KnownFile> &knownFiles()
{
    static QHash<QString, KnownFile> files;
    return files;
}

/// A file that is damaged, or there was no memory for at a place where Qt does not tell, is read so often, however many
/// layers show it.
constexpr int mostFailures = 3;
/// Files that are remembered; then all are forgotten but those whose picture is held.
constexpr qsizetype mostKnownFiles = 10'000;

void remember(const QString &path, const KnownFile &known)
{
    QHash<QString, KnownFile> &files = knownFiles();
    if (files.size() >= mostKnownFiles)
        files.removeIf([](const auto &entry) { return entry->picture.expired(); });
    files.insert(path, known);
}

/// Why a file shows nothing.
struct Obstacle
{
    QString text;           ///< empty: there is no picture in it
    bool mayBeGone = false; ///< the next time it is read

    Obstacle() = default;
    explicit Obstacle(const QString &what, bool onlyNow = false) : text(what), mayBeGone(onlyNow) {}
    /// For want of memory.
    Obstacle(const Error &error) : text(error.text), mayBeGone(true) {}
};

template <typename T>
using Read = tl::expected<T, Obstacle>;

tl::unexpected<Obstacle> hindered(const Obstacle &obstacle = {})
{
    return tl::unexpected<Obstacle>(obstacle);
}

constexpr const char *noMemory = "needs more memory than there is; close other programs and choose it again";

/// Of the pictures that stills share. The last still may go on any thread.
std::atomic<qint64> sharedPixels = 0;
std::atomic<qint64> sharedNanoseconds = 0;

std::shared_ptr<const QImage> shared(QImage picture, qint64 nanoseconds)
{
    const qint64 pixels = qint64{picture.width()} * picture.height();
    auto own = std::make_unique<QImage>(std::move(picture));
    sharedPixels += pixels;
    sharedNanoseconds += nanoseconds;
    return {own.release(), [pixels, nanoseconds](const QImage *gone) {
                sharedPixels -= pixels;
                sharedNanoseconds -= nanoseconds;
                delete gone;
            }};
}

/// What `read` makes of the picture in them, and of the time that a drawing takes.
template <typename Reading>
std::invoke_result_t<Reading, QImageReader &, qint64> readWith(const Reading &read, QByteArray bytes)
{
    if (!PictureKind::isAcceptedContent(bytes) || !IconCheck::isHarmless(bytes))
        return hindered();
    const std::optional<qint64> nanoseconds = DrawingCheck::nanoseconds(bytes);
    if (!nanoseconds)
        return hindered(
            Obstacle("is a drawing that is damaged, compressed, too large or asks for other files, and must "
                     "be converted to PNG"));
    QBuffer buffer(&bytes);
    QImageReader::setAllocationLimit(mostMemory); // Qt's own is below the largest raster
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    return read(reader, *nanoseconds);
}

/// What keeps a picture of that cost from being shared beside others; the next time there may be room.
std::optional<Obstacle> obstacleBesideOthers(const Cost &cost, const PictureFile::Together &most)
{
    if (cost.nanoseconds > 0 && cost.nanoseconds > most.nanoseconds - sharedNanoseconds)
        return Obstacle(QString("would make the drawings take more than %1 s together; convert some to PNG and choose "
                                "it again")
                            .arg(static_cast<double>(most.nanoseconds) / 1e9),
                        true);
    if (cost.pixels > 0 && cost.pixels > most.pixels - sharedPixels)
        return Obstacle(QString("would bring the pictures to more than %1 px; make some smaller and choose it again")
                            .arg(NumberText::grouped(most.pixels)),
                        true);
    return std::nullopt;
}

/// What keeps a picture of a size that is not empty from being shared. `cost` learns what the size takes.
std::optional<Obstacle> obstacleOfSize(const QSize &size, Cost &cost, const PictureFile::Together &most)
{
    if (!Raster::canHold(size.width(), size.height()))
        return Obstacle(QString("has more than %1 px a side or %2 px in all; make it smaller and choose it again")
                            .arg(NumberText::grouped(Raster::longestSide), NumberText::grouped(Raster::mostPixels)));
    cost.pixels = qint64{size.width()} * size.height();
    return obstacleBesideOthers(cost, most);
}

Read<QImage> pictureOf(QImageReader &reader, Cost &cost, const PictureFile::Together &most)
{
    if (const auto obstacle = obstacleBesideOthers(cost, most))
        return hindered(*obstacle);
    const QSize announced = reader.size();
    const QImage::Format format = reader.imageFormat();
    if (const auto obstacle = announced.isEmpty() ? std::nullopt : obstacleOfSize(announced, cost, most))
        return hindered(*obstacle);
    const QImage picture = reader.read();
    if (picture.isNull()) { // damaged, or no memory: Qt tells both in the same words
        const bool hasMemory =
            announced.isEmpty() || format == QImage::Format_Invalid || !QImage(announced, format).isNull();
        return hindered(hasMemory ? Obstacle() : Obstacle(noMemory, true));
    }
    if (const auto obstacle = obstacleOfSize(picture.size(), cost, most))
        return hindered(*obstacle);
    QImage converted = picture.convertToFormat(Raster::format);
    if (converted.isNull())
        return hindered(Obstacle(noMemory, true));
    return converted;
}

/// All of them; who may not read them now may later.
Read<QByteArray> bytesOf(const QString &path)
{
    QFile file(path);
    if (!FileBytes::openToRead(file) || file.size() > mostBytesOfFile)
        return hindered(Obstacle({}, true));
    const qint64 size = file.size();
    QByteArray bytes = file.read(size);
    if (bytes.size() != size)
        return hindered(Obstacle({}, true));
    return bytes;
}

/// What `decode` makes of the picture in the file at `path`; the next time there may be memory for it.
template <typename Decode>
std::invoke_result_t<Decode, QImageReader &, qint64> readFile(const QString &path, const Decode &decode)
{
    if (!mayBeRead(QFileInfo(path)))
        return hindered();
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

Read<PictureFile::Small> smallOf(QImageReader &reader, const QSize &most, qint64 mostPixels)
{
    const QSize size = reader.size();
    if (!reader.canRead() || size.isEmpty())
        return hindered();
    if (qint64{size.width()} * size.height() > mostPixels)
        return PictureFile::Small{size, {}};
    if (size.width() > most.width() || size.height() > most.height())
        reader.setScaledSize(size.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return PictureFile::Small{size, reader.read()};
}

/// What there is to say of a file without a picture that can be shown; none where it is missing or damaged.
std::optional<QString> obstacleOfFile(const QString &path)
{
    if (QFileInfo(path).isFile() && QFileInfo(path).size() > mostBytesOfFile)
        return "has more than 1 GiB; make it smaller and choose it again";
    std::optional<QString> obstacle = PictureFile::obstacle(Address::fromLocalFile(path));
    return obstacle ? obstacle : foreignKind(path);
}
} // namespace

namespace PictureFile {

Loaded load(const QString &path, const Together &most)
{
    const QFileInfo file(path);
    if (!mayBeRead(file))
        return {nullptr, obstacleOfFile(path)};

    const QString name = file.canonicalFilePath(); // of however many
    if (name.isEmpty())                            // it has gone in the meantime
        return {nullptr, obstacleOfFile(path)};
    KnownFile known = knownFiles().value(name);
    if (!known.isOf(file))
        known = {.picture = {}, .obstacle = {}, .cost = {}, .lastModified = file.lastModified(), .size = file.size()};
    if (auto picture = known.picture.lock())
        return {picture, {}, known.cost.nanoseconds};
    if (known.failures >= mostFailures)
        return {nullptr, known.obstacle};
    if (const std::optional<Obstacle> obstacle = obstacleBesideOthers(known.cost, most))
        return {nullptr, obstacle->text};

    const auto decode = [&](QImageReader &reader, qint64 nanoseconds) -> Read<std::shared_ptr<const QImage>> {
        known.cost.nanoseconds = nanoseconds;
        return pictureOf(reader, known.cost, most).map([&](QImage &&picture) {
            return shared(std::move(picture), nanoseconds);
        });
    };
    const Read<std::shared_ptr<const QImage>> read = readFile(name, decode);
    if (read) {
        known.picture = *read;
        known.obstacle = {};
        known.failures = 0;
        remember(name, known);
        return {*read, {}, known.cost.nanoseconds};
    }
    const std::optional<QString> obstacle =
        read.error().text.isEmpty() ? obstacleOfFile(path) : std::optional(read.error().text);
    if (!read.error().mayBeGone) {
        known.obstacle = obstacle;
        ++known.failures;
    }
    remember(name, known);
    return {nullptr, obstacle};
}

bool isRoomScarce(const Loaded &unseen, const Together &most)
{
    const bool isDrawing = unseen.nanoseconds > 0;
    return sharedPixels > most.pixels / 8 || (isDrawing && sharedNanoseconds > most.nanoseconds / 8);
}

Small small(const QString &path, const QSize &most, qint64 mostPixels)
{
    const auto decode = [&](QImageReader &reader, qint64 /*nanoseconds*/) { return smallOf(reader, most, mostPixels); };
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
    return QString("Cannot show %1: it %2.")
        .arg(QFileInfo(path).fileName(), obstacle.value_or("is no picture that can be read"));
}

} // namespace PictureFile
