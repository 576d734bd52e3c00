#include "formats/ProjectFile.h"
#include "tests/app/DocumentFixture.h"
#include "tests/formats/SampleProject.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTest>

#include <memory>

namespace {
/// Documents whose unsaved work outlives them.
class RecoverDocument : public ::testing::Test
{
protected:
    RecoverDocument() { start(); }

    /// Ends the program, if it runs, and starts it anew.
    void start(const QString &path = {})
    {
        document.reset();
        document = std::make_unique<LWAppDelegate>(person, copies);
        if (!path.isEmpty())
            document->applicationOpenFile(path);
        document->applicationDidFinishLaunching();
    }
    void edit(int xpoint) { EXPECT_TRUE(document->setValue(xpoint, "arrangedObjects.xpoint")); }
    QStringList copiesOnDisk() const
    {
        QStringList paths;
        QDirIterator files(copies, {"project.Orv"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            paths.append(files.next());
        return paths;
    }
    /// The xpoint of the first layer in the only copy; -1: there is not one.
    int keptXpoint()
    {
        document->keepUnsavedWork();
        const QStringList paths = copiesOnDisk();
        const Result<Project> kept = paths.size() == 1 ? ProjectFile::read(paths[0], *document) : fail("not one");
        return kept && !kept->layers.empty() ? kept->layers[0]->xpoint() : -1;
    }
    bool isKept()
    {
        document->keepUnsavedWork();
        return !copiesOnDisk().isEmpty();
    }
    QString sample()
    {
        QString path = state.filePath("sample.Orv");
        EXPECT_TRUE(ProjectFile::write(path, sampleProject(*document)).has_value());
        return path;
    }
    QString saved(const QString &name)
    {
        person.savePanelAnswer = state.filePath(name);
        document->saveProject();
        return document->projectPath();
    }
    LayerPointer selected() { return document->arraycontroller().selectedLayer(); }

    QTemporaryDir state;
    QString copies = state.filePath("recovery");
    ScriptedPerson person;
    std::unique_ptr<LWAppDelegate> document;
};
} // namespace

TEST_F(RecoverDocument, AnUntouchedDocumentLeavesNothing)
{
    QTest::qWait(150);
    EXPECT_FALSE(isKept());

    start();
    EXPECT_TRUE(document->recoverable().empty());
}

TEST_F(RecoverDocument, AnEditIsKeptUntilItIsSaved)
{
    edit(7);
    EXPECT_EQ(keptXpoint(), 7);
    edit(8);
    EXPECT_EQ(keptXpoint(), 8);

    saved("show");
    EXPECT_FALSE(isKept());
    start();
    EXPECT_TRUE(document->recoverable().empty());
}

TEST_F(RecoverDocument, AnEditIsKeptByItself)
{
    edit(7);

    EXPECT_TRUE(QTest::qWaitFor([&] { return !copiesOnDisk().isEmpty(); }, 2000));
}

TEST_F(RecoverDocument, BackAtTheSavedStateNothingIsKeptAndAwayFromItAgain)
{
    edit(7);
    saved("show");
    edit(8);
    EXPECT_EQ(keptXpoint(), 8);

    document->undoStack().undo();
    EXPECT_FALSE(isKept());
    document->undoStack().undo();
    EXPECT_EQ(keptXpoint(), 0);
    document->undoStack().redo();
    EXPECT_FALSE(isKept());
    document->undoStack().redo();
    EXPECT_EQ(keptXpoint(), 8);
}

TEST_F(RecoverDocument, BackAtTheStartNothingIsKept)
{
    edit(7);
    EXPECT_TRUE(isKept());
    document->undoStack().undo();
    EXPECT_FALSE(isKept());
}

TEST_F(RecoverDocument, QuittingLeavesTheLastEdit)
{
    edit(7);
    start();

    const std::vector<FoundCopy> found = document->recoverable();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].project.path, "");
    EXPECT_TRUE(document->undoStack().isClean());
    EXPECT_EQ(selected()->xpoint(), 0); // offered, not taken
}

TEST_F(RecoverDocument, OpeningAnotherProjectLeavesTheUnsavedWork)
{
    const QString path = saved("show");
    edit(7);
    document->openProjectPre(sample());
    EXPECT_EQ(document->OutputWidth(), 3840);
    start();

    const std::vector<FoundCopy> found = document->recoverable();
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].project.path, path);
    EXPECT_EQ(ProjectFile::read(found[0].path, *document)->layers[0]->xpoint(), 7);
}

TEST_F(RecoverDocument, ANewProjectLeavesTheUnsavedWork)
{
    edit(7);
    document->newProject();
    EXPECT_TRUE(document->undoStack().isClean());
    start();

    ASSERT_EQ(document->recoverable().size(), 1U);
}

TEST_F(RecoverDocument, AFileThatCannotBeOpenedLeavesTheCopyWithTheDocument)
{
    edit(7);
    document->openProjectPre(state.filePath("missing.Orv"));
    edit(8);

    EXPECT_EQ(keptXpoint(), 8);
}

