#include "canvas/JXSelectionBorder.h"

#include <gtest/gtest.h>

namespace {
using Handle = JXSelectionBorder::Handle;

/// A rectangle with left 100, top 60, right 180 and bottom 100 in a view of 640 x 360.
class JXSelectionBorderResizing : public ::testing::Test
{
protected:
    JXSelectionBorderResizing() { border.setSelectedRect({100, 60, 80, 40}); }

    void lock(const QSizeF &ratio)
    {
        border.setLockAspectRatio(true);
        border.setAspectRatio(ratio);
    }

    Handle pull(Handle handle, const QPointF &point) { return border.resizeByMovingHandle(handle, point, viewBounds); }

    struct Case
    {
        Handle handle;
        QPointF point;
        QRectF rectangle;
        Handle held;
    };
    /// Each from the same rectangle.
    void expect(const std::vector<Case> &cases)
    {
        const QRectF before = border.selectedRect();
        for (const Case &each : cases) {
            border.setSelectedRect(before);
            SCOPED_TRACE(static_cast<int>(each.handle));
            EXPECT_EQ(pull(each.handle, each.point), each.held);
            EXPECT_EQ(border.selectedRect(), each.rectangle);
        }
        border.setSelectedRect(before);
    }

    JXSelectionBorder border;
    const QRectF viewBounds{0, 0, 640, 360};
};
} // namespace

TEST_F(JXSelectionBorderResizing, EachHandleMovesItsEdges)
{
    expect({{Handle::TopLeft, {90, 50}, {90, 50, 90, 50}, Handle::TopLeft},
            {Handle::TopMiddle, {90, 50}, {100, 50, 80, 50}, Handle::TopMiddle},
            {Handle::TopRight, {200, 50}, {100, 50, 100, 50}, Handle::TopRight},
            {Handle::MiddleLeft, {90, 50}, {90, 60, 90, 40}, Handle::MiddleLeft},
            {Handle::MiddleRight, {200, 50}, {100, 60, 100, 40}, Handle::MiddleRight},
            {Handle::BottomLeft, {90, 120}, {90, 60, 90, 60}, Handle::BottomLeft},
            {Handle::BottomMiddle, {90, 120}, {100, 60, 80, 60}, Handle::BottomMiddle},
            {Handle::BottomRight, {200, 120}, {100, 60, 100, 60}, Handle::BottomRight}});
}

TEST_F(JXSelectionBorderResizing, WithoutAHandleTheRectangleKeepsItsSize)
{
    expect({{Handle::None, {300, 300}, {100, 60, 80, 40}, Handle::None}});
    lock({3, 1});
    expect({{Handle::None, {300, 300}, {100, 60, 80, 40}, Handle::None}});
}

TEST_F(JXSelectionBorderResizing, PulledSidewaysThroughItselfTheHandleChangesSides)
{
    expect({{Handle::TopLeft, {200, 50}, {180, 50, 20, 50}, Handle::TopRight},
            {Handle::TopRight, {70, 50}, {70, 50, 30, 50}, Handle::TopLeft},
            {Handle::MiddleLeft, {200, 50}, {180, 60, 20, 40}, Handle::MiddleRight},
            {Handle::MiddleRight, {70, 50}, {70, 60, 30, 40}, Handle::MiddleLeft},
            {Handle::BottomLeft, {200, 120}, {180, 60, 20, 60}, Handle::BottomRight},
            {Handle::BottomRight, {70, 120}, {70, 60, 30, 60}, Handle::BottomLeft}});
}

TEST_F(JXSelectionBorderResizing, PulledUpOrDownThroughItselfTheHandleChangesBetweenTopAndBottom)
{
    expect({{Handle::TopLeft, {90, 130}, {90, 100, 90, 30}, Handle::BottomLeft},
            {Handle::TopMiddle, {90, 130}, {100, 100, 80, 30}, Handle::BottomMiddle},
            {Handle::TopRight, {200, 130}, {100, 100, 100, 30}, Handle::BottomRight},
            {Handle::BottomLeft, {90, 20}, {90, 20, 90, 40}, Handle::TopLeft},
            {Handle::BottomMiddle, {90, 20}, {100, 20, 80, 40}, Handle::TopMiddle},
            {Handle::BottomRight, {200, 20}, {100, 20, 100, 40}, Handle::TopRight}});
}

