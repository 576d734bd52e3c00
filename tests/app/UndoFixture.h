#pragma once

#include "formats/PresetLibrary.h"
#include "tests/app/ListFixture.h"
#include "tests/app/RedrawGate.h"

#include <functional>

/// A document whose edits are undone and done again.
class UndoFixture : public ListFixture
{
protected:
    /// What undoing has to bring back.
    struct Look
    {
        QByteArray project;
        QByteArray presets;
        QString path;
        QImage output;
    };

    Look look()
    {
        const Result<QByteArray> presets = PresetLibrary::encode(document.presetScreensArray());
        return {archive(), presets.value_or(QByteArray()), document.projectPath(), document.offscreenRep().copy()};
    }
    static void expectSame(const Look &now, const Look &expected, const char *when)
    {
        EXPECT_FALSE(expected.project.isEmpty());
        EXPECT_EQ(now.project == expected.project, true) << when;
        EXPECT_EQ(now.presets == expected.presets, true) << when;
        EXPECT_EQ(now.path, expected.path) << when;
        EXPECT_EQ(now.output == expected.output, true) << when;
    }
    void waitForRedraws() { ::waitForRedraws(document); }

    /// Makes an edit, undoes it and does it again, and back once more; each brings back exactly what was there, and
    /// leaves it so. `name` is what the menu says.
    void expectUndone(const QString &name, const std::function<void()> &edit)
    {
        waitForRedraws();
        compose();
        const Look before = look();
        const int steps = stack.index();

        edit();
        waitForRedraws();
        const Look after = look();
        ASSERT_EQ(stack.index(), steps + 1);
        EXPECT_EQ(stack.undoText(), name);
        EXPECT_TRUE(after.project != before.project || after.presets != before.presets || after.path != before.path);

        undoTo(before);
        EXPECT_EQ(stack.redoText(), name);
        redoTo(after);
        undoTo(before);
    }
    void undoTo(const Look &before)
    {
        stack.undo();
        expectSame(look(), before, "undone");
        waitForRedraws();
        expectSame(look(), before, "undone, and redrawn");
    }
    void redoTo(const Look &after)
    {
        stack.redo();
        expectSame(look(), after, "done again");
        waitForRedraws();
        expectSame(look(), after, "done again, and redrawn");
    }

    /// Edits a value of the selected layer as the inspector does.
    void edit(const char *property, const QVariant &value)
    {
        EXPECT_TRUE(document.setValue(value, QString("arrangedObjects.") + property)) << property;
    }
    QString pictureFile(const QString &name, const QSize &size, Qt::GlobalColor colour) const
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(colour);
        QString path = folder.filePath(name);
        EXPECT_TRUE(picture.save(path));
        return path;
    }
    QUndoStack &stack = document.undoStack();
};
