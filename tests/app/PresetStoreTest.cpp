#include "formats/PresetLibrary.h"
#include "tests/app/ListFixture.h"
#include "tests/formats/ArchiveNodes.h"

#include <QDir>
#include <QFile>

#include <memory>

namespace {
/// Programs that share one person's presets, one after the other or at once.
class PresetStoreOfAPerson : public ListFixture
{
protected:
    /// A program that has just started.
    std::unique_ptr<LWAppDelegate> program()
    {
        auto started = std::make_unique<LWAppDelegate>(person, folder.filePath("recovery"), file);
        started->applicationDidFinishLaunching();
        return started;
    }
    static QString presetsOf(const LWAppDelegate &program) { return labelsOf(program.presetScreensArray()); }
    void showPresets(LWAppDelegate &program, const QStringList &names)
    {
        program.presetarraycontroller().setLayers(screensNamed(names), {0});
        program.finishEdit("Setting");
    }
    static void removeFirst(LWAppDelegate &program)
    {
        program.presetarraycontroller().setSelectionIndex(0);
        program.removePreset();
    }
    /// Puts a file into the place of the kept presets.
    void put(const QByteArray &bytes)
    {
        QDir(folder.path()).mkdir("data");
        QFile put(file);
        EXPECT_TRUE(put.open(QIODevice::WriteOnly) && put.write(bytes) == bytes.size());
    }
    QString kept() { return labelsOf(PresetLibrary::read(file, document).value_or(std::vector<LayerPointer>())); }
    QStringList files() const { return QDir(folder.filePath("data")).entryList(QDir::Files, QDir::Name); }

    QString file = folder.filePath("data/presets");
};
} // namespace

TEST_F(PresetStoreOfAPerson, AtTheFirstStartTheBuiltInOnesAreThereAndNothingIsWritten)
{
    const auto first = program();
    EXPECT_EQ(first->presetScreensArray().size(), 31U);
    first->AddScreen();
    EXPECT_TRUE(files().isEmpty());
    EXPECT_TRUE(person.failures.isEmpty());
}

TEST_F(PresetStoreOfAPerson, ProgramsThatBeginWithTheBuiltInOnesAddNoneToEachOther)
{
    const auto one = program();
    const auto other = program();
    removeFirst(*one);
    removeFirst(*other);
    EXPECT_EQ(PresetLibrary::read(file, document)->size(), 30U);
}

TEST_F(PresetStoreOfAPerson, PresetsComeBackAtTheNextStart)
{
    {
        const auto first = program();
        showPresets(*first, {"p", "q", "r"});
        removeFirst(*first);
        EXPECT_EQ(labelsOf(*PresetLibrary::read(file, document)), "q, r"); // at once, not at the end
        first->undoStack().undo();
        first->presetarraycontroller().setValue("renamed", "arrangedObjects.label");
    }
    EXPECT_EQ(presetsOf(*program()), "renamed, q, r");
    EXPECT_EQ(files(), QStringList("presets"));
}

TEST_F(PresetStoreOfAPerson, PresetsAreNoPartOfTheProject)
{
    const auto one = program();
    QUndoStack &stack = one->undoStack();
    showPresets(*one, {"p", "q", "r"});
    removeFirst(*one);
    EXPECT_TRUE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(presetsOf(*one), "p, q, r");
    one->keepUnsavedWork();
    EXPECT_FALSE(QFile::exists(folder.filePath("recovery")));

    one->AddScreen();
    EXPECT_FALSE(stack.isClean());
    removeFirst(*one);
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_FALSE(stack.isClean());
    stack.undo(); // the screen
    EXPECT_TRUE(stack.isClean());
    stack.redo();
    EXPECT_FALSE(stack.isClean());
}

