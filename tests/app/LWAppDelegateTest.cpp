#include "drawing/Raster.h"
#include "still/LWStill.h"
#include "tests/app/DocumentFixture.h"

#include <QTest>

namespace {
using LWAppDelegateTest = DocumentFixture;

constexpr QRgb red = 0xffff0000;
constexpr QRgb green = 0xff00ff00;
constexpr QRgb black = 0xff000000;
} // namespace

TEST_F(LWAppDelegateTest, AFreshStartShowsLayer0On1920x1080)
{
    ASSERT_EQ(document.allScreensArray().size(), 1U);
    EXPECT_EQ(document.OutputWidth(), 1920);
    EXPECT_EQ(document.OutputHeight(), 1080);

    const LayerPointer layer = selected();
    EXPECT_EQ(layer->label(), "Layer 0");
    EXPECT_EQ(layer->row(), 5);
    EXPECT_EQ(layer->col(), 8);
    EXPECT_EQ(layer->panelWidth(), 128);
    EXPECT_EQ(layer->panelHeight(), 128);
    EXPECT_EQ(layer->rectColor(), OptionalColour(NamedColour::red));
    EXPECT_EQ(layer->rectColor2(), OptionalColour(NamedColour::lightGray));
    EXPECT_EQ(layer->XYFontSize(), 50);
    EXPECT_TRUE(layer->CircleEnable());
    EXPECT_EQ(layer->powerOnCell(), 200);

    EXPECT_EQ(composed.size(), 1);
    EXPECT_EQ(document.img().size(), QSize(1920, 1080));
    EXPECT_EQ(document.img().format(), Raster::format);
    EXPECT_EQ(document.powerResult(), "Total Power: 72.73Amp");
    EXPECT_TRUE(person.alerts.isEmpty());
}

TEST_F(LWAppDelegateTest, GroundAndOutlineStartOpaqueBlackAndThePopUpAt0)
{
    EXPECT_EQ(document.bgColor(), NamedColour::black);
    EXPECT_EQ(document.edgeColor(), NamedColour::black);
    EXPECT_EQ(document.popupIndex(), 0);
    EXPECT_EQ(outputPixel(1919, 1079), black);
}

TEST_F(LWAppDelegateTest, OfTwoUpdatesInARowOnlyTheFirstComposes)
{
    compose();
    const qsizetype compositions = composed.size();
    const qsizetype changes = changed.size();
    selected()->setPowerOnCell(100);
    selected()->setXpoint(5);

    document.update();

    EXPECT_EQ(composed.size(), compositions);
    EXPECT_EQ(changed.size(), changes + 1);
    EXPECT_EQ(document.powerResult(), "Total Power: 36.36Amp");
}

TEST_F(LWAppDelegateTest, AfterATenthOfASecondTheNextCallComposesAgain)
{
    EXPECT_FALSE(document.shouldUpdate());
    ASSERT_TRUE(QTest::qWaitFor([&] { return document.shouldUpdate(); }));
    selected()->setXpoint(5);

    document.update();

    EXPECT_EQ(composed.size(), 2);
}

TEST_F(LWAppDelegateTest, TimerupdateOnlySetsTheFlag)
{
    document.update();
    const qsizetype changes = changed.size();
    selected()->setXpoint(5);

    document.timerupdate();

    EXPECT_TRUE(document.shouldUpdate());
    EXPECT_EQ(composed.size(), 1);
    EXPECT_EQ(changed.size(), changes);
}

TEST_F(LWAppDelegateTest, ABurstOfEditsEndsWithItsLastOneOnTheOutput)
{
    setLayers({solidScreen(NamedColour::red, {0, 0, 10, 10})});
    compose();
    const qsizetype compositions = composed.size();

    for (int x = 1; x <= 50; ++x)
        document.setValue(x, "arrangedObjects.xpoint");
    EXPECT_EQ(composed.size(), compositions);
    EXPECT_EQ(outputPixel(59, 5), black);

    EXPECT_TRUE(QTest::qWaitFor([&] { return outputPixel(59, 5) == red; }));
    EXPECT_EQ(outputPixel(49, 5), black);
    EXPECT_EQ(composed.size(), compositions + 1);
}

