#include "tests/formats/ProjectTextFixture.h"
#include "tests/formats/SampleProject.h"

#include <QFile>

using ProjectTextRefusalsTest = ProjectTextFixture;

TEST_F(ProjectTextRefusalsTest, ValuesAreRefusedWithTheirPlace)
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

TEST_F(ProjectTextRefusalsTest, UnknownNamesAreRefused)
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

TEST_F(ProjectTextRefusalsTest, ADocumentOfAnotherShapeIsRefused)
{
    EXPECT_EQ(refusal("[]"), "expected an object with \"format\" and \"layers\", found a list");
    EXPECT_EQ(refusal("{}"), "format: expected a whole number, found nothing");
    EXPECT_EQ(refusal(R"({"format": -3, "layers": []})"), "format: expected 1 or more, found -3");
    EXPECT_EQ(refusal(R"({"format": 1})"), "layers: expected a list of layers, found nothing");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [5]})"), "layers[0]: expected an object, found a number");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [], "OutputWidth": "5"})"),
              "OutputWidth: expected a whole number, found a text");
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [], "OutputWidth": 0})").startsWith("the output is 0 x 1080"), true);
}

TEST_F(ProjectTextRefusalsTest, WhatWouldBeRefusedIsNotWritten)
{
    const QString path = folder.filePath("show.json");
    const Project project{5, 5, std::vector<LayerPointer>(10'001, LWScreen::init(host))};

    EXPECT_EQ(ProjectText::write(path, project).error().text,
              path + ": there are 10,001 layers; more than 10,000 cannot be kept, so remove some");
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ProjectTextRefusalsTest, MoreThan64MebibytesAreNotRead)
{
    const QString path = folder.filePath("show.json");
    ASSERT_TRUE(ProjectText::write(path, {5, 5, {LWScreen::init(host)}}).has_value());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    ASSERT_TRUE(file.write(QByteArray(ProjectText::mostBytes - file.size(), ' ')) > 0 && file.flush());
    EXPECT_TRUE(ProjectText::read(path, host).has_value());
    ASSERT_TRUE(file.write(" ") == 1 && file.flush());
    EXPECT_EQ(ProjectText::read(path, host).error().text,
              path + ": the file has 64.00 MiB; more than 64.00 MiB is not read");
}

TEST_F(ProjectTextRefusalsTest, WhatIsTooLargeToBeReadAgainReplacesNoFile)
{
    const QString path = folder.filePath("show.json");
    Project project{5, 5, {LWScreen::init(host)}};
    ASSERT_TRUE(ProjectText::write(path, project).has_value());
    project.layers[0]->setLabel(QString(ProjectText::mostBytes, 'x'));

    EXPECT_EQ(ProjectText::write(path, project).error().text,
              path + ": as JSON this project has 64.00 MiB, and more than 64.00 MiB is not read; save it as a project "
                     "file");

    const Result<Project> before = ProjectText::read(path, host);
    ASSERT_TRUE(before.has_value()) << qPrintable(before.error().text);
    EXPECT_NE(before->layers.at(0)->label().size(), ProjectText::mostBytes);
}

TEST_F(ProjectTextRefusalsTest, TooManyLayersAreRefusedBeforeTheFirstIsRead)
{
    const QByteArray layers = QByteArray("1,").repeated(10'000) + "1";

    EXPECT_EQ(refusal(R"({"format": 1, "layers": [)" + layers + "]}"),
              "layers: there are 10,001 layers; more than 10,000 cannot be kept, so remove some");
}

TEST_F(ProjectTextRefusalsTest, MoreChartsThanCanBeHeldAreRefused)
{
    const QByteArray chart =
        R"({"class": "LWStill", "chart": "field colour=red", "panelWidth": 16384, "panelHeight": 16384},)";
    const auto charts = [&](int count) {
        return R"({"format": 2, "layers": [)" + chart.repeated(count).chopped(1) + "]}";
    };

    EXPECT_TRUE(decoded(charts(4)).has_value());
    EXPECT_EQ(refusal(charts(5)), "layers: walls and charts have 268,435,456 px too many; make some smaller");
}

TEST_F(ProjectTextRefusalsTest, WhatWasFoundIsCutInMessages)
{
    const QByteArray longText(1000, 'x');
    const QString cut = QString(40, u'x') + QChar(0x2026);

    EXPECT_EQ(refusalOf('"' + longText + R"(": 1)"), "layers[0]." + cut + ": unknown name");
    EXPECT_EQ(refusal(document(longText, {})),
              "layers[0].class: expected \"LWScreen\" or \"LWStill\", found \"" + cut + '"');
    EXPECT_EQ(refusalOf(R"("rectColor": ")" + longText + '"'),
              "layers[0].rectColor: expected a colour such as \"#ff0000\", found \"" + cut + '"');
}

TEST_F(ProjectTextRefusalsTest, BrokenJsonIsNamedByItsPlaceAndWhatStandsThere)
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

TEST_F(ProjectTextRefusalsTest, WhatPeopleTakeForJsonIsSaidPlainly)
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

TEST_F(ProjectTextRefusalsTest, ANameThatStandsTwiceIsRefusedWithBothLines)
{
    EXPECT_EQ(refusal("{\"format\": 1,\n\"layers\": [],\n\n\"layers\": []}"),
              "line 4: \"layers\" stands here a second time, the first is on line 2; leave one out");
    EXPECT_EQ(refusalOf("\"col\": 1,\n\"c\\u006fl\": 2").endsWith("the first is on line 1; leave one out"), true);
    EXPECT_EQ(refusal(R"({"format": 1, "layers": [{"class": "LWScreen"}, {"class": "LWScreen"}]})"), "accepted");
}
