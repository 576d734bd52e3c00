#include "show/LWPresets.h"

#include "screen/LWScreen.h"
#include "show/RowPasteboard.h"
#include "tests/screen/TestHost.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDropEvent>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QSignalSpy>
#include <QTableView>

#include <gtest/gtest.h>
#include <memory>

namespace {
class LWPresetsTest : public ::testing::Test
{
protected:
    LWPresetsTest()
    {
        presets.layer(0)->setLabel("0");
        for (const char *label : {"1", "2", "3", "4", "5"}) {
            const auto screen = LWScreen::init(host);
            screen->setLabel(label);
            presets.insertObjectAtArrangedObjectIndex(screen, presets.rowCount());
        }
    }

    QString labels() const
    {
        QString all;
        for (const LayerPointer &preset : presets.presetScreensArray())
            all += preset->label();
        return all;
    }
    std::unique_ptr<QMimeData> drag(const std::vector<int> &rows) const
    {
        QModelIndexList indexes;
        for (const int row : rows)
            indexes.append(presets.index(row));
        return std::unique_ptr<QMimeData>(presets.mimeData(indexes));
    }
    static std::unique_ptr<QMimeData> pasteboard(const QByteArray &bytes)
    {
        auto data = std::make_unique<QMimeData>();
        data->setData(RowPasteboard::type, bytes);
        return data;
    }
    bool drop(const std::unique_ptr<QMimeData> &data, int row)
    {
        return presets.dropMimeData(data.get(), Qt::CopyAction, row, 0, {});
    }
    QString labelsAfterDrag(int from, int row)
    {
        EXPECT_TRUE(drop(drag({from}), row));
        return labels();
    }

    TestHost host;
    LWPresets presets{host};
    const QAbstractItemModelTester tester{&presets, QAbstractItemModelTester::FailureReportingMode::Fatal};
};
} // namespace

TEST(LWPresets, StartsWithOneScreenOfDefaultLooks)
{
    TestHost host;
    const LWPresets presets(host);

    ASSERT_EQ(presets.presetScreensArray().size(), 1U);
    const auto *const screen = qobject_cast<LWScreen *>(presets.presetScreensArray().front().get());
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->row(), 5);
    EXPECT_EQ(screen->col(), 5);
    EXPECT_EQ(screen->panelWidth(), 48);
    EXPECT_EQ(screen->label1(), "Panel-H");
    EXPECT_FALSE(screen->sfColor().has_value());
}

TEST_F(LWPresetsTest, ARowDraggedDownEndsAboveTheDropRow)
{
    EXPECT_EQ(labelsAfterDrag(1, 4), "023145");
}

TEST_F(LWPresetsTest, ARowDraggedUpEndsInTheDropRow)
{
    EXPECT_EQ(labelsAfterDrag(4, 1), "041235");
}

TEST_F(LWPresetsTest, EveryDragEndsWhereRemovingAndInsertingLeavesIt)
{
    for (int from = 0; from < 6; ++from) {
        for (int row = 0; row <= 6; ++row) {
            QString expected = labels();
            const QString moved = expected.mid(from, 1);
            if (from >= row)
                expected.remove(from, 1).insert(row, moved);
            else
                expected.insert(row, moved).remove(from, 1);
            EXPECT_EQ(labelsAfterDrag(from, row), expected) << from << " to " << row;
        }
    }
}

TEST_F(LWPresetsTest, OnlyTheFirstOfSeveralRowsMoves)
{
    EXPECT_TRUE(drop(drag({5, 2, 3}), 0));

    EXPECT_EQ(labels(), "201345");
}

TEST_F(LWPresetsTest, ADropOnARowIsADropBeforeItAndOneBesideAllGoesToTheEnd)
{
    const auto data = drag({5});
    EXPECT_TRUE(presets.dropMimeData(data.get(), Qt::CopyAction, -1, -1, presets.index(2)));
    EXPECT_EQ(labels(), "015234");

    EXPECT_TRUE(presets.dropMimeData(drag({0}).get(), Qt::CopyAction, -1, -1, {}));
    EXPECT_EQ(labels(), "152340");
}

