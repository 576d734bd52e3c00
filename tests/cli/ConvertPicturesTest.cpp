#include "tests/cli/CommandRun.h"

namespace {
class ConvertPicturesTest : public CommandTest
{
protected:
    /// The picture that `convert` makes of the project at `input` with these options.
    QImage converted(const QString &input, const QStringList &options = {}) const
    {
        const Outcome outcome = runCommand(QStringList{"convert", input, path("out.png")} + options);
        EXPECT_EQ(outcome.status, 0) << qPrintable(outcome.err);
        EXPECT_EQ(outcome.err, QString());
        return picture("out.png");
    }
};

const QColor red(255, 0, 0);
const QColor blue(0, 0, 255);
const QColor black(0, 0, 0);

/// How many pixels of an area are neither of the two colours of the panels, nor black.
int foreignPixels(const QImage &picture, const QRect &area)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            count += colour != red && colour != blue && colour != black;
        }
    }
    return count;
}
} // namespace

TEST_F(ConvertPicturesTest, TheComposedOutputHasEachLayerAtItsPlace)
{
    const QImage output = converted(show(plainWall()));

    ASSERT_EQ(output.size(), QSize(40, 30));
    EXPECT_EQ(output.pixelColor(5, 5), red);
    EXPECT_EQ(output.pixelColor(14, 14), red);
    EXPECT_EQ(output.pixelColor(15, 5), blue);
    EXPECT_EQ(output.pixelColor(24, 14), blue);
    EXPECT_EQ(output.pixelColor(4, 5), black);
    EXPECT_EQ(output.pixelColor(25, 5), black);
    EXPECT_EQ(output.pixelColor(5, 15), black);
    EXPECT_EQ(output.pixelColor(0, 0), black);
}

TEST_F(ConvertPicturesTest, BackgroundFillsAndEdgeOutlinesTheOutput)
{
    const QImage output = converted(show(plainWall()), {"--background", "#123456", "--edge=[0, 1, 0, 1]"});

    EXPECT_EQ(output.pixelColor(1, 1), QColor("#123456"));
    EXPECT_EQ(output.pixelColor(38, 28), QColor("#123456"));
    EXPECT_EQ(output.pixelColor(0, 0), QColor(0, 255, 0));
    EXPECT_EQ(output.pixelColor(39, 15), QColor(0, 255, 0));
    EXPECT_EQ(output.pixelColor(5, 5), red);
}

TEST_F(ConvertPicturesTest, LayersDoNotShowOverATransparentBackground)
{
    const QImage output = converted(show(plainWall()), {"--background", "#00000000", "--edge", "#00000000"});

    EXPECT_EQ(output.pixelColor(5, 5).alpha(), 0);
    EXPECT_EQ(output.pixelColor(1, 1).alpha(), 0);
}

TEST_F(ConvertPicturesTest, ALayerAloneHasItsOwnSizeAndNothingBehindIt)
{
    const QString input =
        show(plainWall(R"("hiddenBoxes": ["0,1"])") + ", " + plainWall(R"("row": 2, "visible": false)"));

    const QImage top = converted(input, {"--layer", "0"});
    ASSERT_EQ(top.size(), QSize(20, 10));
    EXPECT_EQ(top.pixelColor(0, 0), red);
    EXPECT_EQ(top.pixelColor(10, 0).alpha(), 0); // the hole

    const QImage second = converted(input, {"--layer=1", "--background", "#ffffff"});
    ASSERT_EQ(second.size(), QSize(20, 20));
    EXPECT_EQ(second.pixelColor(0, 0), blue);
    EXPECT_EQ(second.pixelColor(0, 10), red);
}

TEST_F(ConvertPicturesTest, CornersChooseWhichCoordinatesAreDrawn)
{
    const QString input =
        show(plainWall(R"("panelWidth": 100, "panelHeight": 100, "XYFontEnable": true, "XYFontSize": 12)"));
    const QRect top(0, 0, 200, 50);
    const QRect bottomLeft(0, 70, 100, 30);
    const QRect bottomRight(100, 70, 100, 30);
    const auto drawn = [&](const QStringList &options) {
        const QImage wall = converted(input, QStringList{"--layer", "0"} + options);
        return QList<bool>{foreignPixels(wall, top) > 20, foreignPixels(wall, bottomLeft) > 20,
                           foreignPixels(wall, bottomRight) > 20};
    };

    EXPECT_EQ(drawn({}), QList<bool>({true, false, false}));
    EXPECT_EQ(drawn({"--corners", "0"}), QList<bool>({true, false, false}));
    EXPECT_EQ(drawn({"--corners", "1"}), QList<bool>({false, true, true}));
    EXPECT_EQ(drawn({"--corners", "2"}), QList<bool>({true, true, true}));
}

TEST_F(ConvertPicturesTest, AWallWithoutPixelsHasNoPicture)
{
    const QString input = show(plainWall(R"("col": 0)"));

    const Outcome outcome = runCommand({"convert", input, path("a.png"), "--layer", "0"});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, path("a.png") + ": layer 0 has no picture: it is 0 x 10 pixels\n");
}

