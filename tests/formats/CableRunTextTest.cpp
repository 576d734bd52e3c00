#include "formats/CableRunText.h"

#include "formats/ProjectFile.h"
#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "tests/formats/ArchiveNodes.h"
#include "tests/screen/TestHost.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace {
CableRuns sample()
{
    return CableRuns({{{"A", 3}, 1, {{0, 0}, {1, 0}}}, {{"B", 12}, 2, {}}});
}

QString refusal(const QByteArray &list)
{
    const auto read = CableRunText::decode(QJsonDocument::fromJson(list).array());
    return read ? "taken" : read.error().text;
}

class CableRunTextTest : public ::testing::Test
{
protected:
    LayerPointer wired()
    {
        const auto wall = LWScreen::init(host);
        wall->setValue("split", "hand");
        wall->setValue("runs", QVariant::fromValue(sample()));
        return wall;
    }

    TestHost host;
};
} // namespace

TEST_F(CableRunTextTest, StandsOneOnALine)
{
    EXPECT_EQ(CableRunText::encode(sample(), "  "), R"([
    {"processor": "A", "port": 3, "piece": 1, "cells": ["0,0", "0,1"]},
    {"processor": "B", "port": 12, "piece": 2, "cells": []}
  ])");
    EXPECT_EQ(CableRunText::encode({}, "  "), "[]");
}

TEST_F(CableRunTextTest, ComesBackFromBothKindsOfFile)
{
    const Project project{1080, 1920, {wired()}};
    const QByteArray bytes = ProjectFile::encode(project).value();
    const Result<Project> read = ProjectFile::decode(bytes, host);
    ASSERT_TRUE(read) << qPrintable(read.error().text);
    EXPECT_EQ(read->layers[0]->record()->runs, sample());
    EXPECT_EQ(read->layers[0]->record()->split, CableSplit::Hand);
    EXPECT_EQ(ProjectFile::encode(*read).value(), bytes);
    const Result<Project> again = ProjectText::decode(ProjectText::encode(*read), "/", host);
    ASSERT_TRUE(again) << qPrintable(again.error().text);
    EXPECT_EQ(again->layers[0]->record()->runs, sample());
}

TEST_F(CableRunTextTest, WhatIsNoRunIsNamed)
{
    EXPECT_EQ(refusal(R"([{"processor": "A", "port": 1, "piece": 1, "cells": []}])"), "taken");
    EXPECT_EQ(refusal(R"([{"processor": "A", "port": 0, "piece": 1, "cells": []}])"),
              "run 0: port: expected a whole number from 1 to 2147483647, found 0");
    EXPECT_EQ(refusal(R"([{"processor": "A", "port": 1, "cells": []}])"),
              "run 0: piece: expected a whole number, found nothing");
    EXPECT_EQ(refusal(R"([{"processor": "A", "port": 1, "piece": 1, "cells": ["0,0", "1;1"]}])"),
              "run 0: cells: entry 1: expected a panel, \"row,column\", found a text");
    EXPECT_EQ(refusal(R"([{"processor": "A", "port": 1, "piece": 1, "cells": [], "colour": 1}])"),
              "run 0: colour: unknown name");
    EXPECT_EQ(refusal(R"([{"port": 1, "piece": 1, "cells": []}])"), "run 0: processor: expected a text, found nothing");
    EXPECT_EQ(refusal("[3]"), "run 0: expected an object, found a number");
}

TEST_F(CableRunTextTest, AWayOfSplittingThatThereIsNotIsRefusedInTexts)
{
    const QByteArray text = R"({"format": 2, "layers": [{"class": "LWScreen", "split": "rows"}]})";
    EXPECT_EQ(ProjectText::decode(text, "/", host).error().text,
              "layers[0].split: expected one of \"lines\", \"panels\", \"hand\", found \"rows\"");
}

/// Other programs may use our keys for something else.
TEST_F(CableRunTextTest, WhatOthersKeepUnderTheSameKeysComesBack)
{
    for (const ArchiveValue &foreign :
         {ArchiveValue{qint64{7}}, ArchiveValue::list({{qint64{1}}, {QString("run")}}), ArchiveValue::list({})}) {
        const auto layer = std::make_shared<ArchiveObject>(*LayerArchive::recordOf(*LWScreen::init(host)));
        layer->encode("runs", foreign);
        layer->encode("split", {QString("rows")});
        const ArchiveValue layers = ArchiveValue::list({{ArchiveObjectPointer(layer)}});
        const QByteArray bytes =
            KeyedArchive::write(ArchiveValue::list({{qint64{1080}}, {qint64{1920}}, layers})).value();
        const Result<Project> read = ProjectFile::decode(bytes, host);
        ASSERT_TRUE(read) << qPrintable(read.error().text);
        EXPECT_EQ(read->layers[0]->record()->runs, CableRuns());
        EXPECT_EQ(read->layers[0]->record()->split, CableSplit::Lines);
        EXPECT_EQ(ProjectFile::encode(*read).value(), bytes);
    }
}

TEST_F(CableRunTextTest, AnArchiveWithARunOutOfRangeIsRefused)
{
    ArchiveObject run("LWCableRun");
    run.encodeText("processor", "A");
    run.encodeInt32("port", -1);
    run.encodeInt32("piece", 1);
    const auto layer = std::make_shared<ArchiveObject>(*LayerArchive::recordOf(*LWScreen::init(host)));
    layer->encode("runs", ArchiveValue::list({{std::make_shared<const ArchiveObject>(run)}}));
    const auto read = LayerArchive::decode({{ArchiveObjectPointer(layer)}}, "layer");
    ASSERT_FALSE(read);
    EXPECT_EQ(read.error().text, "layer 0: run 0 of \"runs\": \"port\" is -1, expected 1 or more");
}
