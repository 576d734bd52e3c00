#include "formats/ProjectFile.h"

#include "archive/KeyedArchive.h"
#include "screen/LWScreen.h"
#include "tests/formats/SampleProject.h"
#include "tests/screen/TestHost.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <limits>

namespace {
class ProjectFileTest : public ::testing::Test
{
protected:
    /// Why a project of these root elements is refused.
    QString refusal(std::vector<ArchiveValue> root)
    {
        const Result<QByteArray> bytes = KeyedArchive::write(ArchiveValue::list(std::move(root)));
        EXPECT_TRUE(bytes.has_value());
        const Result<Project> project = ProjectFile::decode(bytes.value_or(QByteArray()), host);
        return project ? QString("accepted") : project.error().text;
    }

    static ArchiveValue number(qint64 value) { return {value}; }
    static ArchiveValue layer(const QString &className, const QString &key = {}, const ArchiveValue &value = {})
    {
        auto object = std::make_shared<ArchiveObject>(className);
        if (!key.isNull())
            object->encode(key, value);
        return {ArchiveObjectPointer(object)};
    }

    TestHost host;
};
} // namespace

TEST_F(ProjectFileTest, HeightComesBeforeWidth)
{
    const QByteArray bytes = ProjectFile::encode({2160, 3840, {}}).value();

    const ArchiveValue root = KeyedArchive::read(bytes, {}).value();
    const ArchiveList elements = root.toList("root").value();
    ASSERT_EQ(elements->size(), 3U);
    EXPECT_EQ((*elements)[0].toInt32("").value(), 2160);
    EXPECT_EQ((*elements)[1].toInt32("").value(), 3840);

    const Project project = ProjectFile::decode(bytes, host).value();
    EXPECT_EQ(project.outputWidth, 3840);
    EXPECT_EQ(project.outputHeight, 2160);
    EXPECT_TRUE(project.layers.empty());
}

TEST_F(ProjectFileTest, EveryKeptValueComesBackInListOrder)
{
    const Project project = sampleProject(host);

    const Result<Project> loaded = ProjectFile::decode(ProjectFile::encode(project).value(), host);

    ASSERT_TRUE(loaded.has_value()) << qPrintable(loaded.error().text);
    EXPECT_EQ(archiveText(*loaded), archiveText(project));
}

TEST_F(ProjectFileTest, SavingAgainGivesTheSameBytes)
{
    const QByteArray first = ProjectFile::encode(sampleProject(host)).value();
    const QByteArray second = ProjectFile::encode(ProjectFile::decode(first, host).value()).value();

    // "rectcolor2" of a still is written and not read, so the second save is the first that can repeat.
    const QByteArray third = ProjectFile::encode(ProjectFile::decode(second, host).value()).value();
    EXPECT_EQ(second, third);
}

TEST_F(ProjectFileTest, NumbersAreTakenAsKeyedArchivesAllow)
{
    EXPECT_EQ(refusal({{1080.0}, {true}, ArchiveValue::list({})}), "accepted");
    EXPECT_EQ(refusal({{1080.5}, {true}, ArchiveValue::list({})}).contains("output height"), true);
}

TEST_F(ProjectFileTest, ARootOfAnotherShapeIsRefused)
{
    EXPECT_EQ(refusal({}), "this is no project: a list of 0, expected output height, output width and layers");
    EXPECT_EQ(refusal({number(5), number(5)}),
              "this is no project: a list of 2, expected output height, output width and layers");
    EXPECT_EQ(refusal({number(5), number(5), ArchiveValue::list({}), number(1)}), "accepted");
    EXPECT_EQ(refusal({number(5), number(5), number(5)}), "the layer list is a number, expected a list");
    EXPECT_EQ(refusal({ArchiveValue::list({}), number(5), ArchiveValue::list({})}),
              "the output height is a list, expected a whole number of 32 bits");
    EXPECT_EQ(refusal({number(5), {}, ArchiveValue::list({})}).startsWith("the output is 0 x 5 pixels"), true);
}

TEST_F(ProjectFileTest, OutputsThatCannotBeDrawnAreRefused)
{
    const QString limits = " pixels; each side must be 1 to 32768 and the whole at most 268435456 pixels";
    EXPECT_EQ(refusal({number(0), number(1920), ArchiveValue::list({})}), "the output is 1920 x 0" + limits);
    EXPECT_EQ(refusal({number(-5), number(1920), ArchiveValue::list({})}), "the output is 1920 x -5" + limits);
    EXPECT_EQ(refusal({number(32769), number(1), ArchiveValue::list({})}), "the output is 1 x 32769" + limits);
    EXPECT_EQ(refusal({number(32768), number(32768), ArchiveValue::list({})}), "the output is 32768 x 32768" + limits);
    EXPECT_EQ(refusal({number(8192), number(32768), ArchiveValue::list({})}), "accepted");
    EXPECT_EQ(ProjectFile::encode({0, 1920, {}}).error().text, "the output is 1920 x 0" + limits);
}

