#include "tests/screen/ChartFixtures.h"
#include "tests/screen/RandomChart.h"
#include "tests/screen/SamePicture.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace {
/// A raster that follows a chart from edit to edit as a wall's does.
class MendedChart
{
public:
    explicit MendedChart(const ScreenChart &chart) : m_chart(chart), m_raster(chart.draw({})) {}

    void follow(const ScreenChart &chart)
    {
        const std::optional<QRegion> change = chart.changeSince(m_chart);
        if (change && !m_raster.isNull()) {
            for (const QRect &part : *change)
                chart.drawPart(m_raster, part);
            ++mended;
        } else {
            m_raster = chart.draw(std::move(m_raster));
        }
        m_chart = chart;
    }
    const QImage &raster() const { return m_raster; }

    int mended = 0; ///< follows that did not draw all

private:
    ScreenChart m_chart;
    QImage m_raster;
};

QRegion changeOf(ScreenChart chart, const std::function<void(ScreenChart &)> &edit)
{
    const ScreenChart before = chart;
    edit(chart);
    return chart.changeSince(before).value_or(QRect(QPoint(0, 0), before.draw({}).size()));
}

constexpr QRect wholeWall(0, 0, 400, 300);

class ChartChangeRuns : public testing::TestWithParam<quint32>
{};
} // namespace

TEST(ChartChange, APanelIsItsOwnBox)
{
    const auto change = changeOf(decoratedWall(), [](ScreenChart &chart) { chart.hiddenBoxes->toggle(0, 3); });
    EXPECT_EQ(change, QRegion(300, 0, 100, 100));
}

TEST(ChartChange, AKeyOfNoPanelIsNothing)
{
    EXPECT_TRUE(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.hiddenBoxes->toggle(7, 7); }).isEmpty());
    EXPECT_TRUE(changeOf(blankWall(), [](ScreenChart &chart) { chart.hiddenBoxes.reset(); }).isEmpty());
}

TEST(ChartChange, ManyPanelsAreOneBoxAroundThem)
{
    const auto change = changeOf(blankWall(), [](ScreenChart &chart) {
        chart.col = 40;
        chart.panelWidth = 10;
    });
    EXPECT_EQ(change, QRegion(wholeWall)); // other panels
    ScreenChart wall = blankWall();
    wall.col = 40;
    wall.panelWidth = 10;
    const auto holes = changeOf(wall, [](ScreenChart &chart) {
        chart.hiddenBoxes = PanelKeys();
        for (int column = 5; column < 22; ++column)
            chart.hiddenBoxes->append({column, column % 2});
    });
    EXPECT_EQ(holes, QRegion(50, 0, 170, 200));
}

TEST(ChartChange, PanelsFurtherOutThanPixelsCanBeCountedAreNotBoxed)
{
    const auto change = changeOf(decoratedWall(), [](ScreenChart &chart) {
        chart.panelWidth = std::numeric_limits<int>::max();
        chart.hiddenBoxes->toggle(1, 3);
    });
    EXPECT_EQ(change, QRegion(wholeWall));
}

TEST(ChartChange, ATextIsItsOldAndItsNewBox)
{
    const ScreenChart wall = decoratedWall();
    const auto isNoWholeWall = [&](const char *what, const std::function<void(ScreenChart &)> &edit) {
        EXPECT_NE(changeOf(wall, edit), QRegion(wholeWall)) << what;
    };
    isNoWholeWall("power", [](ScreenChart &chart) { chart.powerOnCell += 10; });
    isNoWholeWall("voltage", [](ScreenChart &chart) { chart.voltage = 400; });
    isNoWholeWall("current", [](ScreenChart &chart) { chart.showCurrent = !chart.showCurrent; });
    isNoWholeWall("centre", [](ScreenChart &chart) { chart.screenFontEnable = !chart.screenFontEnable; });
    const QRect corner = changeOf(wall, [](ScreenChart &chart) { chart.xpoint += 1; }).boundingRect();
    EXPECT_GT(corner.width(), 20);
    EXPECT_LT(changeOf(wall, [](ScreenChart &chart) { chart.label = "Main wall, stage left"; }).boundingRect().height(),
              100);
    EXPECT_TRUE(changeOf(blankWall(), [](ScreenChart &chart) { chart.label = "nobody sees it"; }).isEmpty());
}

TEST(ChartChange, ACableIsWhereItWasAndWhereItIs)
{
    ScreenChart wall = blankWall();
    wall.drawFlowPath = true;
    wall.split = CableSplit::Hand;
    const WallCable stays{.port = {"A", 1}, .cells = {{0, 2}, {1, 2}}};
    const WallCable moves{.port = {"A", 2}, .cells = {{0, 0}, {1, 0}}};
    const WallCable moved{.port = {"A", 2}, .cells = {{2, 0}, {3, 0}}};
    wall.cables = std::make_shared<const WallCables>(WallCables{stays, moves});
    const auto change = changeOf(wall, [&](ScreenChart &chart) {
        chart.cables = std::make_shared<const WallCables>(WallCables{stays, moved});
    });
    EXPECT_EQ(change, QRegion(0, 0, 400, 122)); // an arrowhead reaches out of its panel
    EXPECT_TRUE(changeOf(wall, [&](ScreenChart &chart) {
                    chart.cables = std::make_shared<const WallCables>(*chart.cables);
                }).isEmpty());
    EXPECT_TRUE(changeOf(wall, [](ScreenChart &chart) { chart.firstPort = 7; }).isEmpty());
}

TEST(ChartChange, WhatIsNowhereInThePictureIsNothing)
{
    EXPECT_TRUE(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.visible = !chart.visible; }).isEmpty());
    EXPECT_TRUE(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.aspectHidden = true; }).isEmpty());
}

TEST(ChartChange, WhatGoesThroughThePanelsIsTheWholeWall)
{
    EXPECT_EQ(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.rectColor = NamedColour::white; }), wholeWall);
    EXPECT_EQ(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.circleBWidth += 1; }), wholeWall);
    EXPECT_EQ(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.pattern += 1; }), wholeWall);
    EXPECT_EQ(changeOf(decoratedWall(), [](ScreenChart &chart) { chart.id = QString("a"); }), wholeWall);
}

TEST_P(ChartChangeRuns, AMendedRasterIsTheWholeDraw)
{
    constexpr int charts = 200;
    constexpr int edits = 10;
    int mended = 0;
    for (quint32 seed = GetParam() * charts; seed < (GetParam() + 1) * charts; ++seed) {
        RandomChart random(seed);
        ScreenChart chart = random.chart();
        const bool isWired = seed % 2 == 0;
        if (isWired)
            random.wire(chart);
        MendedChart followed(chart);
        for (int i = 0; i < edits; ++i) {
            const ScreenChart before = chart;
            if (isWired && i % 3 == 0)
                random.lay(chart);
            else
                random.edit(chart);
            followed.follow(chart);
            ASSERT_TRUE(isSamePicture(followed.raster(), chart.draw({})))
                << "seed " << seed << ", edit " << i << ": " << described(before) << "\n to " << described(chart);
        }
        mended += followed.mended;
    }
    EXPECT_GT(mended, charts * edits / 2);
}

INSTANTIATE_TEST_SUITE_P(Charts, ChartChangeRuns, testing::Range(0U, 10U));
