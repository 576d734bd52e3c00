#include "show/Project.h"
#include "still/LWStill.h"
#include "still/PictureFile.h"
#include "tests/app/ListFixture.h"
#include "tests/base/LogLines.h"
#include "tests/formats/SampleProject.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

namespace {
using Sheet = Person::Sheet;

/// Adding, removing and duplicating layers.
class LWAppDelegateLayers : public ListFixture
{
protected:
    QString pictureFile()
    {
        QImage picture(31, 17, QImage::Format_RGB32);
        picture.fill(Qt::green);
        QString path = folder.filePath("plate.png");
        EXPECT_TRUE(picture.save(path));
        return path;
    }
    QString textFile()
    {
        QFile file(folder.filePath("notes.png"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no picture") == 10);
        return file.fileName();
    }
    LWStill *still(qsizetype row) { return qobject_cast<LWStill *>(document.arraycontroller().layer(row).get()); }
    void removeAll()
    {
        document.arraycontroller().setSelectionIndexes({0, 1});
        document.remove();
    }
};
} // namespace

TEST_F(LWAppDelegateLayers, NewScreensAreNumberedOnAndComeInBehindTheSelectedRow)
{
    EXPECT_EQ(document.screenNumber(), 0);

    document.AddScreen();
    EXPECT_EQ(labels(), "Layer 0, Layer 1");
    document.AddScreen();

    EXPECT_EQ(labels(), "Layer 0, Layer 2, Layer 1"); // adding does not move the place
    EXPECT_EQ(document.screenNumber(), 2);
    EXPECT_EQ(document.selectedRow(), 0);
    EXPECT_EQ(selected()->label(), "Layer 2");
}

TEST_F(LWAppDelegateLayers, TheNumberGoesOnAfterRemovalsAndUndo)
{
    document.AddScreen();
    document.remove();
    document.undoStack().undo();
    document.undoStack().undo();
    EXPECT_EQ(labels(), "Layer 0");

    document.AddScreen();

    EXPECT_EQ(labels(), "Layer 0, Layer 2");
}

TEST_F(LWAppDelegateLayers, ANewScreenIsOneSmallRedPanel)
{
    document.AddScreen();

    const auto screen = std::dynamic_pointer_cast<LWScreen>(selected());
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(screen->row(), 1);
    EXPECT_EQ(screen->col(), 1);
    EXPECT_EQ(screen->panelWidth(), 80);
    EXPECT_EQ(screen->panelHeight(), 80);
    EXPECT_EQ(screen->rectColor(), OptionalColour(NamedColour::red));
    EXPECT_EQ(screen->rectColor2(), OptionalColour(NamedColour::red));
    for (const OptionalColour &colour :
         {screen->boarderColor(), screen->circleColor(), screen->xyColor(), screen->sfColor()})
        EXPECT_EQ(colour, OptionalColour(NamedColour::white));
    EXPECT_EQ(screen->XYFontSize(), 50);
    EXPECT_TRUE(screen->bgEnable());
    EXPECT_TRUE(screen->BoarderEnable());
    EXPECT_TRUE(screen->CircleEnable());
    EXPECT_EQ(screen->xpoint(), 0);
    EXPECT_EQ(screen->ypoint(), 0);
    EXPECT_EQ(screen->hiddenBoxes(), std::optional(QStringList()));
    EXPECT_TRUE(screen->visible());
}

TEST_F(LWAppDelegateLayers, TheAddSheetGoesWhenSomethingIsAddedOrItIsCancelled)
{
    document.add();
    EXPECT_EQ(person.sheets, std::set{Sheet::AddWindow});
    document.CancelAddWindow();
    EXPECT_TRUE(person.sheets.empty());
    EXPECT_EQ(labels(), "Layer 0");

    document.add();
    document.AddScreen();
    EXPECT_TRUE(person.sheets.empty());

    document.add();
    person.openPanelAnswer = pictureFile();
    document.AddImage();
    EXPECT_TRUE(person.sheets.empty());
}

TEST_F(LWAppDelegateLayers, ACancelledPanelAddsNoImageAndLeavesTheSheet)
{
    document.add();

    document.AddImage();

    EXPECT_EQ(labels(), "Layer 0");
    EXPECT_EQ(person.sheets, std::set{Sheet::AddWindow});
    EXPECT_EQ(document.undoStack().count(), 0);
}

TEST_F(LWAppDelegateLayers, AnImageComesInAsAStillOfItsSizeAndFile)
{
    person.openPanelAnswer = pictureFile();
    document.timerupdate();

    document.AddImage();

    ASSERT_EQ(document.allScreensArray().size(), 2U);
    const LWStill *const added = still(1);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->panelWidth(), 31);
    EXPECT_EQ(added->panelHeight(), 17);
    EXPECT_EQ(added->aspectValue(), QSizeF(31, 17));
    EXPECT_EQ(added->ImageURL(), Address::fromLocalFile(pictureFile()));
    EXPECT_FALSE(added->isPictureMissing());
    EXPECT_EQ(document.arraycontroller().selectionIndex(), 1);
    EXPECT_TRUE(person.failures.isEmpty());
    EXPECT_EQ(document.screenNumber(), 0);

