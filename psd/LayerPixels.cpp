#include "psd/LayerPixels.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {
constexpr std::size_t byteValues = 256;
using DivisionTable = std::array<std::array<uchar, byteValues>, byteValues>; // by alpha, then by colour

DivisionTable divisionTable()
{
    DivisionTable table;
    for (std::size_t alpha = 0; alpha < byteValues; ++alpha) {
        const double share = static_cast<double>(alpha) / 255.0;
        for (std::size_t colour = 0; colour < byteValues; ++colour) {
            const double divided = static_cast<double>(colour) / share;
            table[alpha][colour] = static_cast<uchar>(std::isnan(divided) ? 255 : std::min(divided, 255.0));
        }
    }
    return table;
}

void copyRow(const QRgb *pixels, qint64 count, char *out)
{
    for (qint64 x = 0; x < count; ++x, out += LayerPixels::bytesPerPixel) {
        out[0] = static_cast<char>(qRed(pixels[x]));
        out[1] = static_cast<char>(qGreen(pixels[x]));
        out[2] = static_cast<char>(qBlue(pixels[x]));
        out[3] = static_cast<char>(qAlpha(pixels[x]));
    }
}
} // namespace

namespace LayerPixels {

QByteArray blockOf(const QImage &raster, qint64 width, qint64 height)
{
    const bool isCovered = raster.width() >= width && raster.height() >= height;
    const qint64 size = width * height * bytesPerPixel;
    QByteArray block = isCovered ? QByteArray(size, Qt::Uninitialized) : QByteArray(size, '\0');
    const qint64 columns = std::min<qint64>(raster.width(), width);
    const qint64 rows = std::min<qint64>(raster.height(), height);
    for (qint64 y = 0; y < rows; ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(raster.constScanLine(static_cast<int>(y)));
        copyRow(pixels, columns, block.data() + y * width * bytesPerPixel);
    }
    return block;
}

void unpremultiply(QByteArray &block)
{
    static const DivisionTable table = divisionTable();
    auto *bytes = reinterpret_cast<uchar *>(block.data());
    for (uchar *pixel = bytes; bytes + block.size() - pixel >= bytesPerPixel; pixel += bytesPerPixel) {
        const auto &divided = table[pixel[3]];
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = divided[pixel[channel]];
    }
}

void flip(QByteArray &block, qint64 width, qint64 height)
{
    const qint64 pixels = block.size() / bytesPerPixel;
    char *const bytes = block.data();
    for (qint64 y = 0; y < height / 2; ++y) {
        const qint64 upper = width * y;
        const qint64 lower = width * (height - y - 1);
        const qint64 count = std::clamp<qint64>(pixels - lower, 0, width);
        std::swap_ranges(bytes + upper * bytesPerPixel, bytes + (upper + count) * bytesPerPixel,
                         bytes + lower * bytesPerPixel);
    }
}

} // namespace LayerPixels
