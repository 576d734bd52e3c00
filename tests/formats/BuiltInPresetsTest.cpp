#include "formats/BuiltInPresets.h"

#include "screen/LWScreen.h"
#include "tests/screen/TestHost.h"

#include <gtest/gtest.h>

namespace {
QString nameOf(const OptionalColour &colour)
{
    const std::vector<std::pair<QString, Colour>> names{
        {"red", {1, 0, 0, 1}},
        {"green", {0, 1, 0, 1}},
        {"blue", {0, 0, 1, 1}},
        {"yellow", {1, 1, 0, 1}},
        {"orange", {1, 0.5, 0, 1}},
        {"cyan", {0, 1, 1, 1}},
        {"magenta", {1, 0, 1, 1}},
        {"purple", {0.5, 0, 0.5, 1}},
        {"white", {1, 1, 1, 1}},
        {"gray", {0.5, 0.5, 0.5, 1}},
        {"light gray", {2.0 / 3, 2.0 / 3, 2.0 / 3, 1}},
        {"dark gray", {1.0 / 3, 1.0 / 3, 1.0 / 3, 1}},
    };
    const auto known =
        std::find_if(names.begin(), names.end(), [&](const auto &name) { return name.second == colour; });
    return known == names.end() ? "unknown" : known->first;
}

/// Label, rows x columns of panel size, both panel colours, power.
QString line(const Layer &preset)
{
    return QString("%1: %2 x %3 of %4 x %5, %6 and %7, %8 W")
        .arg(preset.label())
        .arg(preset.row())
        .arg(preset.col())
        .arg(preset.panelWidth())
        .arg(preset.panelHeight())
        .arg(nameOf(preset.rectColor()), nameOf(preset.rectColor2()))
        .arg(preset.powerOnCell());
}

QString lookOf(const Layer &preset)
{
    const auto onOff = [](bool flag) { return flag ? "on" : "off"; };
    return QString("background %1, border %2 %3, circle %4 at %5, %6")
        .arg(onOff(preset.bgEnable()), onOff(preset.BoarderEnable()), nameOf(preset.boarderColor()),
             onOff(preset.CircleEnable()))
        .arg(preset.xpoint())
        .arg(preset.ypoint());
}

const QStringList lines{
    "P 2.6: 3 x 5 of 192 x 192, yellow and green, 200 W",
    "P 2.8: 3 x 5 of 176 x 176, orange and blue, 200 W",
    "P 3.125: 3 x 5 of 160 x 160, gray and red, 200 W",
    "P 3.9: 3 x 5 of 128 x 128, dark gray and cyan, 220 W",
    "P 4.46: 3 x 5 of 112 x 112, purple and green, 200 W",
    "P 4.8: 3 x 5 of 104 x 104, magenta and blue, 200 W",
    "P 5.2: 3 x 5 of 96 x 96, red and blue, 200 W",
    "P 5.9: 3 x 5 of 84 x 84, cyan and red, 200 W",
    "P 6.25: 3 x 5 of 80 x 80, purple and yellow, 200 W",
    "P 7.8: 3 x 5 of 64 x 64, red and blue, 200 W",
    "P 8.9: 3 x 5 of 56 x 56, cyan and orange, 200 W",
    "P 10.4: 3 x 5 of 48 x 48, green and purple, 200 W",
    "P 15.6: 3 x 5 of 32 x 32, orange and blue, 200 W",
    "X3C: 3 x 5 of 128 x 128, yellow and green, 175 W",
    "X4C: 3 x 5 of 104 x 104, orange and blue, 225 W",
    "X5C: 3 x 5 of 84 x 84, red and green, 225 W",
    "X7C: 3 x 5 of 64 x 64, blue and cyan, 220 W",
    "X7HD: 3 x 5 of 128 x 128, purple and green, 600 W",
    "X7B: 3 x 5 of 80 x 80, dark gray and red, 510 W",
    "X7W: 3 x 5 of 80 x 80, magenta and blue, 320 W",
    "HDO X7: 6 x 5 of 160 x 80, cyan and red, 640 W",
    "X12: 3 x 5 of 48 x 48, purple and yellow, 360 W",
    "HDO X12: 6 x 5 of 96 x 48, red and blue, 720 W",
    "Lighthouse 12: 3 x 5 of 48 x 48, cyan and orange, 305 W",
    "X15: 6 x 5 of 64 x 32, yellow and purple, 950 W",
    "Linx-9: 6 x 5 of 128 x 32, orange and blue, 305 W",
    "AOTO M10: 3 x 5 of 48 x 48, light gray and cyan, 180 W",
    "CIRCLE: 1 x 1 of 960 x 540, red and green, 0 W",
    "CROSS: 2 x 2 of 960 x 540, red and green, 0 W",
    "LINES: 3 x 1 of 1920 x 540, green and green, 0 W",
    "GRID: 10 x 10 of 192 x 108, red and green, 0 W",
};

class BuiltInPresetsTest : public ::testing::Test
{
protected:
    TestHost host;
    const std::vector<LayerPointer> presets = BuiltInPresets::make(host);
};
} // namespace

