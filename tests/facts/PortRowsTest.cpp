#include "facts/PortRows.h"

#include "facts/PortSummary.h"
#include "tests/facts/WallFixture.h"

namespace {
class PortRowsTest : public WallFixture
{
protected:
    LayerPointer fed(const QString &name, const Sizes &sizes, int left = 0, const QString &processor = "A")
    {
        const auto made = wall(sizes);
        made->setLabel(name);
        made->setXpoint(left);
        made->setPattern(0);
        made->setValue("processor", processor);
        made->setPixelLimit(655'360);
        return made;
    }
    static ProcessorSettings processor(const QString &model)
    {
        ProcessorSettings settings;
        settings.name = "A";
        settings.model = model;
        return settings;
    }
    void take(const std::vector<LayerPointer> &layers, const std::vector<ProcessorSettings> &processors)
    {
        ports = ShowPorts::of(layers, processors, {4096, 2160});
        rows = PortRows::of(layers, ports);
        summary = PortSummary::of(rows, ports, layers);
    }

    ShowPorts ports;
    std::vector<PortRow> rows;
    PortSummary summary;
};
} // namespace

TEST_F(PortRowsTest, APortOfAProcessorSaysWhatHangsOnItAndWhatIsFree)
{
    const LayerPointer main = fed("MAIN", {20, 10, 128, 128});
    const LayerPointer side = fed("SIDE", {2, 3, 128, 128}, 3000);
    side->setValue("goesOn", false);
    take({main, side}, {processor("MX40 Pro")});
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[0].processor, "A");
    EXPECT_EQ(rows[0].port, "A1");
    EXPECT_EQ(rows[0].layers, std::vector<qsizetype>{0});
    EXPECT_EQ(rows[0].panels, 40);
    EXPECT_EQ(rows[0].pixels, 655'360);
    EXPECT_EQ(rows[0].limit, 659'722);
    EXPECT_EQ(rows[0].free(), 4'362);
    EXPECT_EQ(rows[0].level(), PortRow::Level::NearlyFull); // 99.3 %
    EXPECT_NEAR(rows[0].highestRate.value_or(0), 60.399, 0.001);
    EXPECT_EQ(rows[5].port, "A6");
    EXPECT_EQ(rows[5].layers, std::vector<qsizetype>{1});
    EXPECT_EQ(rows[5].pixels, 98'304);
    EXPECT_EQ(rows[5].box, (PixelBox{{3000, 3256}, {0, 384}}));
    EXPECT_EQ(rows[5].level(), PortRow::Level::Fits);
    EXPECT_EQ(summary.count, "6 ports");
    EXPECT_EQ(summary.worst, "5 ports nearly full");
    EXPECT_EQ(summary.level, PortRow::Level::NearlyFull);
    EXPECT_FALSE(summary.needed);
}

TEST_F(PortRowsTest, AWallThatGoesOnSharesTheRowOfThePortBefore)
{
    const LayerPointer one = fed("ONE", {2, 3, 128, 128});
    const LayerPointer two = fed("TWO", {2, 3, 128, 128}, 256);
    two->setValue("goesOn", true);
    take({one, two}, {processor("MX40 Pro")});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].layers, (std::vector<qsizetype>{0, 1}));
    EXPECT_EQ(rows[0].panels, 12);
    EXPECT_EQ(rows[0].box, (PixelBox{{0, 512}, {0, 384}}));
}

TEST_F(PortRowsTest, WithoutAFigureThereIsASentenceAndNoNumber)
{
    ProcessorSettings unknown = processor("HELIOS 8K");
    unknown.bits = 8;
    take({fed("MAIN", {2, 2, 128, 128})}, {unknown});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].limit, std::nullopt);
    EXPECT_EQ(rows[0].free(), std::nullopt);
    EXPECT_EQ(rows[0].percent(), std::nullopt);
    EXPECT_EQ(rows[0].whyNoLimit, ports.wiring.processors[0].ports.error().sentence);
    EXPECT_FALSE(rows[0].whyNoLimit.isEmpty());
    EXPECT_EQ(rows[0].level(), PortRow::Level::Fits);
}

