#include "tests/canvas/CanvasFixture.h"

#include <QPalette>
#include <QTest>

namespace {
using Tool = LWCanvasImageView::Tool;

/// A unit of the view is 3 output pixels.
class LWCanvasImageViewArrange : public CanvasFixture
{
protected:
    LWCanvasImageViewArrange()
    {
        QPalette colours = view.palette();
        colours.setColor(QPalette::Highlight, accent);
        colours.setColor(QPalette::ToolTipBase, label);
        view.setPalette(colours);
    }

    LayerPointer layer(std::size_t index) const { return document.all.at(index); }
    QPoint placeOf(std::size_t index) const { return {layer(index)->xpoint(), layer(index)->ypoint()}; }
    /// What is painted at an output pixel, `beside` device pixels further.
    QColor colourAt(const QPoint &pixel, const QPoint &beside)
    {
        return seen().pixelColor(placeOfOutput() + (QPointF(pixel) * ratio() / 3).toPoint() + beside);
    }
    int lineWidth() const { return static_cast<int>(ratio()); }

    const QColor accent{250, 10, 20};
    const QColor label{1, 2, 3};
};
} // namespace

TEST_F(LWCanvasImageViewArrange, ADragMovesTheLayerUnderThePointerByItsOutputPixels)
{
    addWall({300, 300, 60, 60});
    LWStill &still = addStill({270, 270, 300, 200});
    document.select(layer(0), false);
    view.setTool(Tool::Arrange);
    drag({150, 100}, {190, 141}); // the still, beside the wall
    EXPECT_EQ(QPoint(still.xpoint(), still.ypoint()), QPoint(270 + 120, 270 + 123));
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    EXPECT_EQ(document.selection, std::vector{layer(1)});
    EXPECT_EQ(document.calls.filter("finishEdit"), QStringList("finishEdit move layer"));
}

TEST_F(LWCanvasImageViewArrange, EveryMoveIsLive)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({120, 130});
    EXPECT_EQ(placeOf(0), QPoint(330, 360));
    moveTo({119, 130});
    EXPECT_EQ(placeOf(0), QPoint(327, 360));
    EXPECT_EQ(document.calls, QStringList({"update", "update"}));
    release({119, 130});
}

TEST_F(LWCanvasImageViewArrange, AClickSelectsAndMovesNothing)
{
    LWScreen &wall = addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    release({110, 110});
    EXPECT_EQ(document.selection, std::vector{layer(0)});
    EXPECT_EQ(document.calls, QStringList());
    EXPECT_EQ(wall.hiddenBoxes(), QStringList()); // no panel is switched
    press({300, 300});
    release({300, 300});
    EXPECT_EQ(document.selection, std::vector{layer(0)});
    EXPECT_EQ(document.calls, QStringList());
}

TEST_F(LWCanvasImageViewArrange, AClickOnOneOfSeveralSelectsItAlone)
{
    addWall({300, 300, 60, 60});
    addWall({600, 300, 60, 60});
    document.selection = {layer(0), layer(1)};
    view.setTool(Tool::Arrange);
    press({110, 110});
    EXPECT_EQ(document.selection.size(), 2U); // it may become a drag of both
    release({110, 110});
    EXPECT_EQ(document.selection, std::vector{layer(0)});
}

TEST_F(LWCanvasImageViewArrange, ADragOrEscapeOrShiftKeepsSeveralSelected)
{
    addWall({300, 300, 60, 60});
    addWall({600, 300, 60, 60});
    const std::vector both{layer(0), layer(1)};
    document.selection = both;
    view.setTool(Tool::Arrange);
    drag({110, 110}, {120, 110});
    EXPECT_EQ(document.selection, both);
    press({120, 110});
    QTest::keyClick(&view, Qt::Key_Escape);
    release({120, 110});
    EXPECT_EQ(document.selection, both);
    document.selection = {layer(0)};
    press({220, 110}, Qt::LeftButton, Qt::ShiftModifier);
    release({220, 110}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(document.selection, both);
}

TEST_F(LWCanvasImageViewArrange, AClickThatShakesMovesNothing)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({112, 112}); // 2.8 away
    moveTo({108, 110});
    EXPECT_EQ(document.calls, QStringList());
    const QPointF besidePointer = QPointF(at(108, 110)) + QPointF(17, 17);
    EXPECT_NE(seen().pixelColor((besidePointer * ratio()).toPoint()), label);
    release({108, 110});
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    EXPECT_EQ(document.calls, QStringList());
}

