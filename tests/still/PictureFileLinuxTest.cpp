// Pipes are of Linux, and files without contents that take no room.

#include "still/PictureFile.h"
#include "tests/still/PictureFixture.h"

#include <sys/stat.h>

using PictureFileLinuxTest = PictureFixture;

TEST_F(PictureFileLinuxTest, APipeIsNotWaitedFor)
{
    const QString path = folder.filePath("pipe.png");
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);

    EXPECT_EQ(load(path), nullptr);
}

TEST_F(PictureFileLinuxTest, ADrawingThatShowsAnotherFileGivesNone)
{
    const QByteArray pipe = QFile::encodeName(folder.filePath("pipe"));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    const QByteArray nested = drawing("<image width='9' height='9' xlink:href='" + pipe + "'/>").toBase64();

    for (const QByteArray &content :
         {QByteArray("<image width='9' height='9' xlink:href='pipe'/>"),
          "<image width='9' height='9' xlink:href='" + pipe + "'/>",
          "<image width='9' height='9' href='file://" + pipe + "'/>",
          "<s:image width='9' height='9' x:href='" + pipe + "'/>",
          "<image width='9' height='9' xlink:href='data:image/png;base64," + nested + "'/>"})
        EXPECT_EQ(load(written("drawing.svg", drawing(content))), nullptr) << content.constData();
    EXPECT_EQ(load(written("style.svg", "<?xml version='1.0'?><?xml-stylesheet type=\"text/css\" href=\"" + pipe +
                                            "\"?>" + drawing({}))),
              nullptr);
}

TEST_F(PictureFileLinuxTest, InSmallNothingIsShownThatIsRefusedInFull)
{
    const QString pipe = folder.filePath("pipe.png");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString drawn = written("drawing.svg", drawing("<image width='9' height='9' xlink:href='pipe.png'/>"));
    const QString plain = written("plain.svg", drawing("<rect width='9' height='9'/>"));

    EXPECT_TRUE(PictureFile::small(pipe, {200, 200}, 1 << 20).size.isEmpty());
    EXPECT_TRUE(PictureFile::small(drawn, {200, 200}, 1 << 20).size.isEmpty());
    EXPECT_EQ(PictureFile::small(plain, {200, 200}, 1 << 20).picture.size(), QSize(20, 20));
}

TEST_F(PictureFileLinuxTest, AFileOfMoreThanOneGibibyteTellsSo)
{
    const QString path = written("plate.png", "this is no picture");
    ASSERT_TRUE(QFile::resize(path, (qint64{1} << 30) + 1));
    EXPECT_EQ(PictureFile::load(path).obstacle, "has more than 1 GiB; make it smaller and choose it again");
    ASSERT_TRUE(QFile::resize(path, qint64{1} << 30));
    EXPECT_EQ(PictureFile::load(path).obstacle, std::nullopt);
}

TEST_F(PictureFileLinuxTest, ALinkIsTheFileThatItLeadsTo)
{
    const QString path = saved("plain.png", {20, 10}, Qt::red);
    const QString link = folder.filePath("link.png");
    ASSERT_TRUE(QFile::link(path, link));
    const auto first = PictureFile::load(link);
    EXPECT_NE(first.picture, nullptr);
    EXPECT_EQ(PictureFile::load(path, {.pixels = 0}).picture, first.picture);
}