TEST_F(ProjectFileTest, ALayerIsNamedByItsPlaceAndKey)
{
    const auto layers = [](const ArchiveValue &last) {
        return ArchiveValue::list({layer("LWScreen"), layer("LWStill"), layer("LWScreen"), last});
    };
    EXPECT_EQ(refusal({number(5), number(5), layers(layer("LWScreen", "rectcolor", number(1)))}),
              "layer 3: \"rectcolor\" is a number, expected a colour");
    EXPECT_EQ(refusal({number(5), number(5), layers(layer("LWScreen", "col", number(qint64{1} << 31)))})
                  .startsWith("layer 3: \"col\" is "),
              true);
    EXPECT_EQ(refusal({number(5), number(5), layers(number(1))}).startsWith("layer 3 is a number, expected "), true);
    EXPECT_EQ(refusal({number(5), number(5), layers(layer("LWPalette"))}).startsWith("layer 3 is an object of "), true);
    EXPECT_EQ(refusal({number(5), number(5), layers({})}).startsWith("layer 3 is nil, expected "), true);
    EXPECT_EQ(refusal({number(5), number(5), layers(layer("LWScreen"))}), "accepted");
}

TEST_F(ProjectFileTest, ForeignBytesAreRefused)
{
    EXPECT_FALSE(ProjectFile::decode({}, host).has_value());
    EXPECT_FALSE(ProjectFile::decode("no archive at all", host).has_value());
    EXPECT_FALSE(ProjectFile::decode(QByteArray(1000, '\0'), host).has_value());
}

TEST_F(ProjectFileTest, AWallOfTwoBillionColumnsOpensAtOnceAndEmpty)
{
    const auto screen = LWScreen::init(host);
    screen->setCol(std::numeric_limits<int>::max());
    screen->setRow(std::numeric_limits<int>::max());
    screen->setDrawLabels(true);
    screen->setDrawFlowPath(true);
    screen->setCircleEnable(true);
    const QByteArray bytes = ProjectFile::encode({1080, 1920, {screen}}).value();

    const Project project = ProjectFile::decode(bytes, host).value();

    ASSERT_EQ(project.layers.size(), 1U);
    EXPECT_TRUE(project.layers[0]->thumbnail().isNull());
    EXPECT_EQ(project.layers[0]->col(), std::numeric_limits<int>::max());
}

TEST_F(ProjectFileTest, OneLayerNamedVeryManyTimesIsRefused)
{
    const std::vector<ArchiveValue> layers(10'001, layer("LWScreen"));

    EXPECT_EQ(refusal({number(5), number(5), ArchiveValue::list(layers)}),
              "there are 10,001 layers; more than 10,000 cannot be kept, so remove some");
}

TEST_F(ProjectFileTest, NothingIsWrittenThatWouldBeRefused)
{
    const Project manyLayers{5, 5, std::vector<LayerPointer>(10'001, LWScreen::init(host))};
    EXPECT_EQ(ProjectFile::encode(manyLayers).error().text,
              "there are 10,001 layers; more than 10,000 cannot be kept, so remove some");

    const auto wall = std::make_shared<LWScreen>(host);
    wall->setCol(128);
    wall->setRow(128);
    wall->setPanelWidth(128);
    wall->setPanelHeight(128);
    EXPECT_EQ(ProjectFile::encode({5, 5, std::vector<LayerPointer>(5, wall)}).error().text,
              "walls and charts have 268,435,456 px too many; make some smaller");
}

TEST_F(ProjectFileTest, FilesKeepWhatBytesKeep)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    const Project project = sampleProject(host);

    ASSERT_TRUE(ProjectFile::write(path, project).has_value());

    const Result<Project> loaded = ProjectFile::read(path, host);
    ASSERT_TRUE(loaded.has_value()) << qPrintable(loaded.error().text);
    EXPECT_EQ(archiveText(*loaded), archiveText(project));
}

TEST_F(ProjectFileTest, AFileOfMoreThan512MebibytesIsNotRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize((qint64{512} << 20) + 1));
    EXPECT_EQ(ProjectFile::read(path, host).error().text,
              path + ": the file has 512.00 MiB; more than 512.00 MiB is not read");
    ASSERT_TRUE(file.resize(qint64{512} << 20));
    EXPECT_FALSE(ProjectFile::read(path, host).error().text.contains("512.00 MiB"));
}

TEST_F(ProjectFileTest, AFailureBeginsWithThePath)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("show.Orv");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no archive") == 10);
    file.close();

    EXPECT_TRUE(ProjectFile::read(path, host).error().text.startsWith(path + ": "));
    EXPECT_TRUE(ProjectFile::write(path, {0, 0, {}}).error().text.startsWith(path + ": the output is 0 x 0"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "no archive");
}
