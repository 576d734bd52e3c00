#include "tests/charts/TestShapes.h"

namespace {
using Edges = std::vector<int>;

/// The same probes at twice the place.
template <typename Probes>
Probes doubled(Probes probes)
{
    for (auto &probe : probes) {
        probe.x *= 2;
        probe.y *= 2;
    }
    return probes;
}
} // namespace

TEST(Rp219, HasItsCodesInFullRange)
{
    const std::vector<Probe> probes{
        {239, 0, 102, 102, 102},   {240, 0, 191, 191, 191},   {446, 300, 191, 191, 0},    {857, 629, 0, 191, 191},
        {858, 629, 0, 191, 0},     {1679, 0, 0, 0, 191},      {1680, 0, 102, 102, 102},   {0, 630, 0, 255, 255},
        {240, 630, 255, 255, 255}, {446, 630, 191, 191, 191}, {1680, 630, 0, 0, 255},     {240, 720, 0, 0, 0},
        {446, 720, 0, 0, 0},       {960, 720, 128, 128, 128}, {1473, 720, 255, 255, 255}, {1474, 720, 255, 255, 255},
        {0, 1079, 38, 38, 38},     {548, 900, 255, 255, 255}, {1130, 900, 0, 0, 0},       {1268, 900, 5, 5, 5},
        {1406, 900, 10, 10, 10},   {1680, 720, 255, 0, 0},    {0, 720, 255, 255, 0},
    };
    expectProbes(pictureOf("rp219", fullHd), probes);
}

TEST(Rp219, HasItsCodesInNarrowRange)
{
    const std::vector<Probe> probes{
        {239, 0, 104, 104, 104},   {240, 0, 180, 180, 180},   {446, 300, 180, 180, 16},   {857, 629, 16, 180, 180},
        {858, 629, 16, 180, 16},   {1679, 0, 16, 16, 180},    {1680, 0, 104, 104, 104},   {0, 630, 16, 235, 235},
        {240, 630, 235, 235, 235}, {446, 630, 180, 180, 180}, {1680, 630, 16, 16, 235},   {240, 720, 16, 16, 16},
        {446, 720, 16, 16, 16},    {960, 720, 126, 126, 126}, {1473, 720, 235, 235, 235}, {1474, 720, 235, 235, 235},
        {0, 1079, 49, 49, 49},     {548, 900, 235, 235, 235}, {1130, 900, 12, 12, 12},    {1268, 900, 20, 20, 20},
        {1406, 900, 25, 25, 25},
    };
    expectProbes(pictureOf("rp219", fullHd, LevelRange::Narrow), probes);
    std::vector<Probe> large = doubled(probes);
    std::erase_if(large, [](const Probe &probe) { return probe.y == 1440 && probe.x > 892 && probe.x < 2948; });
    expectProbes(pictureOf("rp219", ultraHd, LevelRange::Narrow), large);
}

TEST(Rp219, HasTheEdgesOfTheStandardAtBothSizes)
{
    const Edges upper{0, 240, 446, 652, 858, 1062, 1268, 1474, 1680, 1920};
    const Edges lowest{0, 240, 548, 960, 1130, 1198, 1268, 1336, 1406, 1474, 1680, 1920};
    const QImage hd = pictureOf("rp219", fullHd, LevelRange::Narrow);
    EXPECT_EQ(edgesInRow(hd, 0), upper);
    EXPECT_EQ(edgesInRow(hd, 629), upper);
    EXPECT_EQ(edgesInRow(hd, 1079), lowest);

    const QImage uhd = pictureOf("rp219", ultraHd, LevelRange::Narrow);
    EXPECT_EQ(edgesInRow(uhd, 1259), (Edges{0, 480, 892, 1304, 1716, 2124, 2536, 2948, 3360, 3840}));
    EXPECT_EQ(edgesInRow(uhd, 1620), (Edges{0, 480, 1096, 1920, 2260, 2396, 2536, 2672, 2812, 2948, 3360, 3840}));
    expectGreys(uhd, {{2260, 1800, 12}, {2536, 1800, 20}, {2812, 1800, 25}});
}

TEST(Rp219, HasItsRowsAtBothSizes)
{
    for (const int scale : {1, 2}) {
        const QImage picture = pictureOf("rp219", fullHd * scale);
        const std::vector<Probe> left{{0, 630 * scale - 1, 102, 102, 102}, {0, 630 * scale, 0, 255, 255},
                                      {0, 720 * scale - 1, 0, 255, 255},   {0, 720 * scale, 255, 255, 0},
                                      {0, 810 * scale - 1, 255, 255, 0},   {0, 810 * scale, 38, 38, 38}};
        expectProbes(picture, left);
    }
}

TEST(Rp219, HasARampOfFiveBars)
{
    expectGreys(pictureOf("rp219", ultraHd),
                {{892, 1440, 0}, {891, 1440, 0}, {1919, 1440, 127}, {1920, 1440, 128}, {2947, 1440, 255}});
}

