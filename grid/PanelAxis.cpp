#include "grid/PanelAxis.h"

#include <algorithm>
#include <iterator>
#include <limits>

PanelAxis::PanelAxis(int count, int lineSize, const std::map<int, int> &otherSizes) : PanelAxis(count, lineSize)
{
    qint64 shift = 0;
    for (const auto &[line, size] : otherSizes) {
        if (line < 0 || line >= count || size == lineSize)
            continue;
        shift += qint64{size} - lineSize;
        m_others.push_back({line, size, shift});
    }
}

int PanelAxis::sizeOf(qint64 line) const
{
    const auto other = std::ranges::lower_bound(m_others, line, {}, &Other::line);
    return other != m_others.end() && other->line == line ? other->size : m_lineSize;
}

std::optional<qint64> PanelAxis::lineAt(qint64 pixel) const
{
    const auto next =
        std::ranges::upper_bound(m_others, pixel, {}, [this](const Other &other) { return endOf(other); });
    if (next != m_others.end() && pixel >= endOf(*next) - next->size)
        return next->line;
    return regularLineAt(next == m_others.begin() ? pixel : pixel - std::prev(next)->shift);
}

PanelAxis PanelAxis::mirrored() const
{
    if (m_others.empty())
        return *this;
    std::map<int, int> otherSizes;
    for (const Other &other : m_others)
        otherSizes.emplace(m_count - 1 - other.line, other.size);
    return {m_count, m_lineSize, otherSizes};
}

qint64 PanelAxis::shiftBefore(qint64 line) const
{
    const auto behind = std::ranges::lower_bound(m_others, line, {}, &Other::line);
    return behind == m_others.begin() ? 0 : std::prev(behind)->shift;
}

std::optional<qint64> PanelAxis::regularLineAt(qint64 pixel) const
{
    const bool isBeyond = m_lineSize == -1 && pixel == std::numeric_limits<qint64>::min();
    if (m_lineSize == 0 || isBeyond)
        return std::nullopt;
    return pixel / m_lineSize;
}
