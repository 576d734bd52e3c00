#include "facts/UnknownValues.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "tests/app/UndoFixture.h"
#include "tests/formats/ArchiveNodes.h"

#include <QFile>

namespace {
/// A show into which another program has put values of its own.
class UnknownInShow : public UndoFixture
{
protected:
    /// Saves the document, and adds to the file a text under a key of the first layer, a list of the layer and the root
    /// behind the elements of the root, and a number beside it.
    QByteArray saveTheirs()
    {
        person.savePanelAnswer = path;
        document.saveProject();
        const ArchiveNodes archive = parsedArchive(onDisk());
        plist_t objects = plist_dict_get_item(archive.get(), "$objects");
        const auto add = [&](plist_t node) {
            plist_array_append_item(objects, node);
            return plist_new_uid(plist_array_get_size(objects) - 1);
        };
        plist_t root = plist_dict_get_item(rootEntry(archive), "NS.objects");
        plist_t layers = plist_dict_get_item(tableEntry(archive, plist_array_get_item(root, 2)), "NS.objects");
        plist_t layer = tableEntry(archive, plist_array_get_item(layers, 0));
        plist_dict_set_item(layer, "rigging", add(plist_new_string("truss 7")));

        plist_t record = plist_new_dict();
        plist_dict_set_item(record, "layer", plist_copy(plist_array_get_item(layers, 0)));
        plist_dict_set_item(record, "show", plist_new_uid(1));
        plist_t chain = plist_new_array();
        for (const char *name : {"Rig", "NSObject"})
            plist_array_append_item(chain, plist_new_string(name));
        plist_t table = plist_new_dict();
        plist_dict_set_item(table, "$classname", plist_new_string("Rig"));
        plist_dict_set_item(table, "$classes", chain);
        plist_dict_set_item(record, "$class", add(table));
        plist_array_append_item(root, add(record));
        plist_dict_set_item(plist_dict_get_item(archive.get(), "$top"), "build", plist_new_uint(4711));
        return write(archive);
    }
    /// Saves the document with a key "sibling" in the first layer's record that refers to the second, and opens it.
    void openWithSibling()
    {
        person.savePanelAnswer = path;
        document.saveProject();
        const ArchiveNodes archive = parsedArchive(onDisk());
        plist_t layers = layersOf(archive);
        plist_dict_set_item(tableEntry(archive, plist_array_get_item(layers, 0)), "sibling",
                            plist_copy(plist_array_get_item(layers, 1)));
        write(archive);
        document.openProjectPre(path);
    }
    static plist_t layersOf(const ArchiveNodes &archive)
    {
        plist_t root = plist_dict_get_item(rootEntry(archive), "NS.objects");
        return plist_dict_get_item(tableEntry(archive, plist_array_get_item(root, 2)), "NS.objects");
    }
    /// Which element of a list of records the "sibling" of another is; -1: none of them.
    static int siblingOf(const ArchiveNodes &archive, plist_t records, uint32_t index)
    {
        plist_t named = plist_dict_get_item(tableEntry(archive, plist_array_get_item(records, index)), "sibling");
        for (uint32_t i = 0; named && i < plist_array_get_size(records); ++i) {
            if (plist_compare_node_value(plist_array_get_item(records, i), named))
                return static_cast<int>(i);
        }
        return -1;
    }
    /// What saveTheirs() saves, as this program writes what it has read: the order of the table is its own.
    QByteArray openTheirs()
    {
        saveTheirs();
        document.openProjectPre(path);
        return save();
    }
    QByteArray save()
    {
        document.finishEdit("Nothing");
        document.save();
        return onDisk();
    }
    QByteArray onDisk() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QByteArray write(const ArchiveNodes &archive)
    {
        QByteArray written = archiveBytes(archive);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(written) == written.size());
        return written;
    }

    const QString path = folder.filePath("show.Orv");
};
} // namespace

