#include "tests/psd/LayeredDocument.h"

#include "tests/psd/HandMadeDocument.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using ::testing::StartsWith;

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

/// What the reader says of the hand-made document after one change.
std::string fault(const std::function<void(HandMadeDocument &)> &change)
{
    HandMadeDocument made;
    change(made);
    const Result<LayeredDocument> document = LayeredDocument::read(made.bytes());
    return document ? "accepted" : document.error().text.toStdString();
}

/// The same without the place, for faults whose place is no figure worth keeping.
std::string reason(const std::function<void(HandMadeDocument &)> &change)
{
    const std::string text = fault(change);
    const std::size_t colon = text.find(": ");
    return colon == std::string::npos ? text : text.substr(colon + 2);
}

/// The same after one change of the layer's effects.
std::string effectsFault(const std::function<void(QByteArrayList &)> &change)
{
    return reason([&](HandMadeDocument &made) {
        QByteArrayList records = HandMadeDocument::effectRecords();
        change(records);
        made.layer.blocks[0] = HandMadeDocument::effects(records);
    });
}

QByteArrayList channelOf(const QByteArray &firstRow, const QByteArray &secondRow = "\xfe\x05")
{
    QByteArrayList channels = HandMadeDocument().layer.channels;
    channels[0] = HandMadeDocument::channel({firstRow, secondRow});
    return channels;
}

} // namespace

TEST(LayeredDocument, AGoodFileIsReadToItsLastValue)
{
    const Result<LayeredDocument> document = LayeredDocument::read(HandMadeDocument().bytes());

    ASSERT_TRUE(document.has_value()) << qPrintable(document.error().text);
    EXPECT_EQ(document->width, 3);
    EXPECT_EQ(document->height, 2);
    EXPECT_EQ(document->channels, 4);
    EXPECT_EQ(document->horizontalResolution, 72U << 16);
    EXPECT_EQ(document->verticalResolution, 72U << 16);
    EXPECT_EQ(document->resolutionUnit, 1U);
    EXPECT_EQ(document->colourProfile, "icc");
    ASSERT_EQ(document->layers.size(), 3U);
    EXPECT_EQ(document->layers[0].name, "</Layer group>");
    EXPECT_EQ(document->layers[0].section, LayeredDocument::GroupBound);
    EXPECT_EQ(document->layers[1].name, "é");
    EXPECT_EQ(document->layers[1].section, LayeredDocument::Picture);
    EXPECT_EQ(document->layers[1].opacity, 255U);
    EXPECT_EQ(document->layers[1].blendMode, "norm");
    EXPECT_EQ(document->layers[2].name, "Wall");
    EXPECT_EQ(document->layers[2].section, LayeredDocument::OpenedGroup);
}

TEST(LayeredDocument, PlanesAreUnpacked)
{
    const Result<LayeredDocument> document = LayeredDocument::read(HandMadeDocument().bytes());
    ASSERT_TRUE(document.has_value());

    const std::vector<QByteArray> ofLayer{hex("050505 010203"), hex("010203 050505"), hex("010203 010203"),
                                          hex("ffffff ffffff")};
    EXPECT_EQ(document->layers[1].planes, ofLayer);
    EXPECT_EQ(document->layers[0].planes, std::vector<QByteArray>(4));
    const QImage merged = document->mergedPicture();
    EXPECT_EQ(merged.size(), QSize(3, 2));
    EXPECT_EQ(merged.pixel(0, 0), qRgba(5, 5, 1, 255));
    EXPECT_EQ(merged.pixel(2, 1), qRgba(3, 5, 3, 255));
}

TEST(LayeredDocument, EffectsAreReadToTheirLastValue)
{
    const Result<LayeredDocument> document = LayeredDocument::read(HandMadeDocument().bytes());
    ASSERT_TRUE(document.has_value());
    ASSERT_TRUE(document->layers[1].effects.has_value());

    const LayeredDocument::FileColour red{0xffff, 0, 0};
    const LayeredDocument::FileColour gray{0x7fff, 0x7fff, 0x7fff};
    const LayeredDocument::Effects &effects = *document->layers[1].effects;
    EXPECT_EQ(effects.dropShadow, (LayeredDocument::Shadow{7, 120, 500, red, "norm", true, false, 127}));
    EXPECT_EQ(effects.innerShadow, effects.dropShadow);
    EXPECT_EQ(effects.outerGlow, (LayeredDocument::Glow{9, gray, "scrn", false, 254, 0}));
    EXPECT_EQ(effects.innerGlow, (LayeredDocument::Glow{9, gray, "scrn", false, 254, 1}));
    EXPECT_EQ(effects.bevel, (LayeredDocument::Bevel{30, 12, "scrn", "mul ", red, gray, 2, 0xfd, 0xfe, true, true, 1}));
    EXPECT_EQ(effects.solidFill, (LayeredDocument::SolidFill{"diff", red, 254, true}));
}

