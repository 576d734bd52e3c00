#include "tests/app/UndoFixture.h"
#include "tests/screen/WiredWalls.h"

#include <limits>

namespace {
/// A document of 1920 x 1080 with a background and two walls.
class WiringTest : public UndoFixture
{
protected:
    WiringTest()
    {
        document.arraycontroller().setLayers({wall("MAIN", 6, 4), wall("SIDE", 2, 4), wall("BACK", 16, 9)}, {0});
        document.finishEdit("walls");
    }

    LayerPointer wall(const QString &name, int columns, int rows)
    {
        LayerPointer made = wallOf(document, columns, rows, 120);
        made->setLabel(name);
        return made;
    }
    QStringList processorsOfWalls() const
    {
        QStringList names;
        for (const LayerPointer &layer : document.allScreensArray())
            names.append(ShowProcessors::of(*layer));
        return names;
    }
    QStringList processors() const
    {
        QStringList names;
        for (const ProcessorSettings &settings : document.wiring().processors())
            names.append(settings.name);
        return names;
    }
    void select(qsizetype row) { document.arraycontroller().setSelectionIndex(row); }
    void layByHand(const LayerPointer &layer)
    {
        layer->setValue("split", "hand");
        layer->setValue("runs", QVariant::fromValue(CableRuns({{{"A", 1}, 1, {{0, 0}, {1, 0}}}})));
        document.finishEdit("cable");
    }
};
} // namespace

TEST_F(WiringTest, TheFirstProcessorFeedsAllWallsButTheBackgroundInOneStep)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    EXPECT_EQ(processors(), QStringList{"A"});
    EXPECT_EQ(processorsOfWalls(), (QStringList{"A", "A", ""}));
    EXPECT_EQ(stack.undoText(), "add processor");
    stack.undo();
    EXPECT_EQ(processors(), QStringList());
    EXPECT_EQ(processorsOfWalls(), (QStringList{"", "", ""}));
    stack.redo();
    EXPECT_EQ(processors(), QStringList{"A"});
    EXPECT_EQ(processorsOfWalls(), (QStringList{"A", "A", ""}));
}

TEST_F(WiringTest, TheSecondOneFeedsNoneByItself)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    ASSERT_TRUE(document.wiring().add(controller("STAGE")));
    EXPECT_EQ(processors(), (QStringList{"A", "STAGE"}));
    EXPECT_EQ(processorsOfWalls(), (QStringList{"A", "A", ""}));
}

TEST_F(WiringTest, ANameIsTakenOnce)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    ASSERT_TRUE(document.wiring().add(controller({})));
    EXPECT_EQ(document.wiring().add(controller("B")).error().text,
              "There is a processor \"B\" already; choose another name.");
    EXPECT_EQ(document.wiring().change(0, controller("B")).error().text,
              "There is a processor \"B\" already; choose another name.");
    EXPECT_EQ(document.wiring().change(0, controller("")).error().text,
              "A processor needs a name, as its ports are called by it.");
    EXPECT_EQ(processors(), (QStringList{"A", "B"}));
}

TEST_F(WiringTest, WallsFollowAnotherNameAndUndoBringsItBack)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    layByHand(document.allScreensArray()[0]);
    ASSERT_TRUE(document.wiring().change(0, controller("FOH")));
    EXPECT_EQ(processorsOfWalls(), (QStringList{"FOH", "FOH", ""}));
    EXPECT_EQ(document.allScreensArray()[0]->record()->runs.list()[0].port.text(), "FOH1");
    stack.undo();
    EXPECT_EQ(processors(), QStringList{"A"});
    EXPECT_EQ(document.allScreensArray()[0]->record()->runs.list()[0].port.text(), "A1");
}

TEST_F(WiringTest, OnesThatAreMissingComeBehindTheirLike)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    ASSERT_TRUE(document.wiring().add(controller("STAGE")));
    ASSERT_TRUE(document.wiring().addLike(0, 2));
    EXPECT_EQ(processors(), (QStringList{"A", "B", "C", "STAGE"}));
    EXPECT_TRUE(document.wiring().processors()[2].isLike(controller("A")));
    document.wiring().remove(0);
    EXPECT_EQ(processors(), (QStringList{"B", "C", "STAGE"}));
    EXPECT_EQ(processorsOfWalls(), (QStringList{"A", "A", ""})) << "they wait";
}

TEST_F(WiringTest, ANewWallTakesTheProcessorThatWasUsedLast)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    ASSERT_TRUE(document.wiring().add(controller({})));
    document.AddScreen();
    EXPECT_EQ(ShowProcessors::of(*selected()), "A");
    select(1);
    edit("processor", "B");
    document.AddScreen();
    EXPECT_EQ(ShowProcessors::of(*selected()), "B");
}

TEST_F(WiringTest, ADuplicateKeepsItsCablesOnFreePorts)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    select(0);
    layByHand(selected());
    edit("firstPort", 5);
    document.copyLayer();
    EXPECT_EQ(selected()->label(), "MAIN Copy");
    EXPECT_EQ(selected()->record()->runs, CableRuns({{{"A", 2}, 1, {{0, 0}, {1, 0}}}}));
    EXPECT_EQ(selected()->record()->split, CableSplit::Hand);
    EXPECT_EQ(selected()->record()->firstPort, 0);
}

