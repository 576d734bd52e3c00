#include "tests/charts/TestShapes.h"

TEST(FrequencySweep, FollowsItsFormula)
{
    expectGreys(
        pictureOf("frequencies", fullHd),
        {{0, 0, 255}, {10, 1079, 255}, {100, 0, 86}, {960, 0, 245}, {1917, 0, 128}, {1918, 0, 127}, {1919, 540, 127}});
    expectGreys(pictureOf("frequencies", ultraHd), {{100, 0, 53}, {1920, 0, 245}, {3837, 2159, 128}});
}

TEST(ZonePlate, FollowsItsFormula)
{
    expectGreys(pictureOf("zone-plate", fullHd),
                {{960, 540, 255}, {970, 540, 248}, {1060, 590, 207}, {960, 0, 128}, {960, 1, 127}, {0, 0, 253}});
    expectGreys(pictureOf("zone-plate", ultraHd),
                {{1920, 1080, 255}, {1930, 1080, 253}, {2020, 1130, 242}, {1920, 0, 128}, {0, 0, 46}});
}

TEST(ChartsOfOneMiddle, AreTheirMirrors)
{
    for (const QSize &size : {QSize(333, 77), QSize(334, 78), QSize(104, 1456)}) {
        const QImage picture = pictureOf("zone-plate", size);
        EXPECT_EQ(picture, picture.mirrored(true, false));
        EXPECT_EQ(picture, picture.mirrored(false, true));
    }
    for (const QSize &size :
         {QSize(65, 65), QSize(129, 257), QSize(321, 193)}) { // where the mesh ends with its last line
        const QImage picture = pictureOf("grid", size);
        EXPECT_EQ(picture, picture.mirrored(true, false));
        EXPECT_EQ(picture, picture.mirrored(false, true));
    }
}

TEST(CrossHatch, HasALineEverySixtyFourPixelsAndAtTheEnds)
{
    const QImage hd = pictureOf("grid", fullHd);
    for (const int x : {0, 64, 640, 1856, 1919})
        expectGreys(hd, {{x, 500, 255}});
    expectGreys(hd, {{65, 500, 0}, {63, 500, 0}, {700, 64, 255}, {700, 1024, 255}, {700, 1079, 255}, {700, 1078, 0}});
    const QImage uhd = pictureOf("grid", ultraHd);
    expectGreys(uhd, {{3776, 500, 255}, {3839, 500, 255}, {3838, 500, 0}, {100, 2112, 255}, {100, 2159, 255}});
}

TEST(CrossHatch, HasItsDiagonalsInTheCorners)
{
    const QImage hd = pictureOf("grid", fullHd);
    // 1,079 rows over 1,919 columns: at 100 from the corner 56 rows down.
    expectGreys(hd, {{100, 56, 255}, {1819, 56, 255}, {100, 1023, 255}, {1819, 1023, 255}, {100, 57, 0}, {100, 55, 0}});
}

TEST(CrossHatch, HasACircleThatTouchesTheNearerEdges)
{
    const QImage hd = pictureOf("grid", fullHd);
    // 539.5 px around (959.5, 539.5).
    expectGreys(hd, {{420, 539, 255}, {420, 540, 255}, {1499, 539, 255}, {421, 540, 0}, {419, 540, 0}, {1500, 540, 0}});
    const QImage square = pictureOf("grid", QSize(333, 333));
    // By 120 columns from the middle: sqrt(166 x 166 - 120 x 120) = 114.7 rows.
    expectGreys(square, {{166 + 120, 166 + 115, 255}, {166 - 120, 166 - 115, 255}, {166 + 120, 166 + 117, 0}});
}

TEST(Moire, BeginsWhiteInTheMiddleOfItsRings)
{
    const QImage hd = pictureOf("moire", fullHd); // columns of 384, rings in rows 0 to 539
    expectGreys(hd, {{192, 270, 255}, {191, 269, 255}, {193, 270, 0}, {194, 270, 255}});     // 2 px
    expectGreys(hd, {{1728, 270, 255}, {1731, 270, 255}, {1732, 270, 0}, {1736, 270, 255}}); // 8 px
}

TEST(Moire, HasFansWithTheirPeriodAQuarterUp)
{
    const QImage hd = pictureOf("moire", fullHd); // fans in rows 540 to 1079
    const QImage fan = hd.copy(1536, 540, 384, 540);
    // 8 px, 135 px above the lower edge: one edge each 4 px.
    const std::vector<int> edges = edgesInRow(fan, 540 - 135);
    EXPECT_NEAR(static_cast<double>(edges.size()), 96, 2); // of 384 px
    EXPECT_EQ(edges[11] - edges[10], 4);
    EXPECT_EQ(edgesInRow(fan, 0)[3] - edgesInRow(fan, 0)[2], 16);
}

TEST(Gamma, HasItsLinesAndPatches)
{
    const QImage hd = pictureOf("gamma", fullHd);
    expectGreys(hd, {{0, 0, 255}, {0, 1, 0}, {959, 538, 255}, {959, 539, 0}});
    expectGreys(hd, {{960, 0, 180}, {1151, 0, 180}, {1152, 0, 186}, {1344, 0, 191}, {1536, 0, 195}, {1919, 0, 199}});
    expectGreys(hd, {{0, 540, 255}, {0, 541, 0}, {0, 543, 0}, {0, 544, 255}});
    expectGreys(hd, {{960, 540, 128}, {1200, 540, 136}, {1440, 540, 143}, {1919, 540, 150}});
    expectGreys(pictureOf("gamma", fullHd, LevelRange::Narrow), {{0, 0, 235}, {0, 1, 16}, {960, 0, 171}});
}

TEST(Pluge, HasItsPlacesAtBothSizes)
{
    const std::vector<GreyProbe> narrow{{0, 0, 16},      {888, 468, 235}, {1031, 611, 235}, {887, 468, 16},
                                        {1032, 611, 16}, {312, 345, 20},  {599, 354, 20},   {312, 355, 16},
                                        {312, 364, 16},  {312, 365, 20},  {311, 345, 16},   {312, 545, 12},
                                        {312, 734, 12},  {312, 735, 16},  {1320, 324, 20},  {1607, 467, 20},
                                        {1320, 612, 12}, {1607, 755, 12}, {1608, 755, 16},  {1320, 468, 16}};
    expectGreys(pictureOf("pluge", fullHd, LevelRange::Narrow), narrow);
    expectGreys(pictureOf("pluge", ultraHd, LevelRange::Narrow), {{1776, 936, 235},
                                                                  {624, 690, 20},
                                                                  {624, 710, 16},
                                                                  {624, 1090, 12},
                                                                  {2640, 648, 20},
                                                                  {2640, 1224, 12},
                                                                  {2063, 1223, 235},
                                                                  {2064, 1223, 16}});
    expectGreys(pictureOf("pluge", fullHd),
                {{0, 0, 0}, {888, 468, 255}, {312, 345, 5}, {312, 545, 0}, {1320, 324, 5}, {1320, 612, 0}});
}
