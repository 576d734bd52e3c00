#include "tests/app/RandomWalk.h"

#include "tests/base/LogLines.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace {
#ifdef __SANITIZE_ADDRESS__
constexpr int usualSteps = 2'000;
#else
constexpr int usualSteps = 10'000;
#endif

/// A number that the environment may set.
unsigned fromEnvironment(const char *variable, unsigned usual)
{
    bool isSet = false;
    const unsigned value = qEnvironmentVariable(variable).toUInt(&isSet);
    return isSet ? value : usual;
}
} // namespace

TEST(RandomWalkTest, WhateverIsDoneTheOutputIsAsComposedAnew)
{
    const unsigned seed = fromEnvironment("WALLWRIGHT_SEED", std::random_device()());
    const int steps = static_cast<int>(fromEnvironment("WALLWRIGHT_STEPS", usualSteps) / 20);
    std::cout << "WALLWRIGHT_SEED=" << seed << std::endl;
    const LogLines log;
    RandomWalk walk(seed);
    for (int step = 1; step <= steps && !::testing::Test::HasFailure(); ++step) {
        SCOPED_TRACE(::testing::Message() << "step " << step << " of seed " << seed);
        walk.step();
        walk.expectOutputAsComposedAnew();
    }
    ASSERT_FALSE(::testing::Test::HasFailure()) << qPrintable(walk.lastActions());
}

TEST(RandomWalkTest, WhateverIsDoneTheDocumentStaysWholeAndUndoLeadsBack)
{
    const unsigned seed = fromEnvironment("WALLWRIGHT_SEED", std::random_device()());
    const int steps = static_cast<int>(fromEnvironment("WALLWRIGHT_STEPS", usualSteps));
    std::cout << "WALLWRIGHT_SEED=" << seed << " WALLWRIGHT_STEPS=" << steps << std::endl;
    QElapsedTimer clock;
    clock.start();
    const LogLines log; // of failures that are meant to be
    RandomWalk walk(seed);
    for (int step = 1; step <= steps && !::testing::Test::HasFailure(); ++step) {
        SCOPED_TRACE(::testing::Message() << "step " << step << " of seed " << seed);
        walk.step();
        if (step % 100 == 0)
            walk.walkBackAndForth(step % 2000 == 0 ? DocumentHistory::mostSteps : 20);
    }
    ASSERT_FALSE(::testing::Test::HasFailure()) << qPrintable(walk.lastActions());
    walk.end();
    std::cout << "longest history: " << walk.mostSteps() << " steps; " << clock.elapsed() << " ms" << std::endl;
}
