#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/windows/WindowFixture.h"
#include "windows/Icons.h"
#include "windows/LayerTable.h"
#include "windows/Theme.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <memory>

/// What a row of the layer table shows beside its picture, and what a mouse does to it. Three walls: "Layer 0",
/// "Banner", "Side".
class LayerRowTest : public WindowFixture
{
protected:
    LayerRowTest()
    {
        for (const char *name : {"Banner", "Side"}) {
            const LayerPointer wall = LWScreen::init(window.document()); // 5 x 5 panels of 48 x 48
            wall->setLabel(name);
            wall->setXpoint(240 * static_cast<int>(list().rowCount())); // over no other, which would be told later
            wall->setVisible(true);
            wall->drawInRect();
            list().insertObjectAtArrangedObjectIndex(wall, list().rowCount());
        }
        QApplication::processEvents(); // the rows are laid out, and their icons there
    }

    LayerList &list() { return window.document().arraycontroller(); }
    LayerDelegate &rows() { return *table().findChild<LayerDelegate *>(); }
    QRect place(int row) { return table().visualRect(list().index(row)); }
    QPoint eye(int row) { return rows().eyePlace(place(row)).center(); }
    QPoint name(int row) { return rows().namePlace(place(row)).center(); }
    QPoint picture(int row) { return rows().picturePlace(place(row)).center(); }

    QImage seenEye(int row) { return seen(rows().eyePlace(place(row))); }
    /// The same place with this sign on a row that is not selected.
    QImage eyeOf(const QPixmap &sign)
    {
        QImage place(rows().eyePlace(this->place(1)).size(), QImage::Format_RGB32);
        place.fill(Theme::panel);
        QPainter(&place).drawPixmap(Theme::edge, (place.height() - 16) / 2, sign);
        return place;
    }
    QImage seen(const QRect &where)
    {
        return table().viewport()->grab(where).toImage().convertToFormat(QImage::Format_RGB32);
    }
    /// How many pixels of the table show exactly this colour there.
    int pixels(const QRect &where, const QColor &colour)
    {
        const QImage all = seen(where);
        const auto *first = reinterpret_cast<const QRgb *>(all.constBits());
        return static_cast<int>(std::count(first, first + all.width() * all.height(), colour.rgb()));
    }
    int warningPixels(int row) { return pixels(rows().warningPlace(place(row)), Theme::warning); }
    bool isEdited() { return table().findChild<QLineEdit *>() != nullptr; }

    /// Has an action in the context menu, does something that opens it, and tells where it came up.
    QPoint placeOfMenu(const std::function<void()> &open)
    {
        QAction action("Duplicate");
        table().addAction(&action);
        QPoint where(-1, -1);
        QTimer::singleShot(0, [&] {
            if (QWidget *menu = QApplication::activePopupWidget()) {
                where = menu->pos();
                menu->close();
            }
        });
        open();
        return where;
    }
    void rightClick(int row)
    {
        QTest::mousePress(table().viewport(), Qt::RightButton, {}, name(row));
        QContextMenuEvent asked(QContextMenuEvent::Mouse, name(row), table().viewport()->mapToGlobal(name(row)));
        QApplication::sendEvent(table().viewport(), &asked);
    }
};

TEST_F(LayerRowTest, AClickOnAnEyeIsToldAndSelectsNothing)
{
    list().setSelectionIndexes({0, 1}, 1);
    const QSignalSpy told(&table(), &LayerTable::eyeClicked);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, eye(2));
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].toInt(), 2);
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{0, 1}));
    EXPECT_EQ(table().currentIndex().row(), 1);
}

TEST_F(LayerRowTest, AMouseThatGoesOnFromAnEyeSelectsAndDragsNothing)
{
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, name(0)); // where a drag could begin
    const QSignalSpy drags(&list(), &LayerList::dragDidStart);
    QTest::mousePress(table().viewport(), Qt::LeftButton, {}, eye(0));
    QTest::mouseMove(table().viewport(), name(1));
    QTest::mouseMove(table().viewport(), name(2));
    QTest::mouseRelease(table().viewport(), Qt::LeftButton, {}, name(2));
    EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>{0});
    EXPECT_EQ(drags.size(), 0);
}

TEST_F(LayerRowTest, TwoQuickClicksOnAnEyeAreTwoAndEditNothing)
{
    const QSignalSpy told(&table(), &LayerTable::eyeClicked);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, eye(1));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, eye(1));
    EXPECT_GE(told.size(), 2);
    EXPECT_FALSE(isEdited());
    EXPECT_EQ(list().selectionIndex(), 0);
}

TEST_F(LayerRowTest, OnlyTheEyeHidesALayer)
{
    const QSignalSpy told(&table(), &LayerTable::eyeClicked);
    QTest::mouseClick(table().viewport(), Qt::RightButton, {}, eye(1));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, picture(1));
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_EQ(told.size(), 0);
    EXPECT_TRUE(list().layer(1)->visible());
}