TEST_F(JXSelectionBorderResizing, TurnedOverBothWaysAtOnceTheVerticalTurnNamesTheHandle)
{
    expect({{Handle::TopLeft, {200, 130}, {180, 100, 20, 30}, Handle::BottomLeft},
            {Handle::TopRight, {70, 130}, {70, 100, 30, 30}, Handle::BottomRight},
            {Handle::BottomLeft, {200, 20}, {180, 20, 20, 40}, Handle::TopLeft},
            {Handle::BottomRight, {70, 20}, {70, 20, 30, 40}, Handle::TopRight}});
}

TEST_F(JXSelectionBorderResizing, TheBottomRightHandlePulledPastTheTopLeftOneBecomesIt)
{
    Handle held = Handle::BottomRight;
    for (const QPointF &point :
         {QPointF(170, 80), QPointF(150, 50), QPointF(110, 30), QPointF(90, 30), QPointF(70, 20)}) {
        held = pull(held, point);
        EXPECT_GT(border.selectedRect().width(), 0);
        EXPECT_GT(border.selectedRect().height(), 0);
    }

    EXPECT_EQ(held, Handle::TopLeft);
    EXPECT_EQ(border.selectedRect(), QRectF(70, 20, 30, 40));
}

TEST_F(JXSelectionBorderResizing, ThePointIsKeptInTheView)
{
    expect({{Handle::TopLeft, {-30, -20}, {0, 0, 180, 100}, Handle::TopLeft},
            {Handle::BottomRight, {700, 400}, {100, 60, 540, 300}, Handle::BottomRight}});
    border.setDrawingOffView(true);
    expect({{Handle::TopLeft, {-30, -20}, {-30, -20, 210, 120}, Handle::TopLeft},
            {Handle::BottomRight, {700, 400}, {100, 60, 600, 340}, Handle::BottomRight}});
}

TEST_F(JXSelectionBorderResizing, LockedAtTwoToOneAWidthOf300GivesAHeightOf150)
{
    lock({2, 1});
    expect({{Handle::MiddleRight, {400, 70}, {100, 60, 300, 150}, Handle::MiddleRight}});
}

TEST_F(JXSelectionBorderResizing, LockedEachHandleKeepsTheRatio)
{
    lock({2, 1});
    expect({{Handle::TopLeft, {60, 0}, {60, 40, 120, 60}, Handle::TopLeft}, // the bottom edge stays
            {Handle::TopRight, {200, 20}, {100, 60, 100, 50}, Handle::TopRight},
            {Handle::MiddleLeft, {60, 0}, {60, 60, 120, 60}, Handle::MiddleLeft},
            {Handle::BottomLeft, {60, 140}, {60, 60, 120, 60}, Handle::BottomLeft},
            {Handle::BottomMiddle, {0, 130}, {100, 60, 140, 70}, Handle::BottomMiddle},
            {Handle::BottomRight, {200, 140}, {100, 60, 160, 80}, Handle::BottomRight}, // the height decides
            {Handle::BottomRight, {200, 100}, {100, 60, 100, 50}, Handle::BottomRight}});
}

TEST_F(JXSelectionBorderResizing, LockedTheTopEdgeAloneDoesNotMove)
{
    lock({2, 1});
    expect({{Handle::TopLeft, {100, 0}, {100, 60, 80, 40}, Handle::TopLeft},
            {Handle::TopMiddle, {0, 10}, {100, 60, 80, 40}, Handle::TopMiddle}});
}

TEST_F(JXSelectionBorderResizing, ARectangleOfAnotherRatioTakesTheLockedOne)
{
    border.setSelectedRect({100, 60, 80, 60});
    lock({2, 1});
    expect({{Handle::TopMiddle, {0, 10}, {100, 60, 120, 60}, Handle::TopMiddle},
            {Handle::TopLeft, {100, 0}, {100, 80, 80, 40}, Handle::TopLeft}});
}

