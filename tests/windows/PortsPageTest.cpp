#include "windows/ports/PortsPage.h"

#include "canvas/LWCanvasImageView.h"
#include "tests/app/RedrawGate.h"
#include "tests/windows/PortsFixture.h"
#include "windows/PowerBar.h"
#include "windows/Theme.h"
#include "windows/ports/ProcessorDialog.h"
#include "windows/tables/RowTable.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace {
class PortsPageTest : public PortsFixture
{
protected:
    QTableView &ports() { return *pane().findChild<PortsPage *>()->findChild<RowTable *>(); }
    QString cell(int row, int column)
    {
        EXPECT_FALSE(ports().isColumnHidden(column)) << column;
        return ports().model()->index(row, column).data().toString();
    }
    void choosePorts()
    {
        choose({"View", "Ports"});
        QApplication::processEvents();
    }
    void clickHead()
    {
        click(pane(), "Ports");
        QApplication::processEvents();
    }
    /// Clicks through the menu of the button "Processors".
    void chooseProcessor(const QStringList &titles)
    {
        for (QPushButton *button : pane().findChildren<QPushButton *>()) {
            if (!button->menu())
                continue;
            QTimer::singleShot(0, button, [button, titles] {
                QMenu *menu = button->menu();
                for (const QString &title : titles)
                    menu = enter(*menu, title);
                button->menu()->close();
            });
            QTest::mouseClick(button, Qt::LeftButton);
        }
        QApplication::processEvents();
    }
    /// Returns the menu below the entry, else the same one.
    static QMenu *enter(QMenu &menu, const QString &title)
    {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
        for (QAction *action : menu.actions()) {
            if (action->text() != title)
                continue;
            const QPoint place = menu.actionGeometry(action).center();
            QTest::mouseMove(&menu, place); // opens what is below it
            if (!action->menu() || !action->menu()->isVisible())
                QTest::mouseClick(&menu, Qt::LeftButton, {}, place);
            return action->menu() ? action->menu() : &menu;
        }
        ADD_FAILURE() << qPrintable(title);
        return &menu;
    }
    ProcessorDialog &settings() { return *window.findChild<ProcessorDialog *>(); }
    qint64 firstPort(qsizetype row) { return layer(row)->value("firstPort").toLongLong(); }
    void clickRow(int row)
    {
        const QRect place = ports().visualRect(ports().model()->index(row, PortsModel::Port));
        QTest::mouseClick(ports().viewport(), Qt::LeftButton, {}, place.center());
    }
};
} // namespace

TEST_F(PortsPageTest, WithoutProcessorsItTakesNoRoomUntilItIsAskedFor)
{
    EXPECT_FALSE(pane().isVisible());
    const int before = canvas().height();
    choosePorts();
    EXPECT_TRUE(ports().isVisible());
    EXPECT_TRUE(ports().hasFocus());
    EXPECT_LT(canvas().height(), before);
    choosePorts();
    EXPECT_FALSE(pane().isVisible());
    EXPECT_EQ(canvas().height(), before);
}

TEST_F(PortsPageTest, WithoutProcessorsItShowsTheRunsOfTheLimit)
{
    choosePorts();
    ASSERT_EQ(ports().model()->rowCount(), 6);
    EXPECT_EQ(cell(4, PortsModel::Port), "5");
    EXPECT_EQ(cell(4, PortsModel::Walls), "MAIN");
    EXPECT_EQ(cell(4, PortsModel::Panels), "40");
    EXPECT_EQ(cell(4, PortsModel::Used), "100 %");
    EXPECT_EQ(cell(5, PortsModel::Free), "557,056");
    for (const int column : {PortsModel::Processor, PortsModel::Backup, PortsModel::Loaded, PortsModel::HighestRate})
        EXPECT_TRUE(ports().isColumnHidden(column)) << column;
}

TEST_F(PortsPageTest, WithAProcessorItsHeadSaysHowManyPortsAndTheWorst)
{
    addProcessor();
    EXPECT_TRUE(pane().isVisible());
    EXPECT_FALSE(ports().isVisible());
    EXPECT_EQ(pane().height(), pane().sizeHint().height()); // all else is the canvas'
    EXPECT_LT(pane().height(), 50);
    EXPECT_EQ(state().text(), "6 ports, 5 ports nearly full");
    EXPECT_EQ(stateColour(), Theme::warning);
    undo();
    EXPECT_FALSE(pane().isVisible());
}

TEST_F(PortsPageTest, EachRowIsAPortOfTheProcessor)
{
    addProcessor();
    clickHead();
    ASSERT_EQ(ports().model()->rowCount(), 6);
    EXPECT_EQ(cell(0, PortsModel::Processor), "A");
    EXPECT_EQ(cell(0, PortsModel::Port), "A1");
    EXPECT_EQ(cell(0, PortsModel::Pixels), "655,360");
    EXPECT_EQ(cell(0, PortsModel::Free), "4,362");
    EXPECT_EQ(cell(0, PortsModel::Used), "99 %");
    EXPECT_EQ(cell(5, PortsModel::Port), "A6");
    EXPECT_EQ(cell(5, PortsModel::Walls), "SIDE");
    layer(1)->setVisible(false);
    document.finishEdit("visibility");
    EXPECT_EQ(cell(5, PortsModel::Walls), "SIDE (hidden)");
    clickHead();
    EXPECT_FALSE(ports().isVisible());
}

