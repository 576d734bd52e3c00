#include "archive/KeyedArchive.h"
#include "formats/ProjectFile.h"
#include "still/LWStill.h"
#include "tests/app/DocumentFixture.h"
#include "tests/formats/SampleProject.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
/// The document's actions on files.
class LWAppDelegateFiles : public DocumentFixture
{
protected:
    QByteArray archive()
    {
        return ProjectFile::encode({document.OutputHeight(), document.OutputWidth(), document.allScreensArray()})
            .value();
    }
    QString sample()
    {
        QString path = folder.filePath("sample.Orv");
        EXPECT_TRUE(ProjectFile::write(path, sampleProject(document)).has_value());
        return path;
    }
    QString damaged()
    {
        QFile file(folder.filePath("damaged.Orv"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(archive().chopped(40)) > 0);
        return file.fileName();
    }
};
} // namespace

TEST_F(LWAppDelegateFiles, OpeningReplacesTheLayersAndTakesTheOutputSize)
{
    person.openPanelAnswer = sample();

    document.openProject();

    EXPECT_EQ(document.OutputWidth(), 3840);
    EXPECT_EQ(document.OutputHeight(), 2160);
    const Project project = sampleProject(document);
    ASSERT_EQ(document.allScreensArray().size(), project.layers.size());
    EXPECT_EQ(archiveText({2160, 3840, document.allScreensArray()}), archiveText(project));
    EXPECT_EQ(document.arraycontroller().selectionIndex(), 0);
    EXPECT_EQ(document.img().size(), QSize(3840, 2160));
    EXPECT_EQ(person.recentDocuments, QStringList{sample()});
    EXPECT_TRUE(person.alerts.isEmpty());
}

TEST_F(LWAppDelegateFiles, OpeningTwiceDoesNotMerge)
{
    person.openPanelAnswer = sample();
    document.openProject();
    const std::size_t count = document.allScreensArray().size();

    document.openProject();

    EXPECT_EQ(document.allScreensArray().size(), count);
}

TEST_F(LWAppDelegateFiles, ACancelledPanelUpdatesAllTheSame)
{
    ASSERT_FALSE(document.shouldUpdate());
    selected()->setXpoint(7);
    const QByteArray before = archive();
    const qsizetype compositions = composed.size();

    document.openProject();

    EXPECT_EQ(composed.size(), compositions + 1);
    EXPECT_EQ(archive(), before);
    EXPECT_TRUE(person.recentDocuments.isEmpty());
}

TEST_F(LWAppDelegateFiles, ADamagedFileIsAnAlertAndChangesNothing)
{
    const QByteArray before = archive();
    person.openPanelAnswer = damaged();

    document.openProject();

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_TRUE(person.alerts[0].message.startsWith("Cannot open " + damaged() + ": "))
        << qPrintable(person.alerts[0].message);
    EXPECT_EQ(person.alerts[0].informativeText, "The document is unchanged.");
    EXPECT_EQ(archive(), before);
    EXPECT_TRUE(person.recentDocuments.isEmpty());
}

TEST_F(LWAppDelegateFiles, AFileThatFailsInItsLastLayerChangesNothing)
{
    auto broken = std::make_shared<ArchiveObject>("LWScreen");
    broken->encodeText("col", "eight");
    const ArchiveValue layers =
        ArchiveValue::list({{std::make_shared<const ArchiveObject>("LWScreen")}, {ArchiveObjectPointer(broken)}});
    QFile file(folder.filePath("odd.Orv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(KeyedArchive::write(ArchiveValue::list({{qint64{5}}, {qint64{5}}, layers})).value());
    file.close();
    const QByteArray before = archive();

    document.openProjectPre(file.fileName());

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message,
              "Cannot open " + file.fileName() + ": layer 1: \"col\" is a text, expected a whole number of 32 bits");
    EXPECT_EQ(archive(), before);
}

TEST_F(LWAppDelegateFiles, AMissingFileIsAnAlert)
{
    document.openProjectPre(folder.filePath("missing.Orv"));

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message, "Cannot open " + folder.filePath("missing.Orv") + ": there is no such file");
}

TEST_F(LWAppDelegateFiles, ShowOrvStaysShowOrv)
{
    person.savePanelAnswer = folder.filePath("show.Orv");
    document.saveProject();
    person.savePanelAnswer = folder.filePath("wall.png");
    document.saveProject();
    person.savePanelAnswer = folder.filePath("stage");
    document.saveProject();

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name).join(' '), "show.Orv stage.Orv wall.png.Orv");
    EXPECT_EQ(person.recentDocuments.size(), 3);
    EXPECT_EQ(person.recentDocuments.at(1), folder.filePath("wall.png.Orv"));
}

TEST_F(LWAppDelegateFiles, WhatWasSavedOpensAgain)
{
    document.setOutputWidth(3840);
    document.setOutputHeight(2160);
    document.setValue(17, "arrangedObjects.panelHeight");
    const QByteArray before = archive();
    person.savePanelAnswer = folder.filePath("show");
    document.saveProject();
    setLayers({});
    document.setOutputWidth(5);

    document.openProjectPre(folder.filePath("show.Orv"));

    EXPECT_EQ(document.OutputWidth(), 3840);
    EXPECT_EQ(document.OutputHeight(), 2160);
    EXPECT_EQ(archive(), before);
}

