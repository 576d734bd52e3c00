#include "drawing/TextLine.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <malloc.h>

namespace {
std::size_t heldBytes()
{
    return mallinfo2().uordblks;
}
} // namespace

TEST(TextLine, OfALetterNothingIsKeptButItsOutlineAndItsMask)
{
    constexpr int sizes = 200;
    constexpr std::size_t outline = 3000; // of a Q, with its entry
    (void)TextLine("Q", 16);
    const std::size_t before = heldBytes();
    std::size_t masks = 0;
    for (int i = 1; i <= sizes; ++i)
        masks += static_cast<std::size_t>(TextLine("Q", 16 + i / 1000.0).masks().front().mask->sizeInBytes());
    EXPECT_LT(heldBytes() - before, masks + sizes * outline);
}

TEST(TextLine, WhatIsKeptOfLettersIsBoundedByItsBytes)
{
    constexpr std::size_t mostBytes = 18 << 20; // what they are reckoned to take is measured to a tenth
    const std::size_t before = heldBytes();
    if (before == 0)
        GTEST_SKIP() << "another allocator";
    for (const double size : {12.0, 60.0, 12.5, 60.5}) { // each would fill it
        const int letters = size < 50 ? 14'000 : 5'000;
        for (int i = 0; i < letters; ++i)
            (void)TextLine("Q", size + i / 100'000.0);
        EXPECT_LT(heldBytes() - before, mostBytes) << size;
        EXPECT_GT(heldBytes() - before, mostBytes / 2) << size;
    }
}
