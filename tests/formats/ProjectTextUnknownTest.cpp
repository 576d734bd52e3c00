#include "facts/UnknownValues.h"
#include "formats/JsonParts.h"
#include "formats/ProjectFile.h"
#include "show/LayerArchive.h"
#include "tests/formats/ProjectTextFixture.h"

namespace {
/// Of a newer version: names that we do not know, with values that a parser would write otherwise.
const QByteArray ofShow = R"("crew": { "b": 1.0, "a": [ 1e3,12345678901234567890 ],
    "text": "a\u0041 \"},]: [{" })";
const QByteArray ofWall = R"("r\u0069gging": "truss 7")";
const QByteArray ofWallToo = R"("bend": [ -0.0, {} , null,true ])";

class ProjectTextUnknown : public ProjectTextFixture
{
protected:
    /// A wall and another one below it, as this version writes them, with the newer names behind ours.
    QByteArray newerText(const QByteArray &format = "3")
    {
        QByteArray text = ProjectText::encode({1080, 1920, {LWScreen::init(host), LWScreen::init(host)}});
        text.replace("\"format\": 1", "\"format\": " + format);
        text.replace("  \"layers\": [", "  " + ofShow + ",\n  \"layers\": [");
        const qsizetype endOfFirst = text.indexOf("\n    },");
        text.insert(endOfFirst, ",\n      " + ofWall + ",\n      " + ofWallToo);
        return text;
    }
};
} // namespace

TEST_F(ProjectTextUnknown, ComesBackToTheByteInItsFormat)
{
    const Result<Project> project = decoded(newerText());
    ASSERT_TRUE(project.has_value()) << qPrintable(project.error().text);
    EXPECT_EQ(project->layers[0]->unknownNames(), (QByteArrayList{ofWall, ofWallToo}));
    EXPECT_EQ(project->layers[1]->unknownNames(), QByteArrayList());
    EXPECT_EQ(ProjectText::encode(*project), newerText());
    EXPECT_EQ(ProjectText::encode(decoded(newerText("2147483647")).value()), newerText("2147483647"));
}

TEST_F(ProjectTextUnknown, ComesBackToTheByteFromAnyLayoutAndOrder)
{
    const Project project = decoded("\xef\xbb\xbf \n{ \"z\":1.50 ,\"layers\" : [ {\"y\" :  [ 1 , 2 ]\t, \"class\":"
                                    "\"LWScreen\",\"x\":{\"col\":9}}\n], \"format\": 7 , \"a\" : \"\\\"}\" }")
                                .value();
    const QByteArray text = ProjectText::encode(project);
    EXPECT_TRUE(text.startsWith("{\n  \"format\": 7,\n"));
    EXPECT_TRUE(text.contains(",\n  \"z\": 1.50,\n  \"a\": \"\\\"}\",\n  \"layers\": [")) << text.constData();
    EXPECT_TRUE(text.contains(",\n      \"y\": [ 1 , 2 ],\n      \"x\": {\"col\":9}\n    }\n")) << text.constData();
    EXPECT_EQ(project.layers[0]->col(), 5);
}

TEST_F(ProjectTextUnknown, OfALayerAloneKeepsTheFormat)
{
    const Project project = decoded(R"({"format": 4, "layers": [{"class": "LWScreen", "bend": 1}]})").value();
    EXPECT_TRUE(ProjectText::encode(project).startsWith("{\n  \"format\": 4,\n"));
    EXPECT_TRUE(UnknownValues::areOfText(project));
}

TEST_F(ProjectTextUnknown, OfALayerThatCameFromAnotherShowIsReadAgain)
{
    const Project newer = decoded(R"({"format": 4, "layers": [{"class": "LWScreen", "bend": 1}]})").value();
    const Project other{1080, 1920, LayerArchive::copies(newer.layers, host).value()};
    const QByteArray text = ProjectText::encode(other);
    EXPECT_TRUE(text.startsWith("{\n  \"format\": 3,\n")) << text.constData();
    const Result<Project> again = decoded(text);
    ASSERT_TRUE(again.has_value()) << qPrintable(again.error().text);
    EXPECT_EQ(again->layers[0]->unknownNames(), QByteArrayList{"\"bend\": 1"});
}

TEST_F(ProjectTextUnknown, GoneWithItsLayerItAsksForNoFormat)
{
    Project project =
        decoded(R"({"format": 4, "layers": [{"class": "LWScreen", "bend": 1}, {"class": "LWScreen"}]})").value();
    project.layers.erase(project.layers.begin());
    EXPECT_TRUE(ProjectText::encode(project).startsWith("{\n  \"format\": 1,\n"));
}

