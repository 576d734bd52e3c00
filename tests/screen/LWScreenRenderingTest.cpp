#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

TEST(LWScreenRendering, RecomputesTheSizeOfTheWall)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setCol(7);
    screen->setPanelHeight(31);
    EXPECT_EQ(screen->screenSizeWidth(), 240);

    screen->drawInRect();
    EXPECT_EQ(screen->screenSizeWidth(), 336);
    EXPECT_EQ(screen->screenSizeHeight(), 155);
    EXPECT_EQ(screen->thumbnail().size(), QSize(336, 155));
}

TEST(LWScreenRendering, ADefaultWallStartsRedAtTheBottomLeft)
{
    TestHost host;
    const QImage raster = LWScreen::init(host)->thumbnail();

    ASSERT_EQ(raster.size(), QSize(240, 240));
    EXPECT_EQ(raster.pixelColor(24, 239 - 24), QColor(Qt::red));
    EXPECT_EQ(raster.pixelColor(72, 239 - 24), QColor(0, 255, 0));
    EXPECT_EQ(raster.pixelColor(0, 239), QColor(Qt::white)); // the frame
    EXPECT_EQ(raster.pixelColor(1, 238), QColor(Qt::red));
}

TEST(LWScreenRendering, ChoosesASupplyOnlyWhereATextNeedsIt)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    EXPECT_EQ(host.volts, 0);
    EXPECT_EQ(host.phases, 0);

    screen->setScreenFontEnable(true);
    screen->drawInRect();
    EXPECT_EQ(host.volts, 110);
    EXPECT_EQ(host.phases, 1);
}

TEST(LWScreenRendering, KeepsASupplyThatWasChosen)
{
    TestHost host;
    host.volts = 230;
    const auto screen = LWScreen::init(host);
    screen->setScreenFontEnable(true);
    screen->drawInRect();

    EXPECT_EQ(host.volts, 230);
    EXPECT_EQ(host.phases, 1);
}

TEST(LWScreenRendering, AWallWithoutPanelsHasNoPictureAndChoosesNothing)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setScreenFontEnable(true);
    screen->setLabelFontSize(0);
    screen->setRow(0);
    screen->drawInRect();

    EXPECT_TRUE(screen->thumbnail().isNull());
    EXPECT_EQ(screen->screenSizeWidth(), 240);
    EXPECT_EQ(screen->screenSizeHeight(), 0);
    EXPECT_EQ(host.volts, 0);
    EXPECT_EQ(screen->labelFontSize(), 0.0);
}

TEST(LWScreenRendering, ALabelSizeOfZeroBecomesForty)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setLabelFontSize(0);
    EXPECT_EQ(screen->labelFontSize(), 0.0);

    screen->setDrawLabels(true);
    screen->setLabelColor(NamedColour::white);
    screen->drawInRect();
    EXPECT_EQ(screen->labelFontSize(), 40.0);
    const QImage labelled = screen->thumbnail();
    screen->drawInRect(); // now with a size that was given
    EXPECT_EQ(screen->thumbnail(), labelled);
    EXPECT_NE(labelled, LWScreen::init(host)->thumbnail());

    screen->setLabelFontSize(-3);
    screen->drawInRect();
    EXPECT_EQ(screen->labelFontSize(), -3.0);
}

TEST(LWScreenRendering, ThePictureIsThatOfTheLastRendering)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setRectColor(NamedColour::blue);
    EXPECT_EQ(screen->thumbnail().pixelColor(24, 215), QColor(Qt::red));

    screen->drawInRect();
    screen->setRectColor(NamedColour::yellow);
    EXPECT_EQ(screen->thumbnail().pixelColor(24, 215), QColor(Qt::blue));
}

TEST(LWScreenRendering, APictureInUseIsNotDrawnInto)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    const QImage held = screen->thumbnail();
    screen->setRectColor(NamedColour::blue);
    screen->drawInRect();

    EXPECT_EQ(screen->thumbnail().pixelColor(24, 215), QColor(Qt::blue));
    EXPECT_EQ(held.pixelColor(24, 215), QColor(Qt::red));
}

TEST(LWScreenRendering, WhereAPanelIsSwitchedThePictureIsDrawnAnewAndNowhereElse)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    const qint64 first = screen->thumbnail().cacheKey();
    screen->onImageClick(60, 10);
    screen->drawInRect();
    const qint64 second = screen->thumbnail().cacheKey();
    EXPECT_EQ(screen->pictureChanges().since(first), QRegion(48, 0, 48, 48));
    EXPECT_EQ(screen->thumbnail(), ScreenChart(*screen->record(), {}).draw({}));

    screen->setVisible(!screen->visible());
    screen->drawInRect();
    EXPECT_EQ(screen->thumbnail().cacheKey(), second);
    screen->onImageClick(0, 0);
    screen->drawInRect();
    EXPECT_NE(screen->thumbnail().cacheKey(), second);
    EXPECT_EQ(screen->pictureChanges().since(first), QRegion(0, 0, 96, 48));
    EXPECT_EQ(screen->pictureChanges().since(second), QRegion(0, 0, 48, 48));
}