TEST_F(PresetStoreOfAPerson, AProjectThatWasSavedAmongEditsOfPresetsStaysSaved)
{
    const auto one = program();
    QUndoStack &stack = one->undoStack();
    showPresets(*one, {"p", "q", "r"});
    one->AddScreen();
    removeFirst(*one);
    person.savePanelAnswer = folder.filePath("show");
    one->save();
    ASSERT_TRUE(stack.isClean());
    removeFirst(*one);
    EXPECT_TRUE(stack.isClean());
    stack.setIndex(2); // both presets come back at once
    EXPECT_TRUE(stack.isClean());
    stack.undo(); // the screen
    EXPECT_FALSE(stack.isClean());
    stack.redo();
    stack.redo();
    EXPECT_TRUE(stack.isClean());
    stack.undo();
    one->AddScreen(); // in another direction
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(PresetStoreOfAPerson, BeyondTheOldestStepAnEditIsStillUnsaved)
{
    for (int edit = 0; edit < DocumentHistory::mostSteps; ++edit)
        document.presetarraycontroller().setValue(QString::number(edit), "arrangedObjects.label");
    EXPECT_TRUE(document.undoStack().isClean());
    document.AddScreen();
    EXPECT_FALSE(document.undoStack().isClean());
}

TEST_F(PresetStoreOfAPerson, TheBuiltInOnesComeBackAndThatCanBeUndone)
{
    const auto one = program();
    showPresets(*one, {"p", "q"});
    one->resetPresets();
    EXPECT_EQ(one->presetScreensArray().size(), 31U);
    EXPECT_EQ(one->undoStack().undoText(), "reset presets");
    EXPECT_EQ(program()->presetScreensArray().size(), 31U);
    one->undoStack().undo();
    EXPECT_EQ(presetsOf(*one), "p, q");
    EXPECT_EQ(presetsOf(*program()), "p, q");
}

TEST_F(PresetStoreOfAPerson, ADamagedListIsToldAndPutAside)
{
    for (const char *bytes : {"no list", "none either"}) {
        put(bytes);
        const auto one = program();
        EXPECT_EQ(one->presetScreensArray().size(), 31U);
    }
    EXPECT_EQ(files(), QStringList({"presets.damaged", "presets.damaged-2"}));
    ASSERT_EQ(person.failures.size(), 2);
    EXPECT_TRUE(person.failures[0].startsWith("Your presets cannot be read and were put aside as presets.damaged; "
                                              "these are the built-in ones: " +
                                              file))
        << qPrintable(person.failures[0]);
}

TEST_F(PresetStoreOfAPerson, AListThatCannotBeReadNowStaysWhereItIs)
{
    put("");
    QFile large(file);
    ASSERT_TRUE(large.resize(qint64{513} << 20)); // more than is read
    const auto one = program();
    removeFirst(*one);

    EXPECT_EQ(files(), QStringList("presets"));
    EXPECT_EQ(large.size(), qint64{513} << 20);
    ASSERT_EQ(person.failures.size(), 2);
    EXPECT_TRUE(person.failures[0].startsWith("Your presets cannot be read, these are the built-in ones: " + file))
        << qPrintable(person.failures[0]);
}

TEST_F(PresetStoreOfAPerson, NothingIsWrittenOverAListThatCannotBeRead)
{
    const auto one = program();
    put("no list");
    removeFirst(*one);
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::ReadOnly));
    EXPECT_EQ(damaged.readAll(), "no list");
    ASSERT_EQ(person.failures.size(), 1);
    EXPECT_TRUE(person.failures[0].startsWith("The presets are not kept for the next start: " + file));
}

TEST_F(PresetStoreOfAPerson, WhatAnotherProgramHasAddedIsNotLost)
{
    const auto one = program();
    showPresets(*one, {"p", "q"});
    const auto other = program();
    showPresets(*other, {"p", "q", "of the other"});
    showPresets(*one, {"p", "q", "of the one"});
    EXPECT_EQ(presetsOf(*one), "p, q, of the one");
    EXPECT_EQ(presetsOf(*program()), "p, q, of the one, of the other");
    showPresets(*one, {"of the one"}); // what it has had itself, it can remove
    EXPECT_EQ(presetsOf(*program()), "of the one, of the other");
}

