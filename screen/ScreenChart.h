#pragma once

#include "base/Colour.h"
#include "drawing/DrawingSurface.h"
#include "drawing/TextLine.h"
#include "grid/PanelGrid.h"

#include <QImage>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <vector>

/// The look of a wall at the moment of one rendering: all that its picture depends on, and the drawing.
/// Coordinates are the raster's: origin bottom-left, y up, panel row 0 at the bottom. Half means integer division.
class ScreenChart
{
public:
    // The screen's properties of the same names.
    int col = 0;
    int row = 0;
    int panelWidth = 0;
    int panelHeight = 0;
    int xpoint = 0;
    int ypoint = 0;
    bool bgEnable = false;
    OptionalColour rectColor;
    OptionalColour rectColor2;
    bool BoarderEnable = false;
    OptionalColour boarderColor;
    int boarderWidth = 0;
    bool CircleEnable = false;
    OptionalColour circleColor;
    int circleBWidth = 0;
    bool XYFontEnable = false;
    OptionalColour xyColor;
    int XYFontSize = 0;
    bool screenFontEnable = false;
    OptionalColour sfColor;
    int screenFontSize = 0;
    bool showPower = false;
    QString label;
    int powerOnCell = 0;
    bool drawLabels = false;
    bool XYLabelDirection = false;
    OptionalColour labelColor;
    double labelFontSize = 0;
    bool drawFlowPath = false;
    qint64 pattern = 0;
    qint64 pixelLimit = 0;
    QStringList hiddenBoxes;

    // What the surroundings say.
    int popupIndex = 0;   ///< which corner coordinates: 0 the top left, 1 the bottom, 2 all
    qint64 voltage = 110; ///< volts
    qint64 phases = 1;

    /// The size of the wall in pixels, in 64 bits since a file may claim anything.
    qint64 wallWidth() const { return panelGrid().columns.size(); }
    qint64 wallHeight() const { return panelGrid().rows.size(); }
    PanelGrid panelGrid() const { return {{col, panelWidth}, {row, panelHeight}}; }

    /// The chart as a raster (drawing/Raster.h) of the wall's size, in the memory of `old` where that fits and nobody
    /// else holds it. A null image where the wall has no pixels, more than a raster can hold, or more than there is
    /// memory for; the latter two are logged.
    /// A text whose colour is nil is not drawn.
    QImage draw(QImage old) const;

    /// The overlay pass: panel labels, then the data path of each port over everything.
    void drawRect2(DrawingSurface &surface) const;

    /// The current that the wall draws, in amperes: its power, summed in 32 bits, through volts times phases, in single
    /// precision. 0 where there is no divisor.
    float amperes() const;

private:
    struct PlacedText
    {
        QPoint bottomLeft;
        TextLine text;
        TextColours colours;
    };

    void drawCircleAndDiagonals(DrawingSurface &surface) const;
    std::vector<PlacedText> texts() const;
    void addCentreTexts(std::vector<PlacedText> &texts) const;
    void addCornerTexts(std::vector<PlacedText> &texts) const;
    void drawDataPath(DrawingSurface &surface) const;
};
