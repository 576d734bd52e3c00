#include "still/LWStill.h"
#include "tests/app/UndoFixture.h"

namespace {
/// Undoing what is done with a picture.
class UndoStills : public UndoFixture
{
protected:
    /// Adds a picture of 31 x 17 in blue, in front of all others and selected.
    void addStill()
    {
        person.openPanelAnswer = pictureFile("plate.png", {31, 17}, Qt::blue);
        document.AddImage();
        document.arraycontroller().moveObjectAtArrangedObjectIndex(1, 0);
        document.finishEdit("move layer");
    }
};
} // namespace

TEST_F(UndoStills, AStillMovesAndGrowsBackWithItsMarker)
{
    person.canvasFrame = {960, 540};
    addStill();
    const auto markerNow = [&] { return dynamic_cast<LWStill &>(*selected()).marker().rectangle; };
    compose();
    const QRectF marker = markerNow();
    const auto move = [&] { // as the marker does, with both sides in one step
        selected()->setXpoint(300);
        selected()->setYpoint(200);
        document.finishEdit("move layer");
    };

    expectUndone("move layer", move);
    EXPECT_EQ(markerNow(), marker);
    expectUndone("Resize Layer", [&] {
        selected()->setPanelWidth(400);
        selected()->setPanelHeight(90);
        document.finishEdit("Resize Layer");
    });
    EXPECT_EQ(markerNow(), marker);
}

TEST_F(UndoStills, ARelinkedStillGetsItsFormerPictureBack)
{
    addStill();
    const QString other = pictureFile("other.png", {31, 17}, Qt::green);

    expectUndone("Relink", [&] {
        auto &still = dynamic_cast<LWStill &>(*selected());
        still.setImageURL(Address::fromLocalFile(other));
        still.loadThumbnail();
        document.finishEdit("Relink");
    });
    EXPECT_EQ(outputPixel(5, 5), 0xff0000ffU);
    stack.redo();
    EXPECT_EQ(outputPixel(5, 5), 0xff00ff00U);
}

TEST_F(UndoStills, AnotherPictureOfAStillIsChosenWithoutMovingIt)
{
    addStill();
    selected()->setPanelWidth(62);
    document.finishEdit("Resize Layer");
    person.openPanelAnswer = pictureFile("other.png", {50, 50}, Qt::green);

    expectUndone("choose picture", [&] { document.choosePicture(); });
    EXPECT_EQ(outputPixel(61, 16), 0xff0000ffU);
    stack.redo();
    EXPECT_EQ(outputPixel(61, 16), 0xff00ff00U);
    EXPECT_EQ(selected()->panelWidth(), 62);

    const int steps = stack.count();
    person.openPanelAnswer.reset();
    document.choosePicture();
    document.arraycontroller().setSelectionIndex(1); // a wall has no picture to choose
    person.openPanelAnswer = folder.filePath("plate.png");
    document.choosePicture();
    EXPECT_EQ(stack.count(), steps);
}

TEST_F(UndoStills, ALockHoldsWhereAnotherLayerIsSelectedAtOnce)
{
    addStill();
    selected()->setAspectRatio(true);
    document.finishEdit("Setting");
    const LayerPointer still = selected();
    edit("panelWidth", 62); // its update is put off
    document.arraycontroller().setSelectionIndex(1);
    EXPECT_EQ(still->panelHeight(), 34);
    waitForRedraws();
    EXPECT_EQ(still->panelHeight(), 34);
    stack.undo();
    EXPECT_EQ(still->panelWidth(), 31);
    EXPECT_EQ(still->panelHeight(), 17);
}

TEST_F(UndoStills, ALockHoldsWhereALayerIsAddedAtOnce)
{
    addStill();
    selected()->setAspectRatio(true);
    document.finishEdit("Setting");
    const LayerPointer still = selected();
    edit("panelWidth", 62);
    document.AddScreen();
    EXPECT_EQ(still->panelHeight(), 34);
    stack.undo(); // the screen alone
    EXPECT_EQ(still->panelHeight(), 34);
}

TEST_F(UndoStills, ALockOfACopyKeepsTheRatioOfItsSides)
{
    addStill();
    document.copyLayer();
    ASSERT_EQ(selected()->aspectValue(), QSizeF(0, 0));
    selected()->setPanelWidth(40);
    selected()->setPanelHeight(10);
    document.finishEdit("Setting");
    edit("aspectRatio", true);
    EXPECT_EQ(selected()->aspectValue(), QSizeF(40, 10));
    edit("panelWidth", 62);
    waitForRedraws();
    EXPECT_EQ(selected()->panelHeight(), 15);
    stack.undo();
    stack.undo();
    EXPECT_FALSE(selected()->aspectRatio());
    EXPECT_EQ(selected()->aspectValue(), QSizeF(0, 0));
}

TEST_F(UndoStills, ALockKeepsTheRatioOfThePictureWhereThereIsOne)
{
    addStill();
    selected()->setPanelHeight(100);
    document.finishEdit("Setting");
    edit("aspectRatio", true);
    EXPECT_EQ(selected()->aspectValue(), QSizeF(31, 17));
}

TEST_F(UndoStills, AnAddressWithoutLettersIsAnotherOneThanNone)
{
    document.addChart("field colour=red");
    ASSERT_TRUE(dynamic_cast<LWStill &>(*selected()).ImageURL().isNil());
    expectUndone("picture", [&] { edit("ImageURL", QVariant::fromValue(Address{"", {}})); });
}
