#include "tests/cli/CommandRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
class InfoCommandTest : public CommandTest
{
protected:
    /// The text of a document with these layers.
    QString infoOf(const QByteArray &layers, const QStringList &options = {}) const
    {
        const Outcome outcome = runCommand(QStringList{"info", show(layers)} + options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, QString());
        return outcome.out;
    }
};

QJsonObject parsed(const QString &json)
{
    return QJsonDocument::fromJson(json.toUtf8()).object();
}

QJsonObject festival(const QStringList &options = {})
{
    return parsed(runCommand(QStringList{"info", EXAMPLES "festival.json", "--json"} + options).out);
}

QJsonObject layerNamed(const QJsonObject &document, const QString &label)
{
    for (const auto &layer : document["layers"].toArray()) {
        if (layer.toObject()["label"] == label)
            return layer.toObject();
    }
    return {};
}

QJsonObject ports(int first, int last, int rows, int panels, int pixels)
{
    return {{"first", first}, {"last", last}, {"rows", rows}, {"panels", panels}, {"pixels", pixels}};
}

constexpr double singlePrecision = 1e-4;

/// 4 x 3 panels of 100 x 100, 80000 pixels on a port.
const QByteArray splitWall = R"({"class": "LWScreen", "label": "Main", "col": 4, "row": 3, "panelWidth": 100,
    "panelHeight": 100, "xpoint": 1500, "ypoint": -20, "powerOnCell": 100, "pattern": 2, "pixelLimit": 80000,
    "drawFlowPath": true, "hiddenBoxes": ["0,0", "0,0", "9,9"]})";
} // namespace

TEST_F(InfoCommandTest, TellsAWallForPeople)
{
    EXPECT_EQ(infoOf(splitWall), R"(Output: 40 x 30 pixels
Layers: 1

Layer 0: screen "Main"
  Position   x 1,500, y -20
  Size       400 x 300 pixels
  Panels     4 x 3 of 100 x 100 pixels, 12 in all, 1 of them hidden
  Data path  pattern 2, rows from the bottom left
  Ports      2, limit 80,000 pixels
             port 1: 2 rows, 8 panels, 80,000 pixels
             port 2: 1 row, 4 panels, 40,000 pixels
  Power      1,200 W, 100 W a panel
  Current    10.91 A

Total Power: 10.91Amp (1,200 W at 110 V, 1 phase)
)");
}

TEST_F(InfoCommandTest, TellsAWallForProgramsAlwaysInTheSameOrder)
{
    EXPECT_EQ(infoOf(splitWall, {"--json"}), R"({
  "format": 1,
  "OutputWidth": 40,
  "OutputHeight": 30,
  "voltage": 110,
  "phases": 1,
  "watts": 1200,
  "amperes": 10.909090995788574,
  "layers": [
    {
      "index": 0,
      "class": "LWScreen",
      "label": "Main",
      "visible": true,
      "xpoint": 1500,
      "ypoint": -20,
      "screenSizeWidth": 400,
      "screenSizeHeight": 300,
      "tooLargeToDraw": false,
      "col": 4,
      "row": 3,
      "panelWidth": 100,
      "panelHeight": 100,
      "panels": 12,
      "hiddenPanels": 1,
      "powerOnCell": 100,
      "watts": 1200,
      "amperes": 10.909090995788574,
      "drawFlowPath": true,
      "pattern": 2,
      "pixelLimit": 80000,
      "ports": [
        {"first": 1, "last": 1, "rows": 2, "panels": 8, "pixels": 80000},
        {"first": 2, "last": 2, "rows": 1, "panels": 4, "pixels": 40000}
      ]
    }
  ]
}
)");
}

TEST_F(InfoCommandTest, TellsAStillByItsAddress)
{
    const QByteArray still = R"({"class": "LWStill", "label": "Logo", "visible": false, "panelWidth": 30,
        "panelHeight": 20, "ImageURL": "file:///no/such/logo.png"})";

    EXPECT_TRUE(infoOf(still).contains(R"(
Layer 0: still "Logo", not visible
  Position   x 0, y 0
  Size       30 x 20 pixels
  Picture    "file:///no/such/logo.png"

Total Power: 0.00Amp (0 W at 110 V, 1 phase)
)"));
    const QJsonObject layer = parsed(infoOf(still, {"--json"}))["layers"][0].toObject();
    EXPECT_EQ(layer["class"], "LWStill");
    EXPECT_EQ(layer["ImageURL"], "file:///no/such/logo.png");
    EXPECT_EQ(layer["screenSizeWidth"], 30);
    EXPECT_FALSE(layer.contains("ports"));
}

TEST_F(InfoCommandTest, TellsAChartByItsName)
{
    const QString show = file("chart.json", R"({"format": 2, "OutputWidth": 40, "OutputHeight": 30, "layers": [
        {"class": "LWStill", "panelWidth": 30, "panelHeight": 20, "chart": "ramp range=narrow"}]})");
    EXPECT_TRUE(
        runCommand({"info", show}).out.contains("\n  Size       30 x 20 pixels\n  Chart      \"ramp range=narrow\"\n"));
    const QJsonObject layer = parsed(runCommand({"info", show, "--json"}).out)["layers"][0].toObject();
    EXPECT_EQ(layer["chart"], "ramp range=narrow");
}

