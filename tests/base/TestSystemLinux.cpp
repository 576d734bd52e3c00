#include "tests/base/FullDisk.h"
#include "tests/base/UnreadableMemory.h"

#include <cerrno>
#include <csignal>
#include <sys/mman.h>
#include <sys/resource.h>

struct FullDisk::Before
{
    void (*handler)(int);
    rlimit limit;
};

FullDisk::FullDisk(qint64 bytes) : m_before(std::make_unique<Before>())
{
    m_before->handler = std::signal(SIGXFSZ, SIG_IGN); // a refused write shall be an error, not the end
    getrlimit(RLIMIT_FSIZE, &m_before->limit);
    const rlimit limit{static_cast<rlim_t>(bytes), m_before->limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk()
{
    setrlimit(RLIMIT_FSIZE, &m_before->limit);
    std::signal(SIGXFSZ, m_before->handler);
}

QString FullDisk::reason()
{
    return qt_error_string(EFBIG);
}

QString reasonOfNoFolder()
{
    return qt_error_string(ENOENT);
}

UnreadableMemory::UnreadableMemory(std::size_t bytes)
    : m_bytes(bytes), m_memory(mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
{
    if (m_memory == MAP_FAILED)
        m_memory = nullptr;
}

UnreadableMemory::~UnreadableMemory()
{
    munmap(m_memory, m_bytes);
}
