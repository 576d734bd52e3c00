#include "formats/PresetLibrary.h"

#include "archive/KeyedArchive.h"
#include "formats/BuiltInPresets.h"
#include "formats/ProjectFile.h"
#include "screen/LWScreen.h"
#include "show/LayerArchive.h"
#include "still/LWStill.h"
#include "tests/base/FullDisk.h"
#include "tests/formats/ArchiveNodes.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

namespace {
using Presets = std::vector<LayerPointer>;

QString archiveText(const Presets &presets)
{
    QString text;
    for (const LayerPointer &preset : presets)
        text += archiveText(*preset);
    return text;
}

ArchiveValue record(const QString &className, const QString &key = {}, const ArchiveValue &value = {})
{
    auto object = std::make_shared<ArchiveObject>(className);
    if (!key.isNull())
        object->encode(key, value);
    return {ArchiveObjectPointer(object)};
}

class PresetLibraryTest : public ::testing::Test
{
protected:
    /// Why a library with this root is refused.
    QString refusal(const ArchiveValue &root)
    {
        const Result<QByteArray> bytes = KeyedArchive::write(root);
        EXPECT_TRUE(bytes.has_value());
        const Result<Presets> presets = PresetLibrary::decode(bytes.value_or(QByteArray()), host);
        return presets ? QString("accepted") : presets.error().text;
    }
    LayerPointer wallOf256MebiPixels()
    {
        const auto wall = std::make_shared<LWScreen>(host);
        wall->setCol(128);
        wall->setRow(128);
        wall->setPanelWidth(128);
        wall->setPanelHeight(128);
        return wall;
    }

    TestHost host;
    const QTemporaryDir folder;
    const QString path = folder.filePath("myset");
};
} // namespace

TEST_F(PresetLibraryTest, ThePresetsComeBackInTheirOrder)
{
    const Presets presets = BuiltInPresets::make(host);

    ASSERT_TRUE(PresetLibrary::write(path, presets).has_value());

    const Result<Presets> loaded = PresetLibrary::read(path, host);
    ASSERT_TRUE(loaded.has_value()) << qPrintable(loaded.error().text);
    EXPECT_EQ(loaded->size(), 31U);
    EXPECT_EQ(archiveText(*loaded), archiveText(presets));
}

TEST_F(PresetLibraryTest, EveryKindOfLayerSurvives)
{
    const Presets layers = sampleProject(host).layers;

    const Result<Presets> loaded = PresetLibrary::decode(PresetLibrary::encode(layers).value(), host);

    ASSERT_TRUE(loaded.has_value()) << qPrintable(loaded.error().text);
    EXPECT_EQ(archiveText(*loaded), archiveText(layers));
    EXPECT_EQ(loaded->at(1)->className(), "LWStill");
}

TEST_F(PresetLibraryTest, TheFileIsNamedAsItWasTyped)
{
    ASSERT_TRUE(PresetLibrary::write(path, BuiltInPresets::make(host)).has_value());

    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"myset"});
}

TEST_F(PresetLibraryTest, TheRootIsTheListItselfAndNoOtherKeyIsStored)
{
    const QByteArray bytes = PresetLibrary::encode(BuiltInPresets::make(host)).value();
    const ArchiveNodes archive = parsedArchive(bytes);
    ASSERT_NE(archive, nullptr);

    EXPECT_EQ(plist_dict_get_size(archive.get()), 4U);
    EXPECT_EQ(plist_dict_get_size(plist_dict_get_item(archive.get(), "$top")), 1U);
    EXPECT_EQ(plist_dict_get_size(rootEntry(archive)), 2U); // entries and class
    plist_t entries = plist_dict_get_item(rootEntry(archive), "NS.objects");
    ASSERT_EQ(plist_array_get_size(entries), 31U);
    for (uint32_t row = 0; row < 31; ++row) {
        plist_t screen = tableEntry(archive, plist_array_get_item(entries, row));
        EXPECT_EQ(plist_dict_get_size(screen), 34U) << row; // a screen's 33 keys and its class
        EXPECT_NE(plist_dict_get_item(screen, "powerOnCell"), nullptr) << row;
    }
}

