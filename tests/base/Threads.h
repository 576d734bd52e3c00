#pragma once

#include "base/Bands.h"

/// As many threads as a machine with `count` processors has, for as long as this lives.
class Threads
{
public:
    explicit Threads(int count) : m_before(Bands::mostThreads()) { Bands::setMostThreads(count); }
    ~Threads() { Bands::setMostThreads(m_before); }
    Threads(const Threads &) = delete;
    Threads &operator=(const Threads &) = delete;

private:
    int m_before;
};