TEST_F(JXSelectionBorderResizing, LockedItEndsWithinTheView)
{
    lock({2, 1});
    border.setSelectedRect({500, 60, 80, 40});
    expect({{Handle::BottomMiddle, {500, 400}, {500, 60, 140, 70}, Handle::BottomMiddle}});
    border.setSelectedRect({100, 300, 80, 40});
    expect({{Handle::MiddleRight, {400, 300}, {100, 300, 120, 60}, Handle::MiddleRight}});
    border.setSelectedRect({300, 20, 80, 40});
    expect({{Handle::TopLeft, {100, 20}, {100, 0, 280, 140}, Handle::TopLeft}});
}

TEST_F(JXSelectionBorderResizing, LockedAndAllowedOffTheViewItKeepsItsSize)
{
    lock({2, 1});
    border.setDrawingOffView(true);
    border.setSelectedRect({500, 60, 80, 40});
    expect({{Handle::BottomMiddle, {500, 400}, {500, 60, 680, 340}, Handle::BottomMiddle}});
    border.setSelectedRect({300, 20, 80, 40});
    expect({{Handle::TopLeft, {100, 20}, {100, -80, 280, 140}, Handle::TopLeft}});
}

TEST_F(JXSelectionBorderResizing, LockedAndPulledThroughItselfItsSizeStaysPositive)
{
    lock({2, 1});
    expect({{Handle::MiddleRight, {50, 60}, {100, 35, 50, 25}, Handle::MiddleRight},
            {Handle::BottomMiddle, {0, 30}, {100, 30, 60, 30}, Handle::TopMiddle},
            {Handle::BottomLeft, {300, 100}, {180, 0, 120, 60}, Handle::TopLeft},
            {Handle::TopLeft, {300, 0}, {180, 40, 120, 60}, Handle::BottomLeft}});
}

TEST_F(JXSelectionBorderResizing, NoDragWhateverMakesItNegativeOrEndless)
{
    for (const bool isLocked : {false, true}) {
        border.setLockAspectRatio(isLocked);
        border.setAspectRatio({3, 7});
        for (int number = 0; number <= JXSelectionBorder::handleCount; ++number) {
            border.setSelectedRect({100, 60, 80, 40});
            Handle held = static_cast<Handle>(number);
            for (int i = 0; i < 400; ++i) {
                held = pull(held, QPointF(i * 7919 % 900 - 100, i * 104729 % 700 - 100));
                const QRectF now = border.selectedRect();
                ASSERT_GE(now.width(), 0) << number << " step " << i;
                ASSERT_GE(now.height(), 0) << number << " step " << i;
                ASSERT_LE(now.right(), 640.000001) << number << " step " << i;
                ASSERT_GE(now.x(), 0) << number << " step " << i;
            }
        }
    }
}

TEST_F(JXSelectionBorderResizing, AnUnlockedFrameIsLeftAsItIs)
{
    const QRectF outside(600, -20, 100, 400);
    EXPECT_EQ(border.frameRectForGraphicBounds(outside, false, Handle::BottomRight, viewBounds), outside);
}

TEST_F(JXSelectionBorderResizing, ShiftedItStaysInTheViewUnlessItMayLeave)
{
    border.translateBy(10, -5, viewBounds);
    EXPECT_EQ(border.selectedRect(), QRectF(110, 55, 80, 40));
    border.translateBy(-200, -200, viewBounds);
    EXPECT_EQ(border.selectedRect(), QRectF(0, 0, 80, 40));
    border.translateBy(600, 400, viewBounds);
    EXPECT_EQ(border.selectedRect(), QRectF(560, 320, 80, 40));
    border.setDrawingOffView(true);
    border.translateBy(100, -400, viewBounds);
    EXPECT_EQ(border.selectedRect(), QRectF(660, -80, 80, 40));
}
