#include "formats/ProjectFile.h"
#include "tests/app/DocumentFixture.h"
#include "tests/base/LogLines.h"
#include "tests/output/PictureLayer.h"
#include "tests/output/SamplePictures.h"

#include <QFile>

namespace {
/// Shows with walls that cannot be drawn, and what is drawn to find that out.
class LostWalls : public DocumentFixture
{
protected:
    LayerPointer wall(int columns, int rows, bool isVisible)
    {
        const auto screen = std::make_shared<LWScreen>(document);
        screen->setLabel(isVisible ? "MAIN" : "SIDE");
        screen->setCol(columns);
        screen->setRow(rows);
        screen->setPanelWidth(1);
        screen->setPanelHeight(1);
        screen->setVisible(isVisible);
        return screen;
    }
    /// So many panels that the log tells of the path that is left out, each time that the wall is drawn.
    LayerPointer tellingWall(bool isVisible)
    {
        LayerPointer screen = wall(2000, 2000, isVisible);
        screen->setDrawFlowPath(true);
        return screen;
    }
    void openShow(const std::vector<LayerPointer> &layers)
    {
        const QString path = folder.filePath("show.Orv");
        EXPECT_TRUE(ProjectFile::write(path, {1080, 1920, layers}));
        document.openProjectPre(path);
    }
    static qsizetype timesDrawn(const LogLines &log) { return log.lines().filter("The data path").size(); }

    const QString png = folder.filePath("wall.png");
};
} // namespace

TEST_F(LostWalls, OnesTooLargeAreToldWhenTheShowIsOpened)
{
    openShow({wall(2'000'000'000, 3, true), wall(32'769, 1, false), wall(5, 5, false)});
    EXPECT_EQ(person.failures,
              QStringList{"MAIN: 2,000,000,000 x 3 pixels are too large to draw; make the wall smaller. "
                          "SIDE: 32,769 x 1 pixels are too large to draw; make the wall smaller."});
}

TEST_F(LostWalls, LookingForThemDrawsVisibleOnesOnceAndHiddenOnesNever)
{
    const LogLines log;
    openShow({tellingWall(true), tellingWall(false)});
    EXPECT_EQ(timesDrawn(log), 1);

    person.savePanelAnswer = png;
    document.saveAction();
    EXPECT_EQ(timesDrawn(log), 1);
    EXPECT_EQ(person.statuses, QStringList("Exported wall.png"));

    EXPECT_FALSE(document.arraycontroller().layer(1)->thumbnail().isNull());
    EXPECT_EQ(timesDrawn(log), 2); // the log would have told
}

TEST_F(LostWalls, OnesThatAreHiddenAreNotDrawnForARecovery)
{
    const QString copies = folder.filePath("copies");
    {
        LWAppDelegate ended(person, copies);
        ended.applicationDidFinishLaunching();
        ended.arraycontroller().setLayers({tellingWall(true), tellingWall(false)}, {0});
        ended.finishEdit("Setting");
    }
    LWAppDelegate next(person, copies);
    next.applicationDidFinishLaunching();
    const LogLines log;
    next.recover(next.recoverable().at(0));
    EXPECT_EQ(timesDrawn(log), 1);
}

TEST_F(LostWalls, OneThatWasLostForMemoryIsDrawnAgainForAnExport)
{
    compose();
    const QImage whole = document.offscreenRep().copy();
    selected()->setThumbnail({}); // what a rendering leaves that got no memory
    const qsizetype changes = changed.size();
    person.savePanelAnswer = png;
    document.saveAction();
    EXPECT_EQ(QImage(png).convertToFormat(whole.format()), whole);
    EXPECT_EQ(person.statuses, QStringList("Exported wall.png"));
    EXPECT_EQ(changed.size(), changes + 1);
}

TEST_F(LostWalls, AVisibleOneFailsAnExportAndTheOldFileStays)
{
    QFile old(png);
    ASSERT_TRUE(old.open(QIODevice::ReadWrite) && old.write("old") == 3);
    old.close();
    selected()->setLabel("MAIN");
    selected()->setCol(1'000'000);
    selected()->drawInRect();
    person.savePanelAnswer = png;
    document.saveAction();
    EXPECT_TRUE(person.statuses.isEmpty());
    EXPECT_EQ(person.failures, QStringList("Cannot export " + png +
                                           ": MAIN: 128,000,000 x 640 pixels are too large to draw; make the wall "
                                           "smaller"));
    EXPECT_EQ(old.size(), 3);

    selected()->setVisible(false);
    document.saveAction();
    EXPECT_EQ(person.statuses, QStringList("Exported wall.png"));
}

TEST_F(LostWalls, APictureThatThereIsNoMemoryForFailsAnExportUntilThereIs)
{
    const auto still = std::make_shared<PictureLayer>(document);
    still->setLabel("LOGO");
    still->setThumbnail(unfittable());
    still->setVisible(true);
    still->setScreenSizeWidth(31);
    still->setScreenSizeHeight(17);
    setLayers({still});
    compose();
    person.savePanelAnswer = png;
    document.saveAction();
    EXPECT_EQ(person.failures, QStringList("Cannot export " + png +
                                           ": LOGO: there is not enough memory to show it in 31 x 17 pixels; close "
                                           "other programs or make it smaller"));
    EXPECT_FALSE(QFile::exists(png));

    still->setThumbnail(filled({31, 17}, Qt::blue));
    document.saveAction();
    EXPECT_EQ(person.statuses, QStringList("Exported wall.png"));
    EXPECT_EQ(QImage(png).pixelColor(3, 3), QColor(Qt::blue));
}