TEST(LayeredDocument, EveryShorterFileIsRefused)
{
    const QByteArray file = HandMadeDocument().bytes();
    for (qsizetype length = 0; length < file.size(); ++length)
        EXPECT_FALSE(LayeredDocument::read(file.first(length)).has_value()) << length;
}

TEST(LayeredDocument, NoByteIsReadWithoutMeaning)
{
    const QByteArray file = HandMadeDocument().bytes();
    const Result<LayeredDocument> good = LayeredDocument::read(file);
    ASSERT_TRUE(good.has_value());

    for (qsizetype place = 0; place < file.size(); ++place) {
        for (const int change : {1, 2, 4, 8, 16, 32, 64, 128, 255}) {
            QByteArray changed = file;
            changed[place] = char(changed[place] ^ change);
            const Result<LayeredDocument> document = LayeredDocument::read(changed);
            EXPECT_FALSE(document.has_value() && *document == *good) << "byte " << place << " xor " << change;
        }
    }
}

TEST(LayeredDocument, FaultsAreToldWithTheirPlace)
{
    EXPECT_EQ(fault([](auto &made) { made.header.replace("8BPS", "8BPB"); }), R"(byte 0: the signature is "8BPB")");
    EXPECT_EQ(fault([](auto &made) { made.header[5] = 2; }), "byte 4: the version is 2, not 1");
    EXPECT_EQ(fault([](auto &made) { made.header[13] = 5; }), "byte 12: the number of channels is 5, not 3 to 4");
    EXPECT_EQ(fault([](auto &made) { made.behindAll = "x"; }),
              "byte " + std::to_string(HandMadeDocument().bytes().size()) + ": there is more behind the merged image");
}

TEST(LayeredDocument, SidesAreWithinTheFormatsRange)
{
    const auto width = [](quint32 pixels) {
        return fault([=](auto &made) { made.header.replace(18, 4, bigEndian(pixels, 4)); });
    };
    EXPECT_EQ(width(0), "byte 18: the width is 0, not 1 to 30000");
    EXPECT_EQ(width(30001), "byte 18: the width is 30001, not 1 to 30000");
    EXPECT_EQ(width(0xffffffff), "byte 18: the width is 4294967295, not 1 to 30000");
}

TEST(LayeredDocument, ImageResourcesStandInTheirOrderAndWithoutPadding)
{
    const auto resources = [](const QByteArrayList &blocks) {
        return reason([&](auto &made) { made.resources = blocks; });
    };
    const QByteArrayList good = HandMadeDocument().resources;

    EXPECT_EQ(resources({good[0], good[1]}), "accepted");
    EXPECT_EQ(resources({good[0], good[1], HandMadeDocument::resource(1039, {})}), "accepted");
    EXPECT_EQ(resources({good[1], good[0]}), "the resolution's number is 1024, not 1005");
    EXPECT_EQ(resources({good[0], good[2]}), "the layer state's number is 1039, not 1024");
    EXPECT_EQ(resources({good[0], good[1], good[2] + '\0'}),
              "the end of the image resources, which the length puts at byte 92");
    EXPECT_EQ(resources({good[0], good[1], HandMadeDocument::resource(1036, "icc")}),
              "the colour profile's number is 1036, not 1039");
}

TEST(LayeredDocument, RowsAreAsLongAsTheDocumentIsWide)
{
    const auto row = [](const char *packets) {
        return reason([&](auto &made) { made.layer.channels = channelOf(hex(packets)); });
    };
    EXPECT_EQ(row("00 01 ff 02"), "accepted");
    EXPECT_EQ(row("01 0102"), "a row of 2 samples");
    EXPECT_EQ(row("ff 01"), "a row of 2 samples");
    EXPECT_EQ(row("03 01020304"), "a row of 4 samples");
    EXPECT_EQ(row("fe 05 00 01"), "a row of 4 samples");
    EXPECT_EQ(row(""), "a row of 0 samples");
    EXPECT_EQ(row("02 0102"), "a row of 0 samples");  // cut off
    EXPECT_EQ(row("fe 05 00"), "a row of 0 samples"); // a header alone
    EXPECT_EQ(row("80 fe 05"), "a row of 0 samples"); // a header without meaning
}