    document.arraycontroller().moveObjectAtArrangedObjectIndex(1, 0);
    compose();
    EXPECT_EQ(outputPixel(30, 16), 0xff00ff00U);
}

TEST_F(LWAppDelegateLayers, AFileThatIsNoPictureComesInAsAnEmptyStillAndIsTold)
{
    person.openPanelAnswer = textFile();
    document.add();

    document.AddImage();

    const LWStill *const added = still(1);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->panelWidth(), 0);
    EXPECT_TRUE(added->thumbnail().isNull());
    EXPECT_EQ(added->ImageURL(), Address::fromLocalFile(textFile()));
    EXPECT_TRUE(added->isPictureMissing());
    EXPECT_EQ(person.failures,
              QStringList{"Cannot show " + QFileInfo(textFile()).fileName() + ": it is no picture that can be read."});
    EXPECT_TRUE(person.alerts.isEmpty());
    EXPECT_TRUE(person.sheets.empty());
}

TEST_F(LWAppDelegateLayers, APictureThatIsTooLargeIsToldWithItsReason)
{
    const QString path = folder.filePath("wide.png");
    ASSERT_TRUE(QImage(32769, 1, QImage::Format_RGB32).save(path));
    person.openPanelAnswer = path;
    document.add();
    const QString reason =
        "has more than 32,768 px a side or 268,435,456 px in all; make it smaller and choose it again";

    document.AddImage();
    EXPECT_EQ(person.failures, QStringList{QString("Cannot show %1: it %2.").arg(QFileInfo(path).fileName(), reason)});
    EXPECT_TRUE(still(1)->thumbnail().isNull());
    EXPECT_EQ(still(1)->pictureObstacle(), reason); // the layer tells it, too
    document.choosePicture();
    EXPECT_EQ(person.failures.size(), 2);
    EXPECT_EQ(person.failures.last(), person.failures.first());

    ASSERT_TRUE(QImage(64, 36, QImage::Format_RGB32).save(path));
    document.choosePicture();
    EXPECT_EQ(person.failures.size(), 2);
    EXPECT_EQ(still(1)->panelWidth(), 64); // it had none before
    EXPECT_EQ(still(1)->screenSizeHeight(), 36);
}

TEST_F(LWAppDelegateLayers, APictureThatWasAddedIsTheOneOfItsFile)
{
    person.openPanelAnswer = pictureFile();
    document.add();
    document.AddImage();
    const PictureFile::Loaded again =
        PictureFile::load(person.openPanelAnswer.value(), {.pixels = 0}); // no room for another
    ASSERT_NE(again.picture, nullptr);
    EXPECT_EQ(again.picture->cacheKey(), still(1)->thumbnail().cacheKey());
    document.addImages({person.openPanelAnswer.value()}, std::nullopt);
    EXPECT_EQ(still(1)->thumbnail().cacheKey(), again.picture->cacheKey());
}

TEST_F(LWAppDelegateLayers, ALargePictureThatLeftMakesRoomForOthers)
{
    const auto isHeldAfterRemoving = [&](const QSize &size) {
        const QString path = folder.filePath("large.png");
        EXPECT_TRUE(QImage(size, QImage::Format_Mono).save(path));
        person.openPanelAnswer = path;
        document.add();
        document.AddImage();
        EXPECT_NE(PictureFile::load(path, {.pixels = 0}).picture, nullptr);
        document.remove();
        const bool isHeld = PictureFile::load(path, {.pixels = 0}).picture != nullptr;
        document.undoStack().undo();
        EXPECT_EQ(still(1)->thumbnail().size(), size); // read again
        document.undoStack().redo();
        return isHeld;
    };
    EXPECT_TRUE(isHeldAfterRemoving({64, 64}));       // its file may go
    EXPECT_FALSE(isHeldAfterRemoving({16384, 8193})); // more than 2^27 px
}

