#include "show/ShowProcessors.h"

#include "tests/screen/TestHost.h"
#include "tests/screen/WiredWalls.h"

#include <gtest/gtest.h>

namespace {
constexpr QSize output(1920, 1080);

class ShowProcessorsTest : public ::testing::Test
{
protected:
    LayerPointer wall(int columns, int rows) { return wallOf(host, columns, rows, 120); }

    TestHost host;
};
} // namespace

TEST_F(ShowProcessorsTest, NamesGoOnBehindTheLastLetter)
{
    EXPECT_EQ(ShowProcessors::freeName({}), "A");
    EXPECT_EQ(ShowProcessors::freeName({controller("A"), controller("C")}), "B");
    ShowProcessors::Processors all;
    for (char letter = 'A'; letter <= 'Z'; ++letter)
        all.push_back(controller(QString(QLatin1Char(letter))));
    EXPECT_EQ(ShowProcessors::freeName(all), "AA");
}

TEST_F(ShowProcessorsTest, WhatSpansTheOutputIsFedByNone)
{
    const LayerPointer background = wall(16, 9);
    const LayerPointer main = wall(15, 9);
    const LayerPointer other = wall(2, 2);
    other->setValue("processor", "B");
    for (const LayerPointer &layer : {background, main, other})
        ShowProcessors::feed(*layer, "A", output);
    EXPECT_EQ(ShowProcessors::of(*background), "");
    EXPECT_EQ(ShowProcessors::of(*main), "A");
    EXPECT_EQ(ShowProcessors::of(*other), "B");
}

TEST_F(ShowProcessorsTest, WallsAndCablesFollowAnotherName)
{
    const LayerPointer one = wall(2, 2);
    one->setValue("processor", "A");
    one->setValue("runs", QVariant::fromValue(CableRuns({{{"A", 1}, 1, {{0, 0}}}, {{"B", 1}, 1, {{1, 0}}}})));
    const LayerPointer other = wall(2, 2);
    other->setValue("processor", "B");
    ShowProcessors::rename({one, other}, "A", "FOH");
    EXPECT_EQ(ShowProcessors::of(*one), "FOH");
    EXPECT_EQ(ShowProcessors::of(*other), "B");
    EXPECT_EQ(one->record()->runs, CableRuns({{{"FOH", 1}, 1, {{0, 0}}}, {{"B", 1}, 1, {{1, 0}}}}));
}

TEST_F(ShowProcessorsTest, PixelsPerPortFollowWhereAWallLeavesThemToItsProcessor)
{
    const LayerPointer follows = wall(2, 2);
    const LayerPointer own = wall(2, 2);
    const LayerPointer lost = wall(2, 2);
    for (const LayerPointer &layer : {follows, own, lost}) {
        layer->setValue("processor", layer == lost ? "Z" : "A");
        layer->setValue("limitFromProcessor", layer != own);
        layer->setPixelLimit(1000);
    }
    EXPECT_TRUE(ShowProcessors::followLimits({follows, own, lost}, {controller("A")}, output));
    EXPECT_EQ(follows->pixelLimit(), 659'722);
    EXPECT_EQ(own->pixelLimit(), 1000);
    EXPECT_EQ(lost->pixelLimit(), 1000);
    EXPECT_FALSE(ShowProcessors::followLimits({follows, own, lost}, {controller("A")}, output));
    // 512 panels of a port of 2 x 2 pixels each are less than what it carries.
    follows->setPanelWidth(2);
    follows->setPanelHeight(2);
    EXPECT_TRUE(ShowProcessors::followLimits({follows}, {controller("A", "VX1000")}, output));
    EXPECT_EQ(follows->pixelLimit(), 512 * 4);
}

TEST_F(ShowProcessorsTest, WhereThereIsNoFigureTheLimitStays)
{
    const LayerPointer layer = wall(2, 2);
    layer->setValue("processor", "A");
    layer->setValue("limitFromProcessor", true);
    layer->setPixelLimit(1000);
    EXPECT_FALSE(ShowProcessors::followLimits({layer}, {controller("A", "of nobody")}, output));
    EXPECT_EQ(layer->pixelLimit(), 1000);
}

TEST_F(ShowProcessorsTest, CopiedCablesTakeTheNextFreePorts)
{
    const auto wired = [this](const WallRuns &runs) {
        LayerPointer layer = wall(2, 2);
        layer->setValue("runs", QVariant::fromValue(CableRuns(runs)));
        return layer;
    };
    const WallRuns one{{{"A", 2}, 1, {{1, 0}}}, {{"A", 1}, 1, {{0, 0}}}};
    const WallRuns other{{{"A", 2}, 2, {{0, 0}}}}; // goes on at the port of the first wall
    const LayerPointer copy = wired(one);
    const LayerPointer otherCopy = wired(other);
    const LayerPointer plain = wall(1, 1);
    ShowToWire show;
    show.walls.resize(2);
    show.walls[0].runs = one;
    show.walls[1].runs = other;
    ShowProcessors::takeFreePorts({copy, plain, otherCopy}, FreePorts(show));
    EXPECT_EQ(copy->record()->runs, CableRuns({{{"A", 4}, 1, {{1, 0}}}, {{"A", 3}, 1, {{0, 0}}}}));
    EXPECT_EQ(otherCopy->record()->runs, CableRuns({{{"A", 4}, 2, {{0, 0}}}}));
    EXPECT_EQ(plain->record()->runs, CableRuns());
}

TEST_F(ShowProcessorsTest, APresetKeepsTheWayOfSplittingAlone)
{
    const LayerPointer layer = wall(2, 2);
    layer->setValue("processor", "A");
    layer->setValue("split", "panels");
    layer->setValue("goesOn", true);
    layer->setValue("limitFromProcessor", true);
    layer->setValue("runs", QVariant::fromValue(CableRuns({{{"A", 1}, 1, {}}})));
    ShowProcessors::leaveShow(*layer);
    EXPECT_EQ(layer->record()->split, CableSplit::Panels);
    layer->setValue("split", {});
    EXPECT_TRUE(*layer->record() == *wall(2, 2)->record());
}