TEST(LayeredDocument, ChannelsHoldTheirRowsAndNothingElse)
{
    const auto channel = [](const QByteArray &data) {
        return reason([&](auto &made) { made.layer.channels[0] = data; });
    };
    const QByteArray rows = hex("fe05 fe05");
    const std::string end = "the end of a channel, which the length puts at";

    EXPECT_EQ(channel(hex("0001 0002 0002") + rows), "accepted");
    EXPECT_THAT(channel(hex("0001 0002 0002") + rows + "xx"), StartsWith(end));
    EXPECT_EQ(channel(hex("0001 0002") + rows), "the file ends in a row");
    EXPECT_EQ(channel(hex("0001 0002 0002 0002") + rows + hex("fe05")), "a row of 1 samples");
    EXPECT_EQ(channel(hex("0002 0002 0002") + rows), "the compression of a channel is 2, not 1");
    EXPECT_EQ(channel(hex("0000 010203 010203")), "the compression of a channel is 0, not 1");
    EXPECT_EQ(reason([](auto &made) { made.group.channels[3] = hex("0001 0000 0000"); }),
              "the compression of a group's channel is 1, not 0");
    EXPECT_THAT(reason([](auto &made) { made.group.channels[1] = hex("0000 0000"); }), StartsWith(end));
}

TEST(LayeredDocument, LayersHaveTheDocumentsChannelsInTheirOrder)
{
    EXPECT_EQ(reason([](auto &made) { made.layer.channelIds.swapItemsAt(0, 2); }), "a channel's number is 2, not 0");
    EXPECT_EQ(reason([](auto &made) { made.layer.channelIds[3] = bigEndian(3, 2); }),
              "a channel's number is 3, not 65535");
    EXPECT_EQ(reason([](auto &made) { made.layer.channelIds.append(bigEndian(4, 2)); }),
              "a layer's number of channels is 5, not 3 to 4");
    const auto withoutAlpha = [](HandMadeDocument::Record &record) {
        record.channelIds.removeLast();
        record.channels.removeLast();
    };
    EXPECT_EQ(reason([&](auto &made) { withoutAlpha(made.layer); }),
              "a layer does not have the document's number of channels");
    EXPECT_EQ(reason([&](auto &made) { withoutAlpha(made.group); }), "a group does not have four channels");
    EXPECT_EQ(reason([&](auto &made) {
                  made.header[13] = 3;
                  made.mergedRows = made.mergedRows.mid(0, 6);
                  withoutAlpha(made.layer);
              }),
              "accepted");
}

TEST(LayeredDocument, RecordsAreAsManyAsTheirCount)
{
    EXPECT_NE(reason([](auto &made) { made.layerCount = 2; }), "accepted");
    EXPECT_NE(reason([](auto &made) { made.layerCount = 4; }), "accepted");
    EXPECT_EQ(reason([](auto &made) { made.layerCount = 0xfffd; }), "the number of layers is 65533, not 1 to 32767");
    EXPECT_EQ(reason([](auto &made) { made.order.clear(); }), "the number of layers is 0, not 1 to 32767");
}

TEST(LayeredDocument, LayerInformationIsMadeEvenByOneByteAtMost)
{
    const auto makeEven = [](HandMadeDocument &made) {
        made.layer.channels[1] = HandMadeDocument::channel({hex("fe01"), hex("fe01")});
    };
    ASSERT_EQ(HandMadeDocument().layer.channels.join().size() % 2, 1);

    EXPECT_THAT(reason([](auto &made) { made.behindChannels = {}; }),
                StartsWith("the end of the layer information, which"));
    EXPECT_EQ(reason([](auto &made) { made.behindChannels = "x"; }),
              "the byte that makes the layer information even is not 0");
    EXPECT_THAT(reason([](auto &made) { made.behindChannels = hex("000000"); }),
                StartsWith("the end of the layer information, which"));
    EXPECT_EQ(reason([&](auto &made) {
                  makeEven(made);
                  made.behindChannels = {};
              }),
              "accepted");
    EXPECT_THAT(reason(makeEven), StartsWith("the end of the layer information, which"));
    EXPECT_THAT(reason([](auto &made) { made.behindLayers = bigEndian(0, 4); }),
                StartsWith("the end of the layer and mask information, which"));
}

