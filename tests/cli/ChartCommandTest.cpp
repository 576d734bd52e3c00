#include "charts/Chart.h"
#include "tests/cli/CommandRun.h"

namespace {
class ChartCommandTest : public CommandTest
{
protected:
    /// The picture that a command writes without a word of complaint.
    QImage chart(const QString &name, const QStringList &options = {}) const
    {
        const Outcome outcome = runCommand(QStringList{"chart", name, path("out.png")} + options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, QString());
        EXPECT_EQ(outcome.out, path("out.png") + "\n");
        return picture("out.png").convertToFormat(QImage::Format_RGB32);
    }
    void expectMisuse(const QStringList &arguments, const QString &what) const
    {
        const Outcome outcome = runCommand(QStringList{"chart"} + arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, QString());
        EXPECT_EQ(outcome.err, "wallwright chart: " + what + "; \"wallwright chart --help\" tells more\n");
        EXPECT_EQ(names(), QStringList());
    }
};
} // namespace

TEST_F(ChartCommandTest, WritesAChartInAnySizeAndRange)
{
    const QImage full = chart("rp219");
    EXPECT_EQ(full.size(), QSize(1920, 1080));
    EXPECT_EQ(full.pixel(240, 0), qRgb(191, 191, 191));
    const QImage narrow = chart("rp219", {"--size", "3840x2160", "--range=narrow"});
    EXPECT_EQ(narrow.size(), QSize(3840, 2160));
    EXPECT_EQ(narrow.pixel(2260, 1800), qRgb(12, 12, 12));
}

TEST_F(ChartCommandTest, WritesAFrameOfAMovingOne)
{
    const QStringList options{"--size", "333x77", "--frame", "90", "--rate", "25", "--start", "20:15:00"};
    ChartShape shape{.size = {333, 77}, .rate = 25};
    shape.options.start = 20 * 3600 + 15 * 60;
    EXPECT_EQ(chart("sync", options), Chart::find("sync")->picture(shape, 90));
}

TEST_F(ChartCommandTest, HeedsWhatAChartOffers)
{
    EXPECT_EQ(chart("field", {"--size=7x3", "--colour=cyan", "--level", "75"}).pixel(6, 2), qRgb(0, 191, 191));
    EXPECT_EQ(chart("uniformity", {"--size=7x3", "--level", "10"}).pixel(6, 2), qRgb(26, 26, 26));
    EXPECT_EQ(chart("steps", {"--size=32x1", "--steps", "32"}).pixel(30, 0), qRgb(247, 247, 247));
    EXPECT_EQ(chart("sweep", {"--size=100x1", "--speed", "16", "--frame", "2"}).pixel(16, 0), qRgb(255, 255, 255));
}

TEST_F(ChartCommandTest, OfEveryNameIsWritten)
{
    const QString wall = show(plainWall());
    for (const Chart &each : Chart::all()) {
        const QImage picture = chart(each.name, {"--show", wall});
        EXPECT_EQ(picture.size(), QSize(40, 30)) << each.name << ": the show's output";
    }
}

TEST_F(ChartCommandTest, TakesPanelsFromAShow)
{
    // 2 x 1 panels of 10 x 10 at (5, 5), one row on a port.
    const QString wall = show(plainWall(R"("pattern": 0, "pixelLimit": 200)"));
    const QImage first = chart("chase", {"--show", wall});
    const QImage second = chart("chase", {"--show", wall, "--frame", "15"});
    EXPECT_NE(first, second);
    for (const QImage &picture : {first, second}) {
        const bool isLeftLit = picture.pixel(5, 5) == qRgb(255, 255, 255);
        const bool isRightLit = picture.pixel(15, 5) == qRgb(255, 255, 255);
        EXPECT_NE(isLeftLit, isRightLit);
        EXPECT_EQ(picture.pixel(4, 4), qRgb(0, 0, 0));
    }
    EXPECT_EQ(chart("frame", {"--show", wall}).pixel(24, 14), qRgb(255, 255, 255)) << "the wall's corner";
    EXPECT_EQ(chart("panels", {"--show", wall, "--size", "16x9"}).size(), QSize(16, 9));
}

