#include "ShowFixture.h"

#include <gtest/gtest.h>

using namespace ShowFixture;
using Of = PortExcess::Of;
using Rule = RuleCost::Rule;

namespace {
PortBounds boundsOf(const ProcessorSettings &settings, qint64 canvasHeight = 1000)
{
    return *PortBounds::of(settings, canvasHeight);
}

PortLoad load(const std::vector<PixelBox> &boxes)
{
    PortLoad load;
    for (const PixelBox &box : boxes)
        load.add(box);
    return load;
}

/// So many panels of one pixel, side by side.
PortLoad dots(int count)
{
    PortLoad load;
    for (qint64 x = 0; x < count; ++x)
        load.add({{x, x + 1}, {0, 1}});
    return load;
}
} // namespace

TEST(PortBounds, TheBoxCountsByTheFamilyAndWhereNobodySaysByChoice)
{
    const PortLoad apart = load({{{0, 100}, {0, 100}}, {{300, 400}, {0, 100}}});
    EXPECT_EQ(boundsOf(processor("VX1000")).loaded(apart), 40'000);
    EXPECT_EQ(boundsOf(processor("MX40 Pro")).loaded(apart), 20'000);
    ProcessorSettings unsaid = processor("X8m");
    EXPECT_EQ(boundsOf(unsaid).loaded(apart), 40'000);
    unsaid.rectangleWhereUnsaid = false;
    EXPECT_EQ(boundsOf(unsaid).loaded(apart), 20'000);
    const PortLoad twice = load({{{0, 100}, {0, 100}}, {{0, 100}, {0, 100}}});
    EXPECT_EQ(boundsOf(unsaid).loaded(twice), 20'000);
    EXPECT_EQ(boundsOf(processor("VX1000")).loaded(twice), 20'000); // each is sent, though the box has but half
}

TEST(PortBounds, LatencyIsTakenOffBeforeTheNarrowPort)
{
    ProcessorSettings settings = processor("MX40 Pro");
    settings.lowLatency = true;
    const PortBounds bounds = boundsOf(settings);
    const PortLoad narrow = load({{{0, 64}, {500, 700}}});
    EXPECT_EQ(bounds.limit(narrow), 659722 / 2 - 64 * 200);
    EXPECT_EQ(bounds.limit(load({{{0, 200}, {-300, 700}}})), 659722); // above the canvas nothing is gained
    EXPECT_EQ(bounds.limit(load({{{0, 200}, {1000, 1100}}})), 0);
    EXPECT_EQ(bounds.limit(load({{{0, 1}, {999, 9999}}})), 0); // and no less than nothing is left
    EXPECT_EQ(boundsOf(settings, 0).limit(narrow), 0);
}

TEST(PortBounds, SaysWhatIsOver)
{
    const PortBounds classic = boundsOf(processor("VX1000"));
    EXPECT_TRUE(classic.fits(load({{{0, 1000}, {0, 650}}})));
    const auto over = classic.excess(load({{{0, 1000}, {0, 651}}}));
    ASSERT_TRUE(over);
    EXPECT_EQ(over->of, Of::Pixels);
    EXPECT_EQ(over->found, 651'000);
    EXPECT_EQ(over->limit, 650'000);

    EXPECT_TRUE(classic.fits(dots(512)));
    EXPECT_EQ(classic.excess(dots(513))->of, Of::Panels);
    const PortBounds sides = boundsOf(processor("S20"));
    EXPECT_TRUE(sides.fits(load({{{0, 4096}, {0, 1}}})));
    EXPECT_EQ(sides.excess(load({{{0, 4097}, {0, 1}}}))->of, Of::Width);
    EXPECT_EQ(sides.excess(load({{{0, 1}, {0, 4097}}}))->of, Of::Height);
}

TEST(PortBounds, NamesTheRuleThatCostsMost)
{
    ProcessorSettings settings = processor("MX40 Pro");
    settings.headroom = 2; // 13,195 of them
    const PortBounds bounds = boundsOf(settings);
    EXPECT_EQ(bounds.costliest(load({{{0, 200}, {0, 100}}}))->rule, Rule::Headroom);
    EXPECT_EQ(bounds.costliest(load({{{0, 200}, {0, 100}}}))->pixels, 13'195);
    EXPECT_EQ(bounds.costliest(load({{{0, 28}, {0, 140}}}))->rule, Rule::NarrowPort);
    EXPECT_EQ(bounds.costliest(dots(512))->rule, Rule::PanelCount);
    EXPECT_FALSE(boundsOf(processor("Tessera S8")).costliest(dots(3)));
}

TEST(PortBounds, WholeLinesAreCutByTheSmallerOfPixelsAndPanels)
{
    const PortBounds bounds = boundsOf(processor("VX1000"));
    EXPECT_EQ(bounds.pixelLimit(128 * 128), 650'000);
    EXPECT_EQ(bounds.pixelLimit(32 * 32), 512 * 1024);
    ProcessorSettings twice = processor("HELIOS 8K", 12, 50);
    twice.streams = 2;
    EXPECT_EQ(boundsOf(twice).pixelLimit(1), 242'500);
}

TEST(PortBounds, TheHighestRateKnowsAllRules)
{
    ProcessorSettings settings = processor("MX40 Pro");
    const auto rateOf = [&](const PortLoad &load) { return *boundsOf(settings).highestRate(settings, load); };
    EXPECT_NEAR(rateOf(load({{{0, 640}, {0, 1000}}})), 61.848, 0.001);
    EXPECT_NEAR(rateOf(load({{{0, 64}, {0, 5000}}})), 61.848, 0.001); // 320,000 are lost, as it is narrow
    settings.headroom = 50;
    EXPECT_NEAR(rateOf(load({{{0, 640}, {0, 500}}})), 61.848, 0.001);
    settings.headroom = 0;
    settings.lowLatency = true;
    EXPECT_NEAR(rateOf(load({{{0, 640}, {500, 1000}}})), 61.848, 0.001); // half way down
    EXPECT_FALSE(boundsOf(settings).highestRate(settings, load({{{0, 640}, {1000, 1100}}})));
    EXPECT_FALSE(boundsOf(settings).highestRate(settings, {}));
    settings = processor("MX40 Pro");
    EXPECT_FALSE(boundsOf(settings).highestRate(settings, dots(513)));
}

TEST(PortBounds, ATelevisionRateCountsAsTheOneAboveInTheHighestToo)
{
    ProcessorSettings settings = processor("MX40 Pro");
    const double rate = *boundsOf(settings).highestRate(settings, load({{{0, 660'380}, {0, 1}}})); // 59.940 by itself
    EXPECT_EQ(rate, 59.934);
    settings.rate = rate;
    EXPECT_TRUE(boundsOf(settings).fits(load({{{0, 660'380}, {0, 1}}})));
}

TEST(PortBounds, CountsPastAnyNumber)
{
    constexpr qint64 far = qint64{1} << 33;
    const PortLoad huge = load({{{-far, far}, {-far, far}}, {{-far, far}, {-far, far}}});
    EXPECT_EQ(huge.pixels, std::numeric_limits<qint64>::max());
    EXPECT_FALSE(boundsOf(processor("VX1000")).fits(huge));
    EXPECT_FALSE(boundsOf(processor("MX40 Pro")).fits(huge));
}

TEST(DeviceBounds, TheCapFallsAboveSixtyHertzWhereItIsARate)
{
    const auto cap = [](const char *model, double rate) {
        const ProcessorModel &found = *ProcessorCatalogue::builtIn().model(model);
        return DeviceBounds::of(found, ProcessorCatalogue::builtIn().rulesOf(found), processor(model, 8, rate))
            .cap.pixels;
    };
    EXPECT_EQ(cap("Tessera SX40", 24), 9'000'000);
    EXPECT_EQ(cap("Tessera SX40", 59.94), 9'000'000);
    EXPECT_EQ(cap("Tessera SX40", 72), 7'500'000);
    EXPECT_EQ(cap("Tessera SX40", 119.88), 4'500'000);
    EXPECT_EQ(cap("VX1000", 120), 6'500'000);
}

TEST(DeviceBounds, OutputCardsMayBearLessThanTheProcessor)
{
    const auto cap = [](const char *model, int bits, double rate = 60) {
        const ProcessorModel &found = *ProcessorCatalogue::builtIn().model(model);
        return DeviceBounds::of(found, ProcessorCatalogue::builtIn().rulesOf(found), processor(model, bits, rate))
            .cap.pixels;
    };
    EXPECT_EQ(cap("MX2000 Pro, 4x10G cards", 10), 35'380'000);
    EXPECT_EQ(cap("MX2000 Pro, 4x10G cards", 12), 2 * 13'194'440);
    EXPECT_EQ(cap("MX2000 Pro, 5G cards", 12), 2 * 11'804'800);
    EXPECT_EQ(cap("MX6000 Pro, 5G cards", 12, 120), 8 * 11'804'800 / 2);
    EXPECT_EQ(cap("MX40 Pro", 12), 9'000'000);
}

TEST(DeviceBounds, HoldsThePanelsWithinItsCanvas)
{
    const auto bounds = [](const char *model, bool lowLatency = false) {
        const ProcessorModel &found = *ProcessorCatalogue::builtIn().model(model);
        ProcessorSettings settings = processor(model);
        settings.lowLatency = lowLatency;
        return DeviceBounds::of(found, ProcessorCatalogue::builtIn().rulesOf(found), settings);
    };
    const auto box = [](qint64 width, qint64 height) { return load({{{0, width}, {0, height}}}); };
    EXPECT_TRUE(bounds("MX30").holds(box(6018, 1080)));
    EXPECT_TRUE(bounds("MX30").holds(box(1000, 6499)));
    EXPECT_FALSE(bounds("MX30").holds(box(8193, 1)));
    EXPECT_FALSE(bounds("MX30").holds(box(6018, 1081)));
    EXPECT_TRUE(bounds("Tessera M2").holds(box(720, 2880)));
    EXPECT_FALSE(bounds("Tessera M2").holds(box(1700, 1100)));
    EXPECT_TRUE(bounds("Tessera SX40").holds(box(100, 2160)));
    EXPECT_FALSE(bounds("Tessera SX40", true).holds(box(100, 2160)));
    EXPECT_TRUE(bounds("MCTRL660").takes(box(1000, 2300)));
    EXPECT_FALSE(bounds("MCTRL660").takes(load({{{0, 1}, {0, 1}}, {{1919, 1920}, {1200, 1201}}})));
}
