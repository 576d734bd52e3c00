#include "still/LWStill.h"
#include "tests/app/AnotherValue.h"
#include "tests/app/UndoFixture.h"

#include <QMetaProperty>

namespace {
/// Undoing edits of a layer's values.
class UndoEdits : public UndoFixture
{
protected:
    static bool isValueOfItsOwn(const QMetaProperty &property)
    {
        const bool isReference = property.metaType().flags().testFlag(QMetaType::PointerToQObject);
        return !isReference && QLatin1StringView(property.name()) != QLatin1StringView("thumbnail") &&
               QLatin1StringView(property.name()) != QLatin1StringView("objectName");
    }
    /// Changes each declared value with its setter, and expects undoing to bring it back.
    void expectEveryValueUndone(Layer &layer)
    {
        const int steps = stack.index();
        for (int i = 0; i < layer.metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = layer.metaObject()->property(i);
            if (!isValueOfItsOwn(property))
                continue;
            const QVariant before = property.read(&layer);
            const QVariant after = anotherValue(before);
            ASSERT_NE(before, after) << property.name();
            ASSERT_TRUE(property.write(&layer, after)) << property.name();
            document.finishEdit("Value");
            ASSERT_EQ(stack.index(), steps + 1) << property.name();

            stack.undo();
            EXPECT_EQ(property.read(&layer), before) << property.name();
            stack.redo();
            EXPECT_EQ(property.read(&layer), after) << property.name();
            stack.undo();
        }
    }
};
} // namespace

TEST_F(UndoEdits, TheBytesAreTheSameWheneverTheyAreAsked)
{
    EXPECT_FALSE(archive().isEmpty());
    EXPECT_EQ(archive(), archive());
}

TEST_F(UndoEdits, EveryValueOfAWallComesBack)
{
    expectEveryValueUndone(*selected());
}

TEST_F(UndoEdits, EveryValueOfAStillComesBack)
{
    document.arraycontroller().setLayers({LWStill::initWithimage(document, QImage(31, 17, QImage::Format_RGB32))}, {0});
    document.finishEdit("Setting");
    compose();

    expectEveryValueUndone(*selected());
}

TEST_F(UndoEdits, EditsInTheInspectorAreNamedByTheirValue)
{
    edit("screenFontEnable", true);
    const std::pair<const char *, const char *> names[]{{"panelWidth", "panel width"},
                                                        {"panelHeight", "panel height"},
                                                        {"row", "rows"},
                                                        {"col", "columns"},
                                                        {"xpoint", "left"},
                                                        {"ypoint", "top"},
                                                        {"visible", "visibility"},
                                                        {"label", "name"},
                                                        {"bgEnable", "fill"},
                                                        {"rectColor", "colour 1"},
                                                        {"rectColor2", "colour 2"},
                                                        {"BoarderEnable", "frame"},
                                                        {"boarderColor", "frame, colour"},
                                                        {"boarderWidth", "frame, width"},
                                                        {"CircleEnable", "circle and diagonals"},
                                                        {"circleColor", "circle and diagonals, colour"},
                                                        {"circleBWidth", "circle and diagonals, width"},
                                                        {"XYFontEnable", "corner coordinates"},
                                                        {"xyColor", "corner coordinates, colour"},
                                                        {"XYFontSize", "corner coordinates, size"},
                                                        {"screenFontEnable", "name and size at the centre"},
                                                        {"sfColor", "name and size at the centre, colour"},
                                                        {"screenFontSize", "name and size at the centre, size"},
                                                        {"drawLabels", "panel labels"},
                                                        {"labelColor", "panel labels, colour"},
                                                        {"labelFontSize", "panel labels, size"},
                                                        {"XYLabelDirection", "letters by row"},
                                                        {"drawFlowPath", "path"},
                                                        {"pixelLimit", "pixels per port"},
                                                        {"powerOnCell", "watts per panel"},
                                                        {"aspectRatio", "keep ratio"},
                                                        {"showPower", "power text"},
                                                        {"pattern", "pattern of the path"}};
    for (const auto &[property, name] : names) {
        edit(property, anotherValue(selected()->property(property)));
        EXPECT_EQ(stack.undoText(), name) << property;
    }
    document.choosePattern(6);
    EXPECT_EQ(stack.undoText(), "pattern of the path");
}

