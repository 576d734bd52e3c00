#include "canvas/JXSelectionBorder.h"
#include "tests/base/LogLines.h"
#include "tests/canvas/CanvasFixture.h"

#include <QLoggingCategory>

#include <limits>

namespace {
using Handle = JXSelectionBorder::Handle;

constexpr int windowHeight = 1000;

/// A still at (100, 50) of 400 x 200 whose marker stands at (51, 26) with half its size, in a view of 960 x 540.
class JXSelectionBorderTracking : public ::testing::Test
{
protected:
    JXSelectionBorderTracking()
    {
        document.outputSize = {1928, 1090};
        still = LWStill::initWithimage(document, picturedNoise({400, 200}));
        still->setXpoint(100);
        still->setYpoint(50);
        border.setSelectedRect({51, 26, 200, 100});
        border.setKScaleFactor(3);
    }

    /// The view lies at the top left of its window.
    static JXSelectionBorder::MouseLocation at(const QPointF &inView)
    {
        return {{inView.x(), windowHeight - inView.y()}, inView};
    }
    void press(const QPointF &point) { border.selectAndTrackMouseWithEvent(at(point), still); }
    void moveTo(const QPointF &point) { border.trackMouse(at(point), viewBounds); }
    void release(const QPointF &point)
    {
        const JXSelectionBorder::Outcome outcome = border.endTracking(at(point), viewBounds);
        JXSelectionBorder::apply(outcome, document);
    }
    QPoint place() const { return {still->xpoint(), still->ypoint()}; }
    QSize size() const { return {still->panelWidth(), still->panelHeight()}; }

    CanvasTestDocument document;
    std::shared_ptr<LWStill> still;
    JXSelectionBorder border;
    const QRectF viewBounds{0, 0, 960, 540};
};
} // namespace

TEST_F(JXSelectionBorderTracking, WithAFactorOfThreeTenRightAndFiveDownAreThirtyAndFifteenPixels)
{
    press({120, 70});
    release({130, 75});

    EXPECT_EQ(place(), QPoint(130, 65));
    EXPECT_EQ(size(), QSize(400, 200));
    EXPECT_EQ(document.calls, QStringList("finishEdit move image"));
}

TEST_F(JXSelectionBorderTracking, TheStillMovesOnceAtTheRelease)
{
    press({120, 70});
    moveTo({125, 75});
    moveTo({150, 99});

    EXPECT_EQ(place(), QPoint(100, 50));
    EXPECT_EQ(border.selectedRect(), QRectF(51, 26, 200, 100));
    EXPECT_TRUE(document.calls.isEmpty());
    EXPECT_EQ(border.trackedPlace()->topLeft, QPoint(190, 137));
    release({119, 68});
    EXPECT_EQ(place(), QPoint(97, 44));
}

TEST_F(JXSelectionBorderTracking, HandlesAreHiddenWhileTheStillMoves)
{
    press({120, 70});
    EXPECT_FALSE(border.drawingHandles());
    release({120, 70});
    EXPECT_TRUE(border.drawingHandles());
    press({51, 26});
    EXPECT_TRUE(border.drawingHandles());
}

TEST_F(JXSelectionBorderTracking, WholeUnitsOfTheWindowCount)
{
    press({120.9, 69.8}); // 120 from the left, 930 from the bottom
    release({130.1, 74.1});
    EXPECT_EQ(place(), QPoint(130, 65));
}

TEST_F(JXSelectionBorderTracking, PixelsAreCutTowardsZero)
{
    border.setKScaleFactor(1.5F);
    press({120, 70});
    release({123, 67});
    EXPECT_EQ(place(), QPoint(104, 46));
}

TEST_F(JXSelectionBorderTracking, PlacesBeyondAllNumbersEndAtTheLast)
{
    still->setXpoint(std::numeric_limits<int>::max() - 5);
    still->setYpoint(std::numeric_limits<int>::min() + 5);
    press({120, 70});
    release({150, 40});
    EXPECT_EQ(place(), QPoint(std::numeric_limits<int>::max(), std::numeric_limits<int>::min()));
}

