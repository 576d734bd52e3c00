#include "tests/cli/CommandRun.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>

namespace {
/// The program itself, started as on a server: no display, no UTF-8 locale, nobody logged in.
class ProgramTest : public CommandTest
{
protected:
    using Variables = std::initializer_list<std::pair<const char *, const char *>>;

    static Outcome start(const QStringList &arguments, Variables variables = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "LC_ALL"})
            environment.remove(name);
        environment.insert("LANG", "C");
        for (const auto &[name, value] : variables)
            environment.insert(name, value);
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(PROGRAM, arguments);
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
};
} // namespace

TEST_F(ProgramTest, ConvertsWithoutADisplay)
{
    const QString input = show(plainWall(R"("screenFontEnable": true, "sfColor": "#ffffff")"));

    const Outcome outcome = start({"convert", input, path("Größe.png"), "--background", "#102030"});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, path("Größe.png") + '\n');
    EXPECT_EQ(outcome.err, QString());
    EXPECT_EQ(picture("Größe.png").pixelColor(1, 1), QColor("#102030"));
}

TEST_F(ProgramTest, PicturesAreTheSameAsInTheTests)
{
    const QString input = EXAMPLES "corporate.json";
    ASSERT_EQ(start({"convert", input, path("a.png")}).status, 0);
    ASSERT_EQ(runCommand({"convert", input, path("b.png")}).status, 0);

    EXPECT_EQ(QImage(path("a.png")).size(), QSize(1920, 1080));
    EXPECT_EQ(bytes("a.png"), bytes("b.png"));
}

TEST_F(ProgramTest, ExitStatusAndReasonReachTheShell)
{
    const Outcome missing = start({"info", path("none.Orv")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, path("none.Orv") + ": there is no such file\n");

    const Outcome unknown = start({"frobnicate"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err.count('\n'), 1);

    EXPECT_EQ(start({"--version"}).status, 0);
}

TEST_F(ProgramTest, AFailureIsOneLineWhateverQtFindsInAPicture)
{
    const QString plate = file("plate.svg", "<svg><path d='M 0 0 L' stroke='url(#none)'></svg");
    const QString input = show(R"({"class": "LWStill", "ImageURL": ")" + plate.toUtf8() + "\"}");

    const Outcome outcome = start({"convert", input, path("none/a.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.startsWith(path("none/a.png") + ": cannot be written: "));
    EXPECT_EQ(outcome.err.count('\n'), 1) << qPrintable(outcome.err);
}

TEST_F(ProgramTest, QtTakesNoneOfTheArgumentsForItself)
{
    const Outcome outcome = start({"-platform", "xcb", "--help"});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.contains("wallwright convert INPUT OUTPUT..."));
}

TEST_F(ProgramTest, TheWindowNeedsADisplayAndSaysSo)
{
    const Outcome outcome = start({});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "wallwright: there is no display for a window; \"wallwright --help\" tells what works without\n");
}

TEST_F(ProgramTest, ADisplayThatDoesNotAnswerIsOneLine)
{
    const QString noDisplay =
        "wallwright: there is no display for a window; \"wallwright --help\" tells what works without\n";
    const Outcome outcome = start({}, {{"DISPLAY", ":4711"}});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, noDisplay);
    EXPECT_EQ(start({file("show.Orv", {})}, {{"WAYLAND_DISPLAY", "none"}, {"QT_QPA_PLATFORM", "wayland"}}).status, 1);
}

TEST_F(ProgramTest, AMissingFileIsAReasonForAScriptAndAWindowForAPerson)
{
    const Outcome script = start({path("none.Orv")}, {{"QT_QPA_PLATFORM", "offscreen"}});
    EXPECT_EQ(script.status, 1);
    EXPECT_EQ(script.err, path("none.Orv") + ": there is no such file\n");

    QProcessEnvironment desktop = QProcessEnvironment::systemEnvironment();
    desktop.insert("QT_QPA_PLATFORM", "offscreen");
    desktop.insert("XDG_ACTIVATION_TOKEN", "clicked");
    QProcess process;
    process.setProcessEnvironment(desktop);
    process.start(PROGRAM, {path("none.Orv")});
    EXPECT_FALSE(process.waitForFinished(2000)); // it shows its window
    process.kill();
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.readAllStandardOutput(), QByteArray());
}

TEST_F(ProgramTest, ResultsThatCannotBePrintedAreAFailure)
{
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(PROGRAM, {"info", EXAMPLES "festival.json"});
    ASSERT_TRUE(process.waitForFinished());

    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_EQ(process.readAllStandardError(), "standard output: cannot be written\n");
}
