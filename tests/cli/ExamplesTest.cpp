#include "cli/CommandLineHost.h"
#include "formats/ProjectText.h"
#include "layer/PortColours.h"
#include "tests/cli/CommandRun.h"

#include <QCryptographicHash>
#include <QDir>
#include <QHash>
#include <QRect>

namespace {
class ExamplesTest : public CommandTest
{
protected:
    static QStringList examples() { return QDir(EXAMPLES).entryList({"*.json"}, QDir::Files, QDir::Name); }
    static QByteArray bytesOf(const QString &example)
    {
        QFile file(EXAMPLES + example);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};
} // namespace

TEST_F(ExamplesTest, ThereAreFourShows)
{
    EXPECT_EQ(examples(), QStringList({"corporate.json", "festival.json", "studio.json", "touring.json"}));
}

TEST_F(ExamplesTest, AreWrittenAsTheProgramWritesThem)
{
    for (const QString &example : examples()) {
        const Outcome outcome = runCommand({"convert", EXAMPLES + example, path("first.json"), path("show.Orv")});
        ASSERT_EQ(outcome.status, 0) << qPrintable(outcome.err);
        ASSERT_EQ(runCommand({"convert", path("show.Orv"), path("second.json")}).status, 0);

        EXPECT_EQ(bytes("first.json"), bytesOf(example)) << qPrintable(example);
        EXPECT_EQ(bytes("second.json"), bytesOf(example)) << qPrintable(example);
    }
}

TEST_F(ExamplesTest, ThreeUseNoAdditionAndAreTheProjectsOfTheFirstVersion)
{
    const QHash<QString, QByteArray> digests{
        {"corporate.json", "683b6c8657c9cd8eaa0c047c2a4ad5a55a5a2a564d07b30ba24b0758b918827e"},
        {"festival.json", "3016ff1ab0485c2ca614a1885eb9a49c999d49e74875eaf5e562ae5149ad1b22"},
        {"studio.json", "b8cf5b0f768f455a6cbf2069f1678e17d61bc8e8be919e23f37fd2a44c49b230"},
    };
    for (const QString &example : digests.keys()) {
        ASSERT_EQ(runCommand({"convert", EXAMPLES + example, path("show.Orv")}).status, 0);
        EXPECT_EQ(QCryptographicHash::hash(bytes("show.Orv"), QCryptographicHash::Sha256).toHex(), digests[example])
            << qPrintable(example);
    }
}

TEST_F(ExamplesTest, InfoOfTheProjectIsInfoOfTheText)
{
    for (const QString &example : examples()) {
        ASSERT_EQ(runCommand({"convert", EXAMPLES + example, path("show.Orv")}).status, 0);

        const Outcome ofText = runCommand({"info", EXAMPLES + example});
        const Outcome ofProject = runCommand({"info", path("show.Orv")});

        EXPECT_EQ(ofText.status, 0);
        EXPECT_FALSE(ofText.out.isEmpty());
        EXPECT_EQ(ofProject.out, ofText.out);
    }
}

TEST_F(ExamplesTest, WallsStandWhollyOnTheOutputAndBesideEachOther)
{
    for (const QString &example : examples()) {
        CommandLineHost host(0, 0, 0);
        const Result<Project> project = ProjectText::read(EXAMPLES + example, host);
        ASSERT_TRUE(project.has_value());

        const QRect output(0, 0, project->outputWidth, project->outputHeight);
        QList<QRect> places;
        for (const LayerPointer &layer : project->layers) {
            const QRect place(layer->xpoint(), layer->ypoint(), layer->screenSizeWidth(), layer->screenSizeHeight());
            EXPECT_TRUE(output.contains(place)) << qPrintable(layer->label());
            for (const QRect &other : places)
                EXPECT_FALSE(place.intersects(other)) << qPrintable(layer->label());
            places.append(place);
        }
    }
}

TEST_F(ExamplesTest, TheFestivalsPictureShowsItsWallsAndTheirHoles)
{
    ASSERT_EQ(runCommand({"convert", EXAMPLES "festival.json", path("out.png")}).status, 0);

    const QImage output = picture("out.png");
    ASSERT_EQ(output.size(), QSize(3840, 2160));
    // The upper right corner of panels, where there is neither label nor path.
    const auto panelColour = [&](int wallX, int wallY, int column, int row) {
        return output.pixelColor(wallX + column * 104 + 90, wallY + row * 104 + 10).name();
    };
    EXPECT_EQ(panelColour(672, 357, 0, 2), "#17396d");
    EXPECT_EQ(panelColour(672, 357, 1, 2), "#1e4b8f");
    EXPECT_EQ(panelColour(672, 357, 3, 2), "#000000");  // hidden: "2,3"
    EXPECT_EQ(panelColour(672, 149, 23, 0), "#b04f18"); // the banner
    EXPECT_EQ(panelColour(76, 149, 0, 13), "#1b7c4e");  // bottom left of the left wall
    EXPECT_EQ(panelColour(3244, 149, 0, 13), "#8a2f57");
    EXPECT_EQ(output.pixelColor(0, 0), QColor(Qt::black));
}

TEST_F(ExamplesTest, TheStudioIsInUltraHighDefinition)
{
    ASSERT_EQ(runCommand({"convert", EXAMPLES "studio.json", path("out.png")}).status, 0);
    EXPECT_EQ(picture("out.png").size(), QSize(3840, 2160));
    ASSERT_EQ(runCommand({"convert", QString(EXAMPLES "studio.json"), path("desk.png"), "--layer", "3"}).status, 0);
    EXPECT_EQ(picture("desk.png").size(), QSize(8 * 192, 2 * 192));
}

TEST_F(ExamplesTest, TheTouringShowHasTwoProcessorsCablesByHandAndALoop)
{
    const Outcome info = runCommand({"info", EXAMPLES "touring.json"});
    EXPECT_TRUE(info.out.contains("A1/A11     32 panels, 524,288 pixels of 659,722, \"MAIN\"")) << qPrintable(info.out);
    EXPECT_TRUE(info.out.contains("B5         8 panels, 131,072 pixels of 617,500, \"DJ BOOTH\""));
    ASSERT_EQ(runCommand({"convert", EXAMPLES "touring.json", path("out.png")}).status, 0);
    const QImage output = picture("out.png");
    EXPECT_EQ(output.pixelColor(896 + 64, 256 + 64), QColor(0, 255, 0));           // the first cable begins
    EXPECT_EQ(output.pixelColor(896 + 64, 256 + 7 * 128 + 64), QColor(255, 0, 0)); // and ends
    EXPECT_EQ(output.pixelColor(896 + 100, 256 + 64), PortColours::of(1).toQColor());
    EXPECT_EQ(output.pixelColor(896 + 7 * 128 + 64, 256 + 7 * 128 + 64), QColor(Qt::black)); // the door
}
