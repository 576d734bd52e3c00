#include "tests/screen/ChartFixtures.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {
struct Step
{
    int x;
    int y;
};
constexpr Step right{1, 0};
constexpr Step left{-1, 0};
constexpr Step up{0, 1};
constexpr Step down{0, -1};

/// One port's run on the wall of 4 x 3 panels of 100.
struct ExpectedRun
{
    QPoint start;
    Step startDirection;
    QPoint end;
    Step endDirection;
};

ScreenChart pathOnly(qint64 pattern, qint64 pixelLimit)
{
    ScreenChart chart = blankWall();
    chart.drawFlowPath = true;
    chart.pattern = pattern;
    chart.pixelLimit = pixelLimit;
    return chart;
}

/// The pixel that lies `ahead` along the direction and `aside` across it.
QColor near(const QImage &raster, const QPoint &at, const Step &d, int ahead, int aside)
{
    return pixelAt(raster, at.x() + ahead * d.x + aside * d.y, at.y() + ahead * d.y + aside * d.x);
}

/// A triangle 20 long and wide: broad behind its centre, narrow before it.
void expectArrowhead(const QImage &raster, const QPoint &at, const Step &d, const QColor &colour)
{
    SCOPED_TRACE(testing::Message() << "arrowhead at " << at.x() << "," << at.y());
    for (const int aside : {-6, 5}) {
        EXPECT_EQ(near(raster, at, d, -7, aside), colour) << "base";
        EXPECT_NE(near(raster, at, d, 7, aside), colour) << "tip";
    }
    EXPECT_EQ(near(raster, at, d, 0, 0), colour);
}

void expectRuns(const ScreenChart &chart, const std::vector<ExpectedRun> &runs)
{
    const QImage raster = chart.draw({});
    for (const ExpectedRun &run : runs) {
        expectArrowhead(raster, run.start, run.startDirection, QColor(0, 255, 0));
        expectArrowhead(raster, run.end, run.endDirection, QColor(255, 0, 0));
    }
}
} // namespace

TEST(ChartFlowPath, StartsInTheCornerOfItsPattern)
{
    // 3 rows end on the side away from the start, 4 columns on the start's own.
    const ExpectedRun runs[] = {
        {{50, 250}, right, {350, 50}, right}, {{350, 250}, left, {50, 50}, left}, {{50, 50}, right, {350, 250}, right},
        {{350, 50}, left, {50, 250}, left},   {{50, 250}, down, {350, 250}, up},  {{350, 250}, down, {50, 250}, up},
        {{50, 50}, up, {350, 50}, down},      {{350, 50}, up, {50, 50}, down},
    };
    for (int pattern = 0; pattern < 8; ++pattern) {
        SCOPED_TRACE(testing::Message() << "pattern " << pattern);
        expectRuns(pathOnly(pattern, 0), {runs[pattern]});
    }
}

TEST(ChartFlowPath, EveryRowHasAWhiteArrowheadInItsMiddle)
{
    const QImage raster = pathOnly(2, 0).draw({});
    expectArrowhead(raster, {200, 50}, right, Qt::white);
    expectArrowhead(raster, {200, 150}, left, Qt::white);
    expectArrowhead(raster, {200, 250}, right, Qt::white);

    const QImage fromRight = pathOnly(1, 0).draw({});
    expectArrowhead(fromRight, {200, 250}, left, Qt::white);
    expectArrowhead(fromRight, {200, 150}, right, Qt::white);
    expectArrowhead(fromRight, {200, 50}, left, Qt::white);
}

TEST(ChartFlowPath, EveryColumnHasAWhiteArrowheadInItsMiddle)
{
    const QImage raster = pathOnly(4, 0).draw({});
    expectArrowhead(raster, {50, 150}, down, Qt::white);
    expectArrowhead(raster, {150, 150}, up, Qt::white);
    expectArrowhead(raster, {250, 150}, down, Qt::white);
    expectArrowhead(raster, {350, 150}, up, Qt::white);
}

