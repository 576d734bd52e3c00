#include "psd/KXPSDLayer.h"
#include "tests/psd/PlainPackBits.h"
#include "tests/psd/PsdFixtures.h"

#include <QtNumeric>

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {
/// What is to be packed of a layer, by the definition: row by row, sample by sample.
class ExpectedChannels
{
public:
    ExpectedChannels(const KXPSDLayer &layer)
        : m_image(layer.image()), m_channels(static_cast<int>(layer.numberOfChannels())),
          m_columns(static_cast<int>(layer.documentSize().width())),
          m_rows(static_cast<int>(layer.documentSize().height())), m_crop(layer.imageCropRegion().toRect()),
          m_place(layer.imageInDocumentRegion().toRect())
    {}

    QByteArray block(int channel) const
    {
        ByteBuffer counts;
        QByteArray rows;
        counts.kxAppendValue(1, 2);
        for (int y = 0; y < m_rows; ++y) {
            const QByteArray packed = row(channel, y);
            counts.kxAppendValue(packed.size(), 2);
            rows += packed;
        }
        return counts.takeBytes() + rows;
    }

private:
    QByteArray row(int channel, int y) const
    {
        const char blank = m_channels < 4 ? '\xff' : '\0';
        if (y < m_place.y() || y >= m_place.y() + m_place.height())
            return PlainPackBits::pack(QByteArray(m_columns, blank));
        QByteArray packed;
        if (m_place.x() > 0)
            packed += PlainPackBits::pack(QByteArray(m_place.x(), blank));
        QByteArray samples;
        for (int x = 0; x < m_place.width(); ++x)
            samples += sample(channel, m_crop.x() + x, m_crop.y() + y - m_place.y());
        packed += PlainPackBits::pack(samples);
        if (m_columns > m_place.x() + m_place.width())
            packed += PlainPackBits::pack(QByteArray(m_columns - m_place.x() - m_place.width(), blank));
        return packed;
    }

    char sample(int channel, int x, int y) const
    {
        if (!m_image.valid(x, y))
            return 0;
        const QRgb pixel = reinterpret_cast<const QRgb *>(m_image.constScanLine(y))[x]; // premultiplied as it is
        const int values[] = {qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)};
        return static_cast<char>(values[channel]);
    }

    QImage m_image;
    int m_channels;
    int m_columns;
    int m_rows;
    QRect m_crop;
    QRect m_place;
};

/// A raster with runs, repeated rows and translucent pixels.
QImage randomRaster(std::mt19937 &random, int width, int height)
{
    const auto upTo = [&](unsigned most) { return static_cast<int>(random() % (most + 1)); };
    QImage image = Raster::make(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int alpha = upTo(2) == 0 ? upTo(255) : 255;
            const QRgb left = x > 0 ? image.pixel(x - 1, y) : qRgba(0, 0, 0, 0);
            image.setPixel(x, y, upTo(3) == 0 ? qPremultiply(qRgba(upTo(255), upTo(3), upTo(255), alpha)) : left);
        }
        if (y > 0 && upTo(2) == 0)
            std::copy_n(image.constScanLine(y - 1), width * 4, image.scanLine(y));
    }
    return image;
}

std::vector<std::string> channelsOf(const KXPSDLayer &layer)
{
    std::vector<std::string> blocks;
    for (const QByteArray &block : layer.layerChannels())
        blocks.push_back(hex(block));
    return blocks;
}
} // namespace

TEST(LayerChannels, ALayerThatFillsItsDocumentHasNoMargins)
{
    KXPSDLayer layer;
    layer.setDocumentSize({3, 2});
    layer.setImage(raster(3, 2, Qt::red));
    const std::string full = "00 01 00 02 00 02 fe ff fe ff";
    const std::string none = "00 01 00 02 00 02 fe 00 fe 00";
    EXPECT_EQ(channelsOf(layer), (std::vector{full, none, none, full}));
}

TEST(LayerChannels, AroundALayerIsTransparentBlack)
{
    KXPSDLayer layer;
    layer.setDocumentSize({6, 3});
    layer.setImage(raster(3, 1, Qt::red));
    layer.setOffset({1, 1});
    // One sample on the left, three of the image, two on the right.
    EXPECT_EQ(channelsOf(layer)[0], "00 01 00 02 00 07 00 02 fb 00 00 00 fe ff 01 00 00 fb 00");
    EXPECT_EQ(channelsOf(layer)[3], "00 01 00 02 00 07 00 02 fb 00 00 00 fe ff 01 00 00 fb 00");
}

TEST(LayerChannels, AroundALayerOfThreeChannelsIsWhite)
{
    KXPSDLayer layer;
    layer.setNumberOfChannels(3);
    layer.setDocumentSize({6, 3});
    layer.setImage(raster(3, 1, Qt::black));
    layer.setOffset({1, 1});
    const std::string block = "00 01 00 02 00 07 00 02 fb ff 00 ff fe 00 01 ff ff fb ff";
    EXPECT_EQ(channelsOf(layer), std::vector<std::string>(3, block));
}

TEST(LayerChannels, MarginsBelongToTheSidesThatHaveOne)
{
    KXPSDLayer layer;
    layer.setDocumentSize({6, 1});
    layer.setImage(raster(3, 1, Qt::red));
    EXPECT_EQ(channelsOf(layer)[0], "00 01 00 04 fe ff fe 00"); // none on the left
    layer.setOffset({3, 0});
    EXPECT_EQ(channelsOf(layer)[0], "00 01 00 04 fe 00 fe ff"); // none on the right
}

