#include "tests/app/UndoFixture.h"

#include <QMimeData>

#include <memory>

namespace {
/// Undoing what is done with whole layers and presets.
class UndoLists : public UndoFixture
{
protected:
    void drag(const LayerList &source, int index, LayerList &target, int row)
    {
        const std::unique_ptr<QMimeData> dragged(source.mimeData({source.index(index)}));
        EXPECT_TRUE(target.dropMimeData(dragged.get(), Qt::CopyAction, row, 0, {}));
    }
    /// Three layers and three presets, in two steps.
    void showLists()
    {
        showLayers({"a", "b", "c"});
        showPresets({"p", "q", "r"});
        compose();
    }

    LayerList &layers = document.arraycontroller();
    LayerList &presets = document.presetarraycontroller();
};
} // namespace

TEST_F(UndoLists, AddedScreensGoAndComeAgain)
{
    expectUndone("add screen", [&] { document.AddScreen(); });
    EXPECT_EQ(labels(), "Layer 0");
    stack.redo();
    EXPECT_EQ(labels(), "Layer 0, Layer 1");
    EXPECT_EQ(layers.selectionIndex(), 1);
}

TEST_F(UndoLists, AddedImagesGoAndComeAgain)
{
    person.openPanelAnswer = pictureFile("plate.png", {31, 17}, Qt::blue);
    expectUndone("add image", [&] { document.AddImage(); });
}

TEST_F(UndoLists, AddedChartsGoAndComeAgain)
{
    expectUndone("add chart", [&] { document.addChart("grid"); });
    stack.redo();
    EXPECT_EQ(labels(), ", Layer 0");
}

TEST_F(UndoLists, AChartIsDrawnAtTheSizeThatComesBack)
{
    document.addChart("grid");
    const LayerPointer chart = layers.selectedLayer();
    const QImage before = chart->thumbnail();
    ASSERT_EQ(before.size(), QSize(document.OutputWidth(), document.OutputHeight()));
    expectUndone("panel width", [&] { document.setValue(300, "arrangedObjects.panelWidth"); });
    EXPECT_EQ(chart->thumbnail(), before);
    expectUndone("chart", [&] { document.setValue("ramp", "arrangedObjects.chart"); });
    EXPECT_EQ(chart->thumbnail(), before);
    stack.redo();
    EXPECT_NE(chart->thumbnail(), before);
}

TEST_F(UndoLists, AnEditThatTheFirstOfTheSelectedHasNoPartInIsAStep)
{
    document.addChart("grid");
    layers.setSelectionIndexes({0, 1}, 1); // a wall, which has no chart, is before the inspector
    expectUndone("chart", [&] { EXPECT_TRUE(document.setValueOfSelection("ramp", "arrangedObjects.chart")); });
    EXPECT_EQ(layers.layer(0)->value("chart").toString(), "grid");
    EXPECT_FALSE(document.setValueOfSelection(1, "arrangedObjects.nothing"));
}

TEST_F(UndoLists, APictureThatIsChosenTakesThePlaceOfAChart)
{
    document.addChart("grid");
    person.openPanelAnswer = pictureFile("plate.png", {31, 17}, Qt::blue);
    document.choosePicture();
    const LayerPointer still = layers.selectedLayer();
    EXPECT_EQ(still->thumbnail().size(), QSize(31, 17));
    stack.undo();
    EXPECT_EQ(still->thumbnail().size(), QSize(document.OutputWidth(), document.OutputHeight()));
    EXPECT_EQ(still->value("chart").toString(), "grid");
}

TEST_F(UndoLists, RemovedLayersComeBackInTheirPlacesAndSelected)
{
    showLists();
    const std::vector<LayerPointer> before = document.allScreensArray();

    layers.setSelectionIndex(1);
    expectUndone("remove layer", [&] { document.remove(); });
    EXPECT_EQ(labels(), "a, b, c");
    EXPECT_EQ(layers.selectionIndexes(), std::vector<qsizetype>{1});

    layers.setSelectionIndexes({0, 2}, 2);
    expectUndone("remove layer", [&] { document.remove(); });
    EXPECT_EQ(labels(), "a, b, c");
    EXPECT_EQ(layers.selectionIndexes(), (std::vector<qsizetype>{0, 2}));
    EXPECT_EQ(layers.selectionIndex(), 2);

    layers.setSelectionIndexes({0, 1, 2});
    expectUndone("remove layer", [&] { document.remove(); });
    EXPECT_EQ(document.allScreensArray(), before); // the layers themselves
    stack.redo();
    EXPECT_TRUE(document.allScreensArray().empty());
    EXPECT_EQ(document.powerResult(), "Total Power: 0.00Amp");
}

TEST_F(UndoLists, DuplicatesGoAndTheirPlaceWithThem)
{
    showLists();
    layers.setSelectionIndex(1);

    expectUndone("duplicate layer", [&] { document.copyLayer(); });
    EXPECT_EQ(labels(), "a, b, c");
    EXPECT_EQ(document.selectedRow(), 0);
    EXPECT_EQ(layers.selectionIndex(), 1);
    stack.redo();
    EXPECT_EQ(labels(), "a, b Copy, b, c");
    EXPECT_EQ(document.selectedRow(), 1);
}

