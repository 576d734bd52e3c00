#include "show/RowPasteboard.h"
#include "tests/app/ListFixture.h"

#include <QMimeData>
#include <QTest>

#include <memory>

namespace {
/// Rows dragged within and between the two tables.
class LWAppDelegateDrag : public ListFixture
{
protected:
    LWAppDelegateDrag()
    {
        showLayers({"a", "b", "c", "d", "e"});
        showPresets({"p", "q", "r"});
    }

    using Drag = std::unique_ptr<QMimeData>;
    static Drag drag(const LayerList &table, const QList<int> &rows)
    {
        QModelIndexList indexes;
        for (const int row : rows)
            indexes.append(table.index(row));
        return Drag(table.mimeData(indexes));
    }
    static bool drop(LayerList &table, const Drag &dragged, int row)
    {
        return table.dropMimeData(dragged.get(), Qt::CopyAction, row, 0, {});
    }

    LayerList &layers = document.arraycontroller();
    LayerList &presets = document.presetarraycontroller();
};
} // namespace

TEST_F(LWAppDelegateDrag, Row0DroppedOn3EndsBeforeIt)
{
    const LayerPointer dragged = layers.layer(0);

    EXPECT_TRUE(drop(layers, drag(layers, {0}), 3));

    EXPECT_EQ(labels(), "b, c, a, d, e");
    EXPECT_EQ(layers.layer(2), dragged); // itself, no copy
    EXPECT_EQ(presetLabels(), "p, q, r");
}

TEST_F(LWAppDelegateDrag, Row3DroppedOn0BecomesTheFirst)
{
    const LayerPointer dragged = layers.layer(3);

    EXPECT_TRUE(drop(layers, drag(layers, {3}), 0));

    EXPECT_EQ(labels(), "d, a, b, c, e");
    EXPECT_EQ(layers.layer(0), dragged);
}

TEST_F(LWAppDelegateDrag, OnlyTheFirstOfSeveralRowsMoves)
{
    drop(layers, drag(layers, {4, 2, 3}), 0);

    EXPECT_EQ(labels(), "c, a, b, d, e");
}

TEST_F(LWAppDelegateDrag, PresetsAreReorderedAlike)
{
    drop(presets, drag(presets, {0}), 3);
    EXPECT_EQ(presetLabels(), "q, r, p");
    drop(presets, drag(presets, {2}), 0);
    EXPECT_EQ(presetLabels(), "p, q, r");

    EXPECT_EQ(labels(), "a, b, c, d, e");
}

TEST_F(LWAppDelegateDrag, ADroppedPresetIsCopiedIntoTheDocument)
{
    EXPECT_TRUE(drop(layers, drag(presets, {1, 2}), 2));

    EXPECT_EQ(labels(), "a, b, q, c, d, e");
    EXPECT_EQ(presetLabels(), "p, q, r");
    EXPECT_NE(layers.layer(2), presets.layer(1));
    EXPECT_EQ(layers.selectionIndex(), 2);
    EXPECT_EQ(document.selectedRow(), 0);
}

TEST_F(LWAppDelegateDrag, ADroppedLayerIsCopiedIntoThePresets)
{
    const QByteArray before = archive();

    EXPECT_TRUE(drop(presets, drag(layers, {4}), 0));

    EXPECT_EQ(presetLabels(), "e, p, q, r");
    EXPECT_NE(presets.layer(0), layers.layer(4));
    EXPECT_EQ(archive(), before);
}

TEST_F(LWAppDelegateDrag, TheLastDragCountsUntilTheNextOne)
{
    const Drag dragged = drag(presets, {0});
    drop(layers, dragged, 0);
    drop(layers, dragged, 0);
    EXPECT_EQ(labels(), "p, p, a, b, c, d, e");

    drag(layers, {0});
    drop(layers, dragged, 3);
    EXPECT_EQ(labels(), "p, a, p, b, c, d, e"); // now it is row 0 of the layers
}

TEST_F(LWAppDelegateDrag, BeforeAnyDragWhatIsDroppedComesFromTheOtherTable)
{
    const Drag foreign(new QMimeData);
    foreign->setData(RowPasteboard::type, RowPasteboard::encode({1}).value());

    EXPECT_TRUE(drop(layers, foreign, 0));

    EXPECT_EQ(labels(), "q, a, b, c, d, e");
}

TEST_F(LWAppDelegateDrag, EachDropIsLoggedWithItsTableAndWhereItCameFrom)
{
    const DocumentLogLines log;

    drop(layers, drag(layers, {0}), 1);
    drop(presets, drag(layers, {0}), 0);
    drop(presets, drag(presets, {0}), 1);
    drop(layers, drag(presets, {0}), 0);

    EXPECT_EQ(log.lines(), QStringList({"MAKING COPY == mainTView 1", "MAKING COPY == presetTView 1",
                                        "MAKING COPY == presetTView 2", "MAKING COPY == mainTView 2"}));
}

TEST_F(LWAppDelegateDrag, RowsThatDoNotExistChangeNothing)
{
    const Drag beyond(new QMimeData);
    beyond->setData(RowPasteboard::type, RowPasteboard::encode({1'000'000}).value());
    for (LayerList *const source : {&layers, &presets}) {
        drag(*source, {0});
        for (LayerList *const target : {&layers, &presets})
            EXPECT_TRUE(drop(*target, beyond, 1));
    }

    EXPECT_EQ(labels(), "a, b, c, d, e");
    EXPECT_EQ(presetLabels(), "p, q, r");
    EXPECT_EQ(document.undoStack().undoText(), "Setting");
}

TEST_F(LWAppDelegateDrag, ForeignDragsAreNotAccepted)
{
    QMimeData text;
    text.setText("0");
    const LogLines log;

    EXPECT_FALSE(layers.dropMimeData(&text, Qt::CopyAction, 0, 0, {}));

    EXPECT_EQ(labels(), "a, b, c, d, e");
}

TEST_F(LWAppDelegateDrag, EveryOperationIsAcceptedEverywhere)
{
    for (LayerList *const target : {&layers, &presets}) {
        const Drag dragged = drag(layers, {0});
        EXPECT_EQ(dragged->formats(), QStringList{"BasicTableViewDragAndDropDataType"});
        for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
            for (int row = -1; row <= target->rowCount(); ++row)
                EXPECT_TRUE(target->canDropMimeData(dragged.get(), action, row, 0, {}));
            EXPECT_TRUE(target->canDropMimeData(dragged.get(), action, -1, -1, target->index(1)));
        }
    }
}

TEST_F(LWAppDelegateDrag, ADropRedrawsAtOnceAndTwiceInTheEventLoop)
{
    document.timerupdate();
    const qsizetype compositions = composed.size();
    const qsizetype changes = changed.size();

    drop(layers, drag(layers, {0}), 3);
    EXPECT_EQ(composed.size(), compositions + 1);
    EXPECT_EQ(changed.size(), changes + 1);

    for (const int x : {1, 2}) {
        selected()->setXpoint(x); // nobody tells
        QCoreApplication::processEvents();
        EXPECT_EQ(changed.size(), changes + 1 + x);
    }
}

TEST_F(LWAppDelegateDrag, TheNewOrderIsTheOneThatIsComposed)
{
    for (int row = 0; row < 2; ++row) {
        layers.layer(row)->setXpoint(0);
        layers.layer(row)->setYpoint(0);
    }
    layers.layer(1)->setRectColor(NamedColour::green);
    layers.layer(1)->drawInRect();
    document.timerupdate();

    drop(layers, drag(layers, {1}), 0);

    EXPECT_EQ(outputPixel(3, 3), 0xff00ff00U);
}
