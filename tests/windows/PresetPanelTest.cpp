#include "formats/PresetLibrary.h"
#include "tests/windows/WindowFixture.h"
#include "windows/LayerTable.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QToolButton>

#include <memory>

class PresetPanelTest : public WindowFixture
{
protected:
    LayerList &presets() { return window.document().presetarraycontroller(); }
    QLineEdit &searchField()
    {
        for (QLineEdit *field : window.findChildren<QLineEdit *>()) {
            if (field->accessibleName() == "Search presets")
                return *field;
        }
        ADD_FAILURE() << "there is no search field";
        static QLineEdit none;
        return none;
    }
    QStringList shownNames()
    {
        QStringList names;
        for (int row = 0; row < presets().rowCount(); ++row) {
            if (!presetTable().isRowHidden(row))
                names.append(presets().layer(row)->label());
        }
        return names;
    }
    /// The entry of the library's menu with this text.
    void choose(const QString &text, const std::vector<Answer> &answers)
    {
        for (const QToolButton *button : window.findChildren<QToolButton *>()) {
            if (button->accessibleName() != "Preset library")
                continue;
            for (QAction *action : button->menu()->actions()) {
                if (action->text().remove('&') == text)
                    return answer([&] { action->trigger(); }, answers);
            }
        }
        ADD_FAILURE() << "no entry says " << qPrintable(text);
    }
};

TEST_F(PresetPanelTest, ThirtyOnePresetsAreThereAtTheStart)
{
    EXPECT_EQ(shownNames().size(), 31);
    EXPECT_EQ(shownNames().first(), "P 2.6");
    EXPECT_EQ(shownNames().last(), "GRID");
    EXPECT_EQ(LayerDelegate::panel(*presets().layer(24)), "64 × 32 px  ·  950 W");
}

TEST_F(PresetPanelTest, SearchNarrowsWhileTyping)
{
    press(Qt::Key_L, Qt::ControlModifier, {});
    ASSERT_TRUE(searchField().hasFocus());
    QTest::keyClicks(&searchField(), "x1");
    EXPECT_EQ(shownNames(), QStringList({"X12", "HDO X12", "X15"}));
    QTest::keyClicks(&searchField(), "5");
    EXPECT_EQ(shownNames(), QStringList({"X15"}));
    searchField().clear();
    EXPECT_EQ(shownNames().size(), 31);
}

TEST_F(PresetPanelTest, SearchFindsPixelsAndWattsToo)
{
    const auto found = [this](const QString &text) {
        searchField().setText(text);
        return shownNames().join(", ");
    };
    EXPECT_EQ(found("160x80"), "HDO X7");
    EXPECT_EQ(found("160 × 80 px"), "HDO X7");
    EXPECT_EQ(found("160"), "P 3.125, HDO X7"); // not where it stands in the middle of a number
    EXPECT_EQ(found("1,920"), "LINES");
    EXPECT_EQ(found("720 w"), "HDO X12");
    EXPECT_EQ(found("x7 510"), "X7B");
    EXPECT_EQ(found("64 950"), "X15");
}

