#include "tests/base/FullDisk.h"
#include "tests/cli/CommandRun.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>

#include <grp.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {
/// The program itself, started as on a server: no display, no UTF-8 locale, nobody logged in.
class ProgramTest : public CommandTest
{
protected:
    using Variables = std::initializer_list<std::pair<const char *, const char *>>;

    static Outcome start(const QStringList &arguments, Variables variables = {})
    {
        QProcess process;
        return finished(process, arguments, variables);
    }
    /// As a person whom the system refuses what it refuses: tests may run as root.
    static Outcome startAsNobody(const QStringList &arguments)
    {
        constexpr uid_t nobody = 65534;
        QProcess process;
        process.setChildProcessModifier([] {
            const bool isRoot = geteuid() == 0;
            if (isRoot && (setgroups(0, nullptr) != 0 || setresgid(nobody, nobody, nobody) != 0 ||
                           setresuid(nobody, nobody, nobody) != 0))
                _exit(99);
        });
        return finished(process, arguments, {});
    }
    /// On a machine that has no memory for another thread's stack.
    static Outcome startWithoutThreads(const QStringList &arguments)
    {
        QProcess process;
        process.setChildProcessModifier([] {
            constexpr rlim_t beyondAll = rlim_t{1} << 40;
            const rlimit stack{beyondAll, beyondAll};
            if (setrlimit(RLIMIT_STACK, &stack) != 0)
                _exit(99);
        });
        return finished(process, arguments, {});
    }

private:
    static Outcome finished(QProcess &process, const QStringList &arguments, Variables variables)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "LC_ALL"})
            environment.remove(name);
        environment.insert("LANG", "C");
        for (const auto &[name, value] : variables)
            environment.insert(name, value);
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

    const Outcome faulty = start({"check", show(plainWall(R"("pixelLimit": 1)"))});
    EXPECT_EQ(faulty.status, 1);
    EXPECT_TRUE(faulty.out.endsWith(" [port-over-limit]\n1 error, 0 warnings, 0 notes\n"));
    EXPECT_EQ(faulty.err, QString());

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

TEST_F(ProgramTest, AFullDiskIsOneSentenceForEveryOutput)
{
    const QString input = show(plainWall(R"("col": 40, "row": 40)"));
    const FullDisk disk(64);
    for (const char *name : {"a.png", "a.psd", "a.Orv", "a.json"}) {
        const Outcome outcome = start({"convert", input, path(name)});
        EXPECT_EQ(outcome.status, 1) << name;
        EXPECT_EQ(outcome.err, path(name) + ": cannot be written: File too large\n");
    }
    EXPECT_EQ(names(), QStringList{"show.json"});
}

TEST_F(ProgramTest, WhereTheSystemMakesNoThreadItEndsWithASentence)
{
    const Outcome outcome = startWithoutThreads({"convert", EXAMPLES "touring.json", path("a.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "wallwright: the system has no thread left to draw with; close other programs and try again\n");
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ProgramTest, WithoutThreadsADrawingThatNeedsNoneIsWhole)
{
    const QString input = show(plainWall());
    const Outcome outcome = startWithoutThreads({"convert", input, path("alone.psd")});
    ASSERT_EQ(outcome.status, 0) << qPrintable(outcome.err);
    ASSERT_EQ(runCommand({"convert", input, path("crew.psd")}).status, 0);
    EXPECT_EQ(bytes("alone.psd"), bytes("crew.psd"));
}

TEST_F(ProgramTest, WhatThePersonMayNotDoIsOneSentence)
{
    const QString input = show(plainWall());
    file("locked.Orv", "old");
    const QFile::Permissions none;
    ASSERT_TRUE(QFile::setPermissions(path("locked.Orv"), none));
    ASSERT_TRUE(
        QFile::setPermissions(path("."), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    ASSERT_TRUE(QFile::setPermissions(input, QFile::ReadOwner | QFile::ReadOther));

    EXPECT_EQ(startAsNobody({"info", path("locked.Orv")}).err,
              path("locked.Orv") + ": cannot be read: Permission denied\n");
    EXPECT_EQ(startAsNobody({"convert", input, path("a.png")}).err,
              path("a.png") + ": cannot be written: Permission denied\n");
    EXPECT_EQ(startAsNobody({"convert", input, path("locked.Orv")}).err,
              path("locked.Orv") + ": cannot be written: the file is read-only\n");
    ASSERT_TRUE(QFile::setPermissions(path("."), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_EQ(bytes("locked.Orv"), "old");
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
