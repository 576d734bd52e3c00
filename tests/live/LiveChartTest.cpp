#include "live/LiveChart.h"

#include <gtest/gtest.h>

namespace {
class LiveChartTest : public ::testing::Test
{
protected:
    static constexpr qint64 second = 1'000'000'000;

    static const Chart &chartOf(const char *name) { return *Chart::find(name); }
    void show(const char *name, double rate = 50)
    {
        LiveChart::Style style;
        style.rate = rate;
        live.show(chartOf(name), style, {{QRect(10, 20, 160, 90)}});
    }
    QImage expected(const char *name, qint64 frame, double rate = 50)
    {
        ChartShape shape;
        shape.size = {160, 90};
        shape.rate = rate;
        return chartOf(name).picture(shape, frame);
    }
    void goTo(qint64 nanoseconds)
    {
        now = nanoseconds;
        live.tick();
    }

    qint64 now = 5 * second;
    LiveChart live{[this] { return now; }};
};
} // namespace

TEST_F(LiveChartTest, AStillChartStands)
{
    show("rp219");
    ASSERT_EQ(live.pictures().size(), 1U);
    EXPECT_EQ(live.pictures()[0].box, QRect(10, 20, 160, 90));
    EXPECT_EQ(live.pictures()[0].image, expected("rp219", 0));
    goTo(now + second);
    EXPECT_EQ(live.frame(), 0);
    live.end();
    EXPECT_TRUE(live.pictures().empty());
    EXPECT_EQ(live.chart(), nullptr);
}

TEST_F(LiveChartTest, TheFrameFollowsFromTheClockAlone)
{
    QRegion where;
    QObject::connect(&live, &LiveChart::moved, &live, [&](const QRegion &output) { where += output; });
    show("sync");
    const qint64 begin = now;
    for (const qint64 frame : {1, 2, 3}) {
        goTo(begin + frame * second / 50);
        EXPECT_EQ(live.frame(), frame);
        ASSERT_EQ(live.pictures()[0].image, expected("sync", frame)) << frame;
    }
    EXPECT_EQ(live.lateFrames(), 0);
    EXPECT_TRUE(QRect(10, 20, 160, 90).contains(where.boundingRect()));
    goTo(begin + 3 * second / 50 + 1);
    EXPECT_EQ(live.frame(), 3);
    goTo(begin + 10 * second / 50);
    EXPECT_EQ(live.lateFrames(), 6);
    EXPECT_EQ(live.pictures()[0].image, expected("sync", 10));
}

TEST_F(LiveChartTest, WhatFlashesEndsAfterThirtySeconds)
{
    const auto all = Chart::all();
    const auto flashing = std::ranges::find_if(all, &Chart::flashes);
    ASSERT_NE(flashing, all.end());
    const qint64 begin = now;
    show(flashing->name);
    goTo(begin + 29 * second);
    EXPECT_EQ(live.chart(), &*flashing);
    goTo(begin + 30 * second);
    EXPECT_EQ(live.chart(), nullptr);
}

TEST_F(LiveChartTest, ThePictureStaysWhileThePlacesAreTheSame)
{
    show("ramp");
    const qint64 before = live.pictures()[0].image.cacheKey();
    int told = 0;
    QObject::connect(&live, &LiveChart::changed, &live, [&told] { ++told; });
    live.setPlaces({{QRect(10, 20, 160, 90)}});
    EXPECT_EQ(live.pictures()[0].image.cacheKey(), before);
    EXPECT_EQ(told, 0);
    live.setPlaces({{QRect(11, 20, 160, 90)}});
    EXPECT_EQ(live.pictures()[0].box, QRect(11, 20, 160, 90));
    EXPECT_EQ(told, 1);
}

TEST_F(LiveChartTest, EachPlaceHasItsOwnPixels)
{
    const ChartPanel panel{QRect(30, 40, 8, 8), "A1", "A1", 1};
    live.show(chartOf("walk"), {}, {{QRect(30, 40, 16, 8), {panel}}, {QRect(0, 0, 8, 8), {}}, {QRect(), {}}});
    ASSERT_EQ(live.pictures().size(), 2U);
    ChartShape shape;
    shape.size = {16, 8};
    shape.panels = {{QRect(0, 0, 8, 8), "A1", "A1", 1}};
    EXPECT_EQ(live.pictures()[0].image, chartOf("walk").picture(shape, 0));
}

TEST_F(LiveChartTest, AnotherRateBeginsFramesAnewAndTellsTheTimeOn)
{
    LiveChart::Style style;
    style.rate = 50;
    style.options.start = 86'390;
    live.show(chartOf("sync"), style, {{QRect(10, 20, 160, 90)}});
    goTo(now + 20 * second);
    EXPECT_EQ(live.frame(), 1000);
    live.setRate(25);
    EXPECT_EQ(live.frame(), 0);
    EXPECT_EQ(live.style().options.start, 10); // past midnight
    goTo(now + 40'000'000);
    EXPECT_EQ(live.frame(), 1);
    live.setRate(25);
    EXPECT_EQ(live.frame(), 1);
}

TEST_F(LiveChartTest, APlaceThatNoRasterCanHoldIsLeftOut)
{
    LiveChart::Style style;
    live.show(chartOf("field"), style, {{QRect(0, 0, 32'768, 8'193)}, {QRect(0, 0, 8, 8)}});
    ASSERT_EQ(live.pictures().size(), 1U);
    EXPECT_EQ(live.pictures()[0].box, QRect(0, 0, 8, 8));
}
