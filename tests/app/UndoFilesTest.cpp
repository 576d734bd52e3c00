#include "formats/ProjectFile.h"
#include "show/DocumentHistory.h"
#include "tests/app/UndoFixture.h"
#include "tests/formats/SampleProject.h"

#include <QFile>
#include <QSignalSpy>

namespace {
/// Undo and the files that a document belongs to.
class UndoFiles : public UndoFixture
{
protected:
    QString sample()
    {
        QString path = folder.filePath("sample.Orv");
        EXPECT_TRUE(ProjectFile::write(path, sampleProject(document)).has_value());
        return path;
    }
    void saveAs(const QString &name)
    {
        person.savePanelAnswer = folder.filePath(name);
        document.saveProject();
    }
};

/// A document of nothing but an output width.
class NumberDocument final : public UndoableDocument
{
public:
    DocumentState state(const DocumentState & /*before*/) const override
    {
        DocumentState now;
        now.output = QSize(width, 1);
        return now;
    }
    void setState(const DocumentState &state) override { width = state.output.width(); }

    int width = 0;
};
} // namespace

TEST_F(UndoFiles, OpeningAProjectIsUndoneToTheDocumentBeforeIt)
{
    document.AddScreen();
    const QSignalSpy paths(&document, &LWAppDelegate::projectPathDidChange);

    expectUndone("open project", [&] { document.openProjectPre(sample()); });

    EXPECT_EQ(labels(), "Layer 0, Layer 1");
    EXPECT_EQ(document.OutputWidth(), 1920);
    EXPECT_EQ(document.projectPath(), "");
    ASSERT_EQ(paths.size(), 4); // there, back, there, back
    EXPECT_EQ(paths[0][0].toString(), sample());
    EXPECT_EQ(paths[1][0].toString(), "");
}

TEST_F(UndoFiles, ANewProjectIsUndoneAlike)
{
    document.AddScreen();
    saveAs("show");

    expectUndone("new project", [&] { document.newProject(); });

    EXPECT_EQ(document.projectPath(), folder.filePath("show.Orv"));
}

