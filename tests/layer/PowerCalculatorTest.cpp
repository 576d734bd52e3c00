#include "layer/PowerCalculator.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>
#include <limits>

namespace {
LayerPointer wall(LayerHost &host, int columns, int rows, int watts)
{
    const auto screen = LWScreen::init(host);
    screen->setCol(columns);
    screen->setRow(rows);
    screen->setPowerOnCell(watts);
    return screen;
}

QString line(const std::vector<LayerPointer> &layers, qint64 volts, qint64 phases)
{
    return PowerCalculator::resultText(
        PowerCalculator::amperes(PowerCalculator::watts(layers), PowerCalculator::divisor(volts, phases)));
}
} // namespace

TEST(PowerCalculator, TwelvePanelsOf100WattsOn110Volts)
{
    TestHost host;
    EXPECT_EQ(line({wall(host, 4, 3, 100)}, 110, 1), "Total Power: 10.91Amp");
}

TEST(PowerCalculator, ThreePhasesDivideByThreeWithoutASquareRoot)
{
    TestHost host;
    EXPECT_EQ(PowerCalculator::divisor(208, 3), 624);
    EXPECT_EQ(line({wall(host, 4, 3, 100)}, 208, 3), "Total Power: 1.92Amp");
}

TEST(PowerCalculator, ATieGoesToTheEvenDigit)
{
    TestHost host;
    EXPECT_EQ(line({wall(host, 1, 1, 26)}, 208, 1), "Total Power: 0.12Amp"); // 0.125
}

TEST(PowerCalculator, NothingDrawsNothing)
{
    TestHost host;
    EXPECT_EQ(line({}, 110, 1), "Total Power: 0.00Amp");
    EXPECT_EQ(line({wall(host, 4, 3, 0)}, 110, 1), "Total Power: 0.00Amp");
}

TEST(PowerCalculator, HiddenLayersCountAndStillsGiveWhatTheyHold)
{
    TestHost host;
    const LayerPointer hidden = wall(host, 4, 3, 100);
    hidden->setVisible(false);
    const auto still = std::make_shared<LWStill>(host);
    still->setPowerOnCell(1000);
    EXPECT_EQ(PowerCalculator::watts({hidden, still}), 1200);

    still->setCol(1);
    still->setRow(1);
    EXPECT_EQ(PowerCalculator::watts({hidden, still}), 2200);
}

TEST(PowerCalculator, ProductAndSumWrapIn32Bits)
{
    TestHost host;
    EXPECT_EQ(PowerCalculator::watts(*wall(host, 65536, 65536, 7)), 0);
    EXPECT_EQ(PowerCalculator::watts(*wall(host, 1, 2, std::numeric_limits<int>::max())), -2);
    EXPECT_EQ(PowerCalculator::watts({wall(host, 1, 1, std::numeric_limits<int>::max()), wall(host, 1, 1, 1)}),
              std::numeric_limits<int>::min());
    EXPECT_EQ(PowerCalculator::watts(*wall(host, -4, 3, 100)), -1200);
}

TEST(PowerCalculator, BothSidesAreOfSinglePrecision)
{
    // 16777217 is the first whole number that single precision does not hold.
    EXPECT_EQ(PowerCalculator::amperes(16777217, 1), 16777216.0F);
    EXPECT_EQ(PowerCalculator::amperes(1, 16777217), 1.0F / 16777216.0F);
}

TEST(PowerCalculator, NoDivisorIsFatal)
{
    EXPECT_EQ(PowerCalculator::resultText(PowerCalculator::amperes(1200, 0)), "Total Power: 0.00Amp");
    EXPECT_EQ(PowerCalculator::resultText(PowerCalculator::amperes(1200, -110)), "Total Power: -10.91Amp");
    EXPECT_EQ(PowerCalculator::amperes(std::numeric_limits<int>::min(), -1), 2147483648.0F);
    EXPECT_EQ(PowerCalculator::divisor(std::numeric_limits<qint64>::max(), 2), -2);
    EXPECT_EQ(PowerCalculator::divisor(std::numeric_limits<qint64>::max(), 1), std::numeric_limits<qint64>::max());
}
