#include "formats/PngFile.h"

#include "drawing/Raster.h"
#include "tests/base/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>
#include <random>

namespace {
QImage noise(const QSize &size, int lowestAlpha)
{
    std::mt19937 engine(7);
    std::uniform_int_distribution<int> channel(0, 255);
    std::uniform_int_distribution<int> alpha(lowestAlpha, 255);
    QImage picture(size, Raster::format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, QColor(channel(engine), channel(engine), channel(engine), alpha(engine)));
    }
    return picture;
}

/// Panels in two colours with a circle over them.
QImage chart(const QSize &size, const QColor &second)
{
    QImage picture(size, Raster::format);
    picture.fill(second);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int y = 0; y < size.height(); y += 96) {
        for (int x = y % 192; x < size.width(); x += 192)
            painter.fillRect(x, y, 96, 96, Qt::darkGreen);
    }
    painter.setPen(Qt::white);
    painter.drawEllipse(QRectF(2, 2, size.height() - 4, size.height() - 4));
    return picture;
}

QImage readBack(const QByteArray &file)
{
    return QImage::fromData(file, "PNG");
}

struct Chunk
{
    QByteArray type;
    QByteArray data;
    quint32 crc;
};

/// The chunks behind the signature; none at all where the lengths do not lead exactly to the end.
std::vector<Chunk> chunksOf(const QByteArray &file)
{
    std::vector<Chunk> chunks;
    qsizetype at = 8;
    while (at + 12 <= file.size()) {
        const qsizetype length = qFromBigEndian<quint32>(file.constData() + at);
        if (at + 12 + length > file.size())
            return {};
        chunks.push_back({file.mid(at + 4, 4), file.mid(at + 8, length),
                          qFromBigEndian<quint32>(file.constData() + at + 8 + length)});
        at += 12 + length;
    }
    return at == file.size() ? chunks : std::vector<Chunk>();
}

/// The checksum of a chunk, bit by bit: the polynomial of the format's annex.
quint32 plainCrc(const QByteArray &bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? 0xedb88320 ^ (crc >> 1) : crc >> 1;
    }
    return ~crc;
}

void expectSamePixels(const QImage &picture)
{
    const Result<QByteArray> file = PngFile::encode(picture);
    ASSERT_TRUE(file) << file.error().text.toStdString();
    const QImage read = readBack(*file);
    ASSERT_EQ(read.size(), picture.size());
    EXPECT_EQ(read.convertToFormat(QImage::Format_RGBA8888), picture.convertToFormat(QImage::Format_RGBA8888));
}
} // namespace

TEST(PngFile, OpaquePicturesReadBackAsTheyWere)
{
    for (const QSize size : {QSize(1, 1), QSize(1, 37), QSize(37, 1), QSize(33, 17), QSize(1921, 61)})
        expectSamePixels(noise(size, 255));
}

TEST(PngFile, TranslucentPicturesReadBackAsTheyWere)
{
    for (const QSize size : {QSize(1, 1), QSize(1, 37), QSize(37, 1), QSize(33, 17), QSize(1921, 61)})
        expectSamePixels(noise(size, 0));
}

TEST(PngFile, PicturesOfAFewBytesReadBackAsTheyWere)
{
    for (int width = 1; width <= 5; ++width) {
        for (int height = 1; height <= 5; ++height) {
            expectSamePixels(noise(QSize(width, height), 0));
            expectSamePixels(noise(QSize(width, height), 255));
            expectSamePixels(chart(QSize(width, height), Qt::transparent));
        }
    }
}

TEST(PngFile, ChartsOf8KWidthReadBackAsTheyWere)
{
    expectSamePixels(chart(QSize(7680, 481), Qt::darkRed));
    expectSamePixels(chart(QSize(7680, 481), Qt::transparent));
}

TEST(PngFile, PicturesOfOtherFormatsReadBackAsTheyWere)
{
    const QImage picture = chart(QSize(301, 103), Qt::darkRed);
    for (const QImage::Format format : {QImage::Format_Indexed8, QImage::Format_RGB16, QImage::Format_RGB32,
                                        QImage::Format_RGB888, QImage::Format_ARGB32, QImage::Format_RGBA8888}) {
        SCOPED_TRACE(format);
        expectSamePixels(picture.convertToFormat(format));
    }
}

TEST(PngFile, HasNoAlphaChannelWhereEveryPixelIsOpaque)
{
    QImage picture(50, 20, Raster::format);
    picture.fill(Qt::red);
    EXPECT_EQ(chunksOf(*PngFile::encode(picture)).front().data.toHex(), "00000032000000140802000000");

    picture.setPixelColor(49, 19, QColor(255, 0, 0, 254));
    EXPECT_EQ(chunksOf(*PngFile::encode(picture)).front().data.toHex(), "00000032000000140806000000");
}

