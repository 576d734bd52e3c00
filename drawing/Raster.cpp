#include "drawing/Raster.h"

#include "base/System.h"

#include <cstdlib>
#include <utility>

namespace {
/// Vector loops split rows by the alignment of their memory; the same alignment everywhere, the same pixels everywhere.
constexpr std::size_t vectorAlignment = 64;

/// A large raster stands on large pages, so that what is drawn across its rows does not wait for the address of each.
QImage allocated(const QSize &size)
{
    const qsizetype rowBytes = qsizetype{size.width()} * qsizetype{sizeof(QRgb)};
    const auto bytes = static_cast<std::size_t>(rowBytes * size.height());
    const std::size_t alignment = bytes < System::largePage ? vectorAlignment : System::largePage;
    const std::size_t whole = (bytes + alignment - 1) / alignment * alignment;
    auto *memory = static_cast<uchar *>(System::alignedMemory(alignment, whole));
    if (!memory)
        return {};
    System::adviseLargePages(memory, whole);
    return QImage(memory, size.width(), size.height(), rowBytes, Raster::format, System::freeAligned, memory);
}
} // namespace

namespace Raster {

bool canHold(qint64 width, qint64 height)
{
    return width > 0 && height > 0 && width <= longestSide && height <= longestSide && width * height <= mostPixels;
}

QImage make(qint64 width, qint64 height)
{
    QImage raster = reuse({}, width, height);
    if (!raster.isNull())
        raster.fill(Qt::transparent);
    return raster;
}

QImage reuse(QImage old, qint64 width, qint64 height)
{
    if (!canHold(width, height))
        return {};
    const QSize size(static_cast<int>(width), static_cast<int>(height));
    if (old.size() == size && old.format() == format && old.isDetached())
        return old;
    old = {};
    return allocated(size);
}

void clear(QImage &raster, const QRect &part)
{
    for (int y = part.top(); y <= part.bottom(); ++y)
        std::fill_n(reinterpret_cast<QRgb *>(raster.scanLine(y)) + part.left(), part.width(), QRgb{0});
}

QImage view(const QImage &picture, const QRect &part)
{
    const uchar *const first = picture.constScanLine(part.y()) + qsizetype{part.x()} * (picture.depth() / 8);
    const auto letGo = [](void *shared) { delete static_cast<QImage *>(shared); };
    return {first, part.width(), part.height(), picture.bytesPerLine(), picture.format(), letGo, new QImage(picture)};
}

} // namespace Raster
