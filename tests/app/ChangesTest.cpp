#include "formats/ProjectFile.h"
#include "still/LWStill.h"
#include "tests/app/UndoFixture.h"
#include "tests/formats/SampleProject.h"

namespace {
/// What an edit costs those who show the document.
class Changes : public UndoFixture
{
protected:
    Changes()
    {
        waitForRedraws();
        compose();
        waitForRedraws();
        composed.clear();
        changed.clear();
    }
};
} // namespace

TEST_F(Changes, AKeyInANumberIsOneCompositionAndToldOnce)
{
    const quint64 revision = document.revision();
    edit("col", 9);
    EXPECT_EQ(composed.size(), 1);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(document.revision(), revision + 1);
    waitForRedraws();
    EXPECT_EQ(composed.size(), 1);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Changes, AClickCostsOnceAndItsReleaseNothing)
{
    selected()->onImageClick(10, 10);
    document.update();
    EXPECT_EQ(composed.size(), 1);
    EXPECT_EQ(changed.size(), 1);
    const qint64 drawn = selected()->thumbnail().cacheKey();
    waitForRedraws();
    document.finishEdit("switch panel");
    EXPECT_EQ(stack.undoText(), "switch panel");
    EXPECT_EQ(composed.size(), 1);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(selected()->thumbnail().cacheKey(), drawn);
}

TEST_F(Changes, AnotherSelectionIsToldOnce)
{
    document.AddScreen();
    waitForRedraws();
    changed.clear();
    document.arraycontroller().setSelectionIndex(0);
    EXPECT_EQ(changed.size(), 1);
    document.arraycontroller().setSelectionIndex(0);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Changes, WhatComesInIsToldOnceWithWhatItSelects)
{
    document.AddScreen();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(composed.size(), 1);
}

TEST_F(Changes, OpeningIsToldOnce)
{
    const QString path = folder.filePath("sample.Orv");
    ASSERT_TRUE(ProjectFile::write(path, sampleProject(document)));
    document.openProjectPre(path);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(composed.size(), 1);
    waitForRedraws();
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Changes, ARefusedProjectIsNotTold)
{
    document.openProjectPre("/nowhere/show.Orv");
    EXPECT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(changed.size(), 0);
    EXPECT_EQ(composed.size(), 0);
}

TEST_F(Changes, UndoAndRedoAreToldOnceEach)
{
    edit("col", 9);
    waitForRedraws();
    changed.clear();
    stack.undo();
    EXPECT_EQ(changed.size(), 1);
    stack.redo();
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(Changes, AWholeShowIsTheSameByValue)
{
    edit("col", 9);
    edit("col", 8);
    EXPECT_EQ(changed.size(), 2);
    const quint64 revision = document.revision();
    document.update();
    waitForRedraws();
    EXPECT_EQ(document.revision(), revision);
}

TEST_F(Changes, ThePictureOfTheSameFileIsToldAgain)
{
    const QString path = pictureFile("a.png", {4, 3}, Qt::red);
    document.arraycontroller().setLayers({LWStill::initWithimage(document, QImage())}, {0});
    document.finishEdit("setting");
    person.openPanelAnswer = path;
    document.choosePicture();
    waitForRedraws();
    changed.clear();
    pictureFile("a.png", {8, 6}, Qt::blue);
    document.choosePicture();
    EXPECT_EQ(selected()->thumbnail().size(), QSize(8, 6));
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Changes, ASelectionIsToldWhateverHappenedBefore)
{
    document.AddScreen();
    waitForRedraws();
    changed.clear();
    selected()->setPanelWidth(7); // nobody tells
    document.arraycontroller().setSelectionIndex(0);
    QCoreApplication::processEvents();
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(Changes, AnotherViewOfAPictureWritesNothing)
{
    const auto still = LWStill::initWithimage(document, QImage(9, 9, QImage::Format_RGB32));
    still->setPanelWidth(200);
    document.arraycontroller().setLayers({still, LWStill::initWithimage(document, QImage())}, {1});
    document.finishEdit("setting");
    waitForRedraws();
    document.arraycontroller().setSelectionIndex(0);
    const LayerRecordPointer before = still->record();
    person.canvasFrame = {960, 540};
    still->placeMarker();
    EXPECT_EQ(still->record(), before);
    EXPECT_EQ(still->screenSizeWidth(), 9);
    EXPECT_EQ(still->marker().rectangle.width(), 9 * still->calculateCoeff().coefficient);
}
