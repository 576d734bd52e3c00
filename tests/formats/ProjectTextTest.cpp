#include "formats/ProjectText.h"

#include "formats/ProjectFile.h"
#include "formats/PropertyText.h"
#include "screen/LWScreen.h"
#include "still/LWStill.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <limits>

namespace {
class ProjectTextTest : public ::testing::Test
{
protected:
    Result<Project> decoded(const QByteArray &json) { return ProjectText::decode(json, folder.path(), host); }
    /// The only layer of a document that says `properties` of it.
    LayerPointer onlyLayer(const QByteArray &className, const QByteArray &properties)
    {
        const Result<Project> project = decoded(document(className, properties));
        EXPECT_TRUE(project.has_value()) << (project ? "" : qPrintable(project.error().text));
        return project ? project->layers.at(0) : LWScreen::init(host);
    }
    QString refusal(const QByteArray &json)
    {
        const Result<Project> project = decoded(json);
        return project ? QString("accepted") : project.error().text;
    }
    QString refusalOf(const QByteArray &properties) { return refusal(document("LWScreen", properties)); }

    static QByteArray document(const QByteArray &className, const QByteArray &properties)
    {
        return R"({"format": 1, "layers": [{"class": ")" + className + "\"" + (properties.isEmpty() ? "" : ", ") +
               properties + "}]}";
    }

    TestHost host;
    QTemporaryDir folder;
};
} // namespace

TEST_F(ProjectTextTest, OnePropertyALineInTheArchivesOrder)
{
    const auto screen = LWScreen::init(host);
    screen->setLabel("Main \"A\"");
    screen->setHiddenBoxes(QStringList{"0,0", "1,2"});
    screen->setRectColor2(NamedColour::orange);

    EXPECT_EQ(ProjectText::encode({1080, 1920, {screen}}), R"({
  "format": 1,
  "OutputWidth": 1920,
  "OutputHeight": 1080,
  "layers": [
    {
      "class": "LWScreen",
      "col": 5,
      "bgEnable": true,
      "BoarderEnable": true,
      "panelWidth": 48,
      "panelHeight": 48,
      "row": 5,
      "rectColor": "#ff0000",
      "rectColor2": [1,0.5,0,1],
      "visible": true,
      "screenSizeHeight": 240,
      "screenSizeWidth": 240,
      "xpoint": 0,
      "ypoint": 0,
      "xyColor": "#ffffff",
      "sfColor": null,
      "XYFontSize": 50,
      "XYFontEnable": false,
      "screenFontEnable": false,
      "CircleEnable": false,
      "screenFontSize": 50,
      "circleColor": "#ffffff",
      "boarderColor": "#ffffff",
      "label": "Main \"A\"",
      "boarderWidth": 1,
      "circleBWidth": 4,
      "drawLabels": false,
      "labelColor": null,
      "labelFontSize": 40,
      "drawFlowPath": false,
      "pixelLimit": 655360,
      "pattern": 0,
      "powerOnCell": 1,
      "hiddenBoxes": ["0,0","1,2"]
    }
  ]
}
)");
}

TEST_F(ProjectTextTest, ADocumentWithoutLayersIsWrittenAndRead)
{
    const QByteArray text = ProjectText::encode({1080, 1920, {}});

    EXPECT_EQ(text, "{\n  \"format\": 1,\n  \"OutputWidth\": 1920,\n  \"OutputHeight\": 1080,\n  \"layers\": []\n}\n");
    EXPECT_TRUE(decoded(text).value().layers.empty());
}

TEST_F(ProjectTextTest, ReadingAndWritingAgainGivesTheSameText)
{
    const QByteArray text = ProjectText::encode(sampleProject(host));

    const Result<Project> project = decoded(text);

    ASSERT_TRUE(project.has_value()) << qPrintable(project.error().text);
    EXPECT_EQ(ProjectText::encode(*project), text);
}