TEST_F(UndoFiles, AnOpenedProjectIsCleanAndTheOneBeforeItIsNot)
{
    document.AddScreen();
    document.openProjectPre(sample());
    waitForRedraws();
    EXPECT_TRUE(stack.isClean());

    stack.undo();
    EXPECT_FALSE(stack.isClean());
    stack.redo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(UndoFiles, TheFileOfTheStartIsNoStep)
{
    LWAppDelegate other(person);
    other.applicationOpenFile(sample());
    other.applicationDidFinishLaunching();
    EXPECT_FALSE(other.undoStack().canUndo());
    EXPECT_TRUE(other.undoStack().isClean());

    other.setValue(640, "OutputWidth");
    other.undoStack().undo();
    EXPECT_EQ(other.OutputWidth(), 3840);
    EXPECT_EQ(other.projectPath(), sample());
    EXPECT_EQ(other.presetScreensArray().size(), 31U);
}

TEST_F(UndoFiles, AFileThatCannotBeOpenedIsNoStep)
{
    document.openProjectPre(folder.filePath("missing.Orv"));

    EXPECT_EQ(stack.count(), 0);
    EXPECT_TRUE(stack.isClean());
}

TEST_F(UndoFiles, SavingIsNoStepAndHoldsForAllStatesOfTheDocument)
{
    document.AddScreen();
    saveAs("show");
    EXPECT_EQ(stack.count(), 1);
    EXPECT_TRUE(stack.isClean());

    stack.undo();
    EXPECT_EQ(document.projectPath(), folder.filePath("show.Orv"));
    document.save();
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(ProjectFile::read(folder.filePath("show.Orv"), document)->layers.size(), 1U);
    stack.redo();
    EXPECT_FALSE(stack.isClean());
}

TEST_F(UndoFiles, AProjectSavedUnderAnotherNameKeepsItAcrossOpening)
{
    document.AddScreen();
    document.openProjectPre(sample());
    stack.undo();
    saveAs("first");
    stack.redo();
    EXPECT_EQ(document.projectPath(), sample());
    stack.undo();
    EXPECT_EQ(document.projectPath(), folder.filePath("first.Orv"));
}

TEST_F(UndoFiles, ExportingPresetsPicturesAndLayersSavesNoProject)
{
    document.AddScreen();
    person.savePanelAnswer = folder.filePath("other");
    document.savePresets();
    document.saveAction();
    document.savePSD();

    EXPECT_FALSE(stack.isClean());
    EXPECT_EQ(stack.count(), 1);
}

TEST_F(UndoFiles, NamesThatAnExportGaveComeOffAgain)
{
    showLayers({"a", "b"});
    selected()->setLabel(QString());
    document.finishEdit("Setting");
    person.savePanelAnswer = folder.filePath("wall");

    expectUndone("layer names", [&] { document.savePSD(); });

    EXPECT_TRUE(selected()->label().isNull());
}

TEST_F(UndoFiles, TheFormerPictureOfAStillIsReadFromItsFile)
{
    person.openPanelAnswer = pictureFile("plate.png", {31, 17}, Qt::blue);
    document.AddImage();
    document.openProjectPre(sample());
    QFile::remove(folder.filePath("plate.png"));

    stack.undo();

    EXPECT_EQ(selected()->thumbnail().size(), QSize(31, 17)); // kept, since no file may have it any more
}

TEST_F(UndoFiles, AnEditWhileSomethingIsUndoneGoesOnFromThere)
{
    edit("xpoint", 1);
    edit("ypoint", 2);
    stack.undo();
    stack.undo();
    edit("powerOnCell", 7);

    EXPECT_EQ(stack.count(), 1);
    EXPECT_FALSE(stack.canRedo());
    stack.undo();
    EXPECT_EQ(selected()->powerOnCell(), 200);
    EXPECT_EQ(selected()->xpoint(), 0);
}

TEST(UndoHistory, EditsAreToldButNotTheEnd)
{
    NumberDocument document;
    auto history = std::make_unique<DocumentHistory>(document);
    history->clear();
    int told = 0;
    QObject::connect(history.get(), &DocumentHistory::contentDidChange, [&told] { ++told; });

    document.width = 5;
    EXPECT_TRUE(history->record("Width"));
    EXPECT_EQ(told, 1);
    history->stack().undo();
    EXPECT_EQ(document.width, 0);
    EXPECT_EQ(told, 2);
    history->stack().redo();
    EXPECT_EQ(told, 3);

    history.reset();
    EXPECT_EQ(told, 3);
}

TEST(UndoHistory, TypingEndsWhereTheDocumentWasSavedOrUndone)
{
    NumberDocument document;
    DocumentHistory history(document);
    history.clear();
    const auto type = [&](int width) {
        document.width = width;
        EXPECT_TRUE(history.record("Width", {"width", nullptr}));
    };
    type(1);
    history.stack().setClean();
    type(12);
    EXPECT_EQ(history.stack().count(), 2);

    history.stack().undo();
    EXPECT_EQ(document.width, 1);
    EXPECT_TRUE(history.stack().isClean());
    history.stack().redo();
    type(123);
    EXPECT_EQ(history.stack().count(), 3);
}

TEST(UndoHistory, WhatIsAbsorbedBelongsToTheStateThatIsShown)
{
    NumberDocument document;
    DocumentHistory history(document);
    history.clear();
    document.width = 1;
    EXPECT_TRUE(history.record("Width"));
    history.absorb([&] { document.width = 2; });
    EXPECT_EQ(history.stack().count(), 1);

    history.stack().undo();
    EXPECT_EQ(document.width, 0);
    history.stack().redo();
    EXPECT_EQ(document.width, 2);
}

TEST(UndoHistory, WhatIsRenderedInTheMiddleOfAnEditBelongsToThatEdit)
{
    NumberDocument document;
    DocumentHistory history(document);
    history.clear();
    document.width = 1;
    EXPECT_TRUE(history.record("Width"));
    document.width = 20; // the next edit has begun
    history.absorb([&] { document.width = 21; });
    EXPECT_TRUE(history.record("Drag"));
    EXPECT_EQ(history.stack().undoText(), "Drag");

    history.stack().undo();
    EXPECT_EQ(document.width, 1);
    history.stack().redo();
    EXPECT_EQ(document.width, 21);
    history.absorb([&] { document.width = 22; }); // nothing is under way any more
    EXPECT_EQ(history.stack().count(), 2);
    history.stack().undo();
    history.stack().redo();
    EXPECT_EQ(document.width, 22);
}

TEST(UndoHistory, StepsInARowWithTheSameTypingAreOne)
{
    NumberDocument document;
    DocumentHistory history(document);
    history.clear();
    for (const int width : {1, 12, 123}) {
        document.width = width;
        EXPECT_TRUE(history.record("Width", {"width", nullptr}));
    }
    document.width = 5;
    EXPECT_TRUE(history.record("Width", {"other", nullptr}));
    document.width = 6;
    EXPECT_TRUE(history.record("Width"));
    document.width = 7;
    EXPECT_TRUE(history.record("Width"));

    EXPECT_EQ(history.stack().count(), 4);
    history.stack().setIndex(1);
    EXPECT_EQ(document.width, 123);
    history.stack().undo();
    EXPECT_EQ(document.width, 0);
}

TEST_F(UndoFiles, AFileHasWhatAnUpdateThatWaitsWillMakeOfTheEdit)
{
    selected()->setAspectValue({16, 9});
    selected()->setAspectRatio(true);
    selected()->setPanelHeight(72);
    document.finishEdit("Setting");
    waitForRedraws();
    document.update();
    edit("panelWidth", 160);
    saveAs("show");
    waitForRedraws();
    EXPECT_EQ(ProjectFile::read(folder.filePath("show.Orv"), document)->layers[0]->panelHeight(), 90);
    EXPECT_EQ(selected()->panelHeight(), 90);
    EXPECT_TRUE(stack.isClean());
}

TEST_F(UndoFiles, TheSelectedPresetStaysSelected)
{
    document.presetarraycontroller().setSelectionIndex(5);
    edit("xpoint", 3);
    stack.undo();
    EXPECT_EQ(document.presetarraycontroller().selectionIndex(), 5);
}
