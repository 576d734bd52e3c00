#include "tests/screen/ChartFixtures.h"
#include "tests/screen/PlainCanvas.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
/// A text where a chart should have it, with the bottom left of its box at (x, y).
struct ExpectedText
{
    QString text;
    qint64 x;
    qint64 y;
    double pointSize = 20;
    Colour colour = NamedColour::orange;
    OptionalColour box = Colour::gray(0, 0.75);
};

QImage rasterWith(const ScreenChart &chart, const std::vector<ExpectedText> &texts)
{
    QImage raster = emptyRaster(chart);
    PlainCanvas canvas(raster);
    for (const ExpectedText &text : texts)
        canvas.drawText(text.x, text.y, text.text, text.pointSize, text.colour, text.box);
    return raster;
}

int widthOf(const QString &text, double pointSize = 20)
{
    return TextLine(text, pointSize).size().width();
}

ScreenChart withCentreTexts()
{
    ScreenChart chart = blankWall();
    chart.screenFontEnable = true;
    chart.screenFontSize = 20;
    chart.sfColor = NamedColour::orange;
    return chart;
}

ScreenChart withPowerText(int powerOnCell)
{
    ScreenChart chart = withCentreTexts();
    chart.showPower = true;
    chart.powerOnCell = powerOnCell;
    return chart;
}

/// The wall shows its size and this power text.
void expectPowerText(const ScreenChart &chart, const QString &power)
{
    const QSize size = TextLine(power, 20).size();
    const int y = static_cast<int>(10 + 150 - 1.82 * size.height());
    EXPECT_EQ(chart.draw({}),
              rasterWith(chart, {{"W 0400: H 0300", 200 - 74, 150 - 10}, {power, 200 - size.width() / 2, y}}))
        << qPrintable(power);
}

ScreenChart withCornerTexts(int popupIndex)
{
    ScreenChart chart = blankWall();
    chart.XYFontEnable = true;
    chart.XYFontSize = 20;
    chart.xyColor = NamedColour::orange;
    chart.circleBWidth = 4;
    chart.xpoint = 120;
    chart.ypoint = -40;
    chart.popupIndex = popupIndex;
    return chart;
}

const ExpectedText topLeft{"X 120 ,Y -40", 4, 300 - 10 - 4 - 20};
const ExpectedText bottomLeft{"X 120 ,Y 260", 4, 4};
ExpectedText bottomRight()
{
    const QString text = "X 520 ,Y 260";
    return {text, 400 - widthOf(text) - 5, 4};
}

ScreenChart withLabels(bool direction)
{
    ScreenChart chart = blankWall();
    chart.drawLabels = true;
    chart.labelColor = NamedColour::orange;
    chart.labelFontSize = 16;
    chart.XYLabelDirection = direction;
    return chart;
}

ExpectedText label(const QString &text, int x, int y, double pointSize = 16)
{
    return {text, x, y, pointSize, NamedColour::orange, std::nullopt};
}
} // namespace

TEST(ChartTexts, ATextsPointIsTheBottomLeftOfItsBox)
{
    const QImage raster = withCentreTexts().draw({});
    const QSize box = TextLine("W 0400: H 0300", 20).size();

    EXPECT_EQ(drawnArea(raster), QRect(QPoint(126, 140), box)); // 200 - 74, 150 - 10
    EXPECT_EQ(pixelAt(raster, 126, 140), QColor(0, 0, 0, 191));
}

TEST(ChartTexts, OnePointIsOnePixel)
{
    const QSize small = TextLine("H", 20).size();
    const QSize large = TextLine("H", 200).size();

    EXPECT_GE(small.height(), 20);
    EXPECT_LE(small.height(), 27); // 96 dots per inch would make it 32
    EXPECT_NEAR(large.height(), 10 * small.height(), 12);
}

TEST(ChartTexts, TheSizeStandsLeftOfTheMiddle)
{
    const ScreenChart chart = withCentreTexts();
    EXPECT_EQ(chart.draw({}), rasterWith(chart, {{"W 0400: H 0300", 126, 140}}));
}

TEST(ChartTexts, TheSizeHasFourDigits)
{
    ScreenChart chart = withCentreTexts();
    chart.col = 5;
    chart.row = 5;
    chart.panelWidth = 48;
    chart.panelHeight = 48;
    EXPECT_EQ(chart.draw({}), rasterWith(chart, {{"W 0240: H 0240", 120 - 74, 120 - 10}}));

    chart.col = 12345;
    chart.panelWidth = 1;
    EXPECT_EQ(chart.draw({}), rasterWith(chart, {{"W 12345: H 0240", 6172 - 74, 120 - 10}}));
}

