#include "facts/ShowChecks.h"
#include "tests/facts/WiringFixture.h"

using WiringChecksTest = WiringFixture;

TEST_F(WiringChecksTest, AShowWithoutProcessorsHasNothingToTell)
{
    show.processors.clear();
    add("MAIN", 20, 10)->setValue("processor", {});
    add("HAND", 2, 2, "hand")->setValue("processor", {});
    EXPECT_EQ(found(), QStringList());
}

TEST_F(WiringChecksTest, AWallThatFitsHasNothingToTell)
{
    add("MAIN", 20, 10);
    EXPECT_EQ(found(), QStringList());
}

TEST_F(WiringChecksTest, APortThatHasTooMuchNamesBothFigures)
{
    const LayerPointer wall = add("MAIN", 41, 1);
    WallRuns runs{{{"A", 3}, 1, {}}};
    for (int column = 0; column < 41; ++column)
        runs[0].cells.push_back({column, 0});
    lay(wall, runs);
    EXPECT_EQ(found(), QStringList{"error port-over: Port A3 has 671,744 pixels and carries 659,722; move panels to "
                                   "another port."});
    runs[0].cells.pop_back();
    lay(wall, runs);
    EXPECT_EQ(found().first(), "note port-nearly-full: Port A3 has 655,360 pixels of the 659,722 that it carries.");
}

TEST_F(WiringChecksTest, PanelsWithoutACableAndWithTwoAreCounted)
{
    const LayerPointer wall = add("MAIN", 3, 2);
    lay(wall, {{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}}}, {{"A", 2}, 1, {{2, 0}, {2, 1}}}});
    EXPECT_EQ(found(),
              (QStringList{"error panel-fed-twice: 1 panel is on more than one cable; take them off all but one.",
                           "error panel-not-fed: 2 panels are on no cable; lay one through them."}));
    const std::vector<Finding> findings = WiringChecks::of(ShowPorts::of(show));
    EXPECT_EQ(findings[0].layer, 0);
    EXPECT_EQ(findings[0].cell, (Cell{2, 0}));
}

TEST_F(WiringChecksTest, ProcessorsThatTheShowLacksAreNamed)
{
    add("MAIN", 2, 2)->setValue("processor", "B");
    const LayerPointer hand = add("HAND", 1, 1);
    lay(hand, {{{"C", 4}, 1, {{0, 0}}}});
    EXPECT_EQ(
        found(),
        (QStringList{"error processor-unknown: It is fed by processor B, which the show does not have; add it or "
                     "choose another.",
                     "error cable-of-unknown-processor: A cable hangs on C4, and the show has no processor C; add "
                     "it or move the cable."}));
}

TEST_F(WiringChecksTest, WhereNobodyKnowsAFigureItSaysSo)
{
    show.processors = {controller("A", "of nobody")};
    add("MAIN", 2, 2, "lines");
    ASSERT_EQ(found().size(), 1);
    EXPECT_TRUE(found()[0].startsWith("warning no-figure: Processor A: ")) << qPrintable(found()[0]);
}

TEST_F(WiringChecksTest, AWallThatWaitsForAFigureIsAnError)
{
    show.processors = {controller("A", "P10 / P20 / Q8")};
    add("LINES", 2, 2, "lines");
    add("MAIN", 2, 2);
    EXPECT_EQ(found(), QStringList{"error no-figure: MAIN waits: No figure is published for P10 / P20 / Q8; type the "
                                   "pixels per port."});
    EXPECT_EQ(WiringChecks::of(ShowPorts::of(show))[0].layer, 1);
}

