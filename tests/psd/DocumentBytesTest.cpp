#include "psd/KXPSDWriter.h"
#include "tests/psd/LayeredDocument.h"
#include "tests/psd/PsdFixtures.h"

#include <QFile>
#include <QtNumeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {
using ::testing::ElementsAre;

using Section = void (KXPSDWriter::*)(ByteBuffer &) const;

std::string section(const KXPSDWriter &writer, Section write)
{
    ByteBuffer buffer;
    (writer.*write)(buffer);
    return hex(buffer);
}

const std::string layerState = "38 42 49 4d 04 00 00 00 00 00 00 02 00 00";

std::string resolutionBlock(const std::string &fixedPoint, const std::string &unit)
{
    return "38 42 49 4d 03 ed 00 00 00 00 00 10 " + fixedPoint + " " + unit + " 00 01 " + fixedPoint + " " + unit +
           " 00 01";
}

/// What stands for a resolution per inch.
std::string fixedPoint(float resolution)
{
    const KXPSDWriter writer({1, 1}, resolution, KXPSDWriter::Inches);
    return section(writer, &KXPSDWriter::writeImageResourceSectionOn).substr(16 * 3, 11);
}

std::string imageData(KXPSDWriter &writer)
{
    writer.preprocess();
    ByteBuffer buffer;
    EXPECT_TRUE(writer.writeImageDataSectionOn(buffer, nullptr));
    return hex(buffer);
}
} // namespace

TEST(DocumentBytes, ASmallDocumentIsKnownToItsLastByte)
{
    KXPSDWriter writer(QSizeF(2, 1));
    writer.addLayerWithCGImage(raster(2, 1, Qt::red), "A");
    EXPECT_EQ(hex(writer.createPSDData()),
              // header
              "38 42 50 53 00 01 00 00 00 00 00 00 00 04 00 00 00 01 00 00 00 02 00 08 00 03 "
              // colour mode data
              "00 00 00 00 "
              // image resources
              "00 00 00 2a "
              "38 42 49 4d 03 ed 00 00 00 00 00 10 00 48 00 00 00 01 00 01 00 48 00 00 00 01 00 01 "
              "38 42 49 4d 04 00 00 00 00 00 00 02 00 00 "
              // layers
              "00 00 00 7a 00 00 00 76 00 01 "
              "00 00 00 00 00 00 00 00 00 00 00 01 00 00 00 02 00 04 "
              "00 00 00 00 00 07 00 01 00 00 00 07 00 02 00 00 00 07 ff ff 00 00 00 07 "
              "38 42 49 4d 6e 6f 72 6d ff 00 00 00 00 00 00 1e "
              "00 00 00 00 00 00 00 00 01 41 20 00 "
              "38 42 49 4d 6c 75 6e 69 00 00 00 06 00 00 00 01 00 41 "
              "00 01 00 03 01 ff ff 00 01 00 03 01 00 00 00 01 00 03 01 00 00 00 01 00 03 01 ff ff "
              // merged picture
              "00 01 00 03 00 03 00 03 00 03 01 ff ff 01 00 00 01 00 00 01 ff ff");
}

TEST(DocumentBytes, TheHeaderHasHeightBeforeWidth)
{
    EXPECT_EQ(section(KXPSDWriter(QSizeF(258, 3)), &KXPSDWriter::writeFileHeaderSectionOn),
              "38 42 50 53 00 01 00 00 00 00 00 00 00 04 00 00 00 03 00 00 01 02 00 08 00 03");
    EXPECT_EQ(section(KXPSDWriter({3, 258}, false), &KXPSDWriter::writeFileHeaderSectionOn),
              "38 42 50 53 00 01 00 00 00 00 00 00 00 03 00 00 01 02 00 00 00 03 00 08 00 03");
}

TEST(DocumentBytes, ThereAreNoColourModeData)
{
    EXPECT_EQ(section(KXPSDWriter(), &KXPSDWriter::writeColorModeDataSectionOn), "00 00 00 00");
}

TEST(DocumentBytes, ResolutionsAreFixedPointNumbersPerInch)
{
    EXPECT_EQ(section(KXPSDWriter(QSizeF(1, 1)), &KXPSDWriter::writeImageResourceSectionOn),
              "00 00 00 2a " + resolutionBlock("00 48 00 00", "00 01") + " " + layerState);
    EXPECT_EQ(section(KXPSDWriter({1, 1}, 10, KXPSDWriter::Centimetres), &KXPSDWriter::writeImageResourceSectionOn),
              "00 00 00 2a " + resolutionBlock("00 19 66 66", "00 02") + " " + layerState);
    EXPECT_EQ(fixedPoint(0.5f), "00 00 80 00");
    EXPECT_EQ(fixedPoint(0.75f / 65536), "00 00 00 01");
}