TEST(LayerChannels, ALayerThatSticksOutOnBothSidesMakesLongerRows)
{
    KXPSDLayer layer;
    layer.setDocumentSize({3, 1});
    layer.setImage(raster(20, 1, Qt::red));
    layer.setOffset({-4, 0});
    EXPECT_EQ(channelsOf(layer)[0], "00 01 00 02 fa ff"); // seven samples, where the document has three
    layer.setOffset({-10, 0});
    EXPECT_EQ(channelsOf(layer)[0], "00 01 00 04 f7 ff fe 00"); // ten, and three from beyond the image
}

TEST(LayerChannels, RandomLayersArePackedByTheDefinition)
{
    std::mt19937 random(5);
    const auto between = [&](int least, int most) {
        return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
    };
    int overhangs = 0;
    for (int round = 0; round < 3000; ++round) {
        KXPSDLayer layer;
        layer.setNumberOfChannels(between(3, 4));
        const QSize document(between(1, 300), between(1, 12));
        const QSize image(between(1, 400), between(1, 16));
        layer.setDocumentSize(document);
        layer.setImage(randomRaster(random, image.width(), image.height()));
        layer.setOffset(QPointF(between(-image.width() + 1, document.width() - 1),
                                between(-image.height() + 1, document.height() - 1)));
        ASSERT_TRUE(layer.hasValidSize());
        overhangs += layer.imageCropRegion().width() > document.width();

        const ExpectedChannels expected(layer);
        for (const bool isCached : {false, true}) {
            if (isCached)
                layer.visibleImageData();
            const std::vector<QByteArray> blocks = layer.layerChannels();
            ASSERT_EQ(std::ssize(blocks), layer.numberOfChannels());
            for (int channel = 0; channel < std::ssize(blocks); ++channel)
                ASSERT_EQ(blocks[static_cast<std::size_t>(channel)], expected.block(channel))
                    << "round " << round << ", channel " << channel << (isCached ? ", cached" : "");
        }
    }
    EXPECT_GT(overhangs, 100);
}

TEST(LayerChannels, CachedDataAreWhatIsPacked)
{
    KXPSDLayer layer;
    layer.setDocumentSize({3, 1});
    layer.setImage(raster(3, 1, Qt::red));
    layer.setVisibleImageData(QByteArray::fromHex("010203040506070809101112"));
    EXPECT_EQ(channelsOf(layer)[1], "00 01 00 04 02 02 06 10");
    layer.setVisibleImageData("of another length");
    EXPECT_EQ(channelsOf(layer)[1], "00 01 00 02 fe 00");
}

TEST(LayerChannels, AreAppendedInOrder)
{
    KXPSDLayer layer;
    layer.setDocumentSize({30, 20});
    layer.setImage(numberedRaster(13, 11));
    layer.setOffset({7, 5});
    QByteArray all;
    std::vector<qint64> lengths;
    for (const QByteArray &block : layer.layerChannels()) {
        all += block;
        lengths.push_back(block.size());
    }
    ByteBuffer buffer;
    EXPECT_EQ(layer.writeLayerChannelsOn(buffer), lengths);
    EXPECT_EQ(buffer.bytes(), all);
}

TEST(LayerChannels, OfADocumentThatNoFileCanHoldAreRefused)
{
    const auto codeFor = [](double width, double height) {
        KXPSDLayer layer;
        layer.setDocumentSize({width, height});
        layer.setImage(raster(3, 3, Qt::red));
        KXPSDError error;
        EXPECT_TRUE(layer.layerChannels(&error).empty());
        EXPECT_TRUE(layer.layerChannels().empty());
        return error.code;
    };
    EXPECT_EQ(codeFor(30001, 5), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeFor(5, 30001), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeFor(-5, 5), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeFor(1e300, 5), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeFor(qQNaN(), qQNaN()), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeFor(qInf(), qInf()), KXPSDError::SizeOutOfRange);
}

TEST(LayerChannels, RowsLongerThanTheirCountsAreRefused)
{
    KXPSDLayer layer;
    layer.setDocumentSize({30000, 1});
    QImage noise(200000, 1, Raster::format);
    for (int x = 0; x < noise.width(); ++x)
        noise.setPixel(x, 0, x % 2 ? 0xffffffff : 0xff000000);
    layer.setImage(noise);
    layer.setName("wide");

    layer.setOffset({-35100, 0}); // 65,100 pixels, too many with their headers
    KXPSDError error;
    EXPECT_TRUE(layer.layerChannels(&error).empty());
    EXPECT_EQ(error.code, KXPSDError::TooMuchForFile);
    EXPECT_TRUE(error.message.contains("\"wide\"")) << qPrintable(error.message);

    layer.setOffset({-35000, 0});
    EXPECT_EQ(layer.layerChannels().size(), 4u);
}

TEST(LayerChannels, AFractionalDocumentEndsWithAWholeRow)
{
    KXPSDLayer layer;
    layer.setDocumentSize({2.5, 1.5});
    layer.setImage(raster(1, 1, Qt::red));
    EXPECT_EQ(channelsOf(layer)[0], "00 01 00 05 00 02 00 ff 01 00 00 fe 00");
}
