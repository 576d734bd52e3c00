#include "drawing/TextLine.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <malloc.h>

TEST(TextLine, OfALetterNothingIsKeptButItsOutlineAndItsMask)
{
    constexpr int sizes = 200;
    constexpr std::size_t outline = 3000; // of a Q, with its entry
    const auto held = [] { return mallinfo2().uordblks; };
    (void)TextLine("Q", 16);
    const std::size_t before = held();
    std::size_t masks = 0;
    for (int i = 1; i <= sizes; ++i)
        masks += static_cast<std::size_t>(TextLine("Q", 16 + i / 1000.0).masks().front().mask->sizeInBytes());
    EXPECT_LT(held() - before, masks + sizes * outline);
}
