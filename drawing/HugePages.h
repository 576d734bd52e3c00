#pragma once

#include <cstddef>

/// Large blocks of memory on pages of 2 MiB instead of 4 KiB: they are filled without a page fault for every 4 KiB.
namespace HugePages {

inline constexpr std::size_t size = std::size_t{2} << 20;

/// Asks the kernel for them where a block of allocated memory spans whole ones. Where it refuses, ordinary pages serve.
void adviseFor(void *memory, std::size_t bytes);

} // namespace HugePages
