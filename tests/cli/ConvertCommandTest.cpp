#include "cli/ConvertCommand.h"

#include "tests/cli/CommandRun.h"

#include <QDir>
#include <QImage>

namespace {
class ConvertCommandTest : public CommandTest
{};

const QByteArray wallWithEverything = R"("label": "Größe \"A\"", "hiddenBoxes": ["0,1"], "pixelLimit": 100,
    "pattern": 5, "drawFlowPath": true, "drawLabels": true, "labelFontSize": 9, "circleColor": [0.1, 0.2, 0.3, 1])";
} // namespace

TEST_F(ConvertCommandTest, WrittenPathsAreTheOutputInTheirOrder)
{
    const QString input = show(plainWall());
    const QStringList outputs{path("b.Orv"), path("a.png"), path("c.json")};

    const Outcome outcome = runCommand(QStringList{"convert", input} + outputs);

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, outputs.join('\n') + '\n');
    EXPECT_EQ(outcome.err, QString());
    EXPECT_EQ(names(), QStringList({"a.png", "b.Orv", "c.json", "show.json"}));
}

TEST_F(ConvertCommandTest, ProjectAndTextTurnIntoEachOtherWithoutLoss)
{
    const QString input = show(plainWall(wallWithEverything) + ", " + plainWall());

    ASSERT_EQ(runCommand({"convert", input, path("first.json"), path("first.Orv")}).status, 0);
    ASSERT_EQ(runCommand({"convert", path("first.Orv"), path("second.json"), path("second.Orv")}).status, 0);

    EXPECT_TRUE(bytes("first.json").contains("\"label\": \"Größe \\\"A\\\"\""));
    EXPECT_EQ(bytes("second.json"), bytes("first.json"));
    EXPECT_TRUE(bytes("first.Orv").startsWith("bplist00"));
}

TEST_F(ConvertCommandTest, PicturesAreTheSameFromEitherForm)
{
    const QString input = show(plainWall(wallWithEverything));
    ASSERT_EQ(runCommand({"convert", input, path("a.png"), path("show.Orv")}).status, 0);
    ASSERT_EQ(runCommand({"convert", path("show.Orv"), path("b.png")}).status, 0);

    const QImage picture(path("a.png"));
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture, QImage(path("b.png")));
}

TEST_F(ConvertCommandTest, ExtensionsCountInUpperAndLowerCase)
{
    const QString input = show(plainWall());

    ASSERT_EQ(runCommand({"convert", input, path("a.ORV"), path("a.Json"), path("a.PNG")}).status, 0);
    EXPECT_EQ(runCommand({"convert", path("a.ORV"), path("b.orv")}).status, 0);

    EXPECT_EQ(names(), QStringList({"a.Json", "a.ORV", "a.PNG", "b.orv", "show.json"}));
}

TEST_F(ConvertCommandTest, AnOutputMayReplaceTheInput)
{
    const QString input = show(plainWall());

    const Outcome outcome = runCommand({"convert", input, input});

    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(bytes("show.json").contains("\n      \"col\": 2,\n"));
}

TEST_F(ConvertCommandTest, FilesNamedLikeOptionsStandBehindTwoDashes)
{
    show(plainWall());
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(path(".")));
    const Outcome outcome = runCommand({"convert", "--layer", "0", "--", "show.json", "--layer.png", "--help.Orv"});
    ASSERT_TRUE(QDir::setCurrent(before));

    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "--layer.png\n--help.Orv\n");
    EXPECT_EQ(picture("--layer.png").size(), QSize(20, 10));
}

