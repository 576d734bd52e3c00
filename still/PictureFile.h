#pragma once

#include "archive/Address.h"

#include <QImage>
#include <QImageReader>
#include <QList>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>

/// Picture files of the formats in PictureKind that Qt has a reader of here.
namespace PictureFile {

/// Of all pictures of files that are held at a time.
struct Together
{
    qint64 pixels = qint64{1} << 30;     ///< 4 GiB of memory
    qint64 nanoseconds = 20'000'000'000; ///< of drawings (SVG), as DrawingCheck counts them
};

struct Loaded
{
    std::shared_ptr<const QImage> picture; ///< null where there is none
    std::optional<QString> obstacle;       ///< as that of obstacle(), where there is none and more is known than that
    qint64 nanoseconds = 0;                ///< that it takes of those of Together; 0: it is no drawing
};
/// The picture in the file at `path`, turned upright, in the raster format and its own size. None when there is no such
/// file, when it cannot be read, when it has more than 1 GiB, when it is larger than a raster can be, or when it and
/// the pictures that are held are more than `most`. No other file is ever opened: a drawing (SVG) for
/// which Qt would do that gives none, nor does one that would take for ever; see DrawingCheck. Stills of one unchanged
/// file share one picture for as long as one of them holds it. Main thread only.
Loaded load(const QString &path, const Together &most = {});

/// Whether a picture that nobody shows had better go: more than an eighth of the pixels that can be held together are,
/// or, if it is a drawing, of the time.
bool isRoomScarce(const Loaded &unseen, const Together &most = {});

struct Small
{
    QSize size;     ///< in pixels, before it is turned upright; empty where there is no picture
    QImage picture; ///< null where there is none, or where it has more than `mostPixels`
};
/// The picture in the file at `path`, upright and no larger than `most`, for those who look for a file. What load()
/// refuses is none.
Small small(const QString &path, const QSize &most, qint64 mostPixels);

/// Whether there is a file at `path` that begins like a picture; reads no further.
bool isPicture(const QString &path);

/// What keeps a good picture from being shown here, as what is said of it, as far as that is known without reading it:
/// that it is elsewhere, or that Qt has no reader of its format, as in some builds. Its address stays in the show. None
/// where it is missing or damaged.
/// `readable`: the formats that there are readers of.
std::optional<QString> obstacle(const Address &address,
                                const QList<QByteArray> &readable = QImageReader::supportedImageFormats());

/// The sentence for a person who has chosen a file that gives no picture, for this reason where it is known. It has the
/// file's name alone, so that the reason is seen at the end of one line.
QString cannotShow(const QString &path, const std::optional<QString> &obstacle);

} // namespace PictureFile