TEST_F(UndoLists, RowsGoBackToWhereTheyWere)
{
    showLists();
    expectUndone("move layer", [&] { drag(layers, 0, layers, 3); });
    EXPECT_EQ(labels(), "a, b, c");
    expectUndone("move preset", [&] { drag(presets, 2, presets, 0); });
    EXPECT_EQ(presetLabels(), "p, q, r");
}

TEST_F(UndoLists, ARowThatStaysIsNoStep)
{
    showLists();
    drag(layers, 1, layers, 1);
    drag(layers, 1, layers, 2);

    EXPECT_EQ(stack.count(), 2);
}

TEST_F(UndoLists, PresetsAndLayersThatWereCopiedIntoTheOtherTableGo)
{
    showLists();
    expectUndone("insert preset", [&] { drag(presets, 1, layers, 0); });
    EXPECT_EQ(labels(), "a, b, c");
    expectUndone("store preset", [&] { drag(layers, 1, presets, 0); });
    EXPECT_EQ(presetLabels(), "p, q, r");
}

TEST_F(UndoLists, ADropUndoneAtOnceStaysUndoneWhenItsRedrawsCome)
{
    showLists();
    for (const LayerPointer &layer : document.allScreensArray()) {
        layer->setAspectValue({16, 9});
        layer->setAspectRatio(true); // and its height is another
    }
    document.observeValueForKeyPath("arrangedObjects.panelHeight");
    waitForRedraws();
    const Look before = look();

    drag(layers, 2, layers, 0);
    stack.undo();
    expectSame(look(), before, "undone at once");
    waitForRedraws();
    expectSame(look(), before, "undone at once, and redrawn");
}

TEST_F(UndoLists, AnInsertedPresetGoes)
{
    showLists();
    expectUndone("insert preset", [&] { document.insertPreset(2); });
}

TEST_F(UndoLists, RemovedPresetsComeBackSelected)
{
    showLists();
    presets.setSelectionIndexes({1, 2}, 2);

    expectUndone("remove preset", [&] { document.removePreset(); });

    EXPECT_EQ(presetLabels(), "p, q, r");
    EXPECT_EQ(presets.selectionIndexes(), (std::vector<qsizetype>{1, 2}));
}

TEST_F(UndoLists, APresetsNameComesBack)
{
    showLists();
    expectUndone("preset name", [&] { presets.setValue("Renamed", "arrangedObjects.label"); });
}

TEST_F(UndoLists, OpenedPresetsMakeRoomForTheFormerOnes)
{
    person.savePanelAnswer = person.openPanelAnswer = folder.filePath("myset");
    showLists();
    document.savePresets();
    showPresets({"x", "y"});

    expectUndone("open presets", [&] { document.openPresets(); });
    EXPECT_EQ(presetLabels(), "x, y");
}

TEST_F(UndoLists, AWalkThereAndBackMeetsEveryState)
{
    showLists();
    waitForRedraws();
    std::vector<Look> states{look()};
    const std::function<void()> actions[]{[&] { document.AddScreen(); },
                                          [&] { edit("panelWidth", 33); },
                                          [&] { document.copyLayer(); },
                                          [&] { drag(layers, 0, layers, 4); },
                                          [&] { edit("rectColor2", QVariant::fromValue(OptionalColour())); },
                                          [&] {
                                              layers.setSelectionIndexes({0, 1, 2}), document.remove();
                                          },
                                          [&] { drag(presets, 0, layers, 1); },
                                          [&] { document.removePreset(); },
                                          [&] { document.setValue(640, "OutputWidth"); }};
    for (const auto &act : actions) {
        act();
        compose();
        states.push_back(look());
    }
    ASSERT_EQ(stack.count(), 2 + std::ssize(actions));

    for (int pass = 0; pass < 2; ++pass) {
        for (std::size_t i = std::size(actions); i-- > 0;) {
            stack.undo();
            expectSame(look(), states[i], "back");
        }
        for (std::size_t i = 1; i <= std::size(actions); ++i) {
            stack.redo();
            expectSame(look(), states[i], "forth");
        }
    }
}

TEST_F(UndoLists, ARemovedWallLetsGoOfItsPixelsAndDrawsThemAgain)
{
    document.AddScreen();
    compose();
    const LayerPointer wall = selected();
    QImage held = wall->thumbnail();
    ASSERT_FALSE(held.isDetached());
    const QImage pixels = held.copy();

    document.remove();
    EXPECT_TRUE(held.isDetached()); // nobody else has it
    held = {};
    stack.undo();
    EXPECT_EQ(selected(), wall);
    EXPECT_EQ(wall->thumbnail(), pixels);

    held = wall->thumbnail();
    stack.redo();
    EXPECT_TRUE(held.isDetached());
    stack.undo();
    EXPECT_EQ(wall->thumbnail(), pixels);
}

TEST_F(UndoLists, AnAddedWallLetsGoOfItsPixelsWhileItIsUndone)
{
    document.AddScreen();
    compose();
    const QImage held = selected()->thumbnail();

    stack.undo();
    EXPECT_TRUE(held.isDetached());
    stack.redo();
    EXPECT_EQ(selected()->thumbnail(), held);
}

TEST_F(UndoLists, AMovedWallKeepsItsPixels)
{
    showLists();
    const qint64 picture = layers.layer(0)->thumbnail().cacheKey();

    drag(layers, 0, layers, 3);
    stack.undo();

    EXPECT_EQ(layers.layer(0)->thumbnail().cacheKey(), picture);
}