TEST_F(LWAppDelegateLayers, MasksAreOnlyLogged)
{
    const QByteArray before = archive();
    const DocumentLogLines log;

    document.AddMask();
    document.AddMask(&document);

    EXPECT_EQ(log.lines(), QStringList({"add mask (null)", "add mask LWAppDelegate"}));
    EXPECT_EQ(archive(), before);
}

TEST_F(LWAppDelegateLayers, TheLastLayerIsNotRemoved)
{
    document.remove();

    EXPECT_EQ(labels(), "Layer 0");
    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message, "List Cannot be empty, Function was cancelled");
    EXPECT_EQ(person.alerts[0].informativeText, "");
}

TEST_F(LWAppDelegateLayers, AllSelectedLayersAreRemovedAndOnlyThose)
{
    showLayers({"a", "b", "c", "d", "e"});
    document.arraycontroller().setSelectionIndexes({4, 1, 2});

    document.remove();

    EXPECT_EQ(labels(), "a, d");
    EXPECT_TRUE(person.alerts.isEmpty());
    document.removeSelectedScreen();
    EXPECT_EQ(labels(), "a, d");
}

TEST_F(LWAppDelegateLayers, TwoOfTwoSelectedLayersAreBothRemoved)
{
    document.AddScreen();

    removeAll();

    EXPECT_TRUE(document.allScreensArray().empty());
    EXPECT_EQ(document.arraycontroller().selectionIndex(), -1);
    EXPECT_TRUE(document.arraycontroller().selectionIndexes().empty());
    EXPECT_TRUE(person.alerts.isEmpty());
}

TEST_F(LWAppDelegateLayers, AnEmptyListStandsEveryAction)
{
    document.AddScreen();
    removeAll();

    compose();
    EXPECT_EQ(outputPixel(5, 5), 0xff000000U);
    EXPECT_EQ(document.powerResult(), "Total Power: 0.00Amp");
    document.remove();
    EXPECT_EQ(person.alerts.size(), 1);
    document.copyLayer();
    document.removeSelectedScreen();
    document.tableViewSelectionDidChange(-1);
    document.tableViewSelectionDidChange(0);
    document.choosePattern(3);
    EXPECT_EQ(document.arraycontroller().mimeData({}), nullptr);
    document.tableViewAcceptDrop(document.arraycontroller(), 0, 0);
    document.tableViewWriteRowsWithIndexes(document.arraycontroller());
    document.tableViewAcceptDrop(document.presetarraycontroller(), 0, 0);
    document.tableViewAcceptDrop(document.arraycontroller(), 0, 0);
    person.savePanelAnswer = folder.filePath("empty");
    document.savePSD();
    document.saveAction();
    QTest::qWait(150);

    EXPECT_TRUE(document.allScreensArray().empty());
    EXPECT_EQ(document.presetScreensArray().size(), 31U);
}

TEST_F(LWAppDelegateLayers, AnEmptyListIsSavedAndOpenedAndTakesNewLayers)
{
    document.AddScreen();
    removeAll();
    person.savePanelAnswer = folder.filePath("empty");
    document.saveProject();
    EXPECT_TRUE(person.alerts.isEmpty());

    document.AddScreen();
    EXPECT_EQ(labels(), "Layer 2"); // the place behind row 0 is beyond the end
    EXPECT_EQ(document.arraycontroller().selectionIndex(), 0);
    document.openProjectPre(folder.filePath("empty.Orv"));

    EXPECT_TRUE(person.alerts.isEmpty());
    EXPECT_TRUE(document.allScreensArray().empty());
    EXPECT_EQ(document.arraycontroller().selectionIndex(), -1);
    EXPECT_EQ(document.powerResult(), "Total Power: 0.00Amp");
}