TEST_F(WiringTest, ADuplicatePassesPortsThatWallsKeepAndEndsOfLoops)
{
    ProcessorSettings looped = controller({});
    looped.model = "Tessera S8"; // 1 with 2, 3 with 4
    looped.backup = ProcessorSettings::Backup::Loop;
    ASSERT_TRUE(document.wiring().add(looped));
    select(1);
    edit("split", "panels");
    edit("firstPort", 3);
    select(0);
    layByHand(selected());
    document.copyLayer();
    EXPECT_EQ(selected()->record()->runs.list()[0].port.text(), "A5");
}

TEST_F(WiringTest, ABackupFollowsAnotherNameAndIsNoOthers)
{
    ProcessorSettings main = controller({});
    main.backup = ProcessorSettings::Backup::SecondProcessor;
    main.backupProcessor = "B";
    ASSERT_TRUE(document.wiring().add(main));
    ASSERT_TRUE(document.wiring().add(controller({})));
    ASSERT_TRUE(document.wiring().change(1, controller("SPARE")));
    EXPECT_EQ(document.wiring().processors()[0].backupProcessor, "SPARE");
    ASSERT_TRUE(document.wiring().addLike(0, 1));
    EXPECT_EQ(processors(), (QStringList{"A", "B", "SPARE"}));
    EXPECT_EQ(document.wiring().processors()[1].backupProcessor, "");
    stack.undo();
    stack.undo();
    EXPECT_EQ(document.wiring().processors()[0].backupProcessor, "B");
}

TEST_F(WiringTest, APresetKeepsTheWayOfSplittingOnly)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    select(0);
    edit("split", "panels");
    document.keepAsPresets();
    const LayerPointer preset = document.presetScreensArray()[0];
    EXPECT_EQ(ShowProcessors::of(*preset), "");
    EXPECT_EQ(preset->record()->split, CableSplit::Panels);
    EXPECT_EQ(preset->record()->runs, CableRuns());
}

TEST_F(WiringTest, TheLimitFollowsTheProcessorInTheSameStep)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    select(0);
    edit("limitFromProcessor", true);
    EXPECT_EQ(selected()->pixelLimit(), 659'722);
    ProcessorSettings faster = controller("A");
    faster.rate = 120;
    ASSERT_TRUE(document.wiring().change(0, faster));
    EXPECT_EQ(selected()->pixelLimit(), 329'861);
    stack.undo();
    EXPECT_EQ(selected()->pixelLimit(), 659'722);
}

TEST_F(WiringTest, AWallThatIsNotSelectedShowsItsNewLimit)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    select(1);
    edit("drawFlowPath", true);
    edit("limitFromProcessor", true);
    select(0);
    waitForRedraws();
    const LayerPointer side = document.allScreensArray()[1];
    const QImage before = side->thumbnail().copy();
    ProcessorSettings small = controller("A");
    small.capacity = 2 * 120 * 120;
    ASSERT_TRUE(document.wiring().change(0, small));
    EXPECT_EQ(side->pixelLimit(), 2 * 120 * 120);
    EXPECT_NE(side->thumbnail(), before);
}

TEST_F(WiringTest, WhatNoFileHoldsIsRefused)
{
    ProcessorSettings wrong = controller({});
    wrong.headroom = 100;
    EXPECT_EQ(document.wiring().add(wrong).error().text, "A processor has 0 to 99 per cent, and not 100.");
    wrong = controller({});
    wrong.rate = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(document.wiring().add(wrong));
    ASSERT_TRUE(document.wiring().add(controller({})));
    EXPECT_EQ(document.wiring().addLike(0, 1000).error().text, "A show has at most 1000 processors.");
    EXPECT_EQ(document.wiring().addLike(1, 1).error().text, "There is no such processor any more.");
    EXPECT_EQ(document.wiring().change(1, controller("B")).error().text, "There is no such processor any more.");
    document.wiring().remove(1);
    EXPECT_EQ(processors(), QStringList{"A"});
}

TEST_F(WiringTest, OfTwoProcessorsOfOneNameTheWallsStayWithTheOther)
{
    document.wiring().take({controller("A"), controller("A")});
    select(0);
    edit("processor", "A");
    ASSERT_TRUE(document.wiring().change(1, controller("B")));
    EXPECT_EQ(processorsOfWalls()[0], "A");
    ProcessorSettings faster = controller("A");
    faster.rate = 50;
    EXPECT_TRUE(document.wiring().change(0, faster));
}

TEST_F(WiringTest, ThePortsAreThoseOfTheDocument)
{
    ASSERT_TRUE(document.wiring().add(controller({})));
    select(0);
    edit("split", "panels");
    const ShowPorts ports = document.wiring().ports();
    EXPECT_EQ(ports.rows, (std::vector<qsizetype>{0, 1, 2}));
    ASSERT_EQ(ports.wiring.ports.size(), 2U);
    EXPECT_EQ(ports.nameOf(ports.wiring.ports[0]), "A1");
    EXPECT_EQ(ports.wiring.ports[0].load.panels, 24);
    EXPECT_EQ(ports.nameOf(ports.wiring.ports[1]), "A2");
    EXPECT_EQ(ports.wiring.walls[2].state, ShowWiring::State::LeftOut);
}
