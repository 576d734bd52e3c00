#include "output/OutputPainter.h"

#include "base/Bands.h"
#include "drawing/Raster.h"
#include "output/Composition.h"

#include <QPainter>

#include <algorithm>
#include <iterator>

using LayerRows::Stores;

namespace {
/// From this many pixels on an output does not stay in the processor's caches anyway.
constexpr qint64 streamedPixels = qint64{4} << 20;
/// So many pixels are worth a second processor.
constexpr int pixelsOfBand = 1 << 18;

QRgb over(QRgb background, const Colour &edge)
{
    QImage pixel(1, 1, Raster::format);
    pixel.fill(background);
    QPainter(&pixel).fillRect(pixel.rect(), edge.toQColor());
    return *reinterpret_cast<const QRgb *>(pixel.constBits());
}

std::vector<PlannedPicture> picturesIn(const QRect &part, const std::vector<PlannedPicture> &pictures)
{
    std::vector<PlannedPicture> within;
    const auto isWithin = [&part](const PlannedPicture &planned) {
        return planned.left <= part.right() && planned.left + planned.picture.width() > part.left() &&
               planned.top <= part.bottom() && planned.top + planned.picture.height() > part.top();
    };
    std::ranges::copy_if(pictures, std::back_inserter(within), isWithin);
    return within;
}
} // namespace

OutputPainter::OutputPainter(const std::vector<PlannedPicture> &topmostFirst, const OutputStyle &style)
    : m_pictures(topmostFirst), m_size(style.size), m_background(style.background.toPremultipliedPixel()),
      m_edge(over(m_background, style.edge))
{}

void OutputPainter::paint(QImage &output, const QRect &part) const
{
    const Stores stores = qint64{part.width()} * part.height() >= streamedPixels ? Stores::Streamed : Stores::Cached;
    uchar *const bits = output.bits();
    const qsizetype bytesPerLine = output.bytesPerLine();
    Bands::forEach(part.height(), pixelsOfBand / part.width() + 1, [&](int first, int count) {
        paintRows(bits, bytesPerLine, {part.left(), part.top() + first, part.width(), count}, stores);
    });
}

void OutputPainter::paintRows(uchar *firstRow, qsizetype bytesPerLine, const QRect &rows, Stores stores) const
{
    const std::vector<PlannedPicture> pictures = picturesIn(rows, m_pictures);
    std::vector<QRgb> buffer(static_cast<std::size_t>(rows.right()) + 1);
    RowPlan plan(pictures);
    const std::vector<int> seams = seamsOf(rows, pictures);
    for (auto seam = seams.begin(); std::next(seam) != seams.end(); ++seam) {
        plan.plan(*seam, basesOfRow(*seam, rows));
        for (int y = *seam; y < *std::next(seam); ++y) {
            auto *row = reinterpret_cast<QRgb *>(firstRow + y * bytesPerLine);
            if (stores == Stores::Streamed && plan.blends()) {
                plan.draw(buffer.data(), y, Stores::Cached);
                LayerRows::copy(row + rows.left(), buffer.data() + rows.left(), rows.width(), Stores::Streamed);
            } else {
                plan.draw(row, y, stores);
            }
        }
    }
    LayerRows::finishStreams();
}

/// The rows where something begins or ends, from the first one to the one behind the last.
std::vector<int> OutputPainter::seamsOf(const QRect &rows, const std::vector<PlannedPicture> &pictures) const
{
    std::vector<int> seams{rows.top(), rows.bottom() + 1};
    const auto add = [&](qint64 y) {
        if (y > rows.top() && y <= rows.bottom())
            seams.push_back(static_cast<int>(y));
    };
    add(1);
    add(m_size.height() - 1);
    for (const PlannedPicture &planned : pictures) {
        for (const OpaqueSpans::Band &band : planned.opaque->bands())
            add(planned.top + band.top);
        add(planned.top + planned.picture.height());
    }
    std::sort(seams.begin(), seams.end());
    seams.erase(std::unique(seams.begin(), seams.end()), seams.end());
    return seams;
}

std::vector<RowPlan::Base> OutputPainter::basesOfRow(int y, const QRect &part) const
{
    const int right = part.right() + 1;
    const bool isEdge = y == 0 || y == m_size.height() - 1;
    if (isEdge || m_edge == m_background)
        return {{part.left(), right, m_edge}};
    std::vector<RowPlan::Base> bases;
    const auto add = [&](int left, int end, QRgb pixel) {
        left = std::max(left, part.left());
        end = std::min(end, right);
        if (left < end)
            bases.push_back({left, end, pixel});
    };
    add(0, 1, m_edge);
    add(1, m_size.width() - 1, m_background);
    add(std::max(m_size.width() - 1, 1), m_size.width(), m_edge);
    return bases;
}
