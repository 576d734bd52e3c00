#include "drawing/Raster.h"
#include "still/PictureFile.h"
#include "tests/base/LogLines.h"

#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
/// Red, green, blue and white in the four quarters, from the top left to the bottom right.
QImage quarters(const QSize &quarter)
{
    QImage image(quarter * 2, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const bool isRight = x >= quarter.width();
            const bool isLow = y >= quarter.height();
            image.setPixel(x, y, isLow ? (isRight ? 0xffffffffU : 0xff0000ffU) : (isRight ? 0xff00ff00U : 0xffff0000U));
        }
    }
    return image;
}

/// The initials of the colours in the four quarters.
QString seen(const QImage &picture)
{
    QString letters;
    for (const double y : {0.25, 0.75}) {
        for (const double x : {0.25, 0.75}) {
            const QColor colour = picture.pixelColor(int(picture.width() * x), int(picture.height() * y));
            letters += colour.lightness() > 200 ? u'w'
                       : colour.red() > 200     ? u'r'
                       : colour.green() > 200   ? u'g'
                       : colour.blue() > 200    ? u'b'
                                                : u'?';
        }
    }
    return letters;
}

class PictureFormats : public ::testing::Test
{
protected:
    std::shared_ptr<const QImage> loaded(const QString &name, const QByteArray &bytes)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush());
        return PictureFile::load(file.fileName()).picture;
    }

    std::shared_ptr<const QImage> savedAndLoaded(const char *format)
    {
        const QString path = folder.filePath(QString("quarters.") + format);
        EXPECT_TRUE(quarters({16, 8}).save(path, format, 100)) << format;
        return PictureFile::load(path).picture;
    }

    /// A photograph with an Exif segment of one entry: how the camera was held, 1 to 8.
    static QByteArray photograph(const QString &plain, char orientation)
    {
        QFile file(plain);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QByteArray bytes = file.readAll();
        QByteArray exif =
            QByteArray::fromHex("ffe1 0022 457869660000 49492a0008000000 0100 1201 0300 01000000 00000000 00000000");
        exif[28] = orientation;
        return bytes.insert(2, exif);
    }

    QTemporaryDir folder;
};
} // namespace

TEST_F(PictureFormats, WhateverIsInstalledIsRead)
{
    const QList<QByteArray> readable = QImageReader::supportedImageFormats();
    for (const char *format : {"png", "jpg", "bmp", "gif", "svg", "webp", "tiff", "tga", "ico", "ppm"})
        EXPECT_TRUE(readable.contains(format)) << format;
}

TEST_F(PictureFormats, PicturesOfManyFormatsComeUprightAndInColour)
{
    for (const char *format : {"png", "jpg", "bmp", "webp", "tiff", "ppm", "ico", "xpm"}) {
        const auto picture = savedAndLoaded(format);
        ASSERT_NE(picture, nullptr) << format;
        EXPECT_EQ(picture->size(), QSize(32, 16)) << format;
        EXPECT_EQ(picture->format(), Raster::format) << format;
        EXPECT_EQ(seen(*picture), "rgbw") << format;
    }
}

TEST_F(PictureFormats, WhatQtReadsBesidesIsNoPicture)
{
    ASSERT_TRUE(QImageReader::supportedImageFormats().contains("xbm"));
    const QString path = folder.filePath("logo.png");
    ASSERT_TRUE(quarters({16, 8}).save(path, "xbm"));
    ASSERT_EQ(QImageReader::imageFormat(path), "xbm");

    EXPECT_EQ(PictureFile::load(path).picture, nullptr);
    EXPECT_FALSE(PictureFile::isPicture(path));
    EXPECT_TRUE(PictureFile::small(path, {64, 64}, 1 << 20).size.isEmpty());
    EXPECT_EQ(PictureFile::cannotShow(path, PictureFile::load(path).obstacle),
              "Cannot show logo.png: it has the format XBM, which is none of those that are shown.");
}

TEST_F(PictureFormats, ADrawingEmbedsWhatIsShownAlone)
{
    const auto embedded = [&](const char *format) {
        const QString path = folder.filePath("plate");
        EXPECT_TRUE(quarters({16, 8}).save(path, format));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return loaded("drawing.svg",
                      "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='32' "
                      "height='16'><image width='32' height='16' xlink:href='data:image/png;base64," +
                          file.readAll().toBase64() + "'/></svg>");
    };
    EXPECT_NE(embedded("png"), nullptr);
    EXPECT_EQ(embedded("xbm"), nullptr);
}

TEST_F(PictureFormats, TheContentCountsNotTheName)
{
    ASSERT_TRUE(quarters({16, 8}).save(folder.filePath("photograph.png"), "jpg", 100));
    const auto picture = PictureFile::load(folder.filePath("photograph.png")).picture;

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(seen(*picture), "rgbw");
}

TEST_F(PictureFormats, ATransparentPictureStaysTransparent)
{
    QImage image(3, 5, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 0, 128));
    ASSERT_TRUE(image.save(folder.filePath("glass.png")));
    const auto picture = PictureFile::load(folder.filePath("glass.png")).picture;

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->pixelColor(1, 1).alpha(), 128);
    EXPECT_EQ(reinterpret_cast<const QRgb *>(picture->constScanLine(1))[1], qRgba(128, 0, 0, 128)); // premultiplied
}