TEST_F(PortsPageTest, EditsAreShownAtOnceAndTheCurrentRowStays)
{
    addProcessor();
    clickHead();
    ports().selectRow(5);
    document.setValue(200, "arrangedObjects.xpoint");
    EXPECT_EQ(ports().currentIndex().row(), 5);
    list().setSelectionIndex(1);
    document.setValue(2, "arrangedObjects.row");
    EXPECT_EQ(cell(5, PortsModel::Panels), "4");
    EXPECT_EQ(ports().currentIndex().row(), 5);
}

TEST_F(PortsPageTest, AClickSelectsTheWallsAndBringsThePortIntoSight)
{
    addProcessor();
    clickHead();
    waitForRedraws(document); // one that comes later may find another room for the output
    QApplication::processEvents();
    canvas().setZoom(400);
    clickRow(5);
    EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>{1});
    const QPoint corner = canvas().pixelAt({0, 0}).value();
    EXPECT_LE(corner.x(), 3000);
    EXPECT_GT(corner.x(), 2500);
    clickRow(0);
    EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>{0});
    EXPECT_LE(canvas().pixelAt({0, 0}).value().x(), 0);
}

TEST_F(PortsPageTest, TheKeyboardReachesARowAndAsksForIt)
{
    addProcessor();
    choosePorts();
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(&ports(), Qt::Key_Down);
    EXPECT_EQ(ports().currentIndex().row(), 5);
    EXPECT_EQ(list().selectionIndex(), 0);
    QTest::keyClick(&ports(), Qt::Key_Return);
    EXPECT_EQ(list().selectionIndex(), 1);
    EXPECT_EQ(ports().accessibleName(), "Ports");
}

TEST_F(PortsPageTest, APortWithoutAFigureHasADashAndTheReasonAsItsTip)
{
    addProcessor("HELIOS 8K"); // has no 8 bit
    clickHead();
    const QModelIndex free = ports().model()->index(0, PortsModel::Free);
    EXPECT_EQ(free.data(), "—");
    EXPECT_TRUE(free.data(Qt::ToolTipRole).toString().contains("type the pixels per port"))
        << qPrintable(free.data(Qt::ToolTipRole).toString());
    EXPECT_EQ(cell(0, PortsModel::Used), "—");
}

TEST_F(PortsPageTest, AClickAddsTheProcessorsThatAreMissing)
{
    addProcessor();
    document.setValue(100, "arrangedObjects.row");
    EXPECT_EQ(state().text(), "51 ports, MAIN needs 3 more MX40 Pro (37 ports over)");
    EXPECT_EQ(stateColour(), Theme::danger);
    click(pane(), "Add 3");
    EXPECT_EQ(document.wiring().processors().size(), 4);
    EXPECT_FALSE(state().text().contains("needs"));
    EXPECT_TRUE(state().text().contains("canvas")) << qPrintable(state().text()); // now the worst
    undo();
    EXPECT_EQ(document.wiring().processors().size(), 1);
}

TEST_F(PortsPageTest, ItsMenuLeavesNothingBehindHoweverOftenItComesUp)
{
    choosePorts();
    QMenu *menu = nullptr;
    for (const QPushButton *button : pane().findChildren<QPushButton *>())
        menu = button->menu() ? button->menu() : menu;
    ASSERT_NE(menu, nullptr);
    emit menu->aboutToShow();
    const qsizetype objects = menu->findChildren<QObject *>().size();
    for (int i = 0; i < 9; ++i)
        emit menu->aboutToShow();
    EXPECT_EQ(menu->findChildren<QObject *>().size(), objects);
}

TEST_F(PortsPageTest, ItsMenuAddsAProcessorAndTakesItAwayAgain)
{
    choosePorts();
    chooseProcessor({"NovaStar COEX", "MX40 Pro"});
    ASSERT_EQ(document.wiring().processors().size(), 1);
    EXPECT_EQ(document.wiring().processors()[0].name, "A");
    EXPECT_EQ(document.wiring().processors()[0].model, "MX40 Pro");
    EXPECT_EQ(cell(5, PortsModel::Port), "A6");
    chooseProcessor({"Megapixel HELIOS", "HELIOS 8K"});
    ASSERT_EQ(document.wiring().processors().size(), 2);
    EXPECT_EQ(document.wiring().processors()[1].bits, 10); // it has no 8
    chooseProcessor({"Remove A, MX40 Pro"});
    ASSERT_EQ(document.wiring().processors().size(), 1);
    EXPECT_EQ(document.wiring().processors()[0].name, "B");
    EXPECT_EQ(state().text(), "MAIN and SIDE wait: the show has no processor \"A\"");
    undo();
    EXPECT_EQ(document.wiring().processors().size(), 2);
}