TEST_F(PresetPanelTest, TheSearchEndsWithAnInsertion)
{
    press(Qt::Key_L, Qt::ControlModifier, {});
    QTest::keyClicks(&searchField(), "x15");
    QTest::keyClick(&searchField(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(searchField().text(), "");
    EXPECT_EQ(shownNames().size(), 31);
    EXPECT_EQ(presetTable().currentIndex().data().toString(), "X15");

    searchField().setText("p 3.9");
    const std::unique_ptr<QMimeData> preset(presets().mimeData({presets().index(3)}));
    EXPECT_TRUE(window.document().arraycontroller().dropMimeData(preset.get(), Qt::CopyAction, 0, 0, {}));
    QApplication::processEvents();
    EXPECT_EQ(searchField().text(), "");
}

TEST_F(PresetPanelTest, AfterEnterTheUndoKeyTakesTheAddedWallBack)
{
    const int before = window.document().arraycontroller().rowCount();
    searchField().setFocus();
    QTest::keyClicks(&searchField(), "x15");
    QTest::keyClick(&searchField(), Qt::Key_Return);
    QApplication::processEvents();
    ASSERT_EQ(window.document().arraycontroller().rowCount(), before + 1);

    QTest::keyClick(window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);

    EXPECT_EQ(window.document().arraycontroller().rowCount(), before);
}

TEST_F(PresetPanelTest, SelectedLayersAreKeptAsPresets)
{
    choose("Keep selected layers", {});
    ASSERT_EQ(presets().rowCount(), 32);
    EXPECT_EQ(presets().layer(0)->label(), "Layer 0");
    EXPECT_NE(presets().layer(0), window.document().arraycontroller().layer(0));
    EXPECT_EQ(presetTable().currentIndex().row(), 0);
    EXPECT_TRUE(shows("Layer 0 is kept as a preset"));
    EXPECT_FALSE(window.isWindowModified());
    window.document().undoStack().undo();
    EXPECT_EQ(presets().rowCount(), 31);
}

TEST_F(PresetPanelTest, EnterAddsTheChosenPresetAboveTheSelectedLayer)
{
    presetTable().setFocus();
    presetTable().setCurrentIndex(presets().index(3));
    QTest::keyClick(&presetTable(), Qt::Key_Return);
    LayerList &layers = window.document().arraycontroller();
    ASSERT_EQ(layers.rowCount(), 2);
    EXPECT_EQ(layers.layer(0)->label(), "P 3.9");
    EXPECT_EQ(layers.selectionIndex(), 0);
    EXPECT_NE(layers.layer(0), presets().layer(3));
    EXPECT_EQ(presets().rowCount(), 31);
    EXPECT_EQ(window.document().undoStack().undoText(), "insert preset");
}

TEST_F(PresetPanelTest, EnterInTheSearchAddsTheFirstThatItFinds)
{
    press(Qt::Key_L, Qt::ControlModifier, {});
    QTest::keyClicks(&searchField(), "x15");
    QTest::keyClick(&searchField(), Qt::Key_Return);
    EXPECT_EQ(window.document().arraycontroller().layer(0)->label(), "X15");
    EXPECT_EQ(window.document().arraycontroller().rowCount(), 2);
}

TEST_F(PresetPanelTest, DownLeadsFromTheSearchToWhatItFinds)
{
    press(Qt::Key_L, Qt::ControlModifier, {});
    QTest::keyClicks(&searchField(), "x1");
    QTest::keyClick(&searchField(), Qt::Key_Down);
    ASSERT_TRUE(presetTable().hasFocus());
    QTest::keyClick(&presetTable(), Qt::Key_Down);
    QTest::keyClick(&presetTable(), Qt::Key_Return);
    EXPECT_EQ(window.document().arraycontroller().layer(0)->label(), "HDO X12");
    EXPECT_EQ(window.document().arraycontroller().layer(1)->ypoint(), 0); // Down has moved nothing
}

TEST_F(PresetPanelTest, WhatTheSearchHidesIsNeitherAddedNorRemoved)
{
    press(Qt::Key_L, Qt::ControlModifier, {});
    QTest::keyClicks(&searchField(), "no such preset");
    EXPECT_TRUE(shows("No preset has that name, size or power"));
    QTest::keyClick(&searchField(), Qt::Key_Return);
    choose("Remove preset", {});
    EXPECT_EQ(window.document().arraycontroller().rowCount(), 1);
    EXPECT_EQ(presets().rowCount(), 31);

    QTest::keyClick(&searchField(), Qt::Key_Escape);
    EXPECT_EQ(shownNames().size(), 31);
    EXPECT_FALSE(shows("No preset has that name, size or power"));
}

TEST_F(PresetPanelTest, WhatTheSearchHidesIsSelectedNoLonger)
{
    presetTable().setFocus();
    for (int row = 0; row < presets().rowCount(); ++row) {
        if (presets().layer(row)->label() == "X12")
            presetTable().setCurrentIndex(presets().index(row));
    }
    press(Qt::Key_A, Qt::ControlModifier, {});
    press(Qt::Key_L, Qt::ControlModifier, {});
    QTest::keyClicks(&searchField(), "x1");
    QTest::keyClick(&searchField(), Qt::Key_Down);
    press(Qt::Key_Delete, Qt::NoModifier, {});
    EXPECT_EQ(presets().rowCount(), 28);
    EXPECT_EQ(shownNames(), QStringList());
    EXPECT_TRUE(QTest::qWaitFor([this] { return shows("No preset has that name, size or power"); }));
    window.document().undoStack().undo();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !shows("No preset has that name, size or power"); }));
    EXPECT_EQ(shownNames().size(), 3);
}

