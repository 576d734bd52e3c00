#include "screen/LWScreen.h"

#include "tests/screen/TestHost.h"

#include <QVariant>

#include <gtest/gtest.h>
#include <limits>

namespace {
const QStringList captions{"Panel-H", "Panel-V", "COLS",          "ROWS",
                           "H-Start", "V-Start", "XY Label Size", "Label Screen Size"};

QStringList captionsOf(const LWScreen &screen)
{
    return {screen.label1(), screen.label2(), screen.label3(), screen.label4(),
            screen.label5(), screen.label6(), screen.label7(), screen.label8()};
}

void expectNoCaptionHidden(const LWScreen &screen)
{
    for (int number = 1; number <= 9; ++number) {
        const QByteArray property = QString("label%1Hidden").arg(number).toLatin1();
        EXPECT_FALSE(screen.property(property).toBool()) << property.constData();
    }
    EXPECT_FALSE(screen.labelGroupRightHidden());
}

/// What is zero, false and nil in every new screen, however it was made.
void expectPlainRest(const LWScreen &screen)
{
    EXPECT_FALSE(screen.XYFontEnable());
    EXPECT_FALSE(screen.screenFontEnable());
    EXPECT_FALSE(screen.drawFlowPath());
    EXPECT_FALSE(screen.drawLabels());
    EXPECT_FALSE(screen.XYLabelDirection());
    EXPECT_FALSE(screen.aspectRatio());
    EXPECT_FALSE(screen.showPower());
    EXPECT_FALSE(screen.showPowerl());
    EXPECT_EQ(screen.pattern(), 0);
    EXPECT_EQ(screen.labelColor(), std::nullopt);
    EXPECT_EQ(screen.aspectValue(), QSizeF(0, 0));
    EXPECT_FALSE(screen.property("drawBackground").toBool());
    EXPECT_FALSE(screen.property("drawBorder").toBool());
    EXPECT_EQ(screen.property("columnCount").toLongLong(), 0);
    EXPECT_EQ(screen.property("rowCount").toLongLong(), 0);
    EXPECT_EQ(screen.property("width").toDouble(), 0.0);
    EXPECT_EQ(screen.property("height").toDouble(), 0.0);
    EXPECT_EQ(screen.pixelPerLimitField(), nullptr);
    expectNoCaptionHidden(screen);
}

LWScreen::Arguments bannerArguments()
{
    return {.row = 2,
            .col = 7,
            .panelWidth = 13,
            .panelHeight = 9,
            .rectColor = NamedColour::orange,
            .rectColor2 = NamedColour::purple,
            .boarderColor = NamedColour::cyan,
            .circleColor = NamedColour::magenta,
            .xyColor = NamedColour::yellow,
            .sfColor = NamedColour::darkGray,
            .xyFontSize = 11,
            .bgEnable = true,
            .boarderEnable = false,
            .label = "Banner",
            .circleEnable = true,
            .hpos = 301,
            .vpos = -17,
            .hiddenBoxes = QStringList{"1,3"}};
}
} // namespace

TEST(LWScreen, InitGivesFiveByFivePanelsOfFortyEight)
{
    TestHost host;
    const auto screen = LWScreen::init(host);

    EXPECT_EQ(screen->row(), 5);
    EXPECT_EQ(screen->col(), 5);
    EXPECT_EQ(screen->panelWidth(), 48);
    EXPECT_EQ(screen->panelHeight(), 48);
    EXPECT_EQ(screen->screenSizeWidth(), 240);
    EXPECT_EQ(screen->screenSizeHeight(), 240);
    EXPECT_EQ(screen->xpoint(), 0);
    EXPECT_EQ(screen->ypoint(), 0);
    EXPECT_EQ(screen->thumbnail().size(), QSize(240, 240));
}

TEST(LWScreen, InitGivesTheDefaultLook)
{
    TestHost host;
    const auto screen = LWScreen::init(host);

    EXPECT_TRUE(screen->visible());
    EXPECT_EQ(screen->rectColor(), NamedColour::red);
    EXPECT_EQ(screen->rectColor2(), NamedColour::green);
    EXPECT_EQ(screen->boarderColor(), NamedColour::white);
    EXPECT_EQ(screen->circleColor(), NamedColour::white);
    EXPECT_EQ(screen->xyColor(), NamedColour::white);
    EXPECT_EQ(screen->sfColor(), std::nullopt);
    EXPECT_EQ(screen->XYFontSize(), 50);
    EXPECT_EQ(screen->screenFontSize(), 50);
    EXPECT_EQ(screen->labelFontSize(), 40.0);
    EXPECT_TRUE(screen->bgEnable());
    EXPECT_TRUE(screen->BoarderEnable());
    EXPECT_FALSE(screen->CircleEnable());
    EXPECT_EQ(screen->boarderWidth(), 1);
    EXPECT_EQ(screen->circleBWidth(), 4);
    EXPECT_EQ(screen->powerOnCell(), 1);
    EXPECT_EQ(screen->pixelLimit(), 655360);
    EXPECT_TRUE(screen->label().isNull());
}

