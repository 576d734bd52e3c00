#include "still/PictureFile.h"

#include "drawing/Raster.h"
#include "still/DrawingCheck.h"
#include "tests/still/PictureFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using PictureFileTest = PictureFixture;

TEST_F(PictureFileTest, ComesInTheRasterFormatAndItsOwnSize)
{
    const auto picture = load(saved("plate.png", {31, 17}, Qt::red));

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), QSize(31, 17));
    EXPECT_EQ(picture->format(), Raster::format);
    EXPECT_EQ(picture->pixel(30, 16), 0xffff0000U);
}

TEST_F(PictureFileTest, APhotographIsTurnedUpright)
{
    QFile file(saved("photograph.jpg", {40, 24}, Qt::white));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    // An Exif segment with one entry: orientation 6, the camera was held upright.
    bytes.insert(
        2, QByteArray::fromHex("ffe1 0022 457869660000 49492a0008000000 0100 1201 0300 01000000 06000000 00000000"));

    const auto picture = load(written("upright.jpg", bytes));

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), QSize(24, 40));
}

TEST_F(PictureFileTest, WhatIsNoPictureGivesNone)
{
    EXPECT_EQ(load(folder.filePath("missing.png")), nullptr);
    EXPECT_EQ(load(written("text.png", "this is no picture")), nullptr);
    EXPECT_EQ(load(folder.path()), nullptr);
    EXPECT_EQ(load(QString()), nullptr);
}

TEST_F(PictureFileTest, ADrawingMayEmbedPicturesAndReferToItself)
{
    QFile plate(saved("plate.png", {4, 4}, Qt::blue));
    ASSERT_TRUE(plate.open(QIODevice::ReadOnly));
    const QByteArray embedded =
        "<image width='20' height='20' xlink:href='data:image/png;base64," + plate.readAll().toBase64() + "'/>";

    const auto picture = load(written("drawing.svg", drawing(embedded)));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->pixel(10, 10), 0xff0000ffU);

    EXPECT_NE(load(written("use.svg", drawing("<g id='a'/><use xlink:href='#a'/>"))), nullptr);
}

TEST_F(PictureFileTest, ACompressedDrawingGivesNone)
{
    const QByteArray compressed = QByteArray::fromHex(
        "1f8b0800000000000203b3292e4b57a8c8cdc92bb655cf282929b0d2d72f2f2fd72b37d6cb2f4ad737323030d007aa505728cf4c29c9b0"
        "55375257c848cd4ccf280131f5ed0008e7f2533e000000");
    EXPECT_EQ(load(written("drawing.svgz", compressed)), nullptr);
}

