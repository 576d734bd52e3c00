#include "base/Bands.h"

#include "tests/base/Threads.h"

#include <QSemaphore>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <mutex>
#include <new>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {
struct Band
{
    int first;
    int count;

    bool operator==(const Band &) const = default;
};

/// From top to bottom.
std::vector<Band> bandsOf(int rows, int leastRows)
{
    std::mutex mutex;
    std::vector<Band> bands;
    Bands::forEach(rows, leastRows, [&](int first, int count) {
        const std::lock_guard lock(mutex);
        bands.push_back({first, count});
    });
    std::ranges::sort(bands, {}, &Band::first);
    return bands;
}

void expectEachRowOnce(int rows, int leastRows)
{
    std::vector<std::atomic<int>> times(static_cast<std::size_t>(rows));
    Bands::forEach(rows, leastRows, [&](int first, int count) {
        for (int row = first; row < first + count; ++row)
            ++times[static_cast<std::size_t>(row)];
    });
    for (int row = 0; row < rows; ++row)
        ASSERT_EQ(times[static_cast<std::size_t>(row)], 1) << "row " << row << " of " << rows << " by " << leastRows;
}
} // namespace

class BandsByThreads : public testing::TestWithParam<int>
{
    Threads m_threads{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Processors, BandsByThreads, testing::Values(1, 2, 8));

TEST_P(BandsByThreads, EveryRowIsDoneOnce)
{
    for (const int leastRows : {1, 2, 7, 64}) {
        for (const int rows : {0, 1, 2, 13, 63, 64, 65, 127, 128, 129, 4320})
            expectEachRowOnce(rows, leastRows);
    }
}

TEST_P(BandsByThreads, TheBandsAreTheSame)
{
    EXPECT_EQ(bandsOf(4, 5), (std::vector<Band>{{0, 4}}));
    EXPECT_EQ(bandsOf(9, 5), (std::vector<Band>{{0, 9}}));
    EXPECT_EQ(bandsOf(23, 5), (std::vector<Band>{{0, 5}, {5, 6}, {11, 6}, {17, 6}}));
    EXPECT_TRUE(bandsOf(-3, 5).empty());
}

TEST_P(BandsByThreads, MostRowsDoNotOverflow)
{
    std::atomic<qint64> rows = 0;
    Bands::forEach(2'000'000'000, 1'000'000, [&](int, int count) { rows += count; });
    EXPECT_EQ(rows, 2'000'000'000);
}

TEST_P(BandsByThreads, ABandMayHaveBandsOfItsOwn)
{
    std::vector<std::atomic<int>> times(64);
    Bands::forEach(8, 1, [&](int outer, int) {
        Bands::forEach(8, 1, [&](int inner, int) {
            ++times[8 * static_cast<std::size_t>(outer) + static_cast<std::size_t>(inner)];
        });
    });
    for (const std::atomic<int> &time : times)
        EXPECT_EQ(time, 1);
}

TEST_P(BandsByThreads, WhatABandThrowsReachesTheCaller)
{
    std::atomic<int> begun = 0;
    std::atomic<int> inside = 0;
    const auto work = [&](int first, int) {
        ++begun;
        ++inside;
        if (first == 40) {
            --inside;
            throw std::bad_alloc();
        }
        QThread::usleep(100);
        --inside;
    };
    EXPECT_THROW(Bands::forEach(1000, 1, work), std::bad_alloc);
    EXPECT_EQ(inside, 0);
    EXPECT_LT(begun, 1000); // the rest did not begin
    const int begunThen = begun;
    QThread::msleep(5);
    EXPECT_EQ(begun, begunThen);
    expectEachRowOnce(100, 1);
}

TEST(Bands, OneThreadGoesFromTopToBottom)
{
    const Threads threads(1);
    std::vector<int> firsts;
    const QThread *const own = QThread::currentThread();
    Bands::forEach(40, 10, [&](int first, int) {
        EXPECT_EQ(QThread::currentThread(), own);
        firsts.push_back(first);
    });
    EXPECT_EQ(firsts, (std::vector{0, 10, 20, 30}));
}

TEST(Bands, ASingleBandNeedsNoOtherThread)
{
    const Threads threads(8);
    const QThread *const own = QThread::currentThread();
    int bands = 0;
    Bands::forEach(19, 10, [&](int, int) {
        EXPECT_EQ(QThread::currentThread(), own);
        ++bands;
    });
    EXPECT_EQ(bands, 1);
}

TEST(Bands, TwoThreadsWorkAtTheSameTime)
{
    const Threads threads(2);
    QSemaphore here;
    std::atomic<int> met = 0;
    Bands::forEach(2, 1, [&](int, int) {
        here.release();
        // The other band is in the middle of its work as well.
        met += here.tryAcquire(2, 10'000) ? 1 : 0;
        here.release(2);
    });
    EXPECT_EQ(met, 2);
}

TEST(Bands, NoMoreThreadsWorkThanAreSet)
{
    const Threads threads(3);
    std::atomic<int> inside = 0;
    std::atomic<int> most = 0;
    Bands::forEach(60, 1, [&](int, int) {
        const int now = ++inside;
        for (int before = most; before < now && !most.compare_exchange_weak(before, now);) {
        }
        QThread::msleep(1);
        --inside;
    });
    EXPECT_LE(most, 3);
}

TEST(Bands, BusyThreadsAreNotWaitedFor)
{
    const Threads threads(2);
    QSemaphore busy;
    QSemaphore go;
    std::thread other([&] {
        Bands::shareOut(1, [&] {
            busy.release();
            go.acquire();
        });
    });
    busy.acquire(2); // the other one and the only helper
    expectEachRowOnce(100, 1);
    go.release(2);
    other.join();
}

TEST(Bands, EveryThreadThatTakesPartDoesSharedWorkOnce)
{
    const Threads threads(8);
    std::atomic<int> times = 0;
    std::atomic<int> pieces = 0;
    Bands::shareOut(3, [&] {
        ++times;
        while (pieces++ < 1000)
            QThread::usleep(10);
    });
    EXPECT_GE(times, 1);
    EXPECT_LE(times, 4);
    EXPECT_GE(pieces, 1000);
}

TEST(Bands, WhatAHelperThrowsReachesTheCaller)
{
    const Threads threads(2);
    const QThread *const own = QThread::currentThread();
    QSemaphore thrown;
    const auto work = [&] {
        if (QThread::currentThread() != own) {
            thrown.release();
            throw std::runtime_error("helper");
        }
        EXPECT_TRUE(thrown.tryAcquire(1, 10'000));
    };
    EXPECT_THROW(Bands::shareOut(1, work), std::runtime_error);
}
