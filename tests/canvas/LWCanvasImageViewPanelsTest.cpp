#include "tests/canvas/CanvasFixture.h"

#include <QTest>

namespace {
/// Panels of the selected wall of 8 x 5, painted by dragging. A unit of the view is 3 output pixels.
class LWCanvasImageViewPanels : public CanvasFixture
{
protected:
    LWCanvasImageViewPanels() : screen(selectScreen()) { screen.setHiddenBoxes(QStringList()); }

    /// The middle of a panel, in the view.
    static QPointF panel(int row, int column) { return QPointF(column * 128 + 64, row * 128 + 64) / 3; }
    QStringList off() const { return screen.hiddenBoxes().value(); }
    QStringList edits() const { return document.calls.filter("finishEdit"); }

    LWScreen &screen;
};
} // namespace

TEST_F(LWCanvasImageViewPanels, ADragGivesAllPanelsTheStateOfTheFirst)
{
    screen.setHiddenBoxes(QStringList({"1,2", "4,7"}));
    press(panel(1, 1));
    EXPECT_EQ(off(), QStringList({"1,2", "4,7", "1,1"}));
    moveTo(panel(1, 2));
    moveTo(panel(1, 3));
    EXPECT_EQ(off(), QStringList({"1,2", "4,7", "1,1", "1,3"}));
    moveTo(panel(2, 3));
    moveTo(panel(2, 2));
    moveTo(panel(1, 2)); // again
    EXPECT_EQ(edits(), QStringList());
    release(panel(1, 2));
    EXPECT_EQ(off(), QStringList({"1,2", "4,7", "1,1", "1,3", "2,3", "2,2"}));
    EXPECT_EQ(edits(), QStringList("finishEdit Switch Panels"));

    press(panel(1, 3));
    moveTo(panel(1, 0)); // over a panel that is on
    release(panel(1, 0));
    EXPECT_EQ(off(), QStringList({"4,7", "2,3", "2,2"}));
    EXPECT_EQ(edits().size(), 2);
}

TEST_F(LWCanvasImageViewPanels, AFastDragLeavesNoneOut)
{
    press(panel(0, 0));
    moveTo(panel(4, 4));
    moveTo({-40, 4 * 128 / 3.0}); // out of the wall
    moveTo(panel(0, 6));
    release(panel(0, 6));
    for (const char *key : {"0,0", "1,1", "2,2", "3,3", "4,4", "4,3", "4,2", "4,1", "4,0", "0,6", "1,4"})
        EXPECT_TRUE(off().contains(key)) << key;
    QStringList keys = off();
    EXPECT_EQ(keys.removeDuplicates(), 0);
}

TEST_F(LWCanvasImageViewPanels, WithShiftItIsARectangle)
{
    screen.setHiddenBoxes(QStringList("3,3"));
    press(panel(3, 2), Qt::LeftButton, Qt::ShiftModifier);
    moveTo(panel(1, 4), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(off(), QStringList({"3,3", "1,2", "1,3", "1,4", "2,2", "2,3", "2,4", "3,2", "3,4"}));
    moveTo({600, 1000 / 3.0}, Qt::LeftButton, Qt::ShiftModifier); // beyond the last panel
    EXPECT_EQ(off().size(), 12);
    EXPECT_TRUE(off().contains("3,7"));
    EXPECT_FALSE(off().contains("1,2"));
    release(panel(2, 3), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(edits(), QStringList("finishEdit Switch Panels"));
}

TEST_F(LWCanvasImageViewPanels, ShiftCountsFromWhenItIsPressedUntilItIsReleased)
{
    press(panel(0, 0));
    moveTo(panel(1, 1));
    QTest::keyPress(&view, Qt::Key_Shift);
    EXPECT_EQ(off(), QStringList({"0,0", "0,1", "1,0", "1,1"}));
    QTest::keyRelease(&view, Qt::Key_Shift);
    EXPECT_EQ(off(), QStringList({"0,0", "1,1"}));
    release(panel(1, 1));
}

TEST_F(LWCanvasImageViewPanels, EscapeTakesAllOfItBack)
{
    screen.setHiddenBoxes(std::nullopt);
    press(panel(1, 1));
    moveTo(panel(3, 1));
    EXPECT_EQ(off().size(), 3);
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_EQ(screen.hiddenBoxes(), std::nullopt);
    moveTo(panel(4, 4));
    release(panel(4, 4));
    EXPECT_EQ(screen.hiddenBoxes(), std::nullopt);
    EXPECT_EQ(edits(), QStringList());
}

TEST_F(LWCanvasImageViewPanels, AClickThatShakesOverAnEdgeSwitchesOne)
{
    press({42, 20}); // the last unit of the first column
    moveTo({44, 20});
    release({44, 20});
    EXPECT_EQ(off(), QStringList("0,0"));
    EXPECT_EQ(edits(), QStringList("finishEdit Switch Panel"));
}

TEST_F(LWCanvasImageViewPanels, ALostReleaseKeepsWhatWasPainted)
{
    press(panel(1, 1));
    moveTo(panel(1, 2));
    moveTo(panel(1, 5), Qt::NoButton);
    moveTo(panel(2, 5), Qt::NoButton);
    EXPECT_EQ(off(), QStringList({"1,1", "1,2"}));
    EXPECT_EQ(edits(), QStringList("finishEdit Switch Panels"));
}

TEST_F(LWCanvasImageViewPanels, AWallOfPanelsWithoutASizeIsOnlyClicked)
{
    screen.setPanelWidth(-128);
    press({50, 50});
    moveTo({100, 50});
    release({100, 50});
    EXPECT_EQ(off().size(), 1);
}