TEST_F(PictureFileTest, ADrawingThatWouldNeverEndOrNestsTooDeepGivesNone)
{
    const auto groups = [](int count, int uses) {
        QByteArray content = "<g id='g0'><rect width='9' height='9'/></g>";
        for (int i = 1; i < count; ++i) {
            const QByteArray use = "<use xlink:href='#g" + QByteArray::number(i - 1) + "'/>";
            content += "<g id='g" + QByteArray::number(i) + "'>" + use.repeated(uses) + "</g>";
        }
        return content;
    };
    const auto sized = [&](const QByteArray &content) {
        return load(written("drawing.svg", drawing(content).replace("width='20' height='20'>", ">")));
    };
    EXPECT_EQ(sized(groups(40, 2)), nullptr);
    EXPECT_EQ(sized(groups(100'000, 1)), nullptr);
    EXPECT_NE(sized(groups(17, 2)), nullptr);
    EXPECT_NE(sized(groups(400, 1)), nullptr);
}

TEST_F(PictureFileTest, ALargePhotographIsRead)
{
    const auto picture = load(saved("photograph.bmp", {6000, 6000}, Qt::white));

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), QSize(6000, 6000));
}

TEST_F(PictureFileTest, APictureLargerThanARasterGivesNone)
{
    EXPECT_EQ(load(saved("wide.png", {32769, 1}, Qt::red)), nullptr);
    EXPECT_NE(load(saved("fits.png", {32768, 1}, Qt::red)), nullptr);
}

TEST_F(PictureFileTest, APictureLargerThanARasterTellsSo)
{
    const QString sentence =
        "has more than 32,768 px a side or 268,435,456 px in all; make it smaller and choose it again";
    EXPECT_EQ(PictureFile::load(saved("wide.png", {32769, 1}, Qt::red)).obstacle, sentence);
    EXPECT_EQ(PictureFile::load(saved("fits.png", {32768, 1}, Qt::red)).obstacle, std::nullopt);

    QByteArray announced("P5 16385 16384 255\n"); // no more is needed to know
    EXPECT_EQ(PictureFile::load(written("plate.pgm", announced)).obstacle, sentence);
    EXPECT_EQ(PictureFile::load(written("plate.pgm", announced.replace("16385", "00085"))).obstacle, std::nullopt);
}

TEST_F(PictureFileTest, PicturesThatAreHeldLeaveRoomForNoMoreThanTheBound)
{
    const auto first = PictureFile::load(saved("first.png", {20, 10}, Qt::red), {.pixels = 400});
    const QString path = saved("second.png", {20, 10}, Qt::blue);
    EXPECT_NE(PictureFile::load(path, {.pixels = 400}).picture, nullptr); // and is gone again
    EXPECT_EQ(PictureFile::load(path, {.pixels = 399}).picture, nullptr);
    EXPECT_EQ(PictureFile::load(path, {.pixels = 399}).obstacle,
              "would bring the pictures to more than 399 px; make some smaller and choose it again");

    const auto second = PictureFile::load(path, {.pixels = 400});
    EXPECT_EQ(PictureFile::load(path, {.pixels = 1}).picture, second.picture); // one picture, however many show it
    EXPECT_EQ(PictureFile::load(saved("third.png", {1, 1}, Qt::blue), {.pixels = 400}).picture, nullptr);
    EXPECT_NE(PictureFile::load(saved("third.png", {1, 1}, Qt::blue), {.pixels = 401}).picture, nullptr);
}

TEST_F(PictureFileTest, WhatGivesNoPictureIsReadThreeTimesHoweverManyLayersShowIt)
{
    const QByteArray other = "<image width='9' height='9' xlink:href='plate.png'/>";
    const QByteArray plain = drawing(QByteArray("<rect width='9' height='9'/>").leftJustified(other.size()));
    const QString path = written("drawing.svg", drawing(other));
    const auto refused = PictureFile::load(path);
    EXPECT_EQ(load(path), nullptr);
    replaceUnseen(path, plain, 0);
    EXPECT_NE(load(path), nullptr); // it was read again
    replaceUnseen(path, drawing(other), 1);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(load(path), nullptr);
    replaceUnseen(path, plain, 0);
    EXPECT_EQ(load(path), nullptr);
    EXPECT_EQ(PictureFile::load(path).obstacle, refused.obstacle);
    replaceUnseen(path, plain, 1);
    EXPECT_NE(load(path), nullptr);
}

TEST_F(PictureFileTest, ADrawingOfUnknownSizeIsHeldToTheBoundToo)
{
    const QByteArray plain = drawing("<rect width='9' height='9'/>");
    EXPECT_EQ(PictureFile::load(written("plain.svg", plain), {.pixels = 399}).picture, nullptr);
    EXPECT_NE(PictureFile::load(written("plain.svg", plain), {.pixels = 400}).picture, nullptr);
}

TEST_F(PictureFileTest, DrawingsHaveTimeTogether)
{
    const QByteArray plain = drawing("<rect width='9' height='9'/>");
    const qint64 one = DrawingCheck::nanoseconds(plain).value_or(0);
    EXPECT_GT(one, 0);
    auto first = PictureFile::load(written("first.svg", plain), {.nanoseconds = one});
    EXPECT_NE(first.picture, nullptr);
    const QString second = written("second.svg", plain);
    EXPECT_EQ(PictureFile::load(second, {.nanoseconds = 2 * one - 1}).picture, nullptr);
    EXPECT_NE(PictureFile::load(second, {.nanoseconds = 2 * one}).picture, nullptr); // and is gone again
    EXPECT_NE(PictureFile::load(saved("plain.png", {1, 1}, Qt::red), {.nanoseconds = 0}).picture, nullptr);

    const auto sentence = PictureFile::load(second, {.nanoseconds = 0}).obstacle;
    EXPECT_EQ(sentence, "would make the drawings take more than 0 s together; convert some to PNG and choose it again");
    EXPECT_EQ(PictureFile::Together().nanoseconds, 20'000'000'000);
    for (int reading = 0; reading < 4; ++reading) // it may fit later, however often it did not
        EXPECT_EQ(PictureFile::load(second, {.nanoseconds = one}).picture, nullptr);
    first = {};
    EXPECT_NE(PictureFile::load(second, {.nanoseconds = one}).picture, nullptr);
}

TEST_F(PictureFileTest, WhatHadNoRoomBesideOthersIsNotReadToSaySoAgain)
{
    const QByteArray plain = drawing("<rect width='9' height='9'/>");
    const QString path = written("plain.svg", plain);
    const auto ofPixels = PictureFile::load(path, {.pixels = 399}).obstacle;
    EXPECT_EQ(ofPixels, "would bring the pictures to more than 399 px; make some smaller and choose it again");
    replaceUnseen(path, QByteArray(plain.size(), ' '), 0);
    EXPECT_EQ(PictureFile::load(path, {.pixels = 399}).obstacle, ofPixels);
    EXPECT_EQ(PictureFile::load(path, {.nanoseconds = 0}).obstacle,
              "would make the drawings take more than 0 s together; convert some to PNG and choose it again");
    EXPECT_EQ(PictureFile::load(path).obstacle, std::nullopt); // it was read now
    replaceUnseen(path, plain, 0);
    EXPECT_NE(PictureFile::load(path).picture, nullptr);
}

TEST_F(PictureFileTest, OnlyDrawingsMakeRoomForTheTimeOfDrawings)
{
    const auto drawn = PictureFile::load(written("plain.svg", drawing("<rect width='9' height='9'/>")));
    const auto plain = PictureFile::load(saved("plain.png", {20, 10}, Qt::red));
    ASSERT_NE(drawn.picture, nullptr);
    ASSERT_NE(plain.picture, nullptr);
    for (const auto &loaded : {drawn, plain}) {
        EXPECT_FALSE(PictureFile::isRoomScarce(loaded));
        EXPECT_FALSE(PictureFile::isRoomScarce(loaded, {.pixels = qint64{8} * 600}));
        EXPECT_TRUE(PictureFile::isRoomScarce(loaded, {.pixels = qint64{8} * 599}));
    }
    const qint64 eightfold = 8 * drawn.nanoseconds;
    EXPECT_FALSE(PictureFile::isRoomScarce(drawn, {.nanoseconds = eightfold}));
    EXPECT_TRUE(PictureFile::isRoomScarce(drawn, {.nanoseconds = eightfold - 8}));
    EXPECT_FALSE(PictureFile::isRoomScarce(plain, {.nanoseconds = eightfold - 8}));
}

TEST_F(PictureFileTest, AFileIsOneByWhateverNameItIsAskedFor)
{
    const QString path = saved("plain.png", {20, 10}, Qt::red);
    const auto first = PictureFile::load(path);
    QDir(folder.path()).mkdir("sub");
    EXPECT_EQ(PictureFile::load(folder.filePath("sub/../plain.png"), {.pixels = 0}).picture, first.picture);
}

TEST_F(PictureFileTest, ADrawingThatAsksForTooMuchTellsSo)
{
    const PictureFile::Loaded refused =
        PictureFile::load(written("drawing.svg", drawing("<image width='9' height='9' xlink:href='plate.png'/>")));
    EXPECT_EQ(refused.picture, nullptr);
    EXPECT_EQ(
        refused.obstacle,
        "is a drawing that is damaged, compressed, too large or asks for other files, and must be converted to PNG");
}

TEST_F(PictureFileTest, OfWhatIsMissingOrDamagedNoMoreIsTold)
{
    EXPECT_EQ(PictureFile::load(folder.filePath("missing.png")).obstacle, std::nullopt);
    EXPECT_EQ(PictureFile::load(written("text.png", "this is no picture")).obstacle, std::nullopt);
    EXPECT_EQ(PictureFile::cannotShow("logo.png", std::nullopt),
              "Cannot show logo.png: it is no picture that can be read.");
}

TEST_F(PictureFileTest, StillsOfOneFileShareItsPixels)
{
    const QString path = saved("plate.png", {31, 17}, Qt::red);

    EXPECT_EQ(load(path), load(path)); // the first one lives until the line ends

    const auto first = load(path);
    EXPECT_EQ(load(path), first);
}

TEST_F(PictureFileTest, AFileThatWasReplacedIsReadAgain)
{
    const QString path = saved("plate.png", {31, 17}, Qt::red);
    const auto first = load(path);
    saved("plate.png", {31, 17}, Qt::blue);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));

    const auto second = load(path);

    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->pixel(0, 0), 0xff0000ffU);
    EXPECT_EQ(first->pixel(0, 0), 0xffff0000U);
}

