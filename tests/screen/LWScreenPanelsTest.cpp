#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
class LWScreenPanels : public ::testing::Test
{
protected:
    /// 5 columns and 4 rows of panels of 30 x 20, its top left at (100, 50).
    LWScreenPanels()
    {
        screen.setRow(4);
        screen.setCol(5);
        screen.setPanelWidth(30);
        screen.setPanelHeight(20);
        screen.setXpoint(100);
        screen.setYpoint(50);
    }

    TestHost host;
    LWScreen screen{host};
};
} // namespace

TEST_F(LWScreenPanels, APixelLiesInOnePanel)
{
    EXPECT_EQ(screen.panelAt(100, 50), (Cell{0, 0}));
    EXPECT_EQ(screen.panelAt(129, 69), (Cell{0, 0}));
    EXPECT_EQ(screen.panelAt(130, 69), (Cell{1, 0}));
    EXPECT_EQ(screen.panelAt(129, 70), (Cell{0, 1}));
    EXPECT_EQ(screen.panelAt(249, 129), (Cell{4, 3}));
    EXPECT_EQ(screen.panelAt(250, 129), std::nullopt);
    EXPECT_EQ(screen.panelAt(249, 130), std::nullopt);
}

TEST_F(LWScreenPanels, ItIsTheOneThatAClickSwitches)
{
    for (int y = 20; y < 140; y += 7) {
        for (int x = 60; x < 260; x += 7) {
            screen.setHiddenBoxes(QStringList());
            screen.onImageClick(x, y);
            QStringList expected = screen.hiddenBoxes().value();
            expected.removeIf([](const QString &key) { return key.contains("18446744073709551615"); });
            const auto panel = screen.panelAt(x, y);
            const QStringList told =
                panel ? QStringList(QString("%1,%2").arg(panel->row).arg(panel->column)) : QStringList();
            EXPECT_EQ(told, expected) << x << ' ' << y;
        }
    }
}

TEST_F(LWScreenPanels, APanelThatIsOffIsOneToo)
{
    screen.setHiddenBoxes(QStringList("1,2"));
    EXPECT_EQ(screen.panelAt(165, 75), (Cell{2, 1}));
}

TEST_F(LWScreenPanels, ItsPlaceIsInOutputPixels)
{
    EXPECT_EQ(screen.panelRect({0, 0}), QRectF(100, 50, 30, 20));
    EXPECT_EQ(screen.panelRect({4, 3}), QRectF(220, 110, 30, 20));
    screen.setXpoint(std::numeric_limits<int>::max());
    screen.setYpoint(std::numeric_limits<int>::min());
    EXPECT_EQ(screen.panelRect({4, 3}), QRectF(2147483767.0, -2147483588.0, 30, 20));
}

TEST_F(LWScreenPanels, ItsLabelIsTheWalls)
{
    EXPECT_EQ(screen.panelLabel({0, 0}), "A1");
    EXPECT_EQ(screen.panelLabel({2, 6}), "C7");
    EXPECT_EQ(screen.panelLabel({27, 0}), "BB1");
    screen.setXYLabelDirection(true);
    EXPECT_EQ(screen.panelLabel({2, 6}), "G3");
}

TEST_F(LWScreenPanels, ALabelOfVeryManyLettersIsShort)
{
    EXPECT_EQ(screen.panelLabel({207, 0}), "ZZZZZZZZ1");
    EXPECT_EQ(screen.panelLabel({208, 4}), "AAAAAAAA…5");
    EXPECT_EQ(screen.panelLabel({std::numeric_limits<int>::max() - 1, 0}), "WWWWWWWW…1");
}

TEST_F(LWScreenPanels, AWallOfNoPanelsHasNone)
{
    for (const int size : {0, -1, std::numeric_limits<int>::min()}) {
        screen.setPanelWidth(size);
        EXPECT_EQ(screen.panelAt(100, 50), std::nullopt) << size;
        EXPECT_EQ(screen.panelAt(std::numeric_limits<qint64>::min(), 50), std::nullopt) << size;
    }
    screen.setPanelWidth(1);
    screen.setCol(0);
    EXPECT_EQ(screen.panelAt(100, 50), std::nullopt);
    screen.setCol(-3);
    EXPECT_EQ(screen.panelAt(100, 50), std::nullopt);
}