TEST(ChartTexts, OddSizesAreHalvedDownward)
{
    ScreenChart chart = withCentreTexts();
    chart.panelWidth = 101; // 404 x 303
    chart.panelHeight = 101;
    chart.screenFontSize = 13; // 3.7 x 13 = 48.1
    EXPECT_EQ(chart.draw({}), rasterWith(chart, {{"W 0404: H 0303", 202 - 48, 151 - 6, 13}}));
}

TEST(ChartTexts, TheNameIsCentredAboveTheMiddle)
{
    ScreenChart chart = withCentreTexts();
    chart.sfColor = std::nullopt;
    chart.label = "Main wall";
    const qint64 x = 200 - widthOf("Main wall") / 2;

    EXPECT_EQ(chart.draw({}),
              rasterWith(chart, {{"Main wall", x, 150 + 10 + 10, 20, NamedColour::black, Colour::gray(1, 0.9)}}));
}

TEST(ChartTexts, TheNameLiesOverTheSizeAndUnderThePower)
{
    ScreenChart chart = withPowerText(20);
    chart.label = "Main wall";
    chart.screenFontSize = 60;
    const QString power = "2.18A| 110V| 1Phase";
    const QSize size = TextLine(power, 60).size();
    const int y = static_cast<int>(30 + 150 - 1.82 * size.height());

    EXPECT_EQ(chart.draw({}), rasterWith(chart, {{"W 0400: H 0300", 200 - 222, 150 - 30, 60},
                                                 {"Main wall", 200 - widthOf("Main wall", 60) / 2, 150 + 10 + 30, 60,
                                                  NamedColour::black, Colour::gray(1, 0.9)},
                                                 {power, 200 - size.width() / 2, y, 60}}));
}

TEST(ChartTexts, AnEmptyNameDrawsNothing)
{
    ScreenChart chart = withCentreTexts();
    chart.sfColor = std::nullopt;
    chart.label = "";
    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartTexts, SizeAndPowerWithoutAColourAreNotDrawn)
{
    ScreenChart chart = withPowerText(20);
    chart.sfColor = std::nullopt;
    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartTexts, ThePowerIsThePanelsPowerByTheVoltage)
{
    expectPowerText(withPowerText(20), "2.18A| 110V| 1Phase"); // 12 x 20 / 110
}

TEST(ChartTexts, SeveralPhasesShareThePower)
{
    ScreenChart chart = withPowerText(200);
    chart.voltage = 230;
    chart.phases = 3;
    expectPowerText(chart, "3.48A| 230V| 3Phase"); // 2400 / 690
}

TEST(ChartTexts, ATieOfTheCurrentGoesToTheEvenDigit)
{
    ScreenChart chart = withPowerText(13);
    chart.voltage = 416;
    chart.phases = 3;
    expectPowerText(chart, "0.12A| 416V| 3Phase"); // 156 / 1248 = 0.125
}

TEST(ChartTexts, ThePowerWrapsIn32Bits)
{
    expectPowerText(withPowerText(200'000'000),
                    "-17226976.00A| 110V| 1Phase"); // 2400000000 - 2^32, in single precision
}

TEST(ChartTexts, ASupplyOfNothingGivesNoCurrent)
{
    ScreenChart chart = withPowerText(20);
    chart.voltage = 0;
    expectPowerText(chart, "0.00A| 0V| 1Phase");

    chart.voltage = qint64{1} << 62; // times 4 wraps to 0
    chart.phases = 4;
    expectPowerText(chart, "0.00A| 4611686018427387904V| 4Phase");
}

TEST(ChartTexts, CornersFollowThePopUpIndex)
{
    const ScreenChart top = withCornerTexts(0);
    EXPECT_EQ(top.draw({}), rasterWith(top, {topLeft}));

    const ScreenChart bottom = withCornerTexts(1);
    EXPECT_EQ(bottom.draw({}), rasterWith(bottom, {bottomLeft, bottomRight()}));

    const ScreenChart all = withCornerTexts(2);
    EXPECT_EQ(all.draw({}), rasterWith(all, {topLeft, bottomLeft, bottomRight()}));

    for (const int other : {3, -1})
        EXPECT_EQ(withCornerTexts(other).draw({}), emptyRaster(all)) << other;
}

TEST(ChartTexts, BottomCornersOfADefaultWall)
{
    ScreenChart chart = withCornerTexts(1);
    chart.col = 5;
    chart.row = 5;
    chart.panelWidth = 48;
    chart.panelHeight = 48;
    chart.xpoint = 0;
    chart.ypoint = 0;
    const QString right = "X 240 ,Y 240";

    EXPECT_EQ(chart.draw({}), rasterWith(chart, {{"X 0 ,Y 240", 4, 4}, {right, 240 - widthOf(right) - 5, 4}}));
}

