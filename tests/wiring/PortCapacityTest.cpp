#include "wiring/PortCapacity.h"

#include <gtest/gtest.h>

namespace {
using Reason = NoFigure::Reason;
using Origin = PortCapacity::Origin;

ProcessorSettings settingsOf(const QString &model, int bits, double rate, const QString &card = {})
{
    ProcessorSettings settings;
    settings.model = model;
    settings.bits = bits;
    settings.rate = rate;
    settings.card = card;
    return settings;
}

/// -1: no figure.
qint64 pixels(const QString &model, int bits, double rate, const QString &card = {})
{
    const auto capacity = PortCapacity::of(settingsOf(model, bits, rate, card));
    return capacity ? capacity->pixels : -1;
}

Reason reason(const QString &model, int bits, double rate)
{
    const auto capacity = PortCapacity::of(settingsOf(model, bits, rate));
    EXPECT_FALSE(capacity);
    return capacity.error().reason;
}
} // namespace

TEST(PortCapacity, IsThePrintedTableCellByCell)
{
    struct Row
    {
        const char *model;
        int bits;
        const char *card;
        qint64 pixels[6];
    };
    constexpr double rates[] = {24, 25, 30, 50, 60, 120};
    const char *a10 = "A10s Pro";
    const char *xa50 = "XA50 Pro";
    const Row rows[] = {
        {"MX40 Pro", 8, "", {1649305, 1583333, 1319444, 791666, 659722, 329861}},
        {"MX40 Pro", 10, a10, {1236979, 1187500, 989583, 593750, 494791, 247395}},
        {"MX40 Pro", 12, a10, {824652, 791666, 659722, 395833, 329861, 164930}},
        {"MX40 Pro", 10, "other", {824652, 791666, 659722, 395833, 329861, 164930}},
        {"VX1000", 8, "", {1625000, 1560000, 1300000, 780000, 650000, 325000}},
        {"VX1000", 10, "", {812500, 780000, 650000, 390000, 325000, 162500}},
        {"VX1000", 12, "", {812500, 780000, 650000, 390000, 325000, 162500}},
        {"MCTRL4K", 10, "", {800000, 768000, 640000, 384000, 320000, 160000}},
        {"MCTRL4K", 12, "", {800000, 768000, 640000, 384000, 320000, 160000}},
        {"CX40 Pro", 8, xa50, {7378000, 7082800, 5902400, 3541440, 2951200, 1475600}},
        {"CX40 Pro", 10, xa50, {5728280, 5499149, 4582624, 2749574, 2291312, 1145656}},
        {"CX40 Pro", 12, xa50, {3689000, 3541440, 2951200, 1770720, 1475600, 737800}},
        {"Tessera S8", 8, "", {1312500, 1260000, 1050000, 630000, 525000, 262500}},
        {"Tessera S8", 10, "", {1050000, 1008000, 840000, 504000, 420000, 210000}},
        {"Tessera S8", 12, "", {875000, 840000, 700000, 420000, 350000, 175000}},
        {"HELIOS 8K", 10, "", {1237000, 1187000, 985000, 583000, 482000, 230000}},
        {"HELIOS 8K", 12, "", {1031000, 989000, 821000, 485000, 401000, 192000}},
        {"VX10", 8, "", {650000, 650000, 650000, 650000, 650000, 320000}},
        {"VX10", 10, "", {490000, 490000, 490000, 490000, 490000, 240000}},
    };
    for (const Row &row : rows) {
        for (int rate = 0; rate < 6; ++rate)
            EXPECT_EQ(pixels(row.model, row.bits, rates[rate], row.card), row.pixels[rate])
                << row.model << " " << row.bits << " bit " << rates[rate] << " Hz";
    }
}

