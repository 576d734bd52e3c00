#include "tests/base/Threads.h"
#include "tests/screen/ChartFixtures.h"
#include "tests/screen/PlainChart.h"
#include "tests/screen/RandomChart.h"
#include "tests/screen/SamePicture.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace {
constexpr quint32 firstSeed = 20'000;
constexpr int randomCharts = 400;

/// Labels that lie over each other may be combined before they are blended, which rounds once instead of many times;
/// translucent ones are blended, and rounded, most often.
constexpr int overlappingLabelsTolerance = 3;
constexpr int translucentLabelsTolerance = 8;

bool labelsMayOverlap(const ScreenChart &chart)
{
    if (!chart.drawLabels)
        return false;
    const QString longest = QString(qBound(1, chart.col / 26 + 1, 64), 'W') + "0000 ";
    const QSize box = TextLine(longest, chart.labelFontSize).size();
    return box.width() > chart.panelWidth || box.height() > chart.panelHeight;
}

int tolerance(const ScreenChart &chart)
{
    if (!labelsMayOverlap(chart))
        return 0;
    const bool isTranslucent = chart.labelColor && chart.labelColor->alpha < 1;
    return isTranslucent ? translucentLabelsTolerance : overlappingLabelsTolerance;
}

testing::AssertionResult isDrawnAsPlain(const ScreenChart &chart)
{
    return isSamePicture(chart.draw({}), plainChart(chart), tolerance(chart));
}

/// The decorated wall with something changed.
struct Case
{
    const char *name;
    std::function<void(ScreenChart &)> change;
};

void PrintTo(const Case &changed, std::ostream *out)
{
    *out << changed.name;
}

class ChartAgainstPlainCase : public testing::TestWithParam<Case>
{};

const Case cases[] = {
    {"Unchanged", [](ScreenChart &) {}},
    {"NoBackground", [](ScreenChart &c) { c.bgEnable = false; }},
    {"OddPanels",
     [](ScreenChart &c) {
         c.panelWidth = 71;
         c.panelHeight = 53;
     }},
    {"WidePanels",
     [](ScreenChart &c) {
         c.panelWidth = 300;
         c.panelHeight = 17;
     }},
    {"TallPanels",
     [](ScreenChart &c) {
         c.panelWidth = 17;
         c.panelHeight = 300;
     }},
    {"OnePanel",
     [](ScreenChart &c) {
         c.col = 1;
         c.row = 1;
     }},
    {"OnePixel",
     [](ScreenChart &c) {
         c.col = 1;
         c.row = 1;
         c.panelWidth = 1;
         c.panelHeight = 1;
     }},
    {"PanelsOfOnePixel",
     [](ScreenChart &c) {
         c.col = 97;
         c.row = 61;
         c.panelWidth = 1;
         c.panelHeight = 1;
         c.pixelLimit = 970;
     }},
    {"PanelsOfFourPixels",
     [](ScreenChart &c) {
         c.col = 60;
         c.row = 50;
         c.panelWidth = 4;
         c.panelHeight = 4;
         c.labelFontSize = 9;
         c.pixelLimit = 8000;
     }},
    {"ManyColumns",
     [](ScreenChart &c) {
         c.col = 90;
         c.row = 2;
         c.panelWidth = 20;
         c.panelHeight = 60;
     }},
    {"RowsLettered",
     [](ScreenChart &c) {
         c.XYLabelDirection = true;
         c.row = 40;
         c.panelHeight = 25;
     }},
    {"WideFrames", [](ScreenChart &c) { c.boarderWidth = 60; }},
    {"NoColours",
     [](ScreenChart &c) {
         c.rectColor = {};
         c.rectColor2 = {};
         c.boarderColor = {};
         c.circleColor = {};
         c.sfColor = {};
         c.xyColor = {};
         c.labelColor = {};
     }},
    {"NoFirstColour", [](ScreenChart &c) { c.rectColor = {}; }},
    {"NoSecondColour", [](ScreenChart &c) { c.rectColor2 = {}; }},
    {"NoFrameColour", [](ScreenChart &c) { c.boarderColor = {}; }},
    {"NoCircleColour", [](ScreenChart &c) { c.circleColor = {}; }},
    {"NoPanelAndFrameColour",
     [](ScreenChart &c) {
         c.rectColor = {};
         c.boarderColor = {};
     }},
    {"NoBackgroundAndFrameColour",
     [](ScreenChart &c) {
         c.bgEnable = false;
         c.boarderColor = {};
         c.circleColor = {};
     }},
    {"TranslucentColours",
     [](ScreenChart &c) {
         c.rectColor = Colour{1, 0.5, 0.25, 0.5};
         c.rectColor2 = Colour{0.1, 0.9, 0.3, 0.1};
         c.boarderColor = Colour{1, 1, 1, 0.3};
         c.circleColor = Colour{0.2, 0.4, 1, 0.6};
         c.sfColor = Colour{1, 1, 0, 0.4};
         c.xyColor = Colour{0, 1, 1, 0.7};
         c.labelColor = Colour{0.3, 1, 0.3, 0.5};
     }},
    {"ColoursOutsideTheirRange",
     [](ScreenChart &c) {
         c.rectColor = Colour{1.7, -0.3, 0.5, 1.2};
         c.rectColor2 = Colour{0.5, 0.5, 0.5, -1};
     }},
    {"ThinnestCircle", [](ScreenChart &c) { c.circleBWidth = 0; }},
    {"NegativeCircle", [](ScreenChart &c) { c.circleBWidth = -7; }},
    {"CircleOfTheWallsHeight", [](ScreenChart &c) { c.circleBWidth = 300; }},
    {"CircleWiderThanTheWall", [](ScreenChart &c) { c.circleBWidth = 903; }},
    {"HugeTexts",
     [](ScreenChart &c) {
         c.screenFontSize = 700;
         c.XYFontSize = 1500;
         c.labelFontSize = 900;
     }},
    {"TinyTexts",
     [](ScreenChart &c) {
         c.screenFontSize = 1;
         c.XYFontSize = 2;
         c.labelFontSize = 0.25;
     }},
    {"FractionalLabels", [](ScreenChart &c) { c.labelFontSize = 12.75; }},
    {"BothNegative",
     [](ScreenChart &c) {
         c.col = -4;
         c.panelWidth = -100;
         c.row = -3;
         c.panelHeight = -100;
     }},
    {"NegativeColumns",
     [](ScreenChart &c) {
         c.col = -4;
         c.panelWidth = -100;
     }},
    {"ManyHoles",
     [](ScreenChart &c) {
         c.hiddenBoxes = PanelKeys(
             QStringList{"0,0", "0,1", "0,2", "0,3", "1,0", "2,3", "2,3", "7,7", "x", "18446744073709551615,0"});
     }},
};