TEST_F(ConvertCommandTest, AMissingInputFailsWithItsName)
{
    const Outcome outcome = runCommand({"convert", path("none.Orv"), path("a.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, QString());
    EXPECT_EQ(outcome.err, path("none.Orv") + ": there is no such file\n");
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ConvertCommandTest, ADamagedInputFailsAndLeavesTheOldOutput)
{
    const QString damaged = file("damaged.Orv", "bplist00 and no more");
    file("a.png", "old");

    const Outcome outcome = runCommand({"convert", damaged, path("a.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.err.startsWith(damaged + ": "));
    EXPECT_EQ(outcome.err.count('\n'), 1);
    EXPECT_EQ(bytes("a.png"), "old");
    EXPECT_EQ(names(), QStringList({"a.png", "damaged.Orv"}));
}

TEST_F(ConvertCommandTest, UnknownNamesAndWrongTypesAreToldWithTheirPlace)
{
    const auto errorOf = [&](const QByteArray &layers) {
        const QString input = show(layers);
        const Outcome outcome = runCommand({"convert", input, path("a.Orv")});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.err.startsWith(input + ": "));
        return outcome.err.mid(input.size() + 2);
    };

    EXPECT_EQ(errorOf(plainWall() + ", " + plainWall(R"("colour": 1)")), "layers[1].colour: unknown name\n");
    EXPECT_EQ(errorOf(plainWall(R"("sfColor": 4)")),
              "layers[0].sfColor: expected a colour such as \"#ff0000\", found a number\n");
    EXPECT_EQ(names(), QStringList({"show.json"}));
}

TEST_F(ConvertCommandTest, TheFirstFailureStopsAndLeavesWhatIsWhole)
{
    const QString input = show(plainWall());
    const QString blocked = path("no/such/folder/b.png");

    const Outcome outcome = runCommand({"convert", input, path("a.png"), blocked, path("c.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, path("a.png") + '\n');
    EXPECT_TRUE(outcome.err.startsWith(blocked + ": cannot be written: "));
    EXPECT_EQ(outcome.err.count('\n'), 1);
    EXPECT_EQ(names(), QStringList({"a.png", "show.json"}));
    EXPECT_EQ(picture("a.png").size(), QSize(40, 30));
}

TEST_F(ConvertCommandTest, AFolderInThePlaceOfAnOutputFails)
{
    const QString input = show(plainWall());
    ASSERT_TRUE(QDir(path(".")).mkdir("a.png"));

    const Outcome outcome = runCommand({"convert", input, path("a.png")});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, QString());
    EXPECT_TRUE(outcome.err.startsWith(path("a.png") + ": "));
    EXPECT_EQ(names(), QStringList({"a.png", "show.json"}));
}

TEST_F(ConvertCommandTest, AnOutputThatCannotBeMadeLeavesTheOldFileWhole)
{
    const QString input = show(plainWall());
    file("a.png", "old");

    const Outcome outcome = runCommand({"convert", input, path("a.png"), "--layer", "1"});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, path("a.png") + ": there is no layer 1; the project has 1, counted from 0\n");
    EXPECT_EQ(bytes("a.png"), "old");
    EXPECT_EQ(names(), QStringList({"a.png", "show.json"}));
}

TEST_F(ConvertCommandTest, SettingsAreThoseOfANewDocumentUnlessGiven)
{
    const Result<ConvertCommand> plain = ConvertCommand::parse({"a.Orv", "b.png"});
    ASSERT_TRUE(plain.has_value());
    EXPECT_EQ(plain->volts, 0);
    EXPECT_EQ(plain->phases, 0);
    EXPECT_EQ(plain->corners, 0);
    EXPECT_EQ(plain->picture.layer, std::nullopt);
    EXPECT_EQ(plain->picture.background, NamedColour::black);
    EXPECT_EQ(plain->picture.edge, NamedColour::black);

    const Result<ConvertCommand> given =
        ConvertCommand::parse({"--voltage", "208", "a.Orv", "--phases=3", "b.png", "c.json", "--layer", "0"});
    ASSERT_TRUE(given.has_value());
    EXPECT_EQ(given->volts, 208);
    EXPECT_EQ(given->phases, 3);
    EXPECT_EQ(given->picture.layer, 0);
    EXPECT_EQ(given->outputs, QStringList({"b.png", "c.json"}));
}
