#pragma once

#include "formats/ProjectText.h"
#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Projects as text, in a folder of their own.
class ProjectTextFixture : public ::testing::Test
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
