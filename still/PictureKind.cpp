#include "still/PictureKind.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace {
/// Those that people have, and besides PPM and XPM of old tools and the icons that hold logos.
constexpr const char *accepted[] = {"png", "jpeg", "jpg", "bmp", "gif", "svg", "svgz", "webp", "tiff",
                                    "tif", "tga",  "ico", "ppm", "pgm", "pbm", "xpm",  "icns"};
} // namespace

namespace PictureKind {

QList<QByteArray> readable()
{
    QList<QByteArray> formats = QImageReader::supportedImageFormats();
    formats.removeIf([](const QByteArray &format) { return !isAccepted(format); });
    return formats;
}

QByteArray of(QIODevice &device)
{
    return QImageReader::imageFormat(&device);
}

bool isAccepted(const QByteArray &format)
{
    return std::ranges::any_of(accepted, [&](const char *name) { return format == name; });
}

bool isAcceptedContent(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    return buffer.open(QIODevice::ReadOnly) && isAccepted(of(buffer));
}

} // namespace PictureKind
