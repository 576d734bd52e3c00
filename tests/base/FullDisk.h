#pragma once

#include <csignal>
#include <sys/resource.h>

/// No file may grow beyond `bytes` while this lives: a disk that runs full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_oldLimit);
        const rlimit limit{bytes, m_oldLimit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_oldLimit);
        std::signal(SIGXFSZ, m_oldHandler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_oldLimit{};
    void (*m_oldHandler)(int) = nullptr;
};
