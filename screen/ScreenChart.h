#pragma once

#include "drawing/DrawingSurface.h"
#include "drawing/TextLine.h"
#include "layer/LayerRecord.h"
#include "layer/WallCables.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRegion>

#include <optional>
#include <vector>

/// What a wall's picture shows of the wall's surroundings.
struct ChartSurroundings
{
    int popupIndex = 0;   ///< which corner coordinates: 0 the top left, 1 the bottom, 2 all
    qint64 voltage = 110; ///< volts
    qint64 phases = 1;
    WallCablesPointer cables = {}; ///< what hangs on its ports; null: nobody says

    bool operator==(const ChartSurroundings &) const = default;
};

/// The picture of a wall: what the wall is like and its surroundings, and the drawing of them.
/// Coordinates are the raster's: origin bottom-left, y up, panel row 0 at the bottom. Half means integer division.
class ScreenChart : public LayerRecord, public ChartSurroundings
{
public:
    ScreenChart() = default;
    ScreenChart(const LayerRecord &wall, const ChartSurroundings &around) : LayerRecord(wall), ChartSurroundings(around)
    {}

    /// The size of the wall in pixels, in 64 bits since a file may claim anything.
    qint64 wallWidth() const;
    qint64 wallHeight() const;

    /// The chart as a raster (drawing/Raster.h) of the wall's size, in the memory of `old` where that fits and nobody
    /// else holds it. A null image where the wall has no pixels, more than a raster can hold, or more than there is
    /// memory for; the latter two are logged.
    /// A text whose colour is nil is not drawn.
    QImage draw(QImage old) const;
    /// Draws a part of a raster that draw() gave a wall of this size, so that it is as draw() would give it; the pixels
    /// beside the part stay. `part`: from the raster's top left, within it.
    void drawPart(QImage &raster, const QRect &part) const;
    /// Where the chart's picture can differ from that of `before`, from the raster's top left. None: anywhere, or its
    /// size is another one.
    std::optional<QRegion> changeSince(const ScreenChart &before) const;

    /// The overlay pass: panel labels, then the data path of each port over everything.
    void drawRect2(DrawingSurface &surface) const;

    /// The current that the wall draws, in amperes: its power, summed in 32 bits, through volts times phases, in single
    /// precision. 0 where there is no divisor.
    float amperes() const;

    bool operator==(const ScreenChart &) const = default;

private:
    struct PlacedText
    {
        QPoint bottomLeft;
        TextLine text;
        TextColours colours;

        bool operator==(const PlacedText &) const = default;
    };

    void drawCircleAndDiagonals(DrawingSurface &surface) const;
    QRegion changedTexts(const ScreenChart &before) const;
    std::optional<QRegion> changedCables(const ScreenChart &before) const;
    std::vector<PlacedText> texts() const;
    void addCentreTexts(std::vector<PlacedText> &texts) const;
    void addCornerTexts(std::vector<PlacedText> &texts) const;
    /// Those of the surroundings; else, of a wall by hand, those that its record has.
    WallCables knownCables() const;
    /// The cables are drawn, not the lines of the pattern.
    bool showsCables() const;
    /// Of each of the cables.
    std::vector<Colour> coloursOf(const WallCables &known) const;
    Colour colourOfRun(qint64 place, const std::vector<Colour> &colours) const;
    void drawCables(DrawingSurface &surface, const WallCables &known, const std::vector<Colour> &colours) const;
    void drawDataPath(DrawingSurface &surface, const std::vector<Colour> &colours) const;
};