TEST(ChartTexts, CornersWithoutAColourAreNotDrawn)
{
    ScreenChart chart = withCornerTexts(2);
    chart.xyColor = std::nullopt;
    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartTexts, LabelsLetterColumnsAndNumberRowsFromTheTop)
{
    const ScreenChart chart = withLabels(false);
    std::vector<ExpectedText> expected;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c)
            expected.push_back(
                label(QString("ABCD").mid(c, 1) + QString::number(3 - r) + " ", 100 * c + 5, 100 * (r + 1) - 16 - 5));
    }
    EXPECT_EQ(chart.draw({}), rasterWith(chart, expected));
}

TEST(ChartTexts, LabelsTheOtherWayLetterRowsAndNumberColumns)
{
    const ScreenChart chart = withLabels(true);
    std::vector<ExpectedText> expected;
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 4; ++c)
            expected.push_back(
                label(QString("CBA").mid(r, 1) + QString::number(c + 1) + " ", 100 * c + 5, 100 * (r + 1) - 16 - 5));
    }
    EXPECT_EQ(chart.draw({}), rasterWith(chart, expected));
}

TEST(ChartTexts, AfterColumnZTheLettersAreDoubled)
{
    ScreenChart chart = withLabels(false);
    chart.col = 54;
    chart.row = 1;
    chart.panelWidth = 90;
    chart.panelHeight = 40;
    std::vector<ExpectedText> expected;
    for (int c = 0; c < 54; ++c) {
        const QString letters(c < 26 ? 1 : c < 52 ? 2 : 3, QChar('A' + c % 26));
        expected.push_back(label(letters + "1 ", 90 * c + 5, 40 - 16 - 5));
    }
    EXPECT_EQ(expected[0].text, "A1 ");
    EXPECT_EQ(expected[25].text, "Z1 ");
    EXPECT_EQ(expected[27].text, "BB1 ");
    EXPECT_EQ(expected[52].text, "AAA1 ");
    EXPECT_EQ(chart.draw({}), rasterWith(chart, expected));
}

TEST(ChartTexts, AfterRowZComesWhatFollowsItInTheCharacterSet)
{
    ScreenChart chart = withLabels(true);
    chart.col = 1;
    chart.row = 28;
    chart.panelHeight = 40;
    std::vector<ExpectedText> expected;
    for (int fromTop = 0; fromTop < 28; ++fromTop)
        expected.push_back(
            label(QString("ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\").mid(fromTop, 1) + "1 ", 5, 40 * (28 - fromTop) - 16 - 5));
    EXPECT_EQ(chart.draw({}), rasterWith(chart, expected));
}

TEST(ChartTexts, ALabelsPlaceIsTruncatedTowardZero)
{
    ScreenChart chart = withLabels(false);
    chart.col = 1;
    chart.row = 1;
    chart.labelFontSize = 12.75; // 100 - 12.75 - 5 = 82.25
    EXPECT_EQ(chart.draw({}), rasterWith(chart, {label("A1 ", 5, 82, 12.75)}));

    chart.panelHeight = 15; // 15 - 12.75 - 5 = -2.75
    EXPECT_EQ(chart.draw({}), rasterWith(chart, {label("A1 ", 5, -2, 12.75)}));
}

TEST(ChartTexts, LabelsWithoutAColourAreNotDrawn)
{
    ScreenChart chart = withLabels(false);
    chart.labelColor = std::nullopt;
    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartTexts, HolesKeepTheirLabels)
{
    ScreenChart chart = withLabels(false);
    const QImage without = chart.draw({});
    chart.hiddenBoxes = PanelKeys(QStringList{"0,0"});
    EXPECT_EQ(chart.draw({}), without);
}

TEST(ChartTexts, SizesOfNothingDrawNothing)
{
    for (const int size : {0, -1, std::numeric_limits<int>::min()}) {
        ScreenChart chart = withPowerText(20);
        chart.label = "Main wall";
        chart.XYFontEnable = true;
        chart.xyColor = NamedColour::white;
        chart.popupIndex = 2;
        chart.drawLabels = true;
        chart.labelColor = NamedColour::white;
        chart.screenFontSize = size;
        chart.XYFontSize = size;
        chart.labelFontSize = size == 0 ? -0.5 : size;
        EXPECT_EQ(chart.draw({}), emptyRaster(chart)) << size;
    }
}
