#include "show/LayerPasteboard.h"

#include "archive/KeyedArchive.h"
#include "show/LayerArchive.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

namespace {
QString whyNotPasted(const Result<QByteArray> &bytes)
{
    TestHost host;
    const Result<std::vector<LayerPointer>> layers = LayerPasteboard::decode(bytes.value(), host);
    return layers ? QString() : layers.error().text;
}
} // namespace

TEST(LayerPasteboard, NoLayersAreNothingToPaste)
{
    EXPECT_EQ(whyNotPasted(KeyedArchive::write(LayerArchive::encode({}))),
              "there are no layers to paste; copy some first.");
}

TEST(LayerPasteboard, AnArchiveOfAnythingElseIsNoList)
{
    EXPECT_EQ(whyNotPasted(KeyedArchive::write(ArchiveValue{QString("layers")})),
              "the root is a text, expected a list");
}