TEST(PngFile, IsASignatureAndChunksWithTheirChecksums)
{
    // Noise does not get smaller: enough for several data chunks.
    const QByteArray file = *PngFile::encode(noise(QSize(701, 503), 0));

    EXPECT_EQ(file.first(8).toHex(), "89504e470d0a1a0a");
    const std::vector<Chunk> chunks = chunksOf(file);
    ASSERT_GE(chunks.size(), 5u);
    EXPECT_EQ(chunks.front().type, "IHDR");
    EXPECT_EQ(chunks.back().type, "IEND");
    EXPECT_EQ(chunks.back().data.size(), 0);
    for (const Chunk &chunk : chunks)
        EXPECT_EQ(chunk.crc, plainCrc(chunk.type + chunk.data)) << chunk.type.toStdString();
    for (size_t i = 1; i + 1 < chunks.size(); ++i)
        EXPECT_EQ(chunks[i].type, "IDAT");
}

TEST(PngFile, TheDataIsOneCompressedStreamOfRowsThatDifferFromThoseAbove)
{
    QImage picture(2, 2, Raster::format);
    picture.fill(QColor(1, 2, 3));
    picture.setPixelColor(1, 1, QColor(0, 4, 6));

    QByteArray stream(4, 0); // qUncompress wants a guess of the size in front
    for (const Chunk &chunk : chunksOf(*PngFile::encode(picture)))
        stream += chunk.type == "IDAT" ? chunk.data : QByteArray();

    EXPECT_EQ(qUncompress(stream).toHex(), "02010203010203"
                                           "02000000ff0203");
}

TEST(PngFile, TheStreamsChecksumCoversAllSections)
{
    QByteArray stream(4, 0);
    for (const Chunk &chunk : chunksOf(*PngFile::encode(noise(QSize(701, 503), 0))))
        stream += chunk.type == "IDAT" ? chunk.data : QByteArray();

    EXPECT_EQ(qUncompress(stream).size(), 503 * (1 + 4 * 701));

    stream.back() ^= 1;
    EXPECT_EQ(qUncompress(stream).size(), 0);
}

TEST(PngFile, AnEmptyPictureIsRefused)
{
    EXPECT_EQ(PngFile::encode(QImage()).error().text, "The picture is empty; there is nothing to write.");
}

TEST(PngFile, APictureLargerThanARasterIsRefused)
{
    EXPECT_EQ(PngFile::encode(QImage(32769, 1, QImage::Format_RGB32)).error().text,
              "The picture has 32769 x 1 pixels, more than a picture may have; make it smaller.");
}

TEST(PngFile, WritingReplacesTheFileAtThePath)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("wall.png");
    const QImage picture = chart(QSize(301, 103), Qt::darkRed);
    ASSERT_TRUE(PngFile::write(path, noise(QSize(9, 9), 0)));

    ASSERT_TRUE(PngFile::write(path, picture));

    EXPECT_EQ(QImage(path).convertToFormat(Raster::format), picture);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("wall.png"));
}

TEST(PngFile, AnEmptyPictureLeavesTheFileAtThePathAlone)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("wall.png");
    ASSERT_TRUE(PngFile::write(path, noise(QSize(9, 9), 0)));

    const Result<void> written = PngFile::write(path, QImage());

    ASSERT_FALSE(written);
    EXPECT_EQ(written.error().text, path + ": The picture is empty; there is nothing to write.");
    EXPECT_EQ(QImage(path).size(), QSize(9, 9));
}

TEST(PngFile, AFolderThatIsMissingIsNamed)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("missing/wall.png");

    const Result<void> written = PngFile::write(path, noise(QSize(9, 9), 0));

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.error().text.startsWith(path + ": ")) << written.error().text.toStdString();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST(PngFile, APathThatIsAFolderIsNamed)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("wall.png");
    ASSERT_TRUE(QDir().mkpath(path));

    const Result<void> written = PngFile::write(path, noise(QSize(9, 9), 0));

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.error().text.startsWith(path + ": ")) << written.error().text.toStdString();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("wall.png"));
}

TEST(PngFile, ADiskThatIsFullLeavesTheOldFileWhole)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("wall.png");
    ASSERT_TRUE(PngFile::write(path, noise(QSize(9, 9), 0)));

    const Result<void> written = [&] {
        const FullDisk disk(64 << 10);
        return PngFile::write(path, noise(QSize(501, 501), 0));
    }();

    ASSERT_FALSE(written);
    EXPECT_TRUE(written.error().text.startsWith(path + ": ")) << written.error().text.toStdString();
    EXPECT_EQ(QImage(path).size(), QSize(9, 9));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("wall.png"));
}