TEST_F(LWCanvasImageViewArrange, ADragThatHasBegunCountsEveryPixelFromThePress)
{
    addWall({300, 300, 60, 60});
    addWall({600, 300, 60, 60});
    document.selection = {layer(0), layer(1)};
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({113, 110});
    EXPECT_EQ(placeOf(0), QPoint(309, 300));
    moveTo({111, 110});
    EXPECT_EQ(placeOf(0), QPoint(303, 300));
    moveTo({110, 110});
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    release({110, 110});
    EXPECT_EQ(document.calls.filter("finishEdit"), QStringList());
    EXPECT_EQ(document.selection.size(), 2U); // that was no click
}

TEST_F(LWCanvasImageViewArrange, ShiftSelectsSeveralToBeDraggedTogether)
{
    addWall({300, 300, 60, 60});
    addStill({600, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    release({110, 110});
    press({210, 110}, Qt::LeftButton, Qt::ShiftModifier);
    release({210, 110}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(document.selection.size(), 2U);
    drag({110, 110}, {120, 120});
    EXPECT_EQ(placeOf(0), QPoint(330, 330));
    EXPECT_EQ(placeOf(1), QPoint(630, 330));
}

TEST_F(LWCanvasImageViewArrange, LinesAttractWithinSixViewPixelsUnlessCtrlIsHeld)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({110 - 94, 110}); // 18 pixels short of the output's edge
    EXPECT_EQ(placeOf(0), QPoint(0, 300));
    moveTo({110 - 93, 110}); // 21 short
    EXPECT_EQ(placeOf(0), QPoint(21, 300));
    moveTo({110 - 94, 110}, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(placeOf(0), QPoint(18, 300));
    QTest::keyRelease(&view, Qt::Key_Control);
    EXPECT_EQ(placeOf(0), QPoint(0, 300));
    QTest::keyPress(&view, Qt::Key_Control);
    EXPECT_EQ(placeOf(0), QPoint(18, 300));
    release({110 - 94, 110}, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(placeOf(0), QPoint(18, 300));
}

TEST_F(LWCanvasImageViewArrange, BesideTheOutputPixelsCountOn)
{
    addWall({-30, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({-5, 110}); // pixel -15
    moveTo({4, 110});
    EXPECT_EQ(placeOf(0), QPoint(-3 + 3, 300)); // attracted by the edge
    moveTo({4, 110}, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(placeOf(0), QPoint(-3, 300));
    release({4, 110}, Qt::LeftButton, Qt::ControlModifier);
}

TEST_F(LWCanvasImageViewArrange, FarInTheWayIsInPixelsCrossed)
{
    showOutput({96, 54});
    view.setZoom(400);
    addWall({-30, 0, 60, 60});
    view.setTool(Tool::Arrange);
    press({-2, 40}); // within pixel -1
    moveTo({1, 40}, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(placeOf(0), QPoint(-29, 0));
    moveTo({-1, 40}, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(placeOf(0), QPoint(-30, 0));
    release({-1, 40}, Qt::LeftButton, Qt::ControlModifier);
}

TEST_F(LWCanvasImageViewArrange, EscapeTakesTheDragBack)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({120, 130});
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    moveTo({140, 130});
    release({140, 130});
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    EXPECT_EQ(document.calls.filter("finishEdit"), QStringList());
}

TEST_F(LWCanvasImageViewArrange, ALostReleaseOrAnotherFrameTakesItBackToo)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({120, 130});
    moveTo({121, 130}, Qt::NoButton);
    EXPECT_EQ(placeOf(0), QPoint(300, 300));

    press({110, 110});
    moveTo({120, 130});
    view.resize(344, 204);
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    release({50, 50});

    view.resize(664, 384);
    press({110, 110});
    moveTo({120, 130});
    showOutput({3840, 2160}); // in a frame of the same size
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    release({120, 130});
    EXPECT_EQ(document.calls.filter("finishEdit"), QStringList());
}

TEST_F(LWCanvasImageViewArrange, AnUpdateThatBringsAnotherFrameEndsTheDragWithinIt)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    document.onUpdate = [this] { showOutput({1920, 1090}); };
    moveTo({120, 130});
    EXPECT_EQ(placeOf(0), QPoint(300, 300));
    document.onUpdate = nullptr;
    release({120, 130});
    EXPECT_EQ(document.calls.filter("finishEdit"), QStringList());
}

TEST_F(LWCanvasImageViewArrange, TheMarkerIsNeitherPaintedNorHitAndComesBack)
{
    selectStill({300, 200}, {600, 300});
    document.all = {document.layer};
    document.selection = {document.layer};
    LWScreen &wall = addWall({0, 0, 60, 60});
    document.selection.push_back(layer(1));
    view.showRectangle();
    const QPointF handle = view.cropMarker().selectedRect().bottomRight();
    const QPoint device = ((view.frame().topLeft() + handle) * ratio()).toPoint();
    const QColor knob = view.palette().color(QPalette::BrightText);
    EXPECT_EQ(seen().pixelColor(device), knob);
    view.setTool(Tool::Arrange);
    EXPECT_NE(seen().pixelColor(device), knob);
    press(handle - QPointF(3, 3));
    EXPECT_FALSE(view.cropMarker().isTracking());
    moveTo(handle + QPointF(17, 17));
    release(handle + QPointF(17, 17));
    EXPECT_EQ(placeOf(0), QPoint(360, 260));
    EXPECT_EQ(QPoint(wall.xpoint(), wall.ypoint()), QPoint(60, 60));
    EXPECT_FALSE(view.cropMarker().hide()); // rendering the wall has not hidden it
    view.setTool(Tool::Panels);
    view.cropMarker().setSelectedRect({100, 100, 50, 50});
    EXPECT_EQ(seen().pixelColor(((view.frame().topLeft() + QPointF(150, 150)) * ratio()).toPoint()), knob);
}

TEST_F(LWCanvasImageViewArrange, SelectedLayersHaveAnOutlineOutsideTheirEdge)
{
    addWall({300, 300, 60, 60});
    addWall({600, 600, 60, 60});
    document.selection = {layer(0)};
    EXPECT_NE(colourAt({300, 300}, {-1, -1}), accent);
    view.setTool(Tool::Arrange);
    EXPECT_EQ(colourAt({300, 300}, {-1, -1}), accent);
    EXPECT_EQ(colourAt({360, 360}, {0, 0}), accent);
    EXPECT_EQ(colourAt({300, 300}, {0, 0}), QColor(Qt::black));
    EXPECT_EQ(colourAt({360, 360}, {-1, -1}), QColor(Qt::black));
    EXPECT_EQ(colourAt({300, 300}, {-1 - lineWidth(), 0}), QColor(Qt::black));
    EXPECT_EQ(colourAt({600, 600}, {-1, -1}), QColor(Qt::black));
}

TEST_F(LWCanvasImageViewArrange, ADraggedLayersOutlineAndPlaceGoWithThePointer)
{
    addWall({300, 300, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({140, 110});
    EXPECT_EQ(colourAt({390, 300}, {-1, -1}), accent);
    const QPointF corner = QPointF(at(140, 110)) + QPointF(17, 17);
    EXPECT_EQ(seen().pixelColor((corner * ratio()).toPoint()), label);
    release({140, 110});
    EXPECT_NE(seen().pixelColor((corner * ratio()).toPoint()), label);
}

TEST_F(LWCanvasImageViewArrange, TheLineThatAttractsGoesAcrossTheCanvas)
{
    addWall({300, 300, 60, 60});
    addWall({900, 900, 60, 60});
    view.setTool(Tool::Arrange);
    press({110, 110});
    moveTo({307, 110}); // 891 to 900
    EXPECT_EQ(placeOf(0).x(), 900);
    const QImage picture = seen();
    const int x = placeOfOutput().x() + qRound(900 * ratio() / 3);
    EXPECT_EQ(picture.pixelColor(x, 0), accent);
    EXPECT_EQ(picture.pixelColor(x, picture.height() - 1), accent);
    EXPECT_NE(picture.pixelColor(x + lineWidth(), 0), accent);
    release({307, 110});
    EXPECT_NE(seen().pixelColor(x, 0), accent);
}

TEST_F(LWCanvasImageViewArrange, OutlinesOfLayersFarAwayDoNoHarm)
{
    LWScreen &wall = addWall({300, 300, 60, 60});
    wall.setXpoint(std::numeric_limits<int>::max());
    wall.setYpoint(std::numeric_limits<int>::min());
    wall.setScreenSizeWidth(std::numeric_limits<int>::max());
    document.selection = {layer(0)};
    const QImage before = seen();
    view.setTool(Tool::Arrange);
    view.setZoom(3200);
    view.zoomToFit();
    EXPECT_EQ(seen(), before);
    wall.setXpoint(std::numeric_limits<int>::min());
    wall.setYpoint(-5);
    wall.setScreenSizeWidth(std::numeric_limits<int>::max() - 1000);
    EXPECT_EQ(seen(), before);
}

TEST_F(LWCanvasImageViewArrange, WithoutAnOutputNothingIsTakenHoldOf)
{
    addWall({0, 0, 60, 60});
    view.setTool(Tool::Arrange);
    showOutput(QImage());
    document.calls.clear();
    QTest::mousePress(&view, Qt::LeftButton, {}, {100, 100});
    moveTo({120, 120});
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {120, 120});
    EXPECT_EQ(document.calls, QStringList());
    EXPECT_TRUE(document.selection.empty());
}