TEST_F(WiringChecksTest, ProcessorsThatAreMissingAreCounted)
{
    show.outputWidth = 16384;
    show.outputHeight = 8192;
    add("MAIN", 40, 24); // 24 ports of 40 panels, of which one processor has 20
    const QStringList told = found();
    ASSERT_EQ(told.size(), 1) << qPrintable(told.join('\n'));
    EXPECT_EQ(told[0], "error processors-missing: MAIN needs 1 more MX40 Pro (11 ports over).");
    show.processors.push_back(controller("B"));
    show.processors.back().rate = 50;
    EXPECT_EQ(found()[0], "error processors-missing: MAIN needs 1 more MX40 Pro (11 ports over); B takes none of them, "
                          "as its settings are others.");
}

TEST_F(WiringChecksTest, TwoWallsThatKeepOnePortAreBothNamed)
{
    add("MAIN", 2, 2)->setValue("firstPort", 3);
    add("SIDE", 2, 2)->setValue("firstPort", 3);
    EXPECT_EQ(found(), QStringList{"warning port-kept-twice: SIDE and MAIN both claim port A3; let one of them take "
                                   "another."});
}

TEST_F(WiringChecksTest, AJumpIsTold)
{
    const LayerPointer wall = add("MAIN", 4, 1);
    lay(wall, {{{"A", 1}, 1, {{0, 0}, {3, 0}, {2, 0}, {1, 0}}}});
    EXPECT_EQ(found(),
              QStringList{"warning cable-jump: A cable reaches over more than one panel in 1 place; check that "
                          "it is long enough."});
}

TEST_F(WiringChecksTest, AJumpOverPanelsThatAreOffIsOneToo)
{
    const LayerPointer wall = add("MAIN", 4, 1);
    lay(wall, {{{"A", 1}, 1, {{0, 0}, {1, 0}, {2, 0}, {3, 0}}}});
    EXPECT_EQ(found(), QStringList());
    std::static_pointer_cast<LWScreen>(wall)->setHiddenBoxes(QStringList{"0,1", "0,2"});
    EXPECT_EQ(found(),
              QStringList{"warning cable-jump: A cable reaches over more than one panel in 1 place; check that "
                          "it is long enough."});
}

/// A small file may claim more panels than there is memory for.
TEST_F(WiringChecksTest, WallsBeyondAMillionPanelsTogetherAreLeftOut)
{
    for (int i = 0; i < 50; ++i)
        add(QString::number(i), 1000, 400);
    const ShowPorts ports = ShowPorts::of(show);
    EXPECT_EQ(ports.wiring.walls[1].state, ShowWiring::State::Wired);
    EXPECT_EQ(ports.wiring.walls[2].state, ShowWiring::State::TooLarge);
    EXPECT_EQ(ports.wiring.walls[49].state, ShowWiring::State::TooLarge);
}

TEST_F(WiringChecksTest, OneNameForTwoProcessorsIsAnError)
{
    show.processors.push_back(controller());
    add("MAIN", 2, 2);
    EXPECT_EQ(found(), QStringList{"error processor-name-twice: Two processors are called A; give one another name."});
}

TEST_F(WiringChecksTest, OfTheSameInOneWallOnlyAHundredAreListed)
{
    show.processors[0].capacity = 1;
    add("SIDE", 10, 10);
    EXPECT_EQ(found().filter("port-over").size(), 100);
    add("MAIN", 100, 100);
    const QStringList told = found().filter("port-over");
    ASSERT_EQ(told.size(), 200);
    EXPECT_TRUE(told[98].endsWith("take another processor.")) << qPrintable(told[98]);
    EXPECT_EQ(told[199], "error port-over: A single panel on port A? has 16,384 pixels, and the port carries 1; lower "
                         "the rate or the bits, or take another processor. And 9,900 more.");
}

/// A wall of a processor is not told of twice.
TEST_F(WiringChecksTest, ALineThatIsTooLongIsToldOnce)
{
    const LayerPointer wall = add("MAIN", 60, 1, "lines");
    wall->setPixelLimit(655'360);
    qsizetype told = 0;
    for (const Finding &finding : ShowChecks::of(show))
        told += qstrcmp(finding.check, "port-over-limit") == 0 ? 1 : 0;
    EXPECT_EQ(told, 1);
}
