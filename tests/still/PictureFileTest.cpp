#include "still/PictureFile.h"

#include "drawing/Raster.h"
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
    const auto picture = PictureFile::load(saved("plate.png", {31, 17}, Qt::red));

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

    const auto picture = PictureFile::load(written("upright.jpg", bytes));

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), QSize(24, 40));
}

TEST_F(PictureFileTest, WhatIsNoPictureGivesNone)
{
    EXPECT_EQ(PictureFile::load(folder.filePath("missing.png")), nullptr);
    EXPECT_EQ(PictureFile::load(written("text.png", "this is no picture")), nullptr);
    EXPECT_EQ(PictureFile::load(folder.path()), nullptr);
    EXPECT_EQ(PictureFile::load(QString()), nullptr);
}

TEST_F(PictureFileTest, ADrawingMayEmbedPicturesAndReferToItself)
{
    QFile plate(saved("plate.png", {4, 4}, Qt::blue));
    ASSERT_TRUE(plate.open(QIODevice::ReadOnly));
    const QByteArray embedded =
        "<image width='20' height='20' xlink:href='data:image/png;base64," + plate.readAll().toBase64() + "'/>";

    const auto picture = PictureFile::load(written("drawing.svg", drawing(embedded)));
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->pixel(10, 10), 0xff0000ffU);

    EXPECT_NE(PictureFile::load(written("use.svg", drawing("<g id='a'/><use xlink:href='#a'/>"))), nullptr);
}

TEST_F(PictureFileTest, ACompressedDrawingGivesNone)
{
    const QByteArray compressed = QByteArray::fromHex(
        "1f8b0800000000000203b3292e4b57a8c8cdc92bb655cf282929b0d2d72f2f2fd72b37d6cb2f4ad737323030d007aa505728cf4c29c9b0"
        "55375257c848cd4ccf280131f5ed0008e7f2533e000000");
    EXPECT_EQ(PictureFile::load(written("drawing.svgz", compressed)), nullptr);
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
    const auto load = [&](const QByteArray &content) {
        return PictureFile::load(written("drawing.svg", drawing(content).replace("width='20' height='20'>", ">")));
    };
    EXPECT_EQ(load(groups(40, 2)), nullptr);
    EXPECT_EQ(load(groups(100'000, 1)), nullptr);
    EXPECT_NE(load(groups(17, 2)), nullptr);
    EXPECT_NE(load(groups(400, 1)), nullptr);
}

TEST_F(PictureFileTest, ALargePhotographIsRead)
{
    const auto picture = PictureFile::load(saved("photograph.bmp", {6000, 6000}, Qt::white));

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), QSize(6000, 6000));
}

TEST_F(PictureFileTest, APictureLargerThanARasterGivesNone)
{
    EXPECT_EQ(PictureFile::load(saved("wide.png", {32769, 1}, Qt::red)), nullptr);
    EXPECT_NE(PictureFile::load(saved("fits.png", {32768, 1}, Qt::red)), nullptr);
}

TEST_F(PictureFileTest, StillsOfOneFileShareItsPixels)
{
    const QString path = saved("plate.png", {31, 17}, Qt::red);

    EXPECT_EQ(PictureFile::load(path), PictureFile::load(path)); // the first one lives until the line ends

    const auto first = PictureFile::load(path);
    EXPECT_EQ(PictureFile::load(path), first);
}

TEST_F(PictureFileTest, AFileThatWasReplacedIsReadAgain)
{
    const QString path = saved("plate.png", {31, 17}, Qt::red);
    const auto first = PictureFile::load(path);
    saved("plate.png", {31, 17}, Qt::blue);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(5), QFileDevice::FileModificationTime));

    const auto second = PictureFile::load(path);

    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->pixel(0, 0), 0xff0000ffU);
    EXPECT_EQ(first->pixel(0, 0), 0xffff0000U);
}

TEST_F(PictureFileTest, WhateverTakesItsPlaceWhileItIsShownIsLookedAtAnew)
{
    const QString path = saved("plate.png", {31, 17}, Qt::red);
    const auto first = PictureFile::load(path);
    ASSERT_NE(first, nullptr);

    // An older one, as a clock that was set back or a copy from a stick leaves it.
    saved("plate.png", {31, 17}, Qt::blue);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    file.close();
    const auto older = PictureFile::load(path);
    ASSERT_NE(older, nullptr);
    EXPECT_EQ(older->pixel(0, 0), 0xff0000ffU);

    // Half of it, nothing of it, a folder, and nothing at all.
    ASSERT_TRUE(QFile::resize(path, QFileInfo(path).size() / 2));
    const auto half = PictureFile::load(path);
    EXPECT_TRUE(!half || half->size() == QSize(31, 17));
    ASSERT_TRUE(QFile::resize(path, 0));
    EXPECT_EQ(PictureFile::load(path), nullptr);
    ASSERT_TRUE(QFile::remove(path) && QDir().mkdir(path));
    EXPECT_EQ(PictureFile::load(path), nullptr);
    ASSERT_TRUE(QDir().rmdir(path));
    EXPECT_EQ(PictureFile::load(path), nullptr);

    EXPECT_EQ(first->pixel(30, 16), 0xffff0000U);
    saved("plate.png", {9, 7}, Qt::green);
    ASSERT_NE(PictureFile::load(path), nullptr);
    EXPECT_EQ(PictureFile::load(path)->size(), QSize(9, 7));
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