TEST_F(InfoCommandTest, AProjectWithoutLayersDrawsNoCurrent)
{
    EXPECT_EQ(infoOf(""), "Output: 40 x 30 pixels\nLayers: 0\n\nTotal Power: 0.00Amp (0 W at 110 V, 1 phase)\n");
    EXPECT_TRUE(infoOf("", {"--json"}).endsWith("  \"amperes\": 0,\n  \"layers\": []\n}\n"));
}

TEST_F(InfoCommandTest, NamesAreQuotedSoThatTheyCannotBreakALine)
{
    const QString info = infoOf(R"({"class": "LWScreen", "label": "A\n\u001b[2J\"Ü"}, {"class": "LWScreen"})");

    EXPECT_TRUE(info.contains("\nLayer 0: screen \"A\\n\\u001b[2J\\\"Ü\"\n"));
    EXPECT_TRUE(info.contains("\nLayer 1: screen without a name\n"));
}

TEST_F(InfoCommandTest, LettersThatTurnTheDirectionAreEscaped)
{
    const QByteArray wall =
        QStringView(u"{\"class\": \"LWScreen\", \"label\": \"A\u202eB\u2066\u200f\u007f שׁ\"}").toUtf8();

    EXPECT_TRUE(infoOf(wall).contains(u"\nLayer 0: screen \"A\\u202eB\\u2066\\u200f\\u007f שׁ\"\n"));
    EXPECT_TRUE(infoOf(wall, {"--json"}).contains(u"\"label\": \"A\\u202eB\\u2066\\u200f\\u007f שׁ\""));
}

TEST_F(InfoCommandTest, FestivalPortsAndPanelsAreThoseWorkedOutByHand)
{
    const QJsonObject show = festival();
    EXPECT_EQ(show["OutputWidth"], 3840);
    EXPECT_EQ(show["OutputHeight"], 2160);

    // A panel has 104 x 104 = 10816 pixels, 60 of them fit 655360; 60 / 24 panels of a row: 2 rows on a port.
    const QJsonObject main = layerNamed(show, "MAIN");
    EXPECT_EQ(main["panels"], 24 * 12);
    EXPECT_EQ(main["hiddenPanels"], 20);
    EXPECT_EQ(main["screenSizeWidth"], 2496);
    EXPECT_EQ(main["screenSizeHeight"], 1248);
    EXPECT_EQ(main["ports"], QJsonArray{ports(1, 6, 2, 48, 519168)});

    EXPECT_EQ(layerNamed(show, "BANNER")["ports"], QJsonArray{ports(1, 1, 2, 48, 519168)});
    EXPECT_EQ(layerNamed(show, "BANNER")["drawFlowPath"], false);

    // 60 / 5 panels of a row: 12 rows on the first port, the other 2 of 14 on the second.
    const QJsonArray imag{ports(1, 1, 12, 60, 648960), ports(2, 2, 2, 10, 108160)};
    EXPECT_EQ(layerNamed(show, "IMAG L")["ports"], imag);
    EXPECT_EQ(layerNamed(show, "IMAG R")["ports"], imag);

    // 128 x 128 = 16384 pixels, 40 panels fit, 6 rows of 6: both rows are less than a full port.
    EXPECT_EQ(layerNamed(show, "DJ BOOTH")["ports"], QJsonArray{ports(1, 1, 2, 12, 196608)});
}

TEST_F(InfoCommandTest, FestivalCurrentsAreThoseWorkedOutByHand)
{
    const QJsonObject show = festival();

    EXPECT_EQ(layerNamed(show, "MAIN")["watts"], 288 * 190);
    EXPECT_NEAR(layerNamed(show, "MAIN")["amperes"].toDouble(), 54720 / 110.0, singlePrecision);
    EXPECT_NEAR(layerNamed(show, "IMAG L")["amperes"].toDouble(), 70 * 190 / 110.0, singlePrecision);
    EXPECT_NEAR(layerNamed(show, "DJ BOOTH")["amperes"].toDouble(), 12 * 160 / 110.0, singlePrecision);
    EXPECT_EQ(show["watts"], 92360);
    EXPECT_NEAR(show["amperes"].toDouble(), 92360 / 110.0, singlePrecision);
    EXPECT_TRUE(runCommand({"info", EXAMPLES "festival.json"})
                    .out.endsWith("\nTotal Power: 839.64Amp (92,360 W at 110 V, 1 phase)\n"));
}

TEST_F(InfoCommandTest, VoltageAndPhasesDivideTheCurrent)
{
    const QJsonObject show = festival({"--voltage", "208", "--phases=3"});

    EXPECT_EQ(show["voltage"], 208);
    EXPECT_EQ(show["phases"], 3);
    EXPECT_NEAR(show["amperes"].toDouble(), 92360 / 624.0, singlePrecision);
    EXPECT_NEAR(layerNamed(show, "MAIN")["amperes"].toDouble(), 54720 / 624.0, singlePrecision);
    EXPECT_TRUE(infoOf(splitWall, {"--voltage=208", "--phases", "3"})
                    .endsWith("\nTotal Power: 1.92Amp (1,200 W at 208 V, 3 phases)\n"));
}

