#include "tests/charts/TestShapes.h"

TEST(Ramp, FollowsItsFormulaInEveryRow)
{
    const QImage hd = pictureOf("ramp", fullHd);
    for (const int y : {0, 540, 1079})
        expectGreys(hd, {{0, y, 0}, {480, y, 64}, {959, y, 127}, {960, y, 128}, {1440, y, 191}, {1919, y, 255}});
    expectGreys(pictureOf("ramp", ultraHd),
                {{0, 0, 0}, {960, 7, 64}, {1919, 2159, 127}, {1920, 0, 128}, {3839, 0, 255}});
    expectGreys(pictureOf("ramp", fullHd, LevelRange::Narrow), {{0, 0, 16}, {1919, 0, 235}});
}

TEST(Ramps, AreWhiteRedGreenAndBlue)
{
    const QImage hd = pictureOf("ramps", fullHd);
    expectProbes(hd,
                 {{1919, 0, 255, 255, 255}, {1919, 270, 255, 0, 0}, {1919, 540, 0, 255, 0}, {1919, 1079, 0, 0, 255}});
    expectProbes(hd, {{480, 269, 64, 64, 64}, {480, 539, 64, 0, 0}, {480, 809, 0, 64, 0}, {480, 810, 0, 0, 64}});
}

TEST(Steps, ElevenUnlessOtherwiseAsked)
{
    const QImage hd = pictureOf("steps", fullHd);
    EXPECT_EQ(edgesInRow(hd, 0), (std::vector{0, 175, 350, 524, 699, 873, 1048, 1222, 1397, 1571, 1746, 1920}));
    expectGreys(hd, {{0, 0, 0}, {175, 0, 26}, {350, 0, 51}, {524, 0, 77}, {699, 0, 102}, {873, 0, 128}});
    expectGreys(hd, {{1048, 0, 153}, {1222, 0, 179}, {1397, 0, 204}, {1571, 0, 230}, {1746, 0, 255}});
}

TEST(Steps, OfSeventeen)
{
    ChartShape shape{.size = ultraHd};
    shape.options.steps = 17;
    const QImage uhd = pictureOf("steps", shape);
    const std::vector codes{0, 16, 32, 48, 64, 80, 96, 112, 128, 143, 159, 175, 191, 207, 223, 239, 255};
    const std::vector<int> edges = edgesInRow(uhd, 0);
    ASSERT_EQ(edges.size(), 18U);
    for (std::size_t i = 0; i < codes.size(); ++i)
        expectGreys(uhd, {{edges[i], 0, codes[i]}, {edges[i + 1] - 1, 0, codes[i]}});
}

TEST(Steps, TellTheirCodesInTheLowerPart)
{
    const QImage hd = pictureOf("steps", fullHd);
    EXPECT_EQ(edgesInRow(hd, 800).size(), 12U);
    EXPECT_GT(edgesInRow(hd, 1008).size(), 30U);
}

TEST(NearBlackAndWhite, AreCodesWhateverTheRange)
{
    for (const LevelRange range : {LevelRange::Full, LevelRange::Narrow}) {
        const QImage black = pictureOf("near-black", fullHd, range);
        const QImage white = pictureOf("near-white", fullHd, range);
        for (int i = 0; i < 16; ++i) {
            expectGreys(black, {{120 * i, 0, i}, {120 * i + 119, 539, i}, {120 * i, 540, 16 + i}});
            expectGreys(white, {{120 * i, 0, 240 + i}, {120 * i + 119, 1079, 240 + i}});
        }
    }
}

TEST(Field, IsOneColourAtOneLevel)
{
    const auto pixel = [](const char *name, FieldColour colour, std::optional<int> level, LevelRange range) {
        ChartShape shape{.size = {7, 3}, .range = range};
        shape.options.colour = colour;
        shape.options.level = level;
        const QImage picture = pictureOf(name, shape);
        EXPECT_EQ(picture.pixel(0, 0), picture.pixel(6, 2));
        return picture.pixel(3, 1);
    };
    using enum FieldColour;
    EXPECT_EQ(pixel("field", White, {}, LevelRange::Full), qRgb(255, 255, 255));
    EXPECT_EQ(pixel("field", White, {}, LevelRange::Narrow), qRgb(235, 235, 235));
    EXPECT_EQ(pixel("field", Red, 75, LevelRange::Full), qRgb(191, 0, 0));
    EXPECT_EQ(pixel("field", Cyan, 50, LevelRange::Narrow), qRgb(16, 126, 126));
    EXPECT_EQ(pixel("field", Green, 100, LevelRange::Narrow), qRgb(16, 235, 16));
    EXPECT_EQ(pixel("field", Blue, 50, LevelRange::Full), qRgb(0, 0, 128));
    EXPECT_EQ(pixel("field", Magenta, 25, LevelRange::Full), qRgb(64, 0, 64));
    EXPECT_EQ(pixel("field", Black, 100, LevelRange::Full), qRgb(0, 0, 0));
    EXPECT_EQ(pixel("field", Yellow, 300, LevelRange::Full), qRgb(255, 255, 0));
    EXPECT_EQ(pixel("uniformity", Red, {}, LevelRange::Full), qRgb(128, 128, 128));
    EXPECT_EQ(pixel("uniformity", Red, 5, LevelRange::Full), qRgb(13, 13, 13));
}
