#include "show/LayerPasteboard.h"
#include "still/LWStill.h"
#include "tests/app/DocumentFixture.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>

#include <limits>

class EditingTest : public DocumentFixture
{
protected:
    LayerList &list() { return document.arraycontroller(); }
    QStringList labels()
    {
        QStringList all;
        for (const LayerPointer &layer : list().layers())
            all.append(layer->label());
        return all;
    }
    QStringList keysOff(qsizetype row)
    {
        return dynamic_cast<LWScreen &>(*list().layer(row)).hiddenBoxes().value_or(QStringList());
    }
    QString picture(const QString &name, const QSize &size)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::green);
        EXPECT_TRUE(image.save(folder.filePath(name)));
        return folder.filePath(name);
    }
};

TEST_F(EditingTest, CopiedLayersArePastedAboveTheSelectedOneAndSelected)
{
    document.AddScreen();
    list().setSelectionIndexes({0, 1});
    EXPECT_TRUE(document.copyToPasteboard());
    list().setSelectionIndex(1);
    document.pasteFromPasteboard();
    EXPECT_EQ(labels(), QStringList({"Layer 0", "Layer 0", "Layer 1", "Layer 1"}));
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{1, 2}));
    EXPECT_EQ(document.undoStack().undoText(), "paste layer");
    document.undoStack().undo();
    EXPECT_EQ(labels(), QStringList({"Layer 0", "Layer 1"}));
}

TEST_F(EditingTest, CutLayersGoAndComeBackByPasting)
{
    document.AddScreen();
    document.cutToPasteboard();
    EXPECT_EQ(labels(), QStringList("Layer 0"));
    document.cutToPasteboard();
    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message, "List Cannot be empty, Function was cancelled");
    document.pasteFromPasteboard();
    EXPECT_EQ(labels(), QStringList({"Layer 1", "Layer 0"}));
}

