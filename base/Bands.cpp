#include "base/Bands.h"

#include <QThread>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace {
/// Work that is shared; the crew's lock guards it.
struct SharedWork
{
    const std::function<void()> &work;
    int helpers = 0; ///< that have begun and not ended
    std::exception_ptr thrown{};
    std::condition_variable isLeft{};
};

std::exception_ptr thrownBy(const std::function<void()> &work)
{
    try {
        work();
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

/// The threads that help. They are made when first called for and stay until the program ends; one that cannot be made
/// is asked for again the next time. QThreadPool takes its threads for made without looking: where the system refuses
/// one, what it was to do never ends.
class Crew
{
public:
    Crew() = default;
    ~Crew();
    Crew(const Crew &) = delete;
    Crew &operator=(const Crew &) = delete;

    static Crew &instance();

    int most();
    void setMost(int threads);

    /// Does `work` here as well.
    void shareOut(int mostHelpers, SharedWork &shared);

private:
    void call(int mostHelpers, SharedWork &shared);
    void makeThreads();
    void serve();
    void help(SharedWork &shared, std::unique_lock<std::mutex> &lock);

    std::mutex m_mutex;
    std::condition_variable m_isCalled;
    std::deque<SharedWork *> m_calls; ///< one for each helper that has not begun
    std::vector<std::thread> m_threads;
    int m_most = std::max(1, QThread::idealThreadCount()); ///< with the one that calls
    int m_busy = 0;
    bool m_isEnding = false;
};

Crew::~Crew()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_isCalled.notify_all();
    for (std::thread &thread : m_threads)
        thread.join();
}

Crew &Crew::instance()
{
    static Crew crew;
    return crew;
}

int Crew::most()
{
    const std::lock_guard lock(m_mutex);
    return m_most;
}

void Crew::setMost(int threads)
{
    const std::lock_guard lock(m_mutex);
    m_most = std::max(1, threads);
}

void Crew::shareOut(int mostHelpers, SharedWork &shared)
{
    std::unique_lock lock(m_mutex);
    call(std::min(mostHelpers, m_most - 1), shared);
    help(shared, lock);
    std::erase(m_calls, &shared);
    shared.isLeft.wait(lock, [&shared] { return shared.helpers == 0; });
}

/// Without the memory to call there are fewer.
void Crew::call(int mostHelpers, SharedWork &shared)
{
    try {
        for (int i = 0; i < mostHelpers; ++i)
            m_calls.push_back(&shared);
        makeThreads();
    } catch (const std::bad_alloc &) {
    } catch (const std::system_error &) { // no thread is to be had
    }
    m_isCalled.notify_all();
}

void Crew::makeThreads()
{
    const auto wanted =
        std::min(static_cast<std::size_t>(m_busy) + m_calls.size(), static_cast<std::size_t>(m_most - 1));
    while (m_threads.size() < wanted)
        m_threads.emplace_back([this] { serve(); });
}

void Crew::serve()
{
    std::unique_lock lock(m_mutex);
    while (!m_isEnding) {
        if (m_calls.empty() || m_busy >= m_most - 1) {
            m_isCalled.wait(lock);
            continue;
        }
        SharedWork &shared = *m_calls.front();
        m_calls.pop_front();
        ++m_busy;
        help(shared, lock);
        --m_busy;
    }
}

/// Keeps what the work throws, the first time.
void Crew::help(SharedWork &shared, std::unique_lock<std::mutex> &lock)
{
    ++shared.helpers;
    lock.unlock();
    std::exception_ptr thrown = thrownBy(shared.work);
    lock.lock();
    if (!shared.thrown)
        shared.thrown.swap(thrown);
    if (--shared.helpers == 0)
        shared.isLeft.notify_all();
}
} // namespace

namespace Bands {

int mostThreads()
{
    return Crew::instance().most();
}

void setMostThreads(int threads)
{
    Crew::instance().setMost(threads);
}

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
    Crew &crew = Crew::instance();
    if (mostHelpers <= 0 || crew.most() <= 1)
        return work();
    SharedWork shared{work};
    crew.shareOut(mostHelpers, shared);
    if (shared.thrown)
        std::rethrow_exception(shared.thrown);
}

} // namespace Bands