TEST_F(ProjectTextUnknown, WithoutAnyTheLowestFormatIsWritten)
{
    const Project project = decoded(R"({"format": 4, "layers": [{"class": "LWScreen", "c\u006fl": 7}]})").value();
    EXPECT_TRUE(ProjectText::encode(project).startsWith("{\n  \"format\": 1,\n"));
    EXPECT_EQ(project.layers[0]->col(), 7);
    EXPECT_FALSE(UnknownValues::areIn(project));
}

TEST_F(ProjectTextUnknown, IsRefusedInTheFormatsThatWeKnow)
{
    for (const char *format : {"1", "2"}) {
        EXPECT_EQ(refusal(newerText(format)), "crew: unknown name");
        EXPECT_EQ(refusal(QByteArray("{\"format\": ") + format + R"(, "layers": [{"class": "LWStill", "bend": 1}]})"),
                  "layers[0].bend: unknown name");
    }
}

TEST_F(ProjectTextUnknown, WhatIsKnownIsCheckedStill)
{
    EXPECT_EQ(refusal(R"({"format": 0, "layers": []})"), "format: expected 1 or more, found 0");
    EXPECT_EQ(refusal(R"({"format": 3, "new": 1})"), "layers: expected a list of layers, found nothing");
    EXPECT_EQ(refusal(R"({"format": 3, "layers": [{"new": 1}]})"),
              "layers[0].class: expected \"LWScreen\" or \"LWStill\", found nothing");
    EXPECT_EQ(refusal(R"({"format": 3, "layers": [{"class": "LWBanner", "new": 1}]})"),
              "layers[0].class: expected \"LWScreen\" or \"LWStill\", found \"LWBanner\"");
    EXPECT_EQ(refusal(R"({"format": 3, "layers": [{"class": "LWScreen", "new": 1, "id": 5}]})"),
              "layers[0].id: expected a text, found a number");
    EXPECT_EQ(refusal(R"({"format": 3, "layers": [{"class": "LWScreen", "new": 1, "new": 2}]})"),
              "line 1: \"new\" stands here a second time, the first is on line 1; leave one out");
    EXPECT_EQ(refusal(R"({"format": 3, "layers": [{"class": "LWScreen", "new": [1, }]})"),
              "line 1, column 59: this is no JSON: expected a value, found \"}\"");
    EXPECT_TRUE(refusal(R"({"format": 3, "new": 1.2.3, "layers": []})").startsWith("line 1, column "));
}

TEST_F(ProjectTextUnknown, HasNoPlaceInAProjectFile)
{
    const Project project = decoded(newerText()).value();
    EXPECT_TRUE(UnknownValues::areOfText(project));
    EXPECT_FALSE(UnknownValues::areOfArchive(project));
    const Project plain{1080, 1920, {LWScreen::init(host), LWScreen::init(host)}};
    EXPECT_EQ(ProjectFile::encode(project).value(), ProjectFile::encode(plain).value());
}

TEST_F(ProjectTextUnknown, GoesWithItsLayerIntoCopies)
{
    const Project project = decoded(newerText()).value();
    const std::vector<LayerPointer> copies = LayerArchive::copies(project.layers, host).value();
    EXPECT_EQ(copies[0]->unknownNames(), (QByteArrayList{ofWall, ofWallToo}));
    EXPECT_EQ(copies[1]->unknownNames(), QByteArrayList());
}

TEST(JsonParts, AreTheOutermostEntriesAsTheyStand)
{
    const std::vector<JsonParts::Part> parts = JsonParts::of(R"( {"a" : [1, {"b":2}] ,"c\"":"d\\", "":null } )");
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[0].name, "\"a\"");
    EXPECT_EQ(parts[0].value, "[1, {\"b\":2}]");
    EXPECT_EQ(JsonParts::decodedName(parts[1].name), "c\"");
    EXPECT_EQ(parts[1].value, "\"d\\\\\"");
    EXPECT_EQ(JsonParts::decodedName(parts[2].name), "");
    EXPECT_EQ(parts[2].value, "null");
    EXPECT_EQ(JsonParts::of("[]").size(), 0U);
    EXPECT_EQ(JsonParts::of("\"[1]\"").size(), 0U);
    EXPECT_EQ(JsonParts::of("[[],[1,2],3]").size(), 3U);
}
