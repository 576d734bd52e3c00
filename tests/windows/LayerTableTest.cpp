#include "windows/LayerTable.h"

#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerDelegate.h"
#include "windows/Theme.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <utility>

class LayerTableTest : public WindowFixture
{
protected:
    LayerTableTest()
    {
        for (const char *name : {"Banner", "Side"})
            addWall(name, list().rowCount());
    }

    LayerList &list() { return window.document().arraycontroller(); }

    LayerPointer addWall(const QString &name, int row)
    {
        LWScreen::Arguments arguments;
        arguments.row = 2;
        arguments.col = 3;
        arguments.panelWidth = 400;
        arguments.panelHeight = 300;
        arguments.rectColor = NamedColour::red;
        arguments.rectColor2 = NamedColour::red;
        arguments.bgEnable = true;
        arguments.label = name;
        arguments.hpos = 1920;
        arguments.vpos = -5;
        LayerPointer wall = LWScreen::initWithrow(window.document(), arguments);
        list().insertObjectAtArrangedObjectIndex(wall, row);
        return wall;
    }

    QPoint middleOfRow(int row) { return table().visualRect(list().index(row)).center(); }

    /// The middle of the layer's picture in a row.
    QColor seenInPicture(int row)
    {
        QApplication::processEvents(); // the rows are laid out
        table().viewport()->grab();    // and painted, which asks for their pictures
        EXPECT_TRUE(QTest::qWaitFor([this] { return !table().stamps().isBehind(); }));
        const QImage rows = table().viewport()->grab().toImage();
        const auto *rowsOf = table().findChild<LayerDelegate *>();
        const QPoint middle = rowsOf->picturePlace(table().visualRect(list().index(row))).center();
        return rows.pixelColor((QPointF(middle) * rows.devicePixelRatio()).toPoint());
    }
};

TEST_F(LayerTableTest, AClickSelectsTheLayerEverywhere)
{
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, middleOfRow(2));
    EXPECT_EQ(list().selectionIndex(), 2);
    EXPECT_EQ(list().selectedLayer()->label(), "Side");
}

TEST_F(LayerTableTest, TheArrowKeysSelectToo)
{
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Down);
    EXPECT_EQ(list().selectionIndex(), 1);
    QTest::keyClick(&table(), Qt::Key_Up);
    EXPECT_EQ(list().selectionIndex(), 0);
}

TEST_F(LayerTableTest, AClickBelowTheRowsKeepsTheSelection)
{
    list().setSelectionIndex(1);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, middleOfRow(2) + QPoint(0, 100));
    EXPECT_EQ(list().selectionIndex(), 1);
    EXPECT_EQ(table().currentIndex().row(), 1);
}

TEST_F(LayerTableTest, TheRowFollowsTheSelection)
{
    list().setSelectionIndex(2);
    EXPECT_EQ(table().currentIndex().row(), 2);
    EXPECT_TRUE(table().selectionModel()->isSelected(list().index(2)));
}

TEST_F(LayerTableTest, NeighboursAreSelectedAsOneRange)
{
    for (int row = 0; row < 6; ++row)
        addWall("More", row);
    list().setSelectionIndexes({0, 1, 2, 4, 6, 7}, 4);
    QItemSelection expected;
    for (const auto &[first, last] : {std::pair(0, 2), {4, 4}, {6, 7}})
        expected.append(QItemSelectionRange(list().index(first), list().index(last)));
    EXPECT_EQ(table().selectionModel()->selection(), expected);
    EXPECT_EQ(table().currentIndex().row(), 4);
}

TEST_F(LayerTableTest, RangesThatArePickedAreAllSelected)
{
    for (int row = 0; row < 6; ++row)
        addWall("More", row);
    const auto click = [this](int row, Qt::KeyboardModifiers keys) {
        table().scrollTo(list().index(row));
        QTest::mouseClick(table().viewport(), Qt::LeftButton, keys, middleOfRow(row));
    };
    click(1, {});
    click(3, Qt::ShiftModifier);
    click(6, Qt::ControlModifier);
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{1, 2, 3, 6}));
    table().selectAll();
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(LayerTableTest, RowsThatTheSearchHidesAreNotPicked)
{
    addWall("Sideways", 3);
    list().setSelectionIndexes({0, 2}, 2);
    table().showRowsWith("side");
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, middleOfRow(3));
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{2, 3}));
    table().selectAll();
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{2, 3}));
}

