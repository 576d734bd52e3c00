#include "layer/PortColours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <numbers>
#include <random>

namespace {
using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

Triple times(const Matrix &matrix, const Triple &vector)
{
    Triple result{};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = matrix[i][0] * vector[0] + matrix[i][1] * vector[1] + matrix[i][2] * vector[2];
    return result;
}

/// What eyes see that lack a kind of cones: Machado, Oliveira and Fernandes, "A Physiologically-based Model for
/// Simulation of Color Vision Deficiency", 2009, severity 1, for linear sRGB.
constexpr std::array<Matrix, 4> sights{{
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
}};

/// CIE L*a*b* for the white of sRGB, D65.
Triple labOf(const Colour &colour, const Matrix &sight)
{
    constexpr Matrix toXyz{
        {{0.4124564, 0.3575761, 0.1804375}, {0.2126729, 0.7151522, 0.0721750}, {0.0193339, 0.1191920, 0.9503041}}};
    constexpr Triple white{0.95047, 1, 1.08883};
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    Triple seen = times(sight, {linear(colour.red), linear(colour.green), linear(colour.blue)});
    std::ranges::transform(seen, seen.begin(), [](double value) { return std::clamp(value, 0.0, 1.0); });
    Triple xyz = times(toXyz, seen);
    for (std::size_t i = 0; i < 3; ++i) {
        const double ratio = xyz[i] / white[i];
        xyz[i] = ratio > 216.0 / 24389 ? std::cbrt(ratio) : (24389.0 / 27 * ratio + 16) / 116;
    }
    return {116 * xyz[1] - 16, 500 * (xyz[0] - xyz[1]), 200 * (xyz[1] - xyz[2])};
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180;
}

double hueOf(double a, double b)
{
    const double degrees = std::atan2(b, a) * 180 / std::numbers::pi;
    return degrees < 0 ? degrees + 360 : degrees;
}

/// CIEDE2000: Sharma, Wu and Dalal, "The CIEDE2000 Color-Difference Formula", 2005.
double difference(Triple one, Triple other)
{
    constexpr double pow25 = 6103515625.0;
    const auto blueTurn = [](double chroma) { return std::sqrt(std::pow(chroma, 7) / (std::pow(chroma, 7) + pow25)); };
    const double g = 0.5 * (1 - blueTurn((std::hypot(one[1], one[2]) + std::hypot(other[1], other[2])) / 2));
    one[1] *= 1 + g;
    other[1] *= 1 + g;
    const double c1 = std::hypot(one[1], one[2]);
    const double c2 = std::hypot(other[1], other[2]);
    const double h1 = hueOf(one[1], one[2]);
    const double h2 = hueOf(other[1], other[2]);
    const bool isAcross = std::abs(h2 - h1) > 180;
    const double turn = h2 - h1 - (isAcross ? std::copysign(360, h2 - h1) : 0);
    const double hue = (h1 + h2) / 2 + (isAcross ? (h1 + h2 < 360 ? 180 : -180) : 0);
    const double lightness = (one[0] + other[0]) / 2 - 50;
    const double chroma = (c1 + c2) / 2;
    const double t = 1 - 0.17 * std::cos(radians(hue - 30)) + 0.24 * std::cos(radians(2 * hue)) +
                     0.32 * std::cos(radians(3 * hue + 6)) - 0.20 * std::cos(radians(4 * hue - 63));
    const double l = (other[0] - one[0]) / (1 + 0.015 * lightness * lightness / std::sqrt(20 + lightness * lightness));
    const double c = (c2 - c1) / (1 + 0.045 * chroma);
    const double h = 2 * std::sqrt(c1 * c2) * std::sin(radians(turn / 2)) / (1 + 0.015 * chroma * t);
    const double bend = 30 * std::exp(-std::pow((hue - 275) / 25, 2));
    return std::sqrt(l * l + c * c + h * h - std::sin(radians(2 * bend)) * 2 * blueTurn(chroma) * c * h);
}

/// As any of the eyes sees them.
double leastDifference(const Colour &one, const Colour &other)
{
    double least = 1000;
    for (const Matrix &sight : sights)
        least = std::min(least, difference(labOf(one, sight), labOf(other, sight)));
    return least;
}

WallCable cable(const QString &processor, qint64 port, const std::vector<Cell> &cells)
{
    WallCable cable;
    cable.port = {processor, port};
    cable.cells = cells;
    return cable;
}
} // namespace

