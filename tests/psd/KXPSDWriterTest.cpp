#include "psd/KXPSDWriter.h"

#include "tests/psd/PsdFixtures.h"

#include <QtNumeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> names(const std::vector<KXPSDWriter::LayerPointer> &layers)
{
    std::vector<std::string> all;
    for (const auto &layer : layers)
        all.push_back(layer->name().toStdString());
    return all;
}

std::shared_ptr<KXPSDLayer> layerOf(const QImage &image, const QString &name)
{
    auto layer = std::make_shared<KXPSDLayer>();
    layer->setImage(image);
    layer->setName(name);
    return layer;
}

/// A pixel of the merged picture, from the top left.
QColor merged(const KXPSDWriter &writer, int x, int y)
{
    return writer.flattenedContext().pixelColor(x, y);
}
} // namespace

TEST(KXPSDWriter, ANewOneIsEmpty)
{
    const KXPSDWriter writer;
    EXPECT_EQ(writer.documentSize(), QSizeF(0, 0));
    EXPECT_EQ(writer.documentResolution().hResolution, 72);
    EXPECT_EQ(writer.documentResolution().vResolution, 72);
    EXPECT_EQ(writer.documentResolutionUnit(), KXPSDWriter::Inches);
    EXPECT_TRUE(writer.hasTransparentLayers());
    EXPECT_EQ(writer.numberOfChannels(), 4);
    EXPECT_THAT(writer.layers(), IsEmpty());
    EXPECT_EQ(writer.colorProfile(), KXPSDWriter::NoProfile);
    EXPECT_TRUE(writer.flattenedContext().isNull());
    EXPECT_TRUE(writer.flattenedData().isEmpty());
}

TEST(KXPSDWriter, AResolutionPerCentimetreIsKeptPerInch)
{
    const KXPSDWriter writer({10, 5}, 10, KXPSDWriter::Centimetres);
    EXPECT_FLOAT_EQ(writer.documentResolution().hResolution, 25.4f);
    EXPECT_FLOAT_EQ(writer.documentResolution().vResolution, 25.4f);
    EXPECT_EQ(writer.documentResolutionUnit(), KXPSDWriter::Centimetres);

    const KXPSDWriter perInch({10, 5}, 10, KXPSDWriter::Inches);
    EXPECT_EQ(perInch.documentResolution().hResolution, 10);
}

TEST(KXPSDWriter, WithoutTransparencyTheMergedPictureIsWhite)
{
    const KXPSDWriter transparent(QSizeF(2, 1));
    EXPECT_EQ(merged(transparent, 1, 0), QColor(0, 0, 0, 0));

    const KXPSDWriter opaque({2, 1}, false);
    EXPECT_EQ(opaque.numberOfChannels(), 3);
    EXPECT_EQ(merged(opaque, 1, 0), QColor(Qt::white));
}

TEST(KXPSDWriter, AFractionalOpacityIsRoundedOnceInTheMergedPicture)
{
    for (int thousandths = 0; thousandths <= 1000; ++thousandths) {
        const float opacity = static_cast<float>(thousandths) / 1000;
        KXPSDWriter writer(QSizeF(1, 1));
        writer.addLayerWithCGImage(raster(1, 1, Qt::white), "A", opacity);
        ASSERT_NEAR(merged(writer, 0, 0).alpha(), opacity * 255, 0.501) << opacity;
    }
}

TEST(KXPSDWriter, LayersGivenAtFirstAreMergedWhenTheSizeIsSetAgain)
{
    KXPSDWriter writer({2, 1}, true, {layerOf(raster(2, 1, Qt::red), "A")});
    EXPECT_EQ(merged(writer, 0, 0), QColor(0, 0, 0, 0));
    EXPECT_THAT(writer.visibleLayers(), IsEmpty()); // the layer has no document size yet

    writer.setDocumentSize({3, 4});
    EXPECT_EQ(merged(writer, 0, 0), QColor(Qt::red));
    EXPECT_EQ(merged(writer, 2, 0), QColor(0, 0, 0, 0));
}

TEST(KXPSDWriter, MissingLayersAreLeftOut)
{
    KXPSDWriter writer({2, 1}, true, {nullptr, layerOf({}, "A")});
    EXPECT_THAT(names(writer.layers()), ElementsAre("A"));
    writer.setLayers({nullptr});
    EXPECT_THAT(writer.layers(), IsEmpty());
}

