#include "windows/LayerStamps.h"

#include "screen/LWScreen.h"
#include "show/LayerList.h"
#include "still/LWStill.h"
#include "tests/screen/TestHost.h"
#include "windows/LayerTable.h"

#include <QApplication>
#include <QFile>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {
constexpr int rowsInSight = 20;
constexpr int rowHeight = 48;

/// A table of 500 walls of 2 x 1 panels, red and green, of which 20 are in sight.
class LayerStampsTest : public ::testing::Test
{
protected:
    LayerStampsTest()
    {
        std::vector<LayerPointer> walls;
        for (int i = 0; i < 500; ++i) {
            const LayerPointer wall = LWScreen::init(host);
            wall->setCol(2);
            wall->setRow(1);
            wall->setXpoint(i);
            wall->drawInRect();
            walls.push_back(wall);
        }
        list.setLayers(walls, {0});
        table.resize(260, rowsInSight * rowHeight);
        table.show();
    }

    /// Until nothing is left to be done.
    void settle()
    {
        QApplication::processEvents();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !table.stamps().isBehind(); }));
        QApplication::processEvents();
    }
    QImage painted() { return table.viewport()->grab().toImage(); }
    /// The middle of the left panel in the picture of a row.
    QColor seenIn(int row)
    {
        const QRect place = table.findChild<LayerDelegate *>()->picturePlace(table.visualRect(list.index(row)));
        return painted().pixelColor(place.left() + place.width() / 4, place.center().y());
    }
    LWScreen &wall(int row) { return dynamic_cast<LWScreen &>(*list.layer(row)); }
    void recolour(int row, const Colour &colour)
    {
        wall(row).setRectColor(colour);
        wall(row).drawInRect();
        table.viewport()->update();
    }

    TestHost host;
    LayerList list;
    LayerTable table{list, "Layers", LayerDelegate::Kind::Layers};
    QSignalSpy made{&table.stamps(), &LayerStamps::ready};
};
} // namespace

TEST_F(LayerStampsTest, AreMadeForTheRowsInSightAlone)
{
    settle();
    EXPECT_EQ(made.size(), rowsInSight);
    EXPECT_EQ(seenIn(0), QColor(255, 0, 0));
    EXPECT_EQ(seenIn(rowsInSight - 1), QColor(255, 0, 0));

    table.viewport()->update();
    settle();
    EXPECT_EQ(made.size(), rowsInSight); // they are there
}

TEST_F(LayerStampsTest, NoneIsMadeInsideAPainting)
{
    QTemporaryDir folder;
    QFile file(folder.filePath("plate.png"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\x89PNG\r\n\x1a\n and nothing more");
    file.close();
    LayerRecord record;
    record.ImageURL = Address::fromLocalFile(file.fileName());
    const auto still = LWStill::of(host, std::make_shared<LayerRecord>(record));
    list.insertObjectAtArrangedObjectIndex(still, 0);

    painted();
    EXPECT_EQ(made.size(), 0);
    EXPECT_FALSE(still->isPictureMissing()); // nobody has tried to read it
    settle();
    EXPECT_EQ(made.size(), rowsInSight);
    EXPECT_TRUE(still->isPictureMissing());
    settle();
    EXPECT_EQ(made.size(), rowsInSight); // what cannot be had is not tried again
}

TEST_F(LayerStampsTest, AnEditRemakesOneAndKeepsThePictureUntilThen)
{
    settle();
    made.clear();
    recolour(3, NamedColour::blue);
    EXPECT_EQ(seenIn(3), QColor(255, 0, 0));
    settle();
    ASSERT_EQ(made.size(), 1);
    EXPECT_EQ(made[0][0].toModelIndex().row(), 3);
    EXPECT_EQ(seenIn(3), QColor(0, 0, 255));

    recolour(3, NamedColour::red);
    settle();
    EXPECT_EQ(made.size(), 2);
}

TEST_F(LayerStampsTest, EditsWithoutARestMakeOneInTheEnd)
{
    settle();
    made.clear();
    for (int edit = 0; edit < 10; ++edit) {
        recolour(3, edit % 2 == 0 ? NamedColour::red : NamedColour::blue);
        painted(); // without the time that a slow machine may take for a rest
    }
    EXPECT_EQ(made.size(), 0);
    settle();
    EXPECT_EQ(made.size(), 1);
    EXPECT_EQ(seenIn(3), QColor(0, 0, 255));
}

TEST_F(LayerStampsTest, WhatLooksAsBeforeIsNotMadeAgain)
{
    settle();
    made.clear();
    list.moveObjectAtArrangedObjectIndex(3, 9);
    wall(0).releasePicture();
    settle();
    EXPECT_EQ(made.size(), 0);
}

TEST_F(LayerStampsTest, OnlyTheLastLookOfALayerIsHeld)
{
    settle();
    const std::weak_ptr<const LayerRecord> first = wall(3).record();
    recolour(3, NamedColour::blue);
    settle();
    EXPECT_TRUE(first.expired());
}

TEST_F(LayerStampsTest, OfALayerThatIsGoneNothingIsHeld)
{
    settle();
    const std::weak_ptr<const LayerRecord> removed = wall(3).record();
    list.removeObjectAtArrangedObjectIndex(3);
    EXPECT_TRUE(removed.expired());

    LayerPointer undone = list.layer(4);
    const std::weak_ptr<const LayerRecord> held = undone->record();
    list.removeObjectAtArrangedObjectIndex(4);
    undone.reset(); // a history keeps layers longer than the list
    EXPECT_FALSE(held.expired());
    list.setLayers({LWScreen::init(host)}, {0});
    EXPECT_TRUE(held.expired());
}

TEST_F(LayerStampsTest, RowsThatHaveGoneOutOfSightArePassedOver)
{
    settle();
    made.clear();
    for (int row = 40; row <= 480; row += 40) {
        table.verticalScrollBar()->setValue(row * rowHeight);
        painted();
    }
    settle();
    EXPECT_EQ(made.size(), rowsInSight);
    for (const QList<QVariant> &told : made)
        EXPECT_GE(told[0].toModelIndex().row(), 480);
}

TEST_F(LayerStampsTest, EventsComeInBetween)
{
    qsizetype madeBefore = -1;
    QObject::connect(&table.stamps(), &LayerStamps::ready, &table, [&] {
        if (madeBefore < 0) {
            madeBefore = 0;
            QMetaObject::invokeMethod(
                &table, [&] { madeBefore = made.size(); }, Qt::QueuedConnection);
        }
    });
    settle();
    EXPECT_EQ(madeBefore, 1);
}

TEST_F(LayerStampsTest, AWallThatWasLostShowsItsPictureOnceItIsDrawn)
{
    wall(0).setCol(2'000'000'000);
    wall(0).drawInRect();
    settle();
    made.clear();
    table.viewport()->update();
    settle();
    EXPECT_EQ(made.size(), 0);
    wall(0).setCol(2);
    wall(0).drawInRect();
    table.viewport()->update();
    settle();
    EXPECT_EQ(seenIn(0), QColor(255, 0, 0));
}