TEST_F(ConvertPicturesTest, AWallOfTwoBillionColumnsHasNoPictureButAProject)
{
    const QString input = show(plainWall(R"("col": 2000000000, "row": 2000000000)"));

    const Outcome alone = runCommand({"convert", input, path("a.png"), "--layer", "0"});
    const Outcome whole = runCommand({"convert", input, path("b.Orv"), path("b.png")});

    EXPECT_EQ(alone.status, 1);
    EXPECT_EQ(alone.err, path("a.png") + ": layer 0 has no picture: 20,000,000,000 x 20,000,000,000 pixels are too "
                                         "large to draw; make the wall smaller\n");
    EXPECT_EQ(whole.status, 1);
    EXPECT_EQ(names(), QStringList({"b.Orv", "show.json"}));
}

TEST_F(ConvertPicturesTest, AnOutputTooLargeToDrawIsRefused)
{
    const QString input = file("huge.json", R"({"format": 1, "OutputWidth": 2000000000, "layers": []})");

    const Outcome outcome = runCommand({"convert", input, path("a.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.startsWith(input + ": "));
    EXPECT_TRUE(outcome.err.contains("2000000000 x 1080 pixels"));
    EXPECT_EQ(names(), QStringList({"huge.json"}));
}

TEST_F(ConvertPicturesTest, AMissingPictureIsToldAndTheRestIsDrawn)
{
    const QByteArray still = R"({"class": "LWStill", "ImageURL": "file:///no/such/logo.png"})";
    const QString input = show(still + ", " + plainWall());

    const Outcome outcome = runCommand({"convert", input, path("a.png")});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, path("a.png") + '\n');
    EXPECT_EQ(outcome.err, input + ": layer 0 has no picture: \"file:///no/such/logo.png\" is missing or no picture\n");
    EXPECT_EQ(picture("a.png").pixelColor(5, 5), red);
}

TEST_F(ConvertPicturesTest, MissingPicturesDoNotMatterToProjects)
{
    const QString input = show(R"({"class": "LWStill", "ImageURL": "file:///no/such/logo.png"})");

    EXPECT_EQ(runCommand({"convert", input, path("a.Orv")}).err, QString());
    EXPECT_EQ(runCommand({"convert", input, path("a.png"), "--layer", "0"}).status, 1);
}

TEST_F(ConvertPicturesTest, StillsAreFoundBesideTheText)
{
    QImage logo(4, 3, QImage::Format_RGB32);
    logo.fill(Qt::yellow);
    ASSERT_TRUE(logo.save(path("logo.png")));
    const QString input = show(R"({"class": "LWStill", "ImageURL": "logo.png", "xpoint": 30, "ypoint": 20})");

    const QImage output = converted(input);

    EXPECT_EQ(output.pixelColor(30, 20), QColor(Qt::yellow));
    EXPECT_EQ(output.pixelColor(33, 22), QColor(Qt::yellow));
    EXPECT_EQ(output.pixelColor(34, 22), black);
    EXPECT_EQ(converted(input, {"--layer", "0"}).size(), QSize(4, 3));
}

TEST_F(ConvertPicturesTest, AChartIsDrawnAtItsSizeByWhateverFileNamesIt)
{
    const auto withChart = [this](const QByteArray &size) {
        return file("chart.json", R"({"format": 2, "OutputWidth": 40, "OutputHeight": 30, "layers": [
            {"class": "LWStill", "chart": "field colour=red", "xpoint": 5, "ypoint": 6)" +
                                      size + "}]}");
    };
    const QString input = withChart(R"(, "panelWidth": 10, "panelHeight": 8)");
    ASSERT_EQ(runCommand({"convert", input, path("chart.Orv")}).status, 0);
    for (const QString &show : {input, path("chart.Orv")}) {
        const QImage output = converted(show);
        EXPECT_EQ(output.pixelColor(5, 6), QColor(Qt::red));
        EXPECT_EQ(output.pixelColor(14, 13), QColor(Qt::red));
        EXPECT_EQ(output.pixelColor(15, 13), black);
        EXPECT_EQ(runCommand({"convert", show, path("chart.psd")}).err, QString());
    }
    EXPECT_EQ(runCommand({"info", withChart({})}).err,
              path("chart.json") + ": layers[0].chart: expected panelWidth and panelHeight beside it\n");
}

TEST_F(ConvertPicturesTest, AVisibleWallThatIsLostFails)
{
    const auto huge = [](const QByteArray &name, const QByteArray &visible) {
        return R"({"class": "LWScreen", "col": 2000000000, "row": 1, "panelWidth": 10, "panelHeight": 10, "label": ")" +
               name + R"(", "visible": )" + visible + '}';
    };
    const QString reason = "20,000,000,000 x 10 pixels are too large to draw; make the wall smaller";
    const Outcome outcome = runCommand(
        {"convert", show(huge("MAIN", "true") + ", " + plainWall() + ", " + huge("SIDE", "true")), path("out.png")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, path("out.png") + ": MAIN: " + reason + ". SIDE: " + reason + '\n');
    EXPECT_EQ(names(), QStringList{"show.json"});

    converted(show(huge("MAIN", "false") + ", " + plainWall()));
}
