#include "canvas/tools/Attraction.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {
/// Both edges and the centre, in half pixels.
std::array<qint64, 3> linesOf(const PixelSpan &span)
{
    return {2 * span.from, span.from + span.to, 2 * span.to};
}
} // namespace

Attraction::Attraction(const std::vector<PixelSpan> &staying)
{
    for (const PixelSpan &span : staying) {
        const std::array<qint64, 3> lines = linesOf(span);
        if (!span.isEmpty())
            m_lines.insert(m_lines.end(), lines.begin(), lines.end());
    }
    std::sort(m_lines.begin(), m_lines.end());
    m_lines.erase(std::unique(m_lines.begin(), m_lines.end()), m_lines.end());
}

qint64 Attraction::pull(const PixelSpan &thing, qint64 way, double reach) const
{
    constexpr qint64 none = std::numeric_limits<qint64>::max();
    qint64 nearest = none;
    for (const qint64 own : linesOf({thing.from + way, thing.to + way})) {
        const auto behind = std::lower_bound(m_lines.begin(), m_lines.end(), own);
        if (behind != m_lines.end() && *behind - own < std::abs(nearest))
            nearest = *behind - own;
        if (behind != m_lines.begin() && own - *(behind - 1) < std::abs(nearest))
            nearest = *(behind - 1) - own;
    }
    if (nearest == none || double(std::abs(nearest)) > 2 * reach)
        return 0;
    return nearest / 2;
}

std::vector<double> Attraction::met(const PixelSpan &thing) const
{
    std::vector<double> lines;
    for (const qint64 own : linesOf(thing)) {
        const auto end = std::upper_bound(m_lines.begin(), m_lines.end(), own + 1);
        for (auto line = std::lower_bound(m_lines.begin(), end, own - 1); line != end; ++line)
            lines.push_back(double(*line) / 2);
    }
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}
