#pragma once

#include <QRect>
#include <QSize>
#include <QString>

#include <optional>
#include <vector>

/// The codes for black and white that a picture chain expects.
enum class LevelRange
{
    Full,  ///< 0 to 255: media servers, graphics cards, most HDMI
    Narrow ///< 16 to 235: SDI, and HDMI that is set to "limited"
};

/// The colour of a field.
enum class FieldColour
{
    White,
    Red,
    Green,
    Blue,
    Cyan,
    Magenta,
    Yellow,
    Black
};

/// A panel that is on. A chart is drawn alike whatever order they come in, save for the order of ports.
struct ChartPanel
{
    QRect box;      ///< in the chart's pixels, from the top left; may reach beyond the chart
    QString name;   ///< its label; may be empty
    QString port;   ///< "A1"; empty: on none
    int number = 0; ///< its place on the port, from 1; 0: on none

    bool operator==(const ChartPanel &) const = default;
};

/// What a person can choose of a chart; each concerns the charts that say so (Chart::choices).
struct ChartOptions
{
    FieldColour colour = FieldColour::White;
    std::optional<int> level; ///< of a field in percent, 0 to 100; nullopt: the chart's own
    int steps = 11;           ///< patches, 2 to 256
    int speed = 8;            ///< whole pixels a frame, 1 to 4096
    std::optional<int> hold;  ///< frames that a panel is lit, from 1; nullopt: a quarter of a second
    int start = 0;            ///< of the clock: seconds since midnight at frame 0
};

/// What a chart is drawn for. Sizes are 1 x 1 to 32768 x 32768; options out of their range count as its nearer end.
struct ChartShape
{
    QSize size;
    LevelRange range = LevelRange::Full;
    double rate = 60; ///< frames a second, 1 to 1000
    std::vector<ChartPanel> panels = {};
    std::vector<QRect> walls = {}; ///< outlines, in the chart's pixels from the top left
    ChartOptions options = {};
    bool caption = false; ///< whether a chart whose range matters names it in its corner, over its pixels
};
