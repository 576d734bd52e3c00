#include "live/Pointing.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {
/// One panel, at 10,10 of 20 x 20.
std::optional<WallLight> onePanel(const QPoint &pixel)
{
    const QRect panel(10, 10, 20, 20);
    return panel.contains(pixel) ? std::optional(WallLight{panel, {"A1"}, true}) : std::nullopt;
}

using Lights = std::optional<std::vector<WallLight>>;
const Lights nothing = std::vector<WallLight>();
const Lights panel = std::vector<WallLight>{{QRect(10, 10, 20, 20), {"A1"}, true}};
} // namespace

TEST(Pointing, LightsThePanelUnderThePointerAndOverNoneNothing)
{
    Pointing pointing(onePanel);
    pointing.move(QPoint(12, 12));
    EXPECT_EQ(pointing.lights(), std::nullopt);
    pointing.setOn(true);
    EXPECT_EQ(pointing.lights(), panel);
    pointing.move(QPoint(40, 12));
    EXPECT_EQ(pointing.lights(), nothing);
    pointing.setOn(false);
    EXPECT_EQ(pointing.lights(), std::nullopt);
}

TEST(Pointing, AHeldKeyDoesWhatTheSwitchDoes)
{
    Pointing pointing(onePanel);
    pointing.move(QPoint(12, 12));
    pointing.setHeld(true);
    EXPECT_EQ(pointing.lights(), panel);
    pointing.setOn(true);
    pointing.setHeld(false);
    EXPECT_EQ(pointing.lights(), panel);
    pointing.setOn(false);
    EXPECT_EQ(pointing.lights(), std::nullopt);
}

TEST(Pointing, HalfASecondAfterThePointerHasLeftThePictureIsBack)
{
    Pointing pointing(onePanel);
    pointing.setOn(true);
    pointing.move(QPoint(12, 12));
    pointing.move(std::nullopt);
    QTest::qWait(100);
    EXPECT_EQ(pointing.lights(), panel);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pointing.lights(); }, 1000));
    pointing.move(QPoint(12, 12));
    EXPECT_EQ(pointing.lights(), panel);
    pointing.move(std::nullopt);
    pointing.move(QPoint(13, 12)); // back in time
    QTest::qWait(600);
    EXPECT_EQ(pointing.lights(), panel);
}

TEST(Pointing, AWallBlinksThreeTimesInASecondAndAHalf)
{
    Pointing pointing(onePanel);
    const QRect wall(0, 0, 100, 50);
    pointing.blink(wall);
    EXPECT_EQ(pointing.lights(), std::nullopt); // pointing is off
    pointing.setOn(true);
    int lit = 0;
    const auto count = [&] { lit += pointing.lights() && !pointing.lights()->empty() ? 1 : 0; };
    QObject::connect(&pointing, &Pointing::changed, &pointing, count);
    QElapsedTimer clock;
    clock.start();
    pointing.blink(wall);
    EXPECT_EQ(pointing.lights()->front().place, wall);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pointing.lights(); }, 3000)); // the pointer is nowhere
    EXPECT_EQ(lit, 3);
    EXPECT_GE(clock.elapsed(), 1400);
}
