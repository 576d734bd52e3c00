#include "tests/app/UndoFixture.h"

namespace {
/// A document of two walls of 4 x 2 panels of 100, on processor A, whose ports bear three of them.
class CablesTest : public UndoFixture
{
protected:
    CablesTest()
    {
        document.arraycontroller().setLayers({wall("MAIN"), wall("SIDE")}, {0});
        ProcessorSettings settings;
        settings.model = "MX40 Pro";
        settings.capacity = 30'000;
        EXPECT_TRUE(document.wiring().add(settings));
    }

    LayerPointer wall(const QString &name)
    {
        LayerPointer made = LWScreen::init(document);
        made->setLabel(name);
        made->setCol(4);
        made->setRow(2);
        made->setPanelWidth(100);
        made->setPanelHeight(100);
        made->setPattern(0);
        made->setDrawFlowPath(true);
        made->setValue("split", "panels");
        made->drawInRect();
        return made;
    }
    /// When what was edited is composed.
    LWScreen &layer(qsizetype row)
    {
        waitForRedraws();
        return static_cast<LWScreen &>(*document.arraycontroller().layer(row));
    }
    std::vector<qint64> portsOf(qsizetype row)
    {
        std::vector<qint64> ports;
        for (const WallCable &cable : *layer(row).shownCables())
            ports.push_back(cable.port.number);
        return ports;
    }
    using Ports = std::vector<qint64>;
};
} // namespace

TEST_F(CablesTest, PicturesShowTheCablesOfTheShow)
{
    EXPECT_EQ(portsOf(0), (Ports{1, 2, 3}));
    EXPECT_EQ(portsOf(1), (Ports{4, 5, 6}));
}

TEST_F(CablesTest, AWallThatIsNotSelectedFollowsWhatAnotherTakesFromIt)
{
    document.setValueOfSelection(2, "arrangedObjects.col"); // 4 panels: two ports
    EXPECT_EQ(portsOf(0), (Ports{1, 2}));
    EXPECT_EQ(portsOf(1), (Ports{3, 4, 5}));
    stack.undo();
    EXPECT_EQ(portsOf(1), (Ports{4, 5, 6}));
}

TEST_F(CablesTest, CablesLaidByHandAreShownWhileTheirProcessorIsMissing)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    document.wiring().remove(0);
    EXPECT_EQ(portsOf(0), (Ports{1, 2, 3}));
    ASSERT_TRUE(document.wiring().editCables("clearing of a cable", [](const PortEdits::ShowRuns &runs) {
        return PortEdits::clear(runs, {"A", 2});
    }));
    EXPECT_EQ(portsOf(0), (Ports{1, 3}));
}

TEST_F(CablesTest, AWallThatShowsNoCablesIsGivenNone)
{
    document.setValueOfSelection(false, "arrangedObjects.drawFlowPath");
    EXPECT_EQ(layer(0).shownCables(), nullptr);
    document.setValueOfSelection("lines", "arrangedObjects.split");
    document.setValueOfSelection(true, "arrangedObjects.drawFlowPath");
    EXPECT_EQ(layer(0).shownCables(), nullptr);
}

TEST_F(CablesTest, PortsAreWorkedOutAnewOnlyWhereTheShowIsAnother)
{
    const ShowPorts *const ports = &document.wiring().ports();
    const auto *const walls = ports->show.walls.data();
    EXPECT_EQ(document.wiring().ports().show.walls.data(), walls);
    document.setValueOfSelection("FRONT", "arrangedObjects.label");
    EXPECT_EQ(document.wiring().ports().show.walls.front().name, "FRONT");
}

TEST_F(CablesTest, KeptPortsStayWhateverOtherWallsDo)
{
    ASSERT_TRUE(document.wiring().keepPorts({1}));
    EXPECT_EQ(layer(1).record()->firstPort, 4);
    EXPECT_EQ(layer(0).record()->firstPort, 0);
    EXPECT_EQ(stack.undoText(), "keeping of ports");
    document.setValueOfSelection(2, "arrangedObjects.col");
    EXPECT_EQ(portsOf(1), (Ports{4, 5, 6}));
    stack.undo();
    stack.undo();
    EXPECT_EQ(layer(1).record()->firstPort, 0);
}

TEST_F(CablesTest, AWallThatCannotKeepItsPortsIsToldAndTheOthersKeepTheirs)
{
    document.setValueOfSelection(40, "arrangedObjects.col"); // 80 panels: more ports than there are, none for SIDE
    EXPECT_FALSE(document.wiring().keepPorts({0, 1}));
    EXPECT_EQ(layer(0).record()->firstPort, 1);
    EXPECT_EQ(stack.undoText(), "keeping of ports");
}

TEST_F(CablesTest, TheAutomaticCablesCanBeTakenAsLaidByHand)
{
    const WallCablesPointer before = layer(0).shownCables();
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    EXPECT_EQ(layer(0).record()->split, CableSplit::Hand);
    EXPECT_EQ(*layer(0).shownCables(), *before);
    EXPECT_EQ(stack.undoText(), "cables by hand");
    stack.undo();
    EXPECT_EQ(layer(0).record()->split, CableSplit::Panels);
}

TEST_F(CablesTest, AWallThatHangsOnNoPortsKeepsItsAutomaticCables)
{
    document.wiring().remove(0);
    const LayerRecordPointer before = layer(0).record();
    const int steps = stack.index();
    EXPECT_EQ(document.wiring().takeAsLaidByHand({0}).error().text,
              "The wall hangs on no ports yet; give it a processor of the show first.");
    EXPECT_TRUE(layer(0).hasRecord(before));
    EXPECT_EQ(stack.index(), steps);
}