TEST_F(UndoEdits, NumbersColoursAndSwitchesComeBackWithTheirPixels)
{
    expectUndone("panel width", [&] { edit("panelWidth", 100); });
    expectUndone("rows", [&] { edit("row", 3); });
    expectUndone("colour 1", [&] { edit("rectColor", anotherValue(selected()->property("rectColor"))); });
    expectUndone("visibility", [&] { edit("visible", false); });
    expectUndone("top", [&] { edit("ypoint", 40); });
}

TEST_F(UndoEdits, TextsAndPathsComeBackWithWhatDrawingThemFilledIn)
{
    edit("col", 0);
    selected()->setLabelFontSize(0);
    document.finishEdit("Setting");
    expectUndone("columns", [&] { edit("col", 3); });
    EXPECT_EQ(selected()->labelFontSize(), 0);
    stack.redo();
    EXPECT_EQ(selected()->labelFontSize(), 40);

    expectUndone("panel labels", [&] { edit("drawLabels", true); });
    edit("drawFlowPath", true);
    expectUndone("pattern of the path", [&] { document.choosePattern(5); });
    edit("screenFontEnable", true);
    expectUndone("name", [&] { edit("label", "Left"); });
}

TEST_F(UndoEdits, TheOutputSizeComesBack)
{
    expectUndone("output width", [&] { document.setValue(640, "OutputWidth"); });
    EXPECT_EQ(document.OutputWidth(), 1920);
    expectUndone("output height", [&] { document.setValue(360, "OutputHeight"); });
    EXPECT_EQ(document.img().size(), QSize(1920, 1080));
}

TEST_F(UndoEdits, SwitchedOffPanelsComeBack)
{
    expectUndone("toggle panel", [&] {
        selected()->onImageClick(5, 5);
        document.finishEdit("toggle panel");
    });
    for (const int x : {5, 200, 5}) {
        selected()->onImageClick(x, 5);
        document.finishEdit("toggle panel");
    }
    EXPECT_EQ(stack.count(), 3); // a step each
}

TEST_F(UndoEdits, WhatTheAspectLockMadeOfAnEditIsUndoneWithIt)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);
    selected()->setPanelHeight(72);
    document.finishEdit("Setting");

    expectUndone("panel width", [&] { edit("panelWidth", 160); });
    EXPECT_EQ(selected()->panelHeight(), 72);
    stack.redo();
    EXPECT_EQ(selected()->panelHeight(), 90);
    expectUndone("panel height", [&] { edit("panelHeight", 45); });
    EXPECT_EQ(selected()->panelWidth(), 160);
}

TEST_F(UndoEdits, UndoingBeforeTheLockWasAppliedLeavesNothingOfIt)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);
    document.finishEdit("Setting");
    waitForRedraws();
    document.update(); // shuts the gate
    const Look before = look();

    edit("panelWidth", 160);
    stack.undo();
    waitForRedraws();

    expectSame(look(), before, "undone at once");
}

TEST_F(UndoEdits, ARedrawAfterUndoDoesNotApplyTheLockAnew)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);
    document.timerupdate();
    edit("panelHeight", 46);
    ASSERT_EQ(selected()->panelWidth(), 81);
    document.timerupdate();
    edit("xpoint", 5); // from here on the width leads
    ASSERT_EQ(selected()->panelHeight(), 45);

    stack.undo();
    EXPECT_EQ(selected()->panelHeight(), 46);
    document.voltageSelect(208);
    compose();
    EXPECT_EQ(selected()->panelHeight(), 46);
}

TEST_F(UndoEdits, WhatRenderingWorksOutIsWhatItWas)
{
    showLayers({"A", "B"});
    const LayerPointer other = document.arraycontroller().layer(1);
    other->setShowCurrent(true);
    other->setLabelFontSize(0); // as nobody has rendered it since
    document.finishEdit("size");
    expectUndone("voltage", [&] { document.voltageSelect(208); });
}

TEST_F(UndoEdits, TypingInOneFieldIsOneStep)
{
    for (const int width : {1, 16, 160})
        edit("panelWidth", width);
    EXPECT_EQ(stack.count(), 1);

    stack.undo();
    EXPECT_EQ(selected()->panelWidth(), 128);
    stack.redo();
    EXPECT_EQ(selected()->panelWidth(), 160);
}

TEST_F(UndoEdits, TypingGoesOnWhenRedrawsComeInBetween)
{
    edit("panelWidth", 1);
    waitForRedraws();
    edit("panelWidth", 16);

    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(selected()->panelWidth(), 128);
}

