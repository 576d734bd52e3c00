#include "layer/LayerLimits.h"
#include "tests/app/ListFixture.h"
#include "tests/app/RedrawGate.h"
#include "tests/screen/TestHost.h"

#include <vector>

namespace {
/// Walls that nobody sees, so that none is drawn, of 2^21 px a column; 512 columns are all that can be held together.
class EditLimits : public ListFixture
{
protected:
    const QString sentence = "Taken back: walls and charts have %1 px too many; make some smaller";

    LayerPointer wall(int columns)
    {
        LayerPointer wall = solidScreen(NamedColour::red, {0, 0, 128, 128});
        wall->setVisible(false);
        wall->setRow(128);
        wall->setCol(columns);
        return wall;
    }
    void show(const std::vector<int> &columns)
    {
        std::vector<LayerPointer> walls;
        for (const int count : columns)
            walls.push_back(wall(count));
        layers.setLayers(walls, {0});
        document.finishEdit("setting");
        person.failures.clear();
    }
    void type(int columns) { EXPECT_TRUE(document.setValueOfSelection(columns, "arrangedObjects.col")); }

    LayerList &layers = document.arraycontroller();
    LayerList &presets = document.presetarraycontroller();
};
} // namespace

TEST_F(EditLimits, AreReachedAndNoCopyGoesBeyond)
{
    show({128, 128, 128});
    document.copyLayer();
    EXPECT_EQ(layers.rowCount(), 4);
    EXPECT_EQ(person.failures, QStringList());
    const QByteArray before = archive();
    const int steps = document.undoStack().index();
    document.copyLayer();
    EXPECT_EQ(person.failures, QStringList(sentence.arg("268,435,456")));
    EXPECT_EQ(archive(), before);
    EXPECT_EQ(layers.selectionIndexes(), std::vector<qsizetype>{1});
    EXPECT_EQ(document.undoStack().index(), steps);
    EXPECT_TRUE(LayerLimits::check(document.allScreensArray()));
}

TEST_F(EditLimits, PastingDoesNotGoBeyond)
{
    show({128, 128, 128, 128});
    EXPECT_TRUE(document.copyToPasteboard());
    document.pasteFromPasteboard();
    EXPECT_EQ(layers.rowCount(), 4);
    EXPECT_EQ(person.failures, QStringList(sentence.arg("268,435,456")));
}

TEST_F(EditLimits, TypingThatLeadsBeyondIsTakenBackWhole)
{
    show({120, 128, 128, 128, 8});
    type(12);
    type(119);
    EXPECT_EQ(person.failures, QStringList());
    type(121);
    EXPECT_EQ(person.failures, QStringList(sentence.arg("2,097,152")));
    EXPECT_EQ(selected()->col(), 120);
    EXPECT_FALSE(document.undoStack().canRedo());
    type(16);
    EXPECT_EQ(person.failures.size(), 1);
    EXPECT_EQ(selected()->col(), 16);
    document.undoStack().undo();
    EXPECT_EQ(selected()->col(), 120);
}

TEST_F(EditLimits, TheFieldThatWasTypedIntoIsTold)
{
    show({120, 128, 128, 128, 8});
    waitForRedraws(document);
    changed.clear();
    type(121);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(selected()->col(), 120);
    EXPECT_EQ(document.undoStack().undoText(), "setting");
}

TEST_F(EditLimits, AStepThatLeadsBeyondLeavesWhatWasThereBefore)
{
    show({120, 128, 128, 128, 6});
    type(121);
    document.keepTyped();
    type(122);
    document.keepTyped();
    type(123);
    EXPECT_EQ(person.failures, QStringList(sentence.arg("2,097,152")));
    EXPECT_EQ(selected()->col(), 122);
    type(12);
    type(123); // digits again
    EXPECT_EQ(selected()->col(), 122);
    document.undoStack().undo();
    EXPECT_EQ(selected()->col(), 120);
}

TEST_F(EditLimits, WhatWasUndoneCanBeRedoneAfterwards)
{
    show({120, 128, 128, 128, 8});
    type(12);
    document.undoStack().undo();
    type(121);
    EXPECT_EQ(person.failures.size(), 1);
    EXPECT_EQ(selected()->col(), 120);
    ASSERT_TRUE(document.undoStack().canRedo());
    document.undoStack().redo();
    EXPECT_EQ(selected()->col(), 12);
}