TEST_F(ProjectTextTest, ProjectToTextToProjectLosesNothing)
{
    const QByteArray first = ProjectFile::encode(sampleProject(host)).value();
    const Project fromFile = ProjectFile::decode(first, host).value();

    const Project fromText = decoded(ProjectText::encode(fromFile)).value();

    EXPECT_EQ(archiveText(fromText), archiveText(fromFile));
    EXPECT_EQ(ProjectFile::encode(fromText).value(), ProjectFile::encode(fromFile).value());
}

TEST_F(ProjectTextTest, TextToProjectToTextLosesWhatTheArchiveNarrows)
{
    const auto screen = LWScreen::init(host);
    screen->setLabelFontSize(12.7);
    screen->setPixelLimit((qint64{1} << 32) + 5);
    const QByteArray text = ProjectText::encode({1080, 1920, {screen}});
    EXPECT_TRUE(text.contains("\"labelFontSize\": 12.7,\n"));
    EXPECT_TRUE(text.contains("\"pixelLimit\": 4294967301,\n"));

    const QByteArray bytes = ProjectFile::encode(decoded(text).value()).value();
    QByteArray expected = text;
    expected.replace("12.7", "12").replace("4294967301", "5");
    EXPECT_EQ(ProjectText::encode(ProjectFile::decode(bytes, host).value()), expected);
}

TEST_F(ProjectTextTest, WhatIsNotGivenIsThatOfANewScreen)
{
    const LayerPointer layer = onlyLayer("LWScreen", R"("col": 7, "label": "Side")");

    const auto fresh = LWScreen::init(host);
    fresh->setCol(7);
    fresh->setLabel("Side");
    fresh->drawInRect();
    EXPECT_EQ(archiveText(*layer), archiveText(*fresh));
    EXPECT_EQ(layer->screenSizeWidth(), 7 * 48);
    EXPECT_EQ(layer->label1(), "Panel-H");
}

TEST_F(ProjectTextTest, SizesOfAWallAreComputedNotBelieved)
{
    EXPECT_EQ(onlyLayer("LWScreen", R"("screenSizeWidth": 1000000)")->screenSizeWidth(), 240);
}

TEST_F(ProjectTextTest, AStillStandsBesideTheFileAndHasItsPicturesSize)
{
    QDir(folder.path()).mkdir("plates");
    QImage image(31, 17, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(folder.filePath("plates/logo 1.png")));

    const LayerPointer layer = onlyLayer("LWStill", R"("ImageURL": "plates/logo 1.png", "xpoint": 5)");

    EXPECT_EQ(layer->panelWidth(), 31);
    EXPECT_EQ(layer->panelHeight(), 17);
    EXPECT_EQ(layer->screenSizeWidth(), 31);
    EXPECT_EQ(layer->screenSizeHeight(), 17);
    EXPECT_EQ(layer->xpoint(), 5);
    EXPECT_TRUE(layer->visible());
    EXPECT_EQ(layer->boarderWidth(), 0);
    EXPECT_EQ(layer->thumbnail().size(), QSize(31, 17));
    EXPECT_EQ(layer->property("ImageURL").value<Address>(),
              Address::fromLocalFile(folder.filePath("plates/logo 1.png")));
}

TEST_F(ProjectTextTest, AGivenSizeOfAStillStands)
{
    const LayerPointer layer = onlyLayer("LWStill", R"("panelWidth": 64, "panelHeight": 36, "screenSizeHeight": 9)");

    EXPECT_EQ(layer->panelWidth(), 64);
    EXPECT_EQ(layer->screenSizeWidth(), 64);
    EXPECT_EQ(layer->screenSizeHeight(), 9);
}

