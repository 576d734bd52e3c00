#include "tests/app/LayeredFile.h"
#include "tests/cli/CommandRun.h"

#include <QDir>

namespace {
/// `convert` to layered files.
class ConvertLayeredTest : public CommandTest
{};
} // namespace

TEST_F(ConvertLayeredTest, EachLayerIsOneOfTheFileAndStandsAtItsPlace)
{
    const QString input = show(plainWall(R"("label": "Top", "visible": false)") + ", " + plainWall());

    const Outcome outcome = runCommand({"convert", input, path("out.psd")});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, path("out.psd") + '\n');
    EXPECT_EQ(outcome.err, QString());
    EXPECT_EQ(names(), QStringList({"out.psd", "show.json"}));
    const LayeredFile file = LayeredFile::read(bytes("out.psd"));
    EXPECT_EQ(file.size, QSize(40, 30));
    EXPECT_EQ(file.names(), QStringList({"Untitled 1", "Top"}));
    EXPECT_EQ(file.opacities(), QList<int>({255, 0}));
    EXPECT_EQ(file.layers[0].picture.pixelColor(5, 5), QColor(255, 0, 0));
    EXPECT_EQ(file.layers[0].picture.pixelColor(24, 14), QColor(0, 0, 255));
    EXPECT_EQ(file.layers[0].picture.pixelColor(4, 5).alpha(), 0);
}

TEST_F(ConvertLayeredTest, OtherOutputsHoldTheProjectAsItWasRead)
{
    const QString input = show(plainWall());

    ASSERT_EQ(runCommand({"convert", input, path("a.json"), path("out.psd"), path("b.json")}).status, 0);

    EXPECT_EQ(bytes("b.json"), bytes("a.json"));
    EXPECT_FALSE(bytes("b.json").contains("Untitled"));
}

TEST_F(ConvertLayeredTest, CountsFromNoughtForEachFile)
{
    const QString input = show(plainWall());

    ASSERT_EQ(runCommand({"convert", input, path("a.PSD"), path("b.psd")}).status, 0);

    EXPECT_EQ(bytes("b.psd"), bytes("a.PSD"));
}

TEST_F(ConvertLayeredTest, SettingsOfPicturesDoNotChangeIt)
{
    const QString input = show(plainWall() + ", " + plainWall());
    ASSERT_EQ(runCommand({"convert", input, path("plain.psd")}).status, 0);

    const Outcome outcome = runCommand({"convert", input, path("a.png"), path("given.psd"), "--layer", "0",
                                        "--background", "#ff00ff", "--edge", "#00ff00"});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(bytes("given.psd"), bytes("plain.psd"));
}

TEST_F(ConvertLayeredTest, OneLayerAloneNeedsAPicture)
{
    const Outcome outcome = runCommand({"convert", show(plainWall()), path("out.psd"), "--layer", "0"});

    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.err.contains("--layer concerns .png outputs, and there is none")) << qPrintable(outcome.err);
    EXPECT_EQ(names(), QStringList{"show.json"});
}

TEST_F(ConvertLayeredTest, AMissingPictureIsTold)
{
    const QByteArray still = R"({"class": "LWStill", "label": "Logo", "ImageURL": "file:///no/such/logo.png"})";
    const QString input = show(still + ", " + plainWall());
    const QString notice = input + ": layer 0 has no picture: \"file:///no/such/logo.png\" is missing or no picture\n";

    EXPECT_EQ(runCommand({"convert", input, path("out.psd")}).err, notice);
    EXPECT_EQ(LayeredFile::read(bytes("out.psd")).names(), QStringList{"Untitled 1"});
    // The picture of one layer does not miss it, the layered file beside it does.
    EXPECT_EQ(runCommand({"convert", input, path("a.png"), "--layer", "1"}).err, QString());
    EXPECT_EQ(runCommand({"convert", input, path("a.png"), path("out.psd"), "--layer", "1"}).err, notice);
}

TEST_F(ConvertLayeredTest, AMissingPictureOfAHiddenLayerIsTold)
{
    const QByteArray still = R"({"class": "LWStill", "ImageURL": "file:///no/such/logo.png", "visible": false})";
    const QString input = show(still + ", " + plainWall());

    EXPECT_EQ(runCommand({"convert", input, path("out.psd")}).err,
              input + ": layer 0 has no picture: \"file:///no/such/logo.png\" is missing or no picture\n");
    EXPECT_EQ(runCommand({"convert", input, path("a.png")}).err, QString());
}

TEST_F(ConvertLayeredTest, APictureThatTheOutputShowsInAnotherSizeIsTold)
{
    QImage logo(4, 3, QImage::Format_RGB32);
    logo.fill(Qt::yellow);
    ASSERT_TRUE(logo.save(path("logo.png")));
    const QString input = show(R"({"class": "LWStill", "label": "LOGO", "ImageURL": "logo.png", "panelWidth": 8,
                                   "panelHeight": 6})");

    const Outcome outcome = runCommand({"convert", input, path("out.psd"), path("out.png")});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, path("out.psd") + ": LOGO went in at its own size, 4 x 3; on the output it is 8 x 6\n");
}

TEST_F(ConvertLayeredTest, AVisibleWallThatIsLostFails)
{
    const Outcome outcome =
        runCommand({"convert", show(R"({"class": "LWScreen", "label": "MAIN", "col": 2000000000, "row": 1,
                                        "panelWidth": 10, "panelHeight": 10})"),
                    path("out.psd")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              path("out.psd") + ": MAIN: 20,000,000,000 x 10 pixels are too large to draw; make the wall smaller\n");
    EXPECT_EQ(names(), QStringList{"show.json"});
}

TEST_F(ConvertLayeredTest, AnOutputLargerThanTheFormatFailsAndLeavesTheOldFile)
{
    const QString input =
        file("wide.json", R"({"format": 1, "OutputWidth": 30001, "OutputHeight": 2, "layers": [)" + plainWall() + "]}");
    file("out.psd", "old");

    const Outcome outcome = runCommand({"convert", input, path("out.psd")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, path("out.psd") + ": an output of 30001 x 2 pixels: a PSD has 1 to 30000 on a side; change "
                                             "the output's size\n");
    EXPECT_EQ(bytes("out.psd"), "old");
}

TEST_F(ConvertLayeredTest, AFolderInItsPlaceFails)
{
    ASSERT_TRUE(QDir(path(".")).mkdir("out.psd"));

    const Outcome outcome = runCommand({"convert", show(plainWall()), path("out.psd")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, path("out.psd") + ": cannot be written: this is a folder or a device, not a file\n");
}

TEST_F(ConvertLayeredTest, ALayeredFileIsOnlyWritten)
{
    const QString input = file("in.psd", "8BPS");

    const Outcome outcome = runCommand({"convert", input, path("out.png")});

    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(outcome.err.contains("a .psd file holds no project and can only be written"))
        << qPrintable(outcome.err);
}

TEST_F(ConvertLayeredTest, TheExamplesHaveAllTheirLayers)
{
    for (const char *const example : {"corporate", "festival", "studio"}) {
        ASSERT_EQ(
            runCommand({"convert", QString(EXAMPLES "%1.json").arg(example), path("out.psd"), path("out.json")}).status,
            0);

        const LayeredFile file = LayeredFile::read(bytes("out.psd"));
        EXPECT_EQ(file.layers.size(), bytes("out.json").count("\"class\"")) << example;
    }
}