TEST(KXPSDWriter, AnAddedLayerTakesTheWritersSizeAndChannels)
{
    KXPSDWriter writer({20, 10}, false);
    const auto layer = writer.addLayerWithCGImage(numberedRaster(4, 3), "A", 0.5f, {-1, 2});
    EXPECT_EQ(layer->documentSize(), QSizeF(20, 10));
    EXPECT_EQ(layer->image(), numberedRaster(4, 3));
    EXPECT_EQ(layer->opacity(), 0.5f);
    EXPECT_EQ(layer->name(), "A");
    EXPECT_EQ(layer->offset(), QPointF(-1, 2));
    EXPECT_EQ(layer->numberOfChannels(), 3);
    EXPECT_THAT(writer.layers(), ElementsAre(layer));

    const auto plain = writer.addLayerWithCGImage({}, "B");
    EXPECT_EQ(plain->opacity(), 1.0f);
    EXPECT_EQ(plain->offset(), QPointF(0, 0));
}

TEST(KXPSDWriter, LayersAreMergedWhereTheyStand)
{
    KXPSDWriter writer(QSizeF(4, 3));
    writer.addLayerWithCGImage(raster(2, 1, Qt::red), "A", 1, {1, 0});
    writer.addLayerWithCGImage(raster(1, 1, Qt::blue), "B", 1, {3, 2});
    EXPECT_EQ(merged(writer, 0, 0), QColor(0, 0, 0, 0));
    EXPECT_EQ(merged(writer, 1, 0), QColor(Qt::red));
    EXPECT_EQ(merged(writer, 2, 0), QColor(Qt::red));
    EXPECT_EQ(merged(writer, 1, 1), QColor(0, 0, 0, 0));
    EXPECT_EQ(merged(writer, 3, 2), QColor(Qt::blue));
}

TEST(KXPSDWriter, MergedLayersAreCutToTheDocument)
{
    KXPSDWriter writer(QSizeF(3, 2));
    writer.addLayerWithCGImage(numberedRaster(9, 9), "A", 1, {-2, -4}); // sticks out on all four sides
    for (int y = 0; y < 2; ++y) {
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(merged(writer, x, y), QColor(x + 2, y + 4, 100));
    }
}

TEST(KXPSDWriter, MergedLayersThatEndBeyondTheirImageAreNotStretched)
{
    KXPSDWriter writer(QSizeF(3, 1));
    writer.addLayerWithCGImage(numberedRaster(8, 1), "A", 1, {-4, 0}); // the region is from 4 to 11
    EXPECT_EQ(merged(writer, 0, 0), QColor(4, 0, 100));
    EXPECT_EQ(merged(writer, 2, 0), QColor(6, 0, 100));
}

TEST(KXPSDWriter, OpacityWeakensAMergedLayer)
{
    KXPSDWriter writer({1, 1}, false);
    writer.addLayerWithCGImage(raster(1, 1, Qt::black), "A", 0.2f);
    EXPECT_NEAR(merged(writer, 0, 0).red(), 204, 1);
    writer.addLayerWithCGImage(raster(1, 1, Qt::black), "B", 0);
    EXPECT_NEAR(merged(writer, 0, 0).red(), 204, 1);
    writer.addLayerWithCGImage(raster(1, 1, Qt::black), "C", static_cast<float>(qQNaN()));
    EXPECT_NEAR(merged(writer, 0, 0).red(), 204, 1);
    writer.addLayerWithCGImage(raster(1, 1, Qt::black), "D", 17);
    EXPECT_EQ(merged(writer, 0, 0), QColor(Qt::black));
}

TEST(KXPSDWriter, WithoutASizeALayerCannotBeMerged)
{
    KXPSDWriter writer;
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A"); // added all the same
    EXPECT_EQ(writer.layers().size(), 1u);

    KXPSDError error;
    EXPECT_FALSE(writer.addLayerToFlattenedContext(writer.layers()[0].get(), &error));
    EXPECT_EQ(error.code, 1);
    EXPECT_EQ(error.message, "You must specify a non-zero documentSize before adding a layer");
    EXPECT_EQ(error.domain, "example.wallwright.psd");

    writer.setDocumentSize({5, 0});
    EXPECT_FALSE(writer.addLayerToFlattenedContext(writer.layers()[0].get(), nullptr));
}