TEST_F(PresetLibraryTest, APresetNamedTwiceIsTwoPresets)
{
    const ArchiveValue screen = record("LWScreen", "col", {qint64{7}});
    const QByteArray bytes = KeyedArchive::write(ArchiveValue::list({screen, screen})).value();

    const Presets presets = PresetLibrary::decode(bytes, host).value();

    ASSERT_EQ(presets.size(), 2U);
    EXPECT_NE(presets[0], presets[1]);
    EXPECT_EQ(presets[1]->col(), 7);
}

TEST_F(PresetLibraryTest, AnEmptyLibraryIsAnEmptyList)
{
    ASSERT_TRUE(PresetLibrary::write(path, {}).has_value());
    const Result<std::vector<LayerPointer>> presets = PresetLibrary::read(path, host);
    ASSERT_TRUE(presets.has_value());
    EXPECT_TRUE(presets->empty());
}

TEST_F(PresetLibraryTest, WhatIsNoLibraryIsRefused)
{
    EXPECT_EQ(refusal({QString("presets")}), "this is no preset library: the root is a text, expected a list");
    EXPECT_EQ(refusal({}), "this is no preset library: the root is nil, expected a list");
    EXPECT_EQ(refusal(record("LWScreen")),
              "this is no preset library: the root is an object of class LWScreen, expected a list");
    EXPECT_EQ(refusal(ArchiveValue::list({record("LWScreen"), {QString("b")}})),
              "preset 1 is a text, expected a screen or a still");
    EXPECT_EQ(refusal(ArchiveValue::list({{}})), "preset 0 is nil, expected a screen or a still");
    EXPECT_TRUE(refusal(ArchiveValue::list({record("LWPalette")})).startsWith("preset 0 is an object of the unknown"));
    EXPECT_EQ(refusal(ArchiveValue::list({record("LWScreen")})), "accepted");
    EXPECT_FALSE(PresetLibrary::decode({}, host).has_value());
    EXPECT_FALSE(PresetLibrary::decode("no archive at all", host).has_value());
}

TEST_F(PresetLibraryTest, AProjectIsNoLibrary)
{
    const QByteArray project = ProjectFile::encode(sampleProject(host)).value();

    EXPECT_EQ(PresetLibrary::decode(project, host).error().text,
              "this is a project, no preset library; open it as a project");
}

TEST_F(PresetLibraryTest, APresetIsNamedByItsPlaceAndKey)
{
    EXPECT_EQ(
        refusal(ArchiveValue::list({record("LWScreen"), record("LWStill"), record("LWScreen", "rectcolor", {true})})),
        "preset 2: \"rectcolor\" is a boolean, expected a colour");
}

TEST_F(PresetLibraryTest, TheLimitsAreThoseOfProjects)
{
    EXPECT_EQ(refusal(ArchiveValue::list(std::vector<ArchiveValue>(10'001, record("LWScreen")))),
              "there are 10,001 layers; more than 10,000 cannot be kept, so remove some");
    EXPECT_TRUE(PresetLibrary::encode(Presets(4, wallOf256MebiPixels())).has_value());
    EXPECT_EQ(PresetLibrary::encode(Presets(5, wallOf256MebiPixels())).error().text,
              "walls and charts have 268,435,456 px too many; make some smaller");
}

TEST_F(PresetLibraryTest, MoreChartsThanCanBeHeldAreRefused)
{
    const auto chart = std::make_shared<LWStill>(host);
    chart->setValue("chart", "field colour=red");
    chart->setPanelWidth(16384);
    chart->setPanelHeight(16384);
    EXPECT_EQ(refusal(LayerArchive::encode(Presets(4, chart))), "accepted");
    EXPECT_EQ(refusal(LayerArchive::encode(Presets(5, chart))),
              "walls and charts have 268,435,456 px too many; make some smaller");
}

TEST_F(PresetLibraryTest, AFailureBeginsWithThePathAndLeavesTheFile)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no archive") == 10);
    file.close();

    EXPECT_TRUE(PresetLibrary::read(path, host).error().text.startsWith(path + ": "));
    EXPECT_TRUE(PresetLibrary::read(path + "2", host).error().text.startsWith(path + "2: there is no such file"));
    {
        const FullDisk disk(4096);
        EXPECT_EQ(PresetLibrary::write(path, BuiltInPresets::make(host)).error().text,
                  path + ": cannot be written: " + FullDisk::reason());
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "no archive");
}
