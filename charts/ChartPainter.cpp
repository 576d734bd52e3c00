#include "charts/ChartPainter.h"

#include "drawing/PixelRows.h"
#include "drawing/TextLine.h"

namespace {
/// Pixels of a row from which on finding the right vector code pays.
constexpr int leastInVectors = 64;
/// Pixels of a row, and rows, from which on it is faster not to read what is written over.
constexpr int leastPastCache = 2048;
constexpr int leastRowsPastCache = 4;
constexpr int fewPixels = 4;
constexpr double smallestReadable = 6;
constexpr double measuringSize = 64;
/// Larger letters are drawn in this size, and each of their pixels several times.
constexpr double largestLetters = 256;

bool isBefore(const QRect &one, const QRect &other)
{
    return one.top() != other.top() ? one.top() < other.top() : one.left() < other.left();
}

/// Adds a box behind the first `count` ones, which are in the order of a region; false where it does not belong there.
bool addBanded(std::vector<QRect> &boxes, std::size_t &count, const QRect &box)
{
    if (count == 0 || box.top() > boxes[count - 1].bottom()) {
        boxes[count++] = box;
        return true;
    }
    QRect &last = boxes[count - 1];
    if (box.top() != last.top() || box.bottom() != last.bottom() || box.left() <= last.right())
        return false;
    if (box.left() == last.right() + 1)
        last.setRight(box.right());
    else
        boxes[count++] = box;
    return true;
}

/// Joins what lies side by side and leaves out what is empty, in place. Whether all are in the order of a region.
bool putInBands(std::vector<QRect> &boxes)
{
    std::size_t count = 0;
    std::size_t next = 0;
    while (next < boxes.size() && (boxes[next].isEmpty() || addBanded(boxes, count, boxes[next])))
        ++next;
    const bool areBanded = next == boxes.size();
    boxes.erase(boxes.begin() + static_cast<std::ptrdiff_t>(count), boxes.begin() + static_cast<std::ptrdiff_t>(next));
    return areBanded;
}

QRegion united(const QRect *boxes, std::size_t count)
{
    if (count == 1)
        return *boxes;
    return united(boxes, count / 2) + united(boxes + count / 2, count - count / 2);
}

/// The size at which a text fills a box; 0 for no text.
double fittingSize(const QString &text, const QRect &box)
{
    const QSize measured = TextLine(text, measuringSize).size();
    if (measured.isEmpty())
        return 0;
    return std::floor(measuringSize *
                      std::min(1.0 * box.width() / measured.width(), 1.0 * box.height() / measured.height()));
}
} // namespace

QRegion regionOf(std::vector<QRect> boxes)
{
    if (!putInBands(boxes)) {
        std::erase_if(boxes, [](const QRect &box) { return box.isEmpty(); });
        std::sort(boxes.begin(), boxes.end(), &isBefore);
        if (!putInBands(boxes))
            return united(boxes.data(), boxes.size());
    }
    QRegion region;
    if (!boxes.empty())
        region.setRects(boxes.data(), static_cast<int>(boxes.size()));
    return region;
}

ChartPainter::ChartPainter(QImage &raster, const QRegion &parts, LevelRange range)
    : m_parts(parts & raster.rect()), m_near(m_parts.begin()), m_whole(raster.rect()), m_bits(raster.bits()),
      m_stride(raster.bytesPerLine()), m_levels{range}
{}

bool ChartPainter::isAsked(const QRect &box)
{
    bool isAny = false;
    forEachPart(box, [&](const QRect &) { isAny = true; });
    return isAny;
}

void ChartPainter::fill(const QRect &box, QRgb colour)
{
    forEachPart(box, [&](const QRect &part) {
        if (part.width() > fewPixels || part.height() > 1)
            fillRows(part, colour);
        else
            for (QRgb *pixel = row(part.left(), part.top()), *end = pixel + part.width(); pixel != end; ++pixel)
                *pixel = colour; // thousands of those walk at once
    });
}

void ChartPainter::fillApart(const QRegion &region, QRgb inside, QRgb outside)
{
    for (const QRect &part : m_parts - region)
        fillRows(part, outside);
    for (const QRect &part : m_parts &region)
        fillRows(part, inside);
}

void ChartPainter::fillRows(const QRect &part, QRgb colour)
{
    if (part.width() < leastInVectors) {
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::fill_n(row(part.left(), y), part.width(), colour);
        return;
    }
    if (part.width() < leastPastCache || part.height() < leastRowsPastCache) {
        for (int y = part.top(); y <= part.bottom(); ++y)
            PixelRows::fill(row(part.left(), y), part.width(), colour);
        return;
    }
    m_line.assign(static_cast<std::size_t>(part.width()), colour);
    for (int y = part.top(); y <= part.bottom(); ++y)
        PixelRows::copyPastCache(row(part.left(), y), m_line.data(), part.width());
    PixelRows::finishCopies();
}

void ChartPainter::outline(const QRect &box, QRgb colour, int width)
{
    const QRect hole = box.adjusted(width, width, -width, -width);
    if (!hole.isValid()) {
        fill(box, colour);
        return;
    }
    fill({box.left(), box.top(), box.width(), width}, colour);
    fill({box.left(), hole.bottom() + 1, box.width(), width}, colour);
    fill({box.left(), hole.top(), width, hole.height()}, colour);
    fill({hole.right() + 1, hole.top(), width, hole.height()}, colour);
}

void ChartPainter::text(const QRect &box, const QString &text, QRgb colour)
{
    if (box.height() < smallestReadable || !isAsked(box))
        return;
    const double size = fittingSize(text, box);
    if (size < smallestReadable)
        return;
    const int scale = static_cast<int>(std::ceil(size / largestLetters));
    const TextLine line(text, std::floor(size / scale));
    const QSize letters = line.size() * scale;
    const QPoint corner(box.left() + (box.width() - letters.width()) / 2,
                        box.top() + (box.height() - letters.height()) / 2);
    for (const CoverageMask &mask : line.masks()) {
        if (mask.mask)
            blend(box, *mask.mask, corner + mask.topLeft * scale, scale, colour);
    }
}

void ChartPainter::blend(const QRect &box, const QImage &mask, const QPoint &place, int scale, QRgb colour)
{
    std::vector<uchar> coverage;
    forEachPart(QRect(place, mask.size() * scale) & box, [&](const QRect &part) {
        coverage.resize(static_cast<std::size_t>(part.width()));
        for (int y = part.top(); y <= part.bottom(); ++y) {
            const uchar *const masked = mask.constScanLine((y - place.y()) / scale);
            for (int i = 0; i < part.width(); ++i)
                coverage[static_cast<std::size_t>(i)] = masked[(part.left() + i - place.x()) / scale];
            PixelRows::blend(row(part.left(), y), coverage.data(), part.width(), colour);
        }
    });
}