TEST_F(LWAppDelegateLayers, DuplicatesOfDuplicatesAreNamedSo)
{
    selected()->setLabel("Layer 2");
    const DocumentLogLines log;

    document.copyLayer();
    EXPECT_EQ(labels(), "Layer 2, Layer 2 Copy");
    EXPECT_EQ(selected()->label(), "Layer 2 Copy");
    document.copyLayer();

    EXPECT_EQ(labels(), "Layer 2, Layer 2 Copy, Layer 2 Copy Copy");
    EXPECT_EQ(log.lines(), QStringList({"duplicate layer", "duplicate layer"}));
}

TEST_F(LWAppDelegateLayers, TheDuplicateOfALayerWithoutANameIsNamedCopy)
{
    for (const QString &nameless : {QString(), QString("")}) {
        selected()->setLabel(nameless);
        document.copyLayer();
        EXPECT_EQ(selected()->label(), "Copy");
    }
}

TEST_F(LWAppDelegateLayers, OnlyDuplicatingMovesThePlaceOfNewLayers)
{
    document.copyLayer();
    EXPECT_EQ(document.selectedRow(), 1);
    document.copyLayer();
    EXPECT_EQ(document.selectedRow(), 2);

    document.AddScreen();
    EXPECT_EQ(selected()->label(), "Layer 1");
    EXPECT_EQ(document.arraycontroller().selectionIndex(), 3);
    document.arraycontroller().setSelectionIndex(0);
    document.AddScreen();
    EXPECT_EQ(document.arraycontroller().selectionIndex(), 3);
    document.remove();
    document.tableViewSelectionDidChange(1);
    EXPECT_EQ(document.selectedRow(), 2);
}

TEST_F(LWAppDelegateLayers, APlaceBeyondTheListIsItsEnd)
{
    document.copyLayer();
    document.copyLayer();
    ASSERT_EQ(document.selectedRow(), 2);
    document.arraycontroller().setSelectionIndexes({1, 2});
    document.remove();

    document.copyLayer();

    EXPECT_EQ(labels(), "Layer 0, Layer 0 Copy");
    EXPECT_EQ(document.selectedRow(), 1);
}

TEST_F(LWAppDelegateLayers, ADuplicateHoldsWhatAnArchiveHoldsAndNothingElse)
{
    for (const LayerPointer &source : sampleProject(document).layers) {
        source->setAspectValue({16, 9});
        source->setLabel1Hidden(true);
        source->setLabel3("Caption");

        const LayerPointer copy = document.createCopyOfLayerThroughArch(source);

        ASSERT_NE(copy, nullptr);
        EXPECT_NE(copy, source);
        EXPECT_EQ(copy->className(), source->className());
        EXPECT_EQ(archiveText(*copy), archiveText(*source));
        EXPECT_NE(copy->aspectValue(), QSizeF(16, 9));
        EXPECT_NE(copy->label3(), "Caption");
    }
}

TEST_F(LWAppDelegateLayers, ADuplicateSharesNothingWithItsSource)
{
    document.copyLayer();
    selected()->onImageClick(5, 5);
    selected()->setRectColor(NamedColour::blue);

    const auto source = std::dynamic_pointer_cast<LWScreen>(document.allScreensArray()[0]);
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->hiddenBoxes(), std::optional(QStringList()));
    EXPECT_EQ(source->rectColor(), OptionalColour(NamedColour::red));
    EXPECT_EQ(std::dynamic_pointer_cast<LWScreen>(selected())->hiddenBoxes(), std::optional(QStringList{"0,0"}));
}

TEST_F(LWAppDelegateLayers, ANewPictureStandsInTheMiddleOfTheViewAndKeepsItsRatio)
{
    person.viewMiddle = QPoint(500, 300);
    person.openPanelAnswer = pictureFile(); // 31 x 17
    document.AddImage();
    EXPECT_EQ(QPoint(still(1)->xpoint(), still(1)->ypoint()), QPoint(485, 292));
    EXPECT_TRUE(still(1)->aspectRatio());
    EXPECT_TRUE(still(1)->label().isEmpty()); // its file names it, until somebody does
    EXPECT_TRUE(document.setValue(62, "arrangedObjects.panelWidth"));
    compose();
    EXPECT_EQ(still(1)->panelHeight(), 34);

    document.addImages({pictureFile()});
    EXPECT_EQ(selected()->xpoint(), 485);
    document.addImages({pictureFile()}, QPoint(100, 50));
    EXPECT_EQ(QPoint(selected()->xpoint(), selected()->ypoint()), QPoint(85, 42));
}
