#include "base/Bands.h"
#include "tests/base/Threads.h"

#include <atomic>
#include <gtest/gtest.h>
#include <pthread.h>
#include <system_error>
#include <thread>

namespace {
/// The system makes no thread while this lives: there is no memory for its stack.
class NoThreads
{
public:
    NoThreads()
    {
        constexpr std::size_t beyondAll = std::size_t{1} << 50;
        pthread_getattr_default_np(&m_before);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, beyondAll);
        pthread_setattr_default_np(&attributes);
        pthread_attr_destroy(&attributes);
    }
    ~NoThreads()
    {
        pthread_setattr_default_np(&m_before);
        pthread_attr_destroy(&m_before);
    }
    NoThreads(const NoThreads &) = delete;
    NoThreads &operator=(const NoThreads &) = delete;

private:
    pthread_attr_t m_before{};
};

int rowsDone()
{
    std::atomic<int> rows = 0;
    Bands::forEach(1000, 1, [&](int, int count) { rows += count; });
    return rows;
}
} // namespace

TEST(Bands, WhereNoThreadIsMadeTheCallingOneDoesItAll)
{
    const Threads threads(64); // more than other tests have made
    {
        const NoThreads none;
        ASSERT_THROW(std::thread([] {}).join(), std::system_error);
        EXPECT_EQ(rowsDone(), 1000);
    }
    EXPECT_EQ(rowsDone(), 1000);
}
