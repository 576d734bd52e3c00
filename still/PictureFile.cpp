#include "still/PictureFile.h"

#include "drawing/Raster.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QRgba64>
#include <QXmlStreamReader>

#include <algorithm>

namespace {
/// Larger files are not read.
constexpr qint64 mostBytes = qint64{1} << 30;

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

bool isSelfContained(const QByteArray &bytes);

/// Whether the address names nothing outside the drawing: what it embeds may be another drawing.
bool isEmbedded(QStringView address)
{
    static const QString encoding("base64,");
    const qsizetype start = address.lastIndexOf(encoding);
    return address.startsWith(u"data:") && start >= 0 &&
           isSelfContained(QByteArray::fromBase64(address.mid(start + encoding.size()).toLatin1()));
}

bool isReference(const QXmlStreamAttribute &attribute)
{
    const QStringView name = attribute.qualifiedName();
    return name == u"href" || name.endsWith(u":href");
}

/// Whether Qt's SVG reader opens no other file for this part of a drawing: it follows the addresses of pictures and
/// style sheets wherever they lead, even into a pipe.
bool isSelfContained(const QXmlStreamReader &part)
{
    if (part.isProcessingInstruction())
        return part.processingInstructionTarget() != u"xml-stylesheet";
    if (!part.isStartElement() || !part.qualifiedName().endsWith(u"image", Qt::CaseInsensitive))
        return true;
    const QXmlStreamAttributes attributes = part.attributes();
    return std::all_of(attributes.begin(), attributes.end(), [](const QXmlStreamAttribute &attribute) {
        return !isReference(attribute) || isEmbedded(attribute.value());
    });
}

/// Whether no other file is opened when the picture is read; only drawings (SVG) can ask for that.
bool isSelfContained(const QByteArray &bytes)
{
    if (bytes.startsWith("\x1f\x8b")) // a compressed drawing, which cannot be looked through
        return false;
    QBuffer buffer;
    buffer.setData(bytes);
    if (!buffer.open(QIODevice::ReadOnly) || !QImageReader::imageFormat(&buffer).startsWith("svg"))
        return true;
    QXmlStreamReader drawing(bytes);
    drawing.setNamespaceProcessing(false); // as Qt's reader has it
    while (!drawing.atEnd()) {
        drawing.readNext();
        if (!isSelfContained(drawing))
            return false;
    }
    return true;
}

QByteArray readBytes(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > mostBytes)
        return {};
    return file.readAll();
}

std::shared_ptr<const QImage> readPicture(const QString &path)
{
    QByteArray bytes = readBytes(path);
    if (!isSelfContained(bytes))
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