TEST_F(LayerTableTest, OnlyChangedRowsAreSearchedAgain)
{
    table().showRowsWith("an"); // Banner
    list().layer(1)->setLabel("Side");
    list().layer(2)->setLabel("Span");
    emit list().dataChanged(list().index(2), list().index(2));
    EXPECT_FALSE(table().isRowHidden(2));
    EXPECT_FALSE(table().isRowHidden(1)); // nobody has told
    emit list().dataChanged(list().index(1), list().index(1));
    EXPECT_TRUE(table().isRowHidden(1));
    EXPECT_TRUE(table().isRowHidden(0));
}

TEST_F(LayerTableTest, RowsThatComeOrMoveDuringASearchAreHiddenByTheirNames)
{
    table().showRowsWith("an");
    addWall("Span", 0);
    addWall("Rear", 1); // Span, Rear, Layer 0, Banner, Side
    const auto shown = [this] {
        QStringList names;
        for (int row = 0; row < list().rowCount(); ++row) {
            if (!table().isRowHidden(row))
                names += list().layer(row)->label();
        }
        return names;
    };
    EXPECT_EQ(shown(), QStringList({"Span", "Banner"}));
    list().moveObjectAtArrangedObjectIndex(3, 0);
    list().moveObjectAtArrangedObjectIndex(1, 5);
    EXPECT_EQ(shown(), QStringList({"Banner", "Span"}));
    list().setLayers({list().layer(3), list().layer(0)}, {0});
    EXPECT_EQ(shown(), QStringList("Banner"));
    table().showRowsWith({});
    EXPECT_EQ(shown(), QStringList({"Side", "Banner"}));
}

TEST_F(LayerTableTest, RowAndSelectionStayTogetherWhenRowsComeAndGo)
{
    list().setSelectionIndex(1);
    addWall("Above", 0);
    EXPECT_EQ(table().currentIndex().row(), 2);
    EXPECT_EQ(table().currentIndex().data().toString(), "Banner");

    list().removeObjectAtArrangedObjectIndex(2);
    EXPECT_EQ(list().selectedLayer()->label(), "Side");
    EXPECT_EQ(table().currentIndex().data().toString(), "Side");

    list().removeObjectAtArrangedObjectIndex(2);
    EXPECT_EQ(list().selectedLayer()->label(), "Layer 0");
    EXPECT_EQ(table().currentIndex().data().toString(), "Layer 0");
}

TEST_F(LayerTableTest, ARowShowsTheLayersPicture)
{
    EXPECT_EQ(seenInPicture(1), QColor(255, 0, 0));
}

TEST_F(LayerTableTest, AHiddenLayerIsDimmed)
{
    list().layer(1)->setVisible(false);
    const QColor dimmed = seenInPicture(1);
    EXPECT_GT(dimmed.red(), Theme::ground.red());
    EXPECT_LT(dimmed.red(), 128);
}

TEST_F(LayerTableTest, APictureFollowsAnEdit)
{
    list().setSelectionIndex(1);
    ASSERT_EQ(seenInPicture(1), QColor(255, 0, 0));
    list().setValue(QVariant::fromValue(OptionalColour(Colour{0, 0, 1, 1})), "arrangedObjects.rectColor");
    list().setValue(QVariant::fromValue(OptionalColour(Colour{0, 0, 1, 1})), "arrangedObjects.rectColor2");
    EXPECT_EQ(seenInPicture(1), QColor(0, 0, 255));
}

TEST_F(LayerTableTest, NumbersAreGroupedByThousands)
{
    EXPECT_EQ(LayerDelegate::placeAndSize(*list().layer(1)), "x 1,920 y -5 · 1,200 × 600");
    EXPECT_EQ(LayerDelegate::placeAndSize(*list().layer(0)), "x 0 y 0 · 1,024 × 640");
}

TEST_F(LayerTableTest, ALayerWithoutANameIsCalledSo)
{
    list().layer(1)->setLabel({});
    EXPECT_EQ(LayerDelegate::name(*list().layer(1)), "Unnamed");
    EXPECT_EQ(LayerDelegate::name(*list().layer(2)), "Side");
}

