#include "cli/CommandLine.h"

#include "tests/cli/CommandRun.h"

#include <QRegularExpression>

namespace {
class CommandLineTest : public CommandTest
{};

/// A wrong usage: status 2, nothing on standard output, and one line of reason.
void expectMisuse(const QStringList &arguments, const QString &line)
{
    const Outcome outcome = runCommand(arguments);

    EXPECT_EQ(outcome.status, 2) << qPrintable(line);
    EXPECT_EQ(outcome.out, QString());
    EXPECT_EQ(outcome.err, line + '\n');
}
} // namespace

TEST_F(CommandLineTest, NothingOrOneFileAsksForTheWindow)
{
    const QString show = file("show.Orv", {});

    EXPECT_TRUE(asksForWindow({}));
    EXPECT_TRUE(asksForWindow({show}));
}

TEST_F(CommandLineTest, VerbsOptionsAndWhatIsNoFileDoNot)
{
    const QString show = file("show.Orv", {});

    EXPECT_FALSE(asksForWindow({"convert"}));
    EXPECT_FALSE(asksForWindow({"info", show}));
    EXPECT_FALSE(asksForWindow({"--version"}));
    EXPECT_FALSE(asksForWindow({"frobnicate"}));
    EXPECT_FALSE(asksForWindow({show, show}));
}

TEST_F(CommandLineTest, HelpNamesEveryVerb)
{
    for (const char *option : {"--help", "-h"}) {
        const Outcome outcome = runCommand({option});

        EXPECT_EQ(outcome.status, 0);
        EXPECT_TRUE(outcome.out.contains("wallwright convert INPUT OUTPUT..."));
        EXPECT_TRUE(outcome.out.contains("wallwright info INPUT"));
        EXPECT_EQ(outcome.err, QString());
    }
}

TEST_F(CommandLineTest, EachVerbHasItsOwnHelpWhateverElseIsGiven)
{
    EXPECT_TRUE(runCommand({"convert", "--help"}).out.startsWith("Usage: wallwright convert INPUT OUTPUT..."));
    EXPECT_TRUE(runCommand({"info", "-h"}).out.startsWith("Usage: wallwright info INPUT"));
    const Outcome outcome = runCommand({"convert", "missing.Orv", "--frobnicate", "--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, QString());
}

TEST_F(CommandLineTest, HelpInFrontOfAVerbIsTheVerbs)
{
    EXPECT_TRUE(runCommand({"--help", "convert"}).out.startsWith("Usage: wallwright convert INPUT OUTPUT..."));
    EXPECT_TRUE(runCommand({"-h", "info"}).out.startsWith("Usage: wallwright info INPUT"));
    EXPECT_EQ(runCommand({"--help", "frobnicate"}).out, runCommand({"--help"}).out);
}

TEST_F(CommandLineTest, TheVersionStandsAlone)
{
    expectMisuse({"--version", "foo"}, R"(wallwright: --version stands alone; "wallwright --help" tells more)");
    expectMisuse({"-v", "a.Orv"}, R"(wallwright: -v stands alone; "wallwright --help" tells more)");
}

TEST_F(CommandLineTest, SettingsOfPicturesNeedAPicture)
{
    for (const char *option : {"--background", "--edge"})
        expectMisuse({"convert", "a.Orv", "b.json", "c.psd", option, "#ff0000"},
                     QString("wallwright convert: %1 concerns .png outputs, and there is none; ").arg(option) +
                         R"("wallwright convert --help" tells more)");
}

TEST_F(CommandLineTest, AnUnknownOptionIsToldAsItWasTyped)
{
    const QString more = R"(; "wallwright convert --help" tells more)";
    expectMisuse({"convert", "a.Orv", "b.png", "-x"}, "wallwright convert: there is no option -x" + more);
    expectMisuse({"convert", "a.Orv", "b.png", "-x=1"}, "wallwright convert: there is no option -x" + more);
    expectMisuse({"convert", "a.Orv", "b.png", "--x"}, "wallwright convert: there is no option --x" + more);
}

TEST_F(CommandLineTest, AMissingFileIsKnownByItsName)
{
    for (const char *name : {"missing.Orv", "missing.json", "./missing"})
        EXPECT_TRUE(namesMissingFile({name})) << name;
    EXPECT_FALSE(namesMissingFile({"frobnicate"}));
    EXPECT_FALSE(namesMissingFile({}));
    EXPECT_FALSE(namesMissingFile({"--./missing"}));
    EXPECT_FALSE(namesMissingFile({"missing.Orv", "other.Orv"}));
    EXPECT_FALSE(namesMissingFile({file("show.Orv", {})}));
}

TEST_F(CommandLineTest, AnArgumentThatIsNotUtf8IsRefused)
{
    EXPECT_EQ(argumentsOf({"Gr\xc3\xb6\xc3\x9f"
                           "e.png"})
                  .value(),
              QStringList{"Größe.png"});
    const Result<QStringList> refused = argumentsOf({"convert", "a.Orv", "caf\xe9.png"});
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().text,
              "wallwright: argument 3, \"caf\uFFFD.png\", is not written in UTF-8; rename the file");
}

TEST_F(CommandLineTest, HelpOfConvertNamesItsOptions)
{
    const QString help = runCommand({"convert", "--help"}).out;

    for (const char *option :
         {"--layer N", "--corners 0|1|2", "--voltage V", "--phases P", "--background COLOUR", "--edge COLOUR"})
        EXPECT_TRUE(help.contains(option)) << option;
}

TEST_F(CommandLineTest, VersionIsNameAndNumber)
{
    const Outcome outcome = runCommand({"--version"});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(QRegularExpression("\\Awallwright \\d+\\.\\d+\\.\\d+\n\\z").match(outcome.out).hasMatch());
}

TEST_F(CommandLineTest, WhatIsNoCommandIsAMisuse)
{
    expectMisuse({"frobnicate"},
                 R"(wallwright: "frobnicate" is neither a command nor a file; "wallwright --help" tells more)");
    expectMisuse({"--frobnicate"}, R"(wallwright: there is no option --frobnicate; "wallwright --help" tells more)");
    const QString show = file("show.Orv", {});
    expectMisuse({show, show}, R"(wallwright: one file can be opened at a time; "wallwright --help" tells more)");
}

TEST_F(CommandLineTest, WhatLooksLikeAFileAndIsNoneIsAFailure)
{
    for (const char *name : {"missing.Orv", "missing.json", "./missing"}) {
        const Outcome outcome = runCommand({name});

        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, QString());
        EXPECT_EQ(outcome.err, QString(name) + ": there is no such file\n");
    }
}

