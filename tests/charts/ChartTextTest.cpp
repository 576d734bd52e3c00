#include "charts/ChartText.h"

#include <gtest/gtest.h>

TEST(ChartText, ComesBackAsItWas)
{
    for (const char *text :
         {"rp219", "rp219 range=narrow", "field colour=red level=50 range=narrow", "field level=0", "steps steps=17",
          "sweep speed=16", "chase hold=30", "sync start=20:15:00", "uniformity level=5"}) {
        const Result<ChartText> chosen = ChartText::parse(text);
        ASSERT_TRUE(chosen) << text;
        EXPECT_EQ(chosen->text(), text);
    }
    for (const Chart &chart : Chart::all())
        EXPECT_EQ(ChartText::parse(chart.name)->text(), chart.name);
}

TEST(ChartText, LeavesOutWhatIsTheDefault)
{
    EXPECT_EQ(ChartText::parse("field colour=white range=full")->text(), "field");
    EXPECT_EQ(ChartText::parse("  steps   steps=11 ")->text(), "steps");
    EXPECT_EQ(ChartText::parse("sync start=00:00:00")->text(), "sync");
}

TEST(ChartText, IsWhatIsDrawn)
{
    const Result<ChartText> chosen = ChartText::parse("field colour=cyan level=75 range=narrow");
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->chart->picture(chosen->shape({7, 3}), 0).pixel(6, 2), qRgb(16, 180, 180));
}

TEST(ChartText, SaysWhatMakesNoSense)
{
    const auto errorOf = [](const char *text) {
        const Result<ChartText> chosen = ChartText::parse(text);
        return chosen ? QString() : chosen.error().text;
    };
    EXPECT_EQ(errorOf(""), "there is no chart \"\"");
    EXPECT_EQ(errorOf("rp912"), "there is no chart \"rp912\"");
    EXPECT_EQ(errorOf("rp219 steps=3"), "the chart \"rp219\" has no steps");
    EXPECT_EQ(errorOf("steps 3"), "the chart \"steps\" has no 3");
    EXPECT_EQ(errorOf("steps steps=1"), "steps expects a whole number from 2 to 256, found \"1\"");
    EXPECT_EQ(errorOf("chase hold=0"), "hold expects a whole number from 1 to 2147483647, found \"0\"");
    EXPECT_EQ(errorOf("sync start=24:00:00"), "start expects a time like 20:15:00, found \"24:00:00\"");
    EXPECT_EQ(errorOf("ramp range=wide"), "range expects full or narrow, found \"wide\"");
}