TEST_F(LWPresetsTest, EveryOperationIsAcceptedEverywhere)
{
    const auto data = drag({1});
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction, Qt::LinkAction}) {
        EXPECT_TRUE(presets.canDropMimeData(data.get(), action, 3, 0, {}));
        EXPECT_TRUE(presets.canDropMimeData(data.get(), action, -1, -1, presets.index(0)));
        EXPECT_TRUE(presets.canDropMimeData(data.get(), action, -1, -1, {}));
    }
    EXPECT_TRUE(presets.flags({}).testFlag(Qt::ItemIsDropEnabled));
    EXPECT_TRUE(presets.flags(presets.index(0)).testFlag(Qt::ItemIsDropEnabled));
    EXPECT_TRUE(presets.flags(presets.index(0)).testFlag(Qt::ItemIsDragEnabled));
}

TEST_F(LWPresetsTest, AViewIsNeverAskedToClearWhatWasDragged)
{
    EXPECT_EQ(presets.supportedDragActions(), Qt::CopyAction);
}

TEST_F(LWPresetsTest, RowsThatDoNotExistChangeNothing)
{
    const QSignalSpy moves(&presets, &QAbstractItemModel::rowsMoved);

    drop(pasteboard(RowPasteboard::encode({6}).value()), 0);
    drop(pasteboard(RowPasteboard::encode({qsizetype{1} << 32}).value()), 0);
    drop(drag({1}), 7);
    presets.moveObjectAtArrangedObjectIndex(-1, 0);
    presets.moveObjectAtArrangedObjectIndex(2, -1);

    EXPECT_EQ(labels(), "012345");
    EXPECT_EQ(moves.size(), 0);
}

TEST_F(LWPresetsTest, ForeignDragsChangeNothing)
{
    auto foreign = std::make_unique<QMimeData>();
    foreign->setText("1");

    EXPECT_FALSE(presets.canDropMimeData(foreign.get(), Qt::CopyAction, 0, 0, {}));
    EXPECT_FALSE(drop(foreign, 0));
    EXPECT_FALSE(drop(pasteboard("no rows at all"), 0));
    EXPECT_EQ(labels(), "012345");
}

TEST_F(LWPresetsTest, SelectionsOfViewsAndOfTheListFollowTheMove)
{
    QItemSelectionModel selection(&presets);
    selection.select(presets.index(1), QItemSelectionModel::Select);
    selection.select(presets.index(3), QItemSelectionModel::Select);
    const QPersistentModelIndex moved = presets.index(1);
    const QPersistentModelIndex passed = presets.index(3);
    presets.setSelectionIndex(3);

    EXPECT_EQ(labelsAfterDrag(1, 5), "023415");

    EXPECT_EQ(moved.row(), 4);
    EXPECT_EQ(passed.row(), 2);
    EXPECT_TRUE(selection.isSelected(presets.index(4)));
    EXPECT_TRUE(selection.isSelected(presets.index(2)));
    EXPECT_FALSE(selection.isSelected(presets.index(1)));
    EXPECT_EQ(presets.selectedLayer()->label(), "3");
}

TEST_F(LWPresetsTest, ATableShowsTheNewOrderAfterARealDrop)
{
    QTableView table;
    table.setModel(&presets);
    table.setDragDropMode(QAbstractItemView::DragDrop);
    table.resize(300, 400);
    table.show();
    table.selectRow(1);
    const auto data = drag({1});
    const QPointF place(20, table.rowViewportPosition(4) + 9);

    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(table.viewport(), &enter);
    QDragMoveEvent over(place.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(table.viewport(), &over);
    QDropEvent event(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(table.viewport(), &event);

    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(labels(), "023145");
    EXPECT_EQ(table.model()->index(3, 0).data().toString(), "1");
    EXPECT_EQ(table.currentIndex().row(), 3);
}
