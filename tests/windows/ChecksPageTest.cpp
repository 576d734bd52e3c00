#include "windows/checks/ChecksPage.h"

#include "canvas/LWCanvasImageView.h"
#include "tests/app/RedrawGate.h"
#include "tests/windows/PortsFixture.h"
#include "windows/Theme.h"
#include "windows/checks/ChecksModel.h"
#include "windows/checks/RestedChecks.h"
#include "windows/tables/RowTable.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {
class ChecksPageTest : public PortsFixture
{
protected:
    ChecksPage &page() { return *window.findChild<ChecksPage *>(); }
    RowTable &checks() { return *page().findChild<RowTable *>(); }
    QString cell(int row, int column) { return checks().model()->index(row, column).data().toString(); }
    QToolButton &tool(const QString &text)
    {
        for (QToolButton *button : page().tools()->findChildren<QToolButton *>()) {
            if (button->text() == text)
                return *button;
        }
        qFatal("there is no such button");
    }
    QToolButton &meant() { return tool("Meant"); }
    /// What a person waits for.
    void rest()
    {
        auto &rested = *window.findChild<RestedChecks *>();
        QSignalSpy spy(&rested, &RestedChecks::rested);
        EXPECT_TRUE(spy.wait());
    }
    void open()
    {
        choose({"View", "Checks"});
        QApplication::processEvents();
    }
    void clickRow(int row)
    {
        const QRect place = checks().visualRect(checks().model()->index(row, ChecksModel::What));
        QTest::mouseClick(checks().viewport(), Qt::LeftButton, {}, place.center());
    }
    QStringList sentencesOf(qsizetype row) { return window.findChild<RestedChecks *>()->sentences(*layer(row)); }
    /// SIDE stands over MAIN, and its port is over.
    void makeWrong()
    {
        layer(1)->setXpoint(2000);
        layer(1)->setPixelLimit(1000);
        document.finishEdit("place");
    }
};
} // namespace

TEST_F(ChecksPageTest, AShowWithoutFaultsSaysSo)
{
    open();
    EXPECT_TRUE(checks().hasFocus());
    EXPECT_EQ(checks().model()->rowCount(), 0);
    EXPECT_EQ(state().text(), "nothing is wrong");
    EXPECT_EQ(stateColour(), Theme::dimText);
    EXPECT_EQ(page().title(), "Checks");
}

TEST_F(ChecksPageTest, TheWorstComesFirstWithItsPlaceAndWhatToDo)
{
    open();
    makeWrong();
    EXPECT_EQ(checks().model()->rowCount(), 0); // until nobody edits any more
    rest();
    ASSERT_EQ(checks().model()->rowCount(), 2);
    EXPECT_EQ(cell(0, ChecksModel::Level), "Error");
    EXPECT_EQ(cell(0, ChecksModel::Where), "SIDE");
    EXPECT_TRUE(cell(0, ChecksModel::What).startsWith("One row of panels has 32,768 px")) << qPrintable(cell(0, 2));
    EXPECT_EQ(cell(1, ChecksModel::Level), "Warning");
    EXPECT_EQ(cell(1, ChecksModel::Where), "MAIN");
    EXPECT_EQ(page().title(), "Checks (2)");
    EXPECT_EQ(state().text(), "1 error, 1 warning");
    EXPECT_EQ(stateColour(), Theme::danger);
    undo();
    rest();
    EXPECT_EQ(checks().model()->rowCount(), 0);
    EXPECT_EQ(page().title(), "Checks");
}

TEST_F(ChecksPageTest, TheRowOfALayerSaysTheSame)
{
    makeWrong();
    EXPECT_EQ(sentencesOf(1).size(), 1); // at once
    EXPECT_EQ(sentencesOf(0).size(), 0);
    rest();
    open();
    ASSERT_EQ(checks().model()->rowCount(), 2);
    EXPECT_EQ(sentencesOf(1), QStringList{cell(0, ChecksModel::What)});
    EXPECT_EQ(sentencesOf(0), QStringList{cell(1, ChecksModel::What)});
}

