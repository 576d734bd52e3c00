#include "show/LayerList.h"

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace {
class LayerListTest : public ::testing::Test
{
protected:
    void insert(const QString &label, qsizetype index)
    {
        const auto screen = LWScreen::init(host);
        screen->setLabel(label);
        list.insertObjectAtArrangedObjectIndex(screen, index);
    }
    QString labels() const
    {
        QStringList all;
        for (const LayerPointer &layer : list.layers())
            all.append(layer->label());
        return all.join(' ');
    }
    /// The labels of all selected rows, the one that the inspector shows in brackets.
    QString selectedLabels() const
    {
        QStringList all;
        for (const qsizetype index : list.selectionIndexes()) {
            const QString label = list.layer(index) ? list.layer(index)->label() : "no row";
            all.append(index == list.selectionIndex() ? '[' + label + ']' : label);
        }
        return all.join(' ');
    }
    QString selectedLabel() const { return list.selectedLayer() ? list.selectedLayer()->label() : "none"; }

    std::vector<LayerPointer> screens(const QStringList &names)
    {
        std::vector<LayerPointer> made;
        for (const QString &name : names) {
            made.push_back(LWScreen::init(host));
            made.back()->setLabel(name);
        }
        return made;
    }

    TestHost host;
    LayerList list;
    const QAbstractItemModelTester tester{&list, QAbstractItemModelTester::FailureReportingMode::Fatal};
};
} // namespace

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

TEST_F(LayerListTest, SeveralRowsAreSelectedInAnyOrderAndOneOfThemIsShown)
{
    list.setLayers(screens({"a", "b", "c", "d", "e"}), {0});
    const QSignalSpy all(&list, &LayerList::selectionIndexesDidChange);
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);

    list.setSelectionIndexes({3, 1, 3, 17, -1}, 3);
    EXPECT_EQ(selectedLabels(), "b [d]");
    EXPECT_EQ(all.size(), 1);
    EXPECT_EQ(shown.size(), 1);

    list.setSelectionIndexes({1, 3, 4}, 3);
    EXPECT_EQ(selectedLabels(), "b [d] e");
    EXPECT_EQ(all.size(), 2);
    EXPECT_EQ(shown.size(), 1);

    list.setSelectionIndexes({4, 2}, 0);
    EXPECT_EQ(selectedLabels(), "[c] e"); // what is to be shown is not selected
    list.setSelectionIndexes({4, 2});
    EXPECT_EQ(all.size(), 3);
}

TEST_F(LayerListTest, WithoutARowThatExistsTheSelectionStays)
{
    list.setLayers(screens({"a", "b", "c"}), {1, 2}, 2);

    list.setSelectionIndexes({});
    list.setSelectionIndexes({-1, 3});
    list.setSelectionIndex(3);

    EXPECT_EQ(selectedLabels(), "b [c]");
}

TEST_F(LayerListTest, SelectingOneRowDeselectsTheOthers)
{
    list.setLayers(screens({"a", "b", "c"}), {0, 1, 2}, 1);
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);
    const QSignalSpy all(&list, &LayerList::selectionIndexesDidChange);

    list.setSelectionIndex(1);

    EXPECT_EQ(selectedLabels(), "[b]");
    EXPECT_EQ(shown.size(), 0);
    EXPECT_EQ(all.size(), 1);
}

TEST_F(LayerListTest, AnInsertedRowLeavesSeveralSelectedLayersSelected)
{
    list.setLayers(screens({"a", "b", "c"}), {0, 2}, 2);

    insert("x", 1);
    EXPECT_EQ(selectedLabels(), "a [c]");
    insert("y", 0);
    EXPECT_EQ(selectedLabels(), "a [c]");
    insert("z", 5);
    EXPECT_EQ(selectedLabels(), "a [c]");
    EXPECT_EQ(labels(), "y a x b c z");
}

TEST_F(LayerListTest, ARemovedRowLeavesTheOtherSelectedLayersSelected)
{
    list.setLayers(screens({"a", "b", "c", "d", "e"}), {1, 3, 4}, 3);

    list.removeObjectAtArrangedObjectIndex(0);
    EXPECT_EQ(selectedLabels(), "b [d] e");
    list.removeObjectAtArrangedObjectIndex(2);
    EXPECT_EQ(selectedLabels(), "[b] e"); // the first of the others is shown
    list.removeObjectAtArrangedObjectIndex(2);
    EXPECT_EQ(selectedLabels(), "[b]");
    list.removeObjectAtArrangedObjectIndex(0);
    EXPECT_EQ(selectedLabels(), "[c]"); // none was left: the one in its place
    list.removeObjectAtArrangedObjectIndex(0);
    EXPECT_EQ(selectedLabels(), "");
    EXPECT_EQ(list.selectionIndex(), -1);
}

TEST_F(LayerListTest, WhenAllSelectedRowsGoOneOfTheRestIsSelected)
{
    list.setLayers(screens({"a", "b", "c", "d"}), {1, 3}, 3);

    list.removeObjectsAtArrangedObjectIndexes(list.selectionIndexes());

    EXPECT_EQ(labels(), "a c");
    EXPECT_EQ(list.selectionIndexes().size(), 1U);
    EXPECT_NE(list.selectedLayer(), nullptr);
}

TEST_F(LayerListTest, ARemovedRowIsToldEvenWhereItsSuccessorHasTheSameIndex)
{
    list.setLayers(screens({"a", "b"}), {0});
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);

    list.removeObjectAtArrangedObjectIndex(0);

    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown[0][0].toInt(), 0);
}

TEST_F(LayerListTest, SeveralSelectedLayersStaySelectedInEveryMove)
{
    for (int first = 0; first < 5; ++first) {
        for (int second = 0; second < 5; ++second) {
            for (int index = 0; index < 5; ++index) {
                for (int row = 0; row <= 5; ++row) {
                    list.setLayers(screens({"a", "b", "c", "d", "e"}), {first, second}, second);
                    const LayerPointer one = list.layer(first);
                    const LayerPointer other = list.layer(second);

                    list.moveObjectAtArrangedObjectIndex(index, row);

                    std::set<LayerPointer> selected;
                    for (const qsizetype now : list.selectionIndexes())
                        selected.insert(list.layer(now));
                    EXPECT_EQ(selected, (std::set{one, other})) << index << " to " << row;
                    EXPECT_EQ(list.selectedLayer(), other);
                    EXPECT_TRUE(std::is_sorted(list.selectionIndexes().begin(), list.selectionIndexes().end()));
                }
            }
        }
    }
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

TEST_F(LayerListTest, AnEditGoesToTheShownOneOfSeveralSelectedRows)
{
    list.setLayers(screens({"a", "b", "c"}), {0, 1, 2}, 1);

    EXPECT_TRUE(list.setValue(31, "arrangedObjects.panelWidth"));

    EXPECT_EQ(list.layer(0)->panelWidth(), 48);
    EXPECT_EQ(list.layer(1)->panelWidth(), 31);
    EXPECT_EQ(list.layer(2)->panelWidth(), 48);
    EXPECT_EQ(selectedLabels(), "a [b] c");
}