TEST_F(UnknownInShow, ComesBackAtTheNextSave)
{
    const QByteArray theirs = saveTheirs();
    document.openProjectPre(path);
    EXPECT_EQ(person.statuses.last(), "show.Orv holds values that this version does not know; they are kept.");

    const QByteArray first = save();
    EXPECT_EQ(first.size(), theirs.size());
    document.openProjectPre(path);
    EXPECT_EQ(save(), first);

    const ArchiveNodes archive = parsedArchive(first);
    plist_t root = plist_dict_get_item(rootEntry(archive), "NS.objects");
    ASSERT_EQ(plist_array_get_size(root), 4U);
    plist_t rig = tableEntry(archive, plist_array_get_item(root, 3));
    plist_t layers = plist_dict_get_item(tableEntry(archive, plist_array_get_item(root, 2)), "NS.objects");
    plist_t layer = tableEntry(archive, plist_array_get_item(layers, 0));
    EXPECT_EQ(tableEntry(archive, plist_dict_get_item(rig, "layer")), layer);
    EXPECT_EQ(tableEntry(archive, plist_dict_get_item(rig, "show")), rootEntry(archive));
    EXPECT_STREQ(plist_get_string_ptr(tableEntry(archive, plist_dict_get_item(layer, "rigging")), nullptr), "truss 7");
    uint64_t build = 0;
    plist_get_uint_val(plist_dict_get_item(plist_dict_get_item(archive.get(), "$top"), "build"), &build);
    EXPECT_EQ(build, 4711U);
}

TEST_F(UnknownInShow, StaysThroughUndoAndThroughAnotherShow)
{
    const QByteArray kept = openTheirs();
    edit("xpoint", 5);
    document.newProject();
    stack.undo();
    stack.undo();
    EXPECT_EQ(save(), kept);
    EXPECT_EQ(document.projectPath(), path);
}

TEST_F(UnknownInShow, DoesNotGoIntoAnotherShow)
{
    openTheirs();
    document.newProject();
    person.savePanelAnswer = folder.filePath("new.Orv");
    document.saveProject();
    EXPECT_EQ(ProjectFile::read(document.projectPath(), document)->unknown, nullptr);
}

TEST_F(UnknownInShow, ADuplicateHoldsWhatTheArchiveHeld)
{
    openTheirs();
    const qsizetype before = onDisk().size();
    document.copyLayer();
    const QByteArray now = save();
    const Project project = ProjectFile::decode(now, document).value();
    ASSERT_EQ(project.layers.size(), 2U);
    for (const LayerPointer &layer : project.layers)
        EXPECT_EQ(layer->unknownContent()->entries().size(), 1U);
    EXPECT_EQ(now.count("truss 7"), 1); // equal texts are written once
    EXPECT_LT(now.size(), 2 * before);
    EXPECT_TRUE(selected()->copyWithZone()->unknownContent() == nullptr);
}

TEST_F(UnknownInShow, ADuplicateRefersToWhatItsOriginalRefersTo)
{
    showLayers({"first", "second"});
    openWithSibling();
    document.copyLayer();
    ASSERT_EQ(labels(), "first, first Copy, second");
    const ArchiveNodes archive = parsedArchive(save());
    EXPECT_EQ(siblingOf(archive, layersOf(archive), 0), 2);
    EXPECT_EQ(siblingOf(archive, layersOf(archive), 1), 2);

    stack.undo();
    stack.redo();
    document.arraycontroller().removeObjectAtArrangedObjectIndex(0);
    const ArchiveNodes later = parsedArchive(save());
    EXPECT_EQ(siblingOf(later, layersOf(later), 0), 1);
}

TEST_F(UnknownInShow, ADuplicateTakesNoReferenceFromItsOriginal)
{
    showLayers({"first", "second"});
    openWithSibling();
    document.keepAsPresets();
    document.arraycontroller().setSelectionIndex(1);
    document.keepAsPresets();
    document.arraycontroller().setSelectionIndex(0);
    document.insertPreset(0); // a copy of the second, above it
    ASSERT_EQ(labels(), "second, first, second");
    const ArchiveNodes archive = parsedArchive(save());
    EXPECT_EQ(siblingOf(archive, layersOf(archive), 1), 2);
}

