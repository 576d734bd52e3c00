#include "formats/PresetLibrary.h"
#include "still/LWStill.h"
#include "tests/app/ListFixture.h"

namespace {
/// What follows from another selection and from edits of the selected layer.
using LWAppDelegateSelection = ListFixture;
} // namespace

TEST_F(LWAppDelegateSelection, TheButtonOfTheSelectedPatternIsTurnedOn)
{
    showLayers({"a", "b", "c"});
    document.arraycontroller().layer(1)->setPattern(7);
    document.arraycontroller().layer(2)->setPattern(3);

    document.tableViewSelectionDidChange(1);
    EXPECT_EQ(person.pattern, 7);
    document.tableViewSelectionDidChange(2);
    EXPECT_EQ(person.pattern, 3);
    document.tableViewSelectionDidChange(0);
    EXPECT_EQ(person.pattern, 0);
}

TEST_F(LWAppDelegateSelection, APatternWithoutAButtonLeavesThemAsTheyWere)
{
    showLayers({"a", "b"});
    document.arraycontroller().layer(0)->setPattern(5);
    document.tableViewSelectionDidChange(0);
    ASSERT_EQ(person.pattern, 5);

    for (const qint64 pattern : {qint64{9}, qint64{8}, qint64{-1}, qint64{1} << 32}) {
        document.arraycontroller().layer(1)->setPattern(pattern);
        document.tableViewSelectionDidChange(1);
        EXPECT_EQ(person.pattern, 5) << pattern;
        document.tableViewSelectionDidChange(0);
    }
}

TEST_F(LWAppDelegateSelection, ADeselectedTableLeavesTheSelection)
{
    showLayers({"a", "b"});
    document.tableViewSelectionDidChange(1);

    document.tableViewSelectionDidChange(-1);
    EXPECT_EQ(selected()->label(), "b");
    document.tableViewSelectionDidChange(2);
    EXPECT_EQ(selected()->label(), "b");
}

TEST_F(LWAppDelegateSelection, TheMarkerIsShownForStillsAlone)
{
    showLayers({"a"});
    document.arraycontroller().insertObjectAtArrangedObjectIndex(
        LWStill::initWithimage(document, QImage(31, 17, QImage::Format_RGB32)), 1);
    document.tableViewSelectionDidChange(1);
    EXPECT_TRUE(person.isMarkerShown);

    document.tableViewSelectionDidChange(0);
    EXPECT_FALSE(person.isMarkerShown);
    document.tableViewSelectionDidChange(1);
    EXPECT_TRUE(person.isMarkerShown);
    document.remove();
    EXPECT_FALSE(person.isMarkerShown);
}

TEST_F(LWAppDelegateSelection, TheMarkerOfASelectedStillStaysWhateverIsRendered)
{
    showLayers({"a", "b"});
    LayerList &list = document.arraycontroller();
    list.insertObjectAtArrangedObjectIndex(LWStill::initWithimage(document, QImage(31, 17, QImage::Format_RGB32)), 1);
    list.setSelectionIndexes({0, 1, 2}, 1);
    ASSERT_TRUE(person.isMarkerShown);

    document.moveSelection({1, 0});
    EXPECT_TRUE(person.isMarkerShown);
    document.setValueOfSelection(7, "arrangedObjects.xpoint");
    EXPECT_TRUE(person.isMarkerShown);
    document.timerupdate();
    document.update();
    EXPECT_TRUE(person.isMarkerShown);
    person.openPanelAnswer = folder.filePath("Presets");
    ASSERT_TRUE(PresetLibrary::write(*person.openPanelAnswer, document.presetScreensArray()));
    document.openPresets();
    EXPECT_TRUE(person.isMarkerShown);
    screensNamed({"of a project that is refused later"}).front()->drawInRect();
    EXPECT_TRUE(person.isMarkerShown);
    document.undoStack().undo();
    document.undoStack().redo();
    EXPECT_TRUE(person.isMarkerShown);
    document.tableViewSelectionDidChange(0);
    EXPECT_FALSE(person.isMarkerShown);
}

TEST_F(LWAppDelegateSelection, EditsOfEveryObservedValueRenderAndRedraw)
{
    for (const char *property :
         {"panelHeight",    "panelWidth",       "row",          "col",           "rectColor",   "rectColor2",
          "boarderColor",   "visible",          "xpoint",       "ypoint",        "xyColor",     "sfColor",
          "XYFontSize",     "XYFontEnable",     "CircleEnable", "BoarderEnable", "circleColor", "circleBWidth",
          "screenFontSize", "screenFontEnable", "bgEnable",     "boarderWidth",  "drawLabels",  "drawFlowPath",
          "pixelLimit",     "labelFontSize",    "labelColor",   "label",         "aspectRatio", "XYLabelDirection",
          "powerOnCell",    "showPower"}) {
        document.timerupdate();
        const int shown = person.timesShown;
        const int reloaded = person.timesReloaded;

        ASSERT_TRUE(document.setValue(selected()->property(property), QString("arrangedObjects.") + property));

        EXPECT_EQ(person.timesShown, shown + 1) << property;
        EXPECT_GT(person.timesReloaded, reloaded) << property;
    }
    document.timerupdate();
    const int shown = person.timesShown;
    document.observeValueForKeyPath("arrangedObjects.patternBool");
    EXPECT_EQ(person.timesShown, shown + 1);
}

TEST_F(LWAppDelegateSelection, AChosenPatternGoesToTheSelectedLayerAlone)
{
    showLayers({"a", "b"});
    document.arraycontroller().setSelectionIndex(1);

    document.choosePattern(6);

    EXPECT_EQ(document.pattern(), 6);
    EXPECT_EQ(selected()->pattern(), 6);
    EXPECT_EQ(document.arraycontroller().layer(0)->pattern(), 0);
}