INSTANTIATE_TEST_SUITE_P(Walls, ChartAgainstPlainCase, testing::ValuesIn(cases),
                         [](const auto &changed) { return std::string(changed.param.name); });
} // namespace

TEST_P(ChartAgainstPlainCase, GivesTheSamePixels)
{
    for (int pattern = 0; pattern <= 8; ++pattern) {
        ScreenChart chart = decoratedWall();
        chart.pattern = pattern;
        GetParam().change(chart);
        EXPECT_TRUE(isDrawnAsPlain(chart)) << "pattern " << pattern;
    }
}

TEST(ChartAgainstPlain, PixelLimitsOfAllKindsGiveTheSamePixels)
{
    for (int pattern = -1; pattern <= 8; ++pattern) {
        for (const qint64 limit : {0, 1, 29999, 30000, 40000, 79999, 80000, 90000, 119999, 120000, 130000, 10'000'000,
                                   -1, -30000, -40000, -60000, -80000, -90000, -2'000'000}) {
            ScreenChart chart = blankWall();
            chart.drawFlowPath = true;
            chart.pattern = pattern;
            chart.pixelLimit = limit;
            EXPECT_TRUE(isDrawnAsPlain(chart)) << "pattern " << pattern << ", limit " << limit;
        }
    }
}

TEST(ChartAgainstPlain, LargeWallsGiveTheSamePixels)
{
    ScreenChart chart = decoratedWall();
    chart.col = 12;
    chart.row = 7;
    chart.panelWidth = 128;
    chart.panelHeight = 128;
    chart.pixelLimit = 655360;
    EXPECT_TRUE(isDrawnAsPlain(chart));
}

TEST(ChartAgainstPlain, APartOfALargeWallIsTheSameHoweverManyThreadsPaintIt)
{
    ScreenChart chart = decoratedWall();
    chart.col = 14;
    chart.row = 11;
    chart.panelWidth = 128;
    chart.panelHeight = 128;
    const QImage whole = chart.draw({});
    for (const int threads : {1, 2}) {
        const Threads available(threads);
        for (const QRect &part : {QRect(3, 5, 1780, 1400), QRect(0, 127, 1792, 770), QRect(640, 0, 1, 1408)}) {
            QImage raster(whole.size(), whole.format());
            raster.fill(0x12345678);
            chart.drawPart(raster, part);
            EXPECT_EQ(raster.copy(part), whole.copy(part)) << threads << " threads, part of " << part.height();
            EXPECT_EQ(raster.pixel(1791, 1407), 0x12345678U) << "beside the part";
        }
    }
}

TEST(ChartAgainstPlain, RandomChartsGiveTheSamePixels)
{
    for (quint32 seed = firstSeed; seed < firstSeed + randomCharts; ++seed) {
        const ScreenChart chart = RandomChart(seed).chart();
        EXPECT_TRUE(isDrawnAsPlain(chart)) << "seed " << seed << ": " << described(chart);
    }
}
