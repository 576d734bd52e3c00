#pragma once

#include <cstddef>
#include <vector>

/// How much memory the program holds whenever it has come to rest, and how much more that is at the end than after it
/// had warmed up. What is kept for the next time (glyphs, pictures in small) is now more and now less: medians of five
/// are compared.
class Memory
{
public:
    /// More is a leak.
    static constexpr double mostGrowth = 0.05;

    /// The program has come to rest and is warm.
    void note();
    /// Of the heap, in bytes; 0 where nothing was noted.
    std::size_t first() const;
    std::size_t last() const;
    /// As a share: 0.02 is two per cent; 0 where there is nothing to compare.
    double growth() const;

private:
    std::vector<std::size_t> m_bytes;
};
