#pragma once

#include <QThreadPool>

/// As many threads as a machine with `count` processors has, for as long as this lives.
class Threads
{
public:
    explicit Threads(int count) : m_before(pool().maxThreadCount()) { pool().setMaxThreadCount(count); }
    ~Threads() { pool().setMaxThreadCount(m_before); }
    Threads(const Threads &) = delete;
    Threads &operator=(const Threads &) = delete;

    static QThreadPool &pool() { return *QThreadPool::globalInstance(); }

private:
    int m_before;
};
