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
} // namespace

OpaqueSpans::OpaqueSpans(const QImage &picture)
{
    std::vector<Coverage> blocks((picture.width() + LayerRows::blockWidth - 1) / LayerRows::blockWidth);
    for (int top = 0; top < picture.height(); top += LayerRows::blockHeight) {
        const int rows = std::min(LayerRows::blockHeight, picture.height() - top);
        LayerRows::findCoverage(picture.constScanLine(top), picture.bytesPerLine(), rows, picture.width(),
                                blocks.data());
        std::vector<Span> spans = spansOf(blocks, picture.width());
        if (m_bands.empty() || m_bands.back().spans != spans)
            m_bands.push_back({top, std::move(spans)});
    }
}

std::span<const OpaqueSpans::Span> OpaqueSpans::at(int y) const
{
    const auto next =
        std::upper_bound(m_bands.begin(), m_bands.end(), y, [](int row, const Band &band) { return row < band.top; });
    return std::prev(next)->spans;
}
