#include "psd/KXPSDWriter.h"
#include "tests/psd/PsdFixtures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;

TEST(KXPSDWriterGroups, GroupsAreClosedFromTheInsideOut)
{
    KXPSDWriter writer(QSizeF(10, 10));
    const auto a = writer.openGroupLayerWithName("A", 0.5f, true);
    const auto layer = writer.addLayerWithCGImage(raster(1, 1, Qt::red), "layer");
    const auto b = writer.openGroupLayerWithName("B");
    const auto closingB = writer.closeCurrentGroupLayer();
    KXPSDError error;
    const auto closingA = writer.closeCurrentGroupLayerWithError(&error);

    EXPECT_THAT(writer.layers(), ElementsAre(a, layer, b, closingB, closingA));
    EXPECT_EQ(closingB->groupOpeningLayer(), b);
    EXPECT_EQ(closingA->groupOpeningLayer(), a);
    EXPECT_EQ(closingA->documentSize(), QSizeF(10, 10));
    EXPECT_EQ(error.code, 0);
    EXPECT_EQ(a->name(), "A");
    EXPECT_EQ(a->opacity(), 0.5f);
    EXPECT_TRUE(a->isOpened());
    EXPECT_EQ(b->opacity(), 1.0f);
    EXPECT_FALSE(b->isOpened());
    EXPECT_EQ(a->documentSize(), QSizeF(10, 10));
}

TEST(KXPSDWriterGroups, ClosingWithoutAnOpenGroupFailsAndAddsNothing)
{
    KXPSDWriter writer(QSizeF(10, 10));
    writer.openGroupLayerWithName("A");
    writer.closeCurrentGroupLayer();
    KXPSDError error;
    EXPECT_EQ(writer.closeCurrentGroupLayerWithError(&error), nullptr);
    EXPECT_EQ(error.code, 3);
    EXPECT_EQ(error.message, "There is no opened layer to close");
    EXPECT_EQ(error.domain, "example.wallwright.psd");
    EXPECT_EQ(writer.closeCurrentGroupLayer(), nullptr);
    EXPECT_EQ(writer.layers().size(), 2u);
}

TEST(KXPSDWriterGroups, GroupsOfGivenLayersCanBeClosed)
{
    const auto outer = std::make_shared<KXPSDGroupOpeningLayer>("outer");
    const auto inner = std::make_shared<KXPSDGroupOpeningLayer>("inner");
    const auto stray = std::make_shared<KXPSDGroupClosingLayer>();
    KXPSDWriter writer({10, 10}, true, {stray, outer, inner, std::make_shared<KXPSDGroupClosingLayer>()});
    const auto closing = writer.closeCurrentGroupLayer();
    ASSERT_NE(closing, nullptr);
    EXPECT_EQ(closing->groupOpeningLayer(), outer);
    EXPECT_EQ(writer.closeCurrentGroupLayer(), nullptr);
}

TEST(KXPSDWriterGroups, PreprocessingClosesAsManyGroupsAsAreUnbalanced)
{
    KXPSDWriter writer(QSizeF(10, 10));
    const auto a = writer.openGroupLayerWithName("A");
    const auto b = writer.openGroupLayerWithName("B");
    writer.preprocess();
    ASSERT_EQ(writer.layers().size(), 4u);
    EXPECT_EQ(dynamic_cast<KXPSDGroupClosingLayer &>(*writer.layers()[2]).groupOpeningLayer(), b);
    EXPECT_EQ(dynamic_cast<KXPSDGroupClosingLayer &>(*writer.layers()[3]).groupOpeningLayer(), a);
    writer.preprocess();
    EXPECT_EQ(writer.layers().size(), 4u);

    // One stray end balances one open group.
    writer.setLayers({std::make_shared<KXPSDGroupClosingLayer>(), a, b});
    writer.preprocess();
    ASSERT_EQ(writer.layers().size(), 4u);
    EXPECT_EQ(dynamic_cast<KXPSDGroupClosingLayer &>(*writer.layers()[3]).groupOpeningLayer(), b);
}
