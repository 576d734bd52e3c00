#include "app/Settings.h"
#include "canvas/LWCanvasImageView.h"
#include "formats/ProjectFile.h"
#include "tests/windows/WindowFixture.h"
#include "windows/CanvasPane.h"
#include "windows/LayerTable.h"
#include "windows/ListsPane.h"
#include "windows/OutputPreview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>

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
    EXPECT_EQ(undoEntry(), "Undo panel width");
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
    QMenu &recent = submenu(window, "Open recent");
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

TEST_F(MainWindowMenusTest, WithoutRecentProjectsTheMenuSaysSo)
{
    QMenu &recent = submenu(window, "Open recent");
    emit recent.aboutToShow();
    EXPECT_EQ(titles(recent), QStringList("No recent projects"));
    EXPECT_FALSE(recent.actions().first()->isEnabled());
    window.document().openProjectPre(greenProject("show.Orv"));
    emit recent.aboutToShow();
    EXPECT_EQ(titles(recent), QStringList("show.Orv"));
    EXPECT_TRUE(recent.actions().first()->isEnabled());
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
    choose({"Layer", "Hide others"});
    EXPECT_EQ(list().selectionIndex(), 1);
    EXPECT_FALSE(list().layer(0)->visible());
    EXPECT_TRUE(list().layer(1)->visible());
    undo();
    EXPECT_TRUE(list().layer(0)->visible());
}

