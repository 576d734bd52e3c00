#include "tests/screen/ChartFixtures.h"

#include <gtest/gtest.h>

namespace {
const QColor hole(0, 0, 0, 0);

/// Frames two pixels wide, yellow.
ScreenChart framed(ScreenChart chart)
{
    chart.BoarderEnable = true;
    chart.boarderColor = NamedColour::yellow;
    chart.boarderWidth = 2;
    return chart;
}
} // namespace

TEST(ChartPanels, AlternateFromTheBottomLeft)
{
    const QImage raster = twoColouredWall().draw({});

    ASSERT_EQ(raster.size(), QSize(400, 300));
    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x)
            ASSERT_EQ(pixelAt(raster, x, y), QColor((x / 100 + y / 100) % 2 == 0 ? Qt::red : Qt::blue))
                << x << "," << y;
    }
}

TEST(ChartPanels, OddPanelsMeetWithoutGapOrOverlap)
{
    ScreenChart chart = twoColouredWall();
    chart.col = 5;
    chart.row = 4;
    chart.panelWidth = 7;
    chart.panelHeight = 3;
    const QImage raster = chart.draw({});

    ASSERT_EQ(raster.size(), QSize(35, 12));
    EXPECT_EQ(pixelAt(raster, 0, 0), QColor(Qt::red));
    EXPECT_EQ(pixelAt(raster, 6, 2), QColor(Qt::red));
    EXPECT_EQ(pixelAt(raster, 7, 2), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 6, 3), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 7, 3), QColor(Qt::red));
    EXPECT_EQ(pixelAt(raster, 34, 11), QColor(Qt::blue)); // row 3, column 4
}

TEST(ChartPanels, FramesLieInsideThePanels)
{
    const QImage raster = framed(twoColouredWall()).draw({});

    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x) {
            const bool isFrame = x % 100 < 2 || x % 100 >= 98 || y % 100 < 2 || y % 100 >= 98;
            const QColor panel((x / 100 + y / 100) % 2 == 0 ? Qt::red : Qt::blue);
            ASSERT_EQ(pixelAt(raster, x, y), isFrame ? QColor(Qt::yellow) : panel) << x << "," << y;
        }
    }
}

TEST(ChartPanels, FramesWiderThanThePanelStayInIt)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.col = 1;
    chart.row = 1;
    chart.panelWidth = 5;
    chart.panelHeight = 9;
    chart.boarderWidth = 3;
    const QImage raster = chart.draw({});
    EXPECT_EQ(pixelAt(raster, 2, 4), QColor(Qt::yellow)); // from both sides

    chart.boarderWidth = 1000;
    EXPECT_EQ(pixelAt(chart.draw({}), 2, 4), QColor(Qt::yellow));
}

TEST(ChartPanels, FramesWithoutAWidthAreNotDrawn)
{
    ScreenChart chart = framed(twoColouredWall());
    for (const int width : {0, -1}) {
        chart.boarderWidth = width;
        EXPECT_EQ(chart.draw({}), twoColouredWall().draw({})) << width;
    }
}

TEST(ChartPanels, TranslucentColoursReplaceWhatIsBelow)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.rectColor = Colour{1, 0, 0, 0.5};
    chart.boarderColor = Colour{0, 0, 1, 0.25};
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 50, 50), QColor(255, 0, 0, 128));
    EXPECT_EQ(pixelAt(raster, 0, 0).alpha(), 64);
    EXPECT_EQ(pixelAt(raster, 0, 0).red(), 0);
}

TEST(ChartPanels, AHiddenPanelIsAHole)
{
    ScreenChart chart = twoColouredWall();
    chart.hiddenBoxes = PanelKeys(QStringList{"0,0"});
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 0, 299), hole);
    EXPECT_EQ(pixelAt(raster, 50, 250), hole);
    EXPECT_EQ(pixelAt(raster, 99, 200), hole);
    EXPECT_EQ(pixelAt(raster, 100, 250), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 50, 199), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 50, 50), QColor(Qt::red));
}

TEST(ChartPanels, AHoleKeepsItsFrame)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.hiddenBoxes = PanelKeys(QStringList{"0,0"});
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 1, 298), QColor(Qt::yellow));
    EXPECT_EQ(pixelAt(raster, 2, 297), hole);
    EXPECT_EQ(pixelAt(raster, 97, 202), hole);
    EXPECT_EQ(pixelAt(raster, 98, 201), QColor(Qt::yellow));
}