TEST(KXPSDWriter, NoLayerIsMergedWithoutAnEffect)
{
    KXPSDWriter writer(QSizeF(1, 1));
    EXPECT_TRUE(writer.addLayerToFlattenedContext(nullptr, nullptr));
    EXPECT_EQ(merged(writer, 0, 0), QColor(0, 0, 0, 0));
}

TEST(KXPSDWriter, AMergedPictureBeyondAllMemoryIsTold)
{
    KXPSDWriter writer(QSizeF(30000, 30000));
    EXPECT_TRUE(writer.flattenedContext().isNull());
    const auto layer = writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    KXPSDError error;
    EXPECT_FALSE(writer.addLayerToFlattenedContext(layer.get(), &error));
    EXPECT_EQ(error.code, KXPSDError::OutOfMemory);
}

TEST(KXPSDWriter, AnotherSizeIsPassedToLayersAndDrawnAnew)
{
    KXPSDWriter writer(QSizeF(2, 2));
    const auto layer = writer.addLayerWithCGImage(raster(4, 4, Qt::red), "A");
    writer.setDocumentSize({5, 6});
    EXPECT_EQ(layer->documentSize(), QSizeF(5, 6));
    EXPECT_EQ(writer.flattenedContext().size(), QSize(5, 6));
    EXPECT_EQ(merged(writer, 3, 3), QColor(Qt::red));
    EXPECT_EQ(merged(writer, 4, 3), QColor(0, 0, 0, 0));
}

TEST(KXPSDWriter, ASizeWithOneOtherSideReachesTheWriterAlone)
{
    KXPSDWriter writer(QSizeF(100, 100));
    const auto layer = writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    writer.setDocumentSize({100, 200});
    EXPECT_EQ(writer.documentSize(), QSizeF(100, 200));
    EXPECT_EQ(writer.flattenedContext().size(), QSize(100, 200));
    EXPECT_EQ(layer->documentSize(), QSizeF(100, 100));
    writer.setDocumentSize({300, 300});
    EXPECT_EQ(layer->documentSize(), QSizeF(300, 300));
}

TEST(KXPSDWriter, TheSameSizeDoesNothing)
{
    KXPSDWriter writer(QSizeF(10, 10));
    const auto layer = writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    layer->setVisibleImageData(QByteArray::fromHex("01020304"));
    const qint64 picture = writer.flattenedContext().cacheKey();
    writer.setDocumentSize({10, 10});
    EXPECT_EQ(hex(layer->visibleImageData()), "01 02 03 04");
    EXPECT_EQ(writer.flattenedContext().cacheKey(), picture);
    writer.setDocumentSize({10, 11}); // the layer keeps its size, but not its data
    EXPECT_EQ(hex(layer->visibleImageData()), "ff 00 00 ff");
}

TEST(KXPSDWriter, ASizeOfNoughtHasNoMergedPicture)
{
    KXPSDWriter writer(QSizeF(10, 10));
    writer.setDocumentSize({0, 0});
    EXPECT_TRUE(writer.flattenedContext().isNull());
    writer.setDocumentSize({10, 0});
    EXPECT_TRUE(writer.flattenedContext().isNull());
    writer.setDocumentSize({-3, 7});
    EXPECT_TRUE(writer.flattenedContext().isNull());
    writer.setDocumentSize({10.75, 7.25});
    EXPECT_EQ(writer.flattenedContext().size(), QSize(10, 7));
}

TEST(KXPSDWriter, AResetGivesTheSizeByTheIndexOfVisibleLayers)
{
    const auto hidden = layerOf({}, "hidden");
    const auto shown = layerOf(raster(2, 2, Qt::red), "shown");
    shown->setDocumentSize({2, 2});
    KXPSDWriter writer({8, 8}, true, {hidden, shown});

    writer.resetFlattenedContext();

    EXPECT_EQ(hidden->documentSize(), QSizeF(8, 8)); // first of all layers
    EXPECT_EQ(shown->documentSize(), QSizeF(2, 2));
    EXPECT_EQ(merged(writer, 1, 1), QColor(Qt::red)); // first of the visible ones
}

