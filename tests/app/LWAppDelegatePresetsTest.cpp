#include "formats/PresetLibrary.h"
#include "tests/app/ListFixture.h"

#include <QDir>
#include <QFile>

namespace {
/// The presets of the document.
class LWAppDelegatePresets : public ListFixture
{
protected:
    QString files() const { return QDir(folder.path()).entryList(QDir::Files, QDir::Name).join(' '); }
    QByteArray library() const { return PresetLibrary::encode(document.presetScreensArray()).value_or(QByteArray()); }
};
} // namespace

TEST_F(LWAppDelegatePresets, AtTheStartThereAre31)
{
    EXPECT_EQ(presetLabels(),
              "P 2.6, P 2.8, P 3.125, P 3.9, P 4.46, P 4.8, P 5.2, P 5.9, P 6.25, P 7.8, P 8.9, P 10.4, P 15.6, X3C, "
              "X4C, X5C, X7C, X7HD, X7B, X7W, HDO X7, X12, HDO X12, Lighthouse 12, X15, Linx-9, AOTO M10, CIRCLE, "
              "CROSS, LINES, GRID");
    EXPECT_EQ(document.presetScreensArray().size(), 31U);
    EXPECT_EQ(document.presetarraycontroller().selectionIndex(), 0);
}

TEST_F(LWAppDelegatePresets, AnInsertedOneIsACopyAboveTheSelectedLayer)
{
    showLayers({"a", "b", "c"});
    document.arraycontroller().setSelectionIndex(1);

    document.insertPreset(30);
    document.insertPreset(31);
    document.insertPreset(-1);

    EXPECT_EQ(labels(), "a, GRID, b, c");
    EXPECT_EQ(selected()->label(), "GRID");
    EXPECT_NE(selected(), document.presetScreensArray().back());
    EXPECT_EQ(document.presetScreensArray().size(), 31U);
    EXPECT_EQ(document.selectedRow(), 0);
}

TEST_F(LWAppDelegatePresets, TheSelectedOnesAreRemoved)
{
    showPresets({"p", "q", "r", "s"});
    document.presetarraycontroller().setSelectionIndexes({0, 2});

    document.removePreset();
    EXPECT_EQ(presetLabels(), "q, s");
    document.removePreset();

    EXPECT_EQ(presetLabels(), "s");
    EXPECT_EQ(labels(), "Layer 0");
    EXPECT_TRUE(person.alerts.isEmpty());
}

TEST_F(LWAppDelegatePresets, TheLastOneStays)
{
    showPresets({"p"});

    document.removePreset();

    EXPECT_EQ(presetLabels(), "p");
    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message, "List Cannot be empty, Function was cancelled");
    EXPECT_EQ(person.alerts[0].informativeText, "");
}

TEST_F(LWAppDelegatePresets, AreSavedUnderTheNameAsItWasTyped)
{
    person.savePanelAnswer = folder.filePath("myset");

    document.savePresets();

    EXPECT_EQ(files(), "myset");
    QFile file(folder.filePath("myset"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), library());
    EXPECT_TRUE(person.recentDocuments.isEmpty());
}

TEST_F(LWAppDelegatePresets, ACancelledPanelDoesNothing)
{
    const QByteArray before = library();

    document.savePresets();
    document.openPresets();

    EXPECT_EQ(files(), "");
    EXPECT_EQ(library(), before);
    EXPECT_TRUE(person.alerts.isEmpty());
}

TEST_F(LWAppDelegatePresets, AFailedSaveIsAnAlert)
{
    person.savePanelAnswer = folder.filePath("nowhere/myset");

    document.savePresets();

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_TRUE(person.alerts[0].message.startsWith("Cannot save " + folder.filePath("nowhere/myset") + ": "))
        << qPrintable(person.alerts[0].message);
    EXPECT_EQ(person.alerts[0].informativeText, "The presets are not saved.");
}

TEST_F(LWAppDelegatePresets, OpenedOnesReplaceThoseThatWereThereInTheirOrder)
{
    showPresets({"r", "p", "q"});
    person.savePanelAnswer = person.openPanelAnswer = folder.filePath("myset");
    document.savePresets();
    const QByteArray saved = library();
    showPresets({"x", "y"});
    const QByteArray layers = archive();

    document.openPresets();

    EXPECT_EQ(presetLabels(), "r, p, q");
    EXPECT_EQ(library(), saved);
    EXPECT_EQ(archive(), layers);
    EXPECT_EQ(document.presetarraycontroller().selectionIndex(), 0);
    EXPECT_TRUE(person.recentDocuments.isEmpty());
}

TEST_F(LWAppDelegatePresets, AFileThatIsNoLibraryIsAnAlertAndChangesNothing)
{
    const QByteArray before = library();
    person.openPanelAnswer = folder.filePath("myset");
    QFile file(*person.openPanelAnswer);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(before.chopped(40)) > 0);
    file.close();

    document.openPresets();

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_TRUE(person.alerts[0].message.startsWith("Cannot open " + *person.openPanelAnswer + ": "))
        << qPrintable(person.alerts[0].message);
    EXPECT_EQ(person.alerts[0].informativeText, "The presets are unchanged.");
    EXPECT_EQ(library(), before);
    EXPECT_EQ(document.undoStack().count(), 0);
}

TEST_F(LWAppDelegatePresets, AnotherPictureOfAPresetRedraws)
{
    document.timerupdate();
    LayerList &presets = document.presetarraycontroller();

    EXPECT_TRUE(presets.setValue(QImage(5, 5, QImage::Format_ARGB32_Premultiplied), "arrangedObjects.thumbnail"));
    EXPECT_FALSE(document.shouldUpdate());

    document.timerupdate();
    EXPECT_TRUE(presets.setValue("Other", "arrangedObjects.label"));
    EXPECT_TRUE(document.shouldUpdate()); // no other value of a preset is looked at
}