TEST(ChartFlowPath, EveryTurnHasAWhiteArrowhead)
{
    const QImage upwards = pathOnly(2, 0).draw({});
    expectArrowhead(upwards, {350, 100}, up, Qt::white);
    expectArrowhead(upwards, {50, 200}, up, Qt::white);

    const QImage downwards = pathOnly(1, 0).draw({});
    expectArrowhead(downwards, {50, 200}, down, Qt::white);
    expectArrowhead(downwards, {350, 100}, down, Qt::white);

    const QImage leftwards = pathOnly(7, 0).draw({});
    expectArrowhead(leftwards, {300, 250}, left, Qt::white);
    expectArrowhead(leftwards, {200, 50}, left, Qt::white);
    expectArrowhead(leftwards, {100, 250}, left, Qt::white);
}

TEST(ChartFlowPath, TheLineIsFivePixelsWide)
{
    const QImage raster = pathOnly(2, 0).draw({});

    EXPECT_EQ(pixelAt(raster, 120, 48), QColor(Qt::white));
    EXPECT_EQ(pixelAt(raster, 120, 51), QColor(Qt::white));
    EXPECT_NEAR(pixelAt(raster, 120, 47).alpha(), 128, 2); // from 47.5 to 52.5
    EXPECT_NEAR(pixelAt(raster, 120, 52).alpha(), 128, 2);
    EXPECT_EQ(pixelAt(raster, 120, 46).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 120, 53).alpha(), 0);
}

TEST(ChartFlowPath, TheTurnIsRounded)
{
    const QImage raster = pathOnly(2, 0).draw({});

    // The curve from (300, 50) to (350, 100), drawn by (350, 50) and (350, 100), is halfway at (343.75, 75).
    EXPECT_EQ(pixelAt(raster, 343, 75), QColor(Qt::white));
    EXPECT_EQ(pixelAt(raster, 349, 51).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 336, 78).alpha(), 0);
}

TEST(ChartFlowPath, StartAndEndAreOutlinedInWhite)
{
    const QImage raster = pathOnly(2, 0).draw({});

    EXPECT_EQ(pixelAt(raster, 42, 50), QColor(0, 255, 0));
    EXPECT_NEAR(pixelAt(raster, 39, 50).alpha(), 128, 2); // the base's outline from 39.5 to 40.5
    EXPECT_EQ(pixelAt(raster, 39, 50).green(), 255);
    EXPECT_EQ(pixelAt(raster, 39, 50).blue(), 255);
    EXPECT_EQ(pixelAt(raster, 342, 250), QColor(255, 0, 0));
    EXPECT_NEAR(pixelAt(raster, 40, 50).red(), 128, 2);
}

TEST(ChartFlowPath, TheLineLiesOverWhiteArrowheadsAndTheEndOverTheLine)
{
    ScreenChart chart = pathOnly(2, 0);
    chart.col = 1; // the end stands where the middle is
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 50, 250), QColor(255, 0, 0));
    EXPECT_EQ(pixelAt(raster, 50, 50), QColor(Qt::white)); // the line over the start
}

TEST(ChartFlowPath, LiesOverAllTexts)
{
    ScreenChart chart = decoratedWall();
    chart.pattern = 2;
    chart.pixelLimit = 0;
    chart.screenFontSize = 90;
    chart.XYFontSize = 90;
    chart.labelFontSize = 90;
    const QImage raster = chart.draw({});

    expectArrowhead(raster, {50, 50}, right, QColor(0, 255, 0));
    expectArrowhead(raster, {200, 150}, left, Qt::white);
    EXPECT_EQ(pixelAt(raster, 120, 150), QColor(Qt::white));
}

TEST(ChartFlowPath, RowsAreCutIntoPortsFromTheBottom)
{
    expectRuns(pathOnly(2, 80000), {{{50, 50}, right, {50, 150}, right}, {{50, 250}, right, {350, 250}, right}});
    expectRuns(pathOnly(3, 80000), {{{350, 50}, left, {350, 150}, left}, {{350, 250}, left, {50, 250}, left}});
    expectRuns(pathOnly(0, 80000), {{{50, 150}, right, {50, 50}, right}, {{50, 250}, right, {350, 250}, right}});
    expectRuns(pathOnly(1, 80000), {{{350, 150}, left, {350, 50}, left}, {{350, 250}, left, {50, 250}, left}});
}

