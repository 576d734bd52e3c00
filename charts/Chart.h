#pragma once

#include "charts/ChartShape.h"

#include <QImage>
#include <QRegion>
#include <QString>

#include <optional>
#include <span>

class ChartPainter;

/// What a chart is for, in the order of a menu.
enum class ChartGroup
{
    Rigging,   ///< which panel is where
    Processor, ///< what is scaled, cropped or late
    Video,     ///< levels and colours of the chain
    Camera,    ///< what a camera sees
    Show       ///< geometry for an audience
};

/// A standard chart: one of the table. A picture of it follows from shape and frame alone: every display that is at
/// the same frame shows the same.
struct Chart
{
    /// Of ChartOptions: which of them a chart heeds.
    enum Choice : unsigned
    {
        None = 0,
        Colour = 1,
        Level = 2,
        Steps = 4,
        Speed = 8,
        Hold = 16,
        Start = 32
    };

    const char *name;  ///< short and fixed: in files and on the command line
    const char *title; ///< for people
    const char *finds; ///< what it is good for, a sentence's part: "which axis is scaled"
    ChartGroup group;
    unsigned choices = None;   ///< of Choice
    bool rangeMatters = false; ///< others are drawn in full range whatever the shape says
    bool needsPanels = false;  ///< black without them
    /// Flashes more than three times a second, in a tenth of the chart: who shows it asks each time, and ends it after
    /// 30 s. All others keep below, save for the small squares of the counter beside the clock.
    bool flashes = false;
    bool heedsWalls = false; ///< others are drawn alike whatever walls the shape has
    /// A field of this level in per cent, where no other is chosen; none for what is no field, even for a while.
    std::optional<int> field = std::nullopt;
    void (*paint)(ChartPainter &painter, const ChartShape &shape, qint64 frame);  ///< for draw()
    QRegion (*change)(const ChartShape &shape, qint64 from, qint64 to) = nullptr; ///< for moved(); null: stands still

    /// All charts, group by group in the order of a menu.
    static std::span<const Chart> all();
    /// The chart of a name; null: there is none.
    static const Chart *find(const QString &name);
    /// "Rigging"
    static QString groupName(ChartGroup group);
    /// "full 0-255", "narrow 16-235"
    static QString rangeName(LevelRange range);

    bool moves() const { return change != nullptr; }
    /// All of it is white, even for a while: panels draw what they can.
    bool isFullWhite(const ChartOptions &options) const;

    /// Draws `frame` (any number; the clock's frames are counted from 0) into the `parts` of a raster that has the
    /// shape's size and `QImage::Format_RGB32`. Pixels beside them stay as they are, those within are as when all is
    /// drawn. Nothing is antialiased but letters. Main thread only.
    void draw(const ChartShape &shape, qint64 frame, QImage &raster, const QRegion &parts) const;

    /// The whole picture of a frame; null where the memory cannot be had.
    [[nodiscard]] QImage picture(const ChartShape &shape, qint64 frame) const;

    /// Where two frames of a shape may differ: drawn there, the picture of `from` becomes that of `to`. Empty for a
    /// chart that stands still.
    [[nodiscard]] QRegion moved(const ChartShape &shape, qint64 from, qint64 to) const;
};