TEST_F(LWAppDelegateTest, AMadeUpUpdateIsNotRepeated)
{
    selected()->setXpoint(5);
    document.update();
    ASSERT_TRUE(QTest::qWaitFor([&] { return composed.size() == 2; }));
    selected()->setXpoint(6);

    QTest::qWait(350);

    EXPECT_EQ(composed.size(), 2);
    EXPECT_TRUE(document.shouldUpdate());
}

TEST_F(LWAppDelegateTest, TheFirstRowLiesOnTop)
{
    setLayers({solidScreen(NamedColour::red, {0, 0, 20, 20}), solidScreen(NamedColour::green, {10, 10, 20, 20})});
    compose();

    EXPECT_EQ(outputPixel(15, 15), red);
    EXPECT_EQ(outputPixel(25, 25), green);
    EXPECT_EQ(outputPixel(35, 25), black);
}

TEST_F(LWAppDelegateTest, AHiddenLayerIsAbsentButCounts)
{
    const LayerPointer wall = solidScreen(NamedColour::red, {0, 0, 20, 20});
    wall->setPowerOnCell(110);
    wall->setVisible(false);
    setLayers({wall});
    compose();

    EXPECT_EQ(outputPixel(10, 10), black);
    EXPECT_EQ(document.powerResult(), "Total Power: 1.00Amp");
}

TEST_F(LWAppDelegateTest, ALayerAt0TouchesTheTopOfTheOutput)
{
    setLayers({solidScreen(NamedColour::red, {7, 0, 20, 31})});
    compose();

    EXPECT_EQ(outputPixel(7, 0), red);
    EXPECT_EQ(outputPixel(7, 30), red);
    EXPECT_EQ(outputPixel(7, 31), black);
    EXPECT_EQ(outputPixel(6, 0), black);
}

TEST_F(LWAppDelegateTest, OverATransparentGroundNothingShows)
{
    setLayers({solidScreen(NamedColour::red, {0, 0, 20, 20})});
    document.setBgColor(NamedColour::clear);
    document.setEdgeColor(NamedColour::clear);
    compose();

    EXPECT_EQ(outputPixel(10, 10), 0U);
}

TEST_F(LWAppDelegateTest, OverAHalfTransparentGroundHalfShows)
{
    setLayers({solidScreen(NamedColour::red, {0, 0, 20, 20})});
    document.setBgColor(Colour::fromRgba8(0x80000000U));
    compose();

    const QColor shown = document.offscreenRep().pixelColor(10, 10);
    EXPECT_EQ(shown.alpha(), 0x80);
    EXPECT_NEAR(shown.red(), 255, 2);
}

TEST_F(LWAppDelegateTest, TheOutlineIsOnePixelInsideTheOutput)
{
    setLayers({});
    document.setEdgeColor(NamedColour::green);
    compose();

    EXPECT_EQ(outputPixel(0, 0), green);
    EXPECT_EQ(outputPixel(1919, 540), green);
    EXPECT_EQ(outputPixel(960, 1079), green);
    EXPECT_EQ(outputPixel(1, 1), black);
}

TEST_F(LWAppDelegateTest, OnlyTheSelectedLayerIsRendered)
{
    const LayerPointer first = solidScreen(NamedColour::red, {0, 0, 20, 20});
    const LayerPointer second = solidScreen(NamedColour::red, {40, 0, 20, 20});
    setLayers({first, second});
    first->setRectColor(NamedColour::green);
    second->setRectColor(NamedColour::green);
    compose();

    EXPECT_EQ(outputPixel(10, 10), green);
    EXPECT_EQ(outputPixel(50, 10), red);
}