TEST_F(RecoverDocument, RecoveredWorkIsUnsavedWorkOfItsProject)
{
    const QString path = saved("show");
    edit(7);
    start();

    document->recover(document->recoverable().at(0));

    EXPECT_TRUE(person.alerts.isEmpty());
    EXPECT_EQ(selected()->xpoint(), 7);
    EXPECT_EQ(document->projectPath(), path);
    EXPECT_FALSE(document->undoStack().isClean());
    EXPECT_EQ(document->undoStack().undoText(), "recover project");
    EXPECT_TRUE(document->recoverable().empty());
    EXPECT_EQ(keptXpoint(), 7);
    EXPECT_EQ(document->offscreenRep().pixel(3, 3), 0xff000000U); // composed with the wall 7 pixels away

    document->save();
    EXPECT_FALSE(isKept());
    EXPECT_EQ(ProjectFile::read(path, *document)->layers[0]->xpoint(), 7);
    EXPECT_TRUE(document->undoStack().isClean());
}

TEST_F(RecoverDocument, AProjectThatAShellNamedFromItsFolderIsKnownByItsWholePath)
{
    const QString path = saved("show");
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(QFileInfo(path).path()));
    start(QFileInfo(path).fileName());
    QDir::setCurrent(before);
    EXPECT_EQ(document->projectPath(), path);
    edit(7);
    start();
    ASSERT_EQ(document->recoverable().size(), 1U);
    EXPECT_EQ(document->recoverable()[0].project.path, path);
}

TEST_F(RecoverDocument, RecoveredWorkThatIsNotSavedIsOfferedAgain)
{
    edit(7);
    start();
    document->recover(document->recoverable().at(0));
    start();
    ASSERT_EQ(document->recoverable().size(), 1U);

    document->recover(document->recoverable().at(0));
    document->undoStack().undo();
    EXPECT_EQ(selected()->xpoint(), 0);
    start();
    ASSERT_EQ(document->recoverable().size(), 1U); // undone by mistake, perhaps
    EXPECT_EQ(ProjectFile::read(document->recoverable()[0].path, *document)->layers[0]->xpoint(), 7);
}

TEST_F(RecoverDocument, RecoveringLeavesTheUnsavedWorkThatWasThere)
{
    edit(7);
    start();
    edit(8);
    document->recover(document->recoverable().at(0));
    EXPECT_EQ(selected()->xpoint(), 7);
    start();

    EXPECT_EQ(document->recoverable().size(), 2U);
}

TEST_F(RecoverDocument, AProjectThatWasOnlyOpenedLeavesNothing)
{
    const QString path = sample();
    start(path);
    EXPECT_EQ(document->projectPath(), path);
    QTest::qWait(150);
    for (int row = 0; row < 6; ++row) { // the inspector's switches are set in each layer that is shown
        document->arraycontroller().setSelectionIndex(row);
        document->timerupdate();
        document->update();
    }
    EXPECT_FALSE(isKept());
    EXPECT_TRUE(document->undoStack().isClean());

    document->openProjectPre(path);
    document->arraycontroller().setSelectionIndex(3);
    document->timerupdate();
    document->update();
    EXPECT_FALSE(isKept());
    start();
    EXPECT_TRUE(document->recoverable().empty());
}

TEST_F(RecoverDocument, UndoneOpeningKeepsTheDocumentBeforeIt)
{
    edit(7);
    document->openProjectPre(sample());
    EXPECT_EQ(copiesOnDisk().size(), 1);
    document->undoStack().undo();
    edit(8);
    start();

    const std::vector<FoundCopy> found = document->recoverable();
    ASSERT_EQ(found.size(), 2U); // what was left, and what became of it
    EXPECT_EQ(ProjectFile::read(found[0].path, *document)->layers[0]->xpoint(), 8);
}

TEST_F(RecoverDocument, ADamagedCopyIsAnAlertAndChangesNothing)
{
    edit(7);
    start();
    const FoundCopy copy = document->recoverable().at(0);
    QFile file(copy.path);
    ASSERT_TRUE(file.resize(file.size() - 40));
    edit(3);

    document->recover(copy);

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_TRUE(person.alerts[0].message.startsWith("Cannot recover " + copy.path + ": "))
        << qPrintable(person.alerts[0].message);
    EXPECT_EQ(person.alerts[0].informativeText, "The document is unchanged.");
    EXPECT_EQ(selected()->xpoint(), 3);
    EXPECT_EQ(document->undoStack().count(), 1);
    EXPECT_TRUE(QFile::exists(copy.path));
    edit(4);
    document->keepUnsavedWork();
    EXPECT_EQ(copiesOnDisk().size(), 2); // its own copy is still its own
}

TEST_F(RecoverDocument, DiscardedWorkIsGone)
{
    edit(7);
    start();
    const FoundCopy copy = document->recoverable().at(0);

    document->discardRecoverable(copy);
    EXPECT_TRUE(document->recoverable().empty());
    EXPECT_TRUE(person.alerts.isEmpty());

    document->discardRecoverable(copy);
    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_TRUE(person.alerts[0].message.startsWith("Cannot remove " + copy.path))
        << qPrintable(person.alerts[0].message);
    EXPECT_EQ(person.alerts[0].informativeText, "It stays.");
}

TEST_F(RecoverDocument, WhatCannotBeKeptIsToldInTheStatusLine)
{
    QFile inTheWay(copies);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));

    edit(7);
    document->keepUnsavedWork();

    ASSERT_EQ(person.failures.size(), 1);
    EXPECT_TRUE(
        person.failures[0].startsWith("Unsaved changes have no recovery copy; save the project to keep them. "));
}

TEST_F(RecoverDocument, WithoutAFolderNothingIsKept)
{
    LWAppDelegate other(person);
    other.applicationDidFinishLaunching();
    other.AddScreen();
    other.keepUnsavedWork();

    EXPECT_TRUE(other.recoverable().empty());
    EXPECT_TRUE(copiesOnDisk().isEmpty());
}
