#include "drawing/CoverageStrip.h"

#include <gtest/gtest.h>

namespace {
int coverageAt(const CoverageStrip &strip, int x, int y)
{
    return strip.mask().mask->constScanLine(y)[x];
}
} // namespace

TEST(CoverageStrip, ATextStandsWhereItWasPut)
{
    const TextLine text("I", 40);
    CoverageStrip strip(100, text.size().height());
    strip.unite(text, 30);

    const auto &[mask, offset] = text.masks().front();
    for (int y = 0; y < mask->height(); ++y) {
        for (int x = 0; x < mask->width(); ++x)
            ASSERT_EQ(coverageAt(strip, 30 + offset.x() + x, offset.y() + y), mask->constScanLine(y)[x]);
    }
    EXPECT_EQ(coverageAt(strip, 29, 25), 0);
}

TEST(CoverageStrip, AStripIsShiftedAndCutOff)
{
    const TextLine text("M", 40);
    const int height = text.size().height();
    CoverageStrip letters(60, height);
    letters.unite(text, 10);
    CoverageStrip shifted(60, height);
    shifted.unite(letters, 20);

    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < 60; ++x)
            ASSERT_EQ(coverageAt(shifted, x, y), x < 20 ? 0 : coverageAt(letters, x - 20, y));
    }
}

TEST(CoverageStrip, TheSameTextTwiceLeavesLessOpen)
{
    const TextLine text("O", 40);
    CoverageStrip once(60, text.size().height());
    once.unite(text, 5);
    CoverageStrip twice = once;
    twice.unite(text, 5);

    int partial = 0;
    for (int y = 0; y < text.size().height(); ++y) {
        for (int x = 0; x < 60; ++x) {
            const double open = (255.0 - coverageAt(once, x, y)) / 255;
            EXPECT_NEAR(coverageAt(twice, x, y), 255 * (1 - open * open), 1.0);
            partial += open > 0 && open < 1;
        }
    }
    EXPECT_GT(partial, 50);
}
