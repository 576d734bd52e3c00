#include "canvas/tools/PanelPainting.h"
#include "tests/canvas/CanvasFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPalette>
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

/// Of a wall of as many rows as columns, row by row.
QStringList everyKey(int side)
{
    QStringList keys;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column)
            keys.append(QString("%1,%2").arg(row).arg(column));
    }
    return keys;
}
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
    EXPECT_EQ(edits(), QStringList("finishEdit switch panels"));

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
    EXPECT_EQ(edits(), QStringList("finishEdit switch panels"));
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
    EXPECT_EQ(edits(), QStringList("finishEdit switch panel"));
}

TEST_F(LWCanvasImageViewPanels, ALostReleaseKeepsWhatWasPainted)
{
    press(panel(1, 1));
    moveTo(panel(1, 2));
    moveTo(panel(1, 5), Qt::NoButton);
    moveTo(panel(2, 5), Qt::NoButton);
    EXPECT_EQ(off(), QStringList({"1,1", "1,2"}));
    EXPECT_EQ(edits(), QStringList("finishEdit switch panels"));
}

TEST_F(LWCanvasImageViewPanels, AWallOfPanelsWithoutASizeIsOnlyClicked)
{
    screen.setPanelWidth(-128);
    press({50, 50});
    moveTo({100, 50});
    release({100, 50});
    EXPECT_EQ(off().size(), 1);
}

TEST_F(LWCanvasImageViewPanels, ArrowsLeadACursorOverThePanelsAndEnterSwitches)
{
    view.setFocus();
    screen.setXpoint(300);
    QTest::keyClick(&view, Qt::Key_Right); // the first one
    EXPECT_EQ(view.readOut().pixel, QPoint(364, 64));
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(view.readOut().pixel, QPoint(300 + 128 + 64, 4 * 128 + 64));
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(off(), QStringList("4,1"));
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left); // no further
    QTest::keyClick(&view, Qt::Key_Enter);
    EXPECT_EQ(off(), QStringList({"4,1", "3,0"}));
    EXPECT_EQ(edits(), QStringList({"finishEdit switch panel", "finishEdit switch panel"}));
    EXPECT_EQ(document.calls.filter("nudge"), QStringList());
}

TEST_F(LWCanvasImageViewPanels, TheCursorIsSeenUntilThePointerMovesOrTheFocusGoes)
{
    QPalette colours = view.palette();
    const QColor accent(250, 10, 20);
    colours.setColor(QPalette::Highlight, accent);
    view.setPalette(colours);
    view.setFocus();
    const auto isSeen = [&] { // above the second panel of the second row, by two widths of a line
        const QPointF corner = view.frame().topLeft() + QPointF(60, 128 / 3.0);
        return seen().pixelColor((corner * ratio()).toPoint() - QPoint(0, 2 * static_cast<int>(ratio()))) == accent;
    };
    moveTo(panel(1, 0), Qt::NoButton);
    QTest::keyClick(&view, Qt::Key_Right); // from where the pointer is
    EXPECT_TRUE(isSeen());
    EXPECT_EQ(view.readOut().pixel, QPoint(192, 192));
    moveTo(panel(1, 1), Qt::NoButton);
    EXPECT_FALSE(isSeen()); // a thin line
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_TRUE(isSeen());
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(isSeen());
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Left);
    EXPECT_TRUE(isSeen());
    view.clearFocus();
    EXPECT_FALSE(isSeen());
}

TEST_F(LWCanvasImageViewPanels, TheCursorGoesOnAfterAMenu)
{
    const auto leaveFor = [this](Qt::FocusReason reason) {
        QFocusEvent away(QEvent::FocusOut, reason);
        QApplication::sendEvent(&view, &away);
        QTest::keyClick(&view, Qt::Key_Right);
        return view.readOut().pixel;
    };
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Right); // the first panel
    EXPECT_EQ(leaveFor(Qt::PopupFocusReason), QPoint(192, 64));
    EXPECT_EQ(leaveFor(Qt::MenuBarFocusReason), QPoint(320, 64));
    EXPECT_EQ(leaveFor(Qt::TabFocusReason), QPoint(64, 64)); // anew
}

TEST_F(LWCanvasImageViewPanels, TheCursorOutlivesAltButNotAMoveInArrange)
{
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyPress(&view, Qt::Key_Alt);
    QTest::keyRelease(&view, Qt::Key_Alt);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(view.readOut().pixel, QPoint(320, 64));
    view.setTool(LWCanvasImageView::Tool::Arrange);
    moveTo({-4, -4}, Qt::NoButton); // beside the output
    view.setTool(LWCanvasImageView::Tool::Panels);
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(view.readOut().pixel, QPoint(64, 64));
}

TEST_F(LWCanvasImageViewPanels, TheCursorBringsItsPanelIntoSight)
{
    view.setFocus();
    view.setZoom(400);
    QTest::keyClick(&view, Qt::Key_Down);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&view, Qt::Key_Right);
    const QRect place = view.deviceFrame().place();
    const QRect panel(place.topLeft() + QPoint(3 * 512, 0), QSize(512, 384));
    EXPECT_TRUE(QRect({0, 0}, view.deviceFrame().room()).contains(QRect(panel.topLeft(), QSize(300, 300))));
}

