#include "canvas/tools/Arranging.h"

#include "tests/canvas/CanvasFixture.h"

#include <limits>

namespace {
constexpr QSizeF reach(18, 18);
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

class ArrangingTest : public CanvasFixture
{
protected:
    LayerPointer layer(std::size_t index) const { return document.all.at(index); }
    QPoint placeOf(std::size_t index) const { return {layer(index)->xpoint(), layer(index)->ypoint()}; }
    LayerPointer press(const QPoint &pixel, bool extends = false) { return Arranging::press(document, pixel, extends); }
    /// Selects these and takes hold of the first of them at (0, 0) of the output.
    Arranging dragOf(const std::vector<LayerPointer> &layers)
    {
        document.selection = layers;
        document.calls.clear();
        return {document, layers.front(), {0, 0}};
    }
};
} // namespace

TEST_F(ArrangingTest, TheTopmostVisibleLayerIsUnderAPixel)
{
    addWall({100, 100, 50, 50});
    addStill({0, 0, 400, 300});
    EXPECT_EQ(Arranging::layerAt(document, {100, 100}), layer(0));
    EXPECT_EQ(Arranging::layerAt(document, {149, 149}), layer(0));
    EXPECT_EQ(Arranging::layerAt(document, {150, 149}), layer(1));
    EXPECT_EQ(Arranging::layerAt(document, {99, 100}), layer(1));
    EXPECT_EQ(Arranging::layerAt(document, {400, 0}), nullptr);
    layer(0)->setVisible(false);
    EXPECT_EQ(Arranging::layerAt(document, {100, 100}), layer(1));
}

TEST_F(ArrangingTest, ALayerBesideTheOutputCanBeHeld)
{
    addWall({-50, -50, 50, 50});
    EXPECT_EQ(Arranging::layerAt(document, {-1, -50}), layer(0));
    EXPECT_EQ(Arranging::layerAt(document, {0, -1}), nullptr);
}

TEST_F(ArrangingTest, APressSelectsAloneUnlessItIsSelectedAlready)
{
    addWall({0, 0, 10, 10});
    addWall({20, 0, 10, 10});
    addWall({40, 0, 10, 10});
    EXPECT_EQ(press({5, 5}), layer(0));
    EXPECT_EQ(press({25, 5}), layer(1));
    EXPECT_EQ(document.selection, std::vector{layer(1)});
    document.selection = {layer(0), layer(2)};
    EXPECT_EQ(press({45, 5}), layer(2));
    EXPECT_EQ(document.selection, (std::vector{layer(0), layer(2)}));
    EXPECT_EQ(press({35, 5}), nullptr);
    EXPECT_EQ(document.selection, (std::vector{layer(0), layer(2)}));
}

TEST_F(ArrangingTest, ExtendingAddsAndTakesOutButNotTheLast)
{
    addWall({0, 0, 10, 10});
    addWall({20, 0, 10, 10});
    document.selection = {layer(0)};
    EXPECT_EQ(press({25, 5}, true), layer(1));
    EXPECT_EQ(document.selection, (std::vector{layer(0), layer(1)}));
    EXPECT_EQ(press({5, 5}, true), nullptr); // taken out, so not held
    EXPECT_EQ(document.selection, std::vector{layer(1)});
    EXPECT_EQ(press({25, 5}, true), layer(1));
    EXPECT_EQ(document.selection, std::vector{layer(1)});
}

TEST_F(ArrangingTest, AllSelectedLayersGoByThePointersWay)
{
    addWall({100, 100, 50, 50});
    addStill({700, 300, 101, 51});
    addWall({500, 500, 50, 50});
    layer(1)->setVisible(false);
    Arranging drag = dragOf({layer(0), layer(1)});
    drag.track({37, -11}, std::nullopt);
    EXPECT_EQ(placeOf(0), QPoint(137, 89));
    EXPECT_EQ(placeOf(1), QPoint(737, 289));
    EXPECT_EQ(placeOf(2), QPoint(500, 500));
    drag.track({1, 2}, std::nullopt);
    EXPECT_EQ(placeOf(0), QPoint(101, 102));
    EXPECT_EQ(document.calls, QStringList({"update", "update"}));
    drag.track({1, 2}, std::nullopt);
    EXPECT_EQ(document.calls.size(), 2);
    drag.finish();
    EXPECT_EQ(document.calls.last(), "finishEdit move layer");
}

TEST_F(ArrangingTest, ADragThatComesBackIsNoEdit)
{
    addWall({100, 100, 50, 50});
    Arranging drag = dragOf({layer(0)});
    drag.finish();
    EXPECT_EQ(document.calls, QStringList());
    drag.track({1, 0}, std::nullopt);
    drag.track({0, 0}, std::nullopt);
    drag.finish();
    EXPECT_EQ(document.calls, QStringList({"update", "update"}));
}