TEST_F(LayerTableTest, AWallThatCannotBeDrawnHasARowAllTheSame)
{
    const LayerPointer wall = addWall("Huge", 1);
    wall->setCol(2'000'000'000);
    wall->drawInRect();
    EXPECT_EQ(seenInPicture(1), Theme::ground);
}

TEST_F(LayerTableTest, AMissingPictureIsMarkedUntilItIsFoundAgain)
{
    const auto still = LWStill::initWithimage(window.document(), {});
    still->setPanelWidth(40);
    still->setPanelHeight(30);
    still->setImageURL(Address::fromLocalFile(path("gone.png")));
    list().insertObjectAtArrangedObjectIndex(still, 0);
    const auto seesWarning = [this] {
        QApplication::processEvents();
        const QImage rows = table().viewport()->grab().toImage();
        const QRect row = table().visualRect(list().index(0));
        const QRect place = table().findChild<LayerDelegate *>()->warningPlace(row);
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                if (rows.pixelColor(x, y) == Theme::warning)
                    return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(seesWarning());

    QImage picture(40, 30, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(path("gone.png")));
    still->loadThumbnail();
    EXPECT_FALSE(seesWarning());
}

namespace {
/// Two steps, each in a row of its own, and the name of a third row is being typed.
class TypedNameTest : public LayerTableTest
{
protected:
    void SetUp() override
    {
        steps.clear();
        for (const int row : {0, 2})
            rename(row, QString("name %1").arg(row));
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        type(1);
        ASSERT_NE(name(), nullptr);
        ASSERT_EQ(name()->text(), "Banner");
    }
    void rename(int row, const QString &label)
    {
        list().setSelectionIndex(row);
        window.document().setValue(label, "arrangedObjects.label");
    }
    void type(int row)
    {
        list().setSelectionIndex(row);
        table().setFocus();
        QTest::keyClick(&table(), Qt::Key_F2);
    }
    /// Ends the entry; what was typed into goes.
    void end(Qt::Key key)
    {
        QTest::keyClick(name(), key);
        QApplication::processEvents(); // once the key is through
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(name(), nullptr);
    }
    /// What is typed into; null where nothing is.
    QLineEdit *name() { return table().findChild<QLineEdit *>(); }
    QString label(int row) { return list().layer(row)->label(); }

    QUndoStack &steps = window.document().undoStack();
};
} // namespace

TEST_F(TypedNameTest, IsOneStepAlsoWhereItIsNone)
{
    QTest::keyClick(name(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(name(), Qt::Key_Delete);
    end(Qt::Key_Return);
    EXPECT_EQ(steps.count(), 3);
    EXPECT_EQ(label(1), "");
    EXPECT_FALSE(label(1).isNull());
}

TEST_F(TypedNameTest, OfALayerWithoutOneIsNoStepWhereNobodyTyped)
{
    end(Qt::Key_Escape);
    rename(1, {});
    ASSERT_EQ(steps.count(), 3);
    type(1);
    ASSERT_NE(name(), nullptr);
    end(Qt::Key_Return);
    EXPECT_EQ(steps.count(), 3);
    EXPECT_TRUE(label(1).isNull());
}

/// Another row comes to be the current one: an entry ends there, in the middle of undoing.
TEST_F(TypedNameTest, IsNotWrittenInTheMiddleOfUndoing)
{
    QTest::keyClicks(name(), "typed");
    steps.undo();
    EXPECT_EQ(list().selectionIndex(), 2);
    EXPECT_EQ(steps.count(), 2);
    EXPECT_EQ(steps.index(), 1);
    EXPECT_EQ(label(1), "Banner");
    EXPECT_EQ(label(2), "Side");
}

TEST_F(TypedNameTest, OfALayerWithoutOneStaysNoneWhileStepsAreUndone)
{
    end(Qt::Key_Escape);
    rename(1, {});
    rename(2, "name 3");
    type(1);
    ASSERT_NE(name(), nullptr);
    steps.undo();
    EXPECT_EQ(list().selectionIndex(), 2);
    EXPECT_EQ(steps.count(), 4);
    EXPECT_EQ(steps.index(), 3);
    EXPECT_TRUE(label(1).isNull());
    steps.redo();
    EXPECT_TRUE(label(1).isNull());
    EXPECT_EQ(label(2), "name 3");
}

TEST_F(TypedNameTest, ThatIsLongerThanItsFieldStaysWholeWhereNobodyTyped)
{
    end(Qt::Key_Escape);
    const QString longest(40'000, 'n');
    rename(1, longest);
    const int before = steps.count();
    type(1);
    ASSERT_NE(name(), nullptr);
    ASSERT_LT(name()->text().size(), longest.size());
    end(Qt::Key_Return);
    EXPECT_EQ(steps.count(), before);
    EXPECT_EQ(label(1), longest);
}

TEST_F(TypedNameTest, IsShownToItsLongestTextInRows)
{
    end(Qt::Key_Escape);
    rename(1, QString(1024, 'n') + "MORE");
    EXPECT_EQ(LayerDelegate::name(*list().layer(1)), QString(1024, 'n'));
}
