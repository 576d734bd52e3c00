#pragma once

#include "drawing/Raster.h"
#include "psd/ByteBuffer.h"

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <string>

/// Bytes as two digits each with spaces between, for figures that can be read.
inline std::string hex(const QByteArray &bytes)
{
    return bytes.toHex(' ').toStdString();
}

inline std::string hex(const ByteBuffer &buffer)
{
    return hex(buffer.bytes());
}

/// A raster of one colour.
inline QImage raster(int width, int height, const QColor &colour)
{
    QImage image = Raster::make(width, height);
    image.fill(colour);
    return image;
}

/// An opaque raster in which the pixel at (x, y) is (x, y, 100).
inline QImage numberedRaster(int width, int height)
{
    QImage image = Raster::make(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x, y, 100));
    }
    return image;
}
