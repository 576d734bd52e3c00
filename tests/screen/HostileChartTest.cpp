#include "screen/LWScreen.h"
#include "tests/screen/ChartFixtures.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

/// The decorated wall on which nothing small bounds the cost.
ScreenChart wallOf(int col, int row, int panelWidth, int panelHeight)
{
    ScreenChart chart = decoratedWall();
    chart.col = col;
    chart.row = row;
    chart.panelWidth = panelWidth;
    chart.panelHeight = panelHeight;
    return chart;
}
} // namespace

// Each of these would crash, hang or take all memory if it were believed.

TEST(HostileChart, WallsLargerThanAnyRasterHaveNoPicture)
{
    const ScreenChart walls[] = {
        wallOf(2'000'000'000, 5, 128, 128),
        wallOf(5, 2'000'000'000, 128, 128),
        wallOf(2'000'000'000, 5, 1, 1),
        wallOf(most, most, most, most),
        wallOf(least, least, least, least),
        wallOf(65536, 65536, 65536, 65536),
        wallOf(32769, 1, 1, 1),
        wallOf(1, 32769, 1, 1),
        wallOf(300, 300, 100, 100),
    };
    for (const ScreenChart &wall : walls)
        EXPECT_TRUE(wall.draw({}).isNull()) << wall.col << " x " << wall.row;
}

TEST(HostileChart, WallsWithoutPixelsHaveNoPicture)
{
    const ScreenChart walls[] = {
        wallOf(0, 0, 0, 0),      wallOf(most, 0, most, 5), wallOf(4, 3, 0, 100),   wallOf(4, 3, 100, least),
        wallOf(4, -3, 100, 100), wallOf(-4, 3, 100, 100),  wallOf(0, 3, 100, 100), wallOf(4, 3, -1, -1),
    };
    for (const ScreenChart &wall : walls)
        EXPECT_TRUE(wall.draw({}).isNull()) << wall.col << " x " << wall.row;
}

TEST(HostileChart, SizesThatOverflow32BitsAreNotTakenForSmallOnes)
{
    // 65536 x 65537 is 65536 in 32 bits.
    EXPECT_TRUE(wallOf(65537, 1, 65536, 4).draw({}).isNull());

    TestHost host;
    const auto screen = LWScreen::init(host);
    screen->setCol(65537);
    screen->setPanelWidth(65536);
    screen->drawInRect();
    EXPECT_NE(screen->screenSizeWidth(), 65536);
    EXPECT_TRUE(screen->thumbnail().isNull());
}

TEST(HostileChart, LineWidthsAndInsetsOfAnySizeEndAtOnce)
{
    for (const int width : {most, most - 1, least, least + 1, 1'000'000, -1'000'000}) {
        ScreenChart chart = decoratedWall();
        chart.circleBWidth = width;
        EXPECT_EQ(chart.draw({}).size(), QSize(400, 300)) << width;
    }
}

TEST(HostileChart, FramesOfAnyWidthAreDrawn)
{
    for (const int width : {most, least}) {
        ScreenChart chart = decoratedWall();
        chart.boarderWidth = width;
        EXPECT_EQ(chart.draw({}).size(), QSize(400, 300)) << width;
    }
}

TEST(HostileChart, FontsOfAnySizeAreDrawn)
{
    for (const int size : {most, least, 16384, 16385}) {
        ScreenChart chart = decoratedWall();
        chart.screenFontSize = size;
        chart.XYFontSize = size;
        chart.labelFontSize = size;
        EXPECT_EQ(chart.draw({}).size(), QSize(400, 300)) << size;
    }
}

TEST(HostileChart, LabelSizesThatAreNoNumbersDrawNoLabels)
{
    ScreenChart chart = blankWall();
    chart.drawLabels = true;
    chart.labelColor = NamedColour::white;
    for (const double size : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                              -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max()}) {
        chart.labelFontSize = size;
        EXPECT_EQ(chart.draw({}), emptyRaster(chart)) << size;
    }
}

TEST(HostileChart, LabelsTooSmallToReadAreNotDrawn)
{
    ScreenChart chart = decoratedWall();
    for (const double size : {std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::min(), 1e-9}) {
        chart.labelFontSize = size;
        EXPECT_EQ(chart.draw({}).size(), QSize(400, 300)) << size;
    }
}

TEST(HostileChart, PlacesPowerAndSupplyOfAnySizeAreDrawn)
{
    for (const int number : {most, least}) {
        ScreenChart chart = decoratedWall();
        chart.xpoint = number;
        chart.ypoint = number;
        chart.powerOnCell = number;
        chart.popupIndex = number == most ? 2 : 1;
        chart.voltage = number == most ? std::numeric_limits<qint64>::max() : std::numeric_limits<qint64>::min();
        chart.phases = chart.voltage;
        EXPECT_EQ(chart.draw({}).size(), QSize(400, 300)) << number;
    }
}

TEST(HostileChart, PixelLimitsOfAnySizeAreDrawn)
{
    for (const ScreenChart &wall : {wallOf(1, 9, 1, 1), wallOf(9, 1, 1, 1), wallOf(-1, 9, -1, 1), wallOf(9, -1, 1, -1),
                                    wallOf(-1, -9, -1, -1), wallOf(-9, -9, -7, -5)}) {
        for (int pattern = 0; pattern < 8; ++pattern) {
            for (const qint64 limit : {std::numeric_limits<qint64>::min(), qint64{least}, qint64{-1}, qint64{most},
                                       std::numeric_limits<qint64>::max()}) {
                ScreenChart chart = wall;
                chart.pattern = pattern;
                chart.pixelLimit = limit;
                EXPECT_FALSE(chart.draw({}).isNull());
            }
        }
    }
}

TEST(HostileChart, LongNamesAndForeignKeysAreDrawn)
{
    ScreenChart chart = decoratedWall();
    chart.label = QString(1'000'000, 'W');
    chart.hiddenBoxes =
        PanelKeys(chart.hiddenBoxes->texts() + QStringList{QString(1'000'000, '9') + ",0", QString(QChar::Null)});
    EXPECT_EQ(chart.draw({}).size(), QSize(400, 300));

    chart.label = QString::fromUtf16(u"a\tb\n\u202e\ufdd0") + QChar(0) + QChar(0xd800);
    EXPECT_EQ(chart.draw({}).size(), QSize(400, 300));
}

TEST(HostileChart, AsManyPanelsAsARasterHasPixelsAreDrawn)
{
    ScreenChart chart = wallOf(32768, 64, 1, 1);
    chart.drawLabels = false; // a million labels are a matter of speed
    chart.pixelLimit = 32768;
    EXPECT_EQ(chart.draw({}).size(), QSize(32768, 64));
}

TEST(HostileChart, APathThroughThousandsOfTinyRowsIsLeftOut)
{
    for (const bool alongRows : {true, false}) {
        ScreenChart chart;
        chart.col = alongRows ? 1 : 32768;
        chart.row = alongRows ? 32768 : 1;
        chart.panelWidth = alongRows ? 50 : 1;
        chart.panelHeight = alongRows ? 1 : 50;
        chart.drawFlowPath = true;
        chart.pattern = alongRows ? 2 : 6;

        const QImage raster = chart.draw({});

        ASSERT_FALSE(raster.isNull());
        EXPECT_EQ(drawnArea(raster), QRect());
    }
}

TEST(HostileChart, APathThroughHundredsOfRowsIsDrawn)
{
    ScreenChart chart;
    chart.col = 500;
    chart.row = 500;
    chart.panelWidth = 4;
    chart.panelHeight = 4;
    chart.drawFlowPath = true;
    chart.pattern = 2;

    EXPECT_FALSE(drawnArea(chart.draw({})).isEmpty());
}

TEST(HostileChart, TinyLabelsOnThousandsOfColumnsEndAtOnce)
{
    ScreenChart chart;
    chart.col = 32768;
    chart.row = 64;
    chart.panelWidth = 1;
    chart.panelHeight = 1;
    chart.drawLabels = true;
    chart.labelColor = NamedColour::white;
    chart.labelFontSize = 0.3;

    EXPECT_EQ(chart.draw({}).size(), QSize(32768, 64));
}

TEST(HostileChart, ALongNameInForeignLettersTakesLittleMemory)
{
    ScreenChart chart = decoratedWall();
    chart.screenFontSize = 1000;
    for (int i = 0; i < 16384; ++i)
        chart.label->append(QChar(0x531 + i % 38));

    EXPECT_FALSE(chart.draw({}).isNull());
}