TEST(DocumentBytes, HorizontalAndVerticalResolutionMayDiffer)
{
    KXPSDWriter writer(QSizeF(1, 1));
    writer.setDocumentResolution({1, 2});
    writer.setDocumentResolutionUnit(258);
    EXPECT_EQ(section(writer, &KXPSDWriter::writeImageResourceSectionOn),
              "00 00 00 2a 38 42 49 4d 03 ed 00 00 00 00 00 10 00 01 00 00 01 02 00 01 00 02 00 00 01 02 00 01 " +
                  layerState);
}

TEST(DocumentBytes, AResolutionBeyondAllReasonIsFourBytes)
{
    EXPECT_EQ(fixedPoint(static_cast<float>(qQNaN())), "00 00 00 00");
    EXPECT_EQ(fixedPoint(0), "00 00 00 00");
    for (const float resolution : {-72.0f, 1e30f, -1e30f, static_cast<float>(qInf())})
        EXPECT_EQ(fixedPoint(resolution).size(), 11u);
}

TEST(DocumentBytes, AColourProfileIsEmbeddedWhole)
{
    const std::pair<KXPSDWriter::ColorProfile, QString> profiles[] = {{KXPSDWriter::GenericRGB, "GenericRGB"},
                                                                      {KXPSDWriter::SRGB, "sRGB"},
                                                                      {KXPSDWriter::AdobeRGB1998, "AdobeRGB1998"}};
    for (const auto &[profile, name] : profiles) {
        QFile file(":/colour-profiles/" + name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        ASSERT_GT(bytes.size(), 128);

        KXPSDWriter writer(QSizeF(1, 1));
        writer.setColorProfile(profile);
        ByteBuffer buffer;
        writer.writeImageResourceSectionOn(buffer);

        ByteBuffer head;
        head.kxAppendValue(42 + 12 + bytes.size(), 4);
        EXPECT_EQ(buffer.bytes().left(4), head.bytes());
        head = {};
        head.kxAppendUTF8String(u"8BIM");
        head.kxAppendValue(1039, 2);
        head.kxAppendValue(0, 2);
        head.kxAppendValue(bytes.size(), 4);
        EXPECT_EQ(buffer.bytes().mid(46), head.bytes() + bytes);
    }
}

TEST(DocumentBytes, AnUnknownColourProfileIsEmbeddedEmpty)
{
    for (const qint32 profile : {4, -1, 2147483647}) {
        KXPSDWriter writer(QSizeF(1, 1));
        writer.setColorProfile(profile);
        EXPECT_EQ(section(writer, &KXPSDWriter::writeImageResourceSectionOn),
                  "00 00 00 36 " + resolutionBlock("00 48 00 00", "00 01") + " " + layerState +
                      " 38 42 49 4d 04 0f 00 00 00 00 00 00");
    }
}

TEST(DocumentBytes, TheMergedPictureIsPremultipliedOverItsBackground)
{
    KXPSDWriter writer(QSizeF(2, 2));
    writer.addLayerWithCGImage(raster(1, 1, QColor(255, 0, 0, 51)), "A", 1, {0, 1});
    EXPECT_EQ(imageData(writer), "00 01 00 03 00 03 00 03 00 03 00 03 00 03 00 03 00 03 "
                                 "01 00 00 01 33 00 01 00 00 01 00 00 01 00 00 01 00 00 01 00 00 01 33 00");
}

TEST(DocumentBytes, AMergedPictureWithoutTransparencyHasThreeChannels)
{
    KXPSDWriter writer({2, 1}, false);
    EXPECT_EQ(imageData(writer), "00 01 00 03 00 03 00 03 01 ff ff 01 ff ff 01 ff ff");
}

TEST(DocumentBytes, ThereAreNoImageDataBeforePreprocessing)
{
    KXPSDWriter writer(QSizeF(2, 1));
    ByteBuffer buffer;
    KXPSDError error;
    EXPECT_FALSE(writer.writeImageDataSectionOn(buffer, &error));
    EXPECT_EQ(error.code, KXPSDError::OutOfMemory);
}

TEST(DocumentBytes, AnEvenLengthOfLayersIsLeftAsItIs)
{
    KXPSDWriter writer(QSizeF(1, 1));
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    ByteBuffer buffer;
    ASSERT_TRUE(writer.writeLayerAndMaskInformationSectionOn(buffer, nullptr));
    // The count, a record of 88 bytes, four channels of 6.
    EXPECT_EQ(hex(buffer.bytes().left(10)), "00 00 00 76 00 00 00 72 00 01");
    EXPECT_EQ(buffer.length(), 4 + 0x76);
}

TEST(DocumentBytes, AnOddLengthOfLayersIsFilledUp)
{
    KXPSDWriter writer({3, 1}, false);
    writer.addLayerWithCGImage(raster(3, 1, Qt::red), "A");
    writer.addLayerWithCGImage(numberedRaster(2, 1), "B");
    ByteBuffer buffer;
    ASSERT_TRUE(writer.writeLayerAndMaskInformationSectionOn(buffer, nullptr));
    // The count, two records of 82 bytes, three channels of 6, three of 9: with the byte that fills up 212.
    EXPECT_EQ(hex(buffer.bytes().left(10)), "00 00 00 d8 00 00 00 d4 00 02");
    EXPECT_EQ(buffer.length(), 4 + 0xd8);
    EXPECT_EQ(hex(buffer.bytes().right(6)), "01 64 64 00 ff 00");
}

TEST(DocumentBytes, LayersWithoutPixelsAreLeftOut)
{
    KXPSDWriter writer(QSizeF(4, 4));
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "outside", 1, {4, 0});
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "B");
    const auto document = LayeredDocument::read(writer.createPSDData());
    ASSERT_TRUE(document.has_value()) << qPrintable(document.error().text);
    ASSERT_EQ(document->layers.size(), 2u);
    EXPECT_EQ(document->layers[0].name, "A");
    EXPECT_EQ(document->layers[1].name, "B");
}

