#include "psd/KXPSDWriter.h"
#include "psd/PackBits.h"
#include "psd/PackedChannels.h"
#include "tests/base/Threads.h"
#include "tests/psd/PlainPackBits.h"
#include "tests/psd/PsdFixtures.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>

namespace {
/// Rows of this many pixels fill a band by the 128.
constexpr int width = 1024;

/// Rows of runs and of noise; one in three repeats the one above.
QImage picture(int height)
{
    std::minstd_rand random(static_cast<quint32>(height));
    QImage image = Raster::make(width, std::max(1, height));
    for (int y = 0; y < height; ++y) {
        auto *const row = reinterpret_cast<QRgb *>(image.scanLine(y));
        if (y > 0 && random() % 3 == 0) {
            std::copy_n(reinterpret_cast<const QRgb *>(image.constScanLine(y - 1)), width, row);
            continue;
        }
        QRgb pixel = 0;
        for (int x = 0; x < width; ++x) {
            if (random() % 16 == 0 || x % 200 > 170)
                pixel = qPremultiply(static_cast<QRgb>(random()) << 3);
            row[x] = pixel;
        }
    }
    return image;
}

/// Channels one after the other, packed byte by byte: a layer's bytes.
QByteArray plainLayer(const QImage &image, int height)
{
    ByteBuffer buffer;
    for (std::size_t channel = 0; channel < 4; ++channel) {
        QByteArray rows;
        buffer.kxAppendValue(PackBits::compression, 2);
        for (int y = 0; y < height; ++y) {
            QByteArray plane;
            for (int x = 0; x < width; ++x) {
                const QRgb pixel = reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
                const std::array components{qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)};
                plane.append(static_cast<char>(components[channel]));
            }
            const QByteArray packed = PlainPackBits::pack(plane);
            buffer.kxAppendValue(packed.size(), 2);
            rows += packed;
        }
        buffer.append(rows);
    }
    return buffer.takeBytes();
}

/// Layers over each other, larger than a band, in a document whose width is no multiple of anything.
QByteArray document()
{
    KXPSDWriter writer(QSizeF(1021, 613));
    writer.addLayerWithCGImage(picture(613), "below");
    writer.addLayerWithCGImage(picture(500), "shifted", 0.5F, {-40, 77});
    writer.openGroupLayerWithName("group");
    const auto turned = writer.addLayerWithCGImage(picture(400), "turned", 1, {13, 0});
    turned->setShouldFlipLayerData(true);
    turned->setShouldUnpremultiplyLayerData(true);
    writer.addLayerWithCGImage(raster(700, 600, Qt::green), "opaque", 1, {100, 5});
    return writer.createPSDData();
}
} // namespace

class PackedBands : public testing::TestWithParam<int>
{
    Threads m_threads{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Processors, PackedBands, testing::Values(1, 2, 8));

TEST_P(PackedBands, RowsAtTheirBordersArePackedAsByThePlainWay)
{
    for (const int height : {0, 1, 127, 128, 129, 255, 256, 257, 383, 769, 1025}) {
        const QImage image = picture(height);
        PixelView view = PixelView::ofRaster(image);
        view.height = height;
        ChannelPacker packer;
        ByteBuffer buffer;
        const std::vector<qint64> lengths = appendOneByOne(buffer, packer.pack(view, Placement::filledBy(view), 4));
        const QByteArray expected = plainLayer(image, height);
        EXPECT_EQ(buffer.bytes(), expected) << height;
        ASSERT_EQ(lengths.size(), 4u);
        EXPECT_EQ(lengths[0] + lengths[1] + lengths[2] + lengths[3], expected.size());
    }
}

TEST_P(PackedBands, ADocumentIsTheSame)
{
    const QByteArray bytes = document();
    EXPECT_GT(bytes.size(), 1'000'000);
    const Threads single(1);
    EXPECT_EQ(bytes, document());
}
