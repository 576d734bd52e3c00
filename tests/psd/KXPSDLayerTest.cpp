#include "psd/KXPSDLayer.h"

#include "tests/psd/PsdFixtures.h"

#include <QtNumeric>

#include <gtest/gtest.h>
namespace {
/// Gives a layer an image of a size at an offset in a document.
void place(KXPSDLayer &layer, const QSize &image, const QPointF &offset, const QSizeF &document)
{
    layer.setDocumentSize(document);
    layer.setImage(numberedRaster(image.width(), image.height()));
    layer.setOffset(offset);
}

QRectF cropRegion(const QSize &image, const QPointF &offset, const QSizeF &document)
{
    KXPSDLayer layer;
    place(layer, image, offset, document);
    return layer.imageCropRegion();
}

QRectF documentRegion(const QSize &image, const QPointF &offset, const QSizeF &document)
{
    KXPSDLayer layer;
    place(layer, image, offset, document);
    return layer.imageInDocumentRegion();
}

bool isValid(const QSize &image, const QPointF &offset, const QSizeF &document)
{
    KXPSDLayer layer;
    place(layer, image, offset, document);
    return layer.hasValidSize();
}

std::string visibleData(const QSize &image, const QPointF &offset, const QSizeF &document)
{
    KXPSDLayer layer;
    place(layer, image, offset, document);
    return hex(layer.visibleImageData());
}
} // namespace

TEST(KXPSDLayer, ANewOneIsOpaqueAndPlain)
{
    const KXPSDLayer layer;
    EXPECT_EQ(layer.name(), QString());
    EXPECT_TRUE(layer.image().isNull());
    EXPECT_EQ(layer.opacity(), 1.0f);
    EXPECT_EQ(layer.offset(), QPointF(0, 0));
    EXPECT_EQ(layer.documentSize(), QSizeF(0, 0));
    EXPECT_EQ(layer.numberOfChannels(), 4);
    EXPECT_FALSE(layer.shouldFlipLayerData());
    EXPECT_FALSE(layer.shouldUnpremultiplyLayerData());
    EXPECT_EQ(layer.blendMode(), KXPSDBlendMode::normal);
    EXPECT_EQ(layer.effects(), KXPSDLayerEffects());
}

TEST(KXPSDLayer, TheLongerConstructorSetsItsFiveFields)
{
    const KXPSDLayer layer(3, 0.25f, true, true, KXPSDBlendMode::screen);
    EXPECT_EQ(layer.numberOfChannels(), 3);
    EXPECT_EQ(layer.opacity(), 0.25f);
    EXPECT_TRUE(layer.shouldFlipLayerData());
    EXPECT_TRUE(layer.shouldUnpremultiplyLayerData());
    EXPECT_EQ(layer.blendMode(), KXPSDBlendMode::screen);
}

TEST(KXPSDLayer, ADocumentSizeIsStoredOnlyWhenBothSidesDiffer)
{
    KXPSDLayer layer;
    layer.setDocumentSize({100, 100});
    layer.setDocumentSize({100, 200});
    EXPECT_EQ(layer.documentSize(), QSizeF(100, 100));
    layer.setDocumentSize({200, 100});
    EXPECT_EQ(layer.documentSize(), QSizeF(100, 100));
    layer.setDocumentSize({101, 99});
    EXPECT_EQ(layer.documentSize(), QSizeF(101, 99));
}

TEST(KXPSDLayer, AnImageThatSticksOutOnTheLeftIsCutThere)
{
    EXPECT_EQ(cropRegion({50, 20}, {-10, 0}, {100, 100}), QRectF(10, 0, 40, 20));
    EXPECT_EQ(documentRegion({50, 20}, {-10, 0}, {100, 100}), QRectF(0, 0, 40, 20));
    EXPECT_EQ(cropRegion({50, 20}, {0, -7}, {100, 100}), QRectF(0, 7, 50, 13));
}

TEST(KXPSDLayer, AnImageThatSticksOutOnTheRightIsCutThere)
{
    EXPECT_EQ(cropRegion({50, 20}, {80, 95}, {100, 100}), QRectF(0, 0, 20, 5));
    EXPECT_EQ(documentRegion({50, 20}, {80, 95}, {100, 100}), QRectF(80, 95, 20, 5));
    EXPECT_EQ(cropRegion({50, 20}, {50, 80}, {100, 100}), QRectF(0, 0, 50, 20));
}