TEST_F(ChartCommandTest, ListsAllWithWhatTheyNeed)
{
    const Outcome outcome = runCommand({"chart", "--list"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.startsWith("Rigging\n  panels            Panels: "));
    for (const Chart &each : Chart::all())
        EXPECT_TRUE(outcome.out.contains(QString("\n  %1 ").arg(each.name))) << each.name;
    EXPECT_TRUE(outcome.out.contains("\n  sweep             Sweep to the right: judder, tearing and processors out of "
                                     "step at a seam (moves, --speed)\n"));
    EXPECT_EQ(runCommand({"chart", "--help"}).out.section('\n', 0, 0),
              "Usage: wallwright chart NAME OUTPUT.png [options]");
}

TEST_F(ChartCommandTest, SaysWhatMakesNoSense)
{
    const QString out = path("out.png");
    expectMisuse({}, "give the NAME of a chart and one OUTPUT.png; --list names all charts");
    expectMisuse({"rp219"}, "give the NAME of a chart and one OUTPUT.png; --list names all charts");
    expectMisuse({"rp912", out}, "there is no chart \"rp912\"; \"wallwright chart --list\" names all");
    expectMisuse({"rp219", "out.psd"}, "out.psd: the name must end in .png");
    expectMisuse({"rp219", out, "--steps", "3"}, "the chart \"rp219\" has no --steps");
    for (const char *size : {"3840", "0x5", "-3x5", "1x2x3", "x", "40000x10", "32768x32768", "1.5x2"})
        expectMisuse({"rp219", out, "--size", size},
                     QString("--size expects a width and a height in pixels like 3840x2160, each at most 32768 and "
                             "together 268435456, found \"%1\"")
                         .arg(size));
    expectMisuse({"rp219", out, "--range", "wide"}, "--range expects full or narrow, found \"wide\"");
    expectMisuse({"sync", out, "--rate", "0"}, "--rate expects frames a second from 1 to 1000, found \"0\"");
    expectMisuse({"sync", out, "--rate", "nan"}, "--rate expects frames a second from 1 to 1000, found \"nan\"");
    expectMisuse({"sync", out, "--start", "25:00:00"}, "--start expects a time like 20:15:00, found \"25:00:00\"");
    expectMisuse({"sync", out, "--frame", "-1"}, "--frame expects a whole number from 0 to 2147483647, found \"-1\"");
    expectMisuse({"field", out, "--colour", "pink"},
                 "--colour expects one of white, red, green, blue, cyan, magenta, yellow, black, found \"pink\"");
    expectMisuse({"field", out, "--level", "101"}, "--level expects a whole number from 0 to 100, found \"101\"");
    expectMisuse({"--list", "rp219"}, "--list stands alone");
    expectMisuse({"chase", out}, "the chart \"chase\" needs panels; name the project that has them with --show FILE");
    expectMisuse({"chase", out, "--show", "a.png"},
                 "a.png: a .png file holds no project and can only be written; read a .Orv or .json file");
}

TEST_F(ChartCommandTest, SaysWhatCouldNotBeDone)
{
    const Outcome missing = runCommand({"chart", "chase", path("out.png"), "--show", path("missing.Orv")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(missing.err.startsWith(path("missing.Orv") + ": ")) << qPrintable(missing.err);
    const Outcome empty = runCommand({"chart", "chase", path("out.png"), "--show", show({})});
    EXPECT_EQ(empty.status, 1);
    EXPECT_EQ(empty.err, path("show.json") + ": it has no panels that are on, on a wall that is shown\n");
    const Outcome folder = runCommand({"chart", "rp219", path("none/out.png")});
    EXPECT_EQ(folder.status, 1);
    EXPECT_TRUE(folder.err.startsWith(path("none/out.png") + ": ")) << qPrintable(folder.err);
    EXPECT_FALSE(names().contains("out.png"));
}

TEST_F(ChartCommandTest, SaysWhereTheRangeMakesNoDifference)
{
    const Outcome outcome = runCommand({"chart", "checker-1px", path("out.png"), "--range", "narrow"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "checker-1px: it is drawn alike for either range\n");
}