TEST_F(UnknownInShow, CopiesThatAreMadeTogetherReferToEachOther)
{
    showLayers({"first", "second"});
    openWithSibling();
    document.arraycontroller().setSelectionIndexes({0, 1}, 0);
    document.keepAsPresets();
    const ArchiveNodes archive = parsedArchive(PresetLibrary::encode(document.presetScreensArray()).value());
    EXPECT_EQ(siblingOf(archive, plist_dict_get_item(rootEntry(archive), "NS.objects"), 0), 1);
}

TEST_F(UnknownInShow, IsKeptByARecoveryCopy)
{
    openTheirs();
    const QString copies = folder.filePath("copies");
    {
        LWAppDelegate lost(person, copies);
        lost.applicationDidFinishLaunching();
        lost.openProjectPre(path);
        lost.setValue(5, "arrangedObjects.xpoint");
    }
    LWAppDelegate next(person, copies);
    next.applicationDidFinishLaunching();
    next.recover(next.recoverable().at(0));
    next.setValue(0, "arrangedObjects.xpoint");
    const QByteArray before = onDisk();
    next.saveAnyway();
    EXPECT_EQ(onDisk(), before);
}

TEST_F(UnknownInShow, AForeignValueUnderOurKeyComesBack)
{
    person.savePanelAnswer = path;
    document.saveProject();
    const qsizetype ours = onDisk().size();
    const ArchiveNodes archive = parsedArchive(onDisk());
    plist_t layer = tableEntry(archive, plist_array_get_item(layersOf(archive), 0));
    plist_dict_set_item(layer, "id", plist_new_uint(4711));
    plist_dict_set_item(layer, "showcurrent", plist_new_uint(7));
    write(archive);
    document.openProjectPre(path);
    ASSERT_EQ(person.statuses.last(), "show.Orv holds values that this version does not know; they are kept.");

    const ArchiveNodes again = parsedArchive(save());
    EXPECT_GT(onDisk().size(), ours);
    plist_t kept = tableEntry(again, plist_array_get_item(layersOf(again), 0));
    uint64_t number = 0;
    plist_get_uint_val(plist_dict_get_item(kept, "id"), &number);
    EXPECT_EQ(number, 4711U);
    plist_get_uint_val(plist_dict_get_item(kept, "showcurrent"), &number);
    EXPECT_EQ(number, 7U);

    document.setValue(true, "arrangedObjects.showCurrent"); // ours takes the key
    EXPECT_TRUE(ProjectFile::decode(save(), document).value().layers[0]->showCurrent());
}

TEST_F(UnknownInShow, AnIdWithoutLettersComesBack)
{
    selected()->setValue("id", QString(""));
    person.savePanelAnswer = path;
    document.saveProject();
    document.openProjectPre(path);
    const Project project = ProjectFile::decode(save(), document).value();
    EXPECT_TRUE(project.layers[0]->value("id").toString().isEmpty());
    EXPECT_FALSE(project.layers[0]->value("id").toString().isNull());
    EXPECT_FALSE(UnknownValues::areIn(project));
}

TEST_F(UnknownInShow, OfANewerTextIsToldWhenItIsOpenedAndWhenItIsSaved)
{
    QFile file(folder.filePath("show.json"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"format": 3, "layers": [{"class": "LWScreen", "bend": 1}]})");
    file.close();
    document.openProjectPre(file.fileName());
    EXPECT_EQ(person.statuses.last(),
              "show.json holds values that this version does not know; a project file does not keep them.");

    person.savePanelAnswer = path;
    document.saveProject();
    EXPECT_EQ(person.statuses.last(),
              "Saved show.Orv; values of the show that this version does not know are left out");
}

TEST_F(UnknownInShow, IsNotThereInAShowOfThisVersion)
{
    person.savePanelAnswer = path;
    document.saveProject();
    const Project project = ProjectFile::read(path, document).value();
    EXPECT_FALSE(UnknownValues::areIn(project));
    person.statuses.clear();
    document.openProjectPre(path);
    EXPECT_TRUE(person.statuses.isEmpty());
}