TEST(KXPSDLayer, AnImageThatSticksOutOnBothSidesKeepsMoreThanTheDocument)
{
    EXPECT_EQ(cropRegion({50, 20}, {-3, -2}, {10, 5}), QRectF(3, 2, 13, 7));
    EXPECT_EQ(documentRegion({50, 20}, {-3, -2}, {10, 5}), QRectF(0, 0, 13, 7));
}

TEST(KXPSDLayer, WithoutPixelsInTheDocumentItsSizeIsNotValid)
{
    EXPECT_TRUE(isValid({5, 5}, {0, 0}, {10, 10}));
    EXPECT_TRUE(isValid({5, 5}, {9, 9}, {10, 10}));
    EXPECT_FALSE(isValid({5, 5}, {10, 0}, {10, 10}));
    EXPECT_FALSE(isValid({5, 5}, {0, 10}, {10, 10}));
    EXPECT_TRUE(isValid({5, 5}, {-4, -4}, {10, 10}));
    EXPECT_FALSE(isValid({5, 5}, {-5, 0}, {10, 10}));
    EXPECT_FALSE(isValid({5, 5}, {0, -5}, {10, 10}));
    EXPECT_FALSE(isValid({5, 5}, {0, 0}, {0, 0}));
    EXPECT_FALSE(KXPSDLayer().hasValidSize());
}

TEST(KXPSDLayer, OffsetsBeyondAllReasonLeaveNothingVisible)
{
    for (const double far : {2147483648.0, -2147483648.0, 1e300, -1e300, qInf(), -qInf()}) {
        KXPSDLayer layer;
        place(layer, {5, 5}, {far, far}, {10, 10});
        EXPECT_FALSE(layer.hasValidSize()) << far;
        EXPECT_TRUE(layer.croppedImage().isNull()) << far;
        EXPECT_TRUE(layer.visibleImageData().isEmpty()) << far;
        EXPECT_EQ(layer.layerChannels().size(), 4u) << far; // blank ones
    }
}

TEST(KXPSDLayer, AnOffsetThatIsNoNumberCountsAsNought)
{
    KXPSDLayer layer;
    place(layer, {3, 2}, {qQNaN(), qQNaN()}, {3, 2});
    EXPECT_TRUE(layer.hasValidSize());
    EXPECT_EQ(layer.croppedImage(), numberedRaster(3, 2));
    EXPECT_EQ(layer.imageInDocumentRegion(), QRectF(0, 0, 3, 2));
}

TEST(KXPSDLayer, TheCroppedImageSharesTheImagesMemoryAndOutlivesTheLayer)
{
    QImage cropped;
    {
        KXPSDLayer layer;
        place(layer, {20, 10}, {-5, -3}, {10, 100});
        cropped = layer.croppedImage();
        EXPECT_EQ(cropped.constBits(), layer.image().constScanLine(3) + 5 * 4);
    }
    ASSERT_EQ(cropped.size(), QSize(15, 7));
    EXPECT_EQ(cropped.pixel(0, 0), qRgb(5, 3, 100));
    EXPECT_EQ(cropped.pixel(14, 6), qRgb(19, 9, 100));
}

TEST(KXPSDLayer, TheCroppedImageEndsWithTheImage)
{
    KXPSDLayer layer;
    place(layer, {13, 20}, {-2, 0}, {10, 20}); // the region is from 2 to 14
    EXPECT_EQ(layer.imageCropRegion(), QRectF(2, 0, 12, 20));
    EXPECT_EQ(layer.croppedImage().size(), QSize(11, 20));
}

TEST(KXPSDLayer, AnImageOfAnotherFormatIsConvertedOnce)
{
    QImage straight(1, 1, QImage::Format_RGBA8888);
    straight.setPixelColor(0, 0, QColor(255, 0, 0, 51));
    KXPSDLayer layer;
    layer.setImage(straight);
    EXPECT_EQ(layer.image().format(), Raster::format);
    EXPECT_EQ(hex(QByteArray(reinterpret_cast<const char *>(layer.image().constBits()), 4)), "00 00 33 33");

    const qint64 converted = layer.image().cacheKey();
    layer.setImage(straight);
    EXPECT_EQ(layer.image().cacheKey(), converted);
}

TEST(KXPSDLayer, TheOriginalMayChangeAfterwards)
{
    QImage original = raster(2, 1, Qt::red);
    KXPSDLayer layer;
    layer.setImage(original);
    original.fill(Qt::green);
    EXPECT_EQ(layer.image().pixelColor(0, 0), QColor(Qt::red));
}