TEST_F(LWAppDelegateTest, SwitchesFollowTheKindOfTheSelectedLayer)
{
    const LayerPointer screen = solidScreen(NamedColour::red, {0, 0, 5, 5});
    const LayerPointer still = LWStill::initWithimage(document, QImage(5, 5, QImage::Format_RGB32));
    screen->setShowPowerl(true);
    setLayers({screen, still});
    compose();
    EXPECT_TRUE(screen->aspectHidden());
    EXPECT_FALSE(screen->showPower());
    EXPECT_FALSE(screen->showPowerl());
    EXPECT_FALSE(still->showPower());

    document.arraycontroller().setSelectionIndex(1);
    still->setAspectHidden(true);
    compose();
    EXPECT_FALSE(still->aspectHidden());
    EXPECT_TRUE(still->showPower());
    EXPECT_TRUE(still->showPowerl());
}

TEST_F(LWAppDelegateTest, ASelectedStillHasItsMarker)
{
    const LayerPointer still = LWStill::initWithimage(document, QImage(400, 200, QImage::Format_RGB32));
    still->setXpoint(100);
    still->setYpoint(50);
    setLayers({solidScreen(NamedColour::red, {0, 0, 5, 5}), still});
    document.setOutputWidth(1928);
    document.setOutputHeight(1090);
    person.canvasFrame = {960, 540};
    compose();
    const LWStill::Marker &marker = dynamic_cast<LWStill &>(*still).marker();
    EXPECT_EQ(marker.rectangle, QRectF());

    document.arraycontroller().setSelectionIndex(1);
    compose();
    EXPECT_EQ(marker.rectangle, QRectF(51, 26, 200, 100));
    EXPECT_EQ(marker.scaleFactor, 1.5F);
}

