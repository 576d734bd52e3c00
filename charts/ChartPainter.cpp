#include "charts/ChartPainter.h"

#include "drawing/PixelRows.h"
#include "drawing/TextLine.h"

namespace {
constexpr double smallestReadable = 6;
constexpr double measuringSize = 64;
/// Larger letters are drawn in this size, and each of their pixels several times.
constexpr double largestLetters = 256;

bool isBefore(const QRect &one, const QRect &other)
{
    return one.top() != other.top() ? one.top() < other.top() : one.left() < other.left();
}

/// Appends a box behind others in the order of a region; false where it does not belong there.
bool append(std::vector<QRect> &banded, const QRect &box)
{
    if (banded.empty() || box.top() > banded.back().bottom()) {
        banded.push_back(box);
        return true;
    }
    QRect &last = banded.back();
    if (box.top() != last.top() || box.bottom() != last.bottom() || box.left() <= last.right())
        return false;
    if (box.left() == last.right() + 1)
        last.setRight(box.right());
    else
        banded.push_back(box);
    return true;
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
    std::erase_if(boxes, [](const QRect &box) { return box.isEmpty(); });
    if (boxes.empty())
        return {};
    if (!std::is_sorted(boxes.begin(), boxes.end(), &isBefore))
        std::sort(boxes.begin(), boxes.end(), &isBefore);
    std::vector<QRect> banded;
    banded.reserve(boxes.size());
    if (!std::all_of(boxes.begin(), boxes.end(), [&](const QRect &box) { return append(banded, box); }))
        return united(boxes.data(), boxes.size());
    QRegion region;
    region.setRects(banded.data(), static_cast<int>(banded.size()));
    return region;
}

ChartPainter::ChartPainter(QImage &raster, const QRegion &parts, LevelRange range)
    : m_parts(parts & raster.rect()), m_whole(raster.rect()), m_bits(raster.bits()),
      m_stride(raster.bytesPerLine()), m_levels{range}
{}

bool ChartPainter::isAsked(const QRect &box) const
{
    bool isAny = false;
    forEachPart(box, [&](const QRect &) { isAny = true; });
    return isAny;
}

void ChartPainter::fill(const QRect &box, QRgb colour)
{
    forEachPart(box, [&](const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y)
            std::fill_n(row(part.left(), y), part.width(), colour);
    });
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
