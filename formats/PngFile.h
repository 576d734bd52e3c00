#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QImage>
#include <QString>

/// PNG as crews need it: fast to write, exact. https://www.w3.org/TR/png/ names the chunks.
namespace PngFile {

/// The picture as a PNG file: 8 bits per channel, RGB where every pixel is opaque, else RGBA with straight alpha.
/// Error: the picture is empty or larger than a raster can be (drawing/Raster.h), or compressing it failed.
[[nodiscard]] Result<QByteArray> encode(const QImage &picture);

/// Writes the picture to `path`; the old file stays whole until the new one is complete.
/// Error: that of encode(), or the file cannot be written; the message names the path.
[[nodiscard]] Result<void> write(const QString &path, const QImage &picture);

} // namespace PngFile