TEST_F(PictureFileTest, WhateverTakesItsPlaceWhileItIsShownIsLookedAtAnew)
{
    const QString path = saved("plate.png", {31, 17}, Qt::red);
    const auto first = load(path);
    ASSERT_NE(first, nullptr);

    // An older one, as a clock that was set back or a copy from a stick leaves it.
    saved("plate.png", {31, 17}, Qt::blue);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    file.close();
    const auto older = load(path);
    ASSERT_NE(older, nullptr);
    EXPECT_EQ(older->pixel(0, 0), 0xff0000ffU);

    // Half of it, nothing of it, a folder, and nothing at all.
    ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
    const auto half = load(path);
    EXPECT_TRUE(!half || half->size() == QSize(31, 17));
    ASSERT_TRUE(QFile::resize(path, 0));
    EXPECT_EQ(load(path), nullptr);
    ASSERT_TRUE(QFile::remove(path) && QDir().mkdir(path));
    EXPECT_EQ(load(path), nullptr);
    ASSERT_TRUE(QDir().rmdir(path));
    EXPECT_EQ(load(path), nullptr);

    EXPECT_EQ(first->pixel(30, 16), 0xffff0000U);
    saved("plate.png", {9, 7}, Qt::green);
    ASSERT_NE(load(path), nullptr);
    EXPECT_EQ(load(path)->size(), QSize(9, 7));
}

