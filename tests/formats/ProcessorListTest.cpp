#include "formats/ProcessorList.h"

#include "archive/KeyedArchive.h"
#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace {
ProcessorSettings changed()
{
    ProcessorSettings other;
    other.name = "FOH \"1\"";
    other.model = "MX40 Pro";
    other.bits = 10;
    other.rate = 59.94;
    other.card = "A10s Pro";
    other.lowLatency = true;
    other.backup = ProcessorSettings::Backup::SecondProcessor;
    other.backupProcessor = "B";
    other.headroom = 10;
    other.capacity = 500'000;
    other.streams = 2;
    other.rectangleWhereUnsaid = false;
    return other;
}

ProcessorSettings plain()
{
    ProcessorSettings settings;
    settings.name = "A";
    settings.model = "VX1000";
    return settings;
}

QString refusal(const QByteArray &list)
{
    const auto read = ProcessorList::ofText(QJsonDocument::fromJson(list).array());
    return read ? "taken" : read.error().text;
}
} // namespace

class ProcessorListTest : public ::testing::Test
{
protected:
    Project project() { return {1080, 1920, {LWScreen::init(host)}, {}, {plain(), changed()}}; }

    TestHost host;
};

TEST_F(ProcessorListTest, ComesBackFromAProjectFile)
{
    const QByteArray bytes = ProjectFile::encode(project()).value();
    const Result<Project> read = ProjectFile::decode(bytes, host);
    ASSERT_TRUE(read) << qPrintable(read.error().text);
    EXPECT_EQ(read->processors, project().processors);
    EXPECT_EQ(read->unknown, nullptr);
    EXPECT_EQ(ProjectFile::encode(*read).value(), bytes);
}

TEST_F(ProcessorListTest, ComesBackFromAText)
{
    const QByteArray text = ProjectText::encode(project());
    const Result<Project> read = ProjectText::decode(text, "/", host);
    ASSERT_TRUE(read) << qPrintable(read.error().text);
    EXPECT_EQ(read->processors, project().processors);
    EXPECT_EQ(ProjectText::encode(*read), text);
}

TEST_F(ProcessorListTest, StandsOneOnALineWithWhatWasChanged)
{
    EXPECT_EQ(ProcessorList::toText({plain(), changed()}), R"([
    {"name": "A", "model": "VX1000", "bits": 8, "rate": 60, "card": "", "lowLatency": false, "backup": "none", "headroom": 0, "capacity": 0},
    {"name": "FOH \"1\"", "model": "MX40 Pro", "bits": 10, "rate": 59.94, "card": "A10s Pro", "lowLatency": true, "backup": "processor", "headroom": 10, "capacity": 500000, "backupProcessor": "B", "streams": 2, "rectangleWhereUnsaid": false}
  ])");
}

TEST_F(ProcessorListTest, AShowWithoutOneSaysNothingOfThem)
{
    const Project without{1080, 1920, {LWScreen::init(host)}};
    EXPECT_TRUE(ProjectText::encode(without).startsWith("{\n  \"format\": 1,"));
    EXPECT_FALSE(ProjectFile::encode(without).value().contains("processors"));
}

TEST_F(ProcessorListTest, WhatIsOutOfRangeIsNamed)
{
    EXPECT_EQ(refusal(R"([{"name": "A"}])"), "taken");
    EXPECT_EQ(refusal(R"([{"model": "VX1000"}])"), "processor 0: it has no name");
    EXPECT_EQ(refusal(R"([{"name": "A"}, {"name": "B", "bits": 0}])"),
              "processor 1: bits: \"bits\" is 0, expected 1 to 16 bit");
    EXPECT_EQ(refusal(R"([{"name": "A", "rate": 23.9}])"),
              "processor 0: rate: \"rate\" is 23.9, expected 23.976 to 240 Hz");
    EXPECT_EQ(refusal(R"([{"name": "A", "backup": "twice"}])"),
              "processor 0: backup: \"backup\" is \"twice\", expected \"none\", \"loop\" or \"processor\"");
    EXPECT_EQ(refusal(R"([{"name": "A", "headroom": 100}])"),
              "processor 0: headroom: \"headroom\" is 100, expected 0 to 99 per cent");
    EXPECT_EQ(refusal(R"([{"name": "A", "ports": 4}])"), "processor 0: ports: unknown name");
    EXPECT_EQ(refusal(R"([7])"), "processor 0: expected an object, found a number");
}

TEST_F(ProcessorListTest, MoreThanAFileHoldsAreNotWritten)
{
    Project many = project();
    many.processors.assign(1'000, plain());
    EXPECT_TRUE(ProjectFile::check(many));
    many.processors.push_back(plain());
    EXPECT_EQ(ProjectFile::check(many).error().text, "the list of processors: a list of 1001, expected at most 1000");
    EXPECT_FALSE(ProjectFile::encode(many));
    EXPECT_FALSE(ProjectText::write("/nowhere/show.json", many));
}

TEST_F(ProcessorListTest, AnArchiveWithAValueOutOfRangeIsRefused)
{
    ArchiveObject object(ProcessorList::className);
    object.encodeText("name", "A");
    object.encodeInt32("streams", 0);
    const auto list = ArchiveValue::list({{std::make_shared<const ArchiveObject>(object)}});
    EXPECT_EQ(ProcessorList::ofArchive(list).error().text, "processor 0: \"streams\" is 0, expected 1 to 16 streams");
}

TEST_F(ProcessorListTest, AModelOfOnesOwnTravelsWithTheShow)
{
    Project show = project();
    show.processors.front().own = OwnModel::of({.name = "Box", .ports = 4, .pixels = 500'000}).value();
    show.processors.front().model = "Box";
    const QByteArray bytes = ProjectFile::encode(show).value();
    const Result<Project> opened = ProjectFile::decode(bytes, host);
    ASSERT_TRUE(opened) << qPrintable(opened.error().text);
    EXPECT_EQ(PortCapacity::of(opened->processors.front())->pixels, 500'000);
    EXPECT_EQ(ProjectFile::encode(*opened).value(), bytes);

    const QByteArray text = ProjectText::encode(show);
    const Result<Project> read = ProjectText::decode(text, "/", host);
    ASSERT_TRUE(read) << qPrintable(read.error().text);
    EXPECT_EQ(PortCapacity::of(read->processors.front())->pixels, 500'000);
    EXPECT_EQ(ProjectText::encode(*read), text);
}

TEST_F(ProcessorListTest, AModelThatIsNoneIsRefused)
{
    EXPECT_EQ(refusal(R"([{"name": "A", "own": "{}"}])"),
              "processor 0: own: \"own\" is \"{}\", expected the description of one model");
}
