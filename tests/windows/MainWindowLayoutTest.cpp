#include "app/Settings.h"
#include "canvas/LWCanvasImageView.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"
#include "windows/ListsPane.h"
#include "windows/inspector/Inspector.h"

#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTabBar>
#include <QTest>

class MainWindowLayoutTest : public WindowFixture
{
protected:
    MainWindowLayoutTest() { Settings::setWindowState({}); } // the fixture's window has been made with that of another
    ~MainWindowLayoutTest() override { Settings::setWindowState({}); }

    QTabBar &tabs() { return *window.findChild<ListsPane *>()->findChild<QTabBar *>(); }
    /// Horizontal: between the regions; vertical: between the lists.
    static QSplitter &splitter(MainWindow &of, Qt::Orientation orientation)
    {
        const QWidget *const around =
            orientation == Qt::Vertical ? static_cast<QWidget *>(of.findChild<ListsPane *>()) : &of;
        for (QSplitter *splitter : around->findChildren<QSplitter *>()) {
            if (splitter->orientation() == orientation)
                return *splitter;
        }
        qFatal("the window has no such splitter");
    }
    void clickTab(int index) { QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(index).center()); }
};

TEST_F(MainWindowLayoutTest, PresetsFoldIntoATabBelow1100)
{
    resizeTo({1100, 700});
    EXPECT_FALSE(tabs().isVisible());
    EXPECT_TRUE(table().isVisible());
    EXPECT_TRUE(presetTable().isVisible());

    resizeTo({1099, 700});
    EXPECT_TRUE(tabs().isVisible());
    EXPECT_TRUE(table().isVisible());
    EXPECT_FALSE(presetTable().isVisible());
    clickTab(1);
    EXPECT_FALSE(table().isVisible());
    EXPECT_TRUE(presetTable().isVisible());
    clickTab(0);
    EXPECT_TRUE(table().isVisible());

    resizeTo({1100, 700});
    EXPECT_TRUE(table().isVisible());
    EXPECT_TRUE(presetTable().isVisible());
}

TEST_F(MainWindowLayoutTest, TheSearchBringsFoldedPresetsForward)
{
    resizeTo({1000, 700});
    pressControl(Qt::Key_L, {});
    EXPECT_TRUE(presetTable().isVisible());
    EXPECT_EQ(window.focusWidget()->accessibleName(), "Search presets");
}

TEST_F(MainWindowLayoutTest, RenamingBringsFoldedLayersForward)
{
    resizeTo({1000, 700});
    clickTab(1);
    canvas().setFocus();
    press(Qt::Key_F2, Qt::NoModifier, {});
    EXPECT_TRUE(table().isVisible());
    EXPECT_NE(table().findChild<QLineEdit *>(), nullptr);
}

TEST_F(MainWindowLayoutTest, PresetsHaveAThirdOfTheListsAtMost)
{
    resizeTo({1280, 800});
    const QList<int> heights = splitter(window, Qt::Vertical).sizes();
    EXPECT_LE(heights[1] * 3, heights[0] + heights[1] + 3);
    EXPECT_GE(heights[1], 150);
    EXPECT_EQ(splitter(window, Qt::Horizontal).sizes(), QList<int>({260, 718, 300})); // and two lines between
}

TEST_F(MainWindowLayoutTest, DividersComeBackWhereTheyWereLeft)
{
    resizeTo({1400, 800});
    splitter(window, Qt::Horizontal).setSizes({330, 700, 368});
    splitter(window, Qt::Vertical).setSizes({200, 450});
    const QList<int> widths = splitter(window, Qt::Horizontal).sizes();
    const QList<int> heights = splitter(window, Qt::Vertical).sizes();
    window.close();

    MainWindow next;
    next.start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&next));
    next.makeLateParts();
    EXPECT_EQ(splitter(next, Qt::Horizontal).sizes(), widths);
    EXPECT_EQ(splitter(next, Qt::Vertical).sizes(), heights);
}

TEST_F(MainWindowLayoutTest, ADamagedLayoutIsNone)
{
    Settings::setWindowState(QByteArray(40, '\xff'));
    MainWindow next;
    next.start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&next));
    next.showNormal();
    next.resize(1280, 800);
    next.makeLateParts();
    EXPECT_EQ(splitter(next, Qt::Horizontal).sizes(), QList<int>({260, 718, 300}));
}

