#include "psd/KXPSDWriter.h"
#include "tests/psd/LayeredDocument.h"
#include "tests/psd/PsdFixtures.h"

#include <QtNumeric>

#include <algorithm>
#include <gtest/gtest.h>

namespace {
KXPSDError errorOf(KXPSDWriter &writer)
{
    KXPSDError error;
    EXPECT_TRUE(writer.createPSDDataWithError(&error).isEmpty());
    EXPECT_EQ(error.domain, "example.wallwright.psd");
    EXPECT_FALSE(error.message.isEmpty());
    EXPECT_TRUE(writer.createPSDData().isEmpty());
    return error;
}

int codeForSize(double width, double height)
{
    KXPSDWriter writer(QSizeF(width, height));
    writer.openGroupLayerWithName("visible in any case");
    return errorOf(writer).code;
}

/// Reads what a writer makes; a fault fails the test.
LayeredDocument documentOf(KXPSDWriter &writer)
{
    KXPSDError error;
    const QByteArray file = writer.createPSDDataWithError(&error);
    EXPECT_EQ(error.code, 0) << qPrintable(error.message);
    const Result<LayeredDocument> document = LayeredDocument::read(file);
    EXPECT_TRUE(document.has_value()) << qPrintable(document.error().text);
    return document.value_or(LayeredDocument());
}
} // namespace

TEST(HostileDocument, WithoutVisibleLayersThereIsNone)
{
    KXPSDWriter writer(QSizeF(10, 10));
    EXPECT_EQ(errorOf(writer).code, 2);
    EXPECT_EQ(errorOf(writer).message, "No visible layers in the document");
    writer.addLayerWithCGImage({}, "empty");
    EXPECT_EQ(errorOf(writer).code, KXPSDError::NoVisibleLayers);
}

TEST(HostileDocument, NoVisibleLayersAreToldBeforeTheSize)
{
    KXPSDWriter writer;
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    EXPECT_EQ(errorOf(writer).code, KXPSDError::NoVisibleLayers);
    writer.setDocumentSize({qQNaN(), -5});
    EXPECT_EQ(errorOf(writer).code, KXPSDError::NoVisibleLayers);
}

