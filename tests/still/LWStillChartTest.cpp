#include "charts/Chart.h"
#include "drawing/Raster.h"
#include "still/LWStill.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

namespace {
std::shared_ptr<LWStill> stillOf(TestHost &host, const char *chart, const QSize &size)
{
    auto still = LWStill::initWithimage(host, {});
    still->setValue("chart", chart);
    still->setPanelWidth(size.width());
    still->setPanelHeight(size.height());
    still->drawInRect();
    return still;
}

QImage expected(const char *text, const QSize &size)
{
    const ChartText chosen = *ChartText::parse(text);
    return chosen.chart->picture(chosen.shape(size), 0).convertToFormat(Raster::format);
}
} // namespace

TEST(LWStillChart, ItsPictureIsTheChartAtItsSize)
{
    TestHost host;
    const auto still = stillOf(host, "rp219 range=narrow", {192, 108});
    EXPECT_EQ(still->thumbnail(), expected("rp219 range=narrow", {192, 108}));
    EXPECT_EQ(still->thumbnail().format(), Raster::format);
    EXPECT_FALSE(still->isPictureMissing());
    EXPECT_EQ(still->screenSizeWidth(), 192);
}

TEST(LWStillChart, AnotherSizeOrChartIsDrawnWhenItIsRendered)
{
    TestHost host;
    const auto still = stillOf(host, "field colour=red", {20, 10});
    ASSERT_EQ(still->thumbnail().size(), QSize(20, 10));
    still->setPanelWidth(31);
    EXPECT_EQ(still->thumbnail().size(), QSize(20, 10));
    const LayerLook before = still->shownLook();
    still->drawInRect();
    EXPECT_NE(still->shownLook(), before);
    EXPECT_EQ(still->thumbnail(), expected("field colour=red", {31, 10}));
    still->setValue("chart", "field colour=blue");
    still->drawInRect();
    EXPECT_EQ(still->thumbnail(), expected("field colour=blue", {31, 10}));
    const qint64 drawn = still->thumbnail().cacheKey();
    still->setXpoint(7);
    still->drawInRect();
    EXPECT_EQ(still->thumbnail().cacheKey(), drawn);
}

TEST(LWStillChart, WithoutItTheFileIsShownAgain)
{
    TestHost host;
    const auto still = stillOf(host, "field", {20, 10});
    ASSERT_FALSE(still->thumbnail().isNull());
    still->setValue("chart", {});
    still->drawInRect();
    EXPECT_TRUE(still->thumbnail().isNull());
    EXPECT_FALSE(still->chart());
}

TEST(LWStillChart, ACopySharesThePicture)
{
    TestHost host;
    const auto still = stillOf(host, "zone-plate", {64, 64});
    const qint64 drawn = still->thumbnail().cacheKey();
    const LayerPointer copy = still->copyWithZone();
    EXPECT_EQ(copy->thumbnail().cacheKey(), drawn);
    copy->drawInRect();
    EXPECT_EQ(copy->thumbnail().cacheKey(), drawn);
}

TEST(LWStillChart, WhatIsNoChartOrNeedsPanelsIsAnErrorAndDrawsNothing)
{
    TestHost host;
    EXPECT_EQ(stillOf(host, "nonsense", {20, 10})->chart()->error().text, "there is no chart \"nonsense\"");
    EXPECT_EQ(stillOf(host, "walk", {20, 10})->chart()->error().text, "the chart \"walk\" is none for a layer");
    EXPECT_EQ(stillOf(host, "field steps=3", {20, 10})->chart()->error().text, "the chart \"field\" has no steps");
    for (const char *text : {"nonsense", "walk", "field steps=3", ""})
        EXPECT_TRUE(stillOf(host, text, {20, 10})->thumbnail().isNull()) << text;
    EXPECT_EQ(stillOf(host, "field", {0, 10})->chart()->error().text, "no chart can have 0 × 10 px");
    EXPECT_FALSE(*stillOf(host, "field", {32'768, 8'193})->chart());
    for (const QSize &size : {QSize(32'768, 8'193), QSize(0, 10), QSize(20, -1), QSize(Raster::longestSide + 1, 1)})
        EXPECT_TRUE(stillOf(host, "field", size)->thumbnail().isNull()) << size.width();
}