TEST_F(ArrangingTest, CancellingPutsAllBack)
{
    addWall({100, 100, 50, 50});
    addStill({700, 300, 101, 51});
    Arranging drag = dragOf({layer(0), layer(1)});
    drag.track({37, -11}, std::nullopt);
    drag.cancel();
    EXPECT_EQ(placeOf(0), QPoint(100, 100));
    EXPECT_EQ(placeOf(1), QPoint(700, 300));
    EXPECT_EQ(document.calls, QStringList({"update", "update"}));
}

TEST_F(ArrangingTest, AMovedWallShowsItsNewPlace)
{
    LWScreen &wall = addWall({100, 100, 300, 200});
    wall.setXYFontEnable(true);
    wall.setXYFontSize(20);
    wall.setXyColor(NamedColour::white);
    document.rendersOnUpdate = false;
    wall.drawInRect();
    const QImage before = wall.thumbnail().copy();
    Arranging drag = dragOf({layer(0)});
    drag.track({37, -11}, std::nullopt);
    EXPECT_NE(wall.thumbnail(), before);
    drag.cancel();
    EXPECT_EQ(wall.thumbnail(), before);
}

TEST_F(ArrangingTest, TheBoxIsAttractedByTheOutput)
{
    addWall({100, 100, 50, 50});
    addWall({400, 150, 100, 100});
    Arranging drag = dragOf({layer(0), layer(1)}); // a box of 400 x 150
    drag.track({-85, -83}, reach);
    EXPECT_EQ(placeOf(0), QPoint(0, 0));
    EXPECT_EQ(placeOf(1), QPoint(300, 50));
    EXPECT_EQ(drag.uprightLines(), std::vector<double>{0});
    EXPECT_EQ(drag.levelLines(), std::vector<double>{0});
    drag.track({-81, -81}, reach); // 19 short
    EXPECT_EQ(placeOf(0), QPoint(19, 19));
    EXPECT_TRUE(drag.uprightLines().empty());
    drag.track({660 - 7, 365 + 7}, reach); // the centre
    EXPECT_EQ(placeOf(0), QPoint(760, 465));
    EXPECT_EQ(drag.uprightLines(), std::vector<double>{960});
    EXPECT_EQ(drag.levelLines(), std::vector<double>{540});
}

TEST_F(ArrangingTest, OnlyVisibleLayersThatStayAttract)
{
    addWall({100, 100, 50, 50});
    addWall({403, 303, 50, 50});
    addWall({703, 603, 50, 50});
    layer(2)->setVisible(false);
    Arranging drag = dragOf({layer(0)});
    drag.track({248, 198}, reach); // right edge 398 to 403, lower 348 to 353
    EXPECT_EQ(placeOf(0), QPoint(353, 303));
    EXPECT_EQ(drag.uprightLines(), std::vector<double>{403});
    EXPECT_EQ(drag.levelLines(), (std::vector<double>{303, 328, 353})); // all three
    drag.track({600, 500}, reach);                                      // 3 short of the hidden one
    EXPECT_EQ(placeOf(0), QPoint(700, 600));
}

TEST_F(ArrangingTest, WithoutAttractionTheWayIsThePointers)
{
    addWall({100, 100, 50, 50});
    Arranging drag = dragOf({layer(0)});
    drag.track({-99, -99}, reach);
    EXPECT_EQ(placeOf(0), QPoint(0, 0));
    drag.track({-99, -99}, std::nullopt);
    EXPECT_EQ(placeOf(0), QPoint(1, 1));
    EXPECT_TRUE(drag.uprightLines().empty());
    EXPECT_TRUE(drag.levelLines().empty());
}

TEST_F(ArrangingTest, AtTheEndsOfTheNumbersLayersKeepTheirDistance)
{
    addWall({0, 0, 50, 50});
    addStill({0, 0, 50, 50});
    layer(0)->setXpoint(highest - 10);
    layer(0)->setYpoint(lowest + 10);
    Arranging drag = dragOf({layer(1), layer(0)});
    drag.track({100, -100}, std::nullopt);
    EXPECT_EQ(placeOf(0), QPoint(highest, lowest));
    EXPECT_EQ(placeOf(1), QPoint(10, -10));
    drag.track({lowest, highest}, std::nullopt);
    EXPECT_EQ(placeOf(1), QPoint(lowest, highest));
    drag.cancel();
    EXPECT_EQ(placeOf(0), QPoint(highest - 10, lowest + 10));
}

TEST_F(ArrangingTest, LayersAtBothEndsStay)
{
    addWall({0, 0, 50, 50});
    addWall({0, 0, 50, 50});
    layer(0)->setXpoint(highest);
    layer(1)->setXpoint(lowest);
    layer(1)->setScreenSizeWidth(highest);
    Arranging drag = dragOf({layer(0), layer(1)});
    for (const int way : {lowest, -1, 1, highest}) {
        drag.track({way, 0}, reach);
        EXPECT_EQ(layer(0)->xpoint(), highest);
        EXPECT_EQ(layer(1)->xpoint(), lowest);
    }
}