TEST_F(PresetPanelTest, KeysInThePresetsMeanPresets)
{
    window.document().AddScreen();
    presetTable().setFocus();
    presetTable().setCurrentIndex(presets().index(2));
    press(Qt::Key_Delete, Qt::NoModifier, {});
    EXPECT_EQ(presets().rowCount(), 30);
    EXPECT_EQ(window.document().arraycontroller().rowCount(), 2);
    press(Qt::Key_A, Qt::ControlModifier, {});
    EXPECT_EQ(presets().selectionIndexes().size(), 30u);
    EXPECT_EQ(window.document().arraycontroller().selectionIndexes().size(), 1u);
    press(Qt::Key_F2, Qt::NoModifier, {});
    ASSERT_NE(presetTable().findChild<QLineEdit *>(), nullptr);
    EXPECT_EQ(table().findChild<QLineEdit *>(), nullptr);
}

TEST_F(PresetPanelTest, TheContextMenuAddsAndRemoves)
{
    presetTable().setCurrentIndex(presets().index(3));
    const QList<QAction *> actions = presetTable().actions();
    ASSERT_GE(actions.size(), 2);
    actions[0]->trigger();
    EXPECT_EQ(window.document().arraycontroller().layer(0)->label(), "P 3.9");
    actions[1]->trigger();
    EXPECT_EQ(presets().rowCount(), 30);
}

TEST_F(PresetPanelTest, ALibraryIsSavedUnderTheTypedNameAndOpenedAgain)
{
    presetTable().setCurrentIndex(presets().index(0));
    choose("Remove preset", {});
    EXPECT_EQ(presets().rowCount(), 30);
    choose("Save library...", {entering(path("myset"))});
    ASSERT_TRUE(QFile::exists(path("myset")));
    EXPECT_EQ(PresetLibrary::read(path("myset"), window.document())->size(), 30u);

    window.document().undoStack().undo();
    EXPECT_EQ(presets().rowCount(), 31);
    choose("Open library...", {entering(path("myset"))});
    EXPECT_EQ(presets().rowCount(), 30);
    EXPECT_EQ(presets().layer(0)->label(), "P 2.8");
}

TEST_F(PresetPanelTest, TheBuiltInPresetsComeBackFromTheMenuAndNothingIsUnsaved)
{
    choose("Remove preset", {});
    ASSERT_EQ(presets().rowCount(), 30);
    choose("Reset to the built-in presets", {});
    EXPECT_EQ(presets().rowCount(), 31);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(window.document().undoStack().undoText(), "reset presets");
}

TEST_F(PresetPanelTest, ThePresetsAreThereInTheNextWindow)
{
    choose("Remove preset", {});
    MainWindow next;
    next.start();
    EXPECT_EQ(next.document().presetScreensArray().size(), 30U);
    EXPECT_EQ(next.document().presetScreensArray()[0]->label(), "P 2.8");
}

TEST_F(PresetPanelTest, ADamagedLibraryIsAnAlertAndChangesNothing)
{
    QFile file(path("damaged"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no library");
    file.close();
    choose("Open library...", {entering(path("damaged")), readingAndPressing("OK")});
    EXPECT_TRUE(said.startsWith("Cannot open " + path("damaged") + ": ")) << qPrintable(said);
    EXPECT_TRUE(said.endsWith("\nThe presets are unchanged.")) << qPrintable(said);
    EXPECT_EQ(presets().rowCount(), 31);
}
