#include "still/LWStill.h"
#include "tests/app/DocumentFixture.h"
#include "tests/app/LayeredFile.h"
#include "tests/base/FullDisk.h"
#include "tests/base/LogLines.h"

#include <QDir>

namespace {
/// The export of the document as a layered file.
class LWAppDelegatePsd : public DocumentFixture
{
protected:
    QString files() const { return QDir(folder.path()).entryList(QDir::Files, QDir::Name).join(' '); }

    LayerPointer nameless() { return solidScreen(Colour{0, 1, 0, 1}, QRect(3, 2, 40, 30)); }
};
} // namespace

TEST_F(LWAppDelegatePsd, TheExtensionIsAppendedToWhateverWasTyped)
{
    person.savePanelAnswer = folder.filePath("a");
    document.savePSD();
    person.savePanelAnswer = folder.filePath("a.psd");
    document.savePSD();

    EXPECT_EQ(files(), "a.psd a.psd.psd");
    EXPECT_EQ(person.statuses, QStringList({"Exported a.psd", "Exported a.psd.psd"}));
    EXPECT_TRUE(person.failures.isEmpty());
}

TEST_F(LWAppDelegatePsd, TheFileHasTheLayersAtTheirPlaces)
{
    document.setOutputWidth(101);
    document.setOutputHeight(67);
    setLayers({nameless()});
    person.savePanelAnswer = folder.filePath("wall");

    document.savePSD();

    const LayeredFile file = LayeredFile::readFrom(folder.filePath("wall.psd"));
    EXPECT_EQ(file.size, QSize(101, 67));
    ASSERT_EQ(file.names(), QStringList{"Untitled 1"});
    EXPECT_EQ(file.layers[0].picture.pixelColor(3, 2), QColor(0, 255, 0));
    EXPECT_EQ(file.layers[0].picture.pixelColor(42, 31), QColor(0, 255, 0));
    EXPECT_EQ(file.layers[0].picture.pixelColor(2, 2).alpha(), 0);
    EXPECT_EQ(file.layers[0].picture.pixelColor(43, 31).alpha(), 0);
}

TEST_F(LWAppDelegatePsd, TheCounterGoesOnFromExportToExport)
{
    person.savePanelAnswer = folder.filePath("wall");
    document.savePSD(); // counts "Layer 0"
    setLayers({selected(), nameless()});
    const qsizetype changes = changed.size();

    document.savePSD();

    EXPECT_EQ(document.allScreensArray()[1]->label(), "Untitled 2");
    EXPECT_EQ(LayeredFile::readFrom(folder.filePath("wall.psd")).names(), QStringList({"Untitled 2", "Layer 0"}));
    EXPECT_EQ(changed.size(), changes + 1);
}

TEST_F(LWAppDelegatePsd, ACancelledPanelDoesNothing)
{
    setLayers({nameless()});

    document.savePSD();

    EXPECT_EQ(files(), QString());
    EXPECT_EQ(selected()->label(), QString());
    EXPECT_TRUE(person.progress.isEmpty());
    EXPECT_TRUE(person.statuses.isEmpty());
}

TEST_F(LWAppDelegatePsd, AFailureGoesToTheLogAndTheStatusLine)
{
    person.savePanelAnswer = folder.filePath("nowhere/wall");
    const LogLines log;

    document.savePSD();

    const QString reason = folder.filePath("nowhere/wall.psd") + ": cannot be written: " + reasonOfNoFolder();
    EXPECT_EQ(log.lines(), QStringList{"There was an error writing the PSD: " + reason});
    EXPECT_EQ(person.failures, QStringList{"Cannot export " + reason});
    EXPECT_TRUE(person.statuses.isEmpty());
    EXPECT_EQ(person.progress.last(), 1);
}

TEST_F(LWAppDelegatePsd, ADocumentThatShowsNothingIsNotWritten)
{
    selected()->setXpoint(1920);
    person.savePanelAnswer = folder.filePath("wall");
    const LogLines log;

    document.savePSD();

    const QString reason =
        folder.filePath("wall.psd") + ": No visible layers in the document; put a layer with a picture on the output";
    EXPECT_EQ(log.lines(), QStringList{"There was an error writing the PSD: " + reason});
    EXPECT_EQ(person.failures, QStringList{"Cannot export " + reason});
    EXPECT_EQ(files(), QString());
}

TEST_F(LWAppDelegatePsd, AnImpossibleSizeIsToldBeforeThePanel)
{
    document.setOutputWidth(30'001);
    person.savePanelAnswer = folder.filePath("wall");
    const LogLines log;

    document.savePSD();

    EXPECT_EQ(person.timesAskedWhereToSave, 0);
    EXPECT_EQ(person.failures, QStringList{"Cannot export an output of 30001 x 1080 pixels: a PSD has 1 to "
                                           "30000 on a side; change the output's size"});
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_EQ(files(), QString());
}

TEST_F(LWAppDelegatePsd, WhatTheFileHasOtherwiseIsTold)
{
    QImage picture(4, 3, QImage::Format_RGB32);
    picture.fill(Qt::yellow);
    const auto logo = LWStill::initWithimage(document, picture);
    logo->setLabel("LOGO");
    logo->setPanelWidth(8);
    logo->drawInRect();
    const auto gone = LWStill::initWithimage(document, {});
    gone->setLabel("GONE");
    gone->setVisible(false);
    setLayers({logo, gone, nameless()});
    person.savePanelAnswer = folder.filePath("wall");

    document.savePSD();

    EXPECT_EQ(person.statuses,
              QStringList{"Exported wall.psd. LOGO went in at its own size, 4 x 3; on the output it is "
                          "8 x 3. GONE is left out: it names no file"});
}

TEST_F(LWAppDelegatePsd, ProgressIsShownToItsEnd)
{
    person.savePanelAnswer = folder.filePath("wall");

    document.savePSD();

    ASSERT_GT(person.progress.size(), 2);
    EXPECT_EQ(person.progress.first(), 0);
    EXPECT_EQ(person.progress.last(), 1);
    EXPECT_EQ(person.progress.count(1), 1);
    EXPECT_EQ(person.progressTitle, "Exporting wall.psd");
}

TEST_F(LWAppDelegatePsd, CancellingWritesNothingAndIsNoError)
{
    person.savePanelAnswer = folder.filePath("wall");
    person.cancelsFrom = 0.3;
    const LogLines log;

    document.savePSD();

    EXPECT_EQ(files(), QString());
    EXPECT_EQ(log.lines(), QStringList());
    EXPECT_TRUE(person.failures.isEmpty());
    EXPECT_EQ(person.statuses, QStringList{"Cancelled the export of wall.psd"});
    EXPECT_EQ(person.progress.last(), 1);
}