TEST(ChartFlowPath, ColumnsAreCutIntoPortsFromTheLeft)
{
    expectRuns(pathOnly(4, 90000), {{{50, 250}, down, {250, 50}, up}, {{350, 250}, down, {350, 50}, up}});
    expectRuns(pathOnly(5, 90000), {{{250, 250}, down, {50, 50}, up}, {{350, 250}, down, {350, 50}, up}});
    expectRuns(pathOnly(6, 90000), {{{50, 50}, up, {250, 250}, down}, {{350, 50}, up, {350, 250}, down}});
    expectRuns(pathOnly(7, 90000), {{{250, 50}, up, {50, 250}, down}, {{350, 50}, up, {350, 250}, down}});
}

TEST(ChartFlowPath, PortsAreNotJoined)
{
    const QImage raster = pathOnly(2, 80000).draw({});
    EXPECT_EQ(pixelAt(raster, 50, 200).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 350, 200).alpha(), 0);
    EXPECT_EQ(pixelAt(raster, 350, 100), QColor(Qt::white)); // within the first one
}

TEST(ChartFlowPath, ALimitBelowOneRowOrOfTheWholeWallIsOneRun)
{
    for (int pattern = 0; pattern < 4; ++pattern) {
        const QImage whole = pathOnly(pattern, 0).draw({});
        for (const qint64 limit :
             {qint64{30000}, qint64{-30000}, qint64{120000}, qint64{1} << 40, std::numeric_limits<qint64>::max()})
            EXPECT_EQ(pathOnly(pattern, limit).draw({}), whole) << pattern << ", " << limit;
    }
}

TEST(ChartFlowPath, ANegativeLimitLeavesWhatItsPortsDoNotCover)
{
    EXPECT_EQ(pathOnly(2, -40000).draw({}), emptyRaster(blankWall()));
    EXPECT_EQ(pathOnly(2, -2'000'000).draw({}), pathOnly(2, 0).draw({}));
    const ScreenChart oneRow = pathOnly(2, -80000);
    expectRuns(oneRow, {{{50, 50}, right, {350, 50}, right}});
    EXPECT_LT(drawnArea(oneRow.draw({})).bottom(), 62);
}

TEST(ChartFlowPath, OtherPatternsDrawLabelsButNoPath)
{
    for (const qint64 pattern : {qint64{8}, qint64{-1}, std::numeric_limits<qint64>::min()}) {
        ScreenChart chart = pathOnly(pattern, 80000);
        EXPECT_EQ(chart.draw({}), emptyRaster(chart)) << pattern;

        chart.drawLabels = true;
        chart.labelColor = NamedColour::white;
        EXPECT_NE(chart.draw({}), emptyRaster(chart)) << pattern;
    }
}

TEST(ChartFlowPath, RunsThroughHiddenPanels)
{
    ScreenChart chart = pathOnly(0, 80000);
    const QImage without = chart.draw({});
    chart.hiddenBoxes = PanelKeys(QStringList{"0,0", "1,1", "2,3"});
    EXPECT_EQ(chart.draw({}), without);
}

TEST(ChartFlowPath, PortsOfOddPanelsRunHalfAPixelLow)
{
    ScreenChart chart = pathOnly(2, 0);
    chart.panelHeight = 41;
    EXPECT_NEAR(pixelAt(chart.draw({}), 120, 20).alpha(), 255, 0); // 18 to 23
    EXPECT_EQ(pixelAt(chart.draw({}), 120, 22), QColor(Qt::white));
    EXPECT_EQ(pixelAt(chart.draw({}), 120, 17).alpha(), 0);

    chart.pixelLimit = 4 * 100 * 41;
    EXPECT_NEAR(pixelAt(chart.draw({}), 120, 22).alpha(), 128, 2); // 17.5 to 22.5
    EXPECT_NEAR(pixelAt(chart.draw({}), 120, 17).alpha(), 128, 2);
}
