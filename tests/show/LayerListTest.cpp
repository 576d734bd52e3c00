#include "tests/show/LayerListFixture.h"

#include <QMimeData>
#include <QSignalSpy>

#include <memory>

using LayerListTest = LayerListFixture;

TEST_F(LayerListTest, AnEmptyListSelectsNothing)
{
    EXPECT_EQ(list.selectionIndex(), -1);
    EXPECT_EQ(list.selectedLayer(), nullptr);
    EXPECT_EQ(list.layer(0), nullptr);
    EXPECT_FALSE(list.setValue(5, "arrangedObjects.col"));
    EXPECT_FALSE(list.value("arrangedObjects.col").isValid());

    list.removeObjectAtArrangedObjectIndex(0);
    list.setSelectionIndex(0);
    EXPECT_EQ(list.selectionIndex(), -1);
}

TEST_F(LayerListTest, TheSelectionStaysWithItsLayer)
{
    insert("a", 0);
    EXPECT_EQ(selectedLabel(), "a");

    insert("b", 0);
    insert("c", 2);
    EXPECT_EQ(labels(), "b a c");
    EXPECT_EQ(list.selectionIndex(), 1);
    EXPECT_EQ(selectedLabel(), "a");

    list.removeObjectAtArrangedObjectIndex(0);
    EXPECT_EQ(labels(), "a c");
    EXPECT_EQ(selectedLabel(), "a");
}

TEST_F(LayerListTest, ARemovedSelectionPassesToTheNextLayerAndAtTheEndToTheLast)
{
    insert("a", 0);
    insert("b", 1);
    insert("c", 2);
    list.setSelectionIndex(1);

    list.removeObjectAtArrangedObjectIndex(1);
    EXPECT_EQ(selectedLabel(), "c");
    list.removeObjectAtArrangedObjectIndex(1);
    EXPECT_EQ(selectedLabel(), "a");
    list.removeObjectAtArrangedObjectIndex(0);
    EXPECT_EQ(list.selectionIndex(), -1);
}

TEST_F(LayerListTest, IndexesBeyondTheListAreTakenToItsEnds)
{
    insert("a", 7);
    insert("b", -3);
    insert("c", 99);

    EXPECT_EQ(labels(), "b a c");
}

TEST_F(LayerListTest, SeveralRowsGoAtOnceInAnyOrder)
{
    for (const char *label : {"a", "b", "c", "d", "e"})
        insert(label, list.rowCount());

    list.removeObjectsAtArrangedObjectIndexes({3, 0, 3, 17, -1});

    EXPECT_EQ(labels(), "b c e");
}

TEST_F(LayerListTest, AMovedRowEndsBeforeTheRowThatItWasDroppedOn)
{
    for (const char *label : {"a", "b", "c", "d", "e"})
        insert(label, list.rowCount());

    list.moveObjectAtArrangedObjectIndex(1, 4);
    EXPECT_EQ(labels(), "a c d b e");
    list.moveObjectAtArrangedObjectIndex(4, 1);
    EXPECT_EQ(labels(), "a e c d b");
    list.moveObjectAtArrangedObjectIndex(0, 5);
    EXPECT_EQ(labels(), "e c d b a");

    for (const auto &[index, row] : {std::pair{2, 2}, {2, 3}, {-1, 0}, {5, 0}, {0, 6}, {0, -1}})
        list.moveObjectAtArrangedObjectIndex(index, row);
    EXPECT_EQ(labels(), "e c d b a");
}

TEST_F(LayerListTest, TheSelectionStaysWithItsLayerInEveryMove)
{
    for (const char *label : {"a", "b", "c", "d"})
        insert(label, list.rowCount());
    for (int selected = 0; selected < 4; ++selected) {
        for (int index = 0; index < 4; ++index) {
            for (int row = 0; row <= 4; ++row) {
                list.setSelectionIndex(selected);
                const LayerPointer layer = list.selectedLayer();
                const QSignalSpy told(&list, &LayerList::selectionIndexDidChange);

                list.moveObjectAtArrangedObjectIndex(index, row);

                EXPECT_EQ(list.selectedLayer(), layer) << selected << ": " << index << " to " << row;
                EXPECT_EQ(told.size(), list.selectionIndex() == selected ? 0 : 1);
            }
        }
    }
}

TEST_F(LayerListTest, ADropIsToldWithTheFirstDraggedRowAndThePlace)
{
    for (const char *label : {"a", "b", "c"})
        insert(label, list.rowCount());
    const std::unique_ptr<QMimeData> dragged(list.mimeData({list.index(2), list.index(1)}));
    ASSERT_NE(dragged, nullptr);
    QSignalSpy drops(&list, &LayerList::rowWasDropped);

    EXPECT_TRUE(list.dropMimeData(dragged.get(), Qt::CopyAction, 0, 0, {}));
    EXPECT_TRUE(list.dropMimeData(dragged.get(), Qt::MoveAction, -1, -1, list.index(2)));
    EXPECT_TRUE(list.dropMimeData(dragged.get(), Qt::LinkAction, -1, -1, {}));

    ASSERT_EQ(drops.size(), 3);
    EXPECT_EQ(drops[0], (QVariantList{qsizetype{1}, qsizetype{0}}));
    EXPECT_EQ(drops[1], (QVariantList{qsizetype{1}, qsizetype{2}}));
    EXPECT_EQ(drops[2], (QVariantList{qsizetype{1}, qsizetype{3}}));
    EXPECT_EQ(labels(), "a b c");
}