TEST_F(LayerRowTest, TheEyeOfAHiddenLayerIsStruckThroughAndDim)
{
    EXPECT_EQ(seenEye(1), eyeOf(Icons::pixmap("eye", 16, Theme::text, 1)));
    list().layer(1)->setVisible(false);
    EXPECT_EQ(seenEye(1), eyeOf(Icons::pixmap("eye-slash", 16, Theme::dimText, 1)));
}

TEST_F(LayerRowTest, ASignWarnsOfALayerOutsideTheOutput)
{
    EXPECT_EQ(warningPixels(1), 0);
    list().layer(1)->setXpoint(1920);
    EXPECT_GT(warningPixels(1), 20);
    EXPECT_EQ(warningPixels(2), 0);
    list().layer(1)->setXpoint(1919);
    EXPECT_EQ(warningPixels(1), 0);
}

TEST_F(LayerRowTest, TheTipSaysWhatIsWrong)
{
    list().layer(1)->setLabel("<b>");
    list().layer(1)->setXpoint(1920);
    list().layer(1)->setVisible(false);
    QHelpEvent asked(QEvent::ToolTip, name(1), table().viewport()->mapToGlobal(name(1)));
    QApplication::sendEvent(table().viewport(), &asked);
    EXPECT_EQ(QToolTip::text(),
              "<qt>&lt;b&gt;<br>Hidden<br>It lies wholly outside the output of 1,920 × 1,080 px; change its left and "
              "top.</qt>");
    QToolTip::hideText();
}

TEST_F(LayerRowTest, ATipDoesNotRepeatWhatTheRowShows)
{
    const auto tip = [this] {
        QHelpEvent asked(QEvent::ToolTip, name(1), table().viewport()->mapToGlobal(name(1)));
        QApplication::sendEvent(table().viewport(), &asked);
        return QToolTip::text();
    };
    EXPECT_EQ(tip(), "");
    list().layer(1)->setLabel(QString(200, 'W'));
    EXPECT_EQ(tip().remove(QChar(0x200b)), "<qt>" + QString(200, 'W') + "</qt>");
    for (QWidget *shown : QApplication::topLevelWidgets())
        EXPECT_LT(shown->inherits("QTipLabel") ? shown->width() : 0, 700); // it wraps
    QToolTip::hideText();
}

TEST_F(LayerRowTest, WhoCannotSeeARowIsToldTheSame)
{
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&table());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->child(1)->text(QAccessible::Name), "Banner");
    list().layer(1)->setVisible(false);
    list().layer(1)->setXpoint(1920);
    EXPECT_EQ(accessible->child(1)->text(QAccessible::Name), "Banner, hidden");
    EXPECT_EQ(accessible->child(1)->text(QAccessible::Description),
              "x 1,920 y 0 · 240 × 240. Hidden. It lies wholly outside the output of 1,920 × 1,080 px; change its left "
              "and top.");
}

TEST_F(LayerRowTest, ALongNameEndsBeforeTheSignAndTheEdge)
{
    list().layer(1)->setLabel(QString(200, 'W'));
    const QRect name = rows().namePlace(place(1));
    const QRect beyond(name.right() + 1, name.top(), place(1).right() - name.right(), name.height());
    EXPECT_GT(pixels(name, Theme::text), 50);
    EXPECT_EQ(pixels(beyond, Theme::panel), beyond.width() * beyond.height());

    list().layer(1)->setXpoint(1920);
    EXPECT_GT(warningPixels(1), 20);
    EXPECT_EQ(pixels(rows().warningPlace(place(1)), Theme::text), 0);
}

TEST_F(LayerRowTest, ADoubleClickOnANameEditsIt)
{
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, name(2));
    ASSERT_TRUE(isEdited());
    QTest::keyClicks(table().findChild<QLineEdit *>(), "Wing");
    QTest::keyClick(table().findChild<QLineEdit *>(), Qt::Key_Return);
    QApplication::processEvents(); // the field has its key first
    EXPECT_EQ(list().layer(2)->label(), "Wing");
}

TEST_F(LayerRowTest, ADoubleClickElsewhereEditsNothing)
{
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, picture(2));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, QPoint(name(2).x(), place(2).bottom() - 4));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, QPoint(name(2).x(), place(2).bottom() + 40));
    EXPECT_FALSE(isEdited());
}

TEST_F(LayerRowTest, ARightClickOnAnotherRowSelectsItFirst)
{
    const QPoint menu = placeOfMenu([this] { rightClick(2); });
    EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>{2});
    EXPECT_EQ(menu, table().viewport()->mapToGlobal(name(2)));
}

