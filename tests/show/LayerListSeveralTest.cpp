#include "tests/show/LayerListFixture.h"

#include <QSignalSpy>

#include <set>

using LayerListSeveralTest = LayerListFixture;

TEST_F(LayerListSeveralTest, SeveralRowsAreSelectedInAnyOrderAndOneOfThemIsShown)
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

TEST_F(LayerListSeveralTest, WithoutARowThatExistsTheSelectionStays)
{
    list.setLayers(screens({"a", "b", "c"}), {1, 2}, 2);

    list.setSelectionIndexes({});
    list.setSelectionIndexes({-1, 3});
    list.setSelectionIndex(3);

    EXPECT_EQ(selectedLabels(), "b [c]");
}

TEST_F(LayerListSeveralTest, SelectingOneRowDeselectsTheOthers)
{
    list.setLayers(screens({"a", "b", "c"}), {0, 1, 2}, 1);
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);
    const QSignalSpy all(&list, &LayerList::selectionIndexesDidChange);

    list.setSelectionIndex(1);

    EXPECT_EQ(selectedLabels(), "[b]");
    EXPECT_EQ(shown.size(), 0);
    EXPECT_EQ(all.size(), 1);
}

TEST_F(LayerListSeveralTest, AnInsertedRowLeavesSeveralSelectedLayersSelected)
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

TEST_F(LayerListSeveralTest, ARemovedRowLeavesTheOtherSelectedLayersSelected)
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

TEST_F(LayerListSeveralTest, WhenAllSelectedRowsGoOneOfTheRestIsSelected)
{
    list.setLayers(screens({"a", "b", "c", "d"}), {1, 3}, 3);

    list.removeObjectsAtArrangedObjectIndexes(list.selectionIndexes());

    EXPECT_EQ(labels(), "a c");
    EXPECT_EQ(list.selectionIndexes().size(), 1U);
    EXPECT_NE(list.selectedLayer(), nullptr);
}

TEST_F(LayerListSeveralTest, SeveralSelectedLayersStaySelectedInEveryMove)
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

TEST_F(LayerListSeveralTest, AnEditGoesToTheShownOneOfSeveralSelectedRows)
{
    list.setLayers(screens({"a", "b", "c"}), {0, 1, 2}, 1);

    EXPECT_TRUE(list.setValue(31, "arrangedObjects.panelWidth"));

    EXPECT_EQ(list.layer(0)->panelWidth(), 48);
    EXPECT_EQ(list.layer(1)->panelWidth(), 31);
    EXPECT_EQ(list.layer(2)->panelWidth(), 48);
    EXPECT_EQ(selectedLabels(), "a [b] c");
}
