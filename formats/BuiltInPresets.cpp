#include "formats/BuiltInPresets.h"

#include "show/NewScreens.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {
using namespace NamedColour;

/// What sets the test patterns apart from a wall of panels.
struct Look
{
    Colour boarderColor = white;
    bool bgEnable = true;
    bool boarderEnable = true;
    bool circleEnable = true;
    int hpos = 0;
    int vpos = 0;
};

constexpr Look circle{.bgEnable = false, .boarderEnable = false, .hpos = 480, .vpos = 270};
constexpr Look cross{.boarderColor = red, .bgEnable = false, .circleEnable = false};
constexpr Look lines{.boarderColor = green, .bgEnable = false, .circleEnable = false, .vpos = -270};
constexpr Look grid{.bgEnable = false, .circleEnable = false};

struct Preset
{
    const char *label;
    int row;
    int col;
    int panelWidth;
    int panelHeight;
    Colour rectColor;
    Colour rectColor2;
    int watts; ///< of one panel
    Look look = {};
};

constexpr std::array presets{
    Preset{"P 2.6", 3, 5, 192, 192, yellow, green, 200},    Preset{"P 2.8", 3, 5, 176, 176, orange, blue, 200},
    Preset{"P 3.125", 3, 5, 160, 160, gray, red, 200},      Preset{"P 3.9", 3, 5, 128, 128, darkGray, cyan, 220},
    Preset{"P 4.46", 3, 5, 112, 112, purple, green, 200},   Preset{"P 4.8", 3, 5, 104, 104, magenta, blue, 200},
    Preset{"P 5.2", 3, 5, 96, 96, red, blue, 200},          Preset{"P 5.9", 3, 5, 84, 84, cyan, red, 200},
    Preset{"P 6.25", 3, 5, 80, 80, purple, yellow, 200},    Preset{"P 7.8", 3, 5, 64, 64, red, blue, 200},
    Preset{"P 8.9", 3, 5, 56, 56, cyan, orange, 200},       Preset{"P 10.4", 3, 5, 48, 48, green, purple, 200},
    Preset{"P 15.6", 3, 5, 32, 32, orange, blue, 200},      Preset{"X3C", 3, 5, 128, 128, yellow, green, 175},
    Preset{"X4C", 3, 5, 104, 104, orange, blue, 225},       Preset{"X5C", 3, 5, 84, 84, red, green, 225},
    Preset{"X7C", 3, 5, 64, 64, blue, cyan, 220},           Preset{"X7HD", 3, 5, 128, 128, purple, green, 600},
    Preset{"X7B", 3, 5, 80, 80, darkGray, red, 510},        Preset{"X7W", 3, 5, 80, 80, magenta, blue, 320},
    Preset{"HDO X7", 6, 5, 160, 80, cyan, red, 640},        Preset{"X12", 3, 5, 48, 48, purple, yellow, 360},
    Preset{"HDO X12", 6, 5, 96, 48, red, blue, 720},        Preset{"Lighthouse 12", 3, 5, 48, 48, cyan, orange, 305},
    Preset{"X15", 6, 5, 64, 32, yellow, purple, 950},       Preset{"Linx-9", 6, 5, 128, 32, orange, blue, 305},
    Preset{"AOTO M10", 3, 5, 48, 48, lightGray, cyan, 180}, Preset{"CIRCLE", 1, 1, 960, 540, red, green, 0, circle},
    Preset{"CROSS", 2, 2, 960, 540, red, green, 0, cross},  Preset{"LINES", 3, 1, 1920, 540, green, green, 0, lines},
    Preset{"GRID", 10, 10, 192, 108, red, green, 0, grid},
};

LayerPointer makePreset(LayerHost &host, const Preset &preset)
{
    LWScreen::Arguments arguments = NewScreens::plain(preset.label);
    arguments.row = preset.row;
    arguments.col = preset.col;
    arguments.panelWidth = preset.panelWidth;
    arguments.panelHeight = preset.panelHeight;
    arguments.rectColor = preset.rectColor;
    arguments.rectColor2 = preset.rectColor2;
    arguments.boarderColor = preset.look.boarderColor;
    arguments.bgEnable = preset.look.bgEnable;
    arguments.boarderEnable = preset.look.boarderEnable;
    arguments.circleEnable = preset.look.circleEnable;
    arguments.hpos = preset.look.hpos;
    arguments.vpos = preset.look.vpos;
    return LWScreen::initWithrow(host, arguments, preset.watts);
}
} // namespace

std::vector<LayerPointer> BuiltInPresets::make(LayerHost &host)
{
    std::vector<LayerPointer> made;
    made.reserve(presets.size());
    std::transform(presets.begin(), presets.end(), std::back_inserter(made),
                   [&](const Preset &preset) { return makePreset(host, preset); });
    return made;
}