TEST_F(LWCanvasImageViewPanels, WithCtrlArrowsNudge)
{
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Right, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(document.calls.filter("nudge"), QStringList({"nudge 1,0", "nudge 0,-10"}));
    QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_Up, Qt::ControlModifier);
    shortcut.ignore();
    QApplication::sendEvent(&view, &shortcut);
    EXPECT_TRUE(shortcut.isAccepted()); // no layer is reordered
}

TEST_F(LWCanvasImageViewPanels, InArrangeOrOnAStillArrowsNudge)
{
    view.setFocus();
    view.setTool(LWCanvasImageView::Tool::Arrange);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ControlModifier); // the window's, where it has a use for it
    EXPECT_EQ(document.calls.filter("nudge"), QStringList({"nudge -1,0", "nudge 0,10"}));
    view.setTool(LWCanvasImageView::Tool::Panels);
    selectStill({0, 0}, {60, 30});
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(document.calls.filter("nudge").last(), "nudge 1,0");
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(edits(), QStringList());
}

TEST_F(LWCanvasImageViewPanels, ARectangleOverManyPanelsFollowsThePointer)
{
    constexpr int side = 300;
    CanvasTestDocument large;
    large.rendersOnUpdate = false;
    const auto wall = std::make_shared<LWScreen>(large);
    wall->setCol(side);
    wall->setRow(side);
    wall->setPanelWidth(1);
    wall->setPanelHeight(1);
    wall->setHiddenBoxes(QStringList{"7,5", "299,0"});
    PanelPainting painting(large, wall, {0, 0});
    for (int at = 20; at < side; at += 20)
        painting.track({at, at}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes()->size(), 281 * 281 + 1);
    painting.track({0, 299}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes()->size(), 301);
    painting.track({9, 298}, PanelPainting::Shape::Rectangle);
    painting.finish();

    QStringList expected{"7,5", "299,0"};
    for (int row = 0; row < 299; ++row) {
        for (int column = 0; column < 10; ++column) {
            if (row != 7 || column != 5)
                expected.append(QString("%1,%2").arg(row).arg(column));
        }
    }
    EXPECT_TRUE(*wall->hiddenBoxes() == expected);
    EXPECT_EQ(large.calls.last(), "finishEdit switch panels");

    wall->setHiddenBoxes(everyKey(side));
    PanelPainting back(large, wall, {0, 0});
    for (int at = 60; at < side; at += 60)
        back.track({at, at}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes()->size(), side * side - 241 * 241);
    back.track({299, 297}, PanelPainting::Shape::Rectangle);
    back.finish();
    expected = everyKey(side);
    expected.remove(0, side * 298);
    EXPECT_TRUE(*wall->hiddenBoxes() == expected);
}

TEST_F(LWCanvasImageViewPanels, ARectangleThatSwitchesOnGivesBackWhatItLeaves)
{
    CanvasTestDocument another;
    another.rendersOnUpdate = false;
    const auto wall = std::make_shared<LWScreen>(another);
    wall->setCol(8);
    wall->setRow(8);
    wall->setPanelWidth(1);
    wall->setPanelHeight(1);
    wall->setHiddenBoxes(QStringList{"5,5", "1,1", "9,9", "2,2", "1,1"});
    PanelPainting painting(another, wall, {1, 1});
    painting.track({6, 6}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes(), QStringList("9,9"));
    painting.track({3, 3}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes(), QStringList({"5,5", "9,9"}));
    painting.track({1, 2}, PanelPainting::Shape::Stroke);
    EXPECT_EQ(wall->hiddenBoxes(), QStringList({"5,5", "9,9", "2,2"}));
    painting.cancel();
    EXPECT_EQ(wall->hiddenBoxes(), QStringList({"5,5", "1,1", "9,9", "2,2", "1,1"}));
}

TEST_F(LWCanvasImageViewPanels, ARectangleThatSwitchesOnMayLeaveAFewAndTakeOthers)
{
    CanvasTestDocument another;
    another.rendersOnUpdate = false;
    const auto wall = std::make_shared<LWScreen>(another);
    wall->setCol(4);
    wall->setRow(4);
    wall->setPanelWidth(1);
    wall->setPanelHeight(1);
    wall->setHiddenBoxes(QStringList{"0,0", "2,3", "odd", "3,2", "1,1", "3,3"});
    PanelPainting painting(another, wall, {0, 0});
    painting.track({2, 3}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes(), QStringList({"2,3", "odd", "3,3"}));
    painting.track({3, 2}, PanelPainting::Shape::Rectangle);
    EXPECT_EQ(wall->hiddenBoxes(), QStringList({"odd", "3,2", "3,3"}));
    painting.finish();
    EXPECT_EQ(wall->hiddenBoxes(), QStringList({"odd", "3,2", "3,3"}));
}