TEST_F(LayerListTest, AnEditByKeyPathReachesTheSelectedLayerAndIsTold)
{
    insert("a", 0);
    insert("b", 1);
    list.setSelectionIndex(1);
    const QSignalSpy edits(&list, &LayerList::valueDidChange);

    EXPECT_TRUE(list.setValue(31, "arrangedObjects.panelWidth"));

    EXPECT_EQ(list.layer(1)->panelWidth(), 31);
    EXPECT_EQ(list.layer(0)->panelWidth(), 48);
    EXPECT_EQ(list.value("arrangedObjects.panelWidth"), QVariant(31));
    ASSERT_EQ(edits.size(), 1);
    EXPECT_EQ(edits[0][0].toString(), "arrangedObjects.panelWidth");
}

TEST_F(LayerListTest, APlainSetterIsNotTold)
{
    insert("a", 0);
    const QSignalSpy edits(&list, &LayerList::valueDidChange);

    list.layer(0)->setPanelWidth(31);

    EXPECT_EQ(edits.size(), 0);
}

TEST_F(LayerListTest, WhatIsNoPropertyIsNotEdited)
{
    insert("a", 0);
    const QSignalSpy edits(&list, &LayerList::valueDidChange);

    EXPECT_FALSE(list.setValue(1, "arrangedObjects.patternBool"));
    EXPECT_FALSE(list.setValue(1, "panelWidth"));
    EXPECT_FALSE(list.setValue("no number", "arrangedObjects.panelWidth"));
    EXPECT_FALSE(list.setValue(1, ""));

    EXPECT_EQ(edits.size(), 0);
    EXPECT_EQ(list.layer(0)->panelWidth(), 48);
    EXPECT_TRUE(list.layer(0)->dynamicPropertyNames().isEmpty());
}

TEST_F(LayerListTest, TheTableShowsNameAndEyeAndEditsThem)
{
    insert("a", 0);
    insert("b", 1);
    const QSignalSpy edits(&list, &LayerList::valueDidChange);
    const QModelIndex second = list.index(1);

    EXPECT_EQ(second.data(Qt::DisplayRole), QVariant("b"));
    EXPECT_EQ(second.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(list.setData(second, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(list.setData(second, "Banner", Qt::EditRole));
    EXPECT_FALSE(list.setData(second, "Banner", Qt::ToolTipRole));

    EXPECT_FALSE(list.layer(1)->visible());
    EXPECT_EQ(list.layer(1)->label(), "Banner");
    EXPECT_TRUE(list.layer(0)->visible());
    ASSERT_EQ(edits.size(), 2);
    EXPECT_EQ(edits[0][0].toString(), "arrangedObjects.visible");
    EXPECT_EQ(edits[1][0].toString(), "arrangedObjects.label");
}

TEST_F(LayerListTest, ARemovedRowIsToldEvenWhereItsSuccessorHasTheSameIndex)
{
    list.setLayers(screens({"a", "b"}), {0});
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);

    list.removeObjectAtArrangedObjectIndex(0);

    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown[0][0].toInt(), 0);
}

TEST_F(LayerListTest, ANewListIsSelectedAsAskedOrInItsFirstRow)
{
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);
    list.setLayers(screens({"a", "b", "c"}), {2, 1}, 2);
    EXPECT_EQ(selectedLabels(), "b [c]");
    EXPECT_EQ(shown.size(), 1);

    list.setLayers(screens({"d", "e", "f"}), {2, 1}, 2);
    EXPECT_EQ(selectedLabels(), "e [f]");
    EXPECT_EQ(shown.size(), 2); // the same row of another list

    list.setLayers(screens({"g"}), {2, 1}, 2);
    EXPECT_EQ(selectedLabels(), "[g]");
    list.setLayers(screens({"h", "i"}), {});
    EXPECT_EQ(selectedLabels(), "[h]");
    list.setLayers({}, {0});
    EXPECT_EQ(list.selectionIndex(), -1);
    EXPECT_TRUE(list.selectionIndexes().empty());
    EXPECT_EQ(shown.last()[0].toInt(), -1);
}

TEST_F(LayerListTest, TheSameLayersAgainLeaveViewsTheirPlace)
{
    const std::vector<LayerPointer> layers = screens({"a", "b", "c"});
    list.setLayers(layers, {0});
    const QSignalSpy resets(&list, &LayerList::modelReset);
    const QSignalSpy changes(&list, &LayerList::dataChanged);

    list.setLayers(layers, {1, 2}, 2);

    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(selectedLabels(), "b [c]");
}

TEST_F(LayerListTest, EveryDragIsTold)
{
    list.setLayers(screens({"a", "b"}), {0});
    const QSignalSpy drags(&list, &LayerList::dragDidStart);

    const std::unique_ptr<QMimeData> dragged(list.mimeData({list.index(1)}));

    EXPECT_EQ(drags.size(), 1);
}