TEST(HostileDocument, ASizeThatTheFormatCannotHoldIsRefused)
{
    EXPECT_EQ(codeForSize(0, 0), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(10, 0), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(0, 10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(30001, 1), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(1, 30001), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(10.5, 10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(10, 0.5), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(-10, -10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(4294967297.0, 10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(1e300, 1e300), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(qInf(), 10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(-qInf(), 10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(qQNaN(), 10), KXPSDError::SizeOutOfRange);
    EXPECT_EQ(codeForSize(qQNaN(), qQNaN()), KXPSDError::SizeOutOfRange);
}

TEST(HostileDocument, ASizeBeyondAllMemoryIsRefused)
{
    EXPECT_EQ(codeForSize(30000, 30000), KXPSDError::OutOfMemory);
}

TEST(HostileDocument, TheLongestSidesAreWritten)
{
    for (const QSize size : {QSize(30000, 1), QSize(1, 30000)}) {
        KXPSDWriter writer{QSizeF(size)};
        writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
        const LayeredDocument document = documentOf(writer);
        EXPECT_EQ(document.width, size.width());
        EXPECT_EQ(document.height, size.height());
    }
}

TEST(HostileDocument, AChainOfSizesEndsInAWholeDocument)
{
    KXPSDWriter writer(QSizeF(10, 10));
    writer.addLayerWithCGImage(raster(9, 6, Qt::red), "A", 1, {-2, 3});
    for (const QSizeF size : {QSizeF(0, 0), QSizeF(qQNaN(), qQNaN()), QSizeF(1e300, -1e300), QSizeF(30001, 4),
                              QSizeF(qInf(), 2), QSizeF(4294967295.0, 4294967295.0), QSizeF(-1, -1)})
        writer.setDocumentSize(size);
    writer.setDocumentSize({7, 9});
    const LayeredDocument document = documentOf(writer);
    ASSERT_EQ(document.layers.size(), 1u);
    EXPECT_EQ(document.mergedPicture().pixelColor(6, 8), QColor(Qt::red));
    EXPECT_EQ(document.mergedPicture().pixelColor(0, 2), QColor(0, 0, 0, 0));
}

TEST(HostileDocument, OffsetsBeyondAllReasonMakeAWholeDocument)
{
    KXPSDWriter writer(QSizeF(10, 10));
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "inside");
    for (const double far : {2147483648.0, -2147483648.0, 1e300, -1e300, qInf(), -qInf(), qQNaN()}) {
        writer.addLayerWithCGImage(raster(3, 3, Qt::red), "both", 1, {far, far});
        writer.addLayerWithCGImage(raster(3, 3, Qt::red), "one", 1, {far, 1});
        writer.addLayerWithCGImage(raster(3, 3, Qt::red), "fraction", 1, {0.3, far});
    }
    const LayeredDocument document = documentOf(writer);
    EXPECT_EQ(document.layers.size(), 4u); // those of the offset that is no number stand at 0
}

TEST(HostileDocument, FractionalOffsetsMakeAWholeDocument)
{
    KXPSDWriter writer(QSizeF(10, 10));
    for (int tenths = -55; tenths < 105; tenths += 3) {
        const double offset = tenths / 10.0;
        writer.addLayerWithCGImage(raster(5, 5, Qt::red), "A", 1, {offset, -offset / 2});
    }
    EXPECT_GT(documentOf(writer).layers.size(), 40u);
}

TEST(HostileDocument, ALayerThatSticksOutOnBothSidesIsWrittenAsItIs)
{
    KXPSDWriter writer(QSizeF(10, 10));
    writer.addLayerWithCGImage(numberedRaster(40, 40), "A", 1, {-8, -8});
    const QByteArray file = writer.createPSDData();
    EXPECT_FALSE(file.isEmpty()); // whoever draws lets no such layer through: its rows are longer than the document
    EXPECT_EQ(QColor(writer.flattenedContext().pixel(9, 9)), QColor(17, 17, 100));
}

TEST(HostileDocument, AnImageOfOnePixelInADocumentOfOnePixel)
{
    KXPSDWriter writer({1, 1}, false);
    writer.addLayerWithCGImage(raster(1, 1, QColor(1, 2, 3)), "");
    const LayeredDocument document = documentOf(writer);
    EXPECT_EQ(document.channels, 3);
    EXPECT_EQ(document.mergedPicture().pixelColor(0, 0), QColor(1, 2, 3));
}

TEST(HostileDocument, EveryImageFormatIsTaken)
{
    KXPSDWriter writer(QSizeF(3, 3));
    for (int format = QImage::Format_Mono; format < QImage::NImageFormats; ++format) {
        QImage image(3, 3, static_cast<QImage::Format>(format));
        image.fill(Qt::white);
        writer.addLayerWithCGImage(image, QString::number(format));
    }
    const LayeredDocument document = documentOf(writer);
    ASSERT_EQ(std::ssize(document.layers), QImage::NImageFormats - QImage::Format_Mono);
    EXPECT_EQ(document.layers[3].planes[1], QByteArray(9, '\xff'));
}

TEST(HostileDocument, NamesOfUnusualTextsAreTaken)
{
    KXPSDWriter writer(QSizeF(3, 3));
    for (const QString &name : {QString("A") + QChar(0) + 'B', QString(QChar(0xd800)), QString(QChar(0xdfff)) + "x",
                                QString("\U0001F600").repeated(127), QString("%1 %s \\ \n\t\r\x7f"), QString()})
        writer.addLayerWithCGImage(raster(3, 3, Qt::red), name);
    KXPSDError error;
    EXPECT_FALSE(writer.createPSDDataWithError(&error).isEmpty());

    writer.addLayerWithCGImage(raster(3, 3, Qt::red), QString("\U0001F600").repeated(300));
    EXPECT_FALSE(writer.createPSDDataWithError(&error).isEmpty());
    EXPECT_EQ(error.code, 0);
}

TEST(HostileDocument, AFlippedImageSmallerThanTheDocumentIsTurnedWithinItsBlock)
{
    KXPSDWriter writer(QSizeF(7, 9));
    for (const QPointF offset : {QPointF(0, 0), QPointF(-2, 5), QPointF(6, 8)}) {
        const auto layer = writer.addLayerWithCGImage(numberedRaster(5, 4), "A", 1, offset);
        layer->setShouldFlipLayerData(true);
        layer->setShouldUnpremultiplyLayerData(true);
    }
    EXPECT_EQ(documentOf(writer).layers.size(), 3u);
    EXPECT_EQ(documentOf(writer).layers.size(), 3u);
}

TEST(HostileDocument, FlagsInADocumentWithoutASizeDoNothing)
{
    KXPSDWriter writer;
    const auto layer = writer.addLayerWithCGImage(numberedRaster(5, 4), "A", 1, {-1, -1});
    layer->setShouldFlipLayerData(true);
    writer.preprocess();
    writer.setDocumentSize({1e300, 1e300});
    writer.preprocess();
    EXPECT_EQ(hex(layer->visibleImageData().left(4)), "01 01 64 ff");
}

TEST(HostileDocument, AnImageThatCouldNotBeConvertedIsNotLeftOutInSilence)
{
    KXPSDWriter writer(QSizeF(3, 3));
    writer.addLayerWithCGImage(raster(3, 3, Qt::red), "A");
    writer.addLayerWithCGImage(QImage(600'000'000, 1, QImage::Format_Mono), "too wide for a raster");
    EXPECT_EQ(errorOf(writer).code, KXPSDError::OutOfMemory);
}

TEST(HostileDocument, FlagsThatCannotBeAppliedAreNotLeftOutInSilence)
{
    // Of the pixels of the layer, 20,000 x 13,501, there can be no block to turn; the document shows one row of them.
    QImage tall(20'000, 14'000, Raster::format);
    ASSERT_FALSE(tall.isNull());
    std::fill_n(tall.scanLine(13'500), tall.bytesPerLine(), uchar{0}); // that row alone, of 1 GiB
    KXPSDWriter writer(QSizeF(20'000, 1));
    const auto layer = writer.addLayerWithCGImage(tall, "tall", 1, {0, -13'500});
    EXPECT_FALSE(writer.createPSDData().isEmpty());

    layer->setShouldFlipLayerData(true);
    const KXPSDError error = errorOf(writer);
    EXPECT_EQ(error.code, KXPSDError::OutOfMemory);
    EXPECT_TRUE(error.message.contains("\"tall\"")) << qPrintable(error.message);
    layer->setShouldFlipLayerData(false);
    layer->setShouldUnpremultiplyLayerData(true);
    EXPECT_EQ(errorOf(writer).code, KXPSDError::OutOfMemory);
}

TEST(HostileDocument, FortyThousandGroupsAreRefused)
{
    KXPSDWriter writer(QSizeF(3, 3));
    for (int i = 0; i < 40000; ++i)
        writer.openGroupLayerWithName("A");
    EXPECT_EQ(errorOf(writer).code, KXPSDError::TooMuchForFile);
}

TEST(HostileDocument, AsManyLayersAsCanBeCountedAreWritten)
{
    KXPSDWriter writer(QSizeF(1, 1));
    for (qint64 i = 0; i < KXPSDWriter::mostLayers / 2; ++i)
        writer.openGroupLayerWithName("A");
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "inmost");
    EXPECT_EQ(std::ssize(documentOf(writer).layers), KXPSDWriter::mostLayers);

    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "one more");
    EXPECT_EQ(errorOf(writer).code, KXPSDError::TooMuchForFile);
}

TEST(HostileDocument, RowsLongerThanTheirCountsAreRefused)
{
    KXPSDWriter writer(QSizeF(30000, 1));
    QImage noise(200000, 1, Raster::format);
    for (int x = 0; x < noise.width(); ++x)
        noise.setPixel(x, 0, x % 2 ? 0xffffffff : 0xff000000);
    writer.addLayerWithCGImage(noise, "wide", 1, {-36000, 0});
    const KXPSDError error = errorOf(writer);
    EXPECT_EQ(error.code, KXPSDError::TooMuchForFile);
    EXPECT_TRUE(error.message.contains("\"wide\""));
}