TEST(DocumentBytes, OpenGroupsAreClosedAtTheTop)
{
    KXPSDWriter writer(QSizeF(4, 4));
    writer.openGroupLayerWithName("A", 0.2f, true);
    writer.addLayerWithCGImage(raster(1, 1, Qt::red), "layer");
    writer.openGroupLayerWithName("B");
    const auto document = LayeredDocument::read(writer.createPSDData());
    ASSERT_TRUE(document.has_value()) << qPrintable(document.error().text);
    ASSERT_EQ(document->layers.size(), 5u);
    EXPECT_EQ(document->layers[0].section, LayeredDocument::GroupBound);
    EXPECT_EQ(document->layers[1].name, "layer");
    EXPECT_EQ(document->layers[2].section, LayeredDocument::GroupBound);
    EXPECT_EQ(document->layers[3].section, LayeredDocument::ClosedGroup);
    EXPECT_EQ(document->layers[3].name, "B");
    EXPECT_EQ(document->layers[4].section, LayeredDocument::OpenedGroup);
    EXPECT_EQ(document->layers[4].name, "A");
    EXPECT_EQ(document->layers[4].opacity, 51u);
}

TEST(DocumentBytes, AskedForTwiceIsTheSame)
{
    KXPSDWriter writer(QSizeF(13, 7));
    writer.openGroupLayerWithName("A");
    writer.addLayerWithCGImage(numberedRaster(5, 6), "layer", 0.3f, {-2, 3});
    const QByteArray first = writer.createPSDData();
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(writer.createPSDData(), first);
}

TEST(DocumentBytes, FlagsAreAppliedAgainWhenAskedForTwice)
{
    KXPSDWriter writer(QSizeF(1, 2));
    const auto layer = writer.addLayerWithCGImage(numberedRaster(1, 2), "layer");
    layer->setShouldFlipLayerData(true);
    const QByteArray turned = writer.createPSDData();
    const QByteArray turnedBack = writer.createPSDData();
    EXPECT_NE(turned, turnedBack);
    layer->setShouldFlipLayerData(false);
    EXPECT_EQ(writer.createPSDData(), turnedBack);
}

TEST(DocumentBytes, ProgressIsToldAfterEachLayerAndAtTheEnd)
{
    KXPSDWriter writer(QSizeF(4, 4));
    for (const char *name : {"A", "B", "C"})
        writer.addLayerWithCGImage(raster(1, 1, Qt::red), name);
    std::vector<double> told;
    writer.setProgress([&](double share) {
        told.push_back(share);
        return true;
    });
    EXPECT_FALSE(writer.createPSDData().isEmpty());
    EXPECT_THAT(told, ElementsAre(0.25, 0.5, 0.75, 1));
}

TEST(DocumentBytes, TheProgressCanCancel)
{
    for (const int answers : {0, 1, 2}) {
        KXPSDWriter writer(QSizeF(4, 4));
        writer.addLayerWithCGImage(raster(1, 1, Qt::red), "A");
        writer.addLayerWithCGImage(raster(1, 1, Qt::red), "B");
        int left = answers;
        writer.setProgress([&](double) { return left-- > 0; });
        KXPSDError error;
        EXPECT_TRUE(writer.createPSDDataWithError(&error).isEmpty());
        EXPECT_EQ(error.code, KXPSDError::Cancelled);
        EXPECT_EQ(left, -1); // not asked again
    }
}
