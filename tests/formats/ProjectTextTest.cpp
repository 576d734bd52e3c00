#include "formats/ProjectFile.h"
#include "still/LWStill.h"
#include "tests/formats/ProjectTextFixture.h"
#include "tests/formats/SampleProject.h"

#include <QDir>
#include <QFile>
#include <QUrl>

#include <gtest/gtest.h>
#include <limits>

using ProjectTextTest = ProjectTextFixture;

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
    // On the drive of the file where there are drives.
    const QString place = QUrl::fromLocalFile(QDir(folder.path()).absoluteFilePath("/show")).toString();
    EXPECT_EQ(still->property("ImageURL").value<Address>(), (Address{place + "/50%20%25%20plate.png", {}}));

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

TEST_F(ProjectTextTest, AMarkOfTheByteOrderIsPassedOver)
{
    EXPECT_EQ(refusal("\xef\xbb\xbf{\"format\": 1, \"layers\": []}"), "accepted");
}

TEST_F(ProjectTextTest, AnEmptyTextAndNoTextDiffer)
{
    EXPECT_FALSE(onlyLayer("LWScreen", R"("label": "")")->label().isNull());
    EXPECT_TRUE(onlyLayer("LWScreen", R"("label": null)")->label().isNull());
}
