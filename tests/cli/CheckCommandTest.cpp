#include "cli/CheckReport.h"
#include "cli/CommandLineHost.h"
#include "screen/LWScreen.h"
#include "show/Project.h"
#include "tests/cli/CommandRun.h"

#include <QJsonDocument>
#include <QUrl>

namespace {
class CheckCommandTest : public CommandTest
{
protected:
    Outcome check(const QByteArray &layers, const QStringList &options = {}) const
    {
        Outcome outcome = runCommand(QStringList{"check", show(layers)} + options);
        EXPECT_EQ(outcome.err, QString());
        return outcome;
    }
};

/// 4 x 3 panels of 100 x 100 outside the output, of which no row fits a port.
const QByteArray faulty = R"({"class": "LWScreen", "label": "Main", "col": 4, "row": 3, "panelWidth": 100,
    "panelHeight": 100, "xpoint": 40, "pattern": 2, "pixelLimit": 39999})";
} // namespace

TEST_F(CheckCommandTest, AGoodShowHasNothingToTell)
{
    const Outcome outcome = check(plainWall());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "0 errors, 0 warnings, 0 notes\n");
}

TEST_F(CheckCommandTest, ALineTellsWhereWhatAndByWhichCheck)
{
    const Outcome outcome = check(plainWall() + "," + faulty);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out,
              path("show.json") +
                  ": layer 1 \"Main\": warning: It lies wholly outside the output of 40 × 30 px; change its left and "
                  "top. [outside-output]\n" +
                  path("show.json") +
                  ": layer 1 \"Main\", port 1: error: One row of panels has 40,000 px, a port carries 39,999; raise "
                  "the pixels per port or make the rows shorter. [port-over-limit]\n"
                  "1 error, 1 warning, 0 notes\n");
}

TEST_F(CheckCommandTest, TellsProgramsTheSameAlwaysInTheSameOrder)
{
    const Outcome outcome = check(faulty, {"--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, R"({
  "format": 1,
  "errors": 1,
  "warnings": 1,
  "notes": 0,
  "findings": [
    {
      "check": "outside-output",
      "level": "warning",
      "layer": 0,
      "label": "Main",
      "cell": null,
      "port": null,
      "sentence": "It lies wholly outside the output of 40 × 30 px; change its left and top."
    },
    {
      "check": "port-over-limit",
      "level": "error",
      "layer": 0,
      "label": "Main",
      "cell": null,
      "port": 1,
      "sentence": "One row of panels has 40,000 px, a port carries 39,999; raise the pixels per port or make the rows shorter."
    }
  ]
}
)");
    EXPECT_TRUE(check("", {"--json"}).out.endsWith("  \"notes\": 0,\n  \"findings\": []\n}\n"));
}

TEST_F(CheckCommandTest, WarningsAloneAreNoFailure)
{
    const Outcome outcome = check(plainWall(R"("xpoint": 400)"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.endsWith("\n0 errors, 1 warning, 0 notes\n"));
}

TEST_F(CheckCommandTest, AFileThatOnlyBeginsLikeAPictureIsFoundOut)
{
    const QString half = file("half.png", QByteArray("\x89PNG\r\n\x1a\n", 8));
    const QByteArray address = QUrl::fromLocalFile(half).toEncoded();
    const Outcome outcome =
        check(R"({"class": "LWStill", "panelWidth": 5, "panelHeight": 5, "ImageURL": ")" + address + "\"}");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(outcome.out.contains(": layer 0: warning: The picture " + path("half.png") + " is missing"))
        << qPrintable(outcome.out);
}

TEST_F(CheckCommandTest, NoNameOrPathBreaksALine)
{
    const Outcome outcome =
        check(R"({"class": "LWStill", "label": "A\nB", "ImageURL": "file:///no/x\n\u001b[2J.png"})");
    EXPECT_EQ(outcome.out.count('\n'), 2) << qPrintable(outcome.out);
    EXPECT_FALSE(outcome.out.contains(u'\x1b'));
    EXPECT_TRUE(outcome.out.contains("layer 0 \"A\\nB\": warning: "));
}

TEST_F(CheckCommandTest, TwoBillionColumnsAreToldAtOnce)
{
    const Outcome outcome = check(plainWall(R"("col": 2000000000, "row": 2000000000, "pixelLimit": 1)"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.out.contains("20,000,000,000 x 20,000,000,000 pixels are too large to draw; make the wall "
                                     "smaller. [wall-too-large]\n"));
}

TEST_F(CheckCommandTest, ThePlaceOfAFindingMayBeAPanelOrTheShow)
{
    CommandLineHost host(0, 0, 0);
    const Project project{30, 40, {LWScreen::init(host)}};
    const std::vector<Finding> findings{
        {.check = "a", .level = Finding::Level::Note, .layer = 0, .cell = Cell{4, 3}, .sentence = "Of a panel."},
        {.check = "b", .level = Finding::Level::Note, .sentence = "Of the show."},
    };
    EXPECT_EQ(CheckReport::lines("s.Orv", project, findings), "s.Orv: layer 0, panel E4: note: Of a panel. [a]\n"
                                                              "s.Orv: note: Of the show. [b]\n"
                                                              "0 errors, 0 warnings, 2 notes\n");
    const QJsonDocument json = QJsonDocument::fromJson(CheckReport::json(project, findings).toUtf8());
    EXPECT_EQ(json["findings"][0]["cell"], "3,4");
    EXPECT_TRUE(json["findings"][1]["layer"].isNull());
    EXPECT_EQ(json["notes"], 2);
}

TEST_F(CheckCommandTest, WhatCannotBeReadFailsAsElsewhere)
{
    const Outcome missing = runCommand({"check", path("none.Orv")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.out, QString());
    EXPECT_EQ(missing.err, path("none.Orv") + ": there is no such file\n");
    EXPECT_EQ(runCommand({"check"}).err, "wallwright check: give one INPUT; \"wallwright check --help\" tells more\n");
    EXPECT_EQ(runCommand({"check", "a.png"}).status, 2);
    EXPECT_EQ(runCommand({"check", "a.Orv", "b.Orv"}).status, 2);
    EXPECT_EQ(runCommand({"check", "a.Orv", "--layer", "0"}).status, 2);
}

TEST_F(CheckCommandTest, HelpNamesTheVerb)
{
    EXPECT_TRUE(runCommand({"--help"}).out.contains("wallwright check INPUT"));
    EXPECT_TRUE(runCommand({"check", "--help"}).out.startsWith("Usage: wallwright check INPUT"));
}

TEST_F(CheckCommandTest, TheExamplesAreInOrder)
{
    for (const char *name : {"festival.json", "corporate.json", "studio.json", "touring.json"})
        EXPECT_EQ(runCommand({"check", QString(EXAMPLES) + name}).status, 0) << name;
}
