#include "tests/app/ListFixture.h"

namespace {
/// What follows from another selection and from edits of the selected layer.
using LWAppDelegateSelection = ListFixture;
} // namespace

TEST_F(LWAppDelegateSelection, ADeselectedTableLeavesTheSelection)
{
    showLayers({"a", "b"});
    document.tableViewSelectionDidChange(1);

    document.tableViewSelectionDidChange(-1);
    EXPECT_EQ(selected()->label(), "b");
    document.tableViewSelectionDidChange(2);
    EXPECT_EQ(selected()->label(), "b");
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

        ASSERT_TRUE(document.setValue(selected()->property(property), QString("arrangedObjects.") + property));

        EXPECT_FALSE(document.shouldUpdate()) << property;
    }
    document.timerupdate();
    document.observeValueForKeyPath("arrangedObjects.patternBool");
    EXPECT_FALSE(document.shouldUpdate());
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
