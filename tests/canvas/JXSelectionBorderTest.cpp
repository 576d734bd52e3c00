#include "canvas/JXSelectionBorder.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace {
using Handle = JXSelectionBorder::Handle;

/// Middle at (140, 80).
const QRectF frameRect(100, 60, 80, 40);
} // namespace

TEST(JXSelectionBorder, BeginsWithItsStartValues)
{
    const JXSelectionBorder border;

    EXPECT_EQ(border.selectedRect(), QRectF(0, 0, 0, 0));
    EXPECT_EQ(border.minSize(), QSizeF(100, 100));
    EXPECT_EQ(border.aspectRatio(), QSizeF(1, 1));
    EXPECT_FALSE(border.lockAspectRatio());
    EXPECT_EQ(border.borderWidth(), 1.0);
    EXPECT_EQ(border.gridLineNumber(), 2U);
    EXPECT_TRUE(border.drawingGrids());
    EXPECT_TRUE(border.drawingFill());
    EXPECT_TRUE(border.drawingHandles());
    EXPECT_FALSE(border.canDrawOffView());
    EXPECT_EQ(border.dashStyle(), 1);
    EXPECT_EQ(border.borderColor().toQColor(), QGuiApplication::palette().color(QPalette::Highlight));
    EXPECT_EQ(border.fillColor(), Colour::gray(1, 0));
    EXPECT_FALSE(border.hide());
    EXPECT_EQ(border.kScaleFactor(), 0.0F);
}

TEST(JXSelectionBorder, TakesAColourForItsOutlineAndNoFill)
{
    JXSelectionBorder border;
    border.setFillColor(NamedColour::green);
    border.setColors(NamedColour::red);

    EXPECT_EQ(border.borderColor(), NamedColour::red);
    EXPECT_EQ(border.fillColor(), Colour::gray(1, 0));
}

TEST(JXSelectionBorder, LocksOnlyToARealRatio)
{
    JXSelectionBorder border;
    EXPECT_FALSE(border.canLockAspectRatio());
    border.setLockAspectRatio(true);
    EXPECT_TRUE(border.canLockAspectRatio());
    for (const QSizeF &none : {QSizeF(0, 0), QSizeF(16, 0), QSizeF(0, 9), QSizeF(-16, 9)}) {
        border.setAspectRatio(none);
        EXPECT_FALSE(border.canLockAspectRatio()) << none.width() << ' ' << none.height();
    }
}

TEST(JXSelectionBorder, HandlesStandRoundTheRectangleByTheirNumbers)
{
    const QPointF places[] = {{100, 60}, {140, 60},  {180, 60},  {100, 80},
                              {180, 80}, {100, 100}, {140, 100}, {180, 100}};
    for (int number = 1; number <= JXSelectionBorder::handleCount; ++number) {
        const auto handle = static_cast<Handle>(number);
        EXPECT_EQ(JXSelectionBorder::locationOfHandle(handle, frameRect), places[number - 1]) << number;
        EXPECT_EQ(JXSelectionBorder::handleAtPoint(places[number - 1], frameRect), handle) << number;
    }
}

TEST(JXSelectionBorder, AHandleIsTenUnitsWide)
{
    const QPointF middle(140, 60);
    EXPECT_TRUE(JXSelectionBorder::isPointWithinHandleAtPoint({135, 55}, middle));
    EXPECT_TRUE(JXSelectionBorder::isPointWithinHandleAtPoint({144.9, 64.9}, middle));
    EXPECT_FALSE(JXSelectionBorder::isPointWithinHandleAtPoint({145, 60}, middle));
    EXPECT_FALSE(JXSelectionBorder::isPointWithinHandleAtPoint({140, 65}, middle));
    EXPECT_FALSE(JXSelectionBorder::isPointWithinHandleAtPoint({134.9, 60}, middle));
    EXPECT_FALSE(JXSelectionBorder::isPointWithinHandleAtPoint({140, 54.9}, middle));
    EXPECT_TRUE(JXSelectionBorder::isPointWithinHandle({184, 84}, Handle::MiddleRight, frameRect));
    EXPECT_FALSE(JXSelectionBorder::isPointWithinHandle({184, 84}, Handle::BottomRight, frameRect));
}

TEST(JXSelectionBorder, WhereHandlesOverlapTheLowestNumberIsHit)
{
    const QRectF small(10, 10, 4, 4);
    EXPECT_EQ(JXSelectionBorder::handleAtPoint({12, 12}, small), Handle::TopLeft);
    EXPECT_EQ(JXSelectionBorder::handleAtPoint({18, 12}, small), Handle::TopRight);
    EXPECT_EQ(JXSelectionBorder::handleAtPoint({18, 18}, small), Handle::BottomRight);
}

TEST(JXSelectionBorder, NoHandleIsHitBetweenThem)
{
    EXPECT_EQ(JXSelectionBorder::handleAtPoint({120, 80}, frameRect), Handle::None);
    EXPECT_EQ(JXSelectionBorder::handleAtPoint({10, 10}, frameRect), Handle::None);
}

TEST(JXSelectionBorder, TheFrameHoldsItsLeftAndTopEdgeOnly)
{
    JXSelectionBorder border;
    border.setSelectedRect(frameRect);
    Handle handle = Handle::None;

    EXPECT_TRUE(border.mouseIsInFrame({100, 60}, handle));
    EXPECT_EQ(handle, Handle::TopLeft);
    EXPECT_TRUE(border.mouseIsInFrame({120, 80}, handle));
    EXPECT_EQ(handle, Handle::None);
    EXPECT_FALSE(border.mouseIsInFrame({180, 80}, handle));
    EXPECT_EQ(handle, Handle::MiddleRight);
    EXPECT_FALSE(border.mouseIsInFrame({140, 100}, handle));
    EXPECT_EQ(handle, Handle::BottomMiddle);
    EXPECT_FALSE(border.mouseIsInFrame({300, 300}, handle));
    EXPECT_EQ(handle, Handle::None);
}