TEST(LayeredDocument, NamesAreTheSameInBothForms)
{
    EXPECT_EQ(reason([](auto &made) { made.group.paddedName = hex("04") + "Wand" + hex("20 0000"); }),
              "a name is not the Unicode name");
    EXPECT_EQ(reason([](auto &made) { made.group.paddedName = hex("04") + "Wall" + hex("00 0000"); }),
              "a name is not the Unicode name");
    EXPECT_EQ(reason([](auto &made) { made.group.paddedName = hex("03") + "Wal"; }),
              "a name's length is not that of the Unicode name");
    EXPECT_THAT(reason([](auto &made) { made.group.paddedName = hex("04") + "Wall "; }),
                StartsWith("a block's signature is "));
    EXPECT_THAT(reason([](auto &made) {
                    made.group.blocks[1] =
                        HandMadeDocument::block("luni", HandMadeDocument::unicodeName("Wall") + '\0');
                }),
                StartsWith("the end of a block, which"));
}

TEST(LayeredDocument, BlocksStandInTheirOrderAndOnce)
{
    const auto blocks = [](const QByteArrayList &ofLayer) {
        return reason([&](auto &made) { made.layer.blocks = ofLayer; });
    };
    const HandMadeDocument good;
    const QByteArray effects = good.layer.blocks[0];
    const QByteArray name = good.layer.blocks[1];

    EXPECT_EQ(blocks({name}), "accepted");
    EXPECT_EQ(blocks({name, effects}), R"(a block "lrFX" behind "luni")");
    EXPECT_EQ(blocks({effects, effects, name}), R"(a block "lrFX" behind "lrFX")");
    EXPECT_EQ(blocks({name, name}), R"(a block "luni" behind "luni")");
    EXPECT_EQ(blocks({effects}), "a layer without a Unicode name");
    EXPECT_EQ(blocks({HandMadeDocument::block("lyid", bigEndian(1, 4)), name}), R"(a block's key is "lyid")");
    EXPECT_EQ(reason([](auto &made) { made.layer.maskAndRanges = bigEndian(4, 4) + bigEndian(0, 8); }),
              "the length of a layer's mask is 4, not 0");
    EXPECT_EQ(reason([](auto &made) { made.layer.maskAndRanges = bigEndian(0, 4) + bigEndian(4, 4) + "1234"; }),
              "the length of a layer's blending ranges is 4, not 0");
}

TEST(LayeredDocument, RectanglesAreTheWholeDocument)
{
    EXPECT_EQ(reason([](auto &made) { made.layer.rectangle[3] = 1; }), "a layer's top is 1, not 0");
    EXPECT_EQ(reason([](auto &made) { made.layer.rectangle[11] = 1; }), "a layer's bottom is 1, not 2");
    EXPECT_EQ(reason([](auto &made) { made.layer.rectangle[15] = 2; }), "a layer's right edge is 2, not 3");
}

TEST(LayeredDocument, BlendModesAreKnownOnes)
{
    EXPECT_EQ(reason([](auto &made) { made.layer.state.replace("norm", "mul "); }), "accepted");
    EXPECT_EQ(reason([](auto &made) { made.layer.state.replace("norm", "mult"); }), R"(a blend mode is "mult")");
    EXPECT_EQ(reason([](auto &made) { made.layer.state.replace("norm", "pass"); }), R"(a blend mode is "pass")");
    EXPECT_EQ(reason([](auto &made) { made.group.blocks[0].replace("pass", "norm"); }),
              R"(a section's blend mode is "norm")");
}

TEST(LayeredDocument, GroupsBeginAndEnd)
{
    const auto order = [](auto... records) { return reason([=](auto &made) { made.order = {&(made.*records)...}; }); };
    using Made = HandMadeDocument;
    EXPECT_EQ(order(&Made::layer), "accepted");
    EXPECT_EQ(order(&Made::bound, &Made::group, &Made::layer), "accepted");
    EXPECT_EQ(order(&Made::layer, &Made::group, &Made::bound), "a group without a lower bound");
    EXPECT_EQ(order(&Made::bound, &Made::group, &Made::group), "a group without a lower bound");
    EXPECT_EQ(order(&Made::bound, &Made::bound, &Made::group), "the lower bound of no group");
}