TEST(Rp219, OfOtherSizesFollowsItsShares)
{
    const QImage picture = pictureOf("rp219", QSize(333, 77), LevelRange::Narrow);
    EXPECT_EQ(edgesInRow(picture, 0), (Edges{0, 42, 77, 113, 149, 184, 220, 256, 291, 333}));
    EXPECT_EQ(edgesInRow(picture, 76), (Edges{0, 42, 95, 167, 196, 208, 220, 232, 244, 256, 291, 333}));
}

TEST(Rp219, HasTheTwoSquaresWhereTheyAreAskedFor)
{
    expectProbes(pictureOf("rp219-iq", fullHd), {{240, 630, 0, 63, 105}, {240, 720, 65, 0, 120}});
    expectProbes(pictureOf("rp219-iq", fullHd, LevelRange::Narrow), {{240, 630, 16, 70, 106}, {240, 720, 72, 16, 119}});
}

TEST(Rp219, GoesBeyondBlackAndWhiteInNarrowRangeAlone)
{
    const QImage narrow = pictureOf("rp219-peaks", fullHd, LevelRange::Narrow);
    // Black from 240 to 547, white from 548 to 959, in rows 900 to 989.
    expectGreys(narrow, {{240, 900, 16}, {393, 900, 1}, {394, 989, 1}, {547, 900, 16}, {394, 899, 16}, {394, 990, 16}});
    expectGreys(narrow, {{548, 900, 235}, {753, 900, 254}, {754, 989, 254}, {959, 900, 235}, {753, 899, 235}});
    EXPECT_EQ(pictureOf("rp219-peaks", fullHd), pictureOf("rp219", fullHd));
}

TEST(EbuBars, AreEightAlike)
{
    EXPECT_EQ(edgesInRow(pictureOf("bars-75", fullHd), 500), (Edges{0, 240, 480, 720, 960, 1200, 1440, 1680, 1920}));
    EXPECT_EQ(edgesInRow(pictureOf("bars-100", ultraHd), 2159),
              (Edges{0, 480, 960, 1440, 1920, 2400, 2880, 3360, 3840}));
}

TEST(EbuBars, HaveTheLevelsOfTheirNames)
{
    for (const int scale : {1, 2}) {
        const QSize size = fullHd * scale;
        const std::vector<Probe> colours75{{240 * scale, 7, 191, 191, 0}, {480 * scale - 1, 7, 191, 191, 0},
                                           {480 * scale, 7, 0, 191, 191}, {720 * scale, 7, 0, 191, 0},
                                           {960 * scale, 7, 191, 0, 191}, {1200 * scale, 7, 191, 0, 0},
                                           {1440 * scale, 7, 0, 0, 191},  {1680 * scale, 7, 0, 0, 0}};
        expectProbes(pictureOf("bars-75", size), colours75);
        expectProbes(pictureOf("bars-75-white-75", size), colours75);
        expectGreys(pictureOf("bars-75", size), {{0, 7, 255}});
        expectGreys(pictureOf("bars-75-white-75", size), {{0, 7, 191}});
        expectProbes(pictureOf("bars-100", size), {{0, 7, 255, 255, 255}, {240 * scale, 7, 255, 255, 0}});
    }
    expectProbes(pictureOf("bars-75", fullHd, LevelRange::Narrow),
                 {{0, 0, 235, 235, 235}, {240, 0, 180, 180, 16}, {1680, 0, 16, 16, 16}});
}

TEST(OldBars, HaveTheirEdgesAndRows)
{
    const QImage hd = pictureOf("bars-old", fullHd, LevelRange::Narrow);
    EXPECT_EQ(edgesInRow(hd, 719), (Edges{0, 274, 549, 823, 1097, 1371, 1646, 1920}));
    EXPECT_EQ(edgesInRow(hd, 720), (Edges{0, 274, 549, 823, 1097, 1371, 1646, 1920}));
    EXPECT_EQ(edgesInRow(hd, 810), (Edges{0, 343, 686, 1029, 1371, 1463, 1554, 1646, 1920}));
    EXPECT_EQ(edgesInRow(pictureOf("bars-old", ultraHd), 0), (Edges{0, 549, 1097, 1646, 2194, 2743, 3291, 3840}));
    expectProbes(hd, {{0, 720, 16, 16, 180},
                      {274, 720, 16, 16, 16},
                      {549, 720, 180, 16, 180},
                      {1097, 720, 16, 180, 180},
                      {1646, 720, 180, 180, 180},
                      {0, 810, 16, 70, 106},
                      {343, 810, 235, 235, 235},
                      {686, 810, 72, 16, 119},
                      {1029, 810, 16, 16, 16},
                      {1371, 810, 7, 7, 7},
                      {1463, 810, 16, 16, 16},
                      {1554, 810, 25, 25, 25}});
    expectGreys(pictureOf("bars-old", fullHd), {{1371, 810, 0}, {1554, 810, 10}});
}
