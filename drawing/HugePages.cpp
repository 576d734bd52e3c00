#include "drawing/HugePages.h"

#include <cstdint>
#include <sys/mman.h>

namespace HugePages {

void adviseFor(void *memory, std::size_t bytes)
{
    const auto start = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (start + size - 1) / size * size;
    const std::uintptr_t end = (start + bytes) / size * size;
    if (first < end)
        madvise(reinterpret_cast<void *>(first), end - first, MADV_HUGEPAGE);
}

} // namespace HugePages
