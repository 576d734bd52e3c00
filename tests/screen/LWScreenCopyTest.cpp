#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QVariant>

#include <gtest/gtest.h>

namespace {
std::shared_ptr<LWScreen> copyOf(const LWScreen &screen)
{
    return std::dynamic_pointer_cast<LWScreen>(screen.copyWithZone());
}

/// A screen in which every property that a copy takes over differs from the default.
std::shared_ptr<LWScreen> source(LayerHost &host)
{
    auto screen = LWScreen::init(host);
    screen->setScreenFontEnable(true);
    screen->setBoarderEnable(false);
    screen->setPanelWidth(21);
    screen->setPanelHeight(22);
    screen->setCol(6);
    screen->setRow(7);
    screen->setRectColor(NamedColour::orange);
    screen->setRectColor2(std::nullopt);
    screen->setVisible(false);
    screen->setXpoint(11);
    screen->setYpoint(12);
    screen->setXyColor(NamedColour::cyan);
    screen->setSfColor(NamedColour::purple);
    screen->setXYFontSize(13);
    screen->setXYFontEnable(true);
    screen->setScreenFontSize(14);
    screen->setCircleEnable(true);
    screen->setBgEnable(false);
    screen->setCircleColor(NamedColour::yellow);
    screen->setBoarderColor(NamedColour::gray);
    screen->setLabel("Side");
    screen->setBoarderWidth(15);
    screen->setCircleBWidth(16);
    screen->setDrawLabels(true);
    screen->setLabelColor(NamedColour::magenta);
    screen->setLabelFontSize(17.5);
    screen->setDrawFlowPath(true);
    screen->setPixelLimit(qint64{1} << 40);
    screen->setPattern(3);
    screen->setPowerOnCell(18);
    screen->setHiddenBoxes(QStringList{"1,1"});
    screen->drawInRect();
    return screen;
}
} // namespace

TEST(LWScreenCopy, TakesOverLookAndGeometry)
{
    TestHost host;
    const auto screen = source(host);
    const auto copy = copyOf(*screen);
    ASSERT_NE(copy, nullptr);

    for (const char *value :
         {"screenFontEnable", "BoarderEnable",    "panelWidth",      "panelHeight",  "col",        "row",
          "visible",          "screenSizeHeight", "screenSizeWidth", "xpoint",       "ypoint",     "XYFontSize",
          "XYFontEnable",     "screenFontSize",   "CircleEnable",    "bgEnable",     "label",      "boarderWidth",
          "circleBWidth",     "drawLabels",       "labelFontSize",   "drawFlowPath", "pixelLimit", "pattern",
          "powerOnCell"})
        EXPECT_EQ(copy->property(value), screen->property(value)) << value;
    for (const char *colour :
         {"rectColor", "rectColor2", "xyColor", "sfColor", "circleColor", "boarderColor", "labelColor"})
        EXPECT_EQ(copy->property(colour).value<OptionalColour>(), screen->property(colour).value<OptionalColour>())
            << colour;
    EXPECT_EQ(copy->hiddenBoxes(), QStringList{"1,1"});
}

TEST(LWScreenCopy, KeepsTheDefaultsOfAllElse)
{
    TestHost host;
    const auto screen = source(host);
    screen->setLabel1("Breite");
    screen->setLabel1Hidden(true);
    screen->setShowPower(true);
    screen->setShowPowerl(true);
    screen->setXYLabelDirection(true);
    screen->setAspectHidden(false);
    screen->setAspectRatio(true);
    screen->setAspectValue(QSizeF(16, 9));
    screen->setLabelGroupRightHidden(true);
    screen->setPositionArray(std::nullopt);
    screen->setProperty("width", 3.5);
    const auto copy = copyOf(*screen);

    EXPECT_EQ(copy->label1(), "Panel-H");
    EXPECT_FALSE(copy->label1Hidden());
    EXPECT_FALSE(copy->showPower());
    EXPECT_FALSE(copy->showPowerl());
    EXPECT_FALSE(copy->XYLabelDirection());
    EXPECT_TRUE(copy->aspectHidden());
    EXPECT_FALSE(copy->aspectRatio());
    EXPECT_EQ(copy->aspectValue(), QSizeF(0, 0));
    EXPECT_FALSE(copy->labelGroupRightHidden());
    EXPECT_EQ(copy->PositionArray()->size(), 5);
    EXPECT_EQ(copy->property("width").toDouble(), 0.0);
}

TEST(LWScreenCopy, SharesThePictureUntilItIsRenderedAgain)
{
    TestHost host;
    const auto screen = source(host);
    const auto copy = copyOf(*screen);
    EXPECT_EQ(copy->thumbnail().cacheKey(), screen->thumbnail().cacheKey());

    copy->setBgEnable(true);
    copy->drawInRect();
    EXPECT_NE(copy->thumbnail(), screen->thumbnail());
}

TEST(LWScreenCopy, RenderingTheSourceAgainLeavesTheCopysPictureAlone)
{
    TestHost host;
    const auto screen = source(host);
    const auto copy = copyOf(*screen);
    const QImage before = screen->thumbnail().copy();
    screen->setBgEnable(true);
    screen->drawInRect();

    EXPECT_NE(screen->thumbnail(), before);
    EXPECT_EQ(copy->thumbnail(), before);
}

TEST(LWScreenCopy, HidesItsPanelsInAListOfItsOwn)
{
    TestHost host;
    const auto screen = source(host);
    const auto copy = copyOf(*screen);
    copy->onImageClick(11, 12);

    EXPECT_EQ(copy->hiddenBoxes(), (QStringList{"1,1", "0,0"}));
    EXPECT_EQ(screen->hiddenBoxes(), QStringList{"1,1"});
}

TEST(LWScreenCopy, HasAnEmptyListOfHiddenPanelsWhereTheSourceHasNone)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    ASSERT_EQ(screen->hiddenBoxes(), std::nullopt);

    EXPECT_EQ(copyOf(*screen)->hiddenBoxes(), QStringList());
}