TEST(LWScreenRendering, AfterADrawingOfAllNoEarlierPictureIsKnown)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    qint64 before = screen->thumbnail().cacheKey();
    screen->onImageClick(100, 100);
    screen->drawInRect();
    EXPECT_NE(screen->thumbnail().cacheKey(), before);
    EXPECT_TRUE(screen->pictureChanges().since(before));
    screen->setRectColor(NamedColour::blue);
    screen->drawInRect();
    EXPECT_FALSE(screen->thumbnail().isNull());
    EXPECT_FALSE(screen->pictureChanges().since(before));

    before = screen->thumbnail().cacheKey();
    const QImage held = screen->thumbnail();
    screen->onImageClick(0, 0);
    screen->drawInRect();
    EXPECT_EQ(screen->thumbnail(), ScreenChart(*screen->record(), {}).draw({}));
    EXPECT_FALSE(screen->pictureChanges().since(before)); // it was held, so another one was drawn
    EXPECT_NE(held, screen->thumbnail());
}

TEST(LWScreenRendering, AGivenPictureStaysUntilTheNextRendering)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    QImage other(3, 2, QImage::Format_ARGB32_Premultiplied);
    other.fill(Qt::magenta);
    screen->setThumbnail(other);
    EXPECT_EQ(screen->thumbnail(), other);

    screen->drawInRect();
    EXPECT_EQ(screen->thumbnail().size(), QSize(240, 240));
}

TEST(LWScreenRendering, CornersFollowTheHostsPopUpIndex)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setXYFontEnable(true);
    screen->setXYFontSize(12);
    const auto rendered = [&](int index) {
        host.corners = index;
        screen->drawInRect();
        return screen->thumbnail().copy();
    };
    const QImage top = rendered(0);
    const QImage bottom = rendered(1);
    const QImage none = rendered(3);

    EXPECT_EQ(bottom.copy(0, 0, 240, 120), none.copy(0, 0, 240, 120));
    EXPECT_NE(bottom.copy(0, 120, 240, 120), none.copy(0, 120, 240, 120));
    EXPECT_NE(top.copy(0, 0, 240, 120), none.copy(0, 0, 240, 120));
}

TEST(LWScreenRendering, ThePowerShowsOnlyWhereItIsSwitchedOnAtThatMoment)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setScreenFontEnable(true);
    screen->setSfColor(NamedColour::white);
    screen->setScreenFontSize(15);
    screen->drawInRect();
    const QImage without = screen->thumbnail().copy();

    screen->setShowPower(true);
    screen->drawInRect();
    EXPECT_NE(screen->thumbnail(), without);

    screen->setShowPower(false);
    screen->drawInRect();
    EXPECT_EQ(screen->thumbnail(), without);
}

TEST(LWScreenRendering, CurrentShowsThePowerWhateverElseSaysAboutIt)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setScreenFontEnable(true);
    screen->setSfColor(NamedColour::white);
    screen->setScreenFontSize(15);
    screen->setShowPower(true);
    screen->drawInRect();
    const QImage withPower = screen->thumbnail().copy();

    screen->setShowPower(false);
    screen->setShowCurrent(true);
    screen->drawInRect();
    EXPECT_EQ(screen->thumbnail(), withPower);
}

TEST(LWScreenRendering, ThePictureIsThatOfAChartWithTheSameValues)
{
    TestHost host;
    host.volts = 230;
    host.phases = 3;
    const auto screen = LWScreen::init(host);
    screen->setScreenFontEnable(true);
    screen->setSfColor(NamedColour::white);
    screen->setScreenFontSize(15);
    screen->setShowPower(true);
    screen->setPowerOnCell(345);
    screen->setDrawLabels(true);
    screen->setLabelColor(NamedColour::black);
    screen->setLabelFontSize(12);
    screen->setXYLabelDirection(true);
    screen->drawInRect();

    ScreenChart chart;
    chart.col = chart.row = 5;
    chart.panelWidth = chart.panelHeight = 48;
    chart.bgEnable = chart.BoarderEnable = true;
    chart.rectColor = NamedColour::red;
    chart.rectColor2 = NamedColour::green;
    chart.boarderColor = NamedColour::white;
    chart.boarderWidth = 1;
    chart.screenFontEnable = chart.showPower = true;
    chart.sfColor = NamedColour::white;
    chart.screenFontSize = 15;
    chart.powerOnCell = 345;
    chart.drawLabels = chart.XYLabelDirection = true;
    chart.labelColor = NamedColour::black;
    chart.labelFontSize = 12;
    chart.voltage = 230;
    chart.phases = 3;
    EXPECT_EQ(screen->thumbnail(), chart.draw({}));
}

TEST(LWScreenRendering, ClaimedSizesBeyondAnyRasterGiveNoPicture)
{
    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setCol(2'000'000'000);
    screen->setPanelWidth(65536);
    screen->setScreenFontEnable(true);
    screen->setDrawLabels(true);
    screen->setDrawFlowPath(true);
    screen->drawInRect();

    EXPECT_TRUE(screen->thumbnail().isNull());
    EXPECT_EQ(screen->screenSizeHeight(), 240);
}