TEST_F(MainWindowLayoutTest, BothSidesFoldToEdgesBelow900)
{
    resizeTo({900, 700});
    EXPECT_TRUE(table().isVisible());
    EXPECT_TRUE(inspector().isVisible());
    const QList<int> widths = splitter(window, Qt::Horizontal).sizes();

    table().setFocus();
    resizeTo({899, 700});
    EXPECT_FALSE(table().isVisible());
    EXPECT_FALSE(inspector().isVisible());
    EXPECT_EQ(window.focusWidget(), &canvas());
    EXPECT_EQ(splitter(window, Qt::Horizontal).sizes(), QList<int>({28, 841, 28}));

    resizeTo({900, 700});
    EXPECT_TRUE(table().isVisible());
    EXPECT_TRUE(inspector().isVisible());
    EXPECT_EQ(splitter(window, Qt::Horizontal).sizes(), widths);
}

TEST_F(MainWindowLayoutTest, AKeyOpensAFoldedSideOverTheCanvas)
{
    resizeTo({640, 400});
    const QRect canvasBefore = canvas().rect();
    canvas().setFocus();

    press(Qt::Key_F9, Qt::NoModifier, {});
    EXPECT_TRUE(table().isVisible());
    EXPECT_TRUE(window.findChild<ListsPane *>()->isAncestorOf(window.focusWidget()));
    press(Qt::Key_F10, Qt::NoModifier, {});
    EXPECT_FALSE(table().isVisible());
    EXPECT_TRUE(inspector().isVisible());
    EXPECT_EQ(inspector().geometry().right(), window.width() - 28 - 1);
    EXPECT_EQ(canvas().rect(), canvasBefore);

    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(inspector().isVisible());
    EXPECT_TRUE(canvas().hasFocus());
}

TEST_F(MainWindowLayoutTest, AClickOnItsEdgeOpensAndClosesAFoldedSide)
{
    resizeTo({640, 400});
    const auto clickEdge = [this] { QTest::mouseClick(window.childAt(14, 200), Qt::LeftButton); };
    clickEdge();
    EXPECT_TRUE(table().isVisible());
    clickEdge();
    EXPECT_FALSE(table().isVisible());

    clickEdge();
    QTest::mouseClick(&canvas(), Qt::LeftButton, {}, QPoint(canvas().width() - 2, 2));
    EXPECT_FALSE(table().isVisible());
}

TEST_F(MainWindowLayoutTest, KeysLeadIntoTheSidesOfAWideWindowAndBack)
{
    resizeTo({1280, 800});
    canvas().setFocus();
    press(Qt::Key_F10, Qt::NoModifier, {});
    EXPECT_TRUE(inspector().isAncestorOf(window.focusWidget()));
    press(Qt::Key_F10, Qt::NoModifier, {});
    EXPECT_TRUE(canvas().hasFocus());
}

TEST_F(MainWindowLayoutTest, SearchAndRenamingOpenTheFoldedLists)
{
    resizeTo({640, 400});
    pressControl(Qt::Key_L, {});
    EXPECT_TRUE(presetTable().isVisible());
    canvas().setFocus();
    EXPECT_FALSE(presetTable().isVisible());
    press(Qt::Key_F2, Qt::NoModifier, {});
    EXPECT_NE(table().findChild<QLineEdit *>(), nullptr);
}

TEST_F(MainWindowLayoutTest, WidthsSurviveAStartAndAnEndInANarrowWindow)
{
    resizeTo({1400, 800});
    splitter(window, Qt::Horizontal).setSizes({330, 700, 368});
    const QList<int> widths = splitter(window, Qt::Horizontal).sizes();
    resizeTo({700, 500});
    window.close();

    MainWindow next;
    next.start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&next));
    next.makeLateParts();
    EXPECT_EQ(next.width(), 700);
    EXPECT_EQ(splitter(next, Qt::Horizontal).sizes()[0], 28);
    next.resize(1400, 800);
    EXPECT_EQ(splitter(next, Qt::Horizontal).sizes(), widths);
}

TEST_F(MainWindowLayoutTest, AFoldedListHasItsTitleOnce)
{
    const auto titles = [this] {
        int shown = 0;
        for (const QLabel *label : window.findChildren<QLabel *>(ListsPane::titleName))
            shown += label->isVisible() ? 1 : 0;
        return shown;
    };
    resizeTo({1280, 700});
    EXPECT_EQ(titles(), 2);
    resizeTo({1000, 700});
    EXPECT_EQ(titles(), 0);
}
