#include "app/ProjectFile.h"
#include "app/Settings.h"
#include "app/windows/CanvasPane.h"
#include "app/windows/LayerTable.h"
#include "canvas/LWCanvasImageView.h"
#include "tests/windows/WindowFixture.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <algorithm>

namespace {
QMenu &submenu(const MainWindow &window, const QString &title)
{
    for (QMenu *menu : window.menuBar()->findChildren<QMenu *>()) {
        if (menu->title().remove('&') == title)
            return *menu;
    }
    ADD_FAILURE() << "no menu is called " << qPrintable(title);
    static QMenu none;
    return none;
}

QStringList titles(const QMenu &menu)
{
    QStringList all;
    for (const QAction *action : menu.actions())
        all.append(action->text());
    return all;
}
} // namespace

class MainWindowMenusTest : public WindowFixture
{
protected:
    LayerList &list() { return window.document().arraycontroller(); }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier, {}); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, {}); }
    /// What the first entry of the Edit menu says.
    QString undoEntry() { return submenu(window, "Edit").actions().first()->text().remove('&'); }

    int width() { return list().selectedLayer()->panelWidth(); }
    void setWidth(int pixels) { list().setValue(pixels, "arrangedObjects.panelWidth"); }
};

TEST_F(MainWindowMenusTest, UndoAndRedoSayWhatAndTheTitleShowsUnsavedChanges)
{
    EXPECT_EQ(undoEntry(), "Undo");
    setWidth(64);
    EXPECT_EQ(undoEntry(), "Undo Panel Width");
    EXPECT_EQ(title(), "Untitled* — Wallwright");
    undo();
    EXPECT_EQ(width(), 128);
    EXPECT_EQ(title(), "Untitled — Wallwright");
    redo();
    EXPECT_EQ(width(), 64);
}

TEST_F(MainWindowMenusTest, AKnownFileIsSavedInPlace)
{
    press(Qt::Key_S, Qt::ControlModifier, {entering(path("wall"))});
    setWidth(64);
    EXPECT_EQ(title(), "wall.Orv* — Wallwright");
    press(Qt::Key_S, Qt::ControlModifier, {}); // asks nothing
    EXPECT_EQ(title(), "wall.Orv — Wallwright");
    EXPECT_EQ(ProjectFile::read(path("wall.Orv"), window.document())->layers[0]->panelWidth(), 64);

    QFile::remove(path("wall.Orv")); // or the panel has it selected, whatever is put in
    press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier, {entering(path("other"))});
    EXPECT_EQ(title(), "other.Orv — Wallwright");
    undo(); // back to before both saves, and still the other file's
    EXPECT_EQ(title(), "other.Orv* — Wallwright");
}

TEST_F(MainWindowMenusTest, ANewDocumentIsTheFirstWallAndCanBeUndone)
{
    press(Qt::Key_S, Qt::ControlModifier, {entering(path("wall"))});
    setWidth(64);
    press(Qt::Key_N, Qt::ControlModifier, {});
    EXPECT_EQ(title(), "Untitled — Wallwright");
    EXPECT_EQ(width(), 128);
    undo();
    EXPECT_EQ(title(), "wall.Orv* — Wallwright");
    EXPECT_EQ(width(), 64);
}

TEST_F(MainWindowMenusTest, LayersAreAddedDuplicatedAndDeleted)
{
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier, {});
    EXPECT_EQ(list().rowCount(), 2);
    EXPECT_EQ(table().currentIndex().data().toString(), "Layer 1");
    press(Qt::Key_D, Qt::ControlModifier, {});
    EXPECT_EQ(table().currentIndex().data().toString(), "Layer 1 Copy");
    press(Qt::Key_A, Qt::ControlModifier, {});
    EXPECT_EQ(list().selectionIndexes().size(), 3u);
    press(Qt::Key_Delete, Qt::NoModifier, {});
    EXPECT_EQ(list().rowCount(), 0);
    undo();
    EXPECT_EQ(list().rowCount(), 3);
    EXPECT_EQ(list().selectionIndexes().size(), 3u);
}

TEST_F(MainWindowMenusTest, TheLastLayerStays)
{
    press(Qt::Key_Delete, Qt::NoModifier, {readingAndPressing("OK")});
    EXPECT_EQ(said, "List Cannot be empty, Function was cancelled\n");
    EXPECT_EQ(list().rowCount(), 1);
}

