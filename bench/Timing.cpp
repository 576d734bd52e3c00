#include "bench/Timing.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstring>
#include <vector>

namespace {
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr size_t fewestRounds = 15;
constexpr size_t mostRounds = 301;
constexpr Seconds longEnough{1};

double secondsOf(const std::function<void()> &work)
{
    const Clock::time_point start = Clock::now();
    work();
    benchmark::ClobberMemory();
    return Seconds(Clock::now() - start).count();
}
} // namespace

double timeOf(const std::function<void()> &work, const std::function<void()> &reference)
{
    work(); // warm: buffers are there, pictures are known
    reference();

    std::vector<double> ratios;
    const Clock::time_point start = Clock::now();
    while (ratios.size() < fewestRounds || (ratios.size() < mostRounds && Clock::now() - start < longEnough)) {
        const double unit = secondsOf(reference);
        ratios.push_back(secondsOf(work) / unit);
    }
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    return *middle;
}

double timeOfMemset(const Subject &subject)
{
    std::vector<char> memory(subject.bytes);
    return timeOf(subject.run, [&] {
        std::memset(memory.data(), 0x55, memory.size());
        benchmark::DoNotOptimize(memory.data());
    });
}

double timeOfMemcpy(const Subject &subject)
{
    const std::vector<char> from(subject.bytes, 0x55);
    std::vector<char> to(subject.bytes);
    return timeOf(subject.run, [&] {
        std::memcpy(to.data(), from.data(), to.size());
        benchmark::DoNotOptimize(to.data());
    });
}

double timeOfReading(const Subject &subject)
{
    const std::vector<char> memory(subject.bytes, 0x55);
    return timeOf(subject.run, [&] {
        const void *found = std::memchr(memory.data(), 0x2a, memory.size()); // it is not there
        benchmark::DoNotOptimize(found);
    });
}