TEST(LWScreen, InitGivesCaptionsAndPositions)
{
    TestHost host;
    const auto screen = LWScreen::init(host);

    EXPECT_EQ(captionsOf(*screen), captions);
    EXPECT_EQ(screen->PositionArray(), (QStringList{"TOP LEFT", "TOP RIGHT", "CENTER", "BOTTOM LEFT", "BOTTOM RIGHT"}));
    EXPECT_EQ(screen->hiddenBoxes(), std::nullopt);
    EXPECT_TRUE(screen->aspectHidden());
    expectPlainRest(*screen);
}

TEST(LWScreen, TheLongInitialiserTakesItsArguments)
{
    TestHost host;
    const auto screen = LWScreen::initWithrow(host, bannerArguments());

    EXPECT_EQ(screen->row(), 2);
    EXPECT_EQ(screen->col(), 7);
    EXPECT_EQ(screen->panelWidth(), 13);
    EXPECT_EQ(screen->panelHeight(), 9);
    EXPECT_EQ(screen->rectColor(), NamedColour::orange);
    EXPECT_EQ(screen->rectColor2(), NamedColour::purple);
    EXPECT_EQ(screen->boarderColor(), NamedColour::cyan);
    EXPECT_EQ(screen->circleColor(), NamedColour::magenta);
    EXPECT_EQ(screen->xyColor(), NamedColour::yellow);
    EXPECT_EQ(screen->sfColor(), NamedColour::darkGray);
    EXPECT_EQ(screen->XYFontSize(), 11);
    EXPECT_TRUE(screen->bgEnable());
    EXPECT_FALSE(screen->BoarderEnable());
    EXPECT_EQ(screen->label(), "Banner");
    EXPECT_TRUE(screen->CircleEnable());
    EXPECT_EQ(screen->xpoint(), 301);
    EXPECT_EQ(screen->ypoint(), -17);
    EXPECT_EQ(screen->hiddenBoxes(), QStringList{"1,3"});
    EXPECT_EQ(screen->thumbnail().size(), QSize(91, 18));
}

TEST(LWScreen, TheLongInitialiserSetsTheRestItself)
{
    TestHost host;
    const auto screen = LWScreen::initWithrow(host, bannerArguments());

    EXPECT_TRUE(screen->visible());
    EXPECT_EQ(screen->screenFontSize(), 50);
    EXPECT_EQ(screen->boarderWidth(), 1);
    EXPECT_EQ(screen->circleBWidth(), 4);
    EXPECT_EQ(screen->powerOnCell(), 1);
    EXPECT_EQ(screen->pixelLimit(), 655360);
    EXPECT_EQ(screen->PositionArray(), std::nullopt);
    EXPECT_EQ(captionsOf(*screen), captions);
    EXPECT_FALSE(screen->aspectHidden());
    expectPlainRest(*screen);
}

TEST(LWScreen, TheLongInitialiserLeavesTheLabelSizeToTheFirstRendering)
{
    TestHost host;
    LWScreen::Arguments arguments = bannerArguments();
    EXPECT_EQ(LWScreen::initWithrow(host, arguments)->labelFontSize(), 40.0);

    arguments.row = 0; // no overlay, no first rendering of it
    EXPECT_EQ(LWScreen::initWithrow(host, arguments)->labelFontSize(), 0.0);
}

TEST(LWScreen, TheLongInitialiserMakesAnEmptyListOfHiddenPanels)
{
    TestHost host;
    LWScreen::Arguments arguments = bannerArguments();
    arguments.hiddenBoxes.reset();

    EXPECT_EQ(LWScreen::initWithrow(host, arguments)->hiddenBoxes(), QStringList());
}

TEST(LWScreen, ThePowerInitialiserSetsThePowerAndHidesNoPanel)
{
    TestHost host;
    const auto screen = LWScreen::initWithrow(host, bannerArguments(), 185);

    EXPECT_EQ(screen->powerOnCell(), 185);
    EXPECT_EQ(screen->hiddenBoxes(), QStringList());
    EXPECT_EQ(screen->col(), 7);
}

TEST(LWScreen, APlainScreenIsAllZero)
{
    TestHost host;
    const LWScreen screen(host);

    EXPECT_FALSE(screen.visible());
    EXPECT_EQ(screen.pixelLimit(), 0);
    EXPECT_EQ(screen.labelFontSize(), 0.0);
    EXPECT_TRUE(screen.thumbnail().isNull());
    expectPlainRest(screen);
}

TEST(LWScreen, ItsOwnNumbersAreStoredAsTheyAre)
{
    TestHost host;
    LWScreen screen(host);
    constexpr qint64 large = std::numeric_limits<qint64>::max();
    ASSERT_TRUE(screen.setProperty("columnCount", large));
    ASSERT_TRUE(screen.setProperty("rowCount", -large));
    ASSERT_TRUE(screen.setProperty("width", 0.1));
    ASSERT_TRUE(screen.setProperty("label9Hidden", true));

    EXPECT_EQ(screen.property("columnCount").toLongLong(), large);
    EXPECT_EQ(screen.property("rowCount").toLongLong(), -large);
    EXPECT_EQ(screen.property("width").toDouble(), 0.1);
    EXPECT_TRUE(screen.property("label9Hidden").toBool());
}

TEST(LWScreen, ArrowButtonsTellTheHostOnly)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->changeArrows(6);

    EXPECT_EQ(host.chosenPatterns, std::vector<qint64>{6});
    EXPECT_EQ(screen->pattern(), 0);
}
