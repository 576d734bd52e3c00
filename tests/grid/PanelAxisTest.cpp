#include "grid/PanelAxis.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

/// 6 lines: 30, 30, 50, 10, 30, 70.
PanelAxis irregular()
{
    return {6, 30, {{2, 50}, {3, 10}, {5, 70}}};
}
} // namespace

TEST(PanelAxis, RegularLinesBeginOneSizeAfterTheOther)
{
    const PanelAxis axis(4, 31);

    EXPECT_EQ(axis.count(), 4);
    EXPECT_EQ(axis.lineSize(), 31);
    EXPECT_EQ(axis.size(), 124);
    EXPECT_EQ(axis.edge(0), 0);
    EXPECT_EQ(axis.edge(3), 93);
    EXPECT_EQ(axis.sizeOf(3), 31);
    EXPECT_EQ(axis.centre(1), 46.5);
}

TEST(PanelAxis, OfNothingHasNothing)
{
    const PanelAxis axis;

    EXPECT_EQ(axis.count(), 0);
    EXPECT_EQ(axis.size(), 0);
    EXPECT_EQ(axis.lineAt(0), std::nullopt);
}

TEST(PanelAxis, APixelLiesInOneLine)
{
    const PanelAxis axis(4, 30);

    EXPECT_EQ(axis.lineAt(0), 0);
    EXPECT_EQ(axis.lineAt(29), 0);
    EXPECT_EQ(axis.lineAt(30), 1);
    EXPECT_EQ(axis.lineAt(119), 3);
}

TEST(PanelAxis, LinesGoOnBehindTheLastOne)
{
    const PanelAxis axis(4, 30);

    EXPECT_EQ(axis.edge(4), 120);
    EXPECT_EQ(axis.edge(6), 180);
    EXPECT_EQ(axis.sizeOf(6), 30);
    EXPECT_EQ(axis.lineAt(120), 4);
    EXPECT_EQ(axis.lineAt(300), 10);
}

TEST(PanelAxis, LessThanALineBeforeTheFirstIsTheFirst)
{
    const PanelAxis axis(4, 30);

    EXPECT_EQ(axis.edge(-2), -60);
    EXPECT_EQ(axis.lineAt(-1), 0);
    EXPECT_EQ(axis.lineAt(-29), 0);
    EXPECT_EQ(axis.lineAt(-30), -1);
    EXPECT_EQ(axis.lineAt(-59), -1);
    EXPECT_EQ(axis.lineAt(-60), -2);
}

TEST(PanelAxis, LinesMayDiffer)
{
    const PanelAxis axis = irregular();

    EXPECT_EQ(axis.size(), 220);
    const int sizes[] = {30, 30, 50, 10, 30, 70};
    const int edges[] = {0, 30, 60, 110, 120, 150, 220};
    for (int line = 0; line < 6; ++line) {
        EXPECT_EQ(axis.sizeOf(line), sizes[line]) << line;
        EXPECT_EQ(axis.edge(line), edges[line]) << line;
        EXPECT_EQ(axis.lineAt(edges[line]), line) << line;
        EXPECT_EQ(axis.lineAt(edges[line + 1] - 1), line) << line;
    }
    EXPECT_EQ(axis.centre(2), 85);
    EXPECT_EQ(axis.centre(5), 185);
}

TEST(PanelAxis, WhereLinesDifferRegularOnesGoOnBeforeAndBehind)
{
    const PanelAxis axis = irregular();

    EXPECT_EQ(axis.edge(6), 220);
    EXPECT_EQ(axis.edge(8), 280);
    EXPECT_EQ(axis.edge(-1), -30);
    EXPECT_EQ(axis.sizeOf(6), 30);
    EXPECT_EQ(axis.sizeOf(-1), 30);
    EXPECT_EQ(axis.lineAt(220), 6);
    EXPECT_EQ(axis.lineAt(249), 6);
    EXPECT_EQ(axis.lineAt(250), 7);
    EXPECT_EQ(axis.lineAt(-29), 0);
    EXPECT_EQ(axis.lineAt(-30), -1);
}

TEST(PanelAxis, TheFirstLineMayDiffer)
{
    const PanelAxis axis(3, 30, {{0, 5}});

    EXPECT_EQ(axis.edge(0), 0);
    EXPECT_EQ(axis.edge(1), 5);
    EXPECT_EQ(axis.size(), 65);
    EXPECT_EQ(axis.lineAt(4), 0);
    EXPECT_EQ(axis.lineAt(5), 1);
    EXPECT_EQ(axis.lineAt(64), 2);
}

TEST(PanelAxis, ALineWithoutASizeHoldsNoPixel)
{
    const PanelAxis gap(3, 30, {{1, 0}});
    EXPECT_EQ(gap.edge(2), 30);
    EXPECT_EQ(gap.lineAt(29), 0);
    EXPECT_EQ(gap.lineAt(30), 2);

    const PanelAxis flat(3, 0, {{1, 20}});
    EXPECT_EQ(flat.size(), 20);
    EXPECT_EQ(flat.lineAt(19), 1);
    EXPECT_EQ(flat.lineAt(20), std::nullopt);
    EXPECT_EQ(flat.lineAt(-1), std::nullopt);
}

TEST(PanelAxis, SizesOfNoLineAndOfRegularOnesChangeNothing)
{
    const PanelAxis axis(3, 30, {{-1, 7}, {1, 30}, {3, 9}});

    EXPECT_EQ(axis.size(), 90);
    EXPECT_EQ(axis.edge(5), 150);
    EXPECT_EQ(axis.sizeOf(3), 30);
}

TEST(PanelAxis, MirroredItCountsFromTheOtherEnd)
{
    const PanelAxis axis = irregular().mirrored();

    const int edges[] = {0, 70, 100, 110, 160, 190, 220};
    for (int line = 0; line <= 6; ++line)
        EXPECT_EQ(axis.edge(line), edges[line]) << line;
    EXPECT_EQ(PanelAxis(4, 30).mirrored().edge(3), 90);
}

TEST(PanelAxis, SizesAreSixtyFourBitsWide)
{
    EXPECT_EQ(PanelAxis(most, most).size(), 4611686014132420609);
    EXPECT_EQ(PanelAxis(least, least).size(), 4611686018427387904);
    EXPECT_EQ(PanelAxis(most, least).size(), -4611686016279904256);
    EXPECT_EQ(PanelAxis(most, most, {{0, 1}, {most - 1, 0}}).size(), 4611686014132420609 - 2 * qint64{most} + 1);
    EXPECT_EQ(PanelAxis(most, most).lineAt(4611686014132420608), most - 1);
}

TEST(PanelAxis, SizesOfZeroOrLessDivideAsTheyAre)
{
    EXPECT_EQ(PanelAxis(3, 0).lineAt(7), std::nullopt);
    EXPECT_EQ(PanelAxis(3, -5).lineAt(7), -1);
    EXPECT_EQ(PanelAxis(3, -5).lineAt(-7), 1);
    EXPECT_EQ(PanelAxis(3, -1).lineAt(std::numeric_limits<qint64>::min()), std::nullopt);
    EXPECT_EQ(PanelAxis(3, -2).lineAt(std::numeric_limits<qint64>::min()), qint64{1} << 62);
}
