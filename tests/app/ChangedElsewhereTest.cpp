#include "formats/ProjectFile.h"
#include "tests/app/UndoFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace {
/// A document whose file is another program's too.
class ChangedElsewhere : public UndoFixture
{
protected:
    ChangedElsewhere()
    {
        person.savePanelAnswer = path;
        document.saveProject();
    }
    QByteArray onDisk() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /// Another program saves a show whose first layer stands at `xpoint`.
    QByteArray saveTheirs(int xpoint)
    {
        const LayerPointer wall = selected()->copyWithZone();
        wall->setXpoint(xpoint);
        EXPECT_TRUE(ProjectFile::write(path, {90, 160, {wall}}).has_value());
        return onDisk();
    }

    /// Unsaved changes to the show outlive their program in `copies`.
    void leaveUnsaved()
    {
        LWAppDelegate lost(person, copies);
        lost.applicationDidFinishLaunching();
        lost.openProjectPre(path);
        lost.setValue(9, "arrangedObjects.xpoint");
    }
    /// Something becomes of the file behind this program's back, that many seconds from now.
    void put(const QByteArray &bytes, int seconds = 0)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
        file.setFileTime(QDateTime::currentDateTime().addSecs(seconds), QFileDevice::FileModificationTime);
    }

    /// Saves an edit in the document opened anew from the file, and undoes back to the one of before.
    void openAgainSaveAndGoBack()
    {
        document.openProjectPre(path);
        edit("xpoint", 8);
        document.save();
        stack.undo();
        EXPECT_EQ(stack.undoText(), "open project");
        stack.undo();
    }

    const QString path = folder.filePath("show.Orv");
    const QString copies = folder.filePath("copies");
};
} // namespace

TEST_F(ChangedElsewhere, SavingTellsAndWritesNothing)
{
    edit("xpoint", 7);
    const QByteArray theirs = saveTheirs(100);

    document.save();
    EXPECT_EQ(person.filesChangedElsewhere, QStringList(path));
    EXPECT_EQ(onDisk(), theirs);
    EXPECT_FALSE(stack.isClean());

    document.saveAnyway();
    EXPECT_NE(onDisk(), theirs);
    EXPECT_TRUE(stack.isClean());
    edit("xpoint", 8);
    document.save();
    EXPECT_EQ(person.filesChangedElsewhere.size(), 1);
    EXPECT_EQ(ProjectFile::read(path, document)->layers[0]->xpoint(), 8);
}

TEST_F(ChangedElsewhere, OpeningTheirsCanBeUndone)
{
    edit("xpoint", 7);
    saveTheirs(100);
    document.save();

    document.openTheirs();
    EXPECT_EQ(selected()->xpoint(), 100);
    EXPECT_EQ(document.projectPath(), path);
    document.save();
    EXPECT_EQ(person.filesChangedElsewhere.size(), 1);

    stack.undo();
    EXPECT_EQ(selected()->xpoint(), 7);
    document.save(); // the file is not the one that this document was saved to
    EXPECT_EQ(person.filesChangedElsewhere.size(), 2);
}

TEST_F(ChangedElsewhere, WhatThisProgramHasSavedFromALaterDocumentIsNotAnothers)
{
    edit("xpoint", 7);
    document.save();
    openAgainSaveAndGoBack();
    edit("xpoint", 9);
    document.save();
    EXPECT_TRUE(person.filesChangedElsewhere.isEmpty());
    EXPECT_EQ(ProjectFile::read(path, document)->layers[0]->xpoint(), 9);

    saveTheirs(100);
    edit("xpoint", 10);
    document.save();
    EXPECT_EQ(person.filesChangedElsewhere, QStringList(path));
}

TEST_F(ChangedElsewhere, AFileThatIsTheSameToTheByteIsNotChanged)
{
    const QByteArray ours = onDisk();
    put(ours, 24 * 60 * 60);

    edit("xpoint", 7);
    document.save();
    EXPECT_TRUE(person.filesChangedElsewhere.isEmpty());
    EXPECT_NE(onDisk(), ours);
}

