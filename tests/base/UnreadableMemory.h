#pragma once

#include <cstddef>

/// Memory that ends the program where it is read.
class UnreadableMemory
{
public:
    explicit UnreadableMemory(std::size_t bytes);
    ~UnreadableMemory();
    UnreadableMemory(const UnreadableMemory &) = delete;
    UnreadableMemory &operator=(const UnreadableMemory &) = delete;

    /// Null where it cannot be had.
    const unsigned char *data() const { return static_cast<const unsigned char *>(m_memory); }

private:
    std::size_t m_bytes;
    void *m_memory;
};