TEST_F(CablesTest, TakenWithThoseThatSharePortsNothingMoves)
{
    layer(1).setValue("goesOn", true);
    document.finishEdit("sharing");
    const WallCables before = *layer(1).shownCables();
    EXPECT_EQ(before.front().port, (PortName{"A", 3}));
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    EXPECT_EQ(layer(1).record()->split, CableSplit::Hand);
    EXPECT_EQ(*layer(1).shownCables(), before);
}

TEST_F(CablesTest, AnEditOfWholeCablesIsOneStepAndOneThatFailsIsNone)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0, 1}));
    const int steps = stack.index();
    const PortName first{"A", 1};
    ASSERT_TRUE(document.wiring().editCables(
        "reversing of a cable", [&](const PortEdits::ShowRuns &runs) { return PortEdits::reverse(runs, first); }));
    EXPECT_EQ(stack.index(), steps + 1);
    EXPECT_EQ(layer(0).record()->runs.list().front().cells.front(), (Cell{2, 0}));
    EXPECT_FALSE(document.wiring().editCables("port of a cable", [&](const PortEdits::ShowRuns &runs) {
        return PortEdits::takePort(runs, first, {"A", 2});
    }));
    EXPECT_EQ(stack.index(), steps + 1);
}

TEST_F(CablesTest, ANewCableTakesAPortThatNoOtherWallHasSoThatNoneMoves)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    const CableHand::Show show = document.wiring().cables();
    EXPECT_EQ(show.freePort("A", show.layers[0]), (PortName{"A", 7})); // SIDE is on 4 to 6
    EXPECT_EQ(show.freePort("A", show.layers[1]), (PortName{"A", 4})); // its own, which it gives up
}

TEST_F(CablesTest, WhereAllPortsAreUsedANewCableTakesOneThatNobodyChose)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    document.arraycontroller().setSelectionIndex(1);
    document.setValueOfSelection(32, "arrangedObjects.col"); // 64 panels: more than 17 ports
    const CableHand::Show show = document.wiring().cables();
    EXPECT_EQ(show.freePort("A", show.layers[0]), (PortName{"A", 4}));
}

TEST_F(CablesTest, PanelsThatASmallerWallLosesLeaveTheirCableAndUndoBringsThemBack)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    const WallRuns before = layer(0).record()->runs.list();
    const int steps = stack.index();
    document.setValue(1, "arrangedObjects.col"); // on the way to 12
    EXPECT_EQ(layer(0).record()->runs.list(), before);
    document.setValue(12, "arrangedObjects.col");
    document.endTyping();
    EXPECT_EQ(layer(0).record()->runs.list(), before);
    document.setValue(2, "arrangedObjects.col");
    document.endTyping();
    std::size_t kept = 0;
    for (const CableRun &run : layer(0).record()->runs.list())
        kept += run.cells.size();
    EXPECT_EQ(kept, 4); // of 8
    EXPECT_EQ(stack.index(), steps + 2);
    stack.undo();
    EXPECT_EQ(layer(0).record()->runs.list(), before);
    stack.redo();
    EXPECT_EQ(layer(0).col(), 2);
    EXPECT_NE(layer(0).record()->runs.list(), before);
}

TEST_F(CablesTest, PanelsThatLeaveTheirCableAfterAColourWasTriedStayAwayWhenItIsRedone)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    document.setValue(2, "arrangedObjects.col");
    document.beginTrial();
    document.setValue(QVariant::fromValue(OptionalColour(Colour::fromRgba8(0xff123456U))), "arrangedObjects.rectColor");
    document.keepTrial(); // nothing is drawn after that
    document.endTyping();
    const WallRuns after = layer(0).record()->runs.list();
    ASSERT_EQ(after.front().cells.size(), 2U); // of 4

    stack.undo();
    stack.redo();
    EXPECT_EQ(layer(0).record()->runs.list(), after);
}

TEST_F(CablesTest, ACopyOfAWallThatShallHaveNoProcessorHasNone)
{
    document.setValueOfSelection(QString(), "arrangedObjects.processor");
    document.copyLayer();
    EXPECT_EQ(ShowProcessors::of(*document.selectedLayers().front()), QString());
}

TEST_F(CablesTest, NewPanelsHangOnTheCableThatEndsBesideThemWhileItBearsThem)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    document.setValueOfSelection(3, "arrangedObjects.row");
    const int steps = stack.index();
    EXPECT_TRUE(document.wiring().feed(0));
    EXPECT_EQ(stack.index(), steps + 1);
    const WallRuns fed = layer(0).record()->runs.list();
    ASSERT_EQ(fed.size(), 3);
    EXPECT_EQ(fed[0].cells.size(), 3); // full before
    EXPECT_EQ(fed[1].cells.size(), 3);
    EXPECT_EQ(fed[2].cells, (std::vector<Cell>{{1, 1}, {0, 1}, {0, 2}}));
    EXPECT_FALSE(document.wiring().feed(0)); // full now
    EXPECT_FALSE(document.wiring().feed(1)); // all are on automatic cables
    EXPECT_FALSE(document.wiring().feed(2)); // no such row
    EXPECT_EQ(stack.index(), steps + 1);
    stack.undo();
    EXPECT_EQ(layer(0).record()->runs.list()[2].cells.size(), 2);
}

TEST_F(CablesTest, ACableThatGoesOnInAnotherWallTakesNoNewPanels)
{
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({0}));
    layer(1).setValue("split", "hand");
    layer(1).setValue("runs", QVariant::fromValue(CableRuns({{{"A", 3}, 2, {{3, 1}}}})));
    document.setValueOfSelection(3, "arrangedObjects.row");
    EXPECT_FALSE(document.wiring().feed(0));
}