TEST(KXPSDWriter, AResetDrawsWhatItsSizesMakeVisible)
{
    const auto late = layerOf(raster(1, 1, Qt::blue), "late");
    const auto shown = layerOf(raster(3, 3, Qt::red), "shown");
    shown->setDocumentSize({2, 2});
    shown->setOffset({1, 1});
    KXPSDWriter writer({8, 8}, true, {late, shown});

    writer.resetFlattenedContext();

    EXPECT_EQ(merged(writer, 0, 0), QColor(Qt::blue));
    EXPECT_EQ(shown->documentSize(), QSizeF(8, 8));
    EXPECT_EQ(merged(writer, 3, 3), QColor(Qt::red));
}

TEST(KXPSDWriter, AResetLeavesOutWhatItsSizesMakeInvisible)
{
    const auto lost = layerOf(raster(1, 1, Qt::blue), "lost");
    lost->setDocumentSize({20, 20});
    lost->setOffset({9, 9});
    const auto shown = layerOf(raster(1, 1, Qt::red), "shown");
    shown->setDocumentSize({20, 20});
    KXPSDWriter writer({8, 8}, true, {lost, shown});

    writer.resetFlattenedContext(); // by the first index the list of two becomes a list of one

    EXPECT_EQ(lost->documentSize(), QSizeF(8, 8));
    EXPECT_EQ(shown->documentSize(), QSizeF(20, 20));
    EXPECT_EQ(merged(writer, 0, 0), QColor(Qt::red));
}

TEST(KXPSDWriter, VisibleLayersAreThoseWithPixelsAndAllGroups)
{
    KXPSDWriter writer(QSizeF(10, 10));
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "inside");
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "outside", 1, {10, 0});
    writer.addLayerWithCGImage({}, "empty");
    writer.openGroupLayerWithName("group");
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "transparent", 0);
    writer.closeCurrentGroupLayer();
    EXPECT_THAT(names(writer.visibleLayers()), ElementsAre("inside", "group", "transparent", ""));
}

TEST(KXPSDWriter, FlattenedDataAreThoseOfTheLastPreprocessing)
{
    KXPSDWriter writer({2, 1}, false);
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    EXPECT_TRUE(writer.flattenedData().isEmpty());
    writer.preprocess();
    EXPECT_EQ(hex(writer.flattenedData()), "ff 00 00 ff ff ff ff ff");
    writer.addLayerWithCGImage(raster(1, 1, Qt::blue), "B", 1, {1, 0});
    EXPECT_EQ(hex(writer.flattenedData()), "ff 00 00 ff ff ff ff ff");
    EXPECT_EQ(merged(writer, 1, 0), QColor(Qt::blue));
    writer.preprocess();
    EXPECT_EQ(hex(writer.flattenedData()), "ff 00 00 ff 00 00 ff ff");
}

TEST(KXPSDWriter, FlagsChangeVisibleDataEachTime)
{
    KXPSDWriter writer(QSizeF(1, 3));
    QImage image = raster(1, 3, Qt::transparent);
    image.setPixel(0, 0, 0x33330010); // premultiplied, alpha 51
    const auto layer = writer.addLayerWithCGImage(image, "A");
    layer->setShouldFlipLayerData(true);
    layer->setShouldUnpremultiplyLayerData(true);

    writer.preprocess();
    EXPECT_EQ(hex(layer->visibleImageData()), "ff ff ff 00 ff ff ff 00 ff 00 50 33");
    writer.preprocess(); // divided and turned once more
    EXPECT_EQ(hex(layer->visibleImageData()), "ff 00 ff 33 ff ff ff 00 ff ff ff 00");
}

TEST(KXPSDWriter, AFlipCountsInRowsOfTheDocument)
{
    KXPSDWriter writer(QSizeF(2, 3));
    const auto layer = writer.addLayerWithCGImage(numberedRaster(1, 3), "A");
    layer->setShouldFlipLayerData(true);
    writer.preprocess();
    // In rows of two, what pixels 0 and 1 are swapped with would be 4 and 5, and the block has three.
    EXPECT_EQ(hex(layer->visibleImageData()), "00 00 64 ff 00 01 64 ff 00 02 64 ff");
}

TEST(KXPSDWriter, FlagsOfLayersWithoutPixelsDoNothing)
{
    KXPSDWriter writer(QSizeF(2, 3));
    const auto group = writer.openGroupLayerWithName("A");
    group->setShouldFlipLayerData(true);
    group->setShouldUnpremultiplyLayerData(true);
    writer.preprocess();
    EXPECT_TRUE(group->visibleImageData().isEmpty());
}
