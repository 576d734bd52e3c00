#include "formats/FileFormat.h"

#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <gtest/gtest.h>
#include <set>

namespace {
using Kind = FileFormat::Kind;
using Gives = FileFormat::Gives;

QString textOf(const QString &file)
{
    QFile source(QString(FIXTURES "../../") + file);
    EXPECT_TRUE(source.open(QIODevice::ReadOnly)) << qPrintable(file);
    return QString::fromUtf8(source.readAll());
}

/// "application/x-wallwright *.orv" for each name that desktops are told.
std::set<QString> namesInMimeFile()
{
    std::set<QString> names;
    QXmlStreamReader xml(textOf("resources/desktop/mime.xml"));
    QString type;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QStringLiteral("mime-type"))
            type = xml.attributes().value("type").toString();
        if (xml.name() == QStringLiteral("glob"))
            names.insert(QString("%1 %2").arg(type, xml.attributes().value("pattern")));
    }
    EXPECT_FALSE(xml.hasError());
    return names;
}
} // namespace

TEST(FileFormat, EachRowStandsAtItsPlace)
{
    ASSERT_EQ(FileFormat::all().size(), 7);
    for (const FileFormat &format : FileFormat::all())
        EXPECT_EQ(FileFormat::of(format.kind).kind, format.kind) << format.content;
    EXPECT_EQ(FileFormat::all()[6].kind, Kind::Picture);
}

TEST(FileFormat, ANameTellsTheFormatInUpperAndLowerCase)
{
    EXPECT_EQ(FileFormat::named("/a/show.ORV")->kind, Kind::Project);
    EXPECT_EQ(FileFormat::named("show.orv.Json")->kind, Kind::Text);
    EXPECT_EQ(FileFormat::named("wall.PNG")->kind, Kind::Png);
    EXPECT_EQ(FileFormat::named("wall.psd")->kind, Kind::Psd);
    for (const char *name : {"show", "show.", ".", "", "/a.Orv/show", "show.Orv~"})
        EXPECT_EQ(FileFormat::named(name), nullptr) << name;
}

TEST(FileFormat, WhateverAFileIsCalledItCanBeOpened)
{
    EXPECT_EQ(FileFormat::toOpen("show.JSON").kind, Kind::Text);
    for (const char *name : {"show.Orv", "show", "show.xml", "wall.png", "wall.psd", ""})
        EXPECT_EQ(FileFormat::toOpen(name).kind, Kind::Project) << name;
    EXPECT_FALSE(FileFormat::toOpen("show.json").isSaved);
    EXPECT_TRUE(FileFormat::toOpen("show.xml").isSaved);
}

TEST(FileFormat, ProjectsAreReadFromWhatGivesThem)
{
    for (const FileFormat &format : FileFormat::all())
        EXPECT_EQ(format.read != nullptr, format.gives == Gives::Project) << format.content;
    EXPECT_EQ(FileFormat::toRead("a.psd").error().text,
              "a.psd: a .psd file holds no project and can only be written; read a .Orv or .json file");
    EXPECT_EQ(FileFormat::toRead("a.xml").error().text, "a.xml: the name must end in .Orv or .json");
    EXPECT_EQ(FileFormat::toWrite("a.xml").error().text, "a.xml: the name must end in .Orv, .json, .png, .psd or .csv");
}

TEST(FileFormat, PanelsListWhatGivesTheThing)
{
    EXPECT_EQ(FileFormat::patternsOf(Gives::Project), QStringList({"*.Orv", "*.orv", "*.json"}));
    EXPECT_EQ(FileFormat::patternsOf(Gives::Presets), QStringList());
    const QStringList pictures = FileFormat::patternsOf(Gives::Layer);
    for (const char *shown : {"*.png", "*.jpg", "*.jpeg", "*.svg", "*.tga"})
        EXPECT_TRUE(pictures.contains(shown)) << shown;
    ASSERT_TRUE(QImageReader::supportedImageFormats().contains("xbm"));
    EXPECT_FALSE(pictures.contains("*.xbm"));
}

TEST(FileFormat, TheTypedNameGetsItsExtensionByTheRuleOfTheFormat)
{
    const auto final = [](Kind kind, const char *typed) { return FileFormat::of(kind).finalPath(typed); };
    EXPECT_EQ(final(Kind::Project, "/a/show"), "/a/show.Orv");
    EXPECT_EQ(final(Kind::Project, "/a/show.Orv"), "/a/show.Orv");
    EXPECT_EQ(final(Kind::Project, "/a/show.orv"), "/a/show.orv.Orv");
    EXPECT_EQ(final(Kind::Png, "wall.png"), "wall.png");
    EXPECT_EQ(final(Kind::Png, "wall.Orv"), "wall.Orv.png");
    EXPECT_EQ(final(Kind::Psd, "a"), "a.psd");
    EXPECT_EQ(final(Kind::Psd, "a.psd"), "a.psd.psd");
    EXPECT_EQ(final(Kind::Presets, "Panels 2.6"), "Panels 2.6");
}

TEST(FileFormat, DesktopsAreToldTheTypesOfTheTable)
{
    std::set<QString> names;
    QStringList types;
    for (const FileFormat &format : FileFormat::all()) {
        if (!format.mimeType)
            continue;
        types.append(format.mimeType);
        names.insert(QString("%1 *.%2").arg(format.mimeType, QString(format.extension).toLower()));
    }
    ASSERT_EQ(types.size(), 1);
    EXPECT_EQ(namesInMimeFile(), names);
    EXPECT_TRUE(textOf("resources/desktop/org.wallwright.Wallwright.desktop")
                    .contains("\nMimeType=" + types.join(';') + ";\n"));
    for (const QString &type : types)
        EXPECT_TRUE(textOf("resources/desktop/metainfo.xml.in").contains("<mediatype>" + type + "</mediatype>"));
}

TEST(FileFormat, TheManualAndTheGuideNameEachExtension)
{
    const QString manual = textOf("resources/desktop/wallwright.1.in");
    const QString guide = textOf("docs/file-formats.md");
    for (const FileFormat &format : FileFormat::all()) {
        if (!format.write)
            continue;
        const QString extension = format.extension;
        const QRegularExpression entry("\\.I \\*\\." + extension + "\n[^\n]*?\\.( Read and)? [Ww]ritten\\.\n");
        EXPECT_EQ(entry.match(manual).captured(1) == " Read and", format.read != nullptr) << format.extension;
        EXPECT_TRUE(entry.match(manual).hasMatch()) << format.extension;
        EXPECT_TRUE(guide.contains("\n| `." + extension + "` |")) << format.extension;
    }
}