TEST_F(JXSelectionBorderTracking, AScreenIsNamedInTheLogAndDoesNotMove)
{
    QLoggingCategory::setFilterRules("wallwright.canvas.debug=true");
    const LogLines log;
    const auto screen = LWScreen::initWithrow(document, {});
    border.selectAndTrackMouseWithEvent(at({120, 70}), screen);
    EXPECT_FALSE(border.isTracking());
    press({120, 70});
    EXPECT_EQ(log.lines(), QStringList({"class=LWScreen", "class=LWStill"}));
    QLoggingCategory::setFilterRules({});
}

TEST_F(JXSelectionBorderTracking, AHandleResizesTheStillByTheViewsScale)
{
    press({251, 126});
    moveTo({300, 200});
    EXPECT_EQ(size(), QSize(400, 200));
    EXPECT_EQ(border.selectedRect(), QRectF(51, 26, 249, 174));
    EXPECT_EQ(border.trackedPlace()->size, QSize(498, 348));
    release({351.4, 176.8});

    EXPECT_EQ(size(), QSize(600, 301)); // 300.4 and 150.8 at half the output's size
    EXPECT_EQ(place(), QPoint(100, 50));
    EXPECT_EQ(document.calls, QStringList("finishEdit resize image"));
}

TEST_F(JXSelectionBorderTracking, TheSizeComesLaterThanTheRelease)
{
    press({251, 126});
    const auto outcome = border.endTracking(at({351, 176}), viewBounds);
    EXPECT_FALSE(border.isTracking());
    EXPECT_EQ(size(), QSize(400, 200));
    EXPECT_TRUE(document.calls.isEmpty());
    JXSelectionBorder::apply(outcome, document);
    EXPECT_EQ(size(), QSize(600, 300));
}

TEST_F(JXSelectionBorderTracking, TheHandleThatATurnGaveStaysInTheHand)
{
    press({251, 126});
    moveTo({251, 10}); // over the top edge
    moveTo({40, 10});  // and over the left one
    release({30, 6});
    EXPECT_EQ(border.selectedRect(), QRectF(30, 6, 21, 20));
    EXPECT_EQ(size(), QSize(42, 40));
}

TEST_F(JXSelectionBorderTracking, OutsideOfTheRectangleNothingIsTakenHoldOf)
{
    press({500, 300});
    EXPECT_TRUE(border.isTracking());
    EXPECT_FALSE(border.trackedPlace());
    moveTo({600, 400});
    release({600, 400});
    EXPECT_EQ(border.selectedRect(), QRectF(51, 26, 200, 100));
    EXPECT_EQ(place(), QPoint(100, 50));
    EXPECT_EQ(size(), QSize(400, 200));
}

TEST_F(JXSelectionBorderTracking, WithoutARectangleNothingIsTracked)
{
    border.setSelectedRect({0, 0, 0, 0});
    press({0, 0});
    EXPECT_FALSE(border.isTracking());
}

TEST_F(JXSelectionBorderTracking, CalledOffADragLeavesEverythingAsItWas)
{
    press({251, 126});
    moveTo({300, 200});
    border.cancelTracking();
    EXPECT_FALSE(border.isTracking());
    EXPECT_EQ(border.selectedRect(), QRectF(51, 26, 200, 100));
    press({120, 70});
    moveTo({300, 200});
    border.cancelTracking();
    EXPECT_EQ(place(), QPoint(100, 50));
    EXPECT_TRUE(border.drawingHandles());
    EXPECT_TRUE(document.calls.isEmpty());
}

TEST_F(JXSelectionBorderTracking, AHandleThatIsOnlyTouchedResizesNothing)
{
    // Many of these scales and lengths do not give the whole number back in single precision.
    for (const QSizeF frame : {QSizeF(640, 360), QSizeF(1000, 563), QSizeF(777, 437)}) {
        document.frameWithoutView = frame;
        for (int length = 1; length < 3000; ++length) {
            still->setPanelWidth(length);
            still->setPanelHeight(length);
            const float drawn = static_cast<float>(length) * still->calculateCoeff().coefficient;
            border.setSelectedRect({0, 0, drawn, drawn});
            press({0, 0});
            release({0, 0});
            ASSERT_EQ(size(), QSize(length, length)) << frame.width();
        }
    }
}

TEST_F(JXSelectionBorderTracking, AViewWithoutAScaleResizesNothing)
{
    document.frameWithoutView = {0, 0};
    press({251, 126});
    release({300, 200});
    EXPECT_EQ(size(), QSize(400, 200));
}