TEST_F(UndoEdits, ASwitchIsAStepEachTime)
{
    for (const bool isOn : {false, true, false})
        edit("bgEnable", isOn);

    EXPECT_EQ(stack.count(), 3);
    stack.undo();
    EXPECT_TRUE(selected()->bgEnable());
}

TEST_F(UndoEdits, AnotherFieldAnotherLayerAndTheEndOfTypingBeginAStep)
{
    document.AddScreen();
    edit("xpoint", 1);
    edit("ypoint", 1);
    edit("xpoint", 2);
    EXPECT_EQ(stack.count(), 4);

    document.arraycontroller().setSelectionIndex(0);
    edit("xpoint", 5);
    EXPECT_EQ(stack.count(), 5);
    document.endTyping();
    edit("xpoint", 6);
    EXPECT_EQ(stack.count(), 6);
    document.arraycontroller().setSelectionIndex(1);
    document.arraycontroller().setSelectionIndex(0);
    edit("xpoint", 7);
    EXPECT_EQ(stack.count(), 7);
    document.setValue(640, "OutputWidth");
    document.setValue(64, "OutputWidth");
    EXPECT_EQ(stack.count(), 8);
}

TEST_F(UndoEdits, TypingAfterUndoBeginsAStep)
{
    edit("xpoint", 1);
    stack.undo();
    edit("xpoint", 2);
    edit("xpoint", 23);

    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(selected()->xpoint(), 0);
    stack.redo();
    EXPECT_EQ(selected()->xpoint(), 23);
    edit("xpoint", 5);
    EXPECT_EQ(stack.count(), 2);
}

TEST_F(UndoEdits, ASaveInBetweenBeginsAStepToComeBackTo)
{
    person.savePanelAnswer = folder.filePath("show");
    edit("xpoint", 1);
    document.saveProject();
    const QByteArray saved = archive();
    edit("xpoint", 12);
    edit("xpoint", 123);

    EXPECT_EQ(stack.count(), 2);
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(archive(), saved);
    stack.undo();
    EXPECT_FALSE(stack.isClean());
    stack.redo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(UndoEdits, WhatChangesNothingIsNoStep)
{
    edit("xpoint", 0);
    edit("label", "Layer 0");
    document.finishEdit("Nothing");
    document.arraycontroller().setSelectionIndex(0);
    document.popupButton();

    EXPECT_EQ(stack.count(), 0);
}

TEST_F(UndoEdits, ANameThatIsEmptyAndNoNameAreNotTheSame)
{
    showLayers({"a"});
    selected()->setLabel(QString());
    document.finishEdit("Setting");
    waitForRedraws();
    const QByteArray before = archive();

    edit("label", "");
    EXPECT_NE(archive(), before);
    EXPECT_EQ(stack.undoText(), "name");
    stack.undo();

    EXPECT_EQ(archive(), before);
}

TEST_F(UndoEdits, TheSelectionGoesBackToWhereTheEditWasMade)
{
    showLayers({"a", "b", "c"});
    document.arraycontroller().setSelectionIndexes({1, 2}, 2);
    edit("xpoint", 100);
    document.arraycontroller().setSelectionIndex(0);

    stack.undo();

    EXPECT_EQ(document.arraycontroller().selectionIndex(), 2);
    EXPECT_EQ(document.arraycontroller().selectionIndexes(), (std::vector<qsizetype>{1, 2}));
}

TEST_F(UndoEdits, AnEditOfSeveralLayersIsOneStep)
{
    showLayers({"a", "b", "c"});
    document.arraycontroller().setSelectionIndexes({0, 2}, 2);

    expectUndone("panel width", [&] { document.setValueOfSelection(31, "arrangedObjects.panelWidth"); });
    EXPECT_EQ(document.arraycontroller().layer(0)->panelWidth(), 7);
    stack.redo();
    EXPECT_EQ(document.arraycontroller().layer(0)->panelWidth(), 31);
    EXPECT_EQ(document.arraycontroller().layer(1)->panelWidth(), 7);
    EXPECT_EQ(document.arraycontroller().layer(2)->panelWidth(), 31);
}

TEST_F(UndoEdits, FiveHundredStepsAreKept)
{
    for (int x = 1; x <= 510; ++x) {
        edit("xpoint", x);
        document.endTyping();
    }
    EXPECT_EQ(stack.count(), 500);

    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(selected()->xpoint(), 10);
    while (stack.canRedo())
        stack.redo();
    EXPECT_EQ(selected()->xpoint(), 510);
}