TEST_F(PictureFileTest, InSmallItKeepsItsRatioAndIsNeverMadeLarger)
{
    const PictureFile::Small wide = PictureFile::small(saved("wide.png", {640, 320}, Qt::green), {200, 200}, 1 << 20);
    EXPECT_EQ(wide.size, QSize(640, 320));
    EXPECT_EQ(wide.picture.size(), QSize(200, 100));
    EXPECT_EQ(PictureFile::small(saved("little.png", {9, 7}, Qt::red), {200, 200}, 1 << 20).picture.size(),
              QSize(9, 7));
}

TEST_F(PictureFileTest, InSmallAPictureOfTooManyPixelsIsItsSizeAlone)
{
    const PictureFile::Small small = PictureFile::small(saved("wide.png", {640, 320}, Qt::green), {200, 200}, 204'799);
    EXPECT_EQ(small.size, QSize(640, 320));
    EXPECT_TRUE(small.picture.isNull());
}

TEST_F(PictureFileTest, InSmallNothingIsAskedOfTheSystemThatAPartClaims)
{
    // A part that claims 2^32 - 1 bytes, for which Qt would ask the system.
    const QString icons = written("icons.icns", QByteArray::fromHex("69636e73 00000010 69637034 ffffffff"));
    const PictureFile::Small none = PictureFile::small(icons, {200, 200}, 1 << 20);
    EXPECT_TRUE(none.size.isEmpty());
    EXPECT_TRUE(none.picture.isNull());
}
