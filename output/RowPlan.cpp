#include "output/RowPlan.h"

#include <algorithm>

using LayerRows::Coverage;

const QRgb *RowPlan::Step::source(int y) const
{
    const auto row = static_cast<int>(y - picture->top);
    return reinterpret_cast<const QRgb *>(picture->picture.constScanLine(row)) + (left - picture->left);
}

void RowPlan::plan(int y, const std::vector<Base> &bases)
{
    m_fills.clear();
    m_copies.clear();
    m_blends.clear();
    for (const Base &base : bases)
        planBase(y, base);
}

void RowPlan::planBase(int y, const Base &base)
{
    m_open.assign(1, {base.left, base.right});
    // Source-atop shows nothing where there is nothing.
    const bool shows = qAlpha(base.pixel) > 0;
    for (auto picture = m_pictures.begin(); shows && picture != m_pictures.end() && !m_open.empty(); ++picture) {
        if (y >= picture->top && y < picture->top + picture->picture.height())
            planPicture(y, *picture, qAlpha(base.pixel));
    }
    for (const Interval &rest : m_open)
        m_fills.push_back({rest.left, rest.right, base.pixel});
}

void RowPlan::planPicture(int y, const PlannedPicture &picture, int alpha)
{
    const std::span<const OpaqueSpans::Span> spans = picture.opaque->at(static_cast<int>(y - picture.top));
    auto next = spans.begin();
    m_stillOpen.clear();
    for (const Interval &open : m_open) {
        while (next != spans.end() && picture.left + next->right <= open.left)
            ++next;
        int uncovered = open.left;
        for (auto span = next; span != spans.end() && picture.left + span->left < open.right; ++span) {
            const auto left = static_cast<int>(std::max<qint64>(picture.left + span->left, open.left));
            const auto right = static_cast<int>(std::min<qint64>(picture.left + span->right, open.right));
            const bool opaque = span->coverage == Coverage::Opaque;
            (opaque ? m_copies : m_blends).push_back({left, right, alpha, &picture});
            if (!opaque)
                continue;
            if (uncovered < left)
                m_stillOpen.push_back({uncovered, left});
            uncovered = right;
        }
        if (uncovered < open.right)
            m_stillOpen.push_back({uncovered, open.right});
    }
    m_open.swap(m_stillOpen);
}

void RowPlan::draw(QRgb *row, int y, LayerRows::Stores stores) const
{
    for (const Base &fill : m_fills)
        LayerRows::fill(row + fill.left, fill.right - fill.left, fill.pixel, stores);
    for (const Step &copy : m_copies) {
        if (copy.alpha == 255)
            LayerRows::copy(row + copy.left, copy.source(y), copy.right - copy.left, stores);
        else
            LayerRows::scale(row + copy.left, copy.source(y), copy.right - copy.left, copy.alpha, stores);
    }
    for (auto blend = m_blends.rbegin(); blend != m_blends.rend(); ++blend)
        LayerRows::atop(row + blend->left, blend->source(y), blend->right - blend->left, blend->alpha);
}
