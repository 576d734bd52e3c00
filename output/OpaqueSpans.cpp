#include "output/OpaqueSpans.h"

#include <algorithm>
#include <utility>

using LayerRows::Coverage;

namespace {
std::vector<OpaqueSpans::Span> spansOf(const std::vector<Coverage> &blocks, int width)
{
    std::vector<OpaqueSpans::Span> spans;
    int left = 0;
    for (const Coverage coverage : blocks) {
        const int right = std::min(left + LayerRows::blockWidth, width);
        if (!spans.empty() && spans.back().right == left && spans.back().coverage == coverage)
            spans.back().right = right;
        else if (coverage != Coverage::Transparent)
            spans.push_back({left, right, coverage});
        left = right;
    }
    return spans;
}
/// Of the rows of blocks that begin at `top`.
std::vector<OpaqueSpans::Span> spansAt(const QImage &picture, int top)
{
    const int rows = std::min(LayerRows::blockHeight, picture.height() - top);
    std::vector<Coverage> blocks((picture.width() + LayerRows::blockWidth - 1) / LayerRows::blockWidth);
    LayerRows::findCoverage(picture.constScanLine(top), picture.bytesPerLine(), rows, picture.width(), blocks.data());
    return spansOf(blocks, picture.width());
}
} // namespace

OpaqueSpans::OpaqueSpans(const QImage &picture)
{
    for (int top = 0; top < picture.height(); top += LayerRows::blockHeight)
        append(top, spansAt(picture, top));
}

OpaqueSpans OpaqueSpans::mended(const QImage &picture, const QRegion &where) const
{
    OpaqueSpans spans;
    for (int top = 0; top < picture.height(); top += LayerRows::blockHeight) {
        if (where.intersects(QRect(0, top, picture.width(), LayerRows::blockHeight))) {
            spans.append(top, spansAt(picture, top));
        } else {
            const std::span<const Span> same = at(top);
            spans.append(top, {same.begin(), same.end()});
        }
    }
    return spans;
}

void OpaqueSpans::append(int top, std::vector<Span> spans)
{
    if (m_bands.empty() || m_bands.back().spans != spans)
        m_bands.push_back({top, std::move(spans)});
}

std::span<const OpaqueSpans::Span> OpaqueSpans::at(int y) const
{
    const auto next =
        std::upper_bound(m_bands.begin(), m_bands.end(), y, [](int row, const Band &band) { return row < band.top; });
    return std::prev(next)->spans;
}