TEST_F(ChecksPageTest, AClickSelectsTheLayerAndBringsThePlaceIntoSight)
{
    open();
    makeWrong();
    rest();
    waitForRedraws(document);
    QApplication::processEvents();
    canvas().setZoom(400);
    clickRow(1); // of MAIN, where SIDE lies
    EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>{0});
    EXPECT_EQ(canvas().pixelAt({0, 0}).value().x(), 2000);
    list().setSelectionIndex(0);
    QTest::keyClick(&checks(), Qt::Key_Up);
    QTest::keyClick(&checks(), Qt::Key_Return);
    EXPECT_EQ(list().selectionIndex(), 1);
}

TEST_F(ChecksPageTest, WhatIsMeantCountsAsNothingAndIsStillShown)
{
    open();
    makeWrong();
    rest();
    EXPECT_FALSE(meant().isEnabled());
    window.activateWindow();
    checks().clearFocus();
    checks().setFocus(); // the first row is under the keyboard then, and not chosen
    EXPECT_TRUE(checks().currentIndex().isValid());
    EXPECT_FALSE(meant().isEnabled());
    clickRow(0);
    EXPECT_TRUE(meant().isEnabled());
    EXPECT_FALSE(meant().isChecked());
    EXPECT_FALSE(tool("Feed them").isVisible());
    QTest::mouseClick(&meant(), Qt::LeftButton);
    ASSERT_EQ(checks().model()->rowCount(), 2);
    EXPECT_EQ(cell(1, ChecksModel::Level), "Meant");
    EXPECT_EQ(cell(1, ChecksModel::Where), "SIDE");
    EXPECT_EQ(checks().currentIndex().row(), 1); // it stays the chosen one
    EXPECT_TRUE(meant().isChecked());
    EXPECT_EQ(state().text(), "1 warning, 1 meant");
    EXPECT_EQ(stateColour(), Theme::warning);
    EXPECT_TRUE(sentencesOf(1).isEmpty());
    EXPECT_EQ(*layer(1)->record()->meant, QStringList{"port-over-limit"});

    QTest::mouseClick(&meant(), Qt::LeftButton);
    EXPECT_EQ(state().text(), "1 error, 1 warning");
    EXPECT_FALSE(layer(1)->record()->meant.has_value());
    undo();
    EXPECT_TRUE(layer(1)->record()->meant.has_value());
    undo();
    EXPECT_FALSE(layer(1)->record()->meant.has_value());
}

TEST_F(ChecksPageTest, WhatIsOfNoLayerCannotBeMeant)
{
    addProcessor();
    open();
    document.setValue(100, "arrangedObjects.row");
    rest();
    int ofShow = -1;
    for (int row = 0; row < checks().model()->rowCount(); ++row) {
        if (cell(row, ChecksModel::Where) == "processor A")
            ofShow = row;
    }
    ASSERT_GE(ofShow, 0);
    checks().selectRow(ofShow);
    EXPECT_FALSE(meant().isEnabled());
    EXPECT_EQ(list().selectionIndex(), 0);
}

TEST_F(ChecksPageTest, FoldedItsHeadSaysTheWorstOfAllTables)
{
    addProcessor();
    EXPECT_EQ(state().text(), "6 ports, 5 ports nearly full");
    layer(1)->setXpoint(2000);
    document.finishEdit("place");
    rest();
    EXPECT_EQ(state().text(), "6 ports, 5 ports nearly full"); // as bad as a wall over another
    layer(1)->setValue("processor", "");
    layer(1)->setPixelLimit(1000);
    document.finishEdit("limit");
    rest();
    EXPECT_EQ(state().text(), "1 error, 1 warning");
    EXPECT_EQ(stateColour(), Theme::danger);
    choose({"View", "Ports"});
    EXPECT_EQ(state().text(), "5 ports, 5 ports nearly full"); // of the open one
}

