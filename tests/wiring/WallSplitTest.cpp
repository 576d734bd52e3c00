#include "ShowFixture.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <string>

using namespace ShowFixture;
using testing::ElementsAre;

namespace {
/// "00 10 11 01": the cells of each run, column before row.
std::vector<std::string> cells(const WallSplit &split)
{
    std::vector<std::string> runs;
    for (const WallSplit::Run &run : split.runs) {
        std::string text;
        for (const WiredPanel &panel : split.panelsOf(run))
            text += ' ' + std::to_string(panel.cell.column) + std::to_string(panel.cell.row);
        runs.push_back(text.substr(std::min<std::size_t>(text.size(), 1)));
    }
    return runs;
}

std::vector<std::string> lines(qint64 pattern, qint64 pixelLimit, const CellSet &off = {})
{
    WallShape shape = wall(2, 3, 10, 10).shape;
    shape.off = off;
    return cells(WallSplit::byLines(shape, *FlowPattern::ofCode(pattern), pixelLimit));
}

PortBounds bounds(qint64 limit)
{
    PortBounds bounds;
    bounds.isRectangle = false;
    bounds.capacity.limit = limit;
    return bounds;
}

PortLoad loadOf(const PixelBox &box)
{
    PortLoad load;
    load.add(box);
    return load;
}
} // namespace

TEST(WallSplit, WholeLinesAreNumberedFromWhereThePatternComes)
{
    // Two rows a port: the chart counts them from the bottom, so that the top block is the rest.
    EXPECT_THAT(lines(0, 400), ElementsAre("00 10", "01 11 12 02"));
    EXPECT_THAT(lines(1, 400), ElementsAre("10 00", "11 01 02 12"));
    EXPECT_THAT(lines(2, 400), ElementsAre("02 12 11 01", "00 10"));
    EXPECT_THAT(lines(3, 400), ElementsAre("12 02 01 11", "10 00"));
}

TEST(WallSplit, WholeColumnsLikewise)
{
    EXPECT_THAT(lines(4, 300), ElementsAre("00 01 02", "10 11 12"));
    EXPECT_THAT(lines(5, 300), ElementsAre("10 11 12", "00 01 02"));
    EXPECT_THAT(lines(6, 600), ElementsAre("02 01 00 10 11 12"));
    EXPECT_THAT(lines(7, 600), ElementsAre("12 11 10 00 01 02"));
}

TEST(WallSplit, WhereNoLineFitsAllIsOneRunAndSaysSo)
{
    const WallShape shape = wall(2, 3, 10, 10).shape;
    const WallSplit split = WallSplit::byLines(shape, *FlowPattern::ofCode(0), 199);
    EXPECT_TRUE(split.isLineOver);
    EXPECT_THAT(cells(split), ElementsAre("00 10 11 01 02 12"));
    EXPECT_FALSE(WallSplit::byLines(shape, *FlowPattern::ofCode(0), 0).isLineOver);
}

TEST(WallSplit, PanelsThatAreOffAreNotListedAndLeaveAnEmptyPort)
{
    EXPECT_THAT(lines(0, 200, block(0, 1, 2, 1)), ElementsAre("00 10", "", "02 12"));
}

TEST(WallSplit, PanelByPanelGoesOnInTheMiddleOfALine)
{
    const WallShape shape = wall(3, 3, 10, 10).shape;
    EXPECT_THAT(cells(WallSplit::byPanels(shape, *FlowPattern::ofCode(0), bounds(400))),
                ElementsAre("00 10 20 21", "11 01 02 12", "22"));
    EXPECT_THAT(cells(WallSplit::byPanels(shape, *FlowPattern::ofCode(7), bounds(500))),
                ElementsAre("22 21 20 10 11", "12 02 01 00"));
    EXPECT_THAT(cells(WallSplit::byPanels(shape, *FlowPattern::ofCode(0), bounds(400), loadOf({{-10, 0}, {0, 30}}))),
                ElementsAre("00", "10 20 21 11", "01 02 12 22"));
}

TEST(WallSplit, APanelThatFitsNowhereIsAloneAndTheOthersGoOn)
{
    WallShape shape = wall(3, 1, 10, 10).shape;
    shape.grid.columns = PanelAxis(3, 10, {{1, 50}});
    EXPECT_THAT(cells(WallSplit::byPanels(shape, *FlowPattern::ofCode(0), bounds(400))), ElementsAre("00", "10", "20"));
}

TEST(WallSplit, ANarrowPortMayFitAgainWhenItGrowsWider)
{
    // Two panels above each other lose (30 - 10) x 20 of 450 and do not fit. Three from the second one on lose
    // (30 - 20) x 20 and do not fit either; with the fourth they are wide enough.
    const WallShape shape = wall(3, 2, 10, 10).shape;
    PortBounds narrow = bounds(450);
    narrow.minWidth = 30;
    EXPECT_EQ(narrow.limit(loadOf({{0, 10}, {0, 20}})), 50);
    EXPECT_THAT(cells(WallSplit::byPanels(shape, *FlowPattern::ofCode(4), narrow)),
                ElementsAre("00", "01 11 10 20", "21"));
}

TEST(WallSplit, PanelsStandWhereTheWallStands)
{
    WallShape shape = wall(2, 2, 10, 20).shape;
    shape.left = -5;
    shape.top = 7;
    EXPECT_EQ(shape.boxOf({1, 1}), (PixelBox{{5, 15}, {27, 47}}));
    const WallSplit split = WallSplit::byLines(shape, *FlowPattern::ofCode(0), 0);
    EXPECT_EQ(split.loadOf(split.runs[0]).box, (PixelBox{{-5, 15}, {7, 47}}));
    EXPECT_EQ(split.loadOf(split.runs[0]).pixels, 800);
}

TEST(WallSplit, FilesMayClaimAnyCounts)
{
    constexpr int most = std::numeric_limits<int>::max();
    for (const int count : {most, 0, -1, -most}) {
        const WallShape shape{{{count, 5}, {0, most}}};
        EXPECT_EQ(shape.panelCount(), 0);
        for (int pattern = 0; pattern < 8; ++pattern) {
            EXPECT_TRUE(WallSplit::byLines(shape, *FlowPattern::ofCode(pattern), 0).panels.empty());
            EXPECT_TRUE(WallSplit::byPanels(shape, *FlowPattern::ofCode(pattern), bounds(1)).panels.empty());
        }
    }
    EXPECT_EQ((WallShape{{{most, 5}, {most, 5}}}).panelCount(), qint64{most} * most);
}