TEST_F(PortsPageTest, ItIsOpenAtTheNextStartWhereItWasLeftOpen)
{
    choosePorts();
    const int height = pane().height();
    EXPECT_GE(height, 150);
    window.close();
    MainWindow next;
    next.start();
    next.makeLateParts();
    EXPECT_EQ(next.findChild<TablesPane *>()->height(), height);
    EXPECT_TRUE(next.findChild<TablesPane *>()->isOpen());
    EXPECT_TRUE(next.findChild<TablesPane *>()->isVisible());
}

TEST_F(PortsPageTest, AShowThatIsThereBeforeItHasItFolded)
{
    addProcessor();
    pressControl(Qt::Key_S, {entering(path("show.Orv"))});
    MainWindow next;
    next.applicationOpenFile(path("show.Orv"));
    next.start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&next));
    next.makeLateParts();
    QApplication::processEvents();
    EXPECT_TRUE(next.findChild<TablesPane *>()->isVisible());
    EXPECT_LT(next.findChild<TablesPane *>()->height(), 50);
}

TEST_F(PortsPageTest, ItIsWholeInTheSmallestWindow)
{
    addProcessor();
    choosePorts();
    resizeTo({640, 400});
    EXPECT_GE(ports().viewport()->height(), 20);
    EXPECT_TRUE(window.rect().contains(QRect(pane().mapTo(&window, QPoint()), pane().size())));
}

TEST_F(PortsPageTest, TheSettingsOfAProcessorAreAskedForAndChangedAsOneStep)
{
    addProcessor();
    addProcessor("VX1000");
    choosePorts();
    chooseProcessor({"Settings of A, MX40 Pro..."});
    EXPECT_EQ(settings().windowTitle(), "Processor A");
    type(*settings().findChild<NumberField *>(), "10");
    const int steps = document.undoStack().index();
    click(settings(), "OK");
    QApplication::processEvents();
    EXPECT_EQ(document.wiring().processors()[0].headroom, 10);
    EXPECT_EQ(document.wiring().processors()[1].headroom, 0);
    EXPECT_EQ(document.undoStack().index(), steps + 1);
    EXPECT_EQ(cell(0, PortsModel::Used), "111 %"); // 655,360 of 593,749 px
    undo();
    EXPECT_EQ(document.wiring().processors()[0].headroom, 0);
}

TEST_F(PortsPageTest, SettingsThatAreCancelledOrNamedAsAnotherChangeNothing)
{
    addProcessor();
    addProcessor("VX1000");
    choosePorts();
    const int steps = document.undoStack().index();
    chooseProcessor({"Settings of B, VX1000..."});
    EXPECT_EQ(settings().windowTitle(), "Processor B");
    auto &name = *settings().findChild<QLineEdit *>();
    name.selectAll();
    QTest::keyClicks(&name, "A"); // the other one is
    EXPECT_FALSE(settings().findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled());
    click(settings(), "Cancel");
    EXPECT_EQ(document.undoStack().index(), steps);
    EXPECT_EQ(document.wiring().processors()[1].name, "B");
}

TEST_F(PortsPageTest, ThePortsOfAllWallsAreKept)
{
    addProcessor();
    choosePorts();
    chooseProcessor({"Keep the ports of all walls"});
    EXPECT_EQ(firstPort(0), 1);
    EXPECT_EQ(firstPort(1), 6);
    undo();
    EXPECT_EQ(firstPort(0), 0);
    EXPECT_EQ(firstPort(1), 0);
    layer(1)->setValue("firstPort", 3);
    document.finishEdit("first port");
    chooseProcessor({"Keep the ports of all walls"});
    EXPECT_EQ(window.findChild<QLabel *>(PowerBar::messageName)->accessibleName(),
              "The ports of MAIN do not follow each other; take its cables as yours to keep them.");
}

TEST_F(PortsPageTest, TheBarOfAPortThatIsOverIsRed)
{
    layer(1)->setPixelLimit(30'000); // less than a row of panels has
    document.finishEdit("limit");
    choosePorts();
    const auto barAt = [this](int row) {
        const QModelIndex used = ports().model()->index(row, PortsModel::Used);
        ports().scrollTo(used);
        const QRect place = ports().visualRect(used);
        return ports().viewport()->grab().toImage().pixelColor(place.left() + 6, place.bottom() - 1);
    };
    ASSERT_EQ(cell(5, PortsModel::Used), "328 %");
    EXPECT_EQ(barAt(5), Theme::danger);
    EXPECT_EQ(barAt(0), Theme::warning); // full
    layer(1)->setPixelLimit(100'000);
    document.finishEdit("limit");
    EXPECT_EQ(cell(5, PortsModel::Used), "98 %");
    EXPECT_NE(barAt(5), Theme::danger);
}
