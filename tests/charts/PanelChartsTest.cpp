#include "tests/charts/TestShapes.h"

namespace {
/// Two panels beside each other on A1, the second of them first, and one below on A2.
ChartShape threePanels()
{
    ChartShape shape{.size = {200, 200}};
    shape.panels = {
        {{0, 0, 100, 100}, "1,1", "A1", 2}, {{100, 0, 100, 100}, "1,2", "A1", 1}, {{0, 100, 100, 60}, "2,1", "A2", 1}};
    return shape;
}

/// Which of the panels is lit, each told by a pixel in its corner.
std::vector<bool> litPanels(const QImage &picture, const ChartShape &shape)
{
    std::vector<bool> lit;
    for (const ChartPanel &panel : shape.panels)
        lit.push_back(picture.pixel(panel.box.topLeft()) == qRgb(255, 255, 255));
    return lit;
}

std::vector<bool> litPanels(const char *name, const ChartShape &shape, qint64 frame)
{
    return litPanels(pictureOf(name, shape, frame), shape);
}

using Lit = std::vector<bool>;

/// The lit pixels, row by row.
std::vector<QPoint> litPixels(const QImage &picture)
{
    std::vector<QPoint> lit;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == qRgb(255, 255, 255))
                lit.emplace_back(x, y);
        }
    }
    return lit;
}
} // namespace

TEST(PanelCharts, AreBlackWithoutPanels)
{
    QImage black(7, 3, QImage::Format_RGB32);
    black.fill(Qt::black);
    for (const Chart &chart : Chart::all())
        EXPECT_TRUE(!chart.needsPanels || chart.picture({.size = {7, 3}}, 0) == black) << chart.name;
}

TEST(Panels, HaveFramesAndTheColourOfTheirPort)
{
    const ChartShape shape = threePanels();
    const QImage picture = pictureOf("panels", shape);
    expectGreys(picture, {{0, 0, 255}, {99, 50, 255}, {100, 50, 255}, {50, 159, 255}, {50, 160, 0}, {150, 150, 0}});
    EXPECT_EQ(picture.pixel(2, 2), picture.pixel(198, 2));
    EXPECT_NE(picture.pixel(2, 2), picture.pixel(2, 102));
    EXPECT_NE(picture.copy(1, 1, 98, 58), picture.copy(101, 1, 98, 58)) << "their names differ";
}

TEST(Coordinates, DifferFromPanelToPanel)
{
    const ChartShape shape = threePanels();
    const QImage picture = pictureOf("coordinates", shape);
    EXPECT_NE(picture.copy(1, 1, 98, 45), picture.copy(101, 1, 98, 45)) << "x 0, x 100";
    EXPECT_EQ(picture.copy(1, 50, 98, 49), picture.copy(101, 50, 98, 49)) << "y 0";
}

TEST(Chase, LightsPanelsInTheOrderOfEachPort)
{
    const ChartShape shape = threePanels();
    EXPECT_EQ(litPanels("chase", shape, 0), (Lit{false, true, true}));
    EXPECT_EQ(litPanels("chase", shape, 14), (Lit{false, true, true}));
    EXPECT_EQ(litPanels("chase", shape, 15), (Lit{true, false, true}));
    EXPECT_EQ(litPanels("chase", shape, 30), (Lit{false, true, true}));
    EXPECT_EQ(Chart::find("chase")->moved(shape, 14, 15), QRegion(0, 0, 200, 100)) << "the lone panel of A2 stays lit";
    EXPECT_TRUE(Chart::find("chase")->moved(shape, 15, 29).isEmpty());
}

TEST(Chase, GoesFromPortToPort)
{
    ChartShape shape = threePanels();
    EXPECT_EQ(litPanels("chase-ports", shape, 0), (Lit{false, true, false}));
    EXPECT_EQ(litPanels("chase-ports", shape, 15), (Lit{true, false, false}));
    EXPECT_EQ(litPanels("chase-ports", shape, 30), (Lit{false, false, true}));
    EXPECT_EQ(pictureOf("chase-ports", shape, 7), pictureOf("chase-ports", shape, 52));
    shape.options.hold = 30;
    EXPECT_EQ(litPanels("chase-ports", shape, 59), (Lit{true, false, false}));
}

TEST(Chase, LeavesPanelsWithoutAPortDark)
{
    ChartShape shape = threePanels();
    shape.panels[2].port.clear();
    shape.panels[2].number = 0;
    EXPECT_EQ(litPanels("chase", shape, 0), (Lit{false, true, false}));
    EXPECT_EQ(litPanels("chase-ports", shape, 30), (Lit{false, true, false}));
}

TEST(Walk, GoesThroughEachPanelInReadingOrder)
{
    const ChartShape shape = threePanels();
    EXPECT_EQ(litPixels(pictureOf("walk", shape, 0)), (std::vector<QPoint>{{0, 0}, {100, 0}, {0, 100}}));
    EXPECT_EQ(litPixels(pictureOf("walk", shape, 3)), (std::vector<QPoint>{{1, 0}, {101, 0}, {1, 100}}));
    EXPECT_EQ(litPixels(pictureOf("walk", shape, 2 * 205)), (std::vector<QPoint>{{5, 2}, {105, 2}, {5, 102}}));
    // 10,000 pixels in two panels, 6,000 in the third.
    EXPECT_EQ(litPixels(pictureOf("walk", shape, 2 * 10'000)), (std::vector<QPoint>{{0, 0}, {100, 0}, {0, 140}}));
    EXPECT_EQ(pictureOf("walk", shape, 7), pictureOf("walk", shape, 7 + 2 * 30'000));
}

TEST(Walk, MovesTheStripsOfItsPixelsAlone)
{
    const ChartShape shape = threePanels();
    const Chart *walk = Chart::find("walk");
    EXPECT_TRUE(walk->moved(shape, 0, 1).isEmpty());
    EXPECT_EQ(walk->moved(shape, 1, 2), QRegion(0, 0, 102, 1) + QRegion(0, 100, 2, 1));
}

TEST(Walk, GoesByRowsAndByColumns)
{
    const ChartShape shape = threePanels();
    const QImage rows = pictureOf("walk-rows", shape, 7);
    EXPECT_EQ(litPixels(rows).size(), 300U);
    expectGreys(rows, {{0, 7, 255}, {199, 7, 255}, {0, 107, 255}, {99, 107, 255}, {100, 107, 0}});
    expectGreys(pictureOf("walk-rows", shape, 63), {{0, 63, 255}, {0, 103, 255}});
    const QImage columns = pictureOf("walk-columns", shape, 8);
    expectGreys(columns, {{8, 0, 255}, {8, 159, 255}, {108, 99, 255}, {108, 100, 0}});
}

TEST(MovingBars, GoThroughColumnsThenRows)
{
    const ChartShape shape = threePanels();
    EXPECT_EQ(litPanels("moving-bars", shape, 0), (Lit{true, false, true}));
    EXPECT_EQ(litPanels("moving-bars", shape, 15), (Lit{false, true, false}));
    EXPECT_EQ(litPanels("moving-bars", shape, 30), (Lit{true, true, false}));
    EXPECT_EQ(litPanels("moving-bars", shape, 45), (Lit{false, false, true}));
    EXPECT_EQ(litPanels("moving-bars", shape, 60), (Lit{true, false, true}));
}