TEST_F(MainWindowMenusTest, ALayerIsPlacedInTheMiddleAndInEachCorner)
{
    const Layer &wall = *list().selectedLayer(); // 1024 x 640 in 1920 x 1080
    choose({"Layer", "Centre in output"});
    EXPECT_EQ(QPoint(wall.xpoint(), wall.ypoint()), QPoint(448, 220));
    const std::pair<QString, QPoint> corners[] = {
        {"Top right", {896, 0}}, {"Bottom right", {896, 440}}, {"Bottom left", {0, 440}}, {"Top left", {0, 0}}};
    for (const auto &[corner, place] : corners) {
        choose({"Layer", "Fit to output corner", corner});
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
    choose({"View", "Arrange tool"});
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

TEST_F(MainWindowMenusTest, LayersAndPresetsChangeTheirOrderByKeys)
{
    window.document().AddScreen();
    window.document().AddScreen(); // 0, 2, 1
    list().setSelectionIndexes({1, 2}, 2);
    table().setFocus();
    const auto names = [](const LayerList &of) {
        return of.index(0).data().toString() + ", " + of.index(1).data().toString() + ", " +
               of.index(2).data().toString();
    };
    const int steps = window.document().undoStack().index();
    press(Qt::Key_Up, Qt::ControlModifier, {});
    EXPECT_EQ(names(list()), "Layer 2, Layer 1, Layer 0");
    press(Qt::Key_Up, Qt::ControlModifier, {}); // no further
    EXPECT_EQ(window.document().undoStack().index(), steps + 1);
    EXPECT_EQ(window.document().undoStack().undoText(), "move layer");
    press(Qt::Key_Down, Qt::ControlModifier, {});
    EXPECT_EQ(names(list()), "Layer 0, Layer 2, Layer 1");
    EXPECT_EQ(list().selectionIndexes(), (std::vector<qsizetype>{1, 2}));
    choose({"Layer", "Move up"});
    EXPECT_EQ(names(list()), "Layer 2, Layer 1, Layer 0");
    EXPECT_EQ(list().layer(0)->ypoint(), 0);

    canvas().setFocus();
    press(Qt::Key_Down, Qt::ControlModifier, {});
    EXPECT_EQ(names(list()), "Layer 2, Layer 1, Layer 0");

    const LayerList &presets = window.document().presetarraycontroller();
    presetTable().setFocus();
    presetTable().setCurrentIndex(presets.index(0));
    press(Qt::Key_Down, Qt::ControlModifier, {});
    EXPECT_EQ(names(presets), "P 2.8, P 2.6, P 3.125");
    EXPECT_EQ(names(list()), "Layer 2, Layer 1, Layer 0");
}

TEST_F(MainWindowMenusTest, ALayerIsKeptAsPreset)
{
    choose({"Layer", "Keep as preset"});
    EXPECT_EQ(window.document().presetScreensArray().size(), 32U);
    EXPECT_EQ(window.document().presetScreensArray()[0]->label(), "Layer 0");
}

TEST_F(MainWindowMenusTest, ThePlusOffersScreenAndImage)
{
    for (const QToolButton *button : window.findChildren<QToolButton *>()) {
        if (button->accessibleName() != "Add layer")
            continue;
        ASSERT_NE(button->menu(), nullptr);
        EXPECT_EQ(button->popupMode(), QToolButton::InstantPopup);
        EXPECT_EQ(titles(*button->menu()), QStringList({"Add &screen", "Add &image..."}));
        button->menu()->actions().first()->trigger();
        EXPECT_EQ(list().rowCount(), 2);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        return;
    }
    ADD_FAILURE() << "there is no button";
}

TEST_F(MainWindowMenusTest, AnAddedLayerComesIntoView)
{
    std::vector<LayerPointer> many;
    for (int i = 0; i < 60; ++i)
        many.push_back(window.document().createCopyOfLayerThroughArch(list().layer(0)));
    list().insertObjectsAtArrangedObjectIndex(many, 0);
    list().setSelectionIndex(60);
    resizeTo({1000, 700});
    window.findChild<ListsPane *>()->showPresets();
    press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier, {});
    EXPECT_EQ(list().selectionIndexes(), std::vector<qsizetype>{1}); // below the first row
    EXPECT_TRUE(table().isVisible());
    EXPECT_TRUE(table().viewport()->rect().contains(table().visualRect(list().index(1))));
}

TEST_F(MainWindowMenusTest, TheViewMenuTicksToolAndPreview)
{
    QMenu &view = submenu(window, "View");
    const auto ticked = [&] {
        emit view.aboutToShow();
        QStringList all;
        for (const QAction *action : view.actions()) {
            if (action->isChecked())
                all.append(action->text().remove('&'));
        }
        return all.join(", ");
    };
    EXPECT_EQ(ticked(), "Panels tool");
    press(Qt::Key_V, Qt::NoModifier, {});
    EXPECT_EQ(ticked(), "Arrange tool");
    choose({"View", "Output preview"});
    EXPECT_EQ(ticked(), "Arrange tool, Output preview");
    choose({"View", "Output preview"});
    EXPECT_EQ(ticked(), "Arrange tool");
    choose({"View", "Output preview"});
    EXPECT_EQ(ticked(), "Arrange tool, Output preview");
    EXPECT_EQ(window.findChildren<OutputPreview *>().size(), 1); // the same one as before
}

TEST_F(MainWindowMenusTest, TitlesHaveOneCapital)
{
    static const QRegularExpression capital("\\s[A-Z]");
    for (const QMenu *menu : window.findChildren<QMenu *>()) {
        for (const QAction *action : menu->actions()) {
            const QString title = action->text().remove('&').remove("PNG").remove("PSD").remove("Wallwright");
            EXPECT_FALSE(title.contains(capital)) << qPrintable(title);
        }
    }
}

TEST_F(MainWindowMenusTest, WhatWouldDoNothingCannotBeChosen)
{
    const auto isEnabled = [this](const QString &menu, const QString &title) {
        for (const QAction *action : submenu(window, menu).actions()) {
            if (action->text().remove('&') == title)
                return action->isEnabled();
        }
        ADD_FAILURE() << qPrintable(title);
        return false;
    };
    QGuiApplication::clipboard()->setText("no layer");
    EXPECT_FALSE(isEnabled("Edit", "Paste"));
    EXPECT_FALSE(isEnabled("Edit", "Undo"));
    EXPECT_FALSE(isEnabled("Layer", "Hide others"));
    window.document().copyToPasteboard();
    window.document().AddScreen();
    EXPECT_TRUE(isEnabled("Edit", "Paste"));
    EXPECT_TRUE(isEnabled("Edit", "Undo add screen"));
    EXPECT_TRUE(isEnabled("Layer", "Hide others"));
    press(Qt::Key_A, Qt::ControlModifier, {});
    EXPECT_FALSE(isEnabled("Layer", "Hide others"));
}

TEST_F(MainWindowMenusTest, TheContextMenuOfLayersHasWhatALayerNeeds)
{
    QStringList all;
    for (const QAction *action : table().actions())
        all.append(action->text().remove('&'));
    EXPECT_EQ(all, QStringList({"Rename", "Copy", "Duplicate layer", "Delete", "Hide or show", "Hide others", "Move up",
                                "Move down", "Centre in output", "Fit to output corner", "Keep as preset"}));
}