TEST(KXPSDLayer, AnImageThatCannotBeConvertedIsTold)
{
    KXPSDLayer layer;
    EXPECT_FALSE(layer.lacksImage());
    layer.setImage(QImage(600'000'000, 1, QImage::Format_Mono)); // as a raster its row is longer than 31 bits
    EXPECT_TRUE(layer.image().isNull());
    EXPECT_TRUE(layer.lacksImage());
    layer.setImage({});
    EXPECT_FALSE(layer.lacksImage());
}

TEST(KXPSDLayer, VisibleDataAreTheCroppedPixelsFromTheTopDown)
{
    EXPECT_EQ(visibleData({4, 3}, {-2, -1}, {10, 10}), "02 01 64 ff 03 01 64 ff "
                                                       "02 02 64 ff 03 02 64 ff");
}

TEST(KXPSDLayer, VisibleDataArePremultiplied)
{
    KXPSDLayer layer;
    layer.setDocumentSize({1, 1});
    layer.setImage(raster(1, 1, QColor(255, 0, 0, 51)));
    EXPECT_EQ(hex(layer.visibleImageData()), "33 00 00 33");
}

TEST(KXPSDLayer, VisibleDataAreTransparentBeyondTheImage)
{
    // Of the image's three columns the last two are in the region, which has one column and one row more.
    EXPECT_EQ(visibleData({3, 3}, {-1, -1}, {1, 1}), "01 01 64 ff 02 01 64 ff "
                                                     "01 02 64 ff 02 02 64 ff");
    EXPECT_EQ(visibleData({4, 4}, {-2, -2}, {1, 1}), "02 02 64 ff 03 02 64 ff 00 00 00 00 "
                                                     "02 03 64 ff 03 03 64 ff 00 00 00 00 "
                                                     "00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST(KXPSDLayer, FractionsOfPixelsAreCutOff)
{
    EXPECT_EQ(visibleData({3, 1}, {-0.5, 0}, {10, 10}), "00 00 64 ff 01 00 64 ff");
    EXPECT_EQ(visibleData({1, 1}, {-0.5, 0}, {10, 10}), "");
    EXPECT_TRUE(isValid({1, 1}, {-0.5, 0}, {10, 10}));
}

TEST(KXPSDLayer, VisibleDataAreKeptUntilImageOrDocumentSizeAreSet)
{
    KXPSDLayer layer;
    place(layer, {1, 1}, {0, 0}, {10, 10});
    const QByteArray own = QByteArray::fromHex("01020304");
    layer.setVisibleImageData(own);
    EXPECT_EQ(layer.visibleImageData(), own);

    layer.setImage(QImage(layer.image())); // the same
    EXPECT_EQ(layer.visibleImageData(), own);

    layer.setDocumentSize({10, 10}); // the same, too, but set all the same
    EXPECT_EQ(hex(layer.visibleImageData()), "00 00 64 ff");

    layer.setVisibleImageData(own);
    layer.setImage(numberedRaster(1, 1));
    EXPECT_EQ(hex(layer.visibleImageData()), "00 00 64 ff");
}

TEST(KXPSDLayer, VisibleDataOfAnotherLengthAreMadeAnew)
{
    KXPSDLayer layer;
    place(layer, {2, 1}, {0, 0}, {10, 10});
    layer.setVisibleImageData("short");
    EXPECT_EQ(layer.visibleImageData().size(), 8);
    layer.setOffset({9, 0});
    EXPECT_EQ(layer.visibleImageData().size(), 4);
}

TEST(KXPSDLayer, TheDescriptionTellsNameOpacityAndRegions)
{
    KXPSDLayer layer;
    place(layer, {50, 20}, {-10, 5}, {100, 100});
    layer.setName("Wall %1 %s");
    layer.setOpacity(0.5f);
    const QString text = layer.description();
    EXPECT_TRUE(text.startsWith("(super: <KXPSDLayer: 0x")) << qPrintable(text);
    EXPECT_TRUE(text.endsWith(
        ">): Layer named 'Wall %1 %s' (opacity: 0.500000). Image Crop Region: (10.000000, 0.000000, 40.000000, "
        "20.000000). Image In Document Region (0.000000, 5.000000, 40.000000, 20.000000)"))
        << qPrintable(text);
}