TEST_F(PresetStoreOfAPerson, APresetThatIsEditedAfterwardsWasStillTheProgramsOwn)
{
    const auto one = program();
    showPresets(*one, {"p", "q"});
    const auto again = program(); // it meets both, and asks for none of their archives
    again->presetScreensArray()[0]->setLabel("r");
    again->finishEdit("name");
    EXPECT_EQ(presetsOf(*program()), "r, q");
}

TEST_F(PresetStoreOfAPerson, DrawnPresetsAreStillTheSame)
{
    {
        const auto one = program();
        for (const LayerPointer &preset : one->presetScreensArray())
            EXPECT_FALSE(preset->thumbnail().isNull());
        removeFirst(*one);
    }
    const auto again = program();
    for (const LayerPointer &preset : again->presetScreensArray())
        EXPECT_FALSE(preset->thumbnail().isNull());
    removeFirst(*again);
    EXPECT_EQ(program()->presetScreensArray().size(), 29U);
}

TEST_F(PresetStoreOfAPerson, APresetWithContentOfALaterVersionIsKeptOnce)
{
    const ArchiveNodes archive = parsedArchive(PresetLibrary::encode(screensNamed({"p", "q"})).value());
    plist_t presets = plist_dict_get_item(rootEntry(archive), "NS.objects");
    plist_dict_set_item(tableEntry(archive, plist_array_get_item(presets, 0)), "sibling",
                        plist_copy(plist_array_get_item(presets, 1)));
    put(archiveBytes(archive));

    const auto one = program();
    one->presetarraycontroller().setSelectionIndex(1);
    for (const char *name : {"r", "s", "t"}) {
        one->presetarraycontroller().setValue(name, "arrangedObjects.label");
        EXPECT_EQ(kept(), QString("p, ") + name);
    }
}

TEST_F(PresetStoreOfAPerson, WhatCouldNotBeKeptIsTriedAgainWhenThePresetsChangeAndAtTheEnd)
{
    const auto fails = [&](LWAppDelegate &program) {
        put("no list");
        removeFirst(program);
        EXPECT_EQ(person.failures.size(), 1);
        person.failures.clear();
        EXPECT_TRUE(QFile::remove(file));
    };
    auto one = program();
    showPresets(*one, {"p", "q", "r"});
    fails(*one);
    one->AddScreen();
    EXPECT_FALSE(QFile::exists(file));
    one->presetarraycontroller().setSelectionIndex(1);
    one->presetarraycontroller().setValue("s", "arrangedObjects.label");
    EXPECT_EQ(kept(), "q, s");
    fails(*one);
    one.reset();
    EXPECT_EQ(kept(), "s");
    EXPECT_TRUE(person.failures.isEmpty());
}

TEST_F(PresetStoreOfAPerson, WhatCannotBeKeptIsToldOnceForTheSamePresets)
{
    auto one = program();
    showPresets(*one, {"p", "q", "r"});
    put("no list");
    removeFirst(*one);
    for (const int columns : {3, 4, 5})
        one->setValue(columns, "arrangedObjects.col");
    one->AddScreen();
    EXPECT_EQ(person.failures.size(), 1);

    removeFirst(*one);
    one->AddScreen();
    EXPECT_EQ(person.failures.size(), 2);
    one.reset();
    EXPECT_EQ(person.failures.size(), 2);
}

TEST_F(PresetStoreOfAPerson, WhatFailsForAnotherReasonAtTheEndIsTold)
{
    auto one = program();
    showPresets(*one, {"p", "q", "r"});
    put("no list");
    removeFirst(*one);
    ASSERT_TRUE(QFile::remove(file) && QDir().mkdir(file));
    one.reset();
    ASSERT_EQ(person.failures.size(), 2);
    EXPECT_NE(person.failures[0], person.failures[1]);
}