TEST_F(EditingTest, MoreLayersThanAFileCanHoldAreNotPasted)
{
    setLayers({solidScreen(NamedColour::black, {0, 0, 1, 1})});
    EXPECT_TRUE(document.copyToPasteboard());
    list().insertObjectsAtArrangedObjectIndex(std::vector<LayerPointer>(9'998, selected()), 0);
    document.pasteFromPasteboard();
    EXPECT_EQ(list().rowCount(), 10'000);
    EXPECT_EQ(person.failures, QStringList());
    document.pasteFromPasteboard();
    EXPECT_EQ(list().rowCount(), 10'000);
    EXPECT_EQ(person.failures,
              QStringList("Cannot add: there are 10,001 layers; more than 10,000 cannot be kept, so remove some"));
}

TEST_F(EditingTest, WhatIsNoLayerIsNotPasted)
{
    QGuiApplication::clipboard()->setText("text");
    document.pasteFromPasteboard();
    EXPECT_EQ(person.failures, QStringList("Cannot paste: there are no layers to paste; copy some first."));

    auto *damaged = new QMimeData;
    damaged->setData(LayerPasteboard::type, "damaged");
    QGuiApplication::clipboard()->setMimeData(damaged);
    EXPECT_TRUE(LayerPasteboard::hasLayers());
    document.pasteFromPasteboard();
    EXPECT_EQ(person.failures.size(), 2);
    EXPECT_EQ(list().rowCount(), 1);
    EXPECT_FALSE(document.undoStack().canUndo());
}

TEST_F(EditingTest, AnEmptyListHasNothingToCopyAndTakesWhatIsPasted)
{
    document.AddScreen();
    EXPECT_TRUE(document.copyToPasteboard());
    list().setSelectionIndexes({0, 1});
    document.remove();
    EXPECT_FALSE(document.copyToPasteboard());
    document.toggleVisibility();
    document.moveSelection({1, 1});
    document.pasteFromPasteboard();
    EXPECT_EQ(labels(), QStringList("Layer 1"));
    EXPECT_EQ(list().selectionIndex(), 0);
}

TEST_F(EditingTest, PictureFilesBecomeStillsAndOthersAreTold)
{
    const QString text = folder.filePath("text.png");
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    document.addImages({picture("a.png", {4, 3}), text, picture("b.png", {5, 6})});
    ASSERT_EQ(list().rowCount(), 3);
    EXPECT_EQ(list().layer(0)->panelWidth(), 4);
    EXPECT_EQ(list().layer(1)->panelHeight(), 6);
    EXPECT_EQ(dynamic_cast<LWStill &>(*list().layer(1)).ImageURL(), Address::fromLocalFile(folder.filePath("b.png")));
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{0, 1}));
    EXPECT_EQ(person.failures,
              QStringList("Cannot show " + QFileInfo(text).fileName() + ": it is no picture that can be read."));
    document.undoStack().undo();
    EXPECT_EQ(list().rowCount(), 1);
}

TEST_F(EditingTest, MovesInARowAreOneStepAndStopAtTheEndOfNumbers)
{
    document.AddScreen();
    list().setSelectionIndexes({0, 1});
    list().layer(1)->setXpoint(std::numeric_limits<int>::max());
    document.finishEdit("Setting");
    document.moveSelection({1, 0});
    document.moveSelection({10, -3});
    EXPECT_EQ(list().layer(0)->xpoint(), 11);
    EXPECT_EQ(list().layer(0)->ypoint(), -3);
    EXPECT_EQ(list().layer(1)->xpoint(), std::numeric_limits<int>::max());
    EXPECT_EQ(document.undoStack().undoText(), "move layer");
    document.undoStack().undo();
    EXPECT_EQ(list().layer(0)->xpoint(), 0);
    EXPECT_EQ(list().layer(0)->ypoint(), 0);
}

TEST_F(EditingTest, EachOfSeveralLayersKeepsItsOwnAspect)
{
    document.AddScreen();
    for (const auto &[row, aspect] : {std::pair(0, QSizeF(16, 9)), {1, QSizeF(4, 3)}}) {
        list().layer(row)->setAspectValue(aspect);
        list().layer(row)->setAspectRatio(true);
    }
    list().setSelectionIndexes({0, 1});
    document.timerupdate();
    document.setValueOfSelection(160, "arrangedObjects.panelWidth");
    EXPECT_EQ(list().layer(0)->panelHeight(), 90);
    EXPECT_EQ(list().layer(1)->panelHeight(), 120);
    EXPECT_EQ(list().layer(1)->screenSizeHeight(), 120);
    document.timerupdate();
    document.setValueOfSelection(90, "arrangedObjects.panelHeight");
    EXPECT_EQ(list().layer(0)->panelWidth(), 160);
    EXPECT_EQ(list().layer(1)->panelWidth(), 120);
    document.undoStack().undo();
    EXPECT_EQ(list().layer(1)->panelWidth(), 160);
}

TEST_F(EditingTest, HidingFollowsTheLayerBeforeTheInspector)
{
    document.AddScreen();
    list().layer(1)->setVisible(false);
    list().setSelectionIndexes({0, 1}, 1);
    document.toggleVisibility(); // that one is hidden: both are shown
    EXPECT_TRUE(list().layer(0)->visible());
    EXPECT_TRUE(list().layer(1)->visible());
    document.toggleVisibility();
    EXPECT_FALSE(list().layer(0)->visible());
    EXPECT_FALSE(list().layer(1)->visible());
}

TEST_F(EditingTest, HidingOthersLeavesTheSelectedLayersAlone)
{
    document.AddScreen();
    document.AddScreen();
    list().layer(1)->setVisible(false);
    document.finishEdit("Setting");
    list().setSelectionIndexes({1, 2});
    document.hideOthers();
    EXPECT_FALSE(list().layer(0)->visible());
    EXPECT_TRUE(list().layer(1)->visible());
    EXPECT_TRUE(list().layer(2)->visible());
    EXPECT_EQ(document.undoStack().undoText(), "hide others");
    document.undoStack().undo();
    EXPECT_TRUE(list().layer(0)->visible());
    EXPECT_FALSE(list().layer(1)->visible());
}

TEST_F(EditingTest, OneRowIsHiddenWithoutBeingSelected)
{
    document.AddScreen();
    list().setSelectionIndex(1);
    document.toggleVisibilityOf(0);
    EXPECT_FALSE(list().layer(0)->visible());
    EXPECT_TRUE(list().layer(1)->visible());
    EXPECT_EQ(list().selectionIndex(), 1);
    EXPECT_EQ(document.undoStack().undoText(), "visibility");
    document.toggleVisibilityOf(0);
    EXPECT_TRUE(list().layer(0)->visible());
    document.toggleVisibilityOf(2); // no such row
    document.undoStack().undo();
    EXPECT_FALSE(list().layer(0)->visible());
}

TEST_F(EditingTest, AllPanelsOfTheSelectedWallsAreSwitchedOn)
{
    document.AddScreen();
    document.AddScreen();
    for (qsizetype row = 0; row < 3; ++row)
        list().layer(row)->onImageClick(10, 10);
    list().setSelectionIndex(0);
    document.addImages({picture("a.png", {4, 3})}); // stands first
    document.finishEdit("Setting");
    list().setSelectionIndexes({0, 1, 3});
    document.switchAllPanelsOn();
    EXPECT_EQ(keysOff(1), QStringList());
    EXPECT_EQ(keysOff(2), QStringList("0,0"));
    EXPECT_EQ(keysOff(3), QStringList());
    EXPECT_EQ(document.undoStack().undoText(), "switch all panels on");
    document.undoStack().undo();
    EXPECT_EQ(keysOff(1).size(), 1);
    EXPECT_EQ(keysOff(3).size(), 1);
}

TEST_F(EditingTest, TheColoursOfEachSelectedWallAreExchanged)
{
    document.AddScreen(); // both of its colours are red
    list().layer(1)->setRectColor2(NamedColour::black);
    document.finishEdit("Setting");
    list().setSelectionIndexes({0, 1});
    document.exchangeColours();
    EXPECT_EQ(list().layer(0)->rectColor(), OptionalColour(NamedColour::lightGray));
    EXPECT_EQ(list().layer(0)->rectColor2(), OptionalColour(NamedColour::red));
    EXPECT_EQ(list().layer(1)->rectColor(), OptionalColour(NamedColour::black));
    EXPECT_EQ(list().layer(1)->rectColor2(), OptionalColour(NamedColour::red));
    EXPECT_EQ(document.undoStack().undoText(), "exchange colours");
    document.undoStack().undo();
    EXPECT_EQ(list().layer(1)->rectColor(), OptionalColour(NamedColour::red));
}

TEST_F(EditingTest, APatternIsChosenForAllSelectedLayersAsOneStepPerChoice)
{
    document.AddScreen();
    document.AddScreen();
    list().setSelectionIndexes({0, 2}, 2);
    const int steps = document.undoStack().index();
    document.choosePattern(6);
    document.choosePattern(3);
    EXPECT_EQ(list().layer(0)->pattern(), 3);
    EXPECT_EQ(list().layer(1)->pattern(), 0);
    EXPECT_EQ(list().layer(2)->pattern(), 3);
    EXPECT_EQ(document.undoStack().index(), steps + 2);
    document.undoStack().undo();
    EXPECT_EQ(list().layer(0)->pattern(), 6);
    EXPECT_EQ(list().layer(2)->pattern(), 6);
}

class PlacingTest : public EditingTest
{
protected:
    /// A wall of 192 x 192 at (10, 20) and one of 101 x 50 at (300, 100): 391 x 192 together, on an output of 1000 x
    /// 801.
    PlacingTest()
    {
        document.setOutputWidth(1000);
        document.setOutputHeight(801);
        document.AddScreen();
        take(0, {10, 20}, {192, 192});
        take(1, {300, 100}, {101, 50});
        list().setSelectionIndexes({0, 1});
        document.finishEdit("Setting");
    }

    void take(qsizetype row, const QPoint &place, const QSize &size)
    {
        Layer &layer = *list().layer(row);
        layer.setCol(1);
        layer.setRow(1);
        layer.setPanelWidth(size.width());
        layer.setPanelHeight(size.height());
        layer.setXpoint(place.x());
        layer.setYpoint(place.y());
        layer.drawInRect();
    }
    QPoint place(qsizetype row) { return {list().layer(row)->xpoint(), list().layer(row)->ypoint()}; }
};

TEST_F(PlacingTest, TheSelectionIsCentredAsOne)
{
    document.centreInOutput();
    EXPECT_EQ(place(0), QPoint(304, 304)); // 609 pixels are free in each direction
    EXPECT_EQ(place(1), QPoint(594, 384));
    EXPECT_EQ(document.undoStack().undoText(), "move layer");
    document.undoStack().undo();
    EXPECT_EQ(place(0), QPoint(10, 20));
    EXPECT_EQ(place(1), QPoint(300, 100));
}

TEST_F(PlacingTest, WhatIsLargerThanTheOutputSticksOutOnBothSides)
{
    take(0, {0, 0}, {2001, 192});
    list().setSelectionIndex(0);
    document.centreInOutput();
    EXPECT_EQ(place(0), QPoint(-501, 304));
}

TEST_F(PlacingTest, TheSelectionGoesIntoEachCornerAsOne)
{
    const std::pair<Qt::Corner, QPoint> corners[] = {{Qt::TopLeftCorner, {0, 0}},
                                                     {Qt::TopRightCorner, {609, 0}},
                                                     {Qt::BottomLeftCorner, {0, 609}},
                                                     {Qt::BottomRightCorner, {609, 609}}};
    for (const auto &[corner, expected] : corners) {
        document.fitToOutputCorner(corner);
        EXPECT_EQ(place(0), expected);
        EXPECT_EQ(place(1), expected + QPoint(290, 80));
    }
}