TEST_F(ProjectTextTest, AddressesKeepTheirForm)
{
    const auto address = [&](const QByteArray &json) {
        return onlyLayer("LWStill", "\"ImageURL\": " + json)->property("ImageURL").value<Address>();
    };
    EXPECT_EQ(address(R"("https://example.org/a.png")"), (Address{"https://example.org/a.png", {}}));
    EXPECT_EQ(address(R"(["/show/plate.png"])"), (Address{"/show/plate.png", {}}));
    EXPECT_EQ(address(R"(["a.png", "b/", "file:///c/"])"), (Address{"a.png", {"b/", "file:///c/"}}));
    EXPECT_EQ(address(R"(["a.png"])"), (Address{"a.png", {}}));
    EXPECT_EQ(address(R"([""])"), (Address{"", {}}));
    EXPECT_TRUE(address("null").isNil());
}

TEST_F(ProjectTextTest, APathBecomesAFileAddressAndABarePathOfAnArchiveStaysOne)
{
    const LayerPointer still = onlyLayer("LWStill", R"("ImageURL": "/show/50 % plate.png")");
    EXPECT_EQ(still->property("ImageURL").value<Address>(), (Address{"file:///show/50%20%25%20plate.png", {}}));

    const auto bare = std::make_shared<LWStill>(host);
    bare->setImageURL({"/show/plate.png", {}});
    const QByteArray json = ProjectText::encode({5, 5, {bare}});
    EXPECT_TRUE(json.contains("\"ImageURL\": [\"/show/plate.png\"]"));
    EXPECT_EQ(decoded(json)->layers[0]->property("ImageURL").value<Address>(), bare->ImageURL());
}

TEST_F(ProjectTextTest, AdditionsAreWrittenOnlyWhereTheyAreUsed)
{
    const LayerPointer wall = onlyLayer("LWScreen", R"("col": 7)");
    EXPECT_TRUE(ProjectText::encode({5, 5, {wall}}).startsWith("{\n  \"format\": 1,"));
    EXPECT_FALSE(ProjectText::encode({5, 5, {wall}}).contains("showCurrent"));

    wall->setShowCurrent(true);
    const QByteArray json = ProjectText::encode({5, 5, {wall}, Supply{230, 3}});
    EXPECT_TRUE(json.startsWith("{\n  \"format\": 2,\n  \"OutputWidth\": 5,\n  \"OutputHeight\": 5,\n"
                                "  \"voltage\": 230,\n  \"phases\": 3,\n  \"layers\": ["));
    const Result<Project> again = decoded(json);
    ASSERT_TRUE(again.has_value()) << qPrintable(again.error().text);
    EXPECT_EQ(again->supply, (Supply{230, 3}));
    EXPECT_TRUE(again->layers[0]->showCurrent());
    EXPECT_EQ(ProjectText::encode(*again), json);
    EXPECT_EQ(ProjectText::encode({5, 5, {wall}}).startsWith("{\n  \"format\": 2,"), true);
}

TEST_F(ProjectTextTest, AdditionsAreUnknownToTheFirstFormat)
{
    const QByteArray layers = R"("layers": [{"class": "LWScreen", "showCurrent": true}]})";
    EXPECT_EQ(refusal(R"({"format": 1, )" + layers), "layers[0].showCurrent: unknown name");
    EXPECT_TRUE(decoded(R"({"format": 2, )" + layers).has_value());
    EXPECT_EQ(decoded(R"({"format": 2, "phases": 3, "layers": []})")->supply, (Supply{110, 3}));
    EXPECT_EQ(refusal(R"({"format": 2, "voltage": 0, "layers": []})"),
              "the supply is 0 V on 1 phases; it must be 1 to 1000 V on 1 or 3");
    EXPECT_EQ(refusal(R"({"format": 2, "volts": 0, "layers": []})"), "volts: unknown name");
}

TEST_F(ProjectTextTest, AnAddressHasAsManyPartsAsAProjectFileHolds)
{
    const auto parts = [](int count) {
        return "\"ImageURL\": [\"a\"" + QByteArray(", \"b/\"").repeated(count - 1) + "]";
    };

    const LayerPointer longest = onlyLayer("LWStill", parts(61));
    const Result<Project> saved = ProjectFile::decode(ProjectFile::encode({5, 5, {longest}}).value(), host);
    ASSERT_TRUE(saved.has_value()) << qPrintable(saved.error().text);
    EXPECT_EQ(archiveText(*saved->layers.at(0)), archiveText(*longest));

    const auto longer = std::make_shared<LWStill>(host);
    longer->setImageURL({"a", QStringList(61, "b/")});
    const Result<QByteArray> bytes = ProjectFile::encode({5, 5, {longer}});
    EXPECT_FALSE(bytes && ProjectFile::decode(*bytes, host));
    EXPECT_EQ(refusal(document("LWStill", parts(100000))),
              "layers[0].ImageURL: expected 1 to 61 parts of an address, found a list of 100000");
}

TEST_F(ProjectTextTest, AFileKnowsItsFolder)
{
    const QString path = folder.filePath("show.json");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(document("LWStill", R"("ImageURL": "logo.png")"));
    file.close();

    const Project project = ProjectText::read(path, host).value();

    EXPECT_EQ(project.layers.at(0)->property("ImageURL").value<Address>().toLocalFile(), folder.filePath("logo.png"));
    EXPECT_EQ(project.outputWidth, 1920);
    EXPECT_EQ(project.outputHeight, 1080);
}

TEST_F(ProjectTextTest, FilesKeepWhatTextKeeps)
{
    const QString path = folder.filePath("show.json");
    const Project project = sampleProject(host);

    ASSERT_TRUE(ProjectText::write(path, project).has_value());

    EXPECT_EQ(archiveText(ProjectText::read(path, host).value()), archiveText(project));
    EXPECT_TRUE(ProjectText::write(path, {0, 5, {}}).error().text.startsWith(path + ": the output is 5 x 0"));
}

TEST_F(ProjectTextTest, WholeNumbersAreExactInAll64Bits)
{
    EXPECT_EQ(onlyLayer("LWScreen", R"("pixelLimit": 9007199254740993)")->pixelLimit(), 9007199254740993);
    EXPECT_EQ(onlyLayer("LWScreen", R"("pixelLimit": -9223372036854775808)")->pixelLimit(),
              std::numeric_limits<qint64>::min());
    EXPECT_EQ(refusalOf(R"("pixelLimit": 9223372036854775808)").startsWith("layers[0].pixelLimit: expected a whole "),
              true);
}

TEST_F(ProjectTextTest, ValuesAreRefusedWithTheirPlace)
{
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [{"class": "LWScreen"}, {"class": "LWScreen", "rectColor": 5}]})"),
              "layers[1].rectColor: expected a colour such as \"#ff0000\", found a number");
    EXPECT_EQ(refusalOf(R"("col": 2147483648)"),
              "layers[0].col: expected a whole number from -2147483648 to 2147483647, found 2147483648");
    EXPECT_EQ(refusalOf(R"("col": 1.5)"),
              "layers[0].col: expected a whole number from -2147483648 to 2147483647, found 1.5");
    EXPECT_EQ(refusalOf(R"("col": "5")"), "layers[0].col: expected a whole number, found a text");
    EXPECT_EQ(refusalOf(R"("col": null)"), "layers[0].col: expected a whole number, found null");
    EXPECT_EQ(refusalOf(R"("visible": 1)"), "layers[0].visible: expected true or false, found a number");
    EXPECT_EQ(refusalOf(R"("label": "a\u0000b")"), "layers[0].label: expected a text without NUL");
    EXPECT_EQ(refusalOf(R"("hiddenBoxes": ["a", 5])"),
              "layers[0].hiddenBoxes: entry 1: expected a text, found a number");
    EXPECT_EQ(refusalOf(R"("label": 1)"), "layers[0].label: expected a text, found a number");
    EXPECT_EQ(refusalOf(R"("labelFontSize": "12")"), "layers[0].labelFontSize: expected a number, found a text");
    EXPECT_EQ(refusalOf(R"("hiddenBoxes": "0,0")"), "layers[0].hiddenBoxes: expected a list of texts, found a text");
    EXPECT_EQ(refusalOf(R"("hiddenBoxes": ["0,0", null])"),
              "layers[0].hiddenBoxes: entry 1: expected a text, found null");
    EXPECT_EQ(refusal(document("LWStill", R"("ImageURL": "")")),
              "layers[0].ImageURL: expected an address, found an empty text");
    EXPECT_EQ(refusal(document("LWStill", R"("ImageURL": [])")),
              "layers[0].ImageURL: expected 1 to 61 parts of an address, found a list of 0");
    EXPECT_EQ(refusal(document("LWStill", R"("ImageURL": 5)")),
              "layers[0].ImageURL: expected an address, found a number");
}

TEST_F(ProjectTextTest, UnknownNamesAreRefused)
{
    EXPECT_EQ(refusalOf(R"("rectColour": "#ff0000")"), "layers[0].rectColour: unknown name");
    EXPECT_EQ(refusalOf(R"("ImageURL": "a.png")"), "layers[0].ImageURL: unknown name");
    EXPECT_EQ(refusal(document("LWStill", R"("pattern": 1)")), "layers[0].pattern: unknown name");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [], "voltage": 110})"), "voltage: unknown name");
    EXPECT_EQ(refusal(document("LWMask", "")),
              "layers[0].class: expected \"LWScreen\" or \"LWStill\", found \"LWMask\"");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [{}]})"),
              "layers[0].class: expected \"LWScreen\" or \"LWStill\", found nothing");
}