TEST_F(ChangedElsewhere, AFileThatIsGoneIsWrittenAnew)
{
    ASSERT_TRUE(QFile::remove(path));
    document.save();
    EXPECT_TRUE(person.filesChangedElsewhere.isEmpty());
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(ChangedElsewhere, AnOpenedFileIsWatchedAlike)
{
    saveTheirs(3);
    document.openProjectPre(path);
    document.save();
    EXPECT_TRUE(person.filesChangedElsewhere.isEmpty());

    const QByteArray theirs = saveTheirs(4);
    document.save();
    EXPECT_EQ(person.filesChangedElsewhere.size(), 1);
    EXPECT_EQ(onDisk(), theirs);

    document.saveProject(); // the panel has asked
    EXPECT_NE(onDisk(), theirs);
}

TEST_F(ChangedElsewhere, RecoveredWorkAsksWhereAnotherHasSavedWhateverTheClockSays)
{
    const QByteArray ours = onDisk();
    leaveUnsaved();
    const auto asksAfter = [&](const QByteArray &bytes, int seconds) {
        put(bytes, seconds);
        person.filesChangedElsewhere.clear();
        LWAppDelegate next(person, copies);
        next.applicationDidFinishLaunching();
        next.recover(next.recoverable().at(0));
        next.save();
        return person.filesChangedElsewhere == QStringList(path);
    };
    const QByteArray theirs = saveTheirs(20);
    EXPECT_TRUE(asksAfter(theirs, 60));
    EXPECT_TRUE(asksAfter(theirs, -60));
    EXPECT_EQ(onDisk(), theirs);

    EXPECT_FALSE(asksAfter(ours, 60));
    EXPECT_EQ(ProjectFile::read(path, document)->layers[0]->xpoint(), 9);
}

TEST_F(ChangedElsewhere, RecoveredWorkAsksWhereNothingTellsWhatItsFileHeld)
{
    leaveUnsaved();
    const QString kept = QDir(copies).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    ASSERT_TRUE(QFile::remove(copies + '/' + kept + "/project-digest"));
    LWAppDelegate next(person, copies);
    next.applicationDidFinishLaunching();
    next.recover(next.recoverable().at(0));
    next.save();
    EXPECT_EQ(person.filesChangedElsewhere, QStringList(path));
}

TEST_F(ChangedElsewhere, WhatThisProgramHasSavedAfterARecoveryIsNotAnothers)
{
    for (const bool hasAnotherSaved : {false, true}) {
        leaveUnsaved();
        if (hasAnotherSaved)
            saveTheirs(20);
        LWAppDelegate next(person, copies);
        next.applicationDidFinishLaunching();
        next.recover(next.recoverable().at(0));
        next.saveAnyway();
        next.openProjectPre(path);
        next.setValue(10, "arrangedObjects.xpoint");
        next.save();
        next.undoStack().undo();
        EXPECT_EQ(next.undoStack().undoText(), "open project");
        next.undoStack().undo();
        next.setValue(11, "arrangedObjects.xpoint");
        next.save();
        EXPECT_TRUE(person.filesChangedElsewhere.isEmpty()) << hasAnotherSaved;
        EXPECT_EQ(ProjectFile::read(path, document)->layers[0]->xpoint(), 11);
    }
}

TEST_F(ChangedElsewhere, AFileThatCouldNotBeOpenedChangesNothing)
{
    const QByteArray ours = onDisk();
    put("no show");
    document.openProjectPre(path);
    ASSERT_EQ(person.alerts.size(), 1);
    put(ours);

    openAgainSaveAndGoBack();
    edit("xpoint", 9);
    document.save();
    EXPECT_TRUE(person.filesChangedElsewhere.isEmpty());
}