TEST_F(ChecksPageTest, ALayerThatHasGoneIsAskedForInVain)
{
    open();
    makeWrong();
    rest();
    list().setLayers({layer(0)}, {0});
    document.finishEdit("delete");
    clickRow(0);
    EXPECT_EQ(list().selectionIndex(), 0);
    rest();
    EXPECT_EQ(checks().model()->rowCount(), 0);
}

TEST_F(ChecksPageTest, TheTabThatIsOpenFoldsAndAnotherComesForward)
{
    open();
    click(pane(), "Ports");
    QApplication::processEvents();
    EXPECT_FALSE(checks().isVisible());
    EXPECT_FALSE(meant().isVisible());
    EXPECT_TRUE(pane().isOpenAt(TablesPane::Ports));
    click(pane(), "Checks");
    QApplication::processEvents();
    EXPECT_TRUE(checks().isVisible());
    EXPECT_TRUE(meant().isVisible());
    click(pane(), "Checks");
    QApplication::processEvents();
    EXPECT_FALSE(pane().isVisible());
    EXPECT_TRUE(meant().isHidden());
}

TEST_F(ChecksPageTest, PanelsThatAreNotFedAreFedByAClick)
{
    addProcessor();
    ASSERT_TRUE(document.wiring().takeAsLaidByHand({1}));
    layer(1)->setRow(4);
    document.finishEdit("rows");
    open();
    int notFed = 0;
    while (cell(notFed, ChecksModel::What) != "2 panels are on no cable; lay one through them.")
        ASSERT_LT(++notFed, checks().model()->rowCount());
    clickRow(notFed);
    EXPECT_TRUE(tool("Feed them").isVisible());
    QTest::mouseClick(&tool("Feed them"), Qt::LeftButton);
    EXPECT_EQ(layer(1)->record()->runs.list().front().cells.size(), 8);
    for (int row = 0; row < checks().model()->rowCount(); ++row)
        EXPECT_FALSE(cell(row, ChecksModel::What).contains("on no cable"));
    undo();
    EXPECT_EQ(layer(1)->record()->runs.list().front().cells.size(), 6);
}

TEST_F(ChecksPageTest, RowsHaveNoHeads)
{
    open();
    for (int wall = 2; wall < 8; ++wall) { // more rows than columns
        LayerPointer over = this->wall(QString("WALL %1").arg(wall), 2, 3, 100);
        std::vector<LayerPointer> layers = document.allScreensArray();
        layers.push_back(over);
        list().setLayers(layers, {0});
    }
    document.finishEdit("walls");
    rest();
    ASSERT_GT(checks().model()->rowCount(), 4);
    EXPECT_FALSE(checks().model()->headerData(4, Qt::Vertical).isValid());
    EXPECT_EQ(checks().model()->headerData(2, Qt::Horizontal), "What");
}

TEST_F(ChecksPageTest, WhatIsFoundAgainLeavesTheRowsAsTheyAre)
{
    open();
    makeWrong();
    rest();
    clickRow(1);
    const QSignalSpy resets(checks().model(), &QAbstractItemModel::modelReset);
    document.setValue(17, "arrangedObjects.powerOnCell"); // none of the checks minds
    rest();
    ASSERT_EQ(checks().model()->rowCount(), 2);
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(checks().currentIndex().row(), 1);
    layer(1)->setLabel("LEFT"); // a wall by another name is another row
    document.finishEdit("name");
    rest();
    EXPECT_EQ(resets.size(), 1);
    EXPECT_EQ(cell(0, ChecksModel::Where), "LEFT");
    EXPECT_EQ(checks().model()->headerData(ChecksModel::Where, Qt::Horizontal, Qt::ToolTipRole),
              "The layer, its panel and the port");
}