TEST(ChartPanels, KeysCountRowsFromTheTop)
{
    ScreenChart chart = twoColouredWall();
    chart.row = 5;
    chart.col = 5;
    chart.panelWidth = 48;
    chart.panelHeight = 48;
    chart.hiddenBoxes = PanelKeys(QStringList{"4,0"});
    const QImage raster = chart.draw({});

    ASSERT_EQ(raster.size(), QSize(240, 240));
    EXPECT_EQ(pixelAt(raster, 24, 24), hole); // the bottom left panel
    EXPECT_EQ(pixelAt(raster, 72, 24), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 24, 216), QColor(Qt::red));
}

TEST(ChartPanels, OnlyExactKeysHidePanels)
{
    ScreenChart chart = twoColouredWall();
    chart.hiddenBoxes =
        PanelKeys(QStringList{"0, 0", "00,0", "0,0 ", "-1,0", "3,0", "0,4", "18446744073709551615,0", ""});

    EXPECT_EQ(chart.draw({}), twoColouredWall().draw({}));
}

TEST(ChartPanels, WithoutABackgroundOnlyFramesShow)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.bgEnable = false;
    const QImage raster = chart.draw({});

    for (int y = 0; y < 300; ++y) {
        for (int x = 0; x < 400; ++x) {
            const bool isFrame = x % 100 < 2 || x % 100 >= 98 || y % 100 < 2 || y % 100 >= 98;
            ASSERT_EQ(pixelAt(raster, x, y), isFrame ? QColor(Qt::yellow) : hole) << x << "," << y;
        }
    }
}

TEST(ChartPanels, WithoutBackgroundAndFramesNothingShows)
{
    ScreenChart chart = twoColouredWall();
    chart.bgEnable = false;

    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartPanels, WithoutAColourTheFirstPanelIsBlackAndTheOthersTakeTheirNeighbours)
{
    ScreenChart chart = twoColouredWall();
    chart.rectColor = std::nullopt;
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 50, 50), QColor(Qt::black));
    EXPECT_EQ(pixelAt(raster, 150, 50), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 250, 50), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 150, 150), QColor(Qt::blue));
    EXPECT_EQ(pixelAt(raster, 50, 250), QColor(Qt::blue));
}

TEST(ChartPanels, WithoutBothColoursAllPanelsAreBlack)
{
    ScreenChart chart = twoColouredWall();
    chart.rectColor = std::nullopt;
    chart.rectColor2 = std::nullopt;
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 0, 0), QColor(Qt::black));
    EXPECT_EQ(pixelAt(raster, 399, 299), QColor(Qt::black));
}

TEST(ChartPanels, APanelWithoutAColourTakesTheFramesBefore)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.rectColor2 = std::nullopt;
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 50, 50), QColor(Qt::red));
    EXPECT_EQ(pixelAt(raster, 150, 50), QColor(Qt::yellow));
    EXPECT_EQ(pixelAt(raster, 50, 150), QColor(Qt::yellow));
}

TEST(ChartPanels, AFrameWithoutAColourTakesItsPanels)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.boarderColor = std::nullopt;
    chart.hiddenBoxes = PanelKeys(QStringList{"2,1"});
    const QImage raster = chart.draw({});

    EXPECT_EQ(pixelAt(raster, 0, 0), QColor(Qt::red));
    EXPECT_EQ(pixelAt(raster, 100, 50), QColor(Qt::blue)); // on a hole too
    EXPECT_EQ(pixelAt(raster, 150, 50), hole);
    EXPECT_EQ(pixelAt(raster, 200, 50), QColor(Qt::red));
}

TEST(ChartPanels, AFrameWithoutAColourIsTransparentWhereThereIsNoBackground)
{
    ScreenChart chart = framed(twoColouredWall());
    chart.boarderColor = std::nullopt;
    chart.bgEnable = false;

    EXPECT_EQ(chart.draw({}), emptyRaster(chart));
}

TEST(ChartPanels, AKeptRasterLeavesNoTrace)
{
    const ScreenChart chart = decoratedWall();
    QImage old = emptyRaster(chart);
    old.fill(Qt::magenta);

    EXPECT_EQ(chart.draw(std::move(old)), chart.draw({}));
}

TEST(ChartPanels, ARasterThatSomeoneElseHoldsIsLeftAlone)
{
    const ScreenChart chart = twoColouredWall();
    QImage shared = emptyRaster(chart);
    shared.fill(Qt::magenta);
    const QImage raster = chart.draw(shared);

    EXPECT_EQ(pixelAt(shared, 50, 50), QColor(Qt::magenta));
    EXPECT_EQ(pixelAt(raster, 50, 50), QColor(Qt::red));
}

TEST(ChartPanels, AKeptRasterOfTheSameSizeIsDrawnInto)
{
    const ScreenChart chart = decoratedWall();
    QImage first = chart.draw({});
    const uchar *memory = first.constBits();

    EXPECT_EQ(chart.draw(std::move(first)).constBits(), memory);
}
