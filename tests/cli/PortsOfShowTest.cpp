#include "tests/cli/CommandRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {
class PortsOfShowTest : public CommandTest
{
protected:
    /// Of 1920 x 1080 pixels with a processor.
    QString showOf(const QByteArray &layers)
    {
        return file("ports.json", R"({"format": 2, "OutputWidth": 1920, "OutputHeight": 1080,
            "processors": [{"name": "A", "model": "MX40 Pro", "card": "other"}], "layers": [)" +
                                      layers + "]}");
    }
    static QByteArray wall(const QByteArray &name, const QByteArray &more)
    {
        return R"({"class": "LWScreen", "col": 4, "row": 2, "panelWidth": 100, "panelHeight": 100, "powerOnCell": 1,
            "processor": "A", "label": ")" +
               name + "\", " + more + "}";
    }
};
} // namespace

TEST_F(PortsOfShowTest, TheLimitIsThatOfTheProcessorWhateverTheTextSays)
{
    const QString show = showOf(wall("MAIN", R"("limitFromProcessor": true, "pixelLimit": 1000)"));
    const QJsonDocument info = QJsonDocument::fromJson(runCommand({"info", show, "--json"}).out.toUtf8());
    EXPECT_EQ(info["layers"][0]["pixelLimit"], 659'722);
    EXPECT_EQ(runCommand({"check", show}).out, "0 errors, 0 warnings, 0 notes\n");
    EXPECT_EQ(runCommand({"convert", show, path("ports.csv")}).status, 0);
    EXPECT_EQ(bytes("ports.csv").count("A,1,"), 8);
}

TEST_F(PortsOfShowTest, AWallThatIsTwiceOnAPortIsNamedOnce)
{
    const QString show = showOf(wall("MAIN", R"("split": "hand", "runs": [
        {"processor": "A", "port": 1, "piece": 1, "cells": ["0,0", "0,1"]},
        {"processor": "A", "port": 1, "piece": 2, "cells": ["1,1", "1,0"]}])"));
    const QJsonDocument info = QJsonDocument::fromJson(runCommand({"info", show, "--json"}).out.toUtf8());
    EXPECT_EQ(info["ports"][0]["walls"].toArray(), QJsonArray{"MAIN"});
}

TEST_F(PortsOfShowTest, AFindingOfAPortNamesItWithItsProcessor)
{
    const QByteArray runs = R"("split": "hand", "runs": [{"processor": "A", "port": 21, "piece": 1, "cells": ["0,0",
        "0,1", "0,2", "0,3", "1,3", "1,2", "1,1", "1,0"]}])";
    const QString show = showOf(wall("MAIN", runs));
    EXPECT_EQ(runCommand({"check", show}).out,
              show + ": layer 0 \"MAIN\", port A21: error: A cable hangs on A21, and the processor has 20 ports; move "
                     "the cable. [port-missing]\n1 error, 0 warnings, 0 notes\n");
    const QJsonDocument told = QJsonDocument::fromJson(runCommand({"check", show, "--json"}).out.toUtf8());
    EXPECT_EQ(told["findings"][0]["port"], 21);
    EXPECT_EQ(told["findings"][0]["processor"], "A");
}

TEST_F(PortsOfShowTest, WhatIsMeantIsListedAndCountsAsNothing)
{
    const QString show = showOf(wall("MAIN", R"("meant": ["walls-overlap"])") + ',' + wall("SIDE", R"("xpoint": 300)"));
    const Outcome outcome = runCommand({"check", show});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, show + ": layer 0 \"MAIN\": meant: It lies over SIDE in 100 × 200 px; move one of them. "
                                  "[walls-overlap]\n0 errors, 0 warnings, 0 notes, 1 meant\n");
}
