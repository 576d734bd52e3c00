#include "tests/app/ListFixture.h"

#include <QSignalSpy>

namespace {
/// Several rows at once: what views are told must not grow with their number, since they look at all rows each time.
class LayerListManyRows : public ListFixture
{
protected:
    LayerList &list = document.arraycontroller();
};
} // namespace

TEST_F(LayerListManyRows, RowsThatGoAtOnceAreToldOnceForEachRunOfNeighbours)
{
    showLayers({"a", "b", "c", "d", "e", "f"});
    list.setSelectionIndexes({0, 1, 4}, 1);
    const QSignalSpy removals(&list, &LayerList::rowsRemoved);
    const QSignalSpy shown(&list, &LayerList::selectionIndexDidChange);
    const QSignalSpy selections(&list, &LayerList::selectionIndexesDidChange);

    list.removeObjectsAtArrangedObjectIndexes(list.selectionIndexes());

    EXPECT_EQ(labels(), "c, d, f");
    EXPECT_EQ(removals.size(), 2);
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(selections.size(), 1);
    EXPECT_EQ(list.selectionIndexes(), (std::vector<qsizetype>{0}));
}

TEST_F(LayerListManyRows, WhereTheShownRowGoesTheOneInItsPlaceIsSelected)
{
    showLayers({"a", "b", "c", "d", "e"});
    list.setSelectionIndexes({1, 3}, 3);

    list.removeObjectsAtArrangedObjectIndexes({1, 3});

    EXPECT_EQ(list.selectedLayer()->label(), "e");
}

TEST_F(LayerListManyRows, AnEditOfSeveralLayersIsToldWhenItIsWhole)
{
    showLayers({"a", "b", "c"});
    list.setSelectionIndexes({0, 1, 2}, 1);
    QStringList seen;
    QObject::connect(&list, &LayerList::dataChanged, &list, [&] {
        for (const LayerPointer &layer : list.layers())
            seen.append(QString::number(layer->panelWidth()));
    });

    document.setValueOfSelection(31, "arrangedObjects.panelWidth");

    EXPECT_EQ(seen.join(' '), "31 31 31");
}

TEST_F(LayerListManyRows, LayersThatComeInTogetherAreToldOnce)
{
    showLayers({"a", "b"});
    list.setSelectionIndexes({0, 1}, 1);
    ASSERT_TRUE(document.copyToPasteboard());
    const QSignalSpy insertions(&list, &LayerList::rowsInserted);
    const QSignalSpy selections(&list, &LayerList::selectionIndexesDidChange);

    document.pasteFromPasteboard();

    EXPECT_EQ(labels(), "a, a, b, b");
    EXPECT_EQ(insertions.size(), 1);
    EXPECT_LE(selections.size(), 2); // the selection moves on with its layers, then to the new ones
    EXPECT_EQ(list.selectionIndexes(), (std::vector<qsizetype>{1, 2}));
}
