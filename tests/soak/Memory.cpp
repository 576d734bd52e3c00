#include "tests/soak/Memory.h"

#include <algorithm>
#include <malloc.h>
#include <span>

namespace {
constexpr std::size_t together = 5;

std::size_t median(std::span<const std::size_t> of)
{
    std::vector<std::size_t> sorted(of.begin(), of.end());
    std::sort(sorted.begin(), sorted.end());
    return sorted.empty() ? 0 : sorted[sorted.size() / 2];
}
} // namespace

void Memory::note()
{
    malloc_trim(0);
    const struct mallinfo2 heap = mallinfo2();
    m_bytes.push_back(heap.uordblks + heap.hblkhd);
}

std::size_t Memory::first() const
{
    return median(std::span(m_bytes).first(std::min(together, m_bytes.size())));
}

std::size_t Memory::last() const
{
    return median(std::span(m_bytes).last(std::min(together, m_bytes.size())));
}

double Memory::growth() const
{
    return first() == 0 ? 0 : static_cast<double>(last()) / static_cast<double>(first()) - 1;
}