TEST_F(CommandLineTest, ALayerNeedsAPictureToStandIn)
{
    expectMisuse({"convert", "a.Orv", "b.json", "--layer", "0"},
                 "wallwright convert: --layer concerns .png outputs, and there is none; "
                 R"("wallwright convert --help" tells more)");
}

TEST_F(CommandLineTest, TooFewFilesAreAMisuse)
{
    const QString more = R"(; "wallwright convert --help" tells more)";
    expectMisuse({"convert"}, "wallwright convert: give one INPUT and at least one OUTPUT" + more);
    expectMisuse({"convert", "a.Orv"}, "wallwright convert: give one INPUT and at least one OUTPUT" + more);
    expectMisuse({"info"}, R"(wallwright info: give one INPUT; "wallwright info --help" tells more)");
    expectMisuse({"info", "a.Orv", "b.Orv"}, R"(wallwright info: give one INPUT; "wallwright info --help" tells more)");
}

TEST_F(CommandLineTest, UnknownFormatsAreAMisuse)
{
    const QString more = R"(; "wallwright convert --help" tells more)";
    expectMisuse({"convert", "a.txt", "b.png"}, "wallwright convert: a.txt: the name must end in .Orv or .json" + more);
    expectMisuse({"convert", "a.Orv", "b.png", "c"},
                 "wallwright convert: c: the name must end in .Orv, .json, .png, .psd or .csv" + more);
    expectMisuse({"info", ""}, R"(wallwright info: : the name must end in .Orv or .json; )"
                               R"("wallwright info --help" tells more)");
}

TEST_F(CommandLineTest, PicturesCannotBeReadBack)
{
    expectMisuse({"convert", "wall.PNG", "wall.Orv"},
                 "wallwright convert: wall.PNG: a .png file holds no project and can only be written; "
                 R"(read a .Orv or .json file; "wallwright convert --help" tells more)");
    EXPECT_EQ(runCommand({"info", "wall.png"}).status, 2);
}

TEST_F(CommandLineTest, OptionsWithWrongValuesAreAMisuse)
{
    const QStringList files{"convert", "a.Orv", "b.png"};
    const QString more = R"(; "wallwright convert --help" tells more)";

    expectMisuse(files + QStringList{"--corners", "3"},
                 R"(wallwright convert: --corners expects a whole number from 0 to 2, found "3")" + more);
    expectMisuse(files + QStringList{"--layer=-1"},
                 R"(wallwright convert: --layer expects a whole number from 0 to 2147483647, found "-1")" + more);
    expectMisuse(files + QStringList{"--voltage", "230V"},
                 R"(wallwright convert: --voltage expects a whole number from 1 to 2147483647, found "230V")" + more);
    expectMisuse(files + QStringList{"--phases="},
                 R"(wallwright convert: --phases expects a whole number from 1 to 2147483647, found "")" + more);
    expectMisuse(files + QStringList{"--voltage", "0"},
                 R"(wallwright convert: --voltage expects a whole number from 1 to 2147483647, found "0")" + more);
    expectMisuse({"info", "a.Orv", "--phases", "0"},
                 R"(wallwright info: --phases expects a whole number from 1 to 2147483647, found "0"; )"
                 R"("wallwright info --help" tells more)");
    expectMisuse(files + QStringList{"--background", "red"},
                 R"(wallwright convert: --background expected a colour such as "#ff0000", found "red")" + more);
    expectMisuse(files + QStringList{"--edge", "[1, 2]"},
                 "wallwright convert: --edge expected red, green, blue and alpha, found a list of 2" + more);
}

TEST_F(CommandLineTest, UnknownOptionsAndMissingValuesAreAMisuse)
{
    const QString more = R"(; "wallwright convert --help" tells more)";
    expectMisuse({"convert", "a.Orv", "b.png", "--size", "2"}, "wallwright convert: there is no option --size" + more);
    expectMisuse({"convert", "a.Orv", "b.png", "--layer"}, "wallwright convert: missing value after '--layer'" + more);
    expectMisuse({"info", "a.Orv", "--json=1"},
                 R"(wallwright info: unexpected value after '--json'; "wallwright info --help" tells more)");
}

TEST_F(CommandLineTest, ReasonsDoNotTurnTheDirectionOfTheLine)
{
    EXPECT_EQ(runCommand({"info", u"a\u202egpj\u2066.Orv"_qs}).err, "a gpj .Orv: there is no such file\n");
}

TEST_F(CommandLineTest, ReasonsStayOnOneLineWhateverAFileIsCalled)
{
    const Outcome outcome = runCommand({"info", "two\nlines\x1b[2J.Orv"});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, "two lines [2J.Orv: there is no such file\n");
}
