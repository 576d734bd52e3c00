#pragma once

#include <QRgb>
#include <QtGlobal>

/// Vector code for the rows of a PNG file. The Up filter makes each byte the difference to the byte above it.
namespace PngRows {

/// Filters `count` pixels, whose alpha is not looked at, as red, green and blue: 3 bytes a pixel.
void filterRgb(uchar *out, const QRgb *row, const QRgb *above, qint64 count);
/// Filters `count` bytes as they are.
void filterBytes(uchar *out, const uchar *row, const uchar *above, qint64 count);

} // namespace PngRows