TEST(PortCapacity, IsThePrintedTableOfFasterTilesCellByCell)
{
    const CapacityModel &model = ProcessorCatalogue::builtIn().capacityModels().at("helios-2.5g");
    const auto printed = [&](int bits, int hz) {
        for (const CapacityCell &cell : model.published)
            if (cell.bits == bits && cell.hz == hz)
                return cell.pixels;
        return qint64{-1};
    };
    constexpr int rates[] = {24, 25, 30, 50, 60, 120};
    constexpr qint64 ten[] = {3094000, 2968000, 2464000, 1457000, 1205000, 576000};
    constexpr qint64 twelve[] = {2578000, 2473000, 2053000, 1214000, 1004000, 480000};
    for (int rate = 0; rate < 6; ++rate) {
        EXPECT_EQ(printed(10, rates[rate]), ten[rate]);
        EXPECT_EQ(printed(12, rates[rate]), twelve[rate]);
    }
}

TEST(PortCapacity, TelevisionRatesCountAsTheWholeOnes)
{
    constexpr double pairs[][2] = {{23.976, 24}, {29.97, 30}, {47.95, 48}, {59.94, 60}, {119.88, 120}};
    for (const auto &[rate, whole] : pairs) {
        for (const char *model : {"MX40 Pro", "Tessera SX40", "CX40 Pro"})
            EXPECT_EQ(pixels(model, 8, rate), pixels(model, 8, whole)) << model << rate;
    }
    EXPECT_EQ(pixels("MX40 Pro", 8, 59.94), 659722);
    EXPECT_EQ(pixels("MX40 Pro", 8, 59.5), 665266); // 950,000,000 / (24 x 59.5)
    EXPECT_EQ(pixels("HELIOS 8K", 12, 47.95), 506000);
}

TEST(PortCapacity, ARateThatIsMissingFromATableTakesTheNextHigherOne)
{
    const auto capacity = PortCapacity::of(settingsOf("HELIOS 8K", 10, 72));
    EXPECT_EQ(capacity->pixels, 230000);
    EXPECT_EQ(capacity->origin, Origin::NextHigherRate);
    EXPECT_EQ(pixels("VX10", 8, 61), 320000);
    EXPECT_EQ(pixels("VX10", 8, 23.976), 650000);
}

TEST(PortCapacity, ThereIsNoFigureAboveTheLastRateOrAtAnUnprintedDepth)
{
    EXPECT_EQ(reason("HELIOS 8K", 12, 250), Reason::NoSuchRate);
    EXPECT_EQ(reason("MX40 Pro", 8, 240.5), Reason::NoSuchRate);
    EXPECT_EQ(reason("VX1000", 8, 150), Reason::NoSuchRate);
    EXPECT_EQ(reason("MX40 Pro", 8, 0), Reason::NoSuchRate);
    EXPECT_EQ(reason("MX40 Pro", 8, std::nan("")), Reason::NoSuchRate);
    EXPECT_EQ(reason("HELIOS 8K", 8, 60), Reason::NoSuchDepth);
    EXPECT_EQ(reason("X8m", 10, 60), Reason::NoSuchDepth);
    EXPECT_EQ(reason("KU20", 10, 60), Reason::NoSuchDepth); // its link has them, the model has not
    EXPECT_EQ(reason("P10 / P20 / Q8", 8, 60), Reason::NothingPublished);
    EXPECT_EQ(reason("none of them", 8, 60), Reason::NoSuchModel);
    EXPECT_EQ(PortCapacity::of(settingsOf("HELIOS 8K", 12, 250)).error().sentence,
              "No figure is published for HELIOS 8K at 12 bit and 250 Hz; type the pixels per port.");
}

