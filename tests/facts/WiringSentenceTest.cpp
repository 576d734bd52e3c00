#include "tests/facts/WiringFixture.h"

namespace {
class WiringSentenceTest : public WiringFixture
{
protected:
    /// Panels 0 to `last` of the first row on one port.
    static WallRuns row(const char *processor, qint64 port, int last)
    {
        WallRuns runs{{{processor, port}, 1, {}}};
        for (int column = 0; column <= last; ++column)
            runs[0].cells.push_back({column, 0});
        return runs;
    }
    /// The show's one wall: a row of panels of that side, all on port A1.
    void layRow(int columns, int side)
    {
        show.layers = {wallOf(host, columns, 1, side)};
        show.layers[0]->setValue("processor", "A");
        lay(show.layers[0], row("A", 1, columns - 1));
    }
    std::vector<Finding> findings() const { return WiringChecks::of(ShowPorts::of(show)); }
};
} // namespace

TEST_F(WiringSentenceTest, ASinglePanelThatIsOverMovesToNoOtherPort)
{
    show.processors[0].capacity = 16'000;
    add("MAIN", 1, 1);
    EXPECT_EQ(found(), QStringList{"error port-over: A single panel on port A1 has 16,384 pixels, and the port carries "
                                   "16,000; lower the rate or the bits, or take another processor."});
}

TEST_F(WiringSentenceTest, TheBoxAroundThePanelsIsNamedWhereItCounts)
{
    show.processors[0].model = "VX1000";
    show.processors[0].capacity = 60'000;
    const LayerPointer wall = add("MAIN", 2, 2);
    lay(wall, {{{"A", 1}, 1, {{0, 0}, {0, 1}, {1, 1}}}, {{"A", 2}, 1, {{1, 0}}}});
    EXPECT_EQ(found(), QStringList{"error port-over: Port A1 has 65,536 pixels with the box around its panels and "
                                   "carries 60,000; move panels to another port."});
}

TEST_F(WiringSentenceTest, TheHeadroomSaysHowMuchStaysFree)
{
    show.processors[0].capacity = 34'000;
    show.processors[0].headroom = 10;
    lay(add("MAIN", 2, 1), row("A", 1, 1));
    EXPECT_EQ(found(), QStringList{"error port-over: Port A1 has 32,768 pixels and shall carry 30,600, so that 10 % "
                                   "stay free; move panels to another port."});
}

TEST_F(WiringSentenceTest, AFindingHasAPlaceToFlyTo)
{
    show.processors[0].capacity = 20'000;
    const LayerPointer main = add("MAIN", 2, 1);
    const LayerPointer side = add("SIDE", 2, 1);
    side->setXpoint(1000);
    lay(main, {{{"A", 2}, 1, {{0, 0}, {1, 0}}}});
    lay(side, {{{"A", 2}, 2, {{0, 0}, {1, 0}, {9, 9}}}});
    const std::vector<Finding> told = findings();
    ASSERT_EQ(told.size(), 4U);
    for (const qsizetype layer : {0, 1}) {
        const Finding &over = told[static_cast<std::size_t>(layer)];
        EXPECT_STREQ(over.check, "port-over");
        EXPECT_EQ(over.layer, layer);
        EXPECT_EQ(over.port, 2);
        EXPECT_EQ(over.processor, "A");
        EXPECT_EQ(over.box, (PixelBox{{0, 1256}, {0, 128}}));
    }
    EXPECT_STREQ(told[2].check, "cable-jump");
    EXPECT_EQ(told[2].cell, (Cell{0, 0}));
    EXPECT_EQ(told[2].box, (PixelBox{{1000, 1128}, {0, 128}}));
    EXPECT_STREQ(told[3].check, "cable-beside-wall");
    EXPECT_EQ(told[3].layer, 1);
    EXPECT_EQ(told[3].cell, std::nullopt);
}

TEST_F(WiringSentenceTest, AProcessorThatIsFullIsWhereItsPanelsAre)
{
    show.processors[0].model = "MCTRL660";
    show.processors[0].capacity = 10'000'000;
    add("MAIN", 20, 10);
    const std::vector<Finding> told = findings();
    ASSERT_FALSE(told.empty());
    EXPECT_STREQ(told[0].check, "processor-over");
    EXPECT_EQ(told[0].processor, "A");
    EXPECT_EQ(told[0].port, std::nullopt);
    EXPECT_EQ(told[0].box, (PixelBox{{0, 2560}, {0, 1280}}));
}