TEST_F(MainWindowMenusTest, SeveralRowsAreSelectedWithControl)
{
    window.document().AddScreen();
    window.document().AddScreen();
    const auto clickRow = [this](int row, Qt::KeyboardModifiers modifiers) {
        const QPoint centre = table().visualRect(list().index(row)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, modifiers, centre);
    };
    clickRow(0, Qt::NoModifier);
    clickRow(2, Qt::ControlModifier);
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{0, 2}));
    EXPECT_EQ(list().selectionIndex(), 2);
    clickRow(0, Qt::ControlModifier);
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{2}));
    clickRow(2, Qt::ControlModifier); // none is no choice
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{2}));
    EXPECT_EQ(table().selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(MainWindowMenusTest, RecentProjectsOpenAgain)
{
    window.document().openProjectPre(greenProject("a&b.Orv"));
    window.document().newProject();
    QMenu &recent = submenu(window, "Open Recent");
    emit recent.aboutToShow();
    ASSERT_EQ(recent.actions().first()->text(), "a&&b.Orv");
    recent.actions().first()->trigger();
    EXPECT_EQ(title(), "a&b.Orv — Wallwright");

    QFile::remove(path("a&b.Orv"));
    emit recent.aboutToShow();
    answer([&] { recent.actions().first()->trigger(); }, {readingAndPressing("OK")});
    EXPECT_TRUE(said.startsWith("Cannot open " + path("a&b.Orv"))) << qPrintable(said);
    EXPECT_FALSE(Settings::recentFiles().contains(path("a&b.Orv")));
}

TEST_F(MainWindowMenusTest, UnsavedWorkOfAnEndedProgramIsToldOnceAndRecovered)
{
    {
        WindowInterface nobody(window);
        LWAppDelegate ended(nobody, RecoveryFolder::standardPath());
        ended.applicationDidFinishLaunching();
        ended.arraycontroller().setValue(77, "arrangedObjects.panelWidth");
    }
    MainWindow next;
    next.start();
    QTest::qWait(700);
    const auto labels = next.findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->isVisible() && label->accessibleName().startsWith("Unsaved work: Untitled, ");
    }));
    QMenu &recover = submenu(next, "Recover");
    emit recover.aboutToShow();
    answer([&] { recover.actions().last()->trigger(); }, {readingAndPressing("Cancel")});
    EXPECT_EQ(said, "Forget all unsaved work of ended programs?\nThis cannot be undone.");
    emit recover.aboutToShow();
    ASSERT_EQ(recover.actions().size(), 3);
    recover.actions().first()->trigger();
    EXPECT_EQ(next.document().arraycontroller().selectedLayer()->panelWidth(), 77);
    EXPECT_TRUE(next.isWindowModified());
    emit recover.aboutToShow();
    EXPECT_EQ(titles(recover), QStringList("No unsaved work"));
}

TEST_F(MainWindowMenusTest, UnsavedWorkCanBeForgotten)
{
    {
        WindowInterface nobody(window);
        LWAppDelegate ended(nobody, RecoveryFolder::standardPath());
        ended.applicationDidFinishLaunching();
        ended.arraycontroller().setValue(77, "arrangedObjects.panelWidth");
    }
    QMenu &recover = submenu(window, "Recover");
    emit recover.aboutToShow();
    answer([&] { recover.actions().last()->trigger(); }, {readingAndPressing("Forget")});
    emit recover.aboutToShow();
    EXPECT_EQ(titles(recover), QStringList("No unsaved work"));
}

TEST_F(MainWindowMenusTest, TheWindowComesBackInItsSize)
{
    resizeTo({1111, 777});
    window.close();
    MainWindow next;
    next.start();
    EXPECT_EQ(next.size(), QSize(1111, 777));
}

TEST_F(MainWindowMenusTest, OthersAreHiddenAndComeBackByUndoing)
{
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier, {});
    choose({"Layer", "Hide Others"});
    EXPECT_EQ(list().selectionIndex(), 1);
    EXPECT_FALSE(list().layer(0)->visible());
    EXPECT_TRUE(list().layer(1)->visible());
    undo();
    EXPECT_TRUE(list().layer(0)->visible());
}

TEST_F(MainWindowMenusTest, ALayerIsPlacedInTheMiddleAndInEachCorner)
{
    const Layer &wall = *list().selectedLayer(); // 1024 x 640 in 1920 x 1080
    choose({"Layer", "Centre in Output"});
    EXPECT_EQ(QPoint(wall.xpoint(), wall.ypoint()), QPoint(448, 220));
    const std::pair<QString, QPoint> corners[] = {
        {"Top Right", {896, 0}}, {"Bottom Right", {896, 440}}, {"Bottom Left", {0, 440}}, {"Top Left", {0, 0}}};
    for (const auto &[corner, place] : corners) {
        choose({"Layer", "Fit to Output Corner", corner});
        EXPECT_EQ(QPoint(wall.xpoint(), wall.ypoint()), place) << qPrintable(corner);
    }
    undo();
    EXPECT_EQ(QPoint(wall.xpoint(), wall.ypoint()), QPoint(0, 440));
}

TEST_F(MainWindowMenusTest, TheToolIsChosenByKeyMenuAndButton)
{
    using Tool = LWCanvasImageView::Tool;
    EXPECT_EQ(canvas().tool(), Tool::Panels);
    press(Qt::Key_V, Qt::NoModifier, {});
    EXPECT_EQ(canvas().tool(), Tool::Arrange);
    press(Qt::Key_P, Qt::NoModifier, {});
    EXPECT_EQ(canvas().tool(), Tool::Panels);
    choose({"View", "Arrange Tool"});
    EXPECT_EQ(canvas().tool(), Tool::Arrange);
    QWidget &pane = *window.findChild<CanvasPane *>();
    click(pane, "Panels");
    EXPECT_EQ(canvas().tool(), Tool::Panels);
    click(pane, "Arrange");
    EXPECT_EQ(canvas().tool(), Tool::Arrange);
    click(pane, "Arrange"); // stays
    EXPECT_EQ(canvas().tool(), Tool::Arrange);
    for (const QAbstractButton *button : pane.findChildren<QAbstractButton *>())
        EXPECT_EQ(button->isChecked(), button->text() == "Arrange");
}