TEST_F(BuiltInPresetsTest, ThirtyOneStandInTheirOrder)
{
    QStringList made;
    for (const LayerPointer &preset : presets)
        made.append(line(*preset));

    EXPECT_EQ(made.size(), 31);
    EXPECT_EQ(made, lines) << qPrintable(made.join('\n'));
}

TEST_F(BuiltInPresetsTest, PanelTypesLookAlike)
{
    ASSERT_EQ(presets.size(), 31U);
    for (std::size_t row = 0; row < 27; ++row)
        EXPECT_EQ(lookOf(*presets[row]), "background on, border on white, circle on at 0, 0") << row;
}

TEST_F(BuiltInPresetsTest, TestPatternsLookDifferent)
{
    ASSERT_EQ(presets.size(), 31U);
    EXPECT_EQ(lookOf(*presets[27]), "background off, border off white, circle on at 480, 270");
    EXPECT_EQ(lookOf(*presets[28]), "background off, border on red, circle off at 0, 0");
    EXPECT_EQ(lookOf(*presets[29]), "background off, border on green, circle off at 0, -270");
    EXPECT_EQ(lookOf(*presets[30]), "background off, border on white, circle off at 0, 0");
}

TEST_F(BuiltInPresetsTest, TextsAndCirclesAreWhiteAndNoPanelIsHidden)
{
    for (const LayerPointer &preset : presets) {
        const auto *const screen = qobject_cast<LWScreen *>(preset.get());
        ASSERT_NE(screen, nullptr);
        EXPECT_EQ(nameOf(screen->circleColor()), "white");
        EXPECT_EQ(nameOf(screen->xyColor()), "white");
        EXPECT_EQ(nameOf(screen->sfColor()), "white");
        EXPECT_EQ(screen->XYFontSize(), 50);
        EXPECT_TRUE(screen->visible());
        EXPECT_EQ(screen->hiddenBoxes(), QStringList());
    }
}

TEST_F(BuiltInPresetsTest, PicturesHaveTheSizeOfTheWall)
{
    ASSERT_EQ(presets.size(), 31U);
    EXPECT_EQ(presets[0]->thumbnail().size(), QSize(960, 576));
    EXPECT_EQ(presets[20]->thumbnail().size(), QSize(800, 480));
    EXPECT_EQ(presets[29]->thumbnail().size(), QSize(1920, 1620));
    EXPECT_EQ(presets[30]->thumbnail().size(), QSize(1920, 1080));
}

TEST_F(BuiltInPresetsTest, EachCallMakesPresetsOfItsOwn)
{
    presets.front()->setLabel("changed");

    EXPECT_EQ(BuiltInPresets::make(host).front()->label(), "P 2.6");
}