/// Pairs 1, 4, 7 and 17 of that paper.
TEST(PortColours, AreComparedByTheFormulaOfThePaper)
{
    EXPECT_NEAR(difference({50, 2.6772, -79.7751}, {50, 0, -82.7485}), 2.0425, 1e-4);
    EXPECT_NEAR(difference({50, -1.3802, -84.2814}, {50, 0, -82.7485}), 1.0000, 1e-4);
    EXPECT_NEAR(difference({50, 0, 0}, {50, -1, 2}), 2.3669, 1e-4);
    EXPECT_NEAR(difference({50, 2.5, 0}, {73, 25, -18}), 27.1492, 1e-4);
}

TEST(PortColours, DifferForEveryEye)
{
    for (qint64 port = 1; port <= PortColours::count; ++port) {
        for (qint64 other = port + 1; other <= PortColours::count; ++other)
            EXPECT_GE(leastDifference(PortColours::of(port), PortColours::of(other)), 15) << port << " and " << other;
    }
}

TEST(PortColours, GoRoundAfterTheLast)
{
    EXPECT_EQ(PortColours::of(11), PortColours::of(1));
    EXPECT_EQ(PortColours::of(0), PortColours::of(1));
    EXPECT_NE(PortColours::of(10), PortColours::of(1));
}

TEST(PortColours, OfAWallAreThoseOfItsPortsWhereNoNeighbourHasThem)
{
    const WallCables cables{cable("A", 1, {{0, 0}}), cable("A", 12, {{5, 5}}), cable("B", 7, {{9, 9}}),
                            cable("A", 1, {{3, 3}})};
    const std::vector<Colour> colours{PortColours::of(1), PortColours::of(2), PortColours::of(7), PortColours::of(1)};
    EXPECT_EQ(PortColours::of(cables), colours);
    EXPECT_TRUE(PortColours::of(WallCables()).empty());
}

TEST(PortColours, OfPortsThatMeetDifferAcrossProcessorsToo)
{
    for (const qint64 last : {1, 11, 13, 17, 21}) {
        const auto colours = PortColours::of({cable("A", last, {{0, 0}}), cable("B", 1, {{1, 0}})});
        EXPECT_GE(leastDifference(colours[0], colours[1]), 15) << last;
    }
    const auto apart = PortColours::of({cable("A", 11, {{4, 4}}), cable("A", 12, {}), cable("A", 1, {{4, 5}})});
    EXPECT_GE(leastDifference(apart[0], apart[2]), 15);
    const auto nameless = PortColours::of({cable("A", 0, {{0, 0}}), cable("A", 0, {{1, 0}}), cable("A", 0, {{2, 0}})});
    EXPECT_GE(leastDifference(nameless[0], nameless[1]), 15);
    EXPECT_GE(leastDifference(nameless[1], nameless[2]), 15);
}

TEST(PortColours, OfRandomWallsDifferWherePortsMeet)
{
    std::minstd_rand chance(16);
    const auto from = [&](int least, int most) {
        return least + static_cast<int>(chance() % unsigned(most - least + 1));
    };
    for (int round = 0; round < 2'000; ++round) {
        const int columns = from(1, 12);
        const int rows = from(1, 12);
        // To and fro, as ports are cut, with holes; from somewhere on the next processor.
        WallCables cables;
        std::map<std::pair<int, int>, std::size_t> portAt;
        int number = from(1, 30);
        QString processor = "A";
        int left = 0;
        for (int place = 0; place < columns * rows; ++place) {
            const int row = place / columns;
            const int column = row % 2 == 0 ? place % columns : columns - 1 - place % columns;
            if (left-- == 0) {
                left = from(0, round % 3 == 0 ? 30 : 4);
                cables.push_back(cable(processor, number++, {}));
                if (from(1, 8) == 1) {
                    processor = QString(QChar('A' + from(0, 5)));
                    number = from(1, 30);
                }
            }
            if (from(1, 6) == 1)
                continue;
            cables.back().cells.push_back({column, row});
            portAt[{row, column}] = cables.size() - 1;
        }
        const std::vector<Colour> colours = PortColours::of(cables);
        for (const auto &[at, port] : portAt) {
            for (const auto &next : {std::pair(at.first + 1, at.second), std::pair(at.first, at.second + 1)}) {
                const auto other = portAt.find(next);
                if (other == portAt.end() || cables[other->second].port == cables[port].port)
                    continue;
                ASSERT_GE(leastDifference(colours[port], colours[other->second]), 15) << "round " << round;
            }
        }
    }
}