TEST_F(PortRowsTest, WithoutProcessorsTheRunsOfTheLimitAreListedWithoutNames)
{
    const LayerPointer main = fed("MAIN", {4, 5, 100, 100}, 0, {});
    main->setPixelLimit(80'000);
    take({main}, {});
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[2].port, "3");
    EXPECT_EQ(rows[2].processor, QString());
    EXPECT_EQ(rows[2].panels, 4);
    EXPECT_EQ(rows[2].free(), 40'000);
    EXPECT_EQ(rows[0].percent(), 100.0);
    EXPECT_EQ(summary.count, QString());

    main->setPixelLimit(0);
    take({main}, {});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].limit, std::nullopt);
    EXPECT_EQ(rows[0].whyNoLimit, "The wall has no limit of pixels per port.");

    main->setPixelLimit(39'999);
    take({main}, {});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].level(), PortRow::Level::Over);
    EXPECT_EQ(summary.worst, "1 port over its limit");
}

TEST_F(PortRowsTest, ARowSaysWhatTakesTheMostOfThePort)
{
    ProcessorSettings careful = processor("MX40 Pro");
    careful.headroom = 10;
    take({fed("MAIN", {2, 2, 128, 128})}, {careful});
    ASSERT_EQ(rows.size(), 1);
    ASSERT_TRUE(rows[0].costliest);
    EXPECT_EQ(rows[0].costliest->rule, RuleCost::Rule::Headroom);
    EXPECT_EQ(rows[0].costliest->pixels, 65'973); // a tenth of 659,722
}

TEST_F(PortRowsTest, RunsThatAreAlikeAreOneRowWhereTheyAreMany)
{
    const LayerPointer tall = fed("TALL", {1, 2'000, 100, 100}, 0, {});
    tall->setPixelLimit(10'000);
    take({tall}, {});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].port, "1 to 2,000");
    EXPECT_EQ(rows[0].panels, 1);
}

TEST_F(PortRowsTest, TheLineSaysHowManyProcessorsAreMissing)
{
    take({fed("MAIN", {20, 100, 128, 128})}, {processor("MX40 Pro")});
    EXPECT_EQ(summary.count, "50 ports");
    EXPECT_EQ(summary.worst, "MAIN needs 3 more MX40 Pro (37 ports over)");
    EXPECT_EQ(summary.level, PortRow::Level::Over);
    ASSERT_TRUE(summary.needed);
    EXPECT_EQ(summary.needed->processors, 3); // 13 ports fill what one bears as a whole
    EXPECT_EQ(rows.back().port, "A?");
}

TEST_F(PortRowsTest, AWallWhoseProcessorIsMissingWaits)
{
    take({fed("MAIN", {2, 2, 128, 128}, 0, "B")}, {processor("MX40 Pro")});
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(summary.worst, "MAIN waits: the show has no processor \"B\"");
    EXPECT_EQ(summary.level, PortRow::Level::Over);
    take({fed("MAIN", {2, 2, 128, 128}), fed("SIDE", {2, 2, 128, 128}, 256), fed("FREE", {2, 2, 128, 128}, 512, {})},
         {});
    ASSERT_EQ(rows.size(), 1);
    EXPECT_EQ(rows[0].layers, std::vector<qsizetype>{2});
    EXPECT_EQ(summary.worst, "MAIN and SIDE wait: the show has no processor \"A\"");
}

TEST_F(PortRowsTest, WhatIsMeantIsNoErrorOfTheLine)
{
    const LayerPointer main = fed("MAIN", {2, 2, 128, 128});
    main->setValue("split", "hand");
    main->setValue("meant", QVariant::fromValue(std::optional(QStringList("panel-not-fed"))));
    take({main}, {processor("MX40 Pro")});
    EXPECT_EQ(summary.worst, QString());
    EXPECT_EQ(summary.level, PortRow::Level::Fits);
}

TEST_F(PortRowsTest, TheLineTellsWhatElseIsAnError)
{
    const LayerPointer main = fed("MAIN", {2, 2, 128, 128});
    main->setValue("firstPort", 25);
    take({fed("TOP", {2, 2, 128, 128}, 0, {}), main}, {processor("MX40 Pro")});
    EXPECT_EQ(summary.worst, "MAIN keeps port A25 first, and processor A has 20 ports; choose another first port");
    EXPECT_EQ(summary.level, PortRow::Level::Over);
    EXPECT_FALSE(summary.needed);
    main->setValue("split", "hand");
    take({main}, {processor("MX40 Pro")});
    EXPECT_EQ(summary.worst, "MAIN: 4 panels are on no cable; lay one through them");
}
