#include "canvas/tools/Attraction.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
using Lines = std::vector<double>;

/// The output's 1920 columns, and a thing from 301 to 402: lines at 0, 960, 1920 and at 301, 351.5, 402.
const Attraction attraction({{0, 1920}, {301, 402}});
constexpr PixelSpan thing{1000, 1100};
} // namespace

TEST(Attraction, PullsAnEdgeToALineWithinReach)
{
    EXPECT_EQ(attraction.pull(thing, 814, 6), 6);   // right edge 1914
    EXPECT_EQ(attraction.pull(thing, 813, 6), 0);   // 7 short
    EXPECT_EQ(attraction.pull(thing, 824, 6), -4);  // beyond
    EXPECT_EQ(attraction.pull(thing, -1003, 6), 3); // left edge -3
    EXPECT_EQ(attraction.pull(thing, -594, 6), -4); // left edge 406 to 402
    EXPECT_EQ(attraction.pull(thing, 820, 6), 0);   // there already
}

TEST(Attraction, PullsTheCentreToo)
{
    EXPECT_EQ(attraction.pull(thing, -92, 6), 2); // 958 to the output's centre
    EXPECT_EQ(attraction.pull(thing, -88, 6), -2);
    EXPECT_EQ(attraction.pull(thing, -146, 6), 6); // left edge to the output's centre
}

TEST(Attraction, TheNearestLineWins)
{
    const Attraction close({{0, 10}, {13, 100}});
    EXPECT_EQ(close.pull({0, 1000}, 11, 6), -1); // 10, not 13
    EXPECT_EQ(close.pull({0, 1000}, 12, 6), 1);
}

TEST(Attraction, ALineAtHalfAPixelIsMetByHalfAPixel)
{
    // The centre at 349, the line at 351.5.
    EXPECT_EQ(attraction.pull(thing, -701, 6), 2);
    EXPECT_EQ(attraction.met({301, 401}), (Lines{301, 351.5}));
    EXPECT_EQ(attraction.pull(thing, -699, 6), 0); // 351 is as near as it goes
    EXPECT_EQ(attraction.pull(thing, -698, 6), 0);
}

TEST(Attraction, ReachIsInPixelsAndMayBeLessThanOne)
{
    EXPECT_EQ(attraction.pull(thing, 819, 0.9), 0);
    EXPECT_EQ(attraction.pull(thing, 819, 1), 1);
    EXPECT_EQ(attraction.pull(thing, 802, 18), 18);
}

TEST(Attraction, TellsTheLinesThatAreMet)
{
    EXPECT_EQ(attraction.met({1820, 1920}), Lines{1920});
    EXPECT_EQ(attraction.met({910, 1010}), Lines{960});
    EXPECT_EQ(attraction.met({0, 1920}), (Lines{0, 960, 1920}));
    EXPECT_EQ(attraction.met({1, 1921}), Lines{});
}

TEST(Attraction, NothingAttractsWithoutLines)
{
    EXPECT_EQ(Attraction().pull(thing, 0, 1e9), 0);
    EXPECT_EQ(Attraction().met(thing), Lines{});
    EXPECT_EQ(Attraction({{5, 5}, {7, -7}}).pull({5, 9}, 0, 1e9), 0);
}

TEST(Attraction, ExtremePlacesDoNoHarm)
{
    constexpr qint64 low = std::numeric_limits<int>::min();
    constexpr qint64 high = std::numeric_limits<int>::max();
    const Attraction far({{low, low + 10}, {high, 2 * high}});
    EXPECT_EQ(far.pull({low, low + 100}, 2 * high + 1 - 3, 6), 3);
    EXPECT_EQ(far.pull({high, 2 * high}, 3, 6), -3);
    EXPECT_EQ(far.met({high, 2 * high}), (Lines{double(high), 1.5 * high, 2.0 * high}));
}