TEST(PortCapacity, AnUnknownCardTakesTheLowestFigure)
{
    EXPECT_EQ(pixels("MX40 Pro", 10, 60, "A8s Pro"), 494791);
    EXPECT_EQ(pixels("MX40 Pro", 10, 60, "A10s Pro, A8s Pro"), 494791);
    EXPECT_EQ(pixels("MX40 Pro", 10, 60), 329861);
    EXPECT_EQ(pixels("MX40 Pro", 10, 60, "something else"), 329861);
    EXPECT_EQ(pixels("CX40 Pro", 8, 60), 2592000);
    EXPECT_EQ(pixels("CX40 Pro", 10, 60), 2073000);
    EXPECT_EQ(pixels("CX40 Pro", 12, 60), 1475600);
    EXPECT_EQ(pixels("CX40 Pro", 8, 60, "CA50E"), 2951200);
    EXPECT_EQ(pixels("CX40 Pro", 8, 144), 648000); // the older sheets print 240 Hz next
}

TEST(PortCapacity, PrintedCellsThatWereRoundedUpAreRoundedDown)
{
    EXPECT_EQ(pixels("Tessera SX40", 8, 192), 164062);
    EXPECT_EQ(pixels("Tessera SX40", 12, 72), 291666);
    EXPECT_EQ(pixels("Tessera SX40", 12, 180), 116666);
    EXPECT_EQ(PortCapacity::of(settingsOf("Tessera SX40", 8, 60))->origin, Origin::Published);
    EXPECT_EQ(PortCapacity::of(settingsOf("Tessera SX40", 8, 90))->origin, Origin::Derived);
}

TEST(PortCapacity, LowLatencyHalvesWhereTheModelHasIt)
{
    ProcessorSettings settings = settingsOf("Tessera SX40", 12, 192);
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 109375);
    settings.lowLatency = true;
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 54687);
    settings.model = "Tessera S4";
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 109375);
    settings = settingsOf("HELIOS 8K", 12, 60);
    settings.lowLatency = true;
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 401000);
}

TEST(PortCapacity, HeadroomIsTakenOffAndRoundedDown)
{
    ProcessorSettings settings = settingsOf("MX40 Pro", 8, 60);
    settings.headroom = 10;
    EXPECT_EQ(PortCapacity::of(settings)->pixels, 659722);
    EXPECT_EQ(PortCapacity::of(settings)->limit, 593749);
}

TEST(PortCapacity, ATypedFigureReplacesTheModelsAndItsLack)
{
    ProcessorSettings settings = settingsOf("X8m", 10, 60);
    settings.capacity = 325000;
    settings.headroom = 1;
    const auto capacity = PortCapacity::of(settings);
    ASSERT_TRUE(capacity);
    EXPECT_EQ(capacity->pixels, 325000);
    EXPECT_EQ(capacity->limit, 321750);
    EXPECT_EQ(capacity->origin, Origin::Typed);
    EXPECT_FALSE(capacity->model);
    EXPECT_FALSE(capacity->highestRate(settings, 1000));
}

TEST(PortCapacity, SaysTheHighestRateOfAFigure)
{
    ProcessorSettings settings = settingsOf("MX40 Pro", 8, 60);
    EXPECT_NEAR(*PortCapacity::of(settings)->highestRate(settings, 40 * 128 * 128), 60.399, 0.001);
    EXPECT_EQ(PortCapacity::of(settings)->highestRate(settings, 1), 240);
    EXPECT_NEAR(*PortCapacity::of(settings)->highestRate(settings, 39'000'000), 1.015, 0.001);
    EXPECT_FALSE(PortCapacity::of(settings)->highestRate(settings, 40'000'000)); // not once a second
    EXPECT_FALSE(PortCapacity::of(settings)->highestRate(settings, qint64{1} << 41));
    settings = settingsOf("HELIOS 8K", 12, 50);
    EXPECT_EQ(PortCapacity::of(settings)->highestRate(settings, 409600), 50);
    EXPECT_EQ(PortCapacity::of(settings)->highestRate(settings, 485000), 50);
    EXPECT_EQ(PortCapacity::of(settings)->highestRate(settings, 485001), 48);
    EXPECT_FALSE(PortCapacity::of(settings)->highestRate(settings, 1'031'001));
    settings = settingsOf("Tessera SX40", 12, 60);
    EXPECT_EQ(PortCapacity::of(settings)->highestRate(settings, 350'000), 60);
}
