#include "base/Bands.h"

#include <QRunnable>
#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

namespace {
/// Work that is open to helpers until its caller is through. Helpers share it: one that comes late finds it closed,
/// when what it was to do is long gone.
class SharedWork
{
public:
    explicit SharedWork(const std::function<void()> &work) : m_work(work) {}

    void help()
    {
        {
            const std::lock_guard lock(m_mutex);
            if (!m_isOpen)
                return;
            ++m_helpers;
        }
        run();
        const std::lock_guard lock(m_mutex);
        if (--m_helpers == 0)
            m_isLeft.notify_all();
    }

    /// Keeps what the work throws, the first time.
    void run()
    {
        try {
            m_work();
        } catch (...) {
            const std::lock_guard lock(m_mutex);
            if (!m_thrown)
                m_thrown = std::current_exception();
        }
    }

    /// Waits for the helpers that have begun.
    void close()
    {
        std::unique_lock lock(m_mutex);
        m_isOpen = false;
        m_isLeft.wait(lock, [this] { return m_helpers == 0; });
        if (m_thrown)
            std::rethrow_exception(m_thrown);
    }

private:
    const std::function<void()> &m_work;
    std::mutex m_mutex;
    std::condition_variable m_isLeft;
    bool m_isOpen = true;
    int m_helpers = 0;
    std::exception_ptr m_thrown;
};

/// What the pool does on a thread of its own.
class Helper final : public QRunnable
{
public:
    explicit Helper(std::shared_ptr<SharedWork> shared) : m_shared(std::move(shared)) { ++s_called; }

    void run() override
    {
        (void)s_called.load();
        m_shared->help();
    }

private:
    /// Hands over what the caller has done. The pool does so, too, but with locks that the thread sanitizer cannot see.
    static inline std::atomic<unsigned> s_called = 0;
    std::shared_ptr<SharedWork> m_shared;
};

/// Asks for a helper; without the memory to ask there is one less.
void callHelper(QThreadPool &pool, const std::shared_ptr<SharedWork> &shared)
{
    try {
        pool.start(new Helper(shared));
    } catch (const std::bad_alloc &) {
        return;
    }
}
} // namespace

namespace Bands {

void forEach(int rows, int leastRows, const std::function<void(int first, int count)> &work)
{
    if (rows <= 0)
        return;
    const int bands = std::max(1, rows / leastRows);
    const auto begin = [rows, bands](qint64 band) { return static_cast<int>(rows * band / bands); };
    std::atomic<int> next = 0;
    shareOut(bands - 1, [&] {
        try {
            for (int band = next++; band < bands; band = next++)
                work(begin(band), begin(band + 1) - begin(band));
        } catch (...) {
            next = bands;
            throw;
        }
    });
}

void shareOut(int mostHelpers, const std::function<void()> &work)
{
    QThreadPool &pool = *QThreadPool::globalInstance();
    const int helpers = std::min(mostHelpers, pool.maxThreadCount() - 1);
    if (helpers <= 0)
        return work();
    const auto shared = std::make_shared<SharedWork>(work);
    for (int i = 0; i < helpers; ++i)
        callHelper(pool, shared);
    shared->run();
    shared->close();
}

} // namespace Bands
