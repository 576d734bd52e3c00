#include "drawing/CoverageStrip.h"

#include "drawing/PixelRows.h"

#include <algorithm>

namespace {
QImage scaled(const QImage &mask, int opacity)
{
    QImage scaled = mask;
    for (int y = 0; y < scaled.height(); ++y) {
        uchar *row = scaled.scanLine(y);
        std::transform(row, row + scaled.width(), row, [&](uchar byte) { return uchar((byte * opacity + 127) / 255); });
    }
    return scaled;
}
} // namespace

CoverageStrip::CoverageStrip(int width, int height, int opacity)
    : m_coverage(width, height, QImage::Format_Alpha8), m_opacity(opacity)
{
    m_coverage.fill(0);
}

void CoverageStrip::unite(const TextLine &text, int left)
{
    for (const auto &[mask, offset] : text.masks())
        unite(m_opacity == 255 ? *mask : scaled(*mask, m_opacity), offset + QPoint(left, 0));
}

void CoverageStrip::unite(const CoverageStrip &strip, int left)
{
    unite(strip.m_coverage, QPoint(left, 0));
}

CoverageMask CoverageStrip::mask() const
{
    return {std::make_shared<const QImage>(m_coverage), QPoint(0, 0)};
}

void CoverageStrip::unite(const QImage &added, const QPoint &topLeft)
{
    const QRect visible = QRect(topLeft, added.size()) & m_coverage.rect();
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
        const uchar *source = added.constScanLine(y - topLeft.y()) + visible.left() - topLeft.x();
        PixelRows::unite(m_coverage.scanLine(y) + visible.left(), source, visible.width());
    }
}
