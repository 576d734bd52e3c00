#include "facts/ShowCables.h"

#include "facts/WiredPorts.h"
#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

namespace {
/// Walls of 4 x 2 panels of 100 x 100 on processor A, whose ports bear so many pixels.
class ShowCablesTest : public testing::Test
{
protected:
    std::shared_ptr<LWScreen> add(const char *split, const WallRuns &runs = {})
    {
        auto wall = LWScreen::init(host);
        wall->setCol(4);
        wall->setRow(2);
        wall->setPanelWidth(100);
        wall->setPanelHeight(100);
        wall->setPattern(0);
        wall->setPixelLimit(40'000);
        wall->setDrawFlowPath(true);
        wall->setValue("processor", "A");
        wall->setValue("split", split);
        wall->setValue("runs", QVariant::fromValue(CableRuns(runs)));
        wall->drawInRect();
        layers.push_back(wall);
        return wall;
    }
    ShowPorts ports() const
    {
        ProcessorSettings settings;
        settings.name = "A";
        settings.model = "MX40 Pro"; // of which the box around panels does not count
        settings.capacity = 30'000;
        return ShowPorts::of(layers, {settings}, {1920, 1080});
    }

    TestHost host;
    std::vector<LayerPointer> layers;
};
} // namespace

TEST_F(ShowCablesTest, OfPanelsAreWhatEachPortHas)
{
    add("panels");
    const WallCables expected{
        {.port = {"A", 1}, .cells = {{0, 0}, {1, 0}, {2, 0}}},
        {.port = {"A", 2}, .cells = {{3, 0}, {3, 1}, {2, 1}}},
        {.port = {"A", 3}, .cells = {{1, 1}, {0, 1}}},
    };
    EXPECT_EQ(*ShowCables::of(ports()).front(), expected);
}

TEST_F(ShowCablesTest, KnowWhereACableGoesOnInAnotherWall)
{
    add("hand", {{{"A", 1}, 1, {{0, 0}, {1, 0}}}});
    add("hand", {{{"A", 1}, 2, {{3, 0}}}});
    const auto cables = ShowCables::of(ports());
    const WallCable first{.port = {"A", 1}, .cells = {{0, 0}, {1, 0}}, .ends = false};
    const WallCable second{.port = {"A", 1}, .cells = {{3, 0}}, .firstPlace = 3, .begins = false};
    EXPECT_EQ(cables[0]->front(), first);
    EXPECT_EQ(cables[1]->front(), second);
}

TEST_F(ShowCablesTest, PanelsThatAreOffHaveNoPlace)
{
    const auto wall = add("hand", {{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}}}, {{"A", 1}, 2, {{2, 1}}}});
    wall->setHiddenBoxes(QStringList("0,1"));
    const WallCables cables = *ShowCables::of(ports()).front();
    EXPECT_EQ(cables[0].cells, (std::vector<Cell>{{0, 0}, {2, 0}}));
    EXPECT_EQ(cables[1].firstPlace, 3);
}

TEST_F(ShowCablesTest, OfAProcessorThatIsNotThereAreDrawnAllTheSame)
{
    add("hand", {{{"B", 7}, 1, {{0, 0}, {1, 0}}}});
    const WallCable expected{.port = {"B", 7}, .cells = {{0, 0}, {1, 0}}};
    EXPECT_EQ(ShowCables::of(ports()).front()->front(), expected);
}

TEST_F(ShowCablesTest, AreGivenToWallsThatShowThemAlone)
{
    const auto lines = add("lines");
    const auto panels = add("panels");
    ShowCables::show(layers, ports());
    EXPECT_EQ(lines->shownCables(), nullptr);
    EXPECT_EQ(panels->shownCables()->size(), 3U);
    lines->setValue("portNames", true);
    panels->setDrawFlowPath(false);
    ShowCables::show(layers, ports());
    EXPECT_EQ(lines->shownCables()->size(), 2U);
    EXPECT_EQ(panels->shownCables(), nullptr);
}

TEST_F(ShowCablesTest, RenderWallsThatShowOthersThenBeforeAndNoOther)
{
    const auto wall = add("panels");
    ShowCables::show(layers, ports());
    const qint64 drawn = wall->thumbnail().cacheKey();
    const WallCablesPointer before = wall->shownCables();
    ShowCables::show(layers, ports());
    EXPECT_EQ(wall->shownCables(), before);
    EXPECT_EQ(wall->thumbnail().cacheKey(), drawn);
    layers.insert(layers.begin(), nullptr);
    layers.front() = add("panels");
    layers.pop_back();
    ShowCables::show(layers, ports()); // it has the ports behind that one's now
    EXPECT_EQ(wall->shownCables()->front().port.number, 4);
}

TEST_F(ShowCablesTest, PortsOfAWallAreNamedInRows)
{
    add("panels");
    add("panels");
    const auto first = WiredPorts::of(ports(), {0});
    ASSERT_TRUE(first);
    EXPECT_EQ(first->names, "A1 to A3");
    EXPECT_EQ(first->count, 3);
    EXPECT_EQ(first->text(), "A1 to A3, the fullest with 30,000 of 30,000 px");
    EXPECT_EQ(WiredPorts::of(ports(), {0, 1})->names, "A1 to A6");
}

TEST_F(ShowCablesTest, PortsOfAWallOfNobodyAreNotCounted)
{
    const auto wall = add("panels");
    wall->setValue("processor", {});
    EXPECT_FALSE(WiredPorts::of(ports(), {0}));
    wall->setValue("processor", "B");
    EXPECT_EQ(WiredPorts::of(ports(), {0})->text(), "Waits: the show has no processor \"B\".");
}

TEST_F(ShowCablesTest, APortOverItsLimitIsCounted)
{
    add("hand", {{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}, {{"A", 2}, 1, {{0, 1}}}});
    const auto wired = WiredPorts::of(ports(), {0});
    EXPECT_EQ(wired->over, 1);
    EXPECT_EQ(wired->text(), "A1 to A2, the fullest with 40,000 of 30,000 px");
}

TEST_F(ShowCablesTest, AWallWithoutPortsSaysWhy)
{
    const auto wall = add("hand");
    EXPECT_EQ(WiredPorts::of(ports(), {0})->text(), "No panel hangs on a port.");
    wall->setValue("split", "panels");
    wall->setPattern(9);
    EXPECT_EQ(WiredPorts::of(ports(), {0})->text(), "It has no path; choose a pattern.");
    wall->setPattern(0);
    wall->setCol(1001);
    wall->setRow(1000);
    EXPECT_EQ(WiredPorts::of(ports(), {0})->text(), "It has more panels than can be wired.");
}