TEST_F(InfoCommandTest, ATieOfTheCurrentGoesToTheEvenDigit)
{
    const QString info = infoOf(plainWall(R"("col": 1, "row": 1, "powerOnCell": 26)"), {"--voltage=208"});

    EXPECT_TRUE(info.contains("\n  Current    0.12 A\n")); // 0.125
    EXPECT_TRUE(info.endsWith("\nTotal Power: 0.12Amp (26 W at 208 V, 1 phase)\n"));
}

TEST_F(InfoCommandTest, JsonHoldsTheCurrentToItsLastBit)
{
    const QString info = infoOf(plainWall(R"("col": 1, "row": 1, "powerOnCell": 300566572)"), {"--json"});

    EXPECT_EQ(info.count("\"amperes\": 2732423.25,\n"), 2); // one bit of single precision is .25 there
}

TEST_F(InfoCommandTest, PathsThatAreNotDrawnHavePortsAllTheSame)
{
    const QString info = infoOf(plainWall(R"("pattern": 5, "pixelLimit": 100)"));

    EXPECT_TRUE(info.contains("  Data path  pattern 5, columns from the top right, not drawn\n"));
    EXPECT_TRUE(info.contains("             ports 1 to 2: 1 column, 1 panel, 100 pixels each\n"));
}

TEST_F(InfoCommandTest, NoPatternMeansNoPorts)
{
    const QString info = infoOf(plainWall(R"("pattern": 8, "drawFlowPath": true)"));

    EXPECT_TRUE(info.contains("  Data path  none, there is no pattern 8\n  Ports      none\n"));
    const QJsonObject layer =
        parsed(infoOf(plainWall(R"("pattern": 8, "drawFlowPath": true)"), {"--json"}))["layers"][0].toObject();
    EXPECT_EQ(layer["drawFlowPath"], false);
    EXPECT_EQ(layer["ports"], QJsonArray());
}

TEST_F(InfoCommandTest, WithoutALimitAllPanelsAreOnOnePort)
{
    EXPECT_TRUE(infoOf(plainWall(R"("row": 3, "pixelLimit": 0)"))
                    .contains("  Ports      1, no limit\n             port 1: 3 rows, 6 panels, 600 pixels\n"));
}

TEST_F(InfoCommandTest, ALimitBelowOneRowIsTold)
{
    EXPECT_TRUE(
        infoOf(plainWall(R"("row": 3, "pixelLimit": 199)"))
            .contains("  Ports      1, limit 199 pixels, too few for one row or column: all panels on one port\n"
                      "             port 1: 3 rows, 6 panels, 600 pixels\n"));
}

namespace {
const QByteArray feeds = R"({"format": 2, "OutputWidth": 3840, "OutputHeight": 2160,
    "processors": [{"name": "A", "model": "MX40 Pro", "card": "other"}],
    "layers": [{"class": "LWScreen", "label": "MAIN", "col": 20, "row": 10, "panelWidth": 128, "panelHeight": 128, "processor": "A", "split": "panels"}]})";
} // namespace

TEST_F(InfoCommandTest, TellsThePortsOfProcessorsForPeople)
{
    const QString text = runCommand({"info", file("feeds.json", feeds)}).out;
    EXPECT_TRUE(text.contains("Processor \"A\": \"MX40 Pro\", 8 bit, 60 Hz\n"
                              "  A1         40 panels, 655,360 pixels of 659,722, \"MAIN\"\n"))
        << qPrintable(text);
    EXPECT_TRUE(text.contains("  A5         40 panels, 655,360 pixels of 659,722, \"MAIN\"\n\nTotal Power"));
    EXPECT_TRUE(text.contains("  Ports      5, A1 to A5, the fullest with 655,360 of 659,722 px\n  Power"));
}

TEST_F(InfoCommandTest, TellsThePortsOfProcessorsForPrograms)
{
    const QJsonObject document = parsed(runCommand({"info", file("feeds.json", feeds), "--json"}).out);
    EXPECT_EQ(document["processors"].toArray().size(), 1);
    EXPECT_EQ(document["processors"][0]["model"], "MX40 Pro");
    const QJsonArray all = document["ports"].toArray();
    ASSERT_EQ(all.size(), 5);
    EXPECT_EQ(all[4].toObject(), (QJsonObject{{"processor", "A"},
                                              {"port", 5},
                                              {"backup", QJsonValue::Null},
                                              {"walls", QJsonArray{"MAIN"}},
                                              {"panels", 40},
                                              {"pixels", 655360},
                                              {"loaded", 655360},
                                              {"limit", 659722},
                                              {"percent", 99.3}}));
    EXPECT_FALSE(festival().contains("processors"));
    EXPECT_FALSE(festival().contains("ports"));
}
