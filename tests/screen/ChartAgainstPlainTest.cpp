#include "tests/screen/ChartFixtures.h"
#include "tests/screen/PlainChart.h"

#include <QRandomGenerator>
#include <QTextStream>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>

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

int difference(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}

testing::AssertionResult isSamePicture(const QImage &fast, const QImage &plain, int tolerance)
{
    if (fast.size() != plain.size() || fast.format() != plain.format())
        return testing::AssertionFailure() << "size " << fast.width() << " x " << fast.height() << ", plain "
                                           << plain.width() << " x " << plain.height();
    int differing = 0;
    int largest = 0;
    QPoint first;
    for (int y = 0; y < plain.height(); ++y) {
        const auto *fastRow = reinterpret_cast<const QRgb *>(fast.constScanLine(y));
        const auto *plainRow = reinterpret_cast<const QRgb *>(plain.constScanLine(y));
        for (int x = 0; x < plain.width(); ++x) {
            const int steps = difference(fastRow[x], plainRow[x]);
            if (steps <= tolerance)
                continue;
            first = differing == 0 ? QPoint(x, y) : first;
            largest = std::max(largest, steps);
            ++differing;
        }
    }
    if (differing == 0)
        return testing::AssertionSuccess();
    const auto pixel = [&](const QImage &image) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(first.y()));
        return QString::number(row[first.x()], 16).toStdString();
    };
    return testing::AssertionFailure() << differing << " pixels differ by up to " << largest << "; the first at ("
                                       << first.x() << ", " << first.y() << " from the top): " << pixel(fast)
                                       << ", plain " << pixel(plain);
}

testing::AssertionResult isDrawnAsPlain(const ScreenChart &chart)
{
    return isSamePicture(chart.draw({}), plainChart(chart), tolerance(chart));
}

std::string described(const ScreenChart &chart)
{
    QString text;
    QTextStream(&text) << chart.col << " x " << chart.row << " panels of " << chart.panelWidth << " x "
                       << chart.panelHeight << ", background " << chart.bgEnable << ", frames " << chart.BoarderEnable
                       << " of " << chart.boarderWidth << ", circle " << chart.CircleEnable << " of "
                       << chart.circleBWidth << ", corners " << chart.XYFontEnable << " of " << chart.XYFontSize
                       << ", centre " << chart.screenFontEnable << " of " << chart.screenFontSize << ", labels "
                       << chart.drawLabels << chart.XYLabelDirection << " of " << chart.labelFontSize << " alpha "
                       << (chart.labelColor ? chart.labelColor->alpha : -1) << ", path " << chart.drawFlowPath << " "
                       << chart.pattern << " by " << chart.pixelLimit;
    return text.toStdString();
}

/// Draws charts from a number, the same ones every time.
class RandomChart
{
public:
    explicit RandomChart(quint32 seed) : m_random(seed) {}

    ScreenChart chart()
    {
        ScreenChart chart;
        chooseGeometry(chart);
        choosePanels(chart);
        chooseTexts(chart);
        chart.drawFlowPath = oneIn(2);
        chart.pattern = between(-1, 9);
        const int panels = between(-3 * std::abs(chart.col), 3 * std::abs(chart.col) + 5);
        chart.pixelLimit = oneIn(4) ? 0 : qint64{panels} * chart.panelWidth * chart.panelHeight + between(-1, 1);
        return chart;
    }

private:
    int between(int lowest, int highest) { return m_random.bounded(lowest, highest + 1); }
    bool oneIn(int count) { return between(1, count) == 1; }
    template <typename T>
    T oneOf(std::initializer_list<T> choices)
    {
        return choices.begin()[between(0, static_cast<int>(choices.size()) - 1)];
    }

    Colour colour()
    {
        const auto component = [this] { return between(0, 20) / 20.0; };
        return {component(), component(), component(), oneIn(2) ? 1 : component()};
    }
    OptionalColour maybeColour() { return oneIn(6) ? OptionalColour() : colour(); }

    void chooseGeometry(ScreenChart &chart)
    {
        const int most = oneOf({2, 5, 12, 40});
        chart.col = between(1, most);
        chart.row = between(1, most);
        chart.panelWidth = between(1, 480 / most);
        chart.panelHeight = between(1, 360 / most);
        if (oneIn(12))
            std::tie(chart.col, chart.panelWidth) = std::pair(-chart.col, -chart.panelWidth);
        if (oneIn(12))
            std::tie(chart.row, chart.panelHeight) = std::pair(-chart.row, -chart.panelHeight);
        chart.xpoint = between(-2000, 9000);
        chart.ypoint = between(-2000, 9000);
    }

    void choosePanels(ScreenChart &chart)
    {
        chart.bgEnable = !oneIn(4);
        chart.rectColor = maybeColour();
        chart.rectColor2 = maybeColour();
        chart.BoarderEnable = !oneIn(3);
        chart.boarderColor = maybeColour();
        chart.boarderWidth = oneOf({-1, 0, 1, 1, 2, 3, 7, 30, 1000});
        chart.hiddenBoxes = PanelKeys();
        for (int i = oneIn(2) ? between(1, 8) : 0; i > 0; --i) {
            const int row = between(0, chart.row);
            chart.hiddenBoxes->append({between(0, chart.col), row});
        }
        chart.CircleEnable = oneIn(2);
        chart.circleColor = maybeColour();
        chart.circleBWidth = oneOf({-3, 0, 1, 2, 4, 5, 9, 40, 700});
    }

    void chooseTexts(ScreenChart &chart)
    {
        chart.screenFontEnable = oneIn(2);
        chart.screenFontSize = fontSize();
        chart.sfColor = maybeColour();
        chart.label = oneOf<QString>({QString(), "", "Main wall", "Bühne – links ÄÖ", "W%1%%2/\nfi"});
        chart.showPower = oneIn(2);
        chart.powerOnCell = oneOf({0, 1, 200, 123'456'789, -5});
        chart.voltage = oneOf<qint64>({110, 208, 230, 0, -1});
        chart.phases = oneOf<qint64>({1, 3, 0});
        chart.XYFontEnable = oneIn(2);
        chart.XYFontSize = fontSize();
        chart.xyColor = maybeColour();
        chart.popupIndex = between(-1, 3);
        chart.drawLabels = oneIn(2);
        chart.labelColor = maybeColour();
        chart.labelFontSize = oneOf({0.3, 5.5, 9.0, 9.0, 12.75, 24.0, 33.0, 300.0, 1200.0, -2.0});
        chart.XYLabelDirection = oneIn(2);
    }
    int fontSize() { return oneOf({-3, 0, 1, 2, 5, 9, 13, 20, 33, 80, 500, 1100, 20000}); }

    QRandomGenerator m_random;
};

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

TEST(ChartAgainstPlain, RandomChartsGiveTheSamePixels)
{
    for (quint32 seed = firstSeed; seed < firstSeed + randomCharts; ++seed) {
        const ScreenChart chart = RandomChart(seed).chart();
        EXPECT_TRUE(isDrawnAsPlain(chart)) << "seed " << seed << ": " << described(chart);
    }
}