TEST_F(LWAppDelegateTest, AStillIsComposedAtTheSizeThatWasEdited)
{
    QImage picture(31, 17, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    setLayers({LWStill::initWithimage(document, picture)});
    selected()->setXpoint(10);
    selected()->setPanelWidth(400);
    selected()->setPanelHeight(3);
    compose();

    EXPECT_EQ(outputPixel(9, 1), 0xff000000U);
    EXPECT_EQ(outputPixel(10, 1), 0xff0000ffU);
    EXPECT_EQ(outputPixel(409, 2), 0xff0000ffU);
    EXPECT_EQ(outputPixel(410, 1), 0xff000000U);
    EXPECT_EQ(outputPixel(20, 3), 0xff000000U);
}

TEST_F(LWAppDelegateTest, ThePowerTextLastsUntilTheNextComposition)
{
    selected()->setScreenFontEnable(true);
    compose();
    const QImage without = selected()->thumbnail().copy();
    ASSERT_FALSE(document.shouldUpdate());

    document.setValue(true, "arrangedObjects.showPower");
    EXPECT_TRUE(selected()->showPower());
    EXPECT_NE(selected()->thumbnail(), without);

    ASSERT_TRUE(QTest::qWaitFor([&] { return !selected()->showPower(); }));
    EXPECT_EQ(selected()->thumbnail(), without);
}

TEST_F(LWAppDelegateTest, AnUnselectedScreenKeepsThePowerTextItWasRenderedWith)
{
    const LayerPointer wall = solidScreen(NamedColour::red, {0, 0, 640, 360});
    wall->setScreenFontEnable(true);
    wall->setScreenFontSize(20);
    wall->setSfColor(NamedColour::white);
    wall->drawInRect();
    const QImage without = wall->thumbnail().copy();
    wall->setShowPower(true);
    wall->drawInRect();
    const QImage with = wall->thumbnail().copy();
    setLayers({solidScreen(NamedColour::green, {0, 0, 1, 1}), wall});

    compose();

    EXPECT_NE(with, without);
    EXPECT_TRUE(wall->showPower());
    EXPECT_EQ(wall->thumbnail(), with);
}

TEST_F(LWAppDelegateTest, TheRenderingChoosesTheSupplyThatTheTextsName)
{
    EXPECT_EQ(document.voltageCalc(), 110);
    EXPECT_EQ(document.phaseCalc(), 1);

    document.voltageSelect(208);
    document.phaseSelect(3);

    EXPECT_EQ(document.voltageCalc(), 208);
    EXPECT_EQ(document.phaseCalc(), 3);
    EXPECT_EQ(document.powerResult(), "Total Power: 12.82Amp"); // 8000 / 624
}

TEST_F(LWAppDelegateTest, AnArrowButtonSetsThePatternOfTheSelectedLayer)
{
    const auto screen = std::dynamic_pointer_cast<LWScreen>(selected());
    ASSERT_NE(screen, nullptr);

    screen->changeArrows(5);

    EXPECT_EQ(document.pattern(), 5);
    EXPECT_EQ(screen->pattern(), 5);
}

TEST_F(LWAppDelegateTest, EditsOfTheOutputSizeRedraw)
{
    document.timerupdate();
    EXPECT_TRUE(document.setValue(640, "OutputWidth"));
    document.timerupdate();
    EXPECT_TRUE(document.setValue(360, "OutputHeight"));

    EXPECT_EQ(document.img().size(), QSize(640, 360));
}

TEST_F(LWAppDelegateTest, OnlyWhatIsEditedRedraws)
{
    document.timerupdate();
    const qsizetype compositions = composed.size();

    document.setOutputWidth(640);
    selected()->setPanelWidth(5);
    EXPECT_FALSE(document.setValue("wide", "OutputWidth"));
    EXPECT_FALSE(document.setValue("name", "objectName"));
    EXPECT_TRUE(document.setValue(QSizeF(1, 1), "arrangedObjects.aspectValue"));

    EXPECT_EQ(composed.size(), compositions);
    EXPECT_TRUE(document.shouldUpdate());
}

TEST_F(LWAppDelegateTest, ThePopUpRedraws)
{
    selected()->setXYFontEnable(true);
    selected()->setXyColor(NamedColour::white);
    selected()->setXYFontSize(12);
    compose();
    document.timerupdate();
    const qsizetype compositions = composed.size();
    document.setPopupIndex(2);
    document.popupButton();

    EXPECT_EQ(document.popupIndex(), 2);
    EXPECT_EQ(composed.size(), compositions + 1);
}

TEST_F(LWAppDelegateTest, ThePopUpComposesNothingWhereNoWallShowsCorners)
{
    selected()->setXYFontEnable(false);
    compose();
    document.timerupdate();
    const qsizetype compositions = composed.size();
    document.setPopupIndex(2);
    document.popupButton();

    EXPECT_FALSE(document.shouldUpdate());
    EXPECT_EQ(composed.size(), compositions);
}

TEST_F(LWAppDelegateTest, ADocumentWithoutLayersStandsEverything)
{
    setLayers({});
    compose();
    EXPECT_EQ(document.powerResult(), "Total Power: 0.00Amp");
    EXPECT_EQ(outputPixel(5, 5), black);
    EXPECT_FALSE(document.setValue(5, "arrangedObjects.col"));
    document.choosePattern(3);
    document.observeValueForKeyPath("arrangedObjects.col");
}

TEST_F(LWAppDelegateTest, AnOutputWithoutPixelsIsEmpty)
{
    document.setOutputWidth(0);
    compose();

    EXPECT_TRUE(document.offscreenRep().isNull());
    EXPECT_TRUE(document.img().isNull());
}

TEST_F(LWAppDelegateTest, TheOutputIsComposedIntoTheSameMemory)
{
    const uchar *before = document.offscreenRep().constBits();
    selected()->setXpoint(5);
    compose();

    EXPECT_EQ(composed.size(), 2);
    EXPECT_EQ(document.offscreenRep().constBits(), before);
}
