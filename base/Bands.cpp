#include "base/Bands.h"

#include <QMutex>
#include <QMutexLocker>
#include <QThreadPool>
#include <QWaitCondition>

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <new>

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
            const QMutexLocker lock(&m_mutex);
            if (!m_isOpen)
                return;
            ++m_helpers;
        }
        run();
        const QMutexLocker lock(&m_mutex);
        if (--m_helpers == 0)
            m_isLeft.wakeAll();
    }

    /// Keeps what the work throws, the first time.
    void run()
    {
        try {
            m_work();
        } catch (...) {
            const QMutexLocker lock(&m_mutex);
            if (!m_thrown)
                m_thrown = std::current_exception();
        }
    }

    /// Waits for the helpers that have begun.
    void close()
    {
        const QMutexLocker lock(&m_mutex);
        m_isOpen = false;
        while (m_helpers > 0)
            m_isLeft.wait(&m_mutex);
        if (m_thrown)
            std::rethrow_exception(m_thrown);
    }

private:
    const std::function<void()> &m_work;
    QMutex m_mutex;
    QWaitCondition m_isLeft;
    bool m_isOpen = true;
    int m_helpers = 0;
    std::exception_ptr m_thrown;
};

/// Asks for a helper; without the memory to ask there is one less.
void callHelper(QThreadPool &pool, const std::shared_ptr<SharedWork> &shared)
{
    try {
        pool.start([shared] { shared->help(); });
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