TEST_F(LayerRowTest, ARightClickOnASelectedRowKeepsTheOthers)
{
    list().setSelectionIndexes({0, 2}, 0);
    placeOfMenu([this] { rightClick(2); });
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{0, 2}));
}

TEST_F(LayerRowTest, TheMenuOfTheKeyboardOpensAtTheCurrentRow)
{
    list().setSelectionIndex(1);
    const QPoint below = table().viewport()->mapToGlobal(rows().namePlace(place(1)).bottomLeft());
    EXPECT_EQ(placeOfMenu([this] { QTest::keyClick(&table(), Qt::Key_F10, Qt::ShiftModifier); }), below);
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(3, 3), table().mapToGlobal(QPoint(3, 3)));
    EXPECT_EQ(placeOfMenu([&] { QApplication::sendEvent(&table(), &asked); }), below);
}

TEST_F(LayerRowTest, ALineShowsWhereADropGoes)
{
    LayerList &presets = window.document().presetarraycontroller();
    const std::unique_ptr<QMimeData> preset(presets.mimeData({presets.index(0)}));
    const auto lineWhenOver = [&](const QPoint &pointer) {
        QDragEnterEvent enter(pointer, Qt::CopyAction, preset.get(), Qt::LeftButton, {});
        QApplication::sendEvent(table().viewport(), &enter);
        QDragMoveEvent move(pointer, Qt::CopyAction, preset.get(), Qt::LeftButton, {});
        QApplication::sendEvent(table().viewport(), &move);
        const QRect below(0, place(1).top() + 8, place(1).width(), table().viewport()->height());
        for (int y = below.top(); y < below.bottom(); ++y) {
            if (pixels({0, y, below.width(), 1}, Theme::accent) == below.width())
                return y - place(2).top();
        }
        return -1000;
    };
    EXPECT_EQ(lineWhenOver(place(2).topLeft() + QPoint(100, 2)), -1);
    EXPECT_EQ(lineWhenOver(place(2).center()), -1); // on a row is before it
    EXPECT_EQ(lineWhenOver(place(2).bottomLeft() + QPoint(100, -2)), place(2).height() - 2);
}

TEST_F(LayerRowTest, PresetsHaveNoEyeAndADoubleClickAddsThem)
{
    LayerList &presets = window.document().presetarraycontroller();
    const QRect row = presetTable().visualRect(presets.index(1));
    EXPECT_TRUE(presetTable().findChild<LayerDelegate *>()->eyePlace(row).isEmpty());
    const QSignalSpy edits(&presets, &LayerList::valueDidChange);
    for (int x = 0; x < Theme::edge + 16; ++x)
        QTest::mouseClick(presetTable().viewport(), Qt::LeftButton, {}, QPoint(x, row.center().y()));
    EXPECT_EQ(edits.size(), 0);

    const QRect name = presetTable().findChild<LayerDelegate *>()->namePlace(row);
    QTest::mouseDClick(presetTable().viewport(), Qt::LeftButton, {}, name.center());
    EXPECT_EQ(presetTable().findChild<QLineEdit *>(), nullptr);
    EXPECT_EQ(list().rowCount(), 4);
    EXPECT_EQ(list().layer(0)->label(), "P 2.8");
}

TEST_F(LayerRowTest, AnEyeHidesItsLayerAloneAsOneStep)
{
    list().setSelectionIndex(0);
    window.document().finishEdit("Setting");
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, eye(2));
    EXPECT_FALSE(list().layer(2)->visible());
    EXPECT_TRUE(list().layer(0)->visible());
    EXPECT_EQ(list().selectionIndex(), 0);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, eye(2));
    EXPECT_TRUE(list().layer(2)->visible());
    window.document().undoStack().undo();
    EXPECT_FALSE(list().layer(2)->visible());
}

TEST_F(LayerRowTest, APictureWithoutANameShowsThatOfItsFileInDimType)
{
    const auto still = LWStill::initWithimage(window.document(), QImage());
    still->setImageURL(Address::fromLocalFile("/nowhere/plate.png"));
    list().insertObjectAtArrangedObjectIndex(still, 0);
    EXPECT_EQ(LayerDelegate::name(*still), "plate.png");
    EXPECT_TRUE(still->label().isEmpty());
    EXPECT_EQ(pixels(rows().namePlace(place(0)), Theme::text), 0);
    EXPECT_GT(pixels(rows().namePlace(place(0)), Theme::dimText), 5);
    const QRect picture = rows().picturePlace(place(0)); // framed, though there is none
    EXPECT_EQ(pixels({picture.topLeft(), QSize(picture.width(), 1)}, Theme::line), picture.width());
    still->setLabel("Plate");
    EXPECT_EQ(LayerDelegate::name(*still), "Plate");
}
