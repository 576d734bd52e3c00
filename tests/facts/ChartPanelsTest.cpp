#include "facts/ChartPanels.h"

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

namespace {
/// Walls of 3 x 2 panels of 100 x 60 at (10, 20).
class ChartPanelsTest : public testing::Test
{
protected:
    std::shared_ptr<LWScreen> add(const QString &name)
    {
        auto wall = LWScreen::init(host);
        wall->setLabel(name);
        wall->setCol(3);
        wall->setRow(2);
        wall->setPanelWidth(100);
        wall->setPanelHeight(60);
        wall->setXpoint(10);
        wall->setYpoint(20);
        wall->setPattern(0);
        wall->drawInRect();
        layers.push_back(wall);
        return wall;
    }
    ChartPanels panels() const
    {
        ProcessorSettings settings;
        settings.name = "A";
        settings.model = "MX40 Pro";
        settings.capacity = 24'000; // four panels a port
        return ChartPanels::of(layers, ShowPorts::of(layers, {settings}, {1920, 1080}));
    }
    /// "A1 2", each.
    QStringList places() const
    {
        QStringList places;
        for (const ChartPanel &panel : panels().panels())
            places.append(QString("%1 %2").arg(panel.port).arg(panel.number).trimmed());
        return places;
    }

    TestHost host;
    std::vector<LayerPointer> layers;
};
} // namespace

TEST_F(ChartPanelsTest, LieWhereTheyLieOnTheOutput)
{
    add("MAIN")->setHiddenBoxes(QStringList("0,1"));
    const ChartPanels all = panels();
    ASSERT_EQ(all.walls.size(), 1U);
    EXPECT_EQ(all.walls[0].row, 0);
    EXPECT_EQ(all.walls[0].box, QRect(10, 20, 300, 120));
    ASSERT_EQ(all.walls[0].panels.size(), 5U) << "one is off";
    EXPECT_EQ(all.walls[0].panels[0].box, QRect(10, 20, 100, 60));
    EXPECT_EQ(all.walls[0].panels[1].box, QRect(210, 20, 100, 60));
    EXPECT_EQ(all.walls[0].panels[4].box, QRect(210, 80, 100, 60));
    EXPECT_EQ(all.walls[0].panels[4].name, static_cast<LWScreen &>(*layers[0]).panelLabel({2, 1}));
}

TEST_F(ChartPanelsTest, HangOnThePortsOfTheirProcessor)
{
    const auto wall = add("MAIN");
    wall->setValue("processor", "A");
    wall->setValue("split", "panels");
    QStringList all = places();
    all.sort();
    EXPECT_EQ(all, (QStringList{"A1 1", "A1 2", "A1 3", "A1 4", "A2 1", "A2 2"}));
}

TEST_F(ChartPanelsTest, CountThoseThatAreOnAlone)
{
    const auto wall = add("MAIN");
    wall->setValue("processor", "A");
    wall->setValue("split", "hand");
    wall->setValue("runs", QVariant::fromValue(CableRuns(WallRuns{{{"A", 3}, 1, {{0, 0}, {1, 0}, {2, 0}}}})));
    wall->setHiddenBoxes(QStringList("0,1"));
    EXPECT_EQ(places(), (QStringList{"A3 1", "A3 2", "0", "0", "0"})) << "the lower row hangs on no cable";
}

TEST_F(ChartPanelsTest, WithoutAProcessorHaveThePortsOfTheirPixels)
{
    add("MAIN")->setPixelLimit(20'000); // a row
    QStringList all = places();
    all.sort();
    EXPECT_EQ(all, (QStringList{"MAIN 1 1", "MAIN 1 2", "MAIN 1 3", "MAIN 2 1", "MAIN 2 2", "MAIN 2 3"}));
}

TEST_F(ChartPanelsTest, OfHiddenWallsAreLeftOut)
{
    add("TOP")->setVisible(false);
    add("MAIN");
    const ChartPanels all = panels();
    ASSERT_EQ(all.walls.size(), 1U);
    EXPECT_EQ(all.walls[0].row, 1);
    EXPECT_EQ(all.boxes(), std::vector<QRect>{QRect(10, 20, 300, 120)});
}

TEST_F(ChartPanelsTest, OfWallsThatAreTooLargeAreLeftOut)
{
    const auto large = add("LARGE");
    large->setCol(2000);
    large->setRow(2000);
    add("MAIN");
    EXPECT_EQ(panels().walls.size(), 1U);
    EXPECT_EQ(panels().walls[0].row, 1);
}