TEST_F(EditLimits, SeveralAreTakenBackTogether)
{
    show({64, 64, 128, 128, 128});
    layers.setSelectionIndexes({0, 1});
    type(65);
    EXPECT_EQ(person.failures, QStringList(sentence.arg("4,194,304")));
    EXPECT_EQ(layers.layer(0)->col(), 64);
    EXPECT_EQ(layers.layer(1)->col(), 64);
}

TEST_F(EditLimits, WhatIsTakenBackIsToldWhileTheRedrawWaits)
{
    show({120, 128, 128, 128, 8});
    type(12);
    ASSERT_FALSE(document.shouldUpdate());
    changed.clear();
    type(121);
    EXPECT_FALSE(changed.empty());
    EXPECT_EQ(selected()->col(), 120);
}

TEST_F(EditLimits, NoPresetComesInBeyond)
{
    show({128, 128, 128, 128});
    presets.setLayers({wall(1)}, {0});
    document.finishEdit("setting");
    document.insertPreset(0);
    document.tableViewWriteRowsWithIndexes(presets);
    document.tableViewAcceptDrop(layers, 0, 0);
    EXPECT_EQ(person.failures.count(sentence.arg("2,097,152")), 2);
    EXPECT_EQ(layers.rowCount(), 4);
    EXPECT_EQ(presets.rowCount(), 1);
}

TEST_F(EditLimits, AChartDoesNotGrowBeyond)
{
    show({128, 128, 128, 127});
    document.addChart("grid");
    EXPECT_EQ(person.failures, QStringList());
    EXPECT_TRUE(document.setValueOfSelection(1942, "arrangedObjects.panelWidth"));
    EXPECT_EQ(person.failures, QStringList(sentence.arg("208")));
    EXPECT_EQ(selected()->panelWidth(), 1920);
}

TEST_F(EditLimits, ATrialThatLeadsBeyondIsTakenBackWhenItIsKept)
{
    show({120, 128, 128, 128, 8});
    document.beginTrial();
    type(121);
    EXPECT_EQ(person.failures, QStringList());
    document.keepTrial();
    EXPECT_EQ(person.failures, QStringList(sentence.arg("2,097,152")));
    EXPECT_EQ(selected()->col(), 120);
}

TEST_F(EditLimits, PresetsHaveTheirOwn)
{
    const qint64 before = presets.rowCount();
    show({128, 128, 128, 128});
    layers.setSelectionIndexes({0, 1, 2, 3});
    document.keepAsPresets();
    EXPECT_EQ(presets.rowCount(), before); // the built-in ones have pixels, too
    EXPECT_EQ(person.failures.size(), 1);
    EXPECT_TRUE(person.failures.join('|').startsWith("Taken back: walls and charts have "));
    EXPECT_EQ(person.statuses, QStringList());
    layers.setSelectionIndexes({0, 1, 2});
    document.keepAsPresets();
    EXPECT_EQ(presets.rowCount(), before + 3);
    EXPECT_EQ(person.failures.size(), 1);
}

TEST(UndoHistory, WhoIsBeyondTheLimitsAlreadyFindsAWayBack)
{
    class Walls final : public UndoableDocument
    {
    public:
        DocumentState state(const DocumentState &before) const override
        {
            DocumentState now;
            now.layers = LayerStates::of(layers, before.layers);
            return now;
        }
        void setState(const DocumentState & /*state*/) override { ++brought; }

        std::vector<LayerPointer> layers;
        int brought = 0;
    };
    TestHost host;
    LWScreen::Arguments arguments;
    arguments.row = arguments.col = arguments.panelWidth = arguments.panelHeight = 128;
    const LayerPointer wall = LWScreen::initWithrow(host, arguments);
    Walls document;
    DocumentHistory history(document);
    document.layers.assign(6, wall);
    history.clear();

    document.layers.resize(5);
    EXPECT_TRUE(history.record("remove"));
    document.layers.resize(3);
    EXPECT_TRUE(history.record("remove"));
    EXPECT_EQ(document.brought, 0);
    document.layers.resize(5, wall);
    EXPECT_FALSE(history.record("add"));
    EXPECT_EQ(document.brought, 1);
    EXPECT_EQ(history.stack().count(), 2);
}
