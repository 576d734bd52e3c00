#include "formats/PSDExport.h"

#include "base/FileBytes.h"
#include "psd/KXPSDWriter.h"
#include "still/LWStill.h"
#include "tests/app/DocumentFixture.h"
#include "tests/app/LayeredFile.h"
#include "tests/base/FullDisk.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <limits>

namespace {
class PSDExportTest : public DocumentFixture
{
protected:
    static constexpr QSize output{7, 5};

    /// A picture in which no two pixels are equal, some of them translucent.
    static QImage manyColours(const QSize &size)
    {
        QImage picture(size, QImage::Format_ARGB32_Premultiplied);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                picture.setPixel(x, y, qRgba(x, y, 40, x % 2 == 0 ? 255 : 100));
        }
        return picture;
    }

    LayerPointer still(const QString &label, const QPoint &place = {}, const QSize &size = {3, 2})
    {
        const auto still = LWStill::initWithimage(document, manyColours(size));
        still->setLabel(label);
        still->setXpoint(place.x());
        still->setYpoint(place.y());
        return still;
    }

    static Project project(const std::vector<LayerPointer> &layers)
    {
        return {output.height(), output.width(), layers};
    }

    LayeredFile exported(const std::vector<LayerPointer> &layers)
    {
        const Result<QByteArray> bytes = PSDExport::encode(project(layers), screenNumber);
        EXPECT_TRUE(bytes.has_value());
        return LayeredFile::read(bytes.value_or(QByteArray()));
    }