TEST_F(ProjectTextTest, ADocumentOfAnotherShapeIsRefused)
{
    EXPECT_EQ(refusal("[]"), "expected an object with \"format\" and \"layers\", found a list");
    EXPECT_EQ(refusal("{}"), "format: expected a whole number, found nothing");
    EXPECT_EQ(refusal(R"({"format": 3, "layers": []})"), "format: expected 1 or 2, found 3");
    EXPECT_EQ(refusal(R"({"format": 1})"), "layers: expected a list of layers, found nothing");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [5]})"), "layers[0]: expected an object, found a number");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [], "OutputWidth": "5"})"),
              "OutputWidth: expected a whole number, found a text");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [], "OutputWidth": 0})").startsWith("the output is 0 x 1080"), true);
}

TEST_F(ProjectTextTest, WhatWouldBeRefusedIsNotWritten)
{
    const QString path = folder.filePath("show.json");
    const Project project{5, 5, std::vector<LayerPointer>(100'001, LWScreen::init(host))};

    EXPECT_EQ(ProjectText::write(path, project).error().text,
              path + ": there are 100001 layers; more than 100000 cannot be kept");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ProjectTextTest, TooManyLayersAreRefusedBeforeTheFirstIsRead)
{
    const QByteArray layers = QByteArray("1,").repeated(100'000) + "1";

    EXPECT_EQ(refusal(R"({"format": 1, "layers": [)" + layers + "]}"),
              "layers: there are 100001 layers; more than 100000 cannot be kept");
}

TEST_F(ProjectTextTest, WhatWasFoundIsCutInMessages)
{
    const QByteArray longText(1000, 'x');
    const QString cut = QString(40, u'x') + QChar(0x2026);

    EXPECT_EQ(refusalOf('"' + longText + R"(": 1)"), "layers[0]." + cut + ": unknown name");
    EXPECT_EQ(refusal(document(longText, {})),
              "layers[0].class: expected \"LWScreen\" or \"LWStill\", found \"" + cut + '"');
    EXPECT_EQ(refusalOf(R"("rectColor": ")" + longText + '"'),
              "layers[0].rectColor: expected a colour such as \"#ff0000\", found \"" + cut + '"');
}

TEST_F(ProjectTextTest, BrokenJsonIsNamedByItsPlaceAndWhatStandsThere)
{
    const QString noJson = ": this is no JSON: ";
    EXPECT_EQ(refusal("{\n\"format\": 1,\n\"layers\": [}\n"),
              "line 3, column 12" + noJson + "expected a value, found \"}\"");
    EXPECT_EQ(refusal(""), "line 1, column 1" + noJson + "it ends here, expected a value");
    EXPECT_EQ(refusal(QByteArray(100000, '[')), "line 1, column 1025" + noJson + "it is nested more than 1024 deep");
    EXPECT_EQ(refusal("{\"format\": 1\n \"layers\": []}"),
              "line 2, column 2" + noJson + "expected \",\" or \"}\", found a text");
    EXPECT_EQ(refusal("{\"B\xc3\xbchne\" 1}"),
              "line 1, column 10" + noJson + "expected \":\" behind the name, found \"1\"");
    EXPECT_EQ(refusal("{format: 1}"),
              "line 1, column 2" + noJson + "expected a name in double quotes, found \"format\"");
    EXPECT_EQ(refusal("{\"format\": True}"), "line 1, column 12" + noJson + "expected a value, found \"True\"");
    EXPECT_EQ(refusal("{\"format\": 1}\n]"), "line 2, column 1" + noJson + "expected nothing more, found \"]\"");
    EXPECT_EQ(refusal("{\"format\": \"1}\n"),
              "line 1, column 12" + noJson + "the text that begins here has no closing quote");
    EXPECT_TRUE(refusal("{\"format\": 1.2.3}").startsWith("line 1, column 1"));
}

TEST_F(ProjectTextTest, WhatPeopleTakeForJsonIsSaidPlainly)
{
    const QString noJson = ": this is no JSON: ";
    const QString comment = noJson + "a comment stands here, and JSON has none; take it out";
    EXPECT_EQ(refusal("{\n  // the show\n\"format\": 1}"), "line 2, column 3" + comment);
    EXPECT_EQ(refusal("{\"format\": 1 /* ours */}"), "line 1, column 14" + comment);
    EXPECT_EQ(refusal("# show\n{}"), "line 1, column 1" + comment);
    EXPECT_EQ(refusal("{'format': 1}"),
              "line 1, column 2" + noJson + "a single quote stands here; names and texts are in double quotes");
    EXPECT_EQ(refusal("{\"format\": 1,\n}"),
              "line 1, column 13" + noJson + "a comma stands in front of \"}\"; take it out");
    EXPECT_EQ(refusal("{\"layers\": [1, ]}"),
              "line 1, column 14" + noJson + "a comma stands in front of \"]\"; take it out");
}

TEST_F(ProjectTextTest, ANameThatStandsTwiceIsRefusedWithBothLines)
{
    EXPECT_EQ(refusal("{\"format\": 1,\n\"layers\": [],\n\n\"layers\": []}"),
              "line 4: \"layers\" stands here a second time, the first is on line 2; leave one out");
    EXPECT_EQ(refusalOf("\"col\": 1,\n\"c\\u006fl\": 2").endsWith("the first is on line 1; leave one out"), true);
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [{"class": "LWScreen"}, {"class": "LWScreen"}]})"), "accepted");
}

TEST_F(ProjectTextTest, AMarkOfTheByteOrderIsPassedOver)
{
    EXPECT_EQ(refusal("\xef\xbb\xbf{\"format\": 1, \"layers\": []}"), "accepted");
}

TEST_F(ProjectTextTest, AnEmptyTextAndNoTextDiffer)
{
    EXPECT_FALSE(onlyLayer("LWScreen", R"("label": "")")->label().isNull());
    EXPECT_TRUE(onlyLayer("LWScreen", R"("label": null)")->label().isNull());
}
