#pragma once

#include <QImage>
#include <QString>

#include <memory>

/// Picture files of any format that Qt reads.
namespace PictureFile {

/// The picture in the file at `path`, turned upright, in the raster format and its own size. Null when there is no such
/// file, when it cannot be read, or when it is larger than a raster can be. Stills of one unchanged file share one
/// picture for as long as one of them holds it. Main thread only.
std::shared_ptr<const QImage> load(const QString &path);

} // namespace PictureFile