TEST_F(LWAppDelegateFiles, AnExportShowsTheEditsThatTheGateHasPutOff)
{
    document.setBgColor(NamedColour::black);
    selected()->setRectColor(NamedColour::red);
    selected()->setRectColor2(NamedColour::red);
    document.update();
    document.setValue(QVariant::fromValue(OptionalColour(NamedColour::blue)), "arrangedObjects.rectColor");
    document.setValue(QVariant::fromValue(OptionalColour(NamedColour::blue)), "arrangedObjects.rectColor2");
    ASSERT_FALSE(document.shouldUpdate());
    person.savePanelAnswer = folder.filePath("output");
    document.saveAction();
    EXPECT_EQ(QImage(folder.filePath("output.png")).pixelColor(200, 330), QColor(Qt::blue));
}

TEST_F(LWAppDelegateFiles, ACancelledSavePanelWritesNothing)
{
    document.saveProject();
    document.saveAction();

    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    EXPECT_TRUE(person.alerts.isEmpty());
}

TEST_F(LWAppDelegateFiles, AFailedSaveIsAnAlertAndKeepsTheOldFile)
{
    const QString path = folder.filePath("show.Orv");
    person.savePanelAnswer = path;
    document.saveProject();
    const qint64 size = QFileInfo(path).size();
    document.setOutputWidth(0);
    person.recentDocuments.clear();

    document.saveProject();

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_TRUE(person.alerts[0].message.startsWith("Cannot save " + path + ": "))
        << qPrintable(person.alerts[0].message);
    EXPECT_EQ(person.alerts[0].informativeText, "The document is not saved.");
    EXPECT_EQ(QFileInfo(path).size(), size);
    EXPECT_TRUE(person.recentDocuments.isEmpty());

    document.setOutputWidth(1920);
    person.savePanelAnswer = folder.filePath("nowhere/show.Orv");
    document.saveProject();
    EXPECT_EQ(person.alerts.size(), 2);
}

TEST_F(LWAppDelegateFiles, AFileHandedOverBeforeTheStartIsOpenedByIt)
{
    ScriptedPerson other;
    LWAppDelegate late(other);
    EXPECT_TRUE(late.applicationOpenFile(sample()));
    EXPECT_TRUE(late.allScreensArray().empty());

    late.applicationDidFinishLaunching();

    EXPECT_EQ(late.OutputWidth(), 3840);
    EXPECT_EQ(late.allScreensArray().size(), 6U);
}

TEST_F(LWAppDelegateFiles, AFileHandedOverLaterIsOnlyKept)
{
    const QByteArray before = archive();

    EXPECT_TRUE(document.applicationOpenFile(sample()));

    EXPECT_EQ(document.preOpenFile(), sample());
    EXPECT_EQ(archive(), before);
}

TEST_F(LWAppDelegateFiles, NoPathIsNoFile)
{
    EXPECT_TRUE(document.applicationOpenFile(""));

    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message, "No File Found");
    EXPECT_EQ(person.alerts[0].informativeText, "File Not Found");
    EXPECT_TRUE(document.preOpenFile().isNull());
}

TEST_F(LWAppDelegateFiles, TheOutputIsExportedAsItIs)
{
    person.savePanelAnswer = folder.filePath("wall");
    document.saveAction();
    person.savePanelAnswer = folder.filePath("wall.png");
    document.saveAction();
    person.savePanelAnswer = folder.filePath("wall.Orv");
    document.saveAction();

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name).join(' '), "wall.Orv.png wall.png");
    const QImage exported(folder.filePath("wall.png"));
    EXPECT_EQ(exported.convertToFormat(document.offscreenRep().format()), document.offscreenRep());
    EXPECT_TRUE(person.failures.isEmpty());
    EXPECT_EQ(person.statuses, QStringList({"Exported wall.png", "Exported wall.png", "Exported wall.Orv.png"}));
}

TEST_F(LWAppDelegateFiles, PicturesThatAnExportLeavesOutAreTold)
{
    const auto gone = LWStill::initWithimage(document, {});
    const auto hidden = LWStill::initWithimage(document, {});
    gone->setLabel("GONE");
    hidden->setVisible(false);
    document.arraycontroller().setLayers({gone, hidden}, {0});
    person.savePanelAnswer = folder.filePath("wall");
    document.saveAction();
    EXPECT_EQ(person.statuses, QStringList("Exported wall.png. GONE is left out: it names no file"));
}

TEST_F(LWAppDelegateFiles, AnEnormousFileIsRefusedUnread)
{
    QFile file(folder.filePath("show.Orv"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{1} << 40)); // hours to read
    document.openProjectPre(file.fileName());
    ASSERT_EQ(person.alerts.size(), 1);
    EXPECT_EQ(person.alerts[0].message,
              "Cannot open " + file.fileName() + ": the file has 1.00 TiB; more than 512.00 MiB is not read");
}

TEST_F(LWAppDelegateFiles, AFailedExportIsToldInTheStatusLine)
{
    person.savePanelAnswer = folder.filePath("nowhere/wall.png");

    document.saveAction();

    ASSERT_EQ(person.failures.size(), 1);
    EXPECT_TRUE(person.failures[0].startsWith("Cannot export ")) << qPrintable(person.failures[0]);
    EXPECT_TRUE(person.failures[0].contains("nowhere/wall.png"));
}

TEST_F(LWAppDelegateFiles, EachPanelSaysWhatItIsFor)
{
    document.openProject();
    document.saveProject();
    document.saveAction();
    document.savePSD();
    document.openPresets();
    document.savePresets();
    document.AddImage();
    setLayers({LWStill::initWithimage(document, QImage(2, 2, QImage::Format_RGB32))});
    document.choosePicture();
    EXPECT_EQ(person.panelTitles,
              QStringList({"Open project", "Save project", "Export PNG", "Export PSD", "Open preset library",
                           "Save preset library", "Add image", "Choose picture"}));
}