TEST_F(WiringSentenceTest, APortWithoutANumberIsNoPortNought)
{
    show.processors[0].model = "VX400";
    show.processors[0].capacity = 16'000;
    add("MAIN", 5, 1);
    const QStringList told = found();
    EXPECT_EQ(told[0], "error processors-missing: MAIN needs 1 more VX400 (1 port over).");
    EXPECT_TRUE(told.last().startsWith("error port-over: A single panel on port A? has ")) << qPrintable(told.last());
    EXPECT_EQ(findings().back().port, std::nullopt);
}

TEST_F(WiringSentenceTest, BackupsSayWhatIsWrongWithThem)
{
    add("MAIN", 2, 2);
    const auto told = [&](const QString &second) {
        show.processors = {controller(), controller("B"), controller("C", "VX1000")};
        show.processors[0].backup = ProcessorSettings::Backup::SecondProcessor;
        show.processors[0].backupProcessor = second;
        return found().join('\n');
    };
    const QString begin = "error backup-processor: The backup of processor A is ";
    EXPECT_EQ(told("B"), "");
    EXPECT_EQ(told(""), begin + "a second processor that nobody named; choose one.");
    EXPECT_EQ(told("A"), begin + "the same processor; choose another one.");
    EXPECT_EQ(told("Z"), begin + "Z, which the show does not have; add it or choose another.");
    EXPECT_EQ(told("C"), begin + "C, a VX1000 and no MX40 Pro; choose one of the same model.");
    show.processors[0].model = "HELIOS 8K";
    show.processors[0].bits = 10;
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    EXPECT_EQ(found(), QStringList{"warning loops-impossible: The ports of a HELIOS 8K close no loops, and those of "
                                   "processor A have no backup; choose a second processor."});
}

TEST_F(WiringSentenceTest, AnEndThatIsTakenNamesIt)
{
    show.processors = {controller(), controller("B")};
    show.processors[0].backup = ProcessorSettings::Backup::SecondProcessor;
    show.processors[0].backupProcessor = "B";
    add("MAIN", 2, 2);
    add("SIDE", 2, 2)->setValue("processor", "B");
    EXPECT_EQ(found(), QStringList{"error loop-end-taken: The other end of port A1 comes in at B1, which feeds panels "
                                   "or ends another cable; free that port."});
}

TEST_F(WiringSentenceTest, AFirstPortThatIsNoneNamesWallAndPort)
{
    add("MAIN", 2, 2)->setValue("firstPort", 25);
    EXPECT_EQ(found(), QStringList{"error first-port-missing: MAIN keeps port A25 first, and processor A has 20 ports; "
                                   "choose another first port."});
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    show.layers[0]->setValue("firstPort", 12);
    EXPECT_EQ(found(), QStringList{"error first-port-missing: MAIN keeps port A12 first, which takes the other end of "
                                   "a loop as all behind it do; choose another first port."});
    show.processors[0] = controller("A", "Tessera S8");
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    show.layers[0]->setValue("firstPort", 2);
    EXPECT_EQ(found(), QStringList{"warning first-port-ends-loop: MAIN keeps port A2 first, which takes the other end "
                                   "of a loop, so it begins at the next one; choose another first port."});
}

TEST_F(WiringSentenceTest, APortBeyondAllSaysNoNumberOfPortsWhereNobodyDoes)
{
    show.processors = {controller("A", "P10 / P20 / Q8")};
    show.processors[0].capacity = 650'000;
    const LayerPointer wall = add("MAIN", 1, 1);
    wall->setValue("firstPort", 1'000'001);
    EXPECT_EQ(found(), QStringList{"error first-port-missing: MAIN keeps port A1000001 first, and no processor has so "
                                   "many ports; choose another first port."});
    lay(wall, row("A", 1'000'001, 0));
    EXPECT_EQ(found(), QStringList{"error port-missing: A cable hangs on A1000001, and no processor has so many "
                                   "ports; move the cable."});
}