    /// What is left of a picture at its place on the output.
    static QImage onOutput(const QImage &picture, const QPoint &place)
    {
        QImage expected(output, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        for (int y = 0; y < output.height(); ++y) {
            for (int x = 0; x < output.width(); ++x) {
                if (picture.valid(QPoint(x, y) - place))
                    expected.setPixel(x, y, picture.pixel(QPoint(x, y) - place));
            }
        }
        return expected;
    }

    QByteArray contents(const QString &name) const
    {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    int screenNumber = 0;
};

QString errorOf(const Result<QByteArray> &result)
{
    return result ? QString("no error") : result.error().text;
}
} // namespace

TEST_F(PSDExportTest, TheLastLayerComesFirstAndIsNamedByTheCounter)
{
    screenNumber = 7;
    const std::vector<LayerPointer> layers{still("A"), still("")};

    const LayeredFile file = exported(layers);

    EXPECT_EQ(file.size, output);
    EXPECT_EQ(file.names(), QStringList({"Untitled 8", "A"}));
    EXPECT_EQ(screenNumber, 9);
    EXPECT_EQ(layers[1]->label(), "Untitled 8");
}

TEST_F(PSDExportTest, LayersWithANameCountToo)
{
    EXPECT_EQ(exported({still(""), still("B"), still(QString()), still("D")}).names(),
              QStringList({"D", "Untitled 2", "B", "Untitled 4"}));
    EXPECT_EQ(screenNumber, 4);
}

TEST_F(PSDExportTest, AHiddenLayerIsThereWithOpacityNought)
{
    const LayerPointer hidden = still("hidden");
    hidden->setVisible(false);

    const LayeredFile file = exported({hidden, still("shown")});

    EXPECT_EQ(file.names(), QStringList({"shown", "hidden"}));
    EXPECT_EQ(file.opacities(), QList<int>({255, 0}));
    EXPECT_EQ(file.layers[1].picture, file.layers[0].picture);
}

TEST_F(PSDExportTest, AStillGoesInThePictureOwnSize)
{
    const LayerPointer scaled = still("S", {2, 1});
    scaled->setPanelWidth(6);
    scaled->setPanelHeight(4);
    scaled->drawInRect();

    EXPECT_EQ(exported({scaled}).layers.at(0).picture, onOutput(scaled->thumbnail(), {2, 1}));
}

TEST_F(PSDExportTest, IsToTheByteWhatTheWriterMakesOfTheLayersAsTheyAre)
{
    const LayerPointer wall = solidScreen(Colour{0, 1, 0, 1}, QRect(-2, 1, 6, 3));
    wall->setLabel("Wall");
    const LayerPointer picture = still("Plate", {5, 4});
    KXPSDWriter writer(output);
    writer.addLayerWithCGImage(picture->thumbnail(), "Plate", 1, {5, 4});
    writer.addLayerWithCGImage(wall->thumbnail(), "Wall", 1, {-2, 1});

    EXPECT_EQ(PSDExport::encode(project({wall, picture}), screenNumber), writer.createPSDData());
}

TEST_F(PSDExportTest, WhateverSticksOutTheRestStandsAtItsPlace)
{
    struct Extent
    {
        int start;
        int length;
    };
    // Inside; out at the start, at the end, at both ends; flush with the output at both ends, at one.
    for (const Extent &across : {Extent{2, 3}, {-2, 5}, {4, 9}, {-3, 13}, {0, 7}, {-1, 8}, {0, 9}}) {
        for (const Extent &down : {Extent{1, 2}, {-2, 4}, {3, 6}, {-4, 12}, {0, 5}, {-1, 6}, {0, 8}}) {
            const QPoint place(across.start, down.start);
            const LayerPointer layer = still("L", place, {across.length, down.length});

            const LayeredFile file = exported({layer});

            ASSERT_EQ(file.layers.size(), 1U);
            EXPECT_EQ(file.layers[0].picture, onOutput(layer->thumbnail(), place))
                << across.start << '+' << across.length << ", " << down.start << '+' << down.length;
        }
    }
}

TEST_F(PSDExportTest, OnlyTheAxisThatSticksOutAtBothEndsIsCut)
{
    const LayerPointer wide = still("Wide", {-3, -1}, {13, 4});
    KXPSDWriter writer(output);
    writer.addLayerWithCGImage(wide->thumbnail().copy(3, 0, 7, 4), "Wide", 1, {0, -1});

    EXPECT_EQ(PSDExport::encode(project({wide}), screenNumber), writer.createPSDData());
    EXPECT_EQ(wide->xpoint(), -3);
    EXPECT_EQ(wide->thumbnail().size(), QSize(13, 4));
}

TEST_F(PSDExportTest, AWallAtTheEndOfTheNumbersIsLeftOut)
{
    const int farthest = std::numeric_limits<int>::max();
    const LayeredFile file =
        exported({still("left", {-farthest - 1, 0}), still("right", {farthest, farthest}), still("here")});

    EXPECT_EQ(file.names(), QStringList{"here"});
    EXPECT_EQ(screenNumber, 3);
}

TEST_F(PSDExportTest, ANameOf255UnitsIsWhole)
{
    const QString name(255, u'x');
    EXPECT_EQ(exported({still(name)}).names(), QStringList{name});
}

TEST_F(PSDExportTest, ALongerNameIsCutInTheFileOnly)
{
    const LayerPointer layer = still(QString(300, u'x'));
    EXPECT_EQ(exported({layer}).names(), QStringList{QString(255, u'x')});
    EXPECT_EQ(layer->label().size(), 300);
}

TEST_F(PSDExportTest, ANameIsNotCutWithinALetter)
{
    const QString emoji = QString::fromUtf8("\xf0\x9f\x8e\xac"); // two units each
    EXPECT_EQ(exported({still(emoji.repeated(150))}).names(), QStringList{emoji.repeated(127)});
    EXPECT_EQ(exported({still('x' + emoji.repeated(150))}).names(), QStringList{'x' + emoji.repeated(127)});
}

TEST_F(PSDExportTest, ALayerWithoutPictureIsNamedAndLeftOut)
{
    const LayerPointer missing = LWStill::initWithimage(document, {});
    missing->setLabel({});

    EXPECT_EQ(exported({still("A"), missing}).names(), QStringList{"A"});
    EXPECT_EQ(missing->label(), "Untitled 1");
}

TEST_F(PSDExportTest, AVisibleWallThatIsLostFailsTheExport)
{
    const LayerPointer wall = solidScreen(Colour{0, 1, 0, 1}, QRect(0, 0, 6, 3));
    wall->setLabel("MAIN");
    wall->setThumbnail({}); // what a rendering leaves that got no memory
    EXPECT_EQ(errorOf(PSDExport::encode(project({still("A"), wall}), screenNumber)),
              "MAIN: there is not enough memory to draw 6 x 3 pixels; close other programs or make the wall smaller");
    EXPECT_EQ(PSDExport::leftOut(project({still("A"), wall})).size(), 1);

    wall->setPanelWidth(40'000);
    wall->drawInRect();
    EXPECT_EQ(errorOf(PSDExport::encode(project({still("A"), wall}), screenNumber)),
              "MAIN: 40,000 x 3 pixels are too large to draw; make the wall smaller");

    wall->setVisible(false);
    EXPECT_EQ(exported({still("A"), wall}).names(), QStringList{"A"});
    EXPECT_EQ(PSDExport::leftOut(project({still("A"), wall})),
              QStringList{"MAIN: 40,000 x 3 pixels are too large to draw; make the wall smaller"});
}

TEST_F(PSDExportTest, AWallWithoutPixelsIsNotLost)
{
    const LayerPointer wall = solidScreen(Colour{0, 1, 0, 1}, QRect(0, 0, 6, 0));
    EXPECT_EQ(exported({still("A"), wall}).names(), QStringList{"A"});
    EXPECT_EQ(PSDExport::leftOut(project({wall})), QStringList());
}

TEST_F(PSDExportTest, PicturesInAnotherSizeThanTheOutputShowsAreTold)
{
    const LayerPointer scaled = still("LOGO", {2, 1});
    scaled->setPanelWidth(6);
    scaled->setPanelHeight(4);
    scaled->drawInRect();
    const LayerPointer outside = still("FAR", {7, 1});
    outside->setPanelWidth(6);
    outside->drawInRect();
    const auto missing = LWStill::initWithimage(document, {});
    missing->setImageURL({"logo.png", {}});
    missing->setVisible(false);

    EXPECT_EQ(PSDExport::resized(project({scaled, still("B"), outside, missing})),
              QStringList{"LOGO went in at its own size, 3 x 2; on the output it is 6 x 4"});
    EXPECT_EQ(PSDExport::leftOut(project({scaled, missing})),
              QStringList{"A picture without a name is left out: \"logo.png\" is missing or no picture"});
}

TEST_F(PSDExportTest, NothingToShowIsAnError)
{
    const QString expected = "No visible layers in the document; put a layer with a picture on the output";
    EXPECT_EQ(errorOf(PSDExport::encode(project({}), screenNumber)), expected);
    EXPECT_EQ(errorOf(PSDExport::encode(project({still("far", {7, 0})}), screenNumber)), expected);
    const QString path = folder.filePath("a.psd");
    EXPECT_EQ(PSDExport::write(path, project({}), screenNumber).error().text, path + ": " + expected);
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(PSDExportTest, AnImpossibleOutputIsRefusedBeforeAnythingIsDone)
{
    const LayerPointer layer = still("");
    const auto refusal = [&](int width, int height) {
        return errorOf(PSDExport::encode({height, width, {layer}}, screenNumber, [](double) {
            ADD_FAILURE() << "work has begun";
            return true;
        }));
    };

    EXPECT_EQ(refusal(30'001, 2),
              "an output of 30001 x 2 pixels: a PSD has 1 to 30000 on a side; change the output's size");
    EXPECT_EQ(refusal(2, 30'001),
              "an output of 2 x 30001 pixels: a PSD has 1 to 30000 on a side; change the output's size");
    EXPECT_EQ(refusal(0, 1080),
              "an output of 0 x 1080 pixels: a PSD has 1 to 30000 on a side; change the output's size");
    EXPECT_EQ(refusal(1920, -1),
              "an output of 1920 x -1 pixels: a PSD has 1 to 30000 on a side; change the output's size");
    EXPECT_EQ(refusal(30'000, 30'000),
              "an output of 30000 x 30000 pixels: at most 268435456 in all can be drawn; make it smaller");
    EXPECT_EQ(layer->label(), QString());
    EXPECT_EQ(screenNumber, 0);
}

TEST_F(PSDExportTest, TheLongestSideIsPossible)
{
    const Result<QByteArray> bytes = PSDExport::encode({1, 30'000, {still("A")}}, screenNumber);
    ASSERT_TRUE(bytes.has_value()) << qPrintable(bytes.error().text);
    EXPECT_EQ(LayeredFile::read(*bytes).size, QSize(30'000, 1));
}

TEST_F(PSDExportTest, ProgressRisesFromNoughtAndLeavesTheEndToTheCaller)
{
    std::vector<double> told;
    const auto note = [&](double done) {
        told.push_back(done);
        return true;
    };

    ASSERT_TRUE(
        PSDExport::write(folder.filePath("a.psd"), project({still("A"), still("B"), still("C")}), screenNumber, note));

    ASSERT_GT(told.size(), 4U);
    EXPECT_EQ(told.front(), 0);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_GT(told.back(), 0.6);
    EXPECT_LT(told.back(), 1);
}

TEST_F(PSDExportTest, CancellingAtAnyTimeTouchesNoFile)
{
    const QString path = folder.filePath("old.psd");
    ASSERT_TRUE(FileBytes::write(path, "old").has_value());
    for (const double patience : {0.0, 0.1, 0.3, 0.5, 0.7}) {
        bool wasCancelled = false;
        const auto cancel = [&](double done) {
            EXPECT_FALSE(wasCancelled) << "asked again";
            wasCancelled = done >= patience;
            return !wasCancelled;
        };

        const auto outcome = PSDExport::write(path, project({still("A"), still("B")}), screenNumber, cancel);

        EXPECT_TRUE(wasCancelled);
        ASSERT_TRUE(outcome.has_value()) << qPrintable(outcome.error().text);
        EXPECT_EQ(*outcome, PSDExport::Outcome::Cancelled);
        EXPECT_EQ(contents("old.psd"), "old");
    }
}

TEST_F(PSDExportTest, TheFileHasExactlyTheGivenNameAndReplacesTheOldOne)
{
    ASSERT_TRUE(FileBytes::write(folder.filePath("show"), "old").has_value());

    const auto outcome = PSDExport::write(folder.filePath("show"), project({still("A")}), screenNumber);

    EXPECT_EQ(outcome, PSDExport::Outcome::Written);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"show"});
    EXPECT_EQ(LayeredFile::read(contents("show")).names(), QStringList{"A"});
}

TEST_F(PSDExportTest, AFailedWriteLeavesTheOldFileAndNothingElse)
{
    const QString path = folder.filePath("a.psd");
    ASSERT_TRUE(FileBytes::write(path, "old").has_value());

    Result<PSDExport::Outcome> outcome;
    {
        const FullDisk disk(100);
        outcome = PSDExport::write(path, project({still("A")}), screenNumber);
    }

    ASSERT_FALSE(outcome.has_value());
    EXPECT_EQ(outcome.error().text, path + ": cannot be written: " + FullDisk::reason());
    EXPECT_EQ(contents("a.psd"), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{"a.psd"});
}

TEST_F(PSDExportTest, AFolderInItsPlaceAndAMissingFolderAreTold)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("a.psd"));
    const QString taken = folder.filePath("a.psd");
    const QString nowhere = folder.filePath("nowhere/a.psd");

    EXPECT_EQ(PSDExport::write(taken, project({still("A")}), screenNumber).error().text,
              taken + ": cannot be written: this is a folder or a device, not a file");
    EXPECT_EQ(PSDExport::write(nowhere, project({still("A")}), screenNumber).error().text,
              nowhere + ": cannot be written: " + reasonOfNoFolder());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{"a.psd"});
}
