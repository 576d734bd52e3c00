#include "canvas/LWCanvasImageView.h"
#include "formats/PresetLibrary.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/app/RedrawGate.h"
#include "tests/windows/InspectorFixture.h"

#include <QApplication>
#include <QTest>
#include <QtMath>

#include <cmath>

/// The marker that the canvas has around a selected picture, whatever is done with the show.
class MarkerTest : public InspectorFixture
{
protected:
    MarkerTest() { addStill(); }

    bool isMarkerShown()
    {
        QApplication::processEvents(); // a selection in the middle of an edit is told when that is over
        return !canvas().cropMarker().hide();
    }
    QRectF marker() { return canvas().cropMarker().selectedRect(); }
    LWStill &still() { return static_cast<LWStill &>(*shown()); }
    /// Where the marker has to be: the picture as large as it is, at its place.
    QRectF expected()
    {
        still().placeMarker();
        return still().marker().rectangle;
    }
    void waitForRedraws() { ::waitForRedraws(window.document()); }
    void dragBy(const QPointF &from, const QPoint &way)
    {
        const QPoint place = (canvas().frame().topLeft() + from).toPoint();
        QTest::mousePress(&canvas(), Qt::LeftButton, {}, place);
        QTest::mouseMove(&canvas(), place + way);
        QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, place + way);
    }
};

TEST_F(MarkerTest, IsShownForPicturesAlone)
{
    EXPECT_TRUE(isMarkerShown());
    list().setSelectionIndex(0);
    EXPECT_FALSE(isMarkerShown());
    list().setSelectionIndex(1);
    EXPECT_TRUE(isMarkerShown());
    window.document().remove();
    EXPECT_FALSE(isMarkerShown());
}

TEST_F(MarkerTest, GoesWithTheLastLayer)
{
    list().setSelectionIndexes({0, 1}, 1);
    ASSERT_TRUE(isMarkerShown());
    window.document().remove();
    EXPECT_TRUE(list().layers().empty());
    EXPECT_FALSE(isMarkerShown());
}

TEST_F(MarkerTest, StaysWhateverIsRendered)
{
    LWAppDelegate &document = window.document();
    document.AddScreen();
    list().setSelectionIndexes({0, 1, 2}, 2);
    ASSERT_EQ(shown()->kind(), LayerKind::Still);
    ASSERT_TRUE(isMarkerShown());

    document.moveSelection({1, 0});
    EXPECT_TRUE(isMarkerShown());
    document.setValueOfSelection(7, "arrangedObjects.xpoint");
    EXPECT_TRUE(isMarkerShown());
    document.timerupdate();
    document.update();
    EXPECT_TRUE(isMarkerShown());
    document.resetPresets();
    EXPECT_TRUE(isMarkerShown());
    std::make_shared<LWScreen>(document)->drawInRect(); // of a project that is refused later
    EXPECT_TRUE(isMarkerShown());
    document.undoStack().undo();
    document.undoStack().redo();
    EXPECT_TRUE(isMarkerShown());
    document.tableViewSelectionDidChange(0);
    EXPECT_FALSE(isMarkerShown());
}

TEST_F(MarkerTest, FollowsEditsAndTheirUndoing)
{
    waitForRedraws();
    const QRectF before = marker();
    EXPECT_EQ(before, expected());
    window.document().setValueOfSelection(400, "arrangedObjects.xpoint");
    EXPECT_NE(marker(), before);
    EXPECT_EQ(marker(), expected()); // at once, the gate is shut for the output alone
    window.document().setValueOfSelection(300, "arrangedObjects.panelWidth");
    EXPECT_EQ(marker(), expected());
    EXPECT_EQ(marker().width(), 300 * still().calculateCoeff().coefficient);
    waitForRedraws();
    undo();
    undo();
    EXPECT_EQ(marker(), before);
    window.document().moveSelection({10, 5});
    EXPECT_EQ(marker(), expected());
    EXPECT_EQ(marker().x(), before.x() + 10 * still().calculateCoeff().coefficient);
}

TEST_F(MarkerTest, FollowsTheOutputsSize)
{
    waitForRedraws();
    const QRectF before = marker();
    window.document().setValue(960, "OutputWidth");
    waitForRedraws();
    EXPECT_NE(marker(), before);
    EXPECT_EQ(marker(), expected());
    EXPECT_EQ(canvas().cropMarker().kScaleFactor(), 2 - still().calculateCoeff().coefficient);
}

TEST_F(MarkerTest, OfAHiddenPictureFollowsTheHandThoughTheGateIsShut)
{
    still().setVisible(false);
    still().setPanelWidth(400);
    still().setPanelHeight(300);
    window.document().finishEdit("setting");
    waitForRedraws();
    const QPointF inside = marker().center() + QPointF(7, 7);
    const QRectF before = marker();
    dragBy(inside, {40, 20});
    waitForRedraws();
    EXPECT_GT(still().xpoint(), 0);
    EXPECT_NE(marker(), before);
    EXPECT_EQ(marker(), expected());
}

TEST_F(MarkerTest, IsAroundThePictureAgainWhereAHandChangesNothing)
{
    still().setPanelWidth(300);
    still().setPanelHeight(200);
    // As large as to end less than an output pixel before a whole point of the canvas.
    const auto isShort = [this](double end) {
        const double rest = std::ceil(end) - end;
        return rest > 0.1 && rest < 0.9 * still().calculateCoeff().coefficient;
    };
    const auto corner = [this] {
        still().drawInRect();
        return canvas().frame().topLeft() + still().marker().rectangle.bottomRight();
    };
    while (!isShort(corner().x()))
        still().setPanelWidth(still().panelWidth() + 1);
    while (!isShort(corner().y()))
        still().setPanelHeight(still().panelHeight() + 1);
    window.document().finishEdit("setting");
    waitForRedraws();
    const QRectF before = marker();
    const QPoint place(qCeil(corner().x()), qCeil(corner().y()));
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, place);
    EXPECT_NE(marker(), before);
    waitForRedraws();
    EXPECT_EQ(undoText(), "setting");
    EXPECT_EQ(marker(), before);
}

TEST_F(MarkerTest, StaysInTheHandsPlaceUntilTheResizedPictureIsComposed)
{
    still().setPanelWidth(400);
    still().setPanelHeight(300);
    window.document().finishEdit("setting");
    waitForRedraws();
    dragBy(marker().bottomRight(), {40, 20}); // the press shuts the gate
    const QRectF inHand = marker();
    ASSERT_FALSE(window.document().shouldUpdate());
    QApplication::processEvents();
    EXPECT_EQ(undoText(), "resize image");
    EXPECT_NEAR(marker().width(), inHand.width(), 1);
    EXPECT_NEAR(marker().height(), inHand.height(), 1);
    EXPECT_EQ(marker(), expected());
}