TEST(LayeredDocument, SectionsAreOfThreeTypes)
{
    const auto section = [](HandMadeDocument::Record HandMadeDocument::*record, const QByteArray &content) {
        return reason([&](auto &made) { (made.*record).blocks[0] = HandMadeDocument::block("lsct", content); });
    };
    using Made = HandMadeDocument;
    EXPECT_EQ(section(&Made::group, bigEndian(2, 4) + "8BIMpass"), "accepted");
    EXPECT_EQ(section(&Made::group, bigEndian(0, 4) + "8BIMpass"), "a section's type is 0, not 1 to 3");
    EXPECT_EQ(section(&Made::group, bigEndian(4, 4) + "8BIMpass"), "a section's type is 4, not 1 to 3");
    EXPECT_EQ(section(&Made::group, bigEndian(1, 4)), R"(a section's blend mode is "luni")");
    EXPECT_THAT(section(&Made::bound, bigEndian(3, 4) + "8BIMpass"), StartsWith("the end of a block, which"));
}

TEST(LayeredDocument, BoundsOfGroupsAreNamedAlikeAndWithoutEffects)
{
    EXPECT_EQ(reason([](auto &made) {
                  made.bound.paddedName = hex("01") + "a" + hex("20 00");
                  made.bound.blocks[1] = HandMadeDocument::block("luni", HandMadeDocument::unicodeName("a"));
              }),
              "the lower bound of a group has a name of its own");
    EXPECT_EQ(reason([](auto &made) { made.bound.blocks.insert(1, made.layer.blocks[0]); }),
              "the lower bound of a group has effects");
    EXPECT_EQ(reason([](auto &made) { made.group.blocks.insert(1, made.layer.blocks[0]); }), "accepted");
}

TEST(LayeredDocument, EffectsAreSevenRecordsInTheirOrder)
{
    EXPECT_EQ(effectsFault([](auto &records) { records.swapItemsAt(1, 2); }), R"(an effect's key is "isdw")");
    EXPECT_NE(effectsFault([](auto &records) { records.removeLast(); }), "accepted");
    EXPECT_THAT(effectsFault([](auto &records) { records.append(records.last()); }),
                StartsWith("the end of a block, which"));
    EXPECT_EQ(reason([](auto &made) {
                  made.layer.blocks[0] = HandMadeDocument::effects(HandMadeDocument::effectRecords(), 6);
              }),
              "the number of effects is 6, not 7");
    EXPECT_EQ(reason([](auto &made) {
                  made.layer.blocks[0] = HandMadeDocument::effects(HandMadeDocument::effectRecords(), 7, 1);
              }),
              "the version of the effects is 1, not 0");
}

TEST(LayeredDocument, EffectsHaveTheirSizesAndSecondColours)
{
    EXPECT_EQ(effectsFault([](auto &records) { records[1][11] = 50; }), "an effect's size is 50, not 51");
    EXPECT_EQ(effectsFault([](auto &records) { records[5][15] = 0; }), "an effect's version is 0, not 2");
    EXPECT_EQ(effectsFault([](auto &records) { records[6][45 - 9] = 1; }), "a colour's space is 256, not 0");
    EXPECT_EQ(effectsFault([](auto &records) { records[6][45 - 7] = 1; }), "the second colour is not the first");
    EXPECT_EQ(effectsFault([](auto &records) { records[1].replace("8BIMnorm", "8BIMnone"); }),
              R"(a blend mode is "none")");
}

TEST(LayeredDocument, TheMergedImageEndsTheFile)
{
    EXPECT_EQ(reason([](auto &made) { made.mergedCompression = bigEndian(0, 2); }),
              "the compression of the merged image is 0, not 1");
    EXPECT_EQ(reason([](auto &made) { made.mergedRows[7] = hex("02 010203"); }), "accepted");
    EXPECT_EQ(reason([](auto &made) { made.mergedRows[7] = hex("01 0102"); }), "a row of 2 samples");
    EXPECT_EQ(reason([](auto &made) { made.mergedRows.removeLast(); }), "a row of 0 samples");
    EXPECT_NE(reason([](auto &made) { made.mergedRows.append(hex("fe 05")); }), "accepted");
    EXPECT_EQ(reason([](auto &made) { made.behindAll = bigEndian(0, 1); }), "there is more behind the merged image");
}