TEST_F(WiringSentenceTest, AKeptWallBehindOneThatHasGrownNamesBoth)
{
    show.outputWidth = 16384;
    add("MAIN", 80, 1)->setValue("firstPort", 1);
    const LayerPointer side = add("SIDE", 30, 1);
    side->setValue("firstPort", 2);
    side->setValue("goesOn", true);
    EXPECT_EQ(found(), QStringList{"warning first-port-filled: SIDE keeps port A2 behind MAIN, which has grown, so its "
                                   "panels hang elsewhere; keep the ports anew."});
}

TEST_F(WiringSentenceTest, WallsThatHangOnNoPortSayWhy)
{
    add("MAIN", 2, 2)->setPattern(9);
    EXPECT_EQ(found(), QStringList{"error ports-without-pattern: There is no pattern 9, so none of its panels hangs on "
                                   "a port; choose a pattern."});
    add("HUGE", 1001, 1000);
    EXPECT_EQ(found().last(),
              "error too-many-panels: Ports are worked out for 1,000,000 panels of a show, and it comes "
              "behind them; take walls off their processors.");
}

TEST_F(WiringSentenceTest, CablesOfAMissingProcessorAreCounted)
{
    const LayerPointer wall = add("MAIN", 2, 1);
    lay(wall, {{{"Z", 1}, 1, {{0, 0}}}, {{"Z", 2}, 1, {{1, 0}}}});
    EXPECT_EQ(found(),
              QStringList{"error cable-of-unknown-processor: 2 cables hang on processor Z, which the show does "
                          "not have; add it or move the cables."});
}

TEST_F(WiringSentenceTest, APortWithTooManyPanelsOrTooLongAnOutlineNamesWhatCounts)
{
    show.processors[0] = controller("A", "VX1000");
    layRow(513, 8);
    EXPECT_EQ(found(), QStringList{"error port-over: Port A1 has 513 panels and carries 512; move panels to another "
                                   "port."});

    show.processors[0] = controller("A", "S20");
    layRow(33, 128);
    EXPECT_EQ(found(), QStringList{"error port-over: Port A1 has 4,224 pixels across and carries 4,096; move panels to "
                                   "another port."});
    show.layers.clear();
    WallRuns column{{{"A", 1}, 1, {}}};
    for (int line = 0; line < 33; ++line)
        column[0].cells.push_back({0, line});
    lay(add("HIGH", 1, 33), column);
    EXPECT_EQ(found(), QStringList{"error port-over: Port A1 has 4,224 pixels down and carries 4,096; move panels to "
                                   "another port."});
}

TEST_F(WiringSentenceTest, PortsThatNoNumberOfProcessorsTakesNeedAnotherModel)
{
    show.processors[0] = controller("A", "Tessera T1"); // which has one port, and a loop takes two
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    add("MAIN", 2, 1);
    EXPECT_EQ(found(), (QStringList{"note port-without-partner: Port A1 has no partner for a loop and stays free.",
                                    "error processors-missing: MAIN: 1 port over, and no number of Tessera T1 takes "
                                    "it; choose another model."}));
}

TEST_F(WiringSentenceTest, LoopsNameTheirPortsAndLengths)
{
    show.processors[0] = controller("A", "Tessera S8");
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    const LayerPointer pair = add("PAIR", 2, 1);
    lay(pair, {{{"A", 1}, 1, {{0, 0}}}, {{"A", 2}, 1, {{1, 0}}}});
    EXPECT_EQ(found(), QStringList{"error loop-end-taken: The loop of port A1 ends on a port that feeds panels of its "
                                   "own; free that port."});
    layRow(51, 50);
    EXPECT_EQ(found(),
              QStringList{"warning loop-too-long: The loop of port A1 has 51 panels, and 50 are the most; make "
                          "it shorter."});
    show.processors[0].model = "Tessera T1";
    layRow(4, 50);
    EXPECT_EQ(found(), QStringList{"note port-without-partner: Port A1 has no partner for a loop and stays free."});
}

TEST_F(WiringSentenceTest, WhereNobodySaysHowManyPortsThereAreNoLoopIsClosed)
{
    show.processors[0] = controller("A", "P10 / P20 / Q8");
    show.processors[0].backup = ProcessorSettings::Backup::Loop;
    show.processors[0].capacity = 650'000;
    lay(add("MAIN", 2, 1), row("A", 1, 1));
    EXPECT_EQ(found(), QStringList{"warning loops-impossible: Nobody says how many ports a P10 / P20 / Q8 has, so "
                                   "processor A closes no loops; choose no backup or another model."});
}