TEST_F(PictureFormats, EveryOrientationTagIsHonoured)
{
    const QString plain = folder.filePath("plain.jpg");
    ASSERT_TRUE(quarters({16, 8}).save(plain, "jpg", 100));
    const char *upright[] = {"rgbw", "grwb", "wbgr", "bwrg", "rbgw", "brwg", "wgbr", "gwrb"};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        const auto picture = loaded(QString("held %1.jpg").arg(orientation), photograph(plain, char(orientation)));
        ASSERT_NE(picture, nullptr) << orientation;
        EXPECT_EQ(picture->size(), orientation < 5 ? QSize(32, 16) : QSize(16, 32)) << orientation;
        EXPECT_EQ(seen(*picture), upright[orientation - 1]) << orientation;
    }
}

TEST_F(PictureFormats, ADrawingIsPaintedInItsOwnSizeOnNothing)
{
    const auto picture = loaded("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='31' height='17'>"
                                               "<rect x='10' width='21' height='17' fill='red'/></svg>");

    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->size(), QSize(31, 17));
    EXPECT_EQ(picture->pixel(30, 16), 0xffff0000U);
    EXPECT_EQ(picture->pixel(5, 8), 0U);
}

TEST_F(PictureFormats, ADrawingWithoutASizeHasThatOfItsViewOrContent)
{
    const auto viewed = loaded("view.svg", "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 31 17'/>");
    ASSERT_NE(viewed, nullptr);
    EXPECT_EQ(viewed->size(), QSize(31, 17));

    const auto filled =
        loaded("content.svg", "<svg xmlns='http://www.w3.org/2000/svg'><rect width='13' height='9' fill='red'/></svg>");
    ASSERT_NE(filled, nullptr);
    EXPECT_EQ(filled->size(), QSize(13, 9));
}

TEST_F(PictureFormats, ADrawingLargerThanARasterGivesNone)
{
    for (const QByteArray size : {"width='32769' height='1'", "width='1' height='32769'", "width='-5' height='5'",
                                  "width='20000' height='20000'", "width='1e30' height='1e30'"})
        EXPECT_EQ(loaded("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' " + size + "/>"), nullptr)
            << size.constData();
}

TEST_F(PictureFormats, AnnouncedPixelsThatNobodyCanHoldAreNotAskedFor)
{
    // A picture of 65535 x 65535 pixels in 66 bytes.
    QByteArray bytes = QByteArray::fromHex("424d 42000000 00000000 36000000 28000000 ffff0000 ffff0000 0100 2000 "
                                           "00000000 00000000 00000000 00000000 00000000 00000000");
    bytes.append(12, '\xff');
    EXPECT_EQ(loaded("bomb.bmp", bytes), nullptr);
}

TEST_F(PictureFormats, PicturesCutOffAnywhereGiveNoneOrWhatIsThere)
{
    const LogLines log; // the readers complain of each
    for (const char *format : {"png", "jpg", "bmp", "webp", "tiff", "ppm", "ico", "xpm"}) {
        savedAndLoaded(format);
        QFile file(folder.filePath(QString("quarters.") + format));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray whole = file.readAll();
        for (qsizetype length = 0; length < whole.size(); length += 1 + whole.size() / 25) {
            const auto picture = loaded("cut off", whole.left(length));
            EXPECT_TRUE(!picture || Raster::canHold(picture->width(), picture->height())) << format << length;
        }
    }
}

TEST_F(PictureFormats, OnlyWhatBeginsLikeAPictureIsTakenForOne)
{
    savedAndLoaded("png");
    EXPECT_TRUE(PictureFile::isPicture(folder.filePath("quarters.png")));
    EXPECT_FALSE(PictureFile::isPicture(folder.filePath("missing.png")));
    EXPECT_FALSE(PictureFile::isPicture(folder.path()));
    EXPECT_FALSE(PictureFile::isPicture(QString()));
    loaded("text.png", "this is no picture");
    EXPECT_FALSE(PictureFile::isPicture(folder.filePath("text.png")));
    loaded("empty.png", "");
    EXPECT_FALSE(PictureFile::isPicture(folder.filePath("empty.png")));
}

TEST_F(PictureFormats, AFormatThatHasNoReaderHereIsNamed)
{
    const QList<QByteArray> without{"png", "jpg"};
    const auto obstacle = [&](const QString &name, const QList<QByteArray> &readable) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return PictureFile::obstacle(Address::fromLocalFile(file.fileName()), readable);
    };
    const QString form = "has the format %1, which this build does not show";

    EXPECT_EQ(obstacle("logo.svg", without), form.arg("SVG"));
    EXPECT_EQ(obstacle("LOGO.SVGZ", without), form.arg("SVG"));
    EXPECT_EQ(obstacle("logo.webp", without), form.arg("WebP"));
    EXPECT_EQ(obstacle("logo.tif", without), form.arg("TIFF"));
    EXPECT_EQ(obstacle("logo.svg", {"png", "svg"}), std::nullopt);
    EXPECT_EQ(obstacle("logo.png", without), std::nullopt);
    EXPECT_EQ(PictureFile::obstacle(Address::fromLocalFile(folder.filePath("gone.svg")), without), std::nullopt);
    EXPECT_EQ(PictureFile::obstacle({"file://server/logo.png", {}}),
              "is not on this machine, and a show asks no other");
}
